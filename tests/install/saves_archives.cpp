#include "install/Install_World.h"
#include "install/Saves.h"

#include <QFile>

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

class Saves_World : public Install_World {
public:
    explicit Saves_World(const QString &game_code = "T2") : Install_World(game_code) {}

    bool pack(const QString &zip = "m.zip", Save_Packing packing = Save_Packing::replace) {
        return Zip_up_saves(program(), code, zip, program().CURRENT_GAME_PATH, packing);
    }
    bool unpack(const QString &zip = "m.zip", bool keep_live = false) {
        return Unzip_saves(program(), code, zip, program().CURRENT_GAME_PATH, keep_live);
    }
    /// An archive as any other program makes it: without its owner's name.
    void archive(const QString &name, const std::vector<Zip_Entry> &entries) {
        zip(in_game("allsaves/" + name), entries);
    }
    Snapshot live() const { return snapshot(in_game("SAVES")); }
    QStringList archives() const { return Names(snapshot(in_game("allsaves"))); }
};

TEST(Save_Archives, Nothing_to_archive_leaves_the_archive_as_it_is) {
    Saves_World world;
    world.archive("saves_m.zip", {{"a.sav", "kept"}});
    const QByteArray bytes = world.game_file("allsaves/saves_m.zip");
    world.make_folder(world.in_game("SAVES"));
    ASSERT_TRUE(world.pack());
    EXPECT_EQ(world.game_file("allsaves/saves_m.zip"), bytes);
    EXPECT_EQ(world.archives(), QStringList{"saves_m.zip"});
}

TEST(Save_Archives, A_save_that_the_player_deleted_does_not_come_back) {
    Saves_World world;
    world.game_has("SAVES/a.sav", "1");
    world.game_has("SAVES/b.sav", "2");
    ASSERT_TRUE(world.pack());
    ASSERT_TRUE(world.unpack());
    QFile::remove(world.native(world.in_game("SAVES/a.sav")));
    ASSERT_TRUE(world.pack());
    EXPECT_EQ(world.saves_archive("saves_m.zip"), (Snapshot{{"b.sav", "2"}}));
    // What the new archive lacks is not thrown away with the old one.
    EXPECT_EQ(world.saves_archive("saves_m.zip.VKBU"), (Snapshot{{"a.sav", "1"}, {"b.sav", "2"}}));
    ASSERT_TRUE(world.unpack());
    EXPECT_EQ(world.live(), (Snapshot{{"b.sav", "2"}}));
}

TEST(Save_Archives, Newer_saves_of_the_same_names_replace_the_archive_and_leave_no_backup) {
    Saves_World world;
    world.game_has("SAVES/a.sav", "1");
    ASSERT_TRUE(world.pack());
    world.game_has("SAVES/a.sav", "2");
    world.game_has("SAVES/b.sav", "3");
    ASSERT_TRUE(world.pack());
    EXPECT_EQ(world.saves_archive("saves_m.zip"), (Snapshot{{"a.sav", "2"}, {"b.sav", "3"}}));
    EXPECT_EQ(world.archives(), QStringList{"saves_m.zip"});
}

TEST(Save_Archives, After_an_unfinished_run_the_archive_keeps_what_is_not_live) {
    Saves_World world;
    world.archive("saves_m.zip", {{"a.sav", "old a"}, {"b.sav", "old b"}});
    world.game_has("SAVES/a.sav", "live a");
    ASSERT_TRUE(world.pack("m.zip", Save_Packing::merge));
    EXPECT_EQ(world.saves_archive("saves_m.zip"), (Snapshot{{"a.sav", "live a"}, {"b.sav", "old b"}}));
    EXPECT_EQ(world.saves_archive("saves_m.zip.VKBU"), (Snapshot{{"a.sav", "old a"}, {"b.sav", "old b"}}));
    EXPECT_EQ(world.live(), Snapshot());
}

