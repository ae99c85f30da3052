#include "Startup_World.h"

#include "core/mdlErrorHandler.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct Start_Process_Test : testing::Test {
    Startup_World start;
    World &world = start.world;
    int loads = 0;

    bool process(const std::function<bool()> &load) {
        return Start_Process(start.program(), [&] {
            ++loads;
            return load();
        });
    }
    bool process() {
        return process([] { return true; });
    }
    QByteArray state_file() { return world.read("home/debug_check.log"); }
};

struct State_Row {
    const char *content;
    bool starts;
    const char *content_afterwards;
    int boxes;
};

const QString not_registered =
    "Vantrosk has tried to register several files on your PC without complete success, it is likely thes "
    "files do not exist.\nPlease verify that you have installed the Full Install rather than the Upgrade of "
    "Vantrosk";

} // namespace

TEST_F(Start_Process_Test, The_first_start_of_a_build_leaves_the_normal_state) {
    EXPECT_TRUE(process());
    EXPECT_EQ(loads, 1);
    EXPECT_EQ(start.program().start.number, 2);
    EXPECT_EQ(state_file(), "14194\r\n2\r\n");
}

TEST_F(Start_Process_Test, Each_content_of_the_state_file_has_its_state) {
    constexpr State_Row rows[] = {
        {"14194\r\n2\r\n", true, "14194\r\n2\r\n", 0},
        {"14194\n1", true, "14194\r\n2\r\n", 0},
        {"14193\r\n5\r\n", true, "14194\r\n2\r\n", 0}, // another build
        {"14194 \r\n5\r\n", true, "14194\r\n2\r\n", 0},
        {"", true, "14194\r\n2\r\n", 0},
        {"14194", true, "14194\r\n2\r\n", 0},
        {"14194\r\nmany\r\n", true, "14194\r\n2\r\n", 0},
        {"14194\r\nnan\r\n", true, "14194\r\n2\r\n", 0},
        {"14194\r\n0\r\n", true, "14194\r\n0\r\n", 1},
        {"14194\r\n-7\r\n", true, "14194\r\n-7\r\n", 1},
        {"14194\r\n1.9\r\n", true, "14194\r\n2\r\n", 0},
        {"14194\r\n3.7\r\n", true, "14194\r\n3\r\n", 0},
        {"14194\r\n8\r\n", true, "14194\r\n8\r\n", 0},
        {"14194\r\n9\r\n", false, "14194\r\n9\r\n", 0},
        {"14194\r\n1e300\r\n", false, "14194\r\n1e300\r\n", 0},
    };
    for (const State_Row &row : rows) {
        start.renew();
        world.ui.boxes.clear();
        loads = 0;
        world.write("home/debug_check.log", row.content);
        EXPECT_EQ(process(), row.starts) << row.content;
        EXPECT_EQ(loads, row.starts ? 1 : 0) << row.content;
        EXPECT_EQ(state_file(), QByteArray(row.content_afterwards)) << row.content;
        EXPECT_EQ(world.ui.boxes.size(), static_cast<std::size_t>(row.boxes)) << row.content;
    }
}

TEST_F(Start_Process_Test, A_state_below_1_names_the_missing_file_and_goes_on) {
    world.write("home/debug_check.log", "14194\r\n0\r\n");
    EXPECT_TRUE(process());
    EXPECT_EQ(world.ui.box_texts(),
              QStringList({"Vantrosk can not load due to a missing file 'scrrun.dll' on your PC, please make "
                           "sure you have installed the full install of Vantrosk"}));
}

TEST_F(Start_Process_Test, The_normal_state_is_written_before_the_load_and_the_first_behind_it) {
    process([&] {
        EXPECT_FALSE(world.exists("home/debug_check.log"));
        return true;
    });
    start.renew();
    process([&] {
        EXPECT_EQ(state_file(), "14194\r\n2\r\n");
        return true;
    });
}

