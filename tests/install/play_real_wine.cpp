#include "core/mdlDB_Functions.h"
#include "core/mdlFile_Functions.h"
#include "install/Install_World.h"
#include "install/Play.h"
#include "platform/linux/Linux_Platform.h"
#include "support/Real_Wine.h"

#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

/// The game: tells its folder and its arguments in a file of that folder, and ends.
constexpr const char *game_source = R"(
#include <stdio.h>
#include <windows.h>
int wmain(int count, wchar_t **arguments) {
    wchar_t folder[MAX_PATH];
    FILE *told = _wfopen(L"told", L"wb");
    GetCurrentDirectoryW(MAX_PATH, folder);
    fwrite(folder, 2, wcslen(folder), told);
    for (int i = 0; i < count; ++i) {
        fwrite(L"\n", 2, 1, told);
        fwrite(arguments[i], 2, wcslen(arguments[i]), told);
    }
    return fclose(told);
}
)";

class Play_Real_Wine : public testing::Test {
protected:
    void SetUp() override {
        const Real_Wine wine = Find_real_wine();
        if (!wine.refusal.isEmpty())
            GTEST_SKIP() << wine.refusal.toStdString();
        prefix_ = wine.prefix;
    }

    /// The game's program stands in its folder, and starts go to the real Wine.
    bool set_up(Install_World &world, const QString &program_name) const {
        Linux_Options options;
        options.wine_prefix = prefix_;
        options.runner = "wine";
        options.settings_file = world.native("wine.conf");
        world.platform.processes = Make_Linux_Platform(options).processes;
        return Make_windows_program(game_source, world.native(world.in_game(program_name)));
    }

    static bool wait_for_end(const Install_World &world, const Play_Result &played) {
        QElapsedTimer timer;
        timer.start();
        while (world.platform.processes->is_running(played.start.process_id)) {
            if (timer.elapsed() > 60000)
                return false;
            QThread::msleep(10);
        }
        return true;
    }

    static QStringList told(const Install_World &world) { return told_in(world, world.in_game("told")); }
    static QStringList told_in(const Install_World &world, const QString &file) {
        const QByteArray bytes = world.read(file);
        return QString::fromUtf16(reinterpret_cast<const char16_t *>(bytes.constData()), bytes.size() / 2)
            .split('\n');
    }

private:
    QString prefix_;
};

TEST_F(Play_Real_Wine, An_installed_mission_of_Thief_2_is_played_to_its_end_and_taken_out_again) {
    Install_World world("T2");
    ASSERT_TRUE(set_up(world, "Thief2.exe"));
    world.game_has("convict.osm", "script");
    world.game_has("darkhooks.dlx", "script");
    world.game_has("strings/note.str", "the game's own");
    const Snapshot before = world.game();
    world.mission("frost.zip", {{"miss20.mis", "map"}, {"strings/note.str", "the mission's"}});
    ASSERT_TRUE(world.install("frost.zip"));
    const Play_Result played = Play_Command(world.program());
    ASSERT_TRUE(played.started) << played.refusal.toStdString();
    EXPECT_TRUE(wait_for_end(world, played));
    After_Play(world.program());
    EXPECT_EQ(told(world), (QStringList{world.game_path(), world.game_path("thief2.EXE")}));
    EXPECT_EQ(played.start.working_folder_path, world.native(world.game_folder));
    EXPECT_TRUE(world.program().screen.details.play_enabled);
    EXPECT_TRUE(QFile::remove(world.native(world.in_game("told"))));
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.game(), before);
}

TEST_F(Play_Real_Wine, Doom_3_gets_its_map_as_two_arguments) {
    Install_World world("DOOM");
    ASSERT_TRUE(set_up(world, "Doom3.exe"));
    Make_zip(world.native("deep.pk4"), {{"maps/game/deep frost.map", "map"}});
    world.mission("frost.zip", {{"frost.pk4", world.read("deep.pk4")}});
    ASSERT_TRUE(world.install("frost.zip"));
    world.program().fm.mission_files = QStringList("frost.pk4");
    const Play_Result played = Play_Command(world.program());
    ASSERT_TRUE(played.started) << played.refusal.toStdString();
    EXPECT_TRUE(wait_for_end(world, played));
    EXPECT_EQ(told(world),
              (QStringList{world.game_path(), world.game_path("doom3.EXE"), "+map", "game\\deep frost.map"}));
}

