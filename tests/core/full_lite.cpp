#include "core/Full_Lite.h"

#include "Startup_World.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct Full_Lite : testing::Test {
    Startup_World start;
    Program &program = start.program();
    Tweaks &tweaks = program.tweaks;

    Full_Lite() { EXPECT_TRUE(start.load()); }
    /// The tweaks that a choice has changed, in the ini's order: "[KEY] value".
    QStringList changes(const std::function<void()> &choose) {
        const auto before = Tweaks_ini_pairs(program);
        choose();
        const auto after = Tweaks_ini_pairs(program);
        QStringList changed;
        for (std::size_t i = 0; i < before.size(); ++i)
            if (before[i].value != after[i].value)
                changed << after[i].key + " " + after[i].value;
        return changed;
    }
};

} // namespace

TEST_F(Full_Lite, The_lite_version_switches_off_ten_tweaks_and_the_autostart) {
    tweaks.THE_SWAP = tweaks.AUTORESIZE_COLUMNS = tweaks.OBJECTCHECKBOXES = tweaks.VIEW_TXT_AS_VKML =
        tweaks.VIEW_RTF_AS_VKML = tweaks.USE_ZIP_RESOURCES = tweaks.RECENTLY_USED = tweaks.ENABLE_ANIM_GIFS =
            tweaks.ENABLE_FM_DETAILS = tweaks.ENABLE_COl_CATEGORY = true;
    tweaks.SHOW_TIPS = tweaks.AUTO_ADD_TO_DB = tweaks.SHOW_TOOLTIPS = false;
    tweaks.AUTOSTART_IN = "Thief 2";
    QStringList changed = changes([&] { Choose_Version(program, Version::lite); });
    changed.sort();
    EXPECT_EQ(changed,
              QStringList({"AUTORESIZE_COLUMNS False", "AUTOSTART_IN ", "AUTO_ADD_TO_DB True",
                           "ENABLE_ANIM_GIFS False", "ENABLE_COl_CATEGORY False", "ENABLE_FM_DETAILS False",
                           "OBJECTCHECKBOXES False", "RECENTLY_USED False", "SHOW_TIPS True",
                           "SHOW_TOOLTIPS True", "THE_SWAP False", "USE_ZIP_RESOURCES False",
                           "VIEW_RTF_AS_VKML False", "VIEW_TXT_AS_VKML False"}));
    EXPECT_EQ(program.screen.menu.mode, "Go Full Mode");
}

TEST_F(Full_Lite, The_full_version_sets_two_tweaks) {
    tweaks.ENABLE_FM_DETAILS = false;
    tweaks.ENABLE_COl_CATEGORY = true;
    EXPECT_EQ(changes([&] { Choose_Version(program, Version::full); }),
              QStringList({"ENABLE_FM_DETAILS True", "ENABLE_COl_CATEGORY False"}));
    EXPECT_EQ(program.screen.menu.mode, "Go Lite Mode");
}

TEST_F(Full_Lite, The_choice_is_in_the_tweaks_ini_at_the_next_start) {
    for (const Version version : {Version::lite, Version::full}) {
        Choose_Version(start.program(), version);
        start.renew();
        ASSERT_TRUE(start.load());
        EXPECT_EQ(start.program().tweaks.ENABLE_FM_DETAILS, version == Version::full);
    }
}

TEST_F(Full_Lite, The_mode_entry_turns_the_mode_and_lays_the_panels_out_at_once) {
    tweaks.ENABLE_FM_DETAILS = true;
    start.steps.clear();
    Switch_Mode(program);
    EXPECT_FALSE(tweaks.ENABLE_FM_DETAILS);
    EXPECT_EQ(program.screen.menu.mode, "Go Full Mode");
    EXPECT_EQ(start.steps, QStringList({"Position_Panels", "Apply_Skin"}));
    Switch_Mode(program);
    EXPECT_TRUE(tweaks.ENABLE_FM_DETAILS);
    EXPECT_EQ(program.screen.menu.mode, "Go Lite Mode");
}

TEST_F(Full_Lite, Tweaks_that_can_not_be_written_are_told) {
    QFile::remove(start.world.native("home/Vantrosk_Tweaks.ini"));
    start.world.make_folder("home/Vantrosk_Tweaks.ini/x");
    start.world.ui.boxes.clear();
    Choose_Version(program, Version::lite);
    ASSERT_EQ(start.world.ui.boxes.size(), 1U);
    EXPECT_EQ(start.world.ui.boxes[0].kind, Box_Kind::warning);
}

TEST_F(Full_Lite, A_user_who_ended_the_program_in_a_fault_is_asked_nothing_more) {
    start.steps.clear();
    program.start.end_requested = true;
    Initialise_Stage(program);
    EXPECT_EQ(start.steps, QStringList());
}
