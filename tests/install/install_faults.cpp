#include "core/mdlStartup.h"
#include "install/Install_World.h"
#include "install/Stepping.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <iostream>

namespace vantrosk {
namespace {

constexpr int killed = 9;
constexpr int finished = 0;

/// A game with the player's saves and two missions with theirs; one of the missions is installed and played.
class Fault_World : public Install_World {
public:
    Fault_World() {
        game_has("thief2.exe", "the game");
        game_has("darkinst.cfg", "language english\r\n");
        game_has("convict.osm", "script of the game");
        game_has("books/plaque.str", "original plaque");
        game_has("Obj/wood.gif", "original wood");
        game_has("strings/own.str", "text of the game");
        game_has("SAVES/game0001.sav", "save of the originals");
        game_has("SAVES/quick.sav", "quick save of the originals");
        pristine = game();
        const QDateTime ahead(QDate(2040, 1, 1), QTime(12, 0));
        mission("a.zip", {{"miss20.mis", "map of A", {}},
                          {"books/Plaque.str", "plaque of A", {}},
                          {"obj/wood.gif", "wood of A", {}},
                          {"SAVES/game0009.sav", "save that A brings", {}},
                          {"fam/a/b/c.pcx", "picture", {}}});
        mission("b.zip", {{"miss21.mis", "map of B", {}},
                          {"books/plaque.str", QByteArray(3000, 'p'), {}},
                          {"convict.osm", "newer script", ahead},
                          {"strings/english/t.str", "english text", {}},
                          {"strings/german/t.str", "german text", {}},
                          {"SAVES/game0001.sav", "save that B brings", {}},
                          {"snd/new.wav", QByteArray(9000, 's'), {}}});
        install("b.zip");
        game_has("SAVES/game0001.sav", "save of B");
        game_has("SAVES/game0002.sav", "second save of B");
        install("a.zip");
        game_has("SAVES/game0001.sav", "save of A");
        saves_a = {{"game0001.sav", "save of A"}, {"game0009.sav", "save that A brings"}};
        saves_b = {{"game0001.sav", "save of B"}, {"game0002.sav", "second save of B"}};
        stop();
        everything_ = snapshot("");
    }

    /// The whole world as it was at the start.
    void rewind() {
        stop();
        for (const char *folder : {"games", "fms", "home"})
            QDir(native(folder)).removeRecursively();
        for (const auto &[name, content] : everything_) {
            if (name.endsWith("/"))
                make_folder(name.chopped(1));
            else if (name.startsWith("games") || name.startsWith("fms") || name.startsWith("home"))
                write(name, content);
        }
    }

