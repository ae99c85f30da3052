#include "core/mdlFile_Functions.h"
#include "support/World.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct Ini_Reading : testing::Test {
    World world;
    Program program{world.platform, world.ui, world.windows("home")};

    /// Reads these two files over the defaults, as a start does.
    void read(const QByteArray &main, const QByteArray &tweaks = "[SCAN_ZIPS]\r\n1\r\n") {
        world.write("home/Vantrosk.ini", main);
        world.write("home/Vantrosk_Tweaks.ini", tweaks);
        Set_Display_Defaults(program);
        Read_Ini_Files(program);
    }
};

struct Boolean_Row {
    const char *text;
    bool value;
};

struct Font_Size_Row {
    const char *key;
    int Font_Tweak::*size;
    Font_Tweak Tweaks::*font;
    int fall_back;
};

} // namespace

TEST_F(Ini_Reading, Both_files_there_is_no_first_run) {
    program.first_run = true;
    read("[T1GAME]\r\nC:\\T1\r\n");
    EXPECT_FALSE(program.first_run);
    EXPECT_EQ(program.ini.T1_GAME_LOCATION, "C:\\T1");
    EXPECT_EQ(program.tweaks.STARTUP_PAGE, "VANTROSK NOTES");
}

TEST_F(Ini_Reading, A_missing_main_file_is_a_first_run_and_the_tweaks_are_read) {
    world.write("home/Vantrosk_Tweaks.ini", "[SCAN_ZIPS]\r\n5\r\n");
    Read_Ini_Files(program);
    EXPECT_TRUE(program.first_run);
    EXPECT_EQ(program.tweaks.SCAN_ZIPS, 5);
    EXPECT_EQ(program.ini.LANGUAGE, "ENGLISH");
}

TEST_F(Ini_Reading, A_missing_tweaks_file_is_a_first_run_and_the_main_file_is_read) {
    world.write("home/Vantrosk.ini", "[T2GAME]\r\nC:\\T2\r\n");
    Read_Ini_Files(program);
    EXPECT_TRUE(program.first_run);
    EXPECT_EQ(program.ini.T2_GAME_LOCATION, "C:\\T2");
    EXPECT_EQ(program.tweaks.STARTUP_PAGE, "VANTROSK WELCOME");
}

