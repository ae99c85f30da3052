#include "install/Install_World.h"

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

struct Language_Case {
    const char *name;
    const char *game;
    const char *config;         ///< darkinst.cfg; null for none
    const char *users_language; ///< of the settings
    std::vector<const char *> entries;
    std::vector<const char *> lines; ///< of the list afterwards; a file of each exists
};

std::string Case_name(const testing::TestParamInfo<Language_Case> &one) {
    return one.param.name;
}

class Install_Languages : public testing::TestWithParam<Language_Case> {};

TEST_P(Install_Languages, Choose_one_and_list_what_is_where) {
    const Language_Case &row = GetParam();
    Install_World world(row.game);
    if (row.config)
        world.game_has("darkinst.cfg", row.config);
    world.game_has("books/there.str", "the game's own");
    world.program().ini.LANGUAGE = row.users_language;
    const Snapshot before = world.game();
    std::vector<Zip_Entry> entries{{"a.mis", "x"}, {"z.str", "x"}};
    for (const char *entry : row.entries)
        entries.push_back({entry, QByteArray("from ") + entry});
    world.mission("m.zip", entries);
    ASSERT_TRUE(world.install("m.zip"));
    QStringList expected;
    for (const char *line : row.lines)
        expected << line;
    expected << "a.mis"
             << "z.str";
    EXPECT_EQ(Sorted(world.listed()), Sorted(expected));
    for (const QString &line : expected)
        EXPECT_TRUE(world.exists(world.in_game(line))) << line.toStdString();
    EXPECT_EQ(world.game_file("books/there.str"), "the game's own");
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.game(), before);
}

INSTANTIATE_TEST_SUITE_P(Cases, Install_Languages,
                         testing::Values(Language_Case{"english",
                                                       "T2",
                                                       "language english\r\n",
                                                       "ENGLISH",
                                                       {"books/english/a.str", "books/german/a.str"},
                                                       {"books/a.str", "books/german/a.str"}},
                                         Language_Case{"users_language_wins",
                                                       "T2",
                                                       "language english\r\n",
                                                       "German",
                                                       {"books/english/a.str", "books/german/a.str"},
                                                       {"books/a.str"}},
                                         Language_Case{"no_config_is_english",
                                                       "T1",
                                                       nullptr,
                                                       "FRENCH",
                                                       {"books/english/a.str", "books/french/a.str"},
                                                       {"books/a.str"}},
                                         Language_Case{"fallback_to_english",
                                                       "SS2",
                                                       "x\r\nlanguage german\r\n",
                                                       "FRENCH",
                                                       {"books/english/a.str", "books/german/a.str"},
                                                       {"books/a.str"}},
                                         Language_Case{"nothing_kept_nothing_dropped",
                                                       "T2",
                                                       "language english\r\n",
                                                       "FRENCH",
                                                       {"books/english/a.str"},
                                                       {"books/english/a.str"}},
                                         Language_Case{"a_file_in_the_way_stays",
                                                       "TG",
                                                       "language english\r\n",
                                                       "ENGLISH",
                                                       {"books/english/there.str", "books/english/b.str"},
                                                       {"books/english/there.str", "books/b.str"}},
                                         Language_Case{"folders_of_other_depth",
                                                       "T2",
                                                       "language french\r\n",
                                                       "english",
                                                       {"snd/english/deep/a.wav",
                                                        "intrface/miss1/English/b.str", "snd/french/c.wav"},
                                                       {"snd/deep/a.wav", "intrface/miss1/b.str"}},
                                         Language_Case{"no_user_language",
                                                       "T2",
                                                       "language english\r\n",
                                                       "",
                                                       {"books/english/a.str"},
                                                       {"books/english/a.str"}},
                                         Language_Case{"other_games_keep_all",
                                                       "DM",
                                                       "language english\r\n",
                                                       "ENGLISH",
                                                       {"books/english/a.str", "books/german/a.str"},
                                                       {"books/english/a.str", "books/german/a.str"}}),
                         Case_name);

TEST(Install_Languages_More, Moved_files_keep_their_content_and_empty_folders_go) {
    Install_World world;
    world.program().ini.LANGUAGE = "ENGLISH";
    world.mission("m.zip",
                  {{"books/English/a.str", "one"}, {"strings/english/b.str", "two"}, {"c.mis", "x"}});
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_EQ(world.game_file("books/a.str"), "one");
    EXPECT_EQ(world.game_file("strings/b.str"), "two");
    EXPECT_FALSE(world.exists(world.in_game("books/English")));
    EXPECT_FALSE(world.exists(world.in_game("strings/english")));
}

TEST(Install_Languages_More, A_game_below_a_folder_named_like_a_language_is_not_rewritten) {
    Install_World world;
    world.make_folder("english/T2");
    world.game_folder = world.list_folder = "english/T2";
    world.program().CURRENT_GAME_PATH = world.windows("english/T2");
    world.program().ini.LANGUAGE = "ENGLISH";
    world.mission("m.zip", {{"books/english/a.str", "one"}, {"c.mis", "x"}});
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_EQ(world.listed(), (QStringList{"books/a.str", "c.mis"}));
    ASSERT_TRUE(world.restore());
    EXPECT_FALSE(world.exists("english/T2/books"));
}

} // namespace
} // namespace vantrosk
