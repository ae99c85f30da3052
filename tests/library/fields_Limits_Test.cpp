#include "library/fields/Readme_Fields.h"

#include <gtest/gtest.h>

#include <vector>

namespace vantrosk {

namespace {

QString Blanks(int count) {
    return QString(count, ' ');
}

/// A label that takes so many blanks before its sign, and what one blank more gives.
struct Limit_Case {
    const char *label;
    int most;
    const char *sign;
    const char *beyond; ///< "%" stands for the blanks and the rest of the line
};

void Expect_limits(QString (*extractor)(const QString &), const QString &value,
                   const std::vector<Limit_Case> &cases) {
    for (const Limit_Case &one : cases) {
        const QString label = QString::fromUtf8(one.label);
        const QString rest = QLatin1String(one.sign) + "X";
        EXPECT_EQ(extractor(label + Blanks(one.most) + rest), value) << one.label;
        const QString beyond = QString(one.beyond).replace("%", Blanks(one.most + 1) + rest);
        EXPECT_EQ(extractor(label + Blanks(one.most + 1) + rest), beyond) << one.label;
    }
}

} // namespace

TEST(Readme_Fields, Every_title_label_takes_fifty_blanks_and_no_more) {
    Expect_limits(Title_of_line, "X",
                  {{"Mission Title", 50, ":", ""},
                   {"Title", 50, ":", ""},
                   {"TITLE", 50, ":", ""},
                   {"Level Name", 50, ":", ""},
                   {"Mission", 50, ":", ""},
                   {"Campaign Title", 50, ":", ""},
                   {"Map Name", 50, ":", ""},
                   {"Mission Name", 50, ":", ""},
                   {"Mapname", 50, "-", ""},
                   {"The Mission Title", 50, ":", ""},
                   {"Missions Titel", 50, ":", ""},
                   {"Titel der Mission ", 50, ":", ""},
                   {"Titel", 50, ":", ""},
                   {"Titre de la Mission", 50, ":", ""},
                   {"Titre", 50, ":", ""},
                   {"Level Names", 50, ":", ""},
                   {"Mission Titles", 50, ":", ""},
                   {"Name", 50, ":", ""},
                   {"N\u00E1zev Levelu", 50, ":", ""},
                   {"Chapter Title", 50, ":", ""}});
}

TEST(Readme_Fields, Every_author_label_takes_fifty_blanks_and_authors_ten_more) {
    Expect_limits(Author_of_line, "X",
                  {{"Author", 50, ":", ""},
                   {"AUTHORS", 50, ":", ""},
                   {"Autor", 50, ":", ""},
                   {"By", 50, ":", ""},
                   {"Created By", 50, ":", ""},
                   {"Mission Creator", 50, ":", ""},
                   {"Author", 50, "-", ""},
                   {"Authors", 60, ":", "s%"}});
}

TEST(Readme_Fields, Every_game_label_takes_fifty_blanks) {
    Expect_limits(Game_of_line, "X", {{"Game", 50, ":", "Game%"}, {"GAME", 50, ":", ""}});
}

TEST(Readme_Fields, Labels_that_end_a_pattern_take_any_number_of_blanks) {
    for (const int count : {0, 50, 51, 80}) {
        EXPECT_EQ(Game_of_line("Engine" + Blanks(count) + ":X"), Blanks(count) + ":X") << count;
        EXPECT_EQ(Game_of_line("Version of Thief" + Blanks(count) + ":X"), "X") << count;
        EXPECT_EQ(Game_of_line("Spiel" + Blanks(count) + ":X"), "X") << count;
        EXPECT_EQ(Game_of_line("Jeu" + Blanks(count) + ":X"), "X") << count;
        EXPECT_EQ(Game_of_line("Hra" + Blanks(count) + ":X"), "X") << count;
        EXPECT_EQ(Game_of_line("A Fan Mission for " + Blanks(count) + ":X"), "X") << count;
    }
    for (const int count : {1, 50, 51})
        EXPECT_EQ(Game_of_line("Game" + QString(count, '=')), QString(count - 1, '=')) << count;
}

TEST(Readme_Fields, Tabs_are_gone_before_a_pattern_counts_them) {
    for (const int count : {1, 10, 11, 200}) {
        const QString tabs(count, '\t');
        EXPECT_EQ(Title_of_line("Title" + tabs + "X"), "X") << count;
        EXPECT_EQ(Title_of_line("Title" + tabs + ":X"), "X") << count;
        EXPECT_EQ(Author_of_line("Author" + tabs + "Ann"), "Ann") << count;
        EXPECT_EQ(Game_of_line("Game" + tabs + ":X"), "X") << count;
    }
}

TEST(Readme_Fields, A_word_behind_author_may_be_of_any_length) {
    for (const int count : {1, 50, 51})
        EXPECT_EQ(Author_of_line("Author" + QString(count, 'y')), QString(count, 'y')) << count;
}

TEST(Readme_Fields, A_contact_takes_twenty_blanks) {
    EXPECT_EQ(Fields_of_text({"Contact" + Blanks(20) + ": ann"}).author, "ann");
    EXPECT_EQ(Fields_of_text({"Contact" + Blanks(21) + ": ann"}).author, "");
}

TEST(Readme_Fields, Labels_of_a_vkml_readme_take_thirty_blanks) {
    const auto author = [](int blanks) {
        return Fields_of_vkml({"[VKAUTHOR]Author" + Blanks(blanks) + ": Ann[/VKAUTHOR][VKNL]"}).author;
    };
    const auto game = [](int blanks) {
        return Fields_of_vkml({"[VKFMSTRUCTURE]Game" + Blanks(blanks) + ": Thief 2[/VKFMSTRUCTURE][VKNL]"})
            .game_text;
    };
    EXPECT_EQ(author(30) + game(30), "AnnThief 2");
    EXPECT_EQ(author(31) + game(31), "");
}

TEST(Readme_Fields, A_line_counts_from_six_characters_on) {
    EXPECT_EQ(Fields_of_text({"By: An"}).author, "An");
    EXPECT_EQ(Fields_of_text({" By: A "}).author, "");
    EXPECT_EQ(Fields_of_vkml({"[VKTITLE]"}).name, "[VKTITLE]");
}

TEST(Readme_Fields, Control_characters_are_no_part_of_a_value) {
    EXPECT_EQ(Title_of_line(QString("Title: Va") + QChar(0) + "u\x1B[31mlt\x7F"), "Vau[31mlt");
    EXPECT_EQ(Author_of_line(QString("Author: A\x07") + "nn"), " Ann");
    EXPECT_EQ(Vkml_title_of_line(QString("[VKCENTER][VKTITLE]Va") + QChar(0) + "ult[/VKTITLE][VKNL]"),
              "Vault");
    EXPECT_EQ(Label_value(QString("Contact: a\x1B") + "b", "^Contact:"), "ab");
}

} // namespace vantrosk
