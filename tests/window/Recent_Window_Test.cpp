#include "window/Window_World.h"

#include "core/mdlDB_Functions.h"
#include "install/Play.h"
#include "install/Recent.h"
#include "ui/qt/Details_Panel_View.h"
#include "ui/qt/Details_Tabs.h"
#include "ui/qt/Game_Toolbar.h"
#include "ui/qt/Recent_Panel.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

class Recent_Window : public testing::Test {
protected:
    Recent_Window() {
        world.Set_up_game("T2");
        world.program().tweaks.RECENTLY_USED = world.program().tweaks.ENABLE_FM_DETAILS = true;
    }
    void played(const QString &zip, int rank, bool zip_is_there = true) {
        if (zip_is_there)
            world.files.zip("fms/T2/" + zip,
                            {{"miss20.mis", "map"}, {"a.txt", "Title: Frost & Co\r\nGame: Thief 2\r\n"}});
        db_Execute(world.program(),
                   QString("INSERT INTO Table_Recent (zip_name,zip_path,FM_name,Game,rank,installed_date) "
                           "VALUES ('%1','%2\\','Frost & Co','T2',%3,now())")
                       .arg(zip, world.files.windows("fms/T2"))
                       .arg(rank));
        db_Execute(
            world.program(),
            QString("INSERT INTO Table_Scores (zip_name,game,FM_name) VALUES ('%1','T2','x')").arg(zip));
    }
    frmMain &open() {
        frmMain &window = world.Open();
        Display_recently_used(world.program());
        return window;
    }
    QStringList menu() {
        QStringList texts;
        for (const QAction *action : world.window().findChild<QMenu *>("recent_missions_menu")->actions())
            texts << action->text() + (action->isEnabled() ? "" : " (off)");
        return texts;
    }
    QAction *entry() { return world.window().findChild<QAction *>("action_Show_Recently_Used_FMs"); }

    Window_World world;
};

TEST_F(Recent_Window, The_tab_stands_behind_the_details_while_there_is_something_to_show) {
    frmMain &window = open();
    EXPECT_FALSE(window.details_tabs->has(recent_tab_key));
    EXPECT_FALSE(entry()->isEnabled());
    played("a.zip", 1);
    Display_recently_used(world.program());
    EXPECT_EQ(window.details_tabs->keys().mid(0, 2), (QStringList{"FMOptions", "Recently_Used_FMs"}));
    EXPECT_EQ(window.details_tabs->bar()->tabText(1), "Recently Used FMs");
    EXPECT_TRUE(entry()->isEnabled());
    EXPECT_TRUE(Remove_recent(world.program(), 1));
    EXPECT_FALSE(window.details_tabs->has(recent_tab_key));
    EXPECT_FALSE(entry()->isEnabled());
}

TEST_F(Recent_Window, A_cell_goes_back_to_its_mission) {
    played("a.zip", 1);
    frmMain &window = open();
    window.details_tabs->Show(recent_tab_key);
    ASSERT_EQ(window.recent->count(), 1);
    QTest::mouseClick(window.recent->cell(0), Qt::LeftButton);
    EXPECT_EQ(world.program().SELECTED_GAME_TAB, "T2");
    EXPECT_EQ(world.program().FM_PANEL, "a.zip");
    EXPECT_EQ(window.details_tabs->shown(), "FMOptions");
}

TEST_F(Recent_Window, The_keys_reach_the_cells_and_take_one_out) {
    played("a.zip", 1);
    played("b.zip", 2);
    frmMain &window = open();
    window.activateWindow();
    entry()->trigger();
    EXPECT_EQ(window.details_tabs->shown(), recent_tab_key);
    QTest::keyClick(window.recent->cell(1), Qt::Key_Delete);
    EXPECT_EQ(window.recent->count(), 1);
    QTest::keyClick(window.recent->cell(0), Qt::Key_Return);
    EXPECT_EQ(world.program().FM_PANEL, "a.zip");
}

TEST_F(Recent_Window, Ten_cells_keep_their_height_and_the_one_with_the_keys_is_in_view) {
    for (int rank = 1; rank <= 10; ++rank)
        played(QString("%1.zip").arg(rank), rank);
    frmMain &window = open();
    window.resize(1024, 700);
    window.activateWindow();
    entry()->trigger();
    QApplication::processEvents();
    ASSERT_EQ(window.recent->count(), 10);
    for (int i = 0; i < window.recent->count(); ++i) {
        Recent_Cell_View *cell = window.recent->cell(i);
        EXPECT_GE(cell->height(), cell->sizeHint().height()) << i;
        cell->setFocus();
        EXPECT_EQ(cell->visibleRegion().boundingRect().height(), cell->height()) << i;
    }
}

TEST_F(Recent_Window, A_mission_whose_zip_is_gone_is_marked_and_takes_no_click) {
    played("a.zip", 1);
    played("gone.zip", 2, false);
    frmMain &window = open();
    EXPECT_EQ(menu(), (QStringList{"1) Frost && Co", "2) Frost && Co--WARNING Zip Not Found (off)"}));
    QTest::mouseClick(window.recent->cell(1), Qt::LeftButton);
    EXPECT_EQ(world.program().FM_PANEL, "");
    EXPECT_TRUE(window.recent->cell(1)->toolTip().endsWith(" -- WARNING: Zip Not Found"));
    EXPECT_EQ(window.recent->cell(1)->findChild<QLabel *>("recent_number")->text(), "2");
}

TEST_F(Recent_Window, The_end_of_a_game_brings_the_details_to_the_front) {
    played("a.zip", 1);
    frmMain &window = open();
    window.details_tabs->Show(recent_tab_key);
    After_Play(world.program());
    EXPECT_EQ(window.details_tabs->shown(), "FMOptions");
}

TEST_F(Recent_Window, The_editor_button_bears_the_editors_name) {
    frmMain &window = open();
    world.Fill_list(2);
    world.program().screen.editor = {"&ShockEd", "Load Mission into ShockEd", true};
    world.Select_mission(1, true);
    QPushButton *editor = window.details->editor();
    EXPECT_EQ(editor->text(), "&ShockEd");
    EXPECT_EQ(editor->toolTip(), "Load Mission into ShockEd");
    EXPECT_TRUE(editor->isEnabled());
    world.program().screen.editor.enabled = false;
    world.ui.details_changed();
    EXPECT_FALSE(editor->isEnabled());
}

TEST_F(Recent_Window, The_tools_are_opened_by_button_and_menu) {
    frmMain &window = open();
    window.games->tools()->click();
    window.findChild<QAction *>("action_Plugin_Toolset_And_More_Tools")->trigger();
    EXPECT_EQ(world.script().windows, (QStringList{"frmTools", "frmTools"}));
}

} // namespace
} // namespace vantrosk
