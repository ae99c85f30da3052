#include "scan_World.h"

#include "core/mdlFile_Functions.h"
#include "library/Fm_List_View.h"
#include "zip/Archive_Bytes.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include <gtest/gtest.h>
#include <zip.h>

#include <ostream>

namespace vantrosk {

namespace {

const QByteArray readme = "Title: The Vault\r\nAuthor: Ann Author\r\nGame: Thief 2\r\n";

/// A deflated entry that tells the truth.
Raw_Entry Packed(const QByteArray &name, const QByteArray &content) {
    Raw_Entry entry{name, Deflated(content)};
    entry.size = static_cast<quint32>(content.size());
    entry.crc = Crc_of(content);
    entry.method = 8;
    return entry;
}

/// Scans, then clicks on the bad zip's row if there is one. No file may come up or change outside the
/// program's own folder, and the good mission beside it must stand in the list.
class Bad_World : public Scan_World {
public:
    Bad_World() { mission("a_good.zip"); }

    void look() {
        program();
        const Snapshot zips_before = snapshot("zips"), games_before = snapshot("games");
        const QStringList around_before = Around();
        scan();
        EXPECT_EQ(cell("a_good.zip", col_name), "The Vault");
        const int row = list().find_zip("bad.zip");
        if (row >= 0)
            Row_Click(program(), row, col_name);
        EXPECT_TRUE(snapshot("zips") == zips_before) << "a zip was changed";
        EXPECT_EQ(Names(snapshot("games")), Names(games_before));
        EXPECT_EQ(Around(), around_before);
        EXPECT_FALSE(program().screen.busy);
    }

    /// It ends in the report and in no row.
    void expect_reported() {
        EXPECT_EQ(listed(), QStringList({"Original", "a_good.zip"}));
        EXPECT_EQ(found().undetermined, QStringList({"bad.zip"}));
        EXPECT_TRUE(read("home/excessZips.htm").contains("<span class='VKINFO'>bad.zip</span><br>"));
    }

