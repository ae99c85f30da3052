#include "scan_World.h"

#include "core/Games.h"

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

struct Original_Case {
    const char *game;
    QStringList names;
    QStringList markers;
    QStringList icons;
};

struct Known_Case {
    const char *zip;
    const char *game;
    const char *name; ///< empty: the zip's name
    bool author_set;
};

const std::vector<Known_Case> known_cases{
    {"awaken!.zip", "T1", "Awaken!", true},
    {"old_awaken!.zip", "T1", "Awaken!", true},
    {"brainchild.zip", "T1", "Thief: Brainchild", true},
    {"my_brainchild.zip", "T1", "Thief: Brainchild", true},
    {"kill3.zip", "T1", "The Killing Time(DEMO Ver3)", true},
    {"koobze.zip", "T1", "", false},
    {"old_koobze.zip", "T1", "", false},
    {"lafre.zip", "T1", "", false},
    {"treachery.zip", "T1", "Treachery", true},
    {"amida_b.zip", "TG", "AMIDA", true},
    {"f.zip", "TG", "F", true},
    {"3MagesTomb.zip", "T2", "", false},
    {"ack_v10.zip", "T2", "Ack! There 's a zombie in the basement", true},
    {"athiefsholiday2004_v2_2.zip", "T2", "A Thief's Holiday 2004", true},
    {"calendras_legacy_v1a.zip", "T2", "Calendra\xE2\x80\x99s Legacy", true},
    {"cotd_v060.zip", "T2", "Cathedral of the Damned", true},
    {"heistsociety_v10.zip", "T2", "", false},
    {"lanniversairedejoelle.zip", "T2", "L'Anniversaire de Joelle", true},
    {"lucrativeop.zip", "T2", "Lucrative Opportunity", true},
    {"mcrm1.zip", "T2", "McLeod's Revenge", true},
    {"mothtoaflame.zip", "T2", "Moth to a Flame", true},
    {"rosaries.zip", "T2", "", false},
    {"shiningstds.zip", "T2", "", false},
    {"sluggsfan.zip", "T2", "", false},
    {"spoofbht.zip", "T2", "", false},
    {"une_merveilleuse_reception.zip", "T2", "A wonderful reception", true},
};

/// A mission whose readme tells no game, with these further entries.
void Add_mission(Scan_World &world, const QString &zip, std::vector<Zip_Entry> entries,
                 const QByteArray &readme = "Nothing to read here.\r\n") {
    entries.push_back({"readme.txt", readme, {}});
    world.zips(zip, entries);
}

const QByteArray thief_2_titles = "title_1: \"Running Interference\"\r\n";

} // namespace

TEST(Scan_Originals, Each_game_has_its_rows_when_its_folder_is_set) {
    const std::vector<Original_Case> cases{
        {"T1", {"Thief 1 Original Missions"}, {"Original"}, {"T1"}},
        {"TG", {"Thief Gold Original Missions"}, {"Original"}, {"TG"}},
        {"T2", {"Thief 2 Original Missions"}, {"Original"}, {"T2"}},
        {"T3", {"Thief 3 Original Missions"}, {"Original"}, {"T3"}},
        {"DM", {"Thief 2 Dark Metal Original Missions"}, {"Original"}, {"DM"}},
        {"DMOD",
         {"Doom3 Original Missions", "Dark Mod Original Missions"},
         {"Original DOOM3", "Original DMOD"},
         {"DOOM", "DMOD"}},
        {"T2X", {"T2X Original Missions"}, {"Original"}, {"T2X"}},
        {"SS2", {"System Shock 2 Original Missions"}, {"Original"}, {"SS2"}},
    };
    for (const Original_Case &one : cases) {
        Scan_World world(one.game);
        world.scan();
        QStringList names, icons;
        for (const Fm_Row &row : world.list().rows) {
            names << row.cells[col_name];
            icons << row.game_icon;
            EXPECT_EQ(row.cells[col_game], row.game_icon);
        }
        EXPECT_EQ(names, one.names);
        EXPECT_EQ(world.listed(), one.markers);
        EXPECT_EQ(icons, one.icons);
        EXPECT_EQ(world.list().original_rows, one.names.size());
        EXPECT_EQ(world.cell(one.markers[0], col_ready), "Yes");
    }
}

