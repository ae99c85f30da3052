#include "Startup_World.h"

#include "core/Window_State.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct Window_State_Test : testing::Test {
    Startup_World start;
    Program &program = start.program();
    Recording_Ui &ui = start.world.ui;
    Window_Geometry &window = program.screen.window;

    Window_State_Test() {
        window.is_there = true;
        window.width = 1200, window.height = 800, window.list_height = 300;
        for (int column = 0; column < column_count; ++column)
            window.column_widths.push_back(100 + column);
        show_columns(program, true);
    }
    static void show_columns(Program &of, bool shown) {
        of.tweaks.ENABLE_COL_AUTHOR = of.tweaks.ENABLE_COL_SIZE = of.tweaks.ENABLE_COL_ZIPDATE =
            of.tweaks.ENABLE_COl_CATEGORY = shown;
    }
    QString stored(const QString &key) { return start.world.platform.settings->value("FORMSETTINGS", key); }
    void store(const QString &key, const QString &value) {
        (void)start.world.platform.settings->set_value("FORMSETTINGS", key, value);
    }
    QStringList stored_columns() {
        QStringList widths;
        for (int column = 0; column < column_count; ++column)
            widths << stored(QString("FLEXGRID_COLUMN%1WIDTH").arg(column));
        return widths;
    }
    QStringList form() { return {stored("FULLSCREEN"), stored("FORMWIDTH"), stored("FORMHEIGHT")}; }
};

const QStringList all_widths{"100", "101", "102", "103", "104", "105", "106",
                             "107", "108", "109", "110", "111", "112", "113"};
const QStringList no_widths(14, "");

} // namespace

TEST_F(Window_State_Test, The_form_stores_its_size) {
    Save_Status(program, Saved_Status::form);
    EXPECT_EQ(form(), QStringList({"0", "1200", "800"}));
    EXPECT_EQ(stored("FLEXGRIDHEIGHT"), "");
    EXPECT_EQ(stored_columns(), no_widths);
    EXPECT_EQ(ui.panel_1, QStringList({"Saving Status", "Status Saved"}));
    EXPECT_EQ(ui.lights, std::vector<int>({2, 1}));
}

TEST_F(Window_State_Test, A_maximised_form_keeps_the_size_that_it_had) {
    Save_Status(program, Saved_Status::form);
    window.maximised = true;
    window.width = 1920, window.height = 1080;
    Save_Status(program, Saved_Status::form);
    EXPECT_EQ(form(), QStringList({"2", "1200", "800"}));
}

TEST_F(Window_State_Test, A_minimised_form_stores_nothing) {
    window.minimised = true;
    Save_Status(program, Saved_Status::form);
    EXPECT_EQ(form(), QStringList({"", "", ""}));
    EXPECT_EQ(ui.panel_1, QStringList({"Saving Status", "Status Saved"}));
}

TEST_F(Window_State_Test, The_splitter_stores_the_height_of_the_list) {
    Save_Status(program, Saved_Status::splitter);
    EXPECT_EQ(stored("FLEXGRIDHEIGHT"), "300");
    EXPECT_EQ(form(), QStringList({"", "", ""}));
    EXPECT_EQ(stored_columns(), no_widths);
}

TEST_F(Window_State_Test, The_columns_are_stored_by_their_kind_or_along_with_another) {
    Save_Status(program, Saved_Status::column_widths);
    EXPECT_EQ(stored_columns(), all_widths);
    EXPECT_EQ(form(), QStringList({"", "", ""}));
    window.column_widths[2] = 555;
    Save_Status(program, Saved_Status::splitter, true);
    EXPECT_EQ(stored_columns().value(2), "555");
    EXPECT_EQ(stored("FLEXGRIDHEIGHT"), "300");
}

TEST_F(Window_State_Test, Nothing_is_stored_under_a_modal_window_or_without_a_window) {
    window.is_covered = true;
    Save_Status(program, Saved_Status::form, true);
    window.is_covered = false;
    window.is_there = false;
    Save_Status(program, Saved_Status::form, true);
    EXPECT_EQ(form(), QStringList({"", "", ""}));
    EXPECT_EQ(stored_columns(), no_widths);
    EXPECT_TRUE(ui.panel_1.isEmpty());
    EXPECT_TRUE(ui.lights.empty());
}

