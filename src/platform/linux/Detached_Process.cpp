#include "Detached_Process.h"

#include "Native_Io.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>
#include <vector>

namespace vantrosk {

namespace {

/// What the new process tells through the pipe, in one piece.
struct Message {
    Detached_Step step;
    int number;
    pid_t process_id;
    pid_t session;
};

/// C strings for exec, made before the fork: afterwards nothing may allocate.
std::vector<char *> Pointers(const QByteArrayList &texts) {
    std::vector<char *> pointers;
    pointers.reserve(static_cast<size_t>(texts.size()) + 1);
    for (const QByteArray &text : texts)
        pointers.push_back(const_cast<char *>(text.constData()));
    pointers.push_back(nullptr);
    return pointers;
}

void Tell(int pipe, Message message) {
    while (::write(pipe, &message, sizeof message) < 0 && errno == EINTR) {
    }
}

[[noreturn]] void Fail(int pipe, Detached_Step step) {
    Tell(pipe, {step, errno, 0, 0});
    ::_exit(127);
}

void Reset_signals() {
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    for (int number = 1; number < NSIG; ++number)
        ::signal(number, SIG_DFL);
}

/// The new process, from here to exec.
[[noreturn]] void Become(const char *folder, char *const *command, char *const *environment, int pipe) {
    Reset_signals();
    const int nothing = ::open("/dev/null", O_RDWR);
    if (nothing < 0 || ::dup2(nothing, 0) < 0 || ::dup2(nothing, 1) < 0 || ::dup2(nothing, 2) < 0)
        Fail(pipe, Detached_Step::prepare);
    if (::chdir(folder) != 0)
        Fail(pipe, Detached_Step::enter_folder);
    // Also what a library opened without asking for it to be closed.
    ::syscall(SYS_close_range, 3U, UINT_MAX, CLOSE_RANGE_CLOEXEC);
    Tell(pipe, {Detached_Step::started, 0, ::getpid(), ::getsid(0)});
    ::execve(command[0], command, environment);
    Fail(pipe, Detached_Step::run);
}

} // namespace

Detached_Result Start_detached(const Detached_Request &request) {
    const std::vector<char *> command = Pointers(request.command);
    const std::vector<char *> environment = Pointers(request.environment);
    const char *folder = request.working_folder.constData();
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return {Detached_Step::prepare, errno, 0, 0};
    const File_Handle reading(ends[0]);
    File_Handle writing(ends[1]);
    const pid_t between = ::fork();
    if (between < 0)
        return {Detached_Step::prepare, errno, 0, 0};
    if (between == 0) {
        ::setsid();
        const pid_t last = ::fork();
        if (last == 0)
            Become(folder, command.data(), environment.data(), writing.number());
        if (last < 0)
            Fail(writing.number(), Detached_Step::prepare);
        ::_exit(0);
    }
    writing.close();
    while (::waitpid(between, nullptr, 0) < 0 && errno == EINTR) {
    }
    // One message tells who runs, a second one that it came to nothing; exec closes the pipe.
    Detached_Result result{Detached_Step::prepare, EIO, 0, 0};
    Message message{};
    constexpr qint64 size = sizeof message;
    while (Read_fully(reading.number(), reinterpret_cast<char *>(&message), size) == size)
        result = {message.step, message.number, message.process_id, message.session};
    return result;
}

} // namespace vantrosk
