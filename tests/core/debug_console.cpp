#include "Startup_World.h"

#include "core/Trace_Console.h"

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

/// A program that nothing was started of, and processes as a test says.
struct Console_World : World {
    struct Running : Scripted_Processes {
        std::map<QString, int> counts;
        int processors_of(const QString &name) const override {
            const auto found = counts.find(name);
            return found == counts.end() ? 0 : found->second;
        }
    };

    Console_World() {
        auto made = std::make_unique<Running>();
        running = made.get();
        platform.processes = std::move(made);
        bare = std::make_unique<Program>(platform, ui, windows("home"));
    }
    QString windows_home() const { return windows("home"); }

    Running *running = nullptr;
    std::unique_ptr<Program> bare;
};

constexpr const char *told_names =
    "CURRENT_GAME_PATH,CURRENT_GAME,CURRENT_LOCATION,TEXTFILENAME,SQL,SAVE_SCORE_NOW,MISSIONFILE,PREVIOUS_"
    "ZIP,WELCOMEPIC,HELPCONTEXT,T1_GAME_LOCATION,T1_LOCATION,TG_GAME_LOCATION,TG_LOCATION,T2_GAME_LOCATION,"
    "T2_LOCATION,T3_GAME_LOCATION,T3_LOCATION,T3_SAVE_GAME_LOCATION,DMOD_GAME_LOCATION,DMOD_LOCATION,DMOD_"
    "INSTALLED,SS2_GAME_LOCATION,SS2_LOCATION,DOWNLOADS_URL,THIEF1_AFFINITY,THIEF2_AFFINITY,OBJECT_REGX,"
    "OBJECT_RECSET";

} // namespace

TEST(Trace_Console, Opens_with_its_notice) {
    EXPECT_EQ(Trace_console_notice(),
              "The Debug Console should help diagnose any issues with Vantrosk and how it installs FMs.\r\n"
              "NOTE: information may not always be simply put.");
    EXPECT_STREQ(trace_console_title, "Debug Console");
    EXPECT_STREQ(trace_variables_heading, "Available Variables:");
    EXPECT_STREQ(previous_debug_logs_caption, "View Previous Debug Logs");
}

TEST(Trace_Console, Offers_the_variables_in_their_order) {
    EXPECT_EQ(Trace_variable_names().join(","), told_names);
}

TEST(Trace_Console, Every_variable_shows_its_value) {
    Console_World world;
    Program &program = *world.bare;
    program.CURRENT_GAME_PATH = "C:\\Thief2";
    program.CURRENT_GAME = "T2";
    program.CURRENT_LOCATION = "C:\\Zips";
    program.TEXTFILENAME = "readme.txt";
    program.SQL = "SELECT 1";
    program.SAVE_SCORE_NOW = true;
    program.MISSIONFILE = "miss20.mis";
    program.PREVIOUS_ZIP = "old.zip";
    program.WELCOMEPIC = "welcome.jpg";
    program.HELPCONTEXT = "help";
    Main_Ini &ini = program.ini;
    ini.T1_GAME_LOCATION = "1";
    ini.T1_LOCATION = "2";
    ini.TG_GAME_LOCATION = "3";
    ini.TG_LOCATION = "4";
    ini.T2_GAME_LOCATION = "5";
    ini.T2_LOCATION = "6";
    ini.T3_GAME_LOCATION = "7";
    ini.T3_LOCATION = "8";
    ini.T3_SAVE_GAME_LOCATION = "9";
    ini.DMOD_GAME_LOCATION = "10";
    ini.DMOD_LOCATION = "11";
    ini.DMOD_INSTALLED = true;
    ini.SS2_GAME_LOCATION = "12";
    ini.SS2_LOCATION = "13";
    ini.DOWNLOADS_URL = "14";
    world.running->counts = {{"thief1.exe", 1}, {"thief2.exe", 4}, {"thief2.icd", 2}};
    EXPECT_EQ(Trace_variables(program), (QStringList{"CURRENT_GAME_PATH: C:\\Thief2",
                                                     "CURRENT_GAME: T2",
                                                     "CURRENT_LOCATION: C:\\Zips",
                                                     "TEXTFILENAME: readme.txt",
                                                     "SQL: SELECT 1",
                                                     "SAVE_SCORE_NOW: True",
                                                     "MISSIONFILE: miss20.mis",
                                                     "PREVIOUS_ZIP: old.zip",
                                                     "WELCOMEPIC: welcome.jpg",
                                                     "HELPCONTEXT: help",
                                                     "T1_GAME_LOCATION: 1",
                                                     "T1_LOCATION: 2",
                                                     "TG_GAME_LOCATION: 3",
                                                     "TG_LOCATION: 4",
                                                     "T2_GAME_LOCATION: 5",
                                                     "T2_LOCATION: 6",
                                                     "T3_GAME_LOCATION: 7",
                                                     "T3_LOCATION: 8",
                                                     "T3_SAVE_GAME_LOCATION: 9",
                                                     "DMOD_GAME_LOCATION: 10",
                                                     "DMOD_LOCATION: 11",
                                                     "DMOD_INSTALLED: True",
                                                     "SS2_GAME_LOCATION: 12",
                                                     "SS2_LOCATION: 13",
                                                     "DOWNLOADS_URL: 14",
                                                     "THIEF1_EXE_AFFINITY: 1",
                                                     "THIEF2_EXE_AFFINITY: 4",
                                                     "THIEF2_ICD_AFFINITY: 2",
                                                     "OBJECT_FSO: True",
                                                     "OBJECT_RECSET: False"}));
}

