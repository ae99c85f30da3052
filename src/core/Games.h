#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <optional>

namespace vantrosk {

struct Main_Ini;
enum class Empty_Entry; // mdlFile_Functions.h

/// What is fixed about one built-in game. The order is that of the game menu.
struct Game {
    const char *code;               ///< "T2"
    const char *name;               ///< "Thief The Metal Age"
    const char *number;             ///< of the game table
    const char *short_name;         ///< under the button: "Thief 2"
    QString Main_Ini::*fm_folders;  ///< where its zips lie
    QString Main_Ini::*game_folder; ///< where it is installed
    const char *original_name;      ///< the row of its own missions: "Thief 2 Original Missions"
};

/// T1, TG, T2, T3, DM, DMOD, T2X, SS2: the lists that there are.
const std::array<Game, 8> &Games();
/// By code, without regard to case. "DOOM" has no list of its own and is not found.
const Game *Find_Game(const QString &code);

/// The folder that is configured for an active game's code; DOOM shares that of DMOD. Empty when not set up.
QString Game_Folder(const Main_Ini &ini, const QString &code);
/// The folders that hold a game's zips: its own, then those of mixed games, each once, however it is
/// written there. Separators are "\", and none stands at the end. What an empty entry in either list does
/// is the caller's to say.
QStringList Fm_Folders(const Main_Ini &ini, const Game &game, Empty_Entry empty);
/// What the details panel calls a game: "Thief The Metal Age"; empty for an unknown code.
QString Game_Text(const QString &code);

} // namespace vantrosk
