#include "window/Window_World.h"

#include "core/mdlFile_Functions.h"
#include "ui/qt/Error_Box.h"
#include "ui/qt/Full_Lite_Question.h"
#include "ui/qt/Message_Boxes.h"
#include "ui/qt/Notes_Window.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

QStringList Label_texts(const QWidget &window) {
    QStringList texts;
    for (const QLabel *label : window.findChildren<QLabel *>())
        texts << label->text();
    return texts;
}

/// Closes the notes that are shown over a window.
Notes_Window *Shown_notes(const QWidget &window) {
    return window.findChild<Notes_Window *>();
}

} // namespace

TEST(Version_Question, Tells_what_the_two_versions_are) {
    const Full_Lite_Question question(nullptr);
    const QStringList texts = Label_texts(question);
    for (const char *text :
         {"Please select what version of Vantrosk you wish to use.",
          "This setting will leave Vantrosk using its default, best use, settings.",
          "This setting will switch off most default tweaks making Vantrosk as basic as possible to use.\n"
          "Settings can be switch back on again via the Tweaks tool, however they will need to be done "
          "manually.",
          "The lite version is a cut down version with most settings switched off and a simpler interface. "
          "If you choose this you can always re-enable settings via the TWEAKS TOOL found under the TOOLS "
          "menu on the main interface."})
        EXPECT_TRUE(texts.contains(text)) << text;
    EXPECT_EQ(question.findChild<QRadioButton *>("choose_full")->text(), "&Full Version");
    EXPECT_EQ(question.findChild<QRadioButton *>("choose_lite")->text(), "&Lite Version");
    EXPECT_TRUE(question.findChild<QRadioButton *>("choose_full")->isChecked());
}

TEST(Version_Question, Gives_what_was_chosen_and_full_when_it_is_closed) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        Full_Lite_Question question(nullptr);
        question.show();
        question.findChild<QRadioButton *>("choose_lite")->click();
        QTest::keyClick(&question, key);
        EXPECT_FALSE(question.isVisible());
        EXPECT_EQ(int(question.version()), int(key == Qt::Key_Return ? Version::lite : Version::full));
    }
    Full_Lite_Question untouched(nullptr);
    untouched.show();
    QTest::keyClick(&untouched, Qt::Key_Return);
    EXPECT_EQ(int(untouched.version()), int(Version::full));
}

TEST(Error_Window, Is_for_errors_and_for_texts_that_are_too_long) {
    EXPECT_TRUE(Error_Box::Is_for({Box_Kind::critical, "", "x"}));
    EXPECT_TRUE(Error_Box::Is_for({Box_Kind::critical, "An Error Has Occured", "x"}));
    EXPECT_FALSE(Error_Box::Is_for({Box_Kind::critical, "BASS.DLL", "x"}));
    EXPECT_FALSE(Error_Box::Is_for({Box_Kind::information, "", "x"}));
    EXPECT_TRUE(Error_Box::Is_for({Box_Kind::information, "", QString(2000, u'x')}));
    EXPECT_TRUE(Error_Box::Is_for({Box_Kind::information, "", QString(30, u'\n')}));
}

TEST(Error_Window, Has_its_title_text_and_buttons) {
    const Error_Box box({Box_Kind::critical, "", "<b>Error 1</b>", Buttons::yes_no, Answer::no}, nullptr);
    EXPECT_EQ(box.windowTitle(), "An Error Has Occured");
    EXPECT_EQ(box.findChild<QPlainTextEdit *>()->toPlainText(), "<b>Error 1</b>");
    QStringList names;
    for (const QPushButton *button : box.findChildren<QPushButton *>())
        names << button->objectName();
    names.sort();
    EXPECT_EQ(names, QStringList({"box_no", "box_yes"}));
    const Error_Box one({Box_Kind::critical, "Title", "x"}, nullptr);
    EXPECT_EQ(one.windowTitle(), "Title");
    EXPECT_EQ(one.findChildren<QPushButton *>().size(), 1);
}

TEST(Error_Window, Escape_is_no_and_a_button_gives_its_answer) {
    const struct {
        Buttons buttons;
        Answer default_answer;
        Qt::Key key;
        Answer answer;
    } rows[] = {{Buttons::yes_no, Answer::no, Qt::Key_Escape, Answer::no},
                {Buttons::yes_no, Answer::no, Qt::Key_Return, Answer::no},
                {Buttons::yes_no, Answer::yes, Qt::Key_Return, Answer::yes},
                {Buttons::ok_cancel, Answer::cancel, Qt::Key_Escape, Answer::cancel},
                {Buttons::ok_cancel, Answer::ok, Qt::Key_Return, Answer::ok},
                {Buttons::ok, Answer::ok, Qt::Key_Escape, Answer::ok}};
    for (const auto &row : rows) {
        Error_Box box({Box_Kind::critical, "", "x", row.buttons, row.default_answer}, nullptr);
        box.show();
        QTest::keyClick(&box, row.key);
        EXPECT_FALSE(box.isVisible());
        EXPECT_EQ(int(box.answer()), int(row.answer));
    }
}

