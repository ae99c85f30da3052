#include "Database_World.h"

#include "core/mdlErrorHandler.h"

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

struct Translation {
    const char *dialect;
    const char *engine;
};

constexpr Translation translations[] = {
    // Text in either quote is one kind of value; nothing in it is touched.
    {"SELECT * FROM t WHERE a = \"x\"", "SELECT * FROM t WHERE a = 'x'"},
    {"SELECT * FROM t WHERE a = 'say \"now()\"; #x# top 1'",
     "SELECT * FROM t WHERE a = 'say \"now()\"; #x# top 1'"},
    {"SELECT * FROM t WHERE a = \"Tom's \"\"B\"\" zip\"", "SELECT * FROM t WHERE a = 'Tom''s \"B\" zip'"},
    {"SELECT * FROM t WHERE a = 'Tom''s'", "SELECT * FROM t WHERE a = 'Tom''s'"},
    {"SELECT * FROM t WHERE a = ''", "SELECT * FROM t WHERE a = ''"},
    {"SELECT * FROM t WHERE a = \"\"", "SELECT * FROM t WHERE a = ''"},
    // Dates.
    {"UPDATE t SET d = #2009/03/07#", "UPDATE t SET d = '2009-03-07 00:00:00'"},
    {"UPDATE t SET d = #2009-3-7#", "UPDATE t SET d = '2009-03-07 00:00:00'"},
    {"UPDATE t SET d = #2009/03/07 21:05#", "UPDATE t SET d = '2009-03-07 21:05:00'"},
    {"UPDATE t SET d = #2009-03-07 21:05:09#", "UPDATE t SET d = '2009-03-07 21:05:09'"},
    {"UPDATE t SET d = ##", "UPDATE t SET d = null"},
    // Names in brackets, numbers, operators.
    {"SELECT [FM name] FROM [my table]", "SELECT [FM name] FROM [my table]"},
    {"SELECT t.a,u.* FROM t", "SELECT t.a, u.* FROM t"},
    {"SELECT 1, 2.5, .5, 1e3, 1.5E-3", "SELECT 1, 2.5, .5, 1e3, 1.5E-3"},
    {"UPDATE t SET r = r - 1 where a<>'x' and r<=5", "UPDATE t SET r = r - 1 where a <> 'x' and r <= 5"},
    {"DELETE FROM t WHERE a = 1 ;", "DELETE FROM t WHERE a = 1"},
    {"  select\r\n\t1  ", "select 1"},
    // Nothing of the dialect becomes a comment or a parameter of the engine.
    {"SELECT 5--3", "SELECT 5 - - 3"},
    {"SELECT 6/*2*/3", "SELECT 6 / * 2 * / 3"},
    // The first N.
    {"select top 1 * from Table_Scores", "select * from Table_Scores LIMIT 1"},
    {"SELECT TOP 10 zip_name FROM Table_Scores ORDER BY zip_name",
     "SELECT zip_name FROM Table_Scores ORDER BY zip_name LIMIT 10"},
    {"select top from t", "select top from t"},
    // A text that stands beside no column.
    {"SELECT 1 WHERE 'a' = \"A\"", "SELECT 1 WHERE 'a' = 'A' COLLATE NOCASE"},
    {"SELECT 1 WHERE trim(a) = 'A'", "SELECT 1 WHERE trim(a) = 'A' COLLATE NOCASE"},
    // Is there a value?
    {"SELECT a FROM t WHERE a <> null and a <> ''", "SELECT a FROM t WHERE a IS NOT NULL and a <> ''"},
    {"SELECT a FROM t WHERE a is null", "SELECT a FROM t WHERE a is null"},
    {"UPDATE t SET a = null,b = 0", "UPDATE t SET a = null, b = 0"},
    // Tables.
    {"CREATE TABLE t (id counter CONSTRAINT id PRIMARY KEY,a text(10),b memo,c datetime,d currency,e integer,"
     "f number,g boolean,h Text)",
     "CREATE TABLE t(id INTEGER CONSTRAINT id PRIMARY KEY AUTOINCREMENT, a TEXT(10) COLLATE NOCASE, b "
     "TEXT "
     "COLLATE NOCASE, c TEXT, d NUMERIC, e INTEGER, f NUMERIC, g INTEGER, h TEXT COLLATE NOCASE)"},
    {"ALTER TABLE Table_Scores ADD COLUMN  FM_Category Text(250)",
     "ALTER TABLE Table_Scores ADD COLUMN FM_Category TEXT(250) COLLATE NOCASE"},
    {"ALTER TABLE Table_Scores ADD COLUMN  categories_uploaded datetime",
     "ALTER TABLE Table_Scores ADD COLUMN categories_uploaded TEXT"},
    {"ALTER TABLE Table_Scores ALTER COLUMN  Author Text(250)",
     "INSERT OR REPLACE INTO vantrosk_column_sizes (table_name, column_name, size) VALUES('Table_Scores', "
     "'Author', 250)"},
};

