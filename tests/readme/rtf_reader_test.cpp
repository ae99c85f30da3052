#include "readme/Rtf_Reader.h"

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

/// What stands between the document's braces, and the text of it.
struct Row {
    QByteArray rtf;
    QString text;
};

QByteArray Document(const QByteArray &body) {
    return "{\\rtf1\\ansi " + body + "}";
}

void Expect_texts(const std::vector<Row> &rows) {
    for (const Row &row : rows)
        EXPECT_EQ(Text_of_rtf(Document(row.rtf)), row.text) << row.rtf.toStdString();
}

} // namespace

TEST(Rtf_Text, Words_and_symbols_stand_for_characters) {
    Expect_texts({
        {"a\\par b", "a\nb"},
        {"a\\line b", "a\nb"},
        {"a\\sect b", "a\nb"},
        {"a\\page b", "a\nb"},
        {"a\\column b", "a\nb"},
        {"a\\row b", "a\nb"},
        {"a\\nestrow b", "a\nb"},
        {"a\\\nb", "a\nb"},
        {"a\\\rb", "a\nb"},
        {"a\\\r\nb", "a\nb"},
        {"a\\tab b", "a\tb"},
        {"a\\cell b", "a\tb"},
        {"a\\nestcell b", "a\tb"},
        {"a\\\tb", "a\tb"},
        {"a\tb", "a\tb"},
        {"a\\~b", u"a\u00A0b"_qs},
        {"a\\-b", "ab"},
        {"a\\_b", "a-b"},
        {"a\\:b\\|c", "abc"},
        {"\\\\ \\{ \\}", "\\ { }"},
        {"\\lquote a\\rquote", u"\u2018a\u2019"_qs},
        {"\\ldblquote a\\rdblquote", u"\u201Ca\u201D"_qs},
        {"\\bullet a", u"\u2022a"_qs},
        {"a\\endash b\\emdash c", u"a\u2013b\u2014c"_qs},
        {"a\\enspace b\\emspace c\\qmspace d", u"a\u2002b\u2003c\u2005d"_qs},
        {"a\\zwbo b\\zwj c\\zwnj d", u"a\u200Bb\u200Dc\u200Cd"_qs},
    });
}

TEST(Rtf_Text, A_word_ends_at_the_first_sign_that_is_not_of_it) {
    Expect_texts({
        {"\\b bold\\b0 plain", "boldplain"},
        {"\\b  bold", " bold"},
        {"\\fs24text", "text"},
        {"\\fs-24text", "text"},
        {"\\b-text", "-text"},
        {"\\par\\par", "\n\n"},
        {"\\PAR x", "x"},
        {"a\\par1 b", "a\nb"},
        {"\\fs99999999999999999999 x", "x"},
        {"\\" + QByteArray(100, 'p') + " x", "x"},
        {"\\par" + QByteArray(40, 'x') + " x", "x"},
    });
}

TEST(Rtf_Text, Line_ends_of_the_file_are_no_line_ends_of_the_text) {
    Expect_texts({{"a\r\nb\nc\rd\\par\r\ne", "abcd\ne"}});
}

TEST(Rtf_Text, Control_characters_are_left_out) {
    Expect_texts({
        {QByteArray("a\0b\x01\x1F\x7F"
                    "c",
                    7),
         "abc"},
        {"a\\'00\\'07\\u12?b", "ab"},
        {"a\\'0ab\\'0dc\\'09d", "a\nb\nc\td"},
        {"a\\u8232?b\\u8233?c", "a\nb\nc"},
    });
}

