#include "core/Program.h"
#include "core/Startup_Steps.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "core/mdlStartup.h"

#include <cmath>
#include <limits>

namespace vantrosk {

namespace {

constexpr int first_start = 1, normal_start = 2;
constexpr int states_that_start = 9; ///< from here on nothing is loaded
constexpr int component_not_registered = 339;
constexpr int most_registrations = 5;

constexpr const char *no_sound_library =
    "BASS.DLL does not exists, this should be located in the same folder as Vantrosk is.";
constexpr const char *old_sound_library =
    "BASS version 2.1 was not loaded, you appear to have an outdated bass.dll file";
constexpr const char *no_sound_device =
    "Can't initialize sound device, please make sure nothing else is using "
    "your sound card and that you have one installed.";
constexpr const char *no_scripting = "Vantrosk can not load due to a missing file 'scrrun.dll' on your PC, "
                                     "please make sure you have installed "
                                     "the full install of Vantrosk";
constexpr const char *not_registered = "Vantrosk has tried to register several files on your PC without "
                                       "complete success, it is likely thes files "
                                       "do not exist.\nPlease verify that you have installed the Full "
                                       "Install rather than the Upgrade of Vantrosk";

bool Make_program_folder(Program &program) {
    const Fault fault = program.files.make_folder(program.paths.AppPath);
    if (!fault)
        return true;
    Show_Critical(program, "Vantrosk", "The folder of Vantrosk can not be used: " + fault.text);
    return false;
}

QString Check_file(const Program &program) {
    return program.paths.AppPath + "\\debug_check.log";
}

/// A second line that is no number tells as little as a file that is missing.
int Read_start_state(const Program &program) {
    const QStringList lines = Read_text_lines(program, Check_file(program));
    if (lines.value(0) != QLatin1String(build_number))
        return first_start;
    bool is_number = false;
    const double number = lines.value(1).trimmed().toDouble(&is_number);
    if (!is_number || std::isnan(number))
        return first_start;
    constexpr double lowest = std::numeric_limits<int>::min();
    return static_cast<int>(qBound(lowest, std::floor(number), double(states_that_start)));
}

void Write_start_state(Program &program) {
    const QStringList lines{build_number, QString::number(program.start.number)};
    if (const Fault fault = Write_text_lines(program, Check_file(program), lines))
        debug_print(program, "STARTUP: debug_check.log not written: " + fault.text);
}

/// Registers the component that an error text names between single quotes.
void Register_component(Program &program, const QString &error_text) {
    const QString file = error_text.section(QLatin1Char('\''), 1, 1);
    const auto started = program.platform.processes->start({"Regsvr32", file, program.paths.AppPath});
    if (!started.ok())
        debug_print(program, "STARTUP: " + file + " not registered: " + started.fault.text);
}

bool Load_and_register(Program &program, const std::function<bool()> &load) {
    for (int registrations = 0;; ++registrations) {
        try {
            return load();
        } catch (const Program_Error &error) {
            if (error.number() != component_not_registered) {
                Show_Critical(
                    program, "Vantrosk",
                    QString("Unhandled error number %1:- %2").arg(error.number()).arg(error.description()));
                return false;
            }
            if (registrations == most_registrations) {
                Show_Critical(program, "Vantrosk", not_registered);
                return false;
            }
            Register_component(program, error.description());
        }
    }
}

bool Load_plainly(Program &program, const std::function<bool()> &load) {
    bool loaded = false;
    With_error_box(program, "Main", "Module mdlStartup", [&] { loaded = load(); });
    return loaded;
}

} // namespace

bool Start_Process(Program &program, const std::function<bool()> &load) {
    if (!Make_program_folder(program))
        return false;
    if (!program.audio->present()) {
        Show_Critical(program, "BASS.DLL", no_sound_library);
        return false;
    }
    int &state = program.start.number;
    state = Read_start_state(program);
    if (state < first_start)
        Show_Warning(program, "Vantrosk", no_scripting);
    const bool is_first = state == first_start;
    if (is_first) {
        if (!Load_and_register(program, load))
            return false;
        state = normal_start;
    }
    if (state >= states_that_start)
        return false;
    Write_start_state(program);
    return is_first || Load_plainly(program, load);
}

bool Check_Audio_Library(Program &program) {
    const QString version = program.audio->version();
    if (version != QLatin1String("2.1") && !version.startsWith(QLatin1String("2.1."))) {
        Show_Critical(program, "Incorrect BASS.DLL", old_sound_library);
        return false;
    }
    const auto device = program.audio->device();
    if (!device.ok()) {
        debug_print(program, "STARTUP: sound device: " + device.fault.text);
        Show_Critical(program, "Vantrosk", no_sound_device);
        return false;
    }
    return true;
}

bool Hand_Over_To_Patch(Program &program) {
    const QString marker = program.paths.AppPath + "\\patchrequired";
    const QString folder = program.paths.temp + "updates";
    const QString patch = folder + "\\VKPatch.exe";
    if (!FileExists(program, marker) || !FileExists(program, patch))
        return true;
    const auto started = program.platform.processes->start({patch, {}, folder});
    if (!started.ok()) {
        // The marker stays: the update is still due.
        debug_print(program, "STARTUP: VKPatch.exe not started: " + started.fault.text);
        return true;
    }
    if (const Fault fault = DeleteFileForced(program, marker))
        debug_print(program, "STARTUP: patchrequired not deleted: " + fault.text);
    return false;
}

} // namespace vantrosk
