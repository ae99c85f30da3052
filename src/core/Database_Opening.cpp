#include "core/Database_Engine.h"
#include "core/Program.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFormDisplayFunctions.h"
#include "platform/Native_Text.h"

#include <sqlite3.h>

namespace vantrosk {

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
    "CREATE TEMP VIEW MSysObjects AS SELECT name COLLATE NOCASE AS Name, NULL AS datecreate, NULL AS "
    "dateupdate, 0 AS Flags, 1 AS Type FROM sqlite_master WHERE type = 'table' AND name NOT GLOB 'sqlite_*'",
};

constexpr const char *index_statements[] = {
    "CREATE INDEX IF NOT EXISTS scores_by_zip ON Table_Scores(zip_name, game)",
    "CREATE INDEX IF NOT EXISTS scores_by_game ON Table_Scores(game)",
};

constexpr const char *column_sizes_statement =
    "CREATE TABLE IF NOT EXISTS %1 (table_name TEXT COLLATE NOCASE, column_name TEXT COLLATE NOCASE, "
    "size INTEGER, PRIMARY KEY (table_name, column_name))";

/// Whether closing writes the log into the file; not before the file is known to be sound.
void Write_log_at_close(sqlite3 *connection, bool write) {
    sqlite3_db_config(connection, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, write ? 0 : 1, nullptr);
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
    const QDate today = program.clock.now().date();
    const auto found = program.files.look(path);
    try {
        Connect(program, state, path, Is_checked(program, path) ? Look::at_its_head : Look::at_all_of_it);
        Make_delivered_tables(state.connection);
    } catch (const Program_Error &) {
        state.close();
        throw;
    }
    state.checked = today;
    state.files = &program.files;
    state.path = path;
    if (!found || found->size == 0)
        state.copied = today; // a file of today has nothing that a copy could save
}

void Remove_with_log(Program &program, const QString &path) {
    for (const char *ending : {"", "-wal", "-shm"}) {
        const Fault fault = program.files.remove_file(path + ending);
        if (fault && fault.kind != Fault_Kind::not_found)
            debug_print(program, "DB_FUNCTIONS: " + fault.text);
    }
}

/// Throws when the file is damaged or is not a database of this program.
void Check_copy(Program &program, const QString &path) {
    Database::State state;
    Connect(program, state, path, Look::at_all_of_it);
    Read_all(state.connection, "SELECT zip_name FROM Table_Scores LIMIT 1");
}

/// Lays the newest copy that is good under this path; nothing when there is none.
std::optional<Database_Copy> Lay_out_good_copy(Program &program, const QString &path) {
    for (const Database_Copy &copy : Database_copies(program)) {
        if (const Fault fault = program.files.copy_file(copy.path, path)) {
            debug_print(program, "DB_FUNCTIONS: copy of the database not read: " + fault.text);
            continue;
        }
        try {
            Check_copy(program, path);
            return copy;
        } catch (const Program_Error &error) {
            debug_print(program, "DB_FUNCTIONS: copy " + copy.path + " is no good: " + error.description());
            Remove_with_log(program, path);
        }
    }
    return {};
}

QString What_took_its_place(const std::optional<Database_Copy> &copy) {
    if (copy)
        return "Vantrosk has put its copy of " + copy->day.toString("dd/MM/yyyy") +
               " in its place. What was changed since then is not in it; the FMs are found again at the next "
               "folder scan.";
    return "Vantrosk has made a new one. Scores, reviews and keywords of the old one are not in it; the FMs "
           "are found again at the next folder scan.";
}

/// The newest good copy, or a new file, in the place of the damaged one, which is kept, and the user told.
void Replace_damaged_file(Program &program, const QString &path, const Program_Error &damage) {
    debug_print(program, "DB_FUNCTIONS: Database file is damaged: " + damage.description());
    const QString beside = path + ".restored";
    auto copy = Lay_out_good_copy(program, beside);
    const QString kept = Keep_damaged_file(program, path);
    if (kept.isEmpty()) {
        Remove_with_log(program, beside);
        throw damage;
    }
    if (copy) {
        if (const Fault fault = program.files.move_file(beside, path)) {
            debug_print(program, "DB_FUNCTIONS: copy of the database not moved: " + fault.text);
            copy.reset();
        }
    }
    Open_and_fill(program, path);
    Show_Warning(program, "Vantrosk Database Damaged",
                 "The Vantrosk Database File is damaged and can not be read (" + damage.description() +
                     ").\n\nIt has been kept as " + program.files.to_native(kept) + "\n\n" +
                     What_took_its_place(copy));
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

} // namespace

std::optional<QString> Damage_of(sqlite3 *connection) {
    const Recordset check = Read_all(connection, "PRAGMA quick_check(1)");
    const QString result = check.is_empty() ? QString() : check.rows[0][0].toString();
    if (result == "ok")
        return {};
    return result.section('\n', -1); // above it stands which file is meant
}

void Connect(Program &program, Database::State &state, const QString &path, Look look) {
    const QByteArray native_path = Native_bytes(program.files.to_native(path));
    sqlite3_close_v2(state.connection); // of an opening before this one; null does nothing
    const int code =
        sqlite3_open_v2(native_path.constData(), &state.connection,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (code != SQLITE_OK)
        throw Program_Error(code & 0xff, QString::fromUtf8(sqlite3_errmsg(state.connection)));
    Write_log_at_close(state.connection, false);
    sqlite3_busy_timeout(state.connection, busy_milliseconds);
    Register_dialect(state.connection, program.clock);
    if (sqlite3_db_readonly(state.connection, "main") != 0)
        throw Program_Error(SQLITE_READONLY, "The file can not be written.");
    Read_all(state.connection, "SELECT name FROM sqlite_master");
    if (look == Look::at_all_of_it) {
        if (const auto damage = Damage_of(state.connection))
            throw Program_Error(SQLITE_CORRUPT, *damage);
        Read_all(state.connection, "REINDEX"); // another tool sorts capitals beyond ASCII elsewhere
    }
    Write_log_at_close(state.connection, true);
    for (const char *statement : connection_statements)
        Read_all(state.connection, statement);
}

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

} // namespace vantrosk
