#include "core/Database_Engine.h"

#include "core/Program.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFormDisplayFunctions.h"

#include <sqlite3.h>

namespace vantrosk {

struct Database::State {
    sqlite3 *connection = nullptr;

    ~State() { close(); }
    void close() {
        sqlite3_close_v2(connection);
        connection = nullptr;
    }
};

Database::State &Database_state(Database &database) {
    return *database.state_;
}

Database::Database() : state_(std::make_unique<State>()) {}
Database::~Database() = default;

namespace {

constexpr int busy_milliseconds = 5000;

/// The tables that the program takes for granted; each has the leading counter `id`. What later versions
/// added comes with the upgrade.
struct Delivered_Table {
    const char *name;
    const char *columns;
};

constexpr Delivered_Table delivered_tables[] = {
    {"Table_Scores",
     "zip_name text(250),FM_name text(250),author text(250),game text(250),score number,average_score number,"
     "group_submissions number,categories_list memo,completed number,last_played datetime,review memo,"
     "installed number,zip_date text(50),last_uploaded_date datetime,last_checked_date datetime"},
    {"Table_Recent", "zip_name text(250),zip_path text(250),FM_name text(250),Game text(250),rank number,"
                     "installed_date datetime"},
    {"Table_Tools", "tool_name text(250),tool_exe text(250),tool_icon number,tip_text text(250),"
                    "added_date datetime,exe_checksum text(250),tool_cmd text(250),run_when text(250),"
                    "run_when_wait boolean,display_type number"},
    {"Table_Authors", "author text(250),author_colour text(250),author_rank number"},
    {"Table_Loot",
     "file_name text(250),Author_Name text(250),Created_date text(250),Installed_date datetime"},
    {"table_emails", "Email_type text(250),Email_Content memo,Email_last_updated datetime"},
    {"table_messages", "message_name text(250),viewed_date datetime"},
    {"table_general", "general_type text(250),date_last_done datetime,result text(250)"},
};

/// Statements in the engine's own form. The catalogue view answers what the dialect asks of its system table.
constexpr const char *connection_statements[] = {
    "PRAGMA journal_mode=WAL",
    "PRAGMA synchronous=NORMAL", // with the log ahead, a commit does not wait for the disk
    "PRAGMA temp_store=MEMORY",
    "CREATE TEMP VIEW MSysObjects AS SELECT name COLLATE VANTROSK AS Name, NULL AS datecreate, NULL AS "
    "dateupdate, 0 AS Flags, 1 AS Type FROM sqlite_master WHERE type = 'table' AND name NOT GLOB 'sqlite_*'",
};

constexpr const char *index_statements[] = {
    "CREATE INDEX IF NOT EXISTS scores_by_zip ON Table_Scores(zip_name, game)",
    "CREATE INDEX IF NOT EXISTS scores_by_game ON Table_Scores(game)",
};

constexpr const char *column_sizes_statement =
    "CREATE TABLE IF NOT EXISTS %1 (table_name TEXT COLLATE VANTROSK, column_name TEXT COLLATE VANTROSK, "
    "size INTEGER, PRIMARY KEY (table_name, column_name))";

/// One prepared statement; gone before the call that made it returns, so that nothing stays locked.
class Statement {
public:
    Statement(sqlite3 *connection, const QString &engine_sql) : connection_(connection) {
        const QByteArray bytes = engine_sql.toUtf8();
        check(sqlite3_prepare_v2(connection, bytes.constData(), static_cast<int>(bytes.size()), &handle_,
                                 nullptr));
    }
    ~Statement() { sqlite3_finalize(handle_); }
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;

    bool step() {
        const int code = sqlite3_step(handle_);
        if (code != SQLITE_ROW)
            check(code == SQLITE_DONE ? SQLITE_OK : code);
        return code == SQLITE_ROW;
    }
    int column_count() const { return sqlite3_column_count(handle_); }
    QString column_name(int column) const { return QString::fromUtf8(sqlite3_column_name(handle_, column)); }
    QVariant value(int column) const {
        switch (sqlite3_column_type(handle_, column)) {
        case SQLITE_NULL:
            return {};
        case SQLITE_INTEGER:
            return QVariant::fromValue<qlonglong>(sqlite3_column_int64(handle_, column));
        case SQLITE_FLOAT:
            return sqlite3_column_double(handle_, column);
        default:
            return text(column);
        }
    }

private:
    QString text(int column) const {
        const auto *bytes = reinterpret_cast<const char *>(sqlite3_column_text(handle_, column));
        // Not null but empty: a null text would read as a missing value.
        const int size = sqlite3_column_bytes(handle_, column);
        return size > 0 ? QString::fromUtf8(bytes, size) : QString("");
    }
    void check(int code) {
        if (code == SQLITE_OK)
            return;
        const QString reason = QString::fromUtf8(sqlite3_errmsg(connection_));
        sqlite3_finalize(handle_);
        handle_ = nullptr;
        throw Program_Error(code & 0xff, reason);
    }

