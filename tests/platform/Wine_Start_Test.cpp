#include "Platform_World.h"

#include "support/Real_Wine.h"

#include <QElapsedTimer>
#include <QThread>

#include <sched.h>

namespace vantrosk {
namespace {

/// Tells its folder and its arguments, then waits for the file "go".
constexpr const char *source = R"(
#include <stdio.h>
#include <windows.h>
int wmain(int count, wchar_t **arguments) {
    wchar_t folder[MAX_PATH];
    FILE *told = _wfopen(L"told.tmp", L"wb");
    GetCurrentDirectoryW(MAX_PATH, folder);
    fwrite(folder, 2, wcslen(folder), told);
    for (int i = 0; i < count; ++i) {
        fwrite(L"\n", 2, 1, told);
        fwrite(arguments[i], 2, wcslen(arguments[i]), told);
    }
    fclose(told);
    MoveFileW(L"told.tmp", L"told");
    for (int i = 0; i < 6000 && GetFileAttributesW(L"go") == INVALID_FILE_ATTRIBUTES; ++i)
        Sleep(10);
    return 0;
}
)";

class Wine_Start_Test : public testing::Test {
protected:
    void SetUp() override {
        const Real_Wine wine = Find_real_wine();
        if (!wine.refusal.isEmpty())
            GTEST_SKIP() << wine.refusal.toStdString();
        prefix = wine.prefix;
        world.make_folder("Hra Žluť");
        if (!Make_windows_program(source, world.native("Hra Žluť/Thief2.exe")))
            GTEST_SKIP() << "the compiler for Windows does not work";
    }

    static bool wait_until(const std::function<bool()> &done) {
        QElapsedTimer timer;
        timer.start();
        while (!done()) {
            if (timer.elapsed() > 60000)
                return false;
            QThread::msleep(10);
        }
        return true;
    }

    Platform_World world;
    QString prefix;
};

TEST_F(Wine_Start_Test, A_real_windows_program_is_started_observed_and_held_to_one_processor) {
    Platform platform = Make_Linux_Platform({prefix, "wine", world.native("settings.conf")});
    const QString folder = platform.files->to_windows(world.native("Hra Žluť"));
    // Of its own name, because other tests may start games at the same time.
    const QString name = "Game " + world.native("").right(6) + ".exe";
    ASSERT_TRUE(QFile::rename(world.native("Hra Žluť/Thief2.exe"), world.native("Hra Žluť/" + name)));
    const QString program = folder + "\\" + name.toUpper();
    const auto started = platform.processes->start({program, "+map \"a b\" \"C:\\dir\\\" Ž", folder});
    ASSERT_TRUE(started.ok()) << started.fault.text.toStdString();
    ASSERT_TRUE(wait_until([&] { return QFile::exists(world.native("Hra Žluť/told")); }));
    const QByteArray told = world.read("Hra Žluť/told");
    EXPECT_EQ(
        QString::fromUtf16(reinterpret_cast<const char16_t *>(told.constData()), told.size() / 2).split('\n'),
        (QStringList{folder, program, "+map", "a b", "C:\\dir\\", "Ž"}));
    EXPECT_TRUE(platform.processes->is_running(started.value.process_id));
    cpu_set_t allowed;
    ASSERT_EQ(::sched_getaffinity(0, sizeof allowed, &allowed), 0);
    int first = 0;
    while (!CPU_ISSET(first, &allowed))
        ++first;
    EXPECT_EQ(platform.processes->processors_of(name), CPU_COUNT(&allowed));
    EXPECT_TRUE(platform.processes->set_affinity(name, 1ULL << first));
    EXPECT_EQ(platform.processes->processors_of(name), 1);
    world.write("Hra Žluť/go", "");
    EXPECT_TRUE(wait_until([&] { return !platform.processes->is_running(started.value.process_id); }));
}

TEST_F(Wine_Start_Test, A_batch_file_is_run) {
    Platform platform = Make_Linux_Platform({prefix, "wine", world.native("settings.conf")});
    world.write("Hra Žluť/fix.bat", "@echo %1>told\r\n");
    const QString folder = platform.files->to_windows(world.native("Hra Žluť"));
    const auto started = platform.processes->start({folder + "\\fix.bat", "word", folder});
    ASSERT_TRUE(started.ok()) << started.fault.text.toStdString();
    EXPECT_TRUE(wait_until([&] { return world.read("Hra Žluť/told") == "word\r\n"; }));
    EXPECT_TRUE(wait_until([&] { return !platform.processes->is_running(started.value.process_id); }));
}

TEST_F(Wine_Start_Test, The_registry_of_a_real_prefix_is_read) {
    const Platform platform = Make_Linux_Platform({prefix, "wine", world.native("settings.conf")});
    // The Wine server writes its files some seconds after it has nothing to do.
    EXPECT_TRUE(wait_until([&] {
        return platform.registry
            ->read("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\CurrentVersion")
            .has_value();
    }));
}

} // namespace
} // namespace vantrosk
