#include "window/Window_World.h"

#include "library/Fm_List_View.h"
#include "ui/qt/Community_Panel.h"
#include "ui/qt/Details_Panel_View.h"
#include "ui/qt/Details_Tabs.h"
#include "ui/qt/Filter_Strip.h"
#include "ui/qt/Finish_Score_View.h"
#include "ui/qt/Finished_Panel.h"
#include "ui/qt/Fm_List_Model.h"
#include "ui/qt/Fm_List_Panel.h"
#include "ui/qt/Fm_Table.h"
#include "ui/qt/Keywords_Panel.h"
#include "ui/qt/Review_Panel.h"
#include "ui/qt/Score_Panel.h"
#include "ui/qt/Window_Commands.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTabBar>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

/// A window over a real list of two missions, the first of them selected.
class Opinions : public ::testing::Test {
protected:
    Opinions() {
        world.Set_up_game("T2");
        for (const char *name : {"alpha", "beta"})
            world.files.zip(QString("fms/T2/%1.zip").arg(name),
                            {{"miss20.mis", "m", {}},
                             {"readme.txt",
                              QByteArray("Title: ") + name + "\r\nAuthor: Ann Lee\r\nGame: Thief 2\r\n",
                              {}}});
        world.Open();
        view = world.window().opinions;
        world.window().commands->Choose_game("T2");
        Select("alpha.zip");
    }

    void Select(const QString &zip) {
        world.window().commands->Choose_row(world.program().screen.list.find_zip(zip), col_name);
    }
    QString Stored(const char *column, const QString &zip = "alpha.zip") {
        return db_Query(world.program(), "select * from Table_Scores where zip_name = '" + zip + "'")
            .text(0, column);
    }
    QString Cell(const QString &zip, int column) {
        const Fm_List &list = world.program().screen.list;
        return list.rows[static_cast<size_t>(list.find_zip(zip))].cells[static_cast<size_t>(column)];
    }
    Details_Panel &Details() { return world.program().screen.details; }
    void Show_page() {
        world.window().details_tabs->Show("Finish_Score_Review");
        QCoreApplication::processEvents();
    }

    Window_World world;
    Finish_Score_View *view = nullptr;
};

QStringList Texts(const QMenu *menu) {
    QStringList texts;
    for (const QAction *action : menu->actions())
        texts << (action->isSeparator() ? QString("-") : QString(action->text()).remove(u'&'));
    return texts;
}

QAction *Entry(const QMenu *menu, const QString &text) {
    for (QAction *action : menu->actions())
        if (QString(action->text()).remove(u'&') == text)
            return action;
    return nullptr;
}

} // namespace

TEST_F(Opinions, The_details_have_a_tab_of_their_own_and_so_have_the_games) {
    QTabBar *bar = world.window().details_tabs->bar();
    ASSERT_EQ(bar->count(), 3);
    EXPECT_EQ(bar->tabText(0), "FM Details and Play");
    EXPECT_EQ(bar->tabText(1), "Finish Score Review");
    EXPECT_EQ(bar->tabText(2), "Vantrosk Game Details");
    EXPECT_EQ(world.window().details_tabs->shown(), "FMOptions");
    bar->setFocus();
    QTest::keyClick(bar, Qt::Key_Right);
    EXPECT_EQ(world.window().details_tabs->shown(), "Finish_Score_Review");
    EXPECT_TRUE(view->isVisible());
}

TEST_F(Opinions, A_click_on_a_score_stores_it_and_shows_it_in_the_list) {
    Show_page();
    for (const int score : {7, 10, 0}) {
        QTest::mouseClick(view->score, Qt::LeftButton, {}, view->score->cell_of(score).center());
        EXPECT_EQ(Stored("score"), QString::number(score));
        EXPECT_EQ(Cell("alpha.zip", col_score), QString::number(score));
    }
    EXPECT_EQ(world.program().screen.status_panels[1],
              "As you have re-scored this FM, please re-select it in the FM List to update the email "
              "information in the FM Readme section.");
}

