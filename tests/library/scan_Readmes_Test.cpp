#include "scan_World.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

QByteArray Readme(const QByteArray &title) {
    return "Title: " + title + "\r\nAuthor: Ann\r\nGame: Thief 2\r\n";
}

const QByteArray vkml_readme = "[VKCENTER][VKTITLE]Tagged[/VKTITLE][VKNL]\r\n"
                               "[VKAUTHOR]Author : Ann Tag[/VKAUTHOR][VKNL]\r\n"
                               "[VKFMSTRUCTURE]Game : Thief 2[/VKFMSTRUCTURE][VKNL]\r\n";

/// One zip "vault.zip" of a mission with these readmes; the name that the scan gives it.
QString Name_with(std::vector<Zip_Entry> readmes, const QString &zip = "vault.zip") {
    Scan_World world;
    readmes.push_back({"miss20.mis", "m", {}});
    readmes.push_back({"titles.str", "a: \"Running Interference\"\r\n", {}});
    world.zips(zip, readmes);
    world.scan();
    EXPECT_EQ(world.info_files(), QStringList());
    return world.cell(zip, col_name);
}

} // namespace

TEST(Scan_Readmes, A_vkml_readme_is_taken_whatever_the_order) {
    EXPECT_EQ(Name_with({{"readme.vkml", vkml_readme, {}}, {"readme.txt", Readme("Plain"), {}}}), "Tagged");
    EXPECT_EQ(Name_with({{"readme.txt", Readme("Plain"), {}}, {"readme.vkml", vkml_readme, {}}}), "Tagged");
    EXPECT_EQ(Name_with({{"a.rtf", "{\\rtf1 x}", {}}, {"readme.VKML", vkml_readme, {}}, {"b.rtf", "x", {}}}),
              "Tagged");
}

TEST(Scan_Readmes, A_vkml_readme_gives_all_three_fields) {
    Scan_World world;
    world.zips("vault.zip", {{"a.mis", "m", {}}, {"x/readme.vkml", vkml_readme, {}}});
    world.scan();
    EXPECT_EQ(world.cell("vault.zip", col_name), "Tagged");
    EXPECT_EQ(world.cell("vault.zip", col_author), "Ann Tag");
    EXPECT_EQ(world.game_of("vault.zip"), "T2");
}

TEST(Scan_Readmes, A_rich_text_readme_gives_all_three_fields) {
    Scan_World world;
    world.zips("vault.zip",
               {{"a.mis", "m", {}},
                {"A.rtf", "{\\rtf1 Title: Decoy\\par}", {}},
                {"x/Readme.rtf",
                 "{\\rtf1\\ansi\\ansicpg1250{\\info{\\title Title: Wrong}}\\b Title: P\\'f8\\'edstav\\par "
                 "Author: Ann\\~Rich\\line Game: Thief 2\\par}",
                 {}}});
    world.scan();
    EXPECT_EQ(world.cell("vault.zip", col_name), u"P\u0159\u00EDstav"_qs);
    EXPECT_EQ(world.cell("vault.zip", col_author), u"Ann\u00A0Rich"_qs);
    EXPECT_EQ(world.game_of("vault.zip"), "T2");
    EXPECT_EQ(QString::fromUtf8(world.read("home/temp/temprtf.txt")),
              u"Title: P\u0159\u00EDstav\r\nAuthor: Ann\u00A0Rich\r\nGame: Thief 2\r\n"_qs);
    EXPECT_EQ(world.info_files(), QStringList());
}

TEST(Scan_Readmes, A_broken_rich_text_readme_is_read_as_far_as_it_goes) {
    EXPECT_EQ(Name_with({{"a.rtf", "{\\rtf1{\\b Title: Cut\\par Author: A", {}}}), "Cut");
    EXPECT_EQ(Name_with({{"a.rtf", Readme("Plain"), {}}}), "Plain");
    EXPECT_EQ(Name_with({{"a.rtf", "", {}}}), "vault.zip");
}

TEST(Scan_Readmes, A_rich_text_readme_shuts_out_the_text_readmes) {
    EXPECT_EQ(Name_with({{"readme.txt", Readme("Plain"), {}}, {"story.rtf", "{\\rtf1 x}", {}}}), "vault.zip");
    EXPECT_EQ(Name_with({{"story.rtf", "{\\rtf1 x}", {}}, {"readme.txt", Readme("Plain"), {}}}), "vault.zip");
}

