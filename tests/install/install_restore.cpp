#include "core/mdlFile_Functions.h"
#include "install/Install_World.h"
#include "install/undo/Undo_List.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

const QDateTime long_ago(QDate(2000, 1, 1), QTime(12, 0));
const QDateTime far_ahead(QDate(2040, 1, 1), QTime(12, 0));

/// A Thief 2 folder with files that the mission below overwrites, and a player's saves.
void Set_up_thief2(Install_World &world) {
    world.game_has("thief2.exe", "the game");
    world.game_has("convict.osm", "script of the game");
    world.game_has("darkinst.cfg", "cd_path .\r\nlanguage english\r\n");
    world.game_has("books/plaque.str", "original plaque");
    world.game_has("Obj/txt16/wood.gif", "original wood");
    world.game_has("snd/horn.wav", "original horn");
    world.game_has("SAVES/game0001.sav", "first save of the originals");
    world.game_has("SAVES/quick.SAV", "quick save of the originals");
    world.game_has("SAVES/readme.txt", "no save");
}

std::vector<Zip_Entry> Mission_a() {
    return {{"miss20.mis", "map of A", {}},
            {"BOOKS/Plaque.str", "plaque of A", {}},
            {"strings/title.str", "title of A", {}},
            {"obj/txt16/WOOD.gif", "wood of A", {}},
            {"obj/new/deep/er/x.bin", "object of A", {}},
            {"convict.osm", "newer script", far_ahead},
            {"own.osm", "script of A", long_ago},
            {"movies/intro.avi", "film", {}},
            {"readme", "no extension", {}},
            {"x[1].txt", "brackets", {}},
            {"setup.exe", "program", {}}};
}

TEST(Install_And_Restore, The_mission_is_in_the_game_folder_as_the_rules_say) {
    Install_World world;
    Set_up_thief2(world);
    world.mission("a.zip", Mission_a());
    ASSERT_TRUE(world.install("a.zip")) << world.ui.trace.join("\n").toStdString();
    EXPECT_EQ(world.game_file("miss20.mis"), "map of A");
    EXPECT_EQ(world.game_file("books/plaque.str"), "plaque of A");
    EXPECT_EQ(world.game_file("convict.osm"), "newer script");
    EXPECT_EQ(world.game_file("own.osm"), "script of A");
    EXPECT_FALSE(world.exists(world.in_game("readme")));
    EXPECT_FALSE(world.exists(world.in_game("x[1].txt")));
    EXPECT_FALSE(world.exists(world.in_game("setup.exe")));
    EXPECT_FALSE(world.exists(world.in_game("SAVES/game0001.sav")));
    EXPECT_EQ(world.game_file("SAVES/readme.txt"), "no save");
    EXPECT_EQ(world.listed(),
              (QStringList{"BOOKS/Plaque.str", "convict.osm", "miss20.mis", "movies/intro.avi",
                           "obj/new/deep/er/x.bin", "obj/txt16/WOOD.gif", "own.osm", "strings/title.str"}));
}

TEST(Install_And_Restore, The_undo_list_begins_with_location_and_name) {
    Install_World world;
    world.mission("a.zip", {{"miss20.mis", "x", {}}, {"b.str", "y", {}}});
    ASSERT_TRUE(world.install("a.zip"));
    const QString zip = world.windows("fms/T2") + "\\a.zip";
    const QString text = "[ZIP LOCATION]\r\n" + zip + "\r\n[ZIP NAME]\r\na.zip\r\n[ZIP CONTENTS]\r\n" +
                         world.game_path("b.str") + "\r\n" + world.game_path("miss20.mis") + "\r\n";
    EXPECT_EQ(QString::fromUtf8(world.undo_list()), text);
}

