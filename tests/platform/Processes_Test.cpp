#include "Platform_World.h"

#include <QElapsedTimer>
#include <QSemaphore>
#include <QThread>

#include <sched.h>

#include <cerrno>
#include <csignal>
#include <thread>

namespace vantrosk {
namespace {

/// Waits for what another process does, with a bound that only a hung one reaches.
bool Wait_until(const std::function<bool()> &done) {
    QElapsedTimer timer;
    timer.start();
    while (!done()) {
        if (timer.elapsed() > 30000)
            return false;
        QThread::msleep(2);
    }
    return true;
}

/// Tells its folder, its arguments and its prefix, then waits for the file "go" or the end of its folder.
constexpr const char *script = R"(#!/bin/sh
{
    pwd
    for each in "$0" "$@"; do printf '[%s]\n' "$each"; done
    printf '%s\n' "$WINEPREFIX"
} >told.tmp
mv told.tmp told
while [ -e told ] && [ ! -e go ]; do sleep 0.01; done
)";

class Processes_Test : public testing::Test {
protected:
    Processes_Test() : processes(*world.platform.processes) {
        world.write("game/tool", script, 0755);
        world.write("game/runner", script, 0755);
        world.write("game/Thief2.exe", "MZ");
        world.make_folder("game/Work Žluť");
    }
    ~Processes_Test() override { let_go(); }

    void let_go() const {
        world.write("game/go", "");
        world.write("game/Work Žluť/go", "");
    }
    QStringList told(const QString &folder) const {
        const QString file = folder + "/told";
        Wait_until([&] { return QFile::exists(world.native(file)); });
        return QString::fromUtf8(world.read(file)).split('\n', Qt::SkipEmptyParts);
    }
    Platform with_runner(const QString &runner) const {
        Linux_Options options = world.options();
        options.runner = runner;
        return Make_Linux_Platform(options);
    }

