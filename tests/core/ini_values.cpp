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
