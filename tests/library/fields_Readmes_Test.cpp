#include "library/fields/Readme_Fields.h"

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

QStringList As_list(const Readme_Fields &fields) {
    return {fields.name, fields.author, fields.game_text, fields.game};
}

using Lines = QStringList;

} // namespace

TEST(Readme_Fields, A_label_value_is_what_stands_behind_the_first_colon) {
    EXPECT_EQ(Label_value("Contact:\t\"ann@example.org\" ", "^[Cc]ontact(?: ){0,20}:"), "ann@example.org");
    EXPECT_EQ(Label_value("Contact : a:b", "^[Cc]ontact(?: ){0,20}:"), "a:b");
    EXPECT_EQ(Label_value("Contact me", "^[Cc]ontact"), "Contact me");
    EXPECT_EQ(Label_value("My contact: x", "^[Cc]ontact(?: ){0,20}:"), "");
    EXPECT_EQ(Label_value("Contact: x", "^(?- )Contact"), "") << "a refused pattern finds nothing";
    EXPECT_EQ(Label_value("", "^[Cc]ontact"), "");
}

TEST(Readme_Fields, A_label_is_present_when_nothing_stands_behind_its_colon) {
    EXPECT_TRUE(Label_present("Author :\t ", "^[Aa]uthor(?: ){0,30}:"));
    EXPECT_FALSE(Label_present("Author: Ann", "^[Aa]uthor(?: ){0,30}:"));
    EXPECT_FALSE(Label_present("The author:", "^[Aa]uthor(?: ){0,30}:"));
}

TEST(Tidy_Name, Blanks_tabs_and_one_leading_colon_go) {
    EXPECT_EQ(Tidy_name("  The\t Vault ", false), "The Vault");
    EXPECT_EQ(Tidy_name(" : The Vault", false), "The Vault");
    EXPECT_EQ(Tidy_name(":: The Vault", false), ": The Vault");
    EXPECT_EQ(Tidy_name("", true), "");
    EXPECT_EQ(Tidy_name(":", true), "");
}

TEST(Tidy_Name, The_swap_moves_a_leading_article_behind_the_name) {
    EXPECT_EQ(Tidy_name("The Killing Time", true), "Killing Time, The ");
    EXPECT_EQ(Tidy_name("THE Vault", true), "Vault, THE ");
    EXPECT_EQ(Tidy_name("a Night", true), "Night, a ");
    EXPECT_EQ(Tidy_name("Theft", true), "Theft");
    EXPECT_EQ(Tidy_name("Another Night", true), "Another Night");
    EXPECT_EQ(Tidy_name("The Killing Time", false), "The Killing Time");
}

TEST(Readme_Fields, A_text_readme_gives_its_first_name_author_and_game) {
    const Lines lines{"Title : The Vault", "Author : Ann", "Game : Thief Gold",
                      "Title: Another",    "Author: Bob",  "Game: Thief 2"};
    EXPECT_EQ(As_list(Fields_of_text(lines)), Lines({"The Vault", "Ann", "Thief Gold", "TG"}));
}

TEST(Readme_Fields, The_first_game_stays_even_when_it_is_unknown) {
    EXPECT_EQ(As_list(Fields_of_text({"Game: Quake", "Game: Thief 2"})), Lines({"", "", "Quake", ""}));
    EXPECT_EQ(As_list(Fields_of_text({"Game: Thief 2", "Game: Thief 1"})), Lines({"", "", "Thief 2", "T2"}));
}

TEST(Readme_Fields, Lines_of_five_characters_and_fewer_are_passed_over) {
    EXPECT_EQ(As_list(Fields_of_text({"By: A", "  By: A  ", "By: Ann"})), Lines({"", "Ann", "", ""}));
}

TEST(Readme_Fields, The_contact_stands_in_for_a_missing_author) {
    EXPECT_EQ(Fields_of_text({"CONTACT : ann@example.org"}).author, "ann@example.org");
    EXPECT_EQ(Fields_of_text({"Contact: ann@example.org", "Author: Ann"}).author, "Ann");
}

TEST(Readme_Fields, No_lines_give_no_fields) {
    EXPECT_EQ(As_list(Fields_of_text({})), Lines({"", "", "", ""}));
    EXPECT_EQ(As_list(Fields_of_vkml({})), Lines({"", "", "", ""}));
}

TEST(Readme_Fields, A_vkml_readme_is_read_by_its_tags) {
    const Lines lines{
        "[VKCENTER][VKTITLE]The Vault[/VKTITLE][VKNL]", "[VKAUTHOR]Author : Ann[/VKAUTHOR][VKNL]",
        "[VKFMSTRUCTURE]Game : Thief 2[/VKFMSTRUCTURE][VKNL]", "[VKCENTER][VKTITLE]Another[/VKTITLE][VKNL]"};
    EXPECT_EQ(As_list(Fields_of_vkml(lines)), Lines({"The Vault", "Ann", "Thief 2", "T2"}));
}

TEST(Readme_Fields, Vkml_tags_are_found_in_any_case_and_labels_are_needed) {
    EXPECT_EQ(Vkml_title_of_line("  [vkcenter][vktitle] The Vault [/vktitle][vknl]").trimmed(), "The Vault");
    EXPECT_EQ(Vkml_title_of_line("Title: The Vault"), "");
    EXPECT_EQ(Vkml_author_of_line("[VKAUTHOR]Ann[/VKAUTHOR][VKNL]"), "");
    EXPECT_EQ(Vkml_author_of_line("Author: Ann"), "");
    EXPECT_EQ(Vkml_game_of_line("[VKFMSTRUCTURE]Mission Title : The Vault[VKNL]"), "");
}

} // namespace vantrosk
