#include "scan_World.h"

#include "core/Timers.h"
#include "core/mdlFormDisplayFunctions.h"
#include "library/Fm_Keywords.h"
#include "library/Fm_List_Save.h"
#include "library/Fm_List_View.h"

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

const QString rescored_text = "As you have re-scored this FM, please re-select it in the FM List to update "
                              "the email information in the FM Readme section.";

/// A list of one mission, which is selected.
struct Save_World : Scan_World {
    explicit Save_World(const QString &game = "T2", const QByteArray &readme = vault_readme)
        : Scan_World(game) {
        mission("vault.zip", readme);
        scan();
        select();
    }
    void select() { Row_Click(program(), list().find_zip("vault.zip"), col_name); }
    Details_Panel &details() { return program().screen.details; }
    /// "score|review|completed|FM_name|author|installed|game" of each record.
    QStringList stored() {
        const Recordset rows = db_Query(program(), "select * from Table_Scores order by id");
        QStringList texts;
        for (int row = 0; row < rows.size(); ++row) {
            QStringList fields;
            for (const char *column :
                 {"score", "review", "completed", "FM_name", "author", "installed", "game"})
                fields << (rows.is_null(row, column) ? QString("-") : rows.text(row, column));
            texts << fields.join('|');
        }
        return texts;
    }
    QStringList column(const char *name) {
        const Recordset rows = db_Query(program(), "select * from Table_Scores order by id");
        QStringList texts;
        for (int row = 0; row < rows.size(); ++row)
            texts << rows.text(row, name);
        return texts;
    }
};

} // namespace

TEST(Save_Status_Of_A_Mission, The_statement_is_this_one) {
    Save_World world;
    world.details().score = "7";
    world.details().review = "Good";
    world.details().finished = {true, false, true, false};
    ASSERT_TRUE(save_status(world.program()));
    EXPECT_EQ(world.program().SQL,
              "UPDATE Table_Scores SET score = 7, review = 'Good', completed = 6, FM_name = 'The Vault' , "
              "Author = 'Ann Author' , installed = 0, game = 'T2' WHERE zip_name = \"vault.zip\"  and game = "
              "'T2'");
}

TEST(Save_Status_Of_A_Mission, Everything_goes_into_the_record_and_comes_back_with_the_next_selection) {
    Save_World world;
    world.details().score = "9";
    world.details().review = "Line one\nline two";
    world.details().finished = {false, true, false, true};
    ASSERT_TRUE(save_status(world.program()));
    EXPECT_EQ(world.stored(), QStringList{"9|Line one\nline two|14|The Vault|Ann Author|0|T2"});
    world.select();
    EXPECT_EQ(world.details().score, "9");
    EXPECT_EQ(world.details().review, "Line one\nline two");
    EXPECT_EQ(world.details().finished, (std::array<bool, 4>{false, true, false, true}));
    EXPECT_EQ(world.details().small_finished, world.details().finished);
}

TEST(Save_Status_Of_A_Mission, The_row_shows_what_was_stored_as_the_next_scan_does) {
    Save_World world;
    world.details().score = "10";
    world.details().review = "It's good";
    world.details().finished = {true, true, true, true};
    ASSERT_TRUE(save_status(world.program()));
    const QStringList shown = world.cells("vault.zip");
    EXPECT_EQ(shown[col_score - 1], "10");
    EXPECT_EQ(shown[col_review - 1], "Its good");
    EXPECT_EQ(shown[col_finished - 1], "EA,N,H,EX");
    EXPECT_EQ(world.list().rows[1].score_picture, 10);
    world.scan();
    EXPECT_EQ(world.cells("vault.zip"), shown);
}

TEST(Save_Status_Of_A_Mission, Every_set_of_boxes_has_its_sum_whichever_of_the_two_sets_they_are_in) {
    Save_World world;
    const std::array<int, 4> weights{1, 3, 5, 11};
    for (int boxes = 0; boxes < 16; ++boxes) {
        int sum = 0;
        for (size_t level = 0; level < 4; ++level) {
            const bool set = boxes >> level & 1;
            world.details().finished[level] = set && level % 2 == 0;
            world.details().small_finished[level] = set && (level % 2 == 1 || boxes > 8);
            sum += set ? weights[level] : 0;
        }
        ASSERT_TRUE(save_status(world.program()));
        EXPECT_EQ(world.column("completed"), QStringList{QString::number(sum)}) << boxes;
        EXPECT_EQ(world.cell("vault.zip", col_finished), Finished_Text(sum, "T2")) << boxes;
    }
}