constexpr const char *refused[] = {
    "",
    " ; ",
    "SELECT 'open",
    "SELECT \"open",
    "SELECT 'it''",
    "SELECT [open",
    "SELECT #2009/03/07",
    "SELECT #tomorrow#",
    "SELECT #2009/13/40#",
    "SELECT ?",
    "SELECT :a",
    "SELECT @a",
    "SELECT $a",
    "SELECT `a`",
    "SELECT {a}",
    "SELECT 1\\2",
    "SELECT a | b",
    "SELECT 1; SELECT 2",
    "DELETE FROM t WHERE a = ''; DROP TABLE t; --'",
    "CREATE TABLE t",
    "CREATE TABLE t (",
    "CREATE TABLE t (a",
    "CREATE TABLE t (a blob)",
    "CREATE",
    "CREATE VIEW v (a text)",
    "ALTER TABLE t",
    "ALTER TABLE t DROP COLUMN a b",
    "ALTER TABLE t ADD COLUMN a picture",
    "ALTER TABLE t ALTER COLUMN a Text",
};

} // namespace

TEST(Database_Dialect, Every_form_of_the_dialect_reads_as_the_engine_wants_it) {
    for (const Translation &row : translations)
        EXPECT_EQ(Translate_statement(row.dialect).toStdString(), row.engine) << row.dialect;
}

TEST(Database_Dialect, A_statement_that_is_not_of_the_dialect_is_refused) {
    for (const char *sql : refused)
        EXPECT_THROW(Translate_statement(sql), Program_Error) << sql;
}

TEST(Database_Dialect, A_zero_inside_a_text_does_not_end_the_statement) {
    const QString text = QString("a") + QChar(0) + "'b";
    EXPECT_EQ(Translate_statement("SELECT " + In_single_quotes(text)), "SELECT ('a'||char(0)||'''b')");
}

TEST(Database_Dialect, Quoting_doubles_the_quote_of_its_own_kind) {
    EXPECT_EQ(In_single_quotes("Tom's \"B\""), "'Tom''s \"B\"'");
    EXPECT_EQ(In_double_quotes("Tom's \"B\""), "\"Tom's \"\"B\"\"\"");
    EXPECT_EQ(In_single_quotes(""), "''");
    EXPECT_EQ(In_double_quotes(""), "\"\"");
}

