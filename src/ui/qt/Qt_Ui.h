#pragma once

#include "ui/Ui.h"

#include <QStringList>

#include <deque>
#include <functional>
#include <optional>
#include <vector>

class QUrl;

namespace vantrosk {

class frmMain;

/// What a test or the tour says in the place of a user. Nothing modal is shown while there is a script.
struct Window_Script {
    std::deque<Answer> answers;  ///< taken in order; when none is left, the box's default
    bool agrees = false;         ///< when none is left: yes and OK
    std::deque<QString> inputs;  ///< for input dialogs; when none is left, cancelled
    std::deque<QString> folders; ///< for folder dialogs, native paths; when none is left, cancelled
    std::vector<Box> boxes;      ///< every box that was due
    std::vector<Input_Request> asked;
    QStringList notes;  ///< files for the notes window
    QStringList status; ///< every text of status panel 1
    QStringList links;  ///< addresses for the user's browser
    std::function<void(const Box &, Answer)> on_box;
};

/// The desktop window's half of the user-interface layer: hands each call to the window's panels.
class Qt_Ui : public Ui {
public:
    /// Calls before the window is there, or after it is gone, change nothing to see.
    void Attach(frmMain *window);

    std::optional<Window_Script> script;

    /// A folder chosen by the user, a native path; empty when cancelled.
    QString Choose_folder(const QString &title, const QString &start);
    /// Opens an address in the user's own browser or mail program.
    void Open_link(const QUrl &address);

    Answer show_box(const Box &box) override;
    std::optional<QString> ask_input(const Input_Request &request) override;
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
    void navigate(Browser browser, const QString &page) override;
    void show_notes(const QString &path) override;
    void pump_events() override;
    void trace_line(const QString &text) override;
    void trace_pause(const QString &) override {}

private:
    frmMain *window_ = nullptr;
    bool busy_ = false; ///< as told last, for a window that comes later
};

} // namespace vantrosk
