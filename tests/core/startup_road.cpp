#include "core/mdlFile_Functions.h"
#include "core/mdlFunctions.h"
#include "core/mdlStartup.h"
#include "support/World.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct Start : testing::Test {
    World world;

    std::unique_ptr<Program> made() {
        return std::make_unique<Program>(world.platform, world.ui, world.windows("home"));
    }
};

const QStringList folders{"temp",
                          "temp/VKIMAGES",
                          "temp/updates",
                          "temp/resources",
                          "info",
                          "info/VKIMAGES",
                          "tools",
                          "titles",
                          "resources",
                          "languages",
                          "VKIMAGES",
                          "MAP_IMAGES",
                          "cheats",
                          "Game_support",
                          "references",
                          "HTMLImages",
                          "custom_game_images",
                          "skins",
                          "skins/current",
                          "help/viewlets",
                          "Enhancements",
                          "Enhancements/T1",
                          "Enhancements/T2",
                          "Enhancements/T3",
                          "Enhancements/DMOD",
                          "Enhancements/SS2",
                          "ERRORS",
                          "ERRORS/Screenshots"};

} // namespace

TEST_F(Start, The_folders_are_made_in_an_empty_folder) {
    const auto program = made();
    Create_Folders(*program);
    QStringList expected{"help/"};
    for (const QString &folder : folders)
        expected << folder + "/";
    expected.sort();
    QStringList found = Names(world.snapshot("home"));
    found.sort();
    EXPECT_EQ(found, expected);
}

TEST_F(Start, A_folder_in_another_spelling_is_not_made_again) {
    world.make_folder("home/INFO/vkimages");
    const auto program = made();
    Create_Folders(*program);
    EXPECT_FALSE(world.exists("home/info"));
    EXPECT_FALSE(world.exists("home/INFO/VKIMAGES"));
}

TEST_F(Start, A_folder_that_can_not_be_made_does_not_hinder_the_others) {
    world.write("home/skins", "a file in the way");
    world.write("home/temp", "a file in the way");
    const auto program = made();
    Create_Folders(*program);
    EXPECT_TRUE(world.exists("home/ERRORS/Screenshots"));
    EXPECT_EQ(world.read("home/skins"), "a file in the way");
}

