#include "core/Timers.h"

#include "core/Program.h"
#include "core/mdlFormDisplayFunctions.h"

#include <QRandomGenerator>

namespace vantrosk {

namespace {

constexpr int first_picture = 2, picture_behind_last = 10;
constexpr int focus_ticks = 20;
constexpr int tips_in_use = 5; ///< the rest of the list is never shown
constexpr int download_is_ready = 2;
constexpr std::size_t examined_panel = 2, light_panel = 5; ///< where a row click says that it is done

void Show_Tip(Program &program) {
    const double random =
        program.timers.random ? program.timers.random() : QRandomGenerator::global()->generateDouble();
    Set_Status_Panel(program, examined_panel, Tip_Text(random));
}

} // namespace

const QStringList &Tips() {
    static const QStringList tips{
        "VK will run faster the more Fan Missions you click on.",
        "Be patient, allow VK to do what its doing before trying something else.",
        "Organise your Fan Missions into seperate folders per game, this will speed VK up.",
        "If VK crashes, follow any instructions it gives you when starting up again.",
        "VK can install and play Doom 3 Fan Missions.",
        "VK will run faster if you import your DarkLoader Completed Fan Missions status (Click Tools on the "
        "left).",
        "Remember after scoreing an FM upload your score so that everyone else can benefit from it.",
        "Before trying T3 FMs be sure you have created the T3 savegame folder by playing some of the "
        "training mission.",
        "VK can install and play Half Life 1 and 2 Maps Through The QBAR.",
        "Remember to upload an Fan Missions keywords list as well as its score",
    };
    return tips;
}

QString Tip_Text(double random) {
    return "TIP: " + Tips().value(qBound(0, static_cast<int>(random * tips_in_use), tips_in_use - 1));
}

void Housekeeping_Tick(Program &program) {
    if (program.SAVE_SCORE_NOW) {
        program.SAVE_SCORE_NOW = false;
        Run_Later_Step(program, Later_Step::save_details_panel);
    }
    if (program.screen.status_panels[examined_panel] == QLatin1String("Scan Complete") &&
        program.tweaks.SHOW_TIPS)
        Show_Tip(program);
    if (program.timers.download_state == download_is_ready)
        Run_Later_Step(program, Later_Step::show_patch_window);
}

void Animation_Tick(Program &program) {
    Timers &timers = program.timers;
    if (!timers.animation_runs)
        return;
    if (++timers.animation_picture >= picture_behind_last)
        timers.animation_picture = first_picture;
    program.screen.status_light = timers.animation_picture;
    program.ui.set_status_light(timers.animation_picture, program.screen.status_panels[light_panel]);
}

void Focus_Tick(Program &program) {
    Timers &timers = program.timers;
    if (!timers.focus_runs || ++timers.focus_count < focus_ticks)
        return;
    timers.focus_runs = false;
    timers.focus_count = 0;
    Run_Later_Step(program, Later_Step::focus_list);
}

void Presence_Tick(Program &program) {
    Run_Later_Step(program, Later_Step::declare_presence);
}

void Game_Exit_Tick(Program &program) {
    Run_Later_Step(program, Later_Step::after_game);
}

void Start_Focus_Timer(Program &program) {
    program.timers.focus_runs = true;
}

} // namespace vantrosk
