#include "install/Play_World.h"

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

const QStringList play_trace{"MAIN FORM: Playing the game", "MAIN FORM: End Playing the game"};
constexpr const char *dark_metal_question =
    "Dark Metal is not yet fully supported, however you can still try to run it?.";

struct Start_Row {
    const char *game;
    QStringList started;
    QStringList asked;
    QString cell;
};

const Start_Row start_rows[] = {
    {"T1", {"thief.exe|"}, {"100: thief.exe"}, "19/Nov/26"},
    {"TG", {"thief.exe|"}, {"100: thief.exe"}, "19/Nov/26"},
    {"T2", {"thief2.EXE|"}, {"100: thief2.exe", "200: thief2.icd"}, "19/Nov/26"},
    {"T3", {"T3.EXE|"}, {}, ""},
    {"T2X", {"T2X.EXE|"}, {"100: thief2.exe", "100: thief2.icd"}, "19/Nov/26"},
    {"SS2", {"SHOCK2.EXE|"}, {"100: shock2.exe", "100: shock2.icd"}, "19/Nov/26"},
};

TEST(Play_Starts, Each_game_is_started_in_its_folder_and_its_processors_are_asked_about) {
    for (const Start_Row &row : start_rows) {
        SCOPED_TRACE(row.game);
        Play_World world(row.game);
        world.choose("frost.zip");
        const Play_Result result = world.play();
        EXPECT_TRUE(result.started);
        EXPECT_EQ(result.refusal, "");
        EXPECT_EQ(result.start.process_id, 4711);
        EXPECT_EQ(result.start.working_folder_path, "/native/game");
        EXPECT_EQ(world.started(), row.started);
        EXPECT_EQ(world.processes->requests.at(0).working_folder, world.program().CURRENT_GAME_PATH);
        EXPECT_EQ(world.processes->asked, row.asked);
        EXPECT_EQ(world.last_played_cell("frost.zip"), row.cell);
        EXPECT_EQ(world.last_played_record("frost.zip"), "2026-11-19");
        EXPECT_EQ(world.ui.panel_1,
                  (QStringList{"Initiating any startup tools", "Tools started, now starting game.", ""}));
        EXPECT_EQ(world.ui.lights, (std::vector<int>{2, 1}));
        EXPECT_EQ(world.ui.box_texts(), QStringList());
    }
}

TEST(Play_Starts, The_games_own_missions_are_started_alike_and_are_not_played_by_date) {
    for (const Start_Row &row : start_rows) {
        SCOPED_TRACE(row.game);
        Play_World world(row.game);
        world.choose("frost.zip");
        world.choose("Original");
        EXPECT_TRUE(world.play().started);
        EXPECT_EQ(world.started(), row.started);
        EXPECT_EQ(world.last_played_cell("Original"), "");
        EXPECT_EQ(world.last_played_cell("frost.zip"), "");
        EXPECT_EQ(world.last_played_record("frost.zip"), "");
    }
}

TEST(Play_Starts, Thief3_undoes_the_last_sessions_patches_and_applies_this_missions) {
    Play_World world("T3");
    world.game_has("System/T3UI.ini", "[UI]\r\nScale=patched last time\r\n");
    world.game_has("System/T3UI.ini.VKBU", "[UI]\r\nScale=1\r\n");
    world.game_has("System/T3Hud.ini", "[Hud]\r\nSize=patched last time\r\n");
    world.game_has("System/T3Hud.ini.VKBU", "[Hud]\r\nSize=1\r\n");
    world.game_has("System/T3Hud_patch.ini", "[Hud]\r\nSize=3\r\n");
    world.choose("frost.zip");
    EXPECT_TRUE(world.play().started);
    EXPECT_EQ(world.game_file("System/T3UI.ini"), "[UI]\r\nScale=1\r\n");
    EXPECT_FALSE(world.exists(world.in_game("System/T3UI.ini.VKBU")));
    EXPECT_EQ(world.game_file("System/T3Hud.ini"), "[Hud]\r\nSize=3\r\n");
    EXPECT_EQ(world.game_file("System/T3Hud.ini.VKBU"), "[Hud]\r\nSize=1\r\n");
}

TEST(Play_Starts, Other_games_leave_thief3_alone) {
    Play_World world("T2");
    world.program().ini.T3_GAME_LOCATION = world.windows("games/T3");
    world.write("games/T3/T3UI.ini.VKBU", "older");
    world.choose("frost.zip");
    EXPECT_TRUE(world.play().started);
    EXPECT_EQ(world.read("games/T3/T3UI.ini.VKBU"), "older");
}

TEST(Play_Starts, The_trace_tells_its_beginning_and_its_end) {
    Play_World world("T1");
    world.choose("frost.zip");
    world.play();
    QStringList told;
    for (const QString &line : world.ui.trace)
        for (const QString &wanted : play_trace)
            if (line.contains(wanted))
                told << wanted;
    EXPECT_EQ(told, play_trace);
}

