#include "Details_Panel_View.h"
#include "Details_Tabs.h"
#include "Finish_Score_View.h"
#include "Finished_Panel.h"
#include "Fm_List_Panel.h"
#include "Keywords_Panel.h"
#include "Review_Panel.h"
#include "Score_Panel.h"
#include "Window_Commands.h"
#include "frmMain.h"

#include "core/Games.h"
#include "core/Program.h"
#include "library/Fm_Filters.h"
#include "library/Fm_Keywords.h"
#include "library/Fm_List_Save.h"

#include <QAction>
#include <QMenu>

namespace vantrosk {

namespace {

constexpr int best_score = 10, levels = 4;

} // namespace

/// The controls of score, finished levels, review and keywords, and the tick that saves what is typed.
void frmMain::Connect_opinions() {
    connect(opinions->score, &Score_Panel::Score_picked, this, &frmMain::Pick_score);
    for (Finished_Panel *panel : {opinions->finished, details->small_finished()})
        connect(panel, &Finished_Panel::Level_clicked, this, &frmMain::Click_level);
    connect(opinions->review, &Review_Panel::Review_edited, this,
            [this](const QString &text) { Review_Change(program_, text); });
    connect(opinions->keywords, &Keywords_Panel::Keyword_clicked, this,
            [this](const QString &entry, bool ticked) {
                commands->Run(QStringLiteral("Keyword_Click"),
                              [&] { Keyword_Click(program_, entry, ticked); });
            });
    connect(details, &Details_Panel_View::Reset_pressed, this, &frmMain::Reset_mission);
    connect(list, &Fm_List_Panel::All_wanted, this,
            [this] { commands->Choose_filter(program_.SELECTED_GAME_TAB, 0); });
    connect(list, &Fm_List_Panel::Row_menu_wanted, this, &frmMain::Show_row_menu);
    Set_Later_Step(program_, Later_Step::save_details_panel, [this] { save_status(program_); });
}

void frmMain::Pick_score(int score) {
    commands->Run(QStringLiteral("Score_Click"), [&] { Score_Click(program_, score); });
}

void frmMain::Click_level(int level, bool finished) {
    commands->Run(QStringLiteral("Finished_Click"), [&] { Finished_Click(program_, level, finished); });
}

void frmMain::Reset_mission() {
    commands->Run(QStringLiteral("cmdReset_Click"), [this] { Reset_Fm(program_); });
}

void frmMain::Show_opinions() {
    if (!details_tabs->is_offered(QStringLiteral("Finish_Score_Review")))
        return;
    details_tabs->Show(QStringLiteral("Finish_Score_Review"));
    opinions->score->setFocus(Qt::ShortcutFocusReason);
}

/// The filters of one game's list; the one in force is marked.
void frmMain::Fill_filter_menu(QMenu *menu, const QString &code) {
    menu->clear();
    const bool is_listed = program_.SELECTED_GAME_TAB == code;
    const auto add = [&](QMenu *to, const QString &caption, int filter) {
        QAction *action = to->addAction(QString(caption).replace(u'&', QStringLiteral("&&")));
        action->setCheckable(true);
        action->setChecked(is_listed && program_.scan.filter == filter);
        connect(action, &QAction::triggered, this,
                [this, code, filter] { commands->Choose_filter(code, filter); });
    };
    for (const Filter_Menu &family : Filter_Menus(program_, code)) {
        QMenu *part = menu->addMenu(family.caption);
        part->setObjectName(family.name);
        for (const Filter_Entry &entry : family.entries)
            add(part, entry.caption, entry.filter);
    }
    menu->addSeparator();
    add(menu, QStringLiteral("All FMs"), 0);
}

/// Below "Games", each game that has filters; below "View", those of the list that is shown.
void frmMain::Make_filter_menus(QMenu *view_menu, QMenu *games_menu) {
    view_menu->addSeparator();
    auto *here = view_menu->addMenu(QStringLiteral("Show &only"));
    here->setObjectName(QStringLiteral("filter_menu"));
    here->menuAction()->setToolTip(
        QStringLiteral("Narrows the list by rating, by what was played, by category"));
    connect(here, &QMenu::aboutToShow, this,
            [this, here] { Fill_filter_menu(here, program_.SELECTED_GAME_TAB); });
    Add_action(view_menu, QStringLiteral("Show &all"), QStringLiteral("Ctrl+Shift+A"),
               QStringLiteral("Lists all missions of this game again"),
               [this] { commands->Choose_filter(program_.SELECTED_GAME_TAB, 0); });
    opinions_action_ = Add_action(view_menu, QStringLiteral("S&core and review"), QStringLiteral("F8"),
                                  QStringLiteral("The keys go to score, review and keywords of the mission"),
                                  [this] { Show_opinions(); });
    auto *all = games_menu->addMenu(QStringLiteral("Show &only"));
    all->setObjectName(QStringLiteral("games_filter_menu"));
    all->menuAction()->setToolTip(QStringLiteral("Lists some missions of a game"));
    for (const Game &game : Games()) {
        const QString code = QLatin1String(game.code);
        if (Filter_Menus(program_, code).empty())
            continue;
        QMenu *menu = all->addMenu(QLatin1String(game.name));
        menu->setObjectName(QStringLiteral("filters_") + code);
        connect(menu, &QMenu::aboutToShow, this, [this, menu, code] { Fill_filter_menu(menu, code); });
    }
}

/// What can be done with the mission of a row.
void frmMain::Show_row_menu(const QPoint &at_global) {
    auto *menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("row_menu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    Fill_row_menu(menu);
    menu->popup(at_global);
}

void frmMain::Fill_row_menu(QMenu *menu) {
    const Details_Panel &shown = program_.screen.details;
    menu->addAction(play_action_);
    menu->addAction(install_action_);
    menu->addSeparator();
    QMenu *score = menu->addMenu(QStringLiteral("&Score"));
    score->setEnabled(shown.record_shown);
    for (int number = 0; number <= best_score; ++number) {
        QAction *action =
            score->addAction(number == 0 ? QStringLiteral("&0  not scored")
                                         : QString(number == best_score ? QStringLiteral("1&0")
                                                                        : QStringLiteral("&%1").arg(number)));
        action->setCheckable(true);
        action->setChecked(shown.score == QString::number(number));
        connect(action, &QAction::triggered, this, [this, number] { Pick_score(number); });
    }
    QMenu *finished = menu->addMenu(QStringLiteral("&Finished"));
    finished->setEnabled(shown.record_shown);
    for (int level = 0; level < levels; ++level) {
        const auto *box = opinions->finished->box(level);
        QAction *action = finished->addAction(box->text());
        action->setCheckable(true);
        action->setChecked(box->isChecked());
        connect(action, &QAction::triggered, this, [this, level](bool on) { Click_level(level, on); });
    }
    QAction *write = menu->addAction(QStringLiteral("Review and &keywords"));
    write->setEnabled(shown.record_shown);
    connect(write, &QAction::triggered, this, &frmMain::Show_opinions);
    menu->addSeparator();
    menu->addAction(reset_action_);
}

} // namespace vantrosk
