#include "core/Ini_Rules.h"
#include "core/mdlFile_Functions.h"
#include "support/World.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct Ini_Values : testing::Test {
    World world;
    Program program{world.platform, world.ui, world.windows("home")};
};

struct Kind_Row {
    const char *key;
    Ini_Kind kind;
};

QString Value(const std::vector<Ini_Pair> &pairs, const QString &key) {
    for (const Ini_Pair &pair : pairs) {
        if (pair.key == key)
            return pair.value;
    }
    return "no such key";
}

} // namespace

TEST_F(Ini_Values, Every_main_key_has_its_kind_in_writing_order) {
    constexpr Kind_Row rows[] = {
        {"T1", Ini_Kind::folder_list},     {"TG", Ini_Kind::folder_list},
        {"T2", Ini_Kind::folder_list},     {"T3", Ini_Kind::folder_list},
        {"TOTHER", Ini_Kind::folder_list}, {"T1GAME", Ini_Kind::folder},
        {"TGGAME", Ini_Kind::folder},      {"T2GAME", Ini_Kind::folder},
        {"T3GAME", Ini_Kind::folder},      {"T3SAVES", Ini_Kind::folder},
        {"T1EDITOR", Ini_Kind::file},      {"TGEDITOR", Ini_Kind::file},
        {"T2EDITOR", Ini_Kind::file},      {"T3EDITOR", Ini_Kind::file},
        {"DMGAME", Ini_Kind::folder},      {"DM", Ini_Kind::folder_list},
        {"DMEDITOR", Ini_Kind::file},      {"DMODGAME", Ini_Kind::folder},
        {"DMOD", Ini_Kind::folder_list},   {"DMOD_INSTALLED", Ini_Kind::boolean},
        {"DMODEDITOR", Ini_Kind::file},    {"DOWNLOADS", Ini_Kind::text},
        {"T2XGAME", Ini_Kind::folder},     {"T2X", Ini_Kind::folder_list},
        {"SS2GAME", Ini_Kind::folder},     {"SS2", Ini_Kind::folder_list},
        {"SS2EDITOR", Ini_Kind::file},     {"LANGUAGE", Ini_Kind::text},
        {"LANGUAGECODE", Ini_Kind::text},  {"MAIN_TOOLBAR", Ini_Kind::integer},
        {"RECORD_SQL", Ini_Kind::boolean}, {"CHECKFORUPDATES", Ini_Kind::boolean},
        {"MPNAME", Ini_Kind::text},
    };
    const auto pairs = Main_ini_pairs(program);
    ASSERT_EQ(pairs.size(), std::size(rows));
    for (std::size_t row = 0; row < std::size(rows); ++row) {
        EXPECT_EQ(pairs[row].key, rows[row].key);
        EXPECT_EQ(Main_ini_kind(rows[row].key), rows[row].kind) << rows[row].key;
    }
    EXPECT_EQ(Main_ini_kind("unknown"), Ini_Kind::text);
}

TEST_F(Ini_Values, A_value_that_is_set_reads_as_in_the_file) {
    EXPECT_TRUE(Set_main_ini_value(program, "T2GAME", "C:\\Thief2"));
    EXPECT_TRUE(Set_main_ini_value(program, "RECORD_SQL", "1"));
    EXPECT_TRUE(Set_main_ini_value(program, "MAIN_TOOLBAR", "32"));
    EXPECT_TRUE(Set_tweaks_ini_value(program, "TITLEFONTSIZE", "20"));
    EXPECT_TRUE(Set_tweaks_ini_value(program, "FMTOOL5", "TRUE"));
    EXPECT_TRUE(Set_tweaks_ini_value(program, "RESKIN_THIEF1", "True"));
    EXPECT_EQ(Value(Main_ini_pairs(program), "T2GAME"), "C:\\Thief2");
    EXPECT_EQ(Value(Main_ini_pairs(program), "RECORD_SQL"), "True");
    EXPECT_EQ(Value(Main_ini_pairs(program), "MAIN_TOOLBAR"), "32");
    EXPECT_EQ(Value(Tweaks_ini_pairs(program), "TITLEFONTSIZE"), "20");
    EXPECT_EQ(Value(Tweaks_ini_pairs(program), "FMTOOL5"), "True");
    EXPECT_EQ(Value(Tweaks_ini_pairs(program), "RESKIN_THIEF1"), "True");
}

