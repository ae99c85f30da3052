#pragma once

#include <QString>

namespace vantrosk {

struct Program;

/// Thief 3 plays missions with one build of "T3MAIN.EXE" only. Offers to put the one that lies in the
/// program's folder in its place, the old one kept as "T3MAIN.EXE.OLD"; tells where it can be had when there
/// is none. Also makes the "user_patch.ini" that the game reads beside its program. `path` is that of
/// "T3.EXE"; nothing for another.
void T3MAIN_exe_Check(Program &program, const QString &path);

} // namespace vantrosk
