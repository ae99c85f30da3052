#include "scan_World.h"

#include "library/Author_Colours.h"
#include "library/Fm_Filters.h"
#include "library/Fm_Keywords.h"
#include "library/Fm_List_View.h"

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

struct Keywords_World : Scan_World {
    Keywords_World() {
        mission("vault.zip");
        scan();
        select();
    }
    void select() { Row_Click(program(), 1, col_name); }
    QString stored() {
        return db_Query(program(), "select categories_list from Table_Scores").text(0, "categories_list");
    }
    QString shown() { return program().screen.details.keywords; }
};

} // namespace

TEST(Keyword_List, Has_the_24_category_words_behind_their_kinds) {
    Scan_World world;
    EXPECT_EQ(Keyword_Entries(world.program()).join(','),
              "Enemy-Guards,Enemy-Hammerites,Enemy-Mechanist,Enemy-Thieves,Enemy-Keepers,Enemy-Mages,"
              "Enemy-Pagans,Enemy-Undead,Location-Mansion,Location-Museum,Location-City,Location-Fortress,"
              "Location-Church,Location-Crypt,Location-Prison,Location-Forest,Location-Ruins,Location-Bank,"
              "Theme-Rescue,Theme-Explore,Theme-Fun,Theme-Unusual,Theme-General,Theme-Horror");
}

TEST(Keyword_List, An_entry_is_matched_by_its_ending_and_once) {
    const QStringList entries{"Enemy-Guards", "Location-City", "Theme-Fun"};
    EXPECT_EQ(Matched_Keywords(entries, "City,Guards"), (QStringList{"Enemy-Guards", "Location-City"}));
    EXPECT_EQ(Matched_Keywords(entries, "Location-City,City"), QStringList{"Location-City"});
    EXPECT_EQ(Matched_Keywords(entries, ",,n,"), QStringList{"Theme-Fun"});
    EXPECT_EQ(Matched_Keywords(entries, "city,Town"), QStringList());
    EXPECT_EQ(Matched_Keywords(entries, ""), QStringList());
}

TEST(Keyword_List, A_tick_is_stored_with_the_others_in_the_order_of_the_list) {
    Keywords_World world;
    Keyword_Click(world.program(), "Theme-Horror", true);
    EXPECT_EQ(world.program().SQL, "UPDATE Table_Scores set categories_list = 'Theme-Horror' WHERE zip_name "
                                   "= \"vault.zip\" and game = 'T2'");
    Keyword_Click(world.program(), "Enemy-Guards", true);
    EXPECT_EQ(world.stored(), "Enemy-Guards,Theme-Horror");
    world.select();
    EXPECT_EQ(world.shown(), "Enemy-Guards,Theme-Horror");
    Keyword_Click(world.program(), "Enemy-Guards", false);
    EXPECT_EQ(world.stored(), "Theme-Horror");
    Keyword_Click(world.program(), "Theme-Horror", false);
    EXPECT_EQ(world.stored(), "");
}

TEST(Keyword_List, While_a_row_is_examined_only_a_change_to_something_is_stored) {
    Keywords_World world;
    Keyword_Click(world.program(), "Theme-Fun", true);
    world.program().screen.busy = true;
    world.program().SQL.clear();
    Store_Keywords(world.program(), "Fun");
    EXPECT_EQ(world.program().SQL, "");
    Store_Keywords(world.program(), "");
    EXPECT_EQ(world.program().SQL, "");
    EXPECT_EQ(world.shown(), "");
    Store_Keywords(world.program(), "Horror,City");
    EXPECT_EQ(world.stored(), "Location-City,Theme-Horror");
}

TEST(Keyword_List, Without_a_zip_or_a_record_nothing_is_stored) {
    Keywords_World world;
    Row_Click(world.program(), 0, col_name);
    Keyword_Click(world.program(), "Theme-Fun", true);
    EXPECT_EQ(world.shown(), "");
    Store_Keywords(world.program(), "Fun");
    EXPECT_EQ(world.stored(), "");
}

TEST(Keyword_List, The_category_filter_finds_a_mission_by_a_ticked_keyword) {
    Keywords_World world;
    Keyword_Click(world.program(), "Location-City", true);
    world.scan(31 + 10);
    EXPECT_EQ(world.listed(), (QStringList{"Original", "vault.zip"}));
    world.scan(31 + 11);
    EXPECT_EQ(world.listed(), QStringList{"Original"});
}

