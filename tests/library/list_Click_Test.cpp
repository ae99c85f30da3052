#include "scan_World.h"

#include "install/undo/Undo_List.h"
#include "library/Fm_List_View.h"

#include <QDir>

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

/// The buttons of the details panel: install, shows installed, play, reset.
std::vector<bool> Buttons_of(Scan_World &world) {
    const Details_Panel &details = world.program().screen.details;
    return {details.install_enabled, details.shows_installed, details.play_enabled, details.reset_enabled};
}

const std::vector<bool> no_buttons{false, false, false, false};

QStringList Tab_keys(Scan_World &world) {
    QStringList keys;
    for (const Readme_Tab &tab : world.program().screen.readme_tabs)
        keys << tab.key;
    return keys;
}

} // namespace

TEST(Row_Click, A_mission_that_is_not_installed_can_be_installed_and_reset) {
    Scan_World world;
    world.mission("vault.zip");
    world.scan();
    Row_Click(world.program(), 1, col_author);
    EXPECT_EQ(world.program().FM_PANEL, "vault.zip");
    EXPECT_EQ(world.program().CURRENT_GAME, "T2");
    EXPECT_EQ(world.program().CURRENT_GAME_PATH, world.windows("games/T2"));
    EXPECT_EQ(Buttons_of(world), std::vector<bool>({true, false, false, true}));
    EXPECT_EQ(world.cell("vault.zip", col_ready), "");
    EXPECT_EQ(world.list().current_row, 1);
    EXPECT_EQ(world.list().selected_column, col_author);
    EXPECT_EQ(world.program().HELPCONTEXT, "FILE___MAIN_FM_LISTS1");
    EXPECT_EQ(world.program().screen.status_panels[1], "Ready");
    EXPECT_FALSE(world.program().screen.busy);
    EXPECT_FALSE(world.program().screen.progress_visible);
    EXPECT_FALSE(world.program().screen.no_mission_selected);
}

TEST(Row_Click, An_installed_mission_can_be_played) {
    Scan_World world;
    world.mission("vault.zip");
    world.scan();
    const Undo_List undo{world.windows("zips") + "\\vault.zip", "vault.zip", {}};
    ASSERT_FALSE(Write_undo_list(world.program(), world.windows("games/T2"), undo));
    Row_Click(world.program(), 1, col_name);
    EXPECT_EQ(Buttons_of(world), std::vector<bool>({false, true, true, true}));
    EXPECT_EQ(world.cell("vault.zip", col_ready), "Yes");
}

TEST(Row_Click, The_log_has_a_block_for_each_click) {
    Scan_World world;
    world.mission("vault.zip");
    world.scan();
    const QString before = world.log();
    Row_Click(world.program(), 1, col_name);
    const QString block = world.log().mid(before.size());
    const QString rule = QString(43, '=') + "\r\n";
    EXPECT_TRUE(block.startsWith(rule + rule + "Scanning vault.zip\r\n")) << block.toStdString();
    EXPECT_TRUE(block.endsWith("Finished Examining\r\n" + rule)) << block.toStdString();
}

TEST(Row_Click, The_original_missions_are_ready_when_nothing_is_installed) {
    Scan_World world;
    world.scan();
    world.program().screen.details.name = "Old";
    Row_Click(world.program(), 0, col_name);
    EXPECT_EQ(world.program().FM_PANEL, "Original");
    EXPECT_EQ(world.program().CURRENT_GAME, "T2");
    EXPECT_EQ(world.program().CURRENT_GAME_PATH, world.windows("games/T2"));
    EXPECT_EQ(Buttons_of(world), std::vector<bool>({false, true, true, false}));
    EXPECT_EQ(world.program().screen.details.name, "");
    EXPECT_EQ(world.program().screen.details.fourth_level_label, "EX:");
    EXPECT_EQ(world.ui.panel_2.last(), "Original Missions");
    EXPECT_EQ(world.ui.pages.last(), "about:blank");
    EXPECT_EQ(Tab_keys(world), QStringList({"MP_OPTIONS"}));
}

TEST(Row_Click, The_original_missions_can_be_restored_over_an_installed_one) {
    Scan_World world;
    world.mission("vault.zip");
    world.scan();
    const Undo_List undo{world.windows("zips") + "\\vault.zip", "vault.zip", {}};
    ASSERT_FALSE(Write_undo_list(world.program(), world.windows("games/T2"), undo));
    Row_Click(world.program(), 0, col_name);
    EXPECT_EQ(Buttons_of(world), std::vector<bool>({true, false, false, false}));
    EXPECT_EQ(world.cell("Original", col_ready), "");
}

TEST(Row_Click, A_game_folder_that_is_gone_is_told_and_ends_the_click) {
    Scan_World world;
    world.scan();
    QDir(world.native("games/T2")).removeRecursively();
    Row_Click(world.program(), 0, col_name);
    EXPECT_EQ(
        world.ui.box_texts(),
        QStringList({"WARNING: Vantrosk has detected that your game install path for T2 does not exist.\n"
                     "This may have resulted from a re-install of your game, please re-set your T2 "
                     "install path in Vantrosk's config."}));
    EXPECT_EQ(Buttons_of(world), no_buttons);
    EXPECT_FALSE(world.program().screen.busy);
    EXPECT_EQ(world.program().screen.status_panels[1], "Ready");
}