namespace {

struct Evaluation {
    const char *expression;
    const char *value; ///< "-" for null, "!" for an error
};

constexpr Evaluation evaluations[] = {
    {"now()", "2026-11-19 22:14:05"},
    {"dateadd('d',-1,now())", "2026-11-18 22:14:05"},
    {"dateadd(\"d\",30,now())", "2026-12-19 22:14:05"},
    {"dateadd('yyyy',1,#2028/02/29#)", "2029-02-28 00:00:00"},
    {"dateadd('q',1,#2026/11/30#)", "2027-02-28 00:00:00"},
    {"dateadd('m',1,#2026/01/31#)", "2026-02-28 00:00:00"},
    {"dateadd('y',1,#2026/12/31#)", "2027-01-01 00:00:00"},
    {"dateadd('w',1,#2026/12/31#)", "2027-01-01 00:00:00"},
    {"dateadd('ww',2,#2026/12/31#)", "2027-01-14 00:00:00"},
    {"dateadd('h',2,#2026/03/29 01:30#)", "2026-03-29 03:30:00"},
    {"dateadd('n',90,now())", "2026-11-19 23:44:05"},
    {"dateadd('s',-6,now())", "2026-11-19 22:13:59"},
    {"dateadd('D',1,'19/11/2026')", "2026-11-20 00:00:00"},
    {"dateadd('d',1,null)", "-"},
    {"dateadd('d',null,now())", "-"},
    {"dateadd('x',1,now())", "!"},
    {"dateadd('d',1,'soon')", "!"},
    {"dateadd('d',999999999,now())", "!"},
    {"dateadd('yyyy',9000,now())", "!"},
    {"InStr(1,'T2*T1*ALL*','all*',1)", "7"},
    {"InStr(1,'T2*T1*ALL*','all*',0)", "0"},
    {"InStr(1,'T2*T1*ALL*','T1*')", "4"},
    {"InStr('T2*T1*ALL*','t1*')", "4"},
    {"InStr(5,'T2*T1*T1*','T1*',1)", "7"},
    {"InStr(1,'ŽLUŤ','luť',1)", "2"},
    {"InStr(1,'','x',1)", "0"},
    {"InStr(1,'abc','',1)", "1"},
    {"InStr(9,'abc','a',1)", "0"},
    {"InStr(0,'abc','a',1)", "!"},
    {"InStr(1,null,'a',1)", "-"},
    {"InStr(1,'abc',null,1)", "-"},
    {"Int(7)", "7"},
    {"Int(7.9)", "7"},
    {"Int('7.9')", "7"},
    {"Int(-7.1)", "-8"},
    {"Int(1e20)", "1e+20"},
    {"Int(null)", "-"},
    {"Int('')", "!"},
    {"Int('seven')", "!"},
    {"'a' = 'A'", "1"},
    {"'Žluť' = 'žLUŤ'", "1"},
    {"'Zlut' = 'Žluť'", "0"},
    {"'a' < 'B'", "1"},
    {"'é' = 'e'", "0"},
    {"'ΣΊΣΥΦΟΣ' = 'σίσυφος'", "1"},
    {"'ПРИВЕТ' = 'привет'", "1"},
    {"'abc' < 'ABCD'", "1"},
    {"'žb' < 'Žba'", "1"},
    {"'K' = 'k'", "1"},
};

} // namespace

TEST(Database_Dialect, Functions_and_comparisons_give_what_the_dialect_means) {
    Database_World world;
    ASSERT_TRUE(Open_database(*world.bare));
    for (const Evaluation &row : evaluations) {
        QString value;
        try {
            value = Rows_text(db_Query(*world.bare, QString("SELECT ") + row.expression + " as v"));
        } catch (const Program_Error &) {
            value = "!";
        }
        EXPECT_EQ(value.toStdString(), row.value) << row.expression;
    }
}

TEST(Database_Dialect, Stored_dates_are_read_in_every_form_they_were_ever_written_in) {
    const QDateTime day(QDate(2009, 3, 7), QTime(0, 0));
    const QDateTime moment(QDate(2009, 3, 7), QTime(21, 5, 9));
    EXPECT_EQ(Stored_date_time("2009-03-07"), day);
    EXPECT_EQ(Stored_date_time("2009/03/07"), day);
    EXPECT_EQ(Stored_date_time("2009/3/7"), day);
    EXPECT_EQ(Stored_date_time("07/03/2009"), day);
    EXPECT_EQ(Stored_date_time(" 2009-03-07 00:00:00 "), day);
    EXPECT_EQ(Stored_date_time("2009-03-07 21:05:09"), moment);
    EXPECT_EQ(Stored_date_time("07/03/2009 21:05:09"), moment);
    EXPECT_EQ(Stored_date_time("2009-03-07 21:05"), moment.addSecs(-9));
    for (const char *bad : {"", "20090307", "2009-13-07", "2009-02-30", "2009-03-07 25:00:00", "07.03.2009",
                            "yesterday", "2009-03-07x"})
        EXPECT_FALSE(Stored_date_time(bad).isValid()) << bad;
}

} // namespace vantrosk
