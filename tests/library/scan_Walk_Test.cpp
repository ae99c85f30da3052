#include "scan_World.h"

#include "core/mdlFile_Functions.h"

#include <QFile>

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

QDateTime Local(int year, int month, int day) {
    return QDateTime(QDate(year, month, day), QTime(12, 0));
}

void Set_date(World &world, const QString &relative, const QDateTime &when) {
    QFile file(world.native(relative));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(when, QFileDevice::FileModificationTime));
}

} // namespace

TEST(Scan, A_mission_gets_its_row_its_record_and_its_caption) {
    Scan_World world;
    world.mission("vault.zip");
    Set_date(world, "zips/vault.zip", Local(2004, 6, 12));
    world.scan();
    const qint64 size = world.read("zips/vault.zip").size();
    EXPECT_EQ(world.listed(), QStringList({"Original", "vault.zip"}));
    EXPECT_EQ(world.cells("Original"), QStringList({"Thief 2 Original Missions", "Original", "", "", "", "",
                                                    "", "", "", "T2", "Yes", "", ""}));
    EXPECT_EQ(world.cells("vault.zip"),
              QStringList({"The Vault", "vault.zip", "Ann Author", QString("%1 Bytes").arg(size), "", "", "",
                           "", "", "", "", "20040612", ""}));
    EXPECT_EQ(world.game_of("vault.zip"), "T2");
    EXPECT_EQ(world.records().size(), 1);
    EXPECT_TRUE(world.records().value(0).startsWith("vault.zip|The Vault|Ann Author|T2|0|2004"))
        << world.records().value(0).toStdString();
    EXPECT_EQ(world.found().caption, "Vantrosk (1.4194 - 3-March-09) - Found 1 (T2) FMs ");
    EXPECT_EQ(world.ui.caption, world.found().caption);
    EXPECT_EQ(world.found().zip_count, 1);
    EXPECT_EQ(world.found().total_size, size);
    EXPECT_EQ(world.found().excess_page_path, "");
    EXPECT_EQ(world.info_files(), QStringList()) << "nothing stays in INFO";
}

TEST(Scan, A_second_scan_shows_the_same_cells_from_the_record) {
    Scan_World world;
    world.mission("vault.zip", "Title: The Thief's \"Vault\"\r\nAuthor: O'Hara\r\nGame: Thief 2\r\n");
    world.scan();
    const QStringList first = world.cells("vault.zip");
    EXPECT_EQ(first.value(0), "The Thief's Vault");
    EXPECT_TRUE(world.records().value(0).startsWith("vault.zip|The Thief\"s Vault|O\"Hara|T2|0|"));
    world.scan();
    EXPECT_EQ(world.cells("vault.zip"), first);
    EXPECT_EQ(world.records().size(), 1);
}

TEST(Scan, Normal_mode_does_not_open_a_zip_with_a_record) {
    Scan_World world;
    world.mission("vault.zip");
    world.scan();
    world.write("zips/vault.zip", "no zip at all");
    world.scan();
    EXPECT_EQ(world.cell("vault.zip", col_name), "The Vault");
    EXPECT_EQ(world.cell("vault.zip", col_size), "13 Bytes");
    EXPECT_EQ(world.found().undetermined, QStringList());
}

TEST(Scan, Fast_mode_passes_over_a_zip_without_a_record) {
    Scan_World world;
    world.mission("known.zip");
    world.scan();
    world.mission("new.zip");
    world.write("zips/broken.zip", "x");
    world.program().tweaks.SCAN_ZIPS = 2;
    world.scan();
    EXPECT_EQ(world.listed(), QStringList({"Original", "known.zip"}));
    EXPECT_EQ(world.found().zip_count, 3) << "all zips are counted";
    EXPECT_EQ(world.found().undetermined, QStringList());
    EXPECT_EQ(world.records().size(), 1);
}

