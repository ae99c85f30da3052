#include "window/Window_World.h"

#include "core/Games.h"
#include "core/mdlFile_Functions.h"
#include "ui/qt/Theme.h"
#include "ui/qt/frmSettings.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

class Settings_Window : public ::testing::Test {
protected:
    frmSettings &Open() {
        window = std::make_unique<frmSettings>(world.program(), nullptr);
        window->show();
        QApplication::processEvents();
        return *window;
    }
    template<typename Widget>
    Widget *Find(const QString &name) {
        auto *found = window->findChild<Widget *>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return found;
    }
    void Press(const QString &name) {
        auto *button = Find<QPushButton>(name);
        EXPECT_TRUE(button->isEnabled()) << name.toStdString();
        button->click();
        QApplication::processEvents();
    }
    QTabWidget &Tabs() { return *Find<QTabWidget>("settings_tabs"); }
    QTreeWidget &List(const QString &code) { return *Find<QTreeWidget>("settings_folders_" + code); }
    QString Line(const QString &name) { return Find<QLineEdit>(name)->text(); }
    /// "FOLDER" or "FOLDER (mixed)" of each row.
    QStringList Rows(const QString &code) {
        QStringList rows;
        for (int i = 0; i < List(code).topLevelItemCount(); ++i) {
            const QTreeWidgetItem *row = List(code).topLevelItem(i);
            rows << row->text(1) + (row->checkState(0) == Qt::Checked ? " (mixed)" : "");
        }
        return rows;
    }
    Main_Ini &Ini() { return world.program().ini; }

    Window_World world;
    std::unique_ptr<frmSettings> window;
};

} // namespace

TEST_F(Settings_Window, Has_a_tab_for_each_game_with_three_steps) {
    Open();
    QStringList captions;
    for (int i = 0; i < Tabs().count(); ++i) {
        captions << Tabs().tabText(i);
        QStringList texts;
        for (const QLabel *label : Tabs().widget(i)->findChildren<QLabel *>())
            texts << QString(label->text()).remove('&');
        EXPECT_EQ(
            texts,
            (QStringList{"Step 1) Game Location", "Step 2) FM Locations",
                         "No folder yet: press the green plus and point at one mission in it",
                         "NOTE: you do not need to select each FM zip file in a folder, just one to confirm "
                         "that Vantrosk will look in a folder that has zips in.",
                         "Step 3) Editor Location (if applicable)"}));
    }
    EXPECT_EQ(captions, (QStringList{"Thief 1", "Thief Gold", "Thief 2", "Thief 3", "T2X", "System Shock 2",
                                     "The Dark Mod", "Dark Metal"}));
    QStringList others;
    for (const QLabel *label : window->findChildren<QLabel *>())
        others << QString(label->text()).remove('&');
    for (const char *text : {"Other Settings (optional)",
                             "Default Language :", "Toolbar Icons :", "Preferred FM Download Site :"})
        EXPECT_TRUE(others.contains(text)) << text;
    EXPECT_EQ(Find<QCheckBox>("settings_updates")->text().remove('&'),
              "Check For Updates Every Time Vantrosk Starts");
    EXPECT_EQ(Find<QPushButton>("settings_auto")->text().remove('&'), "Auto Configure");
    EXPECT_EQ(world.program().HELPCONTEXT, "FILE___SETTINGS1");
}

