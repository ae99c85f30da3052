#pragma once

#include "install/Play.h"

namespace vantrosk {

// What the kinds of games share of a start, and the starts that ask or look around first.

/// Starts a program of the active game's folder. A start that the system refuses is told in the result.
Play_Result Start_game(Program &program, const QString &file, const QString &arguments);
/// The same of any program and folder.
Play_Result Start_program(Program &program, const Start_Request &request);

Play_Result Start_doom(Program &program);
Play_Result Start_dark_mod(Program &program);
Play_Result Start_custom_game(Program &program);

} // namespace vantrosk
