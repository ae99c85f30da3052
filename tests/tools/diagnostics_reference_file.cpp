#include "tools/Diagnostics_World.h"
#include "tools/diagnostics/Reference_File.h"

namespace vantrosk {
namespace {

QString Row_text(const Reference_Row &row) {
    return row.path + " | " + row.size + " | " + row.date;
}

QStringList Rows(const QString &text, const QString &folder = "C:\\T2") {
    QStringList rows;
    for (const Reference_Row &row : Read_reference_text(text, folder).rows)
        rows << Row_text(row);
    return rows;
}

TEST(Reference_File, A_whole_file_is_read_as_it_was_written) {
    const Reference read =
        Read_reference_text("FILECOUNT:2\r\nINFO: Patched<br>English\r\nDATECREATED:20261121\r\n"
                            "thief2.exe,5,05/04/2000 10:00:07\r\nobj\\a.bin,0,x y\r\n",
                            "C:\\T2");
    EXPECT_EQ(read.file_count, 2);
    EXPECT_EQ(read.info, " Patched<br>English");
    EXPECT_EQ(read.created, "20261121");
    ASSERT_EQ(read.rows.size(), 2U);
    EXPECT_EQ(Row_text(read.rows[0]), "C:\\T2\\thief2.exe | 5 | 05/04/2000 10:00:07");
    EXPECT_EQ(Row_text(read.rows[1]), "C:\\T2\\obj\\a.bin | 0 | x y");
    EXPECT_EQ(read.rows[0].status, Row_Status::not_seen);
    EXPECT_EQ(Shown_info(read), " Patched\nEnglish");
}

TEST(Reference_File, Lines_are_known_by_their_beginning_in_any_order) {
    struct Case {
        const char *line;
        QStringList rows;
    };
    for (const Case &it : std::initializer_list<Case>{
             {"a.txt,1,d", {"C:\\T2\\a.txt | 1 | d"}},
             {"   a.txt,1,d \t", {"C:\\T2\\a.txt | 1 | d"}},
             {"a", {}},
             {"", {}},
             {"ab", {"C:\\T2\\ab |  | "}},
             {"ab,7", {"C:\\T2\\ab | 7 | "}},
             {",1,d", {}},
             {"\\,1,d", {}},
             {"\\\\\\\\,1,d", {}},
             {"obj\\\\\\a.bin,1,d", {"C:\\T2\\obj\\a.bin | 1 | d"}},
             {"/ab,1,d", {}},
             {";ab,1,d", {}},
             {"FILECOUNT:x", {}},
             {"INFO:x", {}},
             {"DATECREATED:x", {}},
             {"filecount:1,2,3", {"C:\\T2\\filecount:1 | 2 | 3"}},
             {"a.txt,1,5. 4. 2000, 10:00", {"C:\\T2\\a.txt | 1 | 5. 4. 2000, 10:00"}},
             {"aVKCOMMAbVKCOMMA.txt,1,d", {"C:\\T2\\a,b,.txt | 1 | d"}},
             {"obj\\\\a.bin,1,d", {"C:\\T2\\obj\\a.bin | 1 | d"}},
             {"\\;a,1,d", {"C:\\T2\\;a | 1 | d"}},
         })
        EXPECT_EQ(Rows(it.line), it.rows) << it.line;
    EXPECT_EQ(Rows("a.txt,1,d\nINFO:x\rb.txt,2,e\r\n").size(), 2);
    EXPECT_EQ(Rows("a.txt,1,d", "C:\\T2\\"), QStringList{"C:\\T2\\a.txt | 1 | d"});
}

TEST(Reference_File, The_first_heading_of_a_kind_counts) {
    const Reference read = Read_reference_text(
        "INFO:one\nINFO:two\nFILECOUNT:3\nFILECOUNT:4\nDATECREATED:1\nDATECREATED:2", "C:");
    EXPECT_EQ(read.info, "one");
    EXPECT_EQ(read.file_count, 3);
    EXPECT_EQ(read.created, "1");
}

TEST(Reference_File, A_count_that_is_no_count_is_none_and_makes_no_rows) {
    for (const char *count : {"2000000000", "99999999999999999999", "-5", "", "x", "1.5"}) {
        const Reference read = Read_reference_text(QString("FILECOUNT:%1\na.txt,1,d").arg(count), "C:\\");
        EXPECT_EQ(read.rows.size(), 1U) << count;
        EXPECT_EQ(read.file_count > 0, QString(count) == "2000000000") << count;
    }
}

TEST(Reference_File, Names_of_every_kind_come_back_as_they_were) {
    for (const char *name :
         {"a,b", ",", "a\nb", "a\r\nFILECOUNT:9", ";a", " a", "\ta", "INFO:x", "FILECOUNT:1", "DATECREATED:x",
          "<script>.dll", "a ", "Žluť & 'x'", "s\\a,b", "s\\;a"}) {
        const QString line = Reference_line(name, 12, "05/04/2000 10:00:07");
        EXPECT_EQ(Rows(line), QStringList{QString("C:\\T2\\%1 | 12 | 05/04/2000 10:00:07").arg(name)})
            << name;
    }
    EXPECT_EQ(Reference_line("a,b", 1, "d"), "aVKCOMMAb,1,d\r\n");
}

TEST(Reference_File, A_date_has_one_form_on_every_system) {
    EXPECT_EQ(Listed_date(QDateTime(QDate(2000, 4, 5), QTime(1, 2, 3, 999))), "05/04/2000 01:02:03");
    EXPECT_EQ(Listed_date(QDateTime(QDate(1969, 12, 31), QTime(23, 59, 59))), "31/12/1969 23:59:59");
}

TEST_F(Diagnostics, A_missing_file_a_folder_and_no_path_say_nothing) {
    for (const QString &path : {world.windows("gone.VKDR"), world.windows("games"), QString()}) {
        const Reference read = Read_reference(world.program(), path, "C:");
        EXPECT_TRUE(read.rows.empty());
        EXPECT_EQ(read.info, "");
    }
}

TEST_F(Diagnostics, Cut_off_and_binary_files_are_read_as_far_as_they_go) {
    world.write("cut.VKDR", "FILECOUNT:2\r\nINFO:x\r\na.txt,1,d\r\nb.tx");
    const Reference cut = Read_reference(world.program(), world.windows("cut.VKDR"), "C:");
    ASSERT_EQ(cut.rows.size(), 2U);
    EXPECT_EQ(Row_text(cut.rows[1]), "C:\\b.tx |  | ");
    QByteArray binary("MZ");
    for (int i = 0; i < 100'000; ++i)
        binary += static_cast<char>(i * 7919 >> 3);
    world.write("binary.VKDR", binary);
    Read_reference(world.program(), world.windows("binary.VKDR"), "C:");
    world.write("wide.VKDR", QByteArray("\xFF\xFE") + QByteArray("I\0N\0F\0O\0:\0x\0", 12));
    EXPECT_EQ(Read_reference(world.program(), world.windows("wide.VKDR"), "C:").info, "x");
}

TEST_F(Diagnostics, Rows_end_at_half_a_million) {
    world.write("many.VKDR", QByteArray("ab\n").repeated(600'000));
    EXPECT_EQ(Read_reference(world.program(), world.windows("many.VKDR"), "C:").rows.size(), 500'000U);
}

} // namespace
} // namespace vantrosk