TEST_F(Settings_Window, Its_buttons_tell_what_they_are_for) {
    Open();
    const std::pair<const char *, const char *> tips[] = {
        {"settings_locate_T2", "Locate Your Game Install\nUse this to find the main exe of the selected "
                               "game.\nVantrosk will let you know "
                               "what the exe file is called, all you need to do is find out where it "
                               "is.\nVantrosk will then use this "
                               "file to launch each game."},
        {"settings_clear_T2",
         "Clear Game\nUse if you have uninstalled a game that you previously used through "
         "Vantrosk.\nRemove the selected game from Vantrosk."},
        {"settings_add_T2",
         "Find a Fan Mission zip file, select it and then click OPEN.\nYou only need to this once "
         "for each folder used as Vantrosk will find all the zips directly in that folder for "
         "you.\n(Insert in the list)"},
        {"settings_remove_T2",
         "Remove a folder path from the currentl list that Vantrosk will look in for the "
         "currently selected game.\n(Delete in the list)"},
        {"settings_auto",
         "This will cause Vantrosk to try and work out yoru game install paths.\nHOWEVER, Vantrosk "
         "may not be able to find everything correctly so you will still need to just confirm that "
         "each game is found properly."},
        {"settings_save",
         "Save Your Configuration\nClick here to save any changes you have made.\nPlease Note: this "
         "may take a few seconds and some changes may require a restart of Vantrosk."},
    };
    for (const auto &[name, tip] : tips)
        EXPECT_EQ(Find<QPushButton>(name)->toolTip(), tip);
}

TEST_F(Settings_Window, Shows_what_the_ini_holds_native_and_windows_paths_each_as_their_owners_know_them) {
    world.Set_up_game("T2");
    Ini().SS2_GAME_LOCATION = "C:\\Sshock2";
    Ini().SS2_EDITOR = "C:\\Sshock2\\ShockEd.exe";
    Ini().TOTHER_LOCATION = "C:\\Mixed*#*";
    Open();
    EXPECT_EQ(Line("settings_game_T2"), world.files.native("games/T2"));
    EXPECT_EQ(Rows("T2"), (QStringList{world.files.native("fms/T2"), "C:\\Mixed (mixed)"}));
    EXPECT_EQ(Rows("DM"), QStringList{"C:\\Mixed (mixed)"});
    EXPECT_EQ(Line("settings_game_SS2"), "C:\\Sshock2");
    EXPECT_EQ(Line("settings_editor_SS2"), "C:\\Sshock2\\ShockEd.exe");
    QStringList states;
    for (int i = 0; i < Tabs().count(); ++i)
        states << Tabs().tabText(i) + ": " + Tabs().tabToolTip(i);
    EXPECT_EQ(states.mid(2),
              (QStringList{"Thief 2: Set up", "Thief 3: Not set up", "T2X: Not set up",
                           "System Shock 2: Set up", "The Dark Mod: Not set up", "Dark Metal: Not set up"}));
    EXPECT_FALSE(Find<QPushButton>("settings_locate_editor_T2X")->isEnabled());
}

TEST_F(Settings_Window, A_game_its_missions_and_its_editor_are_chosen_and_saved) {
    world.files.write("games/Thief 2/thief2.exe", "MZ");
    world.files.write("games/Thief 2/convict.osm", "script");
    world.files.write("games/Thief 2/dromed.exe", "MZ");
    world.files.write("fms/frost, ä.zip", "zip");
    world.program().first_run = true;
    Open();
    world.script().files = {world.files.native("games/Thief 2/thief2.exe"),
                            world.files.native("fms/frost, ä.zip"),
                            world.files.native("games/Thief 2/dromed.exe")};
    Press("settings_locate_T2");
    Press("settings_add_T2");
    Press("settings_locate_editor_T2");
    EXPECT_EQ(Line("settings_game_T2"), world.files.native("games/Thief 2"));
    EXPECT_EQ(Rows("T2"), QStringList{world.files.native("fms")});
    EXPECT_EQ(Ini().T2_GAME_LOCATION, "") << "nothing counts before it is saved";
    Press("settings_save");
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(Ini().T2_GAME_LOCATION, world.files.windows("games/Thief 2"));
    EXPECT_EQ(Ini().T2_LOCATION, world.files.windows("fms") + "\\*#*");
    EXPECT_EQ(Ini().T2_EDITOR, world.files.windows("games/Thief 2/dromed.exe"));
    EXPECT_TRUE(world.files.read("home/Vantrosk.ini").contains("[T2GAME]\r\nZ:\\"));
}

