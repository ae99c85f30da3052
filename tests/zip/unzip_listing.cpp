#include "Archive_Bytes.h"

#include "support/World.h"
#include "zip/mUnzip.h"

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

class Unzip_Listing : public testing::Test {
protected:
    World world;
    cUnzip unzip{*world.platform.files};

    Fault list(const QByteArray &archive) {
        world.write("m.zip", archive);
        unzip.ZipFile = world.windows("m.zip");
        return unzip.Directory();
    }
    /// "folder|file" of every entry.
    QStringList names() const {
        QStringList result;
        for (int i = 1; i <= unzip.FileCount(); ++i)
            result << unzip.FileDirectory(i) + "|" + unzip.Filename(i);
        return result;
    }
};

TEST_F(Unzip_Listing, Entries_are_numbered_from_1_in_stored_order_and_all_are_selected) {
    const Fault fault =
        list(Archive_bytes({{"b.txt", "22"}, {"books/a.str", "1"}, {"STRINGS/x/y.str", "333"}}));
    EXPECT_EQ(fault.text, QString());
    EXPECT_EQ(names(), QStringList({"|b.txt", "books|a.str", "STRINGS\\x|y.str"}));
    for (int i = 1; i <= 3; ++i)
        EXPECT_TRUE(unzip.FileSelected(i)) << i;
    EXPECT_EQ(unzip.FileSize(1), 2);
    EXPECT_EQ(unzip.FileSize(3), 3);
}

TEST_F(Unzip_Listing, Numbers_outside_of_the_list_give_nothing) {
    ASSERT_FALSE(list(Archive_bytes({{"a", "1"}})));
    for (const int i : {-1, 0, 2, 1000000}) {
        EXPECT_EQ(unzip.Filename(i), QString());
        EXPECT_EQ(unzip.FileDirectory(i), QString());
        EXPECT_EQ(unzip.FileSize(i), 0);
        EXPECT_EQ(unzip.FileCompressionRatio(i), 0);
        EXPECT_FALSE(unzip.FileDate(i).isValid());
        EXPECT_FALSE(unzip.FileSelected(i));
        unzip.FileSelected(i, true);
        EXPECT_EQ(unzip.Read_entry(i, 10).fault.kind, Fault_Kind::not_found);
    }
}

TEST_F(Unzip_Listing, A_selection_is_kept_until_the_next_listing) {
    ASSERT_FALSE(list(Archive_bytes({{"a", "1"}, {"b", "2"}})));
    unzip.FileSelected(1, false);
    EXPECT_FALSE(unzip.FileSelected(1));
    EXPECT_TRUE(unzip.FileSelected(2));
    ASSERT_FALSE(unzip.Directory());
    EXPECT_TRUE(unzip.FileSelected(1));
}

TEST_F(Unzip_Listing, Folder_entries_are_no_entries) {
    ASSERT_FALSE(list(
        Archive_bytes({{"books/", ""}, {"books\\more\\", ""}, {"books/a", "1"}, {"/", ""}, {"\\", ""}})));
    EXPECT_EQ(names(), QStringList({"books|a"}));
}

TEST_F(Unzip_Listing, Both_separators_are_the_same_and_doubled_ones_count_once) {
    ASSERT_FALSE(list(Archive_bytes({{"a\\b\\c.txt", ""},
                                     {"a/b\\c.txt", ""},
                                     {"a//b/c.txt", ""},
                                     {"./a/./b/c.txt", ""},
                                     {"./c.txt", ""}})));
    EXPECT_EQ(names(), QStringList({"a\\b|c.txt", "a\\b|c.txt", "a\\b|c.txt", "a\\b|c.txt", "|c.txt"}));
}

TEST_F(Unzip_Listing, Unsafe_names_are_listed_and_counted) {
    ASSERT_FALSE(list(Archive_bytes({{"../x", "1"}, {"C:\\y", "2"}, {"/z", "3"}, {"good", "4"}})));
    EXPECT_EQ(names(), QStringList({"..|x", "C:|y", "|z", "|good"}));
}

struct Name_Case {
    QByteArray stored;
    int flags, system;
    QString shown;
};

