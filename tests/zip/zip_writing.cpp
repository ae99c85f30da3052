#include "Archive_Bytes.h"

#include "support/World.h"
#include "zip/mUnzip.h"
#include "zip/mZip.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

class Zip_Writing : public testing::Test {
protected:
    World world;
    Files &files = *world.platform.files;
    cZip zip{files};

    void SetUp() override {
        zip.ZipFile = world.windows("out.zip");
        zip.BasePath = world.windows("saves") + "\\";
        zip.StoreFolderNames = true;
        zip.RecurseSubDirs = true;
    }
    /// The names in the archive, in order, with their content.
    std::vector<std::pair<QString, QByteArray>> packed() const {
        std::vector<std::pair<QString, QByteArray>> result;
        for (const Zip_Entry &entry : Read_zip(world.native("out.zip")))
            result.emplace_back(QString::fromUtf8(entry.name), entry.content);
        return result;
    }
    QStringList names() const {
        QStringList result;
        for (const auto &[name, content] : packed())
            result << name;
        return result;
    }
    /// The names that one spec puts into the archive.
    QStringList names_of(const QString &spec) {
        zip.ClearFileSpecs();
        zip.AddFileSpec(spec);
        QFile::remove(world.native("out.zip"));
        const Fault fault = zip.Zip();
        return fault ? QStringList{"fault " + QString::number(static_cast<int>(fault.kind))} : names();
    }
};

using Packed_Files = std::vector<std::pair<QString, QByteArray>>;

TEST_F(Zip_Writing, Files_are_packed_with_their_folders_below_the_base_path) {
    const QByteArray large = QByteArray("save game ").repeated(100000);
    world.write("saves/quick.sav", "1");
    world.write("saves/save_00/game.bin", large);
    world.write("saves/save_00/empty.bin", "");
    zip.AddFileSpec("*.*");
    EXPECT_EQ(zip.Zip().text, QString());
    EXPECT_EQ(packed(),
              (Packed_Files{{"quick.sav", "1"}, {"save_00/empty.bin", ""}, {"save_00/game.bin", large}}));
    EXPECT_EQ(zip.Zipped_files(),
              QStringList({world.windows("saves/quick.sav"), world.windows("saves/save_00/empty.bin"),
                           world.windows("saves/save_00/game.bin")}));
    EXPECT_LT(QFileInfo(world.native("out.zip")).size(), large.size() / 50);
    EXPECT_FALSE(world.exists(QString("out.zip") + zip_temporary_suffix));
}

TEST_F(Zip_Writing, Names_are_stored_in_UTF_8) {
    world.write("saves/Žluťoučký kůň/été 😀.sav", "1");
    zip.AddFileSpec("*.sav");
    EXPECT_FALSE(zip.Zip());
    EXPECT_EQ(names(), QStringList({"Žluťoučký kůň/été 😀.sav"}));
    cUnzip unzip(files);
    unzip.ZipFile = zip.ZipFile;
    ASSERT_FALSE(unzip.Directory());
    EXPECT_EQ(unzip.FileDirectory(1), "Žluťoučký kůň");
    EXPECT_EQ(unzip.Filename(1), "été 😀.sav");
}

TEST_F(Zip_Writing, Specs_are_paths_or_patterns_without_case) {
    for (const char *name : {"a.sav", "B.SAV", "c.txt", "noextension", "save_0/d.sav", "save_0/deep/e.SAV",
                             "save_1/f.sav", "x[1].sav"})
        world.write(QString("saves/") + name, name);
    struct Row {
        QString spec;
        QStringList names;
    };
    const QString not_found = "fault " + QString::number(static_cast<int>(Fault_Kind::not_found));
    const Row rows[] = {
        {"*.*",
         {"B.SAV", "a.sav", "c.txt", "noextension", "x[1].sav", "save_0/d.sav", "save_0/deep/e.SAV",
          "save_1/f.sav"}},
        {"*",
         {"B.SAV", "a.sav", "c.txt", "noextension", "x[1].sav", "save_0/d.sav", "save_0/deep/e.SAV",
          "save_1/f.sav"}},
        {"*.sav", {"B.SAV", "a.sav", "x[1].sav", "save_0/d.sav", "save_0/deep/e.SAV", "save_1/f.sav"}},
        {"?.SAV", {"B.SAV", "a.sav", "save_0/d.sav", "save_0/deep/e.SAV", "save_1/f.sav"}},
        {"x[1].sav", {"x[1].sav"}},
        {"X[1]*", {"x[1].sav"}},
        {"save_0\\*.*", {"save_0/d.sav", "save_0/deep/e.SAV"}},
        {"SAVE_1/*.*", {"SAVE_1/f.sav"}},
        {"save_0", {"save_0/d.sav", "save_0/deep/e.SAV"}},
        {"c.txt", {"c.txt"}},
        {"save_0\\deep\\e.SAV", {"save_0/deep/e.SAV"}},
        {world.windows("saves/c.txt"), {"c.txt"}},
        {"save_7\\*.*", {not_found}},
        {"*.nothing", {not_found}},
        {"missing.sav", {not_found}},
    };
    for (const Row &row : rows)
        EXPECT_EQ(names_of(row.spec), row.names) << row.spec.toStdString();
}