TEST_F(Settings_Window, Clear_and_remove_take_away_and_a_tick_makes_a_folder_one_of_mixed_games) {
    world.Set_up_game("T2");
    Ini().T2_EDITOR = "C:\\ed.exe";
    Ini().T2_LOCATION = "C:\\a*#*C:\\b*#*";
    Open();
    Press("settings_clear_editor_T2");
    EXPECT_EQ(Line("settings_editor_T2"), "");
    Press("settings_clear_T2");
    EXPECT_EQ(Line("settings_game_T2"), "");
    EXPECT_FALSE(Find<QPushButton>("settings_clear_T2")->isEnabled());
    List("T2").topLevelItem(0)->setCheckState(0, Qt::Checked);
    QApplication::processEvents();
    EXPECT_EQ(Rows("T2"), (QStringList{"C:\\b", "C:\\a (mixed)"}));
    EXPECT_EQ(Rows("T1"), QStringList{"C:\\a (mixed)"});
    List("T2").setCurrentItem(List("T2").topLevelItem(0));
    Press("settings_remove_T2");
    EXPECT_EQ(Rows("T2"), QStringList{"C:\\a (mixed)"});
    Press("settings_save");
    EXPECT_EQ(Ini().TOTHER_LOCATION, "C:\\a*#*");
    EXPECT_EQ(Ini().T2_LOCATION + Ini().T2_GAME_LOCATION + Ini().T2_EDITOR, "");
}

