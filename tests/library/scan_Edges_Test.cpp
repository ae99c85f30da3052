#include "scan_World.h"

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

const QByteArray untold = "Title: From the readme\r\nAuthor: Ann\r\n";

/// A mission whose readme names no game, with this map file.
void Add(Scan_World &world, const QString &zip, const QByteArray &map, const QByteArray &readme = untold) {
    world.zips(zip, {{map, "m", {}}, {"readme.txt", readme, {}}});
}

QString Name_and_author(Scan_World &world, const QString &zip) {
    return world.cell(zip, col_name) + " by " + world.cell(zip, col_author);
}

} // namespace

TEST(Scan_Edges, Known_zips_overwrite_name_and_author_only_where_they_carry_them) {
    Scan_World world("TG");
    Add(world, "amida_b.zip", "start.mis");
    Add(world, "koobze.zip", "start.mis");
    world.scan();
    EXPECT_EQ(Name_and_author(world, "amida_b.zip"), "AMIDA by Unknown Author");
    EXPECT_EQ(Name_and_author(world, "koobze.zip"), "From the readme by Ann");
}

TEST(Scan_Edges, Known_zips_count_only_when_nothing_before_them_tells_the_game) {
    Scan_World world;
    Add(world, "f.zip", "start.mis", "Title: Eff\r\nGame: Thief 2\r\n");
    Add(world, "treachery.zip", "start.ibt");
    Add(world, "kill3.zip", "miss20.mis");
    world.scan();
    EXPECT_EQ(world.game_of("f.zip"), "T2");
    EXPECT_EQ(world.found().wrong_folder, QStringList({"kill3.zip - Found to be for the game [SS2] - ",
                                                       "treachery.zip - Found to be for the game [T3] - "}));
}

TEST(Scan_Edges, Packs_come_before_map_files_of_thief_3_and_marks_of_dark_mod_before_packs) {
    Scan_World world("DMOD");
    world.zips("a.zip", {{"a.pk4", "p", {}}, {"a.ibt", "m", {}}, {"readme.txt", untold, {}}});
    world.zips("b.zip", {{"b.ibt", "m", {}}, {"darkmod.ini", "x", {}}, {"readme.txt", untold, {}}});
    world.scan();
    EXPECT_EQ(world.game_of("a.zip"), "DOOM");
    EXPECT_EQ(world.game_of("b.zip"), "DMOD");
}

TEST(Scan_Edges, A_mission_in_the_wrong_list_gets_no_record) {
    Scan_World world;
    Add(world, "gold.zip", "start.mis", "Title: Some gold\r\nGame: Thief Gold\r\n");
    world.scan();
    EXPECT_EQ(world.found().wrong_folder, QStringList({"gold.zip - Found to be for the game [TG] - "}));
    EXPECT_EQ(world.records(), QStringList());
}

TEST(Scan_Edges, Authors_lose_a_leading_colon_and_tabs) {
    Scan_World world;
    Add(world, "a.zip", "start.mis", "Title: One\r\nAuthor:: Ann\tOther \r\nGame: Thief 2\r\n");
    world.scan();
    EXPECT_EQ(world.cell("a.zip", col_author), "AnnOther");
}

TEST(Scan_Edges, A_vkml_readme_may_tell_its_game_on_any_line) {
    Scan_World world;
    world.zips("a.zip", {{"start.mis", "m", {}},
                         {"a.vkml",
                          "[VKFMSTRUCTURE]\r\n  Game : Thief 2[VKNL]\r\n[/VKFMSTRUCTURE][VKNL]\r\n"
                          "[VKCENTER][VKTITLE]First[/VKTITLE][VKNL]\r\n"
                          "[VKCENTER][VKTITLE]Second[/VKTITLE][VKNL]\r\n",
                          {}}});
    world.scan();
    EXPECT_EQ(world.game_of("a.zip"), "T2");
}

TEST(Scan_Edges, Filters_between_the_numbers_of_the_menus_hide_nothing) {
    Scan_World world;
    world.mission("a.zip");
    for (const int filter : {5, 10, 15, 20, 25, 30}) {
        world.scan(filter);
        EXPECT_EQ(world.listed(), QStringList({"Original", "a.zip"})) << filter;
    }
}

TEST(Scan_Edges, Scores_between_the_bands_are_in_none_of_them) {
    Scan_World world;
    world.mission("a.zip");
    world.record("a.zip", "A", "T2", "average_score = 7.5");
    for (const int filter : {11, 12, 13, 14}) {
        world.scan(filter);
        EXPECT_EQ(world.listed(), QStringList({"Original"})) << filter;
    }
    world.scan();
    EXPECT_EQ(world.cell("a.zip", col_group_score), "7.5");
}

TEST(Scan_Edges, Two_installed_records_mark_two_rows) {
    Scan_World world;
    for (const char *zip : {"a.zip", "b.zip", "c.zip"})
        world.mission(zip);
    world.record("a.zip", "Anthill", "T2", "installed = 1");
    world.record("c.zip", "Castle", "T2", "installed = -1");
    world.program().screen.list.first_selection_state = 2;
    world.scan();
    EXPECT_EQ(world.cell("a.zip", col_ready), "Yes");
    EXPECT_EQ(world.cell("b.zip", col_ready), "");
    EXPECT_EQ(world.cell("c.zip", col_ready), "Yes");
    EXPECT_TRUE(world.found().caption.endsWith("T2  -  [4] 'Castle' currently installed "));
}

TEST(Scan_Edges, What_lay_in_the_folder_of_the_selection_goes) {
    Scan_World world;
    world.program();
    world.write("home/INFO/old.txt", "x");
    world.write("home/INFO/VKIMAGES/old.jpg", "x");
    world.scan();
    EXPECT_FALSE(world.exists("home/INFO/old.txt"));
    EXPECT_FALSE(world.exists("home/INFO/VKIMAGES/old.jpg"));
}

TEST(Scan_Edges, Null_fields_of_a_record_are_empty_cells) {
    Scan_World world;
    world.mission("a.zip");
    db_Execute(world.program(), "INSERT INTO Table_Scores (zip_name,game) VALUES ('a.zip','T2')");
    world.scan();
    QStringList cells = world.cells("a.zip");
    cells[3].clear(); // the size
    EXPECT_EQ(cells, QStringList({"a.zip", "a.zip", "", "", "", "", "", "", "", "", "", "", ""}));
}

TEST(Scan_Edges, The_category_is_sought_in_any_case_and_as_a_part) {
    Scan_World world;
    world.mission("a.zip");
    world.record("a.zip", "A", "T2", "categories_list = 'x,BODYGUARDS and more'");
    world.scan(31);
    EXPECT_EQ(world.listed(), QStringList({"Original", "a.zip"}));
}

} // namespace vantrosk
