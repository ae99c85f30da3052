#include "core/Games.h"

#include "core/Ini_Values.h"
#include "core/mdlFile_Functions.h"

namespace vantrosk {

const std::array<Game, 8> &Games() {
    static const std::array<Game, 8> games{{
        {"T1", "Thief The Dark Project", "1", "Thief 1", &Main_Ini::T1_LOCATION, &Main_Ini::T1_GAME_LOCATION,
         "Thief 1 Original Missions"},
        {"TG", "Thief Gold", "2", "Thief Gold", &Main_Ini::TG_LOCATION, &Main_Ini::TG_GAME_LOCATION,
         "Thief Gold Original Missions"},
        {"T2", "Thief The Metal Age", "3", "Thief 2", &Main_Ini::T2_LOCATION, &Main_Ini::T2_GAME_LOCATION,
         "Thief 2 Original Missions"},
        {"T3", "Thief Deadly Shadows", "4", "Thief 3", &Main_Ini::T3_LOCATION, &Main_Ini::T3_GAME_LOCATION,
         "Thief 3 Original Missions"},
        {"DM", "Dark Metal", "8", "Dark Metal", &Main_Ini::DM_LOCATION, &Main_Ini::DM_GAME_LOCATION,
         "Thief 2 Dark Metal Original Missions"},
        {"DMOD", "The Dark Mod", "12", "The Dark Mod", &Main_Ini::DMOD_LOCATION,
         &Main_Ini::DMOD_GAME_LOCATION, "Dark Mod Original Missions"},
        {"T2X", "Thief 2X", "15", "Thief 2X", &Main_Ini::T2X_LOCATION, &Main_Ini::T2X_GAME_LOCATION,
         "T2X Original Missions"},
        {"SS2", "System Shock 2", "16", "System Shock 2", &Main_Ini::SS2_LOCATION,
         &Main_Ini::SS2_GAME_LOCATION, "System Shock 2 Original Missions"},
    }};
    return games;
}

const Game *Find_Game(const QString &code) {
    for (const Game &game : Games()) {
        if (code.compare(QLatin1String(game.code), Qt::CaseInsensitive) == 0)
            return &game;
    }
    return nullptr;
}

namespace {

/// Doom 3 missions stand in the list of The Dark Mod and are installed into its folder.
bool Is_doom(const QString &code) {
    return code.compare(QLatin1String("DOOM"), Qt::CaseInsensitive) == 0;
}

} // namespace

QString Game_Folder(const Main_Ini &ini, const QString &code) {
    const Game *game = Find_Game(Is_doom(code) ? "DMOD" : code);
    return game ? ini.*(game->game_folder) : QString();
}

QStringList Fm_Folders(const Main_Ini &ini, const Game &game, Empty_Entry empty) {
    QStringList entries, folders;
    for (const QString &list : {ini.*(game.fm_folders), ini.TOTHER_LOCATION})
        entries += Split_folder_list(list, empty);
    for (QString folder : entries) {
        folder.replace(u'/', u'\\');
        while (folder.endsWith(u'\\'))
            folder.chop(1);
        if (!folder.isEmpty() && !folders.contains(folder, Qt::CaseInsensitive))
            folders << folder;
    }
    return folders;
}

QString Game_Text(const QString &code) {
    if (Is_doom(code))
        return "Doom 3";
    const Game *game = Find_Game(code);
    return game ? QString(game->name) : QString();
}

} // namespace vantrosk
