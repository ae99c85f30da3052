#pragma once

#include "platform/Fault.h"
#include "platform/Outlives.h"

#include <QDateTime>

#include <memory>

namespace vantrosk {

/// A file that is written in blocks under another name and moved over its place when it is complete. What was
/// not kept is removed: after a fault the old file is whole and nothing is left behind. Native paths as text.
class Staged_File {
public:
    /// `temporary` must be on the file system of `target`. A leftover of that name is removed.
    Staged_File(const QString &target, const QString &temporary);
    /// Under a name beside the target that nothing else has.
    explicit Staged_File(const QString &target);
    ~Staged_File();
    Staged_File(const Staged_File &) = delete;
    Staged_File &operator=(const Staged_File &) = delete;

    /// `rights` are those of a file that is new, as the bits of a Unix mode, less what the user's mask takes
    /// away.
    Fault open(int rights = 0666);
    Fault write(const char *bytes, qint64 count);
    /// Writes at a place of its own; a later `write` goes on behind it.
    Fault write_at(qint64 offset, const char *bytes, qint64 count);
    qint64 size() const; ///< bytes, as long as it is open
    /// Makes the file one that may be started, as far as the system knows such a thing.
    void set_executable();
    /// Sets the modification time when one is given, closes, and replaces the target, whose rights it takes
    /// over; a folder in its place is a fault.
    Fault keep(const QDateTime &modified = {}, Outlives outlives = Outlives::a_kill);
    /// Closes the file so that it can be read back under its temporary name; `keep` may follow.
    Fault close();
    QString temporary() const;
    void remove(); ///< gives up; safe to call at any time

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace vantrosk