TEST_F(Opinions, Keys_and_digits_score_and_the_wheel_does_not) {
    Show_page();
    view->score->setFocus();
    QTest::keyClick(view->score, '6');
    EXPECT_EQ(Stored("score"), "6");
    QTest::keyClick(view->score, Qt::Key_Right);
    EXPECT_EQ(Stored("score"), "7");
    QTest::keyClick(view->score, Qt::Key_End);
    EXPECT_EQ(Stored("score"), "10");
    EXPECT_TRUE(view->score->hasFocus());
    QWheelEvent wheel(QPointF(10, 10), view->score->mapToGlobal(QPointF(10, 10)), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view->score, &wheel);
    EXPECT_EQ(Stored("score"), "10");
}

TEST_F(Opinions, The_boxes_of_both_sets_store_their_weights_and_follow_each_other) {
    Show_page();
    const std::pair<int, const char *> table[] = {{0, "1"}, {1, "4"}, {2, "9"}, {3, "20"}};
    for (const auto &[level, sum] : table) {
        view->finished->box(level)->click();
        EXPECT_EQ(Stored("completed"), sum);
        EXPECT_TRUE(world.window().details->small_finished()->box(level)->isChecked());
    }
    EXPECT_EQ(Cell("alpha.zip", col_finished), "EA,N,H,EX");
    world.window().details->small_finished()->box(1)->click();
    EXPECT_EQ(Stored("completed"), "17");
    EXPECT_FALSE(view->finished->box(1)->isChecked());
}

TEST_F(Opinions, The_boxes_are_named_as_the_game_names_its_levels) {
    const auto texts = [&] {
        QStringList all;
        for (int level = 0; level < 4; ++level)
            all << world.window().details->small_finished()->box(level)->text()
                << view->finished->box(level)->text() << view->finished->box(level)->toolTip();
        return all.join(' ');
    };
    EXPECT_EQ(texts(), "EA: Easy EASY: N: Normal NORMAL: H: Hard HARD: EX: Expert EXPERT:");
    Details().fourth_level_label = "  I:";
    Details().fourth_level_tip = "IMPOSSIBLE:";
    Details().fourth_level_text = "Impossible";
    world.ui.details_changed();
    EXPECT_TRUE(texts().endsWith("I: Impossible IMPOSSIBLE:")) << texts().toStdString();
}

TEST_F(Opinions, What_is_typed_is_saved_by_the_tick_and_keeps_its_cursor) {
    Show_page();
    view->review->setFocus();
    QTest::keyClicks(view->review, "Very gd");
    view->review->moveCursor(QTextCursor::Left);
    QTest::keyClicks(view->review, "oo");
    EXPECT_TRUE(world.program().SAVE_SCORE_NOW);
    EXPECT_EQ(Stored("review"), "");
    Housekeeping_Tick(world.program());
    EXPECT_EQ(Stored("review"), "Very good");
    EXPECT_EQ(Cell("alpha.zip", col_review), "Very good");
    EXPECT_EQ(view->review->textCursor().position(), 8);
    EXPECT_TRUE(view->review->hasFocus());
}

TEST_F(Opinions, A_review_goes_to_its_mission_when_another_one_is_chosen_at_once) {
    Show_page();
    QTest::keyClicks(view->review, "mine");
    Select("beta.zip");
    EXPECT_EQ(Stored("review"), "mine");
    EXPECT_EQ(Stored("review", "beta.zip"), "");
    EXPECT_EQ(view->review->toPlainText(), "");
    Select("alpha.zip");
    EXPECT_EQ(view->review->toPlainText(), "mine");
    EXPECT_FALSE(world.program().SAVE_SCORE_NOW);
}

TEST_F(Opinions, Filling_the_fields_writes_nothing_back) {
    view->score->setFocus();
    QTest::keyClick(view->score, '8');
    world.program().SQL.clear();
    Select("beta.zip");
    EXPECT_FALSE(world.program().SQL.startsWith("UPDATE Table_Scores SET score"));
    EXPECT_EQ(Stored("score", "beta.zip"), "");
    EXPECT_EQ(view->score->value(), 0);
    Select("alpha.zip");
    EXPECT_EQ(view->score->value(), 8);
    EXPECT_EQ(Stored("score"), "8");
}