TEST(Scan, Slow_mode_opens_a_zip_but_keeps_what_its_record_says) {
    Scan_World world;
    world.mission("vault.zip");
    Set_date(world, "zips/vault.zip", Local(2009, 1, 2));
    world.record("vault.zip", "My own name", "T2", "review = 'Good', Zip_Date = '2001/02/03'");
    world.program().tweaks.SCAN_ZIPS = 0;
    world.scan();
    EXPECT_EQ(world.cell("vault.zip", col_name), "My own name");
    EXPECT_EQ(world.cell("vault.zip", col_author), "Ann");
    EXPECT_EQ(world.cell("vault.zip", col_review), "Good");
    EXPECT_EQ(world.cell("vault.zip", col_zip_date), "20090102") << "the file's date is at hand";
    EXPECT_EQ(world.records().size(), 1);
}

TEST(Scan, Slow_mode_fills_what_a_record_lacks) {
    Scan_World world;
    world.mission("vault.zip");
    world.record("vault.zip", "", "T2");
    world.program().tweaks.SCAN_ZIPS = 0;
    world.scan();
    EXPECT_EQ(world.cell("vault.zip", col_name), "The Vault");
    EXPECT_EQ(world.cell("vault.zip", col_author), "Ann");
}

TEST(Scan, A_record_is_found_whatever_the_case_and_the_first_one_wins) {
    Scan_World world;
    world.mission("Vault.ZIP");
    world.record("VAULT.zip", "First", "T2");
    world.record("vault.zip", "Second", "T2");
    world.scan();
    const QStringList names{"First", "Second"};
    EXPECT_TRUE(names.contains(world.cell("Vault.ZIP", col_name)));
    EXPECT_EQ(world.listed(), QStringList({"Original", "Vault.ZIP"}));
    EXPECT_EQ(world.records().size(), 2);
}

TEST(Scan, The_record_fills_every_cell) {
    Scan_World world;
    world.mission("vault.zip");
    world.record("vault.zip", "Anna\"s Vault", "T2",
                 "score = 7, average_score = 8, last_played = #2024/03/05#, review = 'Fine', completed = 20, "
                 "Zip_Date = '2004/06/12', FM_Category = 'LO-City**TY-Thieves', author = 'Bob'");
    world.scan();
    const QString size = FormatSize(world.read("zips/vault.zip").size());
    EXPECT_EQ(world.cells("vault.zip"),
              QStringList({"Anna's Vault", "vault.zip", "Bob", size, "7", "8", "20240305", "Fine",
                           "EA,N,H,EX", "", "", "20040612", "LO-City**TY-Thieves"}));
    const Fm_Row &row = world.list().rows[1];
    EXPECT_EQ(row.score_picture, 7);
    EXPECT_EQ(row.group_score_picture, 8);
    EXPECT_EQ(world.found().completed, 1);
}

TEST(Scan, Only_zips_and_shock_missions_are_looked_at) {
    Scan_World world("SS2");
    const std::vector<Zip_Entry> entries{{"earth.mis", "m", {}}, {"readme.txt", "Game: SS2\r\n", {}}};
    world.zips("a.ss2mod", entries);
    world.zips("b.SS2Mod", entries);
    world.zips("c.Zip", entries);
    world.zips("d.7z", entries);
    world.zips("zip", entries);
    world.write("zips/readme.txt", "Title: x");
    world.scan();
    EXPECT_EQ(world.listed(), QStringList({"Original", "a.ss2mod", "b.SS2Mod", "c.Zip"}));
    EXPECT_EQ(world.found().zip_count, 3);
}

TEST(Scan, Two_folders_with_one_file_name_give_two_rows_sharing_one_record) {
    Scan_World world;
    world.mission("vault.zip");
    world.zip("more/VAULT.zip", {{"miss20.mis", "m", {}}, {"readme.txt", vault_readme, {}}});
    world.program().ini.T2_LOCATION = Join_folder_list({world.windows("zips"), world.windows("more")});
    for (int scan = 1; scan <= 2; ++scan) {
        world.scan();
        EXPECT_EQ(world.listed(), QStringList({"Original", "vault.zip", "VAULT.zip"})) << scan;
        EXPECT_EQ(world.records().size(), 1) << scan;
    }
    db_Execute(world.program(), "UPDATE Table_Scores SET score = 9");
    world.scan();
    EXPECT_EQ(world.list().rows[1].cells[col_score] + world.list().rows[2].cells[col_score], "99");
    EXPECT_EQ(world.program().CURRENT_LOCATION, world.windows("more"));
}