TEST(Play_Starts, Shock_is_started_through_its_multi_processor_fix_where_that_is) {
    for (const char *name : {"ss2mtfix.exe", "SS2MTFix.EXE"}) {
        Play_World world("SS2");
        world.game_has(name, "MZ");
        world.choose("frost.zip");
        EXPECT_TRUE(world.play().started);
        EXPECT_EQ(world.started(), QStringList("SS2MTFIX.EXE|"));
        EXPECT_EQ(world.processes->asked, (QStringList{"100: shock2.exe", "100: shock2.icd"}));
    }
}

TEST(Play_Starts, A_process_that_is_not_there_yet_is_asked_about_twice) {
    Play_World world("T2");
    world.processes->processors = 0;
    world.choose("frost.zip");
    EXPECT_TRUE(world.play().started);
    EXPECT_EQ(world.processes->asked,
              (QStringList{"100: thief2.exe", "1100: thief2.exe", "1200: thief2.icd", "2200: thief2.icd"}));
}

TEST(Play_Starts, Dark_Metal_asks_first) {
    for (const Answer answer : {Answer::yes, Answer::no}) {
        Play_World world("DM");
        world.choose("frost.zip");
        const Play_Result result = world.play(answer);
        EXPECT_EQ(result.started, answer == Answer::yes);
        EXPECT_EQ(result.refusal, "");
        EXPECT_EQ(world.started(), answer == Answer::yes ? QStringList("thief2.exe|") : QStringList());
        EXPECT_EQ(world.processes->asked, QStringList());
        EXPECT_EQ(world.ui.box_texts(), QStringList(dark_metal_question));
        EXPECT_EQ(world.ui.boxes.at(0).buttons, Buttons::yes_no);
        EXPECT_EQ(world.ui.boxes.at(0).default_answer, Answer::no);
        EXPECT_EQ(world.ui.lights, (std::vector<int>{2, 2, 1, 1}));
        EXPECT_EQ(world.last_played_cell("frost.zip"), "19/Nov/26");
        EXPECT_EQ(world.last_played_record("frost.zip"), "2026-11-19");
    }
}

TEST(Play_Starts, A_day_and_a_month_of_one_digit_are_written_with_two_and_in_English) {
    Play_World world("T1");
    world.clock->time = QDateTime(QDate(2027, 5, 3), QTime(0, 0, 1));
    world.choose("frost.zip");
    world.play();
    EXPECT_EQ(world.last_played_cell("frost.zip"), "03/May/27");
}

TEST(Play_Starts, Only_the_chosen_mission_counts_as_played) {
    Play_World world("T1");
    world.choose("other.zip");
    world.choose("frost.zip");
    world.play();
    EXPECT_EQ(world.last_played_cell("other.zip"), "");
    EXPECT_EQ(world.last_played_record("other.zip"), "");
}

TEST(Play_Starts, What_the_system_refuses_is_told_in_the_panel_without_a_box) {
    for (const char *game : {"T1", "T2", "T3", "T2X", "SS2", "DOOM"}) {
        SCOPED_TRACE(game);
        Play_World world(game);
        world.processes->start_fault = {Fault_Kind::not_available, "Wine was not found."};
        world.choose("frost.zip");
        if (QLatin1String(game) == QLatin1String("DOOM"))
            world.choose("Original");
        const Play_Result result = world.play();
        EXPECT_FALSE(result.started);
        EXPECT_EQ(result.refusal, "Wine was not found.");
        EXPECT_EQ(result.start.command, QStringList());
        EXPECT_EQ(world.processes->asked, QStringList());
        EXPECT_EQ(world.ui.box_texts(), QStringList());
        EXPECT_EQ(world.ui.panel_1.last(), "Wine was not found.");
        EXPECT_EQ(world.ui.lights, (std::vector<int>{2, 1}));
        EXPECT_EQ(world.last_played_record("frost.zip"),
                  world.program().FM_PANEL == "frost.zip" ? "2026-11-19" : "");
        EXPECT_FALSE(world.ui.trace.filter("Wine was not found.").isEmpty());
        EXPECT_FALSE(world.ui.trace.filter(play_trace.last()).isEmpty());
    }
}

TEST(Play_Starts, A_row_that_is_not_installed_is_refused_and_nothing_changes) {
    Play_World world("T1");
    world.choose("frost.zip");
    world.program().screen.details.play_enabled = false;
    const Snapshot before = world.whole_game();
    const Play_Result result = world.play();
    EXPECT_FALSE(result.started);
    EXPECT_EQ(result.refusal, "\"frost.zip\" is not installed, so it can not be played");
    EXPECT_EQ(world.started(), QStringList());
    EXPECT_EQ(world.last_played_record("frost.zip"), "");
    EXPECT_EQ(world.ui.panel_1, QStringList(result.refusal));
    EXPECT_EQ(world.ui.box_texts(), QStringList());
    EXPECT_EQ(world.whole_game(), before);
}

