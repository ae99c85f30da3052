#include "fuzz/Fuzz.h"

#include "core/mdlFile_Functions.h"
#include "readme/mdlHTML_stuff.h"
#include "support/Page_Checker.h"
#include "support/World.h"

#include <cstdio>
#include <cstdlib>

namespace vantrosk {

namespace {

void Must_be_harmless(const QString &html) {
    const QString wrong = Wrong_in_page(html);
    if (wrong.isEmpty())
        return;
    std::fprintf(stderr, "%s\n", qPrintable(wrong));
    std::abort();
}

/// The same bytes wherever the page takes values from outside.
Page_Facts Facts_of_text(const QString &text) {
    Page_Facts facts;
    const QString piece = text.left(200);
    facts.walkthrough_url = piece;
    facts.loot_list_url = "http://" + piece;
    facts.info_url = text.right(100);
    facts.forum_url = "https://" + text.right(100);
    facts.row_name = piece;
    facts.languages[1] = piece;
    facts.title_image = piece;
    facts.average_score = int(text.size() % 12);
    facts.submissions = int(text.size() % 3);
    return facts;
}

} // namespace

/// Whatever the bytes are, both kinds of page hold none but the tags, attributes and addresses that they may.
void Fuzz_one(const QByteArray &bytes) {
    static World world;
    static Program &program = world.program();
    const QString text = Decode_text(bytes);
    program.tweaks.INTELLITEXT = true;
    program.glossary = {
        {"Garrett", "tip"}, {text.left(12), text.left(60)}, {text.mid(12, 3), text.right(40)}};
    const Page_Facts facts = Facts_of_text(text);
    Must_be_harmless(Page_of_text(program, text, facts));
    Must_be_harmless(Page_of_VKML(program, text, facts));
}

std::vector<QByteArray> Fuzz_seeds() {
    return {
        "Title : The Vault\r\nAuthor : Ann O'Lee\r\nGame : Thief 2\r\nContact Info : ann@x.org (home)\r\n"
        "Homepage : http://x.org/~ann?a=1&b=2\r\n\r\nWrite to ann@x.org, see http://x.org/~ann?a=1&b=2 "
        "now.\r\n"
        "Known Bugs: none\r\nDate of Release : May\r\nRuns from Darkloader. See Garrett run.\r\n",
        "[VKCENTER][VKTITLE]Frost[/VKTITLE][VKNL]\n[VKSUBTITLE]By Ann[/VKSUBTITLE][/VKCENTER]\n"
        "[VKAUTHOR]Author : Ann[/VKAUTHOR][VKNL]\n[VKAUTHOR]Contact Info : ann@x.org[/VKAUTHOR][VKNL]\n"
        "[VKAUTHOR]Homepage : http://x.org[/VKAUTHOR][VKNL]\n[VKFMSTRUCTURE]Game : Thief 2[/VKFMSTRUCTURE]\n"
        "[VKFMSTRUCTURE]Mission Title : Frost[/VKFMSTRUCTURE]\n[VKIMAGE]river.jpg[/VKIMAGE][VKLINE]\n",
        "<script>alert('1')</script>\n<img src=x onerror=\"a()\">\n&lt;b&gt; &#60;\n",
        "\xFF\xFE<\0s\0c\0r\0i\0p\0t\0>\0",
        "caf\xE9 \x93x\x94 \x85 \x96 \xDC",
    };
}

std::vector<QByteArray> Fuzz_pieces() {
    return {"'",
            "\"",
            "<",
            ">",
            "&",
            "&sol;",
            "<script>",
            "javascript:",
            "http://",
            "HTTP://",
            "@",
            "a@b.org",
            "Contact: ",
            "Email: ",
            "Homepage: ",
            "Title: ",
            "Author: ",
            "Game: ",
            "[VKIMAGE]",
            "[/VKIMAGE]",
            "[VKTITLE]",
            "[/VKTITLE]",
            "[VKNL]",
            "[VKAUTHOR]",
            "[VKFMSTRUCTURE]",
            "darkloader",
            "Bugs:",
            "Release date :",
            " Garrett ",
            "\r\n",
            "\t",
            "[TITLE]",
            "%0A",
            "?",
            "#",
            QByteArray(1, '\0'),
            "\xE9",
            "\xC4\x8D",
            "By ",
            "</style>",
            " onclick='x' "};
}

} // namespace vantrosk
