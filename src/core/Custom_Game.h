#pragma once

#include <QString>

namespace vantrosk {

/// Where the missions of a game of the user's own are, how it is installed and where its saves lie, as its
/// button's section has it. Set when its list is filled. Windows paths.
struct Custom_Game {
    QString zip_folders;    ///< each with "*#*" behind it
    QString launch_exe;     ///< what is started to play
    QString launch_command; ///< its arguments; "VKMISSIONNAME" and "VKIPADDRESS" stand for what they say
    bool use_map_extension = false; ///< a mission's name in the arguments keeps its extension
    bool use_map_folder = false;    ///< a mission goes by the folder of its map
    QString full_folder_path; ///< not empty: by the map's path; "FULL", a sign and a part that is left out
    QString saves_path;
    QString backup_saves_path; ///< for the archives; empty: nothing is archived
    QString saves_extensions;  ///< without dots, joined by "**"
    QString saves_left_alone;  ///< file names, joined by ","
    bool mod_manage = false;   ///< ".DLL" entries of a mission are installed too
    bool mp3 = false;          ///< sounds become wave files
};

} // namespace vantrosk
