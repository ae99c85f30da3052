#include "install/Install_World.h"
#include "install/Saves.h"

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

/// A game of the user's own, with a save folder beside it.
class Custom_World : public Install_World {
public:
    Custom_World() {
        Program &p = program();
        p.SELECTED_GAME_TAB = "CUSTOM";
        p.CURRENT_GAME = code = "VK_7";
        p.custom_name = "Quest";
        p.custom.saves_path = windows("saves");
        p.custom.backup_saves_path = windows("backup");
        p.custom.saves_extensions = "sav**.x**DAT";
        p.custom.saves_left_alone = "Options.dat, index.SAV ,";
    }

    bool pack() { return Zip_up_saves(program(), "VK_7", "m.zip", program().CURRENT_GAME_PATH); }
    bool unpack() { return Unzip_saves(program(), "VK_7", "m.zip", program().CURRENT_GAME_PATH); }
    Snapshot archive() const {
        Snapshot result;
        for (const Zip_Entry &entry : Read_zip(native("backup/saves_m.zip")))
            result[QString::fromUtf8(entry.name)] = entry.content;
        return result;
    }
};

void Fill(Custom_World &world, const std::vector<const char *> &names) {
    for (const char *name : names)
        world.write(QString("saves/") + name, QByteArray("content of ") + name);
}

TEST(Custom_Saves, The_listed_extensions_go_down_to_two_folders_and_names_can_be_left_alone) {
    Custom_World world;
    Fill(world, {"a.sav", "B.SAV", "sav", "c.xsav", "d.txt", "options.DAT", "e.dat", "one/f.sav",
                 "one/index.sav", "one/two/g.sav", "one/two/three/h.sav"});
    const Snapshot before = world.snapshot("saves");
    ASSERT_TRUE(world.pack());
    EXPECT_EQ(world.archive(), (Snapshot{{"a.sav", "content of a.sav"},
                                         {"B.SAV", "content of B.SAV"},
                                         {"e.dat", "content of e.dat"},
                                         {"one/f.sav", "content of one/f.sav"},
                                         {"one/two/g.sav", "content of one/two/g.sav"}}));
    EXPECT_EQ(Names(world.snapshot("saves")),
              (QStringList{"c.xsav", "d.txt", "one/", "one/index.sav", "one/two/", "one/two/three/",
                           "one/two/three/h.sav", "options.DAT", "sav"}));
    ASSERT_TRUE(world.unpack());
    EXPECT_EQ(world.snapshot("saves"), before);
}

TEST(Custom_Saves, A_folder_of_the_second_level_goes_when_it_is_empty_and_one_of_the_first_stays) {
    Custom_World world;
    Fill(world, {"one/two/g.sav", "one/kept/g.txt", "other/x.sav"});
    ASSERT_TRUE(world.pack());
    EXPECT_EQ(Names(world.snapshot("saves")), (QStringList{"one/", "one/kept/", "one/kept/g.txt", "other/"}));
}

TEST(Custom_Saves, The_log_names_the_folders_of_the_settings) {
    Custom_World world;
    Fill(world, {"a.sav"});
    ASSERT_TRUE(world.pack());
    EXPECT_EQ(world.unfinished_log(), (QStringList{"//Zipping FROM [" + world.windows("saves") + "]",
                                                   "//Zip file name [\\saves_m.zip]",
                                                   "//Zipping TO [" + world.windows("backup") + "\\]",
                                                   "//Using File extentions [*.*]", "//NOW DELETING SAVES"}));
}

TEST(Custom_Saves, Without_a_backup_path_the_saves_are_moved_to_unsaved) {
    Custom_World world;
    world.program().custom.backup_saves_path.clear();
    Fill(world, {"a.sav", "one/b.sav"});
    ASSERT_TRUE(world.pack());
    EXPECT_EQ(Names(world.snapshot("saves")), QStringList{"one/"});
    EXPECT_EQ(world.snapshot(world.in_game("allsaves/unsaved")),
              (Snapshot{{"a.sav", "content of a.sav"}, {"one/", {}}, {"one/b.sav", "content of one/b.sav"}}));
    EXPECT_FALSE(world.exists("backup"));
    EXPECT_TRUE(world.unfinished_log().contains("//Zipping TO []"));
    EXPECT_TRUE(world.unpack());
    EXPECT_EQ(Names(world.snapshot("saves")), QStringList{"one/"});
}

