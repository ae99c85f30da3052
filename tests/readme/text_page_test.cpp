#include "readme/mdlHTML_stuff.h"
#include "support/World.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct Text_Page_Test : testing::Test {
    World world;
    Program &program = world.program();

    /// The page of a readme with this content; the head is cut off.
    QString body_of(const QByteArray &content, const QString &name = "readme.txt") {
        world.write(name, content);
        const QString page = Render_Text_Readme(program, world.windows(name));
        if (page.isEmpty())
            return "<no page>";
        const QString html = QString::fromUtf8(world.read("readme.htm"));
        return html.mid(Page_Head(program, true, true).size());
    }

    QString text_of(const QByteArray &content) {
        const QString body = body_of(content);
        const qsizetype start = body.indexOf("'>", body.indexOf("white-space:pre-wrap")) + 2;
        return body.mid(start, body.indexOf("</div>") - start);
    }
};

const QString unscored_rows =
    "<tr><td class='VKFMINFO' colspan='2'>You have not scored this yet.</td></tr>\r\n"
    "<tr><td class='VKFMINFO' colspan='2'>The community has not scored this yet or you have not downloaded "
    "scores for this FM.</td></tr>\r\n";
const QString table = "<table border='0' width='100%' cellspacing='0' cellpadding='3'>\r\n";

} // namespace

TEST_F(Text_Page_Test, The_page_lies_beside_the_readme) {
    world.write("fm/Readme.TXT", "Title : The Vault\r\n");
    EXPECT_EQ(Render_Text_Readme(program, world.windows("fm/Readme.TXT")),
              world.windows("fm") + "\\Readme.htm");
    EXPECT_TRUE(world.exists("fm/Readme.htm"));
}

TEST_F(Text_Page_Test, Title_game_and_author_stand_above_the_text) {
    const QString body =
        body_of("Title : The Vault\r\nAuthor: Ann Lee\r\nGame : Thief 2\r\n\r\n  A door.\r\n");
    EXPECT_TRUE(body.startsWith(table +
                                "<tr><td class='VKTITLE'>The Vault</td></tr>\r\n"
                                "<tr><td class='VKSUBTITLE'>A 'Thief 2' Fan Mission</td></tr>\r\n"
                                "<tr><td class='VKSUBTITLE'>   By Ann Lee</td></tr>\r\n" +
                                unscored_rows + "</table>\r\n"))
        << body.toStdString();
    EXPECT_TRUE(
        body.endsWith("Title : The Vault<br>Author: Ann Lee<br>Game : Thief 2<br><br>  A door.<br></div>\r\n"
                      "<br><br>\r\n</body>\r\n</html>"))
        << body.toStdString();
}

TEST_F(Text_Page_Test, A_contact_stands_behind_one_of_four_labels) {
    const std::pair<QByteArray, QString> table[] = {
        {"Contact Info: a@x.org\nb@x.org\n", "a@x.org"},
        {"contact info   : a@x.org\nContact Info b@x.org\n", "a@x.org"},
        {"Contact : a@x.org (home)\n", "a@x.org"},
        {"E-Mail: a@x.org\n", "a@x.org"},
        {"E-mail : a@x.org\n", "a@x.org"},
        {"Email: a@x.org\n", "a@x.org"},
        {"EMail: b@x.org\na@x.org c@x.org\n", "b@x.org"}, // the first address of the text, not the label
        {"z@x.org\nEMail: b@x.org\n", "z@x.org"},
        {"z@x.org\nemail: b@x.org\n", "z@x.org"},
        {"z@x.org\nMy Contact: b@x.org\n", "z@x.org"},
        {"z@x.org\nEmail: a@x.org\nContact: b@x.org\n", "a@x.org"}, // the first line that has one
        {"z@x.org\nContact: \nContact Info: a@x.org\n", "a@x.org"},
        {"z@x.org\nContact: at the forum\n", ""},
        {"nobody at all\n", ""},
    };
    for (const auto &[text, contact] : table) {
        const QString body = body_of("Author: Ann\n" + text);
        const qsizetype mail = body.indexOf("mailto:");
        EXPECT_EQ(mail < 0 ? QString() : body.mid(mail + 7).section('?', 0, 0), contact)
            << text.toStdString();
    }
}

