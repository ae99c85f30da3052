#pragma once

#include "platform/Files.h"
#include "ui/Ui.h"

#include <QStringList>

#include <deque>
#include <functional>

namespace vantrosk {

/// Where the console face writes and what it answers.
struct Console_Streams {
    std::function<void(const QString &line)> out;
    std::function<void(const QString &line)> err;
    bool show_progress = false; ///< standard error is a terminal
};

/// The console face: boxes become lines on standard error, answered in order from the command line. What a
/// console can not show it leaves out.
class Console_Ui : public Ui {
public:
    /// `files` turns paths into native ones for the user's eyes; null leaves them.
    Console_Ui(Console_Streams streams, QStringList answers, const Files *files = nullptr);

    /// Every text that status panel 1 showed, in order: the outcome of an install is among them.
    const QStringList &panel_1_texts() const { return panel_1_texts_; }
    void forget_panel_texts() { panel_1_texts_.clear(); }

    Answer show_box(const Box &box) override;
    std::optional<QString> ask_input(const Input_Request &request) override;
    void set_status_panel(int panel, const QString &text) override;
    void set_status_light(int, const QString &) override {}
    void set_progress(bool, int, int) override {}
    void set_caption(const QString &) override {}
    void set_busy(bool) override {}
    void games_changed() override {}
    void list_changed() override {}
    void list_row_changed(int) override {}
    void list_current_row_changed() override {}
    void list_visible(bool) override {}
    void details_changed() override {}
    void readme_tabs_changed() override {}
    void navigate(Browser, const QString &) override {}
    void show_notes(const QString &path) override;
    void pump_events() override {}
    void trace_line(const QString &) override {}
    void trace_pause(const QString &) override {}
    bool has_screen() const override { return false; }

private:
    void report(const char *kind, const QString &title, const QString &text, const QString &answer);

    Console_Streams streams_;
    const Files *files_;
    std::deque<QString> answers_;
    QStringList panel_1_texts_;
};

} // namespace vantrosk