TEST(Custom_Saves, Without_extensions_nothing_is_a_save) {
    Custom_World world;
    world.program().custom.saves_extensions = "**";
    Fill(world, {"a.sav"});
    const Snapshot before = world.snapshot("saves");
    ASSERT_TRUE(world.pack());
    EXPECT_EQ(world.snapshot("saves"), before);
    EXPECT_FALSE(world.exists("backup/saves_m.zip"));
}

TEST(Custom_Saves, Archives_that_lie_among_the_saves_are_none) {
    Custom_World world;
    world.program().custom.backup_saves_path = world.windows("saves/backup");
    world.program().custom.saves_extensions = "sav**zip";
    Fill(world, {"a.sav"});
    ASSERT_TRUE(world.pack());
    Fill(world, {"b.sav"});
    ASSERT_TRUE(world.pack());
    EXPECT_EQ(Names(world.snapshot("saves")),
              (QStringList{"backup/", "backup/saves_m.zip", "backup/saves_m.zip.VKBU"}));
}

TEST(Custom_Saves, An_install_and_a_restore_swap_the_saves) {
    Custom_World world;
    world.zip(world.zip_folder + "/m.zip", {{"map.bsp", "x"}});
    Fill(world, {"a.sav"});
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_EQ(Names(world.snapshot("saves")), QStringList());
    EXPECT_TRUE(world.exists("backup/saves_Original_VK_7.zip"));
    EXPECT_TRUE(world.finished_log().contains("//Quest Original saves"));
    world.write("saves/m.sav", "played");
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.snapshot("saves"), (Snapshot{{"a.sav", "content of a.sav"}}));
    EXPECT_EQ(world.archive(), (Snapshot{{"m.sav", "played"}}));
}

struct Switch_Case {
    bool mod_manage;
    bool mp3;
    std::vector<const char *> listed;
};

class Custom_Switches : public testing::TestWithParam<Switch_Case> {};

TEST_P(Custom_Switches, Decide_about_libraries_and_sounds) {
    Custom_World world;
    world.program().custom.mod_manage = GetParam().mod_manage;
    world.program().custom.mp3 = GetParam().mp3;
    world.zip(world.zip_folder + "/m.zip",
              {{"a.dll", "x"}, {"b.exe", "x"}, {"c.mp3", "no sound"}, {"d.ogg", "no sound"}, {"e.txt", "x"}});
    world.ui.answers = {Answer::yes, Answer::yes};
    ASSERT_TRUE(world.install("m.zip"));
    QStringList expected;
    for (const char *name : GetParam().listed)
        expected << name;
    EXPECT_EQ(Sorted(world.listed()), Sorted(expected));
    EXPECT_EQ(world.exists(world.in_game("a.dll")), GetParam().mod_manage);
    EXPECT_FALSE(world.exists(world.in_game("b.exe")));
    EXPECT_EQ(world.game_file("c.mp3"), "no sound");
    EXPECT_EQ(world.ui.boxes.size(), GetParam().mp3 ? 2u : 0u);
}

INSTANTIATE_TEST_SUITE_P(
    Switches, Custom_Switches,
    testing::Values(Switch_Case{false, false, {"c.mp3", "d.ogg", "e.txt"}},
                    Switch_Case{true, false, {"a.dll", "c.mp3", "d.ogg", "e.txt"}},
                    Switch_Case{false, true, {"c.mp3", "C.WAV", "d.ogg", "D.WAV", "e.txt"}},
                    Switch_Case{true, true, {"a.dll", "c.mp3", "C.WAV", "d.ogg", "D.WAV", "e.txt"}}));

TEST(Custom_Saves, The_switches_mean_nothing_for_a_built_in_game) {
    Install_World world;
    world.program().custom.mod_manage = true;
    world.mission("m.zip", {{"a.dll", "x"}, {"b.mis", "x"}});
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_FALSE(world.exists(world.in_game("a.dll")));
}

} // namespace
} // namespace vantrosk