TEST(Save_Status_Of_A_Mission, A_review_loses_its_single_quotes_and_a_name_keeps_them_as_double_quotes) {
    Save_World world("T2", "Title: Ann's Vault\r\nAuthor: O'Neil\r\nGame: Thief 2\r\n");
    EXPECT_EQ(world.details().name, "Ann's Vault");
    world.details().review = "don't 'miss' it, \"really\"; DROP TABLE Table_Scores";
    ASSERT_TRUE(save_status(world.program()));
    EXPECT_EQ(world.stored(), QStringList{"0|dont miss it, \"really\"; DROP TABLE "
                                          "Table_Scores|0|Ann\"s Vault|O\"Neil|0|T2"});
    world.scan();
    EXPECT_EQ(world.cell("vault.zip", col_name), "Ann's Vault");
    EXPECT_EQ(world.cell("vault.zip", col_author), "O'Neil");
}

TEST(Save_Status_Of_A_Mission, An_empty_author_leaves_the_stored_one) {
    Save_World world;
    world.details().author.clear();
    ASSERT_TRUE(save_status(world.program()));
    EXPECT_FALSE(world.program().SQL.contains("Author"));
    EXPECT_EQ(world.stored(), QStringList{"0||0|The Vault|Ann Author|0|T2"});
}

TEST(Save_Status_Of_A_Mission, Installed_follows_the_install_button) {
    Save_World world;
    world.details().shows_installed = true;
    ASSERT_TRUE(save_status(world.program()));
    EXPECT_EQ(world.column("installed"), QStringList{"1"});
    world.details().shows_installed = false;
    ASSERT_TRUE(save_status(world.program()));
    EXPECT_EQ(world.column("installed"), QStringList{"0"});
}

TEST(Save_Status_Of_A_Mission, What_is_no_number_is_no_score) {
    Save_World world;
    for (const char *text : {"", "x", "nan", "1, review = 'x'", "inf"}) {
        world.details().score = text;
        ASSERT_TRUE(save_status(world.program()));
        EXPECT_EQ(world.column("score"), QStringList{"0"}) << text;
    }
}

TEST(Save_Status_Of_A_Mission, A_record_of_the_partner_game_is_the_one_that_is_written) {
    Scan_World world("T1");
    world.set_up_game("TG", "games/TG", "zips");
    world.zips("gold.zip", {{"miss15.mis", "m", {}}, {"readme.txt", "Title: G\r\nGame: Thief Gold\r\n", {}}});
    world.record("gold.zip", "G", "T1", "review = 'kept'");
    world.scan();
    Row_Click(world.program(), world.list().find_zip("gold.zip"), col_name);
    ASSERT_EQ(world.program().CURRENT_GAME, "TG");
    EXPECT_EQ(world.program().fm.record_game, "T1");
    ASSERT_TRUE(Score_Click(world.program(), 8));
    EXPECT_TRUE(world.program().SQL.endsWith("game = 'TG' WHERE zip_name = \"gold.zip\"  and game = 'T1'"))
        << world.program().SQL.toStdString();
    ASSERT_TRUE(Score_Click(world.program(), 9));
    EXPECT_TRUE(world.program().SQL.endsWith("and game = 'TG'"));
    const Recordset rows = db_Query(world.program(), "select * from Table_Scores");
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows.text(0, "score"), "9");
    EXPECT_EQ(rows.text(0, "review"), "kept");
}

TEST(Save_Status_Of_A_Mission, The_game_stays_when_another_record_has_it) {
    Save_World world;
    world.record("vault.zip", "Other", "TG");
    world.program().CURRENT_GAME = "TG";
    ASSERT_TRUE(Score_Click(world.program(), 8));
    EXPECT_EQ(world.column("game"), (QStringList{"T2", "TG"}));
    EXPECT_EQ(world.column("score"), (QStringList{"8", ""}));
}