TEST_F(Unzip_Listing,
       Names_are_UTF_8_when_they_can_be_and_otherwise_of_the_code_page_of_where_they_were_made) {
    const Name_Case cases[] = {
        {"plain.txt", 0, 0, "plain.txt"},
        {"Žluťoučký.txt", 0x800, 3, "Žluťoučký.txt"},
        {"Žluťoučký.txt", 0, 0, "Žluťoučký.txt"},
        {"Mission d'\x82t\x82.txt", 0, 0, "Mission d'été.txt"},
        {"Mission d'\x82t\x82.txt", 0, 11, "Mission d'été.txt"},
        {"Mission d'\xe9t\xe9.txt", 0, 3, "Mission d'été.txt"},
        {"Mission d'\xe9t\xe9.txt", 0, 19, "Mission d'été.txt"},
        {"\x93quoted\x94 \x80\x9f.txt", 0, 3, "“quoted” €Ÿ.txt"},
        {"\x80\x87\xe1\xfe\xff.txt", 0, 0,
         "Çç"
         "ß■\u00a0.txt"},
        {"Миссия.txt", 0, 0, "Миссия.txt"},
        {"\xc0\xaf", 0, 0, "└»"}, // an overlong "/" is no separator
    };
    for (const Name_Case &row : cases) {
        Raw_Entry entry{row.stored, "x"};
        entry.flags = row.flags;
        entry.system = row.system;
        ASSERT_FALSE(list(Archive_bytes({entry})));
        EXPECT_EQ(unzip.Filename(1), row.shown);
    }
}

TEST_F(Unzip_Listing, A_name_that_is_marked_as_UTF_8_and_is_none_makes_the_archive_damaged) {
    Raw_Entry entry{"bad mark \xff.txt", "x"};
    entry.flags = 0x800;
    const Fault fault = list(Archive_bytes({{"a", "1"}, entry}));
    EXPECT_EQ(fault.kind, Fault_Kind::damaged);
    EXPECT_EQ(fault.text, "\"m.zip\" is damaged: it contradicts itself.");
}

TEST_F(Unzip_Listing, A_folder_in_a_code_page_is_decoded_like_a_file) {
    ASSERT_FALSE(list(Archive_bytes({{"fran\x87"
                                      "ais/a.str",
                                      ""},
                                     {"fran\x87"
                                      "ais/b.str",
                                      ""},
                                     {"b.str", ""}})));
    EXPECT_EQ(names(), QStringList({"français|a.str", "français|b.str", "|b.str"}));
}

TEST_F(Unzip_Listing, Dates_are_the_local_ones_that_are_stored) {
    ASSERT_FALSE(list(Archive_bytes({{"a", ""}})));
    EXPECT_EQ(unzip.FileDate(1), QDateTime(QDate(2004, 6, 12), QTime(10, 30, 8)));
}

TEST_F(Unzip_Listing, A_date_that_is_none_does_no_harm) {
    Raw_Entry entry{"a", "1"};
    entry.date = 0;
    entry.time = 0xffff;
    ASSERT_FALSE(list(Archive_bytes({entry})));
    unzip.FileDate(1);
    unzip.UnzipFolder = world.windows("out");
    EXPECT_FALSE(unzip.Unzip());
    EXPECT_EQ(world.read("out/a"), "1");
}

struct Ratio_Case {
    quint32 size, packed;
    int ratio;
};

TEST_F(Unzip_Listing, The_ratio_is_the_percentage_saved) {
    const Ratio_Case cases[] = {{0, 0, 0},      {0, 10, 0},    {100, 100, 0},  {100, 150, 0},
                                {100, 25, 75},  {3, 1, 67},    {1000, 1, 100}, {0xfffffffe, 1, 100},
                                {1000, 996, 0}, {1000, 994, 1}};
    for (const Ratio_Case &row : cases) {
        Raw_Entry entry{"a", "1"};
        entry.size = row.size;
        entry.packed_size = row.packed;
        ASSERT_FALSE(list(Archive_bytes({entry})));
        EXPECT_EQ(unzip.FileCompressionRatio(1), row.ratio) << row.size << " " << row.packed;
    }
}

TEST_F(Unzip_Listing, Two_entries_of_one_name_are_two_entries) {
    ASSERT_FALSE(list(Archive_bytes({{"a", "1"}, {"a", "2"}, {"A", "3"}})));
    EXPECT_EQ(names(), QStringList({"|a", "|a", "|A"}));
}

TEST_F(Unzip_Listing, The_comment_is_that_of_the_archive) {
    ASSERT_FALSE(list(Archive_bytes({{"a", "1"}}, "Mise d'\xc3\xa9t\xc3\xa9")));
    EXPECT_EQ(unzip.Comment(), "Mise d'été");
    ASSERT_FALSE(list(Archive_bytes({{"a", "1"}})));
    EXPECT_EQ(unzip.Comment(), QString());
}

