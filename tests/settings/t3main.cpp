#include "Settings_World.h"

#include "ui/settings/T3MAIN_exe_Check.h"

#include <QDateTime>
#include <QFile>

#include <sys/stat.h>

namespace vantrosk {
namespace {

const QString how_to_notice =
    "You will notice that you have the wrong exe when mission objectives, briefings and "
    "custom graphics do not show correctly.";
const QString replaced = "Updated T3MAIN.EXE has now been installed and your existing one is now called "
                         "T3MAIN.EXE.OLD.";
constexpr const char *pools = "[PCVertexPools]\r\nDynamicVertexPool=6291456\r\nStaticVertexPool=5242880\r\n"
                              "StaticShadowVertexPool=3145728\r\n";

/// A Thief 3 install on drive C, by default of the wrong build.
class T3_World : public Settings_World {
public:
    explicit T3_World(const QString &root_ = "T3") : root(root_) {
        drive_c(root + "/System/T3.exe");
        drive_c(root + "/System/T3Main.exe", "the old build");
        dated({2004, 5, 25});
    }
    void dated(const QDate &day) {
        QFile file(native(in_game("T3Main.exe")));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.setFileTime(QDateTime(day, QTime(12, 0)), QFileDevice::FileModificationTime);
    }
    void has_zip() {
        zip("home/T3MAIN.ZIP", {{"readme.txt", "x"}, {"system/t3main.exe", "the right build"}});
    }
    void check(std::deque<Answer> answers = {}) {
        ui.boxes.clear();
        ui.answers = std::move(answers);
        T3MAIN_exe_Check(program(), "C:\\" + QString(root).replace('/', '\\') + "\\System\\T3.exe");
    }
    QString in_game(const QString &name) const { return "prefix/drive_c/" + root + "/System/" + name; }
    QByteArray game_file(const QString &name) const { return read(in_game(name)); }
    QString warning() const {
        return "WARNING: Vantrosk has detected that your T3MAIN.EXE in C:\\" +
               QString(root).replace('/', '\\') + "\\System" +
               " appears not to be the correct version to play Thief 3 Fan Missions.";
    }
    QString question() const {
        return warning() + "\r\n\r\nHowever Vantrosk has also detected that you have the correct version "
                           "available on your "
                           "harddrive from the Vantrosk install.\r\n\r\nWould you like Vantrosk to back up "
                           "your T3MAIN.EXE and "
                           "use the updated version instead? Failure to do so will mean you can NOT run "
                           "Thief 3 Fan Missions "
                           "properly.";
    }
    QString root;
};

TEST(T3main, Runs_for_t3_exe_only) {
    T3_World world;
    T3MAIN_exe_Check(world.program(), "C:\\T3\\System\\T3Ed.exe");
    EXPECT_TRUE(world.ui.boxes.empty());
    EXPECT_FALSE(world.exists(world.in_game("user_patch.ini")));
}

TEST(T3main, The_right_build_needs_nothing_but_the_pools) {
    T3_World world;
    world.has_zip();
    world.dated({2004, 11, 17});
    world.check();
    EXPECT_TRUE(world.ui.boxes.empty());
    EXPECT_EQ(world.game_file("user_patch.ini"), pools);
    EXPECT_TRUE(world.ui.trace.contains("frmSettings: T3MAIN_exe_Check start"));
}

TEST(T3main, A_missing_or_empty_program_is_no_wrong_one) {
    T3_World world;
    world.has_zip();
    world.write(world.in_game("T3Main.exe"), "");
    world.check();
    QFile::remove(world.native(world.in_game("T3Main.exe")));
    world.check();
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST(T3main, Yes_swaps_the_right_build_in_and_keeps_the_old_one) {
    T3_World world;
    world.has_zip();
    world.write(world.in_game("T3MAIN.EXE.OLD"), "an older one");
    world.check({Answer::yes});
    EXPECT_EQ(world.said(), (QStringList{world.question(), replaced}));
    EXPECT_EQ(world.ui.boxes[0].default_answer, Answer::no);
    EXPECT_EQ(world.read(world.in_game("T3MAIN.EXE.OLD")), "the old build");
    EXPECT_EQ(world.program().files.read_file("C:\\T3\\System\\T3MAIN.EXE", 100).value, "the right build");
    EXPECT_EQ(world.game_file("user_patch.ini"), pools);
    EXPECT_FALSE(world.exists(world.in_game("readme.txt")));
}

TEST(T3main, No_keeps_the_program_and_says_what_that_means) {
    T3_World world;
    world.has_zip();
    world.check({Answer::no});
    EXPECT_EQ(
        world.said(),
        (QStringList{world.question(), "As you have chosen to use the original T3MAIN.EXE, Fan Missions will "
                                       "miss key objectives, briefings, graphics and objects."}));
    EXPECT_EQ(world.game_file("T3Main.exe"), "the old build");
    EXPECT_EQ(world.game_file("user_patch.ini"), pools);
}

TEST(T3main, Without_the_zip_a_box_tells_where_the_right_build_is) {
    T3_World world;
    world.check();
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_EQ(world.ui.boxes[0].kind, Box_Kind::critical);
    EXPECT_EQ(
        world.said()[0],
        world.warning() + "\r\n\r\n" + how_to_notice +
            "\r\n\r\nYou may be using the version shipped with Thief 3 which does not fully work with Fan "
            "Missions.\r\n\r\nThe Thief 3 Editor version of the exe (you do not need all 300mb of the editor "
            "itself) is available from http://vantrosk.example/downloads.pl");
    EXPECT_EQ(world.game_file("user_patch.ini"), pools);
}

TEST(T3main, Pools_of_the_players_own_stay) {
    T3_World world;
    world.write(world.in_game("USER_PATCH.INI"), "mine");
    world.check();
    EXPECT_EQ(world.game_file("USER_PATCH.INI"), "mine");
    EXPECT_FALSE(world.exists(world.in_game("user_patch.ini")));
}

TEST(T3main, A_zip_that_is_damaged_or_holds_no_program_leaves_all_as_it_was) {
    for (const bool damaged : {true, false}) {
        T3_World world;
        if (damaged)
            world.write("home/T3MAIN.ZIP", "no zip at all");
        else
            world.zip("home/T3MAIN.ZIP", {{"readme.txt", "x"}});
        const Snapshot before = world.snapshot("prefix/drive_c");
        world.check({Answer::yes});
        ASSERT_EQ(world.ui.boxes.size(), 2u);
        EXPECT_TRUE(world.said()[1].contains("in procedure T3MAIN_exe_Check of Form frmSettings"))
            << world.said()[1].toStdString();
        Snapshot after = world.snapshot("prefix/drive_c");
        after.erase("T3/System/user_patch.ini");
        EXPECT_EQ(after, before);
    }
}

TEST(T3main, A_backup_that_can_not_be_made_stops_the_swap) {
    T3_World world;
    world.has_zip();
    world.make_folder(world.in_game("T3MAIN.EXE.OLD/x"));
    world.check({Answer::yes});
    EXPECT_EQ(world.ui.boxes.size(), 2u);
    EXPECT_EQ(world.game_file("T3Main.exe"), "the old build");
    EXPECT_EQ(world.game_file("user_patch.ini"), pools);
}

TEST(T3main, Whichever_change_fails_one_whole_program_stays_and_the_old_one_is_never_lost) {
    for (const bool for_good : {false, true}) {
        int changes = 1;
        for (int step = 1; step <= changes; ++step) {
            T3_World world;
            world.has_zip();
            world.disk->refuse(step, for_good ? 1000 : step);
            world.check({Answer::yes});
            changes = qMax(changes, world.disk->changes());
            world.disk->refuse(0, -1);
            const QByteArray now = world.program().files.read_file("C:\\T3\\System\\T3MAIN.EXE", 100).value;
            const QByteArray kept = world.game_file("T3MAIN.EXE.OLD");
            if (now != "the old build") {
                EXPECT_EQ(kept, "the old build") << step;
            }
            if (!for_good) {
                EXPECT_TRUE(now == "the right build" || now == "the old build") << step;
            }
            EXPECT_EQ(world.said().contains(replaced), now == "the right build") << step;
        }
        EXPECT_GT(changes, 2);
    }
}

/// Vista keeps what is written below "Program Files" elsewhere.
class Vista_World : public T3_World {
public:
    explicit Vista_World(const QString &root_ = "Program Files/T3") : T3_World(root_) {
        has_zip();
        registry({{"Software\\Microsoft\\Windows NT\\CurrentVersion\\CurrentVersion", "6.0"}});
        write("prefix/user.reg",
              "WINE REGISTRY Version "
              "2\n\n[Software\\\\Microsoft\\\\Windows\\\\CurrentVersion\\\\Explorer\\\\Shell "
              "Folders] 1\n\"Personal\"=\"C:\\\\users\\\\jana\\\\Documents\"\n");
    }
    QStringList traces() const { return ui.trace.filter("VISTA"); }
    const QString store = "prefix/drive_c/Users/jana/AppData/Local/VirtualStore/Program Files/T3/System";
};

TEST(T3main, On_vista_the_old_program_goes_to_the_virtual_folder) {
    Vista_World world;
    world.check({Answer::yes});
    EXPECT_EQ(
        world.traces(),
        (QStringList{
            "frmSettings: T3MAIN_exe_Check: VISTA Trying To Determine Virtual Path",
            "frmSettings: T3MAIN_exe_Check: VISTA in Program Files Virtualization needed",
            "frmSettings: T3MAIN_exe_Check: VISTA myreplacement_path = C:\\Users\\jana\\AppData\\Local\\"
            "VirtualStore\\Program Files\\T3\\System",
            "frmSettings: T3MAIN_exe_Check: VISTA Virtual path does not exist, needs to be "
            "created"}));
    EXPECT_EQ(world.read(world.store + "/T3MAIN.EXE.OLD"), "the old build");
    EXPECT_EQ(world.program().files.read_file("C:\\Program Files\\T3\\System\\T3MAIN.EXE", 100).value,
              "the right build");
    EXPECT_EQ(world.said().last(), replaced);
}

TEST(T3main, On_vista_a_program_in_the_virtual_folder_is_moved_within_it) {
    Vista_World world;
    world.write(world.store + "/T3MAIN.EXE", "the redirected one");
    world.check({Answer::yes});
    EXPECT_EQ(world.read(world.store + "/T3MAIN.EXE.OLD"), "the redirected one");
    EXPECT_EQ(world.game_file("T3MAIN.EXE.OLD"), "the old build");
    EXPECT_EQ(world.traces().size(), 3);
}

TEST(T3main, On_vista_outside_program_files_nothing_is_virtual) {
    Vista_World world("Games/T3");
    world.check({Answer::yes});
    EXPECT_EQ(world.traces().last(),
              "frmSettings: T3MAIN_exe_Check: VISTA NOT in Program Files normal process");
    EXPECT_EQ(world.game_file("T3MAIN.EXE.OLD"), "the old build");
}

} // namespace
} // namespace vantrosk
