#include "Startup_World.h"

#include "core/Profile_File.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct Start_Data : testing::Test {
    Startup_World start;
    World &world = start.world;
    Program &program() { return start.program(); }

    QStringList glossary_of(const QByteArray &file) {
        world.write("home/intellitext.txt", file);
        Load_Glossary(program());
        QStringList entries;
        for (const Glossary_Entry &entry : program().glossary)
            entries << entry.keyword + "=" + entry.text;
        return entries.mid(1);
    }
    QStringList quick_bar() {
        Read_Quick_Bar_Games(program());
        QStringList games;
        for (const Quick_Bar_Game &game : program().quick_bar_games)
            games << game.GameName + "|" + game.ToolTip + "|" + game.FMpath;
        return games;
    }
};

struct Template_Row {
    const char *type, *stored;
};

constexpr Template_Row templates[] = {
    {"Email_APlus",
     "I am just dropping you an email to let you know that I really enjoyed [TITLE], and gave it "
     "full marks, when is your next mission coming out%3F"},
    {"Email_High",
     "I am just dropping you an email to let you know that I enjoyed [TITLE] and gave it a high "
     "score."},
    {"Email_Average",
     "I am just dropping you an email to let you know that I liked [TITLE], however there were "
     "a few bits I was not keen on, but overall a good effort"},
    {"Email_Low",
     "I am just dropping you an email about [TITLE], thanks for releasing it into the community"},
    {"Email_Basic",
     "I am just dropping you an email about [TITLE]. I have not yet given it a score but overall "
     "its quite good so far"},
};

} // namespace

TEST_F(Start_Data, A_glossary_file_shorter_than_any_entry_holds_none) {
    EXPECT_EQ(glossary_of("[a]"), QStringList());
    EXPECT_EQ(glossary_of("[a]\nb"), QStringList{"a=b"});
}

TEST_F(Start_Data, The_game_table_has_its_rows_in_its_own_order) {
    Fill_Game_Table(program());
    QStringList rows;
    for (const Game_Table_Row &row : program().game_table)
        rows << row.name + "|" + row.code + "|" + row.number;
    EXPECT_EQ(rows, QStringList({"Thief The Dark Project|T1|1", "Thief Gold|TG|2", "Thief The Metal Age|T2|3",
                                 "Thief Deadly Shadows|T3|4", "Thief 2X|T2X|15", "System Shock 2|SS2|16",
                                 "The Dark Mod|DMOD|12", "Dark Metal|DM|8", "||"}));
}

TEST_F(Start_Data, The_game_table_takes_the_folders_at_each_reading_and_writing) {
    ASSERT_TRUE(Start_Program(program()));
    Main_Ini &ini = program().ini;
    ini.T1_LOCATION = "a", ini.TG_LOCATION = "b", ini.T2_LOCATION = "c", ini.T3_LOCATION = "d";
    ini.T2X_LOCATION = "e", ini.SS2_LOCATION = "f", ini.DMOD_LOCATION = "g", ini.DM_LOCATION = "h";
    EXPECT_EQ(program().game_table[0].fm_folders, "");
    ASSERT_FALSE(Write_Main_Ini(program()));
    const auto folders = [&] {
        QString text;
        for (const Game_Table_Row &row : program().game_table)
            text += row.code + row.fm_folders + " ";
        return text;
    };
    EXPECT_EQ(folders(), "T1a TGb T2c T3d T2Xe SS2f DMODg DMh  ");
    start.renew();
    ASSERT_TRUE(Start_Program(program()));
    EXPECT_EQ(folders(), "T1a TGb T2c T3d T2Xe SS2f DMODg DMh  ");
}

TEST_F(Start_Data, The_games_of_the_quick_bar_are_read) {
    world.write(
        "home/Vantrosk_QBAR.ini",
        "[QBAR_1]\r\nPath=C:\\hl.exe\r\nToolTip=Half\r\nisgame=FALSE\r\n\r\n"
        "[QBAR_2]\r\nPath=C:\\q.exe\r\nToolTip= Quake maps \r\nisgame=TRUE\r\nFMpath=\"C:\\Q maps\"\r\n"
        "GameName=Quake\r\n\r\n"
        "[qbar_4]\r\nGAMENAME=Unreal\r\nTOOLTIP=\r\nISGAME=True\r\nFMPATH=D:\\U\r\n"
        "[QBAR_10]\r\nISGAME=TRUE\r\nGameName=Tenth\r\n"
        "[QBAR_11]\r\nISGAME=TRUE\r\nGameName=Eleventh\r\n"
        "[QBAR_0]\r\nISGAME=TRUE\r\nGameName=None\r\n");
    EXPECT_EQ(quick_bar(), QStringList({"Quake|Quake maps|C:\\Q maps", "Unreal||D:\\U", "Tenth||"}));
}

