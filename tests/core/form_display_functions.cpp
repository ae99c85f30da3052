#include "core/mdlFormDisplayFunctions.h"
#include "support/World.h"

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

/// Notes each call that the recording face passes over.
struct Noting_Ui : Recording_Ui {
    QStringList calls;
    void set_status_light(int index, const QString &text) override {
        calls << QString("light %1 %2").arg(index).arg(text);
    }
    void set_progress(bool visible, int value, int maximum) override {
        calls << QString("progress %1 %2 %3").arg(visible).arg(value).arg(maximum);
    }
    void details_changed() override { calls << "details"; }
    void navigate(Browser browser, const QString &page) override {
        calls << QString("navigate %1 %2").arg(static_cast<int>(browser)).arg(page);
    }
};

struct Display_World : World {
    Display_World() : program(platform, face, windows("home")) {}
    Noting_Ui face;
    Program program;
};

} // namespace

TEST(Form_Display, A_status_panel_is_kept_and_shown) {
    Display_World world;
    Set_Status_Panel(world.program, 1, "Adding a.zip to database");
    Set_Status_Panel(world.program, 2, "a.zip");
    EXPECT_EQ(world.program.screen.status_panels[1], "Adding a.zip to database");
    EXPECT_EQ(world.program.screen.status_panels[2], "a.zip");
    EXPECT_EQ(world.face.panel_1, QStringList{"Adding a.zip to database"});
    EXPECT_EQ(world.face.panel_2, QStringList{"a.zip"});
    for (const int panel : {-1, 0, 6})
        Set_Status_Panel(world.program, panel, "nowhere");
    EXPECT_EQ(world.program.screen.status_panels[0], "");
}

TEST(Form_Display, The_light_finds_its_own_words) {
    Display_World world;
    QStringList expected;
    for (int index = 1; index <= 13; ++index) {
        Set_Status_Light(world.program, index);
        const char *words = index == 1    ? "READY"
                            : index <= 10 ? "WORKING"
                            : index == 11 ? "THERE IS A PROBLEM"
                                          : "NOTIFICATION";
        expected << QString("light %1 %2").arg(index).arg(words);
        EXPECT_EQ(world.program.screen.status_light, index);
        EXPECT_EQ(world.program.screen.status_panels[5], words);
    }
    Set_Status_Light(world.program, 12, "NEW REVIEWS");
    expected << "light 12 NEW REVIEWS";
    EXPECT_EQ(world.face.calls, expected);
    EXPECT_EQ(world.program.screen.status_panels[5], "NEW REVIEWS");
}

TEST(Form_Display, Progress_stays_within_its_bounds) {
    Display_World world;
    Show_Progress(world.program, 3, 10);
    EXPECT_TRUE(world.program.screen.progress_visible);
    Show_Progress(world.program, 12, 10);
    Show_Progress(world.program, -1, 0);
    Hide_Progress(world.program);
    EXPECT_FALSE(world.program.screen.progress_visible);
    EXPECT_EQ(world.face.calls,
              (QStringList{"progress 1 3 10", "progress 1 10 10", "progress 1 0 1", "progress 0 0 1"}));
}

TEST(Form_Display, The_caption_is_kept_and_shown) {
    Display_World world;
    Set_Caption(world.program, "Vantrosk");
    EXPECT_EQ(world.program.screen.caption, "Vantrosk");
    EXPECT_EQ(world.face.caption, "Vantrosk");
}

TEST(Form_Display, Reset_details_are_those_of_no_mission) {
    Display_World world;
    Details_Panel &details = world.program.screen.details;
    details.name = "N";
    details.score = "7";
    details.fourth_level_label = "IM:";
    details.install_enabled = details.play_enabled = details.finished[2] = true;
    world.program.screen.no_mission_selected = false;
    Reset_Details(world.program);
    EXPECT_TRUE(world.program.screen.no_mission_selected);
    EXPECT_EQ(details.name + details.score, "");
    EXPECT_EQ(details.fourth_level_label, "EX:");
    EXPECT_FALSE(details.install_enabled || details.play_enabled || details.finished[2]);
    EXPECT_EQ(world.face.calls, QStringList{"details"});
}

TEST(Form_Display, A_readme_page_goes_to_both_browsers) {
    Display_World world;
    Show_Readme_Page(world.program, "C:\\x\\page.htm");
    EXPECT_EQ(world.program.screen.readme_page, "C:\\x\\page.htm");
    EXPECT_EQ(world.face.calls, (QStringList{"navigate 0 C:\\x\\page.htm", "navigate 2 C:\\x\\page.htm"}));
}

TEST(Form_Display, Boxes_with_one_button_have_their_kind) {
    Display_World world;
    Show_Message(world.program, "T1", "a");
    Show_Warning(world.program, "T2", "b");
    Show_Critical(world.program, "T3", "c");
    ASSERT_EQ(world.face.boxes.size(), 3u);
    const Box_Kind kinds[] = {Box_Kind::information, Box_Kind::warning, Box_Kind::critical};
    for (size_t index = 0; index < 3; ++index) {
        EXPECT_EQ(world.face.boxes[index].kind, kinds[index]);
        EXPECT_EQ(world.face.boxes[index].title, QString("T%1").arg(index + 1));
        EXPECT_EQ(world.face.boxes[index].buttons, Buttons::ok);
    }
    EXPECT_EQ(world.face.box_texts(), (QStringList{"a", "b", "c"}));
}

TEST(Form_Display, A_question_takes_the_safe_answer_unless_told_otherwise) {
    Display_World world;
    EXPECT_FALSE(Ask_Yes_No(world.program, "T", "q"));
    EXPECT_FALSE(Ask_Ok_Cancel(world.program, "T", "q"));
    world.face.answers = {Answer::yes, Answer::no, Answer::ok, Answer::cancel};
    EXPECT_TRUE(Ask_Yes_No(world.program, "T", "q"));
    EXPECT_FALSE(Ask_Yes_No(world.program, "T", "q"));
    EXPECT_TRUE(Ask_Ok_Cancel(world.program, "T", "q"));
    EXPECT_FALSE(Ask_Ok_Cancel(world.program, "T", "q"));
    EXPECT_EQ(world.face.boxes[0].buttons, Buttons::yes_no);
    EXPECT_EQ(world.face.boxes[0].default_answer, Answer::no);
    EXPECT_EQ(world.face.boxes[1].buttons, Buttons::ok_cancel);
    EXPECT_EQ(world.face.boxes[1].default_answer, Answer::cancel);
    EXPECT_EQ(world.face.boxes[1].kind, Box_Kind::question);
}

TEST(Form_Display, An_input_gives_its_text_or_the_word_for_cancel) {
    Display_World world;
    world.face.inputs = {"http://x"};
    EXPECT_EQ(Ask_Input(world.program, "T", "p", "http", "d", "CANCEL"), "http://x");
    EXPECT_EQ(Ask_Input(world.program, "T", "p", "http", "d", "CANCEL"), "VKABORT");
    ASSERT_EQ(world.face.asked.size(), 2u);
    const Input_Request &asked = world.face.asked[0];
    EXPECT_EQ((QStringList{asked.title, asked.prompt, asked.required_start, asked.default_text,
                           asked.second_button}),
              (QStringList{"T", "p", "http", "d", "CANCEL"}));
}

} // namespace vantrosk
