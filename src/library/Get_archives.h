#pragma once

#include "core/Custom_Game.h"

#include <QString>

namespace vantrosk {

struct Program;

/// What a list is filled with, in the order of the scan's arguments.
struct Archives_Request {
    QString folders;           ///< the game's zip folders, each with "*#*" behind it
    QString game_key;          ///< "T1", "TG", "T2", "T3", "DM", "DMOD", "T2X", "SS2" or "CUSTOM"
    QString custom_name;       ///< name of the custom game; empty for other keys
    int custom_image = 0;      ///< index of its icon
    QString custom_extensions; ///< its mission extensions, joined by "**"
    QString custom_game_path;
    QString custom_mission_folder; ///< where its missions lie in the zip: a folder, or "REGEX:" and a pattern
    Custom_Game custom;            ///< what else its button's section has
    int filter = 0; ///< 0 none; 1-4, 11-14 ratings; 21-24 played and completed; 31 on categories
};

/// Fills the list for one game: walks its folders, decides for every zip whether it is a mission for this
/// game, adds rows to the database and to the list, and reports what it could not place.
void Get_archives(Program &program, const Archives_Request &request);
/// The same for a built-in game with its configured folders.
void Get_archives_of_game(Program &program, const QString &game_code, int filter = 0);

/// "EA,N,H,EX" for a sum of difficulty weights (1, 3, 5, 11); "I" in the place of "EX" for SS2.
QString Finished_Text(int completed, const QString &game_code);
/// Number of the picture beside a score, 0 to 10.
int Score_Picture(const QString &score);

} // namespace vantrosk