TEST(Scan_Originals, Without_a_game_folder_there_is_no_row) {
    Scan_World world;
    world.mission("vault.zip");
    world.program().ini.T2_GAME_LOCATION.clear();
    world.scan();
    EXPECT_EQ(world.listed(), QStringList({"vault.zip"}));
    EXPECT_EQ(world.cell("vault.zip", col_ready), "");
    EXPECT_EQ(world.found().caption, "Vantrosk (1.4194 - 3-March-09) - Found 1 (T2) FMs ");
    EXPECT_TRUE(world.log().contains("Removing blank FlexGrid row \r\nSetting original missions image \r\n"));
}

TEST(Scan_Games, Known_zips_decide_the_game_of_a_mission_that_does_not_tell_it) {
    for (const QString list : {"T1", "T2"}) {
        Scan_World world(list);
        for (const Known_Case &known : known_cases)
            Add_mission(world, known.zip, {{"start.mis", "m", {}}});
        world.scan();
        for (const Known_Case &known : known_cases) {
            const bool is_listed = (list == "T2") == (QString(known.game) == "T2");
            EXPECT_EQ(world.game_of(known.zip), is_listed ? QString(known.game) : QString("not listed"));
            if (!is_listed)
                continue;
            EXPECT_EQ(world.cell(known.zip, col_name).toStdString(), *known.name ? known.name : known.zip);
            EXPECT_EQ(world.cell(known.zip, col_author), known.author_set ? "Unknown Author" : "");
        }
    }
}

TEST(Scan_Games, Only_rows_marked_so_match_a_part_of_the_name) {
    Scan_World world;
    Add_mission(world, "old_f.zip", {{"start.mis", "m", {}}});
    Add_mission(world, "my_rosaries.zip", {{"start.mis", "m", {}}});
    world.scan();
    EXPECT_EQ(world.game_of("old_f.zip"), "");
    EXPECT_EQ(world.game_of("my_rosaries.zip"), "");
}

TEST(Scan_Games, Two_missions_are_known_by_their_name_in_any_zip) {
    Scan_World world;
    Add_mission(world, "heist.zip", {{"start.mis", "m", {}}}, "Title: Heist Society\r\n");
    Add_mission(world, "shining.zip", {{"start.mis", "m", {}}}, "Title: Shining Standards\r\n");
    world.scan();
    EXPECT_EQ(world.game_of("heist.zip"), "T2");
    EXPECT_EQ(world.game_of("shining.zip"), "T2");
}

TEST(Scan_Games, A_mission_of_an_unknown_game_shows_in_any_list_and_gets_no_record) {
    for (const Game &game : Games()) {
        Scan_World world(game.code);
        Add_mission(world, "odd.zip", {{"start.mis", "m", {}}}, "Title: An odd one\r\n");
        world.scan();
        EXPECT_EQ(world.cell("odd.zip", col_name), "An odd one") << game.code;
        EXPECT_EQ(world.game_of("odd.zip"), "");
        EXPECT_EQ(world.records(), QStringList());
    }
}

TEST(Scan_Games, Miss_files_without_titles_are_shock_or_with_missflag_thief_1) {
    Scan_World world("SS2");
    Add_mission(world, "shock.zip", {{"MISS20.mis", "m", {}}});
    Add_mission(world, "flag.zip", {{"miss20.mis", "m", {}}, {"strings/missflag.str", "s", {}}});
    world.scan();
    EXPECT_EQ(world.game_of("shock.zip"), "SS2");
    EXPECT_EQ(world.found().wrong_folder, QStringList({"flag.zip - Found to be for the game [T1] - "}));
}

