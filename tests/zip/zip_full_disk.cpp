#include "Archive_Bytes.h"

#include "support/World.h"
#include "zip/mUnzip.h"
#include "zip/mZip.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace vantrosk {
namespace {

/// Runs `work` in a child that can write no file longer than `limit` bytes, which for a program is a full
/// disk and holds for root too. Gives the kind of fault that `work` ended with.
Fault_Kind With_file_limit(rlim_t limit, const std::function<Fault()> &work) {
    const pid_t child = fork();
    if (child == 0) {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit bound{limit, limit};
        setrlimit(RLIMIT_FSIZE, &bound);
        _exit(static_cast<int>(work().kind));
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status));
    return static_cast<Fault_Kind>(WEXITSTATUS(status));
}

/// Bytes that can not be packed.
QByteArray Noise(qsizetype length) {
    QRandomGenerator generator(4711);
    QByteArray bytes(length, '\0');
    for (char &byte : bytes)
        byte = static_cast<char>(generator.bounded(256));
    return bytes;
}

constexpr rlim_t limits[] = {0, 1, 4096, 70000, 100000};

TEST(Full_Disk, Unzipping_keeps_the_old_file_and_leaves_nothing_behind) {
    World world;
    world.write("m.zip", Archive_bytes({{"big.bin", Noise(300000)}}));
    world.write("out/big.bin", "old");
    for (const rlim_t limit : limits) {
        const Fault_Kind kind = With_file_limit(limit, [&] {
            cUnzip unzip(*world.platform.files);
            unzip.ZipFile = world.windows("m.zip");
            unzip.UnzipFolder = world.windows("out");
            return unzip.Unzip();
        });
        EXPECT_EQ(kind, Fault_Kind::no_space) << limit;
        EXPECT_EQ(world.snapshot("out"), (Snapshot{{"big.bin", "old"}})) << limit;
    }
}

TEST(Full_Disk, Unzipping_keeps_what_was_written_before) {
    World world;
    world.write("m.zip", Archive_bytes({{"a", "1"}, {"big.bin", Noise(300000)}, {"z", "2"}}));
    const Fault_Kind kind = With_file_limit(10000, [&] {
        cUnzip unzip(*world.platform.files);
        unzip.ZipFile = world.windows("m.zip");
        unzip.UnzipFolder = world.windows("out");
        return unzip.Unzip();
    });
    EXPECT_EQ(kind, Fault_Kind::no_space);
    EXPECT_EQ(world.snapshot("out"), (Snapshot{{"a", "1"}}));
}

TEST(Full_Disk, Zipping_keeps_the_old_archive_and_leaves_nothing_behind) {
    World world;
    world.write("saves/big.sav", Noise(300000));
    world.write("saves/small.sav", "1");
    world.write("backup/out.zip", "old archive");
    for (const rlim_t limit : limits) {
        const Fault_Kind kind = With_file_limit(limit, [&] {
            cZip zip(*world.platform.files);
            zip.ZipFile = world.windows("backup/out.zip");
            zip.BasePath = world.windows("saves");
            zip.AddFileSpec("*.*");
            return zip.Zip();
        });
        EXPECT_EQ(kind, Fault_Kind::no_space) << limit;
        EXPECT_EQ(world.snapshot("backup"), (Snapshot{{"out.zip", "old archive"}})) << limit;
    }
}

} // namespace
} // namespace vantrosk
