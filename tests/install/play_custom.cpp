#include "install/Play_World.h"

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

constexpr const char *address_question =
    "You have not provided a valid IP address to log into to play this mission, would you like to continue "
    "loading the game without map or server IP address info?";

class Custom_World : public Play_World {
public:
    Custom_World() : Play_World("T2") {
        program().SELECTED_GAME_TAB = "CUSTOM";
        program().CURRENT_GAME = program().custom_name = "Quake";
        program().custom.launch_exe = windows("games/quake") + "\\quake.exe";
        program().custom_extensions = "bsp**map";
    }
    QStringList play_with(const QString &command, const QStringList &missions = {"Start.bsp"}) {
        program().custom.launch_command = command;
        const QString folder = program().fm.custom_mission_folder, path = program().fm.custom_mission_path;
        choose("frost.zip", missions);
        program().fm.custom_mission_folder = folder;
        program().fm.custom_mission_path = path;
        play();
        return started();
    }
};

TEST(Play_Custom, Without_arguments_the_program_alone_is_started_in_its_folder) {
    Custom_World world;
    EXPECT_EQ(world.play_with(""), QStringList("quake.exe|"));
    EXPECT_EQ(world.processes->requests.at(0).working_folder, world.windows("games/quake"));
    EXPECT_EQ(world.last_played_cell("frost.zip"), "19/Nov/26");
}

TEST(Play_Custom, The_first_map_is_named_in_upper_case_without_its_extension) {
    Custom_World world;
    EXPECT_EQ(world.play_with("-game +map VKMISSIONNAME -x", {"start.bsp", "end.bsp"}),
              QStringList("quake.exe|-game +map START -x"));
    EXPECT_TRUE(world.ui.panel_1.contains("Please Wait Determining what map to load."));
    EXPECT_TRUE(world.ui.trace.join('\n').contains(
        "MAIN FORM: About to launch game with this CMD line argument [-game +map START -x]"));
}

TEST(Play_Custom, The_extension_stays_where_the_game_wants_it) {
    Custom_World world;
    world.program().custom.use_map_extension = true;
    EXPECT_EQ(world.play_with("+map VKMISSIONNAME"), QStringList("quake.exe|+map START.BSP"));
}

TEST(Play_Custom, Each_extension_is_taken_off) {
    Custom_World world;
    EXPECT_EQ(world.play_with("+map VKMISSIONNAME", {"a.map.bsp"}), QStringList("quake.exe|+map A"));
}

TEST(Play_Custom, The_maps_folder_names_the_mission_where_the_game_wants_it) {
    Custom_World world;
    world.program().custom.use_map_folder = true;
    EXPECT_EQ(world.play_with("-fm VKMISSIONNAME"), QStringList("quake.exe|-fm START"));
    world.program().fm.custom_mission_folder = "FROST";
    EXPECT_EQ(world.play_with("-fm VKMISSIONNAME"), QStringList("quake.exe|-fm FROST"));
}

TEST(Play_Custom, The_whole_path_stands_in_quotes) {
    Custom_World world;
    world.program().custom.full_folder_path = "FULL,maps";
    world.program().fm.custom_mission_path = "frost\\deep\\";
    EXPECT_EQ(world.play_with("-fm VKMISSIONNAME"), QStringList("quake.exe|-fm \"frost\\deep\\\""));
}

TEST(Play_Custom, A_name_from_a_zip_stays_one_argument) {
    Custom_World world;
    EXPECT_EQ(world.play_with("+map VKMISSIONNAME", {"a +exec evil.bsp"}),
              QStringList("quake.exe|+map \"A +EXEC EVIL\""));
    EXPECT_EQ(world.play_with("+map \"VKMISSIONNAME\"", {"a +exec evil.bsp"}),
              QStringList("quake.exe|+map \"A +EXEC EVIL\""));
    EXPECT_EQ(world.play_with("+map VKMISSIONNAME", {"a\" +exec \"b.bsp"}),
              QStringList("quake.exe|+map \"A  +EXEC  B\""));
}

TEST(Play_Custom, The_address_of_a_server_is_asked_for) {
    Custom_World world;
    world.ui.inputs = {"10.0.0.7"};
    EXPECT_EQ(world.play_with("+connect VKIPADDRESS +map VKMISSIONNAME"),
              QStringList("quake.exe|+connect 10.0.0.7 +map START"));
    ASSERT_EQ(world.ui.asked.size(), 1U);
    EXPECT_EQ(world.ui.asked[0].title, "Server IP Address");
    EXPECT_EQ(
        world.ui.asked[0].prompt,
        "This FM Custom Game requires that you provide an IP Address of a server to play, please provide "
        "one below.");
}

TEST(Play_Custom, Without_an_address_the_player_decides) {
    Custom_World world;
    EXPECT_EQ(world.play_with("+connect VKIPADDRESS"), QStringList());
    EXPECT_EQ(world.ui.box_texts(), (QStringList{address_question, "Mission loading aborted."}));
    world.ui.boxes.clear();
    world.processes->requests.clear();
    const Play_Result result = world.play(Answer::yes);
    EXPECT_TRUE(result.started);
    EXPECT_EQ(world.started(), QStringList("quake.exe|"));
    EXPECT_EQ(world.ui.box_texts(), QStringList(address_question));
}

} // namespace
} // namespace vantrosk