TEST(Rtf_Text, Groups_that_are_no_text_of_the_body_are_passed_over) {
    for (const char *word :
         {"fonttbl",   "colortbl",  "stylesheet", "info",    "pict",     "objdata",    "objclass",
          "objname",   "objalias",  "objsect",    "objtime", "header",   "headerl",    "headerr",
          "headerf",   "footer",    "footerl",    "footerr", "footerf",  "footnote",   "annotation",
          "atnid",     "atnauthor", "ftnsep",     "ftnsepc", "ftncn",    "aftnsep",    "aftnsepc",
          "aftncn",    "xe",        "tc",         "tcn",     "rxe",      "txe",        "fldinst",
          "fldtype",   "formfield", "filetbl",    "revtbl",  "template", "listtable",  "listoverridetable",
          "private",   "pntxta",    "pntxtb",     "sp",      "shprslt",  "nonshppict", "nonesttables",
          "background"}) {
        const QByteArray group = QByteArray("{\\") + word + " hidden{deeper\\par}\\u65?\\'41}";
        Expect_texts({{"a" + group + "b", "ab"}, {"a{\\*" + group.mid(1) + "b", "ab"}});
    }
}

TEST(Rtf_Text, A_starred_group_is_passed_over_unless_it_is_known) {
    Expect_texts({
        {"a{\\*\\generator Some Editor 1.0;}b", "ab"},
        {"a{\\*\\unheardof{\\b x}y}b", "ab"},
        {"a{\\*\\cs14 x}b", "ab"},
        {"a{\\* \\x y}b", "ab"},
        {"a{\\*\r\n\\x y}b", "ab"},
        {"a{\\*x \\x y}b", "ax yb"},
        {"a{\\unheardof x}b", "axb"},
        {"{\\*\\nesttableprops\\trowd\\nestrow}b", "\nb"},
        {"{\\shp{\\*\\shpinst\\shpleft1{\\sp{\\sn name}{\\sv 1}}{\\shptxt Title}}{\\shprslt Title}}",
         "Title"},
        {"{\\*\\bkmkstart here}a{\\*\\bkmkend here}", "a"},
    });
}

TEST(Rtf_Text, A_word_that_opens_a_group_is_known_after_others_too) {
    Expect_texts({
        {"a{ \\fonttbl {\\f0 Arial;}}b", "a b"},
        {"a{\\lang1033\\pict 0102ff}b", "ab"},
    });
}

TEST(Rtf_Text, The_group_of_the_document_is_never_passed_over) {
    EXPECT_EQ(Text_of_rtf("{\\rtf1\\info a\\par b}"), "a\nb");
    EXPECT_EQ(Text_of_rtf("{\\rtf1\\*\\unheardof a}"), "a");
    EXPECT_EQ(Text_of_rtf("{\\rtf1\\fonttbl\\f1\\fcharset238 \\f0 \\'e8}"), u"\u00E8"_qs);
}

TEST(Rtf_Text, A_field_shows_its_result_and_not_its_instruction) {
    Expect_texts({
        {"see {\\field{\\*\\fldinst{HYPERLINK \"http://example.org\"}}{\\fldrslt{\\ul my page}}}.",
         "see my page."},
        {"{\\field{\\fldinst PAGE}{\\fldrslt 3}}", "3"},
    });
}

TEST(Rtf_Text, An_object_shows_its_result) {
    Expect_texts({{"{\\object\\objemb{\\*\\objclass Word}{\\*\\objdata 01ff}{\\result shown}}", "shown"}});
}

TEST(Rtf_Text, Lists_keep_the_text_of_their_numbers) {
    Expect_texts({
        {"{\\listtext\\pard 1.\\tab}First\\par", "1.\tFirst\n"},
        {"{\\pntext\\f0\\'B7\\tab}{\\*\\pn\\pnlvlblt{\\pntxtb\\'B7}}First", u"\u00B7\tFirst"_qs},
    });
}

TEST(Rtf_Text, Of_two_readings_the_second_is_taken) {
    Expect_texts({
        {"a{\\upr{plain}{\\*\\ud{\\u269?}}}b", u"a\u010Db"_qs},
        {"a{\\*\\bkmkstart {\\upr{x}{\\*\\ud{y}}}}b", "ab"},
        {"a{\\upr}b{c}", "abc"},
    });
}

TEST(Rtf_Text, Hidden_and_deleted_text_is_left_out) {
    Expect_texts({
        {"a\\v x\\v0 b", "ab"},
        {"a{\\v x\\u269?\\'41\\par}b", "ab"},
        {"a\\v x\\plain b", "ab"},
        {"a{\\deleted x}b", "ab"},
    });
}

