#pragma once

#include "platform/Fault.h"

#include <QDateTime>
#include <QFile>

namespace vantrosk {

/// A file that is written in blocks under another name and moved over its place when it is complete. What was
/// not kept is removed: after a fault the old file is whole and nothing is left behind. Native paths.
class Staged_File {
public:
    /// `temporary` must be on the file system of `target`. A leftover of that name is removed.
    Staged_File(const QString &target, const QString &temporary);
    ~Staged_File();
    Staged_File(const Staged_File &) = delete;
    Staged_File &operator=(const Staged_File &) = delete;

    Fault open();
    Fault write(const char *bytes, qint64 count);
    /// Writes at a place of its own; a later `write` goes on behind it.
    Fault write_at(qint64 offset, const char *bytes, qint64 count);
    qint64 size() const { return file_.size(); }
    /// Makes the file one that may be started, as far as the system knows such a thing.
    void set_executable();
    /// Sets the modification time when one is given, closes, and replaces the target, whose rights it takes
    /// over.
    Fault keep(const QDateTime &modified = {});
    /// Closes the file so that it can be read back under its temporary name; `keep` may follow.
    Fault close();
    QString temporary() const { return file_.fileName(); }
    void remove(); ///< gives up; safe to call at any time

private:
    QString target_;
    QFile file_;
    bool exists_ = false;
};

/// The fault for a number of the system ("errno"), about the file of this name.
Fault Fault_of_system(int number, const QString &name);

} // namespace vantrosk
