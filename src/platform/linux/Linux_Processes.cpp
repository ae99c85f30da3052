#include "Detached_Process.h"
#include "Linux_Parts.h"
#include "Native_Io.h"
#include "Process_Table.h"

#include "platform/Native_Text.h"

#include <QDir>
#include <QHash>

#include <sched.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

extern char **environ;

namespace vantrosk {

namespace {

/// What only Windows, so the runner, can start.
constexpr const char *windows_program_endings[] = {".exe", ".bat", ".com"};

/// Wine's own servants: they outlive the program that made Wine start them.
constexpr const char *wine_servants[] = {
    "services.exe", "winedevice.exe", "plugplay.exe", "explorer.exe", "svchost.exe",  "rpcss.exe",
    "wineserver",   "wineserver64",   "conhost.exe",  "tabtip.exe",   "wineboot.exe",
};

bool Needs_runner(const QString &program) {
    for (const char *ending : windows_program_endings)
        if (program.endsWith(QLatin1String(ending), Qt::CaseInsensitive))
            return true;
    return false;
}

/// Pieces between blanks; double quotes keep blanks together and are taken off, backslashes are plain.
QStringList Split_arguments(const QString &text) {
    QStringList pieces;
    QString piece;
    bool started = false;
    bool quoted = false;
    for (const QChar c : text) {
        const bool blank = c == QLatin1Char(' ') || c == QLatin1Char('\t');
        if (c == QLatin1Char('"')) {
            quoted = !quoted;
            started = true;
        } else if (quoted || !blank) {
            piece += c;
            started = true;
        } else if (started) {
            pieces << piece;
            piece.clear();
            started = false;
        }
    }
    if (started)
        pieces << piece;
    return pieces;
}

/// The path of an executable file of that name in PATH; a name with a separator is a path already.
QString Find_in_path(const QString &name) {
    const auto usable = [](const QByteArray &path) {
        struct stat info {};
        return ::stat(path.constData(), &info) == 0 && S_ISREG(info.st_mode) &&
               ::access(path.constData(), X_OK) == 0;
    };
    if (name.contains(QLatin1Char('/'))) {
        const QString path = QDir::current().absoluteFilePath(name);
        return usable(Native_bytes(path)) ? path : QString();
    }
    const QByteArray wanted = Native_bytes(name);
    for (const QByteArray &folder : qgetenv("PATH").split(':'))
        if (folder.startsWith('/') && usable(folder + '/' + wanted))
            return Native_text(folder + '/' + wanted);
    return {};
}

/// A script or a program of this system, whatever its name says.
bool Is_native_program(const QByteArray &path) {
    if (::access(path.constData(), X_OK) != 0)
        return false;
    const Result<QByteArray> start = Read_native_file(path, 4, Overlong::cut);
    return start.ok() && (start.value.startsWith("#!") || start.value == "\177ELF");
}

cpu_set_t Cpu_set_of(quint64 mask) {
    cpu_set_t set;
    CPU_ZERO(&set);
    for (int bit = 0; bit < 64; ++bit)
        if ((mask >> bit) & 1)
            CPU_SET(bit, &set);
    return set;
}

class Linux_Processes : public Processes {
public:
    Linux_Processes(std::shared_ptr<const Path_Map> paths, const QString &runner,
                    std::unique_ptr<Settings_Store> settings)
        : paths_(std::move(paths)), runner_(runner), settings_(std::move(settings)) {}

    Result<Start_Result> command_for(const Start_Request &request) const override;
    Result<Start_Result> start(const Start_Request &request) override;
    bool is_running(qint64 process_id) const override;
    int processors_of(const QString &process_name) const override;
    bool set_affinity(const QString &process_name, quint64 mask) override;

private:
    /// What is remembered of a started process.
    struct Started {
        qint64 session = 0;
        qulonglong time = 0;
    };

    QString named_runner() const;
    QStringList native_command(const QByteArray &native, const QStringList &arguments) const;
    Result<QStringList> program_command(const Start_Request &request, const QByteArray &native) const;
    QString native_argument(const QString &argument) const;
    QByteArrayList environment() const;

