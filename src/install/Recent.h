#pragma once

#include <QString>

namespace vantrosk {

struct Program;

/// The key of the tab in the details section, and what it is called.
inline constexpr const char *recent_tab_key = "Recently_Used_FMs";
inline constexpr const char *recent_caption = "Recently Used FMs";

/// The selected mission is played: it becomes the first of the ten that are kept. The game's own missions are
/// not recorded. Throws `Program_Error`.
void RecordRecent(Program &program);
/// Fills the tab and the menu. Missions without a record are left out. Throws `Program_Error`.
void Display_recently_used(Program &program);
/// The tab comes or goes as the tweak says.
void Check_Recently_Used_Tab(Program &program);
/// A click on cell `index`: lists the mission's game and selects its row. False when the zip or its row is
/// not there.
bool Recent_Click(Program &program, int index);
/// Takes one entry out; those behind it move up. False when no entry has that rank. Throws `Program_Error`.
bool Remove_recent(Program &program, int rank);

} // namespace vantrosk
