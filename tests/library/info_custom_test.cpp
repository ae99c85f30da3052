#include "library/Get_archives.h"
#include "library/Info_World.h"

using namespace vantrosk;

namespace {

/// The list of a custom game "Quake Game", whose maps are "bsp" and "map" files.
struct Info_Custom : Info_World {
    Archives_Request request;

    Info_Custom() {
        world.make_folder("zips/quake");
        request.game_key = "CUSTOM";
        request.folders = world.windows("zips/quake") + "*#*";
        request.custom_name = "Quake Game";
        request.custom_extensions = "bsp**map";
        request.custom_game_path = "*#*" + world.windows("games/quake") + "\\";
        request.custom.backup_saves_path = world.windows("saves/quake");
    }

    void examine_custom(const std::vector<Zip_Entry> &entries, const QString &zip = "vault.zip") {
        world.zip("zips/quake/" + zip, entries);
        Get_archives(program, request);
        examine_again("CUSTOM", zip);
    }

    QStringList game() const {
        return {details().game, program.CURRENT_GAME, program.CURRENT_GAME_PATH, details().game_icon};
    }
    QStringList quake() { return {"CUSTOM - Quake Game", "Quake Game", game_path("quake"), "Quake Game"}; }
};

const Zip_Entry a_map{"maps/One.BSP", "map", {}};

} // namespace