TEST_F(Zip_Writing, Without_recursion_folders_are_passed_over) {
    world.write("saves/a.sav", "1");
    world.write("saves/save_0/b.sav", "2");
    zip.RecurseSubDirs = false;
    EXPECT_EQ(names_of("*.*"), QStringList({"a.sav"}));
    EXPECT_EQ(names_of("save_0\\*.sav"), QStringList({"save_0/b.sav"}));
    zip.AddFileSpec("*.sav");
    EXPECT_EQ(names_of("save_0"),
              QStringList({"fault " + QString::number(static_cast<int>(Fault_Kind::not_found))}));
}

TEST_F(Zip_Writing, Several_specs_are_packed_in_their_order_and_each_file_once) {
    world.write("saves/a.sav", "1");
    world.write("saves/b.sav", "2");
    zip.AddFileSpec("b.sav");
    zip.AddFileSpec("*.sav");
    zip.AddFileSpec(world.windows("saves/a.sav"));
    EXPECT_EQ(zip.FileSpecCount(), 3);
    EXPECT_FALSE(zip.Zip());
    EXPECT_EQ(names(), QStringList({"b.sav", "a.sav"}));
    zip.ClearFileSpecs();
    EXPECT_EQ(zip.FileSpecCount(), 0);
}

TEST_F(Zip_Writing, A_file_outside_of_the_base_path_bears_its_path_without_the_drive) {
    world.write("other/a.sav", "1");
    zip.AddFileSpec(world.windows("other/a.sav"));
    EXPECT_FALSE(zip.Zip());
    const QString expected = world.windows("other/a.sav").mid(3).replace('\\', '/');
    EXPECT_EQ(names(), QStringList({expected}));
}

TEST_F(Zip_Writing, Without_folder_names_two_files_of_one_name_are_a_fault) {
    world.write("saves/one/a.sav", "1");
    world.write("saves/two/b.sav", "2");
    zip.StoreFolderNames = false;
    EXPECT_EQ(names_of("*.sav"), QStringList({"a.sav", "b.sav"}));
    world.write("saves/two/a.sav", "3");
    EXPECT_EQ(zip.Zip().kind, Fault_Kind::exists);
    EXPECT_EQ(names(), QStringList({"a.sav", "b.sav"}));
}

TEST_F(Zip_Writing, Nothing_to_pack_is_not_found_and_leaves_the_archive_that_was_there) {
    world.make_folder("saves");
    world.write("out.zip", "old");
    EXPECT_EQ(zip.Zip().kind, Fault_Kind::not_found);
    zip.AddFileSpec("*.*");
    const Fault fault = zip.Zip();
    EXPECT_EQ(fault.kind, Fault_Kind::not_found);
    EXPECT_EQ(fault.text, "There is nothing to put into \"out.zip\".");
    zip.AddFileSpec("missing.sav");
    EXPECT_EQ(zip.Zip().kind, Fault_Kind::not_found);
    EXPECT_EQ(world.read("out.zip"), "old");
    EXPECT_TRUE(zip.Zipped_files().isEmpty());
}

TEST_F(Zip_Writing, A_base_path_that_is_not_there_has_nothing_to_pack) {
    zip.BasePath = world.windows("nowhere");
    zip.AddFileSpec("*.*");
    EXPECT_EQ(zip.Zip().kind, Fault_Kind::not_found);
    EXPECT_FALSE(world.exists("out.zip"));
}

TEST_F(Zip_Writing, An_archive_is_replaced_whole) {
    world.write("saves/a.sav", "1");
    EXPECT_EQ(names_of("*.*"), QStringList({"a.sav"}));
    QFile::remove(world.native("saves/a.sav"));
    world.write("saves/b.sav", "2");
    EXPECT_FALSE(zip.Zip());
    EXPECT_EQ(names(), QStringList({"b.sav"}));
}

