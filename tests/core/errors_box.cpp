#include "core/mdlErrorHandler.h"
#include "support/World.h"

#include <gtest/gtest.h>

#include <new>

namespace vantrosk {

namespace {

/// A face with a screen that a test may take away; a picture is the text of its moment.
struct Camera_Ui : Recording_Ui {
    World *world = nullptr;
    bool screen = true, works = true;
    QStringList pictures; ///< "path at milliseconds after events"

    bool has_screen() const override { return screen; }
    bool save_screenshot(const QString &path) override {
        pictures << QString("%1 at %2 after %3").arg(path).arg(world->clock->slept).arg(pumped);
        if (!works)
            return false;
        return !world->platform.files->write_file(path, "picture " + QByteArray::number(pictures.size()));
    }
};

struct Camera_World : World {
    Camera_World() : bare(platform, camera, windows("home")) { camera.world = this; }
    void fail() {
        With_error_box(bare, "Get_archives", "Form frmMain", [] { throw Program_Error(53, "gone"); });
    }
    Camera_Ui camera;
    Program bare;
};

/// A program that nothing was started of.
struct Debug_World : World {
    Debug_World() : bare(platform, ui, windows("home")) {}
    Program bare;
};

} // namespace

TEST(Error_Box, Work_without_a_fault_shows_nothing) {
    Debug_World world;
    bool done = false;
    EXPECT_TRUE(With_error_box(world.bare, "Get_archives", "Form frmMain", [&done] { done = true; }));
    EXPECT_TRUE(done);
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST(Error_Box, A_fault_is_told_with_procedure_and_module_and_the_program_goes_on) {
    Debug_World world;
    set_debug(world.bare, true);
    EXPECT_FALSE(With_error_box(world.bare, "check_thief_version", "mdlFunctions",
                                [] { throw Program_Error(53, "File not found: Žluť (%1)"); }));
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    const Box &box = world.ui.boxes[0];
    EXPECT_EQ(box.kind, Box_Kind::critical);
    EXPECT_EQ(box.title, "An Error Has Occured");
    EXPECT_EQ(box.text,
              "Error 53 (File not found: Žluť (%1)) on line 0 in procedure check_thief_version of Module "
              "mdlFunctions.\nDo you wish to take a screenshot?");
    EXPECT_EQ(box.buttons, Buttons::yes_no);
    EXPECT_EQ(box.default_answer, Answer::no);
    EXPECT_EQ(world.ui.trace,
              QStringList{"FUNCTIONS: Error In check_thief_version : (53) File not found: Žluť (%1)"});
}

TEST(Error_Box, Other_exceptions_are_told_in_the_same_way) {
    Debug_World world;
    EXPECT_FALSE(With_error_box(world.bare, "Do_Install", "Form frmMain",
                                [] { throw std::runtime_error("no more memory"); }));
    EXPECT_FALSE(With_error_box(world.bare, "Do_Install", "Form frmMain", [] { throw std::bad_alloc(); }));
    EXPECT_EQ(world.ui.box_texts(),
              (QStringList{"Error 0 (no more memory) on line 0 in procedure Do_Install of Form frmMain.\n"
                           "Do you wish to take a screenshot?",
                           "Error 0 (std::bad_alloc) on line 0 in procedure Do_Install of Form frmMain.\n"
                           "Do you wish to take a screenshot?"}));
}

TEST(Error_Box, The_trace_line_begins_with_the_area_of_the_module) {
    struct Area {
        const char *module;
        const char *start;
    };
    constexpr Area areas[] = {
        {"Form frmMain", "MAIN FORM: "},
        {"Form frmTweaks", "TWEAKS: "},
        {"Form frmSettings", "frmSettings: "},
        {"mdlFunctions", "FUNCTIONS: "},
        {"mdlFile_Functions", "File_Functions: "},
        {"mdlDB_Functions", "DB_FUNCTIONS: "},
        {"mdlFormDisplayFunctions", "FORM DISPLAY: "},
        {"mdlStartup", "STARTUP: "},
        {"Module mdlStartup", "STARTUP: "},
        {"mdlDebug", "DEBUGGER: "},
        {"mdlWebStuff", "mdlWebStuff: "},
    };
    Debug_World world;
    set_debug(world.bare, true);
    for (const Area &area : areas) {
        With_error_box(world.bare, "P", area.module, [] { throw Program_Error(1, "x"); });
        EXPECT_EQ(world.ui.trace.last(), QString(area.start) + "Error In P : (1) x");
    }
}

TEST(Error_Box, The_place_is_a_form_or_a_module) {
    EXPECT_EQ(Error_text("T3MAIN_exe_Check", "Form frmSettings", 5, "d"),
              "Error 5 (d) on line 0 in procedure T3MAIN_exe_Check of Form frmSettings.");
    EXPECT_EQ(Error_text("P", "mdlFunctions", 5, "d"),
              "Error 5 (d) on line 0 in procedure P of Module mdlFunctions.");
    EXPECT_EQ(Error_text("P", "Module mdlFunctions", 5, "d"),
              "Error 5 (d) on line 0 in procedure P of Module mdlFunctions.");
}

TEST(Error_Box, Without_a_screen_there_is_one_button_and_no_question) {
    Camera_World world;
    world.camera.screen = false;
    world.camera.answers = {Answer::yes};
    world.fail();
    ASSERT_EQ(world.camera.boxes.size(), 1u);
    EXPECT_EQ(world.camera.boxes[0].buttons, Buttons::ok);
    EXPECT_EQ(world.camera.boxes[0].text,
              "Error 53 (gone) on line 0 in procedure Get_archives of Form frmMain.");
    EXPECT_EQ(world.camera.pictures, QStringList());
}

TEST(Error_Box, No_takes_no_picture) {
    Camera_World world;
    world.camera.answers = {Answer::no};
    world.fail();
    EXPECT_EQ(world.camera.boxes.size(), 1u);
    EXPECT_EQ(world.camera.pictures, QStringList());
    EXPECT_EQ(world.clock->slept, 0);
}

TEST(Error_Box, Yes_takes_a_picture_once_the_box_is_gone) {
    Camera_World world;
    world.camera.answers = {Answer::yes};
    world.fail();
    const QString picture = "home/ERRORS/screenshots/20261119.bmp";
    EXPECT_EQ(world.camera.pictures,
              QStringList{world.windows("home") + "\\ERRORS\\screenshots\\20261119.bmp at 1000 after 1"});
    EXPECT_EQ(world.read(picture), "picture 1");
    ASSERT_EQ(world.camera.boxes.size(), 2u);
    EXPECT_EQ(world.camera.boxes[1].kind, Box_Kind::information);
    EXPECT_EQ(world.camera.boxes[1].buttons, Buttons::ok);
    EXPECT_EQ(world.camera.boxes[1].text, "Error image file " + world.native(picture) + " created.");
}

TEST(Error_Box, Two_pictures_of_one_day_leave_the_second) {
    Camera_World world;
    for (int day = 0; day < 2; ++day) {
        world.camera.answers = {Answer::yes, Answer::yes};
        world.fail();
        world.fail();
        world.clock->time = world.clock->time.addDays(1);
    }
    EXPECT_EQ(world.snapshot("home/ERRORS/screenshots"),
              (Snapshot{{"20261119.bmp", "picture 2"}, {"20261120.bmp", "picture 4"}}));
}

TEST(Error_Box, A_picture_that_could_not_be_made_leaves_a_trace_line) {
    Camera_World world;
    set_debug(world.bare, true);
    world.camera.works = false;
    Take_Error_Screenshot(world.bare);
    EXPECT_TRUE(world.camera.boxes.empty());
    EXPECT_EQ(world.camera.trace, QStringList{"DEBUGGER: Error image file " + world.windows("home") +
                                              "\\ERRORS\\screenshots\\20261119.bmp not created"});
}

TEST(Error_Box, A_face_makes_no_picture_unless_it_says_how) {
    Debug_World world;
    EXPECT_TRUE(world.ui.has_screen());
    EXPECT_FALSE(world.ui.save_screenshot(world.windows("home/a.bmp")));
    EXPECT_FALSE(world.exists("home/a.bmp"));
}

} // namespace vantrosk
