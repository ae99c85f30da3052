#include "install/Install_World.h"

#include <QFile>

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

struct Folder_Case {
    const char *game;
    const char *removed; ///< folders that go when the mission leaves them empty, joined by ","
    const char *kept;    ///< those that stay
};

void PrintTo(const Folder_Case &row, std::ostream *out) {
    *out << row.game;
}

constexpr const char *dark_folders =
    "bitmap,books,camera,default,editor,fam,intrface,mesh,motions,obj,pal,schema,snd,song,strings";

class Removal_Folders : public testing::TestWithParam<Folder_Case> {};

TEST_P(Removal_Folders, Go_by_the_games_table) {
    const Folder_Case &row = GetParam();
    const bool is_custom = QLatin1String(row.game) == "CUSTOM";
    Install_World world(is_custom ? "T2" : row.game);
    if (is_custom)
        world.program().SELECTED_GAME_TAB = "CUSTOM";
    const QStringList removed = QString(row.removed).split(',', Qt::SkipEmptyParts);
    const QStringList kept = QString(row.kept).split(',');
    std::vector<Zip_Entry> entries{{"x.str", "x", {}}};
    for (const QString &folder : removed + kept)
        entries.push_back({folder.toUtf8() + "/Sub/file.gif", "x", {}});
    world.mission("m.zip", entries);
    ASSERT_TRUE(world.install("m.zip"));
    ASSERT_TRUE(world.restore());
    const QString base = QLatin1String(row.game) == "DOOM" ? "base/" : "";
    for (const QString &folder : removed)
        EXPECT_FALSE(world.exists(world.in_game(base + folder))) << folder.toStdString();
    for (const QString &folder : kept) {
        EXPECT_TRUE(world.exists(world.in_game(base + folder + "/Sub"))) << folder.toStdString();
        EXPECT_FALSE(world.exists(world.in_game(base + folder + "/Sub/file.gif"))) << folder.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Games, Removal_Folders,
    testing::Values(Folder_Case{"T1", dark_folders, "book,cutscenes,maps"},
                    Folder_Case{"TG", dark_folders, "book,cutscenes,maps"},
                    Folder_Case{"T2", dark_folders, "book,cutscenes,iface,objicon,snd2"},
                    Folder_Case{"T2X", dark_folders, "book,cutscenes,maps"},
                    Folder_Case{"DM", dark_folders, "book,cutscenes,maps"},
                    Folder_Case{"T3", "Fan Mission Extras", "books,Content"},
                    Folder_Case{"SS2",
                                "book,cutscenes,fam,Iface,intrface,mesh,obj,objicon,snd,snd2,song,strings",
                                "books,bitmap,camera,motions"},
                    Folder_Case{"DMOD", "", "fam,strings,books"},
                    Folder_Case{"DOOM", "", "fam,strings,books"},
                    Folder_Case{"CUSTOM", "", "fam,strings,books"}));

TEST(Removal_Folder, With_another_file_in_it_stays) {
    Install_World world;
    world.game_has("fam/own.gif", "the game's");
    world.mission("m.zip", {{"fam/a/b.gif", "x"}, {"strings/c.str", "x"}});
    ASSERT_TRUE(world.install("m.zip"));
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(Names(world.game()), (QStringList{"fam/", "fam/own.gif"}));
    const QStringList log = world.finished_log();
    EXPECT_EQ(log.lastIndexOf("//" + world.game_path("strings")), log.indexOf("[DELETING_FOLDERS]") + 1);
    EXPECT_LT(log.lastIndexOf("//" + world.game_path("fam")), log.indexOf("[DELETING_FOLDERS]"));
}

TEST(Removal_Files, Are_found_in_any_spelling_and_by_the_exact_one_first) {
    Install_World world;
    world.game_has("current_install.txt",
                   "[ZIP LOCATION]\r\nC:\\x\\m.zip\r\n[ZIP NAME]\r\nm.zip\r\n[ZIP CONTENTS]\r\n" +
                       world.game_path("FAM\\ONE.GIF").toUtf8() + "\r\n" +
                       world.game_path("fam\\two.gif").toUtf8() + "\r\n" +
                       world.game_path("fam\\missing.gif").toUtf8() + "\r\n");
    world.game_has("Fam/One.gif", "of the mission");
    world.game_has("Fam/two.gif", "of the mission");
    world.game_has("Fam/TWO.GIF", "the game's, on a disk that tells letters apart");
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.game(),
              (Snapshot{{"Fam/", {}}, {"Fam/TWO.GIF", "the game's, on a disk that tells letters apart"}}));
    const QStringList log = world.finished_log();
    for (const char *name : {"FAM\\ONE.GIF", "fam\\two.gif", "fam\\missing.gif"})
        EXPECT_TRUE(log.contains("//" + world.game_path(name))) << name;
}

TEST(Removal_Files, That_are_protected_go_all_the_same) {
    Install_World world;
    world.mission("m.zip", {{"a.str", "x"}, {"b.str", "y"}});
    ASSERT_TRUE(world.install("m.zip"));
    QFile::setPermissions(world.native(world.in_game("a.str")), QFile::ReadOwner);
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(Names(world.game()), QStringList());
}

} // namespace
} // namespace vantrosk