TEST(Scan_Readmes, The_log_names_the_rich_text_readme_that_was_chosen) {
    const std::vector<std::pair<std::vector<Zip_Entry>, QString>> cases{
        {{{"a.rtf", "x", {}}, {"b.rtf", "x", {}}}, "A.RTF"},
        {{{"a.rtf", "x", {}}, {"readme.rtf", "x", {}}}, "README.RTF"},
        {{{"a.rtf", "x", {}}, {"documentation.rtf", "x", {}}}, "DOCUMENTATION.RTF"},
        {{{"a.rtf", "x", {}}, {"fminfo.rtf", "x", {}}}, "FMINFO.RTF"},
        {{{"a.rtf", "x", {}}, {"vault.rtf", "x", {}}}, "VAULT.RTF"},
        {{{"readme.rtf", "x", {}}, {"vault.rtf", "x", {}}}, "README.RTF"},
    };
    for (const auto &[entries, chosen] : cases) {
        Scan_World world;
        std::vector<Zip_Entry> all = entries;
        all.push_back({"a.mis", "m", {}});
        world.zips("vault.zip", all);
        world.scan();
        EXPECT_TRUE(world.log().contains("Extracting " + chosen + " readme file to scan\r\n"))
            << chosen.toStdString();
    }
}

TEST(Scan_Readmes, The_rules_choose_among_text_readmes) {
    const std::vector<std::pair<QByteArray, QString>> second_and_name{
        {"readme.txt", "Second"},     {"mission-info.txt", "Second"}, {"vault.txt", "Second"},
        {"my_readme1.txt", "Second"}, {"overview.txt", "Second"},     {"notes.txt", "zzz first"},
    };
    for (const auto &[second, name] : second_and_name) {
        // The first stays extracted beside a second one that is taken; files are read by their names.
        const QString found =
            Name_with({{"zzz.txt", Readme("zzz first"), {}}, {"docs/" + second, Readme("Second"), {}}});
        EXPECT_EQ(found, name) << second.toStdString();
    }
}

TEST(Scan_Readmes, After_readme_txt_no_other_text_is_taken) {
    EXPECT_EQ(Name_with({{"readme.txt", Readme("Right"), {}},
                         {"a_readme.txt", Readme("Wrong"), {}},
                         {"vault.txt", Readme("Wrong"), {}},
                         {"fminfo.txt", Readme("Wrong"), {}}}),
              "Right");
}

TEST(Scan_Readmes, Selected_texts_are_read_by_name_until_all_is_known) {
    EXPECT_EQ(Name_with({{"b.txt", "Author: Bob\r\nGame: Thief 2\r\n", {}},
                         {"a_readme.txt", "Title: From a\r\n", {}},
                         {"readme.txt", Readme("From readme"), {}}}),
              "From a");
}

TEST(Scan_Readmes, Of_two_texts_of_one_name_the_later_content_counts) {
    EXPECT_EQ(Name_with({{"a/overview.txt", Readme("Earlier"), {}}, {"b/OVERVIEW.txt", Readme("Later"), {}}}),
              "Later");
}

TEST(Scan_Readmes, A_readme_with_bare_line_feeds_is_read) {
    EXPECT_EQ(Name_with({{"readme.txt", "Welcome!\nTitle: Fed\nGame: Thief 2\n", {}}}), "Fed");
    EXPECT_EQ(Name_with({{"readme.txt", "Welcome!\rTitle: Returned\rGame: Thief 2\r", {}}}), "Returned");
}

TEST(Scan_Readmes, Lines_under_seven_characters_are_passed_over) {
    EXPECT_EQ(Name_with({{"readme.txt", "Name:A\r\nName: B\r\nGame: Thief 2\r\n", {}}}), "B");
}

TEST(Scan_Readmes, Encodings_are_told_apart) {
    EXPECT_EQ(Name_with({{"readme.txt", "\xEF\xBB\xBFTitle: Na\xC3\xAFve\r\n", {}}}), "Na\u00EFve");
    EXPECT_EQ(Name_with({{"readme.txt", "Title: Na\xEFve\r\n", {}}}), "Na\u00EFve");
    EXPECT_EQ(Name_with({{"readme.txt", QByteArray("\xFF\xFET\0i\0t\0l\0e\0:\0 \0X\0\r\0\n\0", 22), {}}}),
              "X");
}