TEST_F(Ini_Reading, Empty_files_leave_the_defaults_and_are_no_first_run) {
    read("", "");
    EXPECT_FALSE(program.first_run);
    EXPECT_EQ(program.ini.LANGUAGE, "ENGLISH");
    EXPECT_EQ(program.tweaks.STARTUP_PAGE, "VANTROSK NOTES");
    EXPECT_EQ(program.tweaks.SCAN_ZIPS, 0);
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST_F(Ini_Reading, A_key_that_is_absent_leaves_its_default) {
    read("[T1]\r\n\r\n", "[TITLEFONT]\r\nGaramond\r\n");
    EXPECT_EQ(program.tweaks.TITLEFONT.name, "Garamond");
    EXPECT_EQ(program.tweaks.TITLEFONT.size, 18);
    EXPECT_EQ(program.tweaks.SUBTITLEFONT.name, "MS Sans Serif");
}

TEST_F(Ini_Reading, A_key_as_the_last_line_has_an_empty_value) {
    program.ini.MPNAME = "before";
    read("[T1GAME]\r\nC:\\T1\r\n[MPNAME]");
    EXPECT_EQ(program.ini.MPNAME, "");
    EXPECT_EQ(program.ini.T1_GAME_LOCATION, "C:\\T1");
}

TEST_F(Ini_Reading, A_number_key_as_the_last_line_leaves_what_was_there) {
    program.ini.MAIN_TOOLBAR = 32;
    read("[MAIN_TOOLBAR]\r\n");
    EXPECT_EQ(program.ini.MAIN_TOOLBAR, 32);
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST_F(Ini_Reading, A_value_that_looks_like_a_key_is_a_value) {
    program.ini.TG_GAME_LOCATION = "before";
    read("[T1GAME]\r\n[TGGAME]\r\nC:\\not read as TG\r\n");
    EXPECT_EQ(program.ini.T1_GAME_LOCATION, "[TGGAME]");
    EXPECT_EQ(program.ini.TG_GAME_LOCATION, "before");
}

TEST_F(Ini_Reading, The_line_behind_an_unknown_key_is_passed_over_unless_it_is_a_key) {
    read("[NEWER]\r\nvalue\r\n[T1GAME]\r\nC:\\T1\r\n[OLDER]\r\n[T2GAME]\r\nC:\\T2\r\n");
    EXPECT_EQ(program.ini.T1_GAME_LOCATION, "C:\\T1");
    EXPECT_EQ(program.ini.T2_GAME_LOCATION, "C:\\T2");
}

TEST_F(Ini_Reading, Key_lines_are_trimmed_and_values_are_not) {
    read("  [T1GAME] \r\n  C:\\T1 \r\n");
    EXPECT_EQ(program.ini.T1_GAME_LOCATION, "  C:\\T1 ");
}

TEST_F(Ini_Reading, Keys_are_compared_letter_by_letter) {
    read("[t1game]\r\nC:\\T1\r\n", "[ENABLE_COL_CATEGORY]\r\nTrue\r\n[DUALMONITOR_ALWAYSON]\r\nTrue\r\n");
    EXPECT_EQ(program.ini.T1_GAME_LOCATION, "");
    EXPECT_FALSE(program.tweaks.ENABLE_COl_CATEGORY);
    EXPECT_FALSE(program.tweaks.DUALMONITOR_ALYWAYSON);
    read("", "[ENABLE_COl_CATEGORY]\r\nTrue\r\n[DUALMONITOR_ALYWAYSON]\r\nTrue\r\n");
    EXPECT_TRUE(program.tweaks.ENABLE_COl_CATEGORY);
    EXPECT_TRUE(program.tweaks.DUALMONITOR_ALYWAYSON);
}

TEST_F(Ini_Reading, A_repeated_key_counts_as_it_stood_last) {
    read("[T1GAME]\r\nC:\\one\r\n[T1GAME]\r\nC:\\two\r\n");
    EXPECT_EQ(program.ini.T1_GAME_LOCATION, "C:\\two");
}

TEST_F(Ini_Reading, An_empty_dark_mod_line_leaves_the_previous_value) {
    program.ini.DMOD_INSTALLED = true;
    read("[DMOD_INSTALLED]\r\n\r\n[T1GAME]\r\nC:\\T1\r\n");
    EXPECT_TRUE(program.ini.DMOD_INSTALLED);
    EXPECT_EQ(program.ini.T1_GAME_LOCATION, "C:\\T1");
    read("[DMOD_INSTALLED]\r\nFalse\r\n");
    EXPECT_FALSE(program.ini.DMOD_INSTALLED);
}

TEST_F(Ini_Reading, The_first_reskin_is_never_read) {
    read("", "[RESKIN_THIEF1]\r\nTrue\r\n[RESKIN_THIEF2]\r\nTrue\r\n[RESKIN_DMOD]\r\nTrue\r\n");
    EXPECT_FALSE(program.tweaks.RESKIN_THIEF1);
    EXPECT_TRUE(program.tweaks.RESKIN_THIEF2);
    EXPECT_TRUE(program.tweaks.RESKIN_DMOD);
}

TEST_F(Ini_Reading, Booleans_are_words_in_any_case_and_numbers) {
    constexpr Boolean_Row rows[] = {{"True", true},   {"False", false}, {"true", true},
                                    {"FALSE", false}, {"1", true},      {"0", false},
                                    {"-1", true},     {"2", true},      {" True ", true}};
    for (const Boolean_Row &row : rows) {
        program.ini.RECORD_SQL = !row.value;
        read(QByteArray("[RECORD_SQL]\r\n") + row.text + "\r\n");
        EXPECT_EQ(program.ini.RECORD_SQL, row.value) << row.text;
    }
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST_F(Ini_Reading, Font_sizes_that_are_no_numbers_fall_back_to_their_own_sizes) {
    const Font_Size_Row rows[] = {{"TITLEFONTSIZE", &Font_Tweak::size, &Tweaks::TITLEFONT, 24},
                                  {"SUBTITLEFONTSIZE", &Font_Tweak::size, &Tweaks::SUBTITLEFONT, 18},
                                  {"WARNINGSFONTSIZE", &Font_Tweak::size, &Tweaks::WARNINGSFONT, 14},
                                  {"OTHERTEXTFONTSIZE", &Font_Tweak::size, &Tweaks::OTHERTEXTFONT, 10},
                                  {"FMLISTSFONTSIZE", &Font_Tweak::size, &Tweaks::FMLISTSFONT, 8}};
    for (const Font_Size_Row &row : rows) {
        for (const char *text : {"large", "", "12pt", "99999999999999"}) {
            read("", QByteArray("[") + row.key + "]\r\n" + text + "\r\n[SCAN_ZIPS]\r\n3\r\n");
            EXPECT_EQ(program.tweaks.*(row.font).*(row.size), row.fall_back) << row.key << " " << text;
            EXPECT_EQ(program.tweaks.SCAN_ZIPS, 3);
        }
        read("", QByteArray("[") + row.key + "]\r\n 33 \r\n");
        EXPECT_EQ(program.tweaks.*(row.font).*(row.size), 33) << row.key;
    }
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST_F(Ini_Reading, Fractions_are_rounded_to_the_even_neighbour) {
    read("", "[SCAN_ZIPS]\r\n2.5\r\n[AUTO_FM_CHECK]\r\n3.5\r\n");
    EXPECT_EQ(program.tweaks.SCAN_ZIPS, 2);
    EXPECT_EQ(program.tweaks.AUTO_FM_CHECK, 4);
}

TEST_F(Ini_Reading, All_six_buttons_of_the_readme_toolbar_are_read_and_no_seventh) {
    read("", "[FMTOOL0]\r\nFalse\r\n[FMTOOL1]\r\nFalse\r\n[FMTOOL2]\r\nTrue\r\n[FMTOOL3]\r\nFalse\r\n"
             "[FMTOOL4]\r\nTrue\r\n[FMTOOL5]\r\nTrue\r\n[FMTOOL6]\r\nTrue\r\n");
    const std::array<bool, fm_tool_count> expected{false, false, true, false, true, true};
    EXPECT_EQ(program.tweaks.FMTOOL, expected);
}

TEST_F(Ini_Reading, A_value_of_the_wrong_type_shows_the_error_box_once_and_the_rest_is_read) {
    program.ini.MAIN_TOOLBAR = 24;
    read("[MAIN_TOOLBAR]\r\nbig\r\n[RECORD_SQL]\r\nperhaps\r\n[MPNAME]\r\nGarrett\r\n");
    EXPECT_EQ(program.ini.MAIN_TOOLBAR, 24);
    EXPECT_FALSE(program.ini.RECORD_SQL);
    EXPECT_EQ(program.ini.MPNAME, "Garrett");
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_TRUE(world.ui.boxes[0].text.contains("Error 13 (Type mismatch)"))
        << world.ui.boxes[0].text.toStdString();
    EXPECT_TRUE(world.ui.boxes[0].text.contains("Read_Ini_Files"));
}

TEST_F(Ini_Reading, Days_that_do_not_fit_16_bits_are_an_overflow) {
    read("", "[AUTO_DOWNLOAD]\r\n32768\r\n[AUTO_FM_CHECK]\r\n32768\r\n");
    EXPECT_EQ(program.tweaks.AUTO_DOWNLOAD, 0);
    EXPECT_EQ(program.tweaks.AUTO_FM_CHECK, 32768);
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_TRUE(world.ui.boxes[0].text.contains("Error 6 (Overflow)"))
        << world.ui.boxes[0].text.toStdString();
    read("", "[AUTO_DOWNLOAD]\r\n32767\r\n");
    EXPECT_EQ(program.tweaks.AUTO_DOWNLOAD, 32767);
    EXPECT_EQ(world.ui.boxes.size(), 1u);
}

TEST_F(Ini_Reading, Other_line_ends_and_encodings_are_understood) {
    read("[T1GAME]\nC:\\caf\xE9\n[T2GAME]\rC:\\T2\r");
    EXPECT_EQ(program.ini.T1_GAME_LOCATION, QString::fromUtf8("C:\\café"));
    EXPECT_EQ(program.ini.T2_GAME_LOCATION, "C:\\T2");
    read("\xEF\xBB\xBF[T1GAME]\r\nC:\\\xC5\xBD\r\n");
    EXPECT_EQ(program.ini.T1_GAME_LOCATION, QString::fromUtf8("C:\\Ž"));
}

TEST_F(Ini_Reading, A_list_of_a_thousand_folders_is_read_whole) {
    QByteArray list;
    for (int folder = 0; folder < 1000; ++folder)
        list += "C:\\" + QByteArray(100, 'x') + QByteArray::number(folder) + "\\*#*";
    read("[T1]\r\n" + list + "\r\n");
    EXPECT_EQ(program.ini.T1_LOCATION.toUtf8(), list);
}

TEST_F(Ini_Reading, Bytes_that_are_no_ini_file_leave_the_defaults) {
    QByteArray noise;
    for (int byte = 0; byte < 4096; ++byte)
        noise += static_cast<char>((byte * 31 + byte / 7) & 0xFF);
    read(noise, noise);
    EXPECT_EQ(program.tweaks.STARTUP_PAGE, "VANTROSK NOTES");
    EXPECT_EQ(program.ini.LANGUAGE, "ENGLISH");
    EXPECT_FALSE(program.first_run);
}

TEST_F(Ini_Reading, A_language_that_is_set_stays) {
    read("[LANGUAGE]\r\nFRENCH\r\n");
    EXPECT_EQ(program.ini.LANGUAGE, "FRENCH");
    read("[LANGUAGE]\r\n\r\n");
    EXPECT_EQ(program.ini.LANGUAGE, "ENGLISH");
}

TEST_F(Ini_Reading, An_address_file_names_another_server) {
    program.server_base_url = "http://before.example";
    world.write("home/VK_URL.txt", "hTTp://other.example  \r\nhttp://second.example\r\n");
    read("");
    EXPECT_EQ(program.server_base_url, "hTTp://other.example");
}

TEST_F(Ini_Reading, An_address_file_without_an_address_at_its_start_names_none) {
    program.server_base_url = "http://before.example";
    for (const char *content :
         {"", "\r\nhttp://second.example", " http://blank.example", "ftp://x", "HTTPS://x"}) {
        world.write("home/VK_URL.txt", content);
        read("");
        EXPECT_EQ(program.server_base_url, "http://before.example") << content;
    }
}

TEST_F(Ini_Reading, The_trace_tells_of_the_defaults) {
    program.trace.enabled = true;
    Set_Display_Defaults(program);
    EXPECT_EQ(world.ui.trace,
              QStringList({"FUNCTIONS: Set_Display_Defaults", "FUNCTIONS: set_default_fonts"}));
}

TEST_F(Ini_Reading, The_default_fonts_are_four_families_and_nothing_else) {
    program.tweaks.FMLISTSFONT.name = "Courier";
    program.tweaks.TITLEFONT.size = 99;
    set_default_fonts(program);
    EXPECT_EQ(program.tweaks.TITLEFONT.name, "MS Sans Serif");
    EXPECT_EQ(program.tweaks.SUBTITLEFONT.name, "MS Sans Serif");
    EXPECT_EQ(program.tweaks.WARNINGSFONT.name, "MS Sans Serif");
    EXPECT_EQ(program.tweaks.OTHERTEXTFONT.name, "MS Sans Serif");
    EXPECT_EQ(program.tweaks.FMLISTSFONT.name, "Courier");
    EXPECT_EQ(program.tweaks.TITLEFONT.size, 99);
}