TEST_F(Info_Custom, A_mission_of_the_game_is_known_by_its_extension) {
    examine_custom({a_map, Readme("Title : One\nAuthor : Ann\nGame : Thief 2\n")});
    EXPECT_EQ(game(), quake());
    EXPECT_EQ(program.MISSIONFILE, "One.BSP,");
    const QStringList fields{details().name, details().author, program.CURRENT_LOCATION};
    EXPECT_EQ(fields, (QStringList{"One", "Ann", world.windows("zips/quake")}));
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST_F(Info_Custom, Every_extension_counts_and_a_readme_is_not_needed) {
    examine_custom({{"a.map", "m", {}}, {"b.bsp", "m", {}}, {"c.bspx", "m", {}}, {"dbsp", "m", {}}});
    EXPECT_EQ(game(), quake());
    EXPECT_EQ(program.MISSIONFILE, "a.map,b.bsp,");
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST_F(Info_Custom, Nothing_but_readmes_and_missions_is_looked_at) {
    examine_custom({a_map,
                    {"vktitle.jpg", "p", {}},
                    {"vkimages/a.jpg", "p", {}},
                    {"titles.str", "x", {}},
                    {"a.wav", "x", {}},
                    {"a.vkl", "x", {}},
                    Readme("Title : One\n")});
    EXPECT_EQ(details().features, (std::array<bool, 8>()));
    EXPECT_EQ(details().picture_path, "");
    EXPECT_EQ(info_files(), (QStringList{"VKIMAGES/", "readme.htm", "readme.txt"}));
}

TEST_F(Info_Custom, Its_missions_come_before_those_of_other_games_under_the_same_extension) {
    set_up("DMOD");
    set_up("T3");
    request.custom_extensions = "pk4**ibt**mis";
    for (const char *name : {"a.pk4", "a.ibt", "miss20.mis"}) {
        examine_custom({{name, "m", {}}});
        EXPECT_EQ(game(), quake()) << name;
        EXPECT_EQ(program.MISSIONFILE, QString(name) + ",");
    }
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST_F(Info_Custom, A_thief_3_mission_in_the_list_is_thief_3) {
    set_up("T3");
    world.zip("zips/quake/vault.zip", {{"a.ibt", "m", {}}});
    Get_archives(program, request);
    examine_again("CUSTOM");
    EXPECT_EQ(game(), (QStringList{"Thief Deadly Shadows", "T3", game_path("T3"), "T3"}));
}

TEST_F(Info_Custom, Its_record_goes_by_the_name_of_the_game) {
    request.custom_extensions = "bsp";
    examine_custom({a_map, Readme("Title : One\nAuthor : Ann\n")});
    EXPECT_EQ(records("game"), QStringList("Quake Game"));
    db_Execute(program, "update Table_Scores set score = 7, review = 'fine'");
    record("T2", ",score", ",3");
    examine_again("CUSTOM");
    EXPECT_EQ(details().score, "7");
    EXPECT_EQ(details().review, "fine");
}

TEST_F(Info_Custom, Nothing_of_it_is_uploaded) {
    examine_custom({a_map});
    examine_again("CUSTOM");
    EXPECT_FALSE(details().score_upload);
    EXPECT_FALSE(details().keywords_upload);
}

TEST_F(Info_Custom, A_record_is_made_at_the_selection_when_the_scan_made_none) {
    examine_custom({a_map, Readme("Title : One's\nAuthor : Ann\n")});
    db_Execute(program, "DELETE FROM Table_Scores");
    examine_again("CUSTOM");
    EXPECT_EQ(records("zip_name") + records("game") + records("FM_name") + records("author"),
              (QStringList{"vault.zip", "Quake Game", "Ones", "Ann"}));
}

TEST_F(Info_Custom, The_undo_list_of_its_folder_tells_what_is_installed) {
    world.write("games/quake/current_install.txt",
                "[ZIP LOCATION]\r\nC:\\FMs\\vault.zip\r\n[ZIP NAME]\r\nvault.zip\r\n[ZIP CONTENTS]\r\n");
    examine_custom({a_map});
    EXPECT_EQ(program.fm.install_state, "installed");
    EXPECT_EQ(records("installed"), QStringList("1"));
}

TEST_F(Info_Custom, Its_kept_saves_are_told) {
    world.write("saves/quake/saves_vault.zip", "12345");
    examine_custom({a_map});
    EXPECT_EQ(details().saves_text, "Saves Zip (5 Bytes)");
    request.custom.backup_saves_path.clear();
    examine_custom({a_map});
    EXPECT_EQ(details().saves_text, "");
}

TEST_F(Info_Custom, The_folder_of_the_map_is_kept_where_missions_go_by_it) {
    examine_custom({a_map});
    EXPECT_EQ(program.fm.custom_mission_folder, "");
    request.custom.use_map_folder = true;
    examine_custom({{"id1/maps/one.bsp", "m", {}}});
    EXPECT_EQ(program.fm.custom_mission_folder, "ID1\\MAPS");
}

TEST_F(Info_Custom, The_path_of_the_map_is_kept_as_the_setting_wants_it) {
    struct Case {
        const char *setting, *entry, *path;
    };
    for (const Case &one : std::vector<Case>{{"", "base/maps/x/one.bsp", ""},
                                             {"TRUE", "base/maps/x/one.bsp", "base\\maps\\x\\"},
                                             {"FULL", "base/maps/x/one.bsp", "base\\maps\\x\\"},
                                             {"FULL*base\\maps", "base/maps/x/one.bsp", "x\\"},
                                             {"full*BASE/maps\\", "base/maps/x/one.bsp", "x\\"},
                                             {"FULL*other", "base/maps/x/one.bsp", "base\\maps\\x\\"},
                                             {"TRUE", "one.bsp", "\\"}}) {
        request.custom.full_folder_path = one.setting;
        examine_custom({{one.entry, "m", {}}});
        EXPECT_EQ(program.fm.custom_mission_path, one.path) << one.setting << " " << one.entry;
    }
}

TEST_F(Info_Custom, The_text_named_in_the_zips_name_is_the_readme) {
    examine_custom({a_map,
                    {"aaa.txt", "Title : Wrong\n", {}},
                    {"great'map.txt", "Title : Wrong too\n", {}},
                    {"greatmap.txt", "Title : Right\n", {}},
                    {"zzz.txt", "Title : Wrong again\n", {}}},
                   "Quake Game_great_map.zip");
    EXPECT_EQ(program.TEXTFILENAME, "greatmap.txt");
    EXPECT_EQ(details().name, "Right");
}

TEST_F(Info_Custom, A_text_in_a_folder_can_be_the_readme_and_readme_txt_stays) {
    examine_custom({a_map, {"docs/notes.txt", "Title : Notes\n", {}}});
    EXPECT_EQ(program.TEXTFILENAME, "notes.txt");
    examine_custom({a_map, Readme("Title : One\n"), {"vault.txt", "Title : Wrong\n", {}}});
    EXPECT_EQ(program.TEXTFILENAME, "readme.txt");
}

TEST_F(Info_Custom, Its_page_shows_the_picture_of_the_game) {
    const auto page = [this] {
        return QString::fromUtf8(program.files.read_file(program.fm.readme_page, 1 << 24).value);
    };
    const Zip_Entry text = Readme("Title : One\nAuthor : Ann\n");
    const Zip_Entry vkml{"readme.vkml", "[VKFMSTRUCTURE]Mission Title : One[/VKFMSTRUCTURE]\n", {}};
    examine_custom({a_map, text});
    EXPECT_FALSE(page().contains("rowspan"));
    world.write("home/custom_game_images/Quake Game_32.bmp", "BM");
    for (const Zip_Entry &readme : {text, vkml}) {
        examine_custom({a_map, readme});
        EXPECT_TRUE(page().contains("<img src='../custom_game_images/Quake Game_32.bmp' "
                                    "style='border:1 groove black;'></td><td class='VKTITLE'>One</td>"))
            << page().toStdString();
    }
    // What belongs to the game is no picture for a list of another.
    examine({text, a_mission});
    EXPECT_FALSE(page().contains("rowspan"));
}

TEST_F(Info_Custom, A_readme_alone_names_the_game_and_nothing_is_active) {
    examine_custom({Readme("Title : One\nGame : Thief 2\n")});
    EXPECT_EQ(game(), (QStringList{"CUSTOM - Quake Game", "", game_path("quake"), ""}));
    EXPECT_EQ(records("game"), QStringList());
}