TEST_F(Opinions, Space_ticks_a_keyword) {
    Show_page();
    EXPECT_EQ(view->keywords->count(), 24);
    view->keywords->setFocus();
    view->keywords->setCurrentRow(10);
    QTest::keyClick(view->keywords, Qt::Key_Space);
    EXPECT_EQ(Stored("categories_list"), "Location-City");
    view->keywords->item(0)->setCheckState(Qt::Checked);
    EXPECT_EQ(Stored("categories_list"), "Enemy-Guards,Location-City");
    Select("beta.zip");
    EXPECT_EQ(view->keywords->item(10)->checkState(), Qt::Unchecked);
    Select("alpha.zip");
    EXPECT_EQ(view->keywords->item(10)->checkState(), Qt::Checked);
    EXPECT_EQ(Stored("categories_list"), "Enemy-Guards,Location-City");
}

TEST_F(Opinions, Every_keyword_is_to_be_seen_in_any_width) {
    Show_page();
    for (const int width : {340, 420, 700}) {
        view->keywords->resize(width, 10);
        QCoreApplication::processEvents();
        const QRect last = view->keywords->visualItemRect(view->keywords->item(23));
        EXPECT_LE(last.bottom(), view->keywords->height()) << width;
    }
}

TEST_F(Opinions, Without_a_record_there_is_nothing_to_fill_in) {
    Select("Original");
    Show_page();
    EXPECT_TRUE(view->findChild<QLabel *>("finish_score_empty")->isVisible());
    EXPECT_FALSE(view->score->isEnabled());
    EXPECT_FALSE(world.window().details->reset()->isEnabled());
}

TEST_F(Opinions, The_community_panel_warns_of_an_old_score) {
    Details().group_score = "8";
    Details().group_label = "Average score from 31 people";
    Details().group_tip = "The Community gave this Fan Missions a score of 8";
    Details().group_picture = 1;
    world.ui.details_changed();
    auto *label = view->findChild<QLabel *>("group_label");
    EXPECT_EQ(label->text(), "Average score from 31 people");
    EXPECT_EQ(label->property("kind").toString(), "second");
    EXPECT_EQ(view->findChild<QLabel *>("group_score")->text(), "8 of 10");
    EXPECT_EQ(view->findChild<Community_Panel *>()->toolTip(), Details().group_tip);
    Details().group_is_old = true;
    world.ui.details_changed();
    EXPECT_EQ(label->property("kind").toString(), "warned");
}

TEST(Group_Size, Each_of_the_four_pictures_and_none_is_another_one) {
    Group_Size_Picture picture(Make_Theme({}), nullptr);
    std::vector<QImage> images;
    for (int number = 0; number <= 4; ++number) {
        picture.Show_picture(number);
        images.push_back(picture.grab().toImage());
        for (size_t i = 0; i + 1 < images.size(); ++i)
            EXPECT_NE(images[i], images.back()) << number;
    }
}

TEST_F(Opinions, Reset_asks_and_empties_the_row) {
    world.window().details->reset()->click();
    EXPECT_EQ(Stored("zip_name"), "alpha.zip");
    world.script().answers = {Answer::yes};
    world.window().findChild<QAction *>("action_Reset")->trigger();
    EXPECT_EQ(Stored("zip_name"), "");
    EXPECT_EQ(world.script().boxes.size(), 3U);
    EXPECT_EQ(world.program().screen.list.rows[1].cells[col_zip], "");
    EXPECT_FALSE(world.window().details->shows_a_mission());
    EXPECT_FALSE(world.window().findChild<QAction *>("action_Reset")->isEnabled());
}

TEST_F(Opinions, F8_leads_to_the_score) {
    world.window().findChild<QAction *>("action_Score_and_review")->trigger();
    EXPECT_EQ(world.window().details_tabs->shown(), "Finish_Score_Review");
    EXPECT_EQ(world.window().focusWidget(), view->score);
}

