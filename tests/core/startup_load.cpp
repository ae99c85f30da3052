#include "Startup_World.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct Load_Test : testing::Test {
    Startup_World start;
    World &world = start.world;
    Program &program() { return start.program(); }

    /// The trace of a whole start of the window with the steps named that others do.
    QStringList trace_of_start() {
        for (int step = 0; step < static_cast<int>(Later_Step::count); ++step)
            Set_Later_Step(program(), static_cast<Later_Step>(step), {});
        program().trace.enabled = true;
        world.ui.trace.clear();
        EXPECT_TRUE(start.start());
        return world.ui.trace;
    }
    void change_settings(const std::function<void(Program &)> &change) {
        start.settle();
        ASSERT_TRUE(Start_Program(program()));
        change(program());
        ASSERT_FALSE(Write_Main_Ini(program()));
        ASSERT_FALSE(Write_Tweaks_Ini(program()));
        start.renew();
    }
};

const QString two_processors =
    "Vantrosk is running on 2 CPU cores. For Thief 1,Gold,2 and System Shock 2 it is best to run Vantrosk on "
    "1 "
    "core.\n\nWould you like Vantrosk to change its affinity to run on 1 core permanently?";

const QStringList load_order{"MAIN FORM: Form initialize started",
                             "STARTUP: Position_Game_Bar does nothing here",
                             "STARTUP: Show_Trace_Console does nothing here",
                             "Starting Debug Log",
                             "About to set defaults",
                             "FUNCTIONS: Set_Display_Defaults",
                             "FUNCTIONS: set_default_fonts",
                             "About to read ini",
                             "About to create folders",
                             "STARTUP: Cull Temp Files",
                             "STARTUP: Finished Culling Temp Files",
                             "STARTUP: List_Language_Packs does nothing here",
                             "STARTUP: Apply_Language does nothing here",
                             "STARTUP: Restore_Window does nothing here",
                             "STARTUP: Set_Toolbar_Size does nothing here"};

const QStringList order_behind_the_database{"Email Template Checks Took 0.00",
                                            "DB_FUNCTIONS: Start getAuthors_Array",
                                            "DB_FUNCTIONS: adodc done in getAuthors_Array",
                                            "STARTUP: Config_menu does nothing here",
                                            "STARTUP: Get_QBAR_settings does nothing here",
                                            "STARTUP: Create_Tooltips does nothing here",
                                            "STARTUP: Build_Category_List does nothing here",
                                            "STARTUP: Display_recently_used does nothing here",
                                            "STARTUP: Position_Panels does nothing here",
                                            "STARTUP: Lay_Out_Readme_Toolbar does nothing here",
                                            "STARTUP: Apply_Skin does nothing here",
                                            "Showing Main Interface.",
                                            "STARTUP: Show_Window does nothing here",
                                            "STARTUP: Check_New_FMs does nothing here",
                                            "STARTUP: Download_Scores does nothing here",
                                            "FUNCTIONS: Starting Cores_Running_on ",
                                            "FUNCTIONS: Cores_Running_on  found 1 processors",
                                            "Form Load finished",
                                            "0.00 seconds to process",
                                            "Warning Message Checks Took 0.00 seconds",
                                            "STARTUP: Focus_List does nothing here"};

const QStringList end_of_start{"STARTUP: Build_Game_Selection does nothing here", "Form Initialize finished"};

} // namespace

TEST_F(Load_Test, A_first_start_goes_through_all_steps_in_order) {
    EXPECT_EQ(trace_of_start(), load_order + order_behind_the_database +
                                    QStringList({"STARTUP: Ask_Full_Or_Lite does nothing here",
                                                 "STARTUP: Show_Settings does nothing here"}) +
                                    end_of_start);
    EXPECT_EQ(start.titles().size(), 4);
}

