#include "readme/Marked_Text.h"
#include "readme/Text_Marks.h"
#include "readme/mdlHTML_stuff.h"
#include "support/World.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct Row {
    QString text, html;
};

QString Named(const QString &words) {
    Marked_Text text(words);
    Name_this_program(text);
    return text.html(Show_words);
}

QString Labelled(const QString &words) {
    Marked_Text text(words);
    Mark_labels(text);
    return text.html(Show_words);
}

const QString problems = "<span class='HIGHLIGHTRED'>Known problems: </span>";
const QString bugs = "<span class='HIGHLIGHTRED'>Known Bugs: </span>";
const QString date = "<span class='HIGHLIGHTORANGE TEXTBLACK'>Date of Release: </span>";

struct Glossary_Test : testing::Test {
    World world;
    Program &program = world.program();

    Glossary_Test() {
        program.tweaks.INTELLITEXT = true;
        program.glossary = {{"Garrett", "The hero."}};
    }
    QString marked(const QString &words) {
        Marked_Text text(words);
        Mark_glossary(text, program);
        return text.html(Show_words);
    }
    static QString span(const QString &word, const QString &tip) {
        return "<span class='INTELLITEXT' title='" + tip +
               "' style='text-decoration : underline;cursor:help;'>" + word + "</span>";
    }
};

} // namespace

TEST(Name_this_program, Every_row_of_the_table) {
    for (const Row &row : std::vector<Row>{
             {"Darkloader ready", "Vantrosk ready"},
             {"DARKLOADER READY.", "Vantrosk ready."},
             {"Darkloader compatible", "Vantrosk ready"},
             {"DarkLoader compatible", "DarkLoader compatible"},
             {"It is ready for darkloader!", "It is ready for Vantrosk!"},
             {"Runs from Darkloader.", "Runs from Vantrosk."},
             {"Runs from Dark Loader.", "Runs from Vantrosk."},
             {"a version of Darkloader and more", "a version of Vantrosk and more"},
             {"VANTROSK, vantrosk, Van Trosk, VANT ROSK", "Vantrosk, Vantrosk, Vantrosk, Vantrosk"},
             {"Use darkloader or Dark loader", "Use DarkLoader or DarkLoader"},
             {"dark  loader, dark\nloader", "dark  loader, dark<br>loader"},
             {"nothing of the kind", "nothing of the kind"},
             {"", ""},
         })
        EXPECT_EQ(Named(row.text), row.html) << row.text.toStdString();
}

TEST(Name_this_program, Links_made_before_keep_their_address) {
    Marked_Text text("at http://darkloader.org and darkloader");
    text.mark(3, 21, "<a>http://darkloader.org</a>");
    Name_this_program(text);
    EXPECT_EQ(text.html(Show_words), "at <a>http://darkloader.org</a> and DarkLoader");
}

TEST(Mark_labels, Every_form_of_every_label) {
    for (const Row &row : std::vector<Row>{
             {"Known problems: none", problems + " none"},
             {"KNOWN PROBLEMS : none", problems + " none"},
             {"Known problems  : none", "Known problems  : none"},
             {"Bugs: one", bugs + " one"},
             {"bugs : one", bugs + " one"},
             {"Known Bugs: one", bugs + " one"},
             {"known bugs : one", bugs + " one"},
             {"Known Bugs: one\nbugs: two", bugs + " one<br>bugs: two"},
             {"Bugs: one\nBUGS: two", bugs + " one<br>" + bugs + " two"},
             {"Date of Release: May", date + " May"},
             {"Date of Release : May", date + " May"},
             {"date of release   : May", date + " May"},
             {"Date of Release\t: May", date + " May"},
             {"Date of Release\t\t: May", date + " May"},
             {"Date of Release - May", date + " May"},
             {"Date of Release" + QString(50, ' ') + ":", date},
             {"Date of Release" + QString(51, ' ') + ":", "Date of Release" + QString(51, ' ') + ":"},
             {"Date of Release\t\t\t:", "Date of Release\t\t\t:"},
             {"Release date: May", date + " May"},
             {"RELEASE DATE    : May", date + " May"},
             {"Release date\t: May", date + " May"},
             {"Release date - May", "Release date - May"},
             {"Date of Release: 1\nRelease date: 2", date + " 1<br>" + date + " 2"},
             {"the date of release is open", "the date of release is open"},
             {"", ""},
         })
        EXPECT_EQ(Labelled(row.text), row.html) << row.text.toStdString();
}

