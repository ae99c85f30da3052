#include "scan_World.h"

#include "core/mdlFile_Functions.h"

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

Archives_Request Quake_request(Scan_World &world, const QString &mission_folder = {}) {
    Archives_Request request;
    request.folders = Join_folder_list({world.windows("zips")});
    request.game_key = "CUSTOM";
    request.custom_name = "Quake Game";
    request.custom_image = 7;
    request.custom_extensions = "bsp**map";
    request.custom_game_path = world.windows("games/quake");
    request.custom_mission_folder = mission_folder;
    return request;
}

} // namespace

TEST(Scan_Custom, Missions_are_known_by_their_extensions) {
    Scan_World world;
    world.zips("one.zip", {{"maps/one.BSP", "b", {}}, {"one.txt", "Title: Map one\r\nAuthor: Ann\r\n", {}}});
    world.zips("two.zip", {{"two.map", "b", {}}});
    world.zips("none.zip", {{"two.pak", "b", {}}});
    Get_archives(world.program(), Quake_request(world));
    EXPECT_EQ(world.listed(), QStringList({"Original", "one.zip", "two.zip"}));
    EXPECT_EQ(world.cell("Original", col_name), "Quake Game Original Missions");
    EXPECT_EQ(world.cell("one.zip", col_name), "Map one");
    EXPECT_EQ(world.game_of("one.zip"), "Quake Game");
    EXPECT_EQ(world.found().undetermined, QStringList({"none.zip"}));
    EXPECT_EQ(world.found().caption, "Vantrosk (1.4194 - 3-March-09) - Found 2 (Quake Game) FMs ");
    EXPECT_EQ(world.program().SELECTED_GAME_TAB, "CUSTOM");
    EXPECT_EQ(world.program().custom_name, "Quake Game");
    EXPECT_EQ(world.program().custom_extensions, "bsp**map");
}

TEST(Scan_Custom, A_second_scan_finds_the_records) {
    Scan_World world;
    world.zips("one.zip", {{"one.bsp", "b", {}}, {"one.txt", "Title: Map one\r\nAuthor: Ann\r\n", {}}});
    Get_archives(world.program(), Quake_request(world));
    Get_archives(world.program(), Quake_request(world));
    EXPECT_EQ(world.listed(), QStringList({"Original", "one.zip"}));
    EXPECT_EQ(world.records().size(), 1);
    EXPECT_EQ(world.game_of("one.zip"), "Quake Game");
}

TEST(Scan_Custom, A_mission_must_lie_in_its_folder) {
    struct Folder_Case {
        const char *setting;
        const char *entry;
        bool fits;
    };
    const std::vector<Folder_Case> cases{
        {"", "one.bsp", true},
        {"maps\\", "maps/one.bsp", true},
        {"MAPS\\", "maps/one.bsp", true},
        {"maps\\", "one.bsp", false},
        {"maps\\", "id1/maps/one.bsp", false},
        {"\\", "any/one.bsp", true},
        {"\\", "one.bsp", false},
        {"REGEX:^id[0-9]\\\\$", "id1/one.bsp", true},
        {"REGEX:^id[0-9]\\\\$", "idx/one.bsp", false},
        {"REGEX:(", "id1/one.bsp", false},
    };
    for (const Folder_Case &one : cases) {
        Scan_World world;
        world.zips("one.zip", {{one.entry, "b", {}}, {"one.txt", "Title: Map one\r\n", {}}});
        Get_archives(world.program(), Quake_request(world, one.setting));
        EXPECT_EQ(world.listed().contains("one.zip"), one.fits) << one.setting << " " << one.entry;
        EXPECT_EQ(world.found().not_structured, one.fits ? QStringList() : QStringList({"one.zip"}));
    }
}

TEST(Scan_Custom, Misplaced_missions_stand_on_the_report) {
    Scan_World world;
    world.zips("one.zip", {{"one.bsp", "b", {}}, {"one.txt", "Title: Map one\r\n", {}}});
    Get_archives(world.program(), Quake_request(world, "maps\\"));
    const QString page = QString::fromUtf8(world.read("home/excessZips.htm"));
    EXPECT_TRUE(page.contains(
        "<br><span class='VKSUBTITLE TEXTRED'>Zip Files That appear to be FMs but are not correctly "
        "structured</span><br>\r\n"
        "<br><span class='VKINFO TEXTRED'>The following zip files have been detected as being FMs for this "
        "game, "
        "however they are not correctly structured as the map/FMs main file is not located in the correct "
        "folder "
        "for extraction.</span><br><br>\r\n<span class='VKINFO'>one.zip</span><br>\r\n"));
    EXPECT_TRUE(
        world.log().contains(" Custom game Mission File - however it is not located in the right place in "
                             "the zip\r\n"));
}

TEST(Scan_Custom, A_text_named_in_the_zips_name_is_the_readme) {
    Scan_World world;
    world.zips("Quake Game_great_map.zip", {{"a.bsp", "b", {}},
                                            {"zzz.txt", "Title: Wrong one\r\nGame: x\r\n", {}},
                                            {"greatmap.txt", "Title: Right one\r\nAuthor: Ann\r\n", {}},
                                            {"other.txt", "Title: Also wrong\r\n", {}}});
    Get_archives(world.program(), Quake_request(world));
    EXPECT_EQ(world.cell("Quake Game_great_map.zip", col_name), "Right one");
}

TEST(Scan_Custom, A_built_in_list_forgets_the_custom_game) {
    Scan_World world;
    Get_archives(world.program(), Quake_request(world));
    world.scan();
    EXPECT_EQ(world.program().custom_name, "");
    EXPECT_EQ(world.program().custom_extensions, "");
    EXPECT_EQ(world.program().custom_game_path, "");
    EXPECT_EQ(world.program().SELECTED_GAME_TAB, "T2");
}

} // namespace vantrosk
