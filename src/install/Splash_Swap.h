#pragma once

#include <QString>
#include <QStringList>

namespace vantrosk {

struct Program;

/// The pictures that games show while they start. A pack's picture takes the place of the game's own for one
/// session: the own one lies beside as ".VKBU" meanwhile; where there was none, an empty ".VKNEW" lies there
/// and says that the picture goes again. So a kill at any moment leaves a way back.

/// Puts one picture of the packs of "T1" or "T2" into the active game's folder.
void Swap_Splash(Program &program, const QString &pack_code);
/// Puts one picture of the packs of The Dark Mod in the place of the mission's own.
void Swap_Dark_Mod_Splash(Program &program, const QString &mission_folder);
/// What this session has swapped comes back.
void Put_back_splashes(Program &program);
/// What an earlier session did not put back comes back: in one game folder; in that of The Dark Mod, where
/// each mission has a folder of its own and which one was played is not known any more; in all that are set
/// up.
void Put_back_splashes_of(Program &program, const QString &game_folder);
void Put_back_mission_splashes(Program &program, const QString &game_folder);
void Put_back_all_splashes(Program &program);

} // namespace vantrosk