TEST_F(Start, A_first_start_makes_a_missing_folder_and_writes_no_settings) {
    Program program(world.platform, world.ui, world.windows("new/deep"));
    ASSERT_TRUE(Start_Program(program));
    EXPECT_TRUE(program.first_run);
    EXPECT_TRUE(world.exists("new/deep/Vantrosk.mdb"));
    EXPECT_TRUE(world.exists("new/deep/Enhancements/SS2"));
    EXPECT_FALSE(world.exists("new/deep/Vantrosk.ini"));
    EXPECT_FALSE(world.exists("new/deep/Vantrosk_Tweaks.ini"));
    EXPECT_EQ(program.tweaks.STARTUP_PAGE, "VANTROSK WELCOME");
    EXPECT_EQ(program.ini.LANGUAGE, "ENGLISH");
    EXPECT_EQ(program.server_base_url, "http://vantrosk.example");
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST_F(Start, A_start_with_both_files_is_no_first_run) {
    EXPECT_FALSE(Write_Main_Ini(world.program()));
    EXPECT_FALSE(Write_Tweaks_Ini(world.program()));
    EXPECT_FALSE(world.restart().first_run);
}

TEST_F(Start, A_program_folder_that_is_a_file_is_told_and_ends_the_start) {
    world.write("taken", "x");
    Program program(world.platform, world.ui, world.windows("taken"));
    EXPECT_FALSE(Start_Program(program));
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_EQ(world.ui.boxes[0].kind, Box_Kind::critical);
    EXPECT_EQ(world.read("taken"), "x");
}

TEST_F(Start, A_database_that_can_not_be_opened_is_told_and_ends_the_start) {
    world.make_folder("home/Vantrosk.mdb");
    const auto program = made();
    EXPECT_FALSE(Start_Program(*program));
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_EQ(world.ui.boxes[0].kind, Box_Kind::critical);
}

TEST_F(Start, The_trace_tells_the_stages_in_order) {
    const auto program = made();
    program->trace.enabled = true;
    ASSERT_TRUE(Start_Program(*program));
    const QStringList expected{"MAIN FORM: Form initialize started",
                               "Starting Debug Log",
                               "About to set defaults",
                               "FUNCTIONS: Set_Display_Defaults",
                               "FUNCTIONS: set_default_fonts",
                               "About to read ini",
                               "About to create folders",
                               "STARTUP: Cull Temp Files",
                               "STARTUP: Finished Culling Temp Files"};
    EXPECT_EQ(world.ui.trace.mid(0, expected.size()), expected);
    EXPECT_FALSE(
        world.ui.trace.contains("Database Table Checks not required as already done in this version"));
}

TEST_F(Start, The_tables_are_not_checked_again_once_the_version_notes_were_seen) {
    EXPECT_FALSE(Write_Main_Ini(world.program()));
    DB_Message_Seen(world.program(), "Version_Notes_14194");
    const auto program = made();
    program->trace.enabled = true;
    ASSERT_TRUE(Start_Program(*program));
    EXPECT_EQ(world.ui.trace.mid(world.ui.trace.size() - 2),
              QStringList({"Database Table Checks not required as already done in this version",
                           "Email Template Checks Took 0.00"}));
}

TEST_F(Start, The_tables_are_checked_when_the_main_file_is_missing_though_the_notes_were_seen) {
    DB_Message_Seen(world.program(), "Version_Notes_14194");
    const auto program = made();
    program->trace.enabled = true;
    ASSERT_TRUE(Start_Program(*program));
    EXPECT_FALSE(
        world.ui.trace.contains("Database Table Checks not required as already done in this version"));
}

TEST_F(Start, The_upgrade_has_made_its_tables) {
    EXPECT_EQ(db_Query(world.program(), "select * from table_Fav_Links").size(), 0);
    EXPECT_EQ(db_Query(world.program(), "select FM_name_SP from Table_Scores").size(), 0);
}

TEST_F(Start, Logs_over_3000000_bytes_are_deleted) {
    world.write("home/SQL_Log.log", QByteArray(3000001, 'x'));
    world.write("home/debug.log", QByteArray(3000001, 'x'));
    world.program();
    EXPECT_FALSE(world.exists("home/SQL_Log.log"));
    EXPECT_FALSE(world.exists("home/debug.log"));
}

TEST_F(Start, Logs_of_3000000_bytes_stay) {
    world.write("home/SQL_Log.log", QByteArray(3000000, 'x'));
    world.write("home/debug.log", QByteArray(3000000, 'x'));
    world.program();
    EXPECT_EQ(world.read("home/SQL_Log.log").size(), 3000000);
    EXPECT_EQ(world.read("home/debug.log").size(), 3000000);
}

TEST_F(Start, The_installation_gets_one_identity_and_keeps_it) {
    const QString identity = world.program().VKGUID;
    EXPECT_TRUE(identity.startsWith('{') && identity.endsWith('}') && identity.size() == 38)
        << identity.toStdString();
    EXPECT_EQ(world.platform.settings->value("GUID", "VKGUID"), identity);
    EXPECT_EQ(world.platform.settings->value("INSTALLPATH", "ProgramRoot"), world.windows("home"));
    EXPECT_EQ(world.restart().VKGUID, identity);
}

TEST_F(Start, The_place_of_the_program_is_stored_anew_when_it_moved) {
    (void)world.platform.settings->set_value("INSTALLPATH", "ProgramRoot", "C:\\elsewhere");
    (void)world.platform.settings->set_value("GUID", "VKGUID", "{mine}");
    EXPECT_EQ(world.program().VKGUID, "{mine}");
    EXPECT_EQ(world.platform.settings->value("INSTALLPATH", "ProgramRoot"), world.windows("home"));
}

TEST_F(Start, A_site_file_replaces_the_server) {
    world.write("home/VKSite.txt", "http://site.example/ \r\nhttp://second.example");
    EXPECT_EQ(world.program().server_base_url, "http://site.example/ ");
    world.write("home/VK_URL.txt", "HTTP://url.example \r\n");
    EXPECT_EQ(world.restart().server_base_url, "HTTP://url.example");
}

TEST_F(Start, A_site_file_with_another_scheme_replaces_nothing) {
    world.write("home/VKSite.txt", "ftp://site.example");
    EXPECT_EQ(world.program().server_base_url, "http://vantrosk.example");
}

TEST_F(Start, The_window_has_its_title) {
    EXPECT_EQ(world.program().screen.caption, "Vantrosk1.4194 - 3-March-09");
    EXPECT_EQ(world.ui.caption, "Vantrosk1.4194 - 3-March-09");
}

TEST_F(Start, Without_a_recovery_log_there_is_no_crash_evidence) {
    world.write("home/debug.log", "last steps");
    EXPECT_FALSE(Show_Crash_Evidence(world.program()));
    EXPECT_TRUE(world.ui.notes.isEmpty());
    EXPECT_EQ(world.read("home/debug.log"), "last steps");
}

TEST_F(Start, A_recovery_log_is_shown_and_the_debug_log_kept_under_the_day) {
    world.write("home/debug.log", "last steps");
    world.write("home/install_recover.log", "[UNZIPPING_FM]");
    EXPECT_TRUE(Show_Crash_Evidence(world.program()));
    EXPECT_EQ(world.ui.notes, QStringList({world.windows("home") + "\\install_recover.log"}));
    EXPECT_FALSE(world.exists("home/debug.log"));
    EXPECT_EQ(world.read("home/debug_19_11.log"), "last steps");
    EXPECT_EQ(world.read("home/install_recover.log"), "[UNZIPPING_FM]");
}

TEST_F(Start, A_second_crash_on_one_day_replaces_the_evidence_of_the_first) {
    world.write("home/debug_19_11.log", "first");
    world.write("home/debug.log", "second");
    world.write("home/install_recover.log", "x");
    EXPECT_TRUE(Show_Crash_Evidence(world.program()));
    EXPECT_EQ(world.read("home/debug_19_11.log"), "second");
}

TEST_F(Start, A_recovery_log_without_a_debug_log_is_shown_all_the_same) {
    world.write("home/install_recover.log", "x");
    EXPECT_TRUE(Show_Crash_Evidence(world.program()));
    EXPECT_EQ(world.ui.notes.size(), 1);
    EXPECT_FALSE(world.exists("home/debug_19_11.log"));
}

TEST_F(Start, The_end_deletes_its_own_leftovers_and_nothing_else) {
    Program &program = world.program();
    const Snapshot before = world.snapshot("home/temp");
    for (int page = 1; page <= 16; ++page)
        world.write(QString("home/temp/RSS_feed%1.htm").arg(page), "x");
    for (const char *name : {"Competitionform.htm", "Feedbackform.htm", "temprtf.txt", "temprtf.htm",
                             "Quillmarch.rss", "other.txt"})
        world.write(QString("home/temp/") + name, "x");
    program.trace.enabled = true;
    world.ui.panel_1.clear();
    Shut_Down(program);
    Snapshot expected = before;
    for (const char *name : {"RSS_feed1.htm", "RSS_feed16.htm", "Quillmarch.rss", "other.txt"})
        expected[name] = "x";
    EXPECT_EQ(world.snapshot("home/temp"), expected);
    EXPECT_EQ(world.ui.panel_1,
              QStringList({"Please wait while Vantrosk cleans up", "Clean up complete, shutting down"}));
    EXPECT_EQ(world.ui.trace, QStringList({"MAIN FORM: Form Unloading", "STARTUP: shutting down VK",
                                           "STARTUP: VK Shutdown module complete"}));
}

TEST_F(Start, A_feed_without_its_text_stays_at_the_end) {
    Program &program = world.program();
    world.write("home/temp/Quillmarch.rss", "x");
    Shut_Down(program);
    EXPECT_TRUE(world.exists("home/temp/Quillmarch.rss"));
}