TEST_F(Load_Test, A_second_start_leaves_out_the_table_checks_and_the_questions) {
    start.settle();
    EXPECT_EQ(trace_of_start(),
              load_order +
                  QStringList({"Database Table Checks not required as already done in this version"}) +
                  order_behind_the_database + end_of_start);
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST_F(Load_Test, A_start_without_a_window_leaves_out_what_only_a_window_shows) {
    const QStringList common{"MAIN FORM: Form initialize started",
                             "Starting Debug Log",
                             "About to set defaults",
                             "FUNCTIONS: Set_Display_Defaults",
                             "FUNCTIONS: set_default_fonts",
                             "About to read ini",
                             "About to create folders",
                             "STARTUP: Cull Temp Files",
                             "STARTUP: Finished Culling Temp Files"};
    program().trace.enabled = true;
    ASSERT_TRUE(Start_Program(program()));
    EXPECT_EQ(world.ui.trace, common + QStringList({"Email Template Checks Took 0.00"}));
    start.settle();
    world.ui.trace.clear();
    program().trace.enabled = true;
    ASSERT_TRUE(Start_Program(program()));
    EXPECT_EQ(world.ui.trace,
              common + QStringList({"Database Table Checks not required as already done in this version",
                                    "Email Template Checks Took 0.00"}));
}

TEST_F(Load_Test, The_console_pauses_before_each_of_three_stages_when_it_is_on) {
    struct Pausing_Ui : Recording_Ui {
        QStringList pauses;
        void trace_pause(const QString &prompt) override { pauses << prompt; }
    } face;
    Program watched(world.platform, face, start.home);
    ASSERT_TRUE(Start_Process(watched, [&] { return Load_Stage(watched, "/debug"); }));
    EXPECT_EQ(face.pauses,
              QStringList({"About to set defaults", "About to read ini", "About to create folders"}));
}

TEST_F(Load_Test, A_first_start_in_an_empty_folder_leaves_what_belongs_there) {
    ASSERT_TRUE(start.start());
    QStringList files;
    for (const QString &name : Names(world.snapshot("home"))) {
        if (!name.endsWith('/') && !name.startsWith("Vantrosk.mdb") && !name.startsWith("HTMLImages/"))
            files << name;
    }
    EXPECT_EQ(files, QStringList({"Vantrosk_welcome.htm", "Version_Notes.htm", "debug_check.log"}));
    EXPECT_TRUE(world.exists("home/Vantrosk.mdb"));
}

TEST_F(Load_Test, The_load_time_is_that_of_the_clock) {
    Set_Later_Step(program(), Later_Step::show_window, [&] { world.clock->sleep(12345); });
    program().trace.enabled = true;
    ASSERT_TRUE(start.start());
    EXPECT_TRUE(world.ui.trace.contains("12.35 seconds to process") ||
                world.ui.trace.contains("12.34 seconds to process"));
    EXPECT_TRUE(world.ui.trace.contains("Warning Message Checks Took 0.00 seconds"));
}

TEST_F(Load_Test, The_steps_of_others_come_in_their_order) {
    start.settle();
    ASSERT_TRUE(start.start());
    EXPECT_EQ(start.steps,
              QStringList({"Position_Game_Bar", "List_Language_Packs", "Apply_Language", "Restore_Window",
                           "Set_Toolbar_Size", "Config_menu", "Get_QBAR_settings", "Create_Tooltips",
                           "Build_Category_List", "Display_recently_used", "Position_Panels",
                           "Lay_Out_Readme_Toolbar", "Apply_Skin", "Show_Window", "Check_New_FMs",
                           "Download_Scores", "Focus_List", "Build_Game_Selection"}));
}

TEST_F(Load_Test, The_settings_are_known_when_the_window_is_restored) {
    change_settings([](Program &changed) { changed.ini.MAIN_TOOLBAR = 2; });
    int size = 0;
    Set_Later_Step(program(), Later_Step::restore_window, [&] { size = program().ini.MAIN_TOOLBAR; });
    ASSERT_TRUE(start.load());
    EXPECT_EQ(size, 2);
}

TEST_F(Load_Test, The_background_checks_follow_the_settings) {
    change_settings([](Program &changed) {
        changed.tweaks.QUILLMARCH = 7;
        changed.ini.CHECKFORUPDATES = true;
        changed.tweaks.RECENTLY_USED = false;
    });
    start.steps.clear();
    ASSERT_TRUE(start.start());
    const auto shown = start.steps.indexOf("Show_Window");
    EXPECT_EQ(start.steps.mid(shown + 1, 4),
              QStringList({"Check_New_FMs", "Download_Scores", "Read_Review_Feed", "Check_Updates"}));
    EXPECT_FALSE(start.steps.contains("Display_recently_used"));
}

TEST_F(Load_Test, The_review_feed_file_takes_no_effect_because_the_tweaks_come_later) {
    change_settings([](Program &changed) { changed.tweaks.QUILLMARCH = 7; });
    world.write("home/VKReviewSite.txt", "http://feed.example/rss");
    ASSERT_TRUE(start.load());
    EXPECT_EQ(program().review_feed_url, "http://vantrosk.example/reviews.rss");
}

TEST_F(Load_Test, Tools_that_are_there_show_their_entries) {
    ASSERT_TRUE(start.load());
    EXPECT_FALSE(program().screen.menu.zip_search);
    EXPECT_FALSE(program().screen.menu.competition);
    world.write("home/tools/ZipSearch.exe", "MZ");
    start.renew();
    ASSERT_TRUE(start.load());
    EXPECT_TRUE(program().screen.menu.zip_search);
    EXPECT_FALSE(program().screen.menu.competition);
    world.write("home/tools/vk_competition.EXE", "MZ");
    start.renew();
    ASSERT_TRUE(start.load());
    EXPECT_TRUE(program().screen.menu.competition);
}

TEST_F(Load_Test, The_downloads_entry_needs_an_address) {
    ASSERT_TRUE(start.load());
    EXPECT_FALSE(program().screen.menu.downloads);
    change_settings([](Program &changed) { changed.ini.DOWNLOADS_URL = "http://fms.example"; });
    ASSERT_TRUE(start.load());
    EXPECT_TRUE(program().screen.menu.downloads);
}

TEST_F(Load_Test, The_font_of_the_grids_is_that_of_the_tweaks) {
    struct Style_Row {
        const char *style;
        bool bold, italic;
    };
    constexpr Style_Row rows[] = {{"Bold", true, false},
                                  {"Italic", false, true},
                                  {"BOLD,ITALIC", true, true},
                                  {"Regular", false, false},
                                  {"", false, false}};
    for (const Style_Row &row : rows) {
        change_settings([&](Program &changed) {
            changed.tweaks.FMLISTSFONT = {"Verdana", "", 11, row.style};
        });
        ASSERT_TRUE(start.load());
        const List_Font &font = program().screen.list_font;
        EXPECT_EQ(font.family, "Verdana");
        EXPECT_EQ(font.size, 11);
        EXPECT_EQ(font.bold, row.bold) << row.style;
        EXPECT_EQ(font.italic, row.italic) << row.style;
        start.renew();
    }
}

TEST_F(Load_Test, Both_browsers_are_blank_before_anything_is_shown) {
    QStringList pages_when_shown;
    Set_Later_Step(program(), Later_Step::show_window, [&] { pages_when_shown = world.ui.pages; });
    ASSERT_TRUE(start.load());
    EXPECT_EQ(pages_when_shown, QStringList({"about:blank"}));
    EXPECT_EQ(program().screen.readme_page, "about:blank");
}

TEST_F(Load_Test, The_window_is_shown_before_the_summary_is_read) {
    start.settle();
    ASSERT_TRUE(Start_Program(program()));
    db_Execute(program(),
               "INSERT INTO table_game_info (game_name,list_number,zip_count,zip_size,FMs_completed,"
               "saves_count) values('Thief The Metal Age',3,14,5000000000,2,1)");
    db_Execute(program(), "INSERT INTO table_game_info (game_name,list_number,zip_count) values('B',1,2)");
    db_Execute(program(), "INSERT INTO table_game_info (game_name,list_number,zip_count) values('A',1,9)");
    start.renew();
    std::size_t rows_when_shown = 9;
    Set_Later_Step(program(), Later_Step::show_window,
                   [&] { rows_when_shown = program().library_summary.size(); });
    ASSERT_TRUE(start.load());
    EXPECT_EQ(rows_when_shown, 0u);
    QStringList rows;
    for (const Library_Summary_Row &row : program().library_summary)
        rows << QString("%1|%2|%3|%4|%5|%6")
                    .arg(row.list_number)
                    .arg(row.game_name)
                    .arg(row.zip_size)
                    .arg(row.zip_count)
                    .arg(row.FMs_completed)
                    .arg(row.saves_count);
    EXPECT_EQ(rows, QStringList({"1|A|0|9|0|0", "1|B|0|2|0|0", "3|Thief The Metal Age|5000000000|14|2|1"}));
}

TEST_F(Load_Test, A_missing_saves_folder_of_Thief_3_is_warned_of_at_each_start) {
    change_settings([](Program &changed) { changed.ini.T3_GAME_LOCATION = "C:\\T3\\System"; });
    const QString warning =
        "WARNING: Vantrosk does not have details about your Thief 3 save game location.\n\nThis may be the "
        "result of upgrading to a new version of Vantrosk\n\nTo resolve this simply reselect your T3.EXE in "
        "Vantrosk configuration AND THEN save your config.\n\nFailure to do so may result in Thief 3 Fan "
        "Missions not running correctly.";
    ASSERT_TRUE(start.load());
    EXPECT_EQ(world.ui.box_texts(), QStringList({warning}));
    start.renew();
    ASSERT_TRUE(Start_Program(program()));
    EXPECT_EQ(world.ui.boxes.size(), 1u);
    program().ini.T3_SAVE_GAME_LOCATION = "C:\\saves";
    ASSERT_FALSE(Write_Main_Ini(program()));
    start.renew();
    ASSERT_TRUE(start.load());
    EXPECT_EQ(world.ui.boxes.size(), 1u);
}

TEST_F(Load_Test, One_processor_is_asked_nothing) {
    start.settle();
    ASSERT_TRUE(start.start());
    EXPECT_TRUE(world.ui.boxes.empty());
    EXPECT_TRUE(start.processes->masks.isEmpty());
}

TEST_F(Load_Test, On_several_processors_the_question_comes_at_every_start_until_Yes) {
    start.settle();
    start.processes->processors = 2;
    for (int attempt = 0; attempt < 2; ++attempt) {
        world.ui.boxes.clear();
        ASSERT_TRUE(start.start());
        EXPECT_EQ(world.ui.box_texts(), QStringList({two_processors}));
        EXPECT_EQ(start.titles(), QStringList({"WARNING Vantrosk Is Running On Multiple CPUs"}));
        EXPECT_FALSE(world.exists("home/affinity.VKBU"));
        EXPECT_TRUE(start.processes->masks.isEmpty());
        start.renew();
    }
    world.ui.boxes.clear();
    world.ui.answers = {Answer::yes};
    ASSERT_TRUE(start.start());
    EXPECT_EQ(
        world.ui.box_texts(),
        QStringList({two_processors,
                     "Vantrosk is now running on core 0.\n\nVantrosk will also attempt to automatically "
                     "run dark engine games on a single core to reduce crashing."}));
    EXPECT_EQ(start.processes->masks, QStringList({" 1"}));
    EXPECT_TRUE(world.exists("home/affinity.VKBU"));
    start.renew();
    world.ui.boxes.clear();
    ASSERT_TRUE(start.start());
    EXPECT_TRUE(world.ui.boxes.empty());
    EXPECT_EQ(start.processes->masks, QStringList({" 1", " 1"}));
}

TEST_F(Load_Test, A_core_that_can_not_be_set_is_not_announced) {
    start.settle();
    start.processes->processors = 8;
    start.processes->affinity_works = false;
    world.ui.answers = {Answer::yes};
    ASSERT_TRUE(start.start());
    EXPECT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_TRUE(world.exists("home/affinity.VKBU"));
}

TEST_F(Load_Test, A_start_without_a_window_asks_and_shows_nothing_on_any_machine) {
    start.processes->processors = 4;
    world.write("home/affinity.VKBU", "");
    world.write("home/VK_startup_notes.txt", "x");
    ASSERT_TRUE(Start_Program(program()));
    EXPECT_TRUE(world.ui.boxes.empty());
    EXPECT_TRUE(world.ui.pages.isEmpty());
    EXPECT_TRUE(world.ui.notes.isEmpty());
    EXPECT_TRUE(start.processes->masks.isEmpty());
    EXPECT_TRUE(start.steps.isEmpty());
}

TEST_F(Load_Test, The_window_is_busy_from_the_start_to_the_end) {
    struct Busy_Ui : Recording_Ui {
        QStringList states;
        void set_busy(bool busy) override { states << (busy ? "busy" : "free"); }
    } face;
    Program watched(world.platform, face, start.home);
    ASSERT_TRUE(Start_Process(watched, [&] { return Load_Stage(watched, {}); }));
    EXPECT_EQ(face.states, QStringList({"busy"}));
    Initialise_Stage(watched);
    EXPECT_EQ(face.states.last(), "free");
    EXPECT_FALSE(watched.screen.busy);
    EXPECT_TRUE(watched.start.is_running);
}

TEST_F(Load_Test, A_database_that_can_not_be_opened_ends_the_start) {
    world.make_folder("home/Vantrosk.mdb");
    EXPECT_FALSE(start.start());
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_EQ(world.ui.boxes[0].kind, Box_Kind::critical);
    EXPECT_FALSE(world.exists("home/debug_check.log"));
}
