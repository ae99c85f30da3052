#include "window/Window_World.h"

#include "ui/qt/Details_Panel_View.h"
#include "ui/qt/Elided_Label.h"
#include "ui/qt/Flow_Layout.h"
#include "ui/qt/Game_Toolbar.h"
#include "ui/qt/Mission_Picture.h"
#include "ui/qt/Status_Bar.h"

#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace vantrosk {

TEST(Elided_Label_Letters, A_name_is_as_large_as_it_is_wanted_and_as_its_field_has_room) {
    QWidget field;
    auto *label = new Elided_Label(&field);
    const double plain = field.font().pointSizeF();
    label->resize(900, 30);
    label->Set_text("A Night at the Harbour");
    label->Set_most_points(14);
    EXPECT_EQ(label->font().pointSizeF(), std::max(14.0, plain));
    EXPECT_EQ(label->text(), "A Night at the Harbour");
    label->resize(40, 30);
    label->Set_text("Another Night at the Harbour");
    EXPECT_EQ(label->font().pointSizeF(), plain);
    EXPECT_TRUE(label->text().endsWith(u'\u2026'));
    label->resize(900, 30);
    label->Set_text("A Night at the Harbour");
    EXPECT_EQ(label->font().pointSizeF(), std::max(14.0, plain));
    label->Set_most_points(0);
    EXPECT_EQ(label->font().pointSizeF(), plain);
}

TEST(Status_Bar_Panel, Tells_in_words_what_is_going_on) {
    Status_Bar bar(nullptr);
    EXPECT_EQ(bar.panel_text(1), "Ready");
    bar.Show_panel(1, "Checking a.zip");
    bar.Show_panel(2, "12%");
    bar.Show_panel(3, "nowhere");
    EXPECT_EQ(bar.panel_text(1), "Checking a.zip");
    EXPECT_EQ(bar.panel_text(2), "12%");
}

TEST(Status_Bar_Panel, The_progress_bar_is_there_only_while_something_runs) {
    Status_Bar bar(nullptr);
    EXPECT_FALSE(bar.progress_is_visible());
    bar.Show_progress(true, 16, 25);
    EXPECT_TRUE(bar.progress_is_visible());
    EXPECT_EQ(bar.percent_text(), "64%");
    bar.Show_progress(false, 0, 1);
    EXPECT_FALSE(bar.progress_is_visible());
}

TEST(Status_Bar_Panel, Progress_out_of_its_bounds_stays_within_them) {
    Status_Bar bar(nullptr);
    const std::tuple<int, int, const char *> table[] = {
        {5, 0, "100%"}, {-3, 10, "0%"}, {11, 10, "100%"}, {0, 0, "0%"}, {2000000000, 2000000000, "100%"}};
    for (const auto &[value, maximum, percent] : table) {
        bar.Show_progress(true, value, maximum);
        EXPECT_EQ(bar.percent_text(), percent) << value << " of " << maximum;
    }
}

TEST(Status_Bar_Panel, Missions_are_counted_and_a_narrowed_list_says_so) {
    Status_Bar bar(nullptr);
    const std::tuple<int, int, bool, const char *> table[] = {{7, 7, true, "7 FMs"},
                                                              {1, 1, true, "1 FM"},
                                                              {0, 0, true, "0 FMs"},
                                                              {3, 7, true, "3 of 7 FMs"},
                                                              {0, 0, false, ""}};
    for (const auto &[shown, all, has_list, text] : table) {
        bar.Show_count(shown, all, has_list);
        EXPECT_EQ(bar.count_text(), text);
    }
}

TEST(Status_Bar_Panel, The_light_has_a_picture_and_words) {
    Status_Bar bar(nullptr);
    const std::tuple<int, const char *, const char *> table[] = {
        {1, "", "READY"},         {2, "", "WORKING"},
        {9, "", "WORKING"},       {11, "", "THERE IS A PROBLEM"},
        {12, "", "NOTIFICATION"}, {13, "", "NOTIFICATION"},
        {5, "BUSY", "BUSY"},      {11, "LOOK", "LOOK"}};
    for (const auto &[index, text, shown] : table) {
        bar.Show_light(index, text);
        EXPECT_EQ(bar.light_picture(), index);
        EXPECT_EQ(bar.light_text(), shown);
    }
}

