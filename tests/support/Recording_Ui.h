#pragma once

#include "ui/Ui.h"

#include <QStringList>

#include <deque>
#include <functional>
#include <vector>

namespace vantrosk {

/// A face that records what it was told and answers from a script.
class Recording_Ui : public Ui {
public:
    std::deque<Answer> answers; ///< taken in order; when none is left, the box's default
    std::deque<QString> inputs; ///< for input dialogs; when none is left, cancelled
    std::deque<QString> files;  ///< for file dialogs, Windows paths; when none is left, cancelled
    std::vector<File_Request> file_requests; ///< every file dialog
    std::vector<Box> boxes;                  ///< every box shown
    std::vector<Input_Request> asked;        ///< every input dialog
    QStringList panel_1, panel_2;            ///< every text of the two panels, in order
    std::vector<int> lights;
    QStringList pages;       ///< everything the readme browser was sent to
    QStringList third_pages; ///< the same of the browser behind the further tabs
    QStringList notes;       ///< files shown in the notes window
    QString caption;
    QStringList trace;
    std::function<void()> on_pump; ///< run at every pump_events, for what a user does meanwhile
    int pumped = 0;

    QStringList box_texts() const;

    Answer show_box(const Box &box) override;
    std::optional<QString> ask_input(const Input_Request &request) override;
    std::optional<QString> choose_file(const File_Request &request) override;
    void set_status_panel(int panel, const QString &text) override;
    void set_status_light(int index, const QString &text) override;
    void set_progress(bool, int, int) override {}
    void set_caption(const QString &text) override { caption = text; }
    void set_busy(bool) override {}
    void games_changed() override {}
    void list_changed() override {}
    void list_row_changed(int) override {}
    void list_current_row_changed() override {}
    void list_visible(bool) override {}
    void details_changed() override {}
    void readme_tabs_changed() override {}
    void navigate(Browser browser, const QString &page) override;
    void show_notes(const QString &path) override { notes << path; }
    void pump_events() override;
    void trace_line(const QString &text) override { trace << text; }
    void trace_pause(const QString &) override {}
};

} // namespace vantrosk
