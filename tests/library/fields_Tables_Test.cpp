#include "library/fields/Readme_Fields.h"

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

struct Line_Case {
    const char *line;
    const char *value;
};

/// Every case of a table through one extractor.
template<std::size_t Count>
void Expect_values(QString (*extractor)(const QString &), const Line_Case (&cases)[Count]) {
    for (const Line_Case &one : cases)
        EXPECT_EQ(extractor(QString::fromUtf8(one.line)).toStdString(), one.value) << one.line;
}

constexpr Line_Case title_lines[] = {
    {"Mission Title: The Vault", "The Vault"},
    {"mission title   : The Vault", "The Vault"},
    {"Title   The Vault", "The Vault"},
    {"Title   : The Vault", "The Vault"},
    {"Title : The Vault", "The Vault"},
    {"TITLE:The Vault", "The Vault"},
    {"tItLe: A: B", "A: B"},
    {"Title -The Vault", "Title -The Vault"},
    {"Title -The Vault: Part 2", "Part 2"},
    {"Title  The Vault", "Title  The Vault"},
    {"Mission Title - The Vault", "The Vault"},
    {"Level Name: The Vault", "The Vault"},
    {"Mission : The Vault", "The Vault"},
    {"Campaign Title: The Vault", "The Vault"},
    {"MAP name: The Vault", "The Vault"},
    {"MISSION NAME: The Vault", "The Vault"},
    {"MapName   - The Vault", "The Vault"},
    {"mapname-The Vault", "The Vault"},
    {"The Mission Title: The Vault", "The Vault"},
    {"TitleThe Vault", "The Vault"},
    {"Titles of glory", "s of glory"},
    {"Title - The Vault", " - The Vault"},
    {"Missions Titel: Das Gewölbe", "Das Gewölbe"},
    {"Titel der Mission : Das Gewölbe", "Das Gewölbe"},
    {"Titel: Das Gewölbe", "Das Gewölbe"},
    {"Titre de la mission : La Voûte", "La Voûte"},
    {"Titre : La Voûte", "La Voûte"},
    {"Level Names: One, Two", "One, Two"},
    {"Mission Titles: One, Two", "One, Two"},
    {"NAME : The Vault", "The Vault"},
    {"Název LEVELU: Trezor", "Trezor"},
    {"název levelu : Trezor", "Trezor"},
    {"Chapter Title: One", "One"},
    {"\tTitle\t:\t\"The Vault\" ", "The Vault"},
    {"Title\t\tThe Vault", "The Vault"},
    {"", ""},
    {"Title:", ""},
    {"Mission Title:  ", ""},
    {"Titel der Mission: Das Gewölbe", ""},
    {"CHAPTER TITLE: One", ""},
    {"The title: One", ""},
    {"Subtitle: One", ""},
    {"filename: x.zip", ""},
};

constexpr Line_Case author_lines[] = {
    {"Authors: Ann and Bob", " Ann and Bob"},
    {"AUTHOR : Ann", " Ann"},
    {"Author:Ann", "Ann"},
    {"Autor: Ann", " Ann"},
    {"By: Ann", " Ann"},
    {"Created by : Ann", " Ann"},
    {"Mission Creator: Ann", " Ann"},
    {"Author - Ann", "Ann"},
    {"Author-Ann-Marie", "Ann-Marie"},
    {"Author\tAnn", "Ann"},
    {"Authors\f: Ann", "Ann"},
    {"Authors Ann", "s Ann"},
    {"Authorship of this", "ship of this"},
    {"\"Author\": \"Ann\"", " Ann"},
    {"", ""},
    {"Author:", ""},
    {"Author's Note: hello", ""},
    {"Author Name Ann", ""},
    {"The author: Ann", ""},
};

