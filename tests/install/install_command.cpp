#include "core/mdlDB_Functions.h"
#include "install/Install_World.h"
#include "install/undo/Undo_List.h"

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

const std::vector<Zip_Entry> some_mission{{"a.mis", "x", {}}, {"b.str", "y", {}}};

const QStringList all_stages{"Stage 1 of 8", "Stage 2 of 8", "Stage 3 of 8", "Stage 4 of 8",
                             "Stage 5 of 8", "Stage 6 of 8", "Stage 7 of 8", "Stage 8 of 8"};

TEST(Install_Command, Shows_every_stage_and_ends_with_the_outcome) {
    Install_World world;
    world.mission("m.zip", some_mission);
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_EQ(world.ui.panel_1.filter("Stage "), all_stages);
    EXPECT_EQ(world.ui.panel_1.first(), "Working");
    EXPECT_EQ(world.ui.panel_1.mid(world.ui.panel_1.size() - 2), (QStringList{"FM installed", "Ready"}));
    EXPECT_EQ(world.ui.panel_2.first(), "0%");
    EXPECT_EQ(world.ui.panel_2.last(), "");
    EXPECT_FALSE(world.program().screen.progress_visible);
}

TEST(Install_Command, Says_what_it_does_in_these_words) {
    Install_World world;
    world.game_has("b.str", "the game's");
    world.mission("m.zip", some_mission);
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_EQ(world.ui.panel_1,
              (QStringList{"Working", "Stage 1 of 8", "Stage 2 of 8", "Stage 3 of 8", "Stage 4 of 8",
                           "Determining what files to backup", "Backing up Original files", "Zipping now",
                           "Zip complete", "Stage 5 of 8", "Unzipping FM", "FM installed", "Stage 6 of 8",
                           "Stage 7 of 8", "Stage 8 of 8", "FM installed", "Ready"}));
    const QString a = world.game_path("a.mis"), b = world.game_path("b.str");
    EXPECT_EQ(world.ui.panel_2, (QStringList{"0%", "Backup " + a + " ?", "Backup " + b + " ?", "Adding " + b,
                                             "a.mis", "b.str", ""}));
}

TEST(Install_Command, A_restore_shows_no_stages_4_and_5_and_says_what_was_restored) {
    Install_World world;
    ASSERT_TRUE(world.restore());
    QStringList stages = all_stages;
    stages.removeAt(4);
    stages.removeAt(3);
    EXPECT_EQ(world.ui.panel_1.filter("Stage "), stages);
    EXPECT_EQ(world.ui.panel_1.mid(world.ui.panel_1.size() - 2),
              (QStringList{"Original Missions restored", "Ready"}));
}

TEST(Install_Command, Marks_the_row_the_record_and_the_title) {
    Install_World world;
    world.mission("a.zip", some_mission);
    world.mission("b.zip", some_mission);
    world.program().screen.caption =
        "Vantrosk (1.4194 - 3-March-09) - Found 2 (T2) FMs T2  -  [1] 'x' currently installed ";
    ASSERT_TRUE(world.install("a.zip"));
    EXPECT_EQ(world.ready_cell("a.zip"), "Yes");
    EXPECT_EQ(world.installed_mark("a.zip", "T2"), 1);
    EXPECT_EQ(
        world.program().screen.caption,
        "Vantrosk (1.4194 - 3-March-09) - Found 2 (T2) FMs   -  [T2] 'The Mission a' currently installed ");
    EXPECT_EQ(world.ui.caption, world.program().screen.caption);
    ASSERT_TRUE(world.install("b.zip"));
    EXPECT_EQ(world.ready_cell("a.zip"), "");
    EXPECT_EQ(world.ready_cell("b.zip"), "Yes");
    EXPECT_EQ(world.installed_mark("a.zip", "T2"), 0);
    EXPECT_EQ(world.installed_mark("b.zip", "T2"), 1);
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.ready_cell("b.zip"), "");
    EXPECT_EQ(world.installed_mark("b.zip", "T2"), 0);
    EXPECT_EQ(world.program().screen.caption, "Vantrosk (1.4194 - 3-March-09) - Found 2 (T2) FMs   -  [T2] "
                                              "'Original Missions' currently installed ");
}

TEST(Install_Command, The_editor_that_a_mission_needs_is_looked_for_again) {
    Install_World world;
    world.mission("m.zip", {{"a.mis", "x"}, {"b.str", "y"}});
    world.game_has("DromEd.exe", "the editor");
    EXPECT_FALSE(world.program().screen.editor.enabled);
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_TRUE(world.program().screen.editor.enabled);
}

