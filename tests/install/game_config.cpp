#include "install/Game_Config.h"

#include "install/Install_World.h"

#include <QFile>

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

TEST(Netplay_Config, The_five_keys_are_replaced_or_added_and_every_other_byte_stays) {
    Install_World world("SS2");
    world.game_has("cam.cfg", "; my\xf6 settings\r\nNetPlay 7 old\nhostaddr_default\r\nscreen 1\r\n\r\nlast");
    WriteNetplayConfig(world.program(), {true, " 10.0.0.1 ", "Go\r\nggles", "ignored"});
    EXPECT_EQ(world.game_file("cam.cfg"),
              "; my\xf6 settings\r\nnetplay 1\nhostaddr_default 10.0.0.1\r\nscreen 1\r\n\r\nlast\r\n"
              "charname_default Go  ggles\r\nnetplay_frontpage_default 1\r\ngamename_default ignored\r\n");
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_EQ(world.ui.boxes[0].kind, Box_Kind::information);
    EXPECT_EQ(world.ui.boxes[0].text,
              "You are configured to Join a System Shock 2 game. When starting please select option 6 "
              "(MULTI-PLAYER) then select to Join a game and follow on screen instructions.");
}

TEST(Netplay_Config, A_host_has_no_address) {
    Install_World world("SS2");
    world.game_has("cam.cfg", "");
    WriteNetplayConfig(world.program(), {false, "10.0.0.1", "Goggles", "My game"});
    EXPECT_EQ(world.game_file("cam.cfg"), "netplay 0\r\nhostaddr_default \r\ncharname_default Goggles\r\n"
                                          "netplay_frontpage_default 0\r\ngamename_default My game\r\n");
    EXPECT_EQ(world.ui.box_texts(),
              QStringList{"You are configured to host a System Shock 2 game. When starting please select "
                          "option 6 (MULTI-PLAYER) then select to host a game and follow on screen "
                          "instructions."});
}

TEST(Netplay_Config, The_first_state_is_kept_and_never_replaced) {
    Install_World world("SS2");
    world.game_has("cam.cfg", "the player's\r\n");
    WriteNetplayConfig(world.program(), {true, "1.1.1.1", "a", "b"});
    WriteNetplayConfig(world.program(), {false, "", "c", "d"});
    EXPECT_EQ(world.game_file("cam.cfg.VKBU"), "the player's\r\n");
    EXPECT_TRUE(world.game_file("cam.cfg").contains("charname_default c\r\n"));
}

TEST(Netplay_Config, Without_the_file_or_the_game_nothing_is_written_or_said) {
    Install_World world("SS2");
    WriteNetplayConfig(world.program(), {});
    world.program().ini.SS2_GAME_LOCATION.clear();
    WriteNetplayConfig(world.program(), {});
    EXPECT_EQ(Names(world.game()), QStringList());
    EXPECT_TRUE(world.ui.boxes.empty());
}

const QString question =
    "Your %1 is not optimized. Optimizing will reduce the use of the %1 CD.Would you like "
    "to optimize your game now?";
const QString done = "Optimisation is complete";
const QString no_scripts =
    "Warning, convict.osm file has not been found. In order to play Thief 1/Gold Fan "
    "Missions, you will need this file.\r\nTo obtain it please visit http://vantrosk.example";

/// A game that reads its resources from a disc.
class Minimal_World : public Install_World {
public:
    explicit Minimal_World(const QString &game_code) : Install_World(game_code) {
        write("disc/crf/bitmap.crf", "bitmaps of the disc");
        write("disc/crf/Obj.crf", "objects of the disc");
        game_has("MESH.CRF", "meshes in the folder");
        game_has("install.cfg", Config());
        game_has("convict.osm", "script");
        program();
    }
    QByteArray Config() const {
        return "cd_path D:\\\r\nlanguage english\r\nResname_base " + windows("disc/crf").toUtf8() +
               "+.\\patch\r\nload_path x\r\n1\r\n2\r\n3\r\n4\r\n5\r\n6\n7";
    }
    void optimise(Answer answer) {
        ui.boxes.clear();
        ui.answers = {answer};
        OptimiseDarkInstall(program(), game_path(), code);
    }
};

TEST(Optimise, Yes_gathers_the_resources_and_puts_the_folder_first) {
    Minimal_World world("T1");
    const QByteArray config = world.Config();
    world.optimise(Answer::yes);
    EXPECT_EQ(world.ui.box_texts(), (QStringList{question.arg("Thief The Dark Project"), done}));
    EXPECT_EQ(world.ui.boxes[0].buttons, Buttons::yes_no);
    EXPECT_EQ(world.game_file("OLDinstall.cfg"), config);
    EXPECT_EQ(world.game_file("install.cfg"),
              QByteArray(config).replace("Resname_base ", "Resname_base crfs+"));
    EXPECT_EQ(world.game_file("crfs/BITMAP.CRF"), "bitmaps of the disc");
    EXPECT_EQ(world.game_file("crfs/OBJ.CRF"), "objects of the disc");
    EXPECT_EQ(world.game_file("crfs/MESH.CRF"), "meshes in the folder");
    EXPECT_EQ(Names(world.snapshot(world.in_game("crfs"))),
              (QStringList{"BITMAP.CRF", "MESH.CRF", "OBJ.CRF"}));
    EXPECT_FALSE(world.exists(world.in_game("MESH.CRF")));
    EXPECT_EQ(world.read("disc/crf/bitmap.crf"), "bitmaps of the disc");
}

