#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace vantrosk {

/// What the player set for games over the network, on the tab of that name.
struct Multi_Player_Options {
    bool in_front = false; ///< the tab is the one that shows
    bool joins = false;    ///< else hosts
    QString host_address, character_name;
};

/// What the main window's options say about the next start of a game, and what a start has changed until it
/// is put back.
struct Play_State {
    bool map = false, dual_screen = false; ///< the mission's map is shown beside the game
    /// Makes the map ready for the game of that program file. Whoever takes over the start clears
    /// `launch_pending`; nothing is made ready while nobody has said what does it.
    std::function<void(const QString &exe_name)> prepare_map;
    Multi_Player_Options multi_player;
    bool launch_pending = false;  ///< a start that is still to be made
    QStringList swapped_pictures; ///< Windows paths of start-up pictures that are not the game's own now
};

} // namespace vantrosk
