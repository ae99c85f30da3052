#include "install/Do_Install.h"

#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/Install_Paths.h"
#include "install/Install_Run.h"
#include "install/Recover_Log.h"
#include "install/Splash_Swap.h"
#include "install/T3_Ini.h"
#include "install/undo/Undo_List.h"
#include "library/SetUp_Dromed.h"

namespace vantrosk {

namespace {

constexpr const char *saves_steps = "//STEPS TO FIX = FM has been installed, however MP3 Files have not been "
                                    "converted and FM save games have "
                                    "not been unzipped installing Original Missions will resolve.";

QString Name_of_row(const Program &program, const QString &zip_name) {
    const int row = program.screen.list.find_zip(zip_name);
    if (row < 0)
        return zip_name;
    const QString name = program.screen.list.rows[static_cast<std::size_t>(row)].cells[col_name];
    return name.isEmpty() ? zip_name : name;
}

/// Stages 4 and 5. A fault means that the mission is not, or not wholly, in the game.
Fault Put_mission_in(Install_Run &run) {
    Show_stage(run, 4);
    if (Fault fault = Plan_and_back_up(run))
        return fault;
    Show_stage(run, 5);
    if (Fault fault = Extract_mission(run))
        return fault;
    Mark_installed(run);
    return {};
}

/// A log whose saves did not come back stays, and its last step says what helps.
void End_log(Install_Run &run) {
    if (run.saves_are_back)
        Finish_recover_log(run.program);
    else
        Recover_log(run.program, saves_steps);
}

/// Stages 1 to 3: the folder is the game's own again.
bool Clear_the_folder(Install_Run &run) {
    Show_stage(run, 1);
    if (!Remove_previous_mission(run))
        return false;
    Show_stage(run, 2);
    if (!Archive_leaving_saves(run))
        return false;
    Show_stage(run, 3);
    return Restore_game_files(run);
}

/// What a player who offers a game over the network has installed.
void Remember_for_multi_player(Install_Run &run) {
    Program &program = run.program;
    const QString mission =
        run.restore_originals ? QString() : run.zip_name + "¬#¬" + Name_of_row(program, run.zip_name);
    if (program.CURRENT_GAME == "SS2")
        program.MULTIPLAYER_SS2 = mission;
    else if (program.CURRENT_GAME == "T2")
        program.MULTIPLAYER_T2 = mission;
}

/// Stages 6 to 8, which nothing can turn into a failure of the whole.
void Finish_installation(Install_Run &run) {
    Show_stage(run, 6);
    Bring_back_saves(run);
    Show_stage(run, 7);
    Convert_music(run);
    Show_stage(run, 8);
    Repackage_resources(run);
    Install_skin(run);
    Sort_out_languages(run);
    Remember_for_multi_player(run);
    Set_Status_Panel(run.program, 2, "");
    End_log(run);
    Ask_about_skin(run);
}

Install_End Stopped(Install_Run &run) {
    Set_Status_Panel(run.program, 2, "");
    Show_Critical(
        run.program, "",
        "WARNING Vantrosk could not go on, NO install has taken place.\r\n" + run.fault.text +
            "\r\nNothing of your game or save games was lost, please see install_recover.log in the "
            "Vantrosk program folder.");
    return Install_End::stopped;
}

Install_End Run_stages(Install_Run &run);

/// The mission's list is still in place, so that what was unpacked of it goes with the second pass.
Install_End Roll_back(Install_Run &run) {
    Program &program = run.program;
    debug_print(program, "MAIN FORM: extraction failed, restoring: " + run.fault.text);
    Install_Run second{program, true, "Original"};
    second.unfinished = true;
    const Install_End end = Run_stages(second);
    if (end != Install_End::done)
        return end;
    (void)WriteOriginalMarker(program, program.CURRENT_GAME_PATH);
    Show_Critical(program, "",
                  "WARNING the FM \"" + run.zip_name + "\" could not be installed.\r\n" + run.fault.text +
                      "\r\nThe Original Missions have been restored.");
    return Install_End::failed;
}

/// Past the guards.
Install_End Run_stages(Install_Run &run) {
    if (run.program.CURRENT_GAME == "T3")
        RestoreT3Ini(run.program);
    if (Is_doom_or_dark_mod(run.program.CURRENT_GAME))
        Put_back_mission_splashes(run.program, run.program.CURRENT_GAME_PATH);
    else
        Put_back_splashes_of(run.program, run.program.CURRENT_GAME_PATH);
    Start_recover_log(run.program);
    run.previous = Read_undo_list(run.program, run.program.CURRENT_GAME_PATH);
    run.leaving = What_is_leaving(run);
    run.base = Install_base_of(run.program, run.program.CURRENT_GAME);
    if (!Clear_the_folder(run))
        return Stopped(run);
    if (!run.restore_originals) {
        run.fault = Put_mission_in(run);
        if (run.fault)
            return Roll_back(run);
    }
    Finish_installation(run);
    return Install_End::done;
}

/// While a run is under way the window takes no clicks; every way out lets them in again.
class Busy_Window {
public:
    explicit Busy_Window(Program &program) : program_(program), play_was_enabled_(play()) {
        play() = false;
        set(true);
    }
    ~Busy_Window() {
        play() = play_was_enabled_;
        set(false);
    }
    Busy_Window(const Busy_Window &) = delete;
    Busy_Window &operator=(const Busy_Window &) = delete;

private:
    bool &play() { return program_.screen.details.play_enabled; }
    void set(bool busy) {
        program_.screen.busy = busy;
        program_.ui.set_busy(busy);
        program_.ui.details_changed();
    }

