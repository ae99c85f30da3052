#include "install/Map_Search.h"
#include "install/Play_World.h"

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

constexpr const char *searching = "Please Wait Determining what map to load.";
constexpr const char *no_map = "WARNING: No map file was found, Vantrosk is unable to start the map "
                               "automatically, click OK to start Doom 3 normally or CANCEL to abort";
constexpr const char *as_map =
    "You do not have The Dark Mod installed, Vantrosk will try and load this FM as "
    "a Doom 3 Map, do you want to do this";
constexpr const char *originals_instead =
    "You do not have The Dark Mod installed, Vantrosk will run the original Doom 3 missions instead, do you "
    "want to do this";

// The search for maps.

struct Map_Row {
    QString entry;
    QStringList maps;
};

TEST(Map_Search, An_entry_is_named_as_the_games_console_takes_it) {
    const Map_Row rows[] = {
        {"maps/frost.map", {"frost.map"}},
        {"maps\\frost.map", {"frost.map"}},
        {"MAPS/Frost.MAP", {"Frost.MAP"}},
        {"maps/game/frost.map", {"game\\frost.map"}},
        {"Maps/a/b/frost.Map", {"a\\b\\frost.Map"}},
        {"other/frost.map", {"other\\frost.map"}},
        {"frost.map", {"\\frost.map"}},
        {"maps/Žluť kůň.map", {"Žluť kůň.map"}},
        {"maps/frost.mapx", {}},
        {"maps/frostmap", {}},
        {"maps/frost.map/readme.txt", {}},
        {"maps/frost.proc", {}},
    };
    Play_World world("DOOM");
    world.choose("frost.zip", {"frost.pk4"});
    for (const Map_Row &row : rows) {
        world.package("base/frost.pk4", {row.entry});
        EXPECT_EQ(Find_maps(world.program()), row.maps) << row.entry.toStdString();
    }
    EXPECT_EQ(world.ui.panel_1, QStringList(QStringList(std::size(rows), searching)));
}

TEST(Map_Search, Names_that_the_console_would_take_for_commands_are_passed_over_and_told_in_the_trace) {
    Play_World world("DOOM");
    world.choose("frost.zip", {"frost.pk4"});
    const QStringList hostile{"maps/x;quit.map",  "maps/a\"b.map",    "maps/+quit.map",
                              "maps/a\nb.map",    "maps/;quit/x.map", "maps/a\" +quit/x.map",
                              "maps/+quit/x.map", "maps/a\tb/x.map"};
    world.package("base/frost.pk4", hostile + QStringList{"maps/good.map"});
    EXPECT_EQ(Find_maps(world.program()), QStringList("good.map"));
    EXPECT_EQ(world.ui.trace.filter("no game can be told of the map").size(), hostile.size());
}

TEST(Map_Search, Packages_are_searched_in_their_order_and_eleven_maps_are_kept) {
    Play_World world("DOOM");
    world.choose("frost.zip", {"two.pk4", "none.pk4", "ONE.PK4"});
    QStringList many, expected;
    for (int i = 0; i < 10; ++i) {
        many << QString("maps/m%1.map").arg(i);
        expected << QString("m%1.map").arg(i);
    }
    world.package("base/two.pk4", many);
    world.package("base/one.pk4", {"maps/a.map", "maps/b.map", "maps/c.map"});
    EXPECT_EQ(Find_maps(world.program()), expected << "a.map");
}

TEST(Map_Search, A_package_whose_name_holds_a_comma_is_one_package) {
    Play_World world("DOOM");
    world.choose("frost.zip", {"one, two.pk4"});
    world.package("base/one, two.pk4", {"maps/a.map"});
    world.package("base/one", {"maps/wrong.map"});
    EXPECT_EQ(Find_maps(world.program()), QStringList("a.map"));
}

TEST(Map_Search, What_is_no_package_is_passed_over_and_told_in_the_trace) {
    Play_World world("DOOM");
    world.choose("frost.zip", {"text.pk4", "empty.pk4", "good.pk4"});
    world.game_has("base/text.pk4", "no zip at all");
    world.game_has("base/empty.pk4", "");
    world.package("base/good.pk4", {"maps/a.map"});
    EXPECT_EQ(Find_maps(world.program()), QStringList("a.map"));
    EXPECT_FALSE(world.ui.trace.filter("text.pk4").isEmpty());
}

TEST(Map_Search, Doom_3_has_one_place_and_The_Dark_Mod_two) {
    for (const char *game : {"DOOM", "DMOD"}) {
        Play_World world(game);
        world.choose("frost.zip", {"frost.pk4"}, "mission");
        world.package("base/frost.pk4", {"maps/base.map"});
        world.package("mission/frost.pk4", {"maps/folder.map"});
        const bool doom = QLatin1String(game) == QLatin1String("DOOM");
        EXPECT_EQ(Find_maps(world.program()), QStringList(doom ? "base.map" : "folder.map"));
        world.package("frost.pk4", {"maps/root.map"});
        EXPECT_EQ(Find_maps(world.program()), QStringList(doom ? "base.map" : "root.map"));
        world.program().fm.FM_FOLDER.clear();
        EXPECT_EQ(Find_maps(world.program()), QStringList(doom ? "base.map" : "root.map"));
    }
}