TEST_F(Opinions, The_filter_menu_lists_the_filters_and_marks_the_one_in_force) {
    auto *menu = world.window().findChild<QMenu *>("filter_menu");
    Q_EMIT menu->aboutToShow();
    EXPECT_EQ(Texts(menu),
              (QStringList{"My Ratings", "Group Ratings", "Other", "Categories", "-", "All FMs"}));
    EXPECT_TRUE(Entry(menu, "All FMs")->isChecked());
    const QMenu *mine = Entry(menu, "My Ratings")->menu();
    EXPECT_EQ(Texts(mine), (QStringList{"Show Only High Rated FMs", "Show Only Average Rated FMs",
                                        "Show Only Low Rated FMs", "Show Only Un-scored FMs"}));
    EXPECT_EQ(Entry(menu, "Categories")->menu()->actions().size(), 24);
    Entry(mine, "Show Only High Rated FMs")->trigger();
    EXPECT_EQ(world.program().scan.filter, 1);
    EXPECT_EQ(world.window().list->Shown_missions(), 0);
    EXPECT_TRUE(world.program().screen.caption.contains("Found 0 (T2) FMs"))
        << world.program().screen.caption.toStdString();
    Q_EMIT menu->aboutToShow();
    EXPECT_FALSE(Entry(menu, "All FMs")->isChecked());
    EXPECT_TRUE(Entry(Entry(menu, "My Ratings")->menu(), "Show Only High Rated FMs")->isChecked());
}

TEST_F(Opinions, Above_a_filtered_list_a_strip_names_the_filter_and_shows_all_again) {
    auto *strip = world.window().findChild<Filter_Strip *>();
    EXPECT_FALSE(strip->isVisible());
    world.window().commands->Choose_filter("T2", 4);
    EXPECT_TRUE(strip->isVisible());
    EXPECT_EQ(strip->findChild<QLabel *>("filter_text")->text(),
              "Filter  –  My Ratings: Show Only Un-scored FMs");
    world.window().commands->Scan_again();
    EXPECT_EQ(world.program().scan.filter, 4);
    strip->findChild<QPushButton *>("filter_show_all")->click();
    EXPECT_FALSE(strip->isVisible());
    EXPECT_EQ(world.program().scan.filter, 0);
    world.window().commands->Choose_filter("T2", 21);
    world.window().findChild<QAction *>("action_Show_all")->trigger();
    EXPECT_EQ(world.program().scan.filter, 0);
}

TEST_F(Opinions, Below_games_each_game_with_filters_has_them) {
    auto *menu = world.window().findChild<QMenu *>("games_filter_menu");
    EXPECT_EQ(Texts(menu), (QStringList{"Thief The Dark Project", "Thief Gold", "Thief The Metal Age",
                                        "Thief Deadly Shadows", "The Dark Mod", "System Shock 2"}));
    auto *dark_mod = world.window().findChild<QMenu *>("filters_DMOD");
    Q_EMIT dark_mod->aboutToShow();
    EXPECT_EQ(Texts(dark_mod), (QStringList{"My Ratings", "Group Ratings", "-", "All FMs"}));
    auto *metal_age = world.window().findChild<QMenu *>("filters_T2");
    Q_EMIT metal_age->aboutToShow();
    Entry(Entry(metal_age, "Other")->menu(), "FMs I have NOT played")->trigger();
    EXPECT_EQ(world.program().scan.filter, 21);
    EXPECT_EQ(world.window().list->Shown_missions(), 2);
}

TEST_F(Opinions, The_menu_of_a_row_is_for_that_row) {
    Fm_Table *table = world.window().list->table();
    const int row = world.program().screen.list.find_zip("beta.zip");
    const QPoint at = table->visualRect(table->model()->index(row, col_zip)).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, table->viewport()->mapToGlobal(at));
    QCoreApplication::sendEvent(table->viewport(), &event);
    EXPECT_EQ(world.program().FM_PANEL, "beta.zip");
    auto *menu = world.window().findChild<QMenu *>("row_menu");
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(Texts(menu), (QStringList{"Play", "Install", "-", "Score", "Finished", "Review and keywords",
                                        "-", "Reset…"}));
    EXPECT_EQ(Texts(Entry(menu, "Finished")->menu()), (QStringList{"Easy", "Normal", "Hard", "Expert"}));
    EXPECT_EQ(Entry(menu, "Score")->menu()->actions().size(), 11);
    Entry(Entry(menu, "Score")->menu(), "10")->trigger();
    EXPECT_EQ(Stored("score", "beta.zip"), "10");
    Entry(Entry(menu, "Finished")->menu(), "Hard")->trigger();
    EXPECT_EQ(Stored("completed", "beta.zip"), "5");
    menu->close();
}