TEST(Scan_Readmes, The_swap_moves_the_article) {
    Scan_World world;
    world.mission("vault.zip");
    world.program().tweaks.THE_SWAP = true;
    world.scan();
    EXPECT_EQ(world.cell("vault.zip", col_name), "Vault, The ");
}

TEST(Scan_Readmes, A_long_readme_is_read_to_its_bound) {
    const QByteArray filler = QByteArray(100, 'x') + "\r\n";
    EXPECT_EQ(Name_with({{"readme.txt", filler.repeated(85000) + Readme("Beyond"), {}}}), "vault.zip");
    EXPECT_EQ(Name_with({{"readme.txt", filler.repeated(1000) + Readme("Within"), {}}}), "Within");
}

TEST(Scan_Bad_Zips, Files_that_are_no_zips_are_reported) {
    Scan_World world;
    world.mission("good.zip");
    const QByteArray good = world.read("zips/good.zip");
    world.write("zips/empty.zip", "");
    world.write("zips/text.zip", "this is no archive");
    world.write("zips/cut.zip", good.left(good.size() - 30));
    world.zips("hollow.zip", {});
    QDir().mkpath(world.native("zips/folder.zip"));
    QDir().mkpath(world.native("zips/subfolder"));
    QFile::link(world.native("zips/circle.zip"), world.native("zips/circle.zip"));
    world.scan();
    EXPECT_EQ(world.listed(), QStringList({"Original", "good.zip"}));
    QStringList reported = world.found().undetermined;
    reported.removeAll("circle.zip");
    EXPECT_EQ(reported, QStringList({"cut.zip", "empty.zip", "folder.zip", "hollow.zip", "text.zip"}));
    EXPECT_EQ(world.found().excess_page_path, world.windows("home") + "\\excessZips.htm");
    EXPECT_EQ(world.info_files(), QStringList());
}

TEST(Scan_Bad_Zips, Entries_that_point_outside_count_for_nothing_and_write_nothing) {
    Scan_World world;
    world.zips("outside.zip", {{"../miss20.mis", "m", {}},
                               {"..\\readme.txt", vault_readme, {}},
                               {"C:\\readme.txt", vault_readme, {}},
                               {"a/../../titles.str", "x", {}}});
    world.program();
    const QStringList before = Names(world.snapshot(""));
    world.scan();
    EXPECT_EQ(world.listed(), QStringList({"Original"}));
    EXPECT_EQ(world.found().undetermined, QStringList({"outside.zip"}));
    QStringList added = Names(world.snapshot(""));
    for (const QString &name : before)
        added.removeAll(name);
    EXPECT_EQ(added, QStringList({"home/debug.log", "home/excessZips.htm"}));
}

TEST(Scan_Bad_Zips, A_mission_with_a_hostile_entry_is_listed_by_its_good_ones) {
    Scan_World world;
    world.zips(
        "mixed.zip",
        {{"miss20.mis", "m", {}}, {"readme.txt", vault_readme, {}}, {"../../evil.txt", "Title: Evil", {}}});
    world.scan();
    EXPECT_EQ(world.cell("mixed.zip", col_name), "The Vault");
}

TEST(Scan_Bad_Zips, A_readme_that_can_not_be_read_gives_no_fields) {
    Scan_World world;
    world.zips("vault.zip", {{"start.mis", "m", {}}, {"readme.txt", vault_readme, {}}});
    QByteArray bytes = world.read("zips/vault.zip");
    bytes.replace("The Vault", "The Fault");
    world.write("zips/vault.zip", bytes);
    world.scan();
    EXPECT_EQ(world.cell("vault.zip", col_name), "vault.zip") << "its checksum is wrong";
}

TEST(Scan_Bad_Zips, Thousands_of_entries_are_walked_once) {
    Scan_World world;
    std::vector<Zip_Entry> entries;
    for (int i = 0; i < 20000; ++i)
        entries.push_back({"readme" + QByteArray::number(i) + ".txt", "nothing of use", {}});
    entries.push_back({"start.mis", "m", {}});
    world.zips("many.zip", entries);
    world.scan();
    EXPECT_EQ(world.cell("many.zip", col_name), "many.zip");
}

} // namespace vantrosk
