#include "library/Info_World.h"

using namespace vantrosk;

namespace {

const Zip_Entry readme_without_title = Readme("Game : Thief 2\n");

struct Info_Record : Info_World {};

struct Completed_Case {
    int sum;
    std::array<bool, 4> boxes;
};

struct Completed_Row : Info_World, testing::WithParamInterface<Completed_Case> {};

struct Group_Case {
    const char *people;
    int picture;
    const char *label;
};

struct Group_Row : Info_World, testing::WithParamInterface<Group_Case> {};

} // namespace

TEST_F(Info_Record, A_zip_without_a_record_gets_one) {
    world.zip("zips/T2/vault.zip",
              {a_mission, Readme("Title : Ann's \"Vault\"\nAuthor : O'Lee\nGame : Thief 2\n")});
    (void)program.files.set_modified(world.windows("zips/T2/vault.zip"),
                                     QDateTime(QDate(2009, 3, 11), QTime(9, 0)));
    examine_again();
    EXPECT_EQ(records("zip_name"), QStringList("vault.zip"));
    EXPECT_EQ(records("FM_name"), QStringList("Anns Vault"));
    EXPECT_EQ(records("author"), QStringList("OLee"));
    EXPECT_EQ(records("game"), QStringList("T2"));
    EXPECT_EQ(program.fm.zip_date, "2009/03/11");
    const Recordset all = db_Query(program, "SELECT * FROM Table_Scores");
    EXPECT_EQ(all.date_time(0, "zip_date").date(), QDate(2009, 3, 11));
    EXPECT_EQ(records("group_submissions"), QStringList("<null>"));
}

TEST_F(Info_Record, A_second_selection_adds_no_second_record) {
    examine(whole_mission);
    examine_again();
    EXPECT_EQ(records("game"), QStringList("T2"));
}

