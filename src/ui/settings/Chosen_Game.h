#pragma once

#include "install/Game_Config.h"
#include "ui/settings/Settings_Controls.h"

namespace vantrosk {

/// The button of step 1: asks for the game's program file and takes its folder. A cancelled dialog changes
/// nothing.
void Locate_Game(Program &program, Settings_Controls &controls, const QString &code);
/// The same for a file that is chosen already: its folder, and what has to be asked about that game.
void Take_Game(Program &program, Settings_Controls &controls, const QString &code,
               const QString &program_file);
/// The green plus. The folder that was chosen; empty for none.
QString Locate_Missions(Program &program, Settings_Controls &controls, const QString &code);
void Locate_Editor(Program &program, Settings_Controls &controls, const QString &code);

/// What a Dark Engine game needs to play missions without its disc. Every change of the game is asked for,
/// but for one line of "Cam.cfg" that may be added.
void t1_optomisation_check(Program &program, const QString &path, const QString &game, Unasked unasked);

/// Whether The Dark Mod lies in a Doom 3 folder.
bool Has_Dark_Mod(const Program &program, const QString &game_folder);

} // namespace vantrosk