struct Wine_Start {
    const char *game;
    const char *program; ///< as it is spelled on disk
    const char *asked;   ///< as it is asked for
    QStringList arguments;
};

class Play_Real_Games : public Play_Real_Wine, public testing::WithParamInterface<Wine_Start> {};

TEST_P(Play_Real_Games, Starts_its_program_in_its_folder) {
    const Wine_Start &row = GetParam();
    Install_World world(row.game);
    const QString folder = QString(row.game) == "T3" ? "System/" : "";
    ASSERT_TRUE(set_up(world, folder + row.program));
    if (QString(row.game) == "DMOD")
        world.make_folder(world.in_game("darkmod"));
    world.select("Original");
    world.program().screen.details.play_enabled = true;
    world.ui.answers = {Answer::yes};
    const Play_Result played = Play_Command(world.program());
    ASSERT_TRUE(played.started) << played.refusal.toStdString();
    EXPECT_TRUE(wait_for_end(world, played));
    const QString path = world.program().CURRENT_GAME_PATH;
    EXPECT_EQ(told_in(world, world.in_game(folder + "told")),
              (QStringList{path, path + "\\" + row.asked}) + row.arguments);
}

INSTANTIATE_TEST_SUITE_P(
    Table, Play_Real_Games,
    testing::Values(Wine_Start{"T1", "Thief.exe", "thief.exe", {}},
                    Wine_Start{"TG", "THIEF.EXE", "thief.exe", {}},
                    Wine_Start{"T2X", "t2x.exe", "T2X.EXE", {}}, Wine_Start{"T3", "t3.exe", "T3.EXE", {}},
                    Wine_Start{"SS2", "Shock2.exe", "SHOCK2.EXE", {}},
                    Wine_Start{"DM", "Thief2.exe", "thief2.exe", {}},
                    Wine_Start{"DMOD", "Doom3.exe", "doom3.EXE", {"+set", "fs_game", "darkmod"}}),
    [](const auto &row) { return row.param.game; });

TEST_F(Play_Real_Wine, Tools_of_every_kind_have_ended_before_the_game_starts) {
    Install_World world("T2");
    ASSERT_TRUE(set_up(world, "Thief2.exe"));
    ASSERT_TRUE(Make_windows_program(game_source, world.native("home/tools/second tool.exe")));
    world.write("home/tools/first.bat", "@echo off\r\necho batch %1> batch.txt\r\n");
    world.write("home/tools/third.sh", "#!/bin/sh\nprintf '%s' \"$1\" > native.txt\n");
    QFile::setPermissions(world.native("home/tools/third.sh"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    for (const char *tool : {"first.bat", "second tool.exe", "third.sh"})
        db_Execute(world.program(), QString("INSERT INTO Table_Tools "
                                            "(tool_name,tool_exe,tool_cmd,run_when,run_when_wait) VALUES "
                                            "('%1','%1','\"*CURRENTGAME*\" x','T2*',1)")
                                        .arg(tool));
    world.select("Original");
    world.program().screen.details.play_enabled = true;
    const Play_Result played = Play_Command(world.program());
    ASSERT_TRUE(played.started) << played.refusal.toStdString();
    EXPECT_TRUE(world.read("home/tools/batch.txt").contains("batch"));
    EXPECT_TRUE(QString::fromUtf8(world.read("home/tools/batch.txt")).contains("games\\T2"));
    EXPECT_EQ(QString::fromUtf8(world.read("home/tools/native.txt")), world.native(world.game_folder));
    QString tools = world.program().paths.tools;
    tools.chop(1);
    EXPECT_EQ(told_in(world, "home/tools/told"),
              (QStringList{tools, tools + "\\second tool.exe", world.game_path(), "x"}));
    EXPECT_TRUE(wait_for_end(world, played));
    EXPECT_EQ(told(world), (QStringList{world.game_path(), world.game_path("thief2.EXE")}));
    EXPECT_EQ(world.ui.box_texts(), QStringList());
}

} // namespace
} // namespace vantrosk
