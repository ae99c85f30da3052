#include "window/Window_World.h"

#include "core/Games.h"
#include "core/mdlFile_Functions.h"
#include "ui/qt/Details_Panel_View.h"
#include "ui/qt/Fm_List_Panel.h"
#include "ui/qt/Fm_Table.h"
#include "ui/qt/Game_Toolbar.h"
#include "ui/qt/Readme_Panel.h"
#include "ui/qt/Set_Up_Game.h"
#include "ui/qt/Status_Bar.h"
#include "ui/qt/Window_Commands.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QSplitter>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

class Main_Window : public ::testing::Test {
protected:
    Main_Window() { world.Set_up_game("T2"); }
    ~Main_Window() override { qunsetenv("VANTROSK_RUNNER"); }

    QAction *Action(const QString &name) { return world.window().findChild<QAction *>("action_" + name); }
    QString Stored(const QString &key) { return world.files.platform.settings->value("FORMSETTINGS", key); }
    void Store(const QString &key, const QString &value) {
        (void)world.files.platform.settings->set_value("FORMSETTINGS", key, value);
    }
    bool Is_idle() { return !world.window().commands->is_working() && !world.program().screen.busy; }
    bool Wait_for(const std::function<bool()> &done) {
        return Window_World::Wait_until([&] { return Is_idle() && done(); });
    }
    void Press(QAbstractButton *button) { QTest::mouseClick(button, Qt::LeftButton); }
    /// A list row by its zip cell, as the user clicks it.
    bool Click_row(const QString &zip) {
        Fm_Table *table = world.window().list->table();
        const int row = world.program().screen.list.find_zip(zip);
        const QModelIndex index = table->model()->index(row, col_name);
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, table->visualRect(index).center());
        return Wait_for([&] { return world.program().FM_PANEL == zip; });
    }
    QString Ready_cell(const QString &zip) {
        const Fm_List &list = world.program().screen.list;
        return list.rows[static_cast<size_t>(list.find_zip(zip))].cells[col_ready];
    }
    /// Two missions for Thief 2, and a game that only says that it was started.
    void Make_road() {
        world.files.write("games/T2/thief2.exe", "MZ");
        world.files.write("games/T2/convict.osm", "osm");
        world.files.write("games/T2/darkhooks.dlx", "dlx");
        world.files.write("games/T2/STRINGS/title.txt", "the game's own");
        world.files.zip("fms/T2/frost.zip",
                        {{"frost.txt", "Title: The Killing Frost\r\nAuthor: Mirek\r\nGame: Thief 2\r\n"},
                         {"miss20.mis", "mission"},
                         {"titles.str", "title_0: \"x\"\r\n"},
                         {"strings/title.txt", "the mission's"}});
        world.files.zip(
            "fms/T2/harbour.zip",
            {{"harbour.txt", "Title: A Night at the Harbour\r\nAuthor: Ann Lee\r\nGame: Thief 2\r\n"},
             {"miss20.mis", "mission"},
             {"titles.str", "title_0: \"x\"\r\n"}});
        world.files.write("runner", "#!/bin/sh\nexit 0\n");
        QFile::setPermissions(world.files.native("runner"),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("VANTROSK_RUNNER", QFile::encodeName(world.files.native("runner")));
    }

    Window_World world;
};

} // namespace

TEST_F(Main_Window, At_1024_by_700_the_list_keeps_six_missions_and_play_and_install_are_seen) {
    frmMain &window = world.Open(1024, 700);
    world.Fill_list(40);
    world.Select_mission(1, false);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.size(), QSize(1024, 700));
    window.findChild<QSplitter *>("list_splitter")->setSizes({0, 1000});
    QCoreApplication::processEvents();
    for (int row = 0; row <= 6; ++row)
        EXPECT_TRUE(window.list->table()->Row_is_visible(row)) << row;
    const QRect whole = window.rect();
    for (const QWidget *widget :
         {static_cast<QWidget *>(window.details->play()), static_cast<QWidget *>(window.details->install()),
          static_cast<QWidget *>(window.status), static_cast<QWidget *>(window.find),
          static_cast<QWidget *>(window.games->help()),
          static_cast<QWidget *>(window.games->button_of("SS2"))}) {
        const QRect place(widget->mapTo(&window, QPoint()), widget->size());
        EXPECT_TRUE(whole.contains(place)) << widget->objectName().toStdString();
        EXPECT_FALSE(widget->visibleRegion().isEmpty()) << widget->objectName().toStdString();
        EXPECT_EQ(widget->visibleRegion().boundingRect().size(), widget->size())
            << widget->objectName().toStdString();
    }
}