TEST_F(Unzip_Listing, An_archive_of_nothing_has_no_entries_and_is_no_fault) {
    EXPECT_FALSE(list(Archive_bytes({})));
    EXPECT_EQ(unzip.FileCount(), 0);
}

TEST_F(Unzip_Listing, Zip64_archives_are_listed_and_unzipped) {
    ASSERT_FALSE(list(Zip64_bytes({{"a", "first"}, {"books/b", "second"}})));
    EXPECT_EQ(names(), QStringList({"|a", "books|b"}));
    EXPECT_EQ(unzip.FileSize(2), 6);
    unzip.UnzipFolder = world.windows("out");
    unzip.UseFolderNames = true;
    EXPECT_FALSE(unzip.Unzip());
    EXPECT_EQ(world.snapshot("out"), (Snapshot{{"a", "first"}, {"books/", {}}, {"books/b", "second"}}));
}

TEST_F(Unzip_Listing, A_hundred_thousand_entries_are_listed) {
    std::vector<Raw_Entry> entries(100000);
    for (size_t i = 0; i < entries.size(); ++i)
        entries[i].name = "folder" + QByteArray::number(static_cast<int>(i / 1000)) + "/f" +
                          QByteArray::number(static_cast<int>(i));
    ASSERT_FALSE(list(Archive_bytes(entries)));
    EXPECT_EQ(unzip.FileCount(), 100000);
    EXPECT_EQ(unzip.FileDirectory(100000), "folder99");
    EXPECT_EQ(unzip.Filename(100000), "f99999");
}

TEST_F(Unzip_Listing, Bytes_before_the_archive_and_behind_it_are_passed_over) {
    const QByteArray archive = Archive_bytes({{"a", "content"}});
    const QByteArray before[] = {"", QByteArray(100, '\0'), "MZ a program that unpacks itself",
                                 archive.left(50)};
    for (const QByteArray &bytes : before) {
        ASSERT_EQ(list(bytes + archive).text, QString()) << bytes.size();
        EXPECT_EQ(names(), QStringList({"|a"}));
        EXPECT_EQ(unzip.Read_entry(1, 100).value, "content");
    }
    ASSERT_FALSE(list(archive + QByteArray(100, '\0')));
    EXPECT_EQ(names(), QStringList({"|a"}));
}

struct Broken_Case {
    const char *what;
    QByteArray bytes;
    const char *text;
};

TEST_F(Unzip_Listing, What_is_no_zip_is_damaged_and_the_sentence_names_it) {
    const QByteArray good = Archive_bytes({{"a.txt", "some content"}, {"b.txt", "more content"}});
    const Broken_Case cases[] = {
        {"empty", "", "\"m.zip\" is empty."},
        {"one byte", "P", "\"m.zip\" is not a zip archive."},
        {"a text", "This is only a text.", "\"m.zip\" is not a zip archive."},
        {"zeros", QByteArray(5000, '\0'), "\"m.zip\" is not a zip archive."},
        {"a local header alone", good.left(40), "\"m.zip\" is not a zip archive."},
        {"cut off in the directory", good.left(good.size() - 30), "\"m.zip\" is not a zip archive."},
        {"cut off in the end record", good.left(good.size() - 5), nullptr},
        {"the start is missing", good.mid(60), nullptr},
    };
    for (const Broken_Case &row : cases) {
        const Fault fault = list(row.bytes);
        EXPECT_EQ(fault.kind, Fault_Kind::damaged) << row.what << ": " << fault.text.toStdString();
        EXPECT_EQ(unzip.FileCount(), 0) << row.what;
        EXPECT_TRUE(fault.text.startsWith("\"m.zip\" ") && fault.text.endsWith(".")) << row.what;
        if (row.text) {
            EXPECT_EQ(fault.text, row.text) << row.what;
        }
    }
}

TEST_F(Unzip_Listing, An_archive_cut_off_anywhere_is_a_fault_or_a_list_but_never_more) {
    const QByteArray good = Archive_bytes({{"a.txt", "some content"}, {"b.txt", Deflated("more content")}});
    for (qsizetype length = 0; length < good.size(); ++length) {
        const Fault fault = list(good.left(length));
        EXPECT_TRUE(fault) << length;
        EXPECT_EQ(unzip.FileCount(), 0) << length;
    }
}

