#pragma once

#include "ui/Ui.h"
#include "ui/settings/Settings_Controls.h"

#include <optional>

namespace vantrosk {

/// Lets the user point at a file. Nothing when cancelled, when the file lies on a CD or DVD, and when its
/// path can not be kept in the ini; of the last two the user is told.
std::optional<QString> Get_Folder_Core(Program &program, const File_Request &request, const QString &code);

/// The program file of a tab's game; its folder is the game's.
std::optional<QString> get_folder(Program &program, const Settings_Controls &controls, const QString &code);
/// The folder of a mission that the user points at, for the list box of a tab; ends in a separator.
std::optional<QString> Get_Folder_For_ListBox(Program &program, const Settings_Controls &controls,
                                              const QString &code);
/// The program file of a game's editor.
std::optional<QString> Get_Editor(Program &program, const Settings_Controls &controls, const QString &code);

} // namespace vantrosk