TEST(Install_And_Restore, A_restore_brings_the_whole_game_folder_back_byte_for_byte) {
    Install_World world;
    Set_up_thief2(world);
    const Snapshot before = world.game();
    world.mission("a.zip", Mission_a());
    ASSERT_TRUE(world.install("a.zip"));
    EXPECT_NE(world.game(), before);
    ASSERT_TRUE(world.restore());
    Snapshot after = world.game();
    // A folder that is not among the game's own mission folders stays, empty.
    EXPECT_EQ(after.erase("movies/"), 1u);
    EXPECT_EQ(Names(after), Names(before));
    EXPECT_EQ(after, before);
    EXPECT_FALSE(world.exists(world.in_game("original_backup.zip")));
    EXPECT_EQ(world.undo_list(), "[ZIP LOCATION]\r\nOriginal\r\n[ZIP NAME]\r\n\r\n[ZIP CONTENTS]\r\n\r\n");
}

TEST(Install_And_Restore, One_mission_over_another_leaves_nothing_of_the_first) {
    Install_World world;
    Set_up_thief2(world);
    const Snapshot before = world.game();
    world.mission("a.zip", Mission_a());
    world.mission("b.zip", {{"miss21.mis", "map of B", {}},
                            {"books/plaque.str", "plaque of B", {}},
                            {"snd/horn.wav", "horn of B", {}}});
    ASSERT_TRUE(world.install("a.zip"));
    ASSERT_TRUE(world.install("b.zip"));
    Snapshot expected = before;
    expected["movies/"] = {};
    expected["miss21.mis"] = "map of B";
    expected["books/plaque.str"] = "plaque of B";
    expected["snd/horn.wav"] = "horn of B";
    for (const char *gone : {"SAVES/game0001.sav", "SAVES/quick.SAV"})
        expected.erase(gone);
    Snapshot after = world.game();
    EXPECT_EQ(after.erase("original_backup.zip"), 1u);
    EXPECT_EQ(Names(after), Names(expected));
    EXPECT_EQ(after, expected);
    ASSERT_TRUE(world.restore());
    Snapshot restored = world.game();
    restored.erase("movies/");
    EXPECT_EQ(restored, before);
}

TEST(Install_And_Restore, The_backup_holds_what_was_overwritten_and_nothing_else) {
    Install_World world;
    Set_up_thief2(world);
    world.mission("a.zip", Mission_a());
    ASSERT_TRUE(world.install("a.zip"));
    QStringList names;
    for (const Zip_Entry &entry : Read_zip(world.native(world.in_game("original_backup.zip"))))
        names << QString::fromUtf8(entry.name).toLower() + "=" + QString::fromUtf8(entry.content);
    EXPECT_EQ(Sorted(names),
              (QStringList{"books/plaque.str=original plaque", "convict.osm=script of the game",
                           "obj/txt16/wood.gif=original wood"}));
}

TEST(Install_And_Restore, A_mission_that_overwrites_nothing_makes_no_backup) {
    Install_World world;
    world.mission("a.zip", {{"miss20.mis", "x", {}}, {"b.str", "y", {}}});
    ASSERT_TRUE(world.install("a.zip"));
    EXPECT_FALSE(world.exists(world.in_game("original_backup.zip")));
}

TEST(Install_And_Restore, Each_mission_keeps_its_own_saves) {
    Install_World world;
    Set_up_thief2(world);
    const Snapshot before = world.game();
    world.mission("a.zip", {{"miss20.mis", "x", {}}, {"a.str", "y", {}}});
    world.mission("b.zip", {{"miss21.mis", "x", {}}, {"b.str", "y", {}}});
    ASSERT_TRUE(world.install("a.zip"));
    world.game_has("SAVES/game0001.sav", "save of A");
    ASSERT_TRUE(world.install("b.zip"));
    EXPECT_FALSE(world.exists(world.in_game("SAVES/game0001.sav")));
    world.game_has("SAVES/quick.sav", "save of B");
    ASSERT_TRUE(world.install("a.zip"));
    EXPECT_EQ(world.game_file("SAVES/game0001.sav"), "save of A");
    EXPECT_FALSE(world.exists(world.in_game("SAVES/quick.sav")));
    ASSERT_TRUE(world.install("b.zip"));
    EXPECT_EQ(world.game_file("SAVES/quick.sav"), "save of B");
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.game(), before);
    EXPECT_EQ(world.saves_archive("saves_a.zip"), (Snapshot{{"game0001.sav", "save of A"}}));
    EXPECT_EQ(world.saves_archive("saves_b.zip"), (Snapshot{{"quick.sav", "save of B"}}));
}

