#include "window/Window_World.h"

#include "tools/plugin_tools/Plugin_Tools.h"
#include "ui/qt/frmTools.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

class Tools_Window : public testing::Test {
protected:
    void add(const QString &file, const QString &name) {
        world.files.write("downloads/" + file, "MZ " + file.toUtf8());
        Tool_Options options;
        options.name = name;
        ASSERT_FALSE(Do_Add_to_DB(world.program(), world.files.windows("downloads/" + file), options));
    }
    /// Fills the options dialog that comes up, and closes it with that button.
    void answer_options(const std::function<void(QDialog &)> &fill, QDialogButtonBox::StandardButton button) {
        QTimer::singleShot(0, qApp, [fill, button] {
            auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            fill(*dialog);
            dialog->findChild<QDialogButtonBox *>()->button(button)->click();
        });
    }
    static QStringList texts(const frmTools &tools) {
        QStringList all;
        for (int row = 0; row < tools.list()->count(); ++row)
            all << tools.list()->item(row)->text();
        return all;
    }

    Window_World world;
};

TEST_F(Tools_Window, Without_tools_it_says_how_to_get_one) {
    frmTools tools(world.program(), world.ui, nullptr);
    tools.show();
    EXPECT_TRUE(tools.findChild<QLabel *>("tools_empty")->isVisible());
    for (const char *name : {"tool_run", "tool_change", "tool_delete"})
        EXPECT_FALSE(tools.button(name)->isEnabled()) << name;
    EXPECT_TRUE(tools.button("tool_add")->isEnabled());
}

TEST_F(Tools_Window, The_list_shows_names_tips_and_warnings) {
    add("b.exe", "Second");
    add("a.bat", "First");
    world.files.write("downloads/b.exe", "NZ");
    frmTools tools(world.program(), world.ui, nullptr);
    EXPECT_EQ(texts(tools), (QStringList{"First", "Second - WARNING: Exe Has Changed"}));
    EXPECT_EQ(tools.list()->item(0)->data(Qt::UserRole).toString(), "key_2");
    EXPECT_EQ(tools.list()->currentRow(), 0);
}

TEST_F(Tools_Window, A_tool_is_added_with_what_the_dialog_says) {
    world.files.write("downloads/fix.bat", "echo");
    world.script().files = {world.files.native("downloads/fix.bat")};
    frmTools tools(world.program(), world.ui, nullptr);
    answer_options(
        [](QDialog &dialog) {
            EXPECT_EQ(dialog.findChild<QLineEdit *>("tool_name")->text(), "fix");
            EXPECT_TRUE(dialog.findChild<QCheckBox *>("tool_copy")->isChecked());
            dialog.findChild<QLineEdit *>("tool_name")->setText("Fixer");
            dialog.findChild<QLineEdit *>("tool_arguments")->setText("-x");
            auto *when = dialog.findChild<QComboBox *>("tool_run_when");
            when->setCurrentIndex(when->findData("T2*"));
            dialog.findChild<QCheckBox *>("tool_wait")->click();
        },
        QDialogButtonBox::Ok);
    tools.button("tool_add")->click();
    EXPECT_EQ(texts(tools), QStringList("Fixer"));
    const Plugin_Tool tool = Populate_Listview(world.program()).items.at(0).tool;
    EXPECT_EQ(tool.exe, "fix.bat");
    EXPECT_EQ(tool.arguments, "-x");
    EXPECT_EQ(tool.run_when, "T2*");
    EXPECT_TRUE(tool.waits);
    ASSERT_EQ(world.script().boxes.size(), 1U);
    EXPECT_TRUE(world.script().boxes[0].text.startsWith("WARNING: by selecting this Vantrosk will wait"));
    ASSERT_EQ(world.script().file_requests.size(), 1U);
    EXPECT_TRUE(world.script().file_requests[0].filter.startsWith(
        "Exe Files (*.EXE)|*.EXE|Batch Files (*.BAT)|*.BAT"));
}

TEST_F(Tools_Window, Cancel_adds_nothing_and_deletes_nothing) {
    world.files.write("home/tools/fix.bat", "echo");
    world.files.write("downloads/fix.bat", "echo");
    frmTools tools(world.program(), world.ui, nullptr);
    tools.button("tool_add")->click(); // no file is chosen
    world.script().files = {world.files.native("downloads/fix.bat")};
    answer_options([](QDialog &) {}, QDialogButtonBox::Cancel);
    tools.button("tool_add")->click();
    EXPECT_EQ(texts(tools), QStringList());
    EXPECT_EQ(world.files.read("home/tools/fix.bat"), "echo");
    EXPECT_TRUE(world.files.exists("downloads/fix.bat"));
}

TEST_F(Tools_Window, A_tool_is_changed_and_deleted) {
    add("a.exe", "First");
    frmTools tools(world.program(), world.ui, nullptr);
    answer_options(
        [](QDialog &dialog) {
            EXPECT_FALSE(dialog.findChild<QCheckBox *>("tool_copy")->isEnabled());
            dialog.findChild<QLineEdit *>("tool_name")->setText("Other");
        },
        QDialogButtonBox::Ok);
    tools.button("tool_change")->click();
    EXPECT_EQ(texts(tools), QStringList("Other"));
    tools.button("tool_delete")->click(); // the safe answer
    EXPECT_EQ(texts(tools), QStringList("Other"));
    world.script().answers = {Answer::yes};
    tools.button("tool_delete")->click();
    EXPECT_EQ(texts(tools), QStringList());
}

TEST_F(Tools_Window, The_codec_fix_is_a_tick_and_no_entry_of_the_list) {
    frmTools tools(world.program(), world.ui, nullptr);
    auto *tick = tools.findChild<QCheckBox *>("codec_fix_at_launch");
    EXPECT_FALSE(tick->isChecked());
    tick->click();
    EXPECT_TRUE(Populate_Listview(world.program()).codec_fix_at_launch);
    EXPECT_EQ(texts(tools), QStringList());
    frmTools again(world.program(), world.ui, nullptr);
    EXPECT_TRUE(again.findChild<QCheckBox *>("codec_fix_at_launch")->isChecked());
    again.findChild<QCheckBox *>("codec_fix_at_launch")->click();
    EXPECT_FALSE(Populate_Listview(world.program()).codec_fix_at_launch);
}

TEST_F(Tools_Window, A_changed_tool_is_not_run) {
    add("a.exe", "First");
    frmTools tools(world.program(), world.ui, nullptr);
    world.files.write("downloads/a.exe", "NZ");
    QTest::keyClick(tools.list(), Qt::Key_Return);
    ASSERT_EQ(world.script().boxes.size(), 1U);
    EXPECT_EQ(world.script().boxes[0].text,
              "This exe has changed since it was added, it is not advisable to run it.");
}

TEST_F(Tools_Window, Everything_is_named_and_reached_by_keys) {
    add("a.exe", "First");
    frmTools tools(world.program(), world.ui, nullptr);
    tools.show();
    for (const QPushButton *button : tools.findChildren<QPushButton *>()) {
        EXPECT_FALSE(button->toolTip().isEmpty()) << button->objectName().toStdString();
        EXPECT_NE(button->focusPolicy() & Qt::TabFocus, 0) << button->objectName().toStdString();
    }
    EXPECT_EQ(tools.list()->accessibleName(), "Plugin Tools");
    EXPECT_LE(tools.sizeHint().width(), 1024);
    EXPECT_LE(tools.sizeHint().height(), 700);
}

} // namespace
} // namespace vantrosk
