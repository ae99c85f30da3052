#include "core/mdlDB_Functions.h"
#include "core/mdlFile_Functions.h"
#include "install/Play_World.h"
#include "install/Splash_Swap.h"
#include "platform/linux/Linux_Platform.h"

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

constexpr const char *splash = "00000409.256";

/// Packs of start-up pictures, and a die that falls as told.
class Splash_World : public Play_World {
public:
    explicit Splash_World(const QString &game) : Play_World(game) {
        Tweaks &tweaks = program().tweaks;
        tweaks.RESKIN_THIEF1 = tweaks.RESKIN_THIEF2 = tweaks.RESKIN_DMOD = true;
        program().timers.random = [this] {
            return die;
        };
    }
    void pack(const QString &name) { write("home/Enhancements/" + name, ("picture " + name).toUtf8()); }
    QByteArray splash_now() const { return game_file(splash); }

    double die = 0;
};

TEST(Play_Splash, The_packs_picture_shows_for_one_session) {
    for (const char *game : {"T1", "TG", "T2"}) {
        const QString packs = QString(game) == "T2" ? "T2" : "T1";
        Splash_World world(game);
        world.pack(packs + "/Pack1_1.256");
        world.game_has(splash, "the game's own");
        world.choose("frost.zip");
        const Snapshot before = world.whole_game();
        EXPECT_TRUE(world.play().started);
        EXPECT_EQ(world.splash_now(), "picture " + packs.toUtf8() + "/Pack1_1.256") << game;
        EXPECT_EQ(world.game_file("00000409.256.VKBU"), "the game's own") << game;
        After_Play(world.program());
        EXPECT_EQ(world.whole_game(), before) << game;
    }
}

TEST(Play_Splash, One_of_all_pictures_of_all_packs_is_chosen) {
    Splash_World world("T2");
    for (const char *name : {"T2/Pack1_1.256", "T2/Pack1_2.256", "T2/Pack1_4.256", "T2/Pack99_1.256",
                             "T2/Pack100_1.256", "T1/Pack1_1.256"})
        world.pack(name);
    world.choose("frost.zip");
    QStringList shown;
    for (const double die : {0.0, 0.34, 0.67, 0.999}) {
        world.die = die;
        world.play();
        shown << world.splash_now();
    }
    EXPECT_EQ(shown, (QStringList{"picture T2/Pack1_1.256", "picture T2/Pack1_2.256",
                                  "picture T2/Pack99_1.256", "picture T2/Pack99_1.256"}));
}

TEST(Play_Splash, A_game_without_a_picture_of_its_own_has_none_afterwards) {
    Splash_World world("T1");
    world.pack("T1/Pack1_1.256");
    world.choose("frost.zip");
    const Snapshot before = world.whole_game();
    EXPECT_TRUE(world.play().started);
    EXPECT_EQ(world.splash_now(), "picture T1/Pack1_1.256");
    After_Play(world.program());
    EXPECT_EQ(world.whole_game(), before);
}

TEST(Play_Splash, Nothing_is_swapped_without_the_tweak_or_without_packs) {
    Splash_World world("T2");
    world.game_has(splash, "the game's own");
    world.choose("frost.zip");
    const Snapshot before = world.whole_game();
    world.play();
    world.pack("T2/Pack1_1.256");
    world.program().tweaks.RESKIN_THIEF2 = false;
    world.play();
    EXPECT_EQ(world.whole_game(), before);
}

