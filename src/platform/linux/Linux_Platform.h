#pragma once

#include "platform/Platform.h"

#include <optional>

namespace vantrosk {

/// Where the Linux half finds its things; native paths. Empty members are taken from the environment.
struct Linux_Options {
    QString wine_prefix;   ///< else WINEPREFIX, else the per-user setting, else ~/.wine
    QString runner;        ///< else VANTROSK_RUNNER, else the per-user setting, else "wine"
    QString settings_file; ///< else the user's configuration folder
    QString home = {};     ///< where prefixes are looked for; else the user's home folder
};

Platform Make_Linux_Platform(const Linux_Options &options = {});

/// What must be set before anything else runs: a UTF-8 locale, and TZ, because glibc otherwise looks up
/// the time zone file for the date of every zip entry.
void Prepare_linux_process();

/// The program's folder when the command line names none: VANTROSK_HOME, else the folder of the executable
/// when it can be written, else the user's data folder. Native path.
QString Default_home_folder(const QString &executable_folder);

} // namespace vantrosk
