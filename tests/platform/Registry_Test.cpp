#include "Platform_World.h"

#include <QStringEncoder>

namespace vantrosk {
namespace {

constexpr const char *system_reg = R"(WINE REGISTRY Version 2
;; All keys relative to \\Machine

#arch=win64

[Software\\Ion Storm\\Thief - Deadly Shadows] 1700000000 1234567
#time=1da0000000000
"ION_ROOT"="C:\\Games\\Thief 3\\"
"SaveGamePath"="C:\\users\\u\\My Documents\\\x17dlu\x165"
@="the unnamed value"

[Software\\Kinds] 1700000000
"dword"=dword:0000001f
"largest"=dword:ffffffff
"expand"=str(2):"%PROGRAMFILES%\\x"
"expand all"=str(2):"%SystemDrive%\\a;%SystemRoot%;%windir%;%ProgramFiles(x86)%;%ProgramW6432%;%ProgramData%;%PUBLIC%;%other%;100%"
"expand hex"=hex(2):25,00,73,00,79,00,73,00,74,00,65,00,6d,00,64,00,72,00,\
  69,00,76,00,65,00,25,00,5c,00,78,00,00,00
"no variable"="%PROGRAMFILES%\\x"
"hex"=hex(2):41,00,e4,00,42,\
  00,7d,\
  01,00,00,43,00
"plain hex"=hex(1):41,00,42,00
"binary"=hex:01,02,03
"many"=str(7):"a\0b\0"
"empty"=""
"letters"="tab\there, line\nend, bell\a, quote\"d, \[x\]"
"octal"="\1\033x\0601"
"short"="\xe9\x20AC\x41""
"pair"="\xd83d\xdc0e"
"utf-8"="Žluť"
"long name with \"quotes\" and \x17d"="found"
"equals=in=name"="a=b"

[Software\\Both] 1700000000
"here"="plain"

[Software\\Wow6432Node\\Both] 1700000000
"here"="of 32 bits"
"only there"="of 32 bits"

[Software\\Wow6432Node\\Only\\Deep] 1700000000
"x"="of 32 bits"
"expand"=str(2):"%ProgramFiles%\\x"

[Software\\Classes\\.zip] 1700000000
@="zipfile"

[Software\\Microsoft\\Windows NT\\CurrentVersion] 1700000000
"CurrentVersion"="5.1"

[System\\Key] 1700000000
"x"="y"
)";

class Registry_Test : public testing::Test {
protected:
    Registry_Test() {
        world.write("prefix/system.reg", system_reg);
        world.write("prefix/user.reg",
                    "WINE REGISTRY Version 2\n\n[Software\\\\Own] 1\n\"x\"=\"of the user\"\n");
    }
    QString read(const QString &path) const { return world.platform.registry->read(path).value_or("<none>"); }