TEST(Play_Splash,
     What_a_killed_session_left_comes_back_before_the_next_swap_and_the_next_install_and_at_start) {
    for (const char *own : {"the game's own", ""}) {
        for (int way = 0; way < 3; ++way) {
            Splash_World world("T2");
            world.pack("T2/Pack1_1.256");
            if (*own)
                world.game_has(splash, own);
            world.choose("frost.zip");
            const bool had = world.exists(world.in_game(splash));
            world.play();
            world.program().play.swapped_pictures.clear(); // as a killed program forgets it
            if (way == 0) {
                world.play();
                After_Play(world.program());
            } else if (way == 1) {
                EXPECT_TRUE(world.install("frost.zip"));
            } else {
                Put_back_all_splashes(world.program());
            }
            EXPECT_EQ(world.exists(world.in_game(splash)), had) << way;
            EXPECT_EQ(world.splash_now(), own) << way;
            EXPECT_FALSE(world.exists(world.in_game("00000409.256.VKBU"))) << way;
            EXPECT_FALSE(world.exists(world.in_game("00000409.256.VKNEW"))) << way;
        }
    }
}

class Dark_Mod_Splash : public Splash_World {
public:
    Dark_Mod_Splash() : Splash_World("DMOD") {
        pack("DMOD/Pack1_1.tga");
        make_folder(in_game("darkmod"));
        package("frost/frost.pk4", {"maps/frost.map"});
        game_has("frost/guis/assets/splash/launch.tga", "the mission's own");
        choose("frost.zip", {"frost.pk4"}, "frost");
    }
    QByteArray now() const { return game_file("frost/guis/assets/splash/launch.tga"); }
};

TEST(Play_Splash, A_mission_of_The_Dark_Mod_lends_its_picture_place) {
    Dark_Mod_Splash world;
    const Snapshot before = world.whole_game();
    EXPECT_TRUE(world.play().started);
    EXPECT_EQ(world.now(), "picture DMOD/Pack1_1.tga");
    EXPECT_EQ(world.game_file("frost/guis/assets/splash/launch.tga.VKBU"), "the mission's own");
    world.program().fm.FM_FOLDER = "another row was chosen meanwhile";
    After_Play(world.program());
    EXPECT_EQ(world.whole_game(), before);
}

TEST(Play_Splash, A_killed_session_of_The_Dark_Mod_is_put_right_at_start) {
    Dark_Mod_Splash world;
    world.play();
    Put_back_all_splashes(world.program());
    EXPECT_EQ(world.now(), "the mission's own");
}

TEST(Play_Splash, A_mission_without_such_a_picture_gets_none) {
    Dark_Mod_Splash world;
    ASSERT_TRUE(QFile::remove(world.native(world.in_game("frost/guis/assets/splash/launch.tga"))));
    const Snapshot before = world.whole_game();
    world.play();
    EXPECT_EQ(world.whole_game(), before);
}

// ---- the library of The Dark Mod ----

TEST(Play_Dark_Mod_Library, The_picture_library_that_a_start_brings_goes_with_the_mission) {
    Play_World world("DMOD");
    world.game_has("DevIL.dll", "library");
    world.zip("deep.pk4", {{"maps/frost.map", "map"}});
    Snapshot before = world.game();
    before["frost/"] = ""; // no folder of The Dark Mod is ever removed
    world.mission("frost.zip", {{"frost/frost.pk4", world.read("deep.pk4")}});
    ASSERT_TRUE(world.install("frost.zip"));
    world.program().fm.mission_files = QStringList("frost.pk4");
    world.program().fm.FM_FOLDER = "frost";
    EXPECT_TRUE(world.play().started);
    EXPECT_EQ(world.game_file("frost/DevIL.dll"), "library");
    EXPECT_EQ(world.listed(), (QStringList{"frost/DevIL.dll", "frost/frost.pk4"}));
    EXPECT_TRUE(world.play().started);
    EXPECT_EQ(world.listed(), (QStringList{"frost/DevIL.dll", "frost/frost.pk4"}));
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.game(), before);
}

// ---- around a start ----