TEST_F(Ini_Values, A_value_that_can_not_be_is_refused_and_changes_nothing) {
    program.ini.MAIN_TOOLBAR = 24;
    program.tweaks.TITLEFONT.size = 18;
    EXPECT_FALSE(Set_main_ini_value(program, "MAIN_TOOLBAR", "big"));
    EXPECT_FALSE(Set_main_ini_value(program, "MAIN_TOOLBAR", "99999999999"));
    EXPECT_FALSE(Set_main_ini_value(program, "MAIN_TOOLBAR", "nan"));
    EXPECT_FALSE(Set_main_ini_value(program, "RECORD_SQL", "maybe"));
    EXPECT_FALSE(Set_main_ini_value(program, "MPNAME", "two\nlines"));
    EXPECT_FALSE(Set_main_ini_value(program, "MPNAME", "two\rlines"));
    EXPECT_FALSE(Set_tweaks_ini_value(program, "TITLEFONTSIZE", "large"));
    EXPECT_FALSE(Set_tweaks_ini_value(program, "AUTO_DOWNLOAD", "-32769"));
    EXPECT_EQ(program.ini.MAIN_TOOLBAR, 24);
    EXPECT_FALSE(program.ini.RECORD_SQL);
    EXPECT_EQ(program.ini.MPNAME, "");
    EXPECT_EQ(program.tweaks.TITLEFONT.size, 18);
    EXPECT_EQ(program.tweaks.AUTO_DOWNLOAD, 0);
}

struct Rule_Case {
    const char *key;
    std::vector<const char *> taken, refused;
};

const std::vector<Rule_Case> rule_cases{
    {"SCAN_ZIPS", {"0", "1", "2", ""}, {"3", "-1", "7", "1.5", "often", "99999999999"}},
    {"AUTO_DOWNLOAD", {"0", "1", "60", "32767"}, {"-1", "32768", "weekly"}},
    {"AUTO_FM_CHECK", {"0", "14", "32767"}, {"-1", "32768"}},
    {"QUILLMARCH", {"0", "30"}, {"-1", "40000"}},
    {"MAIN_TOOLBAR", {"16", "24", "32", ""}, {"0", "17", "48", "-16", "large"}},
    {"LANGUAGECODE", {"en", "CZ", ""}, {"e", "eng", "1x"}},
    {"AUTOSTART_IN",
     {"Thief 1", "Thief Gold", "Thief 2", "Thief DS", "T2X", "Dark Metal", "Dark Mod", "System Shock 2",
      "thief 2", ""},
     {"T2", "Thief", "Thief 3", "Doom"}},
    {"TITLEFONTSIZE", {"1", "18", "200"}, {"0", "-8", "201", "big"}},
    {"SUBTITLEFONTSIZE", {"14"}, {"0"}},
    {"WARNINGSFONTSIZE", {"12"}, {"0"}},
    {"OTHERTEXTFONTSIZE", {"10"}, {"0"}},
    {"FMLISTSFONTSIZE", {"8"}, {"0"}},
    {"TITLEFONTSTYLE", {"Bold", "ITALIC", "BOLD,ITALIC", ""}, {"fat", "BOLD ITALIC", "ITALIC,BOLD"}},
    {"SUBTITLEFONTSTYLE", {"Bold"}, {"x"}},
    {"WARNINGSFONTSTYLE", {"Bold"}, {"x"}},
    {"OTHERTEXTFONTSTYLE", {"Bold"}, {"x"}},
    {"FMLISTSFONTSTYLE", {"Bold"}, {"x"}},
    {"TITLEFONTCOLOUR", {"000000", "#ff00AA"}, {"red", "FFF", "GG0000", "#1234567"}},
    {"SUBTITLEFONTCOLOUR", {"000000"}, {"x"}},
    {"WARNINGSFONTCOLOUR", {"000000"}, {"x"}},
    {"OTHERTEXTFONTCOLOUR", {"000000"}, {"x"}},
    {"BACKGROUNDCOLOUR", {"#FFFFFF", "#00ff00"}, {"FFFFFF", "white", "#FFF"}},
    {"FMDISPLAYCOLOUR", {"0", "15790320", "16777215"}, {"-1", "16777216", "#FFFFFF"}},
    {"FMDISPLAYFONTCOLOUR", {"14120960"}, {"x"}},
    {"FMDISPLAYTITLESFONTCOLOUR", {"0"}, {"x"}},
    {"QBAR_COLOUR", {"6470226"}, {"x"}},
    {"GAMEBAR_COLOUR", {"16672063"}, {"x"}},
    {"THE_SWAP", {"True", "false", "1", "0", "-1"}, {"maybe"}},
    {"STARTUP_PAGE", {"VANTROSK NEWS", "http://example.org/", "any text"}, {"two\nlines"}},
    {"VK_SCHEME", {"My skin"}, {}},
};

class Ini_Rules : public testing::TestWithParam<Rule_Case> {};

