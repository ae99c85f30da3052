#include "install/Install_World.h"
#include "install/Saves.h"

#include <QFile>

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

/// Packs the live saves of "m.zip" and unpacks them again.
class Saves_World : public Install_World {
public:
    explicit Saves_World(const QString &game_code = "T2") : Install_World(game_code) {}

    bool pack(const QString &zip = "m.zip", Save_Packing packing = Save_Packing::replace) {
        return Zip_up_saves(program(), code, zip, program().CURRENT_GAME_PATH, packing);
    }
    bool unpack(const QString &zip = "m.zip", bool keep_live = false) {
        return Unzip_saves(program(), code, zip, program().CURRENT_GAME_PATH, keep_live);
    }
    QStringList archives() const { return Names(snapshot(in_game("allsaves"))); }
};

TEST(Saves, Archive_names_have_underscores_for_the_dots_of_the_base_name) {
    EXPECT_EQ(Saves_archive_name("keep.zip"), "saves_keep.zip");
    EXPECT_EQ(Saves_archive_name("v1.1.zip"), "saves_v1_1.zip");
    EXPECT_EQ(Saves_archive_name("a.b.c.ZIP"), "saves_a_b_c.ZIP");
    EXPECT_EQ(Saves_archive_name("Original_T2X.zip"), "saves_Original_T2X.zip");
    EXPECT_EQ(Saves_archive_name(".zip"), "saves_.zip");
    EXPECT_EQ(Saves_archive_name("zip"), "saves_zip");
    EXPECT_EQ(Saves_archive_name("a."), "saves_a.");
    EXPECT_EQ(Saves_archive_name(""), "saves_");
}

struct Layout_Case {
    const char *game;
    std::vector<const char *> saves; ///< below the game folder, archived under the second name
    std::vector<const char *> archived_as;
    std::vector<const char *> others;
    const char *folder;
    const char *filter;
};

class Save_Layouts : public testing::TestWithParam<Layout_Case> {};

TEST_P(Save_Layouts, Pack_and_unpack_exactly_the_games_saves) {
    const Layout_Case &row = GetParam();
    Saves_World world(row.game);
    for (const char *name : row.saves)
        world.game_has(name, QByteArray("content of ") + name);
    for (const char *name : row.others)
        world.game_has(name, "no save");
    const Snapshot before = world.game();
    ASSERT_TRUE(world.pack());
    Snapshot expected;
    for (std::size_t i = 0; i < row.saves.size(); ++i)
        expected[row.archived_as[i]] = QByteArray("content of ") + row.saves[i];
    EXPECT_EQ(world.saves_archive("saves_m.zip"), expected);
    for (const char *name : row.saves)
        EXPECT_FALSE(world.exists(world.in_game(name))) << name;
    for (const char *name : row.others)
        EXPECT_TRUE(world.exists(world.in_game(name))) << name;
    EXPECT_EQ(world.unfinished_log(),
              (QStringList{"//Zipping FROM [" + world.game_path(row.folder) + "]",
                           "//Zip file name [\\saves_m.zip]",
                           "//Zipping TO [" + world.game_path() + "\\allsaves\\]",
                           QString("//Using File extentions [") + row.filter + "]", "//NOW DELETING SAVES"}));
    ASSERT_TRUE(world.unpack());
    EXPECT_EQ(world.game(), before);
    EXPECT_EQ(world.ui.lights, (std::vector<int>{2, 1, 2, 1}));
}