// Doom 3.

struct Command_Row {
    QString entry;
    QString arguments;
};

TEST(Play_Doom, The_first_map_is_given_on_the_command_line) {
    const Command_Row rows[] = {
        {"maps/frost.map", " +map frost.map"},
        {"maps/game/frost.map", " +map game\\frost.map"},
        {"maps/deep frost.map", " +map \"deep frost.map\""},
    };
    for (const Command_Row &row : rows) {
        Play_World world("DOOM");
        world.choose("frost.zip", {"frost.pk4"});
        world.package("base/frost.pk4", {"script/x.script", row.entry, "maps/second.map"});
        EXPECT_TRUE(world.play().started);
        EXPECT_EQ(world.started(), QStringList("doom3.EXE|" + row.arguments));
        EXPECT_EQ(world.processes->asked, QStringList());
        EXPECT_EQ(world.ui.panel_1, (QStringList{"Initiating any startup tools",
                                                 "Tools started, now starting game.", searching, ""}));
        EXPECT_EQ(world.last_played_cell("frost.zip"), "19/Nov/26");
        EXPECT_EQ(world.last_played_record("frost.zip"), "2026-11-19");
    }
}

TEST(Play_Doom, The_original_missions_start_without_a_map) {
    for (const char *row : {"Original", "Original DOOM3"}) {
        Play_World world("DOOM");
        world.choose(row);
        EXPECT_TRUE(world.play().started);
        EXPECT_EQ(world.started(), QStringList("doom3.EXE|"));
        EXPECT_FALSE(world.ui.panel_1.contains(searching));
        EXPECT_EQ(world.ui.box_texts(), QStringList());
    }
}

TEST(Play_Doom, Without_a_map_the_player_decides) {
    for (const char *game : {"DOOM", "DMOD"})
        for (const Answer answer : {Answer::ok, Answer::cancel}) {
            Play_World world(game);
            world.choose("frost.zip", {"frost.pk4"});
            const Play_Result result = world.play(answer);
            EXPECT_EQ(result.started, answer == Answer::ok);
            EXPECT_EQ(result.refusal, "");
            EXPECT_EQ(world.started(), answer == Answer::ok ? QStringList("doom3.EXE|") : QStringList());
            EXPECT_EQ(world.ui.box_texts(), QStringList(no_map));
            EXPECT_EQ(world.ui.boxes.at(0).buttons, Buttons::ok_cancel);
            EXPECT_EQ(world.ui.boxes.at(0).default_answer, Answer::cancel);
            EXPECT_EQ(world.ui.panel_1.last(), "");
        }
}

// The Dark Mod.

class Play_Dark_Mod : public testing::Test {
protected:
    Play_Dark_Mod() : world("DMOD") {}

    /// A mission package in its folder of the game, chosen in the list.
    void choose_mission(const QString &folder = "mission", const QString &map = "maps/frost.map") {
        world.package(folder.isEmpty() ? "frost.pk4" : folder + "/frost.pk4", {map});
        world.choose("frost.zip", {"frost.pk4"}, folder);
    }
    QStringList started_with(std::optional<Answer> answer = std::nullopt) {
        world.play(answer);
        return world.started();
    }

    Play_World world;
};

TEST_F(Play_Dark_Mod, A_mission_is_named_without_its_ending) {
    const Command_Row rows[] = {
        {"maps/frost.map", "+set fs_game frost"},
        {"maps/FROST.MAP", "+set fs_game FROST"},
        {"maps/sub/frost.map", "+set fs_game frost"},
        {"maps/deep frost.map", "+set fs_game \"deep frost\""},
    };
    world.program().ini.DMOD_INSTALLED = true;
    for (const Command_Row &row : rows) {
        choose_mission("mission", row.entry);
        EXPECT_EQ(started_with(), QStringList("doom3.EXE|" + row.arguments));
        EXPECT_EQ(world.ui.box_texts(), QStringList());
        EXPECT_EQ(world.last_played_cell("frost.zip"), "19/Nov/26");
    }
}

TEST_F(Play_Dark_Mod, A_mission_that_is_marked_for_it_stands_on_the_mod) {
    world.program().ini.DMOD_INSTALLED = true;
    for (const char *folder : {"mission", ""})
        for (const char *mark : {"startingMap.txt", "DarkMod.txt", "STARTINGMAP.TXT"}) {
            const QString file =
                QLatin1String(folder).isEmpty() ? QString(mark) : QString(folder) + "/" + mark;
            choose_mission(folder);
            EXPECT_EQ(started_with(), QStringList("doom3.EXE|+set fs_game frost"));
            world.game_has(file, "frost");
            choose_mission(folder);
            EXPECT_EQ(started_with(), QStringList("doom3.EXE|+set fs_game_base darkmod +set fs_game frost"));
            EXPECT_FALSE(world.platform.files->remove_file(world.game_path(file)));
        }
}

