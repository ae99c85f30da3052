#pragma once

#include "ui/console/Console_Commands.h"

namespace vantrosk {

inline constexpr const char *render_usage = "render FILE [--image FILE] [--game CODE]";

/// Turns a readme anywhere into a page beside it.
Console_Result Render_command(const Console_Context &context);

} // namespace vantrosk
