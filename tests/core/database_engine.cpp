#include "core/Database_Engine.h"

#include "Database_World.h"

#include "core/mdlErrorHandler.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace vantrosk {

namespace {

constexpr const char *key_statement =
    "SELECT zip_name FROM Table_Scores WHERE zip_name = \"a.zip\" and game = 'T2'";

void Add_mission(Program &program, const QString &zip_name, const QString &fm_name = "N") {
    db_Execute(program, "INSERT INTO Table_Scores (zip_name,FM_name,author,game,group_submissions) VALUES (" +
                            In_single_quotes(zip_name) + "," + In_single_quotes(fm_name) + ",'','T2',0)");
}

QString Missions(Program &program) {
    return Rows_text(db_Query(program, "SELECT zip_name FROM Table_Scores ORDER BY zip_name"));
}

} // namespace

TEST(Database_Engine, A_missing_file_is_made_with_the_delivered_tables) {
    Database_World world;
    ASSERT_TRUE(Open_database(*world.bare));
    EXPECT_TRUE(world.exists("home/Vantrosk.mdb"));
    EXPECT_EQ(
        Rows_text(db_Query(*world.bare, "SELECT Name FROM MSysObjects WHERE Name <> 'vantrosk_column_sizes' "
                                        "ORDER BY Name")),
        "Table_Authors / table_emails / table_general / Table_Loot / table_messages / Table_Recent / "
        "Table_Scores / Table_Tools");
    EXPECT_EQ(
        db_Query(*world.bare, "select top 1 * from Table_Scores").columns.join(","),
        "id,zip_name,FM_name,author,game,score,average_score,group_submissions,categories_list,completed,"
        "last_played,review,installed,zip_date,last_uploaded_date,last_checked_date");
    EXPECT_EQ(db_Query(*world.bare, "select top 1 * from Table_Recent").columns.join(","),
              "id,zip_name,zip_path,FM_name,Game,rank,installed_date");
    EXPECT_EQ(
        db_Query(*world.bare, "select top 1 * from Table_Tools").columns.join(","),
        "id,tool_name,tool_exe,tool_icon,tip_text,added_date,exe_checksum,tool_cmd,run_when,run_when_wait,"
        "display_type");
    EXPECT_EQ(db_Query(*world.bare, "select top 1 * from Table_Authors").columns.join(","),
              "id,author,author_colour,author_rank");
    EXPECT_EQ(db_Query(*world.bare, "select top 1 * from Table_Loot").columns.join(","),
              "id,file_name,Author_Name,Created_date,Installed_date");
    EXPECT_EQ(db_Query(*world.bare, "select top 1 * from table_emails").columns.join(","),
              "id,Email_type,Email_Content,Email_last_updated");
    EXPECT_EQ(db_Query(*world.bare, "select top 1 * from table_messages").columns.join(","),
              "id,message_name,viewed_date");
    EXPECT_EQ(db_Query(*world.bare, "select top 1 * from table_general").columns.join(","),
              "id,general_type,date_last_done,result");
    EXPECT_EQ(Rows_text(db_Query(*world.bare, "SELECT * FROM Table_Tools")), "");
    for (const char *column : {"zip_name", "FM_name", "author", "game"})
        EXPECT_EQ(Column_size(*world.bare, "Table_Scores", column), 250) << column;
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST(Database_Engine, What_was_written_is_there_at_the_next_start) {
    Database_World world;
    Add_mission(world.upgraded(), "a.zip");
    world.anew();
    ASSERT_TRUE(Open_database(*world.bare));
    EXPECT_EQ(Missions(*world.bare), "a.zip");
}

TEST(Database_Engine, The_file_is_found_under_another_spelling) {
    Database_World world;
    Add_mission(world.upgraded(), "a.zip");
    world.bare.reset();
    ASSERT_TRUE(QFile::rename(world.native("home/Vantrosk.mdb"), world.native("home/VANTROSK.MDB")));
    world.anew();
    ASSERT_TRUE(Open_database(*world.bare));
    EXPECT_EQ(Missions(*world.bare), "a.zip");
    EXPECT_FALSE(world.exists("home/Vantrosk.mdb"));
}

TEST(Database_Engine, Two_programs_share_the_file_between_their_statements) {
    Database_World world;
    Program &first = world.upgraded();
    Program second(world.platform, world.ui, world.windows("home"));
    ASSERT_TRUE(Open_database(second));
    Add_mission(first, "a.zip");
    Add_mission(second, "b.zip");
    Add_mission(first, "c.zip");
    EXPECT_EQ(Missions(first), "a.zip / b.zip / c.zip");
    EXPECT_EQ(Missions(second), "a.zip / b.zip / c.zip");
}

TEST(Database_Engine, Hostile_texts_survive_a_round_trip) {
    QString controls;
    for (char16_t letter = 0; letter < 32; ++letter)
        controls += QChar(letter);
    const QStringList texts = {"Tom's \"B\" zip",
                               "'; DELETE FROM Table_Scores; --",
                               "\"; DELETE FROM Table_Scores; --",
                               "100% ? & %27 %s #2009/01/01# [x] now()",
                               "\\",
                               "''",
                               "\"\"",
                               " blanks ",
                               "Žluťoučký кот 🐈 日本",
                               controls,
                               QString(10000, 'x') + "'",
                               QString(1, QChar(0)),
                               ""};
    Database_World world;
    Program &program = world.upgraded();
    for (const QString &text : texts) {
        for (const bool in_double : {false, true}) {
            const QString quoted = in_double ? In_double_quotes(text) : In_single_quotes(text);
            db_Execute(program, "DELETE FROM Table_Scores");
            db_Execute(program, "INSERT INTO Table_Scores (zip_name,FM_name) VALUES ('keep.zip','kept')");
            db_Execute(program, "INSERT INTO Table_Scores (zip_name,FM_name) VALUES (" + quoted + ",'N')");
            const Recordset found =
                db_Query(program, "SELECT * FROM Table_Scores WHERE zip_name = " + quoted);
            ASSERT_EQ(found.size(), 1) << text.toStdString();
            EXPECT_EQ(found.text(0, "zip_name"), text);
            EXPECT_FALSE(found.is_null(0, "zip_name"));
            EXPECT_EQ(Rows_text(db_Query(program, "SELECT count(*) FROM Table_Scores")), "2");
        }
    }
}

TEST(Database_Engine, Text_compares_and_sorts_without_case_and_keeps_accents) {
    Database_World world;
    Program &program = world.upgraded();
    for (const char *name : {"b.zip", "A.zip", "é.zip", "É2.zip", "B2.zip", "e.zip", "я.zip", "Ю.zip"})
        Add_mission(program, name);
    EXPECT_EQ(Missions(program), "A.zip / b.zip / B2.zip / e.zip / é.zip / É2.zip / Ю.zip / я.zip");
    EXPECT_EQ(Rows_text(db_Query(program, "SELECT zip_name FROM Table_Scores WHERE zip_name = \"É.ZIP\"")),
              "é.zip");
    EXPECT_EQ(Rows_text(db_Query(program, "SELECT zip_name FROM Table_Scores WHERE zip_name = 'E.zip'")),
              "e.zip");
    EXPECT_EQ(Rows_text(db_Query(
                  program, "SELECT zip_name FROM Table_Scores WHERE game = 't2' and zip_name < 'B.zip'")),
              "A.zip");
}

TEST(Database_Engine, Comparing_texts_is_a_total_order) {
    const QStringList sorted = {"", " ", "0", "_", "a", "A1", "aé", "AÉ1", "b", "é", "Éa", "ж", "日", "🐈"};
    for (int left = 0; left < sorted.size(); ++left) {
        for (int right = 0; right < sorted.size(); ++right) {
            const int found = Compare_text(sorted[left].toUtf8(), sorted[right].toUtf8());
            EXPECT_EQ(found < 0, left < right) << left << " " << right;
            EXPECT_EQ(found == 0, left == right) << left << " " << right;
        }
    }
}

TEST(Database_Engine, A_fault_names_the_engine_s_reason_and_leaves_nothing_locked) {
    Database_World world;
    Program &program = world.upgraded();
    try {
        db_Execute(program, "UPDATE nowhere SET a = 1");
        FAIL() << "no error";
    } catch (const Program_Error &error) {
        EXPECT_EQ(error.number(), 1);
        EXPECT_EQ(error.description(), "no such table: nowhere");
        EXPECT_STREQ(error.what(), "no such table: nowhere");
    }
    Add_mission(program, "first.zip");
    EXPECT_THROW(db_Query(program, "SELECT dateadd('x',1,now()) FROM Table_Scores"), Program_Error);
    EXPECT_THROW(db_Query(program, "SELECT dateadd('x',1,now())"), Program_Error);
    Program second(world.platform, world.ui, world.windows("home"));
    ASSERT_TRUE(Open_database(second));
    Add_mission(second, "a.zip");
    EXPECT_EQ(Missions(program), "a.zip / first.zip");
}

TEST(Database_Engine, A_statement_before_the_file_is_open_is_an_error) {
    Database_World world;
    EXPECT_THROW(db_Query(*world.bare, "SELECT * FROM Table_Scores"), Program_Error);
}

TEST(Database_Engine, The_last_statement_is_kept_as_it_was_sent) {
    Database_World world;
    db_Query(world.upgraded(), key_statement);
    EXPECT_EQ(world.bare->SQL, key_statement);
    EXPECT_THROW(db_Execute(*world.bare, "nonsense"), Program_Error);
    EXPECT_EQ(world.bare->SQL, "nonsense");
}

TEST(Database_Engine, Statements_are_logged_while_the_setting_is_on) {
    Database_World world;
    Program &program = world.upgraded();
    Missions(program);
    EXPECT_FALSE(world.exists("home/SQL_Log.log"));
    program.ini.RECORD_SQL = true;
    db_Query(program, key_statement);
    world.clock->sleep(2000);
    EXPECT_THROW(db_Execute(program, "wrong 'é'"), Program_Error);
    program.ini.RECORD_SQL = false;
    Missions(program);
    EXPECT_EQ(world.read("home/SQL_Log.log").toStdString(), std::string("19/11/2026 22:14:05--") +
                                                                key_statement +
                                                                "\r\n19/11/2026 22:14:07--wrong 'é'\r\n");
}

TEST(Database_Engine, A_log_that_can_not_be_written_is_passed_over) {
    Database_World world;
    Program &program = world.upgraded();
    world.make_folder("home/SQL_Log.log");
    program.ini.RECORD_SQL = true;
    EXPECT_EQ(Missions(program), "");
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST(Database_Engine, A_damaged_file_is_kept_aside_and_the_user_told) {
    Database_World world;
    const QByteArray rubbish = QByteArray("This is no database. ").repeated(400);
    world.write("home/Vantrosk.mdb", rubbish);
    ASSERT_TRUE(Open_database(*world.bare));
    EXPECT_EQ(world.read("home/Vantrosk.mdb.damaged-20261119-221405"), rubbish);
    EXPECT_EQ(Missions(*world.bare), "");
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_EQ(world.ui.boxes[0].kind, Box_Kind::warning);
    EXPECT_EQ(world.ui.boxes[0].title, "Vantrosk Database Damaged");
    EXPECT_EQ(
        world.ui.boxes[0].text,
        "The Vantrosk Database File is damaged and can not be read (file is not a database).\n\nIt has been "
        "kept as " +
            world.native("home/Vantrosk.mdb.damaged-20261119-221405") +
            "\n\nVantrosk has made a new one. Scores, reviews and keywords of the old one are not in it; the "
            "FMs are found again at the next folder scan.");
}

TEST(Database_Engine, A_second_damaged_file_does_not_replace_the_first) {
    Database_World world;
    world.write("home/Vantrosk.mdb", QByteArray(3000, 'a'));
    ASSERT_TRUE(Open_database(*world.bare));
    world.bare.reset();
    world.write("home/Vantrosk.mdb", QByteArray(3000, 'b'));
    world.anew();
    ASSERT_TRUE(Open_database(*world.bare));
    EXPECT_EQ(world.read("home/Vantrosk.mdb.damaged-20261119-221405"), QByteArray(3000, 'a'));
    EXPECT_EQ(world.read("home/Vantrosk.mdb.damaged-20261119-221405-2"), QByteArray(3000, 'b'));
}

TEST(Database_Engine, Damage_anywhere_in_the_file_is_noticed_at_the_start) {
    Database_World world;
    Program &program = world.upgraded();
    for (int number = 0; number < 300; ++number)
        Add_mission(program, QString("mission %1.zip").arg(number), QString(200, 'n'));
    world.bare.reset();
    const QByteArray good = world.read("home/Vantrosk.mdb");
    ASSERT_FALSE(world.exists("home/Vantrosk.mdb-wal"));
    QByteArray bad = good;
    const qsizetype half = bad.size() / 2 / 4096 * 4096;
    bad.replace(half, 4096 * 4, QByteArray(4096 * 4, '\xAA'));
    for (const QByteArray &content : {bad, good.left(half)}) {
        world.ui.boxes.clear();
        world.clock->sleep(1000);
        world.write("home/Vantrosk.mdb", content);
        world.anew();
        ASSERT_TRUE(Open_database(*world.bare));
        EXPECT_EQ(world.ui.boxes.size(), 1u);
        EXPECT_EQ(Missions(*world.bare), "");
        world.bare.reset();
    }
    world.write("home/Vantrosk.mdb", good);
    world.anew();
    ASSERT_TRUE(Open_database(*world.bare));
    EXPECT_EQ(db_Query(*world.bare, "SELECT count(*) as n FROM Table_Scores").number(0, "n"), 300);
}

TEST(Database_Engine, The_log_of_a_damaged_file_goes_with_it) {
    Database_World world;
    world.write("home/Vantrosk.mdb", QByteArray(3000, 'a'));
    world.write("home/Vantrosk.mdb-wal", "log");
    ASSERT_TRUE(Open_database(*world.bare));
    EXPECT_EQ(world.read("home/Vantrosk.mdb.damaged-20261119-221405-wal"), "log");
}

TEST(Database_Engine, An_empty_file_gets_its_tables) {
    Database_World world;
    world.write("home/Vantrosk.mdb", "");
    Add_mission(world.upgraded(), "a.zip");
    EXPECT_EQ(Missions(*world.bare), "a.zip");
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST(Database_Engine, A_file_that_can_not_be_made_is_told_and_nothing_is_open) {
    Database_World world;
    world.make_folder("home/Vantrosk.mdb");
    EXPECT_FALSE(Open_database(*world.bare));
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_EQ(world.ui.boxes[0].kind, Box_Kind::critical);
    EXPECT_EQ(world.ui.boxes[0].title, "Vantrosk Database");
    EXPECT_EQ(world.ui.boxes[0].text, "Vantrosk can not use its database file.\n\n" +
                                          world.native("home/Vantrosk.mdb") +
                                          "\n\nunable to open database file");
    EXPECT_THROW(Missions(*world.bare), Program_Error);
}

TEST(Database_Engine, A_write_protected_file_is_made_writable) {
    Database_World world;
    Add_mission(world.upgraded(), "a.zip");
    world.bare.reset();
    ASSERT_TRUE(
        QFile::setPermissions(world.native("home/Vantrosk.mdb"), QFile::ReadOwner | QFile::ReadGroup));
    set_debug(world.anew(), true);
    ASSERT_TRUE(Open_database(*world.bare));
    Add_mission(*world.bare, "b.zip");
    EXPECT_EQ(Missions(*world.bare), "a.zip / b.zip");
    EXPECT_EQ(world.ui.trace,
              QStringList{"DB_FUNCTIONS: Database file exists its marked as read only though, so "
                          "trying to change to normal attributes"});
}

TEST(Database_Engine, The_key_statement_uses_the_index) {
    Database_World world;
    Program &program = world.upgraded();
    const auto plan = [&program](const QString &sql) {
        return db_Query(program, "EXPLAIN QUERY PLAN " + sql).text(0, "detail");
    };
    EXPECT_EQ(plan(key_statement),
              "SEARCH Table_Scores USING COVERING INDEX scores_by_zip (zip_name=? AND game=?)");
    EXPECT_EQ(plan("SELECT review FROM Table_Scores WHERE zip_name = \"a.zip\""),
              "SEARCH Table_Scores USING INDEX scores_by_zip (zip_name=?)");
    EXPECT_EQ(plan("SELECT review FROM Table_Scores WHERE game = 'T2'"),
              "SEARCH Table_Scores USING INDEX scores_by_game (game=?)");
}

TEST(Database_Engine, Another_tool_reads_and_writes_the_file_and_its_rows_are_found) {
    Database_World world;
    Add_mission(world.upgraded(), "Ära.zip");
    Add_mission(*world.bare, "önd.zip");
    world.bare.reset();
    sqlite3 *other = nullptr;
    ASSERT_EQ(sqlite3_open(QFile::encodeName(world.native("home/Vantrosk.mdb")).constData(), &other),
              SQLITE_OK);
    for (const char *statement :
         {"INSERT INTO Table_Scores (zip_name, FM_name, game) VALUES ('ÄRAS.zip', 'N', 'T2')",
          "UPDATE Table_Scores SET review = 'fine' WHERE zip_name = 'ära.ZIP' OR zip_name = 'ÖND.zip'",
          "UPDATE Table_Scores SET review = 'good' WHERE zip_name = 'Ära.ZIP' AND game = 't2'"})
        EXPECT_EQ(sqlite3_exec(other, statement, nullptr, nullptr, nullptr), SQLITE_OK)
            << statement << ": " << sqlite3_errmsg(other);
    sqlite3_close(other);
    world.anew();
    ASSERT_TRUE(Open_database(*world.bare));
    EXPECT_EQ(
        Rows_text(db_Query(*world.bare, "SELECT zip_name FROM Table_Scores WHERE zip_name = 'äras.zip' or "
                                        "review = 'good'")),
        "Ära.zip / ÄRAS.zip");
    EXPECT_EQ(Missions(*world.bare), "Ära.zip / ÄRAS.zip / önd.zip");
}

TEST(Recordset, Cells_are_found_by_column_in_any_case) {
    Recordset records;
    records.columns = {"Zip_Name", "score"};
    records.rows = {{QString("a.zip"), 7.0},
                    {QVariant(), 7.25},
                    {QString(""), QVariant::fromValue<qlonglong>(5000000000)}};
    EXPECT_EQ(records.size(), 3);
    EXPECT_FALSE(records.is_empty());
    EXPECT_EQ(records.column("zip_name"), 0);
    EXPECT_EQ(records.column("SCORE"), 1);
    EXPECT_EQ(records.column("game"), -1);
    EXPECT_EQ(records.text(0, "ZIP_NAME"), "a.zip");
    EXPECT_EQ(records.text(0, "score"), "7");
    EXPECT_EQ(records.text(1, "score"), "7.25");
    EXPECT_EQ(records.text(2, "score"), "5000000000");
    EXPECT_EQ(records.text(1, "zip_name"), "");
    EXPECT_TRUE(records.is_null(1, "zip_name"));
    EXPECT_FALSE(records.is_null(2, "zip_name"));
    EXPECT_EQ(records.number(0, "score"), 7);
    EXPECT_EQ(records.number(1, "score"), 7);
    EXPECT_EQ(records.number(2, "score"), 2147483647);
    EXPECT_EQ(records.number(0, "zip_name"), 0);
    EXPECT_EQ(records.number(1, "zip_name"), 0);
    for (const int row : {-1, 3}) {
        EXPECT_TRUE(records.is_null(row, "score"));
        EXPECT_EQ(records.text(row, "score"), "");
    }
    EXPECT_TRUE(records.is_null(0, "game"));
    EXPECT_FALSE(records.date_time(0, "zip_name").isValid());
}

TEST(Recordset, A_moment_reads_as_text_and_as_date) {
    Database_World world;
    const Recordset records = db_Query(world.upgraded(), "SELECT now() as a, #2009/03/07# as b");
    EXPECT_EQ(records.text(0, "a"), "2026-11-19 22:14:05");
    EXPECT_EQ(records.date_time(0, "a"), world.clock->time);
    EXPECT_EQ(records.date_time(0, "b"), QDateTime(QDate(2009, 3, 7), QTime(0, 0)));
}

} // namespace vantrosk
