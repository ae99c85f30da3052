#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <vector>

namespace vantrosk {

struct Program;

/// One row of the game table. Its order is its own, not that of the game menu; the last of the rows is empty.
struct Game_Table_Row {
    QString name, code, number;
    QString fm_folders; ///< as in the main ini at its last reading or writing
};
constexpr std::size_t game_table_size = 9;
using Game_Table = std::array<Game_Table_Row, game_table_size>;

void Fill_Game_Table(Program &program);
/// Called after every reading and writing of the main ini.
void Copy_Folders_To_Game_Table(Program &program);

/// A custom game of the quick-bar.
struct Quick_Bar_Game {
    QString GameName, ToolTip, FMpath;
};
/// The games among the first ten buttons of the quick-bar ini.
void Read_Quick_Bar_Games(Program &program);

/// One row of the summary of all lists, as of their last scans.
struct Library_Summary_Row {
    int list_number = 0;
    QString game_name;
    qint64 zip_size = 0; ///< bytes
    int zip_count = 0, FMs_completed = 0, saves_count = 0;
};
void Load_Library_Summary(Program &program);

/// Headings of the three summary grids, split at commas.
inline constexpr const char *fm_folder_headings =
    "Game,Archive,Author,Last Played,Zip Size,Unzipped Size,Status";
inline constexpr const char *resource_headings = "Sounds,Gamesys,Scripts,Graphics,Objects,Movies,Automap,Map";
inline constexpr const char *library_summary_headings = "Game,FMs,Total Size,Finished,Save Zips";

/// A text that is offered when the user writes to an author from a readme; `content` as stored, encoded.
struct Email_Template {
    QString type; ///< "Email_APlus", "Email_High", "Email_Average", "Email_Low" or "Email_Basic"
    QString content;
};
/// Reads the five templates, and stores the built-in text of each that is missing.
void Load_Email_Templates(Program &program);

} // namespace vantrosk
