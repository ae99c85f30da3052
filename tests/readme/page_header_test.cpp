#include "core/mdlDB_Functions.h"
#include "readme/Pages.h"
#include "support/Page_Checker.h"
#include "support/World.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct Page_Header_Test : testing::Test {
    World world;
    Program &program = world.program();
    Page_Header header;
    Page_Facts facts;

    /// The rows of the table, without what opens and closes it.
    QStringList rows(Page_Kind kind) {
        const QString table = Header_Table(program, header, facts, kind);
        const QString page = Page_Head(program, true, false) + table + page_end;
        EXPECT_EQ(Wrong_in_page(page).toStdString(), "");
        const QString opening = "<table border='0' width='100%' cellspacing='0' cellpadding='3'>\r\n";
        const QString closing = "\r\n</table>\r\n";
        EXPECT_TRUE(table.startsWith(opening) && table.endsWith(closing)) << table.toStdString();
        return table.mid(opening.size(), table.size() - opening.size() - closing.size()).split("\r\n");
    }
    /// What the row that begins so says; empty without one.
    QString row(Page_Kind kind, const QString &beginning) {
        const QString opening = "<tr><td class='VKFMINFO' colspan='2'>", closing = "</td></tr>";
        for (const QString &whole : rows(kind)) {
            const QString content = whole.mid(opening.size(), whole.size() - opening.size() - closing.size());
            if (whole.startsWith(opening) && content.startsWith(beginning))
                return content;
        }
        return {};
    }
};

const Page_Kind both[] = {Page_Kind::vkml, Page_Kind::text};

} // namespace

TEST_F(Page_Header_Test, With_nothing_known_it_shows_the_scores) {
    EXPECT_EQ(rows(Page_Kind::vkml),
              (QStringList{
                  "<tr><td>&nbsp;</td></tr>",
                  "<tr><td class='VKFMINFO' colspan='2'>You have not scored this yet.</td></tr>",
                  "<tr><td class='VKFMINFO' colspan='2'>The community has not scored this yet.</td></tr>"}));
    EXPECT_EQ(row(Page_Kind::text, "The community"),
              "The community has not scored this yet or you have not downloaded scores for this FM.");
}

TEST_F(Page_Header_Test, All_rows_stand_in_their_order_beside_the_picture) {
    header = {"Harbour", "Thief 2", "Ann", {}, {}};
    facts.title_image = "VK TITLE.JPG";
    facts.score = 7;
    facts.submissions = 3;
    facts.average_score = 5;
    facts.languages[0] = "English";
    facts.walkthrough_url = "http://w";
    facts.loot_list_url = "https://l";
    facts.info_url = "ftp://i";
    facts.forum_url = "HTTP://f";
    EXPECT_EQ(
        rows(Page_Kind::vkml),
        (QStringList{
            "<tr><td rowspan='10' width='1'><img src='VK TITLE.JPG' style='border:1 groove black;'></td>"
            "<td class='VKTITLE'>Harbour</td></tr>",
            "<tr><td class='VKSUBTITLE'>A 'Thief 2' Fan Mission</td></tr>",
            "<tr><td class='VKSUBTITLE'>   By Ann</td></tr>",
            "<tr><td class='VKFMINFO' colspan='2'>You gave this 7 (<img src='../HTMLImages/vk7.gif'>) out of "
            "10</td></tr>",
            "<tr><td class='VKFMINFO' colspan='2'>3 people from the Thief community gave this an average "
            "score of 5 "
            "(<img src='../HTMLImages/vk5.gif'>) out of 10.</td></tr>",
            "<tr><td class='VKFMINFO' colspan='2'>Supported Languages: <span class='HIGHLIGHTLIME "
            "TEXTBLACK'> English "
            "</span></td></tr>",
            "<tr><td class='VKFMINFO' colspan='2'>WalkThrough Available: <a "
            "href='http://w'>http://w</a></td></tr>",
            "<tr><td class='VKFMINFO' colspan='2'>Loot List Available: <a "
            "href='https://l'>https://l</a></td></tr>",
            "<tr><td class='VKFMINFO' colspan='2'>Additional Info: <a href='ftp://i'>ftp://i</a></td></tr>",
            "<tr><td class='VKFMINFO' colspan='2'><img Src='../HTMLImages/forum.gif'>&nbsp;&nbsp;Forum "
            "Thread: <a "
            "href='HTTP://f'>HTTP://f</a></td></tr>"}));
}