    /// It ends in a row of this name, and on no report.
    void expect_row(const QString &name) {
        EXPECT_EQ(cell("bad.zip", col_name), name);
        EXPECT_EQ(found().undetermined, QStringList());
        EXPECT_EQ(found().excess_page_path, "");
    }

private:
    /// What lies beside the program's own folder and in it, its folders' contents left out.
    QStringList Around() {
        QStringList names =
            QDir(native("")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        for (const QString &name : QDir(native("home")).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            names << "home/" + name;
        return names;
    }
};

/// One archive that is built byte by byte.
struct Raw_Case {
    const char *what;
    std::function<QByteArray()> bytes;
    const char *name; ///< of the row; null: it ends in the report
};

std::ostream &operator<<(std::ostream &stream, const Raw_Case &one) {
    return stream << one.what;
}

QByteArray Good_bytes() {
    return Archive_bytes({{"miss20.mis", "m"}, Packed("readme.txt", readme)});
}

QByteArray Lying(std::function<void(Raw_Entry &)> lie) {
    Raw_Entry entry = Packed("readme.txt", readme);
    lie(entry);
    return Archive_bytes({{"start.mis", "m"}, entry});
}

/// The mission with its readme under another name.
QByteArray Named(const QByteArray &name, int flags = 0, int system = 0) {
    Raw_Entry entry = Packed(name, readme);
    entry.flags = flags;
    entry.system = system;
    return Archive_bytes({{"miss20.mis", "m"}, entry});
}

QByteArray Encrypted_bytes() {
    Raw_Entry map{"start.mis", QByteArray(13, 'x')}, text{"readme.txt", QByteArray(60, 'x')};
    map.flags = text.flags = 1;
    return Archive_bytes({map, text});
}

QByteArray Fifth_entry_points_outside() {
    return Archive_bytes({Packed("../readme.txt", readme),
                          Packed("..\\..\\titles.str", readme),
                          Packed("/readme.txt.vkml", readme),
                          Packed("C:\\readme.rtf", readme),
                          {"miss20.mis", "m"},
                          Packed("docs/info.txt", readme)});
}

const Raw_Case raw_cases[] = {
    {"nothing", [] { return QByteArray(); }, nullptr},
    {"one_byte", [] { return QByteArray("P"); }, nullptr},
    {"no_entries", [] { return Archive_bytes({}); }, nullptr},
    {"end_record_cut", [] { return Good_bytes().chopped(1); }, nullptr},
    {"directory_cut", [] { return Good_bytes().chopped(60); }, nullptr},
    {"half", [] { return Good_bytes().left(Good_bytes().size() / 2); }, nullptr},
    {"start_missing", [] { return Good_bytes().mid(40); }, nullptr},
    {"only_header", [] { return Good_bytes().left(30); }, nullptr},
    {"text", [] { return QByteArray("Rar!\r\nnot a zip at all\r\n").repeated(100); }, nullptr},
    {"encrypted", [] { return Encrypted_bytes(); }, "bad.zip"},
    {"zip64",
     [] {
         return Zip64_bytes({{"miss20.mis", "m"}, {"readme.txt", readme}});
     },
     "The Vault"},
    {"name_in_437",
     [] {
         return Named("\x81"
                      "ber/lies_mich_\x84.txt");
     },
     "The Vault"},
    {"name_in_1252",
     [] {
         return Named("\xFC"
                      "ber/lies_mich_\xE4.txt",
                      0, 3);
     },
     "The Vault"},
    {"name_in_utf_8", [] { return Named("Žluťoučký/kůň.txt", 0x800); }, "The Vault"},
    {"name_in_utf_8_without_its_mark", [] { return Named("Žluťoučký/kůň.txt"); }, "The Vault"},
    {"name_that_is_no_utf_8_with_its_mark", [] { return Named("a\xFF\xFE.txt", 0x800); }, nullptr},
    {"backslashes", [] { return Named("docs\\deep\\readme.txt"); }, "The Vault"},
    {"two_of_one_name",
     [] {
         return Archive_bytes({{"miss20.mis", "m"},
                               Packed("a/overview.txt", "Title: Not this\r\n"),
                               Packed("a/overview.txt", readme)});
     },
     "The Vault"},
    {"names_that_differ_by_case",
     [] {
         return Archive_bytes({{"miss20.mis", "m"},
                               {"MISS20.MIS", "n"},
                               Packed("Overview.txt", "Title: Not this\r\n"),
                               Packed("OVERVIEW.TXT", readme)});
     },
     "The Vault"},
    {"entries_outside", [] { return Fifth_entry_points_outside(); }, "The Vault"},
    {"size_too_small", [] { return Lying([](Raw_Entry &one) { one.size = 3; }); }, "bad.zip"},
    {"size_too_large", [] { return Lying([](Raw_Entry &one) { one.size = 5000; }); }, "bad.zip"},
    {"size_of_gigabytes", [] { return Lying([](Raw_Entry &one) { one.size = 0xfffffff0; }); }, "bad.zip"},
    {"packed_size_too_small", [] { return Lying([](Raw_Entry &one) { one.packed_size = 3; }); }, "bad.zip"},
    {"packed_size_past_the_end", [] { return Lying([](Raw_Entry &one) { one.packed_size = 0x7fffffff; }); },
     "The Vault"},
    {"checksum_wrong", [] { return Lying([](Raw_Entry &one) { one.crc = 1; }); }, "bad.zip"},
    {"method_unknown", [] { return Lying([](Raw_Entry &one) { one.method = 77; }); }, "bad.zip"},
    {"unpacks_to_more_than_it_says",
     [] {
         const QByteArray bomb = readme + QByteArray(200 << 20, ' ');
         Raw_Entry entry = Packed("readme.txt", bomb);
         entry.size = static_cast<quint32>(readme.size());
         return Archive_bytes({{"start.mis", "m"}, entry});
     },
     "bad.zip"},
    {"unpacks_to_as_much_as_it_says",
     [] {
         return Archive_bytes(
             {{"miss20.mis", "m"}, Packed("readme.txt", readme + QByteArray(200 << 20, ' '))});
     },
     "The Vault"},
};

class Scan_Raw_Zip : public testing::TestWithParam<Raw_Case> {};

/// One archive made by a real tool: `command` runs in a folder that holds the mission.
struct Tool_Case {
    const char *what;
    const char *command;
    const char *name;
};

std::ostream &operator<<(std::ostream &stream, const Tool_Case &one) {
    return stream << one.what;
}

const Tool_Case tool_cases[] = {
    {"zip", "zip -qr ../zips/bad.zip .", "The Vault"},
    {"zip_stored", "zip -q0r ../zips/bad.zip .", "The Vault"},
    {"zip_zip64", "zip -qr -fz ../zips/bad.zip .", "The Vault"},
    {"zip_from_a_pipe", "zip -qr - . > ../zips/bad.zip", "The Vault"},
    {"zip_bzip2", "zip -qr -Z bzip2 ../zips/bad.zip .", "The Vault"},
    {"zip_with_a_comment", "printf 'a comment' | zip -qrz ../zips/bad.zip .", "The Vault"},
    {"zip_behind_a_program", "zip -qr x.zip . && (printf 'MZ program'; cat x.zip) > ../zips/bad.zip",
     "The Vault"},
    {"zip_encrypted", "zip -qr -P secret ../zips/bad.zip .", "bad.zip"},
    {"7z", "7z a -tzip -bd ../zips/bad.zip . > /dev/null", "The Vault"},
    {"7z_deflate64", "7z a -tzip -mm=Deflate64 -bd ../zips/bad.zip . > /dev/null", "bad.zip"},
    {"7z_lzma", "7z a -tzip -mm=LZMA -bd ../zips/bad.zip . > /dev/null", "bad.zip"},
    {"7z_encrypted", "7z a -tzip -psecret -mem=AES256 -bd ../zips/bad.zip . > /dev/null", "bad.zip"},
    {"7z_of_its_own_kind",
     "7z a -t7z -bd ../zips/bad.zip.7z . > /dev/null && mv ../zips/bad.zip.7z ../zips/bad.zip", nullptr},
};

class Scan_Tool_Zip : public testing::TestWithParam<Tool_Case> {};

template<typename Case>
std::string Case_name(const testing::TestParamInfo<Case> &info) {
    return info.param.what;
}

/// An archive that libzip makes: many small entries, of which the last are the mission.
void Make_many(const QString &native, int count) {
    zip_t *archive = zip_open(QFile::encodeName(native).constData(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    ASSERT_NE(archive, nullptr);
    const auto add = [archive](const QByteArray &name, const QByteArray &content) {
        zip_source_t *source =
            zip_source_buffer(archive, content.constData(), static_cast<zip_uint64_t>(content.size()), 0);
        const zip_int64_t index = zip_file_add(archive, name.constData(), source, 0);
        ASSERT_GE(index, 0);
        zip_set_file_compression(archive, static_cast<zip_uint64_t>(index), ZIP_CM_STORE, 0);
    };
    for (int i = 0; i < count; ++i)
        add("obj/part_" + QByteArray::number(i) + ".bin", {});
    add("miss20.mis", {});
    add("readme.txt", readme);
    ASSERT_EQ(zip_close(archive), 0);
}

} // namespace

TEST_P(Scan_Raw_Zip, Ends_in_the_report_or_in_a_row) {
    Bad_World world;
    world.write("zips/bad.zip", GetParam().bytes());
    world.look();
    if (GetParam().name)
        world.expect_row(GetParam().name);
    else
        world.expect_reported();
}

INSTANTIATE_TEST_SUITE_P(Scan, Scan_Raw_Zip, testing::ValuesIn(raw_cases), Case_name<Raw_Case>);

TEST_P(Scan_Tool_Zip, Ends_in_the_report_or_in_a_row) {
    const QString command(GetParam().command);
    const QString tool = command.contains("7z ") ? "7z" : "zip";
    if (QStandardPaths::findExecutable(tool).isEmpty())
        GTEST_SKIP() << tool.toStdString() << " is not installed";
    Bad_World world;
    world.write("mission/start.mis", "m");
    world.write("mission/readme.txt", readme + QByteArray("The watch passes.\r\n").repeated(200));
    world.write("mission/Žluťoučký kůň/notes.bin", QByteArray(1000, 'n'));
    QProcess shell;
    shell.setWorkingDirectory(world.native("mission"));
    shell.start("sh", {"-c", command});
    ASSERT_TRUE(shell.waitForFinished(60000));
    ASSERT_EQ(shell.exitCode(), 0) << shell.readAllStandardError().toStdString();
    world.look();
    if (GetParam().name)
        world.expect_row(GetParam().name);
    else
        world.expect_reported();
}

INSTANTIATE_TEST_SUITE_P(Scan, Scan_Tool_Zip, testing::ValuesIn(tool_cases), Case_name<Tool_Case>);

TEST(Scan_Bad_Input, A_zip_of_a_hundred_thousand_entries_gets_its_row) {
    Bad_World world;
    Make_many(world.native("zips/bad.zip"), 100000);
    world.look();
    world.expect_row("The Vault");
}

TEST(Scan_Bad_Input, Every_length_that_a_zip_can_be_cut_to_ends_in_the_report) {
    Scan_World world;
    const QByteArray whole = Good_bytes();
    QStringList expected;
    for (qsizetype length = 0; length < whole.size(); length += 7) {
        const QString name = QString("cut_%1.zip").arg(length, 4, 10, QChar('0'));
        world.write("zips/" + name, whole.left(length));
        expected << name;
    }
    world.scan();
    EXPECT_EQ(world.listed(), QStringList({"Original"}));
    EXPECT_EQ(world.found().undetermined, expected);
}

TEST(Scan_Bad_Input, Folders_and_links_that_go_by_the_name_of_a_zip) {
    Scan_World world;
    world.mission("good.zip");
    QDir().mkpath(world.native("zips/folder.zip/inner"));
    world.zip("zips/folder.zip/inner/lost.zip", {{"miss20.mis", "m", {}}, {"readme.txt", readme, {}}});
    QDir().mkpath(world.native("zips/deeper"));
    EXPECT_TRUE(QFile::link(world.native("zips"), world.native("zips/deeper/back")));
    EXPECT_TRUE(QFile::link(world.native("zips/self.zip"), world.native("zips/self.zip")));
    EXPECT_TRUE(QFile::link(world.native("zips/pong.zip"), world.native("zips/ping.zip")));
    EXPECT_TRUE(QFile::link(world.native("zips/ping.zip"), world.native("zips/pong.zip")));
    EXPECT_TRUE(QFile::link(world.native("zips/nowhere"), world.native("zips/dangling.zip")));
    EXPECT_TRUE(QFile::link(world.native("zips/good.zip"), world.native("zips/linked.zip")));
    EXPECT_TRUE(QFile::link(world.native("zips"), world.native("zips/upward.zip")));
    world.scan();
    EXPECT_EQ(world.listed(), QStringList({"Original", "good.zip", "linked.zip"}));
    QStringList reported = world.found().undetermined;
    for (const char *broken : {"self.zip", "ping.zip", "pong.zip", "dangling.zip"})
        reported.removeAll(broken);
    EXPECT_EQ(reported, QStringList({"folder.zip", "upward.zip"}));
}

TEST(Scan_Bad_Input, A_folder_that_can_not_be_read_is_told_and_the_others_are_walked) {
    Scan_World world;
    world.mission("good.zip");
    world.write("file", "no folder");
    EXPECT_TRUE(QFile::link(world.native("loop"), world.native("loop")));
    world.program().ini.T2_LOCATION =
        Join_folder_list({world.windows("loop"), world.windows("file"), world.windows("zips")});
    world.scan();
    EXPECT_EQ(world.listed(), QStringList({"Original", "good.zip"}));
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_TRUE(world.ui.boxes[0].text.contains(world.native("loop")));
    EXPECT_TRUE(world.ui.boxes[0].text.contains(world.native("file")));
}

} // namespace vantrosk
