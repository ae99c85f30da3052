#pragma once

#include <QString>
#include <QStringList>

namespace vantrosk {

struct Program;

/// An ini file with sections, read as Windows reads it: names compare without case, the first section and the
/// first key of a name count, blanks and one pair of quotes around a value are no part of it.
class Profile_File {
public:
    explicit Profile_File(const QStringList &lines) : lines_(lines) {}
    /// Without such a file all values are empty.
    Profile_File(const Program &program, const QString &path);

    QString value(const QString &section, const QString &key) const;
    /// Whether the value reads "TRUE", in any case.
    bool is_true(const QString &section, const QString &key) const;

private:
    QStringList lines_;
};

} // namespace vantrosk
