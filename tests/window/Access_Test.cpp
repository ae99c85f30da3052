#include "window/Window_World.h"

#include "ui/qt/Error_Box.h"
#include "ui/qt/Full_Lite_Question.h"
#include "ui/qt/Message_Boxes.h"
#include "ui/qt/Notes_Window.h"
#include "ui/qt/Set_Up_Game.h"
#include "ui/qt/Trace_Console_Window.h"
#include "ui/qt/frmGameDiag.h"
#include "ui/qt/frmSettings.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QShortcut>
#include <QTabBar>

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace vantrosk {

namespace {

bool Is_control(const QWidget *widget) {
    const bool is_one = qobject_cast<const QAbstractButton *>(widget) ||
                        qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QComboBox *>(widget) ||
                        qobject_cast<const QAbstractItemView *>(widget) ||
                        qobject_cast<const QTabBar *>(widget) || qobject_cast<const QProgressBar *>(widget) ||
                        qobject_cast<const QPlainTextEdit *>(widget);
    const QString name = widget->objectName();
    // What the toolkit builds into its own controls is named by them.
    const bool is_a_part = name.startsWith("qt_") || qobject_cast<QComboBox *>(widget->parentWidget()) ||
                           qobject_cast<QLineEdit *>(widget->parentWidget()) ||
                           qobject_cast<QTabBar *>(widget->parentWidget()) ||
                           qobject_cast<QAbstractItemView *>(widget->parentWidget()) ||
                           qobject_cast<QMenuBar *>(widget->parentWidget()) != nullptr;
    const bool is_find = name == "find_in_list";
    const bool in_a_popup = widget->window() != widget && widget->window()->windowType() == Qt::Popup;
    return is_one && (is_find || !is_a_part) && !in_a_popup;
}

bool Has_a_key(const QWidget *widget) {
    if (widget->focusPolicy() & Qt::TabFocus)
        return true;
    const auto *button = qobject_cast<const QAbstractButton *>(widget);
    return button && (!button->shortcut().isEmpty() || button->text().contains(u'&'));
}

/// What no one needs to reach: it only shows.
bool Only_shows(const QWidget *widget) {
    return qobject_cast<const QProgressBar *>(widget) != nullptr;
}

void Expect_accessible(const QWidget &window) {
    std::set<QString> names;
    int controls = 0;
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        if (!Is_control(widget))
            continue;
        ++controls;
        const std::string what =
            widget->objectName().toStdString() + " (" + widget->metaObject()->className() + ")";
        EXPECT_FALSE(widget->objectName().isEmpty()) << what;
        EXPECT_TRUE(names.insert(widget->objectName()).second) << what << " is there twice";
        EXPECT_FALSE(widget->accessibleName().isEmpty()) << what << " has no name for a screen reader";
        EXPECT_FALSE(widget->toolTip().isEmpty()) << what << " has no tip";
        EXPECT_TRUE(Only_shows(widget) || Has_a_key(widget)) << what << " can not be reached by keys";
    }
    EXPECT_GT(controls, 0);
}

QChar Mnemonic(const QString &text) {
    const qsizetype at = text.indexOf(u'&');
    return at >= 0 && at + 1 < text.size() ? text[at + 1].toLower() : QChar();
}

} // namespace

TEST(Access, Every_control_of_the_window_has_a_name_a_tip_and_a_key) {
    Window_World world;
    world.Set_up_game("T2");
    Expect_accessible(world.Open());
}

TEST(Access, So_has_every_control_of_the_dialogs) {
    Window_World world;
    world.Open();
    Expect_accessible(Set_Up_Dialog(world.program(), world.ui, "T2", nullptr));
    Expect_accessible(Input_Dialog({"Title", "Prompt", "", "text", ""}, nullptr));
    Expect_accessible(Notes_Window(world.program(), world.files.windows("home/x.txt"), nullptr));
    Expect_accessible(Full_Lite_Question(nullptr));
    Expect_accessible(frmSettings(world.program(), nullptr));
    Expect_accessible(Trace_Console_Window(world.program(), world.ui));
    Expect_accessible(
        frmGameDiag(world.program(), world.ui, Make_Theme(world.program().tweaks), "T2", nullptr));
    for (const Buttons buttons : {Buttons::ok, Buttons::ok_cancel, Buttons::yes_no})
        Expect_accessible(*Make_box({Box_Kind::question, "t", "x", buttons, Answer::no}, nullptr));
    for (const Buttons buttons : {Buttons::ok, Buttons::ok_cancel, Buttons::yes_no})
        Expect_accessible(Error_Box({Box_Kind::critical, "t", "x", buttons, Answer::no}, nullptr));
}

