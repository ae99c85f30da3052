#include "window/Window_World.h"

#include "ui/qt/Key_Manners.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QMainWindow>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

/// How often a button of this kind, alone in a window, is pressed by the key.
template<typename Window, typename Button>
int Presses(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    Window window;
    auto *button = new Button;
    auto *column = new QVBoxLayout;
    column->addWidget(button);
    auto *inner = new QWidget(&window);
    inner->setLayout(column);
    window.show();
    int presses = 0;
    QObject::connect(button, &QAbstractButton::clicked, [&presses] { ++presses; });
    QTest::keyClick(button, static_cast<Qt::Key>(key), modifiers);
    return presses;
}

} // namespace

TEST(Key_Manners, Enter_presses_the_button_that_has_the_keys) {
    EXPECT_EQ((Presses<QMainWindow, QPushButton>(Qt::Key_Return)), 0) << "the toolkit leaves it out";
    const Key_Manners manners;
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        EXPECT_EQ((Presses<QMainWindow, QPushButton>(key)), 1) << key;
        EXPECT_EQ((Presses<QMainWindow, QToolButton>(key)), 1) << key;
    }
    EXPECT_EQ((Presses<QDialog, QPushButton>(Qt::Key_Return)), 1) << "once, whoever presses it";
    EXPECT_EQ((Presses<QMainWindow, QCheckBox>(Qt::Key_Return)), 0);
    EXPECT_EQ((Presses<QMainWindow, QPushButton>(Qt::Key_Return, Qt::ControlModifier)), 0);
}

TEST(Key_Manners, Enter_on_a_button_does_not_press_the_default_one) {
    const Key_Manners manners;
    QDialog dialog;
    auto *column = new QVBoxLayout(&dialog);
    QStringList pressed;
    const auto add = [&](const QString &text) {
        auto *button = new QPushButton(text);
        button->setAutoDefault(false);
        column->addWidget(button);
        QObject::connect(button, &QPushButton::clicked, [&pressed, text] { pressed << text; });
        return button;
    };
    QPushButton *remove = add("Remove");
    QPushButton *save = add("Save");
    save->setDefault(true);
    auto *tick = new QCheckBox("Tick");
    column->addWidget(tick);
    dialog.show();
    QTest::keyClick(remove, Qt::Key_Return);
    EXPECT_EQ(pressed, QStringList{"Remove"});
    QTest::keyClick(tick, Qt::Key_Return);
    EXPECT_EQ(pressed, (QStringList{"Remove", "Save"}));
    remove->setEnabled(false);
    QTest::keyClick(remove, Qt::Key_Return);
    EXPECT_EQ(pressed.count("Remove"), 1);
}

TEST(Key_Manners, The_keys_go_back_to_the_window_below_a_dialog_that_goes) {
    const Key_Manners manners;
    QMainWindow window;
    window.show();
    window.activateWindow();
    QDialog dialog(&window);
    dialog.setModal(true);
    dialog.show();
    dialog.activateWindow();
    EXPECT_TRUE(Window_World::Wait_until([&] { return QApplication::activeWindow() == &dialog; }));
    dialog.hide();
    EXPECT_TRUE(Window_World::Wait_until([&] { return QApplication::activeWindow() == &window; }));
}

} // namespace vantrosk
