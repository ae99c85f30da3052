#include "window/Window_World.h"

#include "core/Trace_Console.h"
#include "ui/qt/Key_Manners.h"
#include "ui/qt/Trace_Console_Window.h"
#include "ui/qt/Window_Session.h"

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

class Console_Window : public ::testing::Test {
protected:
    Console_Window() {
        world.program().trace.enabled = true;
        Make();
    }
    void Make() {
        console = std::make_unique<Trace_Console_Window>(world.program(), world.ui);
        console->show();
        QCoreApplication::processEvents();
    }
    QPushButton *Button(const QString &name) { return console->findChild<QPushButton *>(name); }
    QString Page(const QString &name) { return console->findChild<QPlainTextEdit *>(name)->toPlainText(); }
    QListWidget *Names() { return console->findChild<QListWidget *>("console_names"); }
    void Tick(const QString &name) {
        Names()->findItems(name, Qt::MatchExactly).first()->setCheckState(Qt::Checked);
    }
    QAction *Entry(const QString &text) {
        for (QAction *action : console->findChildren<QAction *>())
            if (QString(action->text()).remove(u'&') == text)
                return action;
        return nullptr;
    }
    bool Pause_is_shown() { return console->findChild<QWidget *>("console_pause")->isVisible(); }

    Window_World world;
    std::unique_ptr<Trace_Console_Window> console;
};

} // namespace

TEST_F(Console_Window, Shows_its_notice_and_the_names_in_their_order) {
    EXPECT_EQ(console->windowTitle(), "Debug Console");
    QStringList texts, names;
    for (const QLabel *label : console->findChildren<QLabel *>())
        texts << label->text();
    EXPECT_TRUE(texts.contains(Trace_console_notice().remove(u'\r')));
    EXPECT_TRUE(texts.contains("Available Variables:"));
    EXPECT_TRUE(texts.contains("Variable Trace"));
    for (int i = 0; i < Names()->count(); ++i)
        names << Names()->item(i)->text();
    EXPECT_EQ(names, Trace_variable_names());
}

TEST_F(Console_Window, Lines_come_as_they_are_written_and_those_from_before_are_there) {
    EXPECT_EQ(Page("console_trace"), "DEBUGGER: Checking for previous debug log files.");
    debug_print(world.program(), "FUNCTIONS: one");
    debug_print(world.program(), "");
    debug_print(world.program(), "<b>two</b>");
    const QString all = "DEBUGGER: Checking for previous debug log files.\nFUNCTIONS: one\n<b>two</b>";
    EXPECT_EQ(Page("console_trace"), all);
    console.reset();
    Make();
    EXPECT_EQ(Page("console_trace"), all + "\nDEBUGGER: Checking for previous debug log files.");
}

TEST_F(Console_Window, Ticked_variables_are_shown_and_followed) {
    EXPECT_EQ(Page("console_variables"), "");
    world.program().CURRENT_GAME = "T2";
    world.program().MISSIONFILE = "miss20.mis";
    Tick("MISSIONFILE");
    Tick("CURRENT_GAME");
    EXPECT_EQ(Page("console_variables"), "CURRENT_GAME: T2\nMISSIONFILE: miss20.mis");
    world.program().CURRENT_GAME = "SS2";
    EXPECT_TRUE(Window_World::Wait_until(
        [&] { return Page("console_variables") == "CURRENT_GAME: SS2\nMISSIONFILE: miss20.mis"; }));
    Entry("Watch All Variables")->trigger();
    EXPECT_EQ(Page("console_variables"), Trace_variables(world.program()).join(u'\n'));
    Entry("Watch No Variable")->trigger();
    EXPECT_EQ(Page("console_variables"), "");
}

TEST_F(Console_Window, Holds_until_continue_is_pressed_and_lets_events_through) {
    bool event_came = false;
    QTimer::singleShot(0, console.get(), [&] {
        event_came = true;
        EXPECT_TRUE(console->is_holding());
        EXPECT_TRUE(Pause_is_shown());
        EXPECT_EQ(console->findChild<QLabel *>("console_prompt")->text(), "About to read ini");
        EXPECT_EQ(Button("console_continue")->text(), "Continue >");
        Button("console_continue")->click();
    });
    world.ui.script.reset();
    debug_pause(world.program(), "About to read ini");
    EXPECT_TRUE(event_came);
    EXPECT_FALSE(console->is_holding());
    EXPECT_FALSE(Pause_is_shown());
}

TEST_F(Console_Window, Enter_on_continue_lets_the_program_go_on) {
    const Key_Manners manners;
    QTimer::singleShot(0, console.get(),
                       [this] { QTest::keyClick(Button("console_continue"), Qt::Key_Return); });
    world.ui.script.reset();
    world.ui.trace_pause("About to read ini");
    EXPECT_FALSE(Pause_is_shown());
}

TEST_F(Console_Window, A_pause_within_a_pause_ends_first) {
    QStringList prompts;
    QTimer::singleShot(0, console.get(), [&] {
        QTimer::singleShot(0, console.get(), [&] {
            prompts << console->findChild<QLabel *>("console_prompt")->text();
            console->Continue();
        });
        console->Hold("inner");
        prompts << console->findChild<QLabel *>("console_prompt")->text();
        EXPECT_TRUE(console->is_holding());
        console->Continue();
    });
    console->Hold("outer");
    EXPECT_EQ(prompts, QStringList({"inner", "outer"}));
    EXPECT_FALSE(console->is_holding());
}

