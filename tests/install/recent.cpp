#include "install/Recent.h"

#include "core/mdlDB_Functions.h"
#include "core/mdlFile_Functions.h"
#include "install/Play_World.h"
#include "library/Get_archives.h"

#include <QFile>

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

class Recent : public testing::Test {
protected:
    Recent() : world("T2") { world.program().tweaks.RECENTLY_USED = true; }

    Program &program() { return world.program(); }
    void play(const QString &zip) {
        world.choose(zip);
        EXPECT_TRUE(world.play().started);
        world.clock->sleep(60000);
    }
    /// "rank zip" of every row of the table.
    QStringList ranks() {
        const Recordset rows = db_Query(program(), "SELECT * FROM Table_Recent order by rank");
        QStringList texts;
        for (int row = 0; row < rows.size(); ++row)
            texts << rows.text(row, "rank") + " " + rows.text(row, "zip_name");
        return texts;
    }
    QStringList shown() {
        QStringList texts;
        for (const Recent_Cell &cell : program().screen.recent.cells)
            texts << cell.menu_text;
        return texts;
    }
    const Recent_Cell &cell(size_t index) { return program().screen.recent.cells.at(index); }

    Play_World world;
};

TEST_F(Recent, The_first_mission_is_recorded_with_its_place_its_name_and_the_time) {
    play("frost.zip");
    const Recordset rows = db_Query(program(), "SELECT * FROM Table_Recent");
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows.text(0, "zip_name"), "frost.zip");
    EXPECT_EQ(rows.text(0, "zip_path"), world.windows("fms/T2") + "\\");
    EXPECT_EQ(rows.text(0, "FM_name"), "The Mission frost");
    EXPECT_EQ(rows.text(0, "Game"), "T2");
    EXPECT_EQ(rows.text(0, "rank"), "1");
    EXPECT_EQ(rows.text(0, "installed_date"), "2026-11-19 22:14:05");
}

TEST_F(Recent, A_newly_played_mission_goes_in_front) {
    for (const char *zip : {"a.zip", "b.zip", "c.zip"})
        play(zip);
    EXPECT_EQ(ranks(), (QStringList{"1 c.zip", "2 b.zip", "3 a.zip"}));
    EXPECT_EQ(shown(), (QStringList{"1) The Mission c", "2) The Mission b", "3) The Mission a"}));
}

TEST_F(Recent, The_first_one_played_again_only_gets_its_date) {
    play("a.zip");
    play("b.zip");
    const QString before = cell(0).installed_date;
    play("B.zip");
    EXPECT_EQ(ranks(), (QStringList{"1 b.zip", "2 a.zip"}));
    EXPECT_GT(cell(0).installed_date, before);
}

TEST_F(Recent, One_from_further_back_comes_to_the_front_and_those_before_it_move_down) {
    for (const char *zip : {"a.zip", "b.zip", "c.zip", "d.zip"})
        play(zip);
    play("b.zip");
    EXPECT_EQ(ranks(), (QStringList{"1 b.zip", "2 d.zip", "3 c.zip", "4 a.zip"}));
}

TEST_F(Recent, Ten_are_kept) {
    for (int i = 1; i <= 12; ++i)
        play(QString("m%1.zip").arg(i, 2, 10, QChar('0')));
    EXPECT_EQ(ranks().size(), 10);
    EXPECT_EQ(ranks().first(), "1 m12.zip");
    EXPECT_EQ(ranks().last(), "10 m03.zip");
}

TEST_F(Recent, Nothing_is_recorded_of_the_games_own_missions_or_while_the_tweak_is_off) {
    world.choose("Original");
    world.play();
    EXPECT_EQ(ranks(), QStringList());
    program().tweaks.RECENTLY_USED = false;
    play("a.zip");
    EXPECT_EQ(ranks(), QStringList());
    EXPECT_FALSE(program().screen.recent.tab_shown);
}

TEST_F(Recent, A_name_with_quotes_comes_back_as_it_was) {
    world.choose("o'brien.zip");
    program().screen.list.rows.back().cells[col_name] = "O'Brien's \"Tale\"";
    world.play();
    EXPECT_EQ(shown(), QStringList("1) O'Brien's 'Tale'"));
}

