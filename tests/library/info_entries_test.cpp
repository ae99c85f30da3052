#include "library/Get_Info_Entries.h"
#include "support/World.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

/// What is found in entries like "strings/french/titles.str", for one list.
struct Entries {
    Entry_Findings found;
    std::vector<QString> names;

    explicit Entries(const QStringList &stored, const QString &key = "T2", bool use_zip_resources = true,
                     const QString &zip = "vault.zip") {
        found.key = key;
        found.upper_zip_name = zip.toUpper();
        found.use_zip_resources = use_zip_resources;
        int number = 0;
        for (const QString &path : stored) {
            const qsizetype slash = path.lastIndexOf('/');
            QString directory = slash < 0 ? QString() : path.left(slash);
            names.push_back(path.mid(slash + 1));
            Classify_Entry(found, ++number, names.back(), directory.replace('/', '\\'));
        }
    }

    QStringList selected() const {
        QStringList list;
        for (const int number : found.selected)
            list << names[static_cast<size_t>(number - 1)];
        return list;
    }
};

struct Feature_Case {
    const char *path;
    std::array<bool, 8> features;
};

class Feature_Row : public testing::TestWithParam<Feature_Case> {};

struct Language_Case {
    const char *folder;
    size_t slot;
    const char *text;
};

class Language_Row : public testing::TestWithParam<Language_Case> {};

} // namespace

TEST_P(Language_Row, Is_found_at_the_root_and_below_and_in_any_case) {
    for (const QString &path :
         {QString(GetParam().folder), "strings/" + QString(GetParam().folder).toLower()}) {
        std::array<QString, 7> expected;
        expected[GetParam().slot] = GetParam().text;
        EXPECT_EQ(Entries({path + "/a.str"}).found.languages, expected);
    }
    EXPECT_EQ(Entries({"X" + QString(GetParam().folder) + "/a.str"}).found.languages,
              (std::array<QString, 7>()));
    EXPECT_EQ(Entries({QString(GetParam().folder) + "/sub/a.str"}).found.languages,
              (std::array<QString, 7>()));
}

INSTANTIATE_TEST_SUITE_P(
    Table, Language_Row,
    testing::Values(Language_Case{"ENGLISH", 0, "English"}, Language_Case{"FRENCH", 1, "French"},
                    Language_Case{"GERMAN", 2, "German"}, Language_Case{"SPANISH", 3, "Spanish"},
                    Language_Case{"ITALIAN", 4, "Italian"}, Language_Case{"POLISH", 5, "Polish"},
                    Language_Case{"RUSSIAN", 6, "Russian"}));

