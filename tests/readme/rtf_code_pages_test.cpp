#include "readme/Code_Pages.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vantrosk {

namespace {

QByteArray Upper_bytes() {
    QByteArray bytes;
    for (int byte = 0x80; byte <= 0xFF; ++byte)
        bytes += static_cast<char>(byte);
    return bytes;
}

} // namespace

TEST(Code_Pages, Words_in_their_own_page_are_read) {
    struct Row {
        int page;
        QByteArray bytes;
        QString text;
    };
    const std::vector<Row> rows{
        {1250, "P\xF8\xEDli\x9A \x9Elu\x9Dou\xE8k\xFD k\xF9\xF2",
         u"P\u0159\u00EDli\u0161 \u017Elu\u0165ou\u010Dk\u00FD k\u016F\u0148"_qs},
        {1250, "Za\xBF\xF3\xB3\xE6 g\xEA\x9Cl\xB9 ja\x9F\xF1",
         u"Za\u017C\u00F3\u0142\u0107 g\u0119\u015Bl\u0105 ja\u017A\u0144"_qs},
        {1251, "\xC2\xEE\xF0 \xB8\xB9\x95", u"\u0412\u043E\u0440 \u0451\u2116\u2022"_qs},
        {1252, "na\xEFve \x80\x93\x94\x99", u"na\u00EFve \u20AC\u201C\u201D\u2122"_qs},
        {1253, "\xCA\xEB\xDD\xF6\xF4\xE7\xF2", u"\u039A\u03BB\u03AD\u03C6\u03C4\u03B7\u03C2"_qs},
        {1254, "\xDD\xFE\xF0\xFD\xD0\xDE", u"\u0130\u015F\u011F\u0131\u011E\u015E"_qs},
        {437, "\x81\xE1\xC9\xCD\xBB", u"\u00FC\u00DF\u2554\u2550\u2557"_qs},
        {850, "\x81\xE1\xD0\xB5", u"\u00FC\u00DF\u00F0\u00C1"_qs},
        {10000, "caf\x8E \xD2\xD3 \xA5", u"caf\u00E9 \u201C\u201D \u2022"_qs},
        {932, "\x83V\x81[\x83t \x93\x90\x91\xAF\xB1 \x95\x5C",
         u"\u30B7\u30FC\u30D5 \u76D7\u8CCA\uFF71 \u8868"_qs},
        {936, "\xB5\xC1\xD4\xF4 \x80 \x81\x40", u"\u76D7\u8D3C \u20AC \u4E02"_qs},
        {949, "\xB5\xB5\xB5\xCF \x8C\x63", u"\uB3C4\uB451 \uB620"_qs},
        {950, "\xAE\x61\xB5\x73 \xA5\x5C", u"\u5BB6\u76DC \u529F"_qs},
        {54936, "\xB5\xC1\x81\x30\x81\x30", u"\u76D7\u0080"_qs},
        {874, "\xE2\xA8\xC3", u"\u0E42\u0E08\u0E23"_qs},
        {1255, "\xE2\xF0\xE1", u"\u05D2\u05E0\u05D1"_qs},
        {1256, "\xE1\xD5", u"\u0644\u0635"_qs},
        {1257, "vag\xE1tis \xE8", u"vag\u012Ftis \u010D"_qs},
        {1258, "\xF0\x80", u"\u0111\u20AC"_qs},
        {852, "\x9F\xD8\xE7", u"\u010D\u011B\u0161"_qs},
        {866, "\x82\xAE\xE0", u"\u0412\u043E\u0440"_qs},
        {20866, "\xF7\xCF\xD2", u"\u0412\u043E\u0440"_qs},
        {28592, "\xE8\xEC\xB9", u"\u010D\u011B\u0161"_qs},
        {10007, "\x82\xEE\xF0", u"\u0412\u043E\u0440"_qs},
        {10029, "\x8B\x9E\xE4", u"\u010D\u011B\u0161"_qs},
        {932, "a\x83", "a"},
        {65001, "\xC4\x8D\xF0\x9F\x98\x80", u"\u010D\U0001F600"_qs},
        {65001, "a\xFFz", u"a\uFFFDz"_qs},
    };
    for (const Row &row : rows)
        EXPECT_EQ(Text_of_code_page(row.bytes, row.page), row.text) << row.page;
}

TEST(Code_Pages, The_lower_half_is_the_same_in_all) {
    QByteArray lower("\t\r\n");
    for (int byte = 0x20; byte < 0x7F; ++byte)
        lower += static_cast<char>(byte);
    for (const int page : {1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257,  1258,  437,  850,
                           852,  866,  874,  932,  936,  949,  950,  10000, 10007, 65001})
        EXPECT_EQ(Text_of_code_page(lower, page), QString::fromLatin1(lower)) << page;
}

TEST(Code_Pages, No_character_stands_twice_in_a_page) {
    for (const int page : {1250, 1251, 1252, 1253, 1254, 437, 850, 10000}) {
        QString text = Text_of_code_page(Upper_bytes(), page);
        ASSERT_EQ(text.size(), 128) << page;
        std::sort(text.begin(), text.end());
        EXPECT_EQ(std::adjacent_find(text.begin(), text.end()), text.end()) << page;
    }
}

TEST(Code_Pages, An_unknown_page_reads_as_western) {
    for (const int page : {0, -1, 1361, 1200, 99999})
        EXPECT_EQ(Text_of_code_page(Upper_bytes(), page), Text_of_code_page(Upper_bytes(), 1252)) << page;
}

} // namespace vantrosk
