#pragma once

#include <QString>

#include <optional>

namespace vantrosk {

struct Program;

/// A custom game as its button of the quick-bar names it, and where it is installed.
struct Custom_Game_Place {
    QString name;
    QString game_folder; ///< Windows path; empty when it is not set
};
/// By name, without regard to case; nothing when no button has that game.
std::optional<Custom_Game_Place> Find_custom_game(Program &program, const QString &name);

/// Lists the missions of a custom game by its name, as its button of the quick-bar has it. False when no
/// button has that game.
bool Get_archives_of_custom_game(Program &program, const QString &name, int filter = 0);

} // namespace vantrosk
