#include "platform/Staged_File.h"
#include "platform/System_Fault.h"
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

TEST(Staged_File, Without_a_temporary_name_it_takes_one_beside_the_target_that_is_free) {
    World world;
    world.write("folder/a.txt", "old");
    Staged_File file(world.native("folder/a.txt"));
    EXPECT_EQ(file.temporary(), "");
    ASSERT_FALSE(file.open());
    EXPECT_EQ(QFileInfo(file.temporary()).absolutePath(), world.native("folder"));
    ASSERT_FALSE(file.write("new", 3));
    EXPECT_EQ(world.read("folder/a.txt"), "old");
    ASSERT_FALSE(file.keep());
    EXPECT_EQ(Names(world.snapshot("folder")), QStringList("a.txt"));
    EXPECT_EQ(world.read("folder/a.txt"), "new");
}

TEST(Staged_File, What_waits_for_the_disk_is_kept_in_the_same_way) {
    World world;
    world.write("a.txt", "old");
    const QDateTime date(QDate(1999, 12, 31), QTime(23, 59, 58));
    Staged_File file(world.native("a.txt"), world.native("a.tmp"));
    ASSERT_FALSE(file.open());
    ASSERT_FALSE(file.write("new", 3));
    ASSERT_FALSE(file.keep(date, Outlives::a_loss_of_power));
    EXPECT_EQ(world.read("a.txt"), "new");
    EXPECT_EQ(QFileInfo(world.native("a.txt")).lastModified(), date);
    EXPECT_FALSE(world.exists("a.tmp"));
    // Closed before, to be read back, it is opened once more for the wait.
    Staged_File closed(world.native("b.txt"), world.native("b.tmp"));
    ASSERT_FALSE(closed.open());
    ASSERT_FALSE(closed.write("new", 3));
    ASSERT_FALSE(closed.close());
    ASSERT_FALSE(closed.keep({}, Outlives::a_loss_of_power));
    EXPECT_EQ(world.read("b.txt"), "new");
}

TEST(Staged_File, The_rights_of_the_old_file_are_taken_over_and_a_link_is_replaced) {
    World world;
    world.write("a.txt", "old");
    QFile::setPermissions(world.native("a.txt"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    world.write("elsewhere.txt", "stays");
    ASSERT_TRUE(QFile::link("elsewhere.txt", world.native("link.txt")));
    for (const char *name : {"a.txt", "link.txt"}) {
        Staged_File file(world.native(name));
        ASSERT_FALSE(file.open());
        ASSERT_FALSE(file.write("new", 3));
        ASSERT_FALSE(file.keep());
        EXPECT_EQ(world.read(name), "new");
    }
    EXPECT_TRUE(QFileInfo(world.native("a.txt")).permission(QFile::ExeOwner));
    EXPECT_FALSE(QFileInfo(world.native("a.txt")).permission(QFile::ReadGroup));
    EXPECT_FALSE(QFileInfo(world.native("link.txt")).isSymLink());
    EXPECT_EQ(world.read("elsewhere.txt"), "stays");
}

struct Number_Case {
    int number;
    Fault_Kind kind;
    const char *reason;
};

class System_Faults : public testing::TestWithParam<Number_Case> {};

TEST_P(System_Faults, Each_number_has_its_kind_and_sentence) {
    const Fault fault = System_fault(GetParam().number, "write", "x");
    EXPECT_EQ(fault.kind, GetParam().kind);
    EXPECT_EQ(fault.text, QString("Could not write \"x\": %1.").arg(GetParam().reason));
    EXPECT_EQ(fault.number, GetParam().number);
}

constexpr Number_Case number_cases[] = {
    {ENOENT, Fault_Kind::not_found, "there is no such file or folder"},
    {ENOTDIR, Fault_Kind::not_found, "a part of its path is not a folder"},
    {ENXIO, Fault_Kind::not_found, "the device is not there"},
    {ENODEV, Fault_Kind::not_found, "the device is not there"},
    {ELOOP, Fault_Kind::not_found, "its links lead in a circle"},
    {EEXIST, Fault_Kind::exists, "something of that name is in the way"},
    {EISDIR, Fault_Kind::exists, "a folder of that name is in the way"},
    {ENOTEMPTY, Fault_Kind::exists, "the folder is not empty"},
    {EACCES, Fault_Kind::no_access, "the rights do not allow it"},
    {EPERM, Fault_Kind::no_access, "the system does not allow it"},
    {EROFS, Fault_Kind::no_access, "the medium is read-only"},
    {ETXTBSY, Fault_Kind::no_access, "the program is running"},
    {EBUSY, Fault_Kind::no_access, "it is in use"},
    {ENOSPC, Fault_Kind::no_space, "the disk is full"},
    {EDQUOT, Fault_Kind::no_space, "the disk quota is used up"},
    {EFBIG, Fault_Kind::no_space, "the file would be larger than the system allows"},
    {ENAMETOOLONG, Fault_Kind::other, "the name is too long"},
    {ENOEXEC, Fault_Kind::other, "it is not a program that this system can run"},
    {EIO, Fault_Kind::other, "Input/output error"},
};

INSTANTIATE_TEST_SUITE_P(Table, System_Faults, testing::ValuesIn(number_cases));

} // namespace
} // namespace vantrosk
