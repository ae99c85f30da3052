#pragma once

#include "Key_Manners.h"
#include "Trace_Console_Window.h"

#include <QPointer>
#include <QSize>

#include <memory>

namespace vantrosk {

struct Program;
class Qt_Ui;
class frmMain;

/// The windows of one running program, and what of the start and of the ticks is theirs.
class Window_Session {
public:
    /// Says to the start what the windows do of it.
    Window_Session(Program &program, Qt_Ui &ui, const QSize &wanted_size = {});
    ~Window_Session();

    frmMain *window() const { return window_.get(); }
    Trace_Console_Window *console() const { return console_; }

    /// Load and initialisation. False when the process is to end; the user was told why.
    bool Start(const QString &switches);

private:
    void Register_steps();
    void Make_window();
    void Open_window();
    void Show_console(bool on);
    void Ask_full_or_lite();

    Program &program_;
    Qt_Ui &ui_;
    QSize wanted_size_;
    Key_Manners manners_;
    std::unique_ptr<frmMain> window_;
    QPointer<Trace_Console_Window> console_;
};

} // namespace vantrosk
