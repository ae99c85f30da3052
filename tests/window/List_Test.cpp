#include "window/Window_World.h"

#include "ui/qt/Fm_List_Model.h"
#include "ui/qt/Fm_List_Panel.h"
#include "ui/qt/Fm_Table.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

class List_Window : public ::testing::Test {
protected:
    List_Window() {
        world.Set_up_game("T2");
        world.Open();
        panel = world.window().list;
        table = panel->table();
        QObject::disconnect(panel, &Fm_List_Panel::Row_chosen, nullptr, nullptr);
        QObject::disconnect(panel, &Fm_List_Panel::Letter_typed, nullptr, nullptr);
        QObject::disconnect(panel, &Fm_List_Panel::Heading_chosen, nullptr, nullptr);
    }

    QString Cell(int row, int column, int role = Qt::DisplayRole) const {
        return table->model()->index(row, column).data(role).toString();
    }
    QStringList Shown_names() const {
        QStringList names;
        for (int row = 0; row < table->model()->rowCount(); ++row)
            names << Cell(row, col_name);
        return names;
    }
    void Click_row(int row, int column = col_name) {
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                          table->visualRect(table->model()->index(row, column)).center());
    }
    QString Empty_sentence() const {
        const auto *empty = panel->findChild<QWidget *>("list_empty");
        return empty->isHidden() ? QString() : empty->findChild<QLabel *>()->text();
    }
    static QList<QVariantList> Told(QSignalSpy &spy) {
        Window_World::Wait_until([&spy] { return !spy.isEmpty(); });
        return spy;
    }

    Window_World world;
    Fm_List_Panel *panel = nullptr;
    Fm_Table *table = nullptr;
};

} // namespace

TEST_F(List_Window, Shows_the_cells_and_headings_of_the_screen) {
    world.Fill_list(3);
    EXPECT_EQ(Shown_names(),
              (QStringList{"Thief 2 Original Missions", "Mission 0001", "Mission 0002", "Mission 0003"}));
    EXPECT_EQ(Cell(1, col_zip), "mission0001.zip");
    EXPECT_EQ(Cell(1, col_finished), "EA,N");
    QStringList headings;
    for (int column = 0; column < column_count; ++column)
        headings << table->model()->headerData(column, Qt::Horizontal).toString();
    EXPECT_EQ(headings.join(u'|'),
              "|> FM Name|Zip|Author|Size|Score|Grp Score|Last Played|Review|Finished|Game|Ready|"
              "Zip Date|Category");
}

TEST_F(List_Window, Sizes_stand_to_the_right_and_the_rest_to_the_left) {
    world.Fill_list(1);
    for (int column = col_name; column < column_count; ++column) {
        const int alignment = table->model()->index(1, column).data(Qt::TextAlignmentRole).toInt();
        EXPECT_EQ(bool(alignment & Qt::AlignRight), column == col_size) << column;
    }
}

TEST_F(List_Window, A_score_has_a_bar_when_it_is_a_number_above_0) {
    world.Fill_list(6);
    auto &rows = world.program().screen.list.rows;
    const char *texts[] = {"7", "0", "", "x", "12", "10"};
    for (size_t i = 0; i < 6; ++i)
        rows[i + 1].cells[col_score] = texts[i];
    const QVariant expected[] = {7.0, {}, {}, {}, 10.0, 10.0};
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(table->model()->index(i + 1, col_score).data(fm_role_score), expected[i]) << texts[i];
    EXPECT_FALSE(table->model()->index(1, col_name).data(fm_role_score).isValid());
}

TEST_F(List_Window, The_game_is_a_badge_and_is_spoken) {
    world.Fill_list(1);
    EXPECT_EQ(Cell(1, col_game, fm_role_game), "T2");
    EXPECT_EQ(Cell(1, col_game, Qt::AccessibleTextRole), "T2");
    EXPECT_EQ(Cell(1, col_zip, fm_role_game), "");
}

TEST_F(List_Window, Tips_are_those_of_the_list) {
    world.Fill_list(1);
    EXPECT_EQ(Cell(1, col_last_played, Qt::ToolTipRole), "04/Oct/26");
    EXPECT_EQ(Cell(1, col_name, Qt::ToolTipRole), "Mission 0001");
}

TEST_F(List_Window, Rows_that_a_running_scan_takes_away_are_empty_until_the_list_is_shown_anew) {
    world.Fill_list(3);
    world.program().screen.list.rows.clear();
    EXPECT_EQ(Cell(3, col_name), "");
    world.ui.list_changed();
    EXPECT_EQ(table->model()->rowCount(), 0);
}

