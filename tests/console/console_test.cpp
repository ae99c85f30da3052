#include "Console_World.h"

#include "core/Games.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

TEST_F(Console, The_list_of_commands_is_this_one) {
    QStringList names;
    for (const Console_Command &command : Console_Commands())
        names << command.name;
    EXPECT_EQ(names, (QStringList{"settings", "tweaks", "scan", "info", "score", "reset", "render", "fields",
                                  "install", "restore", "play", "edit", "tools", "recent", "diagnose",
                                  "reference", "autoconfigure"}));
}

TEST_F(Console, No_command_an_unknown_one_and_an_unknown_option_are_wrong_usage) {
    EXPECT_EQ(run({}).exit_code, 2);
    EXPECT_EQ(run({"fly"}).exit_code, 2);
    EXPECT_EQ(run({"--frob", "scan", "T2"}).exit_code, 2);
    EXPECT_EQ(run({"--home"}).exit_code, 2);
    EXPECT_EQ(run({"scan"}).exit_code, 2);
    EXPECT_EQ(run({"scan", "T9"}).exit_code, 2);
    EXPECT_EQ(run({"scan", "T2", "--filter", "x"}).exit_code, 2);
    EXPECT_EQ(run({"play", "T2", "frost.zip", "--soon"}).exit_code, 2);
}

TEST_F(Console, Help_names_every_command_and_ends_well) {
    const Console_Run help = run({"--help"});
    EXPECT_EQ(help.exit_code, 0);
    for (const Console_Command &command : Console_Commands())
        EXPECT_TRUE(help.out.join('\n').contains(command.usage)) << command.name;
}

TEST_F(Console, A_native_path_is_stored_as_a_windows_path_and_read_by_the_next_run) {
    const Console_Run set = run({"--json", "settings", "set", "T2GAME", world.native("games/Thief2")});
    EXPECT_EQ(set.json()["T2GAME"].toString(), world.windows("games/Thief2"));
    EXPECT_EQ(run({"--json", "settings", "get", "T2GAME"}).json(),
              (QJsonObject{{"T2GAME", world.windows("games/Thief2")}}));
    EXPECT_EQ(run({"settings", "get", "T2GAME"}).out, QStringList{world.windows("games/Thief2")});
}

TEST_F(Console, A_folder_list_is_given_with_colons_and_stored_with_its_marks) {
    world.make_folder("more missions");
    run({"settings", "set", "T2", world.native("missions") + ":" + world.native("more missions")});
    EXPECT_EQ(run({"settings", "get", "T2"}).out.value(0),
              world.windows("missions") + "*#*" + world.windows("more missions") + "*#*");
    run({"settings", "set", "T2", "C:\\FMs:D:\\More"});
    EXPECT_EQ(run({"settings", "get", "T2"}).out.value(0), "C:\\FMs*#*D:\\More*#*");
    run({"settings", "set", "T2", ""});
    EXPECT_EQ(run({"--json", "settings", "get", "T2"}).json()["T2"].toString(), "");
}

TEST_F(Console, An_unknown_key_and_a_value_that_does_not_fit_are_wrong_usage_and_change_nothing) {
    EXPECT_EQ(run({"settings", "get", "NOSUCH"}).exit_code, 2);
    EXPECT_EQ(run({"settings", "set", "NOSUCH", "x"}).exit_code, 2);
    EXPECT_EQ(run({"tweaks", "set", "SCAN_ZIPS", "often"}).exit_code, 2);
    EXPECT_EQ(run({"tweaks", "set", "TITLEFONT", "two\nlines"}).exit_code, 2);
    EXPECT_EQ(run({"tweaks", "get", "SCAN_ZIPS"}).out, QStringList{"1"});
}

