#include "window/Window_World.h"

#include "core/Games.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlStartup.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <stdexcept>

namespace vantrosk {

namespace {

constexpr int patience = 10000; ///< milliseconds

} // namespace

Window_World::Window_World() {
    ui.script.emplace();
    ui.Set_files(*files.platform.files);
    ui.script->screen_room = {1920, 1080};
    program_ = std::make_unique<Program>(files.platform, ui, files.windows("home"));
    if (!Start_Program(*program_))
        throw std::runtime_error("program did not start");
}

Window_World::~Window_World() = default;

void Window_World::Set_up_game(const QString &code) {
    const Game *game = Find_Game(code);
    files.make_folder("games/" + code);
    files.make_folder("fms/" + code);
    program_->ini.*game->game_folder = files.windows("games/" + code);
    program_->ini.*game->fm_folders = Join_folder_list({files.windows("fms/" + code)});
    ui.games_changed();
}

frmMain &Window_World::Open(int width, int height) {
    window_ = std::make_unique<frmMain>(*program_, ui);
    window_->Open();
    window_->resize(width, height);
    QCoreApplication::processEvents();
    return *window_;
}

Fm_Row Mission_row(int number) {
    const QString four = QString::number(number).rightJustified(4, u'0');
    Fm_Row row;
    row.cells = {QString(),
                 "Mission " + four,
                 "mission" + four + ".zip",
                 "Author " + four,
                 "14.2 MB",
                 QString::number(number % 11),
                 QString::number((number + 3) % 11),
                 "20261004",
                 "A review",
                 "EA,N",
                 QString(),
                 QString(),
                 "20040612",
                 "TY-Mansion"};
    row.game_icon = "T2";
    return row;
}

void Window_World::Fill_list(int missions, int originals) {
    Fm_List &list = program_->screen.list;
    list = {};
    list.headings = {"",      "> FM Name", "Zip",         "Author",  "Size",
                     "Score", "Grp Score", "Last Played", "Review",  "Finished",
                     "Game",  "Ready",     "Zip Date",    "Category"};
    for (int i = 0; i < originals; ++i) {
        Fm_Row row;
        row.cells[col_name] = "Thief 2 Original Missions";
        row.cells[col_zip] = "Original";
        row.game_icon = "T2";
        list.rows.push_back(row);
    }
    list.original_rows = originals;
    for (int i = 1; i <= missions; ++i)
        list.rows.push_back(Mission_row(i));
    program_->SELECTED_GAME_TAB = "T2";
    ui.list_changed();
    QCoreApplication::processEvents();
}

void Window_World::Select_mission(int row, bool installed) {
    Screen &screen = program_->screen;
    screen.list.current_row = row;
    screen.no_mission_selected = false;
    program_->FM_PANEL = screen.list.rows[static_cast<size_t>(row)].cells[col_zip];
    screen.details.name = screen.list.rows[static_cast<size_t>(row)].cells[col_name];
    screen.details.shows_installed = screen.details.play_enabled = installed;
    screen.details.install_enabled = !installed;
    ui.list_current_row_changed();
    ui.details_changed();
}

bool Window_World::Wait_until(const std::function<bool()> &done) {
    QElapsedTimer timer;
    timer.start();
    while (!done()) {
        if (timer.elapsed() > patience)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
    }
    return true;
}

} // namespace vantrosk