TEST_F(List_Window, A_changed_row_is_painted_anew) {
    world.Fill_list(3);
    QSignalSpy changed(table->model(), &QAbstractItemModel::dataChanged);
    world.program().screen.list.rows[2].cells[col_ready] = "Yes";
    world.ui.list_row_changed(2);
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed.front()[0].toModelIndex().row(), 2);
    EXPECT_EQ(Cell(2, col_ready), "Yes");
    world.ui.list_row_changed(-1);
    world.ui.list_row_changed(99);
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(List_Window, Rows_are_25_pixels_high) {
    world.Fill_list(3);
    EXPECT_EQ(table->rowHeight(0), 25);
    EXPECT_EQ(table->rowHeight(3), 25);
}

TEST_F(List_Window, Find_leaves_the_rows_that_hold_every_word_in_any_case_and_the_original_missions) {
    world.Fill_list(30);
    panel->Find("AUTHOR 0021");
    EXPECT_EQ(Shown_names(), (QStringList{"Thief 2 Original Missions", "Mission 0021"}));
    panel->Find("  mission   002 ");
    EXPECT_EQ(table->model()->rowCount(), 12);
    EXPECT_EQ(panel->Shown_missions(), 11);
    panel->Find("");
    EXPECT_EQ(panel->Shown_missions(), 30);
    EXPECT_EQ(world.program().screen.list.rows.size(), 31U);
}

TEST_F(List_Window, Find_takes_what_is_typed_as_text) {
    world.Fill_list(3);
    world.program().screen.list.rows[2].cells[col_name] = "100% (really) [x] *";
    world.ui.list_changed();
    for (const char *text : {"100%", "(really)", "[x]", "*"}) {
        panel->Find(text);
        EXPECT_EQ(panel->Shown_missions(), 1) << text;
    }
    panel->Find(".*");
    EXPECT_EQ(panel->Shown_missions(), 0);
}

TEST_F(List_Window, A_row_chosen_in_a_found_list_is_told_by_its_place_in_the_whole_list) {
    world.Fill_list(30);
    panel->Find("0021");
    QSignalSpy chosen(panel, &Fm_List_Panel::Row_chosen);
    Click_row(1, col_author);
    EXPECT_EQ(Told(chosen), (QList<QVariantList>{{21, int(col_author)}}));
}

TEST_F(List_Window, What_is_found_keeps_its_selection) {
    world.Fill_list(30);
    world.Select_mission(21, false);
    panel->Find("Author");
    EXPECT_EQ(Cell(table->currentIndex().row(), col_name), "Mission 0021");
    panel->Find("0003");
    EXPECT_FALSE(table->currentIndex().isValid());
    panel->Find("");
    EXPECT_EQ(Cell(table->currentIndex().row(), col_name), "Mission 0021");
}

TEST_F(List_Window, A_click_is_told_once_and_a_click_on_the_same_row_again) {
    world.Fill_list(3);
    QSignalSpy chosen(panel, &Fm_List_Panel::Row_chosen);
    Click_row(2, col_zip);
    EXPECT_EQ(Told(chosen), (QList<QVariantList>{{2, int(col_zip)}}));
    chosen.clear();
    Click_row(2);
    EXPECT_EQ(Told(chosen), (QList<QVariantList>{{2, int(col_name)}}));
}

TEST_F(List_Window, Arrow_keys_tell_the_row_where_they_come_to_rest) {
    world.Fill_list(9);
    world.Select_mission(1, false);
    table->setFocus();
    QSignalSpy chosen(panel, &Fm_List_Panel::Row_chosen);
    for (int i = 0; i < 4; ++i)
        QTest::keyClick(table, Qt::Key_Down);
    EXPECT_EQ(Told(chosen), (QList<QVariantList>{{5, int(col_name)}}));
}

TEST_F(List_Window, A_row_that_the_program_selects_is_not_told) {
    world.Fill_list(9);
    QSignalSpy chosen(panel, &Fm_List_Panel::Row_chosen);
    world.Select_mission(5, false);
    panel->Select_row(7);
    EXPECT_EQ(Told(chosen), (QList<QVariantList>{{7, int(col_name)}}));
}

TEST_F(List_Window, Letters_and_digits_are_told_and_keys_with_ctrl_or_alt_are_not) {
    world.Fill_list(3);
    QSignalSpy typed(panel, &Fm_List_Panel::Letter_typed);
    QTest::keyClick(table, 'm');
    QTest::keyClick(table, '7');
    QTest::keyClick(table, 'x', Qt::ControlModifier);
    QTest::keyClick(table, 'x', Qt::AltModifier);
    QTest::keyClick(table, Qt::Key_Space);
    ASSERT_EQ(typed.size(), 2);
    EXPECT_EQ(typed[0][0].toChar(), u'm');
    EXPECT_EQ(typed[1][0].toChar(), u'7');
}

