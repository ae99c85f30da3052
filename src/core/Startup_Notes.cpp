#include "core/Program.h"
#include "core/Startup_Steps.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlStartup.h"

namespace vantrosk {

bool Show_Crash_Evidence(Program &program) {
    const Paths &paths = program.paths;
    if (!FileExists(program, paths.install_recover_log))
        return false;
    // The log of a run that goes on in another session is no evidence of a crash.
    if (program.files.lock_folder(paths.AppPath).fault.kind == Fault_Kind::exists)
        return false;
    if (FileExists(program, paths.debug_log)) {
        // One name per day of the year: a second crash on that day replaces the evidence of the first.
        const QString kept = paths.AppPath + "\\debug_" + program.clock.now().toString("dd_MM") + ".log";
        if (const Fault fault = program.files.move_file(paths.debug_log, kept))
            debug_print(program, "STARTUP: debug log not kept: " + fault.text);
    }
    program.ui.show_notes(paths.install_recover_log);
    return true;
}

void Show_Notes_Of_The_Start(Program &program) {
    for (const QString &notes :
         {program.paths.AppPath + "\\VK_startup_notes.txt", program.paths.runonce_notes}) {
        if (FileExists(program, notes))
            return program.ui.show_notes(notes);
    }
}

void Notes_Closed(Program &program, const QString &path) {
    if (path.compare(program.paths.runonce_notes, Qt::CaseInsensitive) != 0)
        return;
    if (const Fault fault = DeleteFileForced(program, path))
        debug_print(program, "STARTUP: run-once notes not deleted: " + fault.text);
}

void Ask_First_Run_Questions(Program &program) {
    if (!program.first_run)
        return;
    program.start.first_run_mode = true;
    program.ui.set_busy(true);
    Run_Later_Step(program, Later_Step::ask_full_or_lite);
    Run_Later_Step(program, Later_Step::show_settings);
    program.start.first_run_mode = false;
    program.ui.set_busy(false);
}

} // namespace vantrosk
