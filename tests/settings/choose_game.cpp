#include "Settings_World.h"

#include "ui/settings/Choose_Folder.h"
#include "ui/settings/Chosen_Game.h"

namespace vantrosk {
namespace {

const QString no_scripts =
    "Warning, convict.osm file has not been found. In order to play Thief 1/Gold Fan "
    "Missions, you will need this file.\r\nTo obtain it please visit http://vantrosk.example";

QString Same_folder_text(const QString &missing, const QString &chosen) {
    return QString(
               "If you do not have %1 on your PC, you will need to set your %1 game location to be the same "
               "as your %2 one, otherwise you will not be able to play %1 FMs.\r\n\r\nWould you like "
               "Vantrosk "
               "to do this for you?")
        .arg(missing, chosen);
}

/// The user points at that file of drive C, and answers.
void Locate(Settings_World &world, const char *code, const QString &file, std::deque<Answer> answers = {}) {
    world.ui.boxes.clear();
    world.ui.answers = std::move(answers);
    world.ui.files.push_front("C:\\" + QString(file).replace('/', '\\'));
    Locate_Game(world.program(), world.controls, code);
}

TEST(Choose_File, The_dialog_has_the_tabs_filter_and_begins_where_games_usually_are) {
    Settings_World world;
    Locate_Game(world.program(), world.controls, "T2");
    ASSERT_EQ(world.ui.file_requests.size(), 1u);
    EXPECT_EQ(world.ui.file_requests[0].filter, "Thief 2 (thief2.exe)|thief2.exe");
    EXPECT_EQ(world.ui.file_requests[0].start_folder, "C:\\");
    world.make_folder("prefix/drive_c/Program Files (x86)");
    Locate_Game(world.program(), world.controls, "T2");
    EXPECT_EQ(world.ui.file_requests.back().start_folder, "C:\\Program Files (x86)");
    world.make_folder("prefix/drive_c/Old games/SS2");
    world.controls.of("SS2").game_folder = "C:\\Old games\\SS2";
    Locate_Game(world.program(), world.controls, "T2");
    EXPECT_EQ(world.ui.file_requests.back().start_folder, "C:\\Old games");
    Locate_Game(world.program(), world.controls, "SS2");
    EXPECT_EQ(world.ui.file_requests.back().start_folder, "C:\\Old games\\SS2");
}

TEST(Choose_File, A_cancelled_dialog_changes_nothing) {
    Settings_World world;
    for (const Game_Tab &tab : Game_Tabs()) {
        Locate_Game(world.program(), world.controls, tab.code);
        Locate_Missions(world.program(), world.controls, tab.code);
        Locate_Editor(world.program(), world.controls, tab.code);
        EXPECT_EQ(world.folder_of(tab.code), "");
        EXPECT_TRUE(world.controls.of(tab.code).fm_folders.isEmpty());
        EXPECT_EQ(world.controls.of(tab.code).editor, "");
    }
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST(Choose_File, The_folder_of_a_mission_is_added_once) {
    Settings_World world;
    world.ui.files = {"C:\\FMs, ä\\frost.zip", "c:\\fms, Ä\\other.zip"};
    Locate_Missions(world.program(), world.controls, "T2");
    Locate_Missions(world.program(), world.controls, "T2");
    EXPECT_EQ(world.controls.of("T2").fm_folders, QStringList{"C:\\FMs, ä\\"});
    EXPECT_EQ(world.ui.file_requests[0].title, "Find a Fan Mission zip file, select it and then click OPEN.");
    EXPECT_TRUE(world.ui.file_requests[0].filter.contains("*.zip"));
}

TEST(Choose_File, A_path_that_the_ini_can_not_keep_is_refused) {
    Settings_World world;
    world.ui.files = {"Z:\\FMs a*#*b\\frost.zip", "Z:\\Thief\n2\\thief2.exe", "Z:\\x\r\\dromed.exe"};
    Locate_Missions(world.program(), world.controls, "T2");
    Locate_Game(world.program(), world.controls, "T2");
    Locate_Editor(world.program(), world.controls, "T2");
    EXPECT_TRUE(world.controls.of("T2").fm_folders.isEmpty());
    EXPECT_EQ(world.folder_of("T2") + world.controls.of("T2").editor, "");
    ASSERT_EQ(world.ui.boxes.size(), 3u);
    EXPECT_EQ(world.said()[0],
              "Vantrosk can not keep the path /FMs a*#*b/frost.zip, because its name holds a "
              "line break or \"*#*\". Please rename the folder.");
}

TEST(Choose_File, The_editor_is_the_file_itself) {
    Settings_World world;
    world.make_folder("prefix/drive_c/T3/System");
    world.controls.of("T3").game_folder = "C:\\T3\\System";
    world.ui.files = {"C:\\T3Ed\\T3Ed.exe"};
    Locate_Editor(world.program(), world.controls, "T3");
    EXPECT_EQ(world.controls.of("T3").editor, "C:\\T3Ed\\T3Ed.exe");
    EXPECT_EQ(world.ui.file_requests[0].filter, "T3Ed exe (t3ed.exe)|t3ed.exe|all exes (*.exe)|*.exe");
    EXPECT_EQ(world.ui.file_requests[0].start_folder, "C:\\T3\\System");
}

TEST(Choose_File, A_disc_is_refused) {
    Settings_World world;
    world.registry({{"Software\\Wine\\Drives\\d:", "CDROM"}});
    const QString refusal =
        "WARNING: the game path location you have chosen is a CD/DVD drive. Fan Missions can "
        "not be extracted to these as they are read only. ";
    const QString hard_drive = refusal + "Please choose a location on your hard drive instead.";
    world.ui.files = {"D:\\Thief2\\thief2.exe", "d:\\t3.exe", "D:\\fm.zip", "D:\\other.exe"};
    Locate_Game(world.program(), world.controls, "T2");
    Locate_Game(world.program(), world.controls, "T3");
    Locate_Missions(world.program(), world.controls, "T2");
    Locate_Editor(world.program(), world.controls, "T3");
    EXPECT_EQ(world.said(),
              (QStringList{hard_drive,
                           refusal + "Please choose the T3.EXE located in the system folder of your Thief 3 "
                                     "install on your hard drive (by default this will be: c:\\program "
                                     "files\\Thief - Deadly Shadows\\System\\T3.exe).",
                           hard_drive, hard_drive}));
    EXPECT_EQ(world.folder_of("T2") + world.folder_of("T3"), "");
}

TEST(Choose_Game, Thief_1_without_gold_offers_the_same_folder_for_both) {
    Settings_World world;
    world.drive_c("Thief/thief.exe");
    world.drive_c("Thief/convict.osm");
    Locate(world, "T1", "Thief/thief.exe", {Answer::yes});
    EXPECT_EQ(world.said(), (QStringList{Same_folder_text("Thief Gold", "Thief 1"), Offer_text("Thief 1")}));
    EXPECT_EQ(world.folder_of("T1"), "C:\\Thief");
    EXPECT_EQ(world.folder_of("TG"), "C:\\Thief");
}

TEST(Choose_Game, Gold_without_thief_1_offers_it_the_other_way_and_no_copies_nothing) {
    Settings_World world;
    Locate(world, "TG", "Gold/thief.exe", {Answer::no});
    EXPECT_EQ(world.said(),
              (QStringList{Same_folder_text("Thief 1", "Thief Gold"), no_scripts, Offer_text("Thief Gold")}));
    EXPECT_EQ(world.folder_of("T1"), "");
    Locate(world, "T1", "Thief/thief.exe");
    EXPECT_EQ(world.said(), (QStringList{no_scripts, Offer_text("Thief 1")}));
    EXPECT_EQ(world.folder_of("TG"), "C:\\Gold");
}

TEST(Choose_Game, The_offer_makes_a_reference_file_of_the_chosen_folder) {
    Settings_World world;
    Locate(world, "T2X", "T2X/t2x.exe", {Answer::yes});
    EXPECT_EQ(world.listed, QStringList{"T2X C:\\T2X"});
    EXPECT_EQ(world.said()[0], Offer_text("T2X"));
}

TEST(Choose_Game, Thief_2_with_t2x_inside_sets_both) {
    Settings_World world;
    world.drive_c("Thief2/T2X.EXE");
    world.drive_c("Thief2/convict.osm");
    Locate(world, "T2", "Thief2/thief2.exe");
    EXPECT_EQ(world.said(),
              (QStringList{"Vantrosk has also detected T2X in your Thief 2 install, you will now be "
                           "able to play T2X via Vantrosk.",
                           Offer_text("Thief 2")}));
    EXPECT_EQ(world.folder_of("T2X"), "C:\\Thief2");
}

TEST(Choose_Game, Thief_2_without_t2x_asks_where_it_is) {
    const QString question =
        "T2X Install: Vantrosk has not found T2X in your Thief 2 folder, if you have T2X "
        "installed, please click YES and locate the T2X.exe file.";
    Settings_World world;
    world.drive_c("Thief2/convict.osm");
    Locate(world, "T2", "Thief2/thief2.exe");
    EXPECT_EQ(world.said(), (QStringList{question, Offer_text("Thief 2")}));
    EXPECT_EQ(world.folder_of("T2X"), "");
    world.ui.files = {"C:\\T2X\\t2x.exe"};
    Locate(world, "T2", "Thief2/thief2.exe", {Answer::yes});
    EXPECT_EQ(world.folder_of("T2X"), "C:\\T2X");
    Locate(world, "T2", "Thief2/thief2.exe");
    EXPECT_EQ(world.said(), QStringList{Offer_text("Thief 2")});
}

TEST(Choose_Game, Thief_2_and_dark_metal_do_not_share_a_folder) {
    const QStringList refusal{"You can not use the same Thief 2 install for Dark Metal AND Thief 2 FMs"};
    Settings_World world;
    world.controls.of("DM").game_folder = "C:\\Games\\THIEF2\\";
    Locate(world, "T2", "Games/Thief2/thief2.exe");
    EXPECT_EQ(world.said(), refusal);
    EXPECT_EQ(world.folder_of("T2"), "");
    world.controls.of("T2").game_folder = "C:\\Thief2";
    Locate(world, "DM", "thief2/thief2.exe");
    EXPECT_EQ(world.said(), refusal);
    Locate(world, "DM", "DarkMetal/thief2.exe");
    EXPECT_EQ(world.said(), QStringList{Offer_text("Dark Metal")});
    EXPECT_EQ(world.folder_of("DM"), "C:\\DarkMetal");
}

TEST(Choose_Game, A_dark_engine_game_that_reads_its_disc_is_asked_about_and_changed_only_at_yes) {
    struct Row {
        const char *code, *name, *folder;
    };
    for (const Row &row : {Row{"T1", "Thief The Dark Project", "crfs"}, Row{"TG", "Thief Gold", "crfs"},
                           Row{"T2", "Thief The Metal Age", "crfs"}, Row{"SS2", "System Shock 2", "RES"}}) {
        const QString question = QString("Your %1 is not optimized. Optimizing will reduce the use of the %1 "
                                         "CD.Would you like to optimize your game now?")
                                     .arg(row.name);
        Settings_World world;
        for (const char *other : {"T1", "TG", "T2X"})
            world.controls.of(other).game_folder = "C:\\other";
        const QByteArray config = "language english\r\nresname_base d:\\\r\nend\r\n";
        world.drive_c("Game/install.cfg", config);
        world.drive_c("Game/Cam.cfg", "x\r\n");
        world.drive_c("Game/convict.osm");
        world.drive_c("Game/MESH.CRF", "meshes");
        Locate(world, row.code, "Game/game.exe");
        EXPECT_EQ(world.said(), (QStringList{question, Offer_text(Find_Game_Tab(row.code)->caption)}));
        EXPECT_EQ(world.read("prefix/drive_c/Game/install.cfg"), config);
        EXPECT_EQ(world.read("prefix/drive_c/Game/Cam.cfg"), "x\r\n");
        Locate(world, row.code, "Game/game.exe", {Answer::yes});
        EXPECT_EQ(world.said()[1], "Optimisation is complete");
        EXPECT_EQ(world.read("prefix/drive_c/Game/install.cfg"),
                  QByteArray(config).replace("d:", QByteArray(row.folder) + "+d:"));
        EXPECT_EQ(world.read("prefix/drive_c/Game/OLDinstall.cfg"), config);
        EXPECT_EQ(world.read("prefix/drive_c/Game/Cam.cfg"), "x\r\nskip_starting_checks\r\n");
        EXPECT_EQ(world.read(QString("prefix/drive_c/Game/%1/MESH.CRF").arg(row.folder)), "meshes");
    }
}

TEST(Choose_Game, A_folder_without_rights_or_room_keeps_its_files_and_the_tab_is_filled_all_the_same) {
    Settings_World world;
    world.controls.of("T2X").game_folder = "C:\\other";
    world.drive_c("Game/install.cfg", "resname_base d:\\\r\n");
    world.drive_c("Game/Cam.cfg", "x\r\n");
    world.drive_c("Game/convict.osm");
    world.drive_c("Game/MESH.CRF", "meshes");
    const Snapshot before = world.snapshot("prefix/drive_c");
    world.disk->refuse(1, 1000);
    Locate(world, "T2", "Game/thief2.exe", {Answer::yes});
    world.disk->refuse(0, -1);
    EXPECT_EQ(world.snapshot("prefix/drive_c"), before);
    EXPECT_EQ(world.folder_of("T2"), "C:\\Game");
    EXPECT_EQ(world.said().last(), Offer_text("Thief 2"));
    EXPECT_FALSE(world.ui.trace.filter("CONFIG: Ignored Error in T1 Optomisation: (28) ").isEmpty());
}

TEST(Choose_Game, Thief_3_takes_the_saves_that_its_set_up_names) {
    Settings_World world;
    world.registry({{"Software\\Wow6432Node\\Ion Storm\\Thief - Deadly Shadows\\ION_ROOT", "C:\\T3"},
                    {"Software\\Wow6432Node\\Ion Storm\\Thief - Deadly Shadows\\SaveGamePath",
                     "C:\\users\\u\\My Documents\\T3 saves"}});
    world.drive_c("T3/user.ini", "[PCVertexPools]\r\nDynamicVertexPool=1\r\n");
    Locate(world, "T3", "T3/System/T3.exe");
    EXPECT_EQ(world.folder_of("T3"), "C:\\T3\\System");
    EXPECT_EQ(world.controls.t3_saves, "C:\\users\\u\\My Documents\\T3 saves");
    EXPECT_EQ(world.program().ini.T3_SAVE_GAME_LOCATION, "") << "nothing counts before it is saved";
    EXPECT_EQ(world.read("prefix/drive_c/T3/user.ini"), "[PCVertexPools]\r\nDynamicVertexPool=1\r\n");
    EXPECT_EQ(world.said(), QStringList{Offer_text("Thief 3 - Deadly Shadows")});
    world.registry({});
    Locate(world, "T3", "Other/System/T3.exe");
    EXPECT_EQ(world.controls.t3_saves, "C:\\users\\u\\My Documents\\T3 saves") << "what is not found stays";
}

const QString offer_mod =
    "Vantrosk has detected that you have not installed The Dark Mod yet, would you like "
    "Vantrosk to do this for you?";
const QString no_mod =
    "The Dark Mod Is Not Installed: Vantrosk has NOT detected The Dark Mod installed on your PC. "
    "You will not be able to play The Dark Mod FMs\r\n\r\nHowever you can still play Doom 3 FMs "
    "by selecting their zip file locations as per normal.";
const QString offer_library =
    "Install The Dark Mod dll: Vantrosk has detected that the DevIL.dll required to play "
    "The Dark Mod is not installed correctly, would you like Vantrosk to try to do this "
    "for you?";

TEST(Choose_Game, Doom_3_with_the_dark_mod_says_nothing) {
    Settings_World world;
    world.drive_c("Doom3/Darkmod.PK4");
    Locate(world, "DMOD", "Doom3/doom3.exe");
    EXPECT_EQ(world.said(), QStringList{Offer_text("The Dark Mod")});
    EXPECT_TRUE(world.controls.dark_mod_installed);
    Locate(world, "DMOD", "Other/doom3.exe");
    EXPECT_FALSE(world.controls.dark_mod_installed);
}

TEST(Choose_Game, Doom_3_without_the_dark_mod_offers_what_does_not_work_yet) {
    Settings_World world;
    Locate(world, "DMOD", "Doom3/doom3.exe", {Answer::yes});
    EXPECT_EQ(world.said(), (QStringList{offer_mod, "Nothing has occured as this is not yet functional",
                                         no_mod, Offer_text("The Dark Mod")}));
    Locate(world, "DMOD", "Doom3/doom3.exe", {Answer::no});
    EXPECT_EQ(world.said(), (QStringList{offer_mod, no_mod, Offer_text("The Dark Mod")}));
}

TEST(Choose_Game, A_missing_devil_library_is_taken_from_the_mod) {
    Settings_World world;
    world.drive_c("Doom3/darkmod.pk4");
    world.drive_c("Doom3/darkmod/devil.dll", "library");
    Locate(world, "DMOD", "Doom3/doom3.exe", {Answer::no});
    EXPECT_EQ(world.said(), (QStringList{offer_library, Offer_text("The Dark Mod")}));
    EXPECT_FALSE(world.exists("prefix/drive_c/Doom3/DevIL.dll"));
    Locate(world, "DMOD", "Doom3/doom3.exe", {Answer::yes});
    EXPECT_EQ(world.read("prefix/drive_c/Doom3/DevIL.dll"), "library");
    Locate(world, "DMOD", "Doom3/doom3.exe");
    EXPECT_EQ(world.said(), QStringList{Offer_text("The Dark Mod")});
}

TEST(Choose_Game, A_devil_library_that_is_nowhere_is_told) {
    Settings_World world;
    world.make_folder("prefix/drive_c/Doom3/darkmod");
    Locate(world, "DMOD", "Doom3/doom3.exe", {Answer::no, Answer::yes});
    ASSERT_EQ(world.ui.boxes.size(), 4u);
    EXPECT_EQ(world.said().mid(0, 2), (QStringList{offer_mod, offer_library}));
    EXPECT_TRUE(world.said()[2].startsWith("Install The Dark Mod dll: "));
    EXPECT_EQ(world.said()[3], Offer_text("The Dark Mod"));
}

} // namespace
} // namespace vantrosk
