#pragma once

#include <QString>
#include <QStringList>

#include <span>

namespace vantrosk {

struct Program;

/// One game of the Game Diagnostic Tool.
struct Diag_Game {
    const char *caption; ///< of its tab
    const char *code;    ///< in the names of its reference files
    const char *intro;   ///< what the report says that it compares with; empty for nothing
};

/// In the order of the tabs. The last takes every game that has no tab of its own.
std::span<const Diag_Game> Diag_Games();
inline constexpr const char *custom_diag_code = "CUSTOM";
/// What the report of a game begins with; empty for a game without a tab.
QString Diag_intro(const QString &code);
/// The folder that is configured for a game, its root for Thief 3; empty when it is not set up.
QString Diag_folder(const Program &program, const QString &code);

/// The code in file names of a game that is told by its code, its name or the caption of its tab. Doom 3 is
/// installed in the folder of The Dark Mod and counts as that. Any other text is the code of a custom game.
QString Listing_code(const QString &game);
/// The folder that a game is listed from: the root of Thief 3, also when its "SYSTEM" folder is given.
QString Listing_root(const QString &code, const QString &folder);

/// "DIAG_T2_20261121_180459.VKDR", for now.
QString Dated_reference_name(const Program &program, const QString &code);
/// "DIAG_T2_Killing Frost.VKDR". Characters that a file name can not hold become "_".
QString Mission_reference_name(const QString &code, const QString &fm_name);

/// The names of the files in `references` that belong to a game, sorted. A file of a game without a tab is
/// among those of the last.
QStringList Reference_names(const Program &program, const QString &code);

} // namespace vantrosk
