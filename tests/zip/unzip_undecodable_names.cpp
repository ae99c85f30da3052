#include "platform/Native_Text.h"
#include "support/World.h"
#include "zip/mUnzip.h"
#include "zip/mZip.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace vantrosk {
namespace {

/// A folder whose name, and the names in it, are no UTF-8.
class Undecodable : public testing::Test {
protected:
    Undecodable() {
        std::filesystem::create_directories(folder);
        world.zip("plain.zip", {{"a.txt", "first"}, {"below/b.txt", "second"}});
        std::filesystem::rename(world.native("plain.zip").toStdString(), folder / "\xE9.zip");
    }
    ~Undecodable() override {
        // The temporary folder could not.
        std::error_code none;
        std::filesystem::remove_all(folder, none);
    }
    QString windows(const char *name) const {
        return world.platform.files->to_windows(
            Native_text(QByteArray::fromStdString((folder / name).string())));
    }
    std::string content(const char *name) const {
        std::ifstream file(folder / name);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    World world;
    const std::filesystem::path folder = world.native("x").toStdString() + "\xFF";
};

TEST_F(Undecodable, A_zip_is_listed_and_unzipped) {
    cUnzip unzip(*world.platform.files);
    unzip.ZipFile = windows("\xE9.zip");
    unzip.UnzipFolder = windows("out\xC3");
    unzip.UseFolderNames = true;
    ASSERT_FALSE(unzip.Directory()) << unzip.Directory().text.toStdString();
    EXPECT_EQ(unzip.FileCount(), 2);
    EXPECT_EQ(unzip.Read_entry(1, 100).value, "first");
    ASSERT_FALSE(unzip.Unzip());
    EXPECT_EQ(content("out\xC3/a.txt"), "first");
    EXPECT_EQ(content("out\xC3/below/b.txt"), "second");
}

TEST_F(Undecodable, Files_come_back_from_an_archive_under_their_names) {
    std::filesystem::create_directories(folder / "in" / "d\xE9");
    for (const char *name : {"in/\xA9.txt", "in/d\xE9/back\\slash", "in/d\xE9/\xEF\x83\xA9"})
        std::ofstream(folder / name) << name;
    cZip zip(*world.platform.files);
    zip.ZipFile = windows("made\xE9.zip");
    zip.BasePath = windows("in");
    zip.StoreFolderNames = true;
    zip.RecurseSubDirs = true;
    zip.AddFileSpec("*.*");
    const Fault made = zip.Zip();
    ASSERT_FALSE(made) << made.text.toStdString();
    ASSERT_TRUE(Unzip_Files(*world.platform.files, windows("made\xE9.zip"), windows("out")));
    for (const char *name : {"\xA9.txt", "d\xE9/back\\slash", "d\xE9/\xEF\x83\xA9"})
        EXPECT_EQ(content((std::string("out/") + name).c_str()), std::string("in/") + name);
    // A second time they are found where they are.
    ASSERT_TRUE(Unzip_Files(*world.platform.files, windows("made\xE9.zip"), windows("out")));
    std::size_t count = 0;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(folder / "out"))
        count += entry.is_regular_file() ? 1 : 0;
    EXPECT_EQ(count, 3U);
}

} // namespace
} // namespace vantrosk