TEST_F(Info_Record, A_name_with_both_quotes_ends_no_statement) {
    const QString zip = "it's; DROP TABLE Table_Scores--.zip";
    examine({a_mission, Readme("Title : x'); DELETE FROM Table_Scores; --\nGame : Thief 2\n")}, "T2", zip);
    EXPECT_EQ(records("zip_name"), QStringList(zip));
    examine_again("T2", zip);
    EXPECT_EQ(records("zip_name"), QStringList(zip));
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST_F(Info_Record, Without_missions_no_record_is_made) {
    examine({whole_mission[1]});
    EXPECT_EQ(records("game"), QStringList());
}

TEST_F(Info_Record, A_missing_zip_date_is_added) {
    record("T2");
    world.zip("zips/T2/vault.zip", whole_mission);
    (void)program.files.set_modified(world.windows("zips/T2/vault.zip"),
                                     QDateTime(QDate(2009, 3, 11), QTime(9, 0)));
    examine_again();
    EXPECT_EQ(records("zip_date"), QStringList("2009/03/11"));
}

TEST_F(Info_Record, A_zip_date_that_is_there_stays) {
    examine_recorded(",zip_date", ",'2001/01/02'");
    EXPECT_EQ(records("zip_date"), QStringList("2001/01/02"));
}

TEST_F(Info_Record, Lists_that_share_missions_find_each_others_records) {
    set_up("T1");
    set_up("DMOD");
    record("TG", ",score", ",7", "a.zip");
    examine({a_mission, Readme("Game : Thief 1\n")}, "T1", "a.zip");
    EXPECT_EQ(details().score, "7");
    record("DOOM", ",score", ",6", "b.zip");
    examine({{"b.pk4", "m", {}}}, "DMOD", "b.zip");
    EXPECT_EQ(details().score, "6");
    record("T2", ",score", ",5", "c.zip");
    examine({a_mission, Readme("Game : Thief 1\n")}, "T1", "c.zip");
    EXPECT_EQ(details().score, "");
}

TEST_F(Info_Record, The_users_own_fields_are_shown) {
    examine_recorded(
        ",score,review,completed,last_played,categories_list,last_uploaded_date,categories_uploaded",
        ",9,'Fine \"work\"',4,#2026/11/19 22:14:05#,'City,Crypt',#2026/01/02#,null");
    EXPECT_EQ(details().score, "9");
    EXPECT_EQ(details().review, "Fine \"work\"");
    EXPECT_EQ(details().last_played_text, "19/11/26 22:14");
    EXPECT_EQ(details().keywords, "City,Crypt");
    EXPECT_FALSE(details().score_upload);
    EXPECT_TRUE(details().keywords_upload);
}

TEST_F(Info_Record, A_bare_record_leaves_the_fields_empty) {
    examine_recorded();
    const QStringList shown{details().score, details().review, details().last_played_text, details().keywords,
                            details().group_score};
    EXPECT_EQ(shown, (QStringList{"", "", "", "", ""}));
    EXPECT_EQ(details().finished, (std::array<bool, 4>()));
    EXPECT_TRUE(details().score_upload);
    EXPECT_TRUE(details().keywords_upload);
    EXPECT_EQ(details().group_tip, "The Community has not scored this  Fan Missions yet");
    EXPECT_EQ(details().group_label, "Average score from 0 people");
    EXPECT_FALSE(details().group_is_old);
}

TEST_F(Info_Record, The_community_score_is_told) {
    examine_recorded(",average_score,group_submissions", ",8,31");
    EXPECT_EQ(details().group_score, "8");
    EXPECT_EQ(details().group_tip, "The Community gave this Fan Missions a score of 8");
    EXPECT_EQ(details().group_label, "Average score from 31 people");
    EXPECT_EQ(details().group_picture, 1);
}

TEST_P(Group_Row, Has_its_picture_and_label) {
    examine_recorded(",group_submissions", QString(",") + GetParam().people);
    EXPECT_EQ(details().group_picture, GetParam().picture);
    EXPECT_EQ(details().group_label, GetParam().label);
}

INSTANTIATE_TEST_SUITE_P(Table, Group_Row,
                         testing::Values(Group_Case{"30", 1, "Average score from 30 people"},
                                         Group_Case{"29", 2, "Average score from 29 people"},
                                         Group_Case{"10", 2, "Average score from 10 people"},
                                         Group_Case{"9", 3, "Average score from 9 people"},
                                         Group_Case{"2", 3, "Average score from 2 people"},
                                         Group_Case{"1", 4, "Average score from 1 people"},
                                         Group_Case{"0", 4, "Average score from 0 people"},
                                         Group_Case{"null", 4, "Average score from 0 people"}));

TEST_F(Info_Record, Scores_are_old_after_more_than_ninety_days) {
    record("T2", ",last_checked_date", ",#2026/08/21#");
    world.clock->time = QDateTime(QDate(2026, 11, 19), QTime(23, 0));
    examine(whole_mission);
    EXPECT_FALSE(details().group_is_old);
    world.clock->time = QDateTime(QDate(2026, 11, 20), QTime(0, 0));
    examine_again();
    EXPECT_TRUE(details().group_is_old);
}

TEST_P(Completed_Row, Sets_its_boxes) {
    record("T2", ",completed", "," + QString::number(GetParam().sum));
    examine(whole_mission);
    EXPECT_EQ(details().finished, GetParam().boxes);
}

INSTANTIATE_TEST_SUITE_P(Sums, Completed_Row,
                         testing::Values(Completed_Case{0, {0, 0, 0, 0}}, Completed_Case{1, {1, 0, 0, 0}},
                                         Completed_Case{2, {0, 0, 0, 0}}, Completed_Case{3, {0, 1, 0, 0}},
                                         Completed_Case{4, {1, 1, 0, 0}}, Completed_Case{5, {0, 0, 1, 0}},
                                         Completed_Case{6, {1, 0, 1, 0}}, Completed_Case{8, {0, 1, 1, 0}},
                                         Completed_Case{9, {1, 1, 1, 0}}, Completed_Case{11, {0, 0, 0, 1}},
                                         Completed_Case{12, {1, 0, 0, 1}}, Completed_Case{14, {0, 1, 0, 1}},
                                         Completed_Case{15, {1, 1, 0, 1}}, Completed_Case{16, {0, 0, 1, 1}},
                                         Completed_Case{17, {1, 0, 1, 1}}, Completed_Case{19, {0, 1, 1, 1}},
                                         Completed_Case{20, {1, 1, 1, 1}}));

TEST_F(Info_Record, The_name_of_the_record_stands_in_for_a_readme_without_one) {
    examine_recorded(",FM_name", ",'Ann\"s Vault'", {a_mission, readme_without_title});
    EXPECT_EQ(details().name, "Ann's Vault");
}

TEST_F(Info_Record, The_name_of_the_readme_stays) {
    examine_recorded(",FM_name", ",'Another'");
    EXPECT_EQ(details().name, "The Vault");
    EXPECT_EQ(records("FM_name"), QStringList("Another"));
}

TEST_F(Info_Record, A_name_in_titles_str_mends_the_record) {
    examine_recorded(
        ",FM_name", ",'vault.zip'",
        {a_mission, readme_without_title, {"strings/Titles.STR", "title_20: \"Ann's Vault\"\r\n", {}}});
    EXPECT_EQ(details().name, "Ann's Vault");
    EXPECT_EQ(records("FM_name"), QStringList("Anns Vault"));
}

TEST_F(Info_Record, Mending_touches_the_record_that_the_list_found) {
    set_up("T1");
    set_up("TG");
    record("TG", ",FM_name", ",'vault.zip'");
    examine({a_mission, Readme("Game : Thief 1\n"), Titles("title_20: \"Vault\"\r\n")}, "T1");
    EXPECT_EQ(program.CURRENT_GAME, "T1");
    EXPECT_EQ(records("game"), QStringList("TG"));
    EXPECT_EQ(records("FM_name"), QStringList("Vault"));
}

TEST_F(Info_Record, The_fourth_level_is_named_after_the_game) {
    examine(whole_mission);
    const auto level = [&] {
        return QStringList{details().fourth_level_label, details().fourth_level_tip,
                           details().fourth_level_text};
    };
    EXPECT_EQ(level(), (QStringList{"EX:", "EXPERT:", "Expert"}));
    set_up("SS2");
    examine({a_mission}, "SS2");
    EXPECT_EQ(level(), (QStringList{"I:", "IMPOSSIBLE:", "Impossible"}));
}
