#include "install/Install_World.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

const std::vector<Zip_Entry> some_mission{{"a.mis", "x", {}}, {"b.str", "y", {}}};

/// A refused install leaves the game folder, the list's cells and the database as they were.
void Expect_refused(Install_World &world, const QString &zip, Box_Kind kind, const QString &text) {
    const Snapshot before = world.whole_game();
    world.program().screen.details.play_enabled = true;
    world.program().screen.caption = "as it was";
    EXPECT_FALSE(zip == "Original" ? world.restore() : world.install(zip));
    EXPECT_EQ(world.whole_game(), before);
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_EQ(world.ui.boxes[0].kind, kind);
    EXPECT_EQ(world.ui.boxes[0].text, text);
    EXPECT_EQ(world.ui.panel_1, (QStringList{"Working", "Install Aborted"}));
    EXPECT_TRUE(world.program().screen.details.play_enabled);
    EXPECT_EQ(world.program().screen.caption, "as it was");
    EXPECT_FALSE(world.program().screen.progress_visible);
    EXPECT_FALSE(world.program().screen.busy);
}

TEST(Install_Guards, An_empty_game_folder_setting_is_refused) {
    Install_World world;
    world.mission("m.zip", some_mission);
    world.program().CURRENT_GAME_PATH.clear();
    Expect_refused(
        world, "m.zip", Box_Kind::warning,
        "WARNING: Vantrosk has detected that your game install path for T2 does not exist.\r\nThis may have "
        "resulted from a re-install of your game, please re-set your T2 install path in Vantrosk's config.");
    EXPECT_FALSE(world.exists("home/install_recover.log"));
}

TEST(Install_Guards, A_game_folder_that_is_gone_is_refused) {
    Install_World world;
    world.mission("m.zip", some_mission);
    world.program().CURRENT_GAME_PATH = world.windows("games/none");
    Expect_refused(
        world, "Original", Box_Kind::warning,
        "WARNING: Vantrosk has detected that your game install path for T2 does not exist.\r\nThis may have "
        "resulted from a re-install of your game, please re-set your T2 install path in Vantrosk's config.");
    EXPECT_FALSE(world.exists("games/none"));
}

TEST(Install_Guards, A_missing_zip_is_refused_by_its_name_and_the_mission_in_place_stays) {
    Install_World world;
    world.mission("m.zip", some_mission);
    ASSERT_TRUE(world.install("m.zip"));
    Expect_refused(world, "gone.zip", Box_Kind::warning,
                   "WARNING: Vantrosk has detected that your FM " + world.windows("fms/T2") +
                       "\\gone.zip does not exist.");
    EXPECT_EQ(world.ready_cell("m.zip"), "Yes");
    EXPECT_EQ(world.installed_mark("m.zip", "T2"), 1);
}

TEST(Install_Guards, A_zip_that_is_no_zip_is_refused_and_the_mission_in_place_stays) {
    Install_World world;
    world.mission("m.zip", some_mission);
    ASSERT_TRUE(world.install("m.zip"));
    world.mission("bad.zip", some_mission);
    world.write("fms/T2/bad.zip", "this is no archive at all");
    const Snapshot before = world.whole_game();
    EXPECT_FALSE(world.install("bad.zip"));
    EXPECT_EQ(world.whole_game(), before);
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_TRUE(world.ui.boxes[0].text.startsWith("WARNING: Vantrosk can not open your FM " +
                                                  world.windows("fms/T2") + "\\bad.zip.\r\n"));
    EXPECT_EQ(world.ui.panel_1.last(), "Install Aborted");
}

TEST(Install_Guards, Thief3_without_a_save_folder_is_refused) {
    const QString text =
        "WARNING you do not appear to have a valid save game path for Thief 3\r\nThis may be due to "
        "upgrading from a "
        "previous version of Vantrosk.\r\nTo resolve this simply reset your Thief 3 Game location via the "
        "Config button "
        "in the vertical toolbar and then save the config again.\r\n\r\nNO install has taken place";
    for (const char *folder :
         {"", "C:\\", "documents", "games", "games/T3", "fms", "home", "user", "x/My Documents"}) {
        Install_World world("T3");
        world.mission("m.zip", some_mission);
        world.make_folder("user/Documents");
        world.write("user/precious.txt", "mine");
        const bool is_native = QString(folder).contains('/') || world.exists(folder);
        world.make_folder("documents/My Documents");
        world.program().ini.T3_SAVE_GAME_LOCATION =
            *folder && (is_native || *folder == 'x') ? world.windows(folder) : QString(folder);
        SCOPED_TRACE(folder);
        Expect_refused(world, "m.zip", Box_Kind::information, text);
        EXPECT_FALSE(world.exists("home/install_recover.log"));
    }
}

TEST(Install_Guards, A_mission_of_the_other_loader_is_refused_and_leaves_the_log) {
    for (const char *game : {"T1", "TG", "T2", "SS2"}) {
        Install_World world(game);
        world.mission("m.zip", some_mission);
        world.game_has("darkloader.current", "some.zip\r\nORIGINAL\r\n");
        SCOPED_TRACE(game);
        Expect_refused(world, "m.zip", Box_Kind::critical,
                       "You appear to have a mission currently installed via DarkLoader, please use "
                       "DarkLoader to restore "
                       "to the Original Missions then install this mission via Vantrosk.");
        EXPECT_EQ(world.unfinished_log().mid(5), QStringList{"DarkLoader already has a mission installed"});
    }
}

TEST(Install_Guards, The_other_loaders_marker_of_the_originals_lets_pass) {
    for (const char *marker : {"ORIGINAL", " Original \r\nrest", "original\n"}) {
        Install_World world;
        world.mission("m.zip", some_mission);
        world.game_has("darkloader.current", marker);
        EXPECT_TRUE(world.install("m.zip")) << marker;
    }
}

