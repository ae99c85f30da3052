#include "platform/Staged_File.h"

#include "Native_Io.h"

#include "platform/Native_Text.h"
#include "platform/System_Fault.h"

#include <QRandomGenerator>

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>

namespace vantrosk {

namespace {

constexpr mode_t permission_bits = 0777, executable_bits = 0111;
constexpr int name_attempts = 100;

QByteArray Folder_of(const QByteArray &native) {
    const qsizetype end = native.lastIndexOf('/');
    return end <= 0 ? QByteArray("/") : native.left(end);
}

QByteArray Name_beside(const QByteArray &target) {
    const QByteArray folder = Folder_of(target);
    const QByteArray number = QByteArray::number(QRandomGenerator::global()->generate(), 16);
    return folder + (folder.endsWith('/') ? "" : "/") + ".vantrosk-" + number + ".tmp";
}

/// A file system that knows no such order has nothing to wait for.
bool Wait_for_disk(int file) {
    return ::fsync(file) == 0 || errno == EINVAL || errno == ENOTSUP;
}

/// The name of a file is on the disk when its folder is.
bool Wait_for_folder(const QByteArray &folder) {
    const File_Handle handle(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // A folder that may be written and not be read can not be waited for.
    return handle ? Wait_for_disk(handle.number()) : errno == EACCES;
}

} // namespace

struct Staged_File::State {
    QByteArray target, temporary; ///< the latter empty until a name is found
    File_Handle file;
    qint64 position = 0;
    mode_t rights = 0; ///< of a new file, less what the user's mask takes away
    bool exists = false;

    Fault fault() const {
        const int number = errno ? errno : EIO;
        return System_fault(number, QStringLiteral("write"), Native_text(target));
    }
    bool create() {
        // New only: a link of that name must not lead elsewhere.
        file = File_Handle(::open(temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, rights));
        exists = bool(file);
        return exists;
    }
    bool create_beside() {
        for (int attempt = 0; attempt < name_attempts; ++attempt) {
            temporary = Name_beside(target);
            if (create())
                return true;
            if (errno != EEXIST)
                break;
        }
        temporary.clear();
        return false;
    }
    void take_rights_over() const {
        struct stat old {};
        if (::lstat(target.constData(), &old) != 0 || !S_ISREG(old.st_mode))
            return;
        // Only root may give a file away; for others the owner is right already. The mode comes last, because
        // a new owner takes some of it away.
        if (::fchown(file.number(), old.st_uid, old.st_gid) != 0)
            errno = 0;
        ::fchmod(file.number(), old.st_mode & permission_bits);
    }
    bool reopen() {
        if (!file)
            file = File_Handle(::open(temporary.constData(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW));
        return bool(file);
    }
};

Staged_File::Staged_File(const QString &target, const QString &temporary)
    : state_(std::make_unique<State>()) {
    state_->target = Native_bytes(target);
    state_->temporary = Native_bytes(temporary);
}

Staged_File::Staged_File(const QString &target) : Staged_File(target, QString()) {}

Staged_File::~Staged_File() {
    remove();
}

Fault Staged_File::open(int rights) {
    state_->rights = static_cast<mode_t>(rights) & permission_bits;
    if (state_->temporary.isEmpty())
        return state_->create_beside() ? Fault{} : state_->fault();
    if (state_->create())
        return {};
    const int reason = errno;
    if (reason == EEXIST && ::unlink(state_->temporary.constData()) == 0 && state_->create())
        return {};
    errno = reason;
    return state_->fault();
}

Fault Staged_File::write(const char *bytes, qint64 count) {
    if (!Write_fully(state_->file.number(), bytes, count))
        return state_->fault();
    state_->position += count;
    return {};
}

Fault Staged_File::write_at(qint64 offset, const char *bytes, qint64 count) {
    if (state_->position != offset) {
        if (::lseek(state_->file.number(), offset, SEEK_SET) < 0)
            return state_->fault();
        state_->position = offset;
    }
    return write(bytes, count);
}

qint64 Staged_File::size() const {
    struct stat info {};
    return state_->file && ::fstat(state_->file.number(), &info) == 0 ? info.st_size : 0;
}

void Staged_File::set_executable() {
    struct stat info {};
    if (::fstat(state_->file.number(), &info) == 0)
        ::fchmod(state_->file.number(), (info.st_mode & permission_bits) | executable_bits);
}

Fault Staged_File::close() {
    return state_->file && state_->file.close() != 0 ? state_->fault() : Fault{};
}

Fault Staged_File::keep(const QDateTime &modified, Outlives outlives) {
    State &state = *state_;
    struct stat old {};
    if (::lstat(state.target.constData(), &old) == 0 && S_ISDIR(old.st_mode)) {
        errno = EISDIR;
        return state.fault();
    }
    if (!state.reopen())
        return state.fault();
    state.take_rights_over();
    if (modified.isValid()) {
        const timespec times[2] = {{0, UTIME_OMIT}, Time_of(modified)};
        // A medium that can not hold the date still holds the content.
        (void)::futimens(state.file.number(), times);
    }
    const bool waits = outlives == Outlives::a_loss_of_power;
    if (waits && !Wait_for_disk(state.file.number()))
        return state.fault();
    if (const Fault fault = close())
        return fault;
    if (::rename(state.temporary.constData(), state.target.constData()) != 0)
        return state.fault();
    state.exists = false;
    return waits && !Wait_for_folder(Folder_of(state.target)) ? state.fault() : Fault{};
}

QString Staged_File::temporary() const {
    return Native_text(state_->temporary);
}

void Staged_File::remove() {
    state_->file = File_Handle();
    if (state_->exists)
        ::unlink(state_->temporary.constData());
    state_->exists = false;
}

} // namespace vantrosk
