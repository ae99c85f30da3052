#pragma once

#include "core/Games.h"

#include <array>

namespace vantrosk {

/// One game's tab of the settings. Where its folder and its mission folders are kept stands in core/Games.h.
struct Game_Tab {
    const char *code;
    const char *caption;       ///< also what the texts call the game
    QString Main_Ini::*editor; ///< null for a game without one
    const char *program_file;  ///< what the user points at; empty for whatever the filter lets through
    const char *filter, *editor_filter;
    const char *listing_name = ""; ///< what the offer of a reference file calls the game; else the caption

    const Game &game() const { return *Find_Game(code); }
    QString reference_name() const { return *listing_name ? listing_name : caption; }
};

constexpr std::size_t game_tab_count = 8;
/// In the order of the game table.
const std::array<Game_Tab, game_tab_count> &Game_Tabs();
/// Null for a code without a tab.
const Game_Tab *Find_Game_Tab(const QString &code);

/// What the green plus lets the user point at.
inline constexpr const char *fm_filter = "Fan Missions (*.zip *.ss2mod)|*.zip *.ss2mod|All files (*)|*";

} // namespace vantrosk
