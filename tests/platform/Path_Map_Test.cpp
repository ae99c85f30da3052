#include "Platform_World.h"

#include "platform/Native_Text.h"
#include "platform/linux/Path_Map.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace vantrosk {
namespace {

class Path_Map_Test : public testing::Test {
protected:
    Path_Map_Test() {
        world.make_folder("prefix/drive_c/Games/Thief2");
        world.make_folder("disc/Data");
        world.link("prefix/dosdevices/d:", world.native("disc"));
        world.link("prefix/dosdevices/e:", "../../disc/Data");
        world.link("prefix/dosdevices/f:", "/nowhere/at/all");
        world.link("prefix/dosdevices/z:", "/");
    }

    QString native(const QString &path) const { return QString::fromUtf8(map.native(path)); }
    QString windows(const QString &path) const { return map.windows(path); }

    Platform_World world;
    Path_Map map{world.native("prefix")};
};

struct Accepted {
    const char *path;
    const char *native; ///< "@" stands for the world's folder
};

constexpr Accepted accepted_rows[] = {
    {"Z:\\", "/"},
    {"z:/", "/"},
    {"Z:", "/"},
    {"Z:\\usr", "/usr"},
    {"Z:\\\\usr\\\\\\lib\\", "/usr/lib"},
    {"Z:\\..\\..\\usr", "/usr"},
    {"Z:\\usr\\..\\..\\..\\no such", "/no such"},
    {"Z:\\.\\usr\\.", "/usr"},
    {"Z:\\...\\x", "/.../x"},
    {"Z:\\.. \\x", "/.. /x"},
    {"C:", "@/prefix/drive_c"},
    {"C:\\", "@/prefix/drive_c"},
    {"c:\\Games", "@/prefix/drive_c/Games"},
    {"C:/Games/Thief2", "@/prefix/drive_c/Games/Thief2"},
    {"C:\\Games/Thief2\\new.txt", "@/prefix/drive_c/Games/Thief2/new.txt"},
    {"C:\\GAMES\\THIEF2", "@/prefix/drive_c/Games/Thief2"},
    {"C:\\GAMES\\THIEF2\\New.TXT", "@/prefix/drive_c/Games/Thief2/New.TXT"},
    {"C:\\games\\Missing\\Thief2", "@/prefix/drive_c/Games/Missing/Thief2"},
    {"C:\\..\\..\\x", "@/prefix/drive_c/x"},
    {"C:\\Games\\..\\..\\..\\..\\etc\\passwd", "@/prefix/drive_c/etc/passwd"},
    {"D:\\", "@/disc"},
    {"d:\\data\\x", "@/disc/Data/x"},
    {"D:\\..\\x", "@/disc/x"},
    {"E:\\x", "@/disc/Data/x"},
    {"F:\\x", "/nowhere/at/all/x"},
    {"C:\\100%\\*?.txt", "@/prefix/drive_c/100%/*?.txt"},
};

TEST_F(Path_Map_Test, A_windows_path_becomes_native) {
    for (const Accepted &row : accepted_rows) {
        QString expected = QString::fromUtf8(row.native);
        expected.replace(QStringLiteral("@"), world.native(""));
        EXPECT_EQ(native(row.path), expected) << row.path;
    }
}

constexpr const char *refused_rows[] = {
    "",          "x",       "x\\y",   "\\x",   "/",           "/usr",     "C",
    "C:x",       "C:..\\x", "1:\\x",  "é:\\x", "\\\\host\\x", "//host/x", "\\\\?\\C:\\x",
    "\\\\.\\C:", "CC:\\x",  " C:\\x", "G:\\x", "G:",          "%:\\",
};

TEST_F(Path_Map_Test, A_path_that_names_no_drive_has_no_native_path) {
    for (const char *path : refused_rows)
        EXPECT_EQ(native(path), QString()) << path;
    EXPECT_EQ(native(QStringLiteral("C:\\a") + QChar(0) + QStringLiteral("b")), QString());
}

constexpr Accepted native_rows[] = {
    {"Z:\\", "/"},
    {"Z:\\", "//"},
    {"Z:\\", "/.."},
    {"Z:\\usr\\lib", "/usr/lib"},
    {"Z:\\usr\\lib", "/usr//lib/"},
    {"Z:\\lib", "/usr/../lib"},
    {"Z:\\lib", "/./../../lib/."},
    {"C:\\", "@/prefix/drive_c"},
    {"C:\\", "@/prefix/drive_c/"},
    {"C:\\Games\\Thief2", "@/prefix/drive_c/Games/Thief2"},
    {"C:\\not there", "@/prefix/drive_c/not there"},
    {"D:\\", "@/disc"},
    {"D:\\x", "@/disc/x"},
    {"E:\\", "@/disc/Data"},
    {"E:\\x\\y", "@/disc/Data/x/y"},
    {"D:\\Data2", "@/disc/Data2"},
    {"F:\\x", "/nowhere/at/all/x"},
    {"Z:\\nowhere\\at\\allx", "/nowhere/at/allx"},
};

TEST_F(Path_Map_Test, A_native_path_becomes_a_windows_path) {
    for (const Accepted &row : native_rows) {
        QString path = QString::fromUtf8(row.native);
        path.replace(QStringLiteral("@"), world.native(""));
        EXPECT_EQ(windows(path), row.path) << row.native;
    }
}

TEST_F(Path_Map_Test, A_folder_beside_drive_c_is_not_on_it) {
    EXPECT_EQ(windows(world.native("prefix/drive_c2/x")),
              "Z:" + (world.native("prefix/drive_c2/x")).replace("/", "\\"));
}

TEST_F(Path_Map_Test, A_windows_path_stays_as_it_is) {
    for (const char *path : {"C:\\x", "c:/x", "D:", "Q:\\no\\drive", "\\\\host\\share"})
        EXPECT_EQ(windows(path), path);
}

TEST_F(Path_Map_Test, A_relative_native_path_has_no_windows_path) {
    for (const char *path : {"", "x", "x/y", "./x", "../x", "~", "C:x"})
        EXPECT_EQ(windows(path), QString()) << path;
    EXPECT_EQ(windows(QStringLiteral("/a") + QChar(0)), QString());
}

TEST_F(Path_Map_Test, A_prefix_behind_a_link_is_known_by_both_names) {
    world.link("wine", world.native("prefix"));
    const Path_Map linked(world.native("wine"));
    EXPECT_EQ(linked.windows(world.native("wine/drive_c/x")), "C:\\x");
    EXPECT_EQ(linked.windows(world.native("prefix/drive_c/x")), "C:\\x");
    EXPECT_EQ(QString::fromUtf8(linked.native("C:\\x")), world.native("wine/drive_c/x"));
}

TEST_F(Path_Map_Test, Drive_c_comes_before_a_closer_letter) {
    world.link("prefix/dosdevices/g:", world.native("prefix/drive_c/Games"));
    EXPECT_EQ(windows(world.native("prefix/drive_c/Games/x")), "C:\\Games\\x");
    EXPECT_EQ(native("G:\\thief2"), world.native("prefix/drive_c/Games/Thief2"));
}

TEST_F(Path_Map_Test, A_letter_that_is_made_changed_or_taken_away_is_seen_at_once) {
    const timespec long_ago[2] = {{1000000000, 0}, {1000000000, 0}};
    for (int round = 0; round < 3; ++round) {
        if (round == 1) { // a folder that was long at rest
            ASSERT_EQ(::utimensat(AT_FDCWD, world.bytes("prefix/dosdevices").constData(), long_ago, 0), 0);
        }
        EXPECT_EQ(native("H:\\x"), QString());
        world.make_folder("stick");
        EXPECT_EQ(windows(world.native("stick/x")).left(3), "Z:\\");
        world.link("prefix/dosdevices/h:", world.native("stick"));
        EXPECT_EQ(native("H:\\x"), world.native("stick/x"));
        EXPECT_EQ(windows(world.native("stick/x")), "H:\\x");
        QFile::remove(world.native("prefix/dosdevices/h:"));
        world.link("prefix/dosdevices/h:", world.native("disc"));
        EXPECT_EQ(native("H:\\x"), world.native("disc/x"));
        QFile::remove(world.native("prefix/dosdevices/h:"));
    }
}

TEST_F(Path_Map_Test, What_a_letter_leads_to_may_come_later_and_change) {
    world.link("prefix/dosdevices/h:", world.native("mount"));
    world.link("mount", world.native("first"));
    EXPECT_EQ(windows(world.native("first/x")).left(3), "Z:\\");
    world.make_folder("first");
    world.make_folder("second");
    EXPECT_EQ(windows(world.native("first/x")), "H:\\x");
    EXPECT_EQ(windows(world.native("mount/x")), "H:\\x");
    QFile::remove(world.native("mount"));
    world.link("mount", world.native("second"));
    EXPECT_EQ(windows(world.native("second/x")), "H:\\x");
    EXPECT_EQ(windows(world.native("first/x")).left(3), "Z:\\");
}

TEST_F(Path_Map_Test, A_prefix_that_is_made_later_is_seen) {
    const Path_Map later(world.native("later"));
    EXPECT_EQ(QString::fromUtf8(later.native("D:\\x")), QString());
    world.make_folder("later/dosdevices");
    world.link("later/dosdevices/d:", world.native("disc"));
    EXPECT_EQ(QString::fromUtf8(later.native("D:\\x")), world.native("disc/x"));
}

TEST_F(Path_Map_Test, Of_two_letters_for_one_folder_the_first_is_taken) {
    world.link("prefix/dosdevices/b:", world.native("disc"));
    EXPECT_EQ(windows(world.native("disc/x")), "B:\\x");
}

TEST_F(Path_Map_Test, A_prefix_that_does_not_exist_still_has_its_drive_c) {
    const Path_Map none("/no/such/prefix/");
    EXPECT_EQ(QString::fromUtf8(none.native("C:\\x")), "/no/such/prefix/drive_c/x");
    EXPECT_EQ(QString::fromUtf8(none.native("D:\\x")), QString());
    EXPECT_EQ(none.windows("/no/such/prefix/drive_c/x"), "C:\\x");
    EXPECT_EQ(none.prefix(), "/no/such/prefix");
}

TEST_F(Path_Map_Test, A_backslash_in_a_native_name_has_a_stand_in) {
    world.write("prefix/drive_c/a\\b", "x");
    const QString path = QStringLiteral("C:\\a") + QChar(0xF05C) + QStringLiteral("b");
    EXPECT_EQ(windows(world.native("prefix/drive_c/a\\b")), path);
    EXPECT_EQ(native(path), world.native("prefix/drive_c/a\\b"));
    EXPECT_EQ(native(path.toUpper()), world.native("prefix/drive_c/a\\b"));
    EXPECT_EQ(native("C:\\a\\b"), world.native("prefix/drive_c/a/b"));
    EXPECT_EQ(native(QStringLiteral("C:\\..") + QChar(0xF05C) + QStringLiteral("..")),
              world.native("prefix/drive_c/..\\.."));
}

TEST_F(Path_Map_Test, The_exact_spelling_comes_before_the_others_which_come_in_binary_order) {
    for (const char *name : {"Readme.txt", "README.TXT", "readme.txt"})
        world.write(QStringLiteral("prefix/drive_c/") + name, name);
    EXPECT_EQ(native("C:\\readme.txt"), world.native("prefix/drive_c/readme.txt"));
    EXPECT_EQ(native("C:\\Readme.txt"), world.native("prefix/drive_c/Readme.txt"));
    EXPECT_EQ(native("C:\\ReadMe.Txt"), world.native("prefix/drive_c/README.TXT"));
}

TEST_F(Path_Map_Test, A_change_in_a_folder_is_seen_at_once) {
    const Path_Map paths(world.native("prefix"));
    const auto found = [&](const char *path) {
        return QString::fromUtf8(paths.native(path));
    };
    const QString folder = world.native("prefix/drive_c/Games/");
    for (int round = 0; round < 50; ++round) {
        EXPECT_EQ(found("C:\\games\\x.TXT"), folder + "x.TXT");
        world.write("prefix/drive_c/Games/X.txt", "x");
        EXPECT_EQ(found("C:\\games\\x.TXT"), folder + "X.txt");
        QFile::rename(folder + "X.txt", folder + "x.Txt");
        EXPECT_EQ(found("C:\\games\\x.TXT"), folder + "x.Txt");
        QFile::remove(folder + "x.Txt");
    }
}

TEST_F(Path_Map_Test, A_change_in_a_folder_that_was_long_at_rest_is_seen_at_once) {
    const QByteArray folder = world.bytes("prefix/drive_c/Games");
    const timespec long_ago[2] = {{1000000000, 0}, {1000000000, 0}};
    const Path_Map paths(world.native("prefix"));
    for (const char *name : {"One.txt", "Two.txt", "Three.txt"}) {
        const QString path = QStringLiteral("C:\\games\\") + QString(name).toUpper();
        ASSERT_EQ(::utimensat(AT_FDCWD, folder.constData(), long_ago, 0), 0);
        EXPECT_EQ(paths.native(path), folder + '/' + QByteArray(name).toUpper());
        world.write(QStringLiteral("prefix/drive_c/Games/") + name, "x");
        ASSERT_EQ(::utimensat(AT_FDCWD, folder.constData(), long_ago, 0), 0);
        EXPECT_EQ(paths.native(path), folder + '/' + name);
    }
}

TEST_F(Path_Map_Test, A_folder_put_in_the_place_of_another_is_read_anew) {
    const Path_Map paths(world.native("prefix"));
    world.write("prefix/drive_c/next/New.txt", "x");
    world.write("prefix/drive_c/Games/Old.txt", "x");
    EXPECT_EQ(QString::fromUtf8(paths.native("C:\\Games\\OLD.TXT")),
              world.native("prefix/drive_c/Games/Old.txt"));
    QFile::rename(world.native("prefix/drive_c/Games"), world.native("prefix/drive_c/away"));
    QFile::rename(world.native("prefix/drive_c/next"), world.native("prefix/drive_c/Games"));
    EXPECT_EQ(QString::fromUtf8(paths.native("C:\\Games\\NEW.TXT")),
              world.native("prefix/drive_c/Games/New.txt"));
    EXPECT_EQ(QString::fromUtf8(paths.native("C:\\Games\\OLD.TXT")),
              world.native("prefix/drive_c/Games/OLD.TXT"));
}

TEST_F(Path_Map_Test, More_folders_than_are_remembered_are_all_found) {
    for (int i = 0; i < 200; ++i) {
        const QString name = QStringLiteral("Folder%1").arg(i);
        world.make_folder("prefix/drive_c/" + name + "/Sub");
        EXPECT_EQ(native("C:\\" + name.toUpper() + "\\SUB"), world.native("prefix/drive_c/" + name + "/Sub"));
    }
}

TEST_F(Path_Map_Test, Names_fold_as_unicode_does) {
    world.write("prefix/drive_c/Žluťoučký KŮŇ.zip", "x");
    world.write("prefix/drive_c/Миссия.zip", "x");
    world.write("prefix/drive_c/ΣΑΣ.zip", "x");
    EXPECT_EQ(native("C:\\žLUŤOUČKÝ kůň.ZIP"), world.native("prefix/drive_c/Žluťoučký KŮŇ.zip"));
    EXPECT_EQ(native("C:\\МИССИЯ.ZIP"), world.native("prefix/drive_c/Миссия.zip"));
    EXPECT_EQ(native("C:\\σας.zip"), world.native("prefix/drive_c/ΣΑΣ.zip"));
    world.write("prefix/drive_c/Straße 𐐀.zip", "x");
    EXPECT_EQ(native("C:\\STRAßE 𐐨.zip"), world.native("prefix/drive_c/Straße 𐐀.zip"));
    EXPECT_EQ(native("C:\\STRASSE 𐐀.zip"), world.native("prefix/drive_c/STRASSE 𐐀.zip"));
    EXPECT_EQ(native("C:\\misija.zip"), world.native("prefix/drive_c/misija.zip"));
}

TEST_F(Path_Map_Test, A_name_that_is_not_utf_8_is_found_by_its_stand_ins) {
    const QByteArray name = world.bytes("prefix/drive_c") + "/caf\xE9.txt";
    const int file = ::open(name.constData(), O_CREAT | O_WRONLY, 0644);
    ASSERT_GE(file, 0);
    ::close(file);
    EXPECT_EQ(map.native(QStringLiteral("C:\\CAF\uF0E9.TXT")), name);
    EXPECT_EQ(map.windows(Native_text(name)), QStringLiteral("C:\\caf\uF0E9.txt"));
    ::unlink(name.constData()); // the temporary folder could not
}

TEST_F(Path_Map_Test, A_dangling_link_is_found_by_another_spelling) {
    world.link("prefix/drive_c/Gone.txt", "nowhere");
    EXPECT_EQ(native("C:\\GONE.TXT"), world.native("prefix/drive_c/Gone.txt"));
}

TEST_F(Path_Map_Test, What_follows_a_file_keeps_its_spelling) {
    world.write("prefix/drive_c/File", "x");
    EXPECT_EQ(native("C:\\FILE\\Below\\it"), world.native("prefix/drive_c/File/Below/it"));
}

TEST_F(Path_Map_Test, A_very_long_path_is_only_not_found) {
    const QString name = QStringLiteral("x").repeated(300);
    EXPECT_EQ(native("C:\\" + name), world.native("prefix/drive_c/" + name));
    const QString deep = QStringLiteral("\\abc").repeated(5000);
    EXPECT_EQ(native("C:" + deep).size(), world.native("prefix/drive_c").size() + deep.size());
}

TEST(Last_name, Is_the_text_behind_the_last_separator) {
    const char *rows[][2] = {{"C:\\x\\y.txt", "y.txt"},
                             {"C:/x/y", "y"},
                             {"C:\\x\\", "x"},
                             {"x", "x"},
                             {"", ""},
                             {"\\", ""},
                             {"a/b\\c", "c"}};
    for (const auto &row : rows)
        EXPECT_EQ(Last_name(row[0]), row[1]) << row[0];
}

} // namespace
} // namespace vantrosk
