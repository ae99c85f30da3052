#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/Install_Paths.h"
#include "install/Install_Run.h"
#include "install/Map_Search.h"
#include "install/Play_Starts.h"
#include "install/Splash_Swap.h"
#include "install/undo/Undo_List.h"

namespace vantrosk {

namespace {

/// A name with a blank stays one argument.
QString As_argument(const QString &name) {
    return name.contains(' ') ? "\"" + name + "\"" : name;
}

Play_Result Start_without_map(Program &program) {
    const bool wanted = Ask_Ok_Cancel(program, "",
                                      "WARNING: No map file was found, Vantrosk is unable to start the map "
                                      "automatically, click OK to start Doom 3 normally or CANCEL to abort");
    return wanted ? Start_game(program, "doom3.EXE", {}) : Play_Result{};
}

bool Dark_mod_is_installed(const Program &program) {
    return program.ini.DMOD_INSTALLED || FolderExists(program, program.CURRENT_GAME_PATH + "\\darkmod") ||
           FileExists(program, program.CURRENT_GAME_PATH + "\\darkmod.pk4");
}

QString Mission_folder(const Program &program) {
    return program.fm.FM_FOLDER.isEmpty() ? program.CURRENT_GAME_PATH
                                          : program.CURRENT_GAME_PATH + "\\" + program.fm.FM_FOLDER;
}

/// A file that is brought to a mission goes with it: the undo list names it before it is there.
Fault Record_in_undo_list(Program &program, const QString &path) {
    std::optional<Undo_List> list = Read_undo_list(program, program.CURRENT_GAME_PATH);
    if (!list || list->is_original())
        return {};
    const Install_Base base = Install_base_of(program, program.CURRENT_GAME);
    const QString tidy = Tidy_path(path);
    const QString line =
        Is_below(tidy, base.folder) ? Join_path(base.listed, Relative_to(tidy, base.folder)) : tidy;
    if (list->files.contains(line, Qt::CaseInsensitive))
        return {};
    list->files << line;
    list->files.sort();
    return Write_undo_list(program, program.CURRENT_GAME_PATH, *list);
}

/// The Dark Mod's picture library makes its missions start: it is taken for the mod when it is there, or can
/// be copied to the mission's folder.
bool Bring_devil_dll(Program &program) {
    const QString in_mission = Join_path(Mission_folder(program), "DevIL.dll");
    const QString in_game = Join_path(program.CURRENT_GAME_PATH, "DevIL.dll");
    if (FileExists(program, in_mission))
        return true;
    if (!FileExists(program, in_game))
        return false;
    Fault fault = Record_in_undo_list(program, in_mission);
    if (!fault)
        fault = program.files.copy_file(in_game, in_mission);
    if (fault) {
        debug_print(program, "MAIN FORM: " + fault.text);
        return false;
    }
    return true;
}

Play_Result Start_dark_mod_mission(Program &program, const QString &map) {
    if (!Dark_mod_is_installed(program) && !Bring_devil_dll(program)) {
        const bool as_map =
            Ask_Yes_No(program, "",
                       "You do not have The Dark Mod installed, Vantrosk will try and load this FM "
                       "as a Doom 3 Map, do you want to do this");
        return as_map ? Start_game(program, "doom3.EXE", "+map " + As_argument(map)) : Play_Result{};
    }
    QString name = FileNameFromPath(map);
    name.replace(".map", "", Qt::CaseInsensitive);
    name = As_argument(name);
    const QString folder = Mission_folder(program);
    if (program.tweaks.RESKIN_DMOD)
        Swap_Dark_Mod_Splash(program, folder);
    const bool on_dark_mod =
        FileExists(program, folder + "\\startingMap.txt") || FileExists(program, folder + "\\DarkMod.txt");
    return Start_game(program, "doom3.EXE",
                      on_dark_mod ? "+set fs_game_base darkmod +set fs_game " + name
                                  : "+set fs_game " + name);
}

Play_Result Start_dark_mod_originals(Program &program) {
    if (Dark_mod_is_installed(program))
        return Start_game(program, "doom3.EXE", "+set fs_game darkmod");
    const bool wanted =
        Ask_Yes_No(program, "",
                   "You do not have The Dark Mod installed, Vantrosk will run the original Doom 3 "
                   "missions instead, do you want to do this");
    return wanted ? Start_game(program, "doom3.EXE", {}) : Play_Result{};
}

} // namespace

Play_Result Start_doom(Program &program) {
    if (Is_original_row(program.FM_PANEL))
        return Start_game(program, "doom3.EXE", {});
    const QStringList maps = Find_maps(program);
    if (maps.isEmpty())
        return Start_without_map(program);
    return Start_game(program, "doom3.EXE", " +map " + As_argument(maps.first()));
}

Play_Result Start_dark_mod(Program &program) {
    if (Is_original_row(program.FM_PANEL))
        return Start_dark_mod_originals(program);
    const QStringList maps = Find_maps(program);
    return maps.isEmpty() ? Start_without_map(program) : Start_dark_mod_mission(program, maps.first());
}

} // namespace vantrosk