TEST(Scan, An_empty_entry_ends_the_walk_and_both_separators_are_read) {
    Scan_World world;
    world.mission("a.zip");
    world.zip("more/b.zip", {{"miss20.mis", "m", {}}, {"readme.txt", vault_readme, {}}});
    const QString slashed = world.windows("zips").replace('\\', '/');
    world.program().ini.T2_LOCATION = slashed + "/*#**#*" + world.windows("more") + "*#*";
    world.scan();
    EXPECT_EQ(world.listed(), QStringList({"Original", "a.zip"}));
}

TEST(Scan, A_folder_that_is_missing_is_told_once_and_the_others_are_walked) {
    Scan_World world;
    world.mission("vault.zip");
    world.program().ini.T2_LOCATION =
        Join_folder_list({world.windows("gone"), world.windows("zips"), world.windows("lost")});
    world.scan();
    EXPECT_EQ(world.listed(), QStringList({"Original", "vault.zip"}));
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_EQ(world.ui.boxes[0].title, "FM folder not found");
    EXPECT_EQ(world.ui.boxes[0].text, "Vantrosk can not find the folder " + world.native("gone") +
                                          ".\nVantrosk can not find the folder " + world.native("lost") +
                                          ".");
}

TEST(Scan, An_empty_folder_and_no_folder_give_the_original_missions_alone) {
    Scan_World world;
    world.scan();
    EXPECT_EQ(world.listed(), QStringList({"Original"}));
    world.program().ini.T2_LOCATION.clear();
    world.scan();
    EXPECT_EQ(world.listed(), QStringList({"Original"}));
    EXPECT_EQ(world.found().caption, "Vantrosk (1.4194 - 3-March-09) - Found 0 (T2) FMs ");
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST(Scan, A_new_mission_needs_the_tweak_to_be_recorded) {
    Scan_World world;
    world.mission("vault.zip");
    world.program().tweaks.AUTO_ADD_TO_DB = false;
    world.scan();
    EXPECT_EQ(world.listed(), QStringList({"Original", "vault.zip"}));
    EXPECT_EQ(world.records(), QStringList());
}

TEST(Scan, Quotes_in_zip_names_never_end_a_statement) {
    Scan_World world;
    world.mission("it's; DROP TABLE Table_Scores.zip");
    world.scan();
    world.scan();
    EXPECT_EQ(world.listed(), QStringList({"Original", "it's; DROP TABLE Table_Scores.zip"}));
    EXPECT_EQ(world.records().size(), 1);
}

TEST(Scan, A_database_that_refuses_a_record_is_told_once_and_the_list_is_whole) {
    Scan_World world;
    for (const char *name : {"a.zip", "b.zip", "c.zip"})
        world.mission(name);
    world.program();
    world.ui.on_pump = [&] {
        if (world.ui.pumped == 1)
            db_Execute(world.program(), "DROP TABLE Table_Scores");
    };
    world.ui.pumped = 0;
    world.scan();
    EXPECT_EQ(world.listed(), QStringList({"Original", "a.zip", "b.zip", "c.zip"}));
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_TRUE(world.ui.boxes[0].text.contains(" in procedure Get_archives of Form frmMain"))
        << world.ui.boxes[0].text.toStdString();
    EXPECT_FALSE(world.program().screen.busy);
}

TEST(Scan, A_database_that_can_not_be_asked_ends_the_scan_with_the_error_box) {
    Scan_World world;
    world.mission("a.zip");
    db_Execute(world.program(), "DROP TABLE Table_Scores");
    world.scan();
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_TRUE(world.ui.boxes[0].text.contains(" in procedure Get_archives of Form frmMain"));
    EXPECT_EQ(world.program().screen.status_panels[1], "Ready");
    EXPECT_FALSE(world.program().screen.busy);
    EXPECT_FALSE(world.program().screen.progress_visible);
}

TEST(Scan, The_panels_and_the_log_tell_each_step) {
    Scan_World world;
    world.mission("vault.zip");
    world.write("zips/note.txt", "x");
    world.program();
    world.ui.panel_1.clear();
    world.ui.panel_2.clear();
    world.scan();
    EXPECT_EQ(world.ui.panel_1, QStringList({"Please Wait", "Working", "Checking vault.zip",
                                             "Adding vault.zip to database", "Ready"}));
    EXPECT_EQ(world.ui.panel_2, QStringList({"", "0%", "50%", "100%", "100%"}));
    const QString rule(30, '#');
    const QStringList lines{
        "Debug log started at 19/11/2026 22:14:05",
        "===========================================",
        "Clearing the Flexgrid ",
        "Adding original missions option ",
        "Setting original missions image ",
        rule,
        "Found 2 files to check.",
        rule,
        "Scanning Folder " + world.windows("zips") + "\\",
        "Scanning Zip note.txt",
        "Zip note.txt scanned",
        "Scanning Zip vault.zip",
        "found MISS20.MIS thief 1/G/2/SS2/T2X/DM mission file. FM is considered a dark engine FM",
        "Extracting README.TXT readme file to scan",
        "Tidy up flexgrid row 2",
        "mission file found so checking to see if it can be added to the flexgrid, game is currently "
        "determined "
        "to be 'Thief 2'",
        "Game is NOW determined to be 'T2', FM is 'The Vault'",
        "Checking to see if this FM is suitable for the current button 'T2', Game is 'T2'",
        "FM can be added to Flexgrid",
        "FM added to database",
        "FM added to Flexgrid",
        "Zip vault.zip scanned",
    };
    EXPECT_EQ(world.log().split("\r\n", Qt::SkipEmptyParts), lines);
}

TEST(Scan, Events_come_through_and_a_second_scan_meanwhile_is_refused) {
    Scan_World world;
    world.mission("a.zip");
    world.mission("b.zip");
    world.program();
    int refused = 0;
    world.ui.on_pump = [&] {
        EXPECT_TRUE(world.program().screen.busy);
        Get_archives_of_game(world.program(), "T1");
        ++refused;
    };
    world.scan();
    EXPECT_EQ(refused, 3) << "once for the folder, once for each percent";
    EXPECT_EQ(world.found().game, "T2");
    EXPECT_EQ(world.listed(), QStringList({"Original", "a.zip", "b.zip"}));
    EXPECT_FALSE(world.program().screen.busy);
}

TEST(Scan, State_of_the_previous_list_is_forgotten) {
    Scan_World world;
    Program &program = world.program();
    program.CURRENT_GAME = "T1";
    program.CURRENT_GAME_PATH = "C:\\Thief";
    program.MISSIONFILE = "X";
    program.custom_name = "Quake";
    program.FM_PANEL = "old.zip";
    world.mission("vault.zip");
    world.scan();
    EXPECT_EQ(program.CURRENT_GAME, "");
    EXPECT_EQ(program.CURRENT_GAME_PATH, "");
    EXPECT_EQ(program.MISSIONFILE, "");
    EXPECT_EQ(program.custom_name, "");
    EXPECT_EQ(program.FM_PANEL, "");
    EXPECT_EQ(program.SELECTED_GAME_TAB, "T2");
    EXPECT_EQ(program.CURRENT_LOCATION, world.windows("zips"));
    EXPECT_EQ(world.ui.pages.last(), "about:blank");
}

TEST(Scan, An_unknown_game_has_no_list) {
    Scan_World world;
    world.mission("vault.zip");
    world.scan();
    Get_archives_of_game(world.program(), "DOOM");
    EXPECT_EQ(world.listed(), QStringList({"Original", "vault.zip"}));
}

} // namespace vantrosk