TEST_F(Unzip_Listing, An_archive_with_any_byte_changed_does_no_harm) {
    const QByteArray good = Archive_bytes({{"a.txt", "some content"}, {"b/c.txt", "more content"}});
    const QStringList before = Names(world.snapshot(""));
    for (qsizetype at = 0; at < good.size(); ++at) {
        QByteArray changed = good;
        changed[at] = static_cast<char>(changed[at] ^ 0xff);
        const Fault listed = list(changed);
        if (listed)
            continue;
        unzip.UnzipFolder = world.windows("out");
        unzip.SizeLimit = 1000;
        const Fault fault = unzip.Unzip();
        EXPECT_TRUE(!fault || !fault.text.isEmpty()) << at;
    }
    const QStringList all = Names(world.snapshot(""));
    for (const QString &name : all)
        EXPECT_TRUE(name.startsWith("out/") || name == "m.zip" || before.contains(name))
            << name.toStdString();
}

TEST_F(Unzip_Listing, A_missing_archive_is_not_found) {
    unzip.ZipFile = world.windows("nothing.zip");
    const Fault fault = unzip.Directory();
    EXPECT_EQ(fault.kind, Fault_Kind::not_found);
    EXPECT_EQ(fault.text, "There is no \"nothing.zip\".");
}

TEST_F(Unzip_Listing, A_folder_named_like_a_zip_is_damaged) {
    world.make_folder("folder.zip");
    unzip.ZipFile = world.windows("folder.zip");
    const Fault fault = unzip.Directory();
    EXPECT_EQ(fault.kind, Fault_Kind::damaged);
    EXPECT_EQ(fault.text, "\"folder.zip\" is a folder, not a zip archive.");
}

TEST_F(Unzip_Listing, An_archive_is_found_whatever_the_case_of_its_name) {
    world.write("Maps/Mission.ZIP", Archive_bytes({{"a", "1"}}));
    unzip.ZipFile = world.windows("") + "\\maps\\mission.zip";
    EXPECT_FALSE(unzip.Directory());
    EXPECT_EQ(unzip.FileCount(), 1);
}

TEST_F(Unzip_Listing, A_fault_leaves_no_entries_of_the_archive_before) {
    ASSERT_FALSE(list(Archive_bytes({{"a", "1"}})));
    EXPECT_TRUE(list("no zip"));
    EXPECT_EQ(unzip.FileCount(), 0);
}

TEST_F(Unzip_Listing, Close_lets_go_of_the_list) {
    ASSERT_FALSE(list(Archive_bytes({{"a", "1"}})));
    unzip.Close();
    EXPECT_EQ(unzip.FileCount(), 0);
    EXPECT_EQ(unzip.Read_entry(1, 10).fault.kind, Fault_Kind::not_found);
}

TEST_F(Unzip_Listing, An_entry_is_read_whole_or_up_to_a_limit_and_nothing_is_written) {
    const QByteArray text = QByteArray("0123456789").repeated(50000);
    Raw_Entry packed{"b.txt", Deflated(text)};
    packed.method = 8;
    packed.size = static_cast<quint32>(text.size());
    packed.crc = Crc_of(text);
    ASSERT_FALSE(list(Archive_bytes({{"a.txt", "hello"}, packed, {"empty", ""}})));
    const Snapshot before = world.snapshot("");
    EXPECT_EQ(unzip.Read_entry(1, 100).value, "hello");
    EXPECT_EQ(unzip.Read_entry(1, 5).value, "hello");
    EXPECT_EQ(unzip.Read_entry(1, 2).value, "he");
    EXPECT_EQ(unzip.Read_entry(1, 0).value, "");
    EXPECT_EQ(unzip.Read_entry(2, 1000000).value, text);
    EXPECT_EQ(unzip.Read_entry(2, 300000).value, text.left(300000));
    EXPECT_TRUE(unzip.Read_entry(3, 10).ok());
    EXPECT_EQ(world.snapshot(""), before);
}

TEST_F(Unzip_Listing, Reading_an_entry_with_a_wrong_checksum_is_damaged) {
    Raw_Entry entry{"a.txt", "hello"};
    entry.crc = 1;
    ASSERT_FALSE(list(Archive_bytes({entry})));
    const Result<QByteArray> result = unzip.Read_entry(1, 100);
    EXPECT_EQ(result.fault.kind, Fault_Kind::damaged);
    EXPECT_EQ(result.fault.text, "\"a.txt\" is damaged: its checksum is wrong.");
    EXPECT_EQ(result.value, QByteArray());
}

TEST_F(Unzip_Listing, Reading_an_encrypted_entry_is_damaged) {
    Raw_Entry entry{"a.txt", "............hello"};
    entry.flags = 1;
    ASSERT_FALSE(list(Archive_bytes({entry})));
    EXPECT_EQ(unzip.Read_entry(1, 100).fault.text, "\"a.txt\" is encrypted.");
}

} // namespace
} // namespace vantrosk