TEST_F(Console, A_value_that_would_not_be_understood_is_refused_with_what_would_be) {
    const Console_Run run_3 = run({"tweaks", "set", "SCAN_ZIPS", "3"});
    EXPECT_EQ(run_3.exit_code, 2);
    EXPECT_EQ(run_3.err.last(), "\"SCAN_ZIPS\" can not hold \"3\": it is 0 (slow: always), 1 (normal: "
                                "without a record) or 2 (fast: never)");
    EXPECT_EQ(run({"tweaks", "get", "SCAN_ZIPS"}).out, QStringList{"1"});
    EXPECT_EQ(run({"settings", "set", "RECORD_SQL", "maybe"}).err.last(),
              "\"RECORD_SQL\" can not hold \"maybe\": it is True or False");
    EXPECT_EQ(run({"tweaks", "set", "SCAN_ZIPS", "2"}).exit_code, 0);
}

TEST_F(Console, All_settings_and_all_tweaks_can_be_had_at_once) {
    EXPECT_EQ(run({"--json", "settings", "get"}).json().size(), 33);
    EXPECT_GE(run({"--json", "tweaks", "get"}).json().size(), 60);
    EXPECT_EQ(run({"tweaks", "set", "THE_SWAP", "True"}).exit_code, 0);
    EXPECT_EQ(run({"tweaks", "get", "THE_SWAP"}).out, QStringList{"True"});
}

TEST_F(Console, Scan_tells_the_rows_as_the_cells_have_them) {
    set_up();
    const Console_Run scan = run({"--json", "scan", "T2"});
    EXPECT_EQ(scan.exit_code, 0);
    const QJsonObject json = scan.json();
    EXPECT_EQ(json["game"].toString(), "T2");
    EXPECT_EQ(json["zip_count"].toInt(), 1);
    const QJsonArray rows = json["rows"].toArray();
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0].toObject()["name"].toString(), "Thief 2 Original Missions");
    EXPECT_EQ(rows[0].toObject()["zip"].toString(), "Original");
    const QJsonObject row = rows[1].toObject();
    EXPECT_EQ(row["name"].toString(), "Killing Frost");
    EXPECT_EQ(row["zip"].toString(), "frost.zip");
    EXPECT_EQ(row["author"].toString(), "Mirek Dvořák");
    EXPECT_EQ(row["game"].toString(), "T2");
    QStringList fields = row.keys();
    EXPECT_EQ(fields, (QStringList{"author", "category", "finished", "game", "group_score", "last_played",
                                   "name", "ready", "review", "score", "size", "zip", "zip_date"}));
}

TEST_F(Console, Info_tells_what_a_mission_is_with_native_paths) {
    set_up();
    const QJsonObject info = run({"--json", "info", "T2", "FROST.ZIP"}).json();
    EXPECT_EQ(info["zip"].toString(), "frost.zip");
    EXPECT_EQ(info["name"].toString(), "Killing Frost");
    EXPECT_EQ(info["active_game"].toString(), "T2");
    EXPECT_EQ(info["game_path"].toString(), world.native("games/Thief2"));
    EXPECT_EQ(info["mission_files"].toArray(), QJsonArray{"miss20.mis"});
    EXPECT_TRUE(QFile::exists(info["readme_page_path"].toString()))
        << info["readme_page_path"].toString().toStdString();
    EXPECT_FALSE(info["installed"].toBool(true));
    EXPECT_EQ(run({"info", "T2", "nosuch.zip"}).exit_code, 1);
}