TEST_F(Main_Window, At_its_smallest_six_rows_and_play_are_still_seen) {
    frmMain &window = world.Open(100, 100);
    world.Fill_list(40);
    world.Select_mission(1, true);
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.list->table()->Row_is_visible(5));
    EXPECT_EQ(window.details->play()->visibleRegion().boundingRect().size(), window.details->play()->size());
}

TEST_F(Main_Window, The_readme_takes_the_room_that_a_large_window_gives) {
    frmMain &window = world.Open(1920, 1080);
    EXPECT_GT(window.readme->width(), 1200);
    EXPECT_EQ(window.details->width(), 448);
}

TEST_F(Main_Window, Size_splitter_and_column_widths_are_kept_across_starts) {
    frmMain &window = world.Open(1111, 777);
    window.list->table()->setColumnWidth(col_author, 133);
    auto *splitter = window.findChild<QSplitter *>("list_splitter");
    splitter->setSizes({320, splitter->height() - 320});
    Q_EMIT splitter->splitterMoved(320, 1);
    EXPECT_TRUE(Window_World::Wait_until([this] { return !Stored("FLEXGRIDHEIGHT").isEmpty(); }));
    window.close();
    EXPECT_EQ(Stored("FULLSCREEN"), "0");
    EXPECT_EQ(Stored("FORMWIDTH"), "1111");
    EXPECT_EQ(Stored("FORMHEIGHT"), "777");
    EXPECT_EQ(Stored("FLEXGRID_COLUMN0WIDTH"), "0");
    EXPECT_EQ(Stored("FLEXGRID_COLUMN3WIDTH"), "133");
    const int height = Stored("FLEXGRIDHEIGHT").toInt();

    Window_World again_world;
    again_world.Set_up_game("T2");
    Window_Geometry &kept = again_world.program().screen.window;
    kept.width = 1111;
    kept.height = 777;
    kept.list_height = height;
    kept.column_widths.assign(column_count, 70);
    kept.column_widths[col_author] = 133;
    frmMain again(again_world.program(), again_world.ui);
    again.Open();
    EXPECT_EQ(again.size(), QSize(1111, 777));
    EXPECT_EQ(again.list->height(), height);
    EXPECT_EQ(again.list->table()->columnWidth(col_author), 133);
}

TEST_F(Main_Window, The_list_has_two_fifths_of_the_height_until_the_user_divides_it_otherwise) {
    const auto part = [this] {
        const auto *splitter = world.window().findChild<QSplitter *>("list_splitter");
        return 100 * splitter->sizes()[0] / (splitter->height() - splitter->handleWidth());
    };
    world.Open();
    EXPECT_NEAR(part(), 40, 1);
    world.Close();
    world.program().ini = {};
    world.Open();
    EXPECT_TRUE(world.window().shows_empty_state());
    world.Set_up_game("T2");
    QCoreApplication::processEvents();
    EXPECT_FALSE(world.window().shows_empty_state());
    EXPECT_NEAR(part(), 40, 1) << "when the first game is set up, too";
}

TEST_F(Main_Window, A_maximised_window_keeps_its_normal_size) {
    frmMain &window = world.Open(1111, 777);
    window.showMaximized();
    QCoreApplication::processEvents();
    window.close();
    EXPECT_EQ(Stored("FULLSCREEN"), "2");
    EXPECT_EQ(Stored("FORMWIDTH"), "");
}

TEST_F(Main_Window, Without_a_game_the_whole_window_says_what_to_do) {
    world.program().ini = {};
    frmMain &window = world.Open();
    EXPECT_TRUE(window.shows_empty_state());
    EXPECT_FALSE(window.find->isVisible());
    world.Set_up_game("SS2");
    EXPECT_NEAR(window.list->height(), window.list->parentWidget()->height() * 2 / 5, 5);
    EXPECT_FALSE(window.shows_empty_state());
    EXPECT_TRUE(window.find->isVisible());
}

TEST_F(Main_Window, While_a_procedure_works_nothing_takes_clicks_and_a_second_one_is_refused) {
    frmMain &window = world.Open();
    world.Fill_list(2);
    world.Select_mission(1, false);
    bool inner_ran = false;
    window.commands->Run("outer", [&] {
        EXPECT_FALSE(window.list->isEnabled());
        EXPECT_FALSE(window.games->isEnabled());
        EXPECT_FALSE(window.details->install()->isEnabled());
        EXPECT_FALSE(window.menuBar()->isEnabled());
        EXPECT_FALSE(Action("Install")->isEnabled());
        EXPECT_TRUE(window.isEnabled());
        EXPECT_FALSE(window.commands->Run("inner", [&] { inner_ran = true; }));
        world.ui.pump_events();
    });
    EXPECT_FALSE(inner_ran);
    EXPECT_TRUE(window.list->isEnabled());
    EXPECT_TRUE(Action("Install")->isEnabled());
}

