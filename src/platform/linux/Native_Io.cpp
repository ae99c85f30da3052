#include "Native_Io.h"

#include "platform/Native_Text.h"
#include "platform/System_Fault.h"

#include <fcntl.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace vantrosk {

Fault System_fault(int number, const QString &action, const QByteArray &native_path) {
    return System_fault(number, action, Native_text(native_path));
}

timespec Time_of(const QDateTime &when) {
    const qint64 time = when.toMSecsSinceEpoch();
    const qint64 seconds = time >= 0 ? time / 1000 : -((999 - time) / 1000);
    return {seconds, static_cast<long>((time - seconds * 1000) * 1000000)};
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
                                  .arg(Native_text(native_path), QLatin1String(reason))};
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
                            .arg(Native_text(native_path))
                            .arg(limit)};
    }
    return result;
}

} // namespace vantrosk
