#include "install/Install_World.h"
#include "install/Recover_Log.h"

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

/// Every line of a whole run, with "@" for the game folder and "\" for "/".
QStringList Relative_lines(const Install_World &world) {
    QStringList lines;
    for (QString line : world.finished_log())
        lines << line.replace(world.game_path(), "@");
    return lines;
}

void Set_up(Install_World &world) {
    world.game_has("books/plaque.str", "original");
    world.game_has("SAVES/game0001.sav", "save of the originals");
    world.mission("a.zip",
                  {{"miss20.mis", "x", {}}, {"books/plaque.str", "a", {}}, {"strings/t.str", "t", {}}});
    world.mission("b.zip", {{"miss21.mis", "x", {}}, {"b.str", "y", {}}});
}

const QStringList head{
    "//Vantrosk Version 1.4194",
    "//Vantrosk has detected that a previous FM install failed. This means that your Game directory may be "
    "out of "
    "sync.",
    "//To resolve this YOU must follow the steps in the LAST 'STEPS TO FIX = ' step below and then delete "
    "install_recover.log from the Vantrosk program folder ",
    "//Current Game Path = @",
    "//===========================================",
};
const QString nothing_occured = "//STEPS TO FIX = none required, nothing has really occured";
const QStringList after_removal{
    "//STEPS TO FIX = FM Files have been deleted, however the folder still exist, but they can be left "
    "without any "
    "real issues",
    "[DELETING_FOLDERS]",
};
const QStringList zipping_saves{
    "//STEPS TO FIX = previous FM files and folders have been deleted. 1) Current_install.txt needs to be "
    "deleted, 2) "
    "save games need to be backed up, 3) original_backup.zip (if existing) needs to be unzipped. This should "
    "now be "
    "restored to a clean install.",
    "[ZIPPING_SAVES]",
};
const QStringList unzipping_backup{
    "//STEPS TO FIX = previous FM removed, saves zipped up. 1) Current_install.txt needs to be deleted, 2) "
    "original_backup.zip (if exists) needs to be restored. This will restore to a clean install.",
    "[UNZIPPING_BACKUP_FILES]",
};
const QStringList building_list{
    "//Opening FM zip file and writting to the current_install.txt what files will be extracted",
    "//STEPS TO FIX = 1) delete the current_install.txt to restore to a clean install",
    "[BUILDING_INSTALL_LIST]",
    "//Scaning the game path to determine what to backup",
    "//STEPS TO FIX = 1) delete the current_install.txt to restore to a clean install",
    "[CHECKING_FILES_TO_BACKUP]",
};
const QStringList backing_up{
    "//Backing up Game files that may be overwritten",
    "//STEPS TO FIX = 1) delete the current_install.txt to restore to a clean install",
    "[BACKING_UP_GAME_FILES]",
};
const QStringList unzipping_fm{
    "//Unzipping FM",
    "//STEPS TO FIX = 1) delete the current_install.txt, 2) unzip the original_backup.zip file to restore to "
    "a clean "
    "install. NOTE: some files may have been unzipped, these need to be checked against the "
    "current_install.log",
    "[UNZIPPING_FM]",
    "//Updating Database",
    "//STEPS TO FIX = FM has been installed, however MP3 Files have not been converted and FM saves games "
    "have not been "
    "unzipped, installing Original Missions will resolve.",
    "[UPDATING_DATABASE]",
};
const QStringList last_stages{
    "//Unzipping saves",
    "//STEPS TO FIX = FM has been installed, however MP3 Files have not been converted and FM save games "
    "have not been "
    "unzipped installing Original Missions will resolve.",
    "[UNZIPPING_SAVES]",
    "//Converting MP3 files to WAV files",
    "//STEPS TO FIX = FM has been installed, however MP3 FIles have not been converted, installing Original "
    "Missions "
    "will resolve.",
    "[CONVERTING_MP3]",
    "//Repackaging IBT files for T3",
    "//STEPS TO FIX = FM has been fully installed. Nothing needs to be done (at least until IBT file "
    "repackaging is "
    "possible)",
    "[REPACKAGE_IBT]",
};

QStringList Saves_lines(const QString &archive) {
    return {"//Zipping FROM [@\\SAVES]", "//Zip file name [\\" + archive + "]",
            "//Zipping TO [@\\allsaves\\]", "//Using File extentions [*.sav]", "//NOW DELETING SAVES"};
}

TEST(Install_Log, A_first_install_writes_these_lines) {
    Install_World world;
    Set_up(world);
    ASSERT_TRUE(world.install("a.zip"));
    QStringList expected = head;
    expected << "//previous install file checked and previous zip file found to be " << nothing_occured
             << "[PREVIOUS_CHECKED]"
             << "//deleting -1 old files and folders (list below)" << nothing_occured;
    expected += after_removal + zipping_saves;
    expected << "//Original saves";
    expected += Saves_lines("saves_Original.zip");
    expected << "//Finished Zipping Original saves";
    expected += unzipping_backup;
    expected << "//No backup files found";
    expected += building_list;
    expected << "//@\\books\\plaque.str";
    expected += backing_up;
    expected << "//Backing up 0";
    expected += unzipping_fm + last_stages;
    EXPECT_EQ(Relative_lines(world), expected);
    EXPECT_FALSE(world.exists("home/install_recover.log"));
}

