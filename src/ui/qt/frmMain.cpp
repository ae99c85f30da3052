#include "frmMain.h"

#include "Demo_Library.h"
#include "Details_Panel_View.h"
#include "Details_Tabs.h"
#include "Finish_Score_View.h"
#include "Fm_List_Panel.h"
#include "Fm_Table.h"
#include "Game_Toolbar.h"
#include "Games_Panel_View.h"
#include "Notes_Window.h"
#include "Qt_Ui.h"
#include "Readme_Actions.h"
#include "Readme_Panel.h"
#include "Recent_Panel.h"
#include "Set_Up_Game.h"
#include "Start_Address.h"
#include "Status_Bar.h"
#include "Window_Commands.h"
#include "frmSettings.h"

#include "core/Games.h"
#include "core/Program.h"
#include "core/Timers.h"
#include "core/Window_State.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlStartup.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QStackedWidget>
#include <QStyleFactory>
#include <QTabBar>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace vantrosk {

namespace {

constexpr int first_width = 1280, first_height = 800, least_width = 900, least_height = 600;
constexpr int least_list_height = 28 + 7 * Fm_Table::row_height + 2; ///< heading, original missions, six rows
constexpr int least_lower_height = 280;
constexpr int details_width = 448, least_details_width = 340, least_readme_width = 300;
constexpr int first_working_picture = 2, last_working_picture = 10;
// Milliseconds: a turn of the light in a second, and how long the splitter rests before its place is kept.
constexpr int light_step = 125, housekeeping_step = 1000, focus_step = 100, splitter_rest = 400;
constexpr int presence_step = 60 * 1000;
constexpr int frame_delay = 200; ///< milliseconds until a window manager has put its frame round the window

} // namespace

void Apply_theme(const Theme &theme) {
    const QString sheet = Theme_style_sheet(theme);
    if (qApp->styleSheet() == sheet)
        return; // every widget would be polished anew
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setFont(theme.text);
    QApplication::setPalette(Theme_palette(theme));
    QApplication::setWindowIcon(Program_icon());
    qApp->setStyleSheet(sheet);
}

frmMain::frmMain(Program &program, Qt_Ui &ui)
    : program_(program), ui_(ui), theme_(Make_Theme(program.tweaks)), pages_(new QStackedWidget),
      work_area_(new QWidget) {
    setObjectName(QStringLiteral("frmMain"));
    Apply_theme(theme_);
    setWindowTitle(program.screen.caption);
    const QSize room = Screen_room();
    setMinimumSize(QSize(least_width, least_height).boundedTo(room));
    resize(QSize(first_width, first_height).boundedTo(room));

    commands = new Window_Commands(program, this);
    games = new Game_Toolbar(program, theme_, nullptr);
    list = new Fm_List_Panel(program, theme_, nullptr);
    details = new Details_Panel_View(program, theme_, nullptr);
    opinions = new Finish_Score_View(program, theme_, nullptr);
    games_panel = new Games_Panel_View(program, nullptr);
    readme = new Readme_Panel(program, theme_, nullptr);
    recent = new Recent_Panel(program, theme_, this);
    recent->hide(); // until there is something to show
    empty_state = new Empty_State(program, ui, theme_, nullptr);
    status = new Status_Bar(nullptr);

    // A screen of double density may be lower than the window likes: four rows do there.
    list->setMinimumHeight(room.height() < least_height ? least_list_height - 2 * Fm_Table::row_height
                                                        : least_list_height);
    rows_ = new QSplitter(Qt::Vertical);
    rows_->setObjectName(QStringLiteral("list_splitter"));
    rows_->setChildrenCollapsible(false);
    rows_->addWidget(list);
    rows_->addWidget(Make_lower_half());
    rows_->setStretchFactor(0, 0);
    rows_->setStretchFactor(1, 1);

    pages_->addWidget(empty_state);
    pages_->addWidget(rows_);
    auto *row = new QHBoxLayout(work_area_);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(games);
    row->addWidget(pages_, 1);
    auto *central = new QWidget;
    auto *column = new QVBoxLayout(central);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(work_area_, 1);
    column->addWidget(status);
    setCentralWidget(central);

    Make_find_field();
    Make_menus();
    Connect_panels();
    Start_timers();
    Refresh_games();
    Refresh_list();
    Refresh_details();
    Position_panels();
    ui_.Attach(this);
}

