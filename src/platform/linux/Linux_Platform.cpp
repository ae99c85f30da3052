#include "Linux_Platform.h"

#include "Linux_Parts.h"

#include "platform/Native_Text.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUuid>

#include <langinfo.h>

#include <clocale>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>

namespace vantrosk {

namespace {

/// The first text that is not empty, absolute; "~/" at its start is the user's home.
QString Prefix_folder(const Linux_Options &options, const Settings_Store &settings) {
    QString folder = options.wine_prefix;
    if (folder.isEmpty())
        folder = Native_text(qgetenv("WINEPREFIX"));
    if (folder.isEmpty())
        folder = settings.value(QLatin1String(platform_section), QLatin1String(prefix_key));
    if (folder.isEmpty())
        folder = QStringLiteral("~/.wine");
    if (folder == QLatin1String("~") || folder.startsWith(QLatin1String("~/")))
        folder = QDir::homePath() + folder.mid(1);
    return QDir::current().absoluteFilePath(folder);
}

void Set_utf8_locale() {
    std::setlocale(LC_ALL, "");
    if (std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0)
        return;
    // Into the environment as well: Qt reads it, and Wine names files by it.
    if (qEnvironmentVariableIsSet("LC_ALL"))
        qputenv("LC_ALL", "C.UTF-8");
    qputenv("LC_CTYPE", "C.UTF-8");
    std::setlocale(LC_ALL, "");
}

} // namespace

Platform Make_Linux_Platform(const Linux_Options &options) {
    Platform platform;
    platform.settings = Make_Linux_Settings_Store(options.settings_file);
    const auto paths = std::make_shared<const Path_Map>(Prefix_folder(options, *platform.settings));
    platform.files = Make_Linux_Files(paths);
    platform.clock = Make_Linux_Clock();
    platform.registry = Make_Wine_Registry(paths->prefix());
    platform.processes =
        Make_Linux_Processes(paths, options.runner, Make_Linux_Settings_Store(options.settings_file));
    platform.prefixes = Make_Linux_Prefixes(paths, options.home);
    return platform;
}

void Prepare_linux_process() {
    Set_utf8_locale();
    if (!qEnvironmentVariableIsSet("TZ"))
        qputenv("TZ", ":/etc/localtime");
    ::tzset();
    // A file over the size limit is a fault to report, not a reason to die.
    std::signal(SIGXFSZ, SIG_IGN);
}

QString Default_home_folder(const QString &executable_folder) {
    const QString wanted = Native_text(qgetenv("VANTROSK_HOME"));
    if (!wanted.isEmpty())
        return QDir::cleanPath(QDir::current().absoluteFilePath(wanted));
    const QFileInfo own(executable_folder);
    if (own.isDir() && own.isWritable())
        return QDir::cleanPath(own.absoluteFilePath());
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/vantrosk");
}

QString Create_guid_text() {
    return QUuid::createUuid().toString(QUuid::WithBraces).toUpper();
}

} // namespace vantrosk
