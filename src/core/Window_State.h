#pragma once

namespace vantrosk {

struct Program;

/// What of the window's status is stored.
enum class Saved_Status {
    form,         ///< "FORM": size, and whether it fills the screen
    splitter,     ///< "SPLITTER": height of the FM list
    column_widths ///< "COLWIDTHS": every column of the FM list
};

/// Stores that part of `screen.window` in the per-user settings store, and the columns whatever the kind
/// `with_columns`. Nothing happens without a window, or while a box stands over it.
void Save_Status(Program &program, Saved_Status kind, bool with_columns = false);

/// Fills `screen.window` from the store; 0 where nothing usable was stored.
void Restore_Window_Geometry(Program &program);
/// Fills the column widths; none at all when none was ever stored, which leaves them to the automatic sizing.
void Restore_Column_Widths(Program &program);
/// Whether the user's tweaks let a column of the FM list be seen.
bool Column_Is_Shown(const Program &program, int column);

} // namespace vantrosk