TEST_F(Main_Window, A_busy_program_disables_the_window_as_well) {
    frmMain &window = world.Open();
    world.ui.set_busy(true);
    EXPECT_FALSE(window.list->isEnabled());
    world.ui.set_busy(false);
    EXPECT_TRUE(window.list->isEnabled());
}

TEST_F(Main_Window, After_the_work_the_keys_go_where_they_went_before) {
    frmMain &window = world.Open();
    world.Fill_list(2);
    window.activateWindow();
    window.list->setFocusToList();
    window.commands->Run("work", [] {});
    EXPECT_EQ(window.focusWidget(), window.list->table());
}

TEST_F(Main_Window, A_fault_in_the_work_is_told_and_the_window_goes_on) {
    frmMain &window = world.Open();
    window.commands->Run("Get_archives", [] { throw std::runtime_error("broken"); });
    ASSERT_EQ(world.script().boxes.size(), 1U);
    EXPECT_TRUE(world.script().boxes[0].text.contains("Get_archives"));
    EXPECT_FALSE(window.commands->is_working());
    EXPECT_TRUE(window.list->isEnabled());
}

TEST_F(Main_Window, Closed_over_its_work_it_closes_when_the_work_is_done) {
    frmMain &window = world.Open();
    QSignalSpy closed(&window, &frmMain::Closed);
    window.commands->Run("install", [&] {
        window.close();
        world.ui.pump_events();
        EXPECT_TRUE(window.isVisible());
    });
    EXPECT_TRUE(Window_World::Wait_until([&] { return closed.size() == 1; }));
    EXPECT_FALSE(window.isVisible());
    window.close();
    EXPECT_EQ(closed.size(), 1);
}

TEST_F(Main_Window, Caption_status_light_progress_and_count_are_shown) {
    frmMain &window = world.Open();
    world.Fill_list(7);
    world.ui.set_caption("Vantrosk1.4194 - 3-March-09");
    world.ui.set_status_panel(1, "Checking frost.zip");
    world.ui.set_status_panel(2, "12%");
    world.ui.set_status_light(2, "WORKING");
    world.ui.set_progress(true, 3, 4);
    EXPECT_EQ(window.windowTitle(), "Vantrosk1.4194 - 3-March-09");
    EXPECT_EQ(window.status->panel_text(1), "Checking frost.zip");
    EXPECT_EQ(window.status->panel_text(2), "12%");
    EXPECT_EQ(window.status->light_text(), "WORKING");
    EXPECT_EQ(window.status->percent_text(), "75%");
    EXPECT_EQ(window.status->count_text(), "7 FMs");
    window.find->setText("0003");
    EXPECT_EQ(window.status->count_text(), "1 of 7 FMs");
}

TEST_F(Main_Window, Ctrl_f_goes_to_the_search_and_escape_shows_all_again) {
    frmMain &window = world.Open();
    world.Fill_list(7);
    window.activateWindow();
    Action("Find")->trigger();
    EXPECT_EQ(window.focusWidget(), window.find);
    QTest::keyClicks(window.find, "0005");
    EXPECT_EQ(window.list->Shown_missions(), 1);
    QTest::keyClick(window.find, Qt::Key_Escape);
    EXPECT_EQ(window.find->text(), "");
    EXPECT_EQ(window.list->Shown_missions(), 7);
    EXPECT_EQ(window.focusWidget(), window.list->table());
    Action("Find")->trigger();
    QTest::keyClick(window.find, Qt::Key_Down);
    EXPECT_EQ(window.focusWidget(), window.list->table());
}

TEST_F(Main_Window, The_splitter_moves_by_keys) {
    frmMain &window = world.Open();
    const int height = window.list->height();
    Action("Taller_list")->trigger();
    EXPECT_EQ(window.list->height(), height + 50);
    Action("Lower_list")->trigger();
    EXPECT_EQ(window.list->height(), height);
}

TEST_F(Main_Window, The_list_can_be_sorted_from_the_menu) {
    frmMain &window = world.Open();
    world.Fill_list(3);
    QStringList names;
    QAction *by_zip = nullptr;
    for (QAction *action : window.findChild<QMenu *>("sort_menu")->actions()) {
        names << action->text();
        by_zip = action->text() == "Zip" ? action : by_zip;
    }
    EXPECT_EQ(names.join(u'|'),
              "FM Name|Zip|Author|Size|Score|Grp Score|Last Played|Review|Finished|Game|Ready|"
              "Zip Date|Category");
    by_zip->trigger();
    EXPECT_TRUE(world.program().screen.list.headings[col_zip].endsWith("Zip"));
    EXPECT_EQ(world.program().screen.list.headings[col_zip].size(), 5);
    EXPECT_EQ(world.program().screen.list.rows[0].cells[col_zip], "Original");
}

