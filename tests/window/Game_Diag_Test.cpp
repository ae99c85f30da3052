#include "window/Window_World.h"

#include "core/Games.h"
#include "support/Local_Server.h"
#include "tools/diagnostics/Game_Diagnostic.h"
#include "ui/qt/Diag_Game_Panel.h"
#include "ui/qt/Diag_Settings_Panel.h"
#include "ui/qt/Readme_Browser.h"
#include "ui/qt/frmGameDiag.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <QWebEngineView>

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

class Game_Diag : public ::testing::Test {
protected:
    Game_Diag() {
        for (const char *code : {"T1", "T2"})
            world.Set_up_game(code);
        world.files.make_folder("games/T3/SYSTEM");
        world.program().ini.T3_GAME_LOCATION = world.files.windows("games/T3/SYSTEM");
        world.files.write("games/T2/thief2.exe", "12345");
        world.files.write("home/references/DIAG_T2_a.VKDR",
                          "FILECOUNT:2\r\nINFO: Patched<br>to 1.18\r\nthief2.exe,6,x\r\ngone.txt,1,x\r\n");
        world.files.write("home/references/DIAG_T2X_a.VKDR", "INFO:other\r\n");
    }
    frmGameDiag &Open(const QString &code = "T2") {
        tool_ = std::make_unique<frmGameDiag>(world.program(), world.ui, Make_Theme(world.program().tweaks),
                                              code, nullptr);
        tool_->show();
        QCoreApplication::processEvents();
        return *tool_;
    }
    frmGameDiag &tool() { return *tool_; }
    template<typename Widget>
    Widget *find(const char *name) {
        auto *found = tool_->findChild<Widget *>(name);
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    void Choose_reference(const QString &name) {
        auto *list = find<QListWidget>("diag_references");
        list->setCurrentItem(list->findItems(name, Qt::MatchExactly).value(0));
    }
    QStringList Listed() {
        QStringList names;
        const auto *list = find<QListWidget>("diag_references");
        for (int i = 0; i < list->count(); ++i)
            names << list->item(i)->text();
        return names;
    }
    bool Wait_for_page() {
        return Window_World::Wait_until(
            [this] { return tool_->report->has_page() && !tool_->report->is_loading(); });
    }
    QString Page_text() {
        std::optional<QString> text;
        tool_->report->view()->page()->toPlainText([&text](const QString &plain) { text = plain; });
        Window_World::Wait_until([&text] { return text.has_value(); });
        return text.value_or(QString());
    }
    void Follow(const QString &act) {
        QSignalSpy done(tool_.get(), &frmGameDiag::Work_done);
        ASSERT_TRUE(tool_->report->take_link(QUrl("file:///x/newreffiles.htm?" + act)));
        ASSERT_TRUE(Window_World::Wait_until([&done] { return !done.isEmpty(); }));
    }

    Window_World world;

private:
    std::unique_ptr<frmGameDiag> tool_;
};

} // namespace

TEST_F(Game_Diag, Has_a_tab_per_game_and_one_for_its_settings_and_begins_with_the_game_in_use) {
    QTabBar *tabs = Open("T2").tabs;
    QStringList captions;
    for (int i = 0; i < tabs->count(); ++i)
        captions << tabs->tabText(i);
    EXPECT_EQ(captions, (QStringList{"Thief 1", "Thief Gold", "Thief 2", "Thief 3", "The Dark Mod", "SS2",
                                     "Custom Game", "Tool Settings"}));
    EXPECT_EQ(tabs->currentIndex(), 2);
    EXPECT_EQ(Open("").tabs->currentIndex(), 0);
    EXPECT_EQ(tool().windowTitle(), "Game Diagnostic Tool");
}

