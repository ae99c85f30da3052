#include "Startup_World.h"

#include "core/mdlFormDisplayFunctions.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct Timers_Test : testing::Test {
    Startup_World start;
    Program &program = start.program();
    Recording_Ui &ui = start.world.ui;
};

const QStringList first_tips{
    "VK will run faster the more Fan Missions you click on.",
    "Be patient, allow VK to do what its doing before trying something else.",
    "Organise your Fan Missions into seperate folders per game, this will speed VK up.",
    "If VK crashes, follow any instructions it gives you when starting up again.",
    "VK can install and play Doom 3 Fan Missions."};

const QStringList other_tips{
    "VK will run faster if you import your DarkLoader Completed Fan Missions status (Click Tools on the "
    "left).",
    "Remember after scoreing an FM upload your score so that everyone else can benefit from it.",
    "Before trying T3 FMs be sure you have created the T3 savegame folder by playing some of the training "
    "mission.",
    "VK can install and play Half Life 1 and 2 Maps Through The QBAR.",
    "Remember to upload an Fan Missions keywords list as well as its score"};

} // namespace

TEST_F(Timers_Test, Unsaved_edits_are_saved_once) {
    program.SAVE_SCORE_NOW = true;
    bool flag_during_save = true;
    Set_Later_Step(program, Later_Step::save_details_panel,
                   [&] { start.steps << "save", flag_during_save = program.SAVE_SCORE_NOW; });
    Housekeeping_Tick(program);
    Housekeeping_Tick(program);
    EXPECT_EQ(start.steps, QStringList({"save"}));
    EXPECT_FALSE(flag_during_save);
    EXPECT_FALSE(program.SAVE_SCORE_NOW);
}

TEST_F(Timers_Test, A_tip_stands_where_a_row_click_said_that_it_was_done) {
    program.tweaks.SHOW_TIPS = true;
    program.timers.random = [] {
        return 0.41;
    };
    Set_Status_Panel(program, 2, "Scan Complete");
    Housekeeping_Tick(program);
    Housekeeping_Tick(program);
    EXPECT_EQ(ui.panel_2, QStringList({"Scan Complete", "TIP: " + first_tips[2]}));
}

TEST_F(Timers_Test, No_tip_without_the_tweak_or_with_another_text) {
    program.tweaks.SHOW_TIPS = false;
    Set_Status_Panel(program, 2, "Scan Complete");
    Housekeeping_Tick(program);
    program.tweaks.SHOW_TIPS = true;
    Set_Status_Panel(program, 2, "scan complete");
    Housekeeping_Tick(program);
    Set_Status_Panel(program, 1, "Scan Complete");
    Housekeeping_Tick(program);
    EXPECT_EQ(ui.panel_2, QStringList({"Scan Complete", "scan complete"}));
}

TEST_F(Timers_Test, Without_a_script_the_tip_is_one_of_the_five) {
    program.tweaks.SHOW_TIPS = true;
    for (int round = 0; round < 50; ++round) {
        Set_Status_Panel(program, 2, "Scan Complete");
        Housekeeping_Tick(program);
        EXPECT_TRUE(first_tips.contains(ui.panel_2.last().mid(5))) << ui.panel_2.last().toStdString();
    }
}

TEST(Tips, There_are_ten_and_only_the_first_five_come_up) {
    EXPECT_EQ(Tips(), first_tips + other_tips);
    QStringList shown;
    for (int step = 0; step < 1000; ++step)
        shown << Tip_Text(step / 1000.0);
    shown.removeDuplicates();
    QStringList expected;
    for (const QString &tip : first_tips)
        expected << "TIP: " + tip;
    EXPECT_EQ(shown, expected);
}

TEST(Tips, The_fraction_is_cut_off) {
    EXPECT_EQ(Tip_Text(0.0), "TIP: " + first_tips[0]);
    EXPECT_EQ(Tip_Text(0.199), "TIP: " + first_tips[0]);
    EXPECT_EQ(Tip_Text(0.2), "TIP: " + first_tips[1]);
    EXPECT_EQ(Tip_Text(0.999999), "TIP: " + first_tips[4]);
    EXPECT_EQ(Tip_Text(1.0), "TIP: " + first_tips[4]);
    EXPECT_EQ(Tip_Text(-1.0), "TIP: " + first_tips[0]);
}

TEST_F(Timers_Test, The_patch_window_comes_when_a_download_is_ready) {
    for (const int state : {0, 1, 3}) {
        program.timers.download_state = state;
        Housekeeping_Tick(program);
    }
    EXPECT_TRUE(start.steps.isEmpty());
    program.timers.download_state = 2;
    Housekeeping_Tick(program);
    EXPECT_EQ(start.steps, QStringList({"Show_Patch_Window"}));
}

TEST_F(Timers_Test, The_animation_goes_from_2_to_9_and_back_to_2) {
    Set_Status_Light(program, 2, "BUSY");
    ui.lights.clear();
    for (int tick = 0; tick < 10; ++tick)
        Animation_Tick(program);
    EXPECT_EQ(ui.lights, std::vector<int>({3, 4, 5, 6, 7, 8, 9, 2, 3, 4}));
    EXPECT_EQ(program.screen.status_light, 4);
    EXPECT_EQ(program.screen.status_panels[5], "BUSY");
}

TEST_F(Timers_Test, The_animation_runs_while_the_light_works_and_stands_when_it_is_ready) {
    struct Light_Row {
        int light;
        bool runs;
    };
    constexpr Light_Row rows[] = {{1, false},  {2, true},  {11, true}, {1, false},
                                  {12, false}, {10, true}, {0, false}};
    for (const Light_Row &row : rows) {
        Set_Status_Light(program, row.light);
        EXPECT_EQ(program.timers.animation_runs, row.runs) << row.light;
    }
    ui.lights.clear();
    Animation_Tick(program);
    EXPECT_TRUE(ui.lights.empty());
}

TEST_F(Timers_Test, The_focus_goes_to_the_list_at_the_20th_tick_and_the_timer_stops) {
    Start_Focus_Timer(program);
    for (int tick = 1; tick < 20; ++tick)
        Focus_Tick(program);
    EXPECT_TRUE(start.steps.isEmpty());
    Focus_Tick(program);
    EXPECT_EQ(start.steps, QStringList({"Focus_List"}));
    EXPECT_FALSE(program.timers.focus_runs);
    EXPECT_EQ(program.timers.focus_count, 0);
    for (int tick = 0; tick < 40; ++tick)
        Focus_Tick(program);
    EXPECT_EQ(start.steps.size(), 1);
}

TEST_F(Timers_Test, The_presence_and_the_end_of_a_game_are_left_to_their_tools) {
    Presence_Tick(program);
    Presence_Tick(program);
    Game_Exit_Tick(program);
    EXPECT_EQ(start.steps, QStringList({"Declare_Presence", "Declare_Presence", "After_Game"}));
}

TEST_F(Timers_Test, Each_later_step_has_a_name_and_says_that_nobody_does_it) {
    program.trace.enabled = true;
    QStringList names;
    for (int step = 0; step < static_cast<int>(Later_Step::count); ++step) {
        names << Later_Step_Name(static_cast<Later_Step>(step));
        Set_Later_Step(program, static_cast<Later_Step>(step), {});
        Run_Later_Step(program, static_cast<Later_Step>(step));
        EXPECT_EQ(ui.trace.last(), "STARTUP: " + names.last() + " does nothing here");
    }
    EXPECT_EQ(names.removeDuplicates(), 0);
}