constexpr Line_Case game_lines[] = {
    {"Game : Thief Gold", "Thief Gold"},
    {"game:: Thief 2 ", "Thief 2"},
    {"GAME: Thief 2", "Thief 2"},
    {"Game   Thief 2", "   Thief 2"},
    {"Game Thief 2", " Thief 2"},
    {"Engine Dark", " Dark"},
    {"engine: Dark", "engine: Dark"},
    {"Version of Thief: 2", "2"},
    {"Version of Thief 2", "Version of Thief 2"},
    {"Game\tThief 2", "GameThief 2"},
    {"Game-Thief 2", "Game-Thief 2"},
    {"Spiel: Dark Project 2", "Dark Project 2"},
    {"Game=Thief 2", "Thief 2"},
    {"Game = Thief 2", " = Thief 2"},
    {"Games I like", "Games I like"},
    {"Jeu : Dark Project 2", "Dark Project 2"},
    {"Jeu Dark Project 2", "Jeu Dark Project 2"},
    {"Hra: Thief 2", "Thief 2"},
    {"A Fan Mission for Thief 2", "A Fan Mission for Thief 2"},
    {"A fan mission for : Thief 2", "Thief 2"},
    {"", ""},
    {"Game:", "Game:"},
    {"Gameplay = long", ""},
    {"Gameplay time is long", ""},
    {"The game: Thief", ""},
};

struct Word_Case {
    const char *text;
    const char *code;
};

constexpr Word_Case word_cases[] = {
    {"Thief Gold", "TG"},
    {"tg", "TG"},
    {"Dark Metal", "DM"},
    {"The Dark Mod", "DMOD"},
    {"Doom 3", "DOOM"},
    {"doom", "DOOM"},
    {"T2X", "T2X"},
    {"Thief2X", "T2X"},
    {"Thief 2X", "T2X"},
    {"Thief:TDP", "T1"},
    {"T1", "T1"},
    {"Thief 1", "T1"},
    {"Thief1", "T1"},
    {"The Metal Age", "T2"},
    {"T2", "T2"},
    {"Thief 2", "T2"},
    {"Thief2", "T2"},
    {"Thief II", "T2"},
    {"ThiefII", "T2"},
    {"L'âge de métal", "T2"},
    {"Dark Project 2", "T2"},
    {"Thief: The Dark Project", "T1"},
    {"Thief II: The Metal Age", "T2"},
    {"Deadly", "T3"},
    {"shadows", "T3"},
    {"Thief Deadly Shadows", "T3"},
    {"T3", "T3"},
    {"Thief3", "T3"},
    {"Thief 3", "T3"},
    {"TDS", "T3"},
    {"Thief:DS", "T3"},
    {"System Shock 2", "SS2"},
    {"SS2", "SS2"},
    {"SS 2", "SS2"},
    {"CUSTOM -  My Game ", "My Game"},
    {"CUSTOM - Gold", "Gold"},
    {"Thief 2 Gold", "TG"},
    {"Doom 3 or The Dark Mod", "DMOD"},
    {"Thief Gold or Thief 2", "TG"},
    {"custom - Quake", ""},
    {"Quake", ""},
    {"", ""},
};

} // namespace

TEST(Readme_Fields, Every_title_pattern_cuts_its_value) {
    Expect_values(Title_of_line, title_lines);
}

TEST(Readme_Fields, Every_author_pattern_cuts_its_value) {
    Expect_values(Author_of_line, author_lines);
}

TEST(Readme_Fields, Every_game_pattern_cuts_its_value) {
    Expect_values(Game_of_line, game_lines);
}

TEST(Readme_Fields, A_game_word_without_a_colon_counts_in_lines_under_sixty_characters) {
    const QString longest = "Game " + QString(54, 'x');
    EXPECT_EQ(Game_of_line(longest), longest.mid(4));
    EXPECT_EQ(Game_of_line(longest + "x"), "");
    EXPECT_EQ(Game_of_line("Game=" + QString(54, 'x')), QString(54, 'x'));
    EXPECT_EQ(Game_of_line("Game=" + QString(55, 'x')), "");
}

TEST(Game_Words, Every_word_gives_its_code_and_the_first_word_wins) {
    for (const Word_Case &one : word_cases)
        EXPECT_EQ(Map_game_words(QString::fromUtf8(one.text)).toStdString(), one.code) << one.text;
}

} // namespace vantrosk