TEST_F(Console, Install_play_and_restore_go_the_whole_road_and_the_game_folder_is_as_before) {
    set_up();
    world.write("games/Thief2/SAVES/game0001.sav", "the player's");
    Snapshot before = world.snapshot("games/Thief2");

    const Console_Run install = run({"--json", "install", "T2", "frost.zip"});
    EXPECT_EQ(install.exit_code, 0) << install.err.join('\n').toStdString();
    EXPECT_TRUE(install.json()["installed"].toBool());
    EXPECT_EQ(install.json()["status"].toString(), "FM installed");
    EXPECT_EQ(install.json()["stages"].toArray().size(), 8);
    EXPECT_EQ(world.read("games/Thief2/strings/note.str"), "the mission's");
    EXPECT_FALSE(world.exists("games/Thief2/SAVES/game0001.sav"));

    const Console_Run play = run({"--json", "play", "T2", "frost.zip", "--wait"});
    EXPECT_EQ(play.exit_code, 0) << play.err.join('\n').toStdString();
    EXPECT_TRUE(play.json()["started"].toBool());
    EXPECT_EQ(play.json()["command"].toArray(),
              (QJsonArray{world.native("runner.sh"), world.windows("games/Thief2") + "\\thief2.EXE"}));
    EXPECT_EQ(play.json()["working_folder_path"].toString(), world.native("games/Thief2"));

    const Console_Run restore = run({"--json", "restore", "T2"});
    EXPECT_EQ(restore.exit_code, 0) << restore.err.join('\n').toStdString();
    EXPECT_TRUE(restore.json()["installed"].toBool());
    Snapshot after = world.snapshot("games/Thief2");
    EXPECT_EQ(after["SAVES/game0001.sav"], "the player's");
    for (const char *ours : {"current_install.txt", "allsaves/", "allsaves/saves_Original.zip"})
        after.erase(ours);
    EXPECT_EQ(after, before);
}

TEST_F(Console, Two_runs_never_work_on_one_game_folder_at_the_same_time) {
    set_up();
    const Snapshot before = world.snapshot("games/Thief2");
    auto other = world.platform.files->lock_folder(world.windows("games/Thief2"));
    const Console_Run refused = run({"--json", "install", "T2", "frost.zip"});
    EXPECT_EQ(refused.exit_code, 1);
    EXPECT_EQ(refused.json()["status"].toString(), "Install Aborted");
    EXPECT_TRUE(refused.err.join('\n').contains("another Vantrosk is installing into"));
    EXPECT_EQ(world.snapshot("games/Thief2"), before);
    other.value.reset();
    EXPECT_EQ(run({"install", "T2", "frost.zip"}).exit_code, 0);
}

TEST_F(Console, Two_runs_never_share_the_recovery_log_of_one_program_folder) {
    set_up();
    const Snapshot before = world.snapshot("games/Thief2");
    auto other = world.platform.files->lock_folder(world.windows("home"));
    const Console_Run refused = run({"--json", "install", "T2", "frost.zip"});
    EXPECT_EQ(refused.exit_code, 1);
    EXPECT_EQ(refused.json()["status"].toString(), "Install Aborted");
    EXPECT_TRUE(
        refused.err.join('\n').contains("another Vantrosk is installing with the same program folder"));
    EXPECT_EQ(world.snapshot("games/Thief2"), before);
    EXPECT_FALSE(world.exists("home/install_recover.log"));
    other.value.reset();
    EXPECT_EQ(run({"install", "T2", "frost.zip"}).exit_code, 0);
}

TEST_F(Console, The_log_of_an_install_that_goes_on_elsewhere_is_no_crash) {
    set_up();
    world.write("home/install_recover.log", "[UNZIPPING_FM]");
    world.write("home/debug.log", "its steps");
    auto other = world.platform.files->lock_folder(world.windows("home"));
    EXPECT_FALSE(run({"settings", "get", "T2"}).err.join('\n').contains("did not finish"));
    EXPECT_EQ(world.read("home/debug.log"), "its steps");
    other.value.reset();
    EXPECT_TRUE(run({"settings", "get", "T2"}).err.join('\n').contains("did not finish"));
}

TEST_F(Console, A_known_zip_that_became_unreadable_is_named_and_nothing_changes) {
    set_up();
    run({"scan", "T2"});
    world.write("missions/frost.zip", "no zip any more");
    const Snapshot before = world.snapshot("games/Thief2");
    const Console_Run install = run({"install", "T2", "frost.zip"});
    EXPECT_EQ(install.exit_code, 1);
    EXPECT_TRUE(install.err.join('\n').contains("frost.zip")) << install.err.join('\n').toStdString();
    EXPECT_EQ(world.snapshot("games/Thief2"), before);
}

