#pragma once

#include "platform/Fault.h"

#include <QString>
#include <QStringList>

namespace vantrosk {

struct Program;

/// A game's ini file, read and changed as Windows' private profile calls do: names compare without case, the
/// first section and the first key of a name count, blanks and one pair of quotes around a value are no part
/// of it. Every other line stays as it is, byte for byte. 8 bit text, or UTF-16 with its mark.
class Private_Profile {
public:
    /// A missing file has no keys; one that can not be read has a fault, and is not written.
    Private_Profile(Program &program, const QString &path);

    QString value(const QString &section, const QString &key, const QString &default_value) const;
    /// Replaces the value, adds the key at the end of its section, or adds the section.
    void set(const QString &section, const QString &key, const QString &value);
    /// The lines without line ends and blanks around them.
    QStringList lines() const;
    const Fault &fault() const { return fault_; }
    /// Puts the changes on disk, in one step; nothing without changes.
    Fault save();

private:
    /// Number of the section's line, or -1.
    qsizetype find_section(const QString &section) const;
    /// Number of the key's line in the section that begins there, or -1; `end` is behind the section.
    qsizetype find_key(qsizetype start, const QString &key, qsizetype &end) const;

    Program &program_;
    QString path_;
    QStringList lines_; ///< each with its line end
    QString line_end_ = "\r\n";
    bool is_utf16_ = false, is_changed_ = false;
    Fault fault_;
};

} // namespace vantrosk
