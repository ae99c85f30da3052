#pragma once

#include "ui/console/Console_Commands.h"

namespace vantrosk {

inline constexpr const char *autoconfigure_usage = "autoconfigure [--prefix DIR]";

/// Works out where the games are and stores what was found; what was not found stays as it was.
Console_Result Autoconfigure_command(const Console_Context &context);

} // namespace vantrosk
