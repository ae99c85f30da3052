#include "Window_Session.h"

#include "Full_Lite_Question.h"
#include "Qt_Ui.h"
#include "Readme_Panel.h"
#include "Trace_Console_Window.h"
#include "frmMain.h"

#include "core/Program.h"
#include "core/mdlFormDisplayFunctions.h"
#include "core/mdlStartup.h"
#include "install/Splash_Swap.h"

namespace vantrosk {

Window_Session::Window_Session(Program &program, Qt_Ui &ui, const QSize &wanted_size)
    : program_(program), ui_(ui), wanted_size_(wanted_size) {
    ui_.Set_files(program.files);
    // What comes before the settings are read, a box or the trace console, shows in the default scheme.
    Apply_theme(Make_Theme(program.tweaks));
    ui_.on_trace_turned = [this](bool on) {
        Show_console(on);
    };
    Register_steps();
}

Window_Session::~Window_Session() {
    ui_.on_trace_turned = nullptr;
    delete console_;
}

void Window_Session::Register_steps() {
    Set_Later_Step(program_, Later_Step::show_trace_console, [this] { Show_console(true); });
    Set_Later_Step(program_, Later_Step::restore_window, [this] { Make_window(); });
    Set_Later_Step(program_, Later_Step::position_panels, [this] {
        if (window_)
            window_->Position_panels();
    });
    Set_Later_Step(program_, Later_Step::lay_out_readme_toolbar,
                   [this] { window_->readme->Lay_out_toolbar(); });
    Set_Later_Step(program_, Later_Step::show_window, [this] { Open_window(); });
    Set_Later_Step(program_, Later_Step::focus_list, [this] { window_->Focus_first(); });
    Set_Later_Step(program_, Later_Step::ask_full_or_lite, [this] { Ask_full_or_lite(); });
    Set_Later_Step(program_, Later_Step::show_settings, [this] { window_->Show_settings(); });
}

bool Window_Session::Start(const QString &switches) {
    const auto load = [this, &switches] {
        return Load_Stage(program_, switches);
    };
    if (!Start_Process(program_, load) || !window_)
        return false;
    Put_back_all_splashes(program_);
    Initialise_Stage(program_);
    // What the start did last, a column that was added, says nothing to who uses it now.
    if (program_.screen.status_light == 1)
        Set_Status_Panel(program_, 1, QStringLiteral("Ready"));
    return !program_.start.end_requested;
}

void Window_Session::Make_window() {
    window_ = std::make_unique<frmMain>(program_, ui_);
    // Every window goes with the main window.
    QObject::connect(window_.get(), &frmMain::Closed, window_.get(), [this] {
        if (console_)
            console_->close();
    });
}

void Window_Session::Open_window() {
    window_->Open();
    if (!wanted_size_.isEmpty())
        window_->resize(wanted_size_);
}

void Window_Session::Show_console(bool on) {
    if (window_)
        window_->Show_trace_entry(on);
    if (!on) {
        if (console_) {
            console_->close();
            console_->deleteLater();
            console_.clear();
        }
        return;
    }
    if (!console_)
        console_ = new Trace_Console_Window(program_, ui_);
    console_->show();
    console_->raise();
    console_->activateWindow();
}

void Window_Session::Ask_full_or_lite() {
    if (const auto version = ui_.Ask_version())
        Choose_Version(program_, *version);
}

} // namespace vantrosk