    Platform_World world;
};

struct Row {
    const char *path;
    const char *text;
};

constexpr Row found_rows[] = {
    {"HKEY_LOCAL_MACHINE\\SOFTWARE\\Ion Storm\\Thief - Deadly Shadows\\ION_ROOT", "C:\\Games\\Thief 3\\"},
    {"hkey_local_machine\\software\\ION STORM\\thief - deadly shadows\\ion_root", "C:\\Games\\Thief 3\\"},
    {"HKLM\\SOFTWARE\\Ion Storm\\Thief - Deadly Shadows\\SaveGamePath", "C:\\users\\u\\My Documents\\Žluť"},
    {"HKLM\\Software\\Ion Storm\\Thief - Deadly Shadows\\", "the unnamed value"},
    {"HKLM\\Software\\Kinds\\dword", "31"},
    {"HKLM\\Software\\Kinds\\largest", "4294967295"},
    {"HKLM\\Software\\Kinds\\expand", "C:\\Program Files\\x"},
    {"HKLM\\Software\\Kinds\\expand all", "C:\\a;C:\\windows;C:\\windows;C:\\Program Files (x86);C:\\Program "
                                          "Files;C:\\ProgramData;C:\\users\\Public;%other%;100%"},
    {"HKLM\\Software\\Kinds\\expand hex", "C:\\x"},
    {"HKLM\\Software\\Kinds\\no variable", "%PROGRAMFILES%\\x"},
    {"HKLM\\Software\\Only\\Deep\\expand", "C:\\Program Files (x86)\\x"},
    {"HKLM\\Software\\Kinds\\hex", "AäBŽ"},
    {"HKLM\\Software\\Kinds\\plain hex", "AB"},
    {"HKLM\\Software\\Kinds\\empty", ""},
    {"HKLM\\Software\\Kinds\\letters", "tab\there, line\nend, bell\a, quote\"d, [x]"},
    {"HKLM\\Software\\Kinds\\octal", "\1\033x01"},
    {"HKLM\\Software\\Kinds\\short", "é€A"},
    {"HKLM\\Software\\Kinds\\pair", "🐎"},
    {"HKLM\\Software\\Kinds\\UTF-8", "Žluť"},
    {"HKLM\\Software\\Kinds\\LONG NAME with \"QUOTES\" and ž", "found"},
    {"HKLM\\Software\\Kinds\\equals=in=name", "a=b"},
    {"HKLM\\Software\\Both\\here", "plain"},
    {"HKLM\\Software\\Both\\only there", "of 32 bits"},
    {"HKLM\\SOFTWARE\\Only\\Deep\\x", "of 32 bits"},
    {"HKLM\\SOFTWARE\\Wow6432Node\\Only\\Deep\\x", "of 32 bits"},
    {"HKEY_CLASSES_ROOT\\.zip\\", "zipfile"},
    {"HKCR\\.ZIP\\", "zipfile"},
    {"HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\CurrentVersion", "5.1"},
    {"HKLM\\System\\Key\\x", "y"},
    {"HKEY_CURRENT_USER\\Software\\Own\\x", "of the user"},
    {"HKCU\\software\\own\\X", "of the user"},
};

TEST_F(Registry_Test, A_value_is_found_without_regard_to_case) {
    for (const Row &row : found_rows)
        EXPECT_EQ(read(QString::fromUtf8(row.path)), QString::fromUtf8(row.text)) << row.path;
}

constexpr const char *missing_rows[] = {
    "",
    "HKLM",
    "HKLM\\",
    "HKLM\\x",
    "HKEY_LOCAL_MACHINE\\Software\\None\\x",
    "HKLM\\Software\\Both\\none",
    "HKLM\\Software\\Both",
    "HKLM\\Software\\Both\\",
    "HKLM\\Software\\Kinds\\binary",
    "HKLM\\Software\\Kinds\\many",
    "HKCU\\Software\\Both\\here",
    "HKLM\\Only\\Deep\\x",
    "HKEY_USERS\\Software\\Own\\x",
    "Software\\Both\\here",
    "\\\\\\",
};

TEST_F(Registry_Test, What_is_missing_or_no_text_is_not_there) {
    for (const char *path : missing_rows)
        EXPECT_EQ(read(path), "<none>") << path;
}

TEST_F(Registry_Test, Broken_lines_are_passed_over) {
    world.write("prefix/system.reg", QByteArray("WINE REGISTRY Version 2\r\n"
                                                "\"before any key\"=\"x\"\r\n"
                                                "[Software\\\\Not closed 1700\r\n"
                                                "\"lost\"=\"x\"\r\n"
                                                "[Software\\\\A] 1\r\n"
                                                "\"no end\"=\"x\r\n"
                                                "\"no end of name=\"x\r\n"
                                                "\"no sign\" \"x\"\r\n"
                                                "\"bad number\"=dword:xyz\r\n"
                                                "\"bad hex\"=hex(2):41,00,zz,00\r\n"
                                                "\"escape at end\"=\"x\\\r\n"
                                                "@\r\n"
                                                "\"\r\n"
                                                "garbage \x01\x02\xff\r\n"
                                                "\"good\"=\"x\"\r\n"
                                                "\"last\"=hex(2):41,\\"));
    const char *rows[][2] = {{"good", "x"},         {"bad hex", "A"},         {"no end", "<none>"},
                             {"no sign", "<none>"}, {"bad number", "<none>"}, {"escape at end", "<none>"},
                             {"", "<none>"},        {"last", "<none>"}};
    for (const auto &row : rows)
        EXPECT_EQ(read(QStringLiteral("HKLM\\Software\\A\\") + row[0]), row[1]) << row[0];
    EXPECT_EQ(read("HKLM\\Software\\Not closed 1700\\lost"), "<none>");
}

TEST_F(Registry_Test, A_broken_line_takes_no_other_with_it) {
    world.write("prefix/system.reg", "WINE REGISTRY Version 2\n"
                                     "[Software\\\\A] 1\n"
                                     "\"cut\"=hex(2):41,\\\n"
                                     "\"behind a cut one\"=\"x\"\n"
                                     "\"cut again\"=hex(2):41,\\\n"
                                     "[Software\\\\B] 1\n"
                                     "  00,42,00\n"
                                     "\"open\"=\"C:\\\n"
                                     "\"x\"=\"y\"\n"
                                     "[Software\\\\open\n"
                                     "\"lost\"=\"of no key\"\n"
                                     "[Software\\\\C]\n"
                                     "\"x\"=\"without a time\"\n");
    const char *rows[][2] = {
        {"A\\cut", "<none>"}, {"A\\behind a cut one", "x"}, {"A\\cut again", "<none>"}, {"B\\open", "<none>"},
        {"B\\x", "y"},        {"B\\lost", "<none>"},        {"C\\x", "without a time"}};
    for (const auto &row : rows)
        EXPECT_EQ(read(QStringLiteral("HKLM\\Software\\") + row[0]), row[1]) << row[0];
}

TEST_F(Registry_Test, What_comes_twice_counts_as_it_stands_last) {
    world.write("prefix/system.reg",
                "WINE REGISTRY Version 2\n[Software\\\\A] 1\n\"x\"=\"1\"\n\"X\"=\"2\"\n"
                "\"y\"=\"of the first\"\n[SOFTWARE\\\\a] 1\n\"x\"=\"3\"\n\"x\"=hex:00\n");
    EXPECT_EQ(read("HKLM\\Software\\A\\x"), "3");
    EXPECT_EQ(read("HKLM\\Software\\A\\y"), "of the first");
}

TEST_F(Registry_Test, A_file_in_another_encoding_is_read_by_its_mark) {
    const QString text =
        QStringLiteral("WINE REGISTRY Version 2\r\n[Software\\\\Žluť] 1\r\n\"kůň\"=\"🐎 C:\\\\x\"\r\n");
    QStringEncoder little(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom);
    QStringEncoder big(QStringEncoder::Utf16BE, QStringEncoder::Flag::WriteBom);
    const QByteArray files[] = {little(text), big(text), "\xEF\xBB\xBF" + text.toUtf8(), text.toUtf8()};
    for (const QByteArray &file : files) {
        world.write("prefix/user.reg", file);
        EXPECT_EQ(read("HKCU\\software\\žluť\\KŮŇ"), "🐎 C:\\x") << file.left(4).toHex().toStdString();
    }
    world.write("prefix/user.reg", files[0].chopped(1)); // half a letter at its end
    EXPECT_EQ(read("HKCU\\Software\\Žluť\\kůň"), "🐎 C:\\x");
    world.write("prefix/user.reg", "\xFF\xFE");
    EXPECT_EQ(read("HKCU\\Software\\Žluť\\kůň"), "<none>");
}

TEST_F(Registry_Test, A_large_file_is_read_to_its_end) {
    QByteArray file = "WINE REGISTRY Version 2\n";
    constexpr int keys = 20000;
    for (int key = 0; key < keys; ++key)
        file += "\n[Software\\\\Key " + QByteArray::number(key) + "] 1\n\"x\"=\"" + QByteArray::number(key) +
                "\"\n";
    world.write("prefix/system.reg", file);
    for (const int key : {0, 1, 777, keys - 1})
        EXPECT_EQ(read(QStringLiteral("HKLM\\Software\\Key %1\\x").arg(key)), QString::number(key));
}

TEST_F(Registry_Test, A_file_of_another_kind_has_no_keys) {
    world.write("prefix/system.reg", "REGEDIT4\n\n[Software\\\\Both] 1\n\"here\"=\"x\"\n");
    EXPECT_EQ(read("HKLM\\Software\\Both\\here"), "<none>");
}

TEST_F(Registry_Test, A_changed_file_is_read_again) {
    EXPECT_EQ(read("HKCU\\Software\\Own\\x"), "of the user");
    world.write("prefix/user.reg", "WINE REGISTRY Version 2\n[Software\\\\Own] 1\n\"x\"=\"changed later\"\n");
    EXPECT_EQ(read("HKCU\\Software\\Own\\x"), "changed later");
    QFile::remove(world.native("prefix/user.reg"));
    EXPECT_EQ(read("HKCU\\Software\\Own\\x"), "<none>");
}

TEST_F(Registry_Test, A_file_over_the_bound_is_not_read) {
    QFile file(world.native("prefix/system.reg"));
    ASSERT_TRUE(file.resize(64LL * 1024 * 1024 + 1));
    EXPECT_EQ(read("HKLM\\Software\\Both\\here"), "<none>");
}

TEST(Wine_Registry, A_prefix_without_files_has_no_values) {
    Platform_World world;
    EXPECT_FALSE(world.platform.registry->read("HKLM\\Software\\Both\\here"));
    EXPECT_FALSE(world.platform.registry->read("HKCU\\Software\\Own\\x"));
}

} // namespace
} // namespace vantrosk
