#pragma once

#include "ui/console/Console_Commands.h"

namespace vantrosk {

inline constexpr const char *diagnose_usage = "diagnose GAME [--reference FILE]";
inline constexpr const char *reference_usage = "reference GAME";

/// Compares a game's folder with a reference file: the name of one in the program's `references`, or a path.
/// Without one, with nothing.
Console_Result Diagnose_command(const Console_Context &context);
/// Lists a game's folder into a new reference file.
Console_Result Reference_command(const Console_Context &context);

} // namespace vantrosk
