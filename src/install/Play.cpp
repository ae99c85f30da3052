#include "install/Play.h"

#include "core/Program.h"
#include "core/mdlDB_Functions.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "core/mdlFunctions.h"
#include "install/Map_Search.h"
#include "install/T3_Ini.h"
#include "install/undo/Undo_List.h"

#include <QLocale>

#include <array>

namespace vantrosk {

namespace {

/// The games that are started by one program and no more questions.
struct Plain_Start {
    const char *game;
    const char *program;
    const char *better_program; ///< started instead when it is there; null for none
    const char *engine;         ///< process whose processors are asked about afterwards; null for none
    const char *second_engine;  ///< the copy-protected engine's second process
    bool pauses_twice;          ///< before the question about the second process too
};
constexpr std::array<Plain_Start, 6> plain_starts{{
    {"T1", "thief.exe", nullptr, "thief.exe", nullptr, false},
    {"TG", "thief.exe", nullptr, "thief.exe", nullptr, false},
    {"T2", "thief2.EXE", nullptr, "thief2.exe", "thief2.icd", true},
    {"T3", "T3.EXE", nullptr, nullptr, nullptr, false},
    {"T2X", "T2X.EXE", nullptr, "thief2.exe", "thief2.icd", false},
    {"SS2", "SHOCK2.EXE", "SS2MTFIX.EXE", "shock2.exe", "shock2.icd", false},
}};

constexpr int pause_before_processors = 100; ///< milliseconds
/// Tries a process: the copy-protected games hand over to a second one a moment after the start.
constexpr int processor_tries = 2;

constexpr std::array<const char *, 2> thief_2_scripts{"convict.osm", "darkhooks.dlx"};

/// Where the Thief 2 script files can be had: configured places of this program.
constexpr const char *script_places =
    "\r\nhttp://vantrosk.example/downloads/\r\nhttp://mirror.vantrosk.example/downloads/";

Play_Result Refused(Program &program, const QString &reason) {
    Set_Status_Light(program, 1);
    Set_Status_Panel(program, 1, reason);
    Play_Result result;
    result.refusal = reason;
    return result;
}

/// Missing script files of Thief 2, each with its warning; missions do not run without them.
QStringList Missing_scripts(Program &program) {
    QStringList missing;
    if (program.CURRENT_GAME != "T2" || Is_original_row(program.FM_PANEL))
        return missing;
    for (const char *script : thief_2_scripts) {
        if (FileExists(program, program.CURRENT_GAME_PATH + "\\" + script))
            continue;
        missing << script;
        Show_Warning(
            program, "",
            QStringLiteral("WARNING: Vantrosk has detected that you do not have '%1' installed in your Thief "
                           "2 directory. This file is required to play Fan Missions and can be downloaded "
                           "from%2")
                .arg(QLatin1String(script), QLatin1String(script_places)));
    }
    return missing;
}

/// The mission counts as played today, whatever comes of the start.
void Touch_last_played(Program &program) {
    if (Is_original_row(program.FM_PANEL))
        return;
    DB_Touch_Last_Played(program, program.FM_PANEL);
    const int row = program.screen.list.find_zip(program.FM_PANEL);
    if (row < 0 || program.CURRENT_GAME == "T3")
        return;
    program.screen.list.rows[static_cast<std::size_t>(row)].cells[col_last_played] =
        QLocale::c().toString(program.clock.now().date(), "dd/MMM/yy");
    program.ui.list_row_changed(row);
}

Play_Result Start_game(Program &program, const QString &file, const QString &arguments) {
    Play_Result result;
    const Start_Request request{program.CURRENT_GAME_PATH + "\\" + file, arguments,
                                program.CURRENT_GAME_PATH};
    const Result<Start_Result> started = program.platform.processes->start(request);
    if (!started.ok()) {
        debug_print(program, "MAIN FORM: " + started.fault.text);
        result.refusal = started.fault.text;
        return result;
    }
    result.start = started.value;
    result.started = true;
    return result;
}

void Ask_processors(Program &program, const Plain_Start &row) {
    if (!row.engine)
        return;
    program.clock.sleep(pause_before_processors);
    Cores_Running_on(program, row.engine, processor_tries, false);
    if (!row.second_engine)
        return;
    if (row.pauses_twice)
        program.clock.sleep(pause_before_processors);
    Cores_Running_on(program, row.second_engine, processor_tries, false);
}

Play_Result Start_plainly(Program &program, const Plain_Start &row) {
    const bool has_better =
        row.better_program && FileExists(program, program.CURRENT_GAME_PATH + "\\" + row.better_program);
    const Play_Result result = Start_game(program, has_better ? row.better_program : row.program, {});
    if (result.started)
        Ask_processors(program, row);
    return result;
}

Play_Result Start_dark_metal(Program &program) {
    Set_Status_Light(program, 2);
    const bool wanted = Ask_Yes_No(
        program, "", "Dark Metal is not yet fully supported, however you can still try to run it?.");
    const Play_Result result = wanted ? Start_game(program, "thief2.exe", {}) : Play_Result{};
    Set_Status_Light(program, 1);
    return result;
}

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

Play_Result Start_doom(Program &program) {
    if (Is_original_row(program.FM_PANEL))
        return Start_game(program, "doom3.EXE", {});
    const QStringList maps = Find_maps(program);
    if (maps.isEmpty())
        return Start_without_map(program);
    return Start_game(program, "doom3.EXE", " +map " + As_argument(maps.first()));
}

bool Dark_mod_is_installed(const Program &program) {
    return program.ini.DMOD_INSTALLED || FolderExists(program, program.CURRENT_GAME_PATH + "\\darkmod") ||
           FileExists(program, program.CURRENT_GAME_PATH + "\\darkmod.pk4");
}

QString Mission_folder(const Program &program) {
    return program.fm.FM_FOLDER.isEmpty() ? program.CURRENT_GAME_PATH
                                          : program.CURRENT_GAME_PATH + "\\" + program.fm.FM_FOLDER;
}

/// The Dark Mod's picture library makes its missions start: it is taken for the mod when it is there, or can
/// be copied to the mission's folder.
bool Bring_devil_dll(Program &program) {
    const QString in_mission = Mission_folder(program) + "\\DevIL.dll";
    const QString in_game = program.CURRENT_GAME_PATH + "\\DevIL.dll";
    if (FileExists(program, in_mission))
        return true;
    if (!FileExists(program, in_game))
        return false;
    if (const Fault fault = program.files.copy_file(in_game, in_mission)) {
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

Play_Result Start_dark_mod(Program &program) {
    if (Is_original_row(program.FM_PANEL))
        return Start_dark_mod_originals(program);
    const QStringList maps = Find_maps(program);
    return maps.isEmpty() ? Start_without_map(program) : Start_dark_mod_mission(program, maps.first());
}

struct Asking_Start {
    const char *game;
    Play_Result (*start)(Program &program);
};
constexpr std::array<Asking_Start, 3> asking_starts{{
    {"DM", Start_dark_metal},
    {"DOOM", Start_doom},
    {"DMOD", Start_dark_mod},
}};

Play_Result Start_by_game(Program &program) {
    for (const Plain_Start &row : plain_starts) {
        if (program.CURRENT_GAME != QLatin1String(row.game))
            continue;
        Touch_last_played(program);
        return Start_plainly(program, row);
    }
    for (const Asking_Start &row : asking_starts) {
        if (program.CURRENT_GAME != QLatin1String(row.game))
            continue;
        Touch_last_played(program);
        return row.start(program);
    }
    Play_Result result;
    result.refusal = QStringLiteral("Vantrosk does not know how to start \"%1\"").arg(program.CURRENT_GAME);
    return result;
}

} // namespace

Play_Result Play_Command(Program &program) {
    debug_print(program, "MAIN FORM: Playing the game");
    if (!program.screen.details.play_enabled)
        return Refused(
            program,
            QStringLiteral("\"%1\" is not installed, so it can not be played").arg(program.FM_PANEL));
    Set_Status_Light(program, 2);
    Set_Status_Panel(program, 1, "Initiating any startup tools");
    const QStringList missing = Missing_scripts(program);
    if (!missing.isEmpty())
        return Refused(program, "Thief 2 is missing " + missing.join(" and "));
    if (program.CURRENT_GAME == "T3") {
        RestoreT3Ini(program);
        ApplyT3Patch(program);
    }
    Set_Status_Panel(program, 1, "Tools started, now starting game.");
    const Play_Result result = Start_by_game(program);
    Set_Status_Panel(program, 1, result.refusal);
    Set_Status_Light(program, 1);
    debug_print(program, "MAIN FORM: End Playing the game");
    return result;
}

void After_Play(Program &program) {
    program.screen.details.play_enabled =
        IsCurrentlyInstalled(program, program.CURRENT_GAME_PATH, program.FM_PANEL, program.CURRENT_GAME);
    program.ui.details_changed();
}

} // namespace vantrosk