TEST(Rtf_Text, A_table_in_a_table_is_text) {
    Expect_texts({
        {"\\trowd\\intbl one\\cell two\\cell\\row\\intbl three\\cell\\row", "one\ttwo\t\nthree\t\n"},
        {"\\intbl a\\cell\\itap2 x\\nestcell{\\nonesttables\\par}y\\nestcell"
         "{\\*\\nesttableprops\\trowd\\nestrow}{\\nonesttables\\par}\\itap1 b\\cell\\row",
         "a\tx\ty\t\nb\t\n"},
    });
}

TEST(Rtf_Text, Raw_bytes_are_passed_over) {
    Expect_texts({
        {QByteArray("a\\bin5 {}\\\0}b", 13), "ab"},
        {"a\\bin b", "ab"},
        {"a\\bin0 b", "ab"},
        {"a\\bin-5 b", "ab"},
        {"a\\bin999999999 b", "a"},
        {"a{\\pict\\bin3 }}}}b", "ab"},
        {"a{\\*\\bin3 }}}}b", "ab"},
    });
}

TEST(Rtf_Unicode, A_unit_replaces_its_fall_back) {
    Expect_texts({
        {"\\u269?x", u"\u010Dx"_qs},
        {"\\u269 ?x", u"\u010Dx"_qs},
        {"\\u269\\'e8x", u"\u010Dx"_qs},
        {"\\u8220\\ldblquote x", u"\u201Cx"_qs},
        {"\\u269\\\\x", u"\u010Dx"_qs},
        {"\\u-4064?", u"\uF020"_qs.replace(QChar(0xF020), ' ')},
        {"\\u-3913?", u"\u00B7"_qs},
        {"\\u-10179?\\u-8704?", u"\U0001F600"_qs},
        {"\\u55357?\\u56832?", u"\U0001F600"_qs},
        {"\\u128512?", u"\U0001F600"_qs},
        {"\\u65535?", QString(QChar(0xFFFF))},
        {"\\u-1?", QString(QChar(0xFFFF))},
        {"\\u99999999?", ""},
        {"\\u-99999?", ""},
        {"\\u?x", "x"},
    });
}

TEST(Rtf_Unicode, The_length_of_the_fall_back_is_of_its_group) {
    Expect_texts({
        {"\\uc0\\u269 ?x", u"\u010D?x"_qs},
        {"\\uc2\\u269\\'b5\\'84x", u"\u010Dx"_qs},
        {"\\uc2\\u269 abx", u"\u010Dx"_qs},
        {"{\\uc2\\u269 abx}\\u269 abx", u"\u010Dx\u010Dbx"_qs},
        {"\\uc\\u269 abx", u"\u010Dbx"_qs},
        {"\\uc-3\\u269 x", u"\u010Dx"_qs},
        {"\\uc3\\u269 a\\u268 bcdx", u"\u010D\u010Cx"_qs},
        {"\\uc1\\u269\\bin2 {{x", u"\u010Dx"_qs},
        {"\\uc1\\u269\\b x", u"\u010Dx"_qs},
    });
}

TEST(Rtf_Unicode, A_fall_back_ends_with_its_group_and_its_line) {
    Expect_texts({
        {"{\\u269}x", u"\u010Dx"_qs},
        {"\\u269{x}", u"\u010Dx"_qs},
        {"\\u269\\par x", u"\u010D\nx"_qs},
        {"\\u269\\tab x", u"\u010D\tx"_qs},
        {"\\u269\\\nx", u"\u010D\nx"_qs},
    });
}

TEST(Rtf_Unicode, Half_a_pair_is_no_character) {
    Expect_texts({
        {"a\\u-10179?b", u"a\uFFFDb"_qs},
        {"a\\u-8704?b", u"a\uFFFDb"_qs},
        {"a\\u-8704?\\u-10179?", u"a\uFFFD\uFFFD"_qs},
        {"a\\u-10179?\\u-10179?\\u-8704?", u"a\uFFFD\U0001F600"_qs},
    });
}