TEST_P(Ini_Rules, A_key_takes_what_the_program_understands_and_nothing_else) {
    World world;
    Program program(world.platform, world.ui, world.windows("home"));
    const auto set = [&](const char *text) {
        return Set_main_ini_value(program, GetParam().key, text) ||
               Set_tweaks_ini_value(program, GetParam().key, text);
    };
    for (const char *text : GetParam().taken)
        EXPECT_TRUE(set(text)) << text;
    const auto before = std::pair(Main_ini_pairs(program), Tweaks_ini_pairs(program));
    for (const char *text : GetParam().refused)
        EXPECT_FALSE(set(text)) << text;
    const auto texts = [](const std::vector<Ini_Pair> &pairs) {
        QStringList all;
        for (const Ini_Pair &pair : pairs)
            all << pair.value;
        return all;
    };
    EXPECT_EQ(texts(Main_ini_pairs(program)), texts(before.first));
    EXPECT_EQ(texts(Tweaks_ini_pairs(program)), texts(before.second));
}

INSTANTIATE_TEST_SUITE_P(Keys, Ini_Rules, testing::ValuesIn(rule_cases),
                         [](const auto &row) { return std::string(row.param.key); });

TEST(Ini_Rule, Tells_what_a_key_holds) {
    EXPECT_EQ(Ini_rule("SCAN_ZIPS"), "0 (slow: always), 1 (normal: without a record) or 2 (fast: never)");
    EXPECT_EQ(Ini_rule("THE_SWAP"), "True or False");
    EXPECT_EQ(Ini_rule("RECORD_SQL"), "True or False");
    EXPECT_EQ(Ini_rule("MAIN_TOOLBAR"), "16, 24 or 32");
    EXPECT_EQ(Ini_rule("T2GAME"), "");
    EXPECT_EQ(Ini_rule("no such key"), "");
}

TEST(Ini_Rule, Every_number_of_either_file_has_its_bounds_and_every_default_keeps_them) {
    World world;
    Program program(world.platform, world.ui, world.windows("home"));
    Set_Display_Defaults(program);
    for (const auto &pairs : {Main_ini_pairs(program), Tweaks_ini_pairs(program)}) {
        for (const Ini_Pair &pair : pairs) {
            EXPECT_NE(Ini_rule(pair.key), "a whole number") << pair.key.toStdString();
            const bool may_be_unset = pair.key == "MAIN_TOOLBAR"; // 0 until somebody chooses
            EXPECT_TRUE(may_be_unset || Is_understood(pair.key, pair.value)) << pair.key.toStdString();
        }
    }
}

TEST_F(Ini_Values, An_unknown_key_is_refused) {
    EXPECT_FALSE(Set_main_ini_value(program, "t2game", "x"));
    EXPECT_FALSE(Set_main_ini_value(program, "[T2GAME]", "x"));
    EXPECT_FALSE(Set_main_ini_value(program, "TITLEFONT", "x"));
    EXPECT_FALSE(Set_tweaks_ini_value(program, "T2GAME", "x"));
    EXPECT_FALSE(Set_tweaks_ini_value(program, "FMTOOL6", "True"));
    EXPECT_FALSE(Set_tweaks_ini_value(program, "", "x"));
}

TEST_F(Ini_Values, An_empty_text_empties_a_value) {
    program.ini.T1_LOCATION = "C:\\x*#*";
    program.ini.RECORD_SQL = true;
    program.ini.MAIN_TOOLBAR = 24;
    EXPECT_TRUE(Set_main_ini_value(program, "T1", ""));
    EXPECT_TRUE(Set_main_ini_value(program, "RECORD_SQL", ""));
    EXPECT_TRUE(Set_main_ini_value(program, "MAIN_TOOLBAR", ""));
    EXPECT_EQ(program.ini.T1_LOCATION, "");
    EXPECT_FALSE(program.ini.RECORD_SQL);
    EXPECT_EQ(program.ini.MAIN_TOOLBAR, 0);
}

TEST(Folder_List, Folders_are_split_at_their_marks) {
    EXPECT_EQ(Split_folder_list("C:\\FMs\\*#*D:\\More\\*#*"), QStringList({"C:\\FMs\\", "D:\\More\\"}));
    EXPECT_EQ(Split_folder_list("C:\\FMs\\*#*D:\\open"), QStringList({"C:\\FMs\\", "D:\\open"}));
    EXPECT_EQ(Split_folder_list("C:\\a*b#c"), QStringList({"C:\\a*b#c"}));
    EXPECT_EQ(Split_folder_list(""), QStringList());
}

TEST(Folder_List, Reading_ends_at_the_first_empty_piece) {
    EXPECT_EQ(Split_folder_list("C:\\one*#**#*C:\\never*#*"), QStringList({"C:\\one"}));
    EXPECT_EQ(Split_folder_list("*#*C:\\never*#*"), QStringList());
}

TEST(Folder_List, Each_folder_is_joined_with_its_mark_and_an_empty_one_left_out) {
    EXPECT_EQ(Join_folder_list({"C:\\FMs\\", "", "D:\\More\\"}), "C:\\FMs\\*#*D:\\More\\*#*");
    EXPECT_EQ(Join_folder_list({}), "");
}