TEST(Install_Guards, Games_that_the_other_loader_does_not_know_pass) {
    for (const char *game : {"T2X", "DM", "DMOD", "T3"}) {
        Install_World world(game);
        world.mission("m.zip", some_mission);
        world.game_has("darkloader.current", "some.zip");
        EXPECT_TRUE(world.install("m.zip")) << game;
    }
}

TEST(Install_Guards, An_undo_list_that_can_not_be_read_is_refused) {
    Install_World world;
    world.mission("m.zip", some_mission);
    world.make_folder(world.in_game("current_install.txt"));
    Expect_refused(world, "m.zip", Box_Kind::warning,
                   "WARNING: Vantrosk can not read " + world.game_path("current_install.txt") +
                       ", so it does not know what is installed.\r\nNO install has taken place");
}

TEST(Install_Guards, A_second_press_while_a_run_is_under_way_does_nothing) {
    Install_World world;
    world.mission("m.zip", some_mission);
    int pressed = 0;
    bool second = true;
    world.ui.on_pump = [&] {
        if (pressed++ == 0)
            second = Install_Command(world.program());
    };
    EXPECT_TRUE(world.install("m.zip"));
    EXPECT_GT(pressed, 0);
    EXPECT_FALSE(second);
    EXPECT_EQ(world.listed(), (QStringList{"a.mis", "b.str"}));
}

TEST(Install_Guards, A_refusal_does_not_overwrite_the_log_of_an_unfinished_run) {
    Install_World world;
    world.mission("m.zip", some_mission);
    world.write("home/install_recover.log",
                "1\r\n2\r\n3\r\n//Current Game Path = " + world.game_path().toUtf8() +
                    "\r\n//=\r\n[PREVIOUS_CHECKED]\r\n");
    world.game_has("darkloader.current", "some.zip");
    EXPECT_FALSE(world.install("m.zip"));
    EXPECT_EQ(world.unfinished_log().mid(5),
              (QStringList{"[PREVIOUS_CHECKED]", "DarkLoader already has a mission installed"}));
}

TEST(Install_Guards, The_log_of_another_games_unfinished_run_is_kept_and_shown_again_afterwards) {
    Install_World world;
    world.mission("m.zip", some_mission);
    const QByteArray other = "1\r\n2\r\n3\r\n//Current Game Path = C:\\Other\r\n//=\r\n[ZIPPING_SAVES]\r\n";
    world.write("home/install_recover.log", other);
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_EQ(world.read("home/install_recover.log"), other);
    EXPECT_TRUE(world.finished_log().contains("[REPACKAGE_IBT]"));
}

/// Changes a field of two bytes in both headers of the entry with that name.
void Change_entry(const World &world, const QString &zip, const QByteArray &name, int local_offset,
                  char value) {
    QByteArray bytes = world.read(zip);
    for (qsizetype at = bytes.indexOf(name); at >= 0; at = bytes.indexOf(name, at + 1)) {
        const bool is_local = bytes.mid(at - 30, 4) == "PK\3\4";
        bytes[is_local ? at - 30 + local_offset : at - 46 + local_offset + 2] = value;
    }
    QFile file(world.native(zip));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

constexpr int flags_field = 6, method_field = 8;

TEST(Install_Guards, A_zip_with_an_encrypted_file_is_refused_and_the_mission_in_place_stays) {
    Install_World world;
    world.mission("m.zip", some_mission);
    ASSERT_TRUE(world.install("m.zip"));
    world.mission("locked.zip", {{"a.mis", "x"}, {"script.osm", "x"}, {"c.str", "y"}});
    for (const char *name : {"script.osm", "c.str"}) {
        world.zip("fms/T2/locked.zip", {{"a.mis", "x"}, {"script.osm", "x"}, {"c.str", "y"}});
        Change_entry(world, "fms/T2/locked.zip", name, flags_field, 1);
        Expect_refused(world, "locked.zip", Box_Kind::warning,
                       "WARNING: Vantrosk can not install your FM " + world.windows("fms/T2") +
                           "\\locked.zip.\r\n\"" + name +
                           "\" in \"locked.zip\" is encrypted.\r\nNO install has taken place");
        EXPECT_EQ(world.ready_cell("m.zip"), "Yes");
    }
    EXPECT_EQ(world.game_file("a.mis"), "x");
    EXPECT_FALSE(world.exists("home/install_recover.log"));
}

TEST(Install_Guards, A_zip_with_an_unknown_packing_method_is_refused) {
    Install_World world;
    world.mission("odd.zip", {{"a.mis", "x"}, {"c.str", "y"}});
    Change_entry(world, "fms/T2/odd.zip", "c.str", method_field, 6);
    Expect_refused(world, "odd.zip", Box_Kind::warning,
                   "WARNING: Vantrosk can not install your FM " + world.windows("fms/T2") +
                       "\\odd.zip.\r\n\"c.str\" in \"odd.zip\" is packed by a method that Vantrosk does not "
                       "know.\r\nNO install has taken place");
}

TEST(Install_Guards, An_encrypted_file_that_is_not_to_be_extracted_does_not_matter) {
    for (const char *name : {"setup.exe", "read me", "a[1].osm", "current_install.txt"}) {
        Install_World world;
        world.mission("m.zip", {{"a.mis", "x"}, {name, "secret"}});
        Change_entry(world, "fms/T2/m.zip", name, flags_field, 1);
        EXPECT_TRUE(world.install("m.zip")) << name;
        EXPECT_EQ(world.listed().size(), 1) << name;
    }
}

} // namespace
} // namespace vantrosk