frmMain::~frmMain() {
    ui_.Attach(nullptr);
}

QWidget *frmMain::Make_side(const QString &name, const QString &caption, QWidget *panel) {
    auto *side = new QWidget;
    auto *bar = new QWidget;
    bar->setObjectName(name);
    bar->setAttribute(Qt::WA_StyledBackground);
    auto *tabs = new QTabBar;
    tabs->setObjectName(name + QStringLiteral("_bar"));
    tabs->setAccessibleName(caption);
    tabs->setToolTip(caption);
    tabs->setDrawBase(false);
    tabs->setExpanding(false);
    tabs->addTab(caption);
    auto *bar_row = new QHBoxLayout(bar);
    bar_row->setContentsMargins(0, 0, 0, 1);
    bar_row->addWidget(tabs);
    bar_row->addStretch();
    auto *column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(bar);
    column->addWidget(panel, 1);
    return side;
}

QWidget *frmMain::Make_lower_half() {
    columns_ = new QSplitter(Qt::Horizontal);
    columns_->setObjectName(QStringLiteral("readme_splitter"));
    columns_->setChildrenCollapsible(false);
    columns_->setHandleWidth(1);
    details_tabs =
        new Details_Tabs(QStringLiteral("details_tabs"), QStringLiteral("The selected mission"), nullptr);
    details_tabs->Add(QStringLiteral("FMOptions"), QStringLiteral("FM Details and Play"), details);
    details_tabs->Add(QStringLiteral("Finish_Score_Review"), QStringLiteral("Finish Score Review"), opinions);
    details_tabs->Add(QStringLiteral("Game_Details"), QStringLiteral("Vantrosk Game Details"), games_panel);
    auto *left = details_tabs;
    auto *right = Make_side(QStringLiteral("readme_tabs"), QStringLiteral("Readme"), readme);
    readme->Use_tabs(right->findChild<QTabBar *>(QStringLiteral("readme_tabs_bar")));
    left->setMinimumWidth(least_details_width);
    right->setMinimumWidth(least_readme_width);
    columns_->addWidget(left);
    columns_->addWidget(right);
    columns_->setStretchFactor(0, 0);
    columns_->setStretchFactor(1, 1);
    columns_->setSizes({details_width, first_width});
    columns_->setMinimumHeight(least_lower_height);
    return columns_;
}

void frmMain::Make_find_field() {
    find = new QLineEdit;
    find->setObjectName(QStringLiteral("find_in_list"));
    find->setAccessibleName(QStringLiteral("Find in list"));
    find->setPlaceholderText(QStringLiteral("Find in list  Ctrl+F"));
    find->setToolTip(
        QStringLiteral("Shows the missions that hold these words (Ctrl+F); Escape shows all again"));
    find->setClearButtonEnabled(true);
    find->installEventFilter(this);
    menuBar()->setCornerWidget(find, Qt::TopRightCorner);
    connect(find, &QLineEdit::textChanged, list, &Fm_List_Panel::Find);
}

bool frmMain::eventFilter(QObject *watched, QEvent *event) {
    if (watched != find || event->type() != QEvent::KeyPress)
        return QMainWindow::eventFilter(watched, event);
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Escape:
        find->clear();
        list->setFocusToList();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
        list->setFocusToList();
        return true;
    default:
        return false;
    }
}