TEST(Scan_Games, Dark_mod_marks_and_packs_are_told_apart_by_the_name) {
    Scan_World world("DMOD");
    Add_mission(world, "named.zip", {{"named.pk4", "p", {}}, {"darkmod.ini", "x", {}}},
                "Title: Named one\r\n");
    Add_mission(world, "unnamed.zip", {{"unnamed.pk4", "p", {}}, {"DarkMod.pk4", "x", {}}});
    Add_mission(world, "argued.zip", {{"argued.pk4", "p", {}}, {"dmarg.txt", "x", {}}},
                "Title: Argued one\r\n");
    Add_mission(world, "plain.zip", {{"plain.pk4", "p", {}}}, "Title: Plain one\r\n");
    world.scan();
    EXPECT_EQ(world.game_of("named.zip"), "DMOD");
    EXPECT_EQ(world.game_of("unnamed.zip"), "DOOM");
    EXPECT_EQ(world.game_of("argued.zip"), "DMOD");
    EXPECT_EQ(world.game_of("plain.zip"), "DOOM");
    EXPECT_EQ(world.listed().size(), 6);
}

TEST(Scan_Games, A_pack_without_a_readme_is_listed_and_reported) {
    Scan_World world("DMOD");
    world.zips("pack.zip", {{"maps/pack.pk4", "p", {}}});
    world.scan();
    EXPECT_EQ(world.game_of("pack.zip"), "DOOM");
    EXPECT_EQ(world.found().undetermined, QStringList({"pack.zip"}));
}

TEST(Scan_Games, Thief_3_is_known_by_its_map_files) {
    Scan_World world("T3");
    Add_mission(world, "ibt.zip", {{"map.ibt", "m", {}}});
    Add_mission(world, "cbt.zip", {{"map.CBT", "m", {}}});
    world.scan();
    EXPECT_EQ(world.game_of("ibt.zip"), "T3");
    EXPECT_EQ(world.game_of("cbt.zip"), "T3");
}

TEST(Scan_Games, Titles_of_the_original_missions_give_the_game_away) {
    const std::vector<std::pair<const char *, const char *>> cases{
        {"Running Interference", "T2"}, {"ambush!", "T2"},           {"Song of the Caverns", "TG"},
        {"THE MAGE TOWERS", "TG"},      {"Keeper's Training", "T1"}, {"Lord Bafford's Manor", "T1"},
    };
    for (const auto &[title, game] : cases) {
        Scan_World world(game);
        Add_mission(
            world, "x.zip",
            {{"miss20.mis", "m", {}},
             {"strings/titles.str", "a: \"" + QByteArray(title) + "\"\r\nb: \"My Own\"\r\n\r\n", {}}});
        world.scan();
        EXPECT_EQ(world.game_of("x.zip"), game) << title;
        EXPECT_EQ(world.cell("x.zip", col_name), "My Own") << title;
    }
}

TEST(Scan_Games, The_report_tells_how_the_game_was_found) {
    Scan_World world("SS2");
    const std::vector<std::pair<QString, QByteArray>> titles{
        {"a.zip", "Running Interference"}, {"b.zip", "Song of the Caverns"}, {"c.zip", "Keeper's training"}};
    for (const auto &[zip, title] : titles)
        Add_mission(world, zip, {{"miss20.mis", "m", {}}, {"titles.str", "x: \"" + title + "\"\r\n", {}}});
    world.scan();
    const QString note = "Game details not found in Readme, Titles.str file for ";
    EXPECT_EQ(world.found().wrong_folder,
              QStringList({"a.zip - Found to be for the game [T2] - " + note + "Thief 2",
                           "b.zip - Found to be for the game [TG] - " + note + "Thief Gold",
                           "c.zip - Found to be for the game [T1] - " + note + "Thief 1"}));
}

TEST(Scan_Games, Titles_give_a_name_only_to_a_mission_without_one) {
    Scan_World world;
    const QByteArray titles = "a: \"Ambush!\"\r\nb: \"The \"Inner\" Name\r\n\r\nc: \"Later\"\r\n\r\n";
    Add_mission(world, "bare.zip", {{"miss20.mis", "m", {}}, {"titles.str", titles, {}}});
    Add_mission(world, "named.zip", {{"miss20.mis", "m", {}}, {"titles.str", titles, {}}},
                "Title: Named\r\n");
    world.scan();
    EXPECT_EQ(world.cell("bare.zip", col_name), "The Inner Name");
    EXPECT_EQ(world.cell("named.zip", col_name), "Named");
    EXPECT_EQ(world.game_of("named.zip"), "T2");
}

