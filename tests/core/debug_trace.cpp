#include "core/mdlDebug.h"
#include "support/World.h"

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

/// A program that nothing was started of.
struct Debug_World : World {
    Debug_World() : bare(platform, ui, windows("home")) {}
    Program bare;
};

const std::string log_start = "Debug log started at 19/11/2026 22:14:05\r\n"
                              "===========================================\r\n";

} // namespace

TEST(Trace, Nothing_is_kept_while_it_is_off) {
    Debug_World world;
    EXPECT_FALSE(debug_enabled(world.bare));
    debug_print(world.bare, "FUNCTIONS: one");
    EXPECT_EQ(world.bare.trace.last, "");
    EXPECT_EQ(world.bare.trace.text, "");
    EXPECT_EQ(world.ui.trace, QStringList());
}

TEST(Trace, A_line_goes_to_the_box_and_to_the_face) {
    Debug_World world;
    set_debug(world.bare, true);
    EXPECT_TRUE(debug_enabled(world.bare));
    debug_print(world.bare, "FUNCTIONS: one");
    debug_print(world.bare, "MAIN FORM: two");
    EXPECT_EQ(world.bare.trace.last, "MAIN FORM: two");
    EXPECT_EQ(world.bare.trace.text, "FUNCTIONS: one\r\nMAIN FORM: two\r\n");
    EXPECT_EQ(world.ui.trace, (QStringList{"FUNCTIONS: one", "MAIN FORM: two"}));
    set_debug(world.bare, false);
    debug_print(world.bare, "three");
    EXPECT_EQ(world.bare.trace.last, "MAIN FORM: two");
}

TEST(Trace, An_empty_text_leaves_the_box_alone) {
    Debug_World world;
    set_debug(world.bare, true);
    debug_print(world.bare, "one");
    debug_print(world.bare, "");
    EXPECT_EQ(world.bare.trace.last, "");
    EXPECT_EQ(world.bare.trace.text, "one\r\n");
    EXPECT_EQ(world.ui.trace, QStringList{"one"});
}

namespace {

struct Pausing_Ui : Recording_Ui {
    QStringList pauses;
    void trace_pause(const QString &prompt) override { pauses << prompt; }
};

} // namespace

TEST(Trace, A_pause_holds_only_with_a_prompt_and_the_trace_on) {
    World world;
    Pausing_Ui ui;
    Program program(world.platform, ui, world.windows("home"));
    debug_pause(program, "off");
    set_debug(program, true);
    debug_pause(program, "");
    EXPECT_EQ(ui.pauses, QStringList());
    debug_pause(program, "About to read ini");
    EXPECT_EQ(ui.pauses, QStringList{"About to read ini"});
}

TEST(Debug_Log, Is_begun_anew_and_takes_the_gathered_lines) {
    Debug_World world;
    world.write("home/debug.log", "old");
    Start_debug_log(world.bare);
    EXPECT_EQ(world.read("home/debug.log").toStdString(), log_start);
    Write_debug_log(world.bare, "Clearing the Flexgrid ");
    Write_debug_log(world.bare, "Scanning Žluť.zip");
    EXPECT_EQ(world.read("home/debug.log").toStdString(), log_start);
    Flush_debug_log(world.bare);
    Flush_debug_log(world.bare);
    EXPECT_EQ(world.read("home/debug.log").toStdString(),
              log_start + "Clearing the Flexgrid \r\nScanning Žluť.zip\r\n");
    Write_debug_log(world.bare, debug_log_rule);
    Flush_debug_log(world.bare);
    EXPECT_EQ(world.read("home/debug.log").toStdString(),
              log_start + "Clearing the Flexgrid \r\nScanning Žluť.zip\r\n" +
                  "===========================================\r\n");
    Start_debug_log(world.bare);
    EXPECT_EQ(world.read("home/debug.log").toStdString(), log_start);
}

TEST(Debug_Log, Lines_of_an_older_scan_do_not_reach_a_new_log) {
    Debug_World world;
    Write_debug_log(world.bare, "left over");
    Start_debug_log(world.bare);
    Flush_debug_log(world.bare);
    EXPECT_EQ(world.read("home/debug.log").toStdString(), log_start);
}

TEST(Debug_Log, A_long_scan_reaches_the_disk_while_it_runs) {
    Debug_World world;
    Start_debug_log(world.bare);
    for (int line = 0; line < 100; ++line)
        Write_debug_log(world.bare, QString(1000, 'x'));
    EXPECT_GT(world.read("home/debug.log").size(), 60'000);
    Flush_debug_log(world.bare);
    EXPECT_EQ(world.read("home/debug.log").size(), static_cast<qsizetype>(log_start.size()) + 100 * 1002);
}

TEST(Debug_Log, A_log_that_can_not_be_written_is_not_reported) {
    Debug_World world;
    world.make_folder("home/debug.log/in the way");
    Start_debug_log(world.bare);
    Write_debug_log(world.bare, "line");
    Flush_debug_log(world.bare);
    EXPECT_TRUE(world.ui.boxes.empty());
    EXPECT_EQ(world.bare.trace.log_lines, "");
}

} // namespace vantrosk