TEST(Play_Starts, A_game_that_nobody_knows_is_not_started) {
    Play_World world("T1");
    world.choose("frost.zip");
    world.program().CURRENT_GAME = "T9";
    const Play_Result result = world.play();
    EXPECT_FALSE(result.started);
    EXPECT_EQ(result.refusal, "Vantrosk does not know how to start \"T9\"");
    EXPECT_EQ(world.started(), QStringList());
    EXPECT_EQ(world.last_played_cell("frost.zip"), "");
}

TEST(Play_Starts, Afterwards_Play_is_on_again_for_what_is_installed) {
    Play_World world("T1");
    world.mission("frost.zip", {{"miss20.mis", "map"}});
    world.mission("other.zip", {{"miss20.mis", "map"}});
    ASSERT_TRUE(world.install("frost.zip"));
    const bool &play_enabled = world.program().screen.details.play_enabled;
    world.choose("frost.zip");
    world.program().screen.details.play_enabled = false;
    After_Play(world.program());
    EXPECT_TRUE(play_enabled);
    for (const char *row : {"other.zip", "Original"}) {
        world.select(row);
        After_Play(world.program());
        EXPECT_FALSE(play_enabled) << row;
    }
    ASSERT_TRUE(world.restore());
    world.program().screen.details.play_enabled = false;
    After_Play(world.program());
    EXPECT_TRUE(play_enabled);
}

// Missions of Thief 2 and their script files.

QString Script_warning(const QString &name) {
    return "WARNING: Vantrosk has detected that you do not have '" + name +
           "' installed in your Thief 2 directory. This file is required to play Fan Missions and can be "
           "downloaded from\r\nhttp://vantrosk.example/downloads/\r\nhttp://mirror.vantrosk.example/"
           "downloads/";
}

void Remove_scripts(const Play_World &world, const QStringList &names) {
    for (const QString &name : names)
        EXPECT_FALSE(world.platform.files->remove_file(world.game_path(name)));
}

TEST(Play_Scripts, Each_missing_script_file_of_Thief_2_has_its_warning_and_nothing_starts) {
    const QStringList both{"convict.osm", "darkhooks.dlx"};
    for (const QStringList &missing : {both.mid(0, 1), both.mid(1, 1), both}) {
        Play_World world("T2");
        Remove_scripts(world, missing);
        world.choose("frost.zip");
        const Play_Result result = world.play();
        EXPECT_FALSE(result.started);
        EXPECT_EQ(result.refusal, "Thief 2 is missing " + missing.join(" and "));
        QStringList warnings;
        for (const QString &name : missing)
            warnings << Script_warning(name);
        EXPECT_EQ(world.ui.box_texts(), warnings);
        for (const Box &box : world.ui.boxes)
            EXPECT_EQ(box.kind, Box_Kind::warning);
        EXPECT_EQ(world.started(), QStringList());
        EXPECT_EQ(world.last_played_record("frost.zip"), "");
        EXPECT_EQ(world.last_played_cell("frost.zip"), "");
        EXPECT_EQ(world.ui.panel_1, (QStringList{"Initiating any startup tools", result.refusal}));
        EXPECT_EQ(world.ui.lights, (std::vector<int>{2, 1}));
    }
}

TEST(Play_Scripts, The_games_own_missions_need_no_script_files) {
    Play_World world("T2");
    Remove_scripts(world, {"convict.osm", "darkhooks.dlx"});
    world.choose("Original");
    EXPECT_TRUE(world.play().started);
    EXPECT_EQ(world.ui.box_texts(), QStringList());
}

TEST(Play_Scripts, A_mission_whose_name_begins_like_the_original_rows_is_a_mission) {
    Play_World world("T2");
    Remove_scripts(world, {"convict.osm"});
    world.mission("originalsin.zip", {{"miss20.mis", "map"}});
    world.select("originalsin.zip");
    world.program().screen.details.play_enabled = true;
    EXPECT_FALSE(world.play().started);
    EXPECT_EQ(world.ui.box_texts(), QStringList(Script_warning("convict.osm")));
}

TEST(Play_Scripts, Their_names_are_found_in_any_case) {
    Play_World world("T2");
    Remove_scripts(world, {"convict.osm", "darkhooks.dlx"});
    world.game_has("CONVICT.OSM", "script");
    world.game_has("DarkHooks.dlx", "script");
    world.choose("frost.zip");
    EXPECT_TRUE(world.play().started);
}

TEST(Play_Scripts, Only_Thief_2_itself_needs_them) {
    for (const char *game : {"T1", "TG", "T3", "T2X", "SS2"}) {
        Play_World world(game);
        world.choose("frost.zip");
        EXPECT_TRUE(world.play().started) << game;
        EXPECT_EQ(world.ui.box_texts(), QStringList()) << game;
    }
}

} // namespace
} // namespace vantrosk
