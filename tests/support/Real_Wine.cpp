#include "support/Real_Wine.h"

#include "support/Places.h"

#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QProcess>
#include <QStandardPaths>

namespace vantrosk {

namespace {

constexpr const char *compiler_name = "x86_64-w64-mingw32-gcc";
constexpr int lock_wait = 100000, boot_wait = 90000; ///< milliseconds

bool Make_prefix(const QString &wine, const QString &prefix) {
    if (!QDir().mkpath(prefix))
        return false;
    QLockFile lock(prefix + ".lock");
    lock.setStaleLockTime(0);
    if (!lock.tryLock(lock_wait))
        return false;
    if (QFile::exists(prefix + "/ready"))
        return true;
    QProcess wineboot;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("WINEPREFIX", prefix);
    environment.insert("WINEDLLOVERRIDES", "mscoree,mshtml=");
    wineboot.setProcessEnvironment(environment);
    wineboot.setStandardOutputFile(QProcess::nullDevice());
    wineboot.setStandardErrorFile(QProcess::nullDevice());
    wineboot.start(wine, {"wineboot", "-i"});
    if (!wineboot.waitForFinished(boot_wait) || wineboot.exitCode() != 0)
        return false;
    QFile ready(prefix + "/ready");
    return ready.open(QIODevice::WriteOnly);
}

} // namespace

Real_Wine Find_real_wine() {
    const QString wine = QStandardPaths::findExecutable("wine");
    if (wine.isEmpty() || QStandardPaths::findExecutable(compiler_name).isEmpty())
        return {{}, QString("wine or %1 is not installed").arg(compiler_name)};
    qputenv("WINEDEBUG", "-all");
    const QString prefix = Build_folder() + "/wine-prefix";
    if (!Make_prefix(wine, prefix))
        return {{}, "wine can not set up a prefix"};
    return {prefix, {}};
}

bool Make_windows_program(const QByteArray &source, const QString &native_path) {
    const QString source_path = native_path + ".c";
    QFile file(source_path);
    if (!file.open(QIODevice::WriteOnly) || file.write(source) != source.size())
        return false;
    file.close();
    const int code = QProcess::execute(compiler_name, {"-municode", "-o", native_path, source_path});
    return file.remove() && code == 0;
}

} // namespace vantrosk
