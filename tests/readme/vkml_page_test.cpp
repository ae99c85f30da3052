#include "readme/mdlHTML_stuff.h"
#include "support/World.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct Tag_Case {
    const char *vkml;
    const char *html;
};

class VKML_Tag : public testing::TestWithParam<Tag_Case> {};

struct VKML_Page_Test : testing::Test {
    World world;
    Program &program = world.program();

    QString body_of(const QByteArray &content) {
        world.write("readme.vkml", content);
        if (Render_VKML_Readme(program, world.windows("readme.vkml")).isEmpty())
            return "<no page>";
        return QString::fromUtf8(world.read("readme.htm")).mid(Page_Head(program, true, true).size());
    }

    /// What stands between the header table and the closing tags.
    QString text_of(const QByteArray &content) {
        const QString body = body_of(content);
        const qsizetype start = body.indexOf("</table>\r\n") + 10;
        return body.mid(start, body.lastIndexOf("<br><br>\r\n<br></div>\r\n</body>\r\n</html>") - start);
    }
};

} // namespace

TEST_P(VKML_Tag, Becomes_its_mark_up) {
    EXPECT_EQ(VKML_to_html(GetParam().vkml), QString(GetParam().html));
}

TEST_P(VKML_Tag, Is_known_in_lower_case_too) {
    const QString vkml = QString(GetParam().vkml).toLower();
    EXPECT_EQ(VKML_to_html(vkml), QString(GetParam().html));
}

INSTANTIATE_TEST_SUITE_P(
    Table, VKML_Tag,
    testing::Values(Tag_Case{"a[VKNL]b", "a<br>b"}, Tag_Case{"[VKLINE]", "<hr>"},
                    Tag_Case{"[VKIMAGE]pic 1.jpg[/VKIMAGE]", "<img src='VKIMAGES\\pic 1.jpg' border='0'>"},
                    Tag_Case{"[VKCENTER]x[/VKCENTER]", "<center>x</center>"},
                    Tag_Case{"[VKTITLE]x[/VKTITLE]", "<span class='VKTITLE'>x</span><br>"},
                    Tag_Case{"[VKSUBTITLE]x[/VKSUBTITLE]", "<span class='VKSUBTITLE'>x</span><br>"},
                    Tag_Case{"[VKAUTHOR]x[/VKAUTHOR]", "<Span class='VKAUTHOR'>x</span>"},
                    Tag_Case{"[VKFMINFO]x[/VKFMINFO]", "<span class='VKFMINFO'>x</span>"},
                    Tag_Case{"[VKBRIEFING]x[/VKBRIEFING]", "<Span class='VKBRIEFING'>x</span>"},
                    Tag_Case{"[VKFMSTRUCTURE]x[/VKFMSTRUCTURE]", "<Span class='VKFMSTRUCTURE'>x</span>"},
                    Tag_Case{"[VKWARNINGS]x[/VKWARNINGS]", "<Span class='VKWARNINGS'>x</span>"},
                    Tag_Case{"[VKBUILD]x[/VKBUILD]", "<Span class='VKBUILD'>x</span>"},
                    Tag_Case{"[VKINFO]x[/VKINFO]", "<span class='VKINFO'>x</span>"},
                    Tag_Case{"[VKLOADING]x[/VKLOADING]", "<Span class='VKLOADING'>x</span>"},
                    Tag_Case{"[VKCOPYRIGHT]x[/VKCOPYRIGHT]", "<Span class='VKCOPYRIGHT'>x</span>"}));

TEST(VKML_to_html_Test, Tags_match_in_mixed_case) {
    EXPECT_EQ(VKML_to_html("[vkTitle]x[/VKtitle][Vknl]"), "<span class='VKTITLE'>x</span><br><br>");
}