TEST(Error_Window, The_letter_of_a_button_presses_it) {
    for (const auto &[key, answer] : {std::pair(Qt::Key_Y, Answer::yes), std::pair(Qt::Key_N, Answer::no)}) {
        Error_Box box({Box_Kind::critical, "", "Error 5", Buttons::yes_no, Answer::no}, nullptr);
        box.show();
        QTest::keyClick(&box, key);
        EXPECT_FALSE(box.isVisible());
        EXPECT_EQ(box.answer(), answer);
    }
}

TEST(Error_Window, A_short_text_makes_a_low_box) {
    Error_Box box({Box_Kind::critical, "", "Error 5 (Invalid procedure call)", Buttons::ok, Answer::ok},
                  nullptr);
    box.show();
    EXPECT_LT(box.height(), 160);
}

TEST(Error_Window, The_longest_text_still_fits_on_a_small_screen) {
    Error_Box box({Box_Kind::critical, "", QString("word ").repeated(4000), Buttons::yes_no, Answer::no},
                  nullptr);
    box.adjustSize();
    EXPECT_LT(box.height(), 480);
    EXPECT_LT(box.width(), 700);
}

TEST(Input_Window, Says_why_it_holds) {
    Input_Dialog dialog({"Title", "Prompt", "http://", "", ""}, nullptr);
    dialog.show();
    EXPECT_FALSE(dialog.findChild<QLabel *>("input_hint")->isVisible());
    dialog.findChild<QLineEdit *>("input_text")->setText("ftp://x");
    dialog.findChild<QPushButton *>("input_ok")->click();
    EXPECT_TRUE(dialog.findChild<QLabel *>("input_hint")->isVisible());
    EXPECT_EQ(dialog.findChild<QLabel *>("input_hint")->text(), "The text has to begin with “http://”.");
}

TEST(Notes, Show_the_file_beside_the_window_which_goes_on) {
    Window_World world;
    world.files.write("home/install_recover.log", "<b>line</b>\r\nSTEPS TO FIX");
    frmMain &window = world.Open();
    world.ui.script.reset();
    world.ui.show_notes(world.files.windows("home/install_recover.log"));
    Notes_Window *notes = Shown_notes(window);
    ASSERT_NE(notes, nullptr);
    EXPECT_TRUE(notes->isVisible());
    EXPECT_FALSE(notes->isModal());
    EXPECT_TRUE(window.isEnabled());
    EXPECT_EQ(notes->windowTitle(), "Notes - install_recover.log");
    EXPECT_EQ(notes->findChild<QPlainTextEdit *>()->toPlainText(), "<b>line</b>\nSTEPS TO FIX");
    EXPECT_EQ(notes->findChild<QPushButton *>("notes_delete"), nullptr);
    QTest::keyClick(notes, Qt::Key_Escape);
    EXPECT_TRUE(Window_World::Wait_until([&] { return !Shown_notes(window); }));
    EXPECT_TRUE(world.files.exists("home/install_recover.log"));
}

TEST(Notes, That_are_shown_once_are_gone_when_they_are_closed) {
    Window_World world;
    for (const bool with_the_window : {false, true}) {
        world.files.write("home/VK_runonce_notes.txt", "news");
        frmMain &window = world.Open();
        world.ui.script.reset();
        world.ui.show_notes(world.program().paths.runonce_notes);
        EXPECT_TRUE(world.files.exists("home/VK_runonce_notes.txt"));
        with_the_window ? window.close() : Shown_notes(window)->close();
        EXPECT_FALSE(world.files.exists("home/VK_runonce_notes.txt"));
        world.Close();
    }
}

TEST(Notes, Of_each_start_can_be_deleted) {
    Window_World world;
    world.files.write("home/VK_startup_notes.txt", "hello");
    Notes_Window notes(world.program(), world.files.windows("home/VK_startup_notes.txt"), nullptr);
    auto *button = notes.findChild<QPushButton *>("notes_delete");
    ASSERT_NE(button, nullptr);
    button->click();
    EXPECT_FALSE(world.files.exists("home/VK_startup_notes.txt"));
    EXPECT_EQ(notes.findChild<QPlainTextEdit *>()->toPlainText(), "");
    EXPECT_FALSE(button->isEnabled());
}

} // namespace vantrosk