TEST(Rtf_Code_Page, The_document_names_one) {
    const std::vector<Row> rows{
        {"{\\rtf1 \\'e8}", u"\u00E8"_qs},
        {"{\\rtf1\\ansi \\'e8}", u"\u00E8"_qs},
        {"{\\rtf1\\ansi\\ansicpg1250 \\'e8}", u"\u010D"_qs},
        {"{\\rtf1\\ansi\\ansicpg1251 \\'e8}", u"\u0438"_qs},
        {"{\\rtf1\\ansi\\ansicpg1253 \\'e8}", u"\u03B8"_qs},
        {"{\\rtf1\\ansi\\ansicpg1254 \\'f0}", u"\u011F"_qs},
        {"{\\rtf1\\ansi\\ansicpg0 \\'e8}", u"\u00E8"_qs},
        {"{\\rtf1\\ansi\\ansicpg-5 \\'e8}", u"\u00E8"_qs},
        {"{\\rtf1\\ansi\\ansicpg932 \\'93\\'90\\'91\\'af}", u"\u76D7\u8CCA"_qs},
        {"{\\rtf1\\ansi\\ansicpg932 \\'83V\\'81[\\'83t}", u"\u30B7\u30FC\u30D5"_qs},
        {"{\\rtf1\\ansi\\ansicpg932 \\'95\\\\ \\'95\\'5c}", u"\u8868 \u8868"_qs},
        {"{\\rtf1\\ansi\\ansicpg932 \\'83\\{\\'83\\}}", u"\u30DC\u30DE"_qs},
        {"{\\rtf1\\ansi\\ansicpg932 \\'93\r\n\\'90}", u"\u76D7"_qs},
        {"{\\rtf1\\ansi\\ansicpg936 \\'b5\\'c1\\'d4\\'f4}", u"\u76D7\u8D3C"_qs},
        {"{\\rtf1\\ansi\\ansicpg949 \\'b5\\'b5\\'b5\\'cf}", u"\uB3C4\uB451"_qs},
        {"{\\rtf1\\ansi\\ansicpg950 \\'ae\\'61\\'b5\\'73}", u"\u5BB6\u76DC"_qs},
        {"{\\rtf1\\ansi\\ansicpg1361 \\'e8}", u"\u00E8"_qs},
        {"{\\rtf1\\ansi\\ansicpg65001 \\'c4\\'8d}", u"\u010D"_qs},
        {"{\\rtf1\\ansi\\ansicpg65001 \xC4\x8D}", u"\u010D"_qs},
        {"{\\rtf1\\mac \\'8e}", u"\u00E9"_qs},
        {"{\\rtf1\\pc \\'82\\'e1}", u"\u00E9\u00DF"_qs},
        {"{\\rtf1\\pca \\'d0}", u"\u00F0"_qs},
        {"{\\rtf1\\ansi\\ansicpg1250 \xE8}", u"\u010D"_qs},
    };
    for (const Row &row : rows)
        EXPECT_EQ(Text_of_rtf(row.rtf), row.text) << row.rtf.toStdString();
}

