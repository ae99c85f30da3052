#pragma once

#include "ui/console/Console_Commands.h"

namespace vantrosk {

// What the user says of one mission, and what its readme says.

inline constexpr const char *score_usage = "score GAME ZIP [--score N] [--review TEXT] [--finished LIST]";
inline constexpr const char *reset_usage = "reset GAME ZIP";
inline constexpr const char *fields_usage = "fields FILE";

Console_Result Score_command(const Console_Context &context);
Console_Result Reset_command(const Console_Context &context);
Console_Result Fields_command(const Console_Context &context);

} // namespace vantrosk
