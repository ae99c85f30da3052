#include "Database_World.h"

#include "core/Database_Engine.h"
#include "core/mdlStartup.h"

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

constexpr const char *advice_title = "A Database Error Has Occurred, you may have an out of date copy";
constexpr const char *advice =
    "If you received an error message just now, your database is incorrectly configured.\n\nPlease download "
    "an updated database, or open the database and grant read permission to the catalog tables MSYSOBJECTS "
    "and MSYSQUERIES:\n\n1) Open Vantrosk.mdb\n2) Goto TOOLS - SECURITY - USER AND GROUP PERMISSIONS\n3) "
    "Grant read permission to MSYSOBJECTS and MSYSQUERIES\n\nIf you have changed the database file or "
    "updated it, click YES below to exit Vantrosk and restart, otherwise click NO (you may receive more "
    "error messages).";
constexpr const char *no_data_control =
    "MSADODC.OCX does not seem to exist in the system32 folder, possible failed install?";
constexpr const char *probe_fault =
    "Error 1 (no such table: Table_Bad) on line 0 in procedure DB_Create_Table_If_Missing of Module "
    "mdlDB_Functions.\nDo you wish to take a screenshot?";
const QStringList fault_lines = {"Error Number 1", "Error Description: Syntax error in field definition."};
constexpr const char *plain_file = "DB_FUNCTIONS: Database file attributes are 32 so not read only error "
                                   "possibly due to MSADODC.OCX, checking now";

/// A database in which one table can not be made.
struct Fault_World : Database_World {
    Fault_World() {
        upgraded();
        ui.panel_1.clear();
        set_debug(*bare, true);
    }
    bool fail() { return DB_Create_Table_If_Missing(*bare, "Table_Bad", "a picture"); }
};

} // namespace

TEST(Database_Fault, A_file_that_is_there_leads_to_the_data_control_and_the_advice) {
    Fault_World world;
    EXPECT_FALSE(world.fail());
    const QStringList lines = {"DB_FUNCTIONS: Database file exists, now checking attributes", plain_file,
                               QString("DB_FUNCTIONS: ") + no_data_control,
                               "DB_FUNCTIONS: Error In DB_Create_Table_If_Missing : (1) no such table: "
                               "Table_Bad"};
    EXPECT_EQ(world.ui.trace, fault_lines + lines);
    EXPECT_EQ(world.ui.box_texts(), (QStringList{no_data_control, advice, probe_fault}));
    EXPECT_EQ(world.ui.boxes[1].title, advice_title);
    EXPECT_EQ(world.ui.boxes[1].buttons, Buttons::yes_no);
    EXPECT_EQ(world.ui.boxes[1].default_answer, Answer::no);
    EXPECT_EQ(world.bare->SQL, "select top 1 * from Table_Bad");
    EXPECT_FALSE(world.bare->start.end_requested);
}

TEST(Database_Fault, The_data_control_is_looked_for_in_both_folders) {
    for (const char *folder : {"WINDOWS", "WINNT"}) {
        Fault_World world;
        world.write(QString("prefix/drive_c/%1/system32/msadodc.ocx").arg(folder), "control");
        world.fail();
        EXPECT_EQ(world.ui.trace.value(4),
                  QString("DB_FUNCTIONS: MSADODC.OCX found in C:\\%1\\system32\\").arg(folder));
        EXPECT_EQ(world.ui.box_texts(), (QStringList{advice, probe_fault}));
    }
}

TEST(Database_Fault, A_missing_file_is_told_with_the_folder_that_it_belongs_in) {
    Fault_World world;
    ASSERT_TRUE(QFile::remove(world.native("home/Vantrosk.mdb")));
    world.fail();
    EXPECT_EQ(world.ui.trace.mid(2, 2),
              (QStringList{"DB_FUNCTIONS: CRITICAL: Database file does not exist",
                           "DB_FUNCTIONS: Error In DB_Create_Table_If_Missing : (1) no such table: "
                           "Table_Bad"}));
    ASSERT_EQ(world.ui.boxes.size(), 3u);
    EXPECT_EQ(world.ui.boxes[0].kind, Box_Kind::critical);
    EXPECT_EQ(world.ui.boxes[0].text,
              "Caution the Vantrosk Database File does not seem to exist in the Vantrosk install folder.\n"
              "The file is called Vantrosk.mdb, please confirm if it is located in " +
                  world.native("home"));
    EXPECT_EQ(world.ui.boxes[1].text, advice);
}

TEST(Database_Fault, A_write_protection_is_lifted_and_the_data_control_not_asked_for) {
    Fault_World world;
    const QString file = world.native("home/Vantrosk.mdb");
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | QFile::ReadGroup));
    world.fail();
    EXPECT_EQ(world.ui.trace.mid(2, 2),
              (QStringList{"DB_FUNCTIONS: Database file exists, now checking attributes",
                           "DB_FUNCTIONS: Database file exists its marked as read only though, so trying to "
                           "change to normal attributes"}));
    EXPECT_TRUE(QFile::permissions(file).testFlag(QFile::WriteOwner));
    EXPECT_EQ(world.ui.box_texts(), (QStringList{advice, probe_fault}));
}

TEST(Database_Fault, Yes_ends_the_program_without_the_probe) {
    Fault_World world;
    world.ui.answers = {Answer::yes};
    EXPECT_FALSE(world.fail());
    EXPECT_TRUE(world.bare->start.end_requested);
    EXPECT_EQ(world.ui.box_texts(), (QStringList{no_data_control, advice}));
}

TEST(Database_Fault, After_Yes_the_upgrade_and_the_start_go_no_further) {
    Database_World world;
    ASSERT_TRUE(Open_database(*world.bare));
    // What is no table is not found as one, and stands in the way of all that bear its name.
    for (const char *name : {"table_custom_games", "table_game_refs"})
        Read_all(Database_state(world.bare->database).connection,
                 QString("CREATE VIEW %1 AS SELECT 1 AS a").arg(name));
    world.anew();
    world.ui.answers = {Answer::yes};
    EXPECT_FALSE(Start_Program(*world.bare));
    EXPECT_EQ(world.ui.box_texts(), (QStringList{no_data_control, advice}));
    EXPECT_FALSE(world.ui.panel_1.contains("Added Game Ref database table"));
    EXPECT_FALSE(world.ui.panel_1.contains("Added competition database table"));
    EXPECT_TRUE(world.bare->email_templates.empty());
}

TEST(Database_Fault, After_No_the_upgrade_and_the_start_go_on) {
    Database_World world;
    ASSERT_TRUE(Open_database(*world.bare));
    Read_all(Database_state(world.bare->database).connection,
             "CREATE VIEW table_custom_games AS SELECT 1 AS a");
    world.anew();
    EXPECT_TRUE(Start_Program(*world.bare));
    EXPECT_EQ(world.ui.box_texts(), (QStringList{no_data_control, advice}));
    EXPECT_TRUE(world.ui.panel_1.contains("Added Game Ref database table"));
    EXPECT_FALSE(world.bare->email_templates.empty());
}

} // namespace vantrosk
