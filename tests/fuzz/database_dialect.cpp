#include "fuzz/Fuzz.h"

#include "core/Database_Engine.h"
#include "core/mdlErrorHandler.h"
#include "support/Fake_Clock.h"

#include <sqlite3.h>

#include <cstdlib>

namespace vantrosk {

namespace {

void Must(bool holds) {
    if (!holds)
        std::abort();
}

/// A database in memory; its clock outlives it.
class Scene {
public:
    Scene() {
        Must(sqlite3_open(":memory:", &connection_) == SQLITE_OK);
        Register_dialect(connection_, clock_);
        Read_all(connection_,
                 Translate_statement("CREATE TABLE t (id counter CONSTRAINT id PRIMARY KEY,a text(10),"
                                     "b memo,c datetime,d number)"));
    }
    ~Scene() { sqlite3_close_v2(connection_); }
    Scene(const Scene &) = delete;
    Scene &operator=(const Scene &) = delete;

    /// The engine reads all of it as one statement, or refuses it.
    void prepare(const QString &engine_sql) {
        const QByteArray bytes = engine_sql.toUtf8();
        sqlite3_stmt *statement = nullptr;
        const char *rest = nullptr;
        const int code = sqlite3_prepare_v2(connection_, bytes.constData(), static_cast<int>(bytes.size()),
                                            &statement, &rest);
        Must(code != SQLITE_OK || rest == bytes.constData() + bytes.size());
        Must(code != SQLITE_OK || sqlite3_bind_parameter_count(statement) == 0);
        sqlite3_finalize(statement);
    }

    /// A text in quotes is that text, whatever it holds.
    void carry(const QString &text) {
        const QString sql = "SELECT " + In_single_quotes(text) + " AS one, " + In_double_quotes(text) +
                            " AS two WHERE " + In_double_quotes(text) + " = " + In_single_quotes(text);
        const Recordset rows = Read_all(connection_, Translate_statement(sql));
        Must(rows.size() == 1 && rows.text(0, "one") == text && rows.text(0, "two") == text);
    }

private:
    Fake_Clock clock_;
    sqlite3 *connection_ = nullptr;
};

} // namespace

void Fuzz_one(const QByteArray &bytes) {
    static Scene scene;
    const QString text = QString::fromUtf8(bytes);
    scene.carry(text);
    (void)Stored_date_time(text);
    (void)Encode_Text(Encode_Text(text, false), true);
    try {
        scene.prepare(Translate_statement(text));
    } catch (const Program_Error &) {
        // Refused, which is as good.
    }
}

std::vector<QByteArray> Fuzz_seeds() {
    return {"UPDATE t SET a = 'it''s', c = now(), d = dateadd(\"d\",30,now()) WHERE a = \"x\" and b <> null",
            "select top 10 a,b from t where InStr(1,a,\"T2*\",1)<> 0 or d = 1.5e3 order by a",
            "CREATE TABLE u (id counter CONSTRAINT id PRIMARY KEY,a text(10),b memo, c datetime)",
            "ALTER TABLE t ADD COLUMN  e Text(250)",
            "ALTER TABLE t ALTER COLUMN  a Text(250)",
            "INSERT INTO t (a,c) VALUES ('n.zip',#2010/05/06 10:20:30#) ;",
            "SELECT t.*, u.d FROM t INNER JOIN t u ON (t.a = u.a) AND (t.[b] = u.b) order by d",
            "07/03/2009 21:05:09"};
}

std::vector<QByteArray> Fuzz_pieces() {
    return {"'",
            "\"",
            "#",
            "[",
            "]",
            "(",
            ")",
            ";",
            "--",
            "/*",
            "*/",
            "`",
            "?",
            ":a",
            "@a",
            "$a",
            "{",
            "|",
            "\\",
            "null",
            "<>",
            " top ",
            "CREATE TABLE ",
            "ALTER TABLE ",
            "ADD COLUMN ",
            "text(",
            "counter",
            "2009-03-07",
            "%22",
            QByteArray(1, '\0'),
            "\xF0\x9F\x90\x8E",
            "\xC5",
            "e+",
            "."};
}

} // namespace vantrosk
