#include "window/Window_World.h"

#include "core/mdlFile_Functions.h"
#include "ui/qt/Demo_Library.h"
#include "ui/qt/Elided_Label.h"
#include "ui/qt/Set_Up_Game.h"
#include "ui/qt/Window_Commands.h"

#include <QComboBox>
#include <QPushButton>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

class Game_Set_Up : public ::testing::Test {
protected:
    Game_Set_Up() {
        world.files.make_folder("games/Thief 2");
        world.files.make_folder("fms/Thief 2");
    }
    QPushButton *Button(const QString &name) { return panel->findChild<QPushButton *>(name); }
    QString Text(const QString &name) { return panel->findChild<Elided_Label *>(name)->whole_text(); }

    Window_World world;
    std::unique_ptr<Set_Up_Panel> panel = std::make_unique<Set_Up_Panel>(world.program(), world.ui);
};

} // namespace

TEST_F(Game_Set_Up, Begins_with_thief_2_and_with_nothing_chosen) {
    EXPECT_EQ(panel->game(), "T2");
    EXPECT_EQ(Text("set_up_game_folder_text"), "not chosen yet");
    EXPECT_EQ(Text("set_up_mission_folder_text"), "not chosen yet");
    EXPECT_FALSE(Button("set_up_apply")->isEnabled());
    EXPECT_EQ(panel->findChild<QComboBox *>()->count(), 8);
}

TEST_F(Game_Set_Up, Two_folders_are_kept_in_the_main_ini_as_windows_paths) {
    QSignalSpy set_up(panel.get(), &Set_Up_Panel::Game_set_up);
    world.script().folders = {world.files.native("games/Thief 2"), world.files.native("fms/Thief 2")};
    Button("set_up_game_folder")->click();
    Button("set_up_mission_folder")->click();
    EXPECT_EQ(Text("set_up_game_folder_text"), world.files.native("games/Thief 2"));
    Button("set_up_apply")->click();
    ASSERT_EQ(set_up.size(), 1);
    EXPECT_EQ(set_up[0][0].toString(), "T2");
    Main_Ini &ini = world.program().ini;
    EXPECT_EQ(ini.T2_GAME_LOCATION, world.files.windows("games/Thief 2"));
    EXPECT_EQ(ini.T2_LOCATION, world.files.windows("fms/Thief 2") + "\\*#*");
    ini = {};
    Read_Ini_Files(world.program());
    EXPECT_EQ(ini.T2_GAME_LOCATION, world.files.windows("games/Thief 2"));
    EXPECT_EQ(ini.T2_LOCATION, world.files.windows("fms/Thief 2") + "\\*#*");
}

TEST_F(Game_Set_Up, A_cancelled_folder_dialog_changes_nothing) {
    Button("set_up_game_folder")->click();
    Button("set_up_mission_folder")->click();
    EXPECT_FALSE(Button("set_up_apply")->isEnabled());
    EXPECT_EQ(Text("set_up_game_folder_text"), "not chosen yet");
}

TEST_F(Game_Set_Up, One_folder_alone_leaves_the_other_as_it_was) {
    world.program().ini.T2_GAME_LOCATION = "C:\\Games\\Thief2";
    world.script().folders = {world.files.native("fms/Thief 2")};
    panel->Choose_game("SS2");
    panel->Choose_game("T2");
    Button("set_up_mission_folder")->click();
    Button("set_up_apply")->click();
    EXPECT_EQ(world.program().ini.T2_GAME_LOCATION, "C:\\Games\\Thief2");
    EXPECT_EQ(world.program().ini.T2_LOCATION, world.files.windows("fms/Thief 2") + "\\*#*");
}

TEST_F(Game_Set_Up, What_was_chosen_for_one_game_is_not_taken_for_another) {
    world.script().folders = {world.files.native("games/Thief 2")};
    Button("set_up_game_folder")->click();
    panel->Choose_game("SS2");
    EXPECT_FALSE(Button("set_up_apply")->isEnabled());
    EXPECT_EQ(Text("set_up_game_folder_text"), "not chosen yet");
    panel->Choose_game("no such game");
    EXPECT_EQ(panel->game(), "SS2");
}

TEST_F(Game_Set_Up, All_mission_folders_of_a_game_are_shown) {
    world.files.make_folder("fms/more");
    world.program().ini.SS2_LOCATION =
        Join_folder_list({world.files.windows("fms/Thief 2"), world.files.windows("fms/more")});
    panel->Choose_game("SS2");
    EXPECT_EQ(Text("set_up_mission_folder_text"),
              world.files.native("fms/Thief 2") + "; " + world.files.native("fms/more"));
}

TEST_F(Game_Set_Up, A_main_ini_that_can_not_be_written_is_told) {
    QFile::remove(world.files.native("home/Vantrosk.ini"));
    world.files.make_folder("home/Vantrosk.ini/x");
    EXPECT_FALSE(Set_up_game(world.program(), "T2", world.files.native("games/Thief 2"), {}));
    EXPECT_EQ(world.script().boxes.size(), 1U);
    EXPECT_FALSE(Set_up_game(world.program(), "nothing", "/x", "/y"));
}

TEST_F(Game_Set_Up, The_empty_state_leads_to_the_list) {
    world.Open();
    ASSERT_TRUE(world.window().shows_empty_state());
    panel.reset();
    auto find = [this](const char *name) {
        return world.window().findChild<QPushButton *>(name);
    };
    world.script().folders = {world.files.native("games/Thief 2"), world.files.native("fms/Thief 2")};
    find("set_up_game_folder")->click();
    find("set_up_mission_folder")->click();
    find("set_up_apply")->click();
    EXPECT_TRUE(Window_World::Wait_until([this] { return world.program().SELECTED_GAME_TAB == "T2"; }));
    EXPECT_FALSE(world.window().shows_empty_state());
}

TEST_F(Game_Set_Up, The_demo_library_is_offered_only_where_there_is_one_to_make) {
    world.Open();
    const auto *demo = world.window().findChild<QPushButton *>("try_demo");
    EXPECT_EQ(demo->isHidden(), Demo_maker().isEmpty());
    world.script().boxes.clear();
    world.Set_up_game("T2");
    EXPECT_FALSE(Offer_demo_library(world.program(), true));
    EXPECT_TRUE(world.script().boxes.empty());
}

TEST_F(Game_Set_Up, The_offer_of_the_demo_library_is_a_question_whose_default_is_no) {
    if (Demo_maker().isEmpty())
        GTEST_SKIP() << "vantrosk-demo is not built";
    EXPECT_FALSE(Offer_demo_library(world.program(), true));
    ASSERT_EQ(world.script().boxes.size(), 1U);
    const Box &box = world.script().boxes[0];
    EXPECT_TRUE(
        box.text.startsWith("Vantrosk is not set up yet. Would you like to try it with the demo library?"));
    EXPECT_TRUE(box.text.contains(Demo_folder(world.program())));
    EXPECT_EQ(box.default_answer, Answer::no);
    EXPECT_FALSE(world.files.exists("home/demo"));
}

TEST_F(Game_Set_Up, The_demo_library_is_made_and_its_games_are_set_up) {
    if (Demo_maker().isEmpty())
        GTEST_SKIP() << "vantrosk-demo is not built";
    world.Open();
    world.script().agrees = true;
    EXPECT_TRUE(Offer_demo_library(world.program(), true));
    EXPECT_FALSE(world.program().ini.T2_LOCATION.isEmpty());
    EXPECT_FALSE(world.window().shows_empty_state());
}

} // namespace vantrosk
