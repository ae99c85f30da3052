#include "core/mdlFile_Functions.h"
#include "support/World.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct File_Helpers : testing::Test {
    World world;
    Program program{world.platform, world.ui, world.windows("home")};

    QString path(const QString &relative) const { return world.windows("home") + "\\" + relative; }
};

struct Size_Row {
    qint64 bytes;
    const char *text;
    const char *in_megabytes;
};

struct Name_Row {
    const char *path;
    bool forward;
    const char *name;
};

constexpr qint64 kilo = 1024, mega = kilo * 1024, giga = mega * 1024, tera = giga * 1024, peta = tera * 1024;

} // namespace

TEST(Format_Size, Each_unit_begins_at_its_power_of_two) {
    constexpr Size_Row rows[] = {
        {0, "0 Bytes", "0 Bytes"},
        {1, "1 Bytes", "1 Bytes"},
        {512, "512 Bytes", "512 Bytes"},
        {1023, "1023 Bytes", "1023 Bytes"},
        {1024, "1 KB", "0 MB"},
        {1536, "1.5 KB", "0 MB"},
        {1229, "1.2 KB", "0 MB"},
        {1300, "1.27 KB", "0 MB"},
        {1034, "1.01 KB", "0 MB"},
        {10486, "10.24 KB", "0.01 MB"},
        {512 * kilo, "512 KB", "0.5 MB"},
        {mega - 1, "1024 KB", "1 MB"},
        {mega, "1 MB", "1 MB"},
        {14889780, "14.2 MB", "14.2 MB"},
        {giga - 1, "1024 MB", "1024 MB"},
        {giga, "1 GB", "1 GB"},
        {giga + giga / 4, "1.25 GB", "1.25 GB"},
        {tera - 1, "1024 GB", "1024 GB"},
        {tera, "1 TB", "1 TB"},
        {peta - 1, "1024 TB", "1024 TB"},
        {peta, "1 PB", "1 PB"},
        {peta * 1024 - 1, "1024 PB", "1024 PB"},
        {peta * 1024, "", ""},
        {peta * 1024 + 1, "", ""},
    };
    for (const Size_Row &row : rows) {
        EXPECT_EQ(FormatSize(row.bytes).toStdString(), row.text) << row.bytes;
        EXPECT_EQ(FormatSize(row.bytes, true).toStdString(), row.in_megabytes) << row.bytes;
    }
}

TEST(Format_Size, A_half_goes_to_the_even_digit) {
    EXPECT_EQ(FormatSize(1152), "1.12 KB");
    EXPECT_EQ(FormatSize(1408), "1.38 KB");
    EXPECT_EQ(FormatSize(1153), "1.13 KB");
}

TEST(Names_In_Paths, The_file_name_is_behind_the_last_separator) {
    constexpr Name_Row rows[] = {
        {"C:\\Games\\T2\\miss1.mis", false, "miss1.mis"},
        {"C:\\Games\\T2\\", false, ""},
        {"miss1.mis", false, "miss1.mis"},
        {"books/English/page.str", false, "books/English/page.str"},
        {"books/English/page.str", true, "page.str"},
        {"C:\\Games\\T2", true, "C:\\Games\\T2"},
        {"", false, ""},
    };
    for (const Name_Row &row : rows)
        EXPECT_EQ(FileNameFromPath(row.path, row.forward).toStdString(), row.name) << row.path;
}

TEST(Names_In_Paths, The_folder_name_loses_one_separator_of_either_kind) {
    constexpr Name_Row rows[] = {
        {"C:\\Games\\T2\\", false, "T2"},
        {"C:\\Games\\T2/", false, "T2"},
        {"C:\\Games\\T2", false, "T2"},
        {"C:\\Games\\T2\\\\", false, ""},
        {"books/English/", true, "English"},
        {"books/English\\", true, "English"},
        {"English", true, "English"},
        {"\\", false, ""},
        {"", false, ""},
    };
    for (const Name_Row &row : rows)
        EXPECT_EQ(FolderNameFromPath(row.path, row.forward).toStdString(), row.name) << row.path;
}

TEST_F(File_Helpers, Files_and_folders_are_told_apart_without_regard_to_case) {
    world.write("home/Some.Txt", "x");
    world.make_folder("home/Some Folder");
    EXPECT_TRUE(FileExists(program, path("SOME.TXT")));
    EXPECT_FALSE(FileExists(program, path("some folder")));
    EXPECT_FALSE(FileExists(program, path("other.txt")));
    EXPECT_TRUE(FolderExists(program, path("some folder")));
    EXPECT_TRUE(FolderExists(program, path("some folder") + "\\"));
    EXPECT_FALSE(FolderExists(program, path("Some.Txt")));
    EXPECT_FALSE(FolderExists(program, path("other")));
    EXPECT_FALSE(FileExists(program, ""));
    EXPECT_FALSE(FolderExists(program, ""));
}

