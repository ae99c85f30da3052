#include "Archive_Bytes.h"

#include "support/World.h"
#include "zip/mUnzip.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <utility>

namespace vantrosk {
namespace {

class Unzip_Writing : public testing::Test {
protected:
    World world;
    cUnzip unzip{*world.platform.files};

    void SetUp() override {
        unzip.ZipFile = world.windows("m.zip");
        unzip.UnzipFolder = world.windows("out");
        unzip.UseFolderNames = true;
    }
    Fault extract(const std::vector<Raw_Entry> &entries) {
        world.write("m.zip", Archive_bytes(entries));
        const Fault listed = unzip.Directory();
        return listed ? listed : unzip.Unzip();
    }
};

Raw_Entry Packed(const QByteArray &name, const QByteArray &content) {
    Raw_Entry entry{name, Deflated(content)};
    entry.method = 8;
    entry.size = static_cast<quint32>(content.size());
    entry.crc = Crc_of(content);
    return entry;
}

TEST_F(Unzip_Writing, Entries_land_under_their_folders_with_their_dates) {
    const QByteArray large = QByteArray("0123456789").repeated(100000);
    EXPECT_EQ(extract({{"a.txt", "1"}, Packed("books\\deep/b.str", large), {"empty.txt", ""}}).text,
              QString());
    EXPECT_EQ(world.snapshot("out"), (Snapshot{{"a.txt", "1"},
                                               {"books/", {}},
                                               {"books/deep/", {}},
                                               {"books/deep/b.str", large},
                                               {"empty.txt", ""}}));
    const QDateTime date(QDate(2004, 6, 12), QTime(10, 30, 8));
    EXPECT_EQ(QFileInfo(world.native("out/a.txt")).lastModified(), date);
    EXPECT_EQ(QFileInfo(world.native("out/books/deep/b.str")).lastModified(), date);
}

TEST_F(Unzip_Writing, Without_folder_names_every_entry_lands_directly_in_the_folder) {
    unzip.UseFolderNames = false;
    EXPECT_FALSE(extract({{"a/one.txt", "1"}, {"b\\c\\two.txt", "2"}, {"three.txt", "3"}}));
    EXPECT_EQ(world.snapshot("out"), (Snapshot{{"one.txt", "1"}, {"two.txt", "2"}, {"three.txt", "3"}}));
}

TEST_F(Unzip_Writing, Only_selected_entries_are_written_and_told_before) {
    world.write("m.zip", Archive_bytes({{"a", "1"}, {"books/b", "2"}, {"c", "3"}}));
    ASSERT_FALSE(unzip.Directory());
    unzip.FileSelected(1, false);
    QStringList told;
    unzip.Progress = [&](const QString &name) {
        told << name + (world.exists("out/" + QString(name).replace('\\', '/')) ? " late" : "");
    };
    EXPECT_FALSE(unzip.Unzip());
    EXPECT_EQ(told, QStringList({"books\\b", "c"}));
    EXPECT_EQ(Names(world.snapshot("out")), QStringList({"books/", "books/b", "c"}));
}

TEST_F(Unzip_Writing, With_nothing_selected_the_folder_is_made_and_nothing_is_written) {
    world.write("m.zip", Archive_bytes({{"a", "1"}}));
    ASSERT_FALSE(unzip.Directory());
    unzip.FileSelected(1, false);
    EXPECT_FALSE(unzip.Unzip());
    EXPECT_EQ(world.snapshot("out"), Snapshot());
}

TEST_F(Unzip_Writing, Without_a_listing_before_everything_is_extracted) {
    world.write("m.zip", Archive_bytes({{"a", "1"}, {"b", "2"}}));
    EXPECT_FALSE(unzip.Unzip());
    EXPECT_EQ(world.snapshot("out"), (Snapshot{{"a", "1"}, {"b", "2"}}));
}

TEST_F(Unzip_Writing, Another_archive_since_the_listing_is_listed_anew) {
    world.write("first.zip", Archive_bytes({{"a", "1"}}));
    world.write("second.zip", Archive_bytes({{"b", "2"}}));
    unzip.ZipFile = world.windows("first.zip");
    ASSERT_FALSE(unzip.Directory());
    unzip.ZipFile = world.windows("second.zip");
    EXPECT_FALSE(unzip.Unzip());
    EXPECT_EQ(world.snapshot("out"), (Snapshot{{"b", "2"}}));
}

TEST_F(Unzip_Writing, Unzip_Files_extracts_the_whole_tree) {
    world.write("m.zip", Archive_bytes({{"a/b", "1"}}));
    EXPECT_TRUE(Unzip_Files(*world.platform.files, world.windows("m.zip"), world.windows("out")));
    EXPECT_EQ(world.read("out/a/b"), "1");
    EXPECT_FALSE(Unzip_Files(*world.platform.files, world.windows("no.zip"), world.windows("out")));
}

TEST_F(Unzip_Writing, Existing_files_are_found_without_case_and_keep_their_spelling) {
    world.write("out/books/X.STR", "old");
    world.write("out/Readme.TXT", "old");
    EXPECT_FALSE(extract({{"BOOKS/x.str", "new"}, {"README.txt", "new"}, {"BOOKS/y.str", "y"}}));
    EXPECT_EQ(
        world.snapshot("out"),
        (Snapshot{{"books/", {}}, {"books/X.STR", "new"}, {"books/y.str", "y"}, {"Readme.TXT", "new"}}));
}

TEST_F(Unzip_Writing, An_exact_spelling_goes_before_another_one) {
    world.write("out/A.txt", "upper");
    world.write("out/a.txt", "lower");
    EXPECT_FALSE(extract({{"a.txt", "new"}}));
    EXPECT_EQ(world.snapshot("out"), (Snapshot{{"A.txt", "upper"}, {"a.txt", "new"}}));
}

TEST_F(Unzip_Writing, Of_two_entries_of_one_name_the_later_wins_also_when_case_differs) {
    EXPECT_FALSE(extract({{"a.txt", "1"}, {"a.txt", "2"}, {"Dir/b.txt", "3"}, {"dir/B.TXT", "4"}}));
    EXPECT_EQ(world.snapshot("out"), (Snapshot{{"a.txt", "2"}, {"Dir/", {}}, {"Dir/b.txt", "4"}}));
}

TEST_F(Unzip_Writing, Existing_files_stay_when_they_are_not_to_be_overwritten) {
    world.write("out/A.txt", "old");
    unzip.OverwriteExisting = false;
    QStringList told;
    unzip.Progress = [&](const QString &name) {
        told << name;
    };
    EXPECT_FALSE(extract({{"a.txt", "new"}, {"b.txt", "b"}}));
    EXPECT_EQ(world.snapshot("out"), (Snapshot{{"A.txt", "old"}, {"b.txt", "b"}}));
    EXPECT_EQ(told, QStringList({"b.txt"}));
}

TEST_F(Unzip_Writing, A_read_only_file_is_replaced_and_keeps_its_rights) {
    world.write("out/a.txt", "old");
    const auto rights = QFile::ReadOwner | QFile::ReadUser | QFile::ReadGroup;
    QFile::setPermissions(world.native("out/a.txt"), rights);
    EXPECT_FALSE(extract({{"a.txt", "new"}}));
    EXPECT_EQ(world.read("out/a.txt"), "new");
    EXPECT_FALSE(QFileInfo(world.native("out/a.txt")).permission(QFile::WriteOwner));
}

TEST_F(Unzip_Writing, A_file_that_could_be_started_where_the_archive_was_made_can_be_started_here) {
    Raw_Entry script{"run.sh", "#!/bin/sh"};
    script.system = 3;
    script.attributes = 0100755u << 16;
    Raw_Entry text = script;
    text.name = "text.txt";
    text.attributes = 0104644u << 16;
    Raw_Entry dos = script;
    dos.name = "dos.sh";
    dos.system = 0;
    EXPECT_FALSE(extract({script, text, dos}));
    EXPECT_TRUE(QFileInfo(world.native("out/run.sh")).permission(QFile::ExeOwner));
    EXPECT_FALSE(QFileInfo(world.native("out/text.txt")).permission(QFile::ExeOwner));
    EXPECT_FALSE(QFileInfo(world.native("out/dos.sh")).permission(QFile::ExeOwner));
}

TEST_F(Unzip_Writing, A_link_in_the_place_of_a_file_is_replaced_and_not_followed) {
    world.write("precious.txt", "precious");
    world.make_folder("out");
    ASSERT_TRUE(QFile::link(world.native("precious.txt"), world.native("out/a.txt")));
    EXPECT_FALSE(extract({{"a.txt", "new"}}));
    EXPECT_EQ(world.read("precious.txt"), "precious");
    EXPECT_EQ(world.read("out/a.txt"), "new");
    EXPECT_FALSE(QFileInfo(world.native("out/a.txt")).isSymLink());
}

TEST_F(Unzip_Writing, A_folder_link_that_leads_outside_is_refused) {
    world.make_folder("elsewhere");
    world.make_folder("out/sub");
    ASSERT_TRUE(QFile::link(world.native("elsewhere"), world.native("out/books")));
    ASSERT_TRUE(QFile::link("../../elsewhere", world.native("out/sub/strings")));
    ASSERT_TRUE(QFile::link(world.native("nowhere"), world.native("out/dangling")));
    for (const char *name : {"books/a.txt", "BOOKS/deep/a.txt", "sub/strings/a.txt", "dangling/a.txt"}) {
        const Fault fault = extract({{name, "new"}});
        EXPECT_EQ(fault.kind, Fault_Kind::outside) << name << fault.text.toStdString();
    }
    EXPECT_EQ(world.snapshot("elsewhere"), Snapshot());
    EXPECT_FALSE(world.exists("nowhere"));
}

TEST_F(Unzip_Writing, A_folder_link_that_stays_inside_is_followed) {
    world.make_folder("out/real");
    ASSERT_TRUE(QFile::link("real", world.native("out/alias")));
    EXPECT_FALSE(extract({{"alias/a.txt", "new"}}));
    EXPECT_EQ(world.read("out/real/a.txt"), "new");
}

TEST_F(Unzip_Writing, The_folder_itself_may_be_a_link) {
    world.make_folder("real");
    ASSERT_TRUE(QFile::link(world.native("real"), world.native("out")));
    EXPECT_FALSE(extract({{"books/a.txt", "new"}}));
    EXPECT_EQ(world.read("real/books/a.txt"), "new");
}

TEST_F(Unzip_Writing, A_file_in_the_place_of_a_folder_and_the_reverse_are_faults) {
    world.write("out/books", "a file");
    EXPECT_EQ(extract({{"books/a.txt", "new"}}).kind, Fault_Kind::exists);
    world.make_folder("out/folder.txt");
    EXPECT_EQ(extract({{"FOLDER.txt", "new"}}).kind, Fault_Kind::exists);
    EXPECT_EQ(extract({{"x", "file"}, {"x/y", "below a file"}}).kind, Fault_Kind::exists);
    EXPECT_EQ(world.snapshot("out"), (Snapshot{{"books", "a file"}, {"folder.txt/", {}}, {"x", "file"}}));
}

TEST_F(Unzip_Writing, A_wrong_checksum_leaves_the_file_that_was_there) {
    world.write("out/b.txt", "old");
    for (const bool packed : {false, true}) {
        Raw_Entry bad = packed ? Packed("b.txt", "new content") : Raw_Entry{"b.txt", "new content"};
        bad.crc = 12345;
        const Fault fault = extract({{"a.txt", "1"}, bad, {"c.txt", "3"}});
        EXPECT_EQ(fault.kind, Fault_Kind::damaged);
        EXPECT_EQ(fault.text, "\"b.txt\" is damaged: its checksum is wrong.");
        EXPECT_EQ(world.snapshot("out"), (Snapshot{{"a.txt", "1"}, {"b.txt", "old"}}));
    }
}

TEST_F(Unzip_Writing, Packed_bytes_that_are_nonsense_are_damaged) {
    Raw_Entry bad = Packed("b.txt", QByteArray("content ").repeated(1000));
    bad.content[4] = static_cast<char>(bad.content[4] ^ 0x55);
    EXPECT_EQ(extract({bad}).kind, Fault_Kind::damaged);
    bad = Packed("b.txt", QByteArray("content ").repeated(1000));
    bad.content.chop(5);
    EXPECT_EQ(extract({bad}).kind, Fault_Kind::damaged);
    bad = Packed("b.txt", "x");
    bad.content = "\xff\xff\xff\xff\xff";
    EXPECT_EQ(extract({bad}).kind, Fault_Kind::damaged);
    EXPECT_EQ(world.snapshot("out"), Snapshot());
}

TEST_F(Unzip_Writing, A_size_that_lies_is_damaged_and_no_more_than_it_says_is_written) {
    const QByteArray content = QByteArray(5 * 1024 * 1024, 'z');
    const std::pair<quint32, const char *> lies[] = {
        {10u, "too small"}, {0u, "nothing"}, {6u * 1024 * 1024, "too large"}, {0xfffffffeu, "huge"}};
    for (const auto &[size, what] : lies) {
        Raw_Entry bad = Packed("bomb.txt", content);
        bad.size = size;
        const Fault fault = extract({bad});
        EXPECT_EQ(fault.kind, Fault_Kind::damaged) << what << fault.text.toStdString();
        EXPECT_EQ(world.snapshot("out"), Snapshot()) << what;
    }
}

TEST_F(Unzip_Writing, A_stored_entry_that_says_it_reaches_beyond_the_file_is_damaged) {
    Raw_Entry bad{"a.txt", "short"};
    bad.size = bad.packed_size = 1000000;
    EXPECT_EQ(extract({bad}).kind, Fault_Kind::damaged);
    EXPECT_EQ(world.snapshot("out"), Snapshot());
}

TEST_F(Unzip_Writing, An_entry_over_the_limit_is_too_large_and_one_at_the_limit_is_not) {
    unzip.SizeLimit = 5;
    EXPECT_FALSE(extract({{"a.txt", "12345"}}));
    const Fault fault = extract({{"b.txt", "123456"}, {"c.txt", "1"}});
    EXPECT_EQ(fault.kind, Fault_Kind::too_large);
    EXPECT_EQ(fault.text, "\"b.txt\" is longer than the 5 bytes that are allowed.");
    EXPECT_EQ(world.snapshot("out"), (Snapshot{{"a.txt", "12345"}}));
}

TEST_F(Unzip_Writing, An_encrypted_entry_is_damaged_before_anything_is_written) {
    Raw_Entry secret{"secret.txt", "............hello"};
    secret.flags = 1;
    const Fault fault = extract({{"a.txt", "1"}, secret});
    EXPECT_EQ(fault.kind, Fault_Kind::damaged);
    EXPECT_EQ(fault.text, "\"secret.txt\" in \"m.zip\" is encrypted.");
    EXPECT_FALSE(world.exists("out/a.txt"));
    unzip.FileSelected(2, false);
    EXPECT_FALSE(unzip.Unzip());
    EXPECT_EQ(world.snapshot("out"), (Snapshot{{"a.txt", "1"}}));
}

TEST_F(Unzip_Writing, A_way_of_packing_that_is_not_known_is_told_before_anything_is_written) {
    Raw_Entry odd{"a.txt", "12345"};
    odd.method = 6;
    const Fault fault = extract({odd});
    EXPECT_EQ(fault.kind, Fault_Kind::not_available);
    EXPECT_EQ(fault.text, "\"a.txt\" in \"m.zip\" is packed by a method that Vantrosk does not know.");
}

TEST_F(Unzip_Writing, Nothing_is_left_of_a_killed_run_after_the_next_one) {
    world.write(QString("out/") + unzip_temporary_name, "half a file");
    EXPECT_FALSE(extract({{"books/a.txt", "1"}}));
    EXPECT_EQ(Names(world.snapshot("out")), QStringList({"books/", "books/a.txt"}));
}

TEST_F(Unzip_Writing, A_link_under_the_temporary_name_is_not_followed) {
    world.write("precious.txt", "precious");
    world.make_folder("out");
    ASSERT_TRUE(QFile::link(world.native("precious.txt"), world.native("out/") + unzip_temporary_name));
    EXPECT_FALSE(extract({{"a.txt", "1"}}));
    EXPECT_EQ(world.read("precious.txt"), "precious");
}

TEST_F(Unzip_Writing, An_archive_that_goes_away_or_changes_after_its_listing_is_a_fault) {
    world.write("m.zip", Archive_bytes({{"a", "1"}, {"b", "2"}}));
    ASSERT_FALSE(unzip.Directory());
    QFile::remove(world.native("m.zip"));
    EXPECT_EQ(unzip.Unzip().kind, Fault_Kind::not_found);
    EXPECT_EQ(unzip.Read_entry(1, 10).value, "1") << "the file is held open since its listing";
    const std::vector<Raw_Entry> others[] = {
        {{"a", "1"}}, {{"a", "1"}, {"c", "2"}}, {{"a", "1"}, {"b", "22"}}, {{"a", "1"}, {"b/", ""}}};
    for (const std::vector<Raw_Entry> &other : others) {
        world.write("m.zip", Archive_bytes({{"a", "1"}, {"b", "2"}}));
        ASSERT_FALSE(unzip.Directory());
        world.write("m.zip", Archive_bytes(other));
        const Fault fault = unzip.Unzip();
        EXPECT_EQ(fault.kind, Fault_Kind::damaged);
        EXPECT_EQ(fault.text, "\"m.zip\" is not what it was when it was listed.");
        EXPECT_EQ(unzip.Read_entry(2, 10).fault.kind, Fault_Kind::damaged);
    }
    EXPECT_EQ(world.snapshot("out"), Snapshot());
}

TEST_F(Unzip_Writing, A_name_that_is_too_long_for_the_disk_is_a_fault) {
    EXPECT_TRUE(extract({{QByteArray(300, 'n'), "1"}}));
    EXPECT_TRUE(extract({{QByteArray(300, 'n') + "/a", "1"}}));
    EXPECT_EQ(world.snapshot("out"), Snapshot());
}

TEST_F(Unzip_Writing, A_folder_of_hundreds_of_levels_is_made) {
    EXPECT_FALSE(extract({{QByteArray("d/").repeated(500) + "a", "1"}}));
    EXPECT_EQ(world.read(QString("out/") + QString("d/").repeated(500) + "a"), "1");
}

TEST_F(Unzip_Writing, No_folder_to_unzip_to_is_a_fault) {
    unzip.UnzipFolder.clear();
    EXPECT_EQ(extract({{"a", "1"}}).kind, Fault_Kind::not_found);
    world.write("file", "x");
    unzip.UnzipFolder = world.windows("file");
    EXPECT_TRUE(extract({{"a", "1"}}));
    EXPECT_EQ(world.read("file"), "x");
}

} // namespace
} // namespace vantrosk
