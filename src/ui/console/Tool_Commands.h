#pragma once

#include "ui/console/Console_Commands.h"

namespace vantrosk {

inline constexpr const char *tools_usage = "tools list | tools add FILE [--name N] [--args A] [--run-when "
                                           "CODES] [--wait] [--copy] | tools delete ID";
Console_Result Tools_command(const Console_Context &context);

inline constexpr const char *recent_usage = "recent list | recent remove RANK";
Console_Result Recent_command(const Console_Context &context);

} // namespace vantrosk
