#pragma once

namespace vantrosk {

struct Program;

/// Names the editor button after the active game's editor and enables it where that editor is installed.
void SetUp_Dromed(Program &program);

} // namespace vantrosk