void frmMain::Connect_panels() {
    connect(games, &Game_Toolbar::Game_chosen, commands, &Window_Commands::Choose_game);
    connect(games, &Game_Toolbar::Set_up_wanted, this, &frmMain::Set_up);
    connect(games, &Game_Toolbar::Configure_chosen, this, [this] { Show_settings(); });
    connect(games, &Game_Toolbar::Help_chosen, this, &frmMain::Show_about);
    connect(games_panel, &Games_Panel_View::Game_chosen, commands, &Window_Commands::Choose_game);
    connect(games_panel, &Games_Panel_View::Custom_game_chosen, this,
            [this](const QString &name) { commands->Choose_custom_game(name); });
    connect(list, &Fm_List_Panel::Row_chosen, commands, &Window_Commands::Choose_row);
    connect(list, &Fm_List_Panel::Heading_chosen, commands, &Window_Commands::Sort_by);
    connect(list, &Fm_List_Panel::Letter_typed, commands, &Window_Commands::Jump);
    connect(list, &Fm_List_Panel::Mission_folder_wanted, this,
            [this] { Set_up(program_.SELECTED_GAME_TAB); });
    connect(list, &Fm_List_Panel::Next_step_wanted, this,
            [this] { details->next_step()->setFocus(Qt::ShortcutFocusReason); });
    connect(list, &Fm_List_Panel::Shown_changed, this, [this] {
        const Fm_List &all = program_.screen.list;
        status->Show_count(list->Shown_missions(), int(all.rows.size()) - all.original_rows,
                           !program_.SELECTED_GAME_TAB.isEmpty());
    });
    connect(details, &Details_Panel_View::Play_pressed, commands, &Window_Commands::Play);
    connect(details, &Details_Panel_View::Install_pressed, commands, &Window_Commands::Install);
    connect(details, &Details_Panel_View::Editor_pressed, commands, &Window_Commands::Edit);
    connect(games, &Game_Toolbar::Tools_chosen, this, &frmMain::Show_tools);
    connect(readme, &Readme_Panel::Tools_wanted, this, &frmMain::Show_tools);
    Connect_opinions();
    Connect_recent();
    new Readme_Actions(program_, ui_, *commands, *readme);
    connect(empty_state, &Empty_State::Demo_wanted, this, &frmMain::Make_demo);
    connect(empty_state, &Empty_State::Game_set_up, commands, &Window_Commands::Choose_game);
    connect(commands, &Window_Commands::Working_changed, this, &frmMain::Refresh_access);
}

void frmMain::Start_timers() {
    light_timer_.setInterval(light_step);
    connect(&light_timer_, &QTimer::timeout, this, [this] { Animation_Tick(program_); });
    connect(&housekeeping_timer_, &QTimer::timeout, this, [this] {
        if (!commands->is_working() && !told_busy_)
            Housekeeping_Tick(program_);
        if (program_.timers.focus_runs && !focus_timer_.isActive())
            focus_timer_.start();
        Close_if_asked();
    });
    housekeeping_timer_.start(housekeeping_step);
    focus_timer_.setInterval(focus_step);
    connect(&focus_timer_, &QTimer::timeout, this, [this] {
        Focus_Tick(program_);
        if (!program_.timers.focus_runs)
            focus_timer_.stop();
    });
    connect(&presence_timer_, &QTimer::timeout, this, [this] { Presence_Tick(program_); });
    presence_timer_.start(presence_step);

    splitter_timer_.setSingleShot(true);
    splitter_timer_.setInterval(splitter_rest);
    connect(rows_, &QSplitter::splitterMoved, this, [this] { splitter_timer_.start(); });
    connect(&splitter_timer_, &QTimer::timeout, this, [this] {
        Tell_geometry();
        Save_Status(program_, Saved_Status::splitter);
    });
}

void frmMain::Open() {
    const Window_Geometry kept = program_.screen.window;
    if (kept.width > 0 && kept.height > 0)
        resize(QSize(kept.width, kept.height).boundedTo(Screen_room()).expandedTo(minimumSize()));
    list->Set_widths(kept.column_widths, kept.columns_are_automatic);
    wanted_list_height_ = kept.list_height;
    if (kept.maximised)
        showMaximized();
    else
        show();
    Place_splitter();
    Tell_geometry();
    QTimer::singleShot(frame_delay, this, &frmMain::Settle_on_screen);
}

/// What the screen has room for.
QSize frmMain::Screen_room() const {
    if (ui_.script && !ui_.script->screen_room.isEmpty())
        return ui_.script->screen_room;
    return screen()->availableSize();
}

/// Behind the showing: a window manager's frame takes room too, and without one nobody has given the keys.
void frmMain::Settle_on_screen() {
    if (ui_.script)
        return;
    if (!QApplication::activeWindow())
        activateWindow();
    if (isMaximized() || isFullScreen())
        return;
    const QRect room = screen()->availableGeometry();
    const QSize frame = frameGeometry().size() - size();
    resize(size().boundedTo(room.size() - frame).expandedTo(minimumSize()));
    QRect place(frameGeometry().topLeft(), size() + frame);
    place.moveBottomRight(
        QPoint(std::min(place.right(), room.right()), std::min(place.bottom(), room.bottom())));
    place.moveTopLeft(QPoint(std::max(place.left(), room.left()), std::max(place.top(), room.top())));
    if (place.topLeft() != pos())
        move(place.topLeft());
}

