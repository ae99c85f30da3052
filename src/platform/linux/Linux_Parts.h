#pragma once

#include "Linux_Platform.h"
#include "Path_Map.h"

#include <memory>

namespace vantrosk {

/// The parts that `Make_Linux_Platform` puts together. Each holds what it needs itself, so that a test can
/// replace one without harm to the others.
std::unique_ptr<Files> Make_Linux_Files(const std::shared_ptr<const Path_Map> &paths);
std::unique_ptr<Clock> Make_Linux_Clock();
/// Reads "system.reg" and "user.reg" of a prefix; the Wine server writes them some seconds after a change.
std::unique_ptr<Registry> Make_Wine_Registry(const QString &prefix);
/// `file` is a native path; empty for "vantrosk/vantrosk.conf" in the user's configuration folder.
std::unique_ptr<Settings_Store> Make_Linux_Settings_Store(const QString &file);
/// `home` is the user's home folder when empty.
std::unique_ptr<Prefixes> Make_Linux_Prefixes(const std::shared_ptr<const Path_Map> &paths,
                                              const QString &home);
/// `runner` is empty when the environment or the per-user setting decide.
std::unique_ptr<Processes> Make_Linux_Processes(const std::shared_ptr<const Path_Map> &paths,
                                                const QString &runner,
                                                std::unique_ptr<Settings_Store> settings);

/// Section and keys of what only this platform keeps in the per-user store.
constexpr const char *platform_section = "PLATFORM";
constexpr const char *prefix_key = "PREFIX";
constexpr const char *runner_key = "RUNNER";

} // namespace vantrosk