TEST(Install_And_Restore, Restoring_twice_keeps_what_was_played_in_between) {
    Install_World world;
    Set_up_thief2(world);
    world.mission("a.zip", {{"miss20.mis", "x", {}}, {"a.str", "y", {}}});
    ASSERT_TRUE(world.install("a.zip"));
    ASSERT_TRUE(world.restore());
    world.game_has("SAVES/game0001.sav", "played on");
    world.game_has("SAVES/game0002.sav", "a new one");
    const Snapshot played = world.whole_game();
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.whole_game(), played);
}

TEST(Install_And_Restore, Restoring_a_game_that_never_had_a_mission_changes_only_the_marker) {
    Install_World world;
    Set_up_thief2(world);
    const Snapshot before = world.game();
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.game(), before);
    EXPECT_EQ(world.undo_list(), "[ZIP LOCATION]\r\nOriginal\r\n[ZIP NAME]\r\n\r\n[ZIP CONTENTS]\r\n\r\n");
}

TEST(Install_And_Restore, Installing_the_mission_that_is_there_changes_nothing) {
    Install_World world;
    Set_up_thief2(world);
    world.mission("a.zip", Mission_a());
    ASSERT_TRUE(world.install("a.zip"));
    world.game_has("SAVES/game0007.sav", "mine");
    const Snapshot first = world.game();
    const QByteArray list = world.undo_list();
    ASSERT_TRUE(world.install("a.zip"));
    Snapshot second = world.game();
    EXPECT_EQ(Names(second), Names(first));
    EXPECT_EQ(second["SAVES/game0007.sav"], "mine");
    EXPECT_EQ(world.undo_list(), list);
}

TEST(Install_And_Restore, A_script_that_is_as_new_stays_and_is_not_listed) {
    Install_World world;
    world.game_has("convict.osm", "script of the game");
    ASSERT_FALSE(world.platform.files->set_modified(world.game_path("convict.osm"),
                                                    QDateTime(QDate(2004, 6, 12), QTime(10, 0))));
    world.mission("a.zip", {{"convict.osm", "same age", QDateTime(QDate(2004, 6, 12), QTime(10, 0))},
                            {"a.mis", "x", {}},
                            {"b.mis", "x", {}}});
    ASSERT_TRUE(world.install("a.zip"));
    EXPECT_EQ(world.game_file("convict.osm"), "script of the game");
    EXPECT_EQ(world.listed(), (QStringList{"a.mis", "b.mis"}));
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.game_file("convict.osm"), "script of the game");
}

TEST(Install_And_Restore, A_mission_of_one_file_is_left_at_the_next_install) {
    Install_World world;
    world.mission("one.zip", {{"miss20.mis", "the only file", {}}});
    ASSERT_TRUE(world.install("one.zip"));
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.game_file("miss20.mis"), "the only file");
}

TEST(Install_And_Restore, A_one_file_mission_that_overwrote_a_game_file_gives_it_back) {
    Install_World world;
    world.game_has("miss20.mis", "the game's own");
    world.mission("one.zip", {{"miss20.mis", "the only file", {}}});
    ASSERT_TRUE(world.install("one.zip"));
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.game_file("miss20.mis"), "the game's own");
}

TEST(Install_And_Restore, A_one_file_mission_of_a_custom_game_is_removed) {
    Install_World world;
    world.program().SELECTED_GAME_TAB = "CUSTOM";
    world.program().CURRENT_GAME = "MYGAME";
    world.mission("one.zip", {{"miss20.mis", "the only file", {}}});
    ASSERT_TRUE(world.install("one.zip"));
    EXPECT_EQ(world.listed(), QStringList{"miss20.mis"});
    ASSERT_TRUE(world.restore());
    EXPECT_FALSE(world.exists(world.in_game("miss20.mis")));
}

