#include "audio/Wave.h"
#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/Install_Run.h"
#include "install/Recover_Log.h"

namespace vantrosk {

namespace {

/// Whether to go on with the other files.
bool Ask_about_unreadable(Install_Run &run, const QString &file) {
    return Ask_Yes_No(
        run.program, "",
        "Can't convert " + file +
            " into a WAV file, it is unreadable.Continue with other OGG/MP3 conversions?Caution "
            "continuing or not may cause some sounds not to play in game, but the FM will still be "
            "installed.");
}

Fault Convert(Install_Run &run, const Music_File &music, const QString &file) {
    int shown = -1;
    return Convert_to_wave(run.program.files, music.source, music.target, [&](qint64 done, qint64 total) {
        const int percent = total > 0 ? static_cast<int>(done * 100 / total) : 0;
        if (percent != shown)
            Show_file(run, QString::number(percent) + "% of converting " + file);
        shown = percent;
        return true;
    });
}

} // namespace

void Convert_music(Install_Run &run) {
    Program &program = run.program;
    Recover_log(program,
                {"//Converting MP3 files to WAV files",
                 "//STEPS TO FIX = FM has been installed, however MP3 FIles have not been converted, "
                 "installing Original Missions will resolve.",
                 "[CONVERTING_MP3]"});
    if (run.plan.music.empty())
        return;
    for (const Music_File &music : run.plan.music) {
        const QString file = FileNameFromPath(music.source);
        Show_file(run, file);
        const Fault fault = Convert(run, music, file);
        if (!fault)
            continue;
        Trace_fault(program, fault);
        if (fault.kind == Fault_Kind::damaged && !Ask_about_unreadable(run, file))
            break;
    }
    debug_print(program, "Finished converting MP3s");
}

} // namespace vantrosk
