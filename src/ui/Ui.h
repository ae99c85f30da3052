#pragma once

#include <QString>

#include <optional>

namespace vantrosk {

enum class Box_Kind { information, warning, critical, question };
enum class Buttons { ok, ok_cancel, yes_no };
enum class Answer { ok, cancel, yes, no };

/// A message box. The default answer is the safe one: it is what Escape gives, and what a face that can not
/// ask takes.
struct Box {
    Box_Kind kind = Box_Kind::information;
    QString title;
    QString text;
    Buttons buttons = Buttons::ok;
    Answer default_answer = Answer::ok;
};

/// An input dialog. The result is nothing when the user cancels.
struct Input_Request {
    QString title;
    QString prompt;
    QString required_start; ///< what the text must begin with, in any case; empty for no rule
    QString default_text;
    QString second_button;
};

/// A file that the user is to point at.
struct File_Request {
    QString title;
    QString filter;       ///< "told text|pattern", one or more joined by "|"; empty for any file
    QString start_folder; ///< Windows path; empty for wherever the face begins
};

/// The readme area has three browsers: the readme, the review or form tab, and the detached window.
enum class Browser { readme, third, detached };

/// What the procedures need of a face. A face shows and asks; it decides nothing. State that a face shows is
/// kept in `Screen` (core/Screen.h); the calls here say what of it has changed.
class Ui {
public:
    virtual ~Ui() = default;

    // Boxes.
    virtual Answer show_box(const Box &box) = 0;
    virtual std::optional<QString> ask_input(const Input_Request &request) = 0;
    /// The Windows path of the file that the user chose; nothing when cancelled, or where a face can not ask.
    virtual std::optional<QString> choose_file(const File_Request &request) {
        static_cast<void>(request);
        return std::nullopt;
    }

    // The status bar. Panels are numbered 1 (what goes on) and 2 (of what, how far); the light is panel 5.
    virtual void set_status_panel(int panel, const QString &text) = 0;
    virtual void set_status_light(int index, const QString &text) = 0;
    virtual void set_progress(bool visible, int value, int maximum) = 0;

    // The main window.
    virtual void set_caption(const QString &text) = 0;
    /// While busy the window takes no clicks but repaints.
    virtual void set_busy(bool busy) = 0;
    virtual void games_changed() = 0;            ///< which games are set up, or the current one
    virtual void list_changed() = 0;             ///< the whole list
    virtual void list_row_changed(int row) = 0;  ///< the cells of one row
    virtual void list_current_row_changed() = 0; ///< current row or top row
    virtual void list_visible(bool visible) = 0; ///< hidden while it is filled
    virtual void details_changed() = 0;          ///< the details panel, buttons included
    virtual void readme_tabs_changed() = 0;
    virtual void recent_changed() {} ///< the missions that were played last
    /// Brings a page of the details section to the front: "FMOptions" and the like.
    virtual void show_details_tab(const QString &key) { static_cast<void>(key); }
    /// `page` is a Windows path, a URL or "about:blank".
    virtual void navigate(Browser browser, const QString &page) = 0;
    /// Shows a text file in the notes window.
    virtual void show_notes(const QString &path) = 0;

    /// Lets the window repaint and the user click. Long procedures call it and nobody else.
    virtual void pump_events() = 0;

    /// The trace was turned on or off: its console comes or goes.
    virtual void trace_turned(bool on) { static_cast<void>(on); }
    /// One line of the trace, when the trace console is on.
    virtual void trace_line(const QString &text) = 0;
    /// Holds until the user presses "Continue >".
    virtual void trace_pause(const QString &prompt) = 0;

    /// Whether there is a screen to take a picture of.
    virtual bool has_screen() const { return true; }
    /// Saves a picture of the whole screen as a bitmap under this Windows path, replacing what is there.
    /// False when there is none.
    virtual bool save_screenshot(const QString &path) {
        static_cast<void>(path);
        return false;
    }
};

} // namespace vantrosk