TEST(VKML_to_html_Test, Unknown_tags_and_closings_that_do_not_exist_stay_as_text) {
    EXPECT_EQ(VKML_to_html("[VKFOO]a[/VKFOO][/VKNL][/VKLINE][b]"), "[VKFOO]a[/VKFOO][/VKNL][/VKLINE][b]");
}

TEST(VKML_to_html_Test, Mark_up_is_text) {
    EXPECT_EQ(VKML_to_html("<script>x</script>\r\n[VKTITLE]<b>[/VKTITLE]\r\n"),
              "&lt;script&gt;x&lt;/script&gt;\r\n<span class='VKTITLE'>&lt;b&gt;</span><br>\r\n");
}

TEST(VKML_to_html_Test, An_image_name_can_not_end_its_attribute) {
    EXPECT_EQ(VKML_to_html("[VKIMAGE]x' onerror='alert(1)[/VKIMAGE]"),
              "<img src='VKIMAGES\\x%27 onerror=%27alert(1)' border='0'>");
}

TEST(VKML_to_html_Test, An_image_name_leaves_its_folder_by_no_way) {
    EXPECT_EQ(VKML_to_html("[VKIMAGE]..\\..\\a.jpg[/VKIMAGE][VKIMAGE]/etc/b.gif[/VKIMAGE]"),
              "<img src='VKIMAGES\\a.jpg' border='0'><img src='VKIMAGES\\b.gif' border='0'>");
    EXPECT_EQ(VKML_to_html("[VKIMAGE]http://x.org/c.gif[/VKIMAGE]"),
              "<img src='VKIMAGES\\c.gif' border='0'>");
}

TEST(VKML_to_html_Test, Signs_that_mean_something_in_an_address_are_encoded) {
    EXPECT_EQ(VKML_to_html("[VKIMAGE]a#1%?\".jpg[/VKIMAGE]"),
              "<img src='VKIMAGES\\a%231%25%3F%22.jpg' border='0'>");
}

TEST(VKML_to_html_Test, An_image_without_a_name_or_without_its_end_stays_as_text) {
    for (const char *text : {"[VKIMAGE][/VKIMAGE]", "[VKIMAGE] .. [/VKIMAGE]",
                             "[VKIMAGE]x' onerror='alert(1)", "[/VKIMAGE]", "[VKIMAGE]a\\[/VKIMAGE]"})
        EXPECT_EQ(VKML_to_html(text), QString(text));
    EXPECT_EQ(VKML_to_html("[VKIMAGE]a\r\nb[/VKIMAGE]"), "[VKIMAGE]a\r\nb[/VKIMAGE]");
}

TEST_F(VKML_Page_Test, The_header_comes_from_structure_and_author_lines) {
    const QString body = body_of("[VKFMSTRUCTURE]Game : Thief 2[/VKFMSTRUCTURE][VKNL]\r\n"
                                 "[VKFMSTRUCTURE]Mission Title : Harbour[/VKFMSTRUCTURE][VKNL]\r\n"
                                 "[VKAUTHOR]Author : Ann Lee[/VKAUTHOR][VKNL]\r\n");
    EXPECT_TRUE(
        body.startsWith("<table border='0' width='100%' cellspacing='0' cellpadding='3'>\r\n"
                        "<tr><td class='VKTITLE'>Harbour</td></tr>\r\n"
                        "<tr><td class='VKSUBTITLE'>A 'Thief 2' Fan Mission</td></tr>\r\n"
                        "<tr><td class='VKSUBTITLE'>   By Ann Lee</td></tr>\r\n"
                        "<tr><td class='VKFMINFO' colspan='2'>You have not scored this yet.</td></tr>\r\n"
                        "<tr><td class='VKFMINFO' colspan='2'>The community has not scored this "
                        "yet.</td></tr>\r\n</table>\r\n"))
        << body.toStdString();
}