TEST(Save_Status_Of_A_Mission, A_doom_mission_of_the_dark_mod_list_is_kept_under_the_list) {
    Scan_World world("DMOD");
    world.zips("doom.zip",
               {{"base/hell.pk4", "m", {}}, {"readme.txt", "Title: Hell\r\nGame: Doom 3\r\n", {}}});
    world.scan();
    Row_Click(world.program(), world.list().find_zip("doom.zip"), col_name);
    ASSERT_TRUE(world.program().screen.details.record_shown);
    world.program().CURRENT_GAME = "DOOM";
    ASSERT_TRUE(Score_Click(world.program(), 4));
    const Recordset rows = db_Query(world.program(), "select * from Table_Scores");
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows.text(0, "game"), "DMOD");
    EXPECT_EQ(rows.text(0, "score"), "4");
}

TEST(Save_Status_Of_A_Mission, The_status_says_to_select_it_again_unless_a_zip_is_being_read) {
    Save_World world;
    ASSERT_TRUE(save_status(world.program()));
    EXPECT_EQ(world.program().screen.status_panels[1], rescored_text);
    Set_Status_Panel(world.program(), 1, "inflating next file");
    ASSERT_TRUE(save_status(world.program()));
    EXPECT_EQ(world.program().screen.status_panels[1], "inflating next file");
}

