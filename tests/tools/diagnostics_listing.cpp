#include "tools/Diagnostics_World.h"
#include "tools/diagnostics/Game_Diagnostic.h"
#include "tools/diagnostics/Reference_File.h"
#include "tools/diagnostics/Reference_Names.h"

#include <sys/stat.h>

namespace vantrosk {
namespace {

TEST_F(Diagnostics, A_listing_holds_its_heading_and_every_file_with_size_and_date) {
    put("thief2.exe", "12345");
    put("Strings/Žluť.str", "", "2026-11-21 18:04:59");
    const QString name = create_reference_file(world.program(), game(), "T2");
    EXPECT_EQ(name, "DIAG_T2_20261119_221405.VKDR");
    EXPECT_EQ(reference(name), (QStringList{"FILECOUNT:2", "INFO: Initial Pre VK Use Reference File For T2",
                                            "DATECREATED:20261119", "thief2.exe,5,05/04/2000 10:00:07",
                                            "Strings\\Žluť.str,0,21/11/2026 18:04:59", ""}));
}

TEST_F(Diagnostics, A_listing_after_an_install_names_the_mission) {
    put("thief2.exe", "1");
    const QString name =
        create_reference_file(world.program(), game(), "Thief The Metal Age", "Calendra's Legacy");
    EXPECT_EQ(name, "DIAG_T2_Calendra's Legacy.VKDR");
    EXPECT_EQ(reference(name)[1],
              "INFO: After FM install Reference File For Calendra's Legacy on game Thief The Metal Age");
}

TEST_F(Diagnostics, No_folder_and_an_empty_one_give_no_listing_and_no_box) {
    EXPECT_EQ(create_reference_file(world.program(), world.windows("games/gone"), "T2"), "");
    EXPECT_EQ(create_reference_file(world.program(), "", "T2"), "");
    EXPECT_EQ(create_reference_file(world.program(), game(), "T2"), "");
    EXPECT_EQ(references(), QStringList{});
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST_F(Diagnostics, A_file_is_no_folder_to_list) {
    put("thief2.exe", "1");
    EXPECT_EQ(create_reference_file(world.program(), game() + "\\thief2.exe", "T2"), "");
}

TEST_F(Diagnostics, Files_come_before_subfolders_and_each_folder_before_the_next) {
    put("z.txt", "");
    put("a/b/deep.txt", "");
    put("a/z.txt", "");
    put("b/a.txt", "");
    put("a.txt", "");
    const QStringList lines = reference(create_reference_file(world.program(), game(), "T2"));
    QStringList paths;
    for (const QString &line : lines.mid(3))
        paths << line.section(',', 0, 0);
    EXPECT_EQ(paths, (QStringList{"a.txt", "z.txt", "a\\z.txt", "a\\b\\deep.txt", "b\\a.txt", ""}));
}

TEST_F(Diagnostics, Six_folders_deep_is_listed_and_seven_is_not) {
    put("1/2/3/4/5/6/six.txt", "");
    put("1/2/3/4/5/6/7/seven.txt", "");
    const QStringList lines = reference(create_reference_file(world.program(), game(), "T2"));
    EXPECT_EQ(lines[0], "FILECOUNT:1");
    EXPECT_EQ(lines[3], "1\\2\\3\\4\\5\\6\\six.txt,0,05/04/2000 10:00:07");
    EXPECT_EQ(lines.size(), 5);
}

TEST_F(Diagnostics, A_linked_folder_is_neither_listed_nor_entered) {
    put("real.txt", "");
    world.write("elsewhere/secret.txt", "x");
    ASSERT_TRUE(QFile::link(world.native("elsewhere"), world.native("games/Thief 2/out")));
    ASSERT_TRUE(QFile::link(world.native("games/Thief 2"), world.native("games/Thief 2/loop")));
    ASSERT_TRUE(QFile::link(world.native("nowhere"), world.native("games/Thief 2/dangling")));
    EXPECT_EQ(reference(create_reference_file(world.program(), game(), "T2"))[0], "FILECOUNT:1");
}

TEST_F(Diagnostics, Pipes_are_passed_over) {
    put("real.txt", "");
    ASSERT_EQ(::mkfifo(QFile::encodeName(world.native("games/Thief 2/pipe")).constData(), 0600), 0);
    EXPECT_EQ(reference(create_reference_file(world.program(), game(), "T2"))[0], "FILECOUNT:1");
}

TEST_F(Diagnostics, Thief_3_is_listed_from_its_root_under_its_code) {
    put_at("games/T3/System/T3.EXE", "x", "2004-11-17 00:00:00");
    put_at("games/T3/CONTENT/a.ibt", "x", "2004-11-17 00:00:00");
    for (const char *given : {"games/T3/System", "games/T3"}) {
        const QString name =
            create_reference_file(world.program(), world.windows(given), "Thief 3 - Deadly Shadows");
        EXPECT_EQ(name, "DIAG_T3_20261119_221405.VKDR");
        EXPECT_EQ(reference(name)[0], "FILECOUNT:2");
        EXPECT_EQ(reference(name)[1], "INFO: Initial Pre VK Use Reference File For Thief 3 - Deadly Shadows");
        EXPECT_EQ(reference(name)[4], "System\\T3.EXE,1,17/11/2004 00:00:00");
    }
    EXPECT_EQ(create_reference_file(world.program(), world.windows("games/T3") + "\\SYSTEM\\", "T3"),
              "DIAG_T3_20261119_221405.VKDR");
}

TEST_F(Diagnostics, Names_that_would_leave_the_folder_or_that_no_file_can_have_become_plain) {
    put("a", "");
    EXPECT_EQ(create_reference_file(world.program(), game(), "T2", "../../a\\b:c*?\"<>|\r\nd"),
              "DIAG_T2_.._.._a_b_c________d.VKDR");
    const QString custom = create_reference_file(world.program(), game(), "..\\Quake/1", "x");
    EXPECT_EQ(custom, "DIAG_.._Quake_1_x.VKDR");
    EXPECT_EQ(references().size(), 2);
    const QString longest =
        create_reference_file(world.program(), game(), QString(300, u'ž'), QString(300, u'ž'));
    EXPECT_EQ(longest, "DIAG_" + QString(20, u'ž') + "_" + QString(80, u'ž') + ".VKDR");
    EXPECT_EQ(references().size(), 3);
}

TEST_F(Diagnostics, A_line_break_in_a_mission_s_name_ends_no_line) {
    put("a", "");
    const QString name = create_reference_file(world.program(), game(), "T2", "x\r\nFILECOUNT:9");
    EXPECT_EQ(reference(name)[1], "INFO: After FM install Reference File For x  FILECOUNT:9 on game T2");
}

TEST_F(Diagnostics, A_folder_that_can_not_be_made_shows_the_error_box) {
    put("a", "");
    world.program();
    QFile::remove(world.native("home/references"));
    ASSERT_TRUE(QDir(world.native("home/references")).removeRecursively());
    world.write("home/references", "a file is in the way");
    EXPECT_EQ(create_reference_file(world.program(), game(), "T2"), "");
    ASSERT_EQ(world.ui.boxes.size(), 1U);
    EXPECT_TRUE(world.ui.boxes[0].text.contains("in procedure create_reference_file of Form frmGameDiag"))
        << world.ui.boxes[0].text.toStdString();
}

TEST_F(Diagnostics, A_game_is_known_by_code_name_and_caption) {
    for (const auto &[told, code] : std::initializer_list<std::pair<const char *, const char *>>{
             {"T1", "T1"},
             {"tg", "TG"},
             {"Thief Gold", "TG"},
             {"Thief Deadly Shadows", "T3"},
             {"Thief 3 - Deadly Shadows", "T3"},
             {"Thief 3", "T3"},
             {"T2X", "T2X"},
             {"Dark Metal", "DM"},
             {"DOOM", "DMOD"},
             {"Doom 3", "DMOD"},
             {"The Dark Mod", "DMOD"},
             {"System Shock 2", "SS2"},
             {"SS2", "SS2"},
             {"Custom Game", "CUSTOM"},
             {"My Quake", "My Quake"},
         })
        EXPECT_EQ(Listing_code(told), code) << told;
}

TEST_F(Diagnostics, A_tab_lists_the_files_of_its_own_code_and_the_last_tab_what_no_other_lists) {
    for (const char *name : {"DIAG_T2_20261119_221405.VKDR", "DIAG_T2X_20261119_221405.VKDR",
                             "diag_t2_lower.vkdr", "DIAG_T2_Calendra.VKDR", "DIAG_T3_1.VKDR",
                             "DIAG_CUSTOM_1.VKDR", "DIAG_Quake_1.VKDR", "DIAG_T2_notes.txt", "T2_x.VKDR"})
        world.write(QString("home/references/") + name, "");
    world.make_folder("home/references/DIAG_T2_folder.VKDR");
    EXPECT_EQ(Reference_names(world.program(), "T2"),
              (QStringList{"DIAG_T2_20261119_221405.VKDR", "DIAG_T2_Calendra.VKDR", "diag_t2_lower.vkdr"}));
    EXPECT_EQ(Reference_names(world.program(), "T3"), QStringList{"DIAG_T3_1.VKDR"});
    EXPECT_EQ(Reference_names(world.program(), "TG"), QStringList{});
    EXPECT_EQ(Reference_names(world.program(), "CUSTOM"),
              (QStringList{"DIAG_CUSTOM_1.VKDR", "DIAG_Quake_1.VKDR", "DIAG_T2X_20261119_221405.VKDR"}));
}

TEST_F(Diagnostics, The_game_path_comes_from_the_settings_and_that_of_thief_3_is_its_root) {
    Program &program = world.program();
    program.ini.T2_GAME_LOCATION = "C:\\Games\\Thief2";
    program.ini.T3_GAME_LOCATION = "C:\\Systems\\T3\\sYstem";
    program.ini.DMOD_GAME_LOCATION = "C:\\Doom";
    program.custom_game_path = "C:\\Quake";
    EXPECT_EQ(Diag_folder(program, "T2"), "C:\\Games\\Thief2");
    EXPECT_EQ(Diag_folder(program, "T3"), "C:\\Systems\\T3");
    EXPECT_EQ(Diag_folder(program, "DMOD"), "C:\\Doom");
    EXPECT_EQ(Diag_folder(program, "CUSTOM"), "C:\\Quake");
    EXPECT_EQ(Diag_folder(program, "SS2"), "");
}

TEST_F(Diagnostics, After_an_install_the_folder_is_listed_when_the_user_wants_it) {
    put("thief2.exe", "x");
    Program &program = world.program();
    program.CURRENT_GAME = "T2";
    program.CURRENT_GAME_PATH = game();
    program.FM_PANEL = "frost.zip";
    Fm_Row row;
    row.cells[col_zip] = "Frost.zip";
    row.cells[col_name] = "Killing: Frost";
    program.screen.list.rows = {row};
    EXPECT_FALSE(Wants_reference_after_install(program));
    EXPECT_EQ(Create_reference_after_install(program), "");
    ASSERT_FALSE(Set_reference_after_install(program, true));
    EXPECT_TRUE(Wants_reference_after_install(world.program()));
    EXPECT_EQ(Create_reference_after_install(program), "DIAG_T2_Killing_ Frost.VKDR");
    EXPECT_EQ(reference("DIAG_T2_Killing_ Frost.VKDR")[1],
              "INFO: After FM install Reference File For Killing: Frost on game Thief The Metal Age");
    program.FM_PANEL = "Original";
    EXPECT_EQ(Create_reference_after_install(program), "");
    program.FM_PANEL = "unlisted.zip";
    program.CURRENT_GAME = "My Quake";
    EXPECT_EQ(Create_reference_after_install(program), "DIAG_My Quake_unlisted.zip.VKDR");
    ASSERT_FALSE(Set_reference_after_install(program, false));
    EXPECT_EQ(Create_reference_after_install(program), "");
    EXPECT_EQ(references().size(), 2);
}

} // namespace
} // namespace vantrosk
