#pragma once

#include "platform/Fault.h"

#include <QString>

namespace vantrosk {

struct Program;

// The Game Diagnostic Tool: what differs between a game's folder and a listing of a known-good install. Sizes
// and dates are compared, contents are not.

/// Lists a game's folder into a reference file and answers its name: "DIAG_T2_20261121_180459.VKDR", or with
/// the name of a mission that was installed "DIAG_T2_Killing Frost.VKDR". Empty when the folder does not
/// exist or holds no file, and when the file could not be written, which an error box told. `game_name` is a
/// game's code or its name and stands in the file as given; the file's name has the code. Thief 3 is listed
/// from its root, also when its "SYSTEM" folder is given. `game_folder` is a Windows path.
QString create_reference_file(Program &program, const QString &game_folder, const QString &game_name,
                              const QString &fm_name = {});

/// Whether the user wants a listing after each install of a mission; kept in the per-user store, off at
/// first.
bool Wants_reference_after_install(const Program &program);
Fault Set_reference_after_install(Program &program, bool wanted);
/// For whoever has just installed the selected row: lists the game's folder under the mission's name when the
/// user wants it. The name of the file; empty for none, and for the game's own missions.
QString Create_reference_after_install(Program &program);

} // namespace vantrosk