TEST(Scan_Games, Titles_correct_a_readme_that_says_thief_1_but_no_other) {
    Scan_World world;
    const std::vector<Zip_Entry> entries{{"miss20.mis", "m", {}}, {"strings/titles.str", thief_2_titles, {}}};
    Add_mission(world, "one.zip", entries, "Title: One\r\nGame: T1\r\n  Author: Ann\r\n");
    Add_mission(world, "gold.zip", entries, "Title: Gold\r\nGame: Thief Gold\r\n");
    world.scan();
    EXPECT_EQ(world.game_of("one.zip"), "T2");
    EXPECT_EQ(world.cell("one.zip", col_name), "One");
    EXPECT_EQ(world.found().wrong_folder, QStringList({"gold.zip - Found to be for the game [TG] - "}));
}

TEST(Scan_Games, Titles_are_read_only_beside_a_readme) {
    Scan_World world;
    world.zips("bare.zip", {{"miss20.mis", "m", {}}, {"strings/titles.str", thief_2_titles, {}}});
    world.scan();
    EXPECT_EQ(world.game_of("bare.zip"), "");
    EXPECT_EQ(world.cell("bare.zip", col_name), "bare.zip");
    EXPECT_TRUE(world.log().contains("WARNING misson file found but game not known\r\n"));
}

TEST(Scan_Games, A_short_game_text_is_a_code_and_a_long_one_is_mapped) {
    Scan_World world;
    Add_mission(world, "a.zip", {{"start.mis", "m", {}}}, "Title: A code\r\nGame: T2\r\n");
    Add_mission(world, "b.zip", {{"start.mis", "m", {}}}, "Title: A text\r\nGame: Thief II - Metal Age\r\n");
    Add_mission(world, "c.zip", {{"start.mis", "m", {}}}, "Title: Shadows\r\nGame: TDS\r\n");
    Add_mission(world, "d.zip", {{"start.mis", "m", {}}}, "Title: Equals\r\nGame = T2\r\n");
    world.scan();
    EXPECT_EQ(world.game_of("a.zip"), "T2");
    EXPECT_EQ(world.game_of("b.zip"), "T2");
    EXPECT_EQ(world.game_of("d.zip"), "T2");
    EXPECT_EQ(world.found().wrong_folder, QStringList({"c.zip - Found to be for the game [TDS] - "}));
}

TEST(Scan_Games, Thief_1_and_gold_show_each_others_missions_and_records) {
    for (const char *list : {"T1", "TG"}) {
        Scan_World world(list);
        world.mission("one.zip", "Title: One\r\nGame: Thief 1\r\n");
        world.mission("gold.zip", "Title: Gold\r\nGame: Thief Gold\r\n");
        world.mission("two.zip", "Title: Two\r\nGame: Thief 2\r\n");
        world.scan();
        world.scan();
        EXPECT_EQ(world.listed(), QStringList({"Original", "gold.zip", "one.zip"}));
        EXPECT_EQ(world.records().size(), 2) << "the second scan found both records";
        EXPECT_EQ(world.found().wrong_folder, QStringList({"two.zip - Found to be for the game [T2] - "}));
    }
}

TEST(Scan_Games, The_dark_mod_list_finds_the_records_of_doom) {
    Scan_World world("DMOD");
    world.zips("pack.zip", {{"pack.pk4", "p", {}}, {"readme.txt", "Title: A pack\r\nGame: Doom 3\r\n", {}}});
    world.scan();
    world.scan();
    EXPECT_EQ(world.listed(), QStringList({"Original DOOM3", "Original DMOD", "pack.zip"}));
    EXPECT_EQ(world.records().size(), 1);
    EXPECT_EQ(world.found().caption, "Vantrosk (1.4194 - 3-March-09) - Found 1 (DMOD) FMs ");
}

TEST(Scan_Games, A_zip_with_a_readme_but_no_mission_is_neither_listed_nor_reported) {
    Scan_World world;
    world.zips("texts.zip", {{"readme.txt", vault_readme, {}}});
    world.scan();
    EXPECT_EQ(world.listed(), QStringList({"Original"}));
    EXPECT_EQ(world.found().excess_page_path, "");
}

} // namespace vantrosk
