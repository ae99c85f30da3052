#include "platform/Staged_File.h"

#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace vantrosk {

namespace {

/// Those that a file has; the "user" ones are what this process may do, which for root is everything.
constexpr QFileDevice::Permissions stored_permissions{
    QFileDevice::ReadOwner, QFileDevice::WriteOwner, QFileDevice::ExeOwner,
    QFileDevice::ReadGroup, QFileDevice::WriteGroup, QFileDevice::ExeGroup,
    QFileDevice::ReadOther, QFileDevice::WriteOther, QFileDevice::ExeOther};

} // namespace

Fault Fault_of_system(int number, const QString &name) {
    const QString reason = QString::fromLocal8Bit(std::strerror(number));
    switch (number) {
    case ENOSPC:
    case EFBIG:
#ifdef EDQUOT
    case EDQUOT:
#endif
        return {Fault_Kind::no_space, QString("There is no space to write \"%1\".").arg(name), number};
    case EACCES:
    case EPERM:
    case EROFS:
        return {Fault_Kind::no_access, QString("\"%1\" may not be written: %2.").arg(name, reason), number};
    case ENOENT:
        return {Fault_Kind::not_found, QString("There is no folder for \"%1\".").arg(name), number};
    case EISDIR:
    case EEXIST:
    case ENOTDIR:
    case ENOTEMPTY:
        return {Fault_Kind::exists, QString("Something of the name \"%1\" is in the way.").arg(name), number};
    default:
        return {Fault_Kind::other, QString("\"%1\" could not be written: %2.").arg(name, reason), number};
    }
}

Staged_File::Staged_File(const QString &target, const QString &temporary)
    : target_(target), file_(temporary) {}

Staged_File::~Staged_File() {
    remove();
}

Fault Staged_File::open() {
    // New only: a link of that name must not lead elsewhere.
    constexpr auto mode = QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered;
    errno = 0;
    exists_ = file_.open(mode);
    int number = errno;
    if (!exists_ && QFile::remove(file_.fileName())) {
        exists_ = file_.open(mode);
        number = errno;
    }
    return exists_ ? Fault{} : Fault_of_system(number, QFileInfo(target_).fileName());
}

Fault Staged_File::write(const char *bytes, qint64 count) {
    while (count > 0) {
        errno = 0;
        const qint64 written = file_.write(bytes, count);
        if (written <= 0)
            return Fault_of_system(errno ? errno : EIO, QFileInfo(target_).fileName());
        bytes += written;
        count -= written;
    }
    return {};
}

Fault Staged_File::write_at(qint64 offset, const char *bytes, qint64 count) {
    if (file_.pos() != offset && !file_.seek(offset))
        return Fault_of_system(EIO, QFileInfo(target_).fileName());
    return write(bytes, count);
}

Fault Staged_File::close() {
    file_.unsetError();
    errno = 0;
    file_.close();
    if (file_.error() != QFileDevice::NoError)
        return Fault_of_system(errno ? errno : EIO, QFileInfo(target_).fileName());
    return {};
}

void Staged_File::set_executable() {
    constexpr auto executable = QFileDevice::ExeOwner | QFileDevice::ExeGroup | QFileDevice::ExeOther;
    file_.setPermissions((file_.permissions() & stored_permissions) | executable);
}

Fault Staged_File::keep(const QDateTime &modified) {
    const QFileInfo old(target_);
    if (old.isFile() && !old.isSymLink())
        file_.setPermissions(old.permissions() & stored_permissions);
    // A medium that can not hold the date still holds the content.
    if (modified.isValid())
        file_.setFileTime(modified, QFileDevice::FileModificationTime);
    if (const Fault fault = close())
        return fault;
    std::error_code error;
    std::filesystem::rename(QFile::encodeName(file_.fileName()).toStdString(),
                            QFile::encodeName(target_).toStdString(), error);
    if (error)
        return Fault_of_system(error.value(), QFileInfo(target_).fileName());
    exists_ = false;
    return {};
}

void Staged_File::remove() {
    file_.close();
    if (exists_)
        QFile::remove(file_.fileName());
    exists_ = false;
}

} // namespace vantrosk
