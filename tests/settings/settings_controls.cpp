#include "Settings_World.h"

#include "core/Language_Packs.h"
#include "ui/settings/Reference_Offers.h"

namespace vantrosk {
namespace {

TEST(Settings_Table, Has_a_row_for_each_game_in_the_order_of_the_game_table) {
    struct Row {
        const char *code, *caption, *file, *filter, *editor_filter;
    };
    constexpr Row rows[] = {
        {"T1", "Thief 1", "thief.exe", "Thief 1 (thief.exe)|thief.exe",
         "DromEd (dromed.exe)|dromed.exe|all exes (*.exe)|*.exe"},
        {"TG", "Thief Gold", "thief.exe", "Thief Gold (thief.exe)|thief.exe",
         "DromEd (dromed.exe)|dromed.exe|all exes (*.exe)|*.exe"},
        {"T2", "Thief 2", "thief2.exe", "Thief 2 (thief2.exe)|thief2.exe",
         "DromEd (dromed.exe)|dromed.exe|all exes (*.exe)|*.exe"},
        {"T3", "Thief 3", "t3.exe", " (t3.exe)|t3.exe",
         "T3Ed exe (t3ed.exe)|t3ed.exe|all exes (*.exe)|*.exe"},
        {"T2X", "T2X", "t2x.exe", "T2X (t2x.exe)|t2x.exe", ""},
        {"SS2", "System Shock 2", "shock2.exe", "SS2 exe (shock2.exe)|shock2.exe",
         "ShockEd (shocked.exe)|shocked.exe|all exes (*.exe)|*.exe"},
        {"DMOD", "The Dark Mod", "doom3.exe", "Doom3 Exe (doom3.exe)|doom3.exe|Exes (*.exe)|*.exe",
         "Doom3 exe (doom3.exe)|doom3.exe|all exes (*.exe)|*.exe"},
        {"DM", "Dark Metal", "", "Dark Metal (thief2.exe)|thief2.exe|Exes (*.exe)|*.exe",
         "DromEd (dromed.exe)|dromed.exe|all exes (*.exe)|*.exe"},
    };
    ASSERT_EQ(Game_Tabs().size(), std::size(rows));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_STREQ(Game_Tabs()[i].code, rows[i].code);
        EXPECT_STREQ(Game_Tabs()[i].caption, rows[i].caption);
        EXPECT_STREQ(Game_Tabs()[i].program_file, rows[i].file);
        EXPECT_STREQ(Game_Tabs()[i].filter, rows[i].filter);
        EXPECT_STREQ(Game_Tabs()[i].editor_filter, rows[i].editor_filter);
    }
    EXPECT_EQ(Find_Game_Tab("DOOM"), nullptr);
}

TEST(Settings_Table, Keeps_the_three_values_of_each_game_under_their_keys) {
    struct Row {
        const char *code, *game_key, *list_key, *editor_key;
    };
    constexpr Row rows[] = {{"T1", "T1GAME", "T1", "T1EDITOR"},
                            {"TG", "TGGAME", "TG", "TGEDITOR"},
                            {"T2", "T2GAME", "T2", "T2EDITOR"},
                            {"T3", "T3GAME", "T3", "T3EDITOR"},
                            {"T2X", "T2XGAME", "T2X", ""},
                            {"SS2", "SS2GAME", "SS2", "SS2EDITOR"},
                            {"DMOD", "DMODGAME", "DMOD", "DMODEDITOR"},
                            {"DM", "DMGAME", "DM", "DMEDITOR"}};
    Settings_World world;
    for (const Row &row : rows) {
        Game_Controls &game = world.controls.of(row.code);
        game = {QString("C:\\%1").arg(row.code),
                {QString("D:\\%1\\").arg(row.code)},
                QString("E:\\%1.exe").arg(row.code)};
    }
    ASSERT_FALSE(Save_Settings(world.program(), world.controls));
    const QStringList lines = QString::fromUtf8(world.read("home/Vantrosk.ini")).split("\r\n");
    const auto value = [&](const char *key) {
        return lines.value(lines.indexOf(QString("[%1]").arg(key)) + 1);
    };
    for (const Row &row : rows) {
        EXPECT_EQ(value(row.game_key), QString("C:\\%1").arg(row.code));
        EXPECT_EQ(value(row.list_key), QString("D:\\%1\\*#*").arg(row.code));
        if (*row.editor_key) {
            EXPECT_EQ(value(row.editor_key), QString("E:\\%1.exe").arg(row.code));
        }
    }
}

TEST(Settings, Opening_names_the_help_topic_and_fills_the_lists_without_empty_pieces) {
    Settings_World world;
    Program &program = world.program();
    program.ini.T2_LOCATION = "C:\\FMs\\*#**#*D:\\More\\*#*";
    program.ini.TOTHER_LOCATION = "E:\\Mixed*#*";
    program.ini.T2_GAME_LOCATION = "C:\\T2";
    program.ini.T2_EDITOR = "C:\\T2\\dromed.exe";
    world.reopen();
    EXPECT_EQ(program.HELPCONTEXT, "FILE___SETTINGS1");
    EXPECT_EQ(world.controls.of("T2").fm_folders, (QStringList{"C:\\FMs\\", "D:\\More\\"}));
    EXPECT_EQ(world.controls.of("T2").editor, "C:\\T2\\dromed.exe");
    EXPECT_EQ(world.folder_of("t2"), "C:\\T2");
    for (const char *code : {"T2", "SS2"}) {
        const auto listed = Listed_Folders(world.controls, code);
        ASSERT_FALSE(listed.empty());
        EXPECT_EQ(listed.back().folder, "E:\\Mixed");
        EXPECT_TRUE(listed.back().mixed);
    }
}

TEST(Settings, Opening_and_saving_loses_nothing_of_the_ini) {
    Settings_World world;
    int number = 0;
    for (const Ini_Pair &pair : Main_ini_pairs(world.program()))
        switch (Main_ini_kind(pair.key)) {
        case Ini_Kind::folder_list:
            Set_main_ini_value(world.program(), pair.key, QString("C:\\ä, %1*#*d:/x/*#*").arg(++number));
            break;
        case Ini_Kind::folder:
        case Ini_Kind::file:
            Set_main_ini_value(world.program(), pair.key, QString("C:\\%1\\").arg(++number));
            break;
        case Ini_Kind::boolean:
            Set_main_ini_value(world.program(), pair.key, "True");
            break;
        case Ini_Kind::integer:
            Set_main_ini_value(world.program(), pair.key, "32");
            break;
        case Ini_Kind::text:
            Set_main_ini_value(world.program(), pair.key, pair.key == "LANGUAGECODE" ? "CZ" : "Text");
        }
    ASSERT_FALSE(Write_Main_Ini(world.program()));
    const QByteArray before = world.read("home/Vantrosk.ini");
    world.reopen();
    ASSERT_FALSE(Save_Settings(world.program(), world.controls));
    EXPECT_EQ(world.read("home/Vantrosk.ini"), before);
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST(Settings, A_folder_of_mixed_games_is_kept_once_and_shown_on_every_tab) {
    Settings_World world;
    EXPECT_TRUE(Add_Folder(world.controls, "T2", "D:\\FMs\\"));
    EXPECT_FALSE(Add_Folder(world.controls, "T2", "d:/fms"));
    Mark_Mixed(world.controls, "T2", "D:\\FMs\\", true);
    EXPECT_FALSE(Add_Folder(world.controls, "SS2", "D:\\FMs"));
    ASSERT_FALSE(Save_Settings(world.program(), world.controls));
    EXPECT_EQ(world.program().ini.TOTHER_LOCATION, "D:\\FMs\\*#*");
    EXPECT_EQ(world.program().ini.T2_LOCATION, "");
    Mark_Mixed(world.controls, "SS2", "D:\\FMs\\", false);
    ASSERT_FALSE(Save_Settings(world.program(), world.controls));
    EXPECT_EQ(world.program().ini.TOTHER_LOCATION, "");
    EXPECT_EQ(world.program().ini.SS2_LOCATION, "D:\\FMs\\*#*");
    Remove_Folder(world.controls, "SS2", {"D:\\FMs\\", false});
    EXPECT_TRUE(Listed_Folders(world.controls, "SS2").empty());
}

TEST(Settings, A_folder_that_only_one_tab_lists_may_be_on_another_too) {
    Settings_World world;
    EXPECT_TRUE(Add_Folder(world.controls, "T1", "D:\\FMs\\"));
    EXPECT_TRUE(Add_Folder(world.controls, "TG", "D:\\FMs\\"));
}

TEST(Settings, Clearing_a_game_forgets_the_game_and_keeps_its_missions) {
    Settings_World world;
    for (const char *code : {"T3", "DMOD", "T2"})
        world.controls.of(code) = {"C:\\x", {"D:\\y\\"}, "C:\\e.exe"};
    world.controls.t3_saves = "C:\\saves";
    world.controls.dark_mod_installed = true;
    Clear_Game(world.controls, "T2");
    EXPECT_EQ(world.controls.t3_saves, "C:\\saves");
    EXPECT_TRUE(world.controls.dark_mod_installed);
    Clear_Game(world.controls, "T3");
    Clear_Game(world.controls, "DMOD");
    for (const char *code : {"T3", "DMOD", "T2"}) {
        EXPECT_EQ(world.folder_of(code), "");
        EXPECT_EQ(world.controls.of(code).editor, "");
        EXPECT_EQ(world.controls.of(code).fm_folders, QStringList{"D:\\y\\"});
    }
    EXPECT_EQ(world.controls.t3_saves, "");
    EXPECT_FALSE(world.controls.dark_mod_installed);
}

TEST(Settings, The_other_settings_are_kept_and_the_menus_follow) {
    Settings_World world;
    QStringList rebuilt;
    Set_Later_Step(world.program(), Later_Step::build_config_menu, [&] { rebuilt << "Config_menu"; });
    world.controls.downloads = " http://missions.example ";
    world.controls.toolbar_size = 24;
    world.controls.check_for_updates = true;
    ASSERT_FALSE(Save_Settings(world.program(), world.controls));
    EXPECT_EQ(world.program().ini.DOWNLOADS_URL, "http://missions.example");
    EXPECT_EQ(world.program().ini.MAIN_TOOLBAR, 24);
    EXPECT_TRUE(world.program().ini.CHECKFORUPDATES);
    EXPECT_TRUE(world.program().screen.menu.downloads);
    EXPECT_EQ(rebuilt, QStringList{"Config_menu"});
    world.controls.downloads.clear();
    ASSERT_FALSE(Save_Settings(world.program(), world.controls));
    EXPECT_FALSE(world.program().screen.menu.downloads);
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST(Settings, Another_language_is_told_and_takes_the_code_of_its_row) {
    Settings_World world;
    world.write("home/languages/Languages.ini",
                "; codes\r\n\r\n/ more\r\nDE Deutsch\r\nFR French\r\nno\r\n..\\x\r\n");
    world.write("home/languages/DE.ini", "");
    EXPECT_EQ(Available_Languages(world.program()), QStringList{"DE Deutsch"});
    world.controls.language = "DEUTSCH";
    ASSERT_FALSE(Save_Settings(world.program(), world.controls));
    EXPECT_EQ(world.said(),
              QStringList{"You will need to restart Vantrosk before the language changes take place"});
    EXPECT_EQ(world.program().ini.LANGUAGE, "DEUTSCH");
    EXPECT_EQ(world.program().ini.LANGUAGECODE, "DE");
    ASSERT_FALSE(Save_Settings(world.program(), world.controls));
    EXPECT_EQ(world.ui.boxes.size(), 1u);
    world.controls.language = "ENGLISH";
    ASSERT_FALSE(Save_Settings(world.program(), world.controls));
    EXPECT_EQ(world.ui.boxes.size(), 2u);
    EXPECT_EQ(world.program().ini.LANGUAGECODE, "");
}

TEST(Settings, The_language_table_ends_at_its_last_row) {
    Settings_World world;
    QByteArray index;
    for (char first = 'A'; first <= 'Z'; ++first)
        for (const char second : {'A', 'B', 'C'}) {
            index += QByteArray(1, first) + second + " Name\n";
            world.write(QString("home/languages/%1%2.ini").arg(QChar(first)).arg(QChar(second)), "");
        }
    world.write("home/languages/Languages.ini", index);
    EXPECT_EQ(Languages(world.program()).size(), 51u);
    EXPECT_EQ(Languages(world.program()).front().name, "NAME");
}

TEST(Settings, An_ini_that_can_not_be_written_is_a_fault) {
    Settings_World world;
    QFile::remove(world.native("home/Vantrosk.ini"));
    world.make_folder("home/Vantrosk.ini/x");
    EXPECT_TRUE(Save_Settings(world.program(), world.controls));
}

TEST(Settings, On_a_full_disk_the_ini_stays_as_it_was) {
    Settings_World world;
    ASSERT_FALSE(Save_Settings(world.program(), world.controls));
    const QByteArray before = world.read("home/Vantrosk.ini");
    Add_Folder(world.controls, "T2", "C:\\FMs\\");
    world.disk->refuse(1, 1000);
    EXPECT_TRUE(Save_Settings(world.program(), world.controls));
    EXPECT_EQ(world.read("home/Vantrosk.ini"), before);
}

TEST(Reference_Offer, No_makes_nothing) {
    Settings_World world;
    world.controls.of("T2").game_folder = "C:\\T2";
    Offer_Reference_File(world.program(), world.controls, "T2");
    EXPECT_EQ(world.said(), QStringList{Offer_text("Thief 2")});
    EXPECT_EQ(world.ui.boxes[0].default_answer, Answer::no);
    EXPECT_TRUE(world.listed.isEmpty());
}

TEST(Reference_Offer, Yes_makes_one_and_names_it) {
    Settings_World world;
    world.controls.of("T3").game_folder = "C:\\T3\\System";
    world.ui.answers = {Answer::yes};
    Offer_Reference_File(world.program(), world.controls, "T3");
    EXPECT_EQ(world.listed, QStringList{"T3 C:\\T3\\System"});
    EXPECT_EQ(
        world.said(),
        (QStringList{Offer_text("Thief 3 - Deadly Shadows"),
                     "Reference File created as DIAG_T3_20260303_1200.VKDR.\r\n\r\nFor future reference, "
                     "please use the GAME DIAGNOSTIC TOOL under TOOLS - GENERAL TOOLS."}));
}

TEST(Reference_Offer, The_file_is_that_of_the_diagnostic_tool) {
    Settings_World world;
    world.drive_c("T3/System/t3.exe");
    world.drive_c("T3/user.ini");
    world.controls.make_reference = Make_Reference_File;
    world.controls.of("T3").game_folder = "C:\\T3\\System";
    world.ui.answers = {Answer::yes};
    Offer_Reference_File(world.program(), world.controls, "T3");
    const QStringList names = Names(world.snapshot("home")).filter(".VKDR");
    ASSERT_EQ(names.size(), 1);
    const QString name = names[0].section('/', -1);
    EXPECT_TRUE(name.startsWith("DIAG_T3_"));
    EXPECT_TRUE(world.said().last().startsWith("Reference File created as " + name + "."));
    EXPECT_TRUE(world.read("home/" + names[0]).contains("Thief 3 - Deadly Shadows"));
    EXPECT_TRUE(world.read("home/" + names[0]).contains("user.ini"));
}

TEST(Reference_Offer, A_file_that_is_not_made_is_told) {
    Settings_World world;
    world.reference_fails = true;
    world.ui.answers = {Answer::yes};
    Offer_Reference_File(world.program(), world.controls, "SS2");
    EXPECT_EQ(world.said().last(), "Failed to create Reference File, error may have been displayed");
}

} // namespace
} // namespace vantrosk