struct Mod_Row {
    const char *what;
    void (*install)(Play_World &world);
};

TEST_F(Play_Dark_Mod, The_setting_the_mods_folder_or_its_package_tell_that_it_is_installed) {
    const Mod_Row rows[] = {
        {"setting",
         [](Play_World &fresh) {
             fresh.program().ini.DMOD_INSTALLED = true;
         }},
        {"folder",
         [](Play_World &fresh) {
             fresh.make_folder(fresh.in_game("DarkMod"));
         }},
        {"package",
         [](Play_World &fresh) {
             fresh.game_has("darkmod.PK4", "x");
         }},
    };
    for (const Mod_Row &row : rows) {
        SCOPED_TRACE(row.what);
        Play_World fresh("DMOD");
        row.install(fresh);
        fresh.package("mission/frost.pk4", {"maps/frost.map"});
        fresh.choose("frost.zip", {"frost.pk4"}, "mission");
        EXPECT_TRUE(fresh.play().started);
        EXPECT_EQ(fresh.started(), QStringList("doom3.EXE|+set fs_game frost"));
        fresh.choose("Original DMOD");
        EXPECT_TRUE(fresh.play().started);
        EXPECT_EQ(fresh.started(), QStringList("doom3.EXE|+set fs_game darkmod"));
        EXPECT_EQ(fresh.ui.box_texts(), QStringList());
    }
}

TEST_F(Play_Dark_Mod, Without_the_mod_the_mission_can_be_tried_as_a_map_of_Doom_3) {
    for (const Answer answer : {Answer::yes, Answer::no}) {
        choose_mission("mission", "maps/sub/frost.map");
        EXPECT_EQ(started_with(answer),
                  answer == Answer::yes ? QStringList("doom3.EXE|+map sub\\frost.map") : QStringList());
        EXPECT_EQ(world.ui.box_texts(), QStringList(as_map));
        EXPECT_EQ(world.ui.boxes.at(0).buttons, Buttons::yes_no);
        EXPECT_EQ(world.ui.boxes.at(0).default_answer, Answer::no);
    }
}

TEST_F(Play_Dark_Mod, The_picture_library_in_the_missions_folder_is_enough) {
    world.game_has("mission/DEVIL.dll", "library");
    choose_mission();
    EXPECT_EQ(started_with(), QStringList("doom3.EXE|+set fs_game frost"));
    EXPECT_EQ(world.ui.box_texts(), QStringList());
}

TEST_F(Play_Dark_Mod, The_picture_library_is_copied_from_the_game) {
    world.game_has("DevIL.dll", "library");
    choose_mission();
    EXPECT_EQ(started_with(), QStringList("doom3.EXE|+set fs_game frost"));
    EXPECT_EQ(world.game_file("mission/DevIL.dll"), "library");
    EXPECT_EQ(world.game_file("DevIL.dll"), "library");
    EXPECT_FALSE(world.program().ini.DMOD_INSTALLED);
}

TEST_F(Play_Dark_Mod, The_picture_library_in_the_game_serves_a_mission_without_a_folder) {
    world.game_has("DevIL.dll", "library");
    choose_mission("");
    EXPECT_EQ(started_with(), QStringList("doom3.EXE|+set fs_game frost"));
}

TEST_F(Play_Dark_Mod, A_picture_library_that_can_not_be_copied_is_not_there) {
    world.game_has("DevIL.dll", "library");
    world.make_folder(world.in_game("mission/DevIL.dll"));
    choose_mission();
    EXPECT_EQ(started_with(Answer::yes), QStringList("doom3.EXE|+map frost.map"));
    EXPECT_EQ(world.ui.box_texts(), QStringList(as_map));
    EXPECT_FALSE(world.ui.trace.filter("DevIL.dll").isEmpty());
}

TEST_F(Play_Dark_Mod, Without_the_mod_its_own_missions_are_those_of_Doom_3) {
    for (const char *row : {"Original", "Original DMOD"})
        for (const Answer answer : {Answer::yes, Answer::no}) {
            world.choose(row);
            EXPECT_EQ(started_with(answer),
                      answer == Answer::yes ? QStringList("doom3.EXE|") : QStringList());
            EXPECT_EQ(world.ui.box_texts(), QStringList(originals_instead));
            EXPECT_EQ(world.ui.boxes.at(0).buttons, Buttons::yes_no);
            EXPECT_EQ(world.ui.boxes.at(0).default_answer, Answer::no);
        }
}

TEST_F(Play_Dark_Mod, The_active_game_decides_and_not_the_list) {
    world.package("base/frost.pk4", {"maps/frost.map"});
    world.choose("frost.zip", {"frost.pk4"});
    world.program().CURRENT_GAME = "DOOM";
    ASSERT_EQ(world.program().SELECTED_GAME_TAB, "DMOD");
    EXPECT_EQ(started_with(), QStringList("doom3.EXE| +map frost.map"));
}

} // namespace
} // namespace vantrosk
