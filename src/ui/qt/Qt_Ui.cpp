#include "Qt_Ui.h"

#include "Details_Panel_View.h"
#include "Details_Tabs.h"
#include "Error_Box.h"
#include "Fm_List_Panel.h"
#include "Full_Lite_Question.h"
#include "Game_Toolbar.h"
#include "Message_Boxes.h"
#include "Notes_Window.h"
#include "Readme_Panel.h"
#include "Screen_Picture.h"
#include "Status_Bar.h"
#include "Trace_Console_Window.h"
#include "frmMain.h"

#include "platform/Files.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QImage>
#include <QStandardPaths>
#include <QUrl>

#include <cstdio>

namespace vantrosk {

namespace {

template<typename Value>
std::optional<Value> Take_first(std::deque<Value> &queue) {
    if (queue.empty())
        return std::nullopt;
    const Value first = queue.front();
    queue.pop_front();
    return first;
}

/// Where downloads land when nothing is known: missions come from there.
QString Start_folder(const Files *files, const File_Request &request) {
    if (files && !request.start_folder.isEmpty())
        return files->to_native(request.start_folder);
    const QString downloads = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
    return QFileInfo(downloads).isDir() ? downloads : QDir::homePath();
}

Answer Scripted_answer(Window_Script &script, const Box &box) {
    script.boxes.push_back(box);
    if (box.buttons == Buttons::ok)
        return Answer::ok;
    if (const auto answer = Take_first(script.answers))
        return *answer;
    if (!script.agrees)
        return box.default_answer;
    return box.buttons == Buttons::yes_no ? Answer::yes : Answer::ok;
}

} // namespace

QString Name_filters(const QString &filter) {
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString pattern = parts[i + 1];
        QStringList spellings{pattern, pattern.toUpper(), pattern.left(1).toUpper() + pattern.mid(1)};
        spellings.removeDuplicates();
        filters << QStringLiteral("%1 (%2)").arg(parts[i], spellings.join(u' '));
    }
    return filters.join(QStringLiteral(";;"));
}

void Qt_Ui::Attach(frmMain *window) {
    window_ = window;
    if (window_)
        window_->Set_busy(busy_);
}

QString Qt_Ui::Choose_folder(const QString &title, const QString &start) {
    if (script)
        return Take_first(script->folders).value_or(QString());
    return QFileDialog::getExistingDirectory(window_, title, start);
}

void Qt_Ui::Open_link(const QUrl &address) {
    if (script)
        script->links << address.toString();
    else
        QDesktopServices::openUrl(address);
}

Answer Qt_Ui::show_box(const Box &box) {
    if (script) {
        const Answer answer = Scripted_answer(*script, box);
        if (script->on_box)
            script->on_box(box, answer);
        return answer;
    }
    QWidget *parent = QApplication::activeModalWidget();
    if (!parent)
        parent = window_;
    if (Error_Box::Is_for(box)) {
        Error_Box shown(box, parent);
        shown.exec();
        return shown.answer();
    }
    const auto shown = Make_box(box, parent);
    return Answer_of(*shown, shown->exec());
}

std::optional<QString> Qt_Ui::ask_input(const Input_Request &request) {
    if (script) {
        script->asked.push_back(request);
        return Take_first(script->inputs);
    }
    Input_Dialog dialog(request, window_);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.text();
}

std::optional<QString> Qt_Ui::choose_file(const File_Request &request) {
    QString chosen;
    if (script) {
        script->file_requests.push_back(request);
        chosen = Take_first(script->files).value_or(QString());
    } else {
        QWidget *parent = QApplication::activeModalWidget();
        chosen = QFileDialog::getOpenFileName(parent ? parent : window_, request.title,
                                              Start_folder(files_, request), Name_filters(request.filter),
                                              nullptr, QFileDialog::HideNameFilterDetails);
    }
    if (chosen.isEmpty())
        return std::nullopt;
    return files_ ? files_->to_windows(chosen) : chosen;
}

void Qt_Ui::set_status_panel(int panel, const QString &text) {
    if (script && panel == 1)
        script->status << text;
    if (window_)
        window_->status->Show_panel(panel, text);
}

void Qt_Ui::set_status_light(int index, const QString &text) {
    if (window_)
        window_->Show_light(index, text);
}

void Qt_Ui::set_progress(bool visible, int value, int maximum) {
    if (window_)
        window_->status->Show_progress(visible, value, maximum);
}

void Qt_Ui::set_caption(const QString &text) {
    if (window_)
        window_->setWindowTitle(text);
}

void Qt_Ui::set_busy(bool busy) {
    busy_ = busy;
    if (window_)
        window_->Set_busy(busy);
}

void Qt_Ui::games_changed() {
    if (window_)
        window_->Refresh_games();
}

void Qt_Ui::list_changed() {
    if (window_)
        window_->Refresh_list();
}

void Qt_Ui::list_row_changed(int row) {
    if (window_)
        window_->list->Refresh_row(row);
}

void Qt_Ui::list_current_row_changed() {
    if (window_)
        window_->list->Refresh_current_row();
}

void Qt_Ui::list_visible(bool visible) {
    if (window_)
        window_->list->Show_rows(visible);
}

void Qt_Ui::details_changed() {
    if (window_)
        window_->Refresh_details();
}

void Qt_Ui::readme_tabs_changed() {
    if (window_)
        window_->readme->Refresh_tabs();
}

void Qt_Ui::recent_changed() {
    if (window_)
        window_->Refresh_recent();
}

void Qt_Ui::show_details_tab(const QString &key) {
    if (window_)
        window_->details_tabs->Show(key);
}

void Qt_Ui::navigate(Browser browser, const QString &page) {
    if (!window_)
        return;
    if (browser == Browser::readme)
        window_->Show_page(page);
    else if (browser == Browser::third)
        window_->readme->Show_third_page(page);
    else
        window_->readme->Show_detached_page(page);
}

void Qt_Ui::show_notes(const QString &path) {
    if (window_)
        window_->Show_notes(path);
    else if (script)
        script->notes << path;
}

void Qt_Ui::Show_notes_over(Program &program, const QString &path, QWidget *parent) {
    if (script) {
        script->notes << path;
        return;
    }
    auto *notes = new Notes_Window(program, path, parent);
    notes->setAttribute(Qt::WA_DeleteOnClose);
    notes->show();
}

std::optional<Version> Qt_Ui::Ask_version() {
    if (script) {
        script->windows << QStringLiteral("Full_Lite_Question");
        return script->version;
    }
    Full_Lite_Question question(window_);
    question.exec();
    return question.version();
}

void Qt_Ui::pump_events() {
    QApplication::processEvents();
}

void Qt_Ui::trace_turned(bool on) {
    if (on_trace_turned)
        on_trace_turned(on);
}

/// Where there is no console yet, or none any more, the line goes where a terminal shows it.
void Qt_Ui::trace_line(const QString &text) {
    if (console_)
        console_->Append(text);
    else
        std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
}

void Qt_Ui::trace_pause(const QString &prompt) {
    if (script)
        script->pauses << prompt;
    else if (console_)
        console_->Hold(prompt);
}

bool Qt_Ui::save_screenshot(const QString &path) {
    pump_events();
    const QImage picture = Take_screen_picture();
    return files_ && !picture.isNull() && picture.save(files_->to_native(path), "BMP");
}

} // namespace vantrosk
