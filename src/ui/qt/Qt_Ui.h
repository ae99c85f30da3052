#pragma once

#include "core/Full_Lite.h"
#include "ui/Ui.h"

#include <QSize>
#include <QStringList>

#include <deque>
#include <functional>
#include <optional>
#include <vector>

class QUrl;
class QWidget;

namespace vantrosk {

class Files;
class frmMain;
class Trace_Console_Window;
struct Program;

/// What a test or the tour says in the place of a user. Nothing modal is shown while there is a script.
struct Window_Script {
    std::deque<Answer> answers;  ///< taken in order; when none is left, the box's default
    bool agrees = false;         ///< when none is left: yes and OK
    std::deque<QString> inputs;  ///< for input dialogs; when none is left, cancelled
    std::deque<QString> folders; ///< for folder dialogs, native paths; when none is left, cancelled
    std::deque<QString> files;   ///< for file dialogs, native paths; when none is left, cancelled
    std::vector<File_Request> file_requests;
    std::vector<Box> boxes; ///< every box that was due
    std::vector<Input_Request> asked;
    std::optional<Version> version; ///< for the first run's question; nothing leaves all as it is
    QStringList windows;            ///< names of the other windows that were due
    QStringList pauses;             ///< where the trace would have held
    QStringList notes;              ///< files for the notes window
    QStringList status;             ///< every text of status panel 1
    QStringList links;              ///< addresses for the user's browser
    std::function<void(const Box &, Answer)> on_box;
    QSize screen_room; ///< what the screen has room for; empty: as it is
};

/// "text|pattern|text|pattern" as the toolkit's file dialogs want it, each text as it is told. The desktop's
/// own dialogs tell "Thief.exe" from "thief.exe", so the usual spellings stand beside each other.
QString Name_filters(const QString &filter);

/// The desktop window's half of the user-interface layer: hands each call to the window's panels.
class Qt_Ui : public Ui {
public:
    /// Calls before the window is there, or after it is gone, change nothing to see.
    void Attach(frmMain *window);

    /// What turns the paths of dialogs and pictures into native ones.
    void Set_files(const Files &files) { files_ = &files; }
    void Attach_console(Trace_Console_Window *console) { console_ = console; }
    /// What brings the trace console and takes it away.
    std::function<void(bool on)> on_trace_turned;

    std::optional<Window_Script> script;

    /// A folder chosen by the user, a native path; empty when cancelled.
    QString Choose_folder(const QString &title, const QString &start);
    /// The first run's question; nothing when nobody is there to answer.
    std::optional<Version> Ask_version();
    /// Shows a text file beside `parent`; the program goes on meanwhile.
    void Show_notes_over(Program &program, const QString &path, QWidget *parent);
    /// Opens an address in the user's own browser or mail program.
    void Open_link(const QUrl &address);

    Answer show_box(const Box &box) override;
    std::optional<QString> ask_input(const Input_Request &request) override;
    std::optional<QString> choose_file(const File_Request &request) override;
    void set_status_panel(int panel, const QString &text) override;
    void set_status_light(int index, const QString &text) override;
    void set_progress(bool visible, int value, int maximum) override;
    void set_caption(const QString &text) override;
    void set_busy(bool busy) override;
    void games_changed() override;
    void list_changed() override;
    void list_row_changed(int row) override;
    void list_current_row_changed() override;
    void list_visible(bool visible) override;
    void details_changed() override;
    void readme_tabs_changed() override;
    void recent_changed() override;
    void show_details_tab(const QString &key) override;
    void navigate(Browser browser, const QString &page) override;
    void show_notes(const QString &path) override;
    void pump_events() override;
    void trace_turned(bool on) override;
    void trace_line(const QString &text) override;
    void trace_pause(const QString &prompt) override;
    bool save_screenshot(const QString &path) override;

private:
    frmMain *window_ = nullptr;
    Trace_Console_Window *console_ = nullptr;
    const Files *files_ = nullptr;
    bool busy_ = false; ///< as told last, for a window that comes later
};

} // namespace vantrosk
