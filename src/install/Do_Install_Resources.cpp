#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "install/Install_Paths.h"
#include "install/Install_Run.h"
#include "install/Recover_Log.h"

namespace vantrosk {

namespace {

/// Turns a Thief 3 ".CBT" file into the ".IBT" file that the game reads, with a ".log" beside it. The format
/// is closed and there is no program for it here.
Fault RebuildIBT(const QString &file_name, const QString &folder) {
    return {Fault_Kind::not_available,
            "\"" + file_name + "\" in \"" + folder + "\" can not be repackaged: not available."};
}

/// The names that a repackaged file would have go into the list: a user who repackages by hand gets rid of
/// them with the mission. The game's own files of these names are in the backup.
void List_repackaged_files(Install_Run &run) {
    QStringList lines;
    for (const QString &line : run.list.files) {
        lines << line;
        const bool is_resource = run.plan.resources.contains(line.trimmed(), Qt::CaseInsensitive);
        if (line.contains(".CBT", Qt::CaseInsensitive) && is_resource)
            lines << QString(line).replace(".CBT", ".IBT", Qt::CaseInsensitive);
    }
    for (const QString &resource : run.plan.resources)
        lines << QString(resource).replace(".CBT", ".log", Qt::CaseInsensitive);
    run.list.files = lines;
    Trace_fault(run.program, Save_list(run));
}

} // namespace

void Repackage_resources(Install_Run &run) {
    Program &program = run.program;
    Recover_log(program,
                {"//Repackaging IBT files for T3",
                 "//STEPS TO FIX = FM has been fully installed. Nothing needs to be done (at least until "
                 "IBT file repackaging is possible)",
                 "[REPACKAGE_IBT]"});
    if (run.plan.resources.isEmpty())
        return;
    for (const QString &resource : run.plan.resources) {
        const Fault fault = RebuildIBT(FileNameFromPath(resource), Parent_path(run.base.path_of(resource)));
        if (!fault)
            continue;
        Trace_fault(program, fault);
        Recover_log(program, "//" + fault.text);
    }
    List_repackaged_files(run);
}

} // namespace vantrosk