TEST(Filter_Menus, Each_game_has_its_own) {
    Scan_World world;
    const auto names = [&](const char *code) {
        QStringList texts;
        for (const Filter_Menu &menu : Filter_Menus(world.program(), code))
            texts << menu.name + "=" + menu.caption;
        return texts.join(", ");
    };
    EXPECT_EQ(names("T1"), "T1_Show_my=My Ratings, T1_group_Show_rate=Group Ratings, T1_FMs_I=Other, "
                           "T1_categories=Categories");
    EXPECT_EQ(names("TG"), "TG_Show_my=My Ratings, TG_group_Show_rate=Group Ratings, TG_FMs_I=Other, "
                           "TG_categories=Categories");
    EXPECT_EQ(names("T2"), "T2_Show_my=My Ratings, T2_group_Show_rate=Group Ratings, T2_FMs_I=Other, "
                           "T2_categories=Categories");
    EXPECT_EQ(names("T3"), "T3_Show_my=My Ratings, T3_group_Show_rate=Group Ratings, T3_FMs_I=Other, "
                           "T3_categories=Categories");
    EXPECT_EQ(names("SS2"), "SS2_Show_my=My Ratings, SS2_group_Show_rate=Group Ratings, SS2_FMs_I=Other");
    EXPECT_EQ(names("DMOD"), "DMOD_Show_my=My Ratings, DMOD_group_Show_rate=Group Ratings");
    for (const char *code : {"DM", "T2X", "CUSTOM", ""})
        EXPECT_EQ(names(code), "") << code;
}

TEST(Filter_Menus, Have_these_entries_with_these_filters) {
    Scan_World world;
    QStringList texts;
    for (const Filter_Menu &menu : Filter_Menus(world.program(), "T2")) {
        for (const Filter_Entry &entry : menu.entries)
            texts << QString("%1 %2").arg(entry.filter).arg(entry.caption);
    }
    EXPECT_EQ(texts.mid(0, 12), (QStringList{"1 Show Only High Rated FMs", "2 Show Only Average Rated FMs",
                                             "3 Show Only Low Rated FMs", "4 Show Only Un-scored FMs",
                                             "11 Show Only High Rated FMs", "12 Show Only Average Rated FMs",
                                             "13 Show Only Low Rated FMs", "14 Show Only Un-scored FMs",
                                             "21 FMs I have NOT played", "22 FMs I have Played",
                                             "23 FMs I have NOT completed", "24 FMs I have completed"}));
    EXPECT_EQ(texts.mid(12).size(), 24);
    EXPECT_EQ(texts[12], "31 Guards");
    EXPECT_EQ(texts.last(), "54 Horror");
}

TEST(Filter_Menus, The_filter_in_force_has_a_name_until_the_next_scan_without) {
    Scan_World world;
    world.mission("vault.zip");
    world.scan(4);
    EXPECT_EQ(world.found().filter, 4);
    EXPECT_EQ(Filter_Text(world.program(), "T2", 4), "My Ratings: Show Only Un-scored FMs");
    EXPECT_EQ(Filter_Text(world.program(), "T2", 31), "Categories: Guards");
    EXPECT_EQ(Filter_Text(world.program(), "DM", 4), "Filter 4");
    EXPECT_EQ(Filter_Text(world.program(), "T2", 0), "");
    world.scan();
    EXPECT_EQ(world.found().filter, 0);
}

TEST(Author_Colours, A_favourite_is_named_whole_or_as_a_first_name) {
    Scan_World world;
    world.program().authors = {{"Ann", "255"}, {"Bea Moore", "65280"}};
    const auto colour = [&](const QString &author, const QString &zip = "x.zip") {
        Fm_Row row;
        row.cells[col_author] = author;
        row.cells[col_zip] = zip;
        return Author_Colour_Of(world.program(), row);
    };
    EXPECT_EQ(colour("Ann"), "255");
    EXPECT_EQ(colour("  Ann "), "255");
    EXPECT_EQ(colour("Ann Lee"), "255");
    EXPECT_EQ(colour("ANN lee"), "255");
    EXPECT_EQ(colour("Annabel"), "");
    EXPECT_EQ(colour("ann"), "");
    EXPECT_EQ(colour("Bea Moore"), "65280");
    EXPECT_EQ(colour("Ann and bea moore too"), "65280");
    EXPECT_EQ(colour(""), "");
    EXPECT_EQ(colour("Ann", "Original DMOD"), "");
    EXPECT_EQ(colour("Ann", "ORIGINAL"), "");
}

TEST(Mouse_Wheel, Moves_by_a_lists_height_and_by_10_rows_at_least) {
    EXPECT_EQ(MouseWheel(20, -120, 500, 25, 1, 200), 40);
    EXPECT_EQ(MouseWheel(20, -1, 499, 25, 1, 200), 39);
    EXPECT_EQ(MouseWheel(50, 120, 500, 25, 1, 200), 30);
    EXPECT_EQ(MouseWheel(20, -120, 100, 25, 1, 200), 30);
    EXPECT_EQ(MouseWheel(20, 120, 100, 25, 1, 200), 10);
    EXPECT_EQ(MouseWheel(20, 0, 100, 25, 1, 200), 20);
}

TEST(Mouse_Wheel, Stays_within_the_rows_that_there_are) {
    EXPECT_EQ(MouseWheel(195, -120, 500, 25, 1, 200), 199);
    EXPECT_EQ(MouseWheel(5, 120, 500, 25, 1, 200), 1);
    EXPECT_EQ(MouseWheel(0, -120, 500, 0, 0, 0), 0);
    EXPECT_EQ(MouseWheel(1, -120, 500, 25, 1, 1), 1);
}

} // namespace vantrosk