INSTANTIATE_TEST_SUITE_P(
    Games, Save_Layouts,
    testing::Values(Layout_Case{"T1",
                                {"SAVES/a.sav", "SAVES/B.SAV"},
                                {"a.sav", "B.SAV"},
                                {"SAVES/a.txt", "SAVES/sub/c.sav", "d.sav"},
                                "SAVES",
                                "*.sav"},
                    Layout_Case{"TG", {"SAVES/a.sav"}, {"a.sav"}, {"SAVES/a.sav.bak"}, "SAVES", "*.sav"},
                    Layout_Case{"T2", {"SAVES/a.sav"}, {"a.sav"}, {"SAVES/a.sav.bak"}, "SAVES", "*.sav"},
                    Layout_Case{"T2X", {"SAVES/a.sav"}, {"a.sav"}, {"SAVES/a.sav.bak"}, "SAVES", "*.sav"},
                    Layout_Case{"DM", {"SAVES/a.sav"}, {"a.sav"}, {"SAVES/a.sav.bak"}, "SAVES", "*.sav"},
                    Layout_Case{"SS2",
                                {"save_0/a.vbr", "save_14/sub/b", "Save_3/c.mis"},
                                {"save_0/a.vbr", "save_14/sub/b", "Save_3/c.mis"},
                                {"save_15/a", "save_/a", "saves/a", "current/a"},
                                "",
                                "*.*"},
                    Layout_Case{
                        "DMOD",
                        {"darkmod/savegames/a.save", "darkmod/savegames/a.tga", "darkmod/savegames/a.TXT"},
                        {"a.save", "a.tga", "a.TXT"},
                        {"darkmod/savegames/a.cfg", "darkmod/savegames/s/b.save", "base/savegames/a.save"},
                        "darkmod/savegames",
                        "*.*"},
                    Layout_Case{"DOOM",
                                {"base/savegames/a.save", "base/savegames/a.tga", "base/savegames/a.txt"},
                                {"a.save", "a.tga", "a.txt"},
                                {"base/savegames/a.cfg", "darkmod/savegames/a.save"},
                                "base/savegames",
                                "*.*"}));

