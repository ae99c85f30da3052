#include "Linux_Parts.h"
#include "Native_Io.h"

#include "platform/Native_Text.h"
#include "platform/Staged_File.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace vantrosk {

namespace {

constexpr mode_t permission_bits = 0777;
constexpr qint64 copy_step = 256 * 1024;
/// What `statfs` calls the file systems of discs: ISO 9660 and UDF.
constexpr long disc_systems[] = {0x9660, 0x15013346};

Fault Not_found(const QString &path) {
    return {Fault_Kind::not_found, QStringLiteral("There is no \"%1\".").arg(path)};
}

QByteArray Folder_of(const QByteArray &native_path) {
    const qsizetype end = native_path.lastIndexOf('/');
    return end <= 0 ? QByteArray("/") : native_path.left(end);
}

QByteArray Join_native(const QByteArray &folder, const QByteArray &name) {
    return folder.endsWith('/') ? folder + name : folder + '/' + name;
}

bool Same_file(const struct stat &one, const struct stat &other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

QDateTime Moment_of(const timespec &time) {
    return QDateTime::fromMSecsSinceEpoch(time.tv_sec * 1000LL + time.tv_nsec / 1000000);
}

File_Info Info_of(const QString &name, const struct stat &info, bool is_link) {
    File_Info result;
    result.name = name;
    result.is_folder = S_ISDIR(info.st_mode);
    result.is_link = is_link;
    result.read_only = (info.st_mode & S_IWUSR) == 0;
    result.size = S_ISREG(info.st_mode) ? info.st_size : 0;
    result.modified = Moment_of(info.st_mtim);
    return result;
}

/// Pipes, sockets and devices are neither files nor folders to this program.
bool Is_file_or_folder(const struct stat &info) {
    return S_ISREG(info.st_mode) || S_ISDIR(info.st_mode);
}

Fault Copy_content(int from, const QByteArray &source, Staged_File &to) {
    QByteArray buffer(copy_step, Qt::Uninitialized);
    while (true) {
        const qint64 got = Read_fully(from, buffer.data(), copy_step);
        if (got < 0)
            return System_fault(errno, QStringLiteral("read"), source);
        if (const Fault fault = to.write(buffer.constData(), got))
            return fault;
        if (got < copy_step)
            return {};
    }
}

/// Whether two files hold the same bytes.
bool Same_content(const QByteArray &one, const QByteArray &other) {
    const auto first = Open_ordinary_file(one);
    const auto second = Open_ordinary_file(other);
    if (!first.ok() || !second.ok())
        return false;
    QByteArray first_part(copy_step, Qt::Uninitialized);
    QByteArray second_part(copy_step, Qt::Uninitialized);
    while (true) {
        const qint64 got = Read_fully(first.value.number(), first_part.data(), copy_step);
        if (got < 0 || Read_fully(second.value.number(), second_part.data(), copy_step) != got)
            return false;
        if (std::memcmp(first_part.constData(), second_part.constData(), static_cast<size_t>(got)) != 0)
            return false;
        if (got < copy_step)
            return true;
    }
}

/// On the disk before it returns: what was copied is often deleted next.
Fault Copy_native(const QByteArray &from, const QByteArray &to) {
    struct stat info {};
    const auto source = Open_ordinary_file(from, &info);
    if (!source.ok())
        return source.fault;
    Staged_File copy(Native_text(to));
    if (const Fault fault = copy.open(static_cast<int>(info.st_mode | S_IWUSR)))
        return fault;
    if (const Fault fault = Copy_content(source.value.number(), from, copy))
        return fault;
    return copy.keep(Moment_of(info.st_mtim), Outlives::a_loss_of_power);
}

class Linux_Files : public Files {
public:
    explicit Linux_Files(std::shared_ptr<const Path_Map> paths) : paths_(std::move(paths)) {}

    QString to_native(const QString &path) const override { return Native_text(paths_->native(path)); }
    QString to_windows(const QString &native_path) const override { return paths_->windows(native_path); }

    Result<std::shared_ptr<void>> lock_folder(const QString &path) override;
    bool is_on_disc(const QString &path) const override;
    std::optional<File_Info> look(const QString &path) const override;
    Result<std::vector<File_Info>> list_folder(const QString &path) const override;
    Result<QByteArray> read_file(const QString &path, qint64 limit) const override {
        return read(path, limit, Overlong::refuse);
    }
    Result<QByteArray> read_start(const QString &path, qint64 count) const override {
        return read(path, count, Overlong::cut);
    }
    Fault write_file(const QString &path, const QByteArray &bytes) override {
        return write(path, bytes, Outlives::a_kill);
    }
    Fault write_lasting_file(const QString &path, const QByteArray &bytes) override {
        return write(path, bytes, Outlives::a_loss_of_power);
    }
    Fault append_file(const QString &path, const QByteArray &bytes) override;
    Fault move_file(const QString &from, const QString &to) override;
    Fault copy_file(const QString &from, const QString &to) override;
    Fault remove_file(const QString &path) override;
    Fault remove_folder(const QString &path) override;
    Fault make_folder(const QString &path) override;
    Fault clear_attributes(const QString &path) override;
    Fault set_modified(const QString &path, const QDateTime &when) override;
    QString real_path(const QString &path) const override;

private:
    Result<QByteArray> read(const QString &path, qint64 limit, Overlong overlong) const;
    Fault write(const QString &path, const QByteArray &bytes, Outlives outlives);
    QByteArray move_target(const QByteArray &source, const QString &to) const;

    std::shared_ptr<const Path_Map> paths_;
};

/// The kernel lets go of the lock with the last descriptor, after a kill too.
Result<std::shared_ptr<void>> Linux_Files::lock_folder(const QString &path) {
    const int folder = ::open(paths_->native(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return {{}, System_fault(errno, "open", paths_->native(path))};
    if (::flock(folder, LOCK_EX | LOCK_NB) != 0) {
        const int reason = errno;
        ::close(folder);
        if (reason == EWOULDBLOCK)
            return {{}, {Fault_Kind::exists, QString("\"%1\" is in use.").arg(to_native(path)), reason}};
        return {}; // a file system without locks
    }
    return {std::shared_ptr<void>(nullptr, [folder](void *) { ::close(folder); }), {}};
}

std::optional<File_Info> Linux_Files::look(const QString &path) const {
    const QByteArray native = paths_->native(path);
    struct stat target {};
    struct stat entry {};
    if (native.isEmpty() || ::stat(native.constData(), &target) != 0 || !Is_file_or_folder(target))
        return std::nullopt;
    const bool is_link = ::lstat(native.constData(), &entry) == 0 && S_ISLNK(entry.st_mode);
    return Info_of(Name_from_native(native.mid(native.lastIndexOf('/') + 1)), target, is_link);
}

Result<std::vector<File_Info>> Linux_Files::list_folder(const QString &path) const {
    Result<std::vector<File_Info>> result;
    const QByteArray native = paths_->native(path);
    if (native.isEmpty()) {
        result.fault = Not_found(path);
        return result;
    }
    Folder_Reader entries(native);
    const char *name = entries.next();
    for (; name; name = entries.next()) {
        struct stat own {};
        struct stat target {};
        if (::fstatat(entries.number(), name, &own, AT_SYMLINK_NOFOLLOW) != 0)
            continue;
        const bool is_link = S_ISLNK(own.st_mode);
        // A link to nowhere is listed, else a folder that holds one could never be emptied.
        const bool dangling = is_link && ::fstatat(entries.number(), name, &target, 0) != 0;
        const struct stat &shown = is_link && !dangling ? target : own;
        if (dangling || Is_file_or_folder(shown))
            result.value.push_back(Info_of(Name_from_native(name), shown, is_link));
    }
    if (!entries || errno != 0) {
        result.fault = System_fault(errno, QStringLiteral("list"), native);
        result.value.clear();
        return result;
    }
    std::sort(result.value.begin(), result.value.end(),
              [](const File_Info &one, const File_Info &other) { return one.name < other.name; });
    return result;
}

Result<QByteArray> Linux_Files::read(const QString &path, qint64 limit, Overlong overlong) const {
    const QByteArray native = paths_->native(path);
    if (native.isEmpty())
        return {{}, Not_found(path)};
    return Read_native_file(native, limit, overlong);
}

Fault Linux_Files::write(const QString &path, const QByteArray &bytes, Outlives outlives) {
    const QByteArray native = paths_->native(path);
    if (native.isEmpty())
        return Not_found(path);
    Staged_File file(Native_text(native));
    if (const Fault fault = file.open())
        return fault;
    if (const Fault fault = file.write(bytes.constData(), bytes.size()))
        return fault;
    return file.keep({}, outlives);
}

Fault Linux_Files::append_file(const QString &path, const QByteArray &bytes) {
    const QByteArray native = paths_->native(path);
    if (native.isEmpty())
        return Not_found(path);
    const auto failed = [&] {
        return System_fault(errno, QStringLiteral("write"), native);
    };
    struct stat info {};
    if (::stat(native.constData(), &info) == 0 && !S_ISREG(info.st_mode)) {
        errno = S_ISDIR(info.st_mode) ? EISDIR : EEXIST;
        return failed();
    }
    File_Handle file(
        ::open(native.constData(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666));
    if (!file || ::fstat(file.number(), &info) != 0)
        return failed();
    if (Write_fully(file.number(), bytes.constData(), bytes.size()))
        return file.close() == 0 ? Fault{} : failed();
    const Fault fault = failed();
    // Half a line would be worse than none. Should this fail too, the fault told is still the first one.
    (void)!::ftruncate(file.number(), info.st_size);
    return fault;
}

/// Where a moved file goes: the found spelling, but a change of nothing except the spelling is a change.
QByteArray Linux_Files::move_target(const QByteArray &source, const QString &to) const {
    const QByteArray target = paths_->native(to);
    return target == source ? Join_native(Folder_of(target), Name_to_native(Last_name(to))) : target;
}

Fault Linux_Files::move_file(const QString &from, const QString &to) {
    const QByteArray source = paths_->native(from);
    if (source.isEmpty())
        return Not_found(from);
    const QByteArray target = move_target(source, to);
    if (target.isEmpty())
        return Not_found(to);
    const auto failed = [&](const QByteArray &name) {
        return System_fault(errno, QStringLiteral("move"), name);
    };
    struct stat moved {};
    struct stat replaced {};
    if (::lstat(source.constData(), &moved) != 0)
        return failed(source);
    const bool replaces = ::lstat(target.constData(), &replaced) == 0;
    if (source == target)
        return {};
    if (replaces && (S_ISDIR(moved.st_mode) || S_ISDIR(replaced.st_mode))) {
        errno = EEXIST;
        return failed(target);
    }
    if (::rename(source.constData(), target.constData()) == 0) {
        // Of two hard links to one file the system leaves both.
        const bool linked = replaces && Same_file(moved, replaced) && moved.st_nlink > 1;
        return linked && ::unlink(source.constData()) != 0 ? failed(source) : Fault{};
    }
    if (errno != EXDEV)
        return failed(errno == ENOENT || errno == ENOTDIR ? target : source);
    if (Fault fault = Copy_native(source, target))
        return fault;
    if (!Same_content(source, target))
        return {Fault_Kind::damaged, QStringLiteral("The copy \"%1\" differs from \"%2\", which was kept.")
                                         .arg(Native_text(target), Native_text(source))};
    return ::unlink(source.constData()) != 0 ? failed(source) : Fault{};
}

Fault Linux_Files::copy_file(const QString &from, const QString &to) {
    const QByteArray source = paths_->native(from);
    if (source.isEmpty())
        return Not_found(from);
    const QByteArray target = paths_->native(to);
    return target.isEmpty() ? Not_found(to) : Copy_native(source, target);
}

Fault Linux_Files::remove_file(const QString &path) {
    const QByteArray native = paths_->native(path);
    if (native.isEmpty())
        return Not_found(path);
    return ::unlink(native.constData()) == 0 ? Fault{}
                                             : System_fault(errno, QStringLiteral("delete"), native);
}

Fault Linux_Files::remove_folder(const QString &path) {
    const QByteArray native = paths_->native(path);
    if (native.isEmpty())
        return Not_found(path);
    return ::rmdir(native.constData()) == 0 ? Fault{} : System_fault(errno, QStringLiteral("delete"), native);
}

Fault Linux_Files::make_folder(const QString &path) {
    const QByteArray native = paths_->native(path);
    if (native.isEmpty())
        return Not_found(path);
    struct stat info {};
    for (qsizetype end = native.indexOf('/', 1);; end = native.indexOf('/', end + 1)) {
        const QByteArray folder = end < 0 ? native : native.left(end);
        if (::stat(folder.constData(), &info) != 0 && ::mkdir(folder.constData(), 0777) != 0 &&
            errno != EEXIST)
            return System_fault(errno, QStringLiteral("make the folder"), folder);
        if (end < 0)
            break;
    }
    if (::stat(native.constData(), &info) == 0 && S_ISDIR(info.st_mode))
        return {};
    return System_fault(EEXIST, QStringLiteral("make the folder"), native);
}

Fault Linux_Files::clear_attributes(const QString &path) {
    const QByteArray native = paths_->native(path);
    if (native.isEmpty())
        return Not_found(path);
    struct stat info {};
    if (::lstat(native.constData(), &info) != 0)
        return System_fault(errno, QStringLiteral("unprotect"), native);
    // A link has no protection of its own, and what it leads to may lie anywhere.
    if (S_ISLNK(info.st_mode) || (info.st_mode & S_IWUSR) != 0)
        return {};
    if (::chmod(native.constData(), (info.st_mode & permission_bits) | S_IWUSR) != 0)
        return System_fault(errno, QStringLiteral("unprotect"), native);
    return {};
}

Fault Linux_Files::set_modified(const QString &path, const QDateTime &when) {
    const QByteArray native = paths_->native(path);
    if (native.isEmpty())
        return Not_found(path);
    const timespec times[2] = {{0, UTIME_OMIT}, Time_of(when)};
    if (::utimensat(AT_FDCWD, native.constData(), times, 0) != 0)
        return System_fault(errno, QStringLiteral("date"), native);
    return {};
}

bool Linux_Files::is_on_disc(const QString &path) const {
    struct statfs info {};
    if (::statfs(paths_->native(path).constData(), &info) != 0)
        return false;
    return std::find(std::begin(disc_systems), std::end(disc_systems), long(info.f_type)) !=
           std::end(disc_systems);
}

QString Linux_Files::real_path(const QString &path) const {
    const QByteArray native = paths_->native(path);
    if (native.isEmpty())
        return {};
    const QByteArray resolved = Resolve_links(native);
    return resolved.isEmpty() ? QString() : paths_->windows(Native_text(resolved));
}

} // namespace

std::unique_ptr<Files> Make_Linux_Files(const std::shared_ptr<const Path_Map> &paths) {
    return std::make_unique<Linux_Files>(paths);
}

} // namespace vantrosk
