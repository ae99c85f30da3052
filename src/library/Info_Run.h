#pragma once

#include "core/Program.h"
#include "library/Get_Info_Entries.h"
#include "readme/mdlHTML_stuff.h"
#include "zip/mUnzip.h"

#include <QString>

namespace vantrosk {

// The parts of `Get_Info`: what they share of one selection.

/// One run of `Get_Info`.
struct Info_Run {
    QString zip_name;
    QString key;         ///< code of the list
    QString list_game;   ///< what records of this list have as game: the code, or the custom game's name
    QString zip_path;    ///< empty when no folder of the list holds the zip
    qint64 zip_size = 0; ///< bytes
    Entry_Findings found;

    Recordset record;    ///< no row or one: what the database knows of this zip in this list
    QString record_game; ///< its game, what every later statement names; empty without a record
    bool record_says_installed = false;
    bool has_record() const { return !record_game.isEmpty(); }

    QString menu_picture; ///< `WELCOMEPIC` as a bitmap in INFO
};

/// A file of INFO by its name; the folder itself, without a trailing separator, for an empty one.
QString In_info(const Program &program, const QString &name);

// Get_Info_Zip.cpp
/// Reads the central directory, classifies every entry and extracts what the details need.
Fault List_and_extract(Program &program, Info_Run &run);

// Get_Info_Picture.cpp
/// Turns pictures that a page or the details name into bitmaps, before anything names them.
void Convert_pictures(Program &program, Info_Run &run);
/// Chooses the picture of the details panel and keeps one for the list of recent missions.
void Show_Picture(Program &program, const Info_Run &run);

// Get_Info_Page.cpp
/// What the readme's page tells beside the readme: the record, the row, the languages, the picture.
Page_Facts Facts_of_selection(const Program &program, const Info_Run &run);

// Get_Info_Display.cpp
/// Shows the readme as a page, or "about:blank".
void Show_Readme(Program &program, const Info_Run &run);
/// The page that tells why a zip can not be read.
void Show_Unreadable_Zip(Program &program, const Fault &fault);
/// Fills the fields of the details panel that are still empty from a text readme.
void Get_TXT_Readme_info(Program &program, const QString &path);
/// The same from a VKML readme.
void Get_VKML_Readme_info(Program &program, const QString &path);

// Get_Info_Tabs.cpp
/// Adds the tabs that the selected mission has a reason for and removes all others.
void Show_Tabs(Program &program, const Info_Run &run);
void Remove_Tabs(Program &program);
/// Keeps the mission's loot list where the loot tool looks for lists.
void Keep_Loot_List(Program &program, const Info_Run &run);

// Get_Info_Game.cpp
/// Settles the active game; asks when nothing else decides.
void Settle_Game(Program &program, const Info_Run &run);

// Get_Info_Record.cpp
/// The records that a list takes, as the end of a condition: some lists show the missions of a second game.
QString Game_condition(const QString &key);
void Read_Record(Program &program, Info_Run &run);
/// Score, review and community fields of the record; mends a missing name.
void Show_Record(Program &program, const Info_Run &run);
/// Gives a record to a mission that had none.
void Insert_Record(Program &program, Info_Run &run);
void Set_Installed(Program &program, const Info_Run &run, bool installed);

// Get_Info_Installed.cpp
/// Compares the record with the undo list of the game folder, mends the record, and tells of kept saves.
void Show_Installed_State(Program &program, Info_Run &run);

} // namespace vantrosk
