#include "scan_World.h"

#include "library/Fm_List_View.h"

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

/// Four missions: names, authors and zips in three different orders.
class Sorted_World : public Scan_World {
public:
    Sorted_World() {
        const char *const rows[][3] = {{"a.zip", "Delta", "Ann"},
                                       {"b.zip", "alpha", "cid"},
                                       {"c.zip", "Charlie", "Bob"},
                                       {"d.zip", "bravo", "ann"}};
        for (const auto &[zip_name, name, author] : rows) {
            mission(zip_name);
            record(zip_name, name, "T2", QString("author = '%1'").arg(author));
        }
        scan();
    }

    QStringList order() { return listed().mid(1); }
    QStringList headings() { return {list().headings.begin(), list().headings.end()}; }
};

} // namespace

TEST(List_Sort, A_scan_leaves_the_names_ascending_without_regard_to_case) {
    Sorted_World world;
    EXPECT_EQ(world.order(), QStringList({"b.zip", "d.zip", "c.zip", "a.zip"}));
    EXPECT_EQ(world.headings(),
              QStringList({"", "> FM Name", "Zip", "Author", "Size", "Score", "Grp Score", "Last Played",
                           "Review", "Finished", "Game", "Ready", "Zip Date", "Category"}));
}

TEST(List_Sort, A_second_click_on_a_heading_reverses_and_shows_the_other_mark) {
    Sorted_World world;
    Heading_Click(world.program(), col_name);
    EXPECT_EQ(world.order(), QStringList({"a.zip", "c.zip", "d.zip", "b.zip"}));
    EXPECT_EQ(world.list().headings[col_name], "< FM Name");
    Heading_Click(world.program(), col_name);
    EXPECT_EQ(world.order(), QStringList({"b.zip", "d.zip", "c.zip", "a.zip"}));
    EXPECT_EQ(world.list().headings[col_name], "> FM Name");
}

TEST(List_Sort, Every_heading_click_toggles_the_one_direction) {
    Sorted_World world;
    Heading_Click(world.program(), col_zip);
    EXPECT_EQ(world.order(), QStringList({"d.zip", "c.zip", "b.zip", "a.zip"}));
    EXPECT_EQ(world.list().headings[col_zip], "< Zip");
    EXPECT_EQ(world.list().headings[col_name], "FM Name") << "the mark moved";
    Heading_Click(world.program(), col_author);
    EXPECT_EQ(world.list().headings[col_author], "> Author");
}

TEST(List_Sort, Equal_texts_keep_their_order) {
    Sorted_World world;
    Heading_Click(world.program(), col_zip);
    Heading_Click(world.program(), col_author);
    EXPECT_EQ(world.order(), QStringList({"d.zip", "a.zip", "c.zip", "b.zip"})) << "ann, Ann, Bob, cid";
}

TEST(List_Sort, The_original_missions_stay_on_top_in_every_sort) {
    Sorted_World world;
    for (int column = col_name; column < column_count; ++column) {
        Heading_Click(world.program(), column);
        EXPECT_EQ(world.listed().first(), "Original") << column;
    }
}

TEST(List_Sort, The_current_row_follows_its_mission) {
    Sorted_World world;
    world.program().screen.list.current_row = 1;
    Heading_Click(world.program(), col_name);
    EXPECT_EQ(world.list().current_row, 4);
    EXPECT_EQ(world.listed()[4], "b.zip");
}

TEST(List_Sort, No_heading_no_sort) {
    Sorted_World world;
    Heading_Click(world.program(), 0);
    Heading_Click(world.program(), column_count);
    Heading_Click(world.program(), -1);
    EXPECT_EQ(world.list().headings[col_name], "> FM Name");
    EXPECT_EQ(world.order(), QStringList({"b.zip", "d.zip", "c.zip", "a.zip"}));
}

TEST(List_Sort, A_new_scan_starts_ascending_again) {
    Sorted_World world;
    Heading_Click(world.program(), col_author);
    world.scan();
    EXPECT_EQ(world.list().headings[col_name], "> FM Name");
    EXPECT_EQ(world.list().headings[col_author], "Author");
    EXPECT_EQ(world.order(), QStringList({"b.zip", "d.zip", "c.zip", "a.zip"}));
}

TEST(List_Keys, Letters_typed_so_far_choose_the_row) {
    Sorted_World world;
    Key_Press(world.program(), 'c');
    EXPECT_EQ(world.list().current_row, 3);
    EXPECT_EQ(world.list().top_row, 3);
    Key_Press(world.program(), 'h');
    EXPECT_EQ(world.list().current_row, 3);
    Key_Press(world.program(), 'a');
    Key_Press(world.program(), 'b');
    EXPECT_EQ(world.list().keystrokes, "chab") << "the text is never cleared";
    EXPECT_EQ(world.list().current_row, 3);
}

TEST(List_Keys, The_column_of_the_last_click_is_searched) {
    Sorted_World world;
    world.program().screen.list.selected_column = col_author;
    Key_Press(world.program(), 'b');
    EXPECT_EQ(world.listed()[world.list().current_row], "c.zip");
}

TEST(List_Keys, Only_small_letters_and_digits_above_zero_count) {
    Sorted_World world;
    for (const QChar key : QString("A0 -/:`{\u00E9"))
        Key_Press(world.program(), key);
    EXPECT_EQ(world.list().keystrokes, "");
    for (const QChar key : QString("19az"))
        Key_Press(world.program(), key);
    EXPECT_EQ(world.list().keystrokes, "19az");
    EXPECT_EQ(world.list().current_row, -1);
}

TEST(List_Tips, Dates_read_as_dates) {
    Scan_World world;
    world.mission("a.zip");
    world.record("a.zip", "A", "T2", "last_played = #2024/03/05#, Zip_Date = '2004/06/12'");
    world.scan();
    EXPECT_EQ(Cell_Tip(world.program(), 1, col_last_played), "05/Mar/24");
    EXPECT_EQ(Cell_Tip(world.program(), 1, col_zip_date), "12/Jun/04");
    Fm_Row &row = world.program().screen.list.rows[1];
    row.cells[col_last_played] = "99999999";
    row.cells[col_zip_date] = "today";
    EXPECT_EQ(Cell_Tip(world.program(), 1, col_last_played), "99999999");
    EXPECT_EQ(Cell_Tip(world.program(), 1, col_zip_date), "today");
}

TEST(List_Tips, Categories_are_told_by_kind) {
    Scan_World world;
    world.mission("a.zip");
    world.scan();
    EXPECT_EQ(Cell_Tip(world.program(), 1, col_category), "FM not categorised yet");
    world.program().screen.list.rows[1].cells[col_category] = "LO-City**TY-Thieves**LO-Mansion**XX-?";
    EXPECT_EQ(Cell_Tip(world.program(), 1, col_category),
              "Location(s): City-Mansion- Mission Type(s): Thieves-");
}

TEST(List_Tips, Other_cells_show_their_text_and_no_cell_shows_none) {
    Scan_World world;
    world.mission("a.zip");
    world.scan();
    EXPECT_EQ(Cell_Tip(world.program(), 1, col_name), "The Vault");
    EXPECT_EQ(Cell_Tip(world.program(), 1, col_size), world.cell("a.zip", col_size));
    EXPECT_EQ(Cell_Tip(world.program(), 5, col_name), "");
    EXPECT_EQ(Cell_Tip(world.program(), -1, col_name), "");
    EXPECT_EQ(Cell_Tip(world.program(), 1, column_count), "");
}

} // namespace vantrosk
