#include "install/undo/Undo_List.h"

#include "install/Install_World.h"
#include "support/Lasting_Files.h"

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

const QByteArray whole_list = "[ZIP LOCATION]\r\n"
                              "C:\\fms\\keep.zip\r\n"
                              "[ZIP NAME]\r\n"
                              "keep.zip\r\n"
                              "[ZIP CONTENTS]\r\n"
                              "C:\\T2\\books\\a.str\r\n"
                              "C:\\T2\\miss20.mis\r\n"
                              "C:\\T2\\snd\\\xc5\xbdlu\xc5\xa5.wav\r\n";

TEST(Undo_List, A_whole_list_gives_location_name_and_files) {
    Install_World world;
    world.game_has("current_install.txt", whole_list);
    const auto list = Read_undo_list(world.program(), world.game_path());
    ASSERT_TRUE(list);
    EXPECT_EQ(list->location, "C:\\fms\\keep.zip");
    EXPECT_EQ(list->zip_name, "keep.zip");
    EXPECT_EQ(list->files, (QStringList{"C:\\T2\\books\\a.str", "C:\\T2\\miss20.mis",
                                        QString::fromUtf8("C:\\T2\\snd\\\xc5\xbdlu\xc5\xa5.wav")}));
    EXPECT_FALSE(list->is_original());
}

TEST(Undo_List, A_list_that_is_cut_off_gives_the_files_that_are_there) {
    Install_World world;
    const QStringList all{"C:\\T2\\books\\a.str", "C:\\T2\\miss20.mis"};
    for (qsizetype length = 0; length <= whole_list.size(); ++length) {
        world.game_has("current_install.txt", whole_list.left(length));
        const auto list = Read_undo_list(world.program(), world.game_path());
        ASSERT_TRUE(list) << length;
        ASSERT_LE(list->files.size(), 3) << length;
        for (qsizetype i = 0; i < list->files.size() && i < all.size(); ++i)
            EXPECT_TRUE(all[i].startsWith(list->files[i])) << length;
        EXPECT_TRUE(QString("C:\\fms\\keep.zip").startsWith(list->location)) << length;
        EXPECT_TRUE(QString("keep.zip").startsWith(list->zip_name)) << length;
    }
}

TEST(Undo_List, A_letter_cut_in_half_does_not_change_how_the_other_lines_read) {
    Install_World world;
    world.game_has("current_install.txt",
                   "[ZIP LOCATION]\r\nC:\\f\\k.zip\r\n[ZIP NAME]\r\nk.zip\r\n[ZIP CONTENTS]\r\n"
                   "C:\\T2\\\xc5\xbd.str\r\nC:\\T2\\\xc5");
    const auto list = Read_undo_list(world.program(), world.game_path());
    ASSERT_TRUE(list);
    EXPECT_EQ(list->files.first(), QString::fromUtf8("C:\\T2\\\xc5\xbd.str"));
}

TEST(Undo_List, Blank_lines_and_blanks_round_a_line_are_passed_over) {
    Install_World world;
    world.game_has("current_install.txt",
                   "[zip location]\nC:\\f\\k.zip\n[Zip Name]\nk.zip\n[ZIP CONTENTS]\n\n"
                   "  C:\\T2\\a.str \n\n\n\tC:\\T2\\b.str\n   \n");
    const auto list = Read_undo_list(world.program(), world.game_path());
    ASSERT_TRUE(list);
    EXPECT_EQ(list->zip_name, "k.zip");
    EXPECT_EQ(list->files, (QStringList{"C:\\T2\\a.str", "C:\\T2\\b.str"}));
}

TEST(Undo_List, A_missing_name_line_does_not_swallow_the_next_heading) {
    Install_World world;
    world.game_has("current_install.txt",
                   "[ZIP LOCATION]\r\nC:\\f\\k.zip\r\n[ZIP NAME]\r\n[ZIP CONTENTS]\r\nC:\\T2\\a\r\n");
    const auto list = Read_undo_list(world.program(), world.game_path());
    ASSERT_TRUE(list);
    EXPECT_EQ(list->zip_name, "");
    EXPECT_EQ(list->files, QStringList{"C:\\T2\\a"});
}

TEST(Undo_List, No_list_and_a_folder_of_that_name_give_nothing) {
    Install_World world;
    EXPECT_FALSE(Read_undo_list(world.program(), world.game_path()));
    world.make_folder(world.in_game("current_install.txt"));
    EXPECT_FALSE(Read_undo_list(world.program(), world.game_path()));
}

