// Stops installs of a mission of 400 files at many moments and by many means, puts the original missions back
// and counts what is missing. bench_faults [FOLDER [SHARE [GAME]...]]: works below FOLDER; SHARE 2 tries
// every second moment; GAME is T2, T3 or DOOM.

#include "Child.h"
#include "Fault_World.h"

#include "platform/linux/Linux_Platform.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTextStream>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <random>

namespace {

using namespace faults;

constexpr unsigned moments_seed = 1119;
constexpr int random_moments = 200;
constexpr int first_moments = 4000; ///< microseconds

QTextStream out(stdout);

/// One line of the table.
struct Row {
    QString what;
    int tried = 0, cut = 0, shown = 0, recovered = 0;
    Loss loss{};
    QString first_failure{};
};

class Harness {
public:
    Harness(Fault_World &world, int share, bool own_disk)
        : world_(world), share_(share), own_disk_(own_disk) {}

    void run() {
        measure();
        kills_at_log_lines("an install", install_b_);
        kills_at_log_lines("a restore", restore_);
        kills_at_random("an install", install_b_, random_moments);
        kills_at_random("a restore", restore_, random_moments / 4);
        two_kills();
        full_disk();
        file_limits();
        read_only();
        folder_in_the_way();
        wrong_checksum();
        vanishing_zip();
        print();
    }
    bool failed() const {
        return std::any_of(rows_.begin(), rows_.end(),
                           [](const Row &row) { return row.recovered != row.tried; });
    }

private:
    /// How long the work takes and how often it writes its log.
    void measure() {
        for (auto *work : {&install_b_, &restore_}) {
            world_.rewind();
            const Child_End end = Run_child(world_, *work);
            lengths_[work] = end.microseconds;
            lines_[work] = end.log_lines;
            if (end.exit_code != 0)
                out << "an undisturbed run fails: " << end.errors << Qt::endl;
        }
    }

    int random(int from, int to) { return std::uniform_int_distribution(from, to)(random_); }

    /// Restores and counts. A log that lies there must be shown at the start.
    void settle(Row &row, const Child_End &cut, const QString &moment) {
        ++row.tried;
        row.cut += cut.killed || cut.exit_code != 0 ? 1 : 0;
        const bool has_log = world_.has_log();
        const Child_End back = Run_child(world_, restore_);
        row.shown += has_log && back.log_shown ? 1 : 0;
        const Loss loss = world_.loss();
        const bool good =
            back.exit_code == 0 && !loss.any() && has_log == back.log_shown && !world_.has_log();
        row.recovered += good ? 1 : 0;
        row.loss.files += loss.files;
        row.loss.bytes += loss.bytes;
        if (!good && row.first_failure.isEmpty())
            row.first_failure = QString("%1: %2 files, first \"%3\", restore ended with %4, %5")
                                    .arg(moment)
                                    .arg(loss.files)
                                    .arg(loss.first)
                                    .arg(back.exit_code)
                                    .arg(back.errors.simplified());
    }

    void done(const Row &row) {
        rows_.push_back(row);
        out << world_.about().name << ", " << row.what << ": " << row.recovered << " of " << row.tried
            << Qt::endl;
        if (!row.first_failure.isEmpty())
            out << "    " << row.first_failure << Qt::endl;
    }

    void kills_at_log_lines(const char *name, const QStringList &work) {
        Row row{QString("killed at each line of the log of %1").arg(name)};
        for (int line = 0; line < lines_.at(&work); line += share_) {
            world_.rewind();
            Child_Fault fault;
            fault.dies_at_line = line;
            settle(row, Run_child(world_, work, fault), QString("line %1").arg(line));
        }
        done(row);
    }

    /// Kills a child at some moment of its work.
    Child_End killed_at_random(const QStringList &work, int &moment) {
        moment = random(0, int(lengths_.at(&work)));
        return Run_child(world_, work, {}, [&](int child) {
            ::usleep(useconds_t(moment));
            ::kill(child, SIGKILL);
        });
    }

    void kills_at_random(const char *name, const QStringList &work, int count) {
        Row row{QString("killed at random moments of %1").arg(name)};
        for (int i = 0; i < count; i += share_) {
            world_.rewind();
            int moment = 0;
            const Child_End cut = killed_at_random(work, moment);
            settle(row, cut, QString("%1 us").arg(moment));
        }
        done(row);
    }