TEST(Save_Status_Of_A_Mission, Nothing_is_saved_while_a_row_is_examined) {
    Save_World world;
    const QStringList before = world.stored();
    world.program().screen.busy = true;
    world.details().score = "9";
    EXPECT_FALSE(save_status(world.program()));
    EXPECT_FALSE(Score_Click(world.program(), 8));
    EXPECT_FALSE(Finished_Click(world.program(), 0, true));
    Review_Change(world.program(), "text");
    Keyword_Click(world.program(), "Theme-Fun", true);
    EXPECT_FALSE(Reset_Fm(world.program()));
    After_Save_tidyup(world.program());
    EXPECT_EQ(world.stored(), before);
    EXPECT_EQ(world.details().score, "9");
    EXPECT_FALSE(world.program().SAVE_SCORE_NOW);
    EXPECT_NE(world.program().screen.status_panels[1], rescored_text);
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST(Save_Status_Of_A_Mission, Without_a_selected_mission_and_for_original_missions_nothing_is_saved) {
    Save_World world;
    const QStringList before = world.stored();
    Row_Click(world.program(), 0, col_name);
    EXPECT_FALSE(Score_Click(world.program(), 8));
    EXPECT_EQ(world.cell("Original", col_score), "");
    world.select();
    Reset_Details(world.program());
    EXPECT_FALSE(Score_Click(world.program(), 8));
    EXPECT_EQ(world.stored(), before);
}

TEST(Save_Status_Of_A_Mission, A_zip_that_can_not_be_read_keeps_its_record_as_it_was) {
    Save_World world;
    world.details().score = "9";
    world.details().review = "precious";
    ASSERT_TRUE(save_status(world.program()));
    const QStringList before = world.stored();
    world.write("zips/vault.zip", "no zip any more");
    world.select();
    EXPECT_FALSE(world.details().record_shown);
    EXPECT_FALSE(Score_Click(world.program(), 1));
    EXPECT_EQ(world.stored(), before);
}

TEST(Save_Status_Of_A_Mission, A_row_that_is_no_mission_leaves_nothing_selected) {
    Save_World world("SS2", "Title: The Vault\r\nGame: System Shock 2\r\n");
    world.zips("earth.ss2mod", {{"earth.mis", "m", {}}, {"readme.txt", "Title: Earth\r\nGame: SS2\r\n", {}}});
    world.scan();
    world.select();
    ASSERT_EQ(world.program().FM_PANEL, "vault.zip");
    Row_Click(world.program(), world.list().find_zip("earth.ss2mod"), col_name);
    EXPECT_EQ(world.program().FM_PANEL, "");
    EXPECT_TRUE(world.program().screen.no_mission_selected);
    EXPECT_FALSE(world.details().install_enabled);
    EXPECT_FALSE(Score_Click(world.program(), 3));
}

TEST(Save_Status_Of_A_Mission, Two_zips_of_one_name_show_the_score_in_the_row_that_is_selected) {
    Save_World world;
    world.zip("more/vault.zip", {{"miss20.mis", "m", {}}, {"readme.txt", vault_readme, {}}});
    world.program().ini.T2_LOCATION += world.windows("more") + "*#*";
    world.scan();
    ASSERT_EQ(world.list().rows.size(), 3U);
    Row_Click(world.program(), 2, col_name);
    ASSERT_TRUE(Score_Click(world.program(), 6));
    EXPECT_EQ(world.list().rows[1].cells[col_score], "");
    EXPECT_EQ(world.list().rows[2].cells[col_score], "6");
}

TEST(Save_Status_Of_A_Mission, A_database_that_refuses_shows_the_error_box_and_gives_false) {
    Save_World world;
    db_Execute(world.program(), "DROP TABLE Table_Scores");
    EXPECT_FALSE(save_status(world.program()));
    ASSERT_FALSE(world.ui.boxes.empty());
    EXPECT_TRUE(world.ui.boxes[0].text.contains("in procedure save_status of Form frmMain"))
        << world.ui.boxes[0].text.toStdString();
}

TEST(Score_Click_On_A_Mission, Takes_0_to_10_and_nothing_else) {
    Save_World world;
    for (int score = 0; score <= 10; ++score) {
        ASSERT_TRUE(Score_Click(world.program(), score));
        EXPECT_EQ(world.column("score"), QStringList{QString::number(score)});
        EXPECT_EQ(world.list().rows[1].score_picture, score);
    }
    EXPECT_FALSE(Score_Click(world.program(), 11));
    EXPECT_FALSE(Score_Click(world.program(), -1));
    EXPECT_EQ(world.column("score"), QStringList{"10"});
}

TEST(Finished_Click_On_A_Mission, Both_sets_follow_so_that_a_box_can_be_cleared_again) {
    Save_World world;
    ASSERT_TRUE(Finished_Click(world.program(), 3, true));
    EXPECT_EQ(world.column("completed"), QStringList{"11"});
    EXPECT_TRUE(world.details().small_finished[3]);
    ASSERT_TRUE(Finished_Click(world.program(), 3, false));
    EXPECT_EQ(world.column("completed"), QStringList{"0"});
    EXPECT_FALSE(Finished_Click(world.program(), 4, true));
    EXPECT_FALSE(Finished_Click(world.program(), -1, true));
}

TEST(Finished_Click_On_A_Mission, Shock_calls_the_fourth_level_impossible) {
    Save_World world("SS2", "Title: The Vault\r\nGame: System Shock 2\r\n");
    ASSERT_TRUE(Finished_Click(world.program(), 3, true));
    EXPECT_EQ(world.cell("vault.zip", col_finished), "I");
}

TEST(Review_Of_A_Mission, Is_saved_by_the_next_housekeeping_tick) {
    Save_World world;
    Set_Later_Step(world.program(), Later_Step::save_details_panel, [&] { save_status(world.program()); });
    Review_Change(world.program(), "Well made");
    EXPECT_TRUE(world.program().SAVE_SCORE_NOW);
    EXPECT_EQ(world.column("review"), QStringList{""});
    Housekeeping_Tick(world.program());
    EXPECT_FALSE(world.program().SAVE_SCORE_NOW);
    EXPECT_EQ(world.column("review"), QStringList{"Well made"});
    Review_Change(world.program(), "Well made");
    EXPECT_FALSE(world.program().SAVE_SCORE_NOW);
}

TEST(Review_Of_A_Mission, Goes_into_its_own_record_when_another_row_is_selected_before_the_tick) {
    Save_World world;
    world.mission("zoo.zip", "Title: Zoo\r\nAuthor: Zed\r\nGame: Thief 2\r\n");
    world.scan();
    world.select();
    Review_Change(world.program(), "about the vault");
    Row_Click(world.program(), world.list().find_zip("zoo.zip"), col_name);
    EXPECT_FALSE(world.program().SAVE_SCORE_NOW);
    EXPECT_EQ(world.column("review"), (QStringList{"about the vault", ""}));
}

TEST(Upload_Controls, Are_on_for_a_scored_mission_with_a_name_until_the_upload_was_done) {
    Save_World world;
    const auto on = [&] {
        return std::pair{world.details().score_upload_on, world.details().keywords_upload_on};
    };
    EXPECT_EQ(on(), (std::pair{false, false}));
    ASSERT_TRUE(Score_Click(world.program(), 5));
    EXPECT_EQ(on(), (std::pair{true, false}));
    Keyword_Click(world.program(), "Theme-Fun", true);
    EXPECT_EQ(on(), (std::pair{true, true}));
    world.details().name.clear();
    Set_Upload_Controls(world.program());
    EXPECT_EQ(on(), (std::pair{false, false}));
    world.select();
    EXPECT_EQ(on(), (std::pair{true, true}));
    ASSERT_TRUE(Score_Click(world.program(), 0));
    EXPECT_EQ(on(), (std::pair{false, false}));
    db_Execute(world.program(), "update Table_Scores set score = 5, last_uploaded_date = now()");
    world.select();
    EXPECT_EQ(on(), (std::pair{false, true}));
    db_Execute(world.program(), "update Table_Scores set categories_uploaded = now()");
    world.select();
    EXPECT_EQ(on(), (std::pair{false, false}));
    EXPECT_TRUE(world.details().uploads_shown);
    world.program().SELECTED_GAME_TAB = "CUSTOM";
    Set_Upload_Controls(world.program());
    EXPECT_FALSE(world.details().uploads_shown);
}

TEST(Reset_Of_A_Mission, Asks_first_and_no_leaves_everything) {
    Save_World world;
    const QStringList before = world.stored();
    EXPECT_FALSE(Reset_Fm(world.program()));
    ASSERT_EQ(world.ui.boxes.size(), 1U);
    const Box &box = world.ui.boxes[0];
    EXPECT_EQ(box.title, "WARNING");
    EXPECT_EQ(box.text, "Are you sure you wish to delete this FM from the Vantrosk Database?");
    EXPECT_EQ(box.buttons, Buttons::yes_no);
    EXPECT_EQ(box.default_answer, Answer::no);
    EXPECT_EQ(world.stored(), before);
    EXPECT_EQ(world.cell("vault.zip", col_name), "The Vault");
    EXPECT_TRUE(world.details().reset_enabled);
}

TEST(Reset_Of_A_Mission, Removes_the_record_alone_and_a_scan_makes_a_new_one) {
    Save_World world;
    world.details().score = "9";
    world.details().finished = {true, true, true, true};
    ASSERT_TRUE(save_status(world.program()));
    world.record("vault.zip", "Other", "TG");
    world.ui.answers = {Answer::yes};
    ASSERT_TRUE(Reset_Fm(world.program()));
    EXPECT_EQ(world.program().SQL, "DELETE FROM Table_Scores WHERE zip_name = 'vault.zip' and game = 'T2'");
    EXPECT_EQ(world.ui.boxes.back().text,
              "FM has been reset in Vantrosk's database, all information will be picked up again at next "
              "folder scan.");
    EXPECT_EQ(world.column("game"), QStringList{"TG"});
    EXPECT_EQ(world.list().rows[1].cells, Fm_Row().cells);
    EXPECT_EQ(world.list().rows[1].game_icon, "");
    EXPECT_EQ(world.program().FM_PANEL, "");
    EXPECT_TRUE(world.program().screen.no_mission_selected);
    EXPECT_EQ(world.details().name, "");
    EXPECT_FALSE(world.details().reset_enabled);
    EXPECT_TRUE(world.exists("zips/vault.zip"));
    world.scan();
    EXPECT_EQ(world.cell("vault.zip", col_name), "The Vault");
    EXPECT_EQ(world.cell("vault.zip", col_score), "");
    EXPECT_EQ(world.column("game"), (QStringList{"TG", "T2"}));
}

TEST(Reset_Of_A_Mission, A_name_with_a_quote_is_found) {
    Scan_World world;
    world.mission("ann's.zip");
    world.scan();
    Row_Click(world.program(), 1, col_name);
    ASSERT_TRUE(Score_Click(world.program(), 4));
    EXPECT_EQ(world.cell("ann's.zip", col_score), "4");
    world.ui.answers = {Answer::yes};
    ASSERT_TRUE(Reset_Fm(world.program()));
    EXPECT_TRUE(world.records().isEmpty());
}

TEST(Reset_Of_A_Mission, A_row_that_was_emptied_is_no_mission_and_a_second_reset_does_nothing) {
    Save_World world;
    world.ui.answers = {Answer::yes, Answer::yes};
    ASSERT_TRUE(Reset_Fm(world.program()));
    EXPECT_FALSE(Reset_Fm(world.program()));
    Row_Click(world.program(), 1, col_name);
    EXPECT_EQ(world.program().FM_PANEL, "");
    EXPECT_FALSE(world.program().screen.busy);
    EXPECT_EQ(world.ui.boxes.size(), 2U);
}

} // namespace vantrosk
