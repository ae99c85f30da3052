#include "support/World.h"
#include "zip/mUnzip.h"
#include "zip/mZip.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include <gtest/gtest.h>
#include <zip.h>

#include <functional>

namespace vantrosk {
namespace {

/// Runs a tool in a folder of the world; its exit code, or -1.
int Run_tool(const World &world, const QString &folder, const QString &tool, const QStringList &arguments) {
    QProcess process;
    process.setWorkingDirectory(world.native(folder));
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(tool, arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return -1;
    return process.exitCode();
}

bool Is_missing(const char *tool) {
    return QStandardPaths::findExecutable(tool).isEmpty();
}

#define SKIP_WITHOUT(tool)                                                                                   \
    if (Is_missing(tool))                                                                                    \
    GTEST_SKIP() << tool << " is not installed"

/// A tree with everything that is awkward to pack.
void Write_mission(World &world, const QString &folder) {
    world.write(folder + "/readme.txt", "Title: The Mission\r\n");
    world.write(folder + "/Žluťoučký kůň.txt", "non-ASCII");
    world.write(folder + "/strings/english/titles.str", QByteArray("title_0: \"x\"\r\n").repeated(5000));
    world.write(folder + "/empty.bin", "");
    world.write(folder + "/a b/c;d.e.f", "blanks and dots");
    world.write(folder + "/snd/noise.wav", QByteArray::fromHex("00ff80c1").repeated(50000));
}

class Foreign_Archive : public testing::Test {
protected:
    World world;
    cUnzip unzip{*world.platform.files};

    void SetUp() override { Write_mission(world, "mission"); }

    /// Lists and extracts "m.zip"; the outcome must be the mission.
    void expect_mission() {
        unzip.ZipFile = world.windows("m.zip");
        unzip.UnzipFolder = world.windows("out");
        unzip.UseFolderNames = true;
        const Fault listed = unzip.Directory();
        ASSERT_EQ(listed.text, QString());
        EXPECT_EQ(unzip.FileCount(), 6);
        const Fault fault = unzip.Unzip();
        EXPECT_EQ(fault.text, QString());
        EXPECT_EQ(world.snapshot("out"), world.snapshot("mission"));
        for (const char *name : {"readme.txt", "snd/noise.wav"}) {
            const QDateTime made = QFileInfo(world.native(QString("mission/") + name)).lastModified();
            const QDateTime unzipped = QFileInfo(world.native(QString("out/") + name)).lastModified();
            EXPECT_LE(qAbs(made.secsTo(unzipped)), 2) << name;
        }
    }
};

TEST_F(Foreign_Archive, Made_by_Info_ZIP_is_read) {
    SKIP_WITHOUT("zip");
    ASSERT_EQ(Run_tool(world, "mission", "zip", {"-q", "-r", "../m.zip", "."}), 0);
    expect_mission();
}

TEST_F(Foreign_Archive, Made_by_Info_ZIP_as_a_stream_is_read) {
    SKIP_WITHOUT("zip");
    SKIP_WITHOUT("sh");
    ASSERT_EQ(Run_tool(world, "mission", "sh", {"-c", "zip -q -r - . | cat > ../m.zip"}), 0);
    expect_mission();
}

TEST_F(Foreign_Archive, Made_by_Info_ZIP_with_zip64_and_a_comment_is_read) {
    SKIP_WITHOUT("zip");
    SKIP_WITHOUT("sh");
    ASSERT_EQ(Run_tool(world, "mission", "sh", {"-c", "echo comment | zip -q -z -fz -r ../m.zip ."}), 0);
    expect_mission();
}

TEST_F(Foreign_Archive, Made_by_Info_ZIP_behind_other_bytes_is_read) {
    SKIP_WITHOUT("zip");
    SKIP_WITHOUT("sh");
    ASSERT_EQ(Run_tool(world, "mission", "sh",
                       {"-c", "zip -q -r ../t.zip . && cd .. && head -c 3000 /dev/zero > m.zip && "
                              "cat t.zip >> m.zip && zip -q -A m.zip"}),
              0);
    expect_mission();
}

TEST_F(Foreign_Archive, Made_by_Info_ZIP_with_a_password_is_damaged) {
    SKIP_WITHOUT("zip");
    ASSERT_EQ(Run_tool(world, "mission", "zip", {"-q", "-P", "secret", "-r", "../m.zip", "."}), 0);
    unzip.ZipFile = world.windows("m.zip");
    unzip.UnzipFolder = world.windows("out");
    ASSERT_FALSE(unzip.Directory());
    EXPECT_EQ(unzip.FileCount(), 6);
    EXPECT_EQ(unzip.Unzip().kind, Fault_Kind::damaged);
    EXPECT_EQ(world.snapshot("out"), Snapshot());
}

TEST_F(Foreign_Archive, Made_by_7_Zip_is_read) {
    SKIP_WITHOUT("7z");
    ASSERT_EQ(Run_tool(world, "mission", "7z", {"a", "-tzip", "../m.zip", "."}), 0);
    expect_mission();
}

TEST_F(Foreign_Archive, Made_by_7_Zip_with_every_way_of_packing_is_read_or_named) {
    SKIP_WITHOUT("7z");
    for (const char *method : {"Copy", "Deflate", "Deflate64", "BZip2", "LZMA", "PPMd"}) {
        World fresh;
        Write_mission(fresh, "mission");
        ASSERT_EQ(Run_tool(fresh, "mission", "7z", {"a", "-tzip", QString("-mm=") + method, "../m.zip", "."}),
                  0);
        cUnzip reader(*fresh.platform.files);
        reader.ZipFile = fresh.windows("m.zip");
        reader.UnzipFolder = fresh.windows("out");
        reader.UseFolderNames = true;
        ASSERT_FALSE(reader.Directory()) << method;
        EXPECT_EQ(reader.FileCount(), 6) << method;
        const Fault fault = reader.Unzip();
        if (!fault) {
            EXPECT_EQ(fresh.snapshot("out"), fresh.snapshot("mission")) << method;
        } else {
            EXPECT_EQ(fault.kind, Fault_Kind::not_available) << method;
            EXPECT_TRUE(fault.text.endsWith(" is packed by a method that Vantrosk does not know."))
                << fault.text.toStdString();
        }
        if (QByteArray(method) == "Copy" || QByteArray(method) == "Deflate") {
            EXPECT_FALSE(fault) << method;
        }
    }
}

TEST_F(Foreign_Archive, Made_by_libzip_is_read) {
    zip_t *archive = zip_open(QFile::encodeName(world.native("m.zip")).constData(), ZIP_CREATE, nullptr);
    ASSERT_TRUE(archive);
    const Snapshot mission = world.snapshot("mission");
    for (const auto &[name, content] : mission) {
        if (name.endsWith('/')) {
            zip_dir_add(archive, name.toUtf8().constData(), 0);
            continue;
        }
        zip_source_t *source =
            zip_source_buffer(archive, content.constData(), static_cast<zip_uint64_t>(content.size()), 0);
        ASSERT_GE(zip_file_add(archive, name.toUtf8().constData(), source, 0), 0);
    }
    ASSERT_EQ(zip_close(archive), 0);
    expect_mission();
}

class Own_Archive : public Foreign_Archive {
protected:
    void pack() {
        cZip zip(*world.platform.files);
        zip.ZipFile = world.windows("own.zip");
        zip.BasePath = world.windows("mission");
        zip.StoreFolderNames = true;
        zip.RecurseSubDirs = true;
        zip.AddFileSpec("*.*");
        ASSERT_EQ(zip.Zip().text, QString());
        world.make_folder("unpacked");
    }
};

TEST_F(Own_Archive, Is_accepted_by_Info_ZIP) {
    SKIP_WITHOUT("unzip");
    pack();
    EXPECT_EQ(Run_tool(world, "unpacked", "unzip", {"-tq", "../own.zip"}), 0);
    EXPECT_EQ(Run_tool(world, "unpacked", "unzip", {"-q", "../own.zip"}), 0);
    EXPECT_EQ(world.snapshot("unpacked"), world.snapshot("mission"));
}

TEST_F(Own_Archive, Is_accepted_by_7_Zip) {
    SKIP_WITHOUT("7z");
    pack();
    EXPECT_EQ(Run_tool(world, "unpacked", "7z", {"t", "../own.zip"}), 0);
    EXPECT_EQ(Run_tool(world, "unpacked", "7z", {"x", "../own.zip"}), 0);
    EXPECT_EQ(world.snapshot("unpacked"), world.snapshot("mission"));
}

} // namespace
} // namespace vantrosk
