#include "Database_World.h"

#include "core/Database_Engine.h"

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

const QStringList upgrade_texts = {
    "Added Custom Games database table",
    "Added Game Ref database table",
    "Added competition database table",
    "Added game info database table",
    "Added Updates database table",
    "Added Resources database table",
    "Added Favourite Links database table",
    "custom game column added to main database table",
    "Category column added to main database table",
    "Walkthrough URL column added to main database table",
    "More Info URL column added to main database table",
    "Forum Thread URL column added to main database table",
    "Loot List URL column added to main database table",
    "German FM name column added to main database table",
    "German FM name column added to main database table",
    "German FM name column added to main database table",
    "German FM name column added to main database table",
    "Categories column added to main database table",
};

} // namespace

TEST(DB_Upgrade_Tables, The_first_upgrade_tells_each_change_in_order) {
    Database_World world;
    world.upgraded();
    EXPECT_EQ(world.ui.panel_1, upgrade_texts);
    EXPECT_EQ(world.bare->screen.status_panels[1], upgrade_texts.last());
    EXPECT_TRUE(world.ui.boxes.empty());
    EXPECT_EQ(
        db_Query(*world.bare, "select top 1 * from Table_Scores").columns.mid(16).join(","),
        "custom_game_code,FM_Category,Walkthrough_url,Info_url,Forum_url,LootList_url,FM_name_FR,FM_name_IT,"
        "FM_name_DE,FM_name_SP,categories_uploaded");
}