TEST_F(Window_State_Test, What_was_stored_comes_back) {
    window.maximised = true;
    Save_Status(program, Saved_Status::form, true);
    window.maximised = false;
    Save_Status(program, Saved_Status::form);
    Save_Status(program, Saved_Status::splitter);
    const Window_Geometry before = window;
    Program &next = start.renew();
    show_columns(next, true);
    Restore_Window_Geometry(next);
    Restore_Column_Widths(next);
    const Window_Geometry &after = next.screen.window;
    EXPECT_EQ(after.maximised, false);
    EXPECT_EQ(after.width, before.width);
    EXPECT_EQ(after.height, before.height);
    EXPECT_EQ(after.list_height, before.list_height);
    EXPECT_EQ(after.column_widths, before.column_widths);
}

TEST_F(Window_State_Test, A_maximised_window_comes_back_maximised) {
    store("FULLSCREEN", "2");
    Restore_Window_Geometry(program);
    EXPECT_TRUE(window.maximised);
    store("FULLSCREEN", "1");
    Restore_Window_Geometry(program);
    EXPECT_FALSE(window.maximised);
}

TEST_F(Window_State_Test, What_is_no_length_is_nothing) {
    for (const char *text : {"", "wide", "-5", "99999999", "12.5"}) {
        store("FORMWIDTH", text);
        store("FLEXGRIDHEIGHT", text);
        Restore_Window_Geometry(program);
        EXPECT_EQ(window.width, 0) << text;
        EXPECT_EQ(window.list_height, 0) << text;
    }
}

TEST_F(Window_State_Test, Without_stored_widths_the_columns_are_sized_automatically) {
    store("FLEXGRID_COLUMN1WIDTH", "200");
    Restore_Column_Widths(program);
    EXPECT_TRUE(window.column_widths.empty());
}

TEST_F(Window_State_Test, Whose_the_widths_are_is_kept_beside_them) {
    for (const bool automatic : {true, false}) {
        window.columns_are_automatic = automatic;
        Save_Status(program, Saved_Status::column_widths);
        window.columns_are_automatic = !automatic;
        Restore_Column_Widths(program);
        EXPECT_EQ(window.columns_are_automatic, automatic);
    }
    store("FLEXGRID_COLUMNS_AUTOMATIC", "");
    Restore_Column_Widths(program);
    EXPECT_FALSE(window.columns_are_automatic) << "widths of an older version are the user's";
}

TEST_F(Window_State_Test, A_width_that_is_absent_is_1000) {
    store("FLEXGRID_COLUMN0WIDTH", "20");
    store("FLEXGRID_COLUMN2WIDTH", "200");
    store("FLEXGRID_COLUMN3WIDTH", "no number");
    Restore_Column_Widths(program);
    std::vector<int> expected(column_count, 1000);
    expected[0] = 20;
    expected[2] = 200;
    EXPECT_EQ(window.column_widths, expected);
}

TEST_F(Window_State_Test, Each_optional_column_is_hidden_by_its_tweak_and_comes_back_with_its_width) {
    struct Column_Row {
        int column;
        bool Tweaks::*tweak;
    };
    constexpr Column_Row rows[] = {{3, &Tweaks::ENABLE_COL_AUTHOR},
                                   {4, &Tweaks::ENABLE_COL_SIZE},
                                   {12, &Tweaks::ENABLE_COL_ZIPDATE},
                                   {13, &Tweaks::ENABLE_COl_CATEGORY}};
    Save_Status(program, Saved_Status::column_widths);
    const std::vector<int> all = window.column_widths;
    for (const Column_Row &row : rows) {
        program.tweaks.*(row.tweak) = false;
        Restore_Column_Widths(program);
        std::vector<int> expected = all;
        expected[static_cast<std::size_t>(row.column)] = 0;
        EXPECT_EQ(window.column_widths, expected) << row.column;
        Save_Status(program, Saved_Status::column_widths);
        program.tweaks.*(row.tweak) = true;
        Restore_Column_Widths(program);
        EXPECT_EQ(window.column_widths, all) << row.column;
    }
}

TEST_F(Window_State_Test, A_start_of_the_window_knows_its_place_and_its_columns) {
    Save_Status(program, Saved_Status::form, true);
    Save_Status(program, Saved_Status::splitter);
    Program &next = start.renew();
    Window_Geometry when_restored;
    Set_Later_Step(next, Later_Step::restore_window, [&] { when_restored = next.screen.window; });
    ASSERT_TRUE(start.load());
    EXPECT_EQ(when_restored.width, 1200);
    EXPECT_EQ(when_restored.list_height, 300);
    EXPECT_EQ(when_restored.column_widths[2], 102);
    EXPECT_EQ(when_restored.column_widths[13], 0) << "the category column is off until the user wants it";
}