TEST(Trace_Console, One_variable_is_shown_by_its_exact_name) {
    Console_World world;
    EXPECT_EQ(Trace_variable(*world.bare, "SAVE_SCORE_NOW"), QStringList{"SAVE_SCORE_NOW: False"});
    EXPECT_EQ(Trace_variable(*world.bare, "DMOD_INSTALLED"), QStringList{"DMOD_INSTALLED: False"});
    EXPECT_EQ(Trace_variable(*world.bare, "CURRENT_GAME"), QStringList{"CURRENT_GAME: "});
    EXPECT_EQ(Trace_variable(*world.bare, "THIEF2_AFFINITY"),
              (QStringList{"THIEF2_EXE_AFFINITY: ", "THIEF2_ICD_AFFINITY: "}));
    EXPECT_EQ(Trace_variable(*world.bare, "current_game"), QStringList());
    EXPECT_EQ(Trace_variable(*world.bare, ""), QStringList());
}

TEST(Trace_Console, The_trace_box_is_exported_over_an_older_export) {
    Console_World world;
    world.write("home/debug_trace.log", QByteArray(5000, 'o'));
    set_debug(*world.bare, true);
    debug_print(*world.bare, "FUNCTIONS: Žluť");
    debug_print(*world.bare, "STARTUP: two");
    Export_trace(*world.bare);
    EXPECT_EQ(world.read("home/debug_trace.log"), "FUNCTIONS: Žluť\r\nSTARTUP: two\r\n");
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_EQ(world.ui.boxes[0].kind, Box_Kind::information);
    EXPECT_EQ(world.ui.boxes[0].text, "Debug info saved as '" + world.native("home/debug_trace.log") + "'");
}

TEST(Trace_Console, An_export_that_can_not_be_written_is_traced_only) {
    Console_World world;
    world.make_folder("home/debug_trace.log/in the way");
    set_debug(*world.bare, true);
    Export_trace(*world.bare);
    EXPECT_TRUE(world.ui.boxes.empty());
    ASSERT_EQ(world.ui.trace.size(), 1);
    EXPECT_TRUE(world.ui.trace[0].startsWith("DEBUGGER: debug_trace.log not written: "));
}

TEST(Trace_Console, Logs_of_earlier_crashes_are_found_the_latest_first) {
    Console_World world;
    const QDateTime day(QDate(2026, 11, 1), QTime(12, 0));
    const std::pair<const char *, int> files[] = {
        {"debug_01_11.log", 3}, {"debug_24_12.log", 1}, {"DEBUG_30_10.LOG", 5}};
    for (const auto &[name, days] : files) {
        world.write(QString("home/") + name, "log");
        ASSERT_FALSE(
            world.platform.files->set_modified(world.windows_home() + "\\" + name, day.addDays(days)));
    }
    for (const char *other : {"debug.log", "debug_trace.log", "debug_check.log", "debug_1_11.log",
                              "debug_01_11.log.old", "mydebug_01_11.log"})
        world.write(QString("home/") + other, "other");
    world.make_folder("home/debug_02_02.log");
    set_debug(*world.bare, true);
    EXPECT_EQ(Previous_debug_logs(*world.bare), (QStringList{world.windows_home() + "\\DEBUG_30_10.LOG",
                                                             world.windows_home() + "\\debug_01_11.log",
                                                             world.windows_home() + "\\debug_24_12.log"}));
    EXPECT_EQ(world.ui.trace, QStringList{"DEBUGGER: Checking for previous debug log files."});
}

TEST(Trace_Console, Without_a_folder_there_are_no_earlier_logs) {
    Console_World world;
    Program elsewhere(world.platform, world.ui, world.windows_home() + "\\nowhere");
    EXPECT_EQ(Previous_debug_logs(elsewhere), QStringList());
}

} // namespace vantrosk
