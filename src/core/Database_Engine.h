#pragma once

#include "core/mdlDB_Functions.h"
#include "platform/Clock.h"

#include <QString>

struct sqlite3;

namespace vantrosk {

/// Orders and compares all text columns: without regard to case in any script, accents kept.
inline constexpr const char *text_collation = "VANTROSK";
/// Holds the widths that ALTER COLUMN gave; the engine itself can not change a column's type.
inline constexpr const char *column_sizes_table = "vantrosk_column_sizes";

/// Negative, zero or positive, like the collation.
int Compare_text(const QByteArray &left_utf8, const QByteArray &right_utf8);

/// Gives a connection the collation and the functions of the dialect: now, dateadd, InStr, Int. The clock
/// must outlive the connection.
void Register_dialect(sqlite3 *connection, const Clock &clock);

/// Declared width of a text column; 0 when it has none or there is no such column.
int Column_size(Program &program, const QString &table, const QString &column);

} // namespace vantrosk