    void two_kills() {
        Row row{"killed at random, then the restore too"};
        for (int i = 0; i < random_moments / 4; i += share_) {
            world_.rewind();
            int first = 0, second = 0;
            killed_at_random(install_b_, first);
            const Child_End cut = killed_at_random(restore_, second);
            settle(row, cut, QString("%1 and %2 us").arg(first).arg(second));
        }
        done(row);
    }

    /// Another program fills the disk at some moment; it is emptied before the restore.
    void full_disk() {
        Row row{"the disk is full at a random moment"};
        if (!own_disk_) {
            row.what += " (not tried: no right to mount one)";
            return done(row);
        }
        const QString filler = world_.root() + "/../filler";
        for (int i = 0; i < 60; i += share_) {
            world_.rewind();
            // Every second time before the log has its head.
            const int latest = i / share_ % 2 == 0 ? int(lengths_.at(&install_b_)) : first_moments;
            const int moment = random(0, latest);
            const int left = random(0, 3) == 0 ? random(0, 200000) : 0;
            const Child_End cut = Run_child(world_, install_b_, {}, [&](int) {
                ::usleep(useconds_t(moment));
                fill(filler, left);
            });
            QFile::remove(filler);
            settle(row, cut, QString("%1 us, %2 bytes left").arg(moment).arg(left));
        }
        done(row);
    }

