#include "core/Database_Engine.h"

#include "core/Program.h"
#include "core/mdlErrorHandler.h"

#include <sqlite3.h>

namespace vantrosk {

Database::State &Database_state(Database &database) {
    return *database.state_;
}

Database::Database() : state_(std::make_unique<State>()) {}
Database::~Database() = default;

namespace {

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
    bool changes_file() const { return sqlite3_stmt_readonly(handle_) == 0; }
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

Recordset Read_rows(Statement &statement) {
    Recordset records;
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
    try {
        Statement statement(Connection(program), Translate_statement(sql));
        if (statement.changes_file())
            Copy_before_change(program);
        return Read_rows(statement);
    } catch (const Program_Error &error) {
        if (Is_damage(error.number()))
            Forget_check(program);
        throw;
    }
}

} // namespace

QString Database_path(const Program &program) {
    QString path = program.paths.database;
    while (path.endsWith(';'))
        path.chop(1);
    return path;
}

bool Is_damage(int number) {
    return number == SQLITE_CORRUPT || number == SQLITE_NOTADB;
}

Recordset Read_all(sqlite3 *connection, const QString &engine_sql) {
    Statement statement(connection, engine_sql);
    return Read_rows(statement);
}

void db_Execute(Program &program, const QString &sql) {
    Run(program, sql);
}

Recordset db_Query(Program &program, const QString &sql) {
    return Run(program, sql);
}

void db_Begin(Program &program) {
    Copy_before_change(program); // while no transaction stands in its way
    Read_all(Connection(program), "BEGIN IMMEDIATE");
}

void db_Commit(Program &program) {
    sqlite3 *connection = Connection(program);
    try {
        Read_all(connection, "COMMIT");
    } catch (const Program_Error &error) {
        if (sqlite3_get_autocommit(connection) == 0)
            sqlite3_exec(connection, "ROLLBACK", nullptr, nullptr, nullptr);
        if (Is_damage(error.number()))
            Forget_check(program);
        throw;
    }
}

void db_In_One_Step(Program &program, const std::function<void()> &work) {
    db_Begin(program);
    try {
        work();
    } catch (...) {
        sqlite3 *connection = Connection(program);
        if (sqlite3_get_autocommit(connection) == 0)
            sqlite3_exec(connection, "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
    db_Commit(program);
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
