#pragma once

#include <QString>
#include <QStringList>

namespace vantrosk {

struct Program;

/// The keyword list of the details panel, in its order: each category word behind its kind, "Enemy-Guards",
/// "Location-City", "Theme-Horror". Words beyond the known ones have no kind.
QStringList Keyword_Entries(const Program &program);
/// The entries that end with one of the comma-joined keywords, so that a keyword without its kind counts too.
QStringList Matched_Keywords(const QStringList &entries, const QString &keywords);

/// Ticks the entries that match and keeps them as the mission's keywords, in its record as well. While a row
/// is examined the record is written only when that changes the list and leaves it with something.
void Store_Keywords(Program &program, const QString &keywords);
/// One entry of the keyword list was ticked or unticked.
void Keyword_Click(Program &program, const QString &entry, bool ticked);

} // namespace vantrosk