TEST_F(Console_Window, Closed_it_lets_go_and_holds_nobody_any_more) {
    QTimer::singleShot(0, console.get(), [&] { console->close(); });
    console->Hold("About to create folders");
    EXPECT_FALSE(console->isVisible());
    console->Hold("About to read ini");
    EXPECT_FALSE(console->is_holding());
    console->Continue();
}

TEST_F(Console_Window, Taken_away_while_it_holds_it_lets_go) {
    QTimer::singleShot(0, qApp, [&] { console.reset(); });
    console->Hold("About to create folders");
    EXPECT_EQ(console, nullptr);
}

TEST_F(Console_Window, Exports_the_trace_and_tells_where) {
    debug_print(world.program(), "FUNCTIONS: one");
    Button("console_export")->click();
    EXPECT_EQ(world.files.read("home/debug_trace.log"),
              "DEBUGGER: Checking for previous debug log files.\r\nFUNCTIONS: one\r\n");
    ASSERT_EQ(world.script().boxes.size(), 1U);
    EXPECT_EQ(world.script().boxes[0].text,
              "Debug info saved as '" + world.files.native("home/debug_trace.log") + "'");
    world.files.write("home/debug_trace.log", "old");
    Entry("Export Information Trace")->trigger();
    EXPECT_FALSE(world.files.read("home/debug_trace.log").startsWith("old"));
}

TEST_F(Console_Window, Offers_the_logs_that_crashes_left) {
    EXPECT_FALSE(Button("console_logs")->isEnabled());
    EXPECT_FALSE(Button("console_logs")->toolTip().isEmpty());
    console.reset();
    world.files.write("home/debug_19_11.log", "old trace");
    Make();
    EXPECT_EQ(Button("console_logs")->text(), "View Previous Debug Logs");
    EXPECT_TRUE(Button("console_logs")->isEnabled());
    const QList<QAction *> logs = Button("console_logs")->menu()->actions();
    ASSERT_EQ(logs.size(), 1);
    EXPECT_EQ(logs[0]->text(), "debug_19_11.log");
    logs[0]->trigger();
    EXPECT_EQ(world.script().notes, QStringList{world.files.windows("home/debug_19_11.log")});
}

namespace {

class Debug_Switch : public ::testing::Test {
protected:
    World files;
    Qt_Ui ui;
    std::unique_ptr<Program> program;
    std::unique_ptr<Window_Session> session;

    Debug_Switch() { ui.script.emplace(); }
    ~Debug_Switch() override {
        session.reset();
        program.reset();
    }
    bool Start(const QString &switches) {
        session.reset();
        program = std::make_unique<Program>(files.platform, ui, files.windows("home"));
        session = std::make_unique<Window_Session>(*program, ui);
        return session->Start(switches);
    }
    QAction *Trace_entry() { return session->window()->findChild<QAction *>("action_Debug_Console"); }
};

} // namespace

TEST_F(Debug_Switch, Shows_the_console_and_its_menu_entry_and_holds_at_each_stage) {
    ASSERT_TRUE(Start("/debug"));
    ASSERT_NE(session->console(), nullptr);
    EXPECT_TRUE(session->console()->isVisible());
    EXPECT_TRUE(Trace_entry()->isVisible());
    EXPECT_EQ(ui.script->pauses,
              QStringList({"About to set defaults", "About to read ini", "About to create folders"}));
    const QString trace = session->console()->findChild<QPlainTextEdit *>("console_trace")->toPlainText();
    EXPECT_TRUE(trace.contains("Starting Debug Log\nAbout to set defaults"));
    EXPECT_TRUE(trace.endsWith("Form Initialize finished"));
}

TEST_F(Debug_Switch, Without_it_there_is_neither) {
    ASSERT_TRUE(Start({}));
    EXPECT_EQ(session->console(), nullptr);
    EXPECT_FALSE(Trace_entry()->isVisible());
    EXPECT_EQ(ui.script->pauses, QStringList());
    EXPECT_EQ(program->trace.text, "");
}

TEST_F(Debug_Switch, The_entry_shows_a_closed_console_again_and_off_takes_both_away) {
    ASSERT_TRUE(Start("/debug"));
    session->console()->close();
    EXPECT_TRUE(debug_enabled(*program));
    Trace_entry()->trigger();
    EXPECT_TRUE(session->console()->isVisible());
    set_debug(*program, false);
    EXPECT_EQ(session->console(), nullptr);
    EXPECT_FALSE(Trace_entry()->isVisible());
    EXPECT_FALSE(debug_enabled(*program));
    debug_print(*program, "FUNCTIONS: nobody listens");
    set_debug(*program, true);
    ASSERT_NE(session->console(), nullptr);
    EXPECT_TRUE(Trace_entry()->isVisible());
}

TEST_F(Debug_Switch, The_console_goes_with_the_main_window) {
    ASSERT_TRUE(Start("/debug"));
    session->window()->close();
    EXPECT_FALSE(session->console()->isVisible());
}

} // namespace vantrosk