TEST_F(Start_Process_Test, A_first_load_that_ends_stays_a_first_start) {
    EXPECT_FALSE(process([] { return false; }));
    EXPECT_FALSE(world.exists("home/debug_check.log"));
}

TEST_F(Start_Process_Test, A_state_file_that_can_not_be_written_does_not_end_the_start) {
    world.make_folder("home/debug_check.log");
    start.program().trace.enabled = true;
    EXPECT_TRUE(process());
    EXPECT_TRUE(world.ui.trace.value(0).startsWith("STARTUP: debug_check.log not written: "));
}

TEST_F(Start_Process_Test, A_missing_component_is_registered_and_the_load_tried_again) {
    EXPECT_TRUE(process([&]() -> bool {
        if (loads < 3)
            throw Program_Error(339, "Component 'MSFLXGRD.OCX' or one of its dependencies not registered");
        return true;
    }));
    EXPECT_EQ(loads, 3);
    const QString registration = "Regsvr32|MSFLXGRD.OCX|" + start.home;
    EXPECT_EQ(start.processes->started, QStringList({registration, registration}));
    EXPECT_TRUE(world.ui.boxes.empty());
    EXPECT_EQ(state_file(), "14194\r\n2\r\n");
}

TEST_F(Start_Process_Test, After_five_registrations_the_start_is_given_up) {
    start.processes->start_fault = {Fault_Kind::not_available, "no runner"};
    EXPECT_FALSE(process([]() -> bool { throw Program_Error(339, "Component 'X.OCX' is missing"); }));
    EXPECT_EQ(loads, 6);
    EXPECT_EQ(start.processes->started.size(), 5);
    EXPECT_EQ(world.ui.box_texts(), QStringList({not_registered}));
    EXPECT_FALSE(world.exists("home/debug_check.log"));
}

TEST_F(Start_Process_Test, Another_fault_of_the_first_load_is_told_and_ends) {
    EXPECT_FALSE(process([]() -> bool { throw Program_Error(7, "Out of memory"); }));
    EXPECT_EQ(loads, 1);
    EXPECT_EQ(world.ui.box_texts(), QStringList({"Unhandled error number 7:- Out of memory"}));
    EXPECT_TRUE(start.processes->started.isEmpty());
}

TEST_F(Start_Process_Test, In_the_normal_state_nothing_is_registered) {
    world.write("home/debug_check.log", "14194\r\n2\r\n");
    EXPECT_FALSE(process([]() -> bool { throw Program_Error(339, "Component 'X.OCX' is missing"); }));
    EXPECT_TRUE(start.processes->started.isEmpty());
    EXPECT_EQ(world.ui.box_texts(), QStringList({"Error 339 (Component 'X.OCX' is missing) on line 0 in "
                                                 "procedure Main of Module mdlStartup.\n"
                                                 "Do you wish to take a screenshot?"}));
}

TEST_F(Start_Process_Test, A_file_of_another_build_arms_the_registration_again) {
    world.write("home/debug_check.log", "14000\r\n2\r\n");
    EXPECT_TRUE(process([&]() -> bool {
        if (loads == 1)
            throw Program_Error(339, "Component 'X.OCX' is missing");
        return true;
    }));
    EXPECT_EQ(start.processes->started.size(), 1);
    EXPECT_EQ(state_file(), "14194\r\n2\r\n");
}

TEST_F(Start_Process_Test, Without_the_audio_library_the_process_ends_before_anything_else) {
    start.audio->is_present = false;
    EXPECT_FALSE(process());
    EXPECT_EQ(loads, 0);
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_EQ(world.ui.boxes[0].kind, Box_Kind::critical);
    EXPECT_EQ(world.ui.boxes[0].title, "BASS.DLL");
    EXPECT_EQ(world.ui.boxes[0].text,
              "BASS.DLL does not exists, this should be located in the same folder as Vantrosk is.");
    EXPECT_FALSE(world.exists("home/debug_check.log"));
}

