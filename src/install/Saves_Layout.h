#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace vantrosk {

struct Program;

/// What of a game's save folder is a save.
enum class Save_Kind {
    sav_files,     ///< "*.sav" directly in the folder
    shock_folders, ///< "save_0" to "save_14", each whole
    doom_files,    ///< ".save", ".tga" and ".txt" directly in the folder
    profiles,      ///< Thief 3: a folder per profile, in it a folder per save
    listed_files,  ///< a custom game: the extensions that its settings list, down to two folders deep
    none,          ///< this game's saves are not known
};

/// Where a game keeps its saves and where their archives lie. Windows paths.
struct Save_Layout {
    Save_Kind kind = Save_Kind::none;
    QString save_folder;    ///< no trailing "\"
    QString backup_folder;  ///< ends in "\"; empty when nothing can be archived
    QString filter;         ///< as the log names it
    QString unsaved_folder; ///< for what could not be archived
    // Of a custom game; upper case.
    QStringList extensions; ///< each with its dot
    QStringList left_alone; ///< file names that are no saves
};

/// One live file that an archive takes.
struct Save_File {
    QString path;
    QString relative;   ///< to the save folder: its name in the archive
    bool stays = false; ///< archived but not taken away: the game's own index of the folder
};

Save_Layout Save_layout_of(const Program &program, const QString &game_code, const QString &game_path);
/// The live saves, in the order in which they are archived.
std::vector<Save_File> Live_saves(const Program &program, const Save_Layout &layout);
/// System Shock 2: the full paths "save_0" to "save_14".
QStringList Shock_save_folders(const Save_Layout &layout);
/// Whether a tidy path is where this layout would look for a save.
bool Is_save_path(const Save_Layout &layout, const QString &path);

/// Whether the Thief 3 save folder is set up and is nothing but a save folder: not a drive, not the user's
/// home or documents, not a folder that holds the game, the program or missions.
bool Has_thief3_save_folder(const Program &program);

} // namespace vantrosk
