#include "Child.h"

#include "platform/linux/Linux_Platform.h"
#include "ui/console/Console_Commands.h"

#include <QFile>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <ctime>
#include <utility>

namespace faults {

namespace {

using namespace vantrosk;

/// Passes everything on and counts what is written to the log.
class Counting_Files : public Files {
public:
    Counting_Files(std::unique_ptr<Files> files, std::optional<int> dies_at, int report)
        : files_(std::move(files)), dies_at_(dies_at), report_(report) {}

    QString to_native(const QString &path) const override { return files_->to_native(path); }
    QString to_windows(const QString &path) const override { return files_->to_windows(path); }
    std::optional<File_Info> look(const QString &path) const override { return files_->look(path); }
    Result<std::vector<File_Info>> list_folder(const QString &path) const override {
        return files_->list_folder(path);
    }
    Result<QByteArray> read_file(const QString &path, qint64 limit) const override {
        return files_->read_file(path, limit);
    }
    Result<QByteArray> read_start(const QString &path, qint64 count) const override {
        return files_->read_start(path, count);
    }
    Fault write_file(const QString &path, const QByteArray &bytes) override {
        const Fault fault = files_->write_file(path, bytes);
        count(path);
        return fault;
    }
    Fault append_file(const QString &path, const QByteArray &bytes) override {
        const Fault fault = files_->append_file(path, bytes);
        count(path);
        return fault;
    }
    Fault move_file(const QString &from, const QString &to) override { return files_->move_file(from, to); }
    Fault copy_file(const QString &from, const QString &to) override { return files_->copy_file(from, to); }
    Fault remove_file(const QString &path) override { return files_->remove_file(path); }
    Fault remove_folder(const QString &path) override { return files_->remove_folder(path); }
    Fault make_folder(const QString &path) override { return files_->make_folder(path); }
    Fault clear_attributes(const QString &path) override { return files_->clear_attributes(path); }
    Fault set_modified(const QString &path, const QDateTime &when) override {
        return files_->set_modified(path, when);
    }
    Result<std::shared_ptr<void>> lock_folder(const QString &path) override {
        return files_->lock_folder(path);
    }
    QString real_path(const QString &path) const override { return files_->real_path(path); }

private:
    void count(const QString &path) {
        if (!path.endsWith("\\install_recover.log"))
            return;
        (void)!::write(report_, "\x01", 1);
        if (dies_at_ && count_++ == *dies_at_)
            ::kill(::getpid(), SIGKILL);
    }

    std::unique_ptr<Files> files_;
    std::optional<int> dies_at_;
    int report_;
    int count_ = 0;
};

/// The pauses of 10 ms would be where most random moments fall.
class No_Pauses : public Clock {
public:
    explicit No_Pauses(std::unique_ptr<Clock> clock) : clock_(std::move(clock)) {}
    QDateTime now() const override { return clock_->now(); }
    qint64 ticks() const override { return clock_->ticks(); }
    void sleep(int) override {}

private:
    std::unique_ptr<Clock> clock_;
};

void Give_up_rights() {
    constexpr uid_t nobody = 65534;
    if (::setgid(nobody) != 0 || ::setuid(nobody) != 0)
        ::_exit(120);
}

/// The whole of a child's life.
int Work(const Fault_World &world, const QStringList &words, const Child_Fault &fault, int report) {
    if (fault.as_nobody)
        Give_up_rights();
    if (fault.file_limit) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{rlim_t(*fault.file_limit), rlim_t(*fault.file_limit)};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    Platform platform =
        Make_Linux_Platform({world.root() + "/prefix", "none", world.root() + "/settings.conf"});
    platform.files = std::make_unique<Counting_Files>(std::move(platform.files), fault.dies_at_line, report);
    platform.clock = std::make_unique<No_Pauses>(std::move(platform.clock));
    const auto tell = [report](const QString &line) {
        const QByteArray bytes = line.toUtf8() + '\n';
        (void)!::write(report, bytes.constData(), size_t(bytes.size()));
    };
    return Run_Console(platform, {[](const QString &) {}, tell, false},
                       QStringList{"--home", world.home()} + words, world.home());
}

qint64 Now() {
    timespec time{};
    ::clock_gettime(CLOCK_MONOTONIC, &time);
    return qint64(time.tv_sec) * 1000000 + time.tv_nsec / 1000;
}

} // namespace

Child_End Run_child(const Fault_World &world, const QStringList &words, const Child_Fault &fault,
                    const std::function<void(int child)> &meanwhile) {
    int ends[2];
    Child_End result;
    if (::pipe2(ends, 0) != 0)
        return result;
    const qint64 began = Now();
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(ends[0]);
        ::_exit(Work(world, words, fault, ends[1]));
    }
    ::close(ends[1]);
    if (meanwhile)
        meanwhile(child);
    QByteArray told;
    char block[4096];
    for (ssize_t got = 0; (got = ::read(ends[0], block, sizeof block)) > 0;)
        told.append(block, got);
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    result.microseconds = Now() - began;
    result.killed = WIFSIGNALED(status);
    result.exit_code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.log_lines = int(told.count('\x01'));
    result.errors = QString::fromUtf8(told.replace('\x01', ""));
    result.log_shown = result.errors.contains("An install did not finish.");
    return result;
}

} // namespace faults