/// Once, when the list is shown first, which the first game that is set up brings about.
void frmMain::Place_splitter() {
    if (splitter_is_placed_ || !isVisible() || shows_empty_state())
        return;
    splitter_is_placed_ = true;
    centralWidget()->layout()->activate();
    work_area_->layout()->activate();
    rows_->resize(pages_->size()); // a page that has just come to the front is not laid out yet
    const int all = rows_->height() - rows_->handleWidth();
    const int list_height =
        wanted_list_height_ > 0 ? wanted_list_height_ : std::max(least_list_height, all * 2 / 5);
    rows_->setSizes({list_height, std::max(least_lower_height, all - list_height)});
}

void frmMain::Tell_geometry() {
    Window_Geometry &window = program_.screen.window;
    window.is_there = isVisible() && !closed_;
    window.is_covered = QApplication::activeModalWidget() != nullptr;
    window.minimised = isMinimized();
    window.maximised = isMaximized();
    if (!isMinimized() && !isMaximized()) {
        window.width = width();
        window.height = height();
    }
    window.list_height = rows_->sizes().value(0);
    window.column_widths = list->Widths();
    window.columns_are_automatic = list->Widths_are_automatic();
}

void frmMain::changeEvent(QEvent *event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        Tell_geometry();
}

void frmMain::resizeEvent(QResizeEvent *event) {
    QMainWindow::resizeEvent(event);
    Tell_geometry();
}

void frmMain::Show_light(int index, const QString &text) {
    status->Show_light(index, text);
    const bool turns = index >= first_working_picture && index <= last_working_picture;
    if (!turns)
        light_timer_.stop();
    else if (!light_timer_.isActive())
        light_timer_.start();
}

void frmMain::Refresh_games() {
    games->Refresh();
    games_panel->Refresh();
    pages_->setCurrentIndex(Any_game_is_set_up(program_) ? 1 : 0);
    find->setVisible(!shows_empty_state());
    Place_splitter();
    if (!games_menu_)
        return;
    Refresh_mode();
    Refresh_access();
}

bool frmMain::shows_empty_state() const {
    return pages_->currentIndex() == 0;
}

void frmMain::Refresh_list() {
    games->Refresh();
    // What was looked for in one game's list is no filter on another's.
    const QString listed = program_.SELECTED_GAME_TAB + u'\n' + program_.custom_name;
    if (std::exchange(listed_game_, listed) != listed)
        find->clear();
    list->Refresh();
    for (QAction *action : sort_menu_->actions()) {
        const QString heading = program_.screen.list.headings[action->data().toInt()];
        action->setText(heading.startsWith(u'>') || heading.startsWith(u'<') ? heading.mid(2) : heading);
        action->setVisible(!heading.isEmpty());
    }
    Refresh_access();
}

void frmMain::Refresh_details() {
    details->Refresh();
    opinions->Refresh();
    readme->Refresh_empty();
    Refresh_access();
}

void frmMain::Set_busy(bool busy) {
    told_busy_ = busy;
    Refresh_access();
}

/// While a procedure works nothing takes clicks, but all of it repaints; afterwards the keys go where they
/// went.
void frmMain::Refresh_access() {
    const bool free = !told_busy_ && !commands->is_working();
    if (work_area_->isEnabled() && !free) {
        focus_before_work_ = focusWidget();
        setCursor(Qt::BusyCursor);
    }
    const bool freed = free && !work_area_->isEnabled();
    work_area_->setEnabled(free);
    menuBar()->setEnabled(free);
    if (freed) {
        unsetCursor();
        if (focus_before_work_ && focus_before_work_->isEnabled())
            focus_before_work_->setFocus(Qt::OtherFocusReason);
    }
    Refresh_menus();
    if (free)
        Close_if_asked();
    if (freed && close_wanted_)
        QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
}