TEST_F(Main_Window, Games_that_are_not_set_up_can_not_be_chosen_from_the_menu) {
    world.Open();
    for (const Game &game : Games())
        for (QAction *action : world.window().findChildren<QAction *>())
            if (action->data().toString() == game.code) {
                EXPECT_EQ(action->isEnabled(), QString(game.code) == "T2") << game.code;
            }
}

TEST_F(Main_Window, Notes_are_shown_from_their_file) {
    world.Open();
    world.files.write("home/notes.txt", "STEPS TO FIX");
    world.ui.show_notes(world.files.windows("home/notes.txt"));
    EXPECT_EQ(world.script().notes, QStringList{world.files.windows("home/notes.txt")});
}

TEST_F(Main_Window,
       One_mission_is_scanned_selected_read_installed_played_and_the_original_missions_put_back) {
    Make_road();
    frmMain &window = world.Open();
    const Snapshot before = world.files.snapshot("games/T2");

    Press(window.games->button_of("T2"));
    ASSERT_TRUE(Wait_for([&] { return world.program().SELECTED_GAME_TAB == "T2"; }));
    EXPECT_EQ(window.list->Shown_missions(), 2);
    EXPECT_EQ(window.status->count_text(), "2 FMs");
    EXPECT_TRUE(window.games->button_of("T2")->isChecked());

    ASSERT_TRUE(Click_row("frost.zip"));
    EXPECT_EQ(window.details->shown_text("details_name"), "The Killing Frost");
    EXPECT_EQ(window.details->shown_text("details_author"), "Mirek");
    EXPECT_TRUE(window.readme->shows_a_page());
    EXPECT_TRUE(Window_World::Wait_until([&] { return !window.readme->is_loading(); }));
    EXPECT_TRUE(window.details->install()->isEnabled());
    EXPECT_FALSE(window.details->play()->isEnabled());

    Press(window.details->install());
    ASSERT_TRUE(Wait_for([&] { return Ready_cell("frost.zip") == "Yes"; }));
    EXPECT_EQ(window.details->install()->text(), "&Installed");
    EXPECT_TRUE(world.files.exists("games/T2/miss20.mis"));
    EXPECT_EQ(world.files.read("games/T2/STRINGS/title.txt"), "the mission's");

    Press(window.details->play());
    ASSERT_TRUE(Wait_for([&] { return window.commands->last_play().started; }));
    EXPECT_EQ(window.commands->last_play().start.command.first(), world.files.native("runner"));

    ASSERT_TRUE(Click_row("Original"));
    Press(window.details->install());
    ASSERT_TRUE(Wait_for([&] { return Ready_cell("frost.zip").isEmpty(); }));
    Snapshot after = world.files.snapshot("games/T2");
    for (const auto &[name, content] : before) {
        EXPECT_EQ(after.count(name), 1U) << name.toStdString();
        EXPECT_EQ(after[name], content) << name.toStdString();
    }
    EXPECT_FALSE(world.files.exists("games/T2/miss20.mis"));
}

TEST_F(Main_Window, A_game_that_does_not_start_is_told_in_the_status_bar) {
    Make_road();
    frmMain &window = world.Open();
    Press(window.games->button_of("T2"));
    ASSERT_TRUE(Wait_for([&] { return world.program().SELECTED_GAME_TAB == "T2"; }));
    ASSERT_TRUE(Click_row("frost.zip"));
    Press(window.details->install());
    ASSERT_TRUE(Wait_for([&] { return Ready_cell("frost.zip") == "Yes"; }));
    qputenv("VANTROSK_RUNNER", QFile::encodeName(world.files.native("no such runner")));
    Press(window.details->play());
    ASSERT_TRUE(Wait_for([&] { return !window.commands->last_play().refusal.isEmpty(); }));
    EXPECT_FALSE(window.commands->last_play().started);
    EXPECT_EQ(window.status->panel_text(1), window.commands->last_play().refusal);
    EXPECT_EQ(window.status->light_picture(), 11);
    EXPECT_TRUE(window.details->play()->isEnabled());
}

TEST_F(Main_Window, A_letter_in_the_list_jumps_to_a_row) {
    Make_road();
    frmMain &window = world.Open();
    Press(window.games->button_of("T2"));
    ASSERT_TRUE(Wait_for([&] { return world.program().SELECTED_GAME_TAB == "T2"; }));
    world.program().screen.list.selected_column = col_zip;
    QTest::keyClick(window.list->table(), 'h');
    const int row = world.program().screen.list.find_zip("harbour.zip");
    EXPECT_EQ(world.program().screen.list.current_row, row);
    EXPECT_EQ(window.list->table()->currentIndex().row(), row);
}

} // namespace vantrosk
