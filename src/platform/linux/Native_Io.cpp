#include "Native_Io.h"

#include <fcntl.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <system_error>

namespace vantrosk {

namespace {

struct Error_Row {
    int number;
    Fault_Kind kind;
    const char *reason;
};

constexpr Error_Row error_rows[] = {
    {ENOENT, Fault_Kind::not_found, "there is no such file or folder"},
    {ENOTDIR, Fault_Kind::not_found, "a part of its path is not a folder"},
    {ENXIO, Fault_Kind::not_found, "the device is not there"},
    {ENODEV, Fault_Kind::not_found, "the device is not there"},
    {EEXIST, Fault_Kind::exists, "something of that name is in the way"},
    {EISDIR, Fault_Kind::exists, "a folder of that name is in the way"},
    {ENOTEMPTY, Fault_Kind::exists, "the folder is not empty"},
    {EACCES, Fault_Kind::no_access, "the rights do not allow it"},
    {EPERM, Fault_Kind::no_access, "the system does not allow it"},
    {EROFS, Fault_Kind::no_access, "the medium is read-only"},
    {ETXTBSY, Fault_Kind::no_access, "the program is running"},
    {EBUSY, Fault_Kind::no_access, "it is in use"},
    {ENOSPC, Fault_Kind::no_space, "the disk is full"},
    {EDQUOT, Fault_Kind::no_space, "the disk quota is used up"},
    {EFBIG, Fault_Kind::no_space, "the file would be larger than the system allows"},
    {ELOOP, Fault_Kind::not_found, "its links lead in a circle"},
    {ENAMETOOLONG, Fault_Kind::other, "the name is too long"},
    {ENOEXEC, Fault_Kind::other, "it is not a program that this system can run"},
};

} // namespace

Fault System_fault(int number, const QString &action, const QByteArray &native_path) {
    Fault fault{Fault_Kind::other, QString(), number};
    QString reason;
    for (const Error_Row &row : error_rows) {
        if (row.number != number)
            continue;
        fault.kind = row.kind;
        reason = QLatin1String(row.reason);
    }
    if (reason.isEmpty())
        reason = QString::fromStdString(std::system_category().message(number));
    fault.text =
        QStringLiteral("Could not %1 \"%2\": %3.").arg(action, QString::fromUtf8(native_path), reason);
    return fault;
}

const char *Folder_Reader::next() {
    while (folder_) {
        errno = 0;
        const dirent *entry = ::readdir(folder_);
        if (!entry)
            return nullptr;
        if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
            return entry->d_name;
    }
    return nullptr;
}

QByteArray Resolve_links(const QByteArray &native_path) {
    char *resolved = ::realpath(native_path.constData(), nullptr);
    const QByteArray path(resolved);
    std::free(resolved);
    return path;
}

Result<File_Handle> Open_ordinary_file(const QByteArray &native_path, struct stat *seen) {
    Result<File_Handle> result;
    struct stat info {};
    const auto refuse = [&](Fault_Kind kind, const char *reason) {
        result.fault = {kind, QStringLiteral("Could not read \"%1\": %2.")
                                  .arg(QString::fromUtf8(native_path), QLatin1String(reason))};
    };
    const auto check = [&]() {
        if (S_ISDIR(info.st_mode))
            refuse(Fault_Kind::not_found, "it is a folder");
        else if (!S_ISREG(info.st_mode))
            refuse(Fault_Kind::other, "it is not an ordinary file");
        return result.ok();
    };
    if (::stat(native_path.constData(), &info) != 0) {
        result.fault = System_fault(errno, QStringLiteral("read"), native_path);
        return result;
    }
    if (!check())
        return result;
    File_Handle file(::open(native_path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    // The second look is at what was opened: the name may mean something else by now.
    if (!file || ::fstat(file.number(), &info) != 0) {
        result.fault = System_fault(errno, QStringLiteral("read"), native_path);
        return result;
    }
    if (!check())
        return result;
    if (seen)
        *seen = info;
    result.value = std::move(file);
    return result;
}

qint64 Read_fully(int file, char *buffer, qint64 count) {
    qint64 done = 0;
    while (done < count) {
        const ssize_t now = ::read(file, buffer + done, static_cast<size_t>(count - done));
        if (now < 0 && errno == EINTR)
            continue;
        if (now < 0)
            return -1;
        if (now == 0)
            break;
        done += now;
    }
    return done;
}

bool Write_fully(int file, const char *bytes, qint64 count) {
    qint64 done = 0;
    while (done < count) {
        const ssize_t now = ::write(file, bytes + done, static_cast<size_t>(count - done));
        if (now < 0 && errno == EINTR)
            continue;
        if (now < 0)
            return false;
        done += now;
    }
    return true;
}

Result<QByteArray> Read_native_file(const QByteArray &native_path, qint64 limit, Overlong overlong) {
    Result<QByteArray> result;
    struct stat info {};
    auto opened = Open_ordinary_file(native_path, &info);
    if (!opened.ok()) {
        result.fault = std::move(opened.fault);
        return result;
    }
    constexpr qint64 step = 64 * 1024;
    // One byte more than allowed tells a file that is too long, also when it grows meanwhile.
    const qint64 most = qMax<qint64>(limit, 0) + (overlong == Overlong::refuse ? 1 : 0);
    qint64 expected = qMin<qint64>(info.st_size + 1, most);
    while (result.value.size() < most) {
        const qint64 before = result.value.size();
        const qint64 count = qMin(qMax(expected - before, step), most - before);
        result.value.resize(before + count);
        const qint64 got = Read_fully(opened.value.number(), result.value.data() + before, count);
        if (got < 0) {
            result.fault = System_fault(errno, QStringLiteral("read"), native_path);
            result.value.clear();
            return result;
        }
        result.value.truncate(before + got);
        if (got < count)
            break;
    }
    if (overlong == Overlong::refuse && result.value.size() > limit) {
        result.value.clear();
        result.fault = {Fault_Kind::too_large,
                        QStringLiteral("Could not read \"%1\": it is longer than %2 bytes.")
                            .arg(QString::fromUtf8(native_path))
                            .arg(limit)};
    }
    return result;
}

} // namespace vantrosk
