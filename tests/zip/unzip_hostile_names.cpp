#include "Archive_Bytes.h"

#include "support/World.h"
#include "zip/mUnzip.h"

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

struct Name_Row {
    const char *name;
    bool safe;      ///< under its folders
    bool safe_flat; ///< its last part alone
};

/// Stored names, and whether they may be extracted.
const Name_Row rows[] = {
    {"a.txt", true, true},
    {"a/b.txt", true, true},
    {"a\\b.txt", true, true},
    {"./a.txt", true, true},
    {"a/./b.txt", true, true},
    {"a//b.txt", true, true},
    {".hidden", true, true},
    {"..hidden", true, true},
    {"a/..b/c", true, true},
    {"a b/c d.txt", true, true},
    {" leading blank", true, true},
    {"...a", true, true},
    {"../x", false, true},
    {"..\\x", false, true},
    {"a/../../x", false, true},
    {"a/../x", false, true},
    {"a\\..\\..\\x", false, true},
    {"..", false, false},
    {".", false, false},
    {"a/..", false, false},
    {"", false, false},
    {"/x", false, true},
    {"\\x", false, true},
    {"//server/share/x", false, true},
    {"\\\\server\\share\\x", false, true},
    {"/etc/passwd", false, true},
    {"C:\\x", false, true},
    {"C:/x", false, true},
    {"C:x", false, false},
    {"c:", false, false},
    {"a/C:/x", false, true},
    {"a.txt:stream", false, false},
    {"a:b/c", false, true},
    {"line\nbreak", false, false},
    {"tab\t", false, false},
    {"esc\x1b[31m", false, false},
    {"delete\x7f", false, false},
    {"bad\r/x", false, true},
    {"nbsp control \xc2\x85", false, false},
    {"trailing.", false, false},
    {"trailing ", false, false},
    {"dots...", false, false},
    {"folder./x", false, true},
    {"folder /x", false, true},
    {".. /x", false, true},
    {". ./x", false, true},
    {".../x", false, true},
};

TEST(Entry_Names, The_safe_ones_are_told_from_the_unsafe_ones) {
    for (const Name_Row &row : rows)
        EXPECT_EQ(Is_safe_entry_name(QString::fromUtf8(row.name)), row.safe) << row.name;
}

class Hostile_Names : public testing::TestWithParam<bool> {};

TEST_P(Hostile_Names, An_unsafe_name_is_listed_but_never_written_and_neither_is_what_stands_before_it) {
    for (const Name_Row &row : rows) {
        World world;
        world.write("m.zip", Archive_bytes({{"innocent.txt", "1"}, {row.name, "evil"}}));
        world.make_folder("one/two/out");
        cUnzip unzip(*world.platform.files);
        unzip.ZipFile = world.windows("m.zip");
        unzip.UnzipFolder = world.windows("one/two/out");
        unzip.UseFolderNames = GetParam();
        ASSERT_FALSE(unzip.Directory());
        EXPECT_EQ(unzip.FileCount(), 2) << row.name;
        EXPECT_TRUE(unzip.FileIsSafe(1));
        EXPECT_EQ(unzip.FileIsSafe(2), row.safe) << row.name;
        EXPECT_FALSE(unzip.FileIsSafe(3));
        Snapshot before = world.snapshot("");

        const Fault fault = unzip.Unzip();
        const bool safe = GetParam() ? row.safe : row.safe_flat;
        EXPECT_EQ(fault.kind, safe ? Fault_Kind::none : Fault_Kind::outside) << row.name;
        if (!safe) {
            EXPECT_EQ(world.snapshot(""), before) << row.name;
            continue;
        }
        const Snapshot after = world.snapshot("");
        for (const auto &[name, content] : after)
            EXPECT_TRUE(before.count(name) || name.startsWith("one/two/out/")) << name.toStdString();
        EXPECT_EQ(world.read("one/two/out/innocent.txt"), "1");
    }
}

TEST_P(Hostile_Names, An_unsafe_name_that_is_not_selected_does_no_harm) {
    for (const Name_Row &row : rows) {
        World world;
        world.write("m.zip", Archive_bytes({{row.name, "evil"}, {"innocent.txt", "1"}}));
        cUnzip unzip(*world.platform.files);
        unzip.ZipFile = world.windows("m.zip");
        unzip.UnzipFolder = world.windows("out");
        unzip.UseFolderNames = GetParam();
        ASSERT_FALSE(unzip.Directory());
        unzip.FileSelected(1, false);
        EXPECT_FALSE(unzip.Unzip()) << row.name;
        EXPECT_EQ(world.snapshot("out"), (Snapshot{{"innocent.txt", "1"}})) << row.name;
    }
}

INSTANTIATE_TEST_SUITE_P(With_and_without_folders, Hostile_Names, testing::Bool());

TEST(Hostile_Names_Text, The_fault_names_entry_and_archive) {
    World world;
    world.write("m.zip", Archive_bytes({{"../x", "evil"}}));
    cUnzip unzip(*world.platform.files);
    unzip.ZipFile = world.windows("m.zip");
    unzip.UnzipFolder = world.windows("out");
    unzip.UseFolderNames = true;
    EXPECT_EQ(unzip.Unzip().text, "\"..\\x\" in \"m.zip\" is not a name that can be unzipped.");
}

} // namespace
} // namespace vantrosk
