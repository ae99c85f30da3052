#include "install/Editor_Launch.h"

#include "core/mdlDebug.h"
#include "install/Play_World.h"

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

class Editor : public testing::Test {
protected:
    Play_World &open(const char *game, const QString &missions = "miss20.mis,miss21.mis,") {
        world = std::make_unique<Play_World>(game);
        world->game_has("DromEd.exe", "MZ");
        world->choose("frost.zip");
        world->program().MISSIONFILE = missions;
        return *world;
    }
    QByteArray script() const { return world->game_file("vantrosk.dromed"); }

    std::unique_ptr<Play_World> world;
};

TEST_F(Editor, Each_game_with_an_editor_starts_it_in_its_folder) {
    for (const char *game : {"T2X", "DM", "SS2", "T2", "TG", "T1"}) {
        open(game);
        const Play_Result result = Editor_Command(world->program());
        EXPECT_TRUE(result.started) << game;
        EXPECT_EQ(world->started(), QStringList("dromed.exe|")) << game;
        EXPECT_EQ(world->processes->requests.at(0).working_folder, world->program().CURRENT_GAME_PATH);
        EXPECT_EQ(script(), "load_file miss20.mis\r\n") << game;
    }
}

TEST_F(Editor, The_other_games_do_nothing_and_say_why) {
    for (const char *game : {"T3", "DMOD", "DOOM"}) {
        open(game);
        const Play_Result result = Editor_Command(world->program());
        EXPECT_FALSE(result.started) << game;
        EXPECT_NE(result.refusal, "") << game;
        EXPECT_EQ(world->started(), QStringList()) << game;
        EXPECT_FALSE(world->exists(world->in_game("vantrosk.dromed"))) << game;
    }
}

TEST_F(Editor, System_Shock_2_has_an_editor_of_its_own) {
    open("SS2");
    world->game_has("ShockEd.exe", "MZ");
    EXPECT_TRUE(Editor_Command(world->program()).started);
    EXPECT_EQ(world->started(), QStringList("SHOCKED.EXE|"));
}

TEST_F(Editor, The_configured_editor_is_started_where_it_exists) {
    open("T2");
    world->program().ini.T2_EDITOR = world->windows("tools/DromEd2.exe");
    EXPECT_TRUE(Editor_Command(world->program()).started);
    EXPECT_EQ(world->started(), QStringList("dromed.exe|"));
    world->write("tools/DromEd2.exe", "MZ");
    world->processes->requests.clear();
    EXPECT_TRUE(Editor_Command(world->program()).started);
    EXPECT_EQ(world->processes->requests.at(0).program_path, world->windows("tools/DromEd2.exe"));
    EXPECT_EQ(world->processes->requests.at(0).working_folder, world->program().CURRENT_GAME_PATH);
}

TEST_F(Editor, Without_a_mission_there_is_no_load_line) {
    for (const char *missions : {"na", ""}) {
        open("T2", missions);
        world->game_has("vantrosk.dromed", "older");
        EXPECT_TRUE(Editor_Command(world->program()).started);
        EXPECT_EQ(script(), "");
    }
}

TEST_F(Editor, The_comfort_commands_come_first_when_they_are_wanted) {
    open("T2", " miss20.mis ");
    ASSERT_FALSE(world->platform.settings->set_value(editor_commands_section, editor_commands_key, "True"));
    EXPECT_TRUE(Editor_Command(world->program()).started);
    EXPECT_EQ(script(), "light_bright \r\nlit_obj_toggle \r\npersistent_player_pos \r\naiawareofplayer 0 "
                        "\r\nshow_stats \r\nload_file miss20.mis\r\n");
}

TEST_F(Editor, A_mission_name_can_not_begin_a_line_of_its_own) {
    open("T2", "a.mis\r\nquit_game");
    EXPECT_TRUE(Editor_Command(world->program()).started);
    EXPECT_EQ(script(), "load_file a.mis  quit_game\r\n");
}

TEST_F(Editor, The_configuration_names_the_script_and_keeps_its_other_lines) {
    open("T2");
    const QByteArray config = "editor\r\nedit_script_other other.dromed\r\n; caf\xe9\r\n\r\nlast";
    world->game_has("DROMED.CFG", config);
    EXPECT_TRUE(Editor_Command(world->program()).started);
    EXPECT_EQ(world->game_file("DROMED.CFG"),
              "editor\r\n; caf\xe9\r\n\r\nlast\r\nedit_script_vantrosk vantrosk.dromed\r\n\r\n");
    EXPECT_EQ(world->game_file("dromed.cfg.VKB"), config);
}

TEST_F(Editor, A_second_start_does_not_make_the_configuration_grow) {
    open("T2");
    for (const char *config : {"a\r\nb\r\n", "a\r\nb", "a\nb\n", "", "\r\n"}) {
        world->game_has("dromed.cfg", config);
        EXPECT_TRUE(Editor_Command(world->program()).started);
        const QByteArray once = world->game_file("dromed.cfg");
        EXPECT_TRUE(once.endsWith("edit_script_vantrosk vantrosk.dromed\r\n\r\n"));
        EXPECT_TRUE(Editor_Command(world->program()).started);
        EXPECT_EQ(world->game_file("dromed.cfg"), once);
    }
    EXPECT_EQ(world->game_file("dromed.cfg.VKB"), "a\r\nb\r\n");
}

TEST_F(Editor, Without_an_editor_or_a_way_to_write_nothing_is_started) {
    open("T2");
    world->make_folder(world->in_game("vantrosk.dromed"));
    EXPECT_FALSE(Editor_Command(world->program()).started);
    EXPECT_EQ(world->started(), QStringList());
    Play_World bare("T2");
    bare.choose("frost.zip");
    const Play_Result result = Editor_Command(bare.program());
    EXPECT_FALSE(result.started);
    EXPECT_EQ(result.refusal, "there is no editor for T2");
    EXPECT_FALSE(bare.exists(bare.in_game("vantrosk.dromed")));
}

TEST_F(Editor, The_trace_tells_its_beginning_and_its_end) {
    open("T2");
    Editor_Command(world->program());
    const QString trace = world->ui.trace.join('\n');
    EXPECT_TRUE(trace.contains("MAIN FORM: Start Loading in Dromed"));
    EXPECT_TRUE(trace.contains("MAIN FORM: End Loading in Dromed"));
}

} // namespace
} // namespace vantrosk