TEST_F(VKML_Page_Test, A_field_ends_at_the_line_break_of_the_page) {
    const QString body =
        body_of("[VKFMSTRUCTURE]Game : Thief 2[/VKFMSTRUCTURE][VKNL][VKFMSTRUCTURE]Mission Title : "
                "Harbour[/VKFMSTRUCTURE][vknl][VKAUTHOR]Author : Ann Lee[/VKAUTHOR][VKNL]\r\n");
    EXPECT_TRUE(body.contains("<td class='VKTITLE'>Harbour</td></tr>\r\n"
                              "<tr><td class='VKSUBTITLE'>A 'Thief 2' Fan Mission</td></tr>\r\n"
                              "<tr><td class='VKSUBTITLE'>   By Ann Lee</td></tr>"))
        << body.toStdString();
}

TEST_F(VKML_Page_Test, Header_lines_are_found_with_tags_in_lower_case) {
    EXPECT_TRUE(body_of("[vkfmstructure]Mission Title : Harbour[/vkfmstructure][vknl]\n")
                    .contains("<td class='VKTITLE'>Harbour</td>"));
}

TEST_F(VKML_Page_Test, What_the_header_says_is_taken_from_the_text_and_its_empty_spans_too) {
    const QString text = text_of("[VKCENTER][VKTITLE]Harbour[/VKTITLE][VKNL]\r\n"
                                 "[VKSUBTITLE]A Thief 2 Fan Mission[/VKSUBTITLE]\r\n"
                                 "[VKSUBTITLE]by ann lee[/VKSUBTITLE][/VKCENTER]\r\n"
                                 "[VKFMINFO]Harbour[/VKFMINFO][VKFMINFO]Harbour Tales[/VKFMINFO]\r\n"
                                 "[VKFMSTRUCTURE]Mission Title : Harbour[/VKFMSTRUCTURE]\r\n"
                                 "[VKFMSTRUCTURE]Game : Thief 2[/VKFMSTRUCTURE]\r\n"
                                 "[VKAUTHOR]Author : Ann Lee[/VKAUTHOR]\r\n");
    EXPECT_EQ(text, "<center><br>\r\n\r\n</center>\r\n"
                    "<span class='VKFMINFO'>Harbour Tales</span>\r\n"
                    "<Span class='VKFMSTRUCTURE'>Mission Title : Harbour</span>\r\n"
                    "<Span class='VKFMSTRUCTURE'>Game : Thief 2</span>\r\n"
                    "<Span class='VKAUTHOR'>Author : Ann Lee</span>\r\n");
}

TEST_F(VKML_Page_Test, Prose_that_holds_what_the_header_says_stays) {
    const QString prose = "Stand by all means in Al's Harbour, by Al the Harbour.\r\n";
    EXPECT_TRUE(text_of("[VKFMSTRUCTURE]Mission Title : Harbour[/VKFMSTRUCTURE]\r\n"
                        "[VKAUTHOR]Author : Al[/VKAUTHOR]\r\n" +
                        prose.toUtf8())
                    .endsWith(prose));
}

TEST_F(VKML_Page_Test, Without_an_author_no_by_is_taken_away) {
    EXPECT_EQ(text_of("By \r\n[VKINFO]By [/VKINFO]\r\n"), "By \r\n<span class='VKINFO'>By </span>\r\n");
}

TEST_F(VKML_Page_Test, Hostile_names_show_as_text) {
    const QString body = body_of("[VKFMSTRUCTURE]Mission Title : <script>x</script>[/VKFMSTRUCTURE]\n"
                                 "[VKAUTHOR]Author : <img onerror='x'>[/VKAUTHOR]\n");
    EXPECT_FALSE(body.contains("<script"));
    EXPECT_FALSE(body.contains("<img"));
}

