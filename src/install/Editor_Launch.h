#pragma once

#include "install/Play.h"

namespace vantrosk {

struct Program;

/// The editor button: a script that loads the selected mission, the editor told of it, the editor started.
/// For games without an editor nothing happens. `refusal` tells why it failed.
Play_Result Editor_Command(Program &program);

/// Where the per-user store keeps whether the script also makes the editor bright and quiet: "True" or
/// "False".
inline constexpr const char *editor_commands_section = "FORMSETTINGS";
inline constexpr const char *editor_commands_key = "DROMED_COMMANDS";

} // namespace vantrosk
