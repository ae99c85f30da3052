#include "library/Info_World.h"
#include "readme/mdlHTML_stuff.h"

using namespace vantrosk;

namespace {

struct Info_Zip : Info_World {
    QString page() {
        return QString::fromUtf8(program.files.read_file(program.fm.readme_page, 1 << 24).value);
    }
};

const Zip_Entry text_readme{"readme.txt", "Title : The Vault\nAuthor : Ann Lee\nGame : Thief 2\n", {}};

} // namespace

TEST_F(Info_Zip, The_whole_selection_of_a_mission) {
    examine({a_mission,
             {"miss21.mis", "m", {}},
             text_readme,
             {"strings/french/a.str", "x", {}},
             {"fam/wall.gif", "x", {}},
             {"snd/a.wav", "x", {}},
             {"VKTitle.jpg", "picture", {}},
             {"vkimages/one.jpg", "1", {}}});
    const QStringList fields{details().name,          details().author,    details().game,
                             program.TEXTFILENAME,    program.MISSIONFILE, program.WELCOMEPIC,
                             program.CURRENT_LOCATION};
    EXPECT_EQ(fields, (QStringList{"The Vault", "Ann Lee", "Thief 2", "readme.txt", "miss20.mis,miss21.mis,",
                                   "VKTitle.jpg", world.windows("zips/T2")}));
    EXPECT_EQ(program.fm.mission_files, (QStringList{"miss20.mis", "miss21.mis"}));
    EXPECT_EQ(details().languages, (std::array<QString, 7>{"", "French", "", "", "", "", ""}));
    EXPECT_EQ(details().features, (std::array<bool, 8>{1, 0, 1, 0, 0, 0, 0, 0}));
    EXPECT_EQ(details().picture_path, info_path("VKTitle.jpg"));
    EXPECT_EQ(info_files(),
              (QStringList{"VKIMAGES/", "VKIMAGES/one.jpg", "VKTitle.jpg", "readme.htm", "readme.txt"}));
    EXPECT_EQ(program.fm.readme_page, info_path("readme.htm"));
    EXPECT_EQ(world.ui.pages.last(), info_path("readme.htm"));
    EXPECT_EQ(world.ui.panel_1.mid(world.ui.panel_1.size() - 2), (QStringList{"Working", "Ready"}));
    EXPECT_EQ(world.ui.panel_2.last(), "Scan Complete");
    EXPECT_FALSE(program.screen.progress_visible);
    EXPECT_FALSE(program.screen.no_mission_selected);
    EXPECT_TRUE(program.screen.readme_tabs.empty());
    EXPECT_TRUE(details().install_enabled);
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST_F(Info_Zip, Sizes_are_those_of_the_file_and_of_what_it_unpacks_to) {
    examine({a_mission, {"big.crf", QByteArray(4 * 1024 * 1024, 'x'), {}}});
    const qint64 packed = world.read("zips/T2/vault.zip").size();
    EXPECT_EQ(details().size_text, QString::number(qRound64(packed / 10485.76) / 100.0) + " MB");
    EXPECT_EQ(details().unpacked_text, "4.04 MB");
    EXPECT_EQ(program.fm.total_uncompressed, qint64((4 * 1024 * 1024 + 7) * 1.009));
}

TEST_F(Info_Zip, Without_a_language_folder_it_is_english) {
    examine({a_mission, text_readme});
    EXPECT_EQ(details().languages, (std::array<QString, 7>{"English", "", "", "", "", "", ""}));
}

TEST_F(Info_Zip, What_the_last_selection_left_is_gone) {
    examine(
        {a_mission, text_readme, {"vktitle.gif", "p", {}}, {"vkimages/a.jpg", "1", {}}, {"de.osm", "x", {}}});
    examine({{"a.mis", "m", {}}, {"readme.vkml", "[VKTITLE]Two[/VKTITLE][VKNL]\n", {}}}, "T2", "two.zip");
    EXPECT_EQ(info_files(), (QStringList{"VKIMAGES/", "readme.htm", "readme.vkml"}));
    const QStringList state{program.TEXTFILENAME, program.WELCOMEPIC, program.MISSIONFILE,
                            details().picture_path, program.fm.recent_image};
    EXPECT_EQ(state, (QStringList{"", "", "a.mis,", "", ""}));
    EXPECT_EQ(details().features, (std::array<bool, 8>()));
}

TEST_F(Info_Zip, An_empty_list_and_no_current_row_do_nothing) {
    program.CURRENT_GAME = "T1";
    program.screen.list.rows.clear();
    Get_Info(program, "vault.zip");
    program.screen.list.rows = {Fm_Row()};
    program.screen.list.current_row = 0;
    Get_Info(program, "vault.zip");
    program.screen.list.rows[0].cells[col_zip] = "vault.zip";
    program.screen.list.current_row = -1;
    Get_Info(program, "vault.zip");
    EXPECT_EQ(program.CURRENT_GAME, "T1");
    EXPECT_TRUE(world.ui.pages.isEmpty());
}

TEST_F(Info_Zip, The_first_folder_that_holds_the_zip_is_taken) {
    world.zip("zips/second/vault.zip", {a_mission, text_readme});
    program.ini.T2_LOCATION = "*#*" + world.windows("zips/nowhere") + "*#**#*" +
                              world.windows("zips/second") + "\\*#*" + world.windows("zips/T2") + "*#*";
    examine({a_mission});
    EXPECT_EQ(program.CURRENT_LOCATION, world.windows("zips/second"));
    EXPECT_EQ(details().name, "The Vault");
}

TEST_F(Info_Zip, Folders_that_hold_a_mix_of_games_are_searched_last) {
    world.zip("zips/mix/vault.zip", {a_mission, text_readme});
    program.ini.TOTHER_LOCATION = world.windows("zips/mix") + "*#*";
    examine_again();
    EXPECT_EQ(program.CURRENT_LOCATION, world.windows("zips/mix"));
    EXPECT_EQ(details().name, "The Vault");
    examine({a_mission});
    EXPECT_EQ(program.CURRENT_LOCATION, world.windows("zips/T2"));
}

TEST_F(Info_Zip, Texts_without_conversion_are_shown_as_they_are) {
    program.tweaks.VIEW_TXT_AS_VKML = false;
    examine({a_mission, text_readme});
    EXPECT_EQ(program.fm.readme_page, info_path("readme.txt"));
    EXPECT_EQ(world.ui.pages.last(), info_path("readme.txt"));
    EXPECT_EQ(info_files(), (QStringList{"VKIMAGES/", "readme.txt"}));
}

TEST_F(Info_Zip, An_empty_readme_blanks_the_browser) {
    for (const char *name : {"readme.txt", "readme.vkml"}) {
        examine({a_mission, {name, "", {}}});
        EXPECT_EQ(world.ui.pages.last(), "about:blank");
        EXPECT_EQ(program.fm.readme_page, "");
    }
}

TEST_F(Info_Zip, No_readme_blanks_the_browser) {
    examine({a_mission, {"vktitle.jpg", "p", {}}});
    EXPECT_EQ(world.ui.pages.last(), "about:blank");
    EXPECT_EQ(details().picture_path, info_path("vktitle.jpg"));
}

TEST_F(Info_Zip, A_vkml_readme_gives_fields_and_page) {
    examine(
        {a_mission,
         {"readme.vkml",
          "[VKCENTER][VKTITLE]Harbour[/VKTITLE][VKNL]\n"
          "[VKFMSTRUCTURE]Game : Thief 2[/VKFMSTRUCTURE][VKNL]\n[VKAUTHOR]Author : Ann[/VKAUTHOR][VKNL]\n",
          {}}});
    const QStringList fields{details().name, details().author, details().game, program.CURRENT_GAME};
    EXPECT_EQ(fields, (QStringList{"Harbour", "Ann", "Thief 2", "T2"}));
    EXPECT_TRUE(page().contains("<td class='VKSUBTITLE'>A 'Thief 2' Fan Mission</td>"));
}

TEST_F(Info_Zip, A_long_name_of_a_vkml_readme_takes_smaller_letters) {
    const auto points = [&](int characters) {
        const QByteArray name(characters, 'n');
        examine({a_mission, {"readme.vkml", "[VKCENTER][VKTITLE]" + name + "[/VKTITLE][VKNL]\n", {}}});
        EXPECT_EQ(details().name.size(), characters);
        return Name_Points(program);
    };
    EXPECT_EQ(points(1), 14);
    EXPECT_EQ(points(33), 14);
    EXPECT_EQ(points(34), 12);
    EXPECT_EQ(points(200), 12);
    examine({a_mission, text_readme});
    EXPECT_EQ(Name_Points(program), 0);
}

namespace {

const Zip_Entry rtf_readme{
    "Readme.rtf",
    "{\\rtf1\\ansi\\ansicpg1250{\\info{\\title Title : Wrong}}\\b Title : P\\'f8\\'edstav\\par\r\n"
    "Author : Ann\\par\r\nGame : Thief 2\\par {\\pict 0102}}",
    {}};

} // namespace

TEST_F(Info_Zip, An_rtf_readme_is_shown_as_text_and_gives_the_fields) {
    examine({a_mission, rtf_readme});
    EXPECT_EQ(program.fm.readme_page, info_path("temprtf.htm"));
    EXPECT_EQ(info_files(), (QStringList{"Readme.rtf", "VKIMAGES/", "temprtf.htm", "temprtf.txt"}));
    EXPECT_EQ(QString::fromUtf8(world.read("home/info/temprtf.txt")),
              u"Title : P\u0159\u00EDstav\r\nAuthor : Ann\r\nGame : Thief 2\r\n"_qs);
    const QStringList fields{details().name, details().author, details().game, program.CURRENT_GAME};
    EXPECT_EQ(fields, (QStringList{u"P\u0159\u00EDstav"_qs, "Ann", "Thief 2", "T2"}));
    EXPECT_TRUE(page().contains("<td class='VKSUBTITLE'>A 'Thief 2' Fan Mission</td>"));
    EXPECT_FALSE(page().contains("Wrong"));
    EXPECT_TRUE(QString::fromUtf8(world.read("home/debug.log"))
                    .contains("Loading Rich Text File.\r\nRich Text File Loaded.\r\n"));
}

TEST_F(Info_Zip, An_rtf_readme_is_shown_as_its_author_formatted_it_with_the_tweak_off) {
    program.tweaks.VIEW_RTF_AS_VKML = false;
    examine({a_mission, {"Readme.rtf", "{\\rtf1\\qc{\\b Title : Vault}\\par Author : Ann\\par}", {}}});
    EXPECT_EQ(program.fm.readme_page, info_path("Readme.htm"));
    EXPECT_TRUE(page().contains(">Title : Vault</span></p>"));
    EXPECT_TRUE(page().contains("font-weight:bold"));
    EXPECT_EQ(details().name, "Vault");
    EXPECT_EQ(details().author, "Ann");
}

TEST_F(Info_Zip, An_rtf_readme_without_text_leaves_the_page_blank) {
    examine({a_mission, {"Readme.rtf", "{\\rtf1{\\pict 0102}}", {}}});
    EXPECT_EQ(program.fm.readme_page, "");
    EXPECT_EQ(details().name, "");
}

TEST_F(Info_Zip, A_contact_stands_in_for_a_missing_author) {
    examine({a_mission, {"readme.txt", "Contact : ann@example.org\nGame : Thief 2\n", {}}});
    EXPECT_EQ(details().author, "ann@example.org");
}

TEST_F(Info_Zip, A_zip_that_is_none_says_so_and_can_not_be_installed) {
    world.write("zips/T2/vault.zip", "this is <b>no</b> archive");
    examine_again();
    EXPECT_TRUE(page().contains("<span class='VKSUBTITLE'>This zip can not be read</span>"));
    EXPECT_FALSE(page().contains("<b>"));
    EXPECT_EQ(world.ui.pages.last(), program.fm.readme_page);
    const QStringList shown{details().name, details().size_text, details().game, program.MISSIONFILE,
                            program.CURRENT_GAME_PATH};
    EXPECT_EQ(shown, (QStringList{"", "", "", "", ""}));
    EXPECT_FALSE(details().install_enabled);
    EXPECT_TRUE(program.screen.no_mission_selected);
    EXPECT_EQ(records("game"), QStringList());
    EXPECT_EQ(world.ui.panel_1.last(), "Ready");
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST_F(Info_Zip, A_zip_that_is_gone_says_so_and_keeps_its_record) {
    record("T2", ",score", ",9");
    program.CURRENT_LOCATION = "C:\\before";
    examine_again();
    EXPECT_TRUE(page().contains("The file vault.zip is in none of the game's folders."));
    EXPECT_EQ(program.CURRENT_LOCATION, "C:\\before");
    EXPECT_EQ(records("score"), QStringList("9"));
}

TEST_F(Info_Zip, A_cut_off_zip_says_so) {
    world.zip("zips/T2/vault.zip", {a_mission, text_readme});
    world.write("zips/T2/vault.zip", world.read("zips/T2/vault.zip").left(60));
    examine_again();
    EXPECT_TRUE(page().contains("This zip can not be read"));
}

TEST_F(Info_Zip, A_zip_name_with_a_separator_leads_nowhere) {
    world.zip("zips/other/vault.zip", {a_mission});
    examine_again("T2", "..\\other\\vault.zip");
    EXPECT_TRUE(page().contains("This zip can not be read"));
    examine_again("T2", "../other/vault.zip");
    EXPECT_TRUE(page().contains("This zip can not be read"));
}

TEST_F(Info_Zip, Entries_that_would_leave_the_folder_are_passed_over) {
    examine({a_mission,
             text_readme,
             {"../evil.txt", "x", {}},
             {"..\\..\\evil.vkml", "x", {}},
             {"/evil.rtf", "x", {}},
             {"C:\\evil.vkml", "x", {}},
             {"a/../../vktitle.jpg", "x", {}},
             {"vkimages/../../evil.jpg", "x", {}}});
    EXPECT_EQ(info_files(), (QStringList{"VKIMAGES/", "readme.htm", "readme.txt"}));
    EXPECT_EQ(program.TEXTFILENAME, "readme.txt");
    QStringList strangers;
    for (const QString &name : Names(world.snapshot(""))) {
        if (name.contains("evil"))
            strangers << name;
    }
    EXPECT_EQ(strangers, QStringList());
}

TEST_F(Info_Zip, Of_two_readmes_of_one_name_the_chosen_one_is_shown) {
    examine({a_mission, {"readme.txt", "Title : Root\n", {}}, {"docs/README.TXT", "Title : Docs\n", {}}});
    EXPECT_EQ(details().name, "Root");
    EXPECT_EQ(info_files(), (QStringList{"VKIMAGES/", "readme.htm", "readme.txt"}));
}

TEST_F(Info_Zip, A_damaged_picture_does_not_take_the_readme_with_it) {
    world.zip("zips/T2/vault.zip", {a_mission, {"vktitle.jpg", "picture", {}}, text_readme});
    QByteArray bytes = world.read("zips/T2/vault.zip");
    bytes.replace(bytes.indexOf("picture"), 7, "PICTURE");
    world.write("zips/T2/vault.zip", bytes);
    program.trace.enabled = true;
    examine_again();
    EXPECT_EQ(details().name, "The Vault");
    EXPECT_EQ(details().picture_path, "");
    EXPECT_EQ(info_files(), (QStringList{"VKIMAGES/", "readme.htm", "readme.txt"}));
    EXPECT_FALSE(world.ui.trace.filter("vktitle.jpg").isEmpty());
}

TEST_F(Info_Zip, A_file_over_64_MiB_is_not_extracted) {
    examine({a_mission, text_readme, {"vktitle.jpg", QByteArray(64 * 1024 * 1024 + 1, 'x'), {}}});
    EXPECT_EQ(details().picture_path, "");
    EXPECT_EQ(info_files(), (QStringList{"VKIMAGES/", "readme.htm", "readme.txt"}));
    EXPECT_EQ(details().name, "The Vault");
}

TEST_F(Info_Zip, Readmes_that_were_passed_over_are_not_extracted) {
    examine({a_mission, {"more.txt", "x", {}}, text_readme, {"history.txt", "x", {}}});
    EXPECT_EQ(info_files(), (QStringList{"VKIMAGES/", "readme.htm", "readme.txt"}));
}

TEST_F(Info_Zip, Of_a_flood_of_pictures_a_thousand_are_extracted_and_the_readme_before_them) {
    std::vector<Zip_Entry> entries{a_mission};
    for (int i = 0; i < 1500; ++i)
        entries.push_back({"vkimages/p" + QByteArray::number(i) + ".gif", "x", {}});
    entries.push_back(text_readme);
    examine(entries);
    EXPECT_EQ(details().name, "The Vault");
    EXPECT_EQ(world.snapshot("home/info/VKIMAGES").size(), 999u);
}

TEST_F(Info_Zip, Hostile_names_and_texts_stay_text_on_the_page) {
    examine({a_mission,
             {"<img src=x onerror=alert(1)>.txt",
              "Title : <script>alert(1)</script>\nAuthor : A' onclick='x\nGame : Thief 2\n",
              {}}});
    EXPECT_EQ(details().name, "<script>alert(1)</script>");
    EXPECT_FALSE(page().contains("<script"));
    EXPECT_FALSE(page().contains("<img"));
    EXPECT_EQ(page().count("</style>"), 1);
}

TEST_F(Info_Zip, Names_in_other_letters_are_found) {
    examine({a_mission, {"čtimě.txt", "Title : Žluť\nGame : Thief 2\n", {}}});
    EXPECT_EQ(program.TEXTFILENAME, QStringLiteral("čtimě.txt"));
    EXPECT_EQ(details().name, QStringLiteral("Žluť"));
}

TEST_F(Info_Zip, Events_run_while_a_large_zip_is_read_and_not_for_every_entry) {
    std::vector<Zip_Entry> entries{a_mission, text_readme};
    for (int i = 0; i < 3000; ++i)
        entries.push_back({"fam/t" + QByteArray::number(i) + ".crf", "", {}});
    world.ui.pumped = 0;
    examine(entries);
    EXPECT_GE(world.ui.pumped, 90);
    EXPECT_LE(world.ui.pumped, 130);
    EXPECT_EQ(details().name, "The Vault");
}

TEST_F(Info_Zip, A_database_that_fails_shows_the_error_box_and_the_program_goes_on) {
    db_Execute(program, "DROP TABLE Table_Scores");
    examine({a_mission, text_readme});
    EXPECT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_EQ(world.ui.panel_1.last(), "Ready");
}