TEST(Play_Session, The_users_tools_run_before_the_game) {
    Play_World world("T2");
    world.write("home/tools/first.exe", "MZ");
    db_Execute(world.program(), "INSERT INTO Table_Tools (tool_name,tool_exe,run_when) VALUES "
                                "('First','first.exe','T2*')");
    db_Execute(world.program(), "INSERT INTO Table_Tools (tool_name,tool_exe,run_when) VALUES "
                                "('Other','first.exe','T2X*')");
    world.choose("frost.zip");
    EXPECT_TRUE(world.play().started);
    ASSERT_EQ(world.processes->requests.size(), 2U);
    EXPECT_EQ(world.processes->requests[0].program_path, world.program().paths.tools + "first.exe");
    EXPECT_EQ(world.processes->requests[1].program_path, world.game_path("thief2.EXE"));
}

TEST(Play_Session, No_tool_runs_when_the_scripts_of_Thief_2_are_missing) {
    Play_World world("T2");
    world.write("home/tools/first.exe", "MZ");
    db_Execute(world.program(), "INSERT INTO Table_Tools (tool_name,tool_exe,run_when) VALUES "
                                "('First','first.exe','ALL*')");
    ASSERT_TRUE(QFile::remove(world.native(world.in_game("convict.osm"))));
    world.choose("frost.zip");
    EXPECT_FALSE(world.play().started);
    EXPECT_EQ(world.started(), QStringList());
}

TEST(Play_Session, A_fault_among_the_tools_is_told_and_the_game_starts) {
    Play_World world("T2");
    db_Execute(world.program(), "DROP TABLE Table_Tools");
    world.choose("frost.zip");
    EXPECT_TRUE(world.play().started);
    EXPECT_EQ(world.ui.boxes.size(), 1U);
}

TEST(Play_Session, The_map_is_made_ready_for_the_games_that_show_it) {
    struct Row {
        const char *game, *prepared;
    };
    for (const Row &row : {Row{"T1", "thief.exe"}, Row{"TG", "thief.exe"}, Row{"T2", "thief2.exe"},
                           Row{"T2X", ""}, Row{"SS2", ""}, Row{"T3", ""}}) {
        for (const bool dual : {false, true}) {
            Play_World world(row.game);
            QString prepared;
            world.program().play.prepare_map = [&prepared](const QString &exe) {
                prepared = exe;
            };
            world.choose("frost.zip");
            world.play();
            EXPECT_EQ(prepared, "") << row.game;
            (dual ? world.program().play.dual_screen : world.program().play.map) = true;
            EXPECT_TRUE(world.play().started);
            EXPECT_EQ(prepared, row.prepared) << row.game;
        }
    }
}

TEST(Play_Session, Who_takes_the_start_over_makes_it) {
    Play_World world("T2");
    world.program().play.map = true;
    world.program().play.prepare_map = [&world](const QString &) {
        EXPECT_TRUE(world.program().play.launch_pending);
        world.program().play.launch_pending = false;
    };
    world.choose("frost.zip");
    EXPECT_FALSE(world.play().started);
    EXPECT_EQ(world.started(), QStringList());
    world.program().play.map = false;
    EXPECT_TRUE(world.play().started);
}

TEST(Play_Session, A_game_over_the_network_is_configured_while_its_tab_is_in_front) {
    for (const bool in_front : {false, true}) {
        Play_World world("SS2");
        world.game_has("cam.cfg", "game shock\r\n");
        world.choose("frost.zip");
        world.program().screen.details.name = "Frost";
        world.program().play.multi_player = {in_front, true, "10.0.0.7", "Ann"};
        EXPECT_TRUE(world.play().started);
        EXPECT_EQ(world.game_file("cam.cfg"),
                  in_front ? "game shock\r\nnetplay 1\r\nhostaddr_default 10.0.0.7\r\ncharname_default "
                             "Ann\r\nnetplay_frontpage_default 1\r\ngamename_default Frost\r\n"
                           : "game shock\r\n");
        EXPECT_EQ(world.ui.boxes.size(), in_front ? 1U : 0U);
    }
}

} // namespace
} // namespace vantrosk