TEST(DB_Upgrade_Tables, A_second_upgrade_changes_and_shows_nothing) {
    Database_World world;
    world.upgraded();
    const QString schema = "SELECT name, sql FROM sqlite_master ORDER BY name";
    const QString before = Rows_text(db_Query(*world.bare, schema));
    world.ui.panel_1.clear();
    DB_Upgrade_Tables(*world.bare);
    EXPECT_EQ(world.ui.panel_1, QStringList());
    EXPECT_EQ(Rows_text(db_Query(*world.bare, schema)), before);
    world.anew();
    world.upgraded();
    EXPECT_EQ(world.ui.panel_1, QStringList());
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST(DB_Upgrade_Tables, The_new_tables_have_the_told_columns) {
    struct Table {
        const char *name;
        const char *columns;
    };
    constexpr Table expected[] = {
        {"table_custom_games", "id,date_added,game_code,reference_file,date_updated,game_name"},
        {"table_game_refs", "id,file_name,Author_Name,Created_date,Installed_date,display_name"},
        {"table_competitions",
         "id,competition_ref,competition_name,start_date,end_date,submitted_date,FM_list"},
        {"table_game_info", "id,game_name,zip_size,zip_count,FMs_completed,list_number,saves_count"},
        {"Table_Updates",
         "id,update_category,update_version,zip_name,zip_downloaded,zip_hidden,reminder_date"},
        {"table_Resources",
         "id,game_name,fm_name,zip_name,resource_count,resource_type,resource_list,dateadded"},
        {"table_Fav_Links", "id,URL,Display_Name,Dateadded,Date_used"},
    };
    Database_World world;
    Program &program = world.upgraded();
    for (const Table &table : expected)
        EXPECT_EQ(db_Query(program, QString("select top 1 * from ") + table.name).columns.join(","),
                  table.columns);
    EXPECT_EQ(Column_size(program, "table_custom_games", "game_code"), 10);
    EXPECT_EQ(Column_size(program, "table_Resources", "zip_name"), 80);
    EXPECT_EQ(Column_size(program, "Table_Scores", "FM_CATEGORY"), 250);
    EXPECT_EQ(Column_size(program, "Table_Scores", "review"), 0);
}

TEST(DB_Upgrade_Tables, A_narrow_author_is_made_larger_once) {
    Database_World world;
    ASSERT_TRUE(Open_database(*world.bare));
    db_Execute(*world.bare, "ALTER TABLE Table_Scores ALTER COLUMN  Author Text(50)");
    DB_Upgrade_Tables(*world.bare);
    EXPECT_EQ(world.ui.panel_1, upgrade_texts + QStringList{"Author Field in Scores Table made larger"});
    EXPECT_EQ(Column_size(*world.bare, "table_scores", "author"), 250);
    world.ui.panel_1.clear();
    DB_Upgrade_Tables(*world.bare);
    EXPECT_EQ(world.ui.panel_1, QStringList());
}

TEST(DB_Upgrade_Tables, A_column_of_another_spelling_shows_the_error_box_and_the_rest_goes_on) {
    Database_World world;
    ASSERT_TRUE(Open_database(*world.bare));
    db_Execute(*world.bare, "ALTER TABLE Table_Scores ADD COLUMN  fm_category Text(250)");
    DB_Upgrade_Tables(*world.bare);
    EXPECT_EQ(world.ui.box_texts(),
              QStringList{
                  "Error 1 (duplicate column name: FM_Category) on line 0 in procedure "
                  "DB_Add_Columns_If_Missing of Module mdlDB_Functions.\nDo you wish to take a screenshot?"});
    QStringList told = upgrade_texts;
    told.removeAll("Category column added to main database table");
    EXPECT_EQ(world.ui.panel_1, told);
}

TEST(DB_Create_Table_If_Missing, Tells_whether_it_made_the_table) {
    Database_World world;
    Program &program = world.upgraded();
    EXPECT_TRUE(DB_Create_Table_If_Missing(program, "Table_New", "a text(10),b memo"));
    EXPECT_FALSE(DB_Create_Table_If_Missing(program, "TABLE_NEW", "a text(10),b memo"));
    EXPECT_EQ(db_Query(program, "select top 1 * from table_new").columns.join(","), "id,a,b");
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST(DB_Add_Columns_If_Missing, Adds_what_is_missing_with_its_type_or_text) {
    Database_World world;
    Program &program = world.upgraded();
    EXPECT_FALSE(DB_Add_Columns_If_Missing(program, "Table_Loot", "one,two", "integer,", false));
    EXPECT_TRUE(
        DB_Add_Columns_If_Missing(program, "Table_Loot", "one,file_name,two,three", "integer,memo,", true));
    EXPECT_EQ(program.SQL, "ALTER TABLE Table_Loot ADD COLUMN  three text(250)");
    EXPECT_FALSE(
        DB_Add_Columns_If_Missing(program, "Table_Loot", "one,file_name,two,three", "integer", true));
    EXPECT_EQ(Column_size(program, "Table_Loot", "one"), 0);
    EXPECT_EQ(Column_size(program, "Table_Loot", "two"), 250);
    EXPECT_EQ(Column_size(program, "Table_Loot", "three"), 250);
}

TEST(DB_Resize_Text_Column, Changes_only_another_size_and_only_when_asked) {
    Database_World world;
    Program &program = world.upgraded();
    EXPECT_FALSE(DB_Resize_Text_Column(program, "Table_Scores", "FM_name", true, 250));
    EXPECT_FALSE(DB_Resize_Text_Column(program, "Table_Scores", "FM_name", false, 100));
    EXPECT_TRUE(DB_Resize_Text_Column(program, "Table_Scores", "FM_name", true, 100));
    EXPECT_EQ(program.SQL, "ALTER TABLE Table_Scores ALTER COLUMN  FM_name Text(100)");
    EXPECT_FALSE(DB_Resize_Text_Column(program, "table_scores", "fm_NAME", true, 100));
    EXPECT_TRUE(world.ui.boxes.empty());
    EXPECT_FALSE(DB_Resize_Text_Column(program, "Table_Scores", "nowhere", true, 100));
    EXPECT_EQ(
        world.ui.box_texts(),
        QStringList{"Error 1 (no such column: nowhere) on line 0 in procedure "
                    "DB_Resize_Text_Column of Module mdlDB_Functions.\nDo you wish to take a screenshot?"});
}

TEST(DB_Message_Seen, A_notice_is_unseen_until_it_is_marked) {
    Database_World world;
    Program &program = world.upgraded();
    EXPECT_FALSE(DB_Message_Was_Seen(program, "Initial_Warning"));
    DB_Message_Seen(program, "Initial_Warning");
    EXPECT_EQ(program.SQL,
              "INSERT INTO table_messages (message_name,viewed_date) VALUES('Initial_Warning',now())");
    EXPECT_TRUE(DB_Message_Was_Seen(program, "Initial_Warning"));
    EXPECT_FALSE(DB_Message_Was_Seen(program, "Script_Warning"));
    EXPECT_EQ(Rows_text(db_Query(program, "SELECT viewed_date FROM table_messages")), "2026-11-19 22:14:05");
}

TEST(DB_Job_Date, The_first_time_gives_the_job_its_date_and_later_ones_read_it) {
    Database_World world;
    Program &program = world.upgraded();
    EXPECT_TRUE(DB_Job_Date(program, "Last_FM_check").is_first_time);
    EXPECT_EQ(program.SQL,
              "INSERT INTO table_general (general_type,date_last_done) VALUES ('Last_FM_check',now())");
    const Job_Date later = DB_Job_Date(program, "Last_FM_check");
    EXPECT_FALSE(later.is_first_time);
    EXPECT_EQ(later.last_done, QDateTime(QDate(2026, 11, 19), QTime(22, 14, 5)));
    EXPECT_TRUE(DB_Job_Date(program, "Last_downloaded").is_first_time) << "each job has its own";
    EXPECT_EQ(Rows_text(db_Query(program, "SELECT general_type,result FROM table_general ORDER BY id")),
              "Last_FM_check|- / Last_downloaded|-");
}

TEST(DB_Job_Date, A_row_without_a_date_is_a_first_time) {
    Database_World world;
    Program &program = world.upgraded();
    db_Execute(program,
               "INSERT INTO table_general (general_type,date_last_done) VALUES ('RSS_Last_downloaded',null)");
    EXPECT_TRUE(DB_Job_Date(program, "RSS_Last_downloaded").is_first_time);
}

TEST(DB_Job_Done, The_date_and_the_outcome_are_kept) {
    Database_World world;
    Program &program = world.upgraded();
    db_Execute(
        program,
        "INSERT INTO table_general (general_type,date_last_done) VALUES ('Last_downloaded',#2009/03/07#)");
    DB_Job_Done(program, "Last_downloaded", false);
    EXPECT_EQ(program.SQL,
              "UPDATE table_general SET date_last_done = now(), result = '0' WHERE general_type = "
              "'Last_downloaded'");
    EXPECT_EQ(Rows_text(db_Query(program, "SELECT date_last_done,result FROM table_general")),
              "2026-11-19 22:14:05|0");
    DB_Job_Done(program, "Last_downloaded", true);
    EXPECT_EQ(Rows_text(db_Query(program, "SELECT result FROM table_general")), "1");
}

TEST(DB_Touch_Last_Played, Sets_the_moment_of_the_current_game_s_row) {
    Database_World world;
    Program &program = world.upgraded();
    for (const char *game : {"T1", "T2"})
        db_Execute(program,
                   QString("INSERT INTO Table_Scores (zip_name,game) VALUES (\"Tom's.zip\",'%1')").arg(game));
    db_Execute(program, "INSERT INTO Table_Scores (zip_name,game) VALUES ('Original T2','T2')");
    program.CURRENT_GAME = "T2";
    DB_Touch_Last_Played(program, "Tom's.zip");
    EXPECT_EQ(
        program.SQL,
        "UPDATE Table_Scores SET last_played = now()  WHERE zip_name = \"Tom's.zip\" and game = \"T2\"");
    DB_Touch_Last_Played(program, "oRIGINAL T2");
    EXPECT_EQ(Rows_text(db_Query(program, "SELECT game,last_played FROM Table_Scores ORDER BY id")),
              "T1|- / T2|2026-11-19 22:14:05 / T2|-");
}

TEST(DB_Touch_Last_Played, A_mission_whose_zip_is_called_original_something_is_played_too) {
    Database_World world;
    Program &program = world.upgraded();
    db_Execute(program, "INSERT INTO Table_Scores (zip_name,game) VALUES ('OriginalSin.zip','T2')");
    program.CURRENT_GAME = "T2";
    DB_Touch_Last_Played(program, "OriginalSin.zip");
    EXPECT_EQ(Rows_text(db_Query(program, "SELECT last_played FROM Table_Scores")), "2026-11-19 22:14:05");
}

TEST(DB_Email_Template, Reads_inserts_and_updates) {
    Database_World world;
    Program &program = world.upgraded();
    EXPECT_EQ(DB_Email_Template(program, "Email_Low", "", false), "");
    EXPECT_EQ(DB_Email_Template(program, "Email_Low", "It's %3F", true), "TRUE");
    EXPECT_EQ(DB_Email_Template(program, "Email_Low", "", false), "It's %3F");
    EXPECT_EQ(DB_Email_Template(program, "Email_Low", "new", true), "TRUE");
    EXPECT_EQ(DB_Email_Template(program, "email_low", "", false), "new");
    EXPECT_EQ(
        Rows_text(db_Query(program, "SELECT Email_type,Email_Content,Email_last_updated FROM table_emails")),
        "Email_Low|new|2026-11-19 22:14:05");
}

TEST(Get_Authors_Array, Reads_the_used_slots_by_name) {
    Database_World world;
    Program &program = world.upgraded();
    for (const char *row : {"'Zoe','255',0", "'','1',1", "null,'2',2", "'ann','65280',3"})
        db_Execute(
            program,
            QString("INSERT INTO Table_Authors (author,author_colour,author_rank) VALUES (%1)").arg(row));
    set_debug(program, true);
    for (int time = 0; time < 2; ++time) {
        Get_Authors_Array(program);
        ASSERT_EQ(program.authors.size(), 2u);
        EXPECT_EQ(program.authors[0].author + program.authors[0].colour, "ann65280");
        EXPECT_EQ(program.authors[1].author + program.authors[1].colour, "Zoe255");
    }
    EXPECT_EQ(world.ui.trace.mid(2), (QStringList{"DB_FUNCTIONS: Start getAuthors_Array",
                                                  "DB_FUNCTIONS: adodc done in getAuthors_Array"}));
}

TEST(Get_Authors_Array, A_fault_shows_the_error_box) {
    Database_World world;
    Get_Authors_Array(*world.bare);
    EXPECT_EQ(world.ui.box_texts(),
              QStringList{"Error 14 (The database is not open.) on line 0 in procedure "
                          "Get_Authors_Array of Module mdlDB_Functions.\nDo you wish to take a screenshot?"});
}

TEST(Encode_Text, Every_character_of_the_table_goes_both_ways) {
    const QString plain = "\"Hi\" it's\r\nyou? & me 100%";
    const QString stored = "%22Hi%22 it%27s%0Ayou%3F %26 me 100%";
    EXPECT_EQ(Encode_Text(plain, false), stored);
    EXPECT_EQ(Encode_Text(stored, true), plain);
    EXPECT_EQ(Encode_Text("a%0Db%0Ac", true), "a\r\nb\r\nc");
    EXPECT_EQ(Encode_Text("", false), "");
    EXPECT_EQ(Encode_Text("a\nb\rc", false), "a\nb\rc");
}

TEST(Names_In_The_Database, A_single_quote_is_stored_as_a_double_quote_and_shown_again) {
    EXPECT_EQ(Name_for_database("Tom's 'day'"), "Tom\"s \"day\"");
    EXPECT_EQ(Name_for_display("Tom\"s \"day\""), "Tom's 'day'");
    EXPECT_EQ(Name_for_database(""), "");
}

} // namespace vantrosk
