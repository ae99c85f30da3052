#include "Startup_World.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct Notices : testing::Test {
    Startup_World start;
    World &world = start.world;

    QStringList markers() {
        const Recordset rows = db_Query(start.program(), "select * from table_messages order by id");
        QStringList names;
        for (int row = 0; row < rows.size(); ++row)
            names << rows.text(row, "message_name");
        return names;
    }
    /// A start with everything seen but these.
    void start_without(const QStringList &unseen) {
        start.settle();
        ASSERT_TRUE(start.load());
        for (const QString &name : unseen)
            db_Execute(start.program(),
                       "delete from table_messages where message_name = " + In_single_quotes(name));
        Initialise_Stage(start.program());
    }
};

const QStringList all_markers{"Initial_Warning", "Script_Warning", "T3_play_Warning", "Custom_Game_Support",
                              "Version_Notes_14194"};

const QStringList all_texts{
    "DISCLAMER/WARNING\nI take NO responisbility if it causes damage to any data on your PC or if it causes "
    "damage to Windows itself, use at your own risk.\n\nIMPORTANT - IF YOU HAVE AN FM ALREADY LOADED IN DARK "
    "LOADER, PLEASE USE IT TO RESTORE YOUR THIEF GAMES TO THE ORIGINAL MISSIONS",
    "WARNING\nVantrosk uses VB script to run Regular Expressions to scan readme files in FM zips, however "
    "this "
    "may cause some firewalls to alert you about Dangerous Scripts running. It is safe to allow Vantrosk to "
    "run these scripts, more information on this can be found in Help System.",
    "WARNING\nIn order to install Thief Deadly Shadows Fan Missions safely you will need to have started a "
    "Thief 3 game (actually playing rather than just up to the menu). This creates the save game folders and "
    "registry information that Vantrosk needs to install T3 Fan Missions.\n\nFailure to do so may result in "
    "a "
    "corrupt Thief Deadly Shadows install.",
    "INFORMATION\nThis version of Vantrosk contains a Custom Game Wizard allowing you to manage Fan Missions "
    "for other games in the same way you can with the Thief games.\nHowever it is important to read the HELP "
    "section CUSTOM GAME SUPPORT before trying to use this feature."};

struct Page_Row {
    const char *tweak;
    QString page;
};

} // namespace

TEST_F(Notices, A_first_start_shows_the_four_in_order_and_marks_them_and_the_version_notes) {
    ASSERT_TRUE(start.start());
    EXPECT_EQ(world.ui.box_texts(), all_texts);
    EXPECT_EQ(start.titles(),
              QStringList({"Vantrosk Warning Message 1 of 4", "Vantrosk Warning Message 2 of 4",
                           "Vantrosk Warning Message 3 of 4", "Vantrosk Information Message 4 of 4"}));
    for (const Box &box : world.ui.boxes)
        EXPECT_EQ(box.kind, Box_Kind::information);
    EXPECT_EQ(markers(), all_markers);
    EXPECT_EQ(world.ui.pages, QStringList({"about:blank", start.home + "\\Version_Notes.htm"}));
}

TEST_F(Notices, A_second_start_shows_none) {
    ASSERT_TRUE(start.start());
    start.renew();
    world.ui.boxes.clear();
    ASSERT_TRUE(start.start());
    EXPECT_TRUE(world.ui.boxes.empty());
    EXPECT_EQ(markers(), all_markers);
}

TEST_F(Notices, Only_the_unseen_are_counted_and_shown) {
    start_without({"Script_Warning", "Custom_Game_Support"});
    EXPECT_EQ(start.titles(),
              QStringList({"Vantrosk Warning Message 1 of 2", "Vantrosk Information Message 2 of 2"}));
    EXPECT_EQ(world.ui.box_texts(), QStringList({all_texts[1], all_texts[3]}));
}

TEST_F(Notices, Each_is_marked_at_once_so_that_a_crash_behind_it_does_not_show_it_again) {
    ASSERT_TRUE(start.load());
    QStringList seen_at_each_box;
    struct Watching_Ui : Recording_Ui {
        std::function<void()> on_box;
        Answer show_box(const Box &box) override {
            on_box();
            return Recording_Ui::show_box(box);
        }
    } face;
    Program watched(world.platform, face, start.home);
    face.on_box = [&] {
        seen_at_each_box << QString::number(db_Query(watched, "select * from table_messages").size());
    };
    ASSERT_TRUE(Start_Process(watched, [&] { return Load_Stage(watched, {}); }));
    Initialise_Stage(watched);
    EXPECT_EQ(seen_at_each_box, QStringList({"0", "1", "2", "3"}));
}

TEST_F(Notices, The_version_notes_are_shown_without_a_box_when_only_they_are_new) {
    start_without({"Version_Notes_14194"});
    EXPECT_TRUE(world.ui.boxes.empty());
    EXPECT_EQ(world.ui.pages.last(), start.home + "\\Version_Notes.htm");
    EXPECT_TRUE(markers().contains("Version_Notes_14194"));
}

TEST_F(Notices, Each_start_page_of_the_tweaks_is_opened) {
    world.write("home/VKSite.txt", "http://site.example");
    const Page_Row rows[] = {
        {"VANTROSK WELCOME", start.home + "\\Vantrosk_welcome.htm"},
        {"VANTROSK NOTES", start.home + "\\version_notes.htm"},
        {"VANTROSK NEWS", "http://site.example/news.pl"},
        {"http://other.example/x?a=b", "http://other.example/x?a=b"},
        {"vantrosk news", "vantrosk news"},
        {"", "about:blank"},
    };
    start.settle();
    for (const Page_Row &row : rows) {
        world.ui.pages.clear();
        ASSERT_TRUE(start.load());
        start.program().tweaks.STARTUP_PAGE = row.tweak;
        Initialise_Stage(start.program());
        EXPECT_EQ(world.ui.pages.last(), row.page) << row.tweak;
        start.renew();
    }
}

