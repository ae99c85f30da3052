#include "Startup_World.h"

#include "core/Window_State.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct Shut_Down_Test : testing::Test {
    Startup_World start;
    World &world = start.world;
    Program &program = start.program();

    void SetUp() override {
        ASSERT_TRUE(Start_Program(program));
        world.ui.panel_1.clear();
    }
    bool has(const QString &name) { return world.exists("home/temp/" + name); }
};

} // namespace

TEST_F(Shut_Down_Test, The_feed_is_packed_and_what_was_made_of_it_deleted) {
    world.write("home/temp/Quillmarch.txt", "the feed");
    world.write("home/temp/Quillmarch.rss", "raw");
    world.write("home/temp/other.txt", "x");
    Shut_Down(program);
    EXPECT_FALSE(has("Quillmarch.txt"));
    EXPECT_FALSE(has("Quillmarch.rss"));
    EXPECT_TRUE(has("other.txt"));
    const auto entries = Read_zip(world.native("home/temp/Quillmarch.zip"));
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].name, "Quillmarch.txt");
    EXPECT_EQ(entries[0].content, "the feed");
}

TEST_F(Shut_Down_Test, A_packed_feed_comes_back) {
    world.write("home/temp/Quillmarch.txt", "the feed");
    Shut_Down(program);
    world.ui.panel_1.clear();
    program.trace.enabled = true;
    Unzip_Stored_Feed_Files(program, "RSS");
    EXPECT_EQ(world.read("home/temp/Quillmarch.txt"), "the feed");
    EXPECT_TRUE(has("Quillmarch.zip"));
    EXPECT_EQ(world.ui.panel_1,
              QStringList({"Please wait while Vantrosk unpacks previously zipped files", "Files unzipped"}));
    EXPECT_EQ(world.ui.trace, QStringList({"STARTUP: Unzip Files", "STARTUP: Unzip Files Completed"}));
}

TEST_F(Shut_Down_Test, Only_the_two_kinds_unpack_the_feed) {
    world.zip("home/temp/Quillmarch.zip", {{"Quillmarch.txt", "stored", {}}});
    for (const char *kind : {"", "rss", "NEWS"}) {
        Unzip_Stored_Feed_Files(program, kind);
        EXPECT_FALSE(has("Quillmarch.txt")) << kind;
    }
    EXPECT_EQ(world.ui.panel_1.last(), "Files unzipped");
    Unzip_Stored_Feed_Files(program, "ALL");
    EXPECT_EQ(world.read("home/temp/Quillmarch.txt"), "stored");
}

TEST_F(Shut_Down_Test, A_stored_feed_that_is_no_zip_is_traced_and_nothing_written) {
    world.write("home/temp/Quillmarch.zip", "no zip");
    const Snapshot before = world.snapshot("home/temp");
    program.trace.enabled = true;
    Unzip_Stored_Feed_Files(program, "ALL");
    EXPECT_EQ(world.snapshot("home/temp"), before);
    EXPECT_EQ(world.ui.trace, QStringList({"STARTUP: Unzip Files", "STARTUP: Quillmarch.zip not unpacked",
                                           "STARTUP: Unzip Files Completed"}));
}

TEST_F(Shut_Down_Test, Without_a_stored_feed_there_is_nothing_to_unpack) {
    const Snapshot before = world.snapshot("home/temp");
    program.trace.enabled = true;
    Unzip_Stored_Feed_Files(program, "ALL");
    EXPECT_EQ(world.snapshot("home/temp"), before);
    EXPECT_EQ(world.ui.trace.size(), 2);
}

TEST_F(Shut_Down_Test, A_feed_that_can_not_be_packed_stays) {
    world.write("home/temp/Quillmarch.txt", "the feed");
    world.write("home/temp/Quillmarch.zip/in the way", "x");
    Shut_Down(program);
    EXPECT_EQ(world.read("home/temp/Quillmarch.txt"), "the feed");
    EXPECT_EQ(world.ui.panel_1.last(), "Clean up complete, shutting down");
}

TEST_F(Shut_Down_Test, The_window_status_is_saved_first_the_columns_then_the_form) {
    Window_Geometry &window = program.screen.window;
    window.is_there = true;
    window.width = 900, window.height = 600;
    window.column_widths = {10, 20};
    Shut_Down(program);
    EXPECT_EQ(world.ui.panel_1,
              QStringList({"Saving Status", "Status Saved", "Saving Status", "Status Saved",
                           "Please wait while Vantrosk cleans up", "Clean up complete, shutting down"}));
    EXPECT_EQ(world.platform.settings->value("FORMSETTINGS", "FORMWIDTH"), "900");
    EXPECT_EQ(world.platform.settings->value("FORMSETTINGS", "FLEXGRID_COLUMN1WIDTH"), "20");
    EXPECT_EQ(world.platform.settings->value("FORMSETTINGS", "FLEXGRIDHEIGHT"), "");
}

TEST_F(Shut_Down_Test, A_start_without_a_window_saves_no_status) {
    Shut_Down(program);
    EXPECT_EQ(world.ui.panel_1,
              QStringList({"Please wait while Vantrosk cleans up", "Clean up complete, shutting down"}));
    EXPECT_EQ(world.platform.settings->value("FORMSETTINGS", "FULLSCREEN"), "");
}

TEST_F(Shut_Down_Test, The_running_flag_is_cleared_and_the_audio_library_freed) {
    EXPECT_TRUE(program.start.is_running);
    Shut_Down(program);
    EXPECT_FALSE(program.start.is_running);
    EXPECT_EQ(start.audio->released, 1);
}
