#pragma once

#include "platform/Fault.h"

#include <QString>

namespace vantrosk {

struct Program;

/// What a player chose for a System Shock 2 game over the network.
struct Netplay_Settings {
    bool joins = false;     ///< else hosts
    QString host_address;   ///< used when joining
    QString character_name; ///< of the player
    QString game_name;      ///< under which a hosted game is seen
};

/// Puts the settings into "cam.cfg" of the System Shock 2 folder and tells the user what to choose in the
/// game. The first state of the file stays as "cam.cfg.VKBU". Nothing, but a trace line, without the file.
void WriteNetplayConfig(Program &program, const Netplay_Settings &settings);

/// What of a game may be changed without a question that was answered with Yes.
enum class Unasked { may_add_a_line, changes_nothing };

/// A Dark Engine game that was installed in a minimal way reads its resources from the disc. Asks, and gives
/// the game a resource folder of its own: files that lie in the game's folder are moved there, those of a
/// disc are copied, and "install.cfg" is switched when they are in place. Its old state stays as
/// "OLDinstall.cfg". Also stops the game's own checks at its start. `game_path` without a trailing "\".
void OptimiseDarkInstall(Program &program, const QString &game_path, const QString &game_code,
                         Unasked unasked = Unasked::may_add_a_line);

} // namespace vantrosk
