#include "Details_Tabs.h"
#include "Qt_Ui.h"
#include "Recent_Panel.h"
#include "Window_Commands.h"
#include "frmMain.h"
#include "frmTools.h"

#include "core/Program.h"
#include "core/mdlErrorHandler.h"
#include "install/Recent.h"

#include <QAction>
#include <QMenu>
#include <QTabBar>

namespace vantrosk {

/// The tab and the menu of the missions that were played last.
void frmMain::Connect_recent() {
    connect(recent, &Recent_Panel::Cell_chosen, this, &frmMain::Choose_recent);
    connect(recent, &Recent_Panel::Remove_wanted, this, &frmMain::Remove_from_recent);
    Set_Later_Step(program_, Later_Step::display_recently_used, [this] {
        With_error_box(program_, QStringLiteral("Display_recently_used"), QStringLiteral("Form frmMain"),
                       [this] { Display_recently_used(program_); });
    });
}

void frmMain::Choose_recent(int index) {
    commands->Run(QStringLiteral("Recently_Used_Click"), [this, index] {
        commands->Finish_play();
        if (Recent_Click(program_, index))
            details_tabs->Show(QStringLiteral("FMOptions"));
    });
}

void frmMain::Remove_from_recent(int rank) {
    commands->Run(QStringLiteral("Remove_recent"), [this, rank] { Remove_recent(program_, rank); });
}

void frmMain::Go_to_recent() {
    details_tabs->Show(QLatin1String(recent_tab_key));
    recent->Take_focus();
}

void frmMain::Refresh_recent() {
    const Recent_List &missions = program_.screen.recent;
    const QString key = QLatin1String(recent_tab_key);
    recent->Refresh();
    if (missions.tab_shown) {
        details_tabs->Add(key, QLatin1String(recent_caption), recent, QStringLiteral("FMOptions"));
        details_tabs->bar()->setTabVisible(static_cast<int>(details_tabs->keys().indexOf(key)),
                                           program_.tweaks.ENABLE_FM_DETAILS);
    } else {
        details_tabs->Remove(key);
        recent->setParent(this);
        recent->hide();
    }
    recent_menu_->clear();
    for (size_t i = 0; i < missions.cells.size(); ++i) {
        const Recent_Cell &cell = missions.cells[i];
        QAction *action =
            recent_menu_->addAction(QString(cell.menu_text).replace(u'&', QStringLiteral("&&")));
        action->setEnabled(cell.zip_found);
        action->setToolTip(cell.number_tip);
        connect(action, &QAction::triggered, this, [this, i] { Choose_recent(static_cast<int>(i)); });
    }
    Refresh_access();
}

void frmMain::Show_tools() {
    if (ui_.script) {
        ui_.script->windows << QStringLiteral("frmTools");
        return;
    }
    frmTools tools(program_, ui_, this);
    tools.exec();
}

} // namespace vantrosk
