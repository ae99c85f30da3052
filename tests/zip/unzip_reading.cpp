#include "support/World.h"
#include "zip/Archive_Bytes.h"
#include "zip/mUnzip.h"

#include <QFile>

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

const QByteArray text = QByteArray("The watch passes, the lamp goes out.\r\n").repeated(100);

Raw_Entry Packed(const QByteArray &name, const QByteArray &content) {
    Raw_Entry entry{name, Deflated(content)};
    entry.size = static_cast<quint32>(content.size());
    entry.crc = Crc_of(content);
    entry.method = 8;
    return entry;
}

class Unzip_Reading : public testing::Test {
protected:
    World world;
    cUnzip unzip{*world.platform.files};

    void list(const QByteArray &bytes) {
        world.write("m.zip", bytes);
        unzip.ZipFile = world.windows("m.zip");
        ASSERT_FALSE(unzip.Directory());
    }
    /// The text of the fault at reading the archive's only entry; empty when it is read.
    QString fault_of(const Raw_Entry &entry) {
        list(Archive_bytes({entry}));
        const Result<QByteArray> content = unzip.Read_entry(1, 1 << 20);
        EXPECT_TRUE(content.ok() || content.value.isEmpty());
        return content.fault.text;
    }
};

TEST_F(Unzip_Reading, Stored_and_packed_entries_of_any_length_are_read_whole) {
    Raw_Entry packed_empty{"packed_empty", QByteArray("\x03\x00", 2)};
    packed_empty.size = 0;
    packed_empty.crc = 0;
    packed_empty.method = 8;
    list(Archive_bytes(
        {{"stored", text}, {"empty", ""}, Packed("packed", text), packed_empty, Packed("one", "1")}));
    const QByteArray contents[] = {text, "", text, "", "1"};
    for (int i = 1; i <= 5; ++i) {
        EXPECT_EQ(unzip.Read_entry(i, 1 << 20).fault.text, "") << i;
        EXPECT_EQ(unzip.Read_entry(i, 1 << 20).value, contents[i - 1]) << i;
    }
}

TEST_F(Unzip_Reading, A_limit_cuts_the_content_at_any_place) {
    list(Archive_bytes({{"stored", text}, Packed("packed", text)}));
    for (const qsizetype limit : {qsizetype(0), qsizetype(1), text.size() - 1, text.size(), text.size() + 1})
        for (const int entry : {1, 2})
            EXPECT_EQ(unzip.Read_entry(entry, limit).value, text.left(limit)) << entry << " " << limit;
}

TEST_F(Unzip_Reading, An_entry_that_lies_is_a_fault_with_a_reason) {
    const auto lying = [](auto lie) {
        Raw_Entry entry = Packed("a.txt", text);
        lie(entry);
        return entry;
    };
    const QString length = "\"a.txt\" is damaged: its length is wrong.";
    const QString checksum = "\"a.txt\" is damaged: its checksum is wrong.";
    EXPECT_EQ(fault_of(lying([](Raw_Entry &) {})), "");
    EXPECT_EQ(fault_of(lying([](Raw_Entry &one) { one.size = 10; })), length);
    EXPECT_NE(fault_of(lying([](Raw_Entry &one) { one.size = 100000; })), "");
    EXPECT_EQ(fault_of(lying([](Raw_Entry &one) { one.crc = 7; })), checksum);
    EXPECT_NE(fault_of(lying([](Raw_Entry &one) { one.content[5] = static_cast<char>(one.content[5] ^ 1); })),
              "");
    EXPECT_NE(fault_of(lying([](Raw_Entry &one) { one.method = 99; })), "");
    EXPECT_NE(fault_of(lying([](Raw_Entry &one) { one.method = 0; })), "");
    EXPECT_EQ(fault_of(lying([](Raw_Entry &one) { one.flags = 1; })), "\"a.txt\" is encrypted.");
}

TEST_F(Unzip_Reading, A_header_that_says_other_than_the_directory_is_left_to_the_library) {
    const QByteArray good = Archive_bytes({Packed("a.txt", text)});
    QByteArray other_name = good;
    other_name.replace(30, 5, "b.txt");
    list(other_name);
    EXPECT_EQ(unzip.Read_entry(1, 1 << 20).value, text) << "the directory is what counts";
}

TEST_F(Unzip_Reading, Names_are_given_as_they_are_stored) {
    list(Archive_bytes({{"a/b\\c\x81.txt", "1"}, {"plain", "2"}}));
    EXPECT_EQ(unzip.StoredFilename(1).toByteArray(), QByteArray("c\x81.txt"));
    EXPECT_EQ(unzip.StoredFilename(2).toByteArray(), QByteArray("plain"));
    EXPECT_TRUE(unzip.StoredFilename(0).isEmpty());
    EXPECT_TRUE(unzip.StoredFilename(3).isEmpty());
}

TEST_F(Unzip_Reading, Neighbours_of_one_folder_made_on_two_systems_have_their_own_letters) {
    Raw_Entry dos{"\x81/a.txt", "1"}, unix_one{"\x81/b.txt", "2"};
    unix_one.system = 3;
    list(Archive_bytes({dos, unix_one, dos}));
    EXPECT_EQ(unzip.FileDirectory(1), u"\u00FC"_qs);
    EXPECT_EQ(unzip.FileDirectory(2), u"\u0081"_qs);
    EXPECT_EQ(unzip.FileDirectory(3), u"\u00FC"_qs);
    EXPECT_TRUE(unzip.FileIsSafe(1));
    EXPECT_FALSE(unzip.FileIsSafe(2)) << "a control character";
}

} // namespace
} // namespace vantrosk
