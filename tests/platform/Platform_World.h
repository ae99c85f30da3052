#pragma once

#include "platform/linux/Linux_Platform.h"
#include "support/Print.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <ostream>
#include <stdexcept>
#include <string>

/// A list on one line; the texts in it are known to tests/support/Print.h.
inline void PrintTo(const QStringList &texts, std::ostream *out) {
    *out << "[" << texts.join(QStringLiteral(" | ")).toStdString() << "]";
}

namespace vantrosk {

/// A temporary folder (its name is not ASCII) with a Wine prefix in it, and the platform over both. Names
/// here are native and relative to that folder.
class Platform_World {
public:
    Platform_World() : folder_(QDir::tempPath() + "/vantrosk-tést-Žluť-XXXXXX") {
        if (!folder_.isValid())
            throw std::runtime_error("no temporary folder");
        make_folder("prefix/drive_c");
        make_folder("prefix/dosdevices");
        platform = Make_Linux_Platform(options());
    }

    Linux_Options options() const {
        Linux_Options options;
        options.wine_prefix = native("prefix");
        options.settings_file = native("settings.conf");
        return options;
    }
    QString native(const QString &name) const {
        return name.isEmpty() ? folder_.path() : folder_.filePath(name);
    }
    QByteArray bytes(const QString &name) const { return native(name).toUtf8(); }
    QString windows(const QString &name) const { return platform.files->to_windows(native(name)); }

    void make_folder(const QString &name) const { QDir().mkpath(native(name)); }
    void write(const QString &name, const QByteArray &content, mode_t mode = 0644) const {
        make_folder(QFileInfo(name).path());
        QFile file(native(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            throw std::runtime_error("test file not written");
        file.close();
        ::chmod(bytes(name).constData(), mode);
    }
    QByteArray read(const QString &name) const {
        QFile file(native(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
    }
    void link(const QString &name, const QString &target) const {
        if (::symlink(target.toUtf8().constData(), bytes(name).constData()) != 0)
            throw std::runtime_error("test link not made");
    }
    struct stat stat(const QString &name) const {
        struct stat info {};
        ::lstat(bytes(name).constData(), &info);
        return info;
    }
    /// The names in one folder, hidden ones included: shows what was left behind.
    QStringList names(const QString &name) const {
        return QDir(native(name))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    /// Gives a file or folder to the user that `As_ordinary_user` is, and lets it come near.
    void give_away(const QString &name, mode_t mode) const {
        ::chmod(bytes("").constData(), 0755);
        if (::geteuid() == 0 && ::chown(bytes(name).constData(), 65534, 65534) != 0)
            throw std::runtime_error("test file not given away");
        ::chmod(bytes(name).constData(), mode);
    }

    Platform platform;

private:
    QTemporaryDir folder_;
};

/// Runs `work` in a process of its own, so that limits and rights end with it; its number is the answer.
inline int In_own_process(const std::function<int()> &work) {
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(work());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// The same without the rights of root.
inline int As_ordinary_user(const std::function<int()> &work) {
    return In_own_process([&] {
        if (::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0))
            return 99;
        return work();
    });
}

/// A kind of fault as a process's answer.
inline int Number_of(Fault_Kind kind) {
    return static_cast<int>(kind);
}
inline int Number_of(const Fault &fault) {
    return Number_of(fault.kind);
}

} // namespace vantrosk
