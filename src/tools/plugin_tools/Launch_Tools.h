#pragma once

#include "tools/plugin_tools/Plugin_Tools.h"

namespace vantrosk {

/// The tools that run at each start of the active game, by name. Throws `Program_Error`.
std::vector<Plugin_Tool> Tools_of_current_game(Program &program);
/// The tools of a button: their ids, joined by ",". Throws `Program_Error`.
std::vector<Plugin_Tool> Tools_of_button(Program &program, const QString &ids);
/// Starts them one after the other, a second apart. One whose file is missing or not what it was is passed
/// over; one that is to be waited for has ended when its turn is over.
void Launch_Tools(Program &program, const std::vector<Plugin_Tool> &tools);

} // namespace vantrosk
