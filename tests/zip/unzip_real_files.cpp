#include "support/Places.h"
#include "support/World.h"
#include "zip/Entry_List.h"
#include "zip/Zip_Archive.h"
#include "zip/mUnzip.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

/// Archives of other projects' test suites, beside the checkout where they are given. Not part of it.
QString Real_folder() {
    return QDir::cleanPath(Source_folder() + "/../shared/real");
}

#define SKIP_WITHOUT_REAL_FILES()                                                                            \
    if (!QDir(Real_folder() + "/zip").exists())                                                              \
    GTEST_SKIP() << "there are no real archives beside the checkout"

QStringList Real_archives() {
    QStringList result;
    QDirIterator files(Real_folder() + "/zip", QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        result << files.next();
    result.sort();
    return result;
}

TEST(Real_Archives, None_does_harm_and_nothing_is_written_outside) {
    SKIP_WITHOUT_REAL_FILES();
    World world;
    world.make_folder("one/two");
    int unzipped = 0;
    for (const QString &path : Real_archives()) {
        for (const bool use_folder_names : {false, true}) {
            cUnzip unzip(*world.platform.files);
            unzip.ZipFile = world.platform.files->to_windows(path);
            unzip.UnzipFolder = world.windows("one/two/out");
            unzip.UseFolderNames = use_folder_names;
            unzip.SizeLimit = 32 * 1024 * 1024;
            const Fault listed = unzip.Directory();
            EXPECT_EQ(bool(listed), listed.text.endsWith(".")) << path.toStdString();
            if (listed)
                continue;
            for (int i = 1; i <= unzip.FileCount(); ++i)
                unzip.FileDate(i);
            const Fault fault = unzip.Unzip();
            EXPECT_EQ(bool(fault), fault.text.endsWith(".")) << path.toStdString();
            unzipped += fault ? 0 : 1;
            EXPECT_FALSE(world.exists(QString("one/two/out/") + unzip_temporary_name)) << path.toStdString();
            QDir(world.native("one/two/out")).removeRecursively();
        }
    }
    for (const QString &name : Names(world.snapshot("")))
        EXPECT_TRUE(name.startsWith("one/") || name.startsWith("prefix/") || name.startsWith("home/"))
            << name.toStdString();
    EXPECT_GT(unzipped, 100);
}

struct Expectation {
    QString file;
    bool opens = false;
    int entries = 0;
    QString flags, first_names;
};

std::vector<Expectation> Expectations() {
    std::vector<Expectation> result;
    QFile file(Real_folder() + "/EXPECT_zip.tsv");
    if (!file.open(QIODevice::ReadOnly))
        return result;
    const QStringList lines = QString::fromUtf8(file.readAll()).split('\n').mid(1);
    for (const QString &line : lines) {
        const QStringList cells = line.split('\t');
        if (cells.size() >= 6)
            result.push_back({cells[0], cells[2] == "opens", cells[3].toInt(), cells[4], cells[5]});
    }
    return result;
}

TEST(Real_Archives, Those_that_another_reader_opens_are_mostly_listed) {
    SKIP_WITHOUT_REAL_FILES();
    World world;
    int opened = 0, listed = 0;
    for (const Expectation &row : Expectations()) {
        if (!row.opens)
            continue;
        ++opened;
        cUnzip unzip(*world.platform.files);
        unzip.ZipFile = world.platform.files->to_windows(Real_folder() + "/" + row.file);
        const Fault fault = unzip.Directory();
        if (fault) {
            std::cout << row.file.toStdString() << ": " << fault.text.toStdString() << "\n";
            continue;
        }
        ++listed;
        // Folder entries count there and not here; the names tell whether there are any.
        if (!row.first_names.contains("/'") && row.entries <= 4) {
            EXPECT_EQ(unzip.FileCount(), row.entries) << row.file.toStdString();
        } else {
            EXPECT_LE(unzip.FileCount(), row.entries) << row.file.toStdString();
        }
    }
    std::cout << listed << " of " << opened << " archives that another reader opens are listed\n";
    EXPECT_GE(listed * 100, opened * 90);
}

TEST(Real_Archives, The_plain_reader_lists_what_libzip_lists) {
    SKIP_WITHOUT_REAL_FILES();
    int plain = 0;
    for (const QString &path : Real_archives()) {
        Entry_List own, other;
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) << path.toStdString();
        if (!Read_plain_directory(file, own))
            continue;
        ++plain;
        const Result<Zip_Handle> opened = Open_zip(path, path);
        ASSERT_TRUE(opened.ok()) << path.toStdString() << opened.fault.text.toStdString();
        Read_open_archive(opened.value.get(), other);
        ASSERT_EQ(own.entries.size(), other.entries.size()) << path.toStdString();
        EXPECT_EQ(own.comment, other.comment) << path.toStdString();
        for (size_t i = 0; i < own.entries.size(); ++i) {
            EXPECT_TRUE(Is_same_entry(opened.value.get(), own, own.entries[i])) << path.toStdString() << i;
            EXPECT_EQ(own.entries[i].date(), other.entries[i].date()) << path.toStdString() << i;
        }
    }
    EXPECT_GT(plain, 80);
}

} // namespace
} // namespace vantrosk