TEST_F(Start_Data, Without_a_quick_bar_file_there_are_no_games) {
    program().quick_bar_games.push_back({"old", "", ""});
    EXPECT_EQ(quick_bar(), QStringList());
    world.write("home/Vantrosk_QBAR.ini", QByteArray("\0\xff[QBAR_1\r\nISGAME", 18));
    EXPECT_EQ(quick_bar(), QStringList());
}

TEST(Profile_File, Values_are_found_as_Windows_finds_them) {
    const Profile_File file({"key=outside", "[First]", "; note", " Key = value ", "key=second",
                             "empty=", "quoted=\"a b\"", "single='x'", "half=\"x", "equals=a=b", "no sign",
                             "[Second] tail", "key=other", "[first]", "late=1", "[Unclosed", "u=7"});
    EXPECT_EQ(file.value("first", "KEY"), "value");
    EXPECT_EQ(file.value("First", "empty"), "");
    EXPECT_EQ(file.value("First", "quoted"), "a b");
    EXPECT_EQ(file.value("First", "single"), "x");
    EXPECT_EQ(file.value("First", "half"), "\"x");
    EXPECT_EQ(file.value("First", "equals"), "a=b");
    EXPECT_EQ(file.value("First", "no sign"), "");
    EXPECT_EQ(file.value("First", "late"), "");
    EXPECT_EQ(file.value("Second", "key"), "other");
    EXPECT_EQ(file.value("Unclosed", "u"), "7");
    EXPECT_EQ(file.value("Third", "key"), "");
    EXPECT_EQ(file.value("", "key"), "");
    EXPECT_FALSE(file.is_true("First", "key"));
    EXPECT_TRUE(Profile_File({"[A]", "b=true"}).is_true("A", "B"));
}

TEST_F(Start_Data, The_glossary_begins_with_its_own_entry) {
    Load_Glossary(program());
    ASSERT_EQ(program().glossary.size(), 1u);
    EXPECT_EQ(program().glossary[0].keyword, "Garrett");
    EXPECT_EQ(program().glossary[0].text, "Garrett is the main character of the Thief games.");
}

TEST_F(Start_Data, The_glossary_takes_the_pairs_of_lines_of_its_file) {
    EXPECT_EQ(
        glossary_of("a heading\r\n[Hammerite]\r\nAn order's 'man'.\r\nno pair\r\n[Pagan]\r\nWood folk\r\n"),
        QStringList({"Hammerite=An orders man.", "Pagan=Wood folk"}));
    EXPECT_EQ(glossary_of("[one]\r\n[two]\r\nthree\r\n"), QStringList({"one=[two]"}));
    EXPECT_EQ(glossary_of("[a]b]\r\ntext\r\n"), QStringList({"ab=text"}));
    EXPECT_EQ(glossary_of(" [not at the start]\r\ntext\r\n"), QStringList());
    EXPECT_EQ(glossary_of("[last]"), QStringList({"last="}));
    EXPECT_EQ(glossary_of(""), QStringList());
}

TEST_F(Start_Data, The_glossary_holds_a_hundred_entries_beside_its_own) {
    QByteArray file;
    for (int entry = 1; entry <= 150; ++entry)
        file += QString("[k%1]\r\nt%1\r\n").arg(entry).toUtf8();
    const QStringList entries = glossary_of(file);
    EXPECT_EQ(entries.size(), 100);
    EXPECT_EQ(entries.last(), "k100=t100");
}

TEST_F(Start_Data, The_category_keywords_are_split) {
    ASSERT_TRUE(Start_Program(program()));
    EXPECT_EQ(program().categories,
              QStringList({"Guards", "Hammerites", "Mechanist", "Thieves", "Keepers", "Mages",
                           "Pagans", "Undead",     "Mansion",   "Museum",  "City",    "Fortress",
                           "Church", "Crypt",      "Prison",    "Forest",  "Ruins",   "Bank",
                           "Rescue", "Explore",    "Fun",       "Unusual", "General", "Horror"}));
}

