#pragma once

#include "core/Program.h"
#include "support/World.h"
#include "ui/qt/Qt_Ui.h"
#include "ui/qt/frmMain.h"

#include <functional>
#include <memory>

namespace vantrosk {

/// A program with its window in a folder of its own. Boxes and dialogs are answered by `ui.script`.
class Window_World {
public:
    Window_World();
    ~Window_World();

    World files;
    Qt_Ui ui;

    Program &program() { return *program_; }
    Window_Script &script() { return *ui.script; }
    /// Gives a game both folders; native paths are "games/CODE" and "fms/CODE".
    void Set_up_game(const QString &code);
    /// Makes the window and shows it in that size.
    frmMain &Open(int width = 1280, int height = 800);
    frmMain &window() { return *window_; }
    void Close() { window_.reset(); }
    /// The screen's list: original missions first, then `missions` rows named "Mission 0001" and on.
    void Fill_list(int missions, int originals = 1);
    /// A selected mission as after a row click.
    void Select_mission(int row, bool installed);

    /// Lets the window go on until `done`; false after ten seconds.
    static bool Wait_until(const std::function<bool()> &done);

private:
    std::unique_ptr<Program> program_;
    std::unique_ptr<frmMain> window_;
};

/// A row with every cell filled.
Fm_Row Mission_row(int number);

} // namespace vantrosk