TEST_F(Opinions, Enter_on_a_row_that_letters_brought_up_selects_it_first) {
    Fm_Table *table = world.window().list->table();
    table->setFocus();
    QTest::keyClick(table, 'b');
    EXPECT_EQ(world.program().FM_PANEL, "alpha.zip");
    QTest::keyClick(table, Qt::Key_Return);
    EXPECT_TRUE(Window_World::Wait_until([&] { return world.program().FM_PANEL == "beta.zip"; }));
    QTest::keyClick(table, Qt::Key_Return);
    EXPECT_EQ(world.window().focusWidget()->objectName(), "install");
}

TEST(Details_Tab_Pages, Come_and_go_by_their_keys) {
    Details_Tabs tabs("some_tabs", "Tabs", nullptr);
    QLabel one("1"), two("2"), three("3");
    tabs.Add("a", "A", &one);
    tabs.Add("c", "C", &three);
    tabs.Add("b", "B", &two, "a");
    tabs.Add("b", "B again", &two);
    EXPECT_EQ(tabs.keys(), (QStringList{"a", "b", "c"}));
    tabs.Show("b");
    EXPECT_EQ(tabs.shown(), "b");
    EXPECT_FALSE(two.isHidden());
    tabs.Remove("b");
    tabs.Remove("nothing");
    EXPECT_EQ(tabs.shown(), "a");
    EXPECT_EQ(tabs.keys(), (QStringList{"a", "c"}));
    tabs.Show("nothing");
    EXPECT_EQ(tabs.shown(), "a");
    tabs.Remove("a");
    tabs.Remove("c");
}

namespace {

/// Counts the cells that are painted.
class Counting_Delegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    mutable int painted = 0;
    void paint(QPainter *, const QStyleOptionViewItem &, const QModelIndex &) const override { ++painted; }
};

void Turn(Fm_Table *table, int delta) {
    QWheelEvent wheel(QPointF(50, 60), table->viewport()->mapToGlobal(QPointF(50, 60)), {}, {0, delta},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(table->viewport(), &wheel);
}

class Long_List : public ::testing::Test {
protected:
    explicit Long_List() {
        world.Set_up_game("T2");
        world.Open();
        table = world.window().list->table();
    }
    Window_World world;
    Fm_Table *table;
};

} // namespace

TEST_F(Long_List, A_notch_of_the_wheel_moves_by_what_the_list_shows_and_fine_turns_add_up) {
    world.Fill_list(300);
    const int turn = std::max(10, table->viewport()->height() / 25);
    Turn(table, -120);
    EXPECT_EQ(table->Top_row(), 1 + turn);
    Turn(table, -40);
    Turn(table, -40);
    EXPECT_EQ(table->Top_row(), 1 + turn);
    Turn(table, -40);
    EXPECT_EQ(table->Top_row(), 1 + 2 * turn);
    EXPECT_EQ(world.program().screen.list.top_row, 1 + 2 * turn);
    Turn(table, 120);
    EXPECT_EQ(table->Top_row(), 1 + turn);
    for (int i = 0; i < 50; ++i)
        Turn(table, 120);
    EXPECT_EQ(table->Top_row(), 1);
    for (int i = 0; i < 50; ++i)
        Turn(table, -120);
    EXPECT_TRUE(table->Row_is_visible(300));
}