TEST_F(VKML_Page_Test, Contact_and_home_page_are_found_behind_their_tags_and_linked) {
    program.email_templates = {{"Email_Low", "about [TITLE]"}};
    const QString body = body_of("[VKFMSTRUCTURE]Mission Title : Harbour & Bay[/VKFMSTRUCTURE][VKNL]\n"
                                 "[VKAUTHOR]Author : Ann O'Lee[/VKAUTHOR][VKNL]\n"
                                 "[vkauthor]Contact Info : ann@x.org (home)[/vkauthor][vknl]\n"
                                 "[VKAUTHOR]Homepage : http://x.org/~ann[/VKAUTHOR][VKNL]\n");
    EXPECT_TRUE(
        body.contains("<tr><td class='VKSUBTITLE'>   By <a href='mailto:ann@x.org?subject=Regarding Your "
                      "Thief Fan Mission [Harbour  and  Bay]&body=Ann O%27Lee,%0Aabout Harbour  and  "
                      "Bay%0A%0A%0A%0AThis Email Was Generated By Vantrosk.'  title='Send an email to Ann "
                      "O&#39;Lee'>Ann O'Lee</a></td></tr>\r\n"))
        << body.toStdString();
    EXPECT_TRUE(body.contains("<Span class='VKAUTHOR'>Homepage : <a href='http://x.org/~ann' target='_blank' "
                              "Title='Caution this will open http://x.org/~ann in a new window'>http://x.org/"
                              "~ann</a></span><br>"))
        << body.toStdString();
    EXPECT_TRUE(body.contains("Contact Info : ann@x.org (home)"));
}

TEST_F(VKML_Page_Test, An_untagged_contact_line_counts_and_the_first_of_two_holds) {
    const QString body = body_of("[VKAUTHOR]Author : Ann[/VKAUTHOR]\nContact Info: a@x.org\nContact Info: "
                                 "b@x.org\n");
    EXPECT_TRUE(body.contains("mailto:a@x.org?"));
    EXPECT_FALSE(body.contains("mailto:b@x.org?"));
}

TEST_F(VKML_Page_Test, A_contact_without_an_at_sign_links_nothing) {
    EXPECT_FALSE(
        body_of("[VKAUTHOR]Author : Ann[/VKAUTHOR]\nContact Info: at the forum\n").contains("mailto"));
}

TEST_F(VKML_Page_Test, Tags_in_a_home_page_do_not_break_its_link) {
    const QString body = body_of("Homepage: http://x.org/[VKTITLE]y\n");
    EXPECT_TRUE(body.contains("<a href='http://x.org/[VKTITLE]y' "));
    EXPECT_FALSE(body.contains("<span class='VKTITLE'>y"));
}

TEST_F(VKML_Page_Test, Emptied_titles_and_subtitles_go_and_other_spans_stay) {
    EXPECT_EQ(text_of("[VKTITLE][/VKTITLE][VKSUBTITLE][/VKSUBTITLE][VKINFO][/VKINFO]\n"),
              "<span class='VKINFO'></span>\r\n");
}

TEST_F(VKML_Page_Test, A_line_of_any_length_shows_whole) {
    const QByteArray line = QByteArray(200000, 'x') + "[VKNL]end\n";
    EXPECT_EQ(text_of(line), QString(200000, 'x') + "<br>end\r\n");
}

TEST_F(VKML_Page_Test, Signs_of_other_languages_stay_as_they_are) {
    EXPECT_EQ(text_of("Žluť [VKINFO]кот’s é[/VKINFO]\n"),
              QString("Žluť <span class='VKINFO'>кот’s é</span>\r\n"));
}

TEST_F(VKML_Page_Test, Nul_bytes_are_left_out) {
    EXPECT_EQ(text_of(QByteArray("a\0b[VKNL]\0c\r\n", 13)), "ab<br>c\r\n");
}

TEST_F(VKML_Page_Test, Empty_missing_and_other_files_give_no_page) {
    EXPECT_EQ(body_of(""), "<no page>");
    EXPECT_EQ(Render_VKML_Readme(program, world.windows("none.vkml")), "");
    world.write("readme.txt", "x");
    EXPECT_EQ(Render_VKML_Readme(program, world.windows("readme.txt")), "");
}
