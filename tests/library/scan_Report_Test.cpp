#include "scan_World.h"

#include "core/Games.h"
#include "library/Fm_List_View.h"
#include "readme/mdlHTML_stuff.h"

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

QStringList Game_statistics(Program &program) {
    const Recordset rows = db_Query(program, "select * from table_game_info order by game_name");
    QStringList texts;
    for (int row = 0; row < rows.size(); ++row) {
        QStringList fields;
        for (const char *column :
             {"game_name", "list_number", "zip_count", "zip_size", "FMs_completed", "saves_count"})
            fields << rows.text(row, column);
        texts << fields.join('|');
    }
    return texts;
}

} // namespace

TEST(Scan_Report, The_page_lists_what_could_not_be_placed) {
    Scan_World world;
    world.zips("pictures <b>.zip", {{"a.jpg", "j", {}}});
    world.zips("texts.zip", {{"b.jpg", "j", {}}});
    world.mission("gold.zip", "Title: Gold & more\r\nGame: Thief Gold\r\n");
    world.scan();
    const QString expected =
        Page_Head(world.program(), false, false) +
        "<img src='HTMLImages/triangle_red.gif'> <span class='VKTITLE TEXTRED'>Excess Zip File(s) "
        "Found</span><br>\r\n"
        "<br><br>\r\n"
        "<span class='VKFMINFO'>\r\n"
        "Helpful Tip: Vantrosk has detected some zip files that may be in the wrong folder for the currently "
        "selected game or they may not be properly structured ready for installation. In order for Vantrosk "
        "to "
        "work better, please move these files out of thier current location if they are not Fan Missions.\r\n"
        "<br><br>\r\n"
        "However if they are Fan Missions please make sure they are in the correct folders. This will speed "
        "Vantrosk up as it will not have to look inside each unknown zip file every scan to see what it "
        "is.\r\n"
        "</span><br><br>\r\n"
        "<span class='VKSUBTITLE TEXTRED'>Zip Files That Vantrosk Can Not Determine To Be An "
        "FM</span><br>\r\n"
        "<span class='VKINFO'>" +
        Escape_html("pictures <b>.zip") +
        "</span><br>\r\n"
        "<span class='VKINFO'>texts.zip</span><br>\r\n"
        "<br><span class='VKSUBTITLE TEXTRED'>Zip Files That Are In The Wrong FM Folder</span><br>\r\n"
        "<span class='VKINFO'>gold.zip - Found to be for the game [TG] - </span><br>\r\n"
        "<br><a href='excessZips.htm?VKwhatdoesthismean=true' class='VKINFO TEXTBLUE'><u>What Does This "
        "Mean?</u></a><br>\r\n"
        "</body>\r\n</html>\r\n";
    EXPECT_EQ(QString::fromUtf8(world.read("home/excessZips.htm")), expected);
    EXPECT_EQ(world.ui.pages.last(), world.windows("home") + "\\excessZips.htm");
    EXPECT_FALSE(expected.contains("<b>.zip"));
}

TEST(Scan_Report, Nothing_to_report_leaves_no_page) {
    Scan_World world;
    world.mission("vault.zip");
    world.scan();
    EXPECT_FALSE(world.exists("home/excessZips.htm"));
    EXPECT_EQ(world.ui.pages.last(), "about:blank");
}

TEST(Scan_Report, Statistics_count_zips_sizes_finished_ones_and_saves) {
    Scan_World world;
    world.mission("vault.zip");
    world.mission("gold.zip", "Title: Some gold\r\nGame: Thief Gold\r\n");
    world.record("vault.zip", "The Vault", "T2", "completed = 1");
    for (const char *save :
         {"saves_vault.zip", "SAVES_other.zip", "vault_saves.zip", "notes.txt", "mysaves_x.txt"})
        world.write(QString("games/T2/allsaves/") + save, "x");
    world.make_folder("games/T2/allsaves/saves_folder");
    world.scan();
    const qint64 size = world.read("zips/vault.zip").size() + world.read("zips/gold.zip").size();
    const QStringList expected{QString("Thief The Metal Age|3|2|%1|1|3").arg(size)};
    EXPECT_EQ(Game_statistics(world.program()), expected);
    EXPECT_EQ(world.found().saves, 3);
    world.scan();
    EXPECT_EQ(Game_statistics(world.program()), expected) << "the row is used again";
}