    /// What another process does to the same files; its exit code.
    int in_child(const std::function<int()> &work) {
        stop();
        std::cout.flush();
        const pid_t child = fork();
        if (child == 0) {
            start_game();
            _exit(work());
        }
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    /// Ends the process at once, without any clean-up, before the given step of `work`.
    int killed_at(int step, const std::function<bool()> &work) {
        return in_child([&] {
            int left = step;
            arm([&left] {
                if (left-- == 0)
                    _exit(killed);
            });
            return work() ? finished : 1;
        });
    }

    void expect_all_is_back(const std::string &where) {
        start_game();
        EXPECT_TRUE(restore()) << where << '\n' << ui.trace.join('\n').toStdString();
        EXPECT_EQ(Names(game()), Names(pristine)) << where;
        EXPECT_EQ(game(), pristine) << where;
        EXPECT_EQ(saves_archive("saves_a.zip"), saves_a) << where;
        EXPECT_EQ(saves_archive("saves_b.zip"), saves_b) << where;
        EXPECT_FALSE(exists("home/install_recover.log")) << where;
        EXPECT_FALSE(exists(in_game("allsaves/unsaved"))) << where;
    }

    Snapshot pristine;
    Snapshot saves_a, saves_b;

private:
    /// Makes every change of the disk a step, from now on.
    void arm(On_Step on_step) {
        static_cast<Stepping_Files &>(*platform.files).set_on_step(on_step);
        static_cast<Stepping_Clock &>(*platform.clock).set_on_step(on_step);
    }

    Snapshot everything_;
};

/// Kills `work` before each of its steps in turn, then restores and looks whether anything is missing.
void Try_every_moment(Fault_World &world, const char *what, const std::function<bool()> &work) {
    int step = 0;
    for (;; ++step) {
        world.rewind();
        const int end = world.killed_at(step, work);
        ASSERT_TRUE(end == killed || end == finished) << what << " at step " << step;
        world.expect_all_is_back(std::string(what) + " killed at step " + std::to_string(step));
        if (end == finished || testing::Test::HasFailure())
            break;
    }
    EXPECT_GT(step, 30) << what;
    std::cout << "    " << what << ": " << step << " moments tried, all states recovered\n";
}

TEST(Install_Killed, At_any_moment_of_an_install_a_restore_brings_everything_back) {
    Fault_World world;
    Try_every_moment(world, "install of B over A", [&] { return world.install("b.zip"); });
}

TEST(Install_Killed, At_any_moment_of_a_restore_another_restore_brings_everything_back) {
    Fault_World world;
    Try_every_moment(world, "restore", [&] { return world.restore(); });
}

TEST(Install_Killed, Twice_in_a_row_still_loses_nothing) {
    Fault_World world;
    int moments = 0;
    for (int first = 3; first < 400; first += 19) {
        for (int second = first % 7; second < 200; second += 31) {
            world.rewind();
            if (world.killed_at(first, [&] { return world.install("b.zip"); }) != killed)
                break;
            const int end = world.killed_at(second, [&] { return world.restore(); });
            world.expect_all_is_back("killed at " + std::to_string(first) + " and " + std::to_string(second));
            ++moments;
            if (end != killed || testing::Test::HasFailure())
                break;
        }
    }
    EXPECT_GT(moments, 12);
    std::cout << "    two kills: " << moments << " pairs tried, all states recovered\n";
}

TEST(Install_Killed, The_next_start_shows_the_log_with_every_line_written_so_far) {
    Fault_World world;
    world.rewind();
    ASSERT_EQ(world.killed_at(60, [&] { return world.install("b.zip"); }), killed);
    const QStringList log = world.unfinished_log();
    EXPECT_TRUE(log.contains("[ZIPPING_SAVES]")) << log.join('\n').toStdString();
    EXPECT_TRUE(world.read("home/install_recover.log").endsWith("\r\n"));
    world.ui.notes.clear();
    EXPECT_TRUE(Show_Crash_Evidence(world.restart()));
    EXPECT_EQ(world.ui.notes, QStringList{world.windows("home") + "\\install_recover.log"});
}

TEST(Install_Full_Disk, No_file_can_grow_beyond_a_limit_and_nothing_is_lost) {
    Fault_World world;
    int tried = 0, failed = 0;
    for (rlim_t limit = 16; limit < 16000; limit += limit / 3 + 1) {
        world.rewind();
        const int end = world.in_child([&] {
            signal(SIGXFSZ, SIG_IGN);
            const rlimit bound{limit, limit};
            setrlimit(RLIMIT_FSIZE, &bound);
            return world.install("b.zip") ? finished : 1;
        });
        ASSERT_TRUE(end == 0 || end == 1) << limit;
        failed += end;
        ++tried;
        world.start_game();
        EXPECT_TRUE(world.restore()) << limit << '\n' << world.ui.trace.join('\n').toStdString();
        EXPECT_EQ(world.game(), world.pristine) << limit;
        // A save that found no room in an archive lies beside the archives.
        Snapshot saves = world.saves_archive("saves_a.zip");
        for (const auto &[name, content] : world.snapshot(world.in_game("allsaves/unsaved")))
            saves[name] = content;
        EXPECT_EQ(saves, world.saves_a) << limit;
        EXPECT_EQ(world.saves_archive("saves_b.zip"), world.saves_b) << limit;
    }
    EXPECT_GT(failed, 5);
    std::cout << "    full disk: " << tried << " limits tried, " << failed
              << " installs failed, nothing lost\n";
}

/// Damages the content of one entry of a stored archive, so that its checksum is wrong.
void Damage(const World &world, const QString &zip, const QByteArray &content) {
    QByteArray bytes = world.read(zip);
    const qsizetype at = bytes.indexOf(content);
    ASSERT_GE(at, 0);
    bytes[at] = '!';
    QFile file(world.native(zip));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

TEST(Install_Damaged_Zip, A_wrong_checksum_in_the_middle_puts_the_originals_back) {
    Fault_World world;
    world.rewind();
    Damage(world, "fms/T2/b.zip", "german text");
    world.start_game();
    EXPECT_FALSE(world.install("b.zip"));
    EXPECT_EQ(world.ui.panel_1.last(), "Install Aborted");
    EXPECT_EQ(world.game(), world.pristine);
    EXPECT_EQ(world.saves_archive("saves_a.zip"), world.saves_a);
    EXPECT_EQ(world.saves_archive("saves_b.zip"), world.saves_b);
    EXPECT_EQ(world.undo_list(), "[ZIP LOCATION]\r\nOriginal\r\n[ZIP NAME]\r\n\r\n[ZIP CONTENTS]\r\n\r\n");
    EXPECT_EQ(world.installed_mark("a.zip", "T2"), 0);
    EXPECT_EQ(world.installed_mark("b.zip", "T2"), 0);
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_EQ(world.ui.boxes[0].kind, Box_Kind::critical);
    EXPECT_TRUE(world.ui.boxes[0].text.startsWith("WARNING the FM \"b.zip\" could not be installed.\r\n"));
    EXPECT_FALSE(world.exists("home/install_recover.log"));
}

TEST(Install_Damaged_Zip, A_folder_in_the_place_of_a_file_puts_the_originals_back) {
    Fault_World world;
    world.rewind();
    world.game_has("snd/new.wav/inner.txt", "mine");
    world.start_game();
    EXPECT_FALSE(world.install("b.zip"));
    Snapshot expected = world.pristine;
    expected["snd/"] = expected["snd/new.wav/"] = {};
    expected["snd/new.wav/inner.txt"] = "mine";
    EXPECT_EQ(world.game(), expected);
    EXPECT_EQ(world.saves_archive("saves_b.zip"), world.saves_b);
}

TEST(Install_Damaged_Zip, A_zip_that_vanishes_during_the_install_puts_the_originals_back) {
    Fault_World world;
    world.rewind();
    world.start_game();
    world.ui.on_pump = [&] {
        if (world.ui.panel_1.last() == "Stage 3 of 8")
            QFile::remove(world.native("fms/T2/b.zip"));
    };
    EXPECT_FALSE(world.install("b.zip"));
    EXPECT_EQ(world.game(), world.pristine);
    EXPECT_EQ(world.saves_archive("saves_b.zip"), world.saves_b);
}

TEST(Install_Damaged_Backup, A_backup_that_can_not_be_read_stays_with_the_list_and_the_log) {
    Fault_World world;
    world.rewind();
    world.game_has("original_backup.zip", "torn");
    const QByteArray list = world.undo_list();
    world.start_game();
    EXPECT_FALSE(world.install("b.zip"));
    EXPECT_EQ(world.ui.panel_1.last(), "Install Aborted");
    EXPECT_EQ(world.game_file("original_backup.zip"), "torn");
    EXPECT_EQ(world.undo_list(), list);
    EXPECT_TRUE(world.unfinished_log().contains("[UNZIPPING_BACKUP_FILES]"));
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_TRUE(world.ui.boxes[0].text.contains("original_backup.zip"));
    EXPECT_FALSE(world.exists(world.in_game("miss21.mis")));
    EXPECT_EQ(world.saves_archive("saves_a.zip"), world.saves_a);
}

TEST(Install_Damaged_Saves, A_save_archive_that_can_not_be_unpacked_leaves_the_log_and_the_archive) {
    Fault_World world;
    world.rewind();
    world.game_has("allsaves/saves_b.zip", "torn");
    world.start_game();
    EXPECT_TRUE(world.install("b.zip"));
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_TRUE(world.ui.boxes[0].text.contains("in procedure Unzip_saves of Form frmMain"))
        << world.ui.boxes[0].text.toStdString();
    EXPECT_TRUE(world.unfinished_log().last().contains("installing Original Missions will resolve"));
    world.game_has("SAVES/game0003.sav", "played since");
    EXPECT_TRUE(world.restore());
    EXPECT_EQ(world.game_file("allsaves/saves_b.zip.VKBU"), "torn");
    EXPECT_EQ(world.game(), world.pristine);
    Snapshot saves = world.saves_archive("saves_b.zip");
    EXPECT_EQ(saves["game0003.sav"], "played since");
}

} // namespace
} // namespace vantrosk