TEST(Save_Archives, The_three_names_are_tried_in_their_order) {
    Saves_World world;
    world.archive("saves_v1_1.zip", {{"a.sav", "third"}});
    ASSERT_TRUE(world.unpack("v1.1.zip"));
    EXPECT_EQ(world.live(), (Snapshot{{"a.sav", "third"}}));
    world.archive("v1.1_saves.zip", {{"a.sav", "second"}});
    ASSERT_TRUE(world.unpack("v1.1.zip"));
    EXPECT_EQ(world.live(), (Snapshot{{"a.sav", "second"}}));
    world.archive("saves_v1.1.zip", {{"a.sav", "first"}});
    ASSERT_TRUE(world.unpack("v1.1.zip"));
    EXPECT_EQ(world.live(), (Snapshot{{"a.sav", "first"}}));
}

TEST(Save_Archives, Older_names_retire_when_the_new_archive_stands) {
    Saves_World world;
    world.archive("v1.1_saves.zip", {{"a.sav", "second"}});
    world.archive("saves_v1.1.zip", {{"a.sav", "first"}});
    world.game_has("SAVES/a.sav", "played on");
    ASSERT_TRUE(world.pack("v1.1.zip"));
    EXPECT_EQ(world.archives(),
              (QStringList{"saves_v1.1.zip.VKBU", "saves_v1_1.zip", "v1.1_saves.zip.VKBU"}));
    ASSERT_TRUE(world.unpack("v1.1.zip"));
    EXPECT_EQ(world.live(), (Snapshot{{"a.sav", "played on"}}));
}

TEST(Save_Archives, Older_names_stay_when_there_was_nothing_to_archive) {
    Saves_World world;
    world.archive("saves_v1.1.zip", {{"a.sav", "first"}});
    ASSERT_TRUE(world.pack("v1.1.zip"));
    EXPECT_EQ(world.archives(), QStringList{"saves_v1.1.zip"});
}

TEST(Save_Archives, Two_missions_of_one_archive_name_keep_their_saves_apart) {
    Saves_World world;
    world.game_has("SAVES/a.sav", "of v1.1");
    ASSERT_TRUE(world.pack("v1.1.zip"));
    ASSERT_TRUE(world.unpack("v1_1.zip"));
    EXPECT_EQ(world.live(), Snapshot());
    world.game_has("SAVES/a.sav", "of v1_1");
    ASSERT_TRUE(world.pack("v1_1.zip"));
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(world.unpack("v1.1.zip"));
        EXPECT_EQ(world.live(), (Snapshot{{"a.sav", "of v1.1"}})) << round;
        ASSERT_TRUE(world.pack("v1.1.zip"));
        ASSERT_TRUE(world.unpack("v1_1.zip"));
        EXPECT_EQ(world.live(), (Snapshot{{"a.sav", "of v1_1"}})) << round;
        ASSERT_TRUE(world.pack("v1_1.zip"));
    }
}

TEST(Save_Archives, The_archive_bears_the_name_of_its_mission) {
    Saves_World world;
    world.game_has("SAVES/a.sav", "x");
    ASSERT_TRUE(world.pack("v1.1.zip"));
    EXPECT_TRUE(world.game_file("allsaves/saves_v1_1.zip").endsWith("v1.1.zip"));
}

TEST(Save_Archives, Unpacking_leaves_live_saves_alone_when_asked_to) {
    Saves_World world;
    world.archive("saves_m.zip", {{"a.sav", "archived a"}, {"b.sav", "archived b"}});
    world.game_has("SAVES/A.sav", "live a");
    ASSERT_TRUE(world.unpack("m.zip", true));
    EXPECT_EQ(world.live(), (Snapshot{{"A.sav", "live a"}, {"b.sav", "archived b"}}));
    ASSERT_TRUE(world.unpack("m.zip"));
    EXPECT_EQ(world.live(), (Snapshot{{"A.sav", "archived a"}, {"b.sav", "archived b"}}));
}