TEST(Install_And_Restore, Folders_with_other_files_and_folders_of_no_table_stay) {
    Install_World world;
    world.game_has("mesh/own.bin", "mine");
    world.mission("a.zip", {{"mesh/a.bin", "x", {}}, {"extra/a.bin", "x", {}}, {"snd/deep/a.wav", "x", {}}});
    ASSERT_TRUE(world.install("a.zip"));
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(Names(world.game()), (QStringList{"extra/", "mesh/", "mesh/own.bin"}));
}

TEST(Install_And_Restore, A_game_in_a_folder_named_like_a_mission_folder_is_not_emptied_round_it) {
    Install_World world;
    world.make_folder("books/T2");
    world.make_folder("books/empty");
    world.game_folder = world.list_folder = "books/T2";
    world.program().CURRENT_GAME_PATH = world.windows("books/T2");
    world.mission("a.zip", {{"books/a.str", "x", {}}, {"strings/b.str", "x", {}}});
    ASSERT_TRUE(world.install("a.zip"));
    ASSERT_TRUE(world.restore());
    EXPECT_TRUE(world.exists("books/empty"));
    EXPECT_FALSE(world.exists("books/T2/books"));
    EXPECT_FALSE(world.exists("books/T2/strings"));
}

TEST(Install_And_Restore, Write_protected_files_are_replaced_and_come_back) {
    Install_World world;
    world.game_has("books/plaque.str", "original plaque");
    QFile::setPermissions(world.native(world.in_game("books/plaque.str")), QFile::ReadOwner);
    world.mission("a.zip", {{"books/plaque.str", "plaque of A", {}}, {"books/b.str", "x", {}}});
    ASSERT_TRUE(world.install("a.zip"));
    EXPECT_EQ(world.game_file("books/plaque.str"), "plaque of A");
    QFile::setPermissions(world.native(world.in_game("books/b.str")), QFile::ReadOwner);
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.game_file("books/plaque.str"), "original plaque");
    EXPECT_FALSE(world.exists(world.in_game("books/b.str")));
}

TEST(Install_And_Restore, A_name_with_a_comma_and_other_letters_is_backed_up_and_undone) {
    Install_World world;
    world.game_has("a, b/Žluť, c.str", "original");
    const Snapshot before = world.game();
    world.mission("a.zip", {{"a, b/Žluť, c.str", "new", {}}, {"x.str", "x", {}}});
    ASSERT_TRUE(world.install("a.zip"));
    EXPECT_EQ(world.game_file("a, b/Žluť, c.str"), "new");
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.game(), before);
}

TEST(Install_And_Restore, Lines_that_point_elsewhere_are_passed_over_with_one_warning) {
    Install_World world;
    world.write("elsewhere/precious.txt", "mine");
    world.write("elsewhere/second.txt", "mine too");
    world.game_has("a.str", "of the mission");
    QDir().mkpath(world.native("elsewhere/linked"));
    world.write("elsewhere/linked/inner.txt", "behind a link");
    QFile::link(world.native("elsewhere/linked"), world.native(world.in_game("link")));
    const QByteArray root = world.game_path().toUtf8();
    world.game_has("current_install.txt",
                   "[ZIP LOCATION]\r\nC:\\f\\k.zip\r\n[ZIP NAME]\r\nk.zip\r\n[ZIP CONTENTS]\r\n" +
                       world.windows("elsewhere/precious.txt").toUtf8() + "\r\n" + root +
                       "\\..\\..\\elsewhere\\second.txt\r\n" + root + "\\link\\inner.txt\r\n" + root +
                       "\\a.str\r\n");
    const Snapshot elsewhere = world.snapshot("elsewhere");
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.snapshot("elsewhere"), elsewhere);
    EXPECT_FALSE(world.exists(world.in_game("a.str")));
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_TRUE(world.ui.boxes[0].text.contains(world.windows("elsewhere")));
    EXPECT_EQ(world.finished_log().filter("Passed over").size(), 3);
}

} // namespace
} // namespace vantrosk