    Platform_World world;
    Processes &processes;
};

TEST_F(Processes_Test, A_native_program_gets_native_paths) {
    const auto started =
        processes.start({world.windows("") + "\\GAME\\TOOL",
                         "\"" + world.windows("game/work žluť") + "\" -x " +
                             "--file=C:\\Some\\file.txt plain\\relative Q:\\no\\drive \"a b\"  \"\"",
                         world.windows("game/WORK Žluť")});
    ASSERT_TRUE(started.ok()) << started.fault.text.toStdString();
    const QStringList arguments{world.native("game/tool"),
                                world.native("game/Work Žluť"),
                                "-x",
                                "--file=" + world.native("prefix/drive_c/Some/file.txt"),
                                "plain\\relative",
                                "Q:\\no\\drive",
                                "a b",
                                ""};
    EXPECT_EQ(started.value.command, arguments);
    EXPECT_EQ(started.value.working_folder_path, world.native("game/Work Žluť"));
    QStringList expected{world.native("game/Work Žluť")};
    for (const QString &argument : arguments)
        expected << "[" + argument + "]";
    EXPECT_EQ(told("game/Work Žluť"), expected << world.native("prefix"));
    let_go();
    EXPECT_TRUE(Wait_until([&] { return !processes.is_running(started.value.process_id); }));
}

TEST_F(Processes_Test, A_windows_program_goes_through_the_runner_as_a_windows_path) {
    Platform platform = with_runner(world.native("game/runner"));
    const auto started = platform.processes->start(
        {world.windows("game") + "/thief2.EXE", "+map \"C:\\a b\\\" -q", world.windows("game")});
    ASSERT_TRUE(started.ok()) << started.fault.text.toStdString();
    const QString program = world.windows("game") + "\\thief2.EXE";
    EXPECT_EQ(started.value.command,
              (QStringList{world.native("game/runner"), program, "+map", "C:\\a b\\", "-q"}));
    EXPECT_EQ(told("game"),
              (QStringList{world.native("game"), "[" + world.native("game/runner") + "]", "[" + program + "]",
                           "[+map]", "[C:\\a b\\]", "[-q]", world.native("prefix")}));
    EXPECT_TRUE(platform.processes->is_running(started.value.process_id));
    let_go();
    EXPECT_TRUE(Wait_until([&] { return !platform.processes->is_running(started.value.process_id); }));
}

struct Split_Row {
    const char *text;
    QStringList pieces;
};

TEST_F(Processes_Test, Argument_text_is_split_at_blanks_outside_of_quotes) {
    const Split_Row rows[] = {
        {"", {}},
        {"   ", {}},
        {" +map x.map", {"+map", "x.map"}},
        {"a\tb  c ", {"a", "b", "c"}},
        {"\"a b\" c", {"a b", "c"}},
        {"-n=\"a b\"c d", {"-n=a bc", "d"}},
        {"\"\" x \"\"", {"", "x", ""}},
        {"\"not closed x", {"not closed x"}},
        {"\"C:\\a b\\\" next", {"C:\\a b\\", "next"}},
        {"Žluť \"馬 🐎\"", {"Žluť", "馬 🐎"}},
        {"$(x) `y` ;z 'a b'", {"$(x)", "`y`", ";z", "'a", "b'"}},
    };
    const Platform platform = with_runner(world.native("game/runner"));
    for (const Split_Row &row : rows) {
        const auto command =
            platform.processes->command_for({world.windows("game/Thief2.exe"), row.text, {}});
        EXPECT_EQ(command.value.command.mid(2), row.pieces) << row.text;
        EXPECT_EQ(command.value.working_folder_path, world.native("game"));
    }
}

TEST_F(Processes_Test, The_ending_decides_about_the_runner) {
    const Platform platform = with_runner(world.native("game/runner"));
    for (const char *name : {"a.exe", "a.EXE", "a.bat", "a.Com"}) {
        world.write(QStringLiteral("game/") + name, "x");
        const auto command = platform.processes->command_for({world.windows("game") + "\\" + name, {}, {}});
        EXPECT_EQ(command.value.command,
                  (QStringList{world.native("game/runner"), world.windows("game") + "\\" + name}));
    }
    for (const char *name : {"a.sh", "a", "exe", "a.exe.sh", "a.cmd"}) {
        world.write(QStringLiteral("game/") + name, "x");
        const auto command = platform.processes->command_for({world.windows("game") + "\\" + name, {}, {}});
        EXPECT_EQ(command.value.command, QStringList(world.native("game/") + name));
    }
}

TEST_F(Processes_Test, The_runner_is_that_of_the_options_the_environment_or_the_settings) {
    const Start_Request request{world.windows("game/Thief2.exe"), {}, {}};
    const auto runner = [&](const Platform &platform) {
        return platform.processes->command_for(request).value.command.value(0);
    };
    world.write("bin/wine", script, 0755);
    world.write("bin/other", script, 0755);
    world.write("bin/third", script, 0755);
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", "relative::" + world.bytes("none") + ":" + world.bytes("bin") + ":" + path);
    qunsetenv("VANTROSK_RUNNER");
    EXPECT_EQ(runner(with_runner({})), world.native("bin/wine"));
    (void)world.platform.settings->set_value("PLATFORM", "RUNNER", "other");
    EXPECT_EQ(runner(with_runner({})), world.native("bin/other"));
    qputenv("VANTROSK_RUNNER", "third");
    EXPECT_EQ(runner(with_runner({})), world.native("bin/third"));
    EXPECT_EQ(runner(with_runner(world.native("game/runner"))), world.native("game/runner"));
    qunsetenv("VANTROSK_RUNNER");
    qputenv("PATH", path);
}

TEST_F(Processes_Test, A_missing_runner_is_said_plainly) {
    world.write("game/fixed", script, 0644);
    for (const QString &name : {QStringLiteral("no-such-runner"), world.native("game/none"),
                                world.native("game/fixed"), world.native("game")}) {
        Platform platform = with_runner(name);
        const auto started = platform.processes->start({world.windows("game/Thief2.exe"), {}, {}});
        EXPECT_EQ(started.fault.kind, Fault_Kind::not_available);
        EXPECT_EQ(started.fault.text,
                  "\"" + name +
                      "\", which runs Windows programs, was not found. Install Wine, or name "
                      "another runner in VANTROSK_RUNNER.");
        EXPECT_EQ(started.value.process_id, 0);
    }
}

/// Takes every runner away for its life: none in PATH, none in the environment.
class No_Runner {
public:
    explicit No_Runner(const Platform_World &world) : path_(qgetenv("PATH")) {
        qputenv("PATH", world.bytes("no programs"));
        qunsetenv("VANTROSK_RUNNER");
    }
    ~No_Runner() {
        qputenv("PATH", path_);
        qunsetenv("VANTROSK_RUNNER");
    }

private:
    QByteArray path_;
};

TEST_F(Processes_Test, Without_a_runner_a_native_program_is_started_as_it_is) {
    const No_Runner no_runner(world);
    world.write("game/Thief2.exe", QByteArray(script).replace("#!/bin/sh", "#!/bin/sh\nPATH=/bin:/usr/bin"),
                0755);
    const auto started =
        processes.start({world.windows("game") + "\\thief2.EXE", "+map \"a b\" " + world.windows("game/tool"),
                         world.windows("game")});
    ASSERT_TRUE(started.ok()) << started.fault.text.toStdString();
    const QStringList command{world.native("game/Thief2.exe"), "+map", "a b", world.native("game/tool")};
    EXPECT_EQ(started.value.command, command);
    EXPECT_EQ(started.value.working_folder_path, world.native("game"));
    QStringList expected{world.native("game")};
    for (const QString &argument : command)
        expected << "[" + argument + "]";
    EXPECT_EQ(told("game"), expected << world.native("prefix"));
    let_go();
    EXPECT_TRUE(Wait_until([&] { return !processes.is_running(started.value.process_id); }));
}

TEST_F(Processes_Test, Only_an_executable_script_or_elf_file_is_native) {
    struct Row {
        const char *name;
        QByteArray content;
        mode_t mode;
        bool is_native;
    };
    const Row rows[] = {
        {"script.exe", "#!/bin/sh\n", 0755, true},
        {"script.BAT", "#!", 0755, true},
        {"elf.com", "\177ELF\2\1\1", 0755, true},
        {"fixed.exe", "#!/bin/sh\n", 0644, false},
        {"windows.exe", "MZ\x90", 0755, false},
        {"short.exe", "\177EL", 0755, false},
        {"later.exe", "\n#!/bin/sh\n", 0755, false},
        {"text.bat", "@echo off\r\n", 0755, false},
        {"empty.exe", "", 0755, false},
    };
    const No_Runner no_runner(world);
    for (const Row &row : rows) {
        const QString file = QStringLiteral("game/") + row.name;
        world.write(file, row.content, row.mode);
        const auto command = processes.command_for({world.windows(file), {}, {}});
        EXPECT_EQ(command.value.command, row.is_native ? QStringList(world.native(file)) : QStringList())
            << row.name;
        EXPECT_EQ(command.fault.kind, row.is_native ? Fault_Kind::none : Fault_Kind::not_available)
            << row.name;
    }
}

TEST_F(Processes_Test, A_runner_that_is_there_or_named_is_never_passed_over) {
    world.write("game/Thief2.exe", script, 0755);
    const Start_Request request{world.windows("game/Thief2.exe"), {}, {}};
    const auto command = [&](const Platform &platform) {
        const auto answer = platform.processes->command_for(request);
        return answer.ok() ? answer.value.command.first() : answer.fault.text.section('"', 1, 1);
    };
    const No_Runner no_runner(world);
    EXPECT_EQ(command(with_runner({})), world.native("game/Thief2.exe"));
    EXPECT_EQ(command(with_runner("mine")), "mine");
    (void)world.platform.settings->set_value("PLATFORM", "RUNNER", "other");
    EXPECT_EQ(command(with_runner({})), "other");
    qputenv("VANTROSK_RUNNER", "third");
    EXPECT_EQ(command(with_runner({})), "third");
    qunsetenv("VANTROSK_RUNNER");
    (void)world.platform.settings->set_value("PLATFORM", "RUNNER", "");
    EXPECT_EQ(command(with_runner({})), world.native("game/Thief2.exe"));
    world.write("no programs/wine", script, 0755);
    EXPECT_EQ(command(with_runner({})), world.native("no programs/wine"));
}

TEST_F(Processes_Test, A_missing_program_is_named) {
    for (const char *name : {"none.exe", "none", "none\\x.exe"}) {
        const auto started =
            processes.start({world.windows("game") + "\\" + name, {}, world.windows("game")});
        EXPECT_EQ(started.fault.kind, Fault_Kind::not_found) << name;
        EXPECT_EQ(started.fault.text,
                  QStringLiteral("Could not start \"%1\": there is no such file or folder.")
                      .arg(world.native("game/") + QString(name).replace("\\", "/")));
        EXPECT_EQ(started.value.process_id, 0);
    }
    EXPECT_EQ(processes.start({"thief2.exe", {}, {}}).fault.text, "There is no program \"thief2.exe\".");
    EXPECT_EQ(processes.start({"", {}, {}}).fault.kind, Fault_Kind::not_found);
    EXPECT_EQ(processes.start({world.windows("game"), {}, {}}).fault.text,
              QStringLiteral("Could not start \"%1\": it is not a file.").arg(world.native("game")));
}

TEST_F(Processes_Test, A_missing_working_folder_is_named) {
    const auto started = processes.start({world.windows("game/tool"), {}, world.windows("game/none")});
    EXPECT_EQ(started.fault.kind, Fault_Kind::not_found);
    EXPECT_EQ(started.fault.text, QStringLiteral("There is no folder \"%1\" to start \"%2\" in.")
                                      .arg(world.native("game/none"), world.native("game/tool")));
    EXPECT_EQ(processes.start({world.windows("game/tool"), {}, world.windows("game/Thief2.exe")}).fault.kind,
              Fault_Kind::not_found);
    EXPECT_EQ(processes.start({world.windows("game/tool"), {}, "relative"}).fault.kind,
              Fault_Kind::not_found);
}

TEST_F(Processes_Test, What_the_system_refuses_to_run_is_a_fault_at_once) {
    world.write("game/fixed", script, 0644);
    world.write("game/garbage", "\x01\x02 no program", 0755);
    world.write("game/no interpreter", "#!/no/such/interpreter\n", 0755);
    const auto fault = [&](const char *name) {
        return processes.start({world.windows("game") + "\\" + name, {}, {}}).fault;
    };
    EXPECT_EQ(fault("fixed").kind, Fault_Kind::no_access);
    EXPECT_EQ(fault("fixed").number, EACCES);
    EXPECT_EQ(fault("fixed").text, QStringLiteral("Could not start \"%1\": the rights do not allow it.")
                                       .arg(world.native("game/fixed")));
    EXPECT_EQ(fault("garbage").number, ENOEXEC);
    EXPECT_EQ(fault("garbage").text,
              QStringLiteral("Could not start \"%1\": it is not a program that this system can run.")
                  .arg(world.native("game/garbage")));
    EXPECT_EQ(fault("no interpreter").kind, Fault_Kind::not_found);
    const auto started =
        processes.start({world.windows("game/tool"), QStringLiteral("x").repeated(3000000), {}});
    EXPECT_EQ(started.fault.number, E2BIG);
}

TEST_F(Processes_Test, The_started_process_is_on_its_own) {
    const auto started = processes.start({world.windows("game/tool"), {}, {}});
    ASSERT_TRUE(started.ok());
    const pid_t id = static_cast<pid_t>(started.value.process_id);
    EXPECT_NE(::getsid(id), ::getsid(0));
    EXPECT_EQ(::waitpid(id, nullptr, WNOHANG), -1);
    for (const char *number : {"0", "1", "2"})
        EXPECT_EQ(QFile::symLinkTarget(QStringLiteral("/proc/%1/fd/%2").arg(id).arg(number)), "/dev/null");
    EXPECT_TRUE(processes.is_running(id));
    ::kill(id, SIGTERM);
    EXPECT_TRUE(Wait_until([&] { return !processes.is_running(id); }));
}

TEST_F(Processes_Test, Signals_that_this_program_ignores_are_not_ignored_by_what_it_starts) {
    const auto before = std::signal(SIGPIPE, SIG_IGN);
    const auto started = processes.start({world.windows("game/tool"), {}, {}});
    std::signal(SIGPIPE, before);
    ASSERT_TRUE(started.ok());
    told("game");
    const auto status = world.platform.files->read_start(
        QStringLiteral("Z:\\proc\\%1\\status").arg(started.value.process_id), 8192);
    EXPECT_TRUE(status.value.contains("SigIgn:\t0000000000000000")) << status.value.toStdString();
}

TEST_F(Processes_Test, A_process_runs_while_something_that_it_left_behind_runs) {
    world.write("game/launcher", "#!/bin/sh\n./tool &\n", 0755);
    const auto started = processes.start({world.windows("game/launcher"), {}, {}});
    ASSERT_TRUE(started.ok());
    told("game");
    EXPECT_TRUE(Wait_until([&] {
        return ::kill(static_cast<pid_t>(started.value.process_id), 0) != 0 ||
               QFile::symLinkTarget(QStringLiteral("/proc/%1/exe").arg(started.value.process_id)).isEmpty();
    }));
    EXPECT_TRUE(processes.is_running(started.value.process_id));
    let_go();
    EXPECT_TRUE(Wait_until([&] { return !processes.is_running(started.value.process_id); }));
}

TEST_F(Processes_Test, Only_a_process_is_running) {
    EXPECT_TRUE(processes.is_running(::getpid()));
    for (const qint64 id : {0LL, -1LL, 1LL << 40})
        EXPECT_FALSE(processes.is_running(id));
}

TEST_F(Processes_Test, The_processors_of_a_named_process_can_be_counted_and_set) {
    // Of its own name, because the same tests may run elsewhere at the same time.
    const QString name = "é" + world.native("").right(6);
    ASSERT_TRUE(QFile::rename(world.native("game/tool"), world.native("game/" + name)));
    const auto started = processes.start({world.windows("game") + "\\" + name, {}, {}});
    ASSERT_TRUE(started.ok());
    told("game");
    cpu_set_t allowed;
    ASSERT_EQ(::sched_getaffinity(0, sizeof allowed, &allowed), 0);
    EXPECT_EQ(processes.processors_of(name.toUpper()), CPU_COUNT(&allowed));
    EXPECT_EQ(processes.processors_of(""), CPU_COUNT(&allowed));
    int first = 0;
    while (!CPU_ISSET(first, &allowed))
        ++first;
    EXPECT_TRUE(processes.set_affinity(name.toLower(), 1ULL << first));
    EXPECT_EQ(processes.processors_of(name), 1);
    EXPECT_EQ(processes.processors_of(""), CPU_COUNT(&allowed));
    EXPECT_FALSE(processes.set_affinity(name, 0));
}

TEST_F(Processes_Test, Setting_its_own_processors_covers_every_thread) {
    EXPECT_EQ(In_own_process([&] {
                  cpu_set_t set;
                  ::sched_getaffinity(0, sizeof set, &set);
                  int first = 0;
                  while (!CPU_ISSET(first, &set))
                      ++first;
                  int counted = 0;
                  QSemaphore go, ready;
                  std::thread other([&] {
                      ready.release();
                      go.acquire();
                      cpu_set_t own;
                      ::sched_getaffinity(0, sizeof own, &own);
                      counted = CPU_COUNT(&own);
                  });
                  ready.acquire();
                  const bool done = processes.set_affinity("", 1ULL << first);
                  go.release();
                  other.join();
                  return done && counted == 1 && processes.processors_of("") == 1 ? 0 : 1;
              }),
              0);
}

TEST_F(Processes_Test, A_process_that_is_not_there_has_no_processors) {
    for (const char *name : {"no such process.exe", "/", "\\", ".", "*"}) {
        EXPECT_EQ(processes.processors_of(name), 0) << name;
        EXPECT_FALSE(processes.set_affinity(name, 1)) << name;
    }
}

} // namespace
} // namespace vantrosk
