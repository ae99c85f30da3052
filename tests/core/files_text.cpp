#include "core/mdlFile_Functions.h"
#include "support/World.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct Text_Row {
    const char *what;
    QByteArray bytes;
    QString text;
};

struct Text_Files : testing::Test {
    World world;
    Program program{world.platform, world.ui, world.windows("home")};
};

} // namespace

TEST(Decode_Text, Each_encoding_gives_its_text) {
    const Text_Row rows[] = {
        {"nothing", "", ""},
        {"plain", "Thief", "Thief"},
        {"UTF-8", "\xC5\xBDlu\xC5\xA5", QString::fromUtf8("Žluť")},
        {"UTF-8 with mark", "\xEF\xBB\xBF\xC3\xA9", QString::fromUtf8("é")},
        {"UTF-8 beyond the first plane", "\xF0\x9F\x97\x9D", QString::fromUtf8("🗝")},
        {"a mark alone", "\xEF\xBB\xBF", ""},
        {"UTF-16 little", QByteArray("\xFF\xFEZ\0\x7D\x01", 6), QString::fromUtf8("ZŽ")},
        {"UTF-16 big", QByteArray("\xFE\xFF\0Z\x01\x7D", 6), QString::fromUtf8("ZŽ")},
        {"UTF-16 mark alone", "\xFF\xFE", ""},
        {"Windows-1252", "caf\xE9 \x93quoted\x94 \x80", QString::fromUtf8("café “quoted” €")},
        {"broken UTF-8", "\xC5\xBD \xC5", QString::fromUtf8("Å½ Å")},
        {"overlong UTF-8", "\xC0\xAF", QString::fromUtf8("À¯")},
        {"a surrogate in UTF-8", "\xED\xA0\x80", QString::fromUtf8("í\u00A0€")},
        {"a zero byte", QByteArray("a\0b", 3), QString::fromLatin1("a\0b", 3)},
    };
    for (const Text_Row &row : rows)
        EXPECT_EQ(Decode_text(row.bytes).toStdString(), row.text.toStdString()) << row.what;
}

TEST(Decode_Text, Windows_1252_has_its_own_signs_from_80_to_9F) {
    QByteArray bytes;
    for (int byte = 0x80; byte <= 0xFF; ++byte)
        bytes += static_cast<char>(byte);
    QString expected = QString::fromUtf8("€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸ");
    for (char16_t letter = 0xA0; letter <= 0xFF; ++letter)
        expected += QChar(letter);
    EXPECT_EQ(Decode_text(bytes).toStdString(), expected.toStdString());
}

TEST(Decode_Text, An_odd_last_byte_of_UTF_16_harms_nothing_before_it) {
    EXPECT_TRUE(Decode_text(QByteArray("\xFF\xFEZ\0Z", 5)).startsWith("Z"));
}

TEST(Split_Lines, Lines_end_at_CR_LF_and_LF_and_CR) {
    EXPECT_EQ(Split_lines("a\r\nb\nc\rd"), QStringList({"a", "b", "c", "d"}));
    EXPECT_EQ(Split_lines("a\r\n\r\nb\n\nc\r\rd\n\re"),
              QStringList({"a", "", "b", "", "c", "", "d", "", "e"}));
}

TEST(Split_Lines, An_end_of_line_at_the_end_adds_no_line) {
    EXPECT_EQ(Split_lines("a\r\n"), QStringList({"a"}));
    EXPECT_EQ(Split_lines("a\r\n\r\n"), QStringList({"a", ""}));
    EXPECT_EQ(Split_lines("\n"), QStringList({""}));
    EXPECT_EQ(Split_lines(""), QStringList());
}

TEST(Split_Lines, A_line_is_cut_at_64_KiB_and_the_next_one_is_whole) {
    const QString longest(65536, 'x');
    EXPECT_EQ(Split_lines(longest + "yz\nnext"), QStringList({longest, "next"}));
    EXPECT_EQ(Split_lines(longest), QStringList({longest}));
}

TEST_F(Text_Files, A_file_is_read_as_lines) {
    world.write("home/readme.txt", "Title\r\n\xE9tude\n");
    EXPECT_EQ(Read_text_lines(program, world.windows("home/readme.txt")),
              QStringList({"Title", QString::fromUtf8("étude")}));
}

TEST_F(Text_Files, What_is_no_file_has_no_lines) {
    EXPECT_EQ(Read_text_lines(program, world.windows("home/missing.txt")), QStringList());
    EXPECT_EQ(Read_text_lines(program, world.windows("home")), QStringList());
    EXPECT_EQ(First_line(program, world.windows("home/missing.txt")), "");
}

TEST_F(Text_Files, Eight_MiB_of_a_file_are_read_and_a_character_is_not_torn) {
    const QByteArray line = QByteArray(1023, 'x') + "\n";
    QByteArray content = line.repeated(8192);
    content.replace(content.size() - 3, 3, "x\n\xC5");
    content += QByteArray("\xBD", 1) + "\nbeyond\n";
    world.write("home/long.txt", content);
    const QStringList lines = Read_text_lines(program, world.windows("home/long.txt"));
    ASSERT_EQ(lines.size(), 8192);
    EXPECT_EQ(lines.first(), QString(1023, 'x'));
    EXPECT_EQ(lines.last(), QString(1022, 'x'));
}

TEST_F(Text_Files, The_first_line_of_a_file) {
    world.write("home/one.txt", "http://a.example \r\nsecond");
    EXPECT_EQ(First_line(program, world.windows("home/one.txt")), "http://a.example ");
    world.write("home/empty.txt", "");
    EXPECT_EQ(First_line(program, world.windows("home/empty.txt")), "");
}

TEST_F(Text_Files, Lines_are_written_in_UTF_8_each_ended_by_CR_LF) {
    EXPECT_FALSE(Write_text_lines(program, world.windows("home/new.txt"), {"a", "", QString::fromUtf8("Ž")}));
    EXPECT_EQ(world.read("home/new.txt"), "a\r\n\r\n\xC5\xBD\r\n");
    EXPECT_FALSE(Write_text_lines(program, world.windows("home/new.txt"), {}));
    EXPECT_EQ(world.read("home/new.txt"), "");
    EXPECT_TRUE(world.exists("home/new.txt"));
}

TEST_F(Text_Files, A_file_that_can_not_be_written_gives_the_fault) {
    world.make_folder("home/in the way");
    EXPECT_TRUE(Write_text_lines(program, world.windows("home/in the way"), {"a"}));
}