TEST(Optimise, Each_game_has_its_folder_and_its_files) {
    const QString thief = "BITMAP.CRF,BOOKS.CRF,DEFAULT.CRF,EDITOR.CRF,FAM.CRF,INTRFACE.CRF,MESH.CRF,"
                          "MOTIONS.CRF,OBJ.CRF,PAL.CRF,SND.CRF,STRINGS.CRF";
    const QString shock = "BITMAP.CRF,BOOK.CRF,EDITOR.CRF,FAM.CRF,FONTS.CRF,IFACE.CRF,INTRFACE.CRF,MESH.CRF,"
                          "MOTIONS.CRF,OBJ.CRF,OBJICON.CRF,PAL.CRF,SND.CRF,SND2.CRF,SONG.CRF,STRINGS.CRF";
    for (const char *game : {"T1", "TG", "T2", "SS2"}) {
        Minimal_World world(game);
        const bool is_shock = world.code == "SS2";
        for (const QString &name : (thief + "," + shock).split(','))
            world.write("disc/crf/" + name, "x");
        world.optimise(Answer::yes);
        const QString folder = is_shock ? "RES" : "crfs";
        EXPECT_EQ(Names(world.snapshot(world.in_game(folder))).join(','), is_shock ? shock : thief) << game;
        EXPECT_TRUE(world.game_file("install.cfg").contains("Resname_base " + folder.toUtf8() + "+")) << game;
    }
}

TEST(Optimise, No_changes_nothing_and_says_nothing) {
    Minimal_World world("T2");
    world.game_has("Cam.cfg", "a\r\n");
    const Snapshot before = world.game();
    world.optimise(Answer::no);
    EXPECT_EQ(world.ui.box_texts(), QStringList{question.arg("Thief The Metal Age")});
    EXPECT_EQ(world.game(), before);
}

TEST(Optimise, A_line_that_names_the_folder_asks_nothing_and_the_checks_are_skipped_all_the_same) {
    Minimal_World world("TG");
    world.game_has("install.cfg", "RESNAME_BASE .\\CRFS+d:\\\r\n");
    world.game_has("Cam.cfg", "movie_hardware 1");
    world.optimise(Answer::no);
    EXPECT_EQ(world.ui.box_texts(), QStringList{done});
    EXPECT_EQ(world.game_file("Cam.cfg"), "movie_hardware 1\r\nskip_starting_checks\r\n");
    EXPECT_EQ(world.game_file("Cam.cfg.VKBU"), "movie_hardware 1");
    world.optimise(Answer::no);
    EXPECT_TRUE(world.ui.boxes.empty());
    EXPECT_EQ(world.game_file("Cam.cfg.VKBU"), "movie_hardware 1");
}

TEST(Optimise, The_key_itself_is_not_the_shock_folder) {
    Minimal_World world("SS2");
    world.optimise(Answer::yes);
    EXPECT_EQ(world.ui.box_texts(), (QStringList{question.arg("System Shock 2"), done}));
}

TEST(Optimise, The_checks_line_counts_in_any_case) {
    Minimal_World world("T2");
    world.game_has("install.cfg", "resname_base crfs\r\n");
    world.game_has("Cam.cfg", "x\r\n  SKIP_Starting_checks \r\n");
    world.optimise(Answer::no);
    EXPECT_TRUE(world.ui.boxes.empty());
    EXPECT_FALSE(world.exists(world.in_game("Cam.cfg.VKBU")));
}

TEST(Optimise, An_older_copy_of_the_config_stays) {
    Minimal_World world("T2");
    world.game_has("OLDinstall.cfg", "the first");
    world.optimise(Answer::yes);
    EXPECT_EQ(world.game_file("OLDinstall.cfg"), "the first");
}

TEST(Optimise, Missing_scripts_are_told_for_all_but_shock) {
    for (const char *game : {"T1", "TG", "T2", "SS2"}) {
        Minimal_World world(game);
        world.game_has("install.cfg", "resname_base crfs+res\r\n");
        QFile::remove(world.native(world.in_game("convict.osm")));
        world.program().server_base_url = "http://vantrosk.example";
        world.optimise(Answer::no);
        EXPECT_EQ(world.ui.box_texts(), world.code == "SS2" ? QStringList() : QStringList{no_scripts});
    }
}

TEST(Optimise, A_resource_that_can_not_be_copied_is_traced_and_the_others_go_on) {
    Minimal_World world("T2");
    world.make_folder(world.in_game("crfs/BITMAP.CRF"));
    world.optimise(Answer::yes);
    EXPECT_EQ(world.ui.box_texts().last(), done);
    EXPECT_EQ(world.game_file("crfs/OBJ.CRF"), "objects of the disc");
    EXPECT_FALSE(world.ui.trace.filter("CONFIG: Ignored Error in T1 Optomisation: (").isEmpty());
    EXPECT_EQ(world.read("disc/crf/bitmap.crf"), "bitmaps of the disc");
}

TEST(Optimise, A_config_that_can_not_be_kept_is_not_switched) {
    Minimal_World world("T2");
    world.make_folder(world.in_game("OLDinstall.cfg"));
    const QByteArray config = world.game_file("install.cfg");
    world.optimise(Answer::yes);
    EXPECT_EQ(world.game_file("install.cfg"), config);
    EXPECT_EQ(world.game_file("MESH.CRF"), "meshes in the folder");
    EXPECT_FALSE(world.ui.box_texts().contains(done));
}

TEST(Optimise, A_config_without_the_line_or_no_config_asks_nothing) {
    for (const char *config : {"nothing here\r\n", ""}) {
        Minimal_World world("T2");
        world.game_has("install.cfg", config);
        if (!*config)
            QFile::remove(world.native(world.in_game("install.cfg")));
        world.optimise(Answer::yes);
        EXPECT_TRUE(world.ui.boxes.empty());
    }
}

} // namespace
} // namespace vantrosk
