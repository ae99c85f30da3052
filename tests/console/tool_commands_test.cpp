#include "console/Console_World.h"

#include <QJsonArray>

namespace vantrosk {

class Tool_Commands : public Console {
protected:
    QJsonArray array(const QStringList &words) {
        const Console_Run result = run(QStringList{"--json"} + words);
        EXPECT_EQ(result.exit_code, 0) << result.err.join('\n').toStdString();
        return QJsonDocument::fromJson(result.out.join('\n').toUtf8()).array();
    }
    void add_editor() {
        world.write("downloads/edit.exe", "MZ");
        array({"tools", "add", world.native("downloads/edit.exe"), "--name", "Editor", "--args", "-a b",
               "--run-when", "T2*SS2*", "--wait"});
    }
    void play_frost() {
        set_up();
        ASSERT_EQ(run({"install", "T2", "frost.zip"}).exit_code, 0);
        ASSERT_EQ(run({"play", "T2", "frost.zip", "--wait"}).exit_code, 0);
    }
};

TEST_F(Tool_Commands, Tools_are_an_empty_list_at_first) {
    EXPECT_EQ(run({"--json", "tools", "list"}).out, QStringList("[]"));
    EXPECT_EQ(run({"tools", "list"}).out, QStringList());
}

TEST_F(Tool_Commands, A_tool_is_added_listed_and_deleted) {
    add_editor();
    const QJsonObject editor{
        {"id", 1},        {"name", "Editor"},      {"exe", world.windows("downloads/edit.exe")},
        {"args", "-a b"}, {"run_when", "T2*SS2*"}, {"wait", true},
        {"warning", ""}};
    EXPECT_EQ(array({"tools", "list"}), QJsonArray{editor});
    world.write("downloads/fix.bat", "echo");
    const QJsonArray both = array({"tools", "add", world.native("downloads/fix.bat"), "--copy"});
    ASSERT_EQ(both.size(), 2);
    EXPECT_EQ(both[1].toObject()["name"].toString(), "fix");
    EXPECT_EQ(both[1].toObject()["exe"].toString(), "fix.bat");
    EXPECT_EQ(both[1].toObject()["run_when"].toString(), "");
    EXPECT_EQ(world.read("home/tools/fix.bat"), "echo");
    EXPECT_EQ(array({"tools", "delete", "2"}), QJsonArray{editor});
    EXPECT_TRUE(run({"tools", "list"}).out.value(0).contains("Editor"));
}

TEST_F(Tool_Commands, The_warning_of_waiting_is_told) {
    world.write("a.exe", "MZ");
    const Console_Run added = run({"tools", "add", world.native("a.exe"), "--wait"});
    EXPECT_EQ(added.exit_code, 0);
    ASSERT_EQ(added.err.size(), 1);
    EXPECT_TRUE(added.err[0].startsWith("warning \"\" WARNING: by selecting this Vantrosk will wait"));
}

TEST_F(Tool_Commands, What_is_wrong_with_a_file_is_told) {
    add_editor();
    world.write("downloads/edit.exe", "NZ");
    EXPECT_EQ(array({"tools", "list"})[0].toObject()["warning"].toString(), "Exe Has Changed");
    ASSERT_TRUE(QFile::remove(world.native("downloads/edit.exe")));
    EXPECT_EQ(array({"tools", "list"})[0].toObject()["warning"].toString(), "Exe Not Found");
}

TEST_F(Tool_Commands, Words_that_make_no_tool_are_wrong_usage) {
    world.write("a.exe", "MZ");
    const QString file = world.native("a.exe");
    for (const QStringList &words : {QStringList{"tools"},
                                     {"tools", "list", "x"},
                                     {"tools", "add"},
                                     {"tools", "add", file, "--name"},
                                     {"tools", "add", file, "--what", "x"},
                                     {"tools", "add", file, "--run-when", "T9"},
                                     {"tools", "delete"},
                                     {"tools", "delete", "x"},
                                     {"tools", "delete", "0"},
                                     {"tools", "show"}})
        EXPECT_EQ(run(words).exit_code, 2) << words.join(' ').toStdString();
    EXPECT_EQ(array({"tools", "list"}), QJsonArray());
}

TEST_F(Tool_Commands, A_tool_that_is_not_there_is_a_failure) {
    const Console_Run missing = run({"tools", "add", world.native("nosuch.exe")});
    EXPECT_EQ(missing.exit_code, 1);
    EXPECT_TRUE(missing.err.value(0).contains("nosuch.exe"));
    const Console_Run unknown = run({"tools", "delete", "7"});
    EXPECT_EQ(unknown.exit_code, 1);
    EXPECT_EQ(unknown.err, QStringList("there is no tool 7"));
}

TEST_F(Tool_Commands, A_played_mission_is_the_first_of_the_recent_ones) {
    EXPECT_EQ(run({"--json", "recent", "list"}).out, QStringList("[]"));
    play_frost();
    const QJsonArray recent = array({"recent", "list"});
    ASSERT_EQ(recent.size(), 1);
    QJsonObject frost = recent[0].toObject();
    EXPECT_EQ(frost.take("installed_date").toString(), "2026-11-19 22:14:05");
    EXPECT_EQ(frost, (QJsonObject{{"rank", 1},
                                  {"zip", "frost.zip"},
                                  {"name", "Killing Frost"},
                                  {"game", "T2"},
                                  {"zip_found", true}}));
    EXPECT_EQ(run({"recent", "list"}).out, QStringList(" 1  2026-11-19 22:14:05  T2    Killing Frost"));
    ASSERT_TRUE(QFile::remove(world.native("missions/frost.zip")));
    EXPECT_FALSE(array({"recent", "list"})[0].toObject()["zip_found"].toBool());
    EXPECT_EQ(run({"--json", "recent", "remove", "1"}).out, QStringList("[]"));
    EXPECT_EQ(run({"recent", "remove", "1"}).exit_code, 1);
}

TEST_F(Tool_Commands, Other_words_for_recent_are_wrong_usage) {
    for (const QStringList &words : {QStringList{"recent"},
                                     {"recent", "list", "1"},
                                     {"recent", "remove"},
                                     {"recent", "remove", "first"},
                                     {"recent", "clear"}})
        EXPECT_EQ(run(words).exit_code, 2) << words.join(' ').toStdString();
}

TEST_F(Tool_Commands, Edit_starts_the_editor_with_the_mission) {
    set_up();
    world.write("games/Thief2/DromEd.exe", "MZ");
    const Console_Run edit = run({"--json", "edit", "T2", "frost.zip"});
    EXPECT_EQ(edit.exit_code, 0);
    EXPECT_EQ(edit.json(),
              (QJsonObject{{"command", QJsonArray{world.native("runner.sh"),
                                                  world.windows("games/Thief2") + "\\dromed.exe"}},
                           {"working_folder_path", world.native("games/Thief2")},
                           {"started", true}}));
    EXPECT_EQ(world.read("games/Thief2/vantrosk.dromed"), "load_file miss20.mis\r\n");
}

TEST_F(Tool_Commands, Edit_without_an_editor_fails_and_says_why) {
    set_up();
    const Console_Run edit = run({"--json", "edit", "T2", "frost.zip"});
    EXPECT_EQ(edit.exit_code, 1);
    EXPECT_FALSE(edit.json()["started"].toBool());
    EXPECT_EQ(edit.err.last(), "there is no editor for T2");
    EXPECT_EQ(run({"edit", "T2", "nosuch.zip"}).exit_code, 1);
    EXPECT_EQ(run({"edit", "T2"}).exit_code, 2);
}

TEST_F(Tool_Commands, Play_runs_the_tools_first_and_puts_the_start_up_picture_back) {
    set_up();
    world.write("home/Enhancements/T2/Pack1_1.256", "pack");
    world.write("games/Thief2/00000409.256", "own");
    ASSERT_EQ(run({"tweaks", "set", "RESKIN_THIEF2", "True"}).exit_code, 0);
    ASSERT_EQ(run({"install", "T2", "frost.zip"}).exit_code, 0);
    const qint64 before = world.clock->slept;
    EXPECT_EQ(run({"play", "T2", "frost.zip"}).exit_code, 0);
    EXPECT_GE(world.clock->slept - before, 10000);
    EXPECT_EQ(world.read("games/Thief2/00000409.256"), "own");
    EXPECT_FALSE(world.exists("games/Thief2/00000409.256.VKBU"));
}

} // namespace vantrosk