TEST(Undo_List, What_is_written_are_these_bytes) {
    Install_World world;
    Undo_List list{"C:\\fms\\keep.zip", "keep.zip", {"C:\\T2\\a.str", "C:\\T2\\b.str"}};
    ASSERT_FALSE(Write_undo_list(world.program(), world.game_path(), list));
    EXPECT_EQ(world.undo_list(),
              "[ZIP LOCATION]\r\nC:\\fms\\keep.zip\r\n[ZIP NAME]\r\nkeep.zip\r\n[ZIP CONTENTS]\r\n"
              "C:\\T2\\a.str\r\nC:\\T2\\b.str\r\n");
    const auto read = Read_undo_list(world.program(), world.game_path());
    ASSERT_TRUE(read);
    EXPECT_EQ(read->files, list.files);
}

TEST(Undo_List, The_marker_of_the_originals_has_six_lines) {
    Install_World world;
    ASSERT_FALSE(WriteOriginalMarker(world.program(), world.game_path()));
    EXPECT_EQ(world.undo_list(), "[ZIP LOCATION]\r\nOriginal\r\n[ZIP NAME]\r\n\r\n[ZIP CONTENTS]\r\n\r\n");
    EXPECT_TRUE(Read_undo_list(world.program(), world.game_path())->is_original());
    world.switch_to("T2X");
    ASSERT_FALSE(WriteOriginalMarker(world.program(), world.game_path()));
    EXPECT_EQ(world.undo_list(),
              "[ZIP LOCATION]\r\nOriginal T2X\r\n[ZIP NAME]\r\n\r\n[ZIP CONTENTS]\r\n\r\n");
    EXPECT_TRUE(Read_undo_list(world.program(), world.game_path())->is_original());
}

struct Installed_Row {
    const char *location; ///< null for no list
    const char *row;
    const char *game;
    bool installed;
};

TEST(Undo_List, Who_is_installed_is_told_by_whole_names) {
    const std::vector<Installed_Row> rows{
        {nullptr, "Original", "T2", true},
        {nullptr, "Original DOOM3", "DOOM", true},
        {nullptr, "keep.zip", "T2", false},
        {nullptr, "originalsin.zip", "T2", false},
        {nullptr, "keep.zip", "T2X", true},
        {"C:\\fms\\keep.zip", "keep.zip", "T2", true},
        {"C:\\fms\\KEEP.ZIP", "keep.zip", "T2", true},
        {"C:\\fms\\thekeep.zip", "keep.zip", "T2", false},
        {"C:\\fms\\keep.zip", "thekeep.zip", "T2", false},
        {"C:\\fms\\keep.zip", "Original", "T2", false},
        {"C:\\fms\\originalsin.zip", "originalsin.zip", "T2", true},
        {"C:\\fms\\originalsin.zip", "Original", "T2", false},
        {"Original", "Original", "T2", true},
        {"ORIGINAL", "original", "T2", true},
        {"Original", "Original DOOM3", "DOOM", true},
        {"Original", "Original DMOD", "DMOD", true},
        {"Original", "keep.zip", "T2", false},
        {"Original", "originalsin.zip", "T2", false},
        {"Original", "Original", "T2X", false},
        {"Original T2X", "Original", "T2X", true},
        {"Original T2X", "Original", "T2", false},
        {"Original", "", "T2", false},
    };
    for (const Installed_Row &row : rows) {
        Install_World world;
        const bool is_zip = row.location && QByteArray(row.location).toLower().endsWith(".zip");
        if (row.location)
            world.game_has("current_install.txt", QByteArray("[ZIP LOCATION]\r\n") + row.location +
                                                      "\r\n[ZIP NAME]\r\n" + (is_zip ? "x.zip" : "") +
                                                      "\r\n[ZIP CONTENTS]\r\n");
        EXPECT_EQ(IsCurrentlyInstalled(world.program(), world.game_path(), row.row, row.game), row.installed)
            << (row.location ? row.location : "no list") << " | " << row.row << " | " << row.game;
    }
}

TEST(Undo_List, A_row_of_the_originals_begins_so_and_is_no_zip) {
    EXPECT_TRUE(Is_original_row("Original"));
    EXPECT_TRUE(Is_original_row("ORIGINAL DOOM3"));
    EXPECT_FALSE(Is_original_row("originalsin.zip"));
    EXPECT_FALSE(Is_original_row("My Original"));
    EXPECT_FALSE(Is_original_row(""));
}

TEST(Undo_List, Outlives_a_loss_of_power) {
    Install_World world;
    auto watched = std::make_unique<Lasting_Files>(std::move(world.platform.files));
    const Lasting_Files &files = *watched;
    world.platform.files = std::move(watched);
    Program program(world.platform, world.ui, world.windows("home"));
    Undo_List list;
    list.zip_name = "a.zip";
    ASSERT_FALSE(Write_undo_list(program, world.game_path(), list));
    EXPECT_EQ(files.lasting, QStringList{world.game_path("current_install.txt")});
}

} // namespace
} // namespace vantrosk
