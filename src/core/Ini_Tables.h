#pragma once

#include "core/Ini_Values.h"
#include "core/mdlFile_Functions.h"

#include <span>
#include <variant>

namespace vantrosk {

/// The one place of a value; what it points to says how its text is read and written.
using Value_Place = std::variant<QString *, bool *, int *>;

/// One key of "Vantrosk.ini".
struct Main_Row {
    const char *key; ///< without brackets
    Ini_Kind kind;
    Value_Place (*place)(Main_Ini &ini);
};

/// What is out of the ordinary about one key of "Vantrosk_Tweaks.ini".
struct Row_Notes {
    int font_size_fall_back = 0; ///< taken for a text that is no number; 0: not a font size
    bool is_short = false;       ///< 16 bits wide
    bool is_read = true;         ///< false: written and never read back
};

/// One key of "Vantrosk_Tweaks.ini". The values are texts as in the file; nullptr leaves what is there.
struct Tweaks_Row {
    const char *key; ///< without brackets
    Value_Place (*place)(Tweaks &tweaks);
    const char *at_start;     ///< set before every read
    const char *without_file; ///< set when there is no such file
    Row_Notes notes = {};
};

/// Both in writing order.
std::span<const Main_Row> Main_rows();
std::span<const Tweaks_Row> Tweaks_rows();

inline constexpr const char *default_font_family = "MS Sans Serif";

} // namespace vantrosk