TEST_F(Long_List, The_selected_row_comes_to_the_top_when_the_tweak_says_so) {
    for (int i = 0; i < 40; ++i)
        world.files.zip(QString("fms/T2/m%1.zip").arg(i, 2, 10, QChar(u'0')),
                        {{"miss20.mis", "m", {}}, {"readme.txt", "Title: M\r\nGame: Thief 2\r\n", {}}});
    world.window().commands->Choose_game("T2");
    ASSERT_EQ(world.program().screen.list.rows.size(), 41U);
    world.program().tweaks.FOCUS_ON_FM = true;
    world.window().commands->Choose_row(3, col_name);
    EXPECT_EQ(table->Top_row(), 3);
    world.program().tweaks.FOCUS_ON_FM = false;
    world.window().commands->Choose_row(5, col_name);
    EXPECT_EQ(table->Top_row(), 3);
}

TEST_F(Long_List, A_row_out_of_sight_becomes_the_second_one_below_the_top) {
    world.Fill_list(300);
    world.Select_mission(150, false);
    EXPECT_EQ(table->Top_row(), 149);
}

TEST_F(Long_List, A_letter_brings_its_row_to_the_top_and_a_sort_keeps_the_selected_one_in_sight) {
    world.Fill_list(300);
    world.program().screen.list.rows[120].cells[col_name] = "Zorro";
    Key_Press(world.program(), u'z');
    EXPECT_EQ(table->Top_row(), 120);
    EXPECT_EQ(table->currentIndex().row(), 120);
    Heading_Click(world.program(), col_name);
    EXPECT_EQ(table->model()->index(table->currentIndex().row(), col_name).data().toString(), "Zorro");
    EXPECT_TRUE(table->Row_is_visible(table->currentIndex().row()));
}

TEST_F(Long_List, Home_and_end_lead_to_the_first_and_the_last_row) {
    world.Fill_list(300);
    world.Select_mission(20, false);
    table->setFocus();
    QTest::keyClick(table, Qt::Key_End);
    EXPECT_EQ(table->currentIndex().row(), 300);
    QTest::keyClick(table, Qt::Key_Home);
    EXPECT_EQ(table->currentIndex().row(), 0);
}

TEST_F(Long_List, An_authors_colour_is_behind_his_name_alone) {
    world.Fill_list(3);
    world.program().authors = {{"Author 0002", "255"}, {"Author 0003", "no colour"}};
    const auto colour = [&](int row, int column) {
        return table->model()->index(row, column).data(fm_role_author_colour);
    };
    EXPECT_EQ(colour(2, col_author).value<QColor>(), QColor(255, 0, 0));
    EXPECT_FALSE(colour(2, col_name).isValid());
    EXPECT_FALSE(colour(1, col_author).isValid());
    EXPECT_FALSE(colour(3, col_author).isValid());
    world.ui.list_changed();
    const QRect cell = table->visualRect(table->model()->index(2, col_author));
    const QImage picture = table->viewport()->grab().toImage();
    EXPECT_EQ(QColor(picture.pixel(cell.left() + 2, cell.top() + 3)), QColor(255, 0, 0));
    EXPECT_NE(QColor(picture.pixel(cell.left() + 2, cell.top() + 28)), QColor(255, 0, 0));
}

TEST_F(Long_List, Of_10_000_rows_only_those_in_sight_are_painted_however_one_moves) {
    world.Fill_list(10000);
    Counting_Delegate counter;
    QAbstractItemDelegate *own = table->itemDelegate();
    table->setItemDelegate(&counter);
    const int in_sight = (table->viewport()->height() / 25 + 3) * column_count;
    const auto painted_by = [&](const std::function<void()> &move) {
        QCoreApplication::processEvents();
        counter.painted = 0;
        move();
        QCoreApplication::processEvents();
        return counter.painted;
    };
    EXPECT_LE(painted_by([&] { Turn(table, -120); }), 2 * in_sight);
    EXPECT_LE(painted_by([&] { Heading_Click(world.program(), col_author); }), 2 * in_sight);
    EXPECT_LE(painted_by([&] { Key_Press(world.program(), u'm'); }), 2 * in_sight);
    EXPECT_LE(painted_by([&] { world.Select_mission(7000, false); }), 3 * in_sight);
    EXPECT_LE(painted_by([&] { world.window().list->Find("0777"); }), 2 * in_sight);
    table->setItemDelegate(own);
}

} // namespace vantrosk