TEST_F(List_Window, Enter_leads_on_to_what_can_be_done_next) {
    world.Fill_list(3);
    world.Select_mission(1, false);
    QTest::keyClick(table, Qt::Key_Return);
    EXPECT_EQ(world.window().focusWidget()->objectName(), "install");
    world.Select_mission(1, true);
    QTest::keyClick(table, Qt::Key_Enter);
    EXPECT_EQ(world.window().focusWidget()->objectName(), "play");
}

TEST_F(List_Window, A_click_on_a_heading_tells_its_column) {
    world.Fill_list(3);
    QSignalSpy heading(panel, &Fm_List_Panel::Heading_chosen);
    auto *header = table->horizontalHeader();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      {header->sectionViewportPosition(col_author) + 30, header->height() / 2});
    ASSERT_EQ(heading.size(), 1);
    EXPECT_EQ(heading[0][0].toInt(), int(col_author));
}

TEST_F(List_Window, The_original_missions_stay_on_top_while_the_others_scroll_beneath_them) {
    world.Fill_list(200, 2);
    table->verticalScrollBar()->setValue(1000);
    for (int row : {0, 1}) {
        const QModelIndex index = table->model()->index(row, col_zip);
        EXPECT_EQ(table->visualRect(index).top(), row * 25);
        EXPECT_EQ(table->indexAt(table->visualRect(index).center()), index);
    }
    EXPECT_EQ(table->indexAt({40, 60}).row(), 42);
    QSignalSpy chosen(panel, &Fm_List_Panel::Row_chosen);
    Click_row(1);
    EXPECT_EQ(Told(chosen), (QList<QVariantList>{{1, int(col_name)}}));
    EXPECT_EQ(table->verticalScrollBar()->value(), 1000);
}

TEST_F(List_Window, A_row_that_is_selected_comes_out_from_beneath_the_original_missions) {
    world.Fill_list(200);
    table->verticalScrollBar()->setValue(1000);
    world.Select_mission(20, false);
    EXPECT_TRUE(table->Row_is_visible(20));
    EXPECT_GE(table->visualRect(table->currentIndex()).top(), 25);
    table->setFocus();
    for (int i = 0; i < 30; ++i)
        QTest::keyClick(table, Qt::Key_Up);
    EXPECT_EQ(table->currentIndex().row(), 0);
}

TEST_F(List_Window, The_top_row_that_the_program_wants_is_shown) {
    world.Fill_list(200);
    world.program().screen.list.top_row = 120;
    world.Select_mission(121, false);
    EXPECT_EQ(table->Top_row(), 120);
}

TEST_F(List_Window, The_optional_columns_follow_their_tweaks) {
    const auto shown = [this] {
        QStringList columns;
        for (int column = 0; column < column_count; ++column)
            if (!table->isColumnHidden(column))
                columns << QString::number(column);
        return columns.join(u',');
    };
    Tweaks &tweaks = world.program().tweaks;
    tweaks.ENABLE_COL_AUTHOR = tweaks.ENABLE_COL_SIZE = tweaks.ENABLE_COL_ZIPDATE = true;
    tweaks.ENABLE_COl_CATEGORY = false;
    panel->Apply_tweaks();
    EXPECT_EQ(shown(), "1,2,3,4,5,6,7,8,9,10,11,12");
    tweaks.ENABLE_COL_AUTHOR = tweaks.ENABLE_COL_SIZE = tweaks.ENABLE_COL_ZIPDATE = false;
    tweaks.ENABLE_COl_CATEGORY = true;
    panel->Apply_tweaks();
    EXPECT_EQ(shown(), "1,2,5,6,7,8,9,10,11,13");
}

TEST_F(List_Window, Columns_fill_the_window_and_none_is_cut_off_from_1024_pixels_on) {
    world.program().tweaks.AUTORESIZE_COLUMNS = true;
    world.Fill_list(100);
    for (const int width : {1024, 1280, 1920, 1100}) {
        world.window().resize(width, 700);
        QCoreApplication::processEvents();
        EXPECT_EQ(table->horizontalHeader()->length(), table->viewport()->width()) << width;
        EXPECT_FALSE(table->horizontalScrollBar()->isVisible()) << width;
        for (int column = col_name; column < col_category; ++column) {
            const QString heading = world.program().screen.list.headings[column];
            QFont bold = table->horizontalHeader()->font();
            bold.setWeight(QFont::DemiBold);
            EXPECT_GE(table->columnWidth(column) - 11, QFontMetrics(bold).horizontalAdvance(heading))
                << width << " " << heading.toStdString();
        }
    }
}

