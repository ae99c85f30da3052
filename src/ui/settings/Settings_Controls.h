#pragma once

#include "platform/Fault.h"
#include "ui/settings/Game_Tabs.h"

#include <QStringList>

#include <functional>

namespace vantrosk {

struct Program;

/// Makes a reference file of a game's folder; its name, empty when it was not made.
using Make_Reference =
    std::function<QString(Program &program, const QString &game_folder, const QString &code)>;

/// What one tab holds. Windows paths.
struct Game_Controls {
    QString game_folder;    ///< without a separator at its end
    QStringList fm_folders; ///< those of this game alone, as they stand in the ini
    QString editor;         ///< a program file
};

/// What the controls of the settings hold. Nothing of it counts before it is saved.
struct Settings_Controls {
    std::array<Game_Controls, game_tab_count> games; ///< in the order of `Game_Tabs`
    QStringList mixed_folders;                       ///< shown on every tab, kept once
    QString t3_saves;
    bool dark_mod_installed = false;
    bool check_for_updates = false;
    QString language; ///< its name
    int toolbar_size = 0;
    QString downloads; ///< address of the site that the user takes missions from
    Make_Reference make_reference;

    Game_Controls &of(const QString &code);
    const Game_Controls &of(const QString &code) const;
};

/// The controls as the main ini has them.
Settings_Controls Open_Settings(Program &program);
/// The main ini as the controls have it, on the disk and in force. Says so when the language changes with the
/// next start.
Fault Save_Settings(Program &program, const Settings_Controls &controls);

/// A folder as it is shown on a tab.
struct Listed_Folder {
    QString folder;
    bool mixed = false;
};
/// The list box of a tab: its own folders, then those of mixed games.
std::vector<Listed_Folder> Listed_Folders(const Settings_Controls &controls, const QString &code);
/// False when the tab lists that folder already, however it is written.
bool Add_Folder(Settings_Controls &controls, const QString &code, const QString &folder);
void Remove_Folder(Settings_Controls &controls, const QString &code, const Listed_Folder &listed);
/// Moves a folder between the tab's own and those of mixed games.
void Mark_Mixed(Settings_Controls &controls, const QString &code, const QString &folder, bool mixed);
/// Forgets where a game is; its mission folders stay.
void Clear_Game(Settings_Controls &controls, const QString &code);

} // namespace vantrosk
