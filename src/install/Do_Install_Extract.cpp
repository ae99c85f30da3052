#include "core/Program.h"
#include "core/mdlDB_Functions.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/Install_Paths.h"
#include "install/Install_Run.h"
#include "install/Recover_Log.h"
#include "zip/mUnzip.h"

namespace vantrosk {

namespace {

QString Zip_path(const Install_Run &run) {
    return Join_path(Tidy_path(run.program.CURRENT_LOCATION), run.zip_name);
}

/// A list without contents: nothing of the mission is in the folder yet, but it says what is coming.
Fault Announce_mission(Install_Run &run) {
    run.list.location = Zip_path(run);
    run.list.zip_name = run.zip_name;
    run.list.files.clear();
    return Save_list(run);
}

/// Doom 3 missions may name the base folder in their entries.
bool Names_base_folder(const cUnzip &zip, int i) {
    return Is_same_path(zip.FileDirectory(i).section('\\', 0, 0), "base");
}

Fault Unzip_selected(Install_Run &run, cUnzip &zip) {
    if (run.program.CURRENT_GAME != "DOOM" || run.program.SELECTED_GAME_TAB == "CUSTOM")
        return zip.Unzip();
    std::vector<bool> selected;
    for (int i = 1; i <= zip.FileCount(); ++i)
        selected.push_back(zip.FileSelected(i));
    for (const bool with_base : {false, true}) {
        for (int i = 1; i <= zip.FileCount(); ++i)
            zip.FileSelected(i, selected[static_cast<std::size_t>(i) - 1] &&
                                    Names_base_folder(zip, i) == with_base);
        zip.UnzipFolder = with_base ? Parent_path(run.base.folder) : run.base.folder;
        if (Fault fault = zip.Unzip())
            return fault;
    }
    return {};
}

int Count_selected(const cUnzip &zip) {
    int count = 0;
    for (int i = 1; i <= zip.FileCount(); ++i)
        count += zip.FileSelected(i) ? 1 : 0;
    return count;
}

Fault Unzip_mission(Install_Run &run) {
    cUnzip &zip = *run.zip;
    zip.UseFolderNames = true;
    zip.OverwriteExisting = true;
    const int count = qMax(1, Count_selected(zip));
    int done = 0;
    zip.Progress = [&](const QString &entry) {
        Show_Progress(run.program, ++done, count);
        Show_file(run, entry);
    };
    Fault fault = Unzip_selected(run, zip);
    zip.Progress = {};
    zip.Close();
    return fault;
}

QString Map_page(const Program &program) {
    return Join_path(program.paths.AppPath, "page001.pcx");
}

Fault Copy_map_pages(Install_Run &run) {
    Program &program = run.program;
    if (!Wants_map_pages(run))
        return {};
    for (const QString &mission : run.plan.missions) {
        const QString relative = "Intrface\\" + QString(mission).replace(".mis", "", Qt::CaseInsensitive);
        if (!FolderExists(program, Join_path(run.base.folder, relative)))
            continue;
        run.list.files << Join_path(run.base.listed, relative + "\\page000.pcx");
        if (Fault fault = Save_list(run))
            return fault;
        if (Fault fault = program.files.copy_file(Map_page(program), run.base.path_of(run.list.files.last())))
            return fault;
    }
    return {};
}

} // namespace

bool Wants_map_pages(const Install_Run &run) {
    return run.program.CURRENT_GAME == "T1" && !run.plan.has_map_pages &&
           FileExists(run.program, Map_page(run.program));
}

/// The list gets its contents only when the backup stands: a list that names game files without a copy would
/// have them deleted by the next run.
Fault Plan_and_back_up(Install_Run &run) {
    Program &program = run.program;
    Recover_log(program,
                {"//Opening FM zip file and writting to the current_install.txt what files will be extracted",
                 "//STEPS TO FIX = 1) delete the current_install.txt to restore to a clean install",
                 "[BUILDING_INSTALL_LIST]"});
    Short_pause(run);
    if (Fault fault = Announce_mission(run))
        return fault;
    run.zip = std::make_shared<cUnzip>(program.files);
    run.zip->ZipFile = Zip_path(run);
    run.zip->UnzipFolder = run.base.folder;
    if (Fault fault = run.zip->Directory())
        return fault;
    Show_Progress(program, 1, qMax(1, run.zip->FileCount()));
    Decide_entries(run, *run.zip);
    return Back_up_game_files(run);
}

Fault Extract_mission(Install_Run &run) {
    Program &program = run.program;
    Recover_log(program,
                {"//Unzipping FM",
                 "//STEPS TO FIX = 1) delete the current_install.txt, 2) unzip the original_backup.zip "
                 "file to restore to a clean install. NOTE: some files may have been unzipped, these need "
                 "to be checked against the current_install.log",
                 "[UNZIPPING_FM]"});
    Short_pause(run);
    Show_step(run, "Unzipping FM");
    run.list.files = run.plan.lines;
    if (Fault fault = Save_list(run))
        return fault;
    Fault fault = Unzip_mission(run);
    if (!fault) {
        Show_step(run, "FM installed");
        fault = Copy_map_pages(run);
    }
    return fault;
}

void Mark_installed(Install_Run &run) {
    Program &program = run.program;
    Recover_log(program,
                {"//Updating Database",
                 "//STEPS TO FIX = FM has been installed, however MP3 Files have not been converted and "
                 "FM saves games have not been unzipped, installing Original Missions will resolve.",
                 "[UPDATING_DATABASE]"});
    Short_pause(run);
    QStringList codes{program.CURRENT_GAME};
    if (Is_doom_or_dark_mod(program.CURRENT_GAME))
        codes << (program.CURRENT_GAME == "DOOM" ? "DMOD" : "DOOM");
    for (const QString &code : codes)
        Update_installed(run, "UPDATE Table_Scores SET installed = 1 WHERE zip_name = " +
                                  In_double_quotes(run.zip_name) + " and game =" + In_single_quotes(code));
    Set_ready_cell(program, run.zip_name, "Yes");
}

} // namespace vantrosk
