#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace vantrosk {

struct Program;

/// A language that a pack is there for.
struct Language {
    QString code; ///< two letters
    QString name; ///< upper case
};

/// The lines of "\languages\Languages.ini" whose first two letters name a pack that is there.
QStringList Available_Languages(const Program &program);
/// The language table: what those lines tell, at most 51 rows.
std::vector<Language> Languages(const Program &program);
/// The code that belongs to a language's name; empty without a row for it, as for "ENGLISH".
QString Language_Code(const Program &program, const QString &name);

} // namespace vantrosk
