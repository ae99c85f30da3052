#include "ui/qt/Message_Boxes.h"
#include "ui/qt/Qt_Ui.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

Box Question(Buttons buttons, Answer answer) {
    return {Box_Kind::question, "WARNING", "Are you sure?", buttons, answer};
}

QStringList Button_names(const QMessageBox &box) {
    QStringList names;
    for (const QAbstractButton *button : box.buttons())
        names << button->objectName();
    names.sort();
    return names;
}

/// Runs the box and presses one key in it.
Answer Answer_to_key(const Box &box, Qt::Key key) {
    const auto shown = Make_box(box, nullptr);
    QTimer::singleShot(0, shown.get(), [&] { QTest::keyClick(shown.get(), key); });
    return Answer_of(*shown, shown->exec());
}

} // namespace

TEST(Message_Box, Has_the_told_title_text_and_buttons) {
    const auto box = Make_box(Question(Buttons::yes_no, Answer::no), nullptr);
    EXPECT_EQ(box->windowTitle(), "WARNING");
    EXPECT_EQ(box->text(), "Are you sure?");
    EXPECT_EQ(Button_names(*box), (QStringList{"box_no", "box_yes"}));
    EXPECT_EQ(Button_names(*Make_box(Question(Buttons::ok, Answer::ok), nullptr)), (QStringList{"box_ok"}));
    EXPECT_EQ(Button_names(*Make_box(Question(Buttons::ok_cancel, Answer::cancel), nullptr)),
              (QStringList{"box_cancel", "box_ok"}));
    EXPECT_EQ(Make_box({}, nullptr)->windowTitle(), "Vantrosk");
}

TEST(Message_Box, The_kind_chooses_the_picture) {
    const std::pair<Box_Kind, const char *> table[] = {{Box_Kind::information, "information"},
                                                       {Box_Kind::warning, "warning"},
                                                       {Box_Kind::critical, "critical"},
                                                       {Box_Kind::question, "help"}};
    for (const auto &[kind, icon] : table) {
        const auto box = Make_box({kind, "t", "x"}, nullptr);
        EXPECT_EQ(box->property("kind").toString(), icon);
        EXPECT_FALSE(box->iconPixmap().isNull()) << icon;
    }
}

TEST(Message_Box, Text_from_a_zip_is_never_mark_up) {
    EXPECT_EQ(Make_box({Box_Kind::warning, "t", "<a href='http://x'>x</a>"}, nullptr)->textFormat(),
              Qt::PlainText);
}

TEST(Message_Box, Escape_is_no_or_cancel_and_enter_takes_the_default) {
    EXPECT_EQ(Answer_to_key(Question(Buttons::yes_no, Answer::no), Qt::Key_Escape), Answer::no);
    EXPECT_EQ(Answer_to_key(Question(Buttons::yes_no, Answer::yes), Qt::Key_Escape), Answer::no);
    EXPECT_EQ(Answer_to_key(Question(Buttons::ok_cancel, Answer::ok), Qt::Key_Escape), Answer::cancel);
    EXPECT_EQ(Answer_to_key(Question(Buttons::ok, Answer::ok), Qt::Key_Escape), Answer::ok);
    EXPECT_EQ(Answer_to_key(Question(Buttons::yes_no, Answer::no), Qt::Key_Return), Answer::no);
    EXPECT_EQ(Answer_to_key(Question(Buttons::yes_no, Answer::yes), Qt::Key_Return), Answer::yes);
    EXPECT_EQ(Answer_to_key(Question(Buttons::ok_cancel, Answer::cancel), Qt::Key_Return), Answer::cancel);
}

TEST(Message_Box, A_default_that_has_no_button_is_the_safe_one) {
    EXPECT_EQ(Answer_to_key(Question(Buttons::yes_no, Answer::ok), Qt::Key_Return), Answer::no);
}

TEST(Input_Box, Ok_gives_the_text_and_escape_nothing) {
    Input_Dialog dialog({"Title", "Prompt", "", "", ""}, nullptr);
    QTest::keyClicks(dialog.findChild<QLineEdit *>("input_text"), "10.0.0.1");
    dialog.findChild<QPushButton *>("input_ok")->click();
    EXPECT_EQ(dialog.result(), int(QDialog::Accepted));
    EXPECT_EQ(dialog.text(), "10.0.0.1");
    Input_Dialog other({"Title", "Prompt", "", "", ""}, nullptr);
    other.show();
    QTest::keyClick(&other, Qt::Key_Escape);
    EXPECT_EQ(other.result(), int(QDialog::Rejected));
}

