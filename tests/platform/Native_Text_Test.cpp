#include "platform/Native_Text.h"
#include "support/Print.h"

#include <gtest/gtest.h>

#include <random>

namespace vantrosk {
namespace {

struct Row {
    const char *native;
    const char16_t *text;
};

constexpr Row rows[] = {
    {"", u""},
    {"/home/u/frost.zip", u"/home/u/frost.zip"},
    {"/Žluť/🐎", u"/Žluť/🐎"},
    {"caf\xE9.zip", u"caf\uF0E9.zip"},                 // Latin-1
    {"\x8A\x8B", u"\uF08A\uF08B"},                     // nothing but such bytes
    {"\xFF\x80\xC0\xAF", u"\uF0FF\uF080\uF0C0\uF0AF"}, // an overlong "/" is none
    {"\xED\xA0\x80", u"\uF0ED\uF0A0\uF080"},           // half of a pair
    {"\xF4\x90\x80\x80", u"\uF0F4\uF090\uF080\uF080"}, // above the last character
    {"\xC5", u"\uF0C5"},                               // cut off
    {"\xE2\x82", u"\uF0E2\uF082"},                     // cut off
    {"\xE2\x82\xAC\xE2", u"€\uF0E2"},                  // behind a good one
    {"\xEF\xBF\xBD", u"\uFFFD"},                       // that sign itself
    {"\xEF\xBF\xBD\xE9", u"\uFFFD\uF0E9"},             // and a real fault beside it
    {"\xEF\x83\xA9", u"\uF0EF\uF083\uF0A9"},           // a stand-in in the name itself
    {"\xEF\x81\x9C", u"\uF0EF\uF081\uF09C"},           // that of the backslash
    {"\xEF\x80\xA2", u"\uF022"},                       // a neighbour is no stand-in
    {"\xEF\xBB\xBFx", u"\uF0EF\uF0BB\uF0BFx"},         // a mark at the start
};

class Native_Text_Rows : public testing::TestWithParam<Row> {};

TEST_P(Native_Text_Rows, Each_path_has_its_text_and_comes_back) {
    const QByteArray native(GetParam().native);
    EXPECT_EQ(Native_text(native), QString::fromUtf16(GetParam().text));
    EXPECT_EQ(Native_bytes(Native_text(native)), native);
    EXPECT_EQ(QString::fromUtf8(Native_text(native).toUtf8()), Native_text(native)) << "not in a UTF-8 file";
}

INSTANTIATE_TEST_SUITE_P(Table, Native_Text_Rows, testing::ValuesIn(rows));

TEST(Native_Text, Any_bytes_come_back_as_a_path_and_as_a_name) {
    std::mt19937 random(1);
    constexpr unsigned char telling[] = {0x80, 0xBF, 0xC0, 0xC3, 0xE2, 0xED, 0xEF, 0xF0, 0xF4,
                                         0xFF, '\\', 'a',  0x81, 0x9C, 0x82, 0xAC, 0xBB, 0xBD};
    for (int round = 0; round < 20000; ++round) {
        QByteArray bytes;
        for (unsigned length = random() % 9; length > 0; --length)
            bytes +=
                static_cast<char>(random() % 4 ? telling[random() % sizeof telling] : 1 + random() % 255);
        ASSERT_EQ(Native_bytes(Native_text(bytes)), bytes) << bytes.toHex().toStdString();
        ASSERT_EQ(Name_to_native(Name_from_native(bytes)), bytes) << bytes.toHex().toStdString();
        ASSERT_FALSE(Name_from_native(bytes).contains('\\'));
    }
}

TEST(Native_Text, A_word_of_the_command_line_is_what_was_printed_or_a_native_path) {
    EXPECT_EQ(Argument_text("caf\xE9.zip"), QStringLiteral("caf\uF0E9.zip"));
    EXPECT_EQ(Argument_text(QStringLiteral("caf\uF0E9.zip").toUtf8()), QStringLiteral("caf\uF0E9.zip"));
    EXPECT_EQ(Argument_text("Žluť"), "Žluť");
    EXPECT_EQ(Argument_text(""), "");
}

TEST(Native_Text, A_backslash_in_a_name_has_its_own_stand_in) {
    EXPECT_EQ(Name_from_native("a\\b\xE9"), QStringLiteral("a\uF05Cb\uF0E9"));
    EXPECT_EQ(Native_text(QByteArray("a\\b")), "a\\b");
    EXPECT_EQ(Name_to_native(QStringLiteral("a\uF05Cb\uF0E9")), "a\\b\xE9");
}

} // namespace
} // namespace vantrosk