TEST_F(Page_Header_Test, Links_of_other_readmes_have_pictures_names_and_tips) {
    facts.walkthrough_url = "http://w";
    facts.loot_list_url = "http://l";
    facts.info_url = "http://i";
    facts.forum_url = "http://f";
    EXPECT_EQ(
        rows(Page_Kind::text).mid(3),
        (QStringList{
            "<tr><td class='VKFMINFO' colspan='2'><img "
            "Src='../HTMLImages/compass.gif'>&nbsp;&nbsp;WalkThrough "
            "Available: <a href='http://w' id='VKWalkthrough' title='There is a Walkthrough for this FM "
            "available'>http://w</a></td></tr>",
            "<tr><td class='VKFMINFO' colspan='2'><img "
            "Src='../HTMLImages/loot_list_link.gif'>&nbsp;&nbsp;Loot List Available: <a href='http://l' "
            "id='KVLootList' title='There is a Loot List for this FM available'>http://l</a></td></tr>",
            "<tr><td class='VKFMINFO' colspan='2'>Additional Info: <a href='http://i' id='VKFMInfo' "
            "title='There "
            "is more info available for this FM'>http://i</a></td></tr>",
            "<tr><td class='VKFMINFO' colspan='2'><img Src='../HTMLImages/forum.gif'>&nbsp;&nbsp;Forum "
            "Thread: "
            "<a href='http://f' id='VKforumthread'  title='There is a common Forum thread for this FM "
            "available, you may find hints or other useful information here, or you can give your "
            "feedback'>http://f</a></td></tr>"}));
}

TEST_F(Page_Header_Test, An_address_that_is_no_web_page_shows_as_text) {
    for (const Page_Kind kind : both) {
        for (const char *url : {"javascript:alert(1)", "file:///etc/passwd", "data:text/html,x", "www.x.org",
                                "//x.org", "vbscript:x"}) {
            facts.info_url = url;
            EXPECT_EQ(row(kind, "Additional"), "Additional Info: " + QString(url));
        }
        facts.info_url = "<script>";
        EXPECT_EQ(row(kind, "Additional"), "Additional Info: &lt;script&gt;");
    }
}

TEST_F(Page_Header_Test, Quotes_and_angle_brackets_of_an_address_stay_inside_its_link) {
    facts.info_url = "http://x/'onmouseover='a()'><script>";
    EXPECT_EQ(row(Page_Kind::vkml, "Additional"),
              "Additional Info: <a href='http://x/%27onmouseover=%27a()%27&gt;&lt;script&gt;'>"
              "http://x/'onmouseover='a()'&gt;&lt;script&gt;</a>");
}

TEST_F(Page_Header_Test, The_word_false_is_no_address) {
    for (const char *none : {"false", "False", " FALSE ", ""}) {
        facts.walkthrough_url = facts.loot_list_url = facts.info_url = facts.forum_url = none;
        EXPECT_EQ(rows(Page_Kind::text).size(), 3) << none;
    }
}

TEST_F(Page_Header_Test, A_score_of_0_or_less_is_none_and_a_great_one_has_the_last_picture) {
    const QString beginning = "You";
    for (const int none : {0, -1}) {
        facts.score = none;
        EXPECT_EQ(row(Page_Kind::text, beginning), "You have not scored this yet.");
    }
    facts.score = 10;
    EXPECT_EQ(row(Page_Kind::text, beginning),
              "You gave this 10 (<img src='../HTMLImages/vk10.gif'>) out of 10");
    facts.score = 999;
    EXPECT_EQ(row(Page_Kind::text, beginning),
              "You gave this 999 (<img src='../HTMLImages/vk10.gif'>) out of 10");
}

TEST_F(Page_Header_Test, High_averages_carry_a_recommendation) {
    const QString must =
        "<br> <span class='HIGHLIGHTPINK TEXTBLACK'>The community rate this as a MUST Play FM.</span>";
    const QString good =
        "<br> <span class='HIGHLIGHTLIGHTYELLOW TEXTBLACK'>The community rate this as a very good "
        "FM, well worth playing.</span>";
    facts.submissions = 12;
    for (const Page_Kind kind : both) {
        for (int score = 0; score <= 10; ++score) {
            facts.average_score = score;
            const QString number = QString::number(score);
            EXPECT_EQ(row(kind, "12 "), "12 people from the Thief community gave this an average score of " +
                                            number + " (<img src='../HTMLImages/vk" + number +
                                            ".gif'>) out of 10." +
                                            (score >= 8   ? must
                                             : score >= 6 ? good
                                                          : QString()));
        }
    }
}