TEST_F(Start_Data, The_headings_of_the_grids) {
    EXPECT_EQ(QString(fm_folder_headings).split(',').size(), 7);
    EXPECT_EQ(QString(resource_headings).split(','), QStringList({"Sounds", "Gamesys", "Scripts", "Graphics",
                                                                  "Objects", "Movies", "Automap", "Map"}));
    EXPECT_EQ(QString(library_summary_headings).split(','),
              QStringList({"Game", "FMs", "Total Size", "Finished", "Save Zips"}));
}

TEST_F(Start_Data, Missing_email_templates_are_stored_encoded) {
    ASSERT_TRUE(Start_Program(program()));
    ASSERT_EQ(program().email_templates.size(), std::size(templates));
    for (std::size_t index = 0; index < std::size(templates); ++index) {
        EXPECT_EQ(program().email_templates[index].type.toStdString(), templates[index].type);
        EXPECT_EQ(program().email_templates[index].content.toStdString(), templates[index].stored);
        EXPECT_EQ(DB_Email_Template(program(), templates[index].type, {}, false).toStdString(),
                  templates[index].stored);
    }
    EXPECT_EQ(db_Query(program(), "select * from table_emails").size(), 5);
}

TEST_F(Start_Data, The_users_own_email_templates_stay_even_empty_ones) {
    ASSERT_TRUE(Start_Program(program()));
    DB_Email_Template(program(), "Email_Low", "mine", true);
    DB_Email_Template(program(), "Email_High", "", true);
    start.renew();
    ASSERT_TRUE(Start_Program(program()));
    EXPECT_EQ(program().email_templates[1].content, "");
    EXPECT_EQ(program().email_templates[3].content, "mine");
    EXPECT_EQ(db_Query(program(), "select * from table_emails").size(), 5);
}

TEST_F(Start_Data, The_pages_that_ship_are_laid_out_where_they_are_missing) {
    ASSERT_TRUE(Start_Program(program()));
    EXPECT_TRUE(world.read("home/Version_Notes.htm").contains("Build 14194"));
    EXPECT_TRUE(world.read("home/Vantrosk_welcome.htm").contains("Welcome to Vantrosk"));
    world.write("home/Vantrosk_welcome.htm", "my own");
    start.renew();
    ASSERT_TRUE(Start_Program(program()));
    EXPECT_EQ(world.read("home/Vantrosk_welcome.htm"), "my own");
}

TEST_F(Start_Data, The_pictures_of_the_pages_are_laid_out_and_a_changed_one_stays) {
    ASSERT_TRUE(Start_Program(program()));
    QStringList pictures{"HTMLImages/compass.gif", "HTMLImages/forum.gif", "HTMLImages/loot_list_link.gif",
                         "HTMLImages/triangle_red.gif"};
    for (int score = 0; score <= 10; ++score)
        pictures << "HTMLImages/vk" + QString::number(score) + ".gif";
    pictures.sort();
    QStringList found = Names(world.snapshot("home")).filter("HTMLImages/");
    found.removeAll("HTMLImages/");
    found.sort();
    EXPECT_EQ(found, pictures);
    for (const QString &picture : pictures)
        EXPECT_TRUE(world.read("home/" + picture).startsWith("GIF89a")) << picture.toStdString();
    world.write("home/HTMLImages/vk7.gif", "mine");
    start.renew();
    ASSERT_TRUE(Start_Program(program()));
    EXPECT_EQ(world.read("home/HTMLImages/vk7.gif"), "mine");
}

TEST_F(Start_Data, The_pages_that_ship_reach_for_nothing_outside) {
    ASSERT_TRUE(Start_Program(program()));
    for (const char *page : {"home/Version_Notes.htm", "home/Vantrosk_welcome.htm"}) {
        const QByteArray html = world.read(page);
        for (const char *reach : {"<script", "http:", "https:", "src=", "url("})
            EXPECT_FALSE(html.contains(reach)) << page << " " << reach;
        EXPECT_TRUE(html.endsWith("</html>\n")) << page;
    }
}