TEST_F(Game_Diag, Ctrl_and_tab_turn_to_the_next_game_from_everywhere) {
    Open("T2");
    auto *list = find<QListWidget>("diag_references");
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(tool().tabs->currentIndex(), 3);
    for (int i = 0; i < 4; ++i)
        QTest::keyClick(&tool(), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(tool().tabs->currentIndex(), 7) << "the first and the last are neighbours";
    QTest::keyClick(&tool(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(tool().tabs->currentIndex(), 0);
}

TEST_F(Game_Diag, A_tab_fills_the_game_path_and_lists_the_reference_files_of_its_game) {
    Open("T2");
    EXPECT_EQ(find<QLineEdit>("diag_game_path")->text(), world.files.native("games/T2"));
    EXPECT_EQ(Listed(), (QStringList{"NONE", "DIAG_T2_a.VKDR"}));
    EXPECT_EQ(tool().game->reference(), "NONE");
    tool().tabs->setCurrentIndex(3);
    EXPECT_EQ(find<QLineEdit>("diag_game_path")->text(), world.files.native("games/T3"));
    EXPECT_EQ(Listed(), QStringList{"NONE"});
    tool().tabs->setCurrentIndex(5);
    EXPECT_EQ(find<QLineEdit>("diag_game_path")->text(), "");
    tool().tabs->setCurrentIndex(6);
    EXPECT_EQ(Listed(), (QStringList{"NONE", "DIAG_T2X_a.VKDR"}));
}

TEST_F(Game_Diag, The_info_of_the_chosen_file_is_shown_with_its_line_breaks) {
    Open();
    Choose_reference("DIAG_T2_a.VKDR");
    EXPECT_EQ(find<QPlainTextEdit>("diag_info")->toPlainText(), "Patched\nto 1.18");
    Choose_reference("NONE");
    EXPECT_EQ(find<QPlainTextEdit>("diag_info")->toPlainText(), "");
}

TEST_F(Game_Diag, A_diagnosis_shows_its_report_and_lets_export) {
    Open();
    EXPECT_FALSE(find<QPushButton>("diag_export")->isEnabled());
    Choose_reference("DIAG_T2_a.VKDR");
    find<QPushButton>("diag_diagnose")->click();
    ASSERT_TRUE(Wait_for_page());
    const QString text = Page_text();
    EXPECT_TRUE(text.contains("Using Reference File: DIAG_T2_a.VKDR")) << text.toStdString();
    EXPECT_TRUE(text.contains("thief2.exe"));
    EXPECT_TRUE(text.contains("Missing Files"));
    EXPECT_EQ(find<QLabel>("diag_found")->text(),
              "1 files: 0 as they should be, 0 not expected, 1 different, 0 of "
              "Vantrosk, 1 missing.");
    EXPECT_TRUE(find<QProgressBar>("diag_progress")->isHidden());
    EXPECT_EQ(find<QProgressBar>("diag_progress")->maximum(), 2);
    EXPECT_TRUE(tool().report->isVisible());
    find<QPushButton>("diag_export")->click();
    ASSERT_EQ(world.script().boxes.size(), 1U);
    EXPECT_TRUE(world.script().boxes[0].text.startsWith("output saved as DIAG_T2_20261119_221405.VKDR in "));
    EXPECT_EQ(Listed(), (QStringList{"NONE", "DIAG_T2_20261119_221405.VKDR", "DIAG_T2_a.VKDR"}));
    EXPECT_EQ(tool().game->reference(), "DIAG_T2_a.VKDR");
}

TEST_F(Game_Diag, Another_tab_takes_report_and_export_away) {
    Open();
    find<QPushButton>("diag_diagnose")->click();
    ASSERT_TRUE(Wait_for_page());
    tool().tabs->setCurrentIndex(0);
    EXPECT_FALSE(find<QPushButton>("diag_export")->isEnabled());
    EXPECT_FALSE(tool().report->isVisible());
    EXPECT_EQ(find<QLabel>("diag_found")->text(), "");
}

TEST_F(Game_Diag, A_missing_folder_is_told_and_not_exported) {
    Open();
    for (const QString &path : {world.files.native("nowhere"), QString()}) {
        find<QLineEdit>("diag_game_path")->setText(path);
        Choose_reference("DIAG_T2_a.VKDR");
        find<QPushButton>("diag_diagnose")->click();
        ASSERT_TRUE(Wait_for_page());
        EXPECT_TRUE(Page_text().contains("WARNING, GAME FOLDER DOES NOT EXIST - Unable to continue"));
        EXPECT_FALSE(find<QPushButton>("diag_export")->isEnabled());
        EXPECT_EQ(find<QLabel>("diag_found")->text(), "The game folder does not exist; 2 files are missing.");
    }
}

TEST_F(Game_Diag, A_name_that_is_mark_up_runs_nothing_in_the_report) {
    world.files.write("games/T2/<img src=x onerror=alert(1)><script>.dll", "x");
    Open();
    find<QPushButton>("diag_diagnose")->click();
    ASSERT_TRUE(Wait_for_page());
    EXPECT_TRUE(Page_text().contains("<img src=x onerror=alert(1)><script>.dll"));
}

TEST_F(Game_Diag, Folders_are_chosen_with_a_dialog_and_cancelling_changes_nothing) {
    Open();
    world.script().folders = {world.files.native("games/T1"), world.files.native("home")};
    find<QPushButton>("diag_game_path_choose")->click();
    find<QPushButton>("diag_saves_path_choose")->click();
    EXPECT_EQ(tool().game->game_folder(), world.files.windows("games/T1"));
    EXPECT_EQ(find<QLineEdit>("diag_saves_path")->text(), world.files.native("home"));
    find<QPushButton>("diag_game_path_choose")->click();
    EXPECT_EQ(tool().game->game_folder(), world.files.windows("games/T1"));
    find<QLineEdit>("diag_game_path")->setText("C:\\Thief2");
    EXPECT_EQ(tool().game->game_folder(), "C:\\Thief2");
}

TEST_F(Game_Diag, A_report_that_can_not_be_written_is_told) {
    world.files.make_folder("home/game_diag.htm");
    Open();
    find<QPushButton>("diag_diagnose")->click();
    ASSERT_EQ(world.script().boxes.size(), 1U);
    EXPECT_TRUE(world.script().boxes[0].text.contains("game_diag.htm"));
    EXPECT_FALSE(tool().report->isVisible());
}

TEST_F(Game_Diag, Enter_in_the_list_diagnoses) {
    Open();
    QTest::keyClick(find<QListWidget>("diag_references"), Qt::Key_Return);
    EXPECT_TRUE(Wait_for_page());
}

TEST_F(Game_Diag, While_it_works_nothing_else_begins_and_it_does_not_close) {
    Open();
    world.files.make_folder("games/T2/sub");
    bool was_open = false, was_off = false;
    QTimer::singleShot(0, &tool(), [&] {
        if (!tool().is_working())
            return;
        QTest::keyClick(&tool(), Qt::Key_Escape);
        tool().close();
        was_open = tool().isVisible();
        was_off = !find<QPushButton>("diag_diagnose")->isEnabled();
    });
    find<QPushButton>("diag_diagnose")->click();
    EXPECT_TRUE(was_open && was_off);
    QTest::keyClick(&tool(), Qt::Key_Escape);
    EXPECT_FALSE(tool().isVisible());
}

TEST_F(Game_Diag, Listing_after_an_install_is_switched_on_and_off_here) {
    Open();
    tool().tabs->setCurrentIndex(7);
    auto *box = find<QCheckBox>("diag_after_install");
    EXPECT_TRUE(box->isVisible());
    EXPECT_FALSE(box->isChecked());
    box->click();
    EXPECT_TRUE(Wants_reference_after_install(world.program()));
    EXPECT_TRUE(Open().settings->findChild<QCheckBox *>()->isChecked());
}

TEST_F(Game_Diag, Offers_of_the_server_are_shown_fetched_and_closed) {
    Local_Server server;
    world.program().server_base_url = server.base();
    server.pages["/files/diagreffiles.pl"] = "DIAG_T2_clean#Patched#20260101¬¬DIAG_T2_other#Other#20260101¬¬";
    server.pages["/files/diagreflists.pl?VKLID=DIAG_T2_clean"] = "FILECOUNT:1\r\na.txt,1,d\r\n";
    Open().tabs->setCurrentIndex(7);
    find<QPushButton>("diag_download")->click();
    ASSERT_TRUE(Wait_for_page());
    EXPECT_TRUE(Page_text().contains("found 2 new game diagnostic Reference files."));
    EXPECT_EQ(find<QLabel>("diag_download_label")->text(), "2 new game diagnostic Reference files");
    Follow("downloadVKSingle=DIAG_T2_clean");
    ASSERT_TRUE(Wait_for_page());
    EXPECT_FALSE(Page_text().contains("DIAG_T2_clean"));
    EXPECT_TRUE(Page_text().contains("DIAG_T2_other"));
    EXPECT_TRUE(world.files.exists("home/references/DIAG_T2_clean.VKDR"));
    Follow("CloseVKWindow=true");
    EXPECT_FALSE(tool().report->isVisible());
    tool().tabs->setCurrentIndex(2);
    EXPECT_EQ(Listed(), (QStringList{"NONE", "DIAG_T2_a.VKDR", "DIAG_T2_clean.VKDR"}));
}

TEST_F(Game_Diag, A_click_on_an_offer_acts_and_is_not_followed) {
    Local_Server server;
    world.program().server_base_url = server.base();
    server.pages["/files/diagreffiles.pl"] = "DIAG_T2_clean#Patched#20260101¬¬";
    Open().tabs->setCurrentIndex(7);
    find<QPushButton>("diag_download")->click();
    ASSERT_TRUE(Wait_for_page());
    std::optional<QVariant> place;
    tool().report->view()->page()->runJavaScript(
        "var r = document.querySelector(\"a[href*=CloseVKWindow]\").getBoundingClientRect(); [r.x + 9, r.y + "
        "5]",
        QWebEngineScript::ApplicationWorld, [&place](const QVariant &value) { place = value; });
    ASSERT_TRUE(Window_World::Wait_until([&place] { return place.has_value(); }));
    const QVariantList at = place->toList();
    ASSERT_EQ(at.size(), 2);
    for (int clicks = 0; clicks < 20 && tool().report->isVisible(); ++clicks) {
        QTest::mouseClick(tool().report->view()->focusProxy(), Qt::LeftButton, {},
                          QPoint(at[0].toInt(), at[1].toInt()));
        QTest::qWait(100);
    }
    EXPECT_FALSE(tool().report->isVisible());
}

TEST_F(Game_Diag, A_server_with_nothing_new_is_told_in_the_label) {
    Local_Server server;
    world.program().server_base_url = server.base();
    Open().tabs->setCurrentIndex(7);
    find<QPushButton>("diag_download")->click();
    EXPECT_EQ(find<QLabel>("diag_download_label")->text(), "No new game diagnostic reference files found.");
    EXPECT_FALSE(tool().report->isVisible());
}

TEST_F(Game_Diag, Is_reached_from_the_menu_of_general_tools) {
    frmMain &window = world.Open();
    auto *action = window.findChild<QAction *>("action_Game_Diagnostic_Tool");
    ASSERT_NE(action, nullptr);
    EXPECT_EQ(action->shortcut(), QKeySequence("Ctrl+Shift+G"));
    action->trigger();
    EXPECT_EQ(world.script().windows, QStringList{"frmGameDiag"});
    EXPECT_NE(window.findChild<QMenu *>("general_tools_menu"), nullptr);
}

TEST_F(Game_Diag, Nothing_is_cut_off_on_a_small_screen) {
    Open().resize(960, 640);
    QCoreApplication::processEvents();
    for (const int tab : {2, 7}) {
        tool().tabs->setCurrentIndex(tab);
        QCoreApplication::processEvents();
        EXPECT_LE(tool().minimumSizeHint().width(), 1000);
        EXPECT_LE(tool().minimumSizeHint().height(), 640);
        for (const QWidget *widget : tool().findChildren<QPushButton *>())
            if (widget->isVisible()) {
                EXPECT_GE(widget->width(), widget->sizeHint().width()) << widget->objectName().toStdString();
                EXPECT_TRUE(tool().rect().contains(QRect(widget->mapTo(&tool(), QPoint()), widget->size())))
                    << widget->objectName().toStdString();
            }
    }
}

} // namespace vantrosk
