#pragma once

#include <QString>

namespace vantrosk {

struct Program;

/// Lists the missions of a custom game by its name, as its button of the quick-bar has it. False when no
/// button has that game.
bool Get_archives_of_custom_game(Program &program, const QString &name, int filter = 0);

} // namespace vantrosk