TEST_F(Zip_Writing, The_archive_itself_is_never_packed) {
    zip.ZipFile = world.windows("saves/out.zip");
    world.write("saves/a.sav", "1");
    world.write("saves/OUT.zip", "old");
    world.write("saves/out.zip.new", "left of a killed run");
    zip.AddFileSpec("*.*");
    EXPECT_FALSE(zip.Zip());
    EXPECT_EQ(Names(world.snapshot("saves")), QStringList({"OUT.zip", "a.sav"}));
    EXPECT_EQ(zip.Zipped_files(), QStringList({world.windows("saves/a.sav")}));
}

TEST_F(Zip_Writing, Links_in_a_circle_are_not_followed) {
    world.write("saves/a.sav", "1");
    world.write("elsewhere/private.txt", "private");
    ASSERT_TRUE(QFile::link(world.native("saves"), world.native("saves/circle")));
    ASSERT_TRUE(QFile::link(world.native("elsewhere"), world.native("saves/elsewhere")));
    EXPECT_EQ(names_of("*.*"), QStringList({"a.sav"}));
}

TEST_F(Zip_Writing, Dates_and_the_right_to_start_survive_a_round_trip) {
    world.write("saves/run.sh", "#!/bin/sh");
    world.write("saves/a.sav", "1");
    const QDateTime date(QDate(2003, 3, 30), QTime(12, 34, 56));
    ASSERT_FALSE(files.set_modified(world.windows("saves/run.sh"), date));
    QFile script(world.native("saves/run.sh"));
    script.setPermissions(script.permissions() | QFile::ExeOwner);
    zip.AddFileSpec("*.*");
    EXPECT_FALSE(zip.Zip());
    cUnzip unzip(files);
    unzip.ZipFile = zip.ZipFile;
    unzip.UnzipFolder = world.windows("back");
    unzip.UseFolderNames = true;
    EXPECT_FALSE(unzip.Unzip());
    EXPECT_EQ(world.snapshot("back"), world.snapshot("saves"));
    EXPECT_EQ(QFileInfo(world.native("back/run.sh")).lastModified(), date);
    EXPECT_TRUE(QFileInfo(world.native("back/run.sh")).permission(QFile::ExeOwner));
    EXPECT_FALSE(QFileInfo(world.native("back/a.sav")).permission(QFile::ExeOwner));
}

TEST_F(Zip_Writing, Progress_tells_each_stored_name_in_order) {
    world.write("saves/a.sav", "1");
    world.write("saves/x/b.sav", "2");
    QStringList told;
    zip.Progress = [&](const QString &message) {
        told << message;
    };
    EXPECT_EQ(names_of("*.*"), QStringList({"a.sav", "x/b.sav"}));
    EXPECT_EQ(told, QStringList({"a.sav", "x/b.sav"}));
}

TEST_F(Zip_Writing, A_comment_is_stored_and_read_back) {
    world.write("saves/a.sav", "1");
    zip.AddFileSpec("*.*");
    zip.Comment = "Mise d'été.zip";
    EXPECT_FALSE(zip.Zip());
    cUnzip unzip(files);
    unzip.ZipFile = zip.ZipFile;
    ASSERT_FALSE(unzip.Directory());
    EXPECT_EQ(unzip.Comment(), "Mise d'été.zip");
    zip.Comment = QString(70000, 'x');
    EXPECT_EQ(zip.Zip().kind, Fault_Kind::too_large);
    ASSERT_FALSE(unzip.Directory());
    EXPECT_EQ(unzip.Comment(), "Mise d'été.zip");
}

TEST_F(Zip_Writing, A_source_that_is_another_one_at_the_read_back_keeps_the_old_archive) {
    const QString ever_new = "/proc/sys/kernel/random/uuid";
    if (!QFile::exists(ever_new))
        GTEST_SKIP() << "there is no file here whose content changes at every reading";
    world.write("out.zip", "old");
    zip.AddFileSpec(files.to_windows(ever_new));
    const Fault fault = zip.Zip();
    EXPECT_EQ(fault.kind, Fault_Kind::damaged);
    EXPECT_EQ(fault.text, "\"proc/sys/kernel/random/uuid\" in the new archive is not what was to be packed.");
    EXPECT_EQ(world.read("out.zip"), "old");
    EXPECT_FALSE(world.exists("out.zip.new"));
}

