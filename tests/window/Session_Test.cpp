#include "window/Window_World.h"

#include "core/mdlErrorHandler.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "core/mdlStartup.h"
#include "ui/qt/Details_Panel_View.h"
#include "ui/qt/Fm_List_Panel.h"
#include "ui/qt/Fm_Table.h"
#include "ui/qt/Notes_Window.h"
#include "ui/qt/Set_Up_Game.h"
#include "ui/qt/Start_Address.h"
#include "ui/qt/Status_Bar.h"
#include "ui/qt/Window_Commands.h"
#include "ui/qt/Window_Session.h"

#include <QAction>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSplitter>
#include <QTest>

#include <gtest/gtest.h>

#include <ostream>
#include <set>

namespace vantrosk {

namespace {

/// Whole starts of the window over the same files and settings.
class Session : public ::testing::Test {
protected:
    World files;
    Qt_Ui ui;
    std::unique_ptr<Program> program;
    std::unique_ptr<Window_Session> session;

    Session() { Script(); }
    ~Session() override { End(); }
    void End() {
        session.reset();
        program.reset();
    }
    void Script() {
        ui.script.emplace();
        ui.script->screen_room = {1920, 1080};
    }
    bool Start() {
        End();
        Script();
        program = std::make_unique<Program>(files.platform, ui, files.windows("home"));
        session = std::make_unique<Window_Session>(*program, ui);
        return session->Start({});
    }
    /// The state after a first run whose questions were answered, with one game.
    void Settle() {
        ASSERT_TRUE(Start());
        files.make_folder("fms");
        files.make_folder("game");
        program->ini.T2_LOCATION = Join_folder_list({files.windows("fms")});
        program->ini.T2_GAME_LOCATION = files.windows("game");
        ASSERT_FALSE(Write_Main_Ini(*program));
        Choose_Version(*program, Version::full);
    }
    frmMain &Window() { return *session->window(); }
    QString Stored(const QString &key) { return files.platform.settings->value("FORMSETTINGS", key); }
    void Store(const QString &key, const QString &value) {
        EXPECT_FALSE(files.platform.settings->set_value("FORMSETTINGS", key, value));
    }
    QAction *Action(const QString &name) { return Window().findChild<QAction *>("action_" + name); }
    QStringList Titles() {
        QStringList titles;
        for (const Box &box : ui.script->boxes)
            titles << box.title;
        return titles;
    }
};

} // namespace

TEST_F(Session, The_first_run_shows_its_notices_then_its_two_questions) {
    ui.script->version = Version::lite;
    ASSERT_TRUE(Start());
    EXPECT_EQ(ui.script->windows, QStringList({"Full_Lite_Question", "frmSettings"}));
    EXPECT_EQ(Titles().mid(Titles().size() - 4),
              QStringList({"Vantrosk Warning Message 1 of 4", "Vantrosk Warning Message 2 of 4",
                           "Vantrosk Warning Message 3 of 4", "Vantrosk Information Message 4 of 4"}));
    EXPECT_FALSE(program->start.first_run_mode);
    EXPECT_TRUE(Window().isVisible());
    EXPECT_FALSE(Window().is_closed());
}

TEST_F(Session, The_second_start_shows_none_of_it) {
    Settle();
    ASSERT_TRUE(Start());
    EXPECT_EQ(ui.script->windows, QStringList());
    EXPECT_EQ(Titles().filter("Message"), QStringList());
    EXPECT_EQ(Action("Go_Lite_Mode")->text(), "&Go Lite Mode");
}

TEST_F(Session, Lite_mode_leaves_play_and_install_and_takes_the_rest_of_the_details) {
    Settle();
    ASSERT_TRUE(Start());
    auto *facts = Window().details->findChild<QWidget *>("details_facts_area");
    ASSERT_NE(facts, nullptr);
    EXPECT_FALSE(facts->isHidden());
    Action("Go_Lite_Mode")->trigger();
    EXPECT_TRUE(facts->isHidden());
    EXPECT_FALSE(Window().details->play()->isHidden());
    EXPECT_FALSE(Window().details->install()->isHidden());
    EXPECT_EQ(Action("Go_Lite_Mode")->text(), "&Go Full Mode");
    ASSERT_TRUE(Start());
    EXPECT_TRUE(Window().details->findChild<QWidget *>("details_facts_area")->isHidden());
    Action("Go_Lite_Mode")->trigger();
    EXPECT_FALSE(Window().details->findChild<QWidget *>("details_facts_area")->isHidden());
}

TEST_F(Session, Size_splitter_and_columns_are_found_again_at_the_next_start) {
    Settle();
    ASSERT_TRUE(Start());
    Window().resize(1111, 777);
    QCoreApplication::processEvents();
    auto *splitter = Window().findChild<QSplitter *>("list_splitter");
    splitter->setSizes({320, splitter->height() - 320});
    Q_EMIT splitter->splitterMoved(320, 1);
    ASSERT_TRUE(Window_World::Wait_until(
        [&] { return !files.platform.settings->value("FORMSETTINGS", "FLEXGRIDHEIGHT").isEmpty(); }));
    Window().list->table()->setColumnWidth(col_author, 133);
    Window().list->table()->setColumnWidth(col_zip, 151);
    const int height = Window().list->height();
    Window().close();
    for (int start = 2; start <= 3; ++start) {
        ASSERT_TRUE(Start());
        EXPECT_EQ(Window().size(), QSize(1111, 777)) << start;
        EXPECT_EQ(Window().list->height(), height) << start;
        EXPECT_EQ(Window().list->table()->columnWidth(col_author), 133) << start;
        EXPECT_EQ(Window().list->table()->columnWidth(col_zip), 151) << start;
        Window().close();
    }
}

TEST_F(Session, A_maximised_window_comes_back_maximised_and_keeps_its_normal_size) {
    Settle();
    ASSERT_TRUE(Start());
    Window().resize(1050, 720);
    QCoreApplication::processEvents();
    Window().close();
    ASSERT_TRUE(Start());
    Window().showMaximized();
    QCoreApplication::processEvents();
    Window().close();
    ASSERT_TRUE(Start());
    EXPECT_TRUE(Window().isMaximized());
    EXPECT_EQ(files.platform.settings->value("FORMSETTINGS", "FORMWIDTH"), "1050");
    EXPECT_EQ(files.platform.settings->value("FORMSETTINGS", "FORMHEIGHT"), "720");
}

TEST_F(Session, A_size_from_a_larger_screen_is_cut_to_what_this_one_has_room_for) {
    Settle();
    Store("FORMWIDTH", "1900");
    Store("FORMHEIGHT", "1060");
    End();
    Script();
    program = std::make_unique<Program>(files.platform, ui, files.windows("home"));
    session = std::make_unique<Window_Session>(*program, ui);
    ui.script->screen_room = {1024, 700};
    ASSERT_TRUE(session->Start({}));
    EXPECT_EQ(Window().size(), QSize(1024, 700));
}

TEST_F(Session, The_first_window_of_all_fits_a_small_screen) {
    for (const QSize room :
         {QSize(1024, 700), QSize(960, 540)}) { // the second: a large one at double density
        End();
        Script();
        program = std::make_unique<Program>(files.platform, ui, files.windows("home"));
        session = std::make_unique<Window_Session>(*program, ui);
        ui.script->screen_room = room;
        ASSERT_TRUE(session->Start({}));
        EXPECT_EQ(Window().size(), room);
        Window().close();
    }
}

TEST_F(Session, At_its_end_every_start_leaves_the_keys_with_the_list) {
    Settle();
    ASSERT_TRUE(Start());
    EXPECT_EQ(Window().focusWidget(), Window().list->table());
    ASSERT_FALSE(program->files.remove_file(program->paths.tweaks_ini));
    ui.script->version = Version::full;
    ASSERT_TRUE(Start());
    EXPECT_TRUE(program->first_run);
    EXPECT_EQ(Window().focusWidget(), Window().list->table());
}

TEST_F(Session, Without_a_game_the_keys_are_with_the_set_up) {
    ASSERT_TRUE(Start());
    EXPECT_EQ(Window().focusWidget(), Window().empty_state->set_up()->First_control());
}

TEST_F(Session, Columns_that_the_list_sized_are_stored_and_sized_again_for_another_window) {
    Settle();
    program->tweaks.AUTORESIZE_COLUMNS = true;
    ASSERT_FALSE(Write_Tweaks_Ini(*program));
    ASSERT_TRUE(Start());
    Window().resize(1280, 800);
    QCoreApplication::processEvents();
    const int author = Window().list->table()->columnWidth(col_author);
    Window().close();
    EXPECT_EQ(Stored("FLEXGRID_COLUMN0WIDTH"), "0");
    EXPECT_EQ(Stored("FLEXGRID_COLUMN3WIDTH"), QString::number(author));
    ASSERT_TRUE(Start());
    EXPECT_EQ(Window().list->table()->columnWidth(col_author), author);
    Window().resize(1700, 800);
    QCoreApplication::processEvents();
    EXPECT_GT(Window().list->table()->columnWidth(col_author), author) << "not the names alone";
    Window().list->table()->setColumnWidth(col_author, 101);
    Window().close();
    ASSERT_TRUE(Start());
    Window().resize(1280, 800);
    QCoreApplication::processEvents();
    EXPECT_EQ(Window().list->table()->columnWidth(col_author), 101) << "the user's own";
}

TEST_F(Session, Sizes_of_a_store_where_anybody_may_write_do_no_harm) {
    Settle();
    const std::pair<const char *, const char *> rows[] = {
        {"FORMWIDTH", "-5"},           {"FORMHEIGHT", "999999999999"},      {"FULLSCREEN", "yes"},
        {"FLEXGRIDHEIGHT", "1000000"}, {"FLEXGRID_COLUMN0WIDTH", "banana"}, {"FLEXGRID_COLUMN1WIDTH", "-1"}};
    for (const auto &[key, value] : rows)
        EXPECT_FALSE(files.platform.settings->set_value("FORMSETTINGS", key, value));
    ASSERT_TRUE(Start());
    EXPECT_TRUE(Window().isVisible());
    EXPECT_GE(Window().width(), 900);
    EXPECT_GE(Window().height(), 600);
}

TEST_F(Session, The_log_of_an_unfinished_install_is_shown_and_the_debug_log_kept) {
    Settle();
    files.write("home/install_recover.log", "STEPS TO FIX: none");
    files.write("home/debug.log", "trace");
    ASSERT_TRUE(Start());
    EXPECT_EQ(ui.script->notes, QStringList{files.windows("home/install_recover.log")});
    EXPECT_FALSE(files.exists("home/debug.log"));
}

TEST_F(Session, A_user_who_ends_the_program_in_the_middle_gets_his_will_when_the_work_is_done) {
    Settle();
    ASSERT_TRUE(Start());
    QSignalSpy closed(&Window(), &frmMain::Closed);
    Window().commands->Run("work", [&] {
        program->start.end_requested = true;
        ui.pump_events();
        EXPECT_FALSE(Window().is_closed());
    });
    EXPECT_TRUE(Window_World::Wait_until([&] { return closed.size() == 1; }));
}

TEST_F(Session, A_program_that_is_ended_between_the_works_closes_at_the_next_tick) {
    Settle();
    ASSERT_TRUE(Start());
    program->start.end_requested = true;
    EXPECT_TRUE(Window_World::Wait_until([&] { return Window().is_closed(); }));
}

TEST_F(Session, Without_its_sound_library_it_says_so_and_ends) {
    struct Missing : Audio_Library {
        bool present() const override { return false; }
        QString version() const override { return {}; }
        Result<QString> device() override { return {}; }
        void release() override {}
    };
    program = std::make_unique<Program>(files.platform, ui, files.windows("home"));
    program->audio = std::make_unique<Missing>();
    session = std::make_unique<Window_Session>(*program, ui);
    EXPECT_FALSE(session->Start({}));
    EXPECT_EQ(Titles(), QStringList{"BASS.DLL"});
    EXPECT_EQ(session->window(), nullptr);
}

TEST_F(Session, The_ticks_of_the_window_save_tip_turn_the_light_and_give_the_list_the_keys) {
    Settle();
    ASSERT_TRUE(Start());
    int saved = 0;
    Set_Later_Step(*program, Later_Step::save_details_panel, [&saved] { ++saved; });
    program->SAVE_SCORE_NOW = true;
    EXPECT_TRUE(Window_World::Wait_until([&] { return saved == 1; }));
    program->tweaks.SHOW_TIPS = true;
    Set_Status_Panel(*program, 2, "Scan Complete");
    EXPECT_TRUE(Window_World::Wait_until([&] { return Window().status->panel_text(2).startsWith("TIP: "); }));
    std::set<int> pictures;
    Set_Status_Light(*program, 10);
    EXPECT_TRUE(Window_World::Wait_until([&] {
        pictures.insert(Window().status->light_picture());
        return pictures.size() >= 5;
    }));
    Set_Status_Light(*program, 1);
    EXPECT_EQ(Window().status->light_picture(), 1);
    Window().activateWindow();
    Window().find->setFocus();
    Start_Focus_Timer(*program);
    EXPECT_TRUE(Window_World::Wait_until([&] { return !program->timers.focus_runs; }));
    EXPECT_EQ(Window().focusWidget(), Window().list->table());
}

TEST_F(Session, A_picture_of_the_screen_is_one_bitmap_a_day) {
    Settle();
    ASSERT_TRUE(Start());
    Take_Error_Screenshot(*program);
    Take_Error_Screenshot(*program);
    const QString day = files.clock->now().toString("yyyyMMdd") + ".bmp";
    EXPECT_EQ(Names(files.snapshot("home/ERRORS/Screenshots")), QStringList{day});
    const QImage picture(files.native("home/ERRORS/Screenshots/" + day));
    EXPECT_FALSE(picture.isNull());
    EXPECT_NE(picture, picture.copy(0, 0, 1, 1).scaled(picture.size())) << "the window is to be seen";
    EXPECT_EQ(ui.script->boxes.back().text,
              "Error image file " + files.native("home/ERRORS/Screenshots/" + day) + " created.");
}

namespace {

struct Page_Row {
    const char *start_page, *page;
    Page_Place place;
    const char *shown;
};

/// A failure names the pages, not where they lie in memory.
void PrintTo(const Page_Row &row, std::ostream *out) {
    *out << '"' << row.page << "\" with start page \"" << row.start_page << '"';
}

class Pages : public ::testing::TestWithParam<Page_Row> {};

} // namespace

TEST_P(Pages, Only_what_is_configured_is_shown_in_the_window) {
    const Page_Row &row = GetParam();
    Window_World world;
    world.program().tweaks.STARTUP_PAGE = row.start_page;
    world.program().server_base_url = "http://server.example";
    const Placed_Page placed = Place_page(world.program(), row.page);
    EXPECT_EQ(int(placed.place), int(row.place));
    EXPECT_EQ(placed.file + placed.address.toString(), row.shown);
}

INSTANTIATE_TEST_SUITE_P(
    Start, Pages,
    ::testing::Values(
        Page_Row{"", "about:blank", Page_Place::file, "about:blank"}, Page_Row{"", "", Page_Place::file, ""},
        Page_Row{"", "C:\\INFO\\a.htm", Page_Place::file, "C:\\INFO\\a.htm"},
        Page_Row{"", "c:/INFO/a.htm", Page_Place::file, "c:/INFO/a.htm"},
        Page_Row{"VANTROSK NEWS", "http://server.example/news.pl", Page_Place::page_view,
                 "http://server.example/news.pl"},
        Page_Row{"VANTROSK NEWS", "http://server.example/other.pl", Page_Place::users_browser,
                 "http://server.example/other.pl"},
        Page_Row{"", "http://server.example/news.pl", Page_Place::users_browser,
                 "http://server.example/news.pl"},
        Page_Row{"https://x.example/a", "https://x.example/a", Page_Place::page_view, "https://x.example/a"},
        Page_Row{"https://x.example/a", "https://x.example/b", Page_Place::users_browser,
                 "https://x.example/b"},
        Page_Row{"www.x.example", "www.x.example", Page_Place::page_view, "http://www.x.example"},
        Page_Row{"javascript:alert(1)", "javascript:alert(1)", Page_Place::nowhere, ""},
        Page_Row{"ftp://x.example/a", "ftp://x.example/a", Page_Place::nowhere, ""},
        Page_Row{"http://", "http://", Page_Place::nowhere, ""},
        Page_Row{"some words", "some words", Page_Place::nowhere, ""}));

TEST(Page_Of_A_File, An_address_of_a_file_is_that_file) {
    Window_World world;
    world.files.write("home/page.htm", "x");
    const Placed_Page placed =
        Place_page(world.program(), QUrl::fromLocalFile(world.files.native("home/page.htm")).toString());
    EXPECT_EQ(int(placed.place), int(Page_Place::file));
    EXPECT_EQ(placed.file, world.files.windows("home/page.htm"));
}

} // namespace vantrosk
