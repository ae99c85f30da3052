#include "platform/Staged_File.h"
#include "support/World.h"

#include <QFileInfo>

#include <gtest/gtest.h>

#include <cerrno>

namespace vantrosk {
namespace {

TEST(Staged_File, Is_at_its_place_only_when_it_is_kept) {
    World world;
    world.write("a.txt", "old");
    {
        Staged_File file(world.native("a.txt"), world.native("a.tmp"));
        ASSERT_FALSE(file.open());
        ASSERT_FALSE(file.write("new content", 11));
        EXPECT_EQ(world.read("a.txt"), "old");
    }
    EXPECT_EQ(world.read("a.txt"), "old");
    EXPECT_FALSE(world.exists("a.tmp"));
    Staged_File file(world.native("a.txt"), world.native("a.tmp"));
    ASSERT_FALSE(file.open());
    ASSERT_FALSE(file.write("new content", 11));
    ASSERT_FALSE(file.keep());
    EXPECT_EQ(world.read("a.txt"), "new content");
    EXPECT_FALSE(world.exists("a.tmp"));
}

TEST(Staged_File, Writes_in_the_middle_and_goes_on_behind) {
    World world;
    Staged_File file(world.native("a.txt"), world.native("a.tmp"));
    ASSERT_FALSE(file.open());
    ASSERT_FALSE(file.write("0123456789", 10));
    ASSERT_FALSE(file.write_at(2, "ab", 2));
    ASSERT_FALSE(file.write("c", 1));
    ASSERT_FALSE(file.write_at(file.size(), "x", 1));
    ASSERT_FALSE(file.keep());
    EXPECT_EQ(world.read("a.txt"), "01abc56789x");
}

TEST(Staged_File, Can_be_read_back_before_it_is_kept) {
    World world;
    Staged_File file(world.native("a.txt"), world.native("a.tmp"));
    ASSERT_FALSE(file.open());
    ASSERT_FALSE(file.write("content", 7));
    ASSERT_FALSE(file.close());
    EXPECT_EQ(world.read("a.tmp"), "content");
    EXPECT_EQ(file.temporary(), world.native("a.tmp"));
    ASSERT_FALSE(file.keep());
    EXPECT_EQ(world.read("a.txt"), "content");
}

TEST(Staged_File, A_date_is_set_to_the_second) {
    World world;
    const QDateTime date(QDate(1999, 12, 31), QTime(23, 59, 58));
    Staged_File file(world.native("a.txt"), world.native("a.tmp"));
    ASSERT_FALSE(file.open());
    ASSERT_FALSE(file.keep(date));
    EXPECT_EQ(QFileInfo(world.native("a.txt")).lastModified(), date);
}

TEST(Staged_File, A_leftover_of_the_temporary_name_is_removed) {
    World world;
    world.write("a.tmp", "left by a killed program, and longer");
    Staged_File file(world.native("a.txt"), world.native("a.tmp"));
    ASSERT_FALSE(file.open());
    ASSERT_FALSE(file.write("new", 3));
    ASSERT_FALSE(file.keep());
    EXPECT_EQ(world.read("a.txt"), "new");
    EXPECT_FALSE(world.exists("a.tmp"));
}

TEST(Staged_File, A_folder_that_is_missing_or_in_the_way_is_a_fault) {
    World world;
    Staged_File missing(world.native("no/a.txt"), world.native("no/a.tmp"));
    EXPECT_EQ(missing.open().kind, Fault_Kind::not_found);
    world.write("a.tmp/inside", "x");
    Staged_File blocked(world.native("a.txt"), world.native("a.tmp"));
    EXPECT_EQ(blocked.open().kind, Fault_Kind::exists);
    EXPECT_TRUE(world.exists("a.tmp/inside"));
    world.write("folder/inside", "x");
    Staged_File replaces(world.native("folder"), world.native("b.tmp"));
    ASSERT_FALSE(replaces.open());
    EXPECT_EQ(replaces.keep().kind, Fault_Kind::exists);
    replaces.remove();
    EXPECT_FALSE(world.exists("b.tmp"));
    EXPECT_TRUE(world.exists("folder/inside"));
}

struct Number_Case {
    int number;
    Fault_Kind kind;
    const char *text;
};

TEST(System_Faults, Each_number_has_its_kind_and_sentence) {
    const Number_Case cases[] = {
        {ENOSPC, Fault_Kind::no_space, "There is no space to write \"x\"."},
        {EFBIG, Fault_Kind::no_space, "There is no space to write \"x\"."},
        {EDQUOT, Fault_Kind::no_space, "There is no space to write \"x\"."},
        {EACCES, Fault_Kind::no_access, "\"x\" may not be written: Permission denied."},
        {EPERM, Fault_Kind::no_access, "\"x\" may not be written: Operation not permitted."},
        {EROFS, Fault_Kind::no_access, "\"x\" may not be written: Read-only file system."},
        {ENOENT, Fault_Kind::not_found, "There is no folder for \"x\"."},
        {EISDIR, Fault_Kind::exists, "Something of the name \"x\" is in the way."},
        {EEXIST, Fault_Kind::exists, "Something of the name \"x\" is in the way."},
        {ENOTDIR, Fault_Kind::exists, "Something of the name \"x\" is in the way."},
        {ENOTEMPTY, Fault_Kind::exists, "Something of the name \"x\" is in the way."},
        {EIO, Fault_Kind::other, "\"x\" could not be written: Input/output error."},
    };
    for (const Number_Case &row : cases) {
        const Fault fault = Fault_of_system(row.number, "x");
        EXPECT_EQ(fault.kind, row.kind) << row.text;
        EXPECT_EQ(fault.text, row.text);
        EXPECT_EQ(fault.number, row.number);
    }
}

} // namespace
} // namespace vantrosk
