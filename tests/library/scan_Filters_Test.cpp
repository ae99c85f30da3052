#include "scan_World.h"

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

/// Records for scores 0 to 10, "s0.zip" to "s10.zip", in both kinds of score.
void Add_scored(Scan_World &world) {
    for (int score = 0; score <= 10; ++score) {
        const QString zip = QString("s%1.zip").arg(score);
        world.mission(zip);
        world.record(zip, zip, "T2", QString("score = %1, average_score = %2").arg(score).arg(10 - score));
    }
}

QStringList Scored(const std::vector<int> &scores) {
    QStringList names;
    for (const int score : scores)
        names << QString("s%1.zip").arg(score);
    names.sort();
    return names;
}

QStringList Shown(Scan_World &world, int filter) {
    world.scan(filter);
    QStringList names = world.listed().mid(1);
    names.sort();
    return names;
}

} // namespace

TEST(Scan_Filters, The_users_ratings) {
    Scan_World world;
    Add_scored(world);
    EXPECT_EQ(Shown(world, 0).size(), 11);
    EXPECT_EQ(Shown(world, 1), Scored({8, 9, 10}));
    EXPECT_EQ(Shown(world, 2), Scored({4, 5, 6, 7}));
    EXPECT_EQ(Shown(world, 3), Scored({1, 2, 3}));
    EXPECT_EQ(Shown(world, 4), Scored({0}));
}

TEST(Scan_Filters, The_groups_ratings) {
    Scan_World world;
    Add_scored(world);
    EXPECT_EQ(Shown(world, 11), Scored({0, 1, 2}));
    EXPECT_EQ(Shown(world, 12), Scored({3, 4, 5, 6}));
    EXPECT_EQ(Shown(world, 13), Scored({7, 8, 9}));
    EXPECT_EQ(Shown(world, 14), Scored({10}));
}

TEST(Scan_Filters, A_mission_without_a_score_counts_as_unscored) {
    Scan_World world;
    world.mission("vault.zip");
    EXPECT_EQ(Shown(world, 1), QStringList());
    EXPECT_EQ(Shown(world, 3), QStringList());
    EXPECT_EQ(Shown(world, 4), QStringList({"vault.zip"}));
    EXPECT_EQ(Shown(world, 14), QStringList({"vault.zip"}));
}

TEST(Scan_Filters, Played_and_completed) {
    Scan_World world;
    for (const char *zip : {"done.zip", "fresh.zip", "played.zip"})
        world.mission(zip);
    world.record("done.zip", "Done", "T2", "completed = 3");
    world.record("played.zip", "Played", "T2", "last_played = now()");
    EXPECT_EQ(Shown(world, 21), QStringList({"done.zip", "fresh.zip"}));
    EXPECT_EQ(Shown(world, 22), QStringList({"played.zip"}));
    EXPECT_EQ(Shown(world, 23), QStringList({"fresh.zip", "played.zip"}));
    EXPECT_EQ(Shown(world, 24), QStringList({"done.zip"}));
    EXPECT_EQ(world.found().completed, 1) << "hidden rows count";
}

TEST(Scan_Filters, Categories_of_the_games_that_have_them) {
    Scan_World world;
    world.mission("a.zip");
    world.mission("b.zip");
    world.record("a.zip", "A", "T2", "categories_list = 'guards,city'");
    world.record("b.zip", "B", "T2", "categories_list = 'Undead,Horror'");
    EXPECT_EQ(Shown(world, 31), QStringList({"a.zip"})) << "Guards";
    EXPECT_EQ(Shown(world, 38), QStringList({"b.zip"})) << "Undead";
    EXPECT_EQ(Shown(world, 41), QStringList({"a.zip"})) << "City";
    EXPECT_EQ(Shown(world, 54), QStringList({"b.zip"})) << "Horror";
    EXPECT_EQ(Shown(world, 32), QStringList()) << "Hammerites";
    EXPECT_EQ(Shown(world, 55), QStringList()) << "no such entry";
}

TEST(Scan_Filters, Categories_hide_every_row_of_other_games) {
    Scan_World world("SS2");
    world.mission("a.zip", "Title: A shock\r\nGame: SS2\r\n");
    world.record("a.zip", "A", "SS2", "categories_list = 'Guards'");
    EXPECT_EQ(Shown(world, 0), QStringList({"a.zip"}));
    EXPECT_EQ(Shown(world, 31), QStringList());
}

TEST(Scan_Filters, The_original_missions_are_never_hidden) {
    Scan_World world;
    world.scan(31);
    EXPECT_EQ(world.listed(), QStringList({"Original"}));
}

TEST(Finished_Text, Every_sum_of_difficulties_has_its_letters) {
    const QStringList texts{"",     "EA",      "",       "N",       "EA,N", "H",      "EA,H",
                            "",     "N,H",     "EA,N,H", "",        "EX",   "EA,EX",  "EX",
                            "N,EX", "EA,N,EX", "H,EX",   "EA,H,EX", "EX",   "N,H,EX", "EA,N,H,EX"};
    for (int completed = 0; completed <= 20; ++completed)
        EXPECT_EQ(Finished_Text(completed, "T2"), texts[completed]) << completed;
    EXPECT_EQ(Finished_Text(20, "SS2"), "EA,N,H,I");
    EXPECT_EQ(Finished_Text(11, "SS2"), "I");
}

} // namespace vantrosk
