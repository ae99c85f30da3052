#include "tools/plugin_tools/Video_Codec.h"

#include "core/Program.h"
#include "core/mdlDB_Functions.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "tools/plugin_tools/Plugin_Tools.h"

#include <array>

namespace vantrosk {

namespace {

constexpr const char *codec_file = "\\lgvid.ax";
constexpr const char *batch_line = "regsvr32 /s lgvid.ax";
/// What the batch file calls; a system without it has no codecs to register.
constexpr const char *registering_program = "C:\\windows\\system32\\regsvr32.exe";

/// The games that bring the codec, in the order in which they are looked through.
constexpr std::array<QString Main_Ini::*, 3> game_folders{
    &Main_Ini::T2_GAME_LOCATION, &Main_Ini::T1_GAME_LOCATION, &Main_Ini::TG_GAME_LOCATION};

// Milliseconds before the batch file runs, and until it has run.
constexpr int pause_before = 1000, pause_after_button = 2000, pause_after_launch = 1000;

QString Folder_with_codec(const Program &program) {
    for (const auto folder : game_folders) {
        QString path = program.ini.*folder;
        if (path.endsWith('\\'))
            path.chop(1);
        if (!path.isEmpty() && FileExists(program, path + codec_file))
            return path;
    }
    return {};
}

void Trace(Program &program, const Fault &fault) {
    if (fault)
        debug_print(program, "TOOLS: " + fault.text);
}

/// Writes the batch file, runs it and takes it away again; the pauses come in any case.
bool Register(Program &program, int pause_after) {
    const QString folder = FileExists(program, registering_program) ? Folder_with_codec(program) : QString();
    const QString batch = folder + "\\" + codec_fix_exe;
    Fault fault;
    if (folder.isEmpty())
        debug_print(program, "TOOLS: there is no codec, or nothing to register it with");
    else
        fault = Write_text_lines(program, batch, {batch_line});
    Trace(program, fault);
    program.clock.sleep(pause_before);
    bool started = false;
    if (!folder.isEmpty() && !fault) {
        const Result<Start_Result> start = program.platform.processes->start({batch, {}, folder});
        Trace(program, start.fault);
        started = start.ok();
    }
    program.clock.sleep(pause_after);
    if (!folder.isEmpty())
        Trace(program, DeleteFileForced(program, batch));
    return started;
}

} // namespace

bool Is_codec_fix(const Plugin_Tool &tool) {
    return tool.exe.compare(QLatin1String(codec_file), Qt::CaseInsensitive) == 0 ||
           tool.exe.compare(QLatin1String(codec_fix_exe), Qt::CaseInsensitive) == 0;
}

void Re_Register_Codec(Program &program) {
    if (Register(program, pause_after_button))
        Show_Message(program, "", "Video Codec re-registered");
    else
        Show_Warning(program, "",
                     "The video codec was not re-registered: none of the Thief 2, Thief 1 and Thief Gold "
                     "folders has lgvid.ax, or this system can not register it.");
}

void Fix_codec_at_launch(Program &program) {
    Set_Status_Panel(program, 1, "Running Video Codec Fix");
    Register(program, pause_after_launch);
}

void Set_Codec_Fix_At_Launch(Program &program, bool wanted) {
    db_Execute(program, QString("DELETE FROM Table_Tools WHERE tool_exe = '%1'").arg(codec_fix_exe));
    if (wanted)
        db_Execute(program,
                   QString("INSERT INTO Table_Tools (tool_name,tool_exe,tool_icon, tip_text, added_date, "
                           "exe_checksum, tool_cmd, run_when, display_type) VALUES "
                           "('%1','%2',0,'', now(),'','','T2*T1*TG*SS2*T2X*DM*',1)")
                       .arg(codec_fix_name, codec_fix_exe));
}

} // namespace vantrosk
