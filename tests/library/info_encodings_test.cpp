#include "library/Info_World.h"

using namespace vantrosk;

namespace {

struct Encoding_Case {
    const char *name;
    QByteArray start; ///< of the file: its mark
    QByteArray (*encoded)(const QString &text);
};

struct Encoding_Row : Info_World, testing::WithParamInterface<Encoding_Case> {};
struct Info_Encodings : Info_World {};

QByteArray Utf16(const QString &text, bool big) {
    QByteArray bytes;
    for (const QChar unit : text) {
        bytes += static_cast<char>(big ? unit.row() : unit.cell());
        bytes += static_cast<char>(big ? unit.cell() : unit.row());
    }
    return bytes;
}

const QString text = u"Title : Na\u00EFve \u201CVault\u201D\r\nAuthor : Ren\u00E9e\r\nGame : Thief 2\r\n"_qs;

} // namespace

TEST_P(Encoding_Row, Is_read_for_the_fields_and_for_the_page) {
    const QByteArray bytes = GetParam().start + GetParam().encoded(text);
    examine({a_mission, Readme(bytes)});
    EXPECT_EQ(details().name, u"Na\u00EFve \u201CVault\u201D"_qs.remove('"'));
    EXPECT_EQ(details().author, u"Ren\u00E9e"_qs);
    EXPECT_EQ(program.CURRENT_GAME, "T2");
    EXPECT_EQ(world.read("home/info/readme.txt"), bytes);
    EXPECT_TRUE(QString::fromUtf8(world.read("home/info/readme.htm")).contains(u"Ren\u00E9e"_qs));
}

INSTANTIATE_TEST_SUITE_P(Table, Encoding_Row,
                         testing::Values(Encoding_Case{"utf_8", "",
                                                       [](const QString &one) {
                                                           return one.toUtf8();
                                                       }},
                                         Encoding_Case{"utf_8_with_mark", "\xEF\xBB\xBF",
                                                       [](const QString &one) {
                                                           return one.toUtf8();
                                                       }},
                                         Encoding_Case{"utf_16_little", "\xFF\xFE",
                                                       [](const QString &one) {
                                                           return Utf16(one, false);
                                                       }},
                                         Encoding_Case{"utf_16_big", "\xFE\xFF",
                                                       [](const QString &one) {
                                                           return Utf16(one, true);
                                                       }},
                                         Encoding_Case{"windows_1252", "",
                                                       [](const QString &one) {
                                                           return QString(one)
                                                               .replace(QChar(0x201C), QChar(0x93))
                                                               .replace(QChar(0x201D), QChar(0x94))
                                                               .toLatin1();
                                                       }}),
                         [](const auto &row) { return std::string(row.param.name); });

TEST_F(Info_Encodings, Line_ends_of_every_kind_end_lines) {
    for (const char *end : {"\r\n", "\n", "\r"}) {
        const QByteArray line_end(end);
        examine({a_mission,
                 Readme("Title : One" + line_end + "Author : Ann" + line_end + "Game : Thief 2" + line_end)});
        const QStringList fields{details().name, details().author, details().game};
        EXPECT_EQ(fields, (QStringList{"One", "Ann", "Thief 2"})) << line_end.toHex().toStdString();
    }
}

TEST_F(Info_Encodings, A_readme_is_read_to_8_MiB) {
    const QByteArray line = QByteArray(1022, 'x') + "\r\n";
    const QByteArray filler = line.repeated((8 << 20) / line.size());
    examine({a_mission, Readme("Title : Early\r\n" + filler + "Author : Late\r\n")});
    EXPECT_EQ(details().name, "Early");
    EXPECT_EQ(details().author, "");
    EXPECT_FALSE(program.fm.readme_page.isEmpty());
}

TEST_F(Info_Encodings, A_line_is_read_to_64_KiB) {
    examine(
        {a_mission, Readme("Title : " + QByteArray(100000, 'x') + "\r\nAuthor : Ann\r\nGame : Thief 2\r\n")});
    EXPECT_EQ(details().name, QString(65536 - 8, 'x'));
    EXPECT_EQ(details().author, "Ann");
}

TEST_F(Info_Encodings, Bytes_that_are_no_text_do_no_harm) {
    QByteArray bytes;
    for (int i = 0; i < 4096; ++i)
        bytes += static_cast<char>(i * 7);
    examine({a_mission, Readme("Game : Thief 2\r\n" + bytes)});
    EXPECT_EQ(program.CURRENT_GAME, "T2");
    EXPECT_FALSE(program.fm.readme_page.isEmpty());
    EXPECT_TRUE(world.ui.boxes.empty());
}
