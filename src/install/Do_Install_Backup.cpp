#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/Install_Paths.h"
#include "install/Install_Run.h"
#include "install/Recover_Log.h"
#include "zip/mUnzip.h"
#include "zip/mZip.h"

namespace vantrosk {

namespace {

QString Target_of(const cUnzip &zip, int i) {
    return Join_path(Join_path(zip.UnzipFolder, zip.FileDirectory(i)), zip.Filename(i));
}

/// What a run that stops at the first bad entry leaves out, one by one.
Fault Unzip_each(cUnzip &zip) {
    Fault first;
    const int count = zip.FileCount();
    for (int chosen = 1; chosen <= count; ++chosen) {
        for (int i = 1; i <= count; ++i)
            zip.FileSelected(i, i == chosen);
        const Fault fault = zip.Unzip();
        if (fault && !first)
            first = fault;
    }
    return first;
}

/// The game's own files must all be back before their only copy may go.
Fault Check_restored(const Program &program, const cUnzip &zip) {
    for (int i = 1; i <= zip.FileCount(); ++i) {
        const auto look = program.files.look(Target_of(zip, i));
        if (!look || look->is_folder || look->size != zip.FileSize(i))
            return {Fault_Kind::damaged, "\"" + Target_of(zip, i) + "\" could not be restored."};
    }
    return {};
}

Fault Unzip_backup(Install_Run &run, const QString &backup, const QString &folder) {
    cUnzip zip(run.program.files);
    zip.UnzipFolder = folder;
    zip.ZipFile = backup;
    if (Fault fault = zip.Directory())
        return fault;
    zip.UseFolderNames = true;
    Show_Progress(run.program, 1, qMax(1, zip.FileCount()));
    int done = 0;
    zip.Progress = [&](const QString &entry) {
        Show_Progress(run.program, ++done, qMax(1, zip.FileCount()));
        Show_file(run, entry);
    };
    if (zip.Unzip())
        if (Fault fault = Unzip_each(zip))
            return fault;
    return Check_restored(run.program, zip);
}

/// From here on the list would name the game's own files; the marker names none.
Fault Retire_list(Install_Run &run) {
    if (!run.previous || run.previous->is_original())
        return {};
    return WriteOriginalMarker(run.program, run.program.CURRENT_GAME_PATH);
}

/// The base folders that a backup may lie in.
QStringList Backup_folders(const Install_Run &run) {
    QStringList folders{run.leaving.base.folder};
    if (!Is_same_path(run.base.folder, run.leaving.base.folder))
        folders << run.base.folder;
    return folders;
}

/// The path as it is spelled on disk, so that the file comes back under its own name and not the mission's.
QString Spelled_as_on_disk(const Install_Run &run, const QString &path) {
    const Files &files = run.program.files;
    const QString base = Tidy_path(files.to_windows(files.to_native(run.base.folder)));
    const QString spelled = Tidy_path(files.to_windows(files.to_native(path)));
    return Is_below(spelled, base) ? Join_path(run.base.folder, Relative_to(spelled, base)) : path;
}

QStringList Existing_targets(Install_Run &run) {
    QStringList existing;
    const auto add = [&](const QString &path, const QString &line) {
        Show_file(run, "Backup " + line + " ?");
        if (!FileExists(run.program, path))
            return;
        existing << Spelled_as_on_disk(run, path);
        Recover_log(run.program, "//" + line);
    };
    for (const QString &line : run.plan.lines)
        add(run.base.path_of(line), line);
    for (const QString &path : run.plan.unrecorded)
        add(path, path);
    return existing;
}

Fault Zip_originals(Install_Run &run, const QStringList &files) {
    Program &program = run.program;
    cZip zip(program.files);
    zip.ZipFile = Join_path(run.base.folder, backup_name);
    zip.BasePath = run.base.folder;
    zip.ClearFileSpecs();
    Recover_log(program, "//Backing up " + QString::number(files.size() - 1));
    for (const QString &file : files) {
        zip.AddFileSpec(file);
        Show_file(run, "Adding " + file);
    }
    zip.StoreFolderNames = true;
    Show_step(run, "Zipping now");
    Short_pause(run);
    if (Fault fault = zip.Zip())
        return fault;
    Show_step(run, "Zip complete");
    return {};
}

} // namespace

bool Restore_game_files(Install_Run &run) {
    Program &program = run.program;
    Recover_log(program,
                {"//STEPS TO FIX = previous FM removed, saves zipped up. 1) Current_install.txt needs to "
                 "be deleted, 2) original_backup.zip (if exists) needs to be restored. This will restore "
                 "to a clean install.",
                 "[UNZIPPING_BACKUP_FILES]"});
    QStringList backups;
    for (const QString &folder : Backup_folders(run)) {
        const QString backup = Join_path(folder, backup_name);
        if (!FileExists(program, backup))
            continue;
        Recover_log(program, "//Backup files found so unzipping");
        backups << backup;
        run.fault = Unzip_backup(run, backup, folder);
        if (run.fault)
            return false;
    }
    if (backups.isEmpty())
        Recover_log(program, "//No backup files found");
    run.fault = Retire_list(run);
    if (run.fault)
        return false;
    for (const QString &backup : backups) {
        run.fault = DeleteFileForced(program, backup);
        if (run.fault)
            return false;
    }
    return true;
}

Fault Back_up_game_files(Install_Run &run) {
    Program &program = run.program;
    Recover_log(program, {"//Scaning the game path to determine what to backup",
                          "//STEPS TO FIX = 1) delete the current_install.txt to restore to a clean install",
                          "[CHECKING_FILES_TO_BACKUP]"});
    Short_pause(run);
    Show_step(run, "Determining what files to backup");
    const QStringList files = Existing_targets(run);
    if (files.isEmpty())
        return {};
    Recover_log(program, {"//Backing up Game files that may be overwritten",
                          "//STEPS TO FIX = 1) delete the current_install.txt to restore to a clean install",
                          "[BACKING_UP_GAME_FILES]"});
    Short_pause(run);
    Show_step(run, "Backing up Original files");
    return Zip_originals(run, files);
}

} // namespace vantrosk