TEST(Status_Bar_Panel, Every_picture_of_the_light_is_another_one) {
    Status_Light light;
    std::vector<QImage> pictures;
    for (int index : {1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12}) {
        light.Show_picture(index);
        pictures.push_back(light.grab().toImage());
    }
    for (size_t i = 0; i < pictures.size(); ++i)
        for (size_t k = 0; k < i; ++k)
            EXPECT_NE(pictures[i], pictures[k]) << i << " " << k;
}

TEST(Elided_Line, A_long_text_ends_in_dots_and_the_tip_tells_it_all) {
    Elided_Label label;
    label.resize(100, 20);
    label.Set_text("short");
    EXPECT_EQ(label.text(), "short");
    EXPECT_EQ(label.toolTip(), "");
    const QString text = QString("a long way ").repeated(20).trimmed();
    label.Set_text(text);
    EXPECT_TRUE(label.text().endsWith(u'…'));
    EXPECT_EQ(label.toolTip(), text);
    EXPECT_EQ(label.accessibleName(), text);
    label.resize(5000, 20);
    label.Set_text(text);
    EXPECT_EQ(label.text(), text);
}

TEST(Elided_Line, Mark_up_and_line_breaks_are_shown_as_text_in_one_line) {
    Elided_Label label;
    label.resize(800, 20);
    label.Set_text("<b>Ann</b>\nLee\t<img src=x>");
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_EQ(label.text(), "<b>Ann</b> Lee <img src=x>");
}

TEST(Flow_Lines, Items_go_on_in_the_next_line_and_hidden_ones_take_no_room) {
    QWidget area;
    auto *flow = new Flow_Layout(10);
    area.setLayout(flow);
    std::vector<QLabel *> labels;
    for (int i = 0; i < 4; ++i) {
        labels.push_back(new QLabel(&area));
        labels.back()->setFixedSize(100, 20);
        flow->addWidget(labels.back());
    }
    EXPECT_EQ(flow->heightForWidth(1000), 20);
    EXPECT_EQ(flow->heightForWidth(210), 50);
    EXPECT_EQ(flow->heightForWidth(100), 110);
    labels[1]->hide();
    labels[2]->hide();
    EXPECT_EQ(flow->heightForWidth(210), 20);
    EXPECT_EQ(flow->count(), 4);
    EXPECT_EQ(flow->itemAt(4), nullptr);
    EXPECT_EQ(flow->takeAt(-1), nullptr);
}

namespace {

class Window_Panels : public ::testing::Test {
protected:
    Window_Panels() { world.Set_up_game("T2"); }

    QToolButton *Button(const QString &code) { return world.window().games->button_of(code); }
    Details_Panel_View *Details() { return world.window().details; }
    QString Shown(const QString &name) { return Details()->shown_text(name); }
    bool Is_shown(const QString &name) { return Details()->findChild<QLabel *>(name)->isVisible(); }
    QStringList Chips(const QString &kind) {
        QStringList texts;
        for (const QLabel *label : Details()->findChildren<QLabel *>())
            if (label->property("kind").toString() == kind && label->isVisibleTo(Details()))
                texts << label->text();
        return texts;
    }

    Window_World world;
};

} // namespace

TEST_F(Window_Panels, The_games_stand_in_their_order_and_those_not_set_up_are_dimmed_with_a_tip) {
    world.Open();
    for (const char *code : {"T1", "TG", "T3", "DM", "DMOD", "T2X", "SS2"}) {
        EXPECT_TRUE(Button(code)->property("dimmed").toBool()) << code;
        EXPECT_TRUE(Button(code)->toolTip().contains("is not set up")) << code;
    }
    EXPECT_FALSE(Button("T2")->property("dimmed").toBool());
    EXPECT_EQ(Button("T2")->toolTip(), "Thief The Metal Age: lists its missions (Ctrl+3)");
    EXPECT_EQ(Button("DOOM"), nullptr);
    const char *order[] = {"T1", "TG", "T2", "T3", "DM", "DMOD", "T2X", "SS2"};
    for (size_t i = 1; i < 8; ++i)
        EXPECT_GT(Button(order[i])->mapToGlobal(QPoint()).y(),
                  Button(order[i - 1])->mapToGlobal(QPoint()).y());
}