TEST_F(Zip_Writing, A_source_that_grows_while_others_are_taken_up_keeps_the_old_archive) {
    world.write("saves/a.sav", "content");
    world.write("saves/b.sav", "2");
    world.write("out.zip", "old");
    zip.AddFileSpec("*.*");
    zip.Progress = [&](const QString &name) {
        if (name == "b.sav")
            world.write("saves/a.sav", "grown and more");
    };
    EXPECT_EQ(zip.Zip().kind, Fault_Kind::damaged);
    EXPECT_EQ(world.read("out.zip"), "old");
}

TEST_F(Zip_Writing, A_source_that_shrinks_while_others_are_taken_up_is_packed_as_it_is) {
    world.write("saves/a.sav", "content");
    world.write("saves/b.sav", "2");
    zip.Progress = [&](const QString &name) {
        if (name == "b.sav")
            world.write("saves/a.sav", "short");
    };
    EXPECT_EQ(names_of("*.*"), QStringList({"a.sav", "b.sav"}));
    EXPECT_EQ(packed(), (Packed_Files{{"a.sav", "short"}, {"b.sav", "2"}}));
}

TEST_F(Zip_Writing, A_source_that_goes_away_keeps_the_old_archive) {
    world.write("saves/a.sav", "1");
    world.write("saves/b.sav", "2");
    EXPECT_EQ(names_of("*.*"), QStringList({"a.sav", "b.sav"}));
    const QByteArray before = world.read("out.zip");
    for (const char *victim : {"saves/a.sav", "saves/b.sav"}) {
        world.write("saves/a.sav", "1");
        world.write("saves/b.sav", "2");
        zip.Progress = [&](const QString &name) {
            if (name == "b.sav")
                QFile::remove(world.native(victim));
        };
        EXPECT_TRUE(zip.Zip()) << victim;
        EXPECT_EQ(world.read("out.zip"), before) << victim;
        EXPECT_FALSE(world.exists("out.zip.new")) << victim;
    }
}

TEST_F(Zip_Writing, A_target_folder_that_is_not_there_is_a_fault) {
    world.write("saves/a.sav", "1");
    zip.ZipFile = world.windows("nowhere/out.zip");
    zip.AddFileSpec("*.*");
    EXPECT_EQ(zip.Zip().kind, Fault_Kind::not_found);
    EXPECT_FALSE(world.exists("nowhere"));
}

TEST_F(Zip_Writing, A_folder_in_the_place_of_the_archive_is_a_fault) {
    world.write("saves/a.sav", "1");
    world.write("out.zip/inside", "x");
    zip.AddFileSpec("*.*");
    EXPECT_EQ(zip.Zip().kind, Fault_Kind::exists);
    EXPECT_EQ(Names(world.snapshot("out.zip")), QStringList({"inside"}));
    EXPECT_FALSE(world.exists("out.zip.new"));
}

TEST_F(Zip_Writing, Thousands_of_files_are_packed) {
    for (int i = 0; i < 3000; ++i)
        world.write(QString("saves/%1/%2.sav").arg(i % 10).arg(i), QByteArray::number(i));
    zip.AddFileSpec("*.sav");
    EXPECT_FALSE(zip.Zip());
    EXPECT_EQ(zip.Zipped_files().size(), 3000);
    EXPECT_EQ(names().size(), 3000);
}

TEST_F(Zip_Writing, A_single_file_is_zipped_beside_itself) {
    world.write("feed/Quillmarch.xml", "feed");
    EXPECT_TRUE(Zip_Single_File(files, world.windows("feed/Quillmarch.xml"), false));
    const std::vector<Zip_Entry> entries = Read_zip(world.native("feed/Quillmarch.zip"));
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].name, "Quillmarch.xml");
    EXPECT_EQ(entries[0].content, "feed");
    EXPECT_TRUE(world.exists("feed/Quillmarch.xml"));
    EXPECT_TRUE(Zip_Single_File(files, world.windows("feed/Quillmarch.xml"), true));
    EXPECT_EQ(Read_zip(world.native("feed/Quillmarch.zip"))[0].name, "Quillmarch.xml");
    EXPECT_FALSE(Zip_Single_File(files, world.windows("feed/missing.xml"), false));
    EXPECT_FALSE(world.exists("feed/missing.zip"));
}

TEST_F(Zip_Writing, A_single_file_without_an_extension_gets_one) {
    world.write("a.b/name", "x");
    EXPECT_TRUE(Zip_Single_File(files, world.windows("a.b/name"), false));
    EXPECT_TRUE(world.exists("a.b/name.zip"));
}

} // namespace
} // namespace vantrosk