TEST_F(Console, Play_refuses_what_is_not_installed_and_starts_nothing) {
    set_up();
    const Console_Run play = run({"--json", "play", "T2", "frost.zip"});
    EXPECT_EQ(play.exit_code, 1);
    EXPECT_FALSE(play.json()["started"].toBool(true));
    EXPECT_TRUE(play.json()["command"].toArray().isEmpty());
    EXPECT_FALSE(world.exists("runner.sh.arguments"));
}

TEST_F(Console, Play_without_a_script_file_of_thief_2_says_which_and_fails) {
    set_up();
    run({"install", "T2", "frost.zip"});
    QFile::remove(world.native("games/Thief2/convict.osm"));
    const Console_Run play = run({"play", "T2", "frost.zip"});
    EXPECT_EQ(play.exit_code, 1);
    EXPECT_TRUE(play.err.value(0).startsWith(
        "warning \"\" WARNING: Vantrosk has detected that you do not have 'convict.osm' "
        "installed in your Thief 2 directory."))
        << play.err.join('\n').toStdString();
}

TEST_F(Console, A_game_that_does_not_start_gives_the_systems_reason_and_fails) {
    set_up();
    run({"install", "T2", "frost.zip"});
    QFile::remove(world.native("games/Thief2/thief2.exe"));
    const Console_Run play = run({"--json", "play", "T2", "frost.zip"});
    EXPECT_EQ(play.exit_code, 1);
    EXPECT_FALSE(play.json()["started"].toBool(true));
    EXPECT_TRUE(play.err.join('\n').contains("thief2", Qt::CaseInsensitive))
        << play.err.join('\n').toStdString();
}

TEST_F(Console, The_original_missions_play_without_the_script_files) {
    set_up();
    QFile::remove(world.native("games/Thief2/convict.osm"));
    const Console_Run play = run({"--json", "play", "T2", "Original", "--wait"});
    EXPECT_EQ(play.exit_code, 0) << play.err.join('\n').toStdString();
    EXPECT_TRUE(play.json()["started"].toBool());
    EXPECT_EQ(world.read("runner.sh.folder").trimmed(), world.native("games/Thief2").toUtf8());
}

TEST_F(Console, A_missing_mission_folder_is_told_and_is_no_failure) {
    set_up();
    run({"settings", "set", "T2", world.native("nowhere")});
    const Console_Run scan = run({"--json", "scan", "T2"});
    EXPECT_EQ(scan.exit_code, 0);
    EXPECT_EQ(scan.json()["rows"].toArray().size(), 1);
    EXPECT_TRUE(scan.err.join('\n').contains("nowhere")) << scan.err.join('\n').toStdString();
}

TEST_F(Console, Questions_take_their_answers_in_order_and_then_their_defaults) {
    QStringList lines;
    Console_Ui ui({[](const QString &) {}, [&](const QString &line) { lines << line; }, false},
                  {"yes", "text for it", "maybe"});
    const Box question{Box_Kind::question, "Title", "One\r\nTwo", Buttons::yes_no, Answer::no};
    EXPECT_EQ(ui.show_box({Box_Kind::information, "", "Just so", Buttons::ok, Answer::ok}), Answer::ok);
    EXPECT_EQ(ui.show_box(question), Answer::yes);
    EXPECT_EQ(ui.ask_input({"Server", "Which?", "", "", ""}).value_or("none"), "text for it");
    EXPECT_EQ(ui.show_box(question), Answer::no);
    EXPECT_EQ(ui.show_box(question), Answer::no);
    EXPECT_FALSE(ui.ask_input({"Server", "Which?", "", "", ""}).has_value());
    EXPECT_EQ(lines,
              (QStringList{"information \"\" Just so -> ok", "question \"Title\" One / Two -> yes",
                           "input \"Server\" Which? -> text for it", "question \"Title\" One / Two -> no",
                           "question \"Title\" One / Two -> no", "input \"Server\" Which? -> cancel"}));
}

} // namespace
} // namespace vantrosk