TEST_F(Notices, A_start_page_that_is_gone_leaves_the_browser_blank) {
    start.settle();
    ASSERT_TRUE(start.load());
    ASSERT_FALSE(DeleteFileForced(start.program(), start.home + "\\Vantrosk_welcome.htm"));
    start.program().trace.enabled = true;
    Initialise_Stage(start.program());
    EXPECT_EQ(world.ui.pages, QStringList({"about:blank"}));
    EXPECT_TRUE(
        world.ui.trace.contains("STARTUP: start page is missing: " + start.home + "\\Vantrosk_welcome.htm"));
}

TEST_F(Notices, A_fault_of_the_database_shows_the_error_box_and_the_start_goes_on) {
    start.settle();
    ASSERT_TRUE(start.load());
    db_Execute(start.program(), "drop table table_messages");
    Initialise_Stage(start.program());
    EXPECT_EQ(start.titles(), QStringList({"An Error Has Occured"}));
    EXPECT_TRUE(start.steps.contains("Focus_List"));
}

TEST_F(Notices, The_mode_entry_offers_the_other_mode) {
    start.settle();
    ASSERT_TRUE(start.start());
    EXPECT_EQ(start.program().screen.menu.mode, "Go Lite Mode");
    start.program().tweaks.ENABLE_FM_DETAILS = false;
    ASSERT_FALSE(Write_Tweaks_Ini(start.program()));
    start.renew();
    ASSERT_TRUE(start.start());
    EXPECT_EQ(start.program().screen.menu.mode, "Go Full Mode");
}

TEST_F(Notices, Startup_notes_are_shown_at_each_start) {
    start.settle();
    world.write("home/VK_startup_notes.txt", "x");
    world.write("home/VK_runonce_notes.txt", "y");
    ASSERT_TRUE(start.start());
    start.renew();
    ASSERT_TRUE(start.start());
    const QString notes = start.home + "\\VK_startup_notes.txt";
    EXPECT_EQ(world.ui.notes, QStringList({notes, notes}));
    Notes_Closed(start.program(), notes);
    EXPECT_TRUE(world.exists("home/VK_startup_notes.txt"));
}

TEST_F(Notices, Run_once_notes_are_deleted_when_their_window_closes) {
    start.settle();
    world.write("home/VK_runonce_notes.txt", "y");
    ASSERT_TRUE(start.start());
    EXPECT_EQ(world.ui.notes, QStringList({start.home + "\\VK_runonce_notes.txt"}));
    EXPECT_TRUE(world.exists("home/VK_runonce_notes.txt"));
    Notes_Closed(start.program(), world.ui.notes[0]);
    EXPECT_FALSE(world.exists("home/VK_runonce_notes.txt"));
}

TEST_F(Notices, The_recovery_log_goes_before_all_notes) {
    start.settle();
    world.write("home/VK_startup_notes.txt", "x");
    world.write("home/VK_runonce_notes.txt", "y");
    world.write("home/install_recover.log", "[UNZIPPING_FM]");
    world.write("home/debug.log", "last steps");
    ASSERT_TRUE(start.start());
    EXPECT_EQ(world.ui.notes, QStringList({start.home + "\\install_recover.log"}));
    EXPECT_EQ(world.read("home/debug_19_11.log"), "last steps");
    EXPECT_FALSE(world.exists("home/debug.log"));
}

TEST_F(Notices, Without_notes_the_notes_window_stays_closed) {
    start.settle();
    ASSERT_TRUE(start.start());
    EXPECT_TRUE(world.ui.notes.isEmpty());
}

TEST_F(Notices, A_first_run_asks_both_questions_in_its_mode_and_leaves_it) {
    QStringList modes;
    ASSERT_TRUE(start.load());
    for (const Later_Step step : {Later_Step::focus_list, Later_Step::ask_full_or_lite,
                                  Later_Step::show_settings, Later_Step::build_game_selection})
        Set_Later_Step(start.program(), step, [&, step] {
            modes << QString("%1 %2").arg(Later_Step_Name(step)).arg(start.program().start.first_run_mode);
        });
    Initialise_Stage(start.program());
    EXPECT_EQ(modes, QStringList({"Focus_List 0", "Ask_Full_Or_Lite 1", "Show_Settings 1",
                                  "Build_Game_Selection 0"}));
    EXPECT_TRUE(start.program().first_run);
    EXPECT_FALSE(start.program().screen.busy);
}

TEST_F(Notices, One_missing_file_of_settings_is_a_first_run_too) {
    for (const char *file : {"Vantrosk.ini", "Vantrosk_Tweaks.ini"}) {
        start.settle();
        ASSERT_FALSE(DeleteFileForced(start.program(), start.home + "\\" + file));
        ASSERT_TRUE(start.start());
        EXPECT_TRUE(start.steps.contains("Ask_Full_Or_Lite")) << file;
        EXPECT_TRUE(start.steps.contains("Show_Settings")) << file;
        start.renew();
    }
}

TEST_F(Notices, A_later_run_asks_nothing) {
    start.settle();
    ASSERT_TRUE(start.start());
    EXPECT_FALSE(start.steps.contains("Ask_Full_Or_Lite"));
    EXPECT_FALSE(start.steps.contains("Show_Settings"));
}