    Program &program_;
    bool play_was_enabled_;
};

Install_End Run_install(Program &program, bool restore_originals) {
    const Busy_Window busy(program);
    debug_pause(program, "About to start, click continue to resume process.");
    Install_Run run{program, restore_originals, program.FM_PANEL};
    if (!Guards_let_pass(run)) {
        Set_Status_Panel(program, 1, "Install Aborted");
        return Install_End::refused;
    }
    run.unfinished = Has_unfinished_run(program, program.CURRENT_GAME_PATH);
    const Install_End end = Run_stages(run);
    if (end != Install_End::done)
        Set_Status_Panel(program, 1, "Install Aborted");
    return end;
}

// ---- the Install button ----

/// The title as the scan made it, without what it said to be installed.
QString Bare_caption(const QString &caption) {
    const QString count_end = " FMs ";
    const qsizetype end = caption.indexOf(count_end);
    return end >= 0 ? caption.left(end + count_end.size()) : caption.section("  -  [", 0, 0);
}

void Show_installed_in_title(Program &program, const QString &name) {
    Set_Caption(program, Bare_caption(program.screen.caption) + "  -  [" + program.CURRENT_GAME + "] '" +
                             name + "' currently installed ");
}

void Clear_ready_column(Program &program) {
    for (std::size_t row = 0; row < program.screen.list.rows.size(); ++row) {
        QString &cell = program.screen.list.rows[row].cells[col_ready];
        if (cell != "Yes")
            continue;
        cell.clear();
        program.ui.list_row_changed(static_cast<int>(row));
    }
}

/// The buttons, as a click on the row would set them now.
void Update_buttons(Program &program, bool row_is_installed) {
    Details_Panel &details = program.screen.details;
    details.shows_installed = row_is_installed;
    details.install_enabled = !row_is_installed;
    details.play_enabled = row_is_installed;
    program.fm.install_state = row_is_installed ? "installed" : "not installed";
    program.ui.details_changed();
}

void Show_originals_installed(Program &program) {
    Clear_ready_column(program);
    Show_installed_in_title(program, "Original Missions");
}

/// What the window shows after a run that changed the folder.
void Show_outcome(Program &program, Install_End end, bool originals) {
    if (end == Install_End::done && !originals) {
        Clear_ready_column(program);
        Set_ready_cell(program, program.FM_PANEL, "Yes");
        Show_installed_in_title(program, Name_of_row(program, program.FM_PANEL));
    } else if (end != Install_End::stopped) {
        Show_originals_installed(program);
    }
    Update_buttons(program, end == Install_End::done);
}

} // namespace

bool Do_Install(Program &program, bool restore_originals) {
    return Run_install(program, restore_originals) == Install_End::done;
}

bool Install_Command(Program &program) {
    if (program.screen.busy) {
        debug_print(program, "MAIN FORM: an install or a scan is under way");
        return false;
    }
    Set_Status_Panel(program, 1, "Working");
    Set_Status_Panel(program, 2, "0%");
    Show_Progress(program, 0, 1);
    const bool originals = Is_original_row(program.FM_PANEL);
    const Install_End end = Run_install(program, originals);
    if (end == Install_End::done && originals)
        (void)WriteOriginalMarker(program, program.CURRENT_GAME_PATH);
    if (end != Install_End::refused)
        Show_outcome(program, end, originals);
    if (end == Install_End::done)
        SetUp_Dromed(program);
    Hide_Progress(program);
    if (end != Install_End::done)
        return false;
    Set_Status_Panel(program, 1, originals ? "Original Missions restored" : "FM installed");
    Set_Status_Panel(program, 1, "Ready");
    return true;
}

} // namespace vantrosk