TEST_F(Text_Page_Test, A_home_page_stands_behind_its_label_or_anywhere) {
    const std::pair<QByteArray, QString> table[] = {
        {"See http://y.org\nHomepage: http://x.org/a now\n", "http://x.org/a"},
        {"HOMEPAGE  : HTTP://x.org\n", "HTTP://x.org"},
        {"Some http://y.org/a, then http://z.org\n", "http://y.org/a"},
        {"See http://y.org\nHomepage: www.x.org\n", ""},
        {"Homepage: https://x.org\n", ""},
        {"http://x.org\n", ""},
    };
    for (const auto &[text, page] : table) {
        const QString body = body_of(text);
        const qsizetype link = body.indexOf("<a href='");
        EXPECT_EQ(link < 0 ? QString() : body.mid(link + 9).section('\'', 0, 0), page) << text.toStdString();
    }
}

TEST_F(Text_Page_Test, Without_title_author_and_game_the_header_keeps_one_empty_row) {
    EXPECT_TRUE(body_of("Just text.\r\n")
                    .startsWith(table + "<tr><td>&nbsp;</td></tr>\r\n" + unscored_rows + "</table>\r\n"));
}

TEST_F(Text_Page_Test, Blanks_tabs_and_empty_lines_of_the_author_stay) {
    EXPECT_EQ(text_of("  a\tb  c\n\n\n   d"), "  a\tb  c<br><br><br>   d<br>");
}

TEST_F(Text_Page_Test, Every_kind_of_line_end_is_one_line_break) {
    EXPECT_EQ(text_of("a\r\nb\nc\rd"), "a<br>b<br>c<br>d<br>");
}

TEST_F(Text_Page_Test, Quotes_and_tabs_of_the_text_stay_though_the_fields_lose_them) {
    EXPECT_EQ(text_of("Title :\t\"The Vault\"\r\n"), "Title :\t\"The Vault\"<br>");
}

TEST_F(Text_Page_Test, Mark_up_in_the_text_shows_as_text) {
    const QString text = text_of("<script>alert(1)</script>\n<img src=x onerror='a()'>\n&lt; &amp;");
    EXPECT_EQ(text,
              "&lt;script&gt;alert(1)&lt;/script&gt;<br>&lt;img src=x onerror='a()'&gt;<br>&lt; &amp;<br>");
}

TEST_F(Text_Page_Test, Mark_up_in_title_author_and_game_shows_as_text) {
    const QString body = body_of("Title : <script>t</script>\nAuthor: <b onclick='x'>A\nGame : <i>Thief 2\n");
    EXPECT_FALSE(body.contains("<script"));
    EXPECT_FALSE(body.contains("<b "));
    EXPECT_FALSE(body.contains("<i>"));
    EXPECT_TRUE(body.contains("<td class='VKTITLE'>&lt;script&gt;t&lt;/script&gt;</td>"));
}

TEST_F(Text_Page_Test, Nul_bytes_are_left_out) {
    EXPECT_EQ(text_of(QByteArray("a\0b\0\0c\n", 7)), "abc<br>");
}

TEST_F(Text_Page_Test, A_readme_in_windows_1252_reads_like_one_in_utf_8) {
    EXPECT_EQ(text_of("caf\xE9 \x93quoted\x94"), "caf&eacute; \"quoted\"<br>");
}

TEST_F(Text_Page_Test, A_readme_over_8_MiB_is_read_up_to_there) {
    QByteArray content;
    while (content.size() < 9 * 1024 * 1024)
        content += "0123456789012345678901234567890123456789012345678901234567890\r\n";
    EXPECT_NE(body_of(content), "<no page>");
    EXPECT_LT(world.read("readme.htm").size(), 10 * 1024 * 1024);
    EXPECT_GT(world.read("readme.htm").size(), 8 * 1024 * 1024);
}

TEST_F(Text_Page_Test, An_empty_file_gives_no_page) {
    EXPECT_EQ(body_of(""), "<no page>");
    EXPECT_FALSE(world.exists("readme.htm"));
}

TEST_F(Text_Page_Test, A_missing_file_gives_no_page) {
    EXPECT_EQ(Render_Text_Readme(program, world.windows("nothing.txt")), "");
}

TEST_F(Text_Page_Test, Another_extension_gives_no_page) {
    world.write("readme.doc", "text");
    EXPECT_EQ(Render_Text_Readme(program, world.windows("readme.doc")), "");
}

TEST_F(Text_Page_Test, A_page_that_can_not_be_written_is_none_and_leaves_a_trace) {
    world.write("fm/readme.txt", "text");
    world.make_folder("fm/readme.htm/in the way");
    program.trace.enabled = true;
    EXPECT_EQ(Render_Text_Readme(program, world.windows("fm/readme.txt")), "");
    EXPECT_FALSE(world.ui.trace.isEmpty());
}

TEST_F(Text_Page_Test, A_line_of_any_length_shows_whole) {
    EXPECT_EQ(text_of(QByteArray(200000, 'x') + " end"), QString(200000, 'x') + " end<br>");
}