    sqlite3 *connection_;
    sqlite3_stmt *handle_ = nullptr;
};

Recordset Read_all(sqlite3 *connection, const QString &engine_sql) {
    Recordset records;
    Statement statement(connection, engine_sql);
    for (int column = 0; column < statement.column_count(); ++column)
        records.columns << statement.column_name(column);
    while (statement.step()) {
        std::vector<QVariant> row;
        row.reserve(static_cast<size_t>(statement.column_count()));
        for (int column = 0; column < statement.column_count(); ++column)
            row.push_back(statement.value(column));
        records.rows.push_back(std::move(row));
    }
    return records;
}

QString Database_path(const Program &program) {
    QString path = program.paths.database;
    while (path.endsWith(';'))
        path.chop(1);
    return path;
}

void Log_statement(Program &program, const QString &sql) {
    if (!program.ini.RECORD_SQL)
        return;
    const QString line = Log_time_text(program) + "--" + sql + "\r\n";
    // A log that can not be written is no reason to trouble anybody.
    (void)program.files.append_file(program.paths.AppPath + "\\SQL_Log.log", line.toUtf8());
}

sqlite3 *Connection(Program &program) {
    sqlite3 *connection = Database_state(program.database).connection;
    if (!connection)
        throw Program_Error(SQLITE_CANTOPEN, "The database is not open.");
    return connection;
}

Recordset Run(Program &program, const QString &sql) {
    program.SQL = sql;
    Log_statement(program, sql);
    return Read_all(Connection(program), Translate_statement(sql));
}

/// Whether closing writes the log into the file; not before the file is known to be sound.
void Write_log_at_close(sqlite3 *connection, bool write) {
    sqlite3_db_config(connection, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, write ? 0 : 1, nullptr);
}

/// Opens and looks the whole file over. Throws with the engine's number.
void Connect(Program &program, Database::State &state, const QString &native_path) {
    const int code =
        sqlite3_open_v2(native_path.toUtf8().constData(), &state.connection,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (code != SQLITE_OK)
        throw Program_Error(code & 0xff, QString::fromUtf8(sqlite3_errmsg(state.connection)));
    Write_log_at_close(state.connection, false);
    sqlite3_busy_timeout(state.connection, busy_milliseconds);
    Register_dialect(state.connection, program.clock);
    if (sqlite3_db_readonly(state.connection, "main") != 0)
        throw Program_Error(SQLITE_READONLY, "The file can not be written.");
    const Recordset check = Read_all(state.connection, "PRAGMA quick_check(1)");
    if (check.is_empty() || check.rows[0][0].toString() != "ok")
        throw Program_Error(SQLITE_CORRUPT, check.is_empty() ? QString() : check.rows[0][0].toString());
    Write_log_at_close(state.connection, true);
    for (const char *statement : connection_statements)
        Read_all(state.connection, statement);
}

/// In one transaction, so that a program that is killed here leaves all of it or nothing.
void Make_delivered_tables(sqlite3 *connection) {
    const Recordset known = Read_all(connection, "SELECT Name FROM MSysObjects");
    QStringList names;
    for (int row = 0; row < known.size(); ++row)
        names << known.text(row, "Name").toLower();
    QStringList statements;
    for (const Delivered_Table &table : delivered_tables) {
        if (!names.contains(QString(table.name).toLower()))
            statements << Translate_statement(
                QString("CREATE TABLE IF NOT EXISTS %1 (id counter CONSTRAINT id "
                        "PRIMARY KEY,%2)")
                    .arg(table.name, table.columns));
    }
    if (!names.contains(column_sizes_table))
        statements << QString(column_sizes_statement).arg(column_sizes_table);
    if (statements.isEmpty())
        return;
    Read_all(connection, "BEGIN IMMEDIATE");
    for (const QString &statement : statements)
        Read_all(connection, statement);
    for (const char *statement : index_statements)
        Read_all(connection, statement);
    Read_all(connection, "COMMIT");
}

bool Is_damage(int number) {
    return number == SQLITE_CORRUPT || number == SQLITE_NOTADB;
}

/// Moves the damaged file and its log aside under a dated name; gives that name, or nothing.
QString Keep_damaged_file(Program &program, const QString &path) {
    const QString dated = path + ".damaged-" + program.clock.now().toString("yyyyMMdd-HHmmss");
    QString kept = dated;
    for (int count = 2; program.files.look(kept); ++count)
        kept = QString("%1-%2").arg(dated).arg(count);
    if (const Fault fault = program.files.move_file(path, kept)) {
        debug_print(program, "DB_FUNCTIONS: damaged database not moved: " + fault.text);
        return {};
    }
    // A log left behind would be taken for that of the new file.
    for (const char *ending : {"-wal", "-shm"}) {
        const Fault fault = program.files.move_file(path + ending, kept + ending);
        if (fault && fault.kind != Fault_Kind::not_found)
            debug_print(program, "DB_FUNCTIONS: log of the damaged database not moved: " + fault.text);
    }
    return kept;
}

void Open_and_fill(Program &program, const QString &path) {
    Database::State &state = Database_state(program.database);
    try {
        Connect(program, state, program.files.to_native(path));
        Make_delivered_tables(state.connection);
    } catch (const Program_Error &) {
        state.close();
        throw;
    }
}

/// A new file in the place of the damaged one, which is kept, and the user told.
void Replace_damaged_file(Program &program, const QString &path, const Program_Error &damage) {
    debug_print(program, "DB_FUNCTIONS: Database file is damaged: " + damage.description());
    const QString kept = Keep_damaged_file(program, path);
    if (kept.isEmpty())
        throw damage;
    Open_and_fill(program, path);
    Show_Warning(
        program, "Vantrosk Database Damaged",
        "The Vantrosk Database File is damaged and can not be read (" + damage.description() +
            ").\n\nIt has been kept as " + program.files.to_native(kept) +
            "\n\nVantrosk has made a new one. Scores, reviews and keywords of the old one are not in it; "
            "the FMs are found again at the next folder scan.");
}

void Open_or_replace(Program &program, const QString &path) {
    try {
        Open_and_fill(program, path);
    } catch (const Program_Error &error) {
        if (!Is_damage(error.number()))
            throw;
        Replace_damaged_file(program, path, error);
    }
}

void Lift_write_protection(Program &program, const QString &path) {
    const auto file = program.files.look(path);
    if (!file || !file->read_only)
        return;
    debug_print(program, "DB_FUNCTIONS: Database file exists its marked as read only though, so trying to "
                         "change to normal attributes");
    if (const Fault fault = program.files.clear_attributes(path))
        debug_print(program, "DB_FUNCTIONS: " + fault.text);
}

} // namespace

bool Open_database(Program &program) {
    const QString path = Database_path(program);
    Lift_write_protection(program, path);
    try {
        Open_or_replace(program, path);
        return true;
    } catch (const Program_Error &error) {
        debug_print(program, "DB_FUNCTIONS: Database can not be opened: " + error.description());
        Show_Critical(program, "Vantrosk Database",
                      "Vantrosk can not use its database file.\n\n" + program.files.to_native(path) + "\n\n" +
                          error.description());
        return false;
    }
}

void db_Execute(Program &program, const QString &sql) {
    Run(program, sql);
}

Recordset db_Query(Program &program, const QString &sql) {
    return Run(program, sql);
}

int Column_size(Program &program, const QString &table, const QString &column) {
    const QString sql =
        QString(
            "SELECT ifnull((SELECT size FROM %1 WHERE table_name = %2 AND column_name = %3), "
            "(SELECT substr(type, 6) + 0 FROM pragma_table_info(%2) WHERE name = %3 COLLATE NOCASE AND type "
            "LIKE 'TEXT(%')) AS size")
            .arg(column_sizes_table, In_single_quotes(table), In_single_quotes(column));
    return Read_all(Connection(program), sql).number(0, "size");
}

} // namespace vantrosk
