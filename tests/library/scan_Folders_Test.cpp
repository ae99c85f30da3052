#include "scan_World.h"

#include "core/Games.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFile_Functions.h"
#include "library/Fm_List_View.h"

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

/// A world with a mission in each of these folders, named after it.
class Folders_World : public Scan_World {
public:
    void fill(const QStringList &folders) {
        for (const QString &folder : folders)
            zip(folder + "/" + folder + ".zip", {{"miss20.mis", "m", {}}, {"readme.txt", vault_readme, {}}});
    }
    void set(QString Main_Ini::*list, const QStringList &folders) {
        QStringList paths;
        for (const QString &folder : folders)
            paths << windows(folder);
        program().ini.*list = Join_folder_list(paths);
    }
    QStringList folders_of(const char *game, Empty_Entry empty = Empty_Entry::ends_the_list) {
        QStringList names;
        for (const QString &path : Fm_Folders(program().ini, *Find_Game(game), empty))
            names << path.mid(path.lastIndexOf('\\') + 1);
        return names;
    }
};

} // namespace

TEST(Scan_Mixed_Folders, A_game_list_is_filled_from_its_own_folders_and_then_from_those_of_mixed_games) {
    Folders_World world;
    world.fill({"own", "mixed", "gold"});
    world.set(&Main_Ini::T2_LOCATION, {"own"});
    world.set(&Main_Ini::TG_LOCATION, {"gold"});
    world.set(&Main_Ini::TOTHER_LOCATION, {"mixed"});
    world.scan();
    EXPECT_EQ(world.listed(), QStringList({"Original", "own.zip", "mixed.zip"}));
    EXPECT_EQ(world.program().CURRENT_LOCATION, world.windows("mixed"));
    EXPECT_EQ(world.found().zip_count, 2);
    const QString log = world.log();
    EXPECT_LT(log.indexOf("Scanning Folder " + world.windows("own") + "\\"),
              log.indexOf("Scanning Folder " + world.windows("mixed") + "\\"));
}

TEST(Scan_Mixed_Folders, Every_built_in_game_walks_them) {
    for (const Game &game : Games()) {
        Folders_World world;
        world.set(&Main_Ini::TOTHER_LOCATION, {"mixed"});
        world.program().ini.*(game.fm_folders) = Join_folder_list({world.windows("own")});
        EXPECT_EQ(world.folders_of(game.code), QStringList({"own", "mixed"})) << game.code;
    }
}

TEST(Scan_Mixed_Folders, A_folder_in_both_lists_is_walked_once_however_it_is_written) {
    Folders_World world;
    world.fill({"own", "mixed"});
    world.set(&Main_Ini::T2_LOCATION, {"own"});
    const QString again = world.windows("own").replace('\\', '/').toUpper() + "//";
    world.program().ini.TOTHER_LOCATION =
        Join_folder_list({again, world.windows("mixed") + "\\", world.windows("mixed")});
    EXPECT_EQ(world.folders_of("T2"), QStringList({"own", "mixed"}));
    world.scan();
    EXPECT_EQ(world.listed(), QStringList({"Original", "own.zip", "mixed.zip"}));
    EXPECT_EQ(world.found().zip_count, 2);
}

TEST(Scan_Mixed_Folders, An_empty_entry_ends_its_own_list_only) {
    Folders_World world;
    world.program().ini.T2_LOCATION = "C:\\own*#**#*C:\\unread*#*";
    world.program().ini.TOTHER_LOCATION = "C:\\mixed*#**#*C:\\unread*#*";
    EXPECT_EQ(world.folders_of("T2"), QStringList({"own", "mixed"}));
    EXPECT_EQ(world.folders_of("T2", Empty_Entry::is_passed_over), QStringList({"own", "unread", "mixed"}));
    world.program().ini.T2_LOCATION.clear();
    EXPECT_EQ(world.folders_of("T2"), QStringList({"mixed"}));
    world.program().ini.TOTHER_LOCATION.clear();
    EXPECT_EQ(world.folders_of("T2"), QStringList());
}

TEST(Scan_Mixed_Folders, A_click_finds_the_zip_there) {
    Folders_World world;
    world.fill({"mixed"});
    world.set(&Main_Ini::T2_LOCATION, {});
    world.set(&Main_Ini::TOTHER_LOCATION, {"mixed"});
    world.scan();
    Row_Click(world.program(), world.list().find_zip("mixed.zip"), col_name);
    EXPECT_EQ(world.program().CURRENT_LOCATION, world.windows("mixed"));
    EXPECT_EQ(world.program().CURRENT_GAME, "T2");
}

TEST(Scan_Folders, A_missing_folder_is_named_in_the_log_and_becomes_the_location) {
    Scan_World world;
    world.mission("a.zip");
    world.program().ini.T2_LOCATION = Join_folder_list({world.windows("zips"), world.windows("gone")});
    world.scan();
    EXPECT_EQ(world.listed(), QStringList({"Original", "a.zip"}));
    EXPECT_TRUE(
        world.log().contains("Zip a.zip scanned\r\nScanning Folder " + world.windows("gone") + "\\\r\n"));
    EXPECT_EQ(world.program().CURRENT_LOCATION, world.windows("gone"));
}

TEST(Scan_Folders, Names_are_walked_in_their_binary_order) {
    Scan_World world;
    for (const char *name : {"b.zip", "B.zip", "a.zip", "_.zip", "\xC3\xA4.zip", "1.zip"})
        world.mission(QString::fromUtf8(name));
    world.scan();
    QStringList walked;
    for (const QString &line : world.log().split("\r\n"))
        if (line.startsWith("Scanning Zip "))
            walked << line.mid(13);
    EXPECT_EQ(walked, QStringList({"1.zip", "B.zip", "_.zip", "a.zip", "b.zip", u"\u00E4.zip"_qs}));
}

TEST(Scan_Records, What_was_added_stands_in_the_file_whenever_events_get_through) {
    Scan_World world;
    for (int i = 0; i < 30; ++i)
        world.mission(QString("m%1.zip").arg(i, 2, 10, QChar('0')));
    Program &program = world.program();
    int most = 0;
    world.ui.on_pump = [&] {
        // Nothing is open: another transaction can begin, and what it does stays.
        db_Begin(program);
        db_Execute(program, "UPDATE Table_Scores SET review = 'seen'");
        db_Commit(program);
        most = std::max(most, static_cast<int>(world.records().size()));
    };
    world.scan();
    EXPECT_EQ(most, 30);
    EXPECT_EQ(world.records().size(), 30);
    world.ui.on_pump = {};
    world.restart();
    EXPECT_EQ(world.records().size(), 30);
    EXPECT_EQ(db_Query(world.program(), "select * from Table_Scores where review = 'seen'").size(), 30);
}

TEST(Scan_Records, A_begun_transaction_is_all_or_nothing) {
    Scan_World world;
    Program &program = world.program();
    world.record("kept.zip", "Kept", "T2");
    db_Begin(program);
    world.record("lost.zip", "Lost", "T2");
    EXPECT_EQ(world.records().size(), 2);
    world.restart(); // as a kill would: nothing was committed
    EXPECT_EQ(world.records(), QStringList({"kept.zip|Kept|Ann|T2||"}));
    EXPECT_THROW(db_Commit(world.program()), Program_Error);
    db_Begin(world.program());
    EXPECT_THROW(db_Begin(world.program()), Program_Error);
    world.record("new.zip", "New", "T2");
    db_Commit(world.program());
    EXPECT_EQ(world.records().size(), 2);
}

} // namespace vantrosk