TEST(Scan_Report, Each_game_has_its_own_statistics_row) {
    Scan_World world;
    QStringList expected;
    for (const Game &game : Games()) {
        Get_archives_of_game(world.program(), game.code);
        expected << QString("%1|%2|0|0|0|0").arg(game.name, game.number);
    }
    expected.sort();
    EXPECT_EQ(Game_statistics(world.program()), expected);
}

TEST(Scan_Report, Saves_of_thief_3_lie_beside_its_system_folder) {
    Scan_World world("T3");
    world.program().ini.T3_GAME_LOCATION = world.windows("games/T3") + "\\System";
    world.write("games/T3/allsaves/saves_x.zip", "x");
    world.scan();
    EXPECT_EQ(world.found().saves, 1);
}

TEST(Scan_Installed, The_installed_mission_is_marked_named_and_selected) {
    Scan_World world;
    for (const char *zip : {"a.zip", "b.zip", "c.zip"})
        world.mission(zip);
    world.record("a.zip", "Zebra", "T2");
    world.record("b.zip", "Ant\"s Hill", "T2", "installed = 1");
    world.scan();
    EXPECT_EQ(world.found().caption,
              "Vantrosk (1.4194 - 3-March-09) - Found 3 (T2) FMs T2  -  [3] 'Ant's Hill' "
              "currently installed ");
    EXPECT_EQ(world.listed(), QStringList({"Original", "b.zip", "c.zip", "a.zip"}));
    EXPECT_EQ(world.list().current_row, 1);
    EXPECT_EQ(world.list().top_row, 1);
    EXPECT_EQ(world.list().first_selection_state, 0);
    EXPECT_EQ(world.program().FM_PANEL, "b.zip");
    EXPECT_EQ(world.cell("Original", col_ready), "");
}

TEST(Scan_Installed, A_hidden_installed_mission_gives_its_mark_to_the_next_row) {
    Scan_World world;
    for (const char *zip : {"a.zip", "b.zip", "c.zip"})
        world.mission(zip);
    world.record("a.zip", "Hidden", "T2", "installed = 1, score = 9");
    world.program().screen.list.first_selection_state = 2;
    world.scan(4);
    EXPECT_EQ(world.cell("b.zip", col_ready), "Yes");
    EXPECT_EQ(world.cell("c.zip", col_ready), "");
    EXPECT_EQ(world.cell("Original", col_ready), "");
    EXPECT_TRUE(world.found().caption.endsWith("T2  -  [2] 'The Vault' currently installed "));
    EXPECT_EQ(world.list().current_row, -1) << "another selection is on its way";
}

TEST(Scan_Installed, The_missions_of_another_game_in_the_same_folder_are_not_the_originals) {
    for (const char *in_place :
         {"Original T2X\r\n[ZIP NAME]\r\n\r\n", "Z:\\fms\\x.zip\r\n[ZIP NAME]\r\nx.zip\r\n"}) {
        Scan_World world;
        world.mission("a.zip");
        world.write("games/T2/current_install.txt",
                    QByteArray("[ZIP LOCATION]\r\n") + in_place + "[ZIP CONTENTS]\r\n");
        world.scan();
        EXPECT_EQ(world.cell("Original", col_ready), "") << in_place;
    }
    Scan_World world;
    world.write("games/T2/current_install.txt",
                "[ZIP LOCATION]\r\nOriginal\r\n[ZIP NAME]\r\n\r\n[ZIP CONTENTS]\r\n\r\n");
    world.scan();
    EXPECT_EQ(world.cell("Original", col_ready), "Yes");
}

TEST(Scan_Installed, With_none_installed_the_original_missions_are_ready) {
    Scan_World world;
    world.mission("a.zip");
    world.scan();
    EXPECT_EQ(world.cell("Original", col_ready), "Yes");
    EXPECT_EQ(world.cell("a.zip", col_ready), "");
    EXPECT_EQ(world.list().current_row, -1);
}

} // namespace vantrosk
