#include "window/Window_World.h"

#include "core/mdlStartup.h"
#include "ui/qt/Details_Tabs.h"
#include "ui/qt/Fm_List_Panel.h"
#include "ui/qt/Games_Panel_View.h"
#include "ui/qt/Window_Commands.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QTabBar>
#include <QTest>

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

/// A window with Thief 2 and a game of the user's own.
class Games_Panel_Window : public testing::Test {
protected:
    Games_Panel_Window() {
        world.files.write("home/Vantrosk_QBAR.ini",
                          ("[QBAR_1]\r\nisgame=TRUE\r\nGameName=Quake & Co\r\nToolTip=My Quake\r\nFMpath=" +
                           world.files.windows("maps") + "\r\nInstallPath=" +
                           world.files.windows("games/quake") + "\r\nMissionFileExtention=bsp\r\n")
                              .toUtf8());
        world.files.zip("maps/vault.zip", {{"vault.bsp", "map", {}}});
        Read_Quick_Bar_Games(world.program());
        world.Set_up_game("T2");
        world.files.zip("fms/T2/frost.zip",
                        {{"miss20.mis", "m", {}}, {"readme.txt", "Title: Frost\r\nGame: Thief 2\r\n", {}}});
        world.Open(1024, 700);
        world.window().details_tabs->Show("Game_Details");
        panel = world.window().games_panel;
    }

    void click(const QString &game) {
        const QRect row = panel->visualItemRect(panel->row_of(game));
        QTest::mouseClick(panel->viewport(), Qt::LeftButton, {}, row.center());
        QCoreApplication::processEvents();
    }
    QStringList cells(const QString &game) {
        QStringList texts;
        for (int column = 0; column < panel->columnCount(); ++column)
            texts << panel->row_of(game)->text(column);
        return texts;
    }
    QStringList listed() {
        QStringList zips;
        for (const Fm_Row &row : world.program().screen.list.rows)
            zips << row.cells[col_zip];
        return zips;
    }

    Window_World world;
    Games_Panel_View *panel = nullptr;
};

} // namespace

TEST_F(Games_Panel_Window, A_click_on_a_game_lists_its_missions_and_shows_what_was_counted) {
    click("T2");
    EXPECT_EQ(listed(), (QStringList{"Original", "frost.zip"}));
    const QString size = cells("T2")[2];
    EXPECT_EQ(cells("T2"), (QStringList{"Thief The Metal Age", "1", size, "0", "0"}));
    EXPECT_TRUE(size.endsWith(" Bytes")) << size.toStdString();
}

TEST_F(Games_Panel_Window, A_game_of_the_users_own_is_listed_like_any_other) {
    click("Quake & Co");
    EXPECT_EQ(listed(), (QStringList{"Original", "vault.zip"}));
    EXPECT_EQ(world.program().custom_name, "Quake & Co");
    EXPECT_EQ(cells("Quake & Co")[1], "1");
    EXPECT_EQ(panel->row_of("Quake & Co")->toolTip(0), "My Quake");
    world.files.zip("maps/second.zip", {{"second.bsp", "map", {}}});
    world.window().commands->Scan_again();
    EXPECT_EQ(listed(), (QStringList{"Original", "second.zip", "vault.zip"}));
    world.window().commands->Choose_filter("CUSTOM", 1);
    EXPECT_EQ(listed(), QStringList("Original"));
    world.window().commands->Choose_filter(world.program().SELECTED_GAME_TAB, 0);
    EXPECT_EQ(listed().size(), 3);
}

TEST_F(Games_Panel_Window, Enter_chooses_and_a_game_that_is_not_set_up_can_not_be_chosen) {
    panel->setCurrentItem(panel->row_of("Quake & Co"));
    QTest::keyClick(panel, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(listed(), (QStringList{"Original", "vault.zip"}));
    EXPECT_TRUE(panel->row_of("SS2")->isDisabled());
    click("SS2");
    EXPECT_EQ(listed(), (QStringList{"Original", "vault.zip"}));
}

TEST_F(Games_Panel_Window, The_games_menu_offers_it_too) {
    auto *menu = world.window().findChild<QMenu *>("custom_games_menu");
    ASSERT_TRUE(menu);
    EXPECT_TRUE(menu->menuAction()->isEnabled());
    Q_EMIT menu->aboutToShow();
    ASSERT_EQ(menu->actions().size(), 1);
    EXPECT_EQ(menu->actions()[0]->text(), "Quake && Co");
    menu->actions()[0]->trigger();
    EXPECT_EQ(listed(), (QStringList{"Original", "vault.zip"}));
}

TEST_F(Games_Panel_Window, An_empty_list_names_the_game) {
    world.files.write("home/Vantrosk_QBAR.ini", "[QBAR_1]\r\nisgame=TRUE\r\nGameName=Quake & Co\r\n");
    world.window().commands->Choose_custom_game("Quake & Co");
    QString sentence;
    for (const QLabel *label : world.window().list->findChildren<QLabel *>())
        if (label->text().startsWith("No missions"))
            sentence = label->text();
    EXPECT_EQ(sentence, "No missions for Quake & Co were found in its mission folders.");
}

TEST_F(Games_Panel_Window, Another_games_list_starts_whole_and_a_new_scan_stays_searched) {
    click("T2");
    world.window().find->setText("frost");
    world.window().commands->Scan_again();
    EXPECT_EQ(world.window().find->text(), "frost");
    click("Quake & Co");
    EXPECT_EQ(world.window().find->text(), "");
    EXPECT_EQ(world.window().list->Shown_missions(), 1);
}

TEST_F(Games_Panel_Window, At_1024_by_700_all_tabs_and_columns_are_seen) {
    const QTabBar *bar = world.window().details_tabs->bar();
    EXPECT_LE(bar->tabRect(bar->count() - 1).right(), world.window().details_tabs->width());
    EXPECT_FALSE(panel->horizontalScrollBar()->isVisible());
}

} // namespace vantrosk