TEST(Install_Log, An_install_over_a_mission_writes_these_lines) {
    Install_World world;
    Set_up(world);
    ASSERT_TRUE(world.install("a.zip"));
    ASSERT_TRUE(world.install("b.zip"));
    QStringList expected = head;
    expected
        << "//Previous current_install.txt file exists, opening and checking for what needs to be removed"
        << nothing_occured << ""
        << "[CHECKING_PREVIOUS]"
        << ""
        << "//previous install file checked and previous zip file found to be a.zip" << nothing_occured
        << "[PREVIOUS_CHECKED]"
        << "//deleting 2 old files and folders (list below)" << nothing_occured << "[DELETING_FILES]"
        << "//@\\books"
        << "//@\\books\\plaque.str"
        << "//@\\miss20.mis"
        << "//@\\strings"
        << "//@\\strings\\t.str";
    expected += after_removal;
    expected << "//@\\books"
             << "//@\\strings";
    expected += zipping_saves;
    expected << "//FM saves";
    expected += Saves_lines("saves_a.zip");
    expected << "//Finished Zipping Original saves";
    expected += unzipping_backup;
    expected << "//Backup files found so unzipping";
    expected += building_list + unzipping_fm + last_stages;
    EXPECT_EQ(Relative_lines(world), expected);
}

TEST(Install_Log, A_log_whose_head_the_disk_had_no_room_for_counts_and_goes_with_the_next_whole_run) {
    for (const char *log : {"", "[ZIPPING_SAVES]\r\n//STEPS TO FIX = none\r\n"}) {
        Install_World world;
        world.mission("m.zip", {{"a.mis", "x"}, {"b.str", "y"}});
        ASSERT_TRUE(world.install("m.zip"));
        world.write("home/install_recover.log", log);
        EXPECT_TRUE(Has_unfinished_run(world.program(), world.game_path()));
        ASSERT_TRUE(world.restore());
        EXPECT_FALSE(world.exists("home/install_recover.log"));
        EXPECT_FALSE(world.exists("home/install_recover.log.1"));
    }
}

TEST(Install_Log, A_restore_writes_no_lines_of_stages_4_and_5) {
    Install_World world;
    Set_up(world);
    ASSERT_TRUE(world.restore());
    QStringList expected = head;
    expected << "//previous install file checked and previous zip file found to be " << nothing_occured
             << "[PREVIOUS_CHECKED]"
             << "//deleting -1 old files and folders (list below)" << nothing_occured;
    expected += after_removal + zipping_saves + unzipping_backup;
    expected << "//No backup files found";
    expected += last_stages;
    EXPECT_EQ(Relative_lines(world), expected);
}

TEST(Install_Log, Lines_end_in_carriage_return_and_line_feed) {
    Install_World world;
    Set_up(world);
    ASSERT_TRUE(world.restore());
    const QByteArray log = world.read("home/install_recover.log.VKBU");
    EXPECT_EQ(log.count('\n'), log.count("\r\n"));
    EXPECT_TRUE(log.endsWith("[REPACKAGE_IBT]\r\n"));
}

struct Heading {
    const char *game;
    const char *heading;
    const char *archive;
    bool says_finished;
};

TEST(Install_Log, The_originals_saves_have_a_heading_and_an_archive_for_each_game) {
    const std::vector<Heading> rows{
        {"T1", "//Original saves", "saves_Original.zip", true},
        {"TG", "//Original saves", "saves_Original.zip", true},
        {"T2", "//Original saves", "saves_Original.zip", true},
        {"SS2", "//Original saves", "saves_Original.zip", true},
        {"T3", "//Original saves", "saves_Original.zip", true},
        {"T2X", "//T2X Saves", "saves_Original_T2X.zip", false},
        {"DM", "//Dark Metal Original saves", "saves_Original_DM.zip", false},
        {"DOOM", "//DOOM 3 Original saves", "saves_Original_DOOM3.zip", false},
        {"DMOD", "//Dark Mod Original saves", "saves_Original_DMOD.zip", false},
    };
    for (const Heading &row : rows) {
        Install_World world(row.game);
        world.mission("a.zip", {{"a.mis", "x", {}}, {"b.str", "y", {}}});
        ASSERT_TRUE(world.install("a.zip")) << row.game;
        const QStringList log = world.finished_log();
        EXPECT_EQ(log.count(row.heading), 1) << row.game;
        EXPECT_EQ(log.count(QString("//Zip file name [\\") + row.archive + "]"), 1) << row.game;
        EXPECT_EQ(log.count("//Finished Zipping Original saves"), row.says_finished ? 1 : 0) << row.game;
    }
}

} // namespace
} // namespace vantrosk
