#include "core/mdlFunctions.h"

#include "core/Program.h"

namespace vantrosk {

namespace {

constexpr const char *version_value =
    "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\CurrentVersion";
constexpr int milliseconds_between_attempts = 1000;
constexpr int milliseconds_before_second_try = 500;
constexpr int milliseconds_between_looks = 20;

struct Version_Name {
    const char *number, *name;
};

constexpr Version_Name version_names[] = {{"5.0", "WIN2000"}, {"5.1", "WINXP"}, {"6.0", "VISTA"}};

/// Leaves a line about it beside the program, because a process on one processor is not what users expect.
bool Force_one_processor(Program &program, const QString &process_name) {
    debug_print(program, "FUNCTIONS: Cores_Running_on forcing to run on 1 core");
    const QString number = program.platform.registry->read(version_value).value_or(QString());
    const QString line = "Affinity set as windows version is " + number + "\r\n";
    if (const Fault fault =
            program.files.append_file(program.paths.AppPath + "\\Affinity.log", line.toUtf8()))
        debug_print(program, "FUNCTIONS: Error In Cores_Running_on : (" + QString::number(fault.number) +
                                 ") " + fault.text);
    if (Set_Affinity(program, process_name, 1))
        return true;
    program.clock.sleep(milliseconds_before_second_try);
    return Set_Affinity(program, process_name, 1);
}

} // namespace

QString Windows_Version(const Program &program) {
    const auto number = program.platform.registry->read(version_value);
    for (const Version_Name &version : version_names) {
        if (number == QLatin1String(version.number))
            return version.name;
    }
    return "OTHER";
}

QString CreateGUID() {
    return Create_guid_text();
}

int Cores_Running_on(Program &program, const QString &process_name, int retries, bool force) {
    debug_print(program, "FUNCTIONS: Starting Cores_Running_on ");
    int count = program.platform.processes->processors_of(process_name);
    for (int attempt = 1; count == 0 && attempt < retries; ++attempt) {
        program.clock.sleep(milliseconds_between_attempts);
        count = program.platform.processes->processors_of(process_name);
    }
    if (debug_enabled(program))
        debug_print(
            program,
            QString("FUNCTIONS: Cores_Running_on %1 found %2 processors").arg(process_name).arg(count));
    if (!force || count < 2)
        return count;
    if (Windows_Version(program) == QLatin1String("WINXP") && Force_one_processor(program, process_name))
        return 1;
    return count;
}

Fault ShellAndWait(Program &program, const QString &exe, const QString &arguments, const QString &folder) {
    const Result<Start_Result> started = program.platform.processes->start({exe, arguments, folder});
    if (!started.ok())
        return started.fault;
    while (program.platform.processes->is_running(started.value.process_id)) {
        program.ui.pump_events();
        program.clock.sleep(milliseconds_between_looks);
    }
    return {};
}

bool Set_Affinity(Program &program, const QString &process_name, quint64 mask) {
    if (program.platform.processes->set_affinity(process_name, mask))
        return true;
    debug_print(program, "FUNCTIONS: Set_Affinity failed for " + process_name);
    return false;
}

} // namespace vantrosk
