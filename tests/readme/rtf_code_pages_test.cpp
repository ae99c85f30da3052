#include "readme/Code_Pages.h"
#include "support/Print.h"

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
        {65001, "\xC4\x8D\xF0\x9F\x98\x80", u"\u010D\U0001F600"_qs},
        {65001, "a\xFFz", u"a\uFFFDz"_qs},
    };
    for (const Row &row : rows)
        EXPECT_EQ(Text_of_code_page(row.bytes, row.page), row.text) << row.page;
}

TEST(Code_Pages, The_lower_half_is_the_same_in_all) {
    QByteArray lower;
    for (int byte = 0; byte < 0x80; ++byte)
        lower += static_cast<char>(byte);
    for (const int page : {1250, 1251, 1252, 1253, 1254, 437, 850, 10000, 65001})
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
    for (const int page : {0, -1, 932, 1255, 99999})
        EXPECT_EQ(Text_of_code_page(Upper_bytes(), page), Text_of_code_page(Upper_bytes(), 1252)) << page;
}

} // namespace vantrosk
