#include "Details_Panel_View.h"
#include "Details_Tabs.h"
#include "Fm_List_Panel.h"
#include "Game_Toolbar.h"
#include "Readme_Panel.h"
#include "Window_Commands.h"
#include "frmMain.h"

#include "core/Full_Lite.h"
#include "core/Games.h"
#include "core/Program.h"
#include "core/mdlStartup.h"
#include "install/Recent.h"
#include "library/Games_Panel.h"

#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>

namespace vantrosk {

namespace {

constexpr int splitter_step = 50;
constexpr const char *no_game = "no game is set up yet (Ctrl+G)";

/// An entry that can not be used says why.
void Allow(QAction *action, bool allowed, const QString &why_not) {
    if (!action->property("tip").isValid())
        action->setProperty("tip", action->toolTip());
    const QString tip = action->property("tip").toString();
    action->setEnabled(allowed);
    action->setToolTip(allowed ? tip : tip + QStringLiteral(": ") + why_not);
}

} // namespace

QAction *frmMain::Add_action(QMenu *menu, const QString &text, const QString &keys, const QString &tip,
                             const std::function<void()> &work) {
    auto *action = menu->addAction(text);
    action->setObjectName(QStringLiteral("action_") +
                          QString(text).remove(u'&').remove(u'…').replace(u' ', u'_'));
    if (!keys.isEmpty())
        action->setShortcut(QKeySequence(keys));
    action->setToolTip(tip);
    action->setStatusTip(tip);
    connect(action, &QAction::triggered, this, work);
    return action;
}

void frmMain::Make_menus() {
    menuBar()->setObjectName(QStringLiteral("menu_bar"));
    menuBar()->setAccessibleName(QStringLiteral("Menu"));
    menuBar()->setNativeMenuBar(false);
    Make_file_menu();
    Make_view_menu();
    Make_tools_menu();
    Make_games_menu();
    Make_filter_menus(view_menu_, games_menu_);
    Make_help_menu();
    for (QMenu *menu : menuBar()->findChildren<QMenu *>())
        menu->setToolTipsVisible(true);
}

/// What can be used now; the rest is there all the same and tells what it wants first.
void frmMain::Refresh_menus() {
    const bool free = !told_busy_ && !commands->is_working();
    Allow(play_action_, free && details->play()->isEnabled(),
          QStringLiteral("an installed mission has to be selected"));
    Allow(install_action_, free && details->install()->isEnabled(),
          QStringLiteral("a mission that is not installed has to be selected"));
    Allow(reset_action_, free && details->reset()->isEnabled(),
          QStringLiteral("a mission has to be selected"));
    Refresh_editor_entry();
    Allow(scan_action_, free && !program_.SELECTED_GAME_TAB.isEmpty(),
          QStringLiteral("a game has to be chosen"));
    for (QAction *action : games_menu_->actions())
        if (!action->data().isNull())
            Allow(action, Game_is_set_up(program_, action->data().toString()),
                  QStringLiteral("its folders are not named yet (Ctrl+G)"));
        else if (action == custom_games_menu_->menuAction())
            Allow(action, !program_.quick_bar_games.empty(), QStringLiteral("there is none yet"));
        else if (action->menu())
            Allow(action, !shows_empty_state(), QLatin1String(no_game));
    for (QAction *action : view_menu_->actions())
        if (!action->isSeparator() && action != mode_action_ && action != trace_action_)
            Allow(action, !shows_empty_state(), QLatin1String(no_game));
    const QString why_no_recent = QStringLiteral("no mission was played yet");
    Allow(recent_action_, program_.screen.recent.tab_shown, why_no_recent);
    Allow(recent_menu_->menuAction(), program_.screen.recent.tab_shown, why_no_recent);
    if (shows_empty_state())
        return;
    Allow(sort_menu_->menuAction(), !program_.screen.list.rows.empty(), QStringLiteral("the list is empty"));
    Allow(opinions_action_, details_tabs->is_offered(QStringLiteral("Finish_Score_Review")),
          QStringLiteral("lite mode leaves them out"));
}

void frmMain::Make_file_menu() {
    QMenu *menu = menuBar()->addMenu(QStringLiteral("&File"));
    play_action_ = Add_action(menu, QStringLiteral("&Play"), QStringLiteral("Ctrl+P"),
                              QStringLiteral("Starts the game"), [this] { commands->Play(); });
    install_action_ = Add_action(menu, QStringLiteral("&Install"), QStringLiteral("Ctrl+I"),
                                 QStringLiteral("Puts the mission into the game's folder"),
                                 [this] { commands->Install(); });
    editor_action_ =
        Add_action(menu, QStringLiteral("Open in the e&ditor"), QStringLiteral("Ctrl+E"),
                   QStringLiteral("Opens the mission in its game's editor"), [this] { commands->Edit(); });
    reset_action_ = Add_action(menu, QStringLiteral("&Reset…"), QStringLiteral("Ctrl+Shift+R"),
                               QStringLiteral("Forgets what is stored of the mission; the zip stays"),
                               [this] { Reset_mission(); });
    menu->addSeparator();
    recent_menu_ = menu->addMenu(QStringLiteral("Recently &Used FMs"));
    recent_menu_->setObjectName(QStringLiteral("recent_missions_menu"));
    recent_menu_->menuAction()->setToolTip(QStringLiteral("Goes back to a mission that was played lately"));
    menu->addSeparator();
    Add_action(menu, QStringLiteral("&Set up a game…"), QStringLiteral("Ctrl+G"),
               QStringLiteral("Names the folders of a game and of its missions"),
               [this] { Set_up(program_.SELECTED_GAME_TAB); });
    Add_action(menu, QStringLiteral("S&ettings…"), QStringLiteral("Ctrl+,"),
               QStringLiteral("Tells which games are set up, and sets them up"), [this] { Show_settings(); });
    menu->addSeparator();
    Add_action(menu, QStringLiteral("E&xit"), QStringLiteral("Ctrl+Q"), QStringLiteral("Ends Vantrosk"),
               [this] { close(); });
}

void frmMain::Make_view_menu() {
    QMenu *menu = view_menu_ = menuBar()->addMenu(QStringLiteral("&View"));
    Add_action(menu, QStringLiteral("&Find"), QStringLiteral("Ctrl+F"),
               QStringLiteral("Finds in the list, or in the readme while one reads there"),
               [this] { Find_here(); });
    sort_menu_ = menu->addMenu(QStringLiteral("&Sort by"));
    sort_menu_->setObjectName(QStringLiteral("sort_menu"));
    sort_menu_->menuAction()->setToolTip(QStringLiteral("Sorts the list by a column"));
    for (int column = col_name; column < column_count; ++column) {
        auto *action = sort_menu_->addAction(QString());
        action->setData(column);
        connect(action, &QAction::triggered, this, [this, column] { commands->Sort_by(column); });
    }
    menu->addSeparator();
    Add_action(menu, QStringLiteral("Go to the &list"), QStringLiteral("F6"),
               QStringLiteral("The keys go to the mission list"), [this] { list->setFocusToList(); });
    Add_action(menu, QStringLiteral("Go to the &readme"), QStringLiteral("F7"),
               QStringLiteral("The keys go to the readme"), [this] { readme->Take_focus(); });
    recent_action_ = Add_action(menu, QStringLiteral("Show Recently &Used FMs"), QStringLiteral("F9"),
                                QStringLiteral("The keys go to the missions that were played lately"),
                                [this] { Go_to_recent(); });
    menu->addSeparator();
    Add_action(menu, QStringLiteral("&Taller list"), QStringLiteral("Ctrl+Shift+Down"),
               QStringLiteral("More room for the list"), [this] { Move_splitter(splitter_step); });
    Add_action(menu, QStringLiteral("Lo&wer list"), QStringLiteral("Ctrl+Shift+Up"),
               QStringLiteral("More room below the list"), [this] { Move_splitter(-splitter_step); });
    menu->addSeparator();
    mode_action_ = Add_action(menu, QStringLiteral("&Go Lite Mode"), {},
                              QStringLiteral("Shows the details section or leaves it out"),
                              [this] { Switch_Mode(program_); });
    trace_action_ = Add_action(menu, QStringLiteral("&Debug Console"), QStringLiteral("F12"),
                               QStringLiteral("Shows what the program does while it works"),
                               [this] { set_debug(program_, true); });
    trace_action_->setVisible(debug_enabled(program_));
}

void frmMain::Make_games_menu() {
    games_menu_ = menuBar()->addMenu(QStringLiteral("&Games"));
    int number = 0;
    for (const Game &game : Games()) {
        const QString code = QLatin1String(game.code);
        ++number;
        QAction *action = Add_action(
            games_menu_, QStringLiteral("&%1  %2").arg(number).arg(QLatin1String(game.name)),
            QStringLiteral("Ctrl+%1").arg(number), QStringLiteral("Lists the missions of this game"),
            [this, code] { commands->Choose_game(code); });
        action->setData(code);
    }
    games_menu_->addSeparator();
    custom_games_menu_ = games_menu_->addMenu(QStringLiteral("&Custom games"));
    custom_games_menu_->setObjectName(QStringLiteral("custom_games_menu"));
    custom_games_menu_->menuAction()->setToolTip(QStringLiteral("Lists the missions of a game of your own"));
    connect(custom_games_menu_, &QMenu::aboutToShow, this, &frmMain::Fill_custom_games_menu);
    scan_action_ = Add_action(games_menu_, QStringLiteral("&Scan again"), QStringLiteral("F5"),
                              QStringLiteral("Looks through the mission folders anew"),
                              [this] { commands->Scan_again(); });
}

/// The tip tells which editor that is.
void frmMain::Refresh_editor_entry() {
    const bool free = !told_busy_ && !commands->is_working();
    editor_action_->setProperty("tip", details->editor()->toolTip());
    Allow(editor_action_, free && details->editor()->isEnabled(),
          QStringLiteral("the game's folder has none, or no mission is selected"));
}

void frmMain::Fill_custom_games_menu() {
    custom_games_menu_->clear();
    for (const Games_Panel_Row &game : Games_Panel_Rows(program_)) {
        if (!game.is_custom())
            continue;
        QAction *action =
            custom_games_menu_->addAction(QString(game.name).replace(u'&', QStringLiteral("&&")));
        action->setToolTip(game.tip);
        connect(action, &QAction::triggered, this,
                [this, name = game.name] { commands->Choose_custom_game(name); });
    }
}

void frmMain::Make_help_menu() {
    QMenu *menu = menuBar()->addMenu(QStringLiteral("&Help"));
    Add_action(menu, QStringLiteral("&About Vantrosk"), QStringLiteral("F1"),
               QStringLiteral("What Vantrosk is and which keys it knows"), [this] { Show_about(); });
}

void frmMain::Show_about() {
    QMessageBox box(this);
    box.setObjectName(QStringLiteral("about"));
    box.setWindowTitle(QStringLiteral("About Vantrosk"));
    box.setIconPixmap(Program_icon().pixmap(QSize(64, 64), devicePixelRatioF()));
    box.setText(QStringLiteral("<b>Vantrosk %1</b>").arg(QLatin1String(version_number)));
    box.setInformativeText(QStringLiteral(
        "Lists, shows, installs and plays the missions that players made for their games.<br><br>"
        "<table><tr><td>Ctrl+1 to Ctrl+8&nbsp;&nbsp;</td><td>a game</td></tr>"
        "<tr><td>Arrows, letters</td><td>a mission</td></tr>"
        "<tr><td>Enter</td><td>on to Play or Install</td></tr>"
        "<tr><td>Ctrl+I, Ctrl+P</td><td>install, play</td></tr>"
        "<tr><td>Ctrl+F</td><td>find in the list or in the readme</td></tr>"
        "<tr><td>F5</td><td>scan again</td></tr>"
        "<tr><td>F6, F7, F8</td><td>to the list, to the readme, to your score</td></tr>"
        "<tr><td>F9</td><td>to the missions played lately</td></tr>"
        "<tr><td>Ctrl+E, Ctrl+T</td><td>editor, tools</td></tr></table>"));
    box.exec();
}

} // namespace vantrosk