    std::shared_ptr<const Path_Map> paths_;
    QString runner_;
    std::unique_ptr<Settings_Store> settings_;
    QHash<qint64, Started> started_;
};

/// Empty when nobody has named one.
QString Linux_Processes::named_runner() const {
    if (!runner_.isEmpty())
        return runner_;
    const QString asked = qEnvironmentVariable("VANTROSK_RUNNER");
    if (!asked.isEmpty())
        return asked;
    return settings_->value(QLatin1String(platform_section), QLatin1String(runner_key));
}

/// "C:\x" and the path in "--file=C:\x" in native form; what lies on no drive stays.
QString Linux_Processes::native_argument(const QString &argument) const {
    const qsizetype start = Is_windows_path(argument) ? 0 : argument.indexOf(QLatin1Char('=')) + 1;
    const QString path = argument.mid(start);
    if (path.size() < 3 || !Is_windows_path(path))
        return argument;
    const QByteArray native = paths_->native(path);
    return native.isEmpty() ? argument : argument.left(start) + Native_text(native);
}

QStringList Linux_Processes::native_command(const QByteArray &native, const QStringList &arguments) const {
    QStringList command{Native_text(native)};
    for (const QString &argument : arguments)
        command << native_argument(argument);
    return command;
}

Result<QStringList> Linux_Processes::program_command(const Start_Request &request,
                                                     const QByteArray &native) const {
    Result<QStringList> result;
    const QStringList arguments = Split_arguments(request.arguments);
    if (!Needs_runner(request.program_path)) {
        result.value = native_command(native, arguments);
        return result;
    }
    const QString named = named_runner();
    const QString runner = named.isEmpty() ? QStringLiteral("wine") : named;
    const QString found = Find_in_path(runner);
    if (found.isEmpty() && named.isEmpty() && Is_native_program(native)) {
        result.value = native_command(native, arguments);
        return result;
    }
    if (found.isEmpty()) {
        result.fault = {
            Fault_Kind::not_available,
            QStringLiteral("\"%1\", which runs Windows programs, was not found. Install Wine, or name "
                           "another runner in VANTROSK_RUNNER.")
                .arg(runner)};
        return result;
    }
    QString program = request.program_path;
    result.value << found << program.replace(QLatin1Char('/'), QLatin1Char('\\')) << arguments;
    return result;
}

Result<Start_Result> Linux_Processes::command_for(const Start_Request &request) const {
    Result<Start_Result> result;
    const QByteArray native = paths_->native(request.program_path);
    struct stat info {};
    if (native.isEmpty() || request.arguments.contains(QChar(0))) {
        result.fault = {Fault_Kind::not_found,
                        QStringLiteral("There is no program \"%1\".").arg(request.program_path)};
        return result;
    }
    if (::stat(native.constData(), &info) != 0) {
        result.fault = System_fault(errno, QStringLiteral("start"), native);
        return result;
    }
    if (!S_ISREG(info.st_mode)) {
        result.fault = {Fault_Kind::not_found,
                        QStringLiteral("Could not start \"%1\": it is not a file.").arg(Native_text(native))};
        return result;
    }
    QByteArray folder = paths_->native(request.working_folder);
    if (request.working_folder.isEmpty())
        folder = native.left(qMax<qsizetype>(native.lastIndexOf('/'), 1));
    if (folder.isEmpty() || ::stat(folder.constData(), &info) != 0 || !S_ISDIR(info.st_mode)) {
        const QString name = folder.isEmpty() ? request.working_folder : Native_text(folder);
        result.fault = {
            Fault_Kind::not_found,
            QStringLiteral("There is no folder \"%1\" to start \"%2\" in.").arg(name, Native_text(native))};
        return result;
    }
    const auto command = program_command(request, native);
    result.fault = command.fault;
    result.value.command = command.value;
    result.value.working_folder_path = Native_text(folder);
    return result;
}

QByteArrayList Linux_Processes::environment() const {
    QByteArrayList texts;
    for (char **entry = environ; *entry; ++entry)
        if (!QByteArray::fromRawData(*entry, qstrlen(*entry)).startsWith("WINEPREFIX="))
            texts << QByteArray(*entry);
    return texts << "WINEPREFIX=" + Native_bytes(paths_->prefix());
}

Result<Start_Result> Linux_Processes::start(const Start_Request &request) {
    Result<Start_Result> result = command_for(request);
    if (!result.ok())
        return result;
    Detached_Request detached;
    for (const QString &argument : result.value.command)
        detached.command << Native_bytes(argument);
    detached.environment = environment();
    detached.working_folder = Native_bytes(result.value.working_folder_path);
    const Detached_Result started = Start_detached(detached);
    if (started.failed_at != Detached_Step::started) {
        const bool folder = started.failed_at == Detached_Step::enter_folder;
        result.fault =
            System_fault(started.number, folder ? QStringLiteral("enter") : QStringLiteral("start"),
                         folder ? detached.working_folder : detached.command.first());
        return result;
    }
    result.value.process_id = started.process_id;
    const auto entry = Look_at_process(started.process_id);
    started_.insert(started.process_id, {started.session, entry ? entry->started : 0});
    return result;
}

bool Linux_Processes::is_running(qint64 process_id) const {
    if (process_id <= 0)
        return false;
    const auto known = started_.constFind(process_id);
    const bool ours = known != started_.constEnd();
    const auto process = Look_at_process(process_id);
    // A number comes round again: the time of its start tells whose it is.
    if (process && !process->ended && (!ours || process->started == known->time))
        return true;
    if (!ours)
        return false;
    for (const qint64 id : All_process_ids()) {
        const auto left = Look_at_process(id);
        if (!left || left->ended || left->session != known->session)
            continue;
        const bool servant =
            std::any_of(std::begin(wine_servants), std::end(wine_servants),
                        [&](const char *name) { return qstricmp(left->short_name.constData(), name) == 0; });
        if (!servant)
            return true;
    }
    return false;
}

int Linux_Processes::processors_of(const QString &process_name) const {
    const qint64 id = process_name.isEmpty() ? ::getpid() : Find_process(process_name);
    cpu_set_t set;
    CPU_ZERO(&set);
    if (id == 0 || ::sched_getaffinity(static_cast<pid_t>(id), sizeof set, &set) != 0)
        return 0;
    return CPU_COUNT(&set);
}

bool Linux_Processes::set_affinity(const QString &process_name, quint64 mask) {
    const qint64 id = process_name.isEmpty() ? ::getpid() : Find_process(process_name);
    const cpu_set_t set = Cpu_set_of(mask);
    if (id == 0 || ::sched_setaffinity(static_cast<pid_t>(id), sizeof set, &set) != 0)
        return false;
    // The system keeps a mask for each thread; new ones take that of the thread that makes them.
    Folder_Reader threads("/proc/" + QByteArray::number(id) + "/task");
    while (const char *thread = threads.next())
        if (const int number = QByteArray(thread).toInt(); number > 0 && number != id)
            ::sched_setaffinity(number, sizeof set, &set);
    return true;
}

} // namespace

std::unique_ptr<Processes> Make_Linux_Processes(const std::shared_ptr<const Path_Map> &paths,
                                                const QString &runner,
                                                std::unique_ptr<Settings_Store> settings) {
    return std::make_unique<Linux_Processes>(paths, runner, std::move(settings));
}

} // namespace vantrosk