TEST_F(List_Window, The_headings_of_the_first_list_have_room_though_they_come_behind_the_sizing) {
    world.program().tweaks.AUTORESIZE_COLUMNS = true;
    world.program().screen.list.headings = {};
    world.ui.list_changed();
    world.window().resize(1024, 700);
    QCoreApplication::processEvents();
    world.Fill_list(3);
    for (int column = col_name; column < col_category; ++column)
        EXPECT_GE(table->columnWidth(column), table->horizontalHeader()->sectionSizeHint(column)) << column;
}

TEST_F(List_Window, The_widths_that_show_are_those_to_keep_and_it_is_known_whose_they_are) {
    ASSERT_EQ(panel->Widths().size(), size_t(column_count));
    EXPECT_EQ(panel->Widths()[col_author], table->columnWidth(col_author));
    EXPECT_TRUE(panel->Widths_are_automatic());
    table->setColumnWidth(col_author, 177);
    EXPECT_EQ(panel->Widths()[col_author], 177);
    EXPECT_FALSE(panel->Widths_are_automatic());
}

TEST_F(List_Window, A_list_that_never_showed_keeps_the_widths_that_it_was_given) {
    Fm_List_Panel other(world.program(), Make_Theme(world.program().tweaks), nullptr);
    EXPECT_TRUE(other.Widths().empty());
    const std::vector<int> widths(column_count, 70);
    other.Set_widths(widths);
    EXPECT_EQ(other.Widths(), widths);
}

TEST_F(List_Window, Kept_widths_are_taken_and_only_the_names_follow_the_window) {
    world.program().tweaks.AUTORESIZE_COLUMNS = true;
    std::vector<int> widths(column_count, 70);
    widths[0] = 0;
    widths[col_author] = 0;
    panel->Set_widths(widths);
    EXPECT_EQ(table->columnWidth(col_zip), 70);
    EXPECT_GT(table->columnWidth(col_author), 50);
    EXPECT_EQ(table->horizontalHeader()->length(), table->viewport()->width());
    world.program().tweaks.AUTORESIZE_COLUMNS = false;
    panel->Set_widths(widths);
    EXPECT_EQ(table->columnWidth(col_name), 70);
}

TEST_F(List_Window, Where_there_is_nothing_to_list_a_sentence_says_what_to_do) {
    world.program().SELECTED_GAME_TAB.clear();
    world.ui.list_changed();
    EXPECT_EQ(Empty_sentence(), "Choose a game on the left to see its missions.");
    EXPECT_TRUE(panel->findChild<QPushButton *>("list_choose_missions")->isHidden());
    world.Fill_list(0);
    EXPECT_EQ(Empty_sentence(), "No missions for Thief 2 were found in its mission folders.");
    EXPECT_FALSE(panel->findChild<QPushButton *>("list_choose_missions")->isHidden());
    world.Fill_list(3);
    EXPECT_EQ(Empty_sentence(), "");
    panel->Find("nowhere");
    EXPECT_EQ(Empty_sentence(),
              "No mission in this list holds “nowhere”. Escape in the search field shows all again.");
    EXPECT_TRUE(panel->findChild<QPushButton *>("list_choose_missions")->isHidden());
}

TEST_F(List_Window, The_rows_alternate_whatever_the_search_leaves) {
    world.Fill_list(40);
    const auto shades = [this] {
        QString text;
        for (int row = 1; row < std::min(5, table->model()->rowCount()); ++row)
            text += table->model()->index(row, col_name).data(fm_role_odd).toBool() ? 'g' : 'w';
        return text;
    };
    EXPECT_EQ(shades(), "wgwg");
    panel->Find("Mission 001");
    EXPECT_EQ(shades(), "wgwg");
    panel->Find("5.zip");
    EXPECT_EQ(shades(), "wgwg");
}

TEST_F(List_Window, Ten_thousand_rows_are_found_sorted_and_scrolled) {
    world.Fill_list(10000);
    panel->Find("0777");
    EXPECT_EQ(panel->Shown_missions(), 1);
    panel->Find("");
    table->verticalScrollBar()->setValue(table->verticalScrollBar()->maximum());
    EXPECT_TRUE(table->Row_is_visible(10000));
    EXPECT_FALSE(table->grab().isNull());
}

} // namespace vantrosk