TEST(Save_Archives, A_save_that_could_not_be_archived_is_moved_and_replaces_nothing) {
    Saves_World world;
    // No archive can be written where a folder stands.
    world.make_folder(world.in_game("allsaves/saves_m.zip/in_the_way"));
    world.game_has("allsaves/unsaved/a.sav", "from an earlier time");
    world.game_has("SAVES/a.sav", "mine");
    world.game_has("SAVES/b.sav", "mine too");
    EXPECT_TRUE(world.pack());
    EXPECT_EQ(world.live(), Snapshot());
    EXPECT_EQ(world.game_file("allsaves/unsaved/a.sav"), "from an earlier time");
    EXPECT_EQ(world.game_file("allsaves/unsaved/a (2).sav"), "mine");
    EXPECT_EQ(world.game_file("allsaves/unsaved/b.sav"), "mine too");
    EXPECT_EQ(world.ui.trace.filter("ERROR Zip File Not Created.").size(), 1);
}

TEST(Save_Archives, A_hostile_archive_does_not_write_outside_the_save_folder) {
    Saves_World world;
    world.archive("saves_m.zip", {{"../thief2.exe", "hostile"}, {"a.sav", "x"}});
    world.game_has("thief2.exe", "the game");
    EXPECT_FALSE(world.unpack());
    EXPECT_EQ(world.game_file("thief2.exe"), "the game");
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_TRUE(world.ui.boxes[0].text.contains("in procedure Unzip_saves of Form frmMain"));
}

TEST(Save_Archives, Doom_originals_only_grow_and_an_older_save_of_a_name_gets_a_dated_copy) {
    Saves_World world("DOOM");
    const QString name = "Original_DOOM3.zip";
    world.game_has("base/savegames/a.save", "first a");
    ASSERT_TRUE(world.pack(name));
    world.game_has("base/savegames/b.save", "b");
    ASSERT_TRUE(world.pack(name));
    EXPECT_EQ(world.saves_archive("saves_Original_DOOM3.zip"),
              (Snapshot{{"a.save", "first a"}, {"b.save", "b"}}));
    EXPECT_EQ(world.archives(), QStringList{"saves_Original_DOOM3.zip"});
    world.game_has("base/savegames/a.save", "second a");
    ASSERT_TRUE(world.pack(name));
    EXPECT_EQ(world.saves_archive("saves_Original_DOOM3.zip"),
              (Snapshot{{"a.save", "second a"}, {"b.save", "b"}}));
    const QStringList copies = world.archives().filter("saves_Original_DOOM3_2026");
    ASSERT_EQ(copies.size(), 1);
    EXPECT_EQ(world.saves_archive(copies[0]), (Snapshot{{"a.save", "first a"}, {"b.save", "b"}}));
}

TEST(Save_Archives, A_torn_archive_is_kept_when_a_new_one_takes_its_place) {
    Saves_World world;
    world.game_has("allsaves/saves_m.zip", "torn");
    world.game_has("SAVES/a.sav", "x");
    ASSERT_TRUE(world.pack());
    EXPECT_EQ(world.game_file("allsaves/saves_m.zip.VKBU"), "torn");
    EXPECT_EQ(world.saves_archive("saves_m.zip"), (Snapshot{{"a.sav", "x"}}));
}

TEST(Save_Archives, A_whole_archive_that_was_not_yet_called_by_its_name_is_taken) {
    Saves_World world;
    world.archive("saves_m.zip.fresh", {{"a.sav", "verified"}});
    ASSERT_TRUE(world.pack());
    EXPECT_EQ(world.saves_archive("saves_m.zip"), (Snapshot{{"a.sav", "verified"}}));
    EXPECT_EQ(world.archives(), QStringList{"saves_m.zip"});
}

} // namespace
} // namespace vantrosk
