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

    static QStringList told(const Install_World &world) {
        const QByteArray bytes = world.game_file("told");
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

} // namespace
} // namespace vantrosk