TEST_F(Window_Panels, A_game_with_one_of_its_folders_is_set_up) {
    world.Open();
    EXPECT_FALSE(Game_is_set_up(world.program(), "SS2"));
    world.program().ini.SS2_LOCATION = "C:\\fms\\*#*";
    EXPECT_TRUE(Game_is_set_up(world.program(), "ss2"));
    world.program().ini.SS2_LOCATION.clear();
    world.program().ini.SS2_GAME_LOCATION = "C:\\shock2";
    EXPECT_TRUE(Game_is_set_up(world.program(), "SS2"));
    EXPECT_FALSE(Game_is_set_up(world.program(), "nothing"));
}

TEST_F(Window_Panels, The_current_game_is_lit) {
    world.Set_up_game("TG");
    world.Open();
    world.program().SELECTED_GAME_TAB = "TG";
    world.ui.games_changed();
    EXPECT_TRUE(Button("TG")->isChecked());
    EXPECT_FALSE(Button("T2")->isChecked());
}

TEST_F(Window_Panels, A_game_that_is_set_up_is_chosen_and_another_leads_to_its_set_up) {
    Game_Toolbar toolbar(world.program(), Make_Theme({}), nullptr);
    QSignalSpy chosen(&toolbar, &Game_Toolbar::Game_chosen);
    QSignalSpy set_up(&toolbar, &Game_Toolbar::Set_up_wanted);
    toolbar.button_of("T2")->click();
    toolbar.button_of("SS2")->click();
    ASSERT_EQ(chosen.size(), 1);
    EXPECT_EQ(chosen[0][0].toString(), "T2");
    ASSERT_EQ(set_up.size(), 1);
    EXPECT_EQ(set_up[0][0].toString(), "SS2");
    EXPECT_FALSE(toolbar.button_of("SS2")->isChecked());
}

TEST_F(Window_Panels, Pictures_of_the_game_bar_have_the_size_of_the_main_ini) {
    for (const auto &[setting, size] :
         {std::pair(16, 16), {24, 24}, {32, 32}, {0, 24}, {7, 24}, {1000, 24}}) {
        world.program().ini.MAIN_TOOLBAR = setting;
        Game_Toolbar toolbar(world.program(), Make_Theme({}), nullptr);
        EXPECT_EQ(toolbar.button_of("T2")->iconSize(), QSize(size, size)) << setting;
    }
}

TEST_F(Window_Panels, Without_a_mission_the_details_say_what_to_do) {
    world.Open();
    EXPECT_FALSE(Details()->shows_a_mission());
    EXPECT_TRUE(Details()->findChild<QLabel *>("details_empty")->isVisible());
    EXPECT_FALSE(Details()->play()->isEnabled());
    EXPECT_FALSE(Details()->install()->isEnabled());
}

TEST_F(Window_Panels, A_mission_shows_what_is_known_of_it_and_nothing_else) {
    world.Open();
    world.Fill_list(3);
    Details_Panel &details = world.program().screen.details;
    details.author = "Mirek Dvořák";
    details.game = "Thief The Metal Age";
    details.languages = {"English", "", "", "", "", "", "Russian"};
    details.size_text = "38.7 MB";
    details.unpacked_text = "92 MB";
    details.group_score = "8";
    details.group_label = "Average score from 31 people";
    details.features = {true, false, true, false, false, false, false, true};
    world.Select_mission(1, false);
    EXPECT_EQ(Shown("details_name"), "Mission 0001");
    EXPECT_EQ(Shown("details_author"), "Mirek Dvořák");
    EXPECT_EQ(Shown("details_game"), "Thief The Metal Age");
    EXPECT_EQ(Shown("details_languages"), "English, Russian");
    EXPECT_EQ(Shown("details_archive"), "mission0001.zip, 38.7 MB");
    EXPECT_EQ(Shown("details_unpacked"), "92 MB");
    EXPECT_EQ(Shown("details_community"), "8 of 10 · Average score from 31 people");
    EXPECT_TRUE(Is_shown("details_archive"));
    EXPECT_FALSE(Is_shown("details_last_played"));
    EXPECT_FALSE(Is_shown("details_saves"));
    EXPECT_EQ(Chips("chip_on"), (QStringList{"New Graphics", "New Sounds", "Videos"}));
    EXPECT_EQ(Chips("chip_off"),
              (QStringList{"New Objects", "Scripts", "Gamesys", "Miss Graphics", "AutoMap"}));
}