TEST(Access, No_two_entries_share_a_shortcut) {
    Window_World world;
    world.Open();
    std::map<QString, QString> owners;
    for (const QAction *action : world.window().findChildren<QAction *>())
        if (!action->shortcut().isEmpty()) {
            const QString keys = action->shortcut().toString();
            EXPECT_TRUE(owners.emplace(keys, action->text()).second)
                << keys.toStdString() << ": " << owners[keys].toStdString() << ", "
                << action->text().toStdString();
        }
    for (const QAbstractButton *button : world.window().findChildren<QAbstractButton *>())
        if (!button->shortcut().isEmpty() && !button->isHidden()) {
            const QString keys = button->shortcut().toString();
            EXPECT_TRUE(owners.emplace(keys, button->text()).second)
                << keys.toStdString() << ": " << owners[keys].toStdString() << ", "
                << button->text().toStdString();
        }
    for (const QShortcut *shortcut : world.window().findChildren<QShortcut *>())
        if (shortcut->context() == Qt::WindowShortcut) {
            const QString keys = shortcut->key().toString();
            EXPECT_TRUE(owners.emplace(keys, shortcut->parent()->objectName()).second)
                << keys.toStdString() << ": " << owners[keys].toStdString() << ", "
                << shortcut->parent()->objectName().toStdString();
        }
}

TEST(Access, Without_a_game_an_entry_that_needs_one_is_off_and_says_why) {
    Window_World world;
    frmMain &window = world.Open();
    ASSERT_TRUE(window.shows_empty_state());
    QStringList usable;
    for (const QAction *top : window.menuBar()->actions())
        for (const QAction *action : top->menu()->actions()) {
            if (action->isSeparator() || !action->isVisible())
                continue;
            if (action->isEnabled())
                usable << QString(action->text()).remove(u'&');
            else
                EXPECT_TRUE(action->toolTip().contains(": ")) << action->text().toStdString();
        }
    EXPECT_EQ(usable.join(u'|'), "Set up a game…|Settings…|Exit|" + world.program().screen.menu.mode +
                                     "|General Tools|Plugin Toolset And More Tools|About Vantrosk");
    world.Set_up_game("T2");
    for (const char *name : {"action_Find", "action_Taller_list", "action_Go_to_the_list"}) {
        EXPECT_TRUE(window.findChild<QAction *>(name)->isEnabled()) << name;
        EXPECT_FALSE(window.findChild<QAction *>(name)->toolTip().contains("no game is set up")) << name;
    }
}

TEST(Access, Letters_are_unique_within_a_menu_and_every_entry_of_ours_has_one) {
    Window_World world;
    world.Open();
    QList<QMenu *> menus;
    std::set<QChar> top;
    for (const QAction *action : world.window().menuBar()->actions()) {
        EXPECT_TRUE(top.insert(Mnemonic(action->text())).second) << action->text().toStdString();
        menus << action->menu();
    }
    EXPECT_EQ(menus.size(), 5);
    for (const QMenu *menu : menus) {
        std::set<QChar> letters;
        for (const QAction *action : menu->actions()) {
            if (action->isSeparator())
                continue;
            EXPECT_FALSE(Mnemonic(action->text()).isNull()) << action->text().toStdString();
            EXPECT_TRUE(letters.insert(Mnemonic(action->text())).second) << action->text().toStdString();
            EXPECT_FALSE(action->toolTip().isEmpty()) << action->text().toStdString();
        }
    }
}

TEST(Access, Tab_leads_through_every_control_that_can_be_used) {
    Window_World world;
    world.Set_up_game("T2");
    frmMain &window = world.Open();
    world.Fill_list(3);
    world.Select_mission(1, false);
    std::set<const QWidget *> chain;
    for (const QWidget *widget = window.nextInFocusChain(); widget != &window;
         widget = widget->nextInFocusChain())
        chain.insert(widget);
    for (const char *name : {"game_T2", "configure", "help", "fm_table", "install", "find_in_list"})
        EXPECT_TRUE(chain.count(window.findChild<QWidget *>(name))) << name;
}

TEST(Access, The_focus_can_be_seen) {
    Window_World world;
    world.Set_up_game("T2");
    frmMain &window = world.Open();
    world.Fill_list(3);
    world.Select_mission(1, false);
    window.activateWindow();
    for (const char *name : {"game_T2", "configure", "fm_table", "install", "find_in_list"}) {
        auto *widget = window.findChild<QWidget *>(name);
        window.setFocus();
        const QImage without = widget->grab().toImage();
        widget->setFocus(Qt::TabFocusReason);
        ASSERT_TRUE(widget->hasFocus()) << name;
        EXPECT_NE(widget->grab().toImage(), without) << name;
    }
}

} // namespace vantrosk