TEST(Saves, Shock_folders_go_whole_and_empty_ones_too) {
    Saves_World world("SS2");
    world.game_has("save_1/deep/er/a.mis", "x");
    world.make_folder(world.in_game("save_2/empty"));
    ASSERT_TRUE(world.pack());
    EXPECT_FALSE(world.exists(world.in_game("save_1")));
    EXPECT_FALSE(world.exists(world.in_game("save_2")));
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST(Saves, A_shock_folder_that_can_not_go_is_told_after_the_others_went) {
    Saves_World world("SS2");
    world.game_has("save_1/a.mis", "x");
    world.game_has("save_2/a.mis", "x");
    QFile::link("/nowhere/at/all", world.native(world.in_game("save_1/link")));
    EXPECT_TRUE(world.pack());
    EXPECT_FALSE(world.exists(world.in_game("save_2")));
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_TRUE(world.ui.boxes[0].text.contains("in procedure Zip_up_saves of Form frmMain"))
        << world.ui.boxes[0].text.toStdString();
    EXPECT_EQ(world.saves_archive("saves_m.zip"), (Snapshot{{"save_1/a.mis", "x"}, {"save_2/a.mis", "x"}}));
}

/// A Thief 3 save folder with everything that may lie in one.
void Fill_profiles(Saves_World &world) {
    const QString saves = "documents/SaveGames/";
    for (const char *name :
         {"Garrett/Save 1/a.ion", "Garrett/Save 1/b.ion", "Garrett/Save 2/a.ion", "Garrett/SaveIndex.ion",
          "Garrett/profile.dat", "Garrett/User Options/keys.ini", "Garrett/Spieler-Optionen/tasten.ini",
          "User Options/all.ini", "Spieler-Optionen/alle.ini", "System/t3.exe", "CONTENT/a.ibt",
          "SAVEGAMES/x.dat", "GameList.txt", "loose.dat", "settings.XML", "game.log"})
        world.write(saves + name, QByteArray("content of ") + name);
}

TEST(Saves, Thief3_archives_profiles_and_leaves_options_and_indexes) {
    Saves_World world("T3");
    Fill_profiles(world);
    const Snapshot before = world.snapshot("documents/SaveGames");
    ASSERT_TRUE(world.pack());
    EXPECT_EQ(
        Names(world.saves_archive("saves_m.zip")),
        (QStringList{"GameList.txt", "Garrett/Save 1/a.ion", "Garrett/Save 1/b.ion", "Garrett/Save 2/a.ion",
                     "Garrett/SaveIndex.ion", "Garrett/profile.dat", "SAVEGAMES/x.dat", "loose.dat"}));
    EXPECT_EQ(Names(world.snapshot("documents/SaveGames")),
              (QStringList{"CONTENT/", "CONTENT/a.ibt", "GameList.txt", "Garrett/", "Garrett/SaveIndex.ion",
                           "Garrett/Spieler-Optionen/", "Garrett/Spieler-Optionen/tasten.ini",
                           "Garrett/User Options/", "Garrett/User Options/keys.ini", "SAVEGAMES/",
                           "Spieler-Optionen/", "Spieler-Optionen/alle.ini", "System/", "System/t3.exe",
                           "User Options/", "User Options/all.ini", "game.log", "settings.XML"}));
    ASSERT_TRUE(world.unpack());
    EXPECT_EQ(world.snapshot("documents/SaveGames"), before);
}

TEST(Saves, Thief3_logs_each_file_that_is_zipped_and_each_that_goes) {
    Saves_World world("T3");
    world.write("documents/SaveGames/Garrett/Save 1/a.ion", "x");
    world.write("documents/SaveGames/loose.dat", "x");
    ASSERT_TRUE(world.pack());
    const QString saves = world.windows("documents/SaveGames");
    EXPECT_EQ(
        world.unfinished_log(),
        (QStringList{"//Zipping FROM [" + saves + "]", "//Zip file name [\\saves_m.zip]",
                     "//Zipping TO [" + world.game_path() + "\\allsaves\\]", "//Using File extentions [*.*]",
                     "//Zipping File [" + saves + "\\Garrett\\Save 1\\a.ion]",
                     "//Zipping File [" + saves + "\\loose.dat]", "//NOW DELETING SAVES",
                     "//" + saves + "\\Garrett\\Save 1", "//" + saves + "\\Garrett\\Save 1\\a.ion",
                     "//" + saves + "\\loose.dat"}));
    EXPECT_FALSE(world.exists("documents/SaveGames/Garrett/Save 1"));
    EXPECT_TRUE(world.exists("documents/SaveGames/Garrett"));
}

TEST(Saves, A_thief3_folder_with_indexes_alone_does_not_replace_an_archive) {
    Saves_World world("T3");
    Fill_profiles(world);
    ASSERT_TRUE(world.pack());
    const Snapshot archive = world.saves_archive("saves_m.zip");
    ASSERT_TRUE(world.pack());
    EXPECT_EQ(world.saves_archive("saves_m.zip"), archive);
}

TEST(Saves, No_save_folder_gives_no_archive_and_no_error) {
    for (const char *game : {"T1", "T3", "SS2", "DMOD", "DOOM"}) {
        Saves_World world(game);
        EXPECT_TRUE(world.pack()) << game;
        EXPECT_TRUE(world.unpack()) << game;
        EXPECT_EQ(world.archives(), QStringList()) << game;
        EXPECT_TRUE(world.exists(world.in_game("allsaves"))) << game;
        EXPECT_TRUE(world.ui.boxes.empty()) << game;
    }
}

TEST(Saves, A_custom_game_without_settings_is_left_alone) {
    Saves_World world;
    world.program().SELECTED_GAME_TAB = "CUSTOM";
    world.game_has("SAVES/a.sav", "mine");
    EXPECT_TRUE(world.pack());
    EXPECT_TRUE(world.unpack());
    EXPECT_EQ(world.game_file("SAVES/a.sav"), "mine");
    EXPECT_EQ(world.ui.trace.filter("save folder").size(), 2);
}

} // namespace
} // namespace vantrosk
