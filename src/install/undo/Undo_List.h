#pragma once

#include "platform/Fault.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace vantrosk {

struct Program;

/// "current_install.txt" of a game folder: what that folder holds and how to undo it. Text, CR LF, six lines
/// and more: "[ZIP LOCATION]", the zip's full path ("Original" or "Original T2X" for the game's own
/// missions),
/// "[ZIP NAME]", the zip's name (empty for the originals), "[ZIP CONTENTS]", then one installed path a line.
struct Undo_List {
    QString location;
    QString zip_name;
    QStringList files;

    bool is_original() const; ///< the marker of the game's own missions
};

inline constexpr const char *undo_list_name = "current_install.txt";
QString Undo_list_path(const QString &game_path);

/// Nothing when there is no list or it can not be read. Empty lines are passed over; a list cut off anywhere
/// gives what is there.
std::optional<Undo_List> Read_undo_list(const Program &program, const QString &game_path);
Fault Write_undo_list(Program &program, const QString &game_path, const Undo_List &list);
/// The marker: location "Original", for T2X as the current game "Original T2X", no name, no contents.
Fault WriteOriginalMarker(Program &program, const QString &game_path);

/// Whether the folder holds that row: `fm_name` is the zip cell of a list row. Zip names compare whole.
/// Without a list the answer is true for original missions and for T2X.
bool IsCurrentlyInstalled(const Program &program, const QString &game_path, const QString &fm_name,
                          const QString &game_code);
/// A row of the game's own missions: begins "Original" and is no ".zip".
bool Is_original_row(const QString &zip_cell);

} // namespace vantrosk
