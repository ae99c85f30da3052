#include "ui/qt/Window_Main.h"

#include <QDir>

#include <gtest/gtest.h>

namespace vantrosk {

TEST(Window_Options, Words_of_the_command_line) {
    const Window_Options options =
        Read_window_options({"--home", "/a b", "/debug", "--offer-demo", "--tour", "/pictures", "/resetdb"});
    EXPECT_EQ(options.home, "/a b");
    EXPECT_EQ(options.tour_folder, "/pictures");
    EXPECT_TRUE(options.offer_demo);
    EXPECT_FALSE(options.show_help);
    EXPECT_EQ(options.switches, "/debug /resetdb");
    EXPECT_EQ(options.fault, "");
}

TEST(Window_Options, Nothing_is_asked_for_by_default) {
    const Window_Options options = Read_window_options({});
    EXPECT_EQ(options.home + options.tour_folder + options.switches + options.fault, "");
    EXPECT_FALSE(options.offer_demo);
    EXPECT_FALSE(options.quit_when_shown);
    EXPECT_TRUE(Read_window_options({"--quit-when-shown"}).quit_when_shown);
}

TEST(Window_Options, A_folder_is_read_from_where_the_program_was_started) {
    EXPECT_EQ(Read_window_options({"--home", "x"}).home, QDir::current().absoluteFilePath("x"));
}

TEST(Window_Options, A_wrong_word_is_a_fault) {
    EXPECT_EQ(Read_window_options({"--home"}).fault, "--home needs a folder");
    EXPECT_EQ(Read_window_options({"--tour"}).fault, "--tour needs a folder");
    for (const char *size : {"", "big", "10x10", "1280", "1280x800x2", "-1280x800"})
        EXPECT_EQ(Read_window_options({"--size", size}).fault, "--size needs a size") << size;
    EXPECT_EQ(Read_window_options({"--size", "1024x700"}).size, QSize(1024, 700));
    EXPECT_EQ(Read_window_options({"--fast"}).fault, "unknown option --fast");
    EXPECT_EQ(Read_window_options({"scan"}).fault, "unknown option scan");
    EXPECT_TRUE(Read_window_options({"--help"}).show_help);
}

} // namespace vantrosk