TEST_F(Text_Page_Test, Bare_line_feeds_are_repaired_in_info_and_nowhere_else) {
    const QByteArray bare = "Title : X\nAuthor : Y caf\xE9\n";
    world.write("home/info/readme.txt", bare);
    world.write("other/readme.txt", bare);
    EXPECT_NE(Render_Text_Readme(program, program.paths.info + "readme.txt"), "");
    EXPECT_NE(Render_Text_Readme(program, world.windows("other/readme.txt")), "");
    EXPECT_EQ(world.read("home/info/readme.txt"), "Title : X\r\nAuthor : Y caf\xE9\r\n");
    EXPECT_EQ(world.read("other/readme.txt"), bare);
    const QString page = QString::fromUtf8(world.read("other/readme.htm"));
    EXPECT_TRUE(page.contains("<td class='VKTITLE'>X</td>"));
    EXPECT_TRUE(page.contains("By Y caf"));
}

TEST_F(Text_Page_Test, Whole_line_ends_and_wide_text_of_info_stay_as_they_are) {
    for (const QByteArray &content : {QByteArray("a\r\nb\n"), QByteArray("one line"),
                                      QByteArray("\xFF\xFE"
                                                 "a\0\n\0b\0\n\0",
                                                 10)}) {
        world.write("home/info/readme.txt", content);
        EXPECT_NE(Render_Text_Readme(program, program.paths.info + "readme.txt"), "");
        EXPECT_EQ(world.read("home/info/readme.txt"), content);
    }
}

TEST_F(Text_Page_Test, A_selected_row_without_keywords_gets_those_of_its_readme) {
    Page_Facts facts;
    facts.row_selected = true;
    world.write("readme.txt", "Guards and a Bank.\nThe Bank is a Museum.\n");
    EXPECT_NE(Render_Text_Readme(program, world.windows("readme.txt")), "");
    EXPECT_EQ(program.screen.details.keywords, "");
    EXPECT_NE(Render_Text_Readme(program, world.windows("readme.txt"), facts), "");
    EXPECT_EQ(program.screen.details.keywords, "Guards,Museum,Bank");
    program.screen.details.keywords = "Fun";
    EXPECT_NE(Render_Text_Readme(program, world.windows("readme.txt"), facts), "");
    EXPECT_EQ(program.screen.details.keywords, "Fun");
}

TEST_F(Text_Page_Test, The_time_it_took_is_traced) {
    program.trace.enabled = true;
    EXPECT_NE(body_of("text"), "<no page>");
    EXPECT_TRUE(world.ui.trace.join('\n').contains("FUNCTIONS: Readme converted in "));
}

TEST_F(Text_Page_Test, The_source_is_never_changed) {
    world.write("readme.txt", "a\nb\n");
    EXPECT_NE(Render_Text_Readme(program, world.windows("readme.txt")), "");
    EXPECT_EQ(world.read("readme.txt"), "a\nb\n");
}

TEST_F(Text_Page_Test, The_text_of_an_rtf_readme_is_kept_as_a_text_file) {
    const QString folder = world.windows("home") + "\\INFO\\";
    EXPECT_EQ(Write_RTF_Text(program, u"Title : Na\u00EFve\n\nb"_qs, folder), folder + "temprtf.txt");
    EXPECT_EQ(world.read("home/info/temprtf.txt"), "Title : Na\xC3\xAFve\r\n\r\nb\r\n");
    EXPECT_EQ(Render_Text_Readme(program, folder + "temprtf.txt"), folder + "temprtf.htm");
}

TEST_F(Text_Page_Test, The_text_of_an_rtf_readme_that_can_not_be_kept_has_no_path) {
    world.make_folder("home/info/temprtf.txt/in the way");
    program.trace.enabled = true;
    EXPECT_EQ(Write_RTF_Text(program, "a", world.windows("home") + "\\INFO\\"), "");
    EXPECT_FALSE(world.ui.trace.isEmpty());
}

TEST_F(Text_Page_Test, A_notice_shows_heading_and_reason_as_text) {
    const QString page = world.windows("home") + "\\INFO\\n.htm";
    EXPECT_EQ(Render_Notice(program, page, "This <i> can not", "reason <script>"), page);
    const QString html = QString::fromUtf8(program.files.read_file(page, 1 << 20).value);
    EXPECT_EQ(html, Page_Head(program, false, false) +
                        "<span class='VKSUBTITLE'>This &lt;i&gt; can not</span><br><br>\r\n"
                        "<span class='VKINFO'>reason &lt;script&gt;</span><br>\r\n</body>\r\n</html>");
}