TEST(Input_Box, Holds_while_the_text_does_not_begin_as_it_must_in_any_case) {
    Input_Dialog dialog({"Title", "Prompt", "http://", "", ""}, nullptr);
    dialog.show();
    auto *text = dialog.findChild<QLineEdit *>("input_text");
    auto *ok = dialog.findChild<QPushButton *>("input_ok");
    text->setText("ftp://x");
    ok->click();
    EXPECT_TRUE(dialog.isVisible());
    text->setText("HTTP://x");
    ok->click();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), int(QDialog::Accepted));
}

TEST(Input_Box, The_second_button_clears_an_untouched_default_and_cancels_otherwise) {
    Input_Dialog dialog({"Title", "Prompt", "", "old text", "Skip"}, nullptr);
    dialog.show();
    auto *second = dialog.findChild<QPushButton *>("input_second");
    EXPECT_EQ(second->text(), "CLEAR");
    second->click();
    EXPECT_EQ(dialog.text(), "");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(second->text(), "Skip");
    second->click();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), int(QDialog::Rejected));
}

TEST(Window_Face, A_script_answers_in_order_then_by_the_default_and_keeps_what_was_shown) {
    Qt_Ui ui;
    ui.script.emplace();
    ui.script->answers = {Answer::yes, Answer::cancel};
    EXPECT_EQ(ui.show_box({Box_Kind::information, "t", "one button"}), Answer::ok);
    EXPECT_EQ(ui.show_box(Question(Buttons::yes_no, Answer::no)), Answer::yes);
    EXPECT_EQ(ui.show_box(Question(Buttons::ok_cancel, Answer::ok)), Answer::cancel);
    EXPECT_EQ(ui.show_box(Question(Buttons::yes_no, Answer::no)), Answer::no);
    ui.script->agrees = true;
    EXPECT_EQ(ui.show_box(Question(Buttons::yes_no, Answer::no)), Answer::yes);
    EXPECT_EQ(ui.show_box(Question(Buttons::ok_cancel, Answer::cancel)), Answer::ok);
    EXPECT_EQ(ui.script->boxes.size(), 6U);
    EXPECT_EQ(ui.script->boxes[0].text, "one button");
}

TEST(Window_Face, A_script_gives_texts_folders_and_takes_links) {
    Qt_Ui ui;
    ui.script.emplace();
    ui.script->inputs = {"typed"};
    ui.script->folders = {"/games"};
    EXPECT_EQ(ui.ask_input({"t", "p", "", "", ""}), std::optional<QString>("typed"));
    EXPECT_EQ(ui.ask_input({"t", "p", "", "", ""}), std::nullopt);
    EXPECT_EQ(ui.Choose_folder("Folder", ""), "/games");
    EXPECT_EQ(ui.Choose_folder("Folder", ""), "");
    ui.Open_link(QUrl("http://x.org/"));
    EXPECT_EQ(ui.script->links, QStringList{"http://x.org/"});
    EXPECT_EQ(ui.script->asked.size(), 2U);
}

TEST(Window_Face, Calls_without_a_window_change_nothing) {
    Qt_Ui ui;
    ui.script.emplace();
    ui.set_status_panel(1, "x");
    ui.set_status_light(11, "x");
    ui.set_progress(true, 1, 2);
    ui.set_caption("x");
    ui.set_busy(true);
    ui.games_changed();
    ui.list_changed();
    ui.list_row_changed(3);
    ui.list_current_row_changed();
    ui.list_visible(false);
    ui.details_changed();
    ui.readme_tabs_changed();
    ui.navigate(Browser::readme, "C:\\x.htm");
    ui.show_notes("C:\\x.txt");
    ui.pump_events();
    EXPECT_TRUE(ui.script->boxes.empty());
    EXPECT_EQ(ui.script->notes, QStringList{"C:\\x.txt"});
}

} // namespace vantrosk
