#pragma once

#include <QString>

namespace vantrosk {

/// How a game of the user's own is installed and where its saves lie, as its button's section has it. Set
/// when its list is filled. Windows paths.
struct Custom_Game {
    QString saves_path;
    QString backup_saves_path; ///< for the archives; empty: nothing is archived
    QString saves_extensions;  ///< without dots, joined by "**"
    QString saves_left_alone;  ///< file names, joined by ","
    bool mod_manage = false;   ///< ".DLL" entries of a mission are installed too
    bool mp3 = false;          ///< sounds become wave files
};

} // namespace vantrosk
