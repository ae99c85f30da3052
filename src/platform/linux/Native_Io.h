#pragma once

#include "platform/Fault.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

namespace vantrosk {

/// As in platform/System_Fault.h, about a native path.
Fault System_fault(int number, const QString &action, const QByteArray &native_path);

/// A moment as the system counts it.
timespec Time_of(const QDateTime &when);

/// Closes its file at the end of the scope.
class File_Handle {
public:
    File_Handle() = default;
    explicit File_Handle(int number) : number_(number) {}
    File_Handle(File_Handle &&other) noexcept : number_(std::exchange(other.number_, -1)) {}
    File_Handle &operator=(File_Handle &&other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~File_Handle() {
        if (number_ >= 0)
            ::close(number_);
    }

    explicit operator bool() const { return number_ >= 0; }
    int number() const { return number_; }
    /// The number, for somebody else to close.
    int release() { return std::exchange(number_, -1); }
    /// Closes now; the system's answer, because a full disk may show only here.
    int close() { return ::close(std::exchange(number_, -1)); }

private:
    int number_ = -1;
};

/// Goes through the names in one folder, "." and ".." left out.
class Folder_Reader {
public:
    explicit Folder_Reader(const QByteArray &native_path) : folder_(::opendir(native_path.constData())) {}
    ~Folder_Reader() {
        if (folder_)
            ::closedir(folder_);
    }
    Q_DISABLE_COPY(Folder_Reader)

    explicit operator bool() const { return folder_ != nullptr; }
    int number() const { return ::dirfd(folder_); }
    /// Null at the end, with errno 0 unless reading failed. Valid until the next call.
    const char *next();

private:
    DIR *folder_;
};

/// The path with all links followed; empty when it does not exist.
QByteArray Resolve_links(const QByteArray &native_path);

/// Opens an ordinary file for reading and looks at it. A folder is `not_found`; a pipe or a device is
/// refused before it is opened, because opening alone can block or start a machine.
Result<File_Handle> Open_ordinary_file(const QByteArray &native_path, struct stat *seen = nullptr);

enum class Overlong { refuse, cut };
/// The content up to `limit` bytes; what is longer is `too_large`, or cut.
Result<QByteArray> Read_native_file(const QByteArray &native_path, qint64 limit, Overlong overlong);

/// Up to `count` bytes, fewer only at the end of the file; -1 with errno set.
qint64 Read_fully(int file, char *buffer, qint64 count);
/// All bytes or false with errno set.
bool Write_fully(int file, const char *bytes, qint64 count);

} // namespace vantrosk