/// While a procedure works nothing takes the keys: they go there once it is done.
void frmMain::Focus_first() {
    QWidget *first = shows_empty_state() ? empty_state->set_up()->First_control() : list->table();
    if (work_area_->isEnabled())
        first->setFocus(Qt::OtherFocusReason);
    else
        focus_before_work_ = first;
}

void frmMain::Find_here() {
    if (readme->isAncestorOf(QApplication::focusWidget()))
        return readme->Open_find();
    find->setFocus(Qt::ShortcutFocusReason);
    find->selectAll();
}

void frmMain::Move_splitter(int by) {
    const QList<int> sizes = rows_->sizes();
    rows_->setSizes({sizes[0] + by, sizes[1] - by});
    splitter_timer_.start();
}

void frmMain::Set_up(const QString &code) {
    if (shows_empty_state()) {
        empty_state->set_up()->Choose_game(code);
        empty_state->set_up()->Take_focus();
        return;
    }
    Set_Up_Dialog dialog(program_, ui_, code, this);
    if (dialog.exec() == QDialog::Accepted)
        commands->Choose_game(dialog.game());
}

void frmMain::Make_demo() {
    commands->Run(QStringLiteral("Make_demo_library"), [this] { Make_demo_library(program_); });
}

void frmMain::Show_page(const QString &page) {
    const Placed_Page placed = Place_page(program_, page);
    switch (placed.place) {
    case Page_Place::file:
        return readme->Show_page(placed.file);
    case Page_Place::page_view:
        return readme->Show_address(placed.address);
    case Page_Place::users_browser:
        return ui_.Open_link(placed.address);
    case Page_Place::nowhere:
        debug_print(program_, QStringLiteral("MAIN FORM: page not opened: ") + page);
    }
}

void frmMain::Show_notes(const QString &path) {
    ui_.Show_notes_over(program_, path, this);
}

void frmMain::Show_settings() {
    if (ui_.script) {
        ui_.script->windows << QStringLiteral("frmSettings");
        return;
    }
    frmSettings settings(program_, this);
    settings.Show_game(program_.SELECTED_GAME_TAB);
    if (settings.exec() == QDialog::Accepted)
        Scan_first_game();
}

/// A person who has just set the first game up sees its missions, once the start is through.
void frmMain::Scan_first_game() {
    if (!program_.SELECTED_GAME_TAB.isEmpty())
        return;
    for (const Game &game : Games())
        if (!(program_.ini.*game.game_folder).isEmpty() &&
            !Fm_Folders(program_.ini, game, Empty_Entry::is_passed_over).isEmpty()) {
            const QString code = QLatin1String(game.code);
            QMetaObject::invokeMethod(
                this, [this, code] { commands->Choose_game(code); }, Qt::QueuedConnection);
            return;
        }
}

void frmMain::Show_trace_entry(bool shown) {
    trace_action_->setVisible(shown);
}

void frmMain::Position_panels() {
    const bool full = program_.tweaks.ENABLE_FM_DETAILS;
    Refresh_mode();
    if (auto *facts = details->findChild<QWidget *>(QStringLiteral("details_facts_area")))
        facts->setVisible(full);
    if (!full)
        details_tabs->Show(QStringLiteral("FMOptions"));
    for (int tab = 1; tab < details_tabs->bar()->count(); ++tab)
        details_tabs->bar()->setTabVisible(tab, full);
    list->Apply_tweaks();
    Refresh_access();
}

void frmMain::Refresh_mode() {
    mode_action_->setText(u'&' + program_.screen.menu.mode);
}

/// The user may end the program in the middle of a fault; whatever was at work finishes first.
void frmMain::Close_if_asked() {
    if (program_.start.end_requested && !closed_ && !commands->is_working())
        QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
}

/// A window that is closed over its work closes once the work is done: an install is never left in the
/// middle.
void frmMain::closeEvent(QCloseEvent *event) {
    if (closed_)
        return event->accept();
    if (told_busy_ || commands->is_working()) {
        close_wanted_ = true;
        event->ignore();
        return;
    }
    commands->Run(QStringLiteral("Form_Unload"), [this] {
        commands->Finish_play();
        Tell_geometry();
        Shut_Down(program_);
    });
    closed_ = true;
    for (auto *notes : findChildren<Notes_Window *>())
        notes->close();
    event->accept();
    Q_EMIT Closed();
}

} // namespace vantrosk