TEST_F(Glossary_Test, A_word_is_marked_between_blanks_and_before_a_full_stop) {
    const QString hero = span("Garrett", "The hero.");
    for (const Row &row : std::vector<Row>{
             {"see Garrett run", "see " + hero + " run"},
             {"see Garrett.", "see " + hero + "."},
             {"a Garrett Garrett Garrett b", "a " + hero + " " + hero + " " + hero + " b"},
             {"Garrett runs", "Garrett runs"},
             {"see Garrett", "see Garrett"},
             {"see Garrett\nrun", "see Garrett<br>run"},
             {"see Garrett, run", "see Garrett, run"},
             {"see garrett run", "see garrett run"},
             {"see Garretts run", "see Garretts run"},
             {"see NotGarrett run", "see NotGarrett run"},
         })
        EXPECT_EQ(marked(row.text), row.html) << row.text.toStdString();
}

TEST_F(Glossary_Test, With_the_tweak_off_nothing_is_marked) {
    program.tweaks.INTELLITEXT = false;
    EXPECT_EQ(marked("see Garrett run"), "see Garrett run");
}

TEST_F(Glossary_Test, Several_words_are_found_at_the_ends_of_a_line_too) {
    program.glossary = {{"Old Town", "A place."}};
    const QString place = span("Old Town", "A place.");
    EXPECT_EQ(marked("Old Town\nin Old Town, (Old Town) is Old Town"),
              place + "<br>in " + place + ", (" + place + ") is " + place);
    EXPECT_EQ(marked("Old Towns, Cold Town"), "Old Towns, Cold Town");
}

TEST_F(Glossary_Test, The_earlier_entry_has_a_place_that_two_want) {
    program.glossary = {{"Town", "one"}, {"Old Town", "two"}, {"", "none"}};
    EXPECT_EQ(marked("an Old Town. Old Town!"),
              "an Old " + span("Town", "one") + ". " + span("Old Town", "two") + "!");
}

TEST_F(Glossary_Test, Words_in_the_explanation_of_another_stay) {
    program.glossary = {{"Order", "An Order of Hammers here"}, {"Hammers", "tools"}};
    EXPECT_EQ(marked("the Order of Hammers here"), "the " + span("Order", "An Order of Hammers here") +
                                                       " of " + span("Hammers", "tools") + " here");
}

TEST_F(Glossary_Test, Mark_up_in_words_and_explanations_is_text) {
    program.glossary = {{"<b>é", "x' onclick='a()'><i>"}};
    EXPECT_EQ(marked("a <b>é c"),
              "a " + span("&lt;b&gt;&eacute;", "x&#39; onclick=&#39;a()&#39;&gt;&lt;i&gt;") + " c");
}

TEST_F(Glossary_Test, A_hundred_words_beside_the_built_in_one_are_marked_in_a_great_text) {
    QString words;
    program.glossary = {{"Garrett", "The hero."}};
    for (int i = 0; i < 100; ++i) {
        program.glossary.push_back({"word" + QString::number(i), "tip"});
        words += " word" + QString::number(i);
    }
    QString text;
    while (text.size() < 1 << 20)
        text += words + " and then some prose with nothing in it.\n";
    const QString html = marked(text);
    EXPECT_EQ(html.count("<span class='INTELLITEXT'"), text.count(" word"));
}

TEST(Marked_Text_Test, What_is_marked_is_out_of_reach) {
    Marked_Text text("abcdef");
    EXPECT_TRUE(text.mark(2, 2, "<x>"));
    EXPECT_FALSE(text.mark(1, 2, "<y>"));
    EXPECT_FALSE(text.mark(3, 1, "<y>"));
    EXPECT_TRUE(text.mark(0, 2, "<y>"));
    EXPECT_EQ(text.html(Show_words), "<y><x>ef");
}

TEST(Marked_Text_Test, Changed_words_move_the_marks_behind_them) {
    Marked_Text text("one two three four");
    text.mark(8, 5, "<3>");
    text.mark(0, 3, "<1>");
    text.change({{1, 1, "no"}, {4, 3, "second"}, {14, 4, "4"}});
    EXPECT_EQ(text.text(), "one second three 4");
    EXPECT_EQ(text.html(Show_words), "<1> second <3> 4");
    EXPECT_FALSE(text.mark(12, 2, "<y>"));
    EXPECT_TRUE(text.mark(17, 1, "<4>"));
    EXPECT_EQ(text.html(Show_words), "<1> second <3> <4>");
}

TEST(Marked_Text_Test, A_page_gets_no_more_mark_up_than_it_can_bear) {
    Marked_Text text(QString(100, 'x'));
    const QString much(1 << 20, 'm');
    int marks = 0;
    for (qsizetype place = 0; place < 100; ++place)
        marks += text.mark(place, 1, much);
    EXPECT_EQ(marks, 32);
    EXPECT_EQ(text.html(Show_words).size(), 32 * much.size() + 68);
}

