#pragma once

#include <QString>

namespace vantrosk {

struct Program;

/// Windows path of the editor of the active game: the one that is configured, else the one in the game's
/// folder; empty for none.
QString Editor_program(const Program &program);
/// Names the editor button after the active game's editor and enables it where that editor is installed.
void SetUp_Dromed(Program &program);

} // namespace vantrosk