TEST_F(Start_Process_Test, An_audio_library_of_another_version_ends_the_load) {
    for (const char *number : {"2.0", "2.10", "1.1", "2", ""}) {
        start.renew();
        world.ui.boxes.clear();
        start.audio->number = number;
        EXPECT_FALSE(start.load()) << number;
        ASSERT_EQ(world.ui.boxes.size(), 1u) << number;
        EXPECT_EQ(world.ui.boxes[0].kind, Box_Kind::critical);
        EXPECT_EQ(world.ui.boxes[0].title, "Incorrect BASS.DLL");
        EXPECT_EQ(world.ui.boxes[0].text,
                  "BASS version 2.1 was not loaded, you appear to have an outdated bass.dll file");
        EXPECT_FALSE(world.exists("home/Vantrosk.mdb"));
    }
}

TEST_F(Start_Process_Test, A_later_revision_of_the_audio_library_is_taken) {
    start.audio->number = "2.1.3";
    EXPECT_TRUE(start.load());
}

TEST_F(Start_Process_Test, Without_a_sound_device_the_load_ends) {
    start.audio->device_fault = {Fault_Kind::not_available, "busy"};
    EXPECT_FALSE(start.load());
    EXPECT_EQ(world.ui.box_texts(),
              QStringList({"Can't initialize sound device, please make sure nothing else is using your sound "
                           "card and that you have one installed."}));
    EXPECT_FALSE(world.exists("home/Vantrosk.mdb"));
}

TEST(Audio_Library, A_machine_without_a_sound_card_is_one_to_run_on) {
    Audio_Library audio;
    EXPECT_TRUE(audio.present());
    EXPECT_EQ(audio.version(), "2.1");
    EXPECT_TRUE(audio.device().ok());
    EXPECT_EQ(audio.device().value, "no device");
}

TEST_F(Start_Process_Test, An_update_that_waits_is_handed_over) {
    world.write("home/patchrequired", "");
    world.write("home/temp/updates/VKPatch.exe", "MZ");
    EXPECT_FALSE(start.load());
    EXPECT_EQ(start.processes->started,
              QStringList({start.home + "\\temp\\updates\\VKPatch.exe||" + start.home + "\\temp\\updates"}));
    EXPECT_FALSE(world.exists("home/patchrequired"));
    EXPECT_TRUE(world.ui.boxes.empty());
    EXPECT_EQ(world.ui.caption, "");
}

TEST_F(Start_Process_Test, A_patch_that_does_not_start_stays_due) {
    world.write("home/patchrequired", "");
    world.write("home/temp/updates/VKPatch.exe", "MZ");
    start.processes->start_fault = {Fault_Kind::not_available, "no runner"};
    start.program().trace.enabled = true;
    EXPECT_TRUE(start.load());
    EXPECT_TRUE(world.exists("home/patchrequired"));
    EXPECT_TRUE(world.ui.trace.contains("STARTUP: VKPatch.exe not started: no runner"));
}

TEST_F(Start_Process_Test, A_marker_or_a_patch_alone_starts_nothing) {
    world.write("home/patchrequired", "");
    EXPECT_TRUE(start.load());
    EXPECT_TRUE(world.exists("home/patchrequired"));
    EXPECT_EQ(DeleteFileForced(start.program(), start.home + "\\patchrequired").kind, Fault_Kind::none);
    world.write("home/temp/updates/VKPatch.exe", "MZ");
    start.renew();
    EXPECT_TRUE(start.load());
    EXPECT_TRUE(start.processes->started.isEmpty());
}

TEST_F(Start_Process_Test, A_start_without_a_window_applies_no_patch) {
    world.write("home/patchrequired", "");
    world.write("home/temp/updates/VKPatch.exe", "MZ");
    EXPECT_TRUE(Start_Program(start.program()));
    EXPECT_TRUE(world.exists("home/patchrequired"));
    EXPECT_TRUE(start.processes->started.isEmpty());
}