TEST_F(Recent, The_game_is_that_of_the_missions_record) {
    world.choose("gold.zip");
    program().fm.record_game = "TG";
    db_Execute(program(), "UPDATE Table_Scores SET game = 'TG' WHERE zip_name = 'gold.zip'");
    world.play();
    EXPECT_EQ(cell(0).game, "TG");
    EXPECT_EQ(cell(0).game_text, "A Thief Gold Fan Mission");
}

TEST_F(Recent, A_mission_without_a_record_is_not_shown) {
    play("a.zip");
    play("b.zip");
    db_Execute(program(), "DELETE FROM Table_Scores WHERE zip_name = 'b.zip'");
    Display_recently_used(program());
    EXPECT_EQ(shown(), QStringList("1) The Mission a"));
    EXPECT_EQ(cell(0).rank, 2);
}

TEST_F(Recent, A_cell_tells_score_date_and_game) {
    play("a.zip");
    play("b.zip");
    db_Execute(program(), "UPDATE Table_Scores SET score = 7 WHERE zip_name = 'b.zip'");
    Display_recently_used(program());
    EXPECT_EQ(cell(0).score_text, "You gave this FM 7 out of 10");
    EXPECT_EQ(cell(1).score_text, "You have not scored this FM yet.");
    EXPECT_EQ(cell(0).number_tip, "19-NOV-26");
    EXPECT_EQ(cell(0).picture_tip, "The Mission b");
    EXPECT_TRUE(cell(0).zip_found);
}

struct Game_Words {
    const char *game, *text;
};
TEST_F(Recent, Each_game_has_its_words) {
    for (const Game_Words &row :
         {Game_Words{"T1", "A Thief 1 Fan Mission"}, Game_Words{"TG", "A Thief Gold Fan Mission"},
          Game_Words{"T2", "A Thief 2 Fan Mission"}, Game_Words{"T3", "A Thief 3 Fan Mission"},
          Game_Words{"DM", "A Dark metal Fan Mission"}, Game_Words{"DMOD", "A Dark Mod Fan Mission"},
          Game_Words{"SS2", "A System Shock 2 Fan Mission"}, Game_Words{"T2X", ""}}) {
        db_Execute(program(), "DELETE FROM Table_Recent");
        db_Execute(program(), QString("INSERT INTO Table_Recent (zip_name,zip_path,FM_name,Game,rank) VALUES "
                                      "('%1.zip','C:\\','x','%1',1)")
                                  .arg(row.game));
        db_Execute(program(),
                   QString("INSERT INTO Table_Scores (zip_name,game) VALUES ('%1.zip','%1')").arg(row.game));
        Display_recently_used(program());
        EXPECT_EQ(cell(0).game_text, row.text) << row.game;
    }
}

TEST_F(Recent, The_picture_is_the_first_of_three_kinds_and_bitmaps_are_wider) {
    play("a.zip");
    EXPECT_EQ(cell(0).picture_path, "");
    EXPECT_EQ(program().screen.recent.column_widths, "1500,");
    for (const char *name : {"a.bmp", "a.gif", "a.jpg"}) {
        world.write(QString("home/titles/") + name, "picture");
        Display_recently_used(program());
        EXPECT_EQ(cell(0).picture_path, program().paths.titles + name);
        EXPECT_EQ(program().screen.recent.column_widths, QString(name).endsWith("bmp") ? "2100," : "1500,");
    }
}

TEST_F(Recent, A_zip_that_is_gone_stays_with_its_warning_and_takes_no_click) {
    play("a.zip");
    ASSERT_TRUE(QFile::remove(world.native("fms/T2/a.zip")));
    Display_recently_used(program());
    EXPECT_EQ(shown(), QStringList("1) The Mission a--WARNING Zip Not Found"));
    EXPECT_EQ(cell(0).number_tip, "19-NOV-26 -- WARNING: Zip Not Found");
    EXPECT_EQ(cell(0).picture_tip, "The Mission a -- WARNING: Zip Not Found");
    EXPECT_FALSE(cell(0).zip_found);
    EXPECT_FALSE(Recent_Click(program(), 0));
}

