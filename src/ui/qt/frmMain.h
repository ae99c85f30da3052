#pragma once

#include "Theme.h"

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

class QLineEdit;
class QSplitter;
class QStackedWidget;
class QTabBar;

namespace vantrosk {

struct Program;
class Details_Panel_View;
class Details_Tabs;
class Empty_State;
class Finish_Score_View;
class Fm_List_Panel;
class Game_Toolbar;
class Games_Panel_View;
class Qt_Ui;
class Readme_Panel;
class Recent_Panel;
class Status_Bar;
class Window_Commands;

/// The main window: puts the panels together and ties their signals to the procedures. It decides nothing.
class frmMain : public QMainWindow {
    Q_OBJECT

public:
    frmMain(Program &program, Qt_Ui &ui);
    ~frmMain() override;

    Game_Toolbar *games;
    Fm_List_Panel *list;
    Details_Tabs *details_tabs;
    Details_Panel_View *details;
    Finish_Score_View *opinions;
    Games_Panel_View *games_panel;
    Readme_Panel *readme;
    Recent_Panel *recent;
    Status_Bar *status;
    Empty_State *empty_state;
    QLineEdit *find;
    Window_Commands *commands;

    /// Shows the window where it stood last time.
    void Open();
    /// The keys go to the list, or to the set-up while there is none.
    void Focus_first();
    void Refresh_games();
    void Refresh_list();
    void Refresh_details();
    void Refresh_recent();
    void Set_busy(bool busy);
    void Show_light(int index, const QString &text);
    /// A Windows path, an address or "about:blank".
    void Show_page(const QString &page);
    void Show_notes(const QString &path);
    void Show_settings();
    /// Lists the first game that has both folders, unless a list is there already.
    void Scan_first_game();
    void Show_game_diagnostic();
    void Show_tools();
    /// The details section as the mode wants it, the columns as the tweaks want them.
    void Position_panels();
    /// The menu entry of the trace console comes or goes.
    void Show_trace_entry(bool shown);
    void Set_up(const QString &code);
    void Make_demo();
    bool shows_empty_state() const;
    bool is_closed() const { return closed_; }

Q_SIGNALS:
    void Closed();

protected:
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QWidget *Make_lower_half();
    QWidget *Make_side(const QString &name, const QString &caption, QWidget *panel);
    void Make_find_field();
    void Make_menus();
    void Make_file_menu();
    void Make_view_menu();
    void Make_tools_menu();
    void Make_games_menu();
    void Fill_custom_games_menu();
    void Make_help_menu();
    void Connect_recent();
    void Choose_recent(int index);
    void Remove_from_recent(int rank);
    void Go_to_recent();
    void Refresh_editor_entry();
    QAction *Add_action(QMenu *menu, const QString &text, const QString &keys, const QString &tip,
                        const std::function<void()> &work);
    void Connect_panels();
    void Connect_opinions();
    void Pick_score(int score);
    void Click_level(int level, bool finished);
    void Reset_mission();
    void Show_opinions();
    void Make_filter_menus(QMenu *view_menu, QMenu *games_menu);
    void Fill_filter_menu(QMenu *menu, const QString &code);
    void Show_row_menu(const QPoint &at_global);
    void Fill_row_menu(QMenu *menu);
    void Refresh_access();
    void Refresh_menus();
    void Refresh_mode();
    void Find_here();
    void Move_splitter(int by);
    void Show_about();
    void Start_timers();
    void Close_if_asked();
    /// Where the window stands, for whoever stores it.
    void Tell_geometry();
    void Place_splitter();
    QSize Screen_room() const;
    void Settle_on_screen();

    Program &program_;
    Qt_Ui &ui_;
    Theme theme_;
    QStackedWidget *pages_;
    QWidget *work_area_;
    QSplitter *rows_, *columns_;
    QMenu *view_menu_ = nullptr, *games_menu_ = nullptr, *sort_menu_ = nullptr;
    QMenu *custom_games_menu_ = nullptr;
    QAction *play_action_ = nullptr, *install_action_ = nullptr, *scan_action_ = nullptr;
    QAction *reset_action_ = nullptr, *mode_action_ = nullptr, *trace_action_ = nullptr;
    QAction *opinions_action_ = nullptr;
    QAction *recent_action_ = nullptr, *editor_action_ = nullptr;
    QMenu *recent_menu_ = nullptr;
    QTimer splitter_timer_, light_timer_, housekeeping_timer_, focus_timer_, presence_timer_;
    QPointer<QWidget> focus_before_work_;
    bool told_busy_ = false;
    bool close_wanted_ = false;
    bool closed_ = false;
    bool splitter_is_placed_ = false;
    int wanted_list_height_ = 0; ///< as it was kept; 0 for none
    QString listed_game_;        ///< key and custom name of the list that is shown
};

/// Fonts, colours and style of the whole program.
void Apply_theme(const Theme &theme);

} // namespace vantrosk
