#include "install/Play.h"

#include "core/Program.h"
#include "core/mdlDB_Functions.h"
#include "core/mdlDebug.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "core/mdlFunctions.h"
#include "install/Game_Config.h"
#include "install/Play_Starts.h"
#include "install/Recent.h"
#include "install/Splash_Swap.h"
#include "install/T3_Ini.h"
#include "install/undo/Undo_List.h"
#include "tools/plugin_tools/Launch_Tools.h"

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
    const char *splash_packs;   ///< folder of the packs whose pictures show at the start; null for none
    bool Tweaks::*swaps_splash; ///< whether the user wants that
    bool shows_map;             ///< the mission's map may be shown beside the game
};
constexpr std::array<Plain_Start, 6> plain_starts{{
    {"T1", "thief.exe", nullptr, "thief.exe", nullptr, false, "T1", &Tweaks::RESKIN_THIEF1, true},
    {"TG", "thief.exe", nullptr, "thief.exe", nullptr, false, "T1", &Tweaks::RESKIN_THIEF1, true},
    {"T2", "thief2.EXE", nullptr, "thief2.exe", "thief2.icd", true, "T2", &Tweaks::RESKIN_THIEF2, true},
    {"T3", "T3.EXE", nullptr, nullptr, nullptr, false, nullptr, nullptr, false},
    {"T2X", "T2X.EXE", nullptr, "thief2.exe", "thief2.icd", false, nullptr, nullptr, false},
    {"SS2", "SHOCK2.EXE", "SS2MTFIX.EXE", "shock2.exe", "shock2.icd", false, nullptr, nullptr, false},
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

/// What the user wants to see with the game.
void Prepare_plain_start(Program &program, const Plain_Start &row) {
    if (row.splash_packs && program.tweaks.*row.swaps_splash)
        Swap_Splash(program, row.splash_packs);
    const bool wants_map = program.play.map || program.play.dual_screen;
    if (row.shows_map && wants_map && program.play.prepare_map)
        program.play.prepare_map(row.engine);
}

Play_Result Start_plainly(Program &program, const Plain_Start &row) {
    Prepare_plain_start(program, row);
    // Whoever took the start over makes it.
    if (row.shows_map && !program.play.launch_pending)
        return {};
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
    if (program.SELECTED_GAME_TAB == QLatin1String("CUSTOM")) {
        Touch_last_played(program);
        return Start_custom_game(program);
    }
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

/// A fault among the user's tools shows its box, and the game starts all the same.
void Run_startup_tools(Program &program) {
    With_error_box(program, "cmdPlay_Click", "Form frmMain",
                   [&] { Launch_Tools(program, Tools_of_current_game(program)); });
}

void Prepare_game_files(Program &program) {
    if (program.CURRENT_GAME == "T3") {
        RestoreT3Ini(program);
        ApplyT3Patch(program);
    }
    const Multi_Player_Options &options = program.play.multi_player;
    if (program.CURRENT_GAME == "SS2" && options.in_front)
        WriteNetplayConfig(program, {options.joins, options.host_address, options.character_name,
                                     program.screen.details.name});
}

void In_recent_list(Program &program, const char *procedure, void (*work)(Program &program)) {
    if (program.tweaks.RECENTLY_USED)
        With_error_box(program, procedure, "Form frmMain", [&] { work(program); });
}

} // namespace

Play_Result Start_program(Program &program, const Start_Request &request) {
    Play_Result result;
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

Play_Result Start_game(Program &program, const QString &file, const QString &arguments) {
    return Start_program(program,
                         {program.CURRENT_GAME_PATH + "\\" + file, arguments, program.CURRENT_GAME_PATH});
}

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
    Run_startup_tools(program);
    Prepare_game_files(program);
    In_recent_list(program, "RecordRecent", RecordRecent);
    Set_Status_Panel(program, 1, "Tools started, now starting game.");
    program.play.launch_pending = true;
    const Play_Result result = Start_by_game(program);
    program.play.launch_pending = false;
    In_recent_list(program, "Display_recently_used", Display_recently_used);
    Set_Status_Panel(program, 1, result.refusal);
    Set_Status_Light(program, 1);
    debug_print(program, "MAIN FORM: End Playing the game");
    return result;
}

void After_Play(Program &program) {
    Put_back_splashes(program);
    program.screen.details.play_enabled =
        IsCurrentlyInstalled(program, program.CURRENT_GAME_PATH, program.FM_PANEL, program.CURRENT_GAME);
    program.ui.details_changed();
    program.ui.show_details_tab("FMOptions");
}

} // namespace vantrosk
