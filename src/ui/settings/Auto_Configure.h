#pragma once

#include "ui/settings/Settings_Controls.h"

#include <functional>
#include <vector>

namespace vantrosk {

/// A game that auto configure found. Windows paths.
struct Found_Game {
    QString code;
    QString name; ///< as the report calls it
    QString folder;
};

/// What auto configure found and made.
struct Auto_Configured {
    QString prefix;     ///< native folder of the Windows system that was searched; empty on Windows itself
    QStringList stages; ///< as they were shown
    std::vector<Found_Game> found;
    QString t3_saves;            ///< empty when it was not found
    QStringList reference_files; ///< that were made
};

/// Told at each stage: its text, and how far it is from 0 to 7.
using Stage_Told = std::function<void(const QString &text, int stage)>;

constexpr int auto_configure_stages = 7;

/// Works out where the games are, by what their set-ups left in the registry, and fills the controls with
/// what it finds; what it does not find stays. No game file is changed without a question. `prefix` is the
/// native folder of another Windows system to search (platform/Prefixes.h); empty for the one in use.
Auto_Configured Auto_Configure(Program &program, Settings_Controls &controls, const QString &prefix,
                               const Stage_Told &told);

/// Stores what was found, and nothing else, in the main ini.
Fault Store_Found(Program &program, const Settings_Controls &controls, const Auto_Configured &result);

} // namespace vantrosk