TEST_F(Recent, The_tab_is_there_while_there_is_something_to_show) {
    Display_recently_used(program());
    EXPECT_FALSE(program().screen.recent.tab_shown);
    play("a.zip");
    EXPECT_TRUE(program().screen.recent.tab_shown);
    program().tweaks.RECENTLY_USED = false;
    Check_Recently_Used_Tab(program());
    EXPECT_FALSE(program().screen.recent.tab_shown);
    EXPECT_EQ(shown(), QStringList());
    program().tweaks.RECENTLY_USED = true;
    Check_Recently_Used_Tab(program());
    EXPECT_TRUE(program().screen.recent.tab_shown);
}

TEST_F(Recent, Removing_one_moves_those_behind_it_up) {
    for (const char *zip : {"a.zip", "b.zip", "c.zip", "d.zip"})
        play(zip);
    EXPECT_TRUE(Remove_recent(program(), 2));
    EXPECT_EQ(ranks(), (QStringList{"1 d.zip", "2 b.zip", "3 a.zip"}));
    EXPECT_EQ(shown(), (QStringList{"1) The Mission d", "2) The Mission b", "3) The Mission a"}));
    EXPECT_FALSE(Remove_recent(program(), 4));
    EXPECT_TRUE(Remove_recent(program(), 3));
    EXPECT_TRUE(Remove_recent(program(), 1));
    EXPECT_TRUE(Remove_recent(program(), 1));
    EXPECT_EQ(ranks(), QStringList());
    EXPECT_FALSE(program().screen.recent.tab_shown);
}

TEST_F(Recent, A_click_lists_the_missions_game_and_selects_its_row) {
    world.zip("fms/T2/frost.zip", {{"miss20.mis", "map"}, {"a.txt", "Title: Frost\r\nGame: Thief 2\r\n"}});
    Get_archives_of_game(program(), "T2");
    db_Execute(program(), "INSERT INTO Table_Recent (zip_name,zip_path,FM_name,Game,rank) VALUES "
                          "('frost.zip','" +
                              world.windows("fms/T2") + "\\','Frost','T2',1)");
    Display_recently_used(program());
    Get_archives_of_game(program(), "SS2");
    ASSERT_TRUE(Recent_Click(program(), 0));
    EXPECT_EQ(program().SELECTED_GAME_TAB, "T2");
    EXPECT_EQ(program().FM_PANEL, "frost.zip");
    EXPECT_FALSE(Recent_Click(program(), 1));
    EXPECT_FALSE(Recent_Click(program(), -1));
}

TEST_F(Recent, A_click_on_a_mission_of_a_custom_game_fills_the_custom_list) {
    world.zip("zips/q.zip", {{"maps/q.bsp", "map"}, {"q.txt", "Title: Q\r\n"}});
    world.write("home/Vantrosk_QBAR.ini",
                ("[QBAR_1]\r\nPath=C:\\x.exe\r\nisgame=TRUE\r\nGameName=Quake\r\n"
                 "MissionFileExtention=bsp\r\nFMpath=" +
                 world.windows("zips") + "\r\nInstallPath=" + world.windows("games/T2") + "\r\n")
                    .toUtf8());
    db_Execute(program(), "INSERT INTO Table_Recent (zip_name,zip_path,FM_name,Game,rank) VALUES "
                          "('q.zip','" +
                              world.windows("zips") + "\\','Q','Quake',1)");
    db_Execute(program(), "INSERT INTO Table_Scores (zip_name,game,FM_name) VALUES ('q.zip','Quake','Q')");
    Display_recently_used(program());
    ASSERT_TRUE(Recent_Click(program(), 0));
    EXPECT_EQ(program().SELECTED_GAME_TAB, "CUSTOM");
    EXPECT_EQ(program().custom_name, "Quake");
    EXPECT_EQ(program().FM_PANEL, "q.zip");
}

} // namespace
} // namespace vantrosk
