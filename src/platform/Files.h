#pragma once

#include "platform/Fault.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace vantrosk {

/// What a folder listing or a look at one path tells.
struct File_Info {
    QString name; ///< last part of the path, spelled as on disk
    bool is_folder = false;
    bool is_link = false; ///< a symbolic link; the other fields tell of its target
    bool read_only = false;
    qint64 size = 0;    ///< bytes; 0 for a folder
    QDateTime modified; ///< local time
};

/// Files and folders under Windows paths ("C:\Games\Thief2"). Both separators are understood, names
/// compare without case: an exact spelling is tried first, then the other spellings, folder by folder.
/// A new file keeps the spelling it was given. ".." is resolved in the text and never leads above the drive.
/// Reading follows links; writing, moving and removing act on the link itself. What is neither file nor
/// folder (a pipe, a device) is not there for a look or a listing and is never opened. No call here throws.
class Files {
public:
    virtual ~Files() = default;

    /// The native path of a Windows path, existing parts in the spelling found on disk.
    virtual QString to_native(const QString &path) const = 0;
    /// The Windows path of an absolute native path; a path that is a Windows path already stays.
    virtual QString to_windows(const QString &native_path) const = 0;

    /// Nothing when there is no such file or folder (a dangling link counts as none).
    virtual std::optional<File_Info> look(const QString &path) const = 0;
    /// The entries of one folder, "." and ".." left out, in binary order of their UTF-16 names. A dangling
    /// link is listed as a link that is no folder.
    virtual Result<std::vector<File_Info>> list_folder(const QString &path) const = 0;

    /// The whole file; `too_large` when it is longer than `limit` bytes.
    virtual Result<QByteArray> read_file(const QString &path, qint64 limit) const = 0;
    /// At most the first `count` bytes.
    virtual Result<QByteArray> read_start(const QString &path, qint64 count) const = 0;
    /// Written beside and moved over in one step: after a fault or a kill the old file is whole.
    virtual Fault write_file(const QString &path, const QByteArray &bytes) = 0;
    /// The same, and on the disk before it returns: for what must outlive a loss of power. Takes
    /// milliseconds.
    virtual Fault write_lasting_file(const QString &path, const QByteArray &bytes) {
        return write_file(path, bytes);
    }
    /// Appends and hands the bytes to the system before it returns; makes the file when missing. After a
    /// fault the file is as long as it was.
    virtual Fault append_file(const QString &path, const QByteArray &bytes) = 0;

    /// Moves within one file system in one step, else copies, checks and deletes. Replaces `to` unless it is
    /// a folder. A folder can be moved too, within one file system.
    virtual Fault move_file(const QString &from, const QString &to) = 0;
    /// Copies content and modification time, beside and moved over; replaces `to`. On the disk before it
    /// returns.
    virtual Fault copy_file(const QString &from, const QString &to) = 0;
    /// Removes a file or a link; a missing one is `not_found`.
    virtual Fault remove_file(const QString &path) = 0;
    /// Removes an empty folder.
    virtual Fault remove_folder(const QString &path) = 0;
    /// Makes a folder with its parents; an existing one is no fault.
    virtual Fault make_folder(const QString &path) = 0;
    /// Lifts a write protection; no fault when there was none.
    virtual Fault clear_attributes(const QString &path) = 0;
    virtual Fault set_modified(const QString &path, const QDateTime &when) = 0;
    /// Keeps other programs of this kind away from a folder until the answer is let go of; `exists` when one
    /// of them has it. Leaves nothing on disk. Where the system has no such thing the folder counts as free.
    virtual Result<std::shared_ptr<void>> lock_folder(const QString &) { return {}; }
    /// Whether it lies on a CD or DVD, which can not be written.
    virtual bool is_on_disc(const QString &path) const {
        static_cast<void>(path);
        return false;
    }
    /// The path with links resolved, as a Windows path; empty when it does not exist.
    virtual QString real_path(const QString &path) const = 0;
};

} // namespace vantrosk