TEST(Show_words, Every_sign_of_the_table) {
    for (const auto &[sign, shown] : std::vector<std::pair<int, const char *>>{
             {'<', "&lt;"},       {'>', "&gt;"},     {'\n', "<br>"},
             {'&', "&"},          {'"', "\""},       {146, "&acute;"},
             {0x2019, "&acute;"}, {147, "\""},       {0x201C, "\""},
             {148, "\""},         {0x201D, "\""},    {132, "\""},
             {0x201E, "\""},      {133, "..."},      {0x2026, "..."},
             {150, "-"},          {0x2013, "-"},     {0x2014, "\u2014"},
             {169, "&copy;"},     {171, "&laquo;"},  {176, "&deg;"},
             {180, "&acute;"},    {183, "&middot;"}, {187, "&raquo;"},
             {192, "&Agrave;"},   {193, "&Aacute;"}, {194, "&Acirc;"},
             {195, "&Atilde;"},   {196, "&Auml;"},   {197, "&Aring;"},
             {198, "&AElig;"},    {199, "&Ccedil;"}, {200, "&Egrave;"},
             {201, "&Eacute;"},   {202, "&Ecirc;"},  {203, "&Euml;"},
             {204, "&Igrave;"},   {205, "&Iacute;"}, {206, "&Icirc;"},
             {207, "&Iuml;"},     {208, "&ETH;"},    {209, "&Ntilde;"},
             {210, "&Ograve;"},   {211, "&Oacute;"}, {212, "&Ocirc;"},
             {213, "&Otilde;"},   {214, "&Ouml;"},   {215, "&times;"},
             {216, "&Oslash;"},   {217, "&Ugrave;"}, {218, "&Uacute;"},
             {219, "&Ucirc;"},    {220, "&Uuml"},    {221, "&Yacute;"},
             {222, "&THORN;"},    {223, "&szlig;"},  {224, "&agrave;"},
             {225, "&aacute;"},   {226, "&acirc;"},  {227, "&atilde;"},
             {228, "&auml;"},     {229, "&aring;"},  {230, "&aelig;"},
             {231, "&ccedil;"},   {232, "&egrave;"}, {233, "&eacute;"},
             {234, "&ecirc;"},    {235, "&euml;"},   {236, "&igrave;"},
             {237, "&iacute;"},   {238, "&icirc;"},  {239, "&iuml;"},
             {240, "&eth;"},      {241, "&ntilde;"}, {242, "&ograve;"},
             {243, "&oacute;"},   {244, "&ocirc;"},  {245, "&otilde;"},
             {246, "&ouml;"},     {247, "&divide;"}, {248, "&oslash;"},
             {249, "&ugrave;"},   {250, "&uacute;"}, {251, "&ucirc;"},
             {252, "&uuml;"},     {253, "&yacute;"}, {254, "&thorn;"},
             {255, "&yuml;"},     {160, "&nbsp;"},   {163, "&pound;"},
             {189, "&frac12;"},   {256, "\u0100"},   {0x17E, "\u017E"},
             {0x442, "\u0442"},   {0, ""},           {7, ""},
             {0x7F, ""},          {'\t', "\t"},      {128, "\u0080"},
             {0x201A, "\u201A"},
         }) {
        QString html = "[";
        Show_words(html, QString("a" + QString(QChar(sign)) + "b"));
        EXPECT_EQ(html, "[a" + QString::fromUtf8(shown) + "b") << sign;
    }
}

TEST(Suggested_keywords, Each_word_needs_its_count) {
    struct Word {
        const char *word;
        int needed;
    };
    for (const Word &word :
         std::vector<Word>{{"Guards", 1}, {"Hammerites", 1}, {"Mechanist", 1}, {"Thieves", 1}, {"Keepers", 3},
                           {"Mages", 2},  {"Pagans", 2},     {"Undead", 2},    {"Mansion", 1}, {"Museum", 1},
                           {"City", 3},   {"Fortress", 2},   {"Church", 2},    {"Crypt", 2},   {"Prison", 2},
                           {"Forest", 2}, {"Ruins", 2},      {"Bank", 2},      {"Rescue", 2},  {"Explore", 2},
                           {"Fun", 2},    {"Unusual", 2},    {"General", 5},   {"Horror", 2}}) {
        EXPECT_EQ(Suggested_keywords(QString(word.word).repeated(word.needed)), word.word);
        EXPECT_EQ(Suggested_keywords(QString(word.word).repeated(word.needed - 1)), "") << word.word;
    }
}

TEST(Suggested_keywords, Words_count_anywhere_in_their_own_case_and_stand_in_the_order_of_the_list) {
    EXPECT_EQ(Suggested_keywords("Museums, Mechanists, guards, GUARDS, BankBanks"), "Mechanist,Museum,Bank");
}