TEST(Rtf_Code_Page, A_font_has_its_own) {
    const QByteArray start = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Arial;}"
                             "{\\f1\\fnil\\fcharset238{\\*\\fname Arial;}Arial CE;}"
                             "{\\f2\\fcharset204 Arial Cyr;}{\\f3\\fcharset161 G;}{\\f4\\fcharset162 T;}"
                             "{\\f5\\fcharset1 D;}{\\f6\\fcharset2 Symbol;}{\\f7\\fcharset0\\cpg1250 Z;}"
                             "{\\f8\\fcharset77 M;}{\\f9\\fcharset254 P;}{\\f10\\fcharset255 O;}"
                             "{\\f11\\fcharset134 S;}{\\f12 N;}{\\f13\\fcharset128 J;}"
                             "{\\f14\\fcharset129 K;}{\\f15\\fcharset136 B;}{\\f16\\fcharset177 H;}"
                             "{\\f17\\fcharset178 A;}{\\f18\\fcharset186 L;}{\\f19\\fcharset163 V;}"
                             "{\\f20\\fcharset222 T;}{\\f21\\fcharset88 E;}}";
    const std::vector<Row> rows{
        {"\\'e8", u"\u00E8"_qs},
        {"\\f0\\'e8", u"\u00E8"_qs},
        {"\\f1\\'e8", u"\u010D"_qs},
        {"\\f2\\'e8", u"\u0438"_qs},
        {"\\f3\\'e8", u"\u03B8"_qs},
        {"\\f4\\'f0", u"\u011F"_qs},
        {"\\f5\\'e8", u"\u00E8"_qs},
        {"\\f6\\'b7", u"\u00B7"_qs},
        {"\\f7\\'e8", u"\u010D"_qs},
        {"\\f8\\'8e", u"\u00E9"_qs},
        {"\\f9\\'e1", u"\u00DF"_qs},
        {"\\f10\\'d0", u"\u00F0"_qs},
        {"\\f11\\'b5\\'c1", u"\u76D7"_qs},
        {"\\f13\\'93\\'90", u"\u76D7"_qs},
        {"\\f14\\'b5\\'b5", u"\uB3C4"_qs},
        {"\\f15\\'b5\\'73", u"\u76DC"_qs},
        {"\\f16\\'e2", u"\u05D2"_qs},
        {"\\f17\\'e1", u"\u0644"_qs},
        {"\\f18\\'e8", u"\u010D"_qs},
        {"\\f19\\'f0", u"\u0111"_qs},
        {"\\f20\\'e2", u"\u0E42"_qs},
        {"\\f21\\'8b", u"\u010D"_qs},
        {"{\\f13\\'93}\\'90", ""},
        {"\\f13\\uc2\\u30423\\'93\\'90x", u"\u76D7x"_qs},
        {"\\f12\\'e8", u"\u00E8"_qs},
        {"\\f99\\'e8", u"\u00E8"_qs},
        {"{\\f1\\'e8}\\'e8", u"\u010D\u00E8"_qs},
        {"\\f1\\'e8\\plain\\'e8", u"\u010D\u00E8"_qs},
        {"\\f1\\'e8\\f2\\'e8", u"\u010D\u0438"_qs},
    };
    for (const Row &row : rows)
        EXPECT_EQ(Text_of_rtf(start + row.rtf + "}"), row.text) << row.rtf.toStdString();
}

TEST(Rtf_Code_Page, Text_without_a_font_is_in_the_default_font) {
    EXPECT_EQ(Text_of_rtf("{\\rtf1\\ansi\\deff3{\\fonttbl{\\f0\\fcharset0 A;}{\\f3\\fcharset204 B;}}\\'e8}"),
              u"\u0438"_qs);
}

TEST(Rtf_Code_Page, A_font_table_without_inner_groups_is_read) {
    EXPECT_EQ(Text_of_rtf("{\\rtf1{\\fonttbl\\f0\\fcharset0 A;\\f1\\fcharset238 B;}\\f1\\'e8\\f0\\'e8}"),
              u"\u010D\u00E8"_qs);
}

TEST(Rtf_Code_Page, A_font_without_a_set_follows_the_document) {
    EXPECT_EQ(Text_of_rtf("{\\rtf1\\ansicpg1251{\\fonttbl{\\f0 A;}{\\f1\\fcharset1 B;}}\\f0\\'e8\\f1\\'e8}"),
              u"\u0438\u0438"_qs);
}

