#pragma once

#include "core/mdlDB_Functions.h"
#include "platform/Clock.h"
#include "platform/Files.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

struct sqlite3;

namespace vantrosk {

class Program_Error;

/// One connection, and what is known of its file on the present day.
struct Database::State {
    sqlite3 *connection = nullptr;
    QDate checked; ///< the day on which the whole file was found sound
    QDate copied;  ///< the day on which no copy is due any more
    Files *files = nullptr;
    QString path; ///< Windows path; empty unless the end of the connection is to be noted

    ~State() { close(); }
    /// Notes the file as it is left, so that the next start need not look it over again.
    void close();
};

/// Orders and compares all text columns: without regard to case in any script, accents kept. It takes the
/// place and the name of the engine's own, so that other tools can read and write the file; to those,
/// capitals beyond ASCII differ from small letters.
inline constexpr const char *text_collation = "NOCASE";
/// What files of before the first release call it.
inline constexpr const char *old_text_collation = "VANTROSK";
/// Holds the widths that ALTER COLUMN gave; the engine itself can not change a column's type.
inline constexpr const char *column_sizes_table = "vantrosk_column_sizes";

/// Negative, zero or positive, like the collation.
int Compare_text(const QByteArray &left_utf8, const QByteArray &right_utf8);

/// Gives a connection the collation and the functions of the dialect: now, dateadd, InStr, Int. The clock
/// must outlive the connection.
void Register_dialect(sqlite3 *connection, const Clock &clock);

/// Runs one statement of the engine's own form and reads what it gives. Throws `Program_Error`.
Recordset Read_all(sqlite3 *connection, const QString &engine_sql);
/// The path without the semicolons behind it.
QString Database_path(const Program &program);
bool Is_damage(int number); ///< of a `Program_Error`

enum class Look { at_its_head, at_all_of_it };
/// Opens a file and looks it over. Throws with the engine's number; call `close` then.
void Connect(Program &program, Database::State &state, const QString &path, Look look);
/// Whether every page of the file is sound; the reason why not.
std::optional<QString> Damage_of(sqlite3 *connection);

/// One of the daily copies in the folder "backups".
struct Database_Copy {
    QString path; ///< Windows path
    QDate day;
};
/// The newest first.
std::vector<Database_Copy> Database_copies(const Program &program);
/// Called before every statement that changes the file: the first one of a day lets the file be copied, the
/// others cost a comparison. Without a copy the work goes on.
void Copy_before_change(Program &program);

/// Whether the file is as this program left it after it was found sound today.
bool Is_checked(const Program &program, const QString &path);
/// The next start looks the whole file over.
void Forget_check(Program &program);

/// True when the file was marked as read only; a trace line tells it.
bool Lift_write_protection(Program &program, const QString &path);
/// A statement on the tables themselves failed: finds out what is wrong with the file, mends what it can, and
/// tells the user. False when the user ends the program.
bool Diagnose_database_fault(Program &program, const Program_Error &error);

/// Declared width of a text column; 0 when it has none or there is no such column.
int Column_size(Program &program, const QString &table, const QString &column);

} // namespace vantrosk
