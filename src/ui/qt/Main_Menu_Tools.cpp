#include "Qt_Ui.h"
#include "frmGameDiag.h"
#include "frmMain.h"

#include "core/Program.h"

#include <QMenuBar>

namespace vantrosk {

void frmMain::Make_tools_menu() {
    QMenu *menu = menuBar()->addMenu(QStringLiteral("&Tools"));
    QMenu *general = menu->addMenu(QStringLiteral("&General Tools"));
    general->setObjectName(QStringLiteral("general_tools_menu"));
    general->menuAction()->setToolTip(QStringLiteral("Tools for every game"));
    Add_action(general, QStringLiteral("Game &Diagnostic Tool"), QStringLiteral("Ctrl+Shift+G"),
               QStringLiteral("Tells what differs between a game's folder and a known-good listing"),
               [this] { Show_game_diagnostic(); });
    Add_action(menu, QStringLiteral("&Plugin Toolset And More Tools"), QStringLiteral("Ctrl+T"),
               QStringLiteral("Your own tools, and those that come with Vantrosk"), [this] { Show_tools(); });
}

void frmMain::Show_game_diagnostic() {
    if (ui_.script) {
        ui_.script->windows << QStringLiteral("frmGameDiag");
        return;
    }
    frmGameDiag tool(program_, ui_, theme_, program_.SELECTED_GAME_TAB, this);
    tool.exec();
}

} // namespace vantrosk
