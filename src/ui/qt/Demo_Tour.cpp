#include "Demo_Tour.h"

#include "Details_Panel_View.h"
#include "Fm_List_Panel.h"
#include "Fm_Table.h"
#include "Game_Toolbar.h"
#include "Qt_Ui.h"
#include "Readme_Panel.h"
#include "Window_Commands.h"
#include "frmMain.h"

#include "core/Program.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QPushButton>
#include <QToolButton>
#include <QWebEngineView>

#include <cstdio>
#include <functional>

namespace vantrosk {

namespace {

constexpr int step_limit = 60 * 1000;   ///< milliseconds for one step
constexpr int demo_limit = 300 * 1000;  ///< for making the library
constexpr int play_limit = 120 * 1000;  ///< until the game has ended
constexpr int picture_limit = 5 * 1000; ///< until the browser has painted
constexpr int between_looks = 200;
const char *const tour_game = "T2";

/// Lets the program go on until `done`, or until the time is up.
bool Wait_until(const std::function<bool()> &done, int limit) {
    QElapsedTimer timer;
    timer.start();
    while (!done()) {
        if (timer.elapsed() > limit)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    return true;
}

void Click(QWidget *widget, const QPoint &at) {
    const QPointF global = widget->mapToGlobal(at);
    QMouseEvent press(QEvent::MouseButtonPress, at, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QMouseEvent release(QEvent::MouseButtonRelease, at, global, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &press);
    QCoreApplication::sendEvent(widget, &release);
}

void Click_middle(QWidget *widget) {
    Click(widget, widget->rect().center());
}

/// The browser paints when it likes: the picture is taken once two looks in a row are the same and not empty.
void Wait_for_the_browser(QWidget *view) {
    QImage before;
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < picture_limit) {
        Wait_until([] { return false; }, between_looks);
        const QImage now = view->grab().toImage();
        const bool painted = now != now.copy(0, 0, 1, 1).scaled(now.size());
        if (painted && now == before)
            return;
        before = now;
    }
}

class Tour {
public:
    Tour(Program &program, Qt_Ui &ui, frmMain &window, const QString &folder)
        : program_(program), ui_(ui), window_(window), folder_(folder) {}

    int Run();

private:
    bool Set_up();
    bool Scan();
    bool Select();
    bool Readme();
    bool Install();
    bool Play();
    bool Restore();

    bool Click_row(int row);
    bool Is_idle() const { return !window_.commands->is_working() && !program_.screen.busy; }
    const Fm_Row &Row(int row) const { return program_.screen.list.rows[static_cast<size_t>(row)]; }
    int Installed_rows() const;
    QString Last_status() const;
    void Save_picture(const QString &name);
    bool Tell(const char *step, bool happened, const QString &text);

    Program &program_;
    Qt_Ui &ui_;
    frmMain &window_;
    QDir folder_;
    int picture_ = 0;
    int mission_ = -1; ///< row of the mission that the tour takes
};

int Tour::Run() {
    if (!folder_.mkpath(QStringLiteral("."))) {
        Tell("pictures", false, QStringLiteral("%1 can not be made").arg(folder_.path()));
        return 1;
    }
    ui_.script->agrees = true;
    ui_.script->on_box = [](const Box &box, Answer) {
        std::printf("tour: box: %s\n",
                    qUtf8Printable(QString(box.text).replace(u'\n', QStringLiteral(" / "))));
    };
    const bool all = Set_up() && Scan() && Select() && Readme() && Install() && Play() && Restore();
    window_.close();
    std::printf(all ? "tour: done\n" : "tour: stopped\n");
    std::fflush(stdout);
    return all ? 0 : 1;
}

bool Tour::Tell(const char *step, bool happened, const QString &text) {
    std::printf("tour: %s: %s%s\n", step, happened ? "" : "FAILED: ", qUtf8Printable(text));
    std::fflush(stdout);
    return happened;
}

void Tour::Save_picture(const QString &name) {
    Wait_until([this] { return !window_.readme->is_loading(); }, picture_limit);
    if (window_.readme->shows_a_page())
        Wait_for_the_browser(window_.readme->view());
    QCoreApplication::processEvents();
    const QString file = QStringLiteral("%1_%2.png").arg(++picture_).arg(name);
    if (!window_.grab().save(folder_.filePath(file)))
        std::printf("tour: picture: FAILED: %s\n", qUtf8Printable(folder_.filePath(file)));
}

bool Tour::Set_up() {
    if (!window_.shows_empty_state())
        return true;
    auto *demo = window_.findChild<QPushButton *>(QStringLiteral("try_demo"));
    if (!demo || demo->isHidden())
        return Tell("set up", false,
                    QStringLiteral("no game is set up and there is no demo library to make"));
    Click_middle(demo);
    const bool done = Wait_until([this] { return Is_idle() && !window_.shows_empty_state(); }, demo_limit);
    return Tell("set up", done, QStringLiteral("demo library"));
}

bool Tour::Scan() {
    auto *button = window_.games->button_of(QLatin1String(tour_game));
    if (!Game_is_set_up(program_, QLatin1String(tour_game)))
        return Tell("scan", false, QStringLiteral("%1 is not set up").arg(button->text()));
    Click_middle(button);
    const bool done = Wait_until(
        [this] { return Is_idle() && program_.SELECTED_GAME_TAB == QLatin1String(tour_game); }, step_limit);
    const int missions = window_.list->Shown_missions();
    Save_picture(QStringLiteral("scan"));
    return Tell("scan", done && missions > 0, QStringLiteral("%1 missions").arg(missions));
}

bool Tour::Click_row(int row) {
    Fm_Table *table = window_.list->table();
    const QModelIndex index = table->model()->index(row, col_name);
    table->scrollTo(index);
    Click(table->viewport(), table->visualRect(index).center());
    const QString zip = Row(row).cells[col_zip];
    return Wait_until(
        [this, zip] { return Is_idle() && program_.FM_PANEL == zip && !program_.screen.no_mission_selected; },
        step_limit);
}

bool Tour::Select() {
    mission_ = program_.screen.list.original_rows;
    const bool selected = Click_row(mission_);
    const Details_Panel &details = program_.screen.details;
    Wait_until([this] { return !window_.readme->is_loading(); }, step_limit);
    Save_picture(QStringLiteral("select"));
    return Tell("select", selected && !details.name.isEmpty(),
                QStringLiteral("%1 by %2 (%3)").arg(details.name, details.author, program_.FM_PANEL));
}

bool Tour::Readme() {
    for (auto *action : window_.findChildren<QAction *>(QStringLiteral("action_Lower_list")))
        for (int i = 0; i < 3; ++i)
            action->trigger();
    const bool shown = Wait_until(
        [this] { return window_.readme->shows_a_page() && !window_.readme->is_loading(); }, step_limit);
    Save_picture(QStringLiteral("readme"));
    const QString page = program_.screen.readme_page;
    return Tell("readme", shown, page.mid(page.lastIndexOf(u'\\') + 1));
}

int Tour::Installed_rows() const {
    int installed = 0;
    for (const Fm_Row &row : program_.screen.list.rows)
        installed += row.cells[col_ready] == QLatin1String("Yes") ? 1 : 0;
    return installed;
}

/// What was said last, before the window was ready again.
QString Tour::Last_status() const {
    QStringList told = ui_.script->status;
    told.removeAll(QStringLiteral("Ready"));
    return told.isEmpty() ? QString() : told.last();
}

bool Tour::Install() {
    Click_middle(window_.details->install());
    const bool installed = Wait_until(
        [this] {
            return Is_idle() && program_.screen.details.shows_installed &&
                   Row(mission_).cells[col_ready] == QLatin1String("Yes");
        },
        step_limit);
    Save_picture(QStringLiteral("install"));
    return Tell("install", installed, Last_status());
}

bool Tour::Play() {
    Click_middle(window_.details->play());
    const bool started =
        Wait_until([this] { return Is_idle() && window_.commands->last_play().started; }, step_limit);
    const Play_Result &play = window_.commands->last_play();
    Save_picture(QStringLiteral("play"));
    if (!Tell("play", started, started ? play.start.command.join(u' ') : play.refusal))
        return false;
    const qint64 game = play.start.process_id;
    const bool ended =
        Wait_until([this, game] { return !program_.platform.processes->is_running(game); }, play_limit);
    return Tell("play", ended, QStringLiteral("the game has ended"));
}

bool Tour::Restore() {
    if (!Click_row(0))
        return Tell("restore", false, QStringLiteral("the original missions can not be selected"));
    Click_middle(window_.details->install());
    const bool restored =
        Wait_until([this] { return Is_idle() && Row(mission_).cells[col_ready].isEmpty(); }, step_limit);
    Save_picture(QStringLiteral("restore"));
    return Tell("restore", restored,
                QStringLiteral("%1 (%2 missions installed)").arg(Last_status()).arg(Installed_rows()));
}

} // namespace

QString Tour_Settings::value(const QString &section, const QString &key) const {
    const auto found = values_.find({section, key});
    return found == values_.end() ? QString() : found->second;
}

Fault Tour_Settings::set_value(const QString &section, const QString &key, const QString &value) {
    values_[{section, key}] = value;
    return {};
}

int Run_demo_tour(Program &program, Qt_Ui &ui, frmMain &window, const QString &folder) {
    Tour tour(program, ui, window, folder);
    return tour.Run();
}

} // namespace vantrosk
