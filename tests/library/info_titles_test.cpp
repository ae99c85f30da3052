#include "library/Titles_Str.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct Marker_Case {
    const char *line;
    const char *game;
};

class Marker_Row : public testing::TestWithParam<Marker_Case> {};

class Label_Row : public testing::TestWithParam<int> {};

} // namespace

TEST_P(Marker_Row, Gives_the_game_in_any_case) {
    const QString line = GetParam().line;
    EXPECT_EQ(Game_of_titles_str({line}, true).game, GetParam().game);
    EXPECT_EQ(Game_of_titles_str({"x", line.toUpper()}, false).game, GetParam().game);
}

INSTANTIATE_TEST_SUITE_P(Table, Marker_Row,
                         testing::Values(Marker_Case{"title_1: \"Running Interference\"", "T2"},
                                         Marker_Case{"title_4: \"Ambush!\"", "T2"},
                                         Marker_Case{"title_8: \"Song of the Caverns\"", "TG"},
                                         Marker_Case{"title_9: \"The Mage Towers\"", "TG"},
                                         Marker_Case{"title_0: \"A Keeper's Training\"", "T1"},
                                         Marker_Case{"title_1: \"Lord Bafford's Manor\"", "T1"},
                                         Marker_Case{"title_20: \"The Vault\"", ""}));

TEST(Titles_Str, A_blank_line_after_a_quoted_title_gives_the_name) {
    const Titles_Find find =
        Game_of_titles_str({"title_20: \"The \"\"Vault\"", "", "title_1: \"Ambush!\""}, true);
    EXPECT_EQ(find.game, "T2");
    EXPECT_EQ(find.name, "The Vault");
}

TEST(Titles_Str, A_blank_line_after_text_without_quotes_gives_no_name) {
    EXPECT_EQ(Game_of_titles_str({"title_20", "", "Ambush!"}, true).name, "");
}

TEST(Titles_Str, The_name_is_not_looked_for_when_it_is_known) {
    EXPECT_EQ(Game_of_titles_str({"title_20: \"The Vault\"", "", "Ambush!"}, false).name, "");
}

TEST(Titles_Str, Reading_ends_when_game_and_name_are_known) {
    EXPECT_EQ(Game_of_titles_str({"\"Ambush!\"", "", "\"The Mage Towers\""}, true).game, "T2");
    EXPECT_EQ(Game_of_titles_str({"\"Ambush!\"", "\"The Mage Towers\"", ""}, true).game, "TG");
    EXPECT_EQ(Game_of_titles_str({"\"Ambush!\"", "\"The Mage Towers\""}, false).game, "T2");
}

TEST(Titles_Str, An_empty_file_tells_nothing) {
    EXPECT_EQ(Game_of_titles_str({}, true).game, "");
    EXPECT_EQ(Name_of_titles_str({}), "");
}

TEST_P(Label_Row, Gives_the_name_behind_it) {
    const QString label = QString("title_%1:").arg(GetParam());
    EXPECT_EQ(Name_of_titles_str({label + " \"The Vault\" "}), "The Vault");
    EXPECT_EQ(Name_of_titles_str({" " + label + " \"The Vault\""}), "");
}

INSTANTIATE_TEST_SUITE_P(Table, Label_Row, testing::Values(17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 34));

TEST(Titles_Str, Titles_of_the_games_own_missions_are_no_name) {
    for (const char *line :
         {"title_1: \"X\"", "title_16: \"X\"", "title_28: \"X\"", "title_33: \"X\"", "title_2: X"})
        EXPECT_EQ(Name_of_titles_str({line}), "") << line;
}

TEST(Titles_Str, The_first_label_with_a_name_is_taken) {
    EXPECT_EQ(Name_of_titles_str({"title_20: \"\"", "title_22: \"Two\"", "title_21: \"One\""}), "Two");
}
