#include "install/Install_World.h"

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

const std::vector<Zip_Entry> some_mission{{"a.mis", "x"}, {"b.str", "y"}};

/// Doom 3 and The Dark Mod in one folder, each with its saves.
class Doom_World : public Install_World {
public:
    Doom_World() : Install_World("DOOM") {
        game_has("base/default.cfg", "doom's own");
        game_has("base/savegames/own.save", "doom originals");
        game_has("darkmod/savegames/own.save", "dark mod originals");
        mission("doom.zip", {{"maps/d.map", "x"}, {"default.cfg", "of the mission"}, {"doom.pk4", "z"}});
        mission("dark.zip", {{"darkmod/fms/a.pk4", "x"}, {"base/b.cfg", "y"}, {"darkmod.txt", "z"}});
    }
};

TEST(Shared_Folder, From_a_doom_mission_to_a_dark_mod_mission_nothing_is_mixed_up) {
    Doom_World world;
    ASSERT_TRUE(world.install("doom.zip"));
    EXPECT_EQ(world.game_file("base/default.cfg"), "of the mission");
    world.game_has("base/savegames/slot.save", "played in doom.zip");
    world.switch_to("DMOD");
    ASSERT_TRUE(world.install("dark.zip"));
    EXPECT_EQ(world.game_file("base/default.cfg"), "doom's own");
    EXPECT_FALSE(world.exists(world.in_game("base/original_backup.zip")));
    EXPECT_EQ(world.saves_archive("saves_doom.zip"), (Snapshot{{"slot.save", "played in doom.zip"}}));
    EXPECT_EQ(world.saves_archive("saves_Original_DMOD.zip"), (Snapshot{{"own.save", "dark mod originals"}}));
    EXPECT_FALSE(world.exists(world.in_game("darkmod/savegames/own.save")));
    world.game_has("darkmod/savegames/slot.save", "played in dark.zip");
    world.switch_to("DOOM");
    ASSERT_TRUE(world.install("doom.zip"));
    EXPECT_EQ(world.game_file("base/savegames/slot.save"), "played in doom.zip");
    EXPECT_EQ(world.saves_archive("saves_dark.zip"), (Snapshot{{"slot.save", "played in dark.zip"}}));
    EXPECT_FALSE(world.exists(world.in_game("base/b.cfg")));
}

TEST(Shared_Folder, Doom_originals_are_kept_and_not_brought_back) {
    Doom_World world;
    ASSERT_TRUE(world.install("doom.zip"));
    EXPECT_EQ(world.saves_archive("saves_Original_DOOM3.zip"), (Snapshot{{"own.save", "doom originals"}}));
    ASSERT_TRUE(world.restore());
    EXPECT_FALSE(world.exists(world.in_game("base/savegames/own.save")));
    EXPECT_EQ(world.saves_archive("saves_Original_DOOM3.zip"), (Snapshot{{"own.save", "doom originals"}}));
}

TEST(Shared_Folder, Dark_mod_originals_come_back) {
    Doom_World world;
    world.switch_to("DMOD");
    ASSERT_TRUE(world.install("dark.zip"));
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.game_file("darkmod/savegames/own.save"), "dark mod originals");
    EXPECT_EQ(world.game_file("base/savegames/own.save"), "doom originals");
}

TEST(Shared_Folder, The_marker_tells_whose_originals_leave) {
    Install_World world("T2");
    world.game_has("SAVES/a.sav", "thief 2 originals");
    ASSERT_TRUE(world.restore());
    world.switch_to("T2X");
    world.program().ini.T2X_GAME_LOCATION = world.windows("games/T2");
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.saves_archive("saves_Original.zip"), (Snapshot{{"a.sav", "thief 2 originals"}}));
    EXPECT_FALSE(world.exists(world.in_game("SAVES/a.sav")));
    EXPECT_TRUE(world.undo_list().contains("Original T2X"));
    world.game_has("SAVES/x.sav", "t2x originals");
    world.switch_to("T2");
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.saves_archive("saves_Original_T2X.zip"), (Snapshot{{"x.sav", "t2x originals"}}));
    EXPECT_EQ(world.snapshot(world.in_game("SAVES")), (Snapshot{{"a.sav", "thief 2 originals"}}));
}

TEST(Shared_Folder, Saves_that_a_mission_brings_are_archived_and_not_deleted) {
    Install_World world;
    world.mission("m.zip", {{"SAVES/game0001.sav", "brought"}, {"a.mis", "x"}, {"b.str", "y"}});
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_EQ(world.game_file("SAVES/game0001.sav"), "brought");
    world.game_has("SAVES/game0001.sav", "played since");
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.saves_archive("saves_m.zip"), (Snapshot{{"game0001.sav", "played since"}}));
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_EQ(world.game_file("SAVES/game0001.sav"), "played since");
}

} // namespace
} // namespace vantrosk