TEST(Rtf_Broken, A_document_gives_what_stands_before_the_break) {
    const std::vector<Row> rows{
        {"{\\rtf1", ""},
        {"{\\rtf1 text", "text"},
        {"{\\rtf1 text\\", "text"},
        {"{\\rtf1 text\\'", "text"},
        {"{\\rtf1 text\\'e", "texte"},
        {"{\\rtf1 text\\'zzz", "textzzz"},
        {"{\\rtf1 text\\'4}", "text4"},
        {"{\\rtf1 text\\u", QString("text")},
        {"{\\rtf1 text\\u-", "text"},
        {"{\\rtf1 text{\\b bold", "textbold"},
        {"{\\rtf1 text{\\pict 0102", "text"},
        {"{\\rtf1 text}behind", "text"},
        {"{\\rtf1 text}}}{more}", "text"},
        {"{\\rtf1 text\\*", "text"},
        {"{\\rtf1 a{{{b", "ab"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(Text_of_rtf(row.rtf), row.text) << row.rtf.toStdString();
}

TEST(Rtf_Broken, A_document_that_is_cut_anywhere_gives_the_start_of_its_text) {
    const QByteArray whole = Document("one\\par {\\b two}\\'e8{\\pict 01}\\tab three");
    const QString text = Text_of_rtf(whole);
    EXPECT_EQ(text, u"one\ntwo\u00E8\tthree"_qs);
    for (qsizetype length = 7; length <= whole.size(); ++length) {
        const QString part = Text_of_rtf(whole.left(length));
        const bool inside_hex = whole.left(length).endsWith("\\'e");
        EXPECT_TRUE(text.startsWith(inside_hex ? part.chopped(1) : part))
            << length << " " << part.toStdString();
    }
}

TEST(Rtf_Broken, Marks_and_blanks_before_the_document_are_no_text) {
    EXPECT_EQ(Text_of_rtf("\xEF\xBB\xBF{\\rtf1 a}"), "a");
    EXPECT_EQ(Text_of_rtf(" \r\n{\\rtf1 a}"), "a");
    EXPECT_EQ(Text_of_rtf("{\\rtf a}"), "a");
}

TEST(Rtf_Broken, A_file_under_the_wrong_name_is_taken_for_what_it_is) {
    EXPECT_EQ(Text_of_rtf(""), "");
    EXPECT_EQ(Text_of_rtf("Title: X\r\nAuthor: Y\r\n"), "Title: X\nAuthor: Y");
    EXPECT_EQ(Text_of_rtf("{Na\xEFve}"), u"{Na\u00EFve}"_qs);
    EXPECT_EQ(Text_of_rtf(QByteArray("\xFF\xFET\0:\0", 6)), "T:");
    EXPECT_EQ(Text_of_rtf(QByteArray("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1\0\0\0\0", 12)), "");
}

TEST(Rtf_Bounds, Groups_past_the_limit_are_counted) {
    for (const int depth : {998, 999, 1000, 1001, 5000}) {
        const QByteArray nested = QByteArray("{").repeated(depth) + "deep" + QByteArray("}").repeated(depth);
        EXPECT_EQ(Text_of_rtf(Document("a" + nested + "b")), "adeepb") << depth;
        EXPECT_EQ(Text_of_rtf(Document("a{\\pict" + nested + "}b")), "ab") << depth;
        EXPECT_EQ(Text_of_rtf(Document("a{\\uc0" + nested + "}\\u269?b")), u"adeep\u010Db"_qs) << depth;
    }
    const QByteArray open = QByteArray("{").repeated(1500);
    EXPECT_EQ(Text_of_rtf(Document(open + "a{\\pict 01}b")), "ab");
}

TEST(Rtf_Bounds, Only_the_first_8_MiB_are_read) {
    const QByteArray start = "{\\rtf1 ";
    const qsizetype limit = 8 << 20;
    const QByteArray filler(limit - start.size(), 'x');
    EXPECT_EQ(Text_of_rtf(start + filler + "beyond}").size(), filler.size());
}

TEST(Rtf_Bounds, Every_shape_of_a_large_file_is_read_once) {
    const qsizetype limit = 2 << 20;
    for (const QByteArray &piece :
         {QByteArray("{"), QByteArray("}"), QByteArray("\\"), QByteArray("\\u-10179?"), QByteArray("\\'e8"),
          QByteArray("{\\pict "), QByteArray("\\f1"), QByteArray("{\\upr{"), QByteArray("\\bin1 "),
          QByteArray("a\\b0 "), QByteArray("{\\*\\ud"), QByteArray("\\uc255\\u1 ")}) {
        const QByteArray document = "{\\rtf1 " + piece.repeated(limit / piece.size());
        EXPECT_LE(Text_of_rtf(document).size(), limit) << piece.toStdString();
    }
}

} // namespace vantrosk
