#include "Linux_Parts.h"
#include "Native_Io.h"

#include <QRandomGenerator>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace vantrosk {

namespace {

constexpr mode_t permission_bits = 0777;
constexpr qint64 copy_step = 256 * 1024;

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

File_Info Info_of(const QString &name, const struct stat &info, bool is_link) {
    File_Info result;
    result.name = name;
    result.is_folder = S_ISDIR(info.st_mode);
    result.is_link = is_link;
    result.read_only = (info.st_mode & S_IWUSR) == 0;
    result.size = S_ISREG(info.st_mode) ? info.st_size : 0;
    result.modified =
        QDateTime::fromMSecsSinceEpoch(info.st_mtim.tv_sec * 1000LL + info.st_mtim.tv_nsec / 1000000);
    return result;
}

/// Pipes, sockets and devices are neither files nor folders to this program.
bool Is_file_or_folder(const struct stat &info) {
    return S_ISREG(info.st_mode) || S_ISDIR(info.st_mode);
}

/// A new file beside its target, gone again unless it was moved over the target.
class Beside_File {
public:
    explicit Beside_File(const QByteArray &target) : target_(target) {}
    ~Beside_File() {
        if (!name_.isEmpty())
            ::unlink(name_.constData());
    }
    Q_DISABLE_COPY(Beside_File)

    /// With the rights and the owner of what it will replace, or those given for a new file.
    bool open(mode_t new_file_mode) {
        for (int attempt = 0; attempt < 100 && !file_; ++attempt) {
            const QByteArray number = QByteArray::number(QRandomGenerator::global()->generate(), 16);
            const QByteArray name = Join_native(Folder_of(target_), ".vantrosk-" + number + ".tmp");
            file_ = File_Handle(
                ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, new_file_mode | S_IWUSR));
            if (file_)
                name_ = name;
            else if (errno != EEXIST)
                return false;
        }
        struct stat old {};
        if (file_ && ::stat(target_.constData(), &old) == 0 && S_ISREG(old.st_mode)) {
            // Only root may give a file away; for others the owner is right already.
            if (::fchown(file_.number(), old.st_uid, old.st_gid) != 0)
                errno = 0;
            return ::fchmod(file_.number(), old.st_mode & permission_bits) == 0;
        }
        return bool(file_);
    }
    int number() const { return file_.number(); }
    bool finish() {
        struct stat old {};
        if (::lstat(target_.constData(), &old) == 0 && S_ISDIR(old.st_mode)) {
            errno = EISDIR;
            return false;
        }
        if (file_.close() != 0 || ::rename(name_.constData(), target_.constData()) != 0)
            return false;
        name_.clear();
        return true;
    }

private:
    QByteArray target_;
    QByteArray name_;
    File_Handle file_;
};

bool Copy_content(int from, int to) {
    QByteArray buffer(copy_step, Qt::Uninitialized);
    while (true) {
        const qint64 got = Read_fully(from, buffer.data(), copy_step);
        if (got < 0 || !Write_fully(to, buffer.constData(), got))
            return false;
        if (got < copy_step)
            return true;
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

Fault Copy_native(const QByteArray &from, const QByteArray &to) {
    struct stat info {};
    const auto source = Open_ordinary_file(from, &info);
    if (!source.ok())
        return source.fault;
    const auto failed = [&] {
        return System_fault(errno, QStringLiteral("write"), to);
    };
    Beside_File copy(to);
    if (!copy.open(info.st_mode & permission_bits) || !Copy_content(source.value.number(), copy.number()))
        return failed();
    const timespec times[2] = {{0, UTIME_NOW}, info.st_mtim};
    if (::futimens(copy.number(), times) != 0 || !copy.finish())
        return failed();
    return {};
}

class Linux_Files : public Files {
public:
    explicit Linux_Files(std::shared_ptr<const Path_Map> paths) : paths_(std::move(paths)) {}

    QString to_native(const QString &path) const override { return QString::fromUtf8(paths_->native(path)); }
    QString to_windows(const QString &native_path) const override { return paths_->windows(native_path); }

    Result<std::shared_ptr<void>> lock_folder(const QString &path) override;
    std::optional<File_Info> look(const QString &path) const override;
    Result<std::vector<File_Info>> list_folder(const QString &path) const override;
    Result<QByteArray> read_file(const QString &path, qint64 limit) const override {
        return read(path, limit, Overlong::refuse);
    }
    Result<QByteArray> read_start(const QString &path, qint64 count) const override {
        return read(path, count, Overlong::cut);
    }
    Fault write_file(const QString &path, const QByteArray &bytes) override;
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

Fault Linux_Files::write_file(const QString &path, const QByteArray &bytes) {
    const QByteArray native = paths_->native(path);
    if (native.isEmpty())
        return Not_found(path);
    Beside_File file(native);
    if (!file.open(0666) || !Write_fully(file.number(), bytes.constData(), bytes.size()) || !file.finish())
        return System_fault(errno, QStringLiteral("write"), native);
    return {};
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
                                         .arg(QString::fromUtf8(target), QString::fromUtf8(source))};
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
    const qint64 time = when.toMSecsSinceEpoch();
    const qint64 seconds = time >= 0 ? time / 1000 : -((999 - time) / 1000);
    const timespec times[2] = {{0, UTIME_OMIT},
                               {seconds, static_cast<long>((time - seconds * 1000) * 1000000)}};
    if (::utimensat(AT_FDCWD, native.constData(), times, 0) != 0)
        return System_fault(errno, QStringLiteral("date"), native);
    return {};
}

QString Linux_Files::real_path(const QString &path) const {
    const QByteArray native = paths_->native(path);
    if (native.isEmpty())
        return {};
    const QByteArray resolved = Resolve_links(native);
    return resolved.isEmpty() ? QString() : paths_->windows(QString::fromUtf8(resolved));
}

} // namespace

std::unique_ptr<Files> Make_Linux_Files(const std::shared_ptr<const Path_Map> &paths) {
    return std::make_unique<Linux_Files>(paths);
}

} // namespace vantrosk