    static void fill(const QString &path, int left) {
        const QByteArray name = QFile::encodeName(path);
        const int file = ::open(name.constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        struct statvfs disk {};
        // The disk changes meanwhile: what was too much is reckoned anew.
        for (int tries = 0; file >= 0 && tries < 50 && ::fstatvfs(file, &disk) == 0; ++tries) {
            const off_t room = off_t(disk.f_bavail * disk.f_bsize) - left;
            if (room <= 0 || ::posix_fallocate(file, 0, room) == 0)
                break;
        }
        ::close(file);
    }

    void file_limits() {
        Row row{"no file may grow beyond a limit"};
        for (int i = 0; i < 60; i += share_) {
            world_.rewind();
            Child_Fault fault;
            fault.file_limit = qint64(std::exp2(4 + i * 17.0 / 60));
            settle(row, Run_child(world_, install_b_, fault), QString("%1 bytes").arg(*fault.file_limit));
        }
        done(row);
    }

    void give_to_nobody() {
        constexpr uid_t nobody = 65534;
        for (const auto &each : std::filesystem::recursive_directory_iterator(world_.root().toStdString()))
            (void)!::lchown(each.path().c_str(), nobody, nobody);
        (void)!::lchown(QFile::encodeName(world_.root()).constData(), nobody, nobody);
    }

    /// Files and folders without the right to write; the install runs without the administrator's rights.
    void read_only() {
        Row row{"read-only files and folders in the way"};
        if (::getuid() != 0) {
            row.what += " (not tried: needs another user)";
            return done(row);
        }
        namespace fs = std::filesystem;
        const QStringList names = world_.about().overwritten;
        for (int i = 0; i < 20; i += share_) {
            world_.rewind();
            give_to_nobody();
            const QString file = world_.game() + "/" + names[random(0, int(names.size()) - 1)];
            const QString folder = file.left(file.lastIndexOf('/'));
            const bool is_folder = i % 2 == 1;
            const fs::path protected_one = (is_folder ? folder : file).toStdString();
            const auto bits = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
            fs::permissions(protected_one, bits, fs::perm_options::remove);
            Child_Fault fault;
            fault.as_nobody = true;
            const Child_End cut = Run_child(world_, install_b_, fault);
            fs::permissions(protected_one, fs::perms::owner_write, fs::perm_options::add);
            settle(row, cut, file);
        }
        done(row);
    }

    void folder_in_the_way() {
        Row row{"a folder in the place of a file"};
        for (int i = 0; i < 20; i += share_) {
            world_.rewind();
            const QStringList &brought = world_.about().brought;
            const QString place = world_.game() + "/" + brought[i * 7 % brought.size()];
            Write_file(place + "/mine.txt", "of the player");
            const Child_End cut = Run_child(world_, install_b_);
            if (!QFile::exists(place + "/mine.txt"))
                row.loss.add(place, 13);
            QDir(place).removeRecursively();
            settle(row, cut, place);
        }
        done(row);
    }

    /// Somewhere in the archive a byte is another.
    void wrong_checksum() {
        Row row{"a damaged zip"};
        for (int i = 0; i < 40; i += share_) {
            world_.rewind();
            QFile zip(world_.zips() + "/b.zip");
            if (!zip.open(QIODevice::ReadWrite))
                continue;
            const int at = random(0, int(zip.size()) - 1);
            zip.seek(at);
            const char byte = zip.read(1)[0];
            zip.seek(at);
            zip.putChar(char(byte ^ 0x55));
            zip.close();
            settle(row, Run_child(world_, install_b_), QString("byte %1").arg(at));
        }
        done(row);
    }

    void vanishing_zip() {
        Row row{"the zip is removed or cut at a random moment"};
        for (int i = 0; i < 40; i += share_) {
            world_.rewind();
            const int moment = random(0, int(lengths_.at(&install_b_)));
            const QByteArray zip = QFile::encodeName(world_.zips() + "/b.zip");
            const Child_End cut = Run_child(world_, install_b_, {}, [&](int) {
                ::usleep(useconds_t(moment));
                (void)!(i % 2 ? ::truncate(zip.constData(), 100000) : ::unlink(zip.constData()));
            });
            settle(row, cut, QString("%1 us").arg(moment));
        }
        done(row);
    }

    void print() {
        out << Qt::endl
            << "| what | moments | runs cut short | log shown | states recovered | bytes lost |" << Qt::endl
            << "|---|---|---|---|---|---|" << Qt::endl;
        for (const Row &row : rows_)
            out << "| " << world_.about().name << ": " << row.what << " | " << row.tried << " | " << row.cut
                << " | " << row.shown << " | " << row.recovered << " | " << row.loss.bytes << " |"
                << Qt::endl;
    }

    Fault_World &world_;
    const int share_;
    const bool own_disk_;
    const QStringList install_b_{"install", world_.about().word, "b.zip"};
    const QStringList restore_{"restore", world_.about().word, world_.about().originals};
    std::map<const QStringList *, qint64> lengths_;
    std::map<const QStringList *, int> lines_;
    std::mt19937 random_{moments_seed};
    std::vector<Row> rows_;
};

/// A small disk in memory that this process alone sees, and that goes with it.
bool Mount_disk(const QString &folder) {
    return ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           ::mount("none", QFile::encodeName(folder).constData(), "tmpfs", 0, "size=64m,mode=777") == 0;
}

/// All trials of one game; false when something was lost.
bool Try_game(const QString &folder, const Fault_Game &game, int share, bool own_disk) {
    Fault_World world(folder, game);
    const auto must = [&](const QStringList &command) {
        const Child_End end = Run_child(world, command);
        if (end.exit_code == 0)
            return;
        out << command.join(' ') << " failed: " << end.errors << Qt::endl;
        std::exit(2);
    };
    world.make_files();
    for (const auto &[key, path] : game.settings)
        must({"settings", "set", key, world.root() + "/" + path});
    must({"settings", "set", "LANGUAGE", "english"});
    world.make([&](const char *zip) {
        must({"scan", game.word});
        must({"install", game.word, zip});
    });
    Harness harness(world, share, own_disk);
    harness.run();
    QDir(folder).removeRecursively();
    QDir().mkpath(folder);
    return !harness.failed();
}

} // namespace

int main(int argc, char **argv) {
    vantrosk::Prepare_linux_process();
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    const QString folder = words.value(1, QDir::tempPath() + "/vantrosk_faults");
    const int share = qMax(1, words.value(2, "1").toInt());
    QDir(folder).removeRecursively();
    QDir().mkpath(folder);
    const bool own_disk = Mount_disk(folder);
    bool all = true;
    for (const Fault_Game &game : {Thief_2(), Thief_3(), Doom_3()})
        if (words.size() < 4 || words.mid(3).contains(game.word))
            all = Try_game(folder + "/" + game.word, game, share, own_disk) && all;
    if (!own_disk)
        QDir(folder).removeRecursively();
    return all ? 0 : 1;
}