TEST(Row_Click, Shock_calls_its_fourth_level_impossible) {
    Scan_World world("SS2");
    world.scan();
    Row_Click(world.program(), 0, col_name);
    const Details_Panel &details = world.program().screen.details;
    EXPECT_EQ(details.fourth_level_label, "  I:");
    EXPECT_EQ(details.fourth_level_tip, "IMPOSSIBLE:");
    EXPECT_EQ(details.fourth_level_text, "Impossible");
    EXPECT_EQ(Tab_keys(world), QStringList());
}

TEST(Row_Click, Thief_2x_shows_its_readme_with_its_own_missions) {
    Scan_World world("T2X");
    world.scan();
    Row_Click(world.program(), 0, col_name);
    EXPECT_EQ(world.ui.pages.last(), "about:blank");
    world.write("games/T2X/t2x/readme.txt", "x");
    Row_Click(world.program(), 0, col_name);
    EXPECT_EQ(world.ui.pages.last(), world.windows("games/T2X") + "\\t2x\\readme.txt");
}

TEST(Row_Click, Both_rows_of_the_dark_mod_list_share_a_folder) {
    Scan_World world("DMOD");
    world.scan();
    Row_Click(world.program(), 0, col_name);
    EXPECT_EQ(world.program().CURRENT_GAME, "DOOM");
    EXPECT_EQ(world.program().CURRENT_GAME_PATH, world.windows("games/DMOD"));
    Row_Click(world.program(), 1, col_name);
    EXPECT_EQ(world.program().CURRENT_GAME, "DMOD");
    EXPECT_EQ(world.program().CURRENT_GAME_PATH, world.windows("games/DMOD"));
}

TEST(Row_Click, A_shock_package_is_listed_but_not_examined) {
    Scan_World world("SS2");
    world.zips("earth.ss2mod", {{"earth.mis", "m", {}}, {"readme.txt", "Title: Earth\r\nGame: SS2\r\n", {}}});
    world.scan();
    Row_Click(world.program(), 1, col_name);
    EXPECT_EQ(world.program().FM_PANEL, "");
    EXPECT_EQ(Buttons_of(world), no_buttons);
    EXPECT_FALSE(world.log().contains("Finished Examining"));
    EXPECT_FALSE(world.program().screen.busy);
}

TEST(Row_Click, No_row_and_an_empty_list_do_nothing) {
    Scan_World world;
    world.scan();
    Row_Click(world.program(), 1, col_name);
    Row_Click(world.program(), -1, col_name);
    EXPECT_EQ(world.program().FM_PANEL, "");
    EXPECT_EQ(world.list().current_row, -1);
    world.program().screen.list.rows.clear();
    Row_Click(world.program(), 0, col_name);
    EXPECT_FALSE(world.program().screen.busy);
}

TEST(Row_Click, A_second_click_during_the_first_is_passed_over) {
    Scan_World world;
    world.mission("vault.zip");
    world.scan();
    world.program().screen.busy = true;
    Row_Click(world.program(), 1, col_name);
    EXPECT_EQ(world.program().FM_PANEL, "");
    EXPECT_TRUE(world.program().screen.busy);
}

TEST(Row_Click, The_programs_own_selection_takes_the_current_row_and_the_name_column) {
    Scan_World world;
    world.mission("vault.zip");
    world.scan();
    Fm_List &list = world.program().screen.list;
    list.first_selection_state = 2;
    list.current_row = 1;
    Row_Click(world.program(), 0, col_review);
    EXPECT_EQ(world.program().FM_PANEL, "vault.zip");
    EXPECT_EQ(list.selected_column, col_name);
    EXPECT_EQ(list.first_selection_state, 0);
}

TEST(Row_Click, The_row_comes_to_the_top_when_the_tweak_says_so) {
    Scan_World world;
    world.mission("vault.zip");
    world.scan();
    world.program().tweaks.FOCUS_ON_FM = false;
    Row_Click(world.program(), 1, col_name);
    EXPECT_EQ(world.list().top_row, 0);
    world.program().tweaks.FOCUS_ON_FM = true;
    Row_Click(world.program(), 1, col_name);
    EXPECT_EQ(world.list().top_row, 1);
}

TEST(Row_Click, A_row_without_a_game_takes_the_icon_of_the_game_that_was_found) {
    Scan_World world;
    world.zips("odd.zip", {{"start.mis", "m", {}}, {"readme.txt", "Title: Odd one\r\n", {}}});
    world.scan();
    ASSERT_EQ(world.game_of("odd.zip"), "");
    world.ui.answers = {Answer::yes};
    Row_Click(world.program(), 1, col_name);
    EXPECT_EQ(world.program().CURRENT_GAME, "T2");
    EXPECT_EQ(world.game_of("odd.zip"), "T2");
}

} // namespace vantrosk