TEST_F(Page_Header_Test, An_average_that_nobody_counted) {
    facts.average_score = 4;
    EXPECT_EQ(row(Page_Kind::text, "Unknown"),
              "Unknown Amount Of  people from the Thief community gave this an average score of 4 (<img "
              "src='../HTMLImages/vk4.gif'>) out of 10.");
    EXPECT_EQ(row(Page_Kind::vkml, "The community"), "The community has not scored this yet.");
}

TEST_F(Page_Header_Test, The_users_language_stands_out_and_is_named) {
    facts.languages = {"English", "", "German", "", "", "", "Russian"};
    program.ini.LANGUAGE = "GERMAN";
    const QString names =
        "Supported Languages: English,<span class='HIGHLIGHTLIME TEXTBLACK'> German </span>,Russian";
    EXPECT_EQ(row(Page_Kind::vkml, "Supported"), names);
    EXPECT_EQ(row(Page_Kind::text, "Supported"), names + ". VK will use the German language files.");
    program.ini.LANGUAGE = "French";
    EXPECT_EQ(row(Page_Kind::text, "Supported"),
              "Supported Languages: English,German,Russian. VK will use the English/Default language files.");
}

TEST_F(Page_Header_Test, Names_show_as_text) {
    header = {"<script>t", "<b>'g'", "A<i>'s", {}, {}};
    EXPECT_EQ(rows(Page_Kind::vkml).first(3),
              (QStringList{"<tr><td class='VKTITLE'>&lt;script&gt;t</td></tr>",
                           "<tr><td class='VKSUBTITLE'>A '&lt;b&gt;'g'' Fan Mission</td></tr>",
                           "<tr><td class='VKSUBTITLE'>   By A&lt;i&gt;'s</td></tr>"}));
}

TEST_F(Page_Header_Test, Pictures_of_custom_games_lie_in_their_folder) {
    facts.title_image = "CUSTOM:half life_32.bmp";
    EXPECT_TRUE(rows(Page_Kind::text)[0].startsWith(
        "<tr><td rowspan='3' width='1'><img src='../custom_game_images/half life_32.bmp' style="));
    facts.title_image = "CUSTOM:..\\..\\x.bmp";
    EXPECT_TRUE(rows(Page_Kind::text)[0].contains("<img src='../custom_game_images/x.bmp' style="));
    facts.title_image = "CUSTOM:";
    EXPECT_EQ(rows(Page_Kind::text)[0], "<tr><td>&nbsp;</td></tr>");
}

TEST_F(Page_Header_Test, A_bitmap_stands_in_for_a_picture_of_the_games_format) {
    facts.title_image = "MAIN_1.PCX";
    EXPECT_TRUE(rows(Page_Kind::text)[0].contains("<img src='MAIN_1.BMP' "));
}

TEST_F(Page_Header_Test, The_record_gives_links_and_whole_scores) {
    db_Execute(program, "INSERT INTO Table_Scores (zip_name,game,score,average_score,group_submissions,"
                        "Walkthrough_url,Info_url,Forum_url,LootList_url) VALUES "
                        "('a.zip','T2',9,7.9,31,'w','i','f','l')");
    const Page_Facts read = Facts_of_record(db_Query(program, "SELECT * FROM Table_Scores"));
    EXPECT_EQ(read.score, 9);
    EXPECT_EQ(read.average_score, 7);
    EXPECT_EQ(read.submissions, 31);
    EXPECT_EQ(read.walkthrough_url, "w");
    EXPECT_EQ(read.info_url, "i");
    EXPECT_EQ(read.forum_url, "f");
    EXPECT_EQ(read.loot_list_url, "l");
    const Page_Facts none =
        Facts_of_record(db_Query(program, "SELECT * FROM Table_Scores WHERE game = 'T1'"));
    EXPECT_EQ(none.score, 0);
    EXPECT_EQ(none.walkthrough_url, "");
}