TEST_F(File_Helpers, A_protected_file_is_deleted) {
    world.write("home/locked.txt", "x");
    QFile::setPermissions(world.native("home/locked.txt"), QFileDevice::ReadOwner);
    EXPECT_FALSE(DeleteFileForced(program, path("locked.txt")));
    EXPECT_FALSE(world.exists("home/locked.txt"));
}

TEST_F(File_Helpers, A_missing_file_is_no_failure_to_delete) {
    EXPECT_FALSE(DeleteFileForced(program, path("missing.txt")));
    EXPECT_FALSE(DeleteFileForced(program, path("no folder\\missing.txt")));
}

TEST_F(File_Helpers, A_folder_is_not_deleted_as_a_file) {
    world.write("home/folder/file.txt", "x");
    EXPECT_TRUE(DeleteFileForced(program, path("folder")));
    EXPECT_TRUE(world.exists("home/folder/file.txt"));
}

TEST_F(File_Helpers, With_two_paths_the_second_goes_when_both_are_there) {
    world.write("home/a.txt", "a");
    world.write("home/b.txt", "b");
    EXPECT_FALSE(DeleteFileForced(program, path("missing.txt"), path("b.txt")));
    EXPECT_TRUE(world.exists("home/b.txt"));
    EXPECT_FALSE(DeleteFileForced(program, path("a.txt"), path("missing.txt")));
    EXPECT_TRUE(world.exists("home/a.txt"));
    EXPECT_FALSE(DeleteFileForced(program, path("a.txt"), path("b.txt")));
    EXPECT_EQ(Names(world.snapshot("home")), QStringList({"a.txt"}));
}

TEST_F(File_Helpers, A_move_leaves_the_content_at_its_new_place) {
    world.write("home/from.txt", "content");
    world.write("home/to.txt", "older");
    EXPECT_TRUE(MoveFileCopyDelete(program, path("from.txt"), path("to.txt")));
    EXPECT_EQ(world.snapshot("home"), Snapshot({{"to.txt", "content"}}));
}

TEST_F(File_Helpers, A_move_that_can_not_be_copied_keeps_both_files) {
    world.write("home/from.txt", "content");
    world.make_folder("home/folder");
    EXPECT_FALSE(MoveFileCopyDelete(program, path("from.txt"), path("folder")));
    EXPECT_EQ(world.read("home/from.txt"), "content");
    world.write("home/to.txt", "older");
    EXPECT_FALSE(MoveFileCopyDelete(program, path("missing.txt"), path("to.txt")));
    EXPECT_EQ(world.read("home/to.txt"), "older");
}

TEST_F(File_Helpers, A_move_onto_itself_loses_nothing) {
    world.write("home/file.txt", "content");
    EXPECT_TRUE(MoveFileCopyDelete(program, path("file.txt"), path("FILE.TXT")));
    EXPECT_EQ(world.snapshot("home"), Snapshot({{"file.txt", "content"}}));
}

TEST_F(File_Helpers, A_folder_is_made_with_its_parents) {
    EXPECT_TRUE(CreateFolderTree(program, path("one\\two\\three")));
    EXPECT_TRUE(CreateFolderTree(program, path("ONE\\Two\\four\\")));
    EXPECT_EQ(Names(world.snapshot("home")),
              QStringList({"one/", "one/two/", "one/two/four/", "one/two/three/"}));
}

TEST_F(File_Helpers, A_folder_below_a_file_is_not_made_and_the_trace_tells) {
    world.write("home/file", "x");
    program.trace.enabled = true;
    EXPECT_FALSE(CreateFolderTree(program, path("file\\folder")));
    ASSERT_EQ(world.ui.trace.size(), 1);
    EXPECT_TRUE(world.ui.trace[0].startsWith("File_Functions: Error In CreateFolderTree : ("));
}

TEST_F(File_Helpers, A_folder_is_emptied_of_its_files_and_keeps_its_folders) {
    world.write("home/INFO/a.txt", "x");
    world.write("home/INFO/locked.txt", "x");
    world.write("home/INFO/VKIMAGES/kept.gif", "x");
    world.write("home/outside/kept.txt", "x");
    QFile::setPermissions(world.native("home/INFO/locked.txt"), QFileDevice::ReadOwner);
    QFile::link(world.native("home/outside"), world.native("home/INFO/link to a folder"));
    QFile::link(world.native("home/outside/kept.txt"), world.native("home/INFO/link to a file"));
    Empty_folder_of_files(program, path("info\\"));
    EXPECT_EQ(Names(world.snapshot("home")), QStringList({"INFO/", "INFO/VKIMAGES/", "INFO/VKIMAGES/kept.gif",
                                                          "outside/", "outside/kept.txt"}));
}

TEST_F(File_Helpers, A_folder_that_is_missing_is_empty_already) {
    program.trace.enabled = true;
    Empty_folder_of_files(program, path("missing"));
    EXPECT_EQ(world.ui.trace, QStringList());
}
