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

TEST(Scan_Custom, The_log_names_every_mission_file_whatever_the_case_of_its_extension) {
    Scan_World world;
    world.zips(
        "one.zip",
        {{"a.bsp", "b", {}}, {"b.BSP", "b", {}}, {"c.Map", "b", {}}, {"bsp", "b", {}}, {"xbsp", "b", {}}});
    Archives_Request request = Quake_request(world);
    request.custom_extensions = "BSP**map";
    Get_archives(world.program(), request);
    QStringList found;
    for (const QString &line : world.log().split("\r\n"))
        if (line.startsWith("found "))
            found << line;
    EXPECT_EQ(found,
              QStringList({"found A.BSP Custom game Mission File", "found B.BSP Custom game Mission File",
                           "found C.MAP Custom game Mission File"}));
}

TEST(Scan_Custom, Strings_of_the_dark_engine_mean_nothing_but_its_missions_decide_first) {
    Scan_World world;
    const QByteArray titles = "title_1: \"Running Interference\"\r\n";
    world.zips("dark.zip", {{"miss20.mis", "m", {}},
                            {"a.bsp", "b", {}},
                            {"strings/titles.str", titles, {}},
                            {"strings/missflag.str", "s", {}},
                            {"readme.txt", "Title: Dark one\r\n", {}}});
    world.zips("pack.zip", {{"x.pk4", "p", {}}, {"a.bsp", "b", {}}});
    world.zips("three.zip", {{"x.ibt", "p", {}}, {"readme.txt", "Title: Three\r\n", {}}});
    world.zips("f.zip", {{"x.mis", "p", {}}, {"readme.txt", "Title: Eff\r\n", {}}});
    world.zips("quake.zip", {{"a.bsp", "b", {}}, {"readme.txt", "Title: Quake one\r\n", {}}});
    Get_archives(world.program(), Quake_request(world));
    const QStringList expected{"dark.zip|Dark one||SS2|0", "pack.zip|pack.zip||DOOM|0",
                               "quake.zip|Quake one||Quake Game|0"};
    QStringList records;
    for (const QString &record : world.records())
        records << record.section('|', 0, 4);
    EXPECT_EQ(records, expected) << "neither map files of Thief 3 nor known zips count here";
    EXPECT_EQ(world.listed(),
              QStringList({"Original", "dark.zip", "f.zip", "pack.zip", "quake.zip", "three.zip"}));
}

TEST(Scan_Custom, A_game_that_a_readme_names_is_taken_as_in_other_lists) {
    Scan_World world;
    world.zips("two.zip", {{"a.bsp", "b", {}}, {"readme.txt", "Title: Two\r\nGame: Thief 2\r\n", {}}});
    world.zips("own.zip", {{"a.bsp", "b", {}}, {"readme.txt", "Title: Own\r\nGame: quake game\r\n", {}}});
    world.zips("mark.zip",
               {{"a.bsp", "b", {}}, {"readme.txt", "Title: Mark\r\nGame: CUSTOM - Quake Game\r\n", {}}});
    Get_archives(world.program(), Quake_request(world));
    QStringList games;
    for (const QString &record : world.records())
        games << record.section('|', 0, 0) + " " + record.section('|', 3, 3);
    EXPECT_EQ(games, QStringList({"mark.zip Quake Game", "own.zip Quake Game", "two.zip T2"}));
}

TEST(Scan_Custom, Its_statistics_stand_under_its_name_and_its_categories_hide_all) {
    Scan_World world;
    world.zips("one.zip", {{"a.bsp", "b", {}}, {"readme.txt", "Title: One\r\n", {}}});
    Archives_Request request = Quake_request(world);
    request.filter = 31;
    Get_archives(world.program(), request);
    EXPECT_EQ(world.listed(), QStringList({"Original"}));
    const Recordset rows = db_Query(world.program(), "select * from table_game_info");
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows.text(0, "game_name"), "Quake Game");
    EXPECT_EQ(rows.text(0, "list_number"), "7");
    EXPECT_EQ(rows.text(0, "zip_count"), "1");
    EXPECT_EQ(rows.text(0, "saves_count"), "0") << "it has no folder of saves";
}

TEST(Scan_Custom, The_caption_calls_a_list_of_others_so) {
    Scan_World world;
    Archives_Request request = Quake_request(world);
    request.custom_name = "TOTHER games";
    Get_archives(world.program(), request);
    EXPECT_EQ(world.found().caption, "Vantrosk (1.4194 - 3-March-09) - Found 0 (OTHER games) FMs ");
}

} // namespace vantrosk