TEST(Install_Command, Thief2_and_shock_remember_the_mission_for_players_elsewhere) {
    for (const char *game : {"T2", "SS2", "T1"}) {
        Install_World world(game);
        world.mission("m.zip", {{"a.mis", "x"}, {"b.str", "y"}});
        ASSERT_TRUE(world.install("m.zip"));
        const QString mission = "m.zip¬#¬The Mission m";
        EXPECT_EQ(world.program().MULTIPLAYER_T2, world.code == "T2" ? mission : "") << game;
        EXPECT_EQ(world.program().MULTIPLAYER_SS2, world.code == "SS2" ? mission : "") << game;
        ASSERT_TRUE(world.restore());
        EXPECT_EQ(world.program().MULTIPLAYER_T2 + world.program().MULTIPLAYER_SS2, "") << game;
    }
}

TEST(Install_Command, Play_is_off_while_it_runs_and_on_afterwards) {
    Install_World world;
    world.mission("m.zip", some_mission);
    Details_Panel &details = world.program().screen.details;
    details.play_enabled = true;
    details.install_enabled = true;
    bool was_enabled = false, was_busy = true;
    world.ui.on_pump = [&] {
        was_enabled = was_enabled || details.play_enabled;
        was_busy = was_busy && world.program().screen.busy;
    };
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_FALSE(was_enabled);
    EXPECT_TRUE(was_busy);
    EXPECT_TRUE(details.play_enabled);
    EXPECT_TRUE(details.shows_installed);
    EXPECT_FALSE(details.install_enabled);
    EXPECT_EQ(world.program().fm.install_state, "installed");
    EXPECT_FALSE(world.program().screen.busy);
}

TEST(Install_Command, Pauses_of_ten_milliseconds_let_the_window_repaint) {
    Install_World world;
    world.mission("m.zip", some_mission);
    const qint64 before = world.clock->slept;
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_EQ((world.clock->slept - before) % 10, 0);
    EXPECT_GE(world.clock->slept - before, 50);
}

TEST(Install_Command, The_mark_is_cleared_for_every_game_of_the_folder) {
    Install_World world("TG");
    world.mission("m.zip", some_mission);
    ASSERT_TRUE(world.install("m.zip"));
    world.program().ini.T1_GAME_LOCATION = world.program().ini.TG_GAME_LOCATION;
    world.switch_to("T1");
    world.mission("n.zip", some_mission);
    world.zip("fms/TG/n.zip", some_mission);
    ASSERT_TRUE(world.install("n.zip"));
    EXPECT_EQ(world.installed_mark("m.zip", "TG"), 0);
    EXPECT_EQ(world.installed_mark("n.zip", "T1"), 1);
}

TEST(Install_Command, A_zip_name_with_quotes_is_marked_and_harms_nothing) {
    Install_World world;
    const QString zip = "o'brien \"the\" keep.zip";
    world.mission(zip, some_mission);
    world.mission("other.zip", some_mission);
    ASSERT_TRUE(world.install(zip));
    EXPECT_EQ(world.installed_mark(zip, "T2"), 1);
    EXPECT_EQ(world.installed_mark("other.zip", "T2"), 0);
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.installed_mark(zip, "T2"), 0);
}

TEST(Install_Command, Doom_missions_are_marked_under_either_code) {
    Install_World world("DOOM");
    world.mission("m.zip", some_mission);
    db_Execute(
        world.program(),
        "INSERT INTO Table_Scores (zip_name, FM_name, game, installed) VALUES ('m.zip', 'x', 'DMOD', 0)");
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_EQ(world.installed_mark("m.zip", "DOOM"), 1);
    EXPECT_EQ(world.installed_mark("m.zip", "DMOD"), 1);
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.installed_mark("m.zip", "DOOM"), 0);
    EXPECT_EQ(world.installed_mark("m.zip", "DMOD"), 0);
}

TEST(Install_Command, A_zip_that_is_called_original_something_is_a_mission) {
    Install_World world;
    world.mission("originalsin.zip", some_mission);
    ASSERT_TRUE(world.install("originalsin.zip"));
    EXPECT_EQ(world.listed(), (QStringList{"a.mis", "b.str"}));
    EXPECT_TRUE(IsCurrentlyInstalled(world.program(), world.game_path(), "originalsin.zip", "T2"));
}

} // namespace
} // namespace vantrosk