TEST_F(Window_Panels, A_community_score_of_0_is_none) {
    world.Open();
    world.Fill_list(1);
    for (const char *score : {"", "0", "none"}) {
        world.program().screen.details.group_score = score;
        world.Select_mission(1, false);
        EXPECT_FALSE(Is_shown("details_community")) << score;
    }
}

TEST_F(Window_Panels, The_buttons_say_what_can_be_done_next) {
    world.Open();
    world.Fill_list(2);
    world.Select_mission(1, false);
    EXPECT_EQ(Details()->install()->text(), "&Install");
    EXPECT_TRUE(Details()->install()->isEnabled());
    EXPECT_FALSE(Details()->play()->isEnabled());
    EXPECT_EQ(Details()->next_step(), Details()->install());
    world.Select_mission(1, true);
    EXPECT_EQ(Details()->install()->text(), "&Installed");
    EXPECT_FALSE(Details()->install()->isEnabled());
    EXPECT_TRUE(Details()->play()->isEnabled());
    EXPECT_EQ(Details()->next_step(), Details()->play());
}

TEST_F(Window_Panels, Original_missions_have_no_archive_and_no_chips_and_install_puts_them_back) {
    world.Open();
    world.Fill_list(1);
    world.Select_mission(0, false);
    EXPECT_EQ(Shown("details_name"), "Thief 2 Original Missions");
    EXPECT_FALSE(Is_shown("details_author"));
    EXPECT_FALSE(Is_shown("details_archive"));
    EXPECT_EQ(Chips("chip_on") + Chips("chip_off"), QStringList());
    EXPECT_EQ(Details()->install()->text(), "&Install");
    EXPECT_EQ(Details()->install()->toolTip(), "Puts the game's own missions back (Ctrl+I)");
}

TEST_F(Window_Panels, Play_and_install_are_the_two_largest_buttons) {
    world.Open(1024, 700);
    world.Fill_list(1);
    world.Select_mission(1, false);
    const int area = Details()->play()->width() * Details()->play()->height();
    for (const QPushButton *button : world.window().findChildren<QPushButton *>())
        if (button->isVisible() && button->property("kind") != "primary") {
            EXPECT_LT(button->width() * button->height(), area) << button->objectName().toStdString();
        }
    EXPECT_GE(Details()->play()->height(), 36);
}

TEST_F(Window_Panels, The_picture_of_a_mission_is_shown_and_a_bad_one_is_not) {
    QImage image(300, 200, QImage::Format_RGB32);
    image.fill(Qt::red);
    image.save(world.files.native("good.png"));
    image.save(world.files.native("picture with the wrong name.jpg"), "PNG");
    world.files.write("bad.jpg", "not a picture");
    world.files.write("short.png", world.files.read("good.png").left(40));
    Mission_Picture picture(Make_Theme({}));
    const std::pair<const char *, bool> table[] = {{"good.png", true},
                                                   {"picture with the wrong name.jpg", true},
                                                   {"bad.jpg", false},
                                                   {"short.png", false},
                                                   {"missing.gif", false}};
    for (const auto &[name, shown] : table) {
        picture.Show_picture(world.files.native(name), true);
        EXPECT_EQ(picture.has_picture(), shown) << name;
        EXPECT_FALSE(picture.grab().isNull());
    }
    picture.Show_picture({}, false);
    EXPECT_FALSE(picture.has_picture());
}

TEST_F(Window_Panels, Frames_follow_each_other_and_unreadable_ones_are_left_out) {
    for (int i = 0; i < 2; ++i) {
        QImage image(30, 20, QImage::Format_RGB32);
        image.fill(i == 0 ? Qt::red : Qt::green);
        image.save(world.files.native(QString("frame%1.bmp").arg(i)));
    }
    Mission_Picture picture(Make_Theme({}));
    picture.Show_frames(
        {world.files.native("frame0.bmp"), world.files.native("none.bmp"), world.files.native("frame1.bmp")});
    const auto middle = [&picture] {
        return QColor(picture.grab().toImage().pixel(65, 49));
    };
    EXPECT_EQ(middle(), QColor(Qt::red));
    EXPECT_TRUE(Window_World::Wait_until([&] { return middle() == QColor(Qt::green); }));
    EXPECT_TRUE(Window_World::Wait_until([&] { return middle() == QColor(Qt::red); }));
    picture.Show_frames({});
    EXPECT_FALSE(picture.has_picture());
}

} // namespace vantrosk