// New Graphics, New Objects, New Sounds, Scripts, Gamesys, Miss Graphics, AutoMap, Videos.
TEST_P(Feature_Row, Sets_its_flags_and_extracts_nothing) {
    const Entries entries({GetParam().path});
    EXPECT_EQ(entries.found.features, GetParam().features);
    EXPECT_EQ(entries.selected(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Table, Feature_Row,
                         testing::Values(Feature_Case{"mesh/a.jpg", {1, 0, 0, 0, 0, 0, 0, 0}},
                                         Feature_Case{"fam/a.Gif", {1, 0, 0, 0, 0, 0, 0, 0}},
                                         Feature_Case{"fam/a.pcx", {1, 0, 0, 0, 0, 0, 0, 0}},
                                         Feature_Case{"fam/a.TGA", {1, 0, 0, 0, 0, 0, 0, 0}},
                                         Feature_Case{"fam/a.dds", {1, 0, 0, 0, 0, 0, 0, 0}},
                                         Feature_Case{"fam/a.mlb", {1, 0, 0, 0, 0, 0, 0, 0}},
                                         Feature_Case{"Intrface/Miss20/a.pcx", {1, 0, 0, 0, 0, 1, 0, 0}},
                                         Feature_Case{"obj/a.bin", {0, 1, 0, 0, 0, 0, 0, 0}},
                                         Feature_Case{"obj/a.TIM", {0, 1, 0, 0, 0, 0, 0, 0}},
                                         Feature_Case{"intrface/miss20/p001ra.bin", {0, 1, 0, 0, 0, 0, 1, 0}},
                                         Feature_Case{"snd/a.wav", {0, 0, 1, 0, 0, 0, 0, 0}},
                                         Feature_Case{"snd/a.mp3", {0, 0, 1, 0, 0, 0, 0, 0}},
                                         Feature_Case{"snd/a.OGG", {0, 0, 1, 0, 0, 0, 0, 0}},
                                         Feature_Case{"snd/a.csc", {0, 0, 1, 0, 0, 0, 0, 0}},
                                         Feature_Case{"my.gam", {0, 0, 0, 0, 1, 0, 0, 0}},
                                         Feature_Case{"T3GameSys.t3u", {0, 0, 0, 0, 1, 0, 0, 0}},
                                         Feature_Case{"other.t3u", {0, 0, 0, 0, 0, 0, 0, 0}},
                                         Feature_Case{"movies/a.avi", {0, 0, 0, 0, 0, 0, 0, 1}},
                                         Feature_Case{"movies/a.mpg", {0, 0, 0, 0, 0, 0, 0, 1}},
                                         Feature_Case{"movies/a.bik", {0, 0, 0, 0, 0, 0, 0, 1}},
                                         Feature_Case{"a.osm", {0, 0, 0, 1, 0, 0, 0, 0}},
                                         Feature_Case{"a.tsd", {0, 0, 0, 1, 0, 0, 0, 0}},
                                         Feature_Case{"index.htm", {0, 0, 0, 0, 0, 0, 0, 0}},
                                         Feature_Case{"index.html", {0, 0, 0, 0, 0, 0, 0, 0}},
                                         Feature_Case{"a.exe", {0, 0, 0, 0, 0, 0, 0, 0}},
                                         Feature_Case{"a.dll", {0, 0, 0, 0, 0, 0, 0, 0}},
                                         Feature_Case{"a.com", {0, 0, 0, 0, 0, 0, 0, 0}},
                                         Feature_Case{"a.bat", {0, 0, 0, 0, 0, 0, 0, 0}},
                                         Feature_Case{"a.crf", {0, 0, 0, 0, 0, 0, 0, 0}}));

TEST(Info_Entries, Mission_files_are_listed_in_order_and_not_extracted) {
    const Entries entries({"miss20.mis", "Miss21.MIS"});
    EXPECT_EQ(entries.found.mission_files, (QStringList{"miss20.mis", "Miss21.MIS"}));
    EXPECT_EQ(entries.found.active_game, "");
    EXPECT_EQ(entries.found.game_text, "");
    EXPECT_EQ(entries.selected(), QStringList());
    EXPECT_FALSE(entries.found.has_thief3_mission());
}

TEST(Info_Entries, Ibt_and_cbt_are_thief_3) {
    for (const char *name : {"Castle.ibt", "Castle.CBT"}) {
        const Entries entries({name});
        EXPECT_EQ(entries.found.mission_files, QStringList(name));
        EXPECT_EQ(entries.found.active_game, "T3");
        EXPECT_EQ(entries.found.game_text, "Thief Deadly Shadows");
        EXPECT_TRUE(entries.found.has_thief3_mission());
    }
}

TEST(Info_Entries, A_pk4_is_doom_3_and_its_folder_is_kept) {
    const Entries entries({"fms/tower/tower.pk4"}, "DMOD");
    EXPECT_EQ(entries.found.mission_files, QStringList("tower.pk4"));
    EXPECT_EQ(entries.found.mission_folder, "fms\\tower");
    EXPECT_EQ(entries.found.active_game, "DOOM");
    EXPECT_EQ(entries.found.game_text, "Doom 3");
    EXPECT_FALSE(entries.found.marked_dark_mod);
}

TEST(Info_Entries, Five_names_mark_the_dark_mod_and_only_in_its_list) {
    for (const char *name : {"DmArgs.txt", "darkmod.txt", "startingmap.txt", "darkmod.ini", "darkmod.pk4"}) {
        EXPECT_TRUE(Entries({name}, "DMOD").found.marked_dark_mod) << name;
        EXPECT_FALSE(Entries({name}, "T2").found.marked_dark_mod) << name;
    }
    EXPECT_FALSE(Entries({"dmarg.txt"}, "DMOD").found.marked_dark_mod);
}

TEST(Info_Entries, Title_images_are_selected_in_four_spellings) {
    for (const char *name : {"vktitle.jpg", "VK Title.JPG", "vktitle.gif", "vk title.gif"}) {
        const Entries entries({name});
        EXPECT_EQ(entries.found.title_image, name);
        EXPECT_EQ(entries.selected(), QStringList(name));
        EXPECT_FALSE(entries.found.features[new_graphics]);
    }
}

TEST(Info_Entries, Background_images_are_selected_in_four_spellings) {
    for (const char *name :
         {"vkbackground.jpg", "VK Background.JPG", "vkbackground.gif", "vk background.gif"}) {
        const Entries entries({name});
        EXPECT_EQ(entries.found.background_image, name);
        EXPECT_EQ(entries.selected(), QStringList(name));
    }
}

TEST(Info_Entries, Pictures_of_a_vkimages_folder_belong_to_the_readme) {
    const Entries entries({"VKImages/a.jpg", "docs/vkimages/b.GIF", "c.jpg", "vkimages/d.txt"});
    EXPECT_EQ(entries.found.readme_images, (std::vector<int>{1, 2}));
    EXPECT_EQ(entries.selected(), (QStringList{"a.jpg", "b.GIF"}));
}

TEST(Info_Entries, Menu_pictures_are_taken_from_intrface_folders_when_the_user_lets_them) {
    const QStringList paths = {"intrface/MAIN_1.pcx",         "intrface/main_2.pcx",
                               "intrface/main_x.pcx",         "intrface/main.pcx",
                               "intrface/miss20/page000.pcx", "intrface/miss20/page001.pcx",
                               "intrface/other.pcx"};
    const Entries entries(paths);
    EXPECT_EQ(entries.selected(), (QStringList{"MAIN_1.pcx", "main_2.pcx", "main_x.pcx", "main.pcx",
                                               "page000.pcx", "page001.pcx"}));
    EXPECT_EQ(entries.found.main_picture, "MAIN_1.pcx");
    EXPECT_EQ(entries.found.background_image, "main.pcx");
    EXPECT_EQ(entries.found.main_frames, (std::map<int, QString>{{1, "MAIN_1.pcx"}, {2, "main_2.pcx"}}));
    EXPECT_EQ(entries.found.map_folder, "intrface\\miss20");
    EXPECT_EQ(entries.found.map_name, "page000.pcx");

    const Entries without(paths, "T2", false);
    EXPECT_EQ(without.selected(), QStringList());
    EXPECT_EQ(without.found.main_picture + without.found.background_image + without.found.map_name, "");
    EXPECT_TRUE(without.found.features[new_graphics]);
}

TEST(Info_Entries, Menu_pictures_outside_an_intrface_folder_are_only_graphics) {
    const Entries entries({"MAIN_1.PCX", "main.pcx", "pics/page000.pcx"});
    EXPECT_EQ(entries.selected(), QStringList());
    EXPECT_EQ(entries.found.main_picture, "");
}

TEST(Info_Entries, A_256_picture_is_the_background_when_the_user_lets_it) {
    EXPECT_EQ(Entries({"a.256"}).found.background_image, "a.256");
    EXPECT_EQ(Entries({"a.256"}).selected(), QStringList("a.256"));
    EXPECT_EQ(Entries({"a.256"}, "T2", false).found.background_image, "");
    EXPECT_EQ(Entries({"a.256"}, "T2", false).selected(), QStringList());
}

TEST(Info_Entries, What_else_is_looked_at_is_selected) {
    const Entries entries({"loot/vault.vkl", "strings/titles.str", "a.osl", "b.dlx", "VKCompetition.vkcr"});
    EXPECT_EQ(entries.selected(),
              (QStringList{"vault.vkl", "titles.str", "a.osl", "b.dlx", "VKCompetition.vkcr"}));
    EXPECT_EQ(entries.found.loot_list_folder, "loot");
    EXPECT_EQ(entries.found.loot_list_name, "vault.vkl");
    EXPECT_TRUE(entries.found.has_titles_str);
    EXPECT_TRUE(entries.found.has_competition);
}

TEST(Info_Entries, Of_two_entries_of_one_name_the_chosen_one_is_kept) {
    Entries entries({"readme.txt", "docs/README.TXT", "strings/titles.str", "strings/german/TITLES.STR",
                     "vkimages/readme.jpg", "docs/vkimages/readme.jpg"});
    ASSERT_EQ(entries.found.selected, (std::vector<int>{1, 2, 3, 4, 5, 6}));
    Keep_one_of_each_name(entries.found, entries.names);
    EXPECT_EQ(entries.found.text_readme, "readme.txt");
    EXPECT_EQ(entries.found.selected, (std::vector<int>{1, 4, 6}));
    EXPECT_EQ(entries.found.readme_images, (std::vector<int>{6}));
}

namespace {

struct Readme_Case {
    QStringList entries;
    QString text, rtf, vkml;
    QString zip = "vault.zip";
};

void Expect_readme(const Readme_Case &expected) {
    const Entries entries(expected.entries, "T2", true, expected.zip);
    const QStringList found{entries.found.text_readme, entries.found.rtf_readme, entries.found.vkml_readme};
    EXPECT_EQ(found, (QStringList{expected.text, expected.rtf, expected.vkml}))
        << expected.entries.join(" ").toStdString() << ": " << found.join(" | ").toStdString();
}

} // namespace

TEST(Text_Readme_Choice, The_first_text_at_the_root_is_taken) {
    Expect_readme({{"notes.txt"}, "notes.txt", "", ""});
    Expect_readme({{"notes.txt", "more.txt"}, "notes.txt", "", ""});
}

TEST(Text_Readme_Choice, Readme_txt_wins_whatever_the_order) {
    Expect_readme({{"readme.txt", "fminfo.txt"}, "readme.txt", "", ""});
    Expect_readme({{"fminfo.txt", "README.txt"}, "README.txt", "", ""});
    Expect_readme({{"readme.txt", "mission-info.txt", "vault.txt"}, "readme.txt", "", ""});
}

TEST(Text_Readme_Choice, Inverted_txt_is_never_the_first_and_would_never_be_replaced) {
    Expect_readme({{"inverted.txt"}, "", "", ""});
    Expect_readme({{"inverted.txt", "a.txt"}, "a.txt", "", ""});
}

TEST(Text_Readme_Choice, Mission_info_a_name_with_readme_and_the_zips_own_name_replace) {
    Expect_readme({{"a.txt", "mission-info.txt"}, "mission-info.txt", "", ""});
    Expect_readme({{"a.txt", "vault_readme.txt"}, "vault_readme.txt", "", ""});
    Expect_readme({{"my readme.txt", "readme2.txt"}, "my readme.txt", "", ""});
    Expect_readme({{"a.txt", "Vault.txt"}, "Vault.txt", "", ""});
    Expect_readme({{"a.txt", "Vault.txt"}, "Vault.txt", "", "", "VAULT.ss2mod"});
}

TEST(Text_Readme_Choice, A_part_of_the_zips_name_replaces_unless_it_takes_the_place_of_english) {
    Expect_readme({{"a.txt", "vau'lt.txt"}, "vau'lt.txt", "", "", "vault_v2.zip"});
    Expect_readme({{"x_eng.txt", "vault.txt"}, "x_eng.txt", "", "", "vault_v2.zip"});
    Expect_readme({{"x_eng.txt", "english.txt"}, "english.txt", "", "", "the english vault.zip"});
    Expect_readme({{"a.txt", ".txt"}, "a.txt", "", "", "vault_v2.zip"});
}

TEST(Text_Readme_Choice, In_a_folder_only_readme_txt_is_a_first_choice) {
    Expect_readme({{"docs/notes.txt"}, "", "", ""});
    EXPECT_EQ(Entries({"docs/notes.txt"}).selected(), QStringList());
    Expect_readme({{"docs/notes.txt", "docs/Readme.TXT"}, "Readme.TXT", "", ""});
}

TEST(Text_Readme_Choice, Texts_of_the_extras_folder_are_left_alone) {
    const Entries entries({"Fan Mission Extras/readme.txt"});
    EXPECT_EQ(entries.found.text_readme, "");
    EXPECT_EQ(entries.selected(), QStringList("readme.txt"));
}

TEST(Readme_Choice, Vkml_ends_every_interest_in_the_others) {
    Expect_readme({{"readme.txt", "readme.vkml"}, "", "", "readme.vkml"});
    Expect_readme({{"readme.vkml", "readme.txt"}, "", "", "readme.vkml"});
    Expect_readme({{"readme.rtf", "readme.vkml"}, "", "", "readme.vkml"});
    Expect_readme({{"readme.vkml", "readme.rtf"}, "", "", "readme.vkml"});
    EXPECT_EQ(Entries({"readme.vkml", "readme.txt", "readme.rtf"}).selected(),
              (QStringList{"readme.vkml", "readme.rtf"}));
}

TEST(Readme_Choice, Rtf_stands_before_text) {
    Expect_readme({{"readme.txt", "x.rtf"}, "", "x.rtf", ""});
    Expect_readme({{"x.rtf", "readme.txt"}, "", "x.rtf", ""});
    EXPECT_EQ(Entries({"x.rtf", "readme.txt"}).selected(), QStringList("x.rtf"));
}

TEST(Readme_Choice, A_later_rtf_replaces_by_its_name) {
    Expect_readme({{"a.rtf", "b.rtf"}, "", "a.rtf", ""});
    Expect_readme({{"a.rtf", "readme.rtf"}, "", "readme.rtf", ""});
    Expect_readme({{"a.rtf", "Documentation.rtf"}, "", "Documentation.rtf", ""});
    Expect_readme({{"a.rtf", "VAULT.rtf"}, "", "VAULT.rtf", ""});
    Expect_readme({{"a.rtf", "vault.rtf"}, "", "vault.rtf", "", "vault.ss2mod"});
    Expect_readme({{"x.rtf", "vau.rtf"}, "", "vau.rtf", ""});
    Expect_readme({{"readme.rtf", "documentation.rtf", "vault.rtf"}, "", "readme.rtf", ""});
}