TEST_F(Settings_Window, Keys_alone_are_enough) {
    world.files.write("fms/frost.zip", "zip");
    Ini().T1_LOCATION = "C:\\a*#*";
    Open();
    EXPECT_EQ(QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString(),
              "settings_locate_T1");
    QTreeWidget &list = List("T1");
    list.setFocus();
    world.script().files = {world.files.native("fms/frost.zip")};
    QTest::keyClick(&list, Qt::Key_Insert);
    QApplication::processEvents();
    EXPECT_EQ(Rows("T1"), (QStringList{"C:\\a", world.files.native("fms")}));
    QTest::keyClick(&list, Qt::Key_Space);
    QApplication::processEvents();
    EXPECT_EQ(Rows("T2"), QStringList{world.files.native("fms") + " (mixed)"});
    QTest::keyClick(&list, Qt::Key_Home);
    QTest::keyClick(&list, Qt::Key_Delete);
    EXPECT_EQ(Rows("T1"), QStringList{world.files.native("fms") + " (mixed)"});
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_TRUE(window->isVisible()) << "Enter in the list is no Save";
    QTest::keyClick(&Tabs(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(Tabs().currentIndex(), 1);
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(Settings_Window, The_mark_in_the_list_goes_with_its_folder) {
    world.files.write("fms/frost.zip", "zip");
    Ini().T1_LOCATION = "C:\\a*#*C:\\b*#*C:\\a*#*";
    Ini().TOTHER_LOCATION = "C:\\m*#*";
    Open();
    QTreeWidget &list = List("T1");
    const auto marked = [&list] {
        return list.currentItem()->text(1) + ' ' +
               QString::number(list.indexOfTopLevelItem(list.currentItem()));
    };
    const auto press = [&list](Qt::Key key) {
        QTest::keyClick(&list, key);
        QApplication::processEvents();
    };
    list.setFocus();
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    EXPECT_EQ(Rows("T1"), (QStringList{"C:\\a", "C:\\a", "C:\\m (mixed)", "C:\\b (mixed)"}));
    EXPECT_EQ(marked(), "C:\\b 3");
    press(Qt::Key_Space);
    EXPECT_EQ(Rows("T1"), (QStringList{"C:\\a", "C:\\a", "C:\\b", "C:\\m (mixed)"}));
    EXPECT_EQ(marked(), "C:\\b 2");
    press(Qt::Key_Up);
    world.script().files = {world.files.native("fms/frost.zip")};
    press(Qt::Key_Insert);
    EXPECT_EQ(marked(), world.files.native("fms") + " 3");
    press(Qt::Key_Delete);
    EXPECT_EQ(marked(), "C:\\m 3");
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    Tabs().setCurrentIndex(1);
    press(Qt::Key_Insert);
    EXPECT_EQ(marked(), "C:\\a 1") << "a cancelled dialog moves nothing";
}

TEST_F(Settings_Window, Cancelled_it_writes_nothing_and_an_ini_that_can_not_be_written_is_told) {
    QFile::remove(world.files.native("home/Vantrosk.ini"));
    Open();
    Find<QLineEdit>("settings_site")->setText("http://x.example");
    Press("settings_close");
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(world.files.exists("home/Vantrosk.ini"));
    EXPECT_EQ(Ini().DOWNLOADS_URL, "");
    world.files.make_folder("home/Vantrosk.ini/x");
    Ini().T1_LOCATION = "C:\\a*#*";
    Open();
    Find<QLineEdit>("settings_site")->setText("http://x.example");
    Press("settings_remove_T1");
    Press("settings_save");
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(world.script().boxes.size(), 1U);
    Press("settings_close");
    EXPECT_EQ(Ini().T1_LOCATION + Ini().DOWNLOADS_URL, "C:\\a*#*");
}

TEST_F(Settings_Window, The_other_settings_are_kept) {
    world.files.write("home/languages/Languages.ini", "DE Deutsch\r\n");
    world.files.write("home/languages/DE.ini", "");
    Ini().MAIN_TOOLBAR = 24;
    Open();
    auto *languages = Find<QComboBox>("settings_language");
    EXPECT_EQ(languages->itemText(0), "ENGLISH");
    EXPECT_EQ(languages->currentText(), "ENGLISH");
    languages->setCurrentText("DEUTSCH");
    EXPECT_EQ(Find<QComboBox>("settings_icons")->currentData().toInt(), 24);
    Find<QComboBox>("settings_icons")->setCurrentIndex(2);
    Find<QCheckBox>("settings_updates")->setChecked(true);
    Find<QLineEdit>("settings_site")->setText("http://missions.example");
    Press("settings_save");
    EXPECT_EQ(Ini().LANGUAGE, "DEUTSCH");
    EXPECT_EQ(Ini().LANGUAGECODE, "DE");
    EXPECT_EQ(Ini().MAIN_TOOLBAR, 32);
    EXPECT_TRUE(Ini().CHECKFORUPDATES);
    EXPECT_EQ(Ini().DOWNLOADS_URL, "http://missions.example");
    EXPECT_EQ(world.script().boxes.size(), 1U) << "the language needs a new start";
}

TEST_F(Settings_Window, What_the_lists_do_not_know_is_not_lost) {
    Ini().LANGUAGE = "Klingon";
    Ini().LANGUAGECODE = "KL";
    Ini().MAIN_TOOLBAR = 48;
    Open();
    Press("settings_save");
    EXPECT_EQ(Ini().LANGUAGE, "Klingon");
    EXPECT_EQ(Ini().LANGUAGECODE, "KL");
    EXPECT_EQ(Ini().MAIN_TOOLBAR, 48);
    EXPECT_TRUE(world.script().boxes.empty());
}

TEST_F(Settings_Window, Auto_configure_fills_the_tabs_and_shows_how_far_it_is) {
    world.files.write("prefix/system.reg",
                      "WINE REGISTRY Version 2\n\n[Software\\\\Microsoft\\\\Windows\\\\CurrentVersion\\\\App "
                      "Paths\\\\shock2.exe] 1\n\"path\"=\"C:\\\\Sshock2\"\n");
    world.files.write("prefix/drive_c/Sshock2/shock2.exe", "MZ");
    world.files.write("user/.wine/system.reg", "WINE REGISTRY Version 2\n");
    Open();
    auto *prefixes = Find<QComboBox>("settings_prefix");
    EXPECT_EQ(prefixes->itemText(0), world.files.native("prefix") + " (in use)");
    EXPECT_EQ(prefixes->itemText(1), world.files.native("user/.wine") + " (Wine)");
    Find<QPushButton>("settings_auto")->setFocus();
    Press("settings_auto");
    EXPECT_TRUE(Find<QPushButton>("settings_auto")->hasFocus());
    EXPECT_EQ(Line("settings_game_SS2"), "C:\\Sshock2");
    EXPECT_EQ(Find<QLabel>("settings_stage")->text(), "Stage 7 of 7");
    EXPECT_EQ(Find<QProgressBar>("settings_progress")->value(), 7);
    EXPECT_EQ(Ini().SS2_GAME_LOCATION, "");
    EXPECT_TRUE(Find<QPushButton>("settings_save")->isEnabled());
    ASSERT_EQ(world.script().boxes.size(), 2U);
    EXPECT_TRUE(world.script().boxes[0].text.startsWith("Vantrosk sucessfully configured: System Shock 2"));
    prefixes->setCurrentIndex(1);
    Press("settings_auto");
    EXPECT_EQ(Line("settings_game_SS2"), "C:\\Sshock2") << "what is not found stays";
}

TEST(File_Dialog, Its_filters_tell_the_told_text_and_take_the_usual_spellings) {
    EXPECT_EQ(Name_filters("Thief 2 (thief2.exe)|thief2.exe"),
              "Thief 2 (thief2.exe) (thief2.exe THIEF2.EXE Thief2.exe)");
    EXPECT_EQ(Name_filters(" (t3.exe)|t3.exe|all exes (*.exe)|*.exe"),
              " (t3.exe) (t3.exe T3.EXE T3.exe);;all exes (*.exe) (*.exe *.EXE)");
    EXPECT_EQ(Name_filters(""), "");
}

TEST_F(Settings_Window, No_two_controls_of_a_tab_share_a_key) {
    Open();
    for (int tab = 0; tab < Tabs().count(); ++tab) {
        Tabs().setCurrentIndex(tab);
        QApplication::processEvents();
        QStringList texts, keys;
        for (const QAbstractButton *button : window->findChildren<QAbstractButton *>())
            if (button->isVisible())
                texts << button->text();
        for (const QLabel *label : window->findChildren<QLabel *>())
            if (label->isVisible())
                texts << label->text();
        for (const QString &text : texts)
            if (text.contains('&'))
                keys << text.mid(text.indexOf('&') + 1, 1).toUpper();
        EXPECT_EQ(keys.size(), 14) << keys.join(' ').toStdString();
        EXPECT_EQ(keys.removeDuplicates(), 0) << texts.join(" | ").toStdString();
    }
}

TEST_F(Settings_Window, Nothing_is_cut_off_at_the_smallest_size) {
    world.Open();
    world.Set_up_game("T2");
    Open().resize(940, 600);
    for (int i = 0; i < Tabs().count(); ++i) {
        Tabs().setCurrentIndex(i);
        QApplication::processEvents();
        EXPECT_LE(window->minimumSizeHint().width(), 940);
        EXPECT_LE(window->minimumSizeHint().height(), 508)
            << "960 by 540 is a large screen at double density";
        const auto *area = qobject_cast<const QScrollArea *>(Tabs().widget(i));
        ASSERT_NE(area, nullptr);
        EXPECT_EQ(area->verticalScrollBar()->maximum(), 0) << "a tab scrolls on low screens only";
        for (const QPushButton *button : window->findChildren<QPushButton *>())
            if (button->isVisible()) {
                EXPECT_GE(button->width(), button->sizeHint().width()) << button->objectName().toStdString();
            }
        for (const QLabel *label : window->findChildren<QLabel *>())
            if (label->isVisible()) {
                EXPECT_GE(label->height(), label->heightForWidth(label->width()))
                    << label->text().toStdString();
            }
    }
}

TEST_F(Settings_Window, The_main_window_lists_the_first_game_that_was_set_up_in_it) {
    world.Set_up_game("T2");
    world.files.zip("fms/T2/frost.zip", {{"miss20.mis", "map"}});
    world.Open();
    world.window().Scan_first_game();
    EXPECT_TRUE(Window_World::Wait_until([this] { return world.program().SELECTED_GAME_TAB == "T2"; }));
}

} // namespace vantrosk
