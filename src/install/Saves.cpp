#include "install/Saves.h"

#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/Do_Install.h"
#include "install/Install_Paths.h"
#include "install/Recover_Log.h"
#include "install/Saves_Archive.h"
#include "install/Saves_Layout.h"
#include "zip/mUnzip.h"
#include "zip/mZip.h"

#include <QSet>

#include <algorithm>

namespace vantrosk {

namespace {

constexpr int light_ready = 1, light_working = 2;
/// Doom 3's own saves are kept but never brought back: their archive only grows.
constexpr const char *growing_archive = "Original_DOOM3.zip";
constexpr qint64 largest_save = 256 * 1024 * 1024;

/// One leaving mission's saves on their way into the archive.
struct Packing {
    Program &program;
    Save_Layout layout;
    QString zip_name;
    QString archive; ///< the name in use
    std::vector<Save_File> saves;
    QSet<QString> archived; ///< upper-case paths that the archive was read back to hold
    QStringList emptied;    ///< folders that a save was taken from
    bool grows = false;
    bool all_gone = true;  ///< no archived save was left live
    bool all_safe = false; ///< no save was left live without an archive
};

bool Has_saves(const std::vector<Save_File> &saves) {
    return std::any_of(saves.begin(), saves.end(), [](const Save_File &save) { return !save.stays; });
}

/// Whether the archive has a live save's name with other bytes in it.
bool Differs_from_live(Program &program, const QString &archive, const QString &save_folder) {
    cUnzip zip(program.files);
    zip.ZipFile = archive;
    if (zip.Directory())
        return true;
    for (int i = 1; i <= zip.FileCount(); ++i) {
        const QString live = Join_path(Join_path(save_folder, zip.FileDirectory(i)), zip.Filename(i));
        if (!FileExists(program, live))
            continue;
        const auto packed = zip.Read_entry(i, largest_save);
        const auto present = program.files.read_file(live, largest_save);
        if (!packed.ok() || !present.ok() || packed.value != present.value)
            return true;
    }
    return false;
}

/// A growing archive loses nothing: the state with the older save of a name is kept under today's date.
void Keep_dated_copy(Packing &packing) {
    if (!FileExists(packing.program, packing.archive) ||
        !Differs_from_live(packing.program, packing.archive, packing.layout.save_folder))
        return;
    const QString stamp = packing.program.clock.now().toString("yyyyMMdd_HHmmss");
    QString copy;
    for (int number = 1; copy.isEmpty() || FileExists(packing.program, copy); ++number)
        copy = packing.archive.chopped(4) + "_" + stamp + (number == 1 ? "" : QString("_%1").arg(number)) +
               ".zip";
    if (const Fault fault = packing.program.files.copy_file(packing.archive, copy)) {
        Trace_fault(packing.program, fault);
        Trace_fault(packing.program, packing.program.files.move_file(packing.archive, copy));
    }
}

/// Puts what only the archive has beside the live saves, so that the new archive holds both.
void Bring_back_archived(Packing &packing) {
    const auto archive = Find_save_archive(packing.program, packing.layout.backup_folder, packing.zip_name);
    if (!archive)
        return;
    cUnzip zip(packing.program.files);
    zip.ZipFile = *archive;
    zip.UnzipFolder = packing.layout.save_folder;
    zip.UseFolderNames = true;
    zip.OverwriteExisting = false;
    Trace_fault(packing.program, zip.Unzip());
    packing.saves = Live_saves(packing.program, packing.layout);
}

/// Whether the standing archive holds a name that the new one lacks, or can not tell.
bool Would_lose_a_save(Packing &packing) {
    const auto names = Archive_names(packing.program, packing.archive);
    if (!names)
        return true;
    QSet<QString> packed;
    for (const Save_File &save : packing.saves)
        packed.insert(save.relative.toUpper());
    return std::any_of(names->begin(), names->end(),
                       [&](const QString &name) { return !packed.contains(name); });
}

/// A save that can not be read does not keep the others from their archive.
void Pass_over_unreadable(Packing &packing, std::vector<Save_File> &saves) {
    std::erase_if(saves, [&](const Save_File &save) {
        const auto start = packing.program.files.read_start(save.path, 1);
        Trace_fault(packing.program, start.fault);
        return !start.ok();
    });
}

Fault Write_archive_of(Packing &packing, const QString &file, const std::vector<Save_File> &saves) {
    cZip zip(packing.program.files);
    zip.ZipFile = file;
    zip.BasePath = packing.layout.save_folder + "\\";
    zip.Comment = packing.zip_name;
    zip.ClearFileSpecs();
    for (const Save_File &save : saves)
        zip.AddFileSpec(save.path);
    zip.StoreFolderNames = true;
    zip.RecurseSubDirs = true;
    if (const Fault fault = zip.Zip())
        return fault;
    for (const QString &path : zip.Zipped_files())
        packing.archived.insert(Tidy_path(path).toUpper());
    return {};
}

Fault Write_archive(Packing &packing, const QString &file) {
    const Fault fault = Write_archive_of(packing, file, packing.saves);
    if (!fault)
        return fault;
    std::vector<Save_File> readable = packing.saves;
    Pass_over_unreadable(packing, readable);
    if (readable.size() == packing.saves.size() || !Has_saves(readable))
        return fault;
    return Write_archive_of(packing, file, readable);
}

constexpr const char *new_extension = ".fresh";

/// What a kill between two renames left: a whole archive that was not yet called by its name.
void Settle_new_archive(Packing &packing) {
    const QString fresh = packing.archive + new_extension;
    if (!FileExists(packing.program, fresh))
        return;
    if (FileExists(packing.program, packing.archive))
        Trace_fault(packing.program, packing.program.files.remove_file(fresh));
    else
        Trace_fault(packing.program, packing.program.files.move_file(fresh, packing.archive));
}

/// The new archive in the place of the old, which stays beside when it is worth keeping.
Fault Replace_archive(Packing &packing, Save_Packing mode) {
    Files &files = packing.program.files;
    const bool keep_old = FileExists(packing.program, packing.archive) &&
                          (mode == Save_Packing::merge || Would_lose_a_save(packing));
    if (!keep_old)
        return Write_archive(packing, packing.archive);
    const QString fresh = packing.archive + new_extension;
    if (const Fault fault = Write_archive(packing, fresh))
        return fault;
    Fault fault;
    if (!Move_archive_aside(packing.program, packing.archive, !packing.grows))
        fault = {Fault_Kind::other, "\"" + packing.archive + "\" can not be moved aside."};
    else
        fault = files.move_file(fresh, packing.archive);
    if (fault) {
        packing.archived.clear();
        (void)files.remove_file(fresh);
    }
    return fault;
}

/// Older archive names come first in the search; once the new one stands they must not hide it.
void Retire_older_archives(Packing &packing) {
    for (const QString &path : Save_archive_paths(packing.layout.backup_folder, packing.zip_name))
        if (!Is_same_path(path, packing.archive) && FileExists(packing.program, path))
            Move_archive_aside(packing.program, path);
}

void Archive_saves(Packing &packing, Save_Packing mode) {
    Program &program = packing.program;
    Make_way_for_archive(program, packing.archive, packing.zip_name);
    if (packing.grows)
        Keep_dated_copy(packing);
    if (mode == Save_Packing::merge || packing.grows)
        Bring_back_archived(packing);
    if (packing.layout.kind == Save_Kind::profiles)
        for (const Save_File &save : packing.saves)
            Recover_log(program, "//Zipping File [" + save.path + "]");
    const Fault fault = Replace_archive(packing, mode);
    if (fault) {
        Trace_fault(program, fault);
        debug_print(program, "ERROR Zip File Not Created.");
        return;
    }
    Retire_older_archives(packing);
}

/// A free name below "allsaves\unsaved"; nothing there is ever replaced.
QString Unsaved_place(const Packing &packing, const QString &relative) {
    const QString wanted = Join_path(packing.layout.unsaved_folder, relative);
    const qsizetype dot =
        wanted.lastIndexOf('.') > wanted.lastIndexOf('\\') ? wanted.lastIndexOf('.') : wanted.size();
    QString place = wanted;
    for (int number = 2; packing.program.files.look(place); ++number)
        place = wanted.left(dot) + QString(" (%1)").arg(number) + wanted.mid(dot);
    return place;
}

bool Move_to_unsaved(Packing &packing, const Save_File &save) {
    Program &program = packing.program;
    const QString place = Unsaved_place(packing, save.relative);
    Fault fault = program.files.make_folder(Parent_path(place));
    if (!fault)
        fault = program.files.move_file(save.path, place);
    Trace_fault(program, fault);
    if (!fault)
        debug_print(program, "MAIN FORM: \"" + save.path + "\" was not archived, moved to \"" + place + "\"");
    return !fault;
}

/// The folder of a save, logged before its first file goes.
void Enter_folder(Packing &packing, const Save_File &save) {
    const QString folder = Parent_path(save.path);
    if (packing.emptied.contains(folder))
        return;
    packing.emptied << folder;
    if (packing.layout.kind == Save_Kind::profiles && !Is_same_path(folder, packing.layout.save_folder))
        Recover_log(packing.program, "//" + folder);
}

bool Take_save_away(Packing &packing, const Save_File &save) {
    Enter_folder(packing, save);
    if (packing.layout.kind == Save_Kind::profiles)
        Recover_log(packing.program, "//" + save.path);
    if (!packing.archived.contains(Tidy_path(save.path).toUpper()))
        return Move_to_unsaved(packing, save);
    const Fault fault = DeleteFileForced(packing.program, save.path);
    Trace_fault(packing.program, fault);
    packing.all_gone = packing.all_gone && !fault;
    return true;
}

/// Thief 3: a save's folder goes when nothing is left in it.
void Remove_profile_folders(Packing &packing) {
    for (const QString &folder : packing.emptied) {
        const bool is_save_root = Is_same_path(folder, packing.layout.save_folder) ||
                                  Is_same_path(FileNameFromPath(folder), "SAVEGAMES");
        const auto left = packing.program.files.list_folder(folder);
        if (!is_save_root && left.ok() && left.value.empty())
            Trace_fault(packing.program, packing.program.files.remove_folder(folder));
    }
}

/// A custom game: a folder two deep goes when no file is left in it.
void Remove_custom_folders(Packing &packing) {
    const Program &program = packing.program;
    const auto folders_of = [&](const QString &folder) {
        QStringList folders;
        for (const File_Info &entry : program.files.list_folder(folder).value)
            if (entry.is_folder && !entry.is_link)
                folders << Join_path(folder, entry.name);
        return folders;
    };
    for (const QString &outer : folders_of(packing.layout.save_folder))
        for (const QString &inner : folders_of(outer)) {
            const auto left = program.files.list_folder(inner);
            if (left.ok() && left.value.empty())
                Trace_fault(packing.program, packing.program.files.remove_folder(inner));
        }
}

/// System Shock 2: a save is a folder. One that can not go is told, after all the others went.
void Remove_shock_folders(Packing &packing) {
    bool all_gone = true;
    for (const QString &folder : Shock_save_folders(packing.layout)) {
        if (!FolderExists(packing.program, folder))
            continue;
        const bool empty = EmptyFolderTree(packing.program, folder);
        const Fault fault = packing.program.files.remove_folder(folder);
        Trace_fault(packing.program, fault);
        all_gone = all_gone && empty && !fault;
    }
    if (!all_gone)
        throw Program_Error(75, "Path/File access error");
}

void Take_saves_away(Packing &packing) {
    Recover_log(packing.program, "//NOW DELETING SAVES");
    bool all_safe = true;
    for (const Save_File &save : packing.saves)
        if (!save.stays)
            all_safe = Take_save_away(packing, save) && all_safe;
    packing.all_safe = all_safe;
    if (packing.layout.kind == Save_Kind::profiles)
        Remove_profile_folders(packing);
    if (packing.layout.kind == Save_Kind::shock_folders)
        Remove_shock_folders(packing);
    if (packing.layout.kind == Save_Kind::listed_files)
        Remove_custom_folders(packing);
    // Archived, so nothing is lost, but the next mission would see them: the user is told.
    if (!packing.all_gone)
        throw Program_Error(75, "Path/File access error");
}

void Log_packing(Packing &packing) {
    Recover_log(packing.program, {"//Zipping FROM [" + packing.layout.save_folder + "]",
                                  "//Zip file name [\\" + Saves_archive_name(packing.zip_name) + "]",
                                  "//Zipping TO [" + packing.layout.backup_folder + "]",
                                  "//Using File extentions [" + packing.layout.filter + "]"});
}

} // namespace

bool Zip_up_saves(Program &program, const QString &game_code, const QString &zip_name,
                  const QString &game_path, Save_Packing mode) {
    Packing packing{program, Save_layout_of(program, game_code, game_path), zip_name, {}, {}, {}, {}};
    if (packing.layout.kind == Save_Kind::none) {
        debug_print(program, "MAIN FORM: the save folder of \"" + game_code + "\" is not known");
        return true;
    }
    Set_Status_Light(program, light_working);
    With_error_box(program, "Zip_up_saves", "Form frmMain", [&] {
        const bool can_archive = !packing.layout.backup_folder.isEmpty();
        if (can_archive)
            CreateFolderTree(program, packing.layout.backup_folder);
        Log_packing(packing);
        packing.archive = Join_path(packing.layout.backup_folder, Saves_archive_name(zip_name));
        packing.grows = zip_name == growing_archive;
        if (can_archive)
            Settle_new_archive(packing);
        packing.saves = Live_saves(program, packing.layout);
        if (!Has_saves(packing.saves))
            packing.saves.clear();
        else if (can_archive)
            Archive_saves(packing, mode);
        Take_saves_away(packing);
    });
    Set_Status_Light(program, light_ready);
    return packing.all_safe;
}

bool Unzip_saves(Program &program, const QString &game_code, const QString &zip_name,
                 const QString &game_path, bool keep_live) {
    const Save_Layout layout = Save_layout_of(program, game_code, game_path);
    if (layout.kind == Save_Kind::none) {
        debug_print(program, "MAIN FORM: the save folder of \"" + game_code + "\" is not known");
        return true;
    }
    Set_Status_Light(program, light_working);
    const bool done = With_error_box(program, "Unzip_saves", "Form frmMain", [&] {
        const auto archive = Find_save_archive(program, layout.backup_folder, zip_name);
        if (!archive)
            return;
        cUnzip zip(program.files);
        zip.ZipFile = *archive;
        zip.UnzipFolder = layout.save_folder;
        zip.UseFolderNames = true;
        zip.OverwriteExisting = !keep_live;
        if (const Fault fault = zip.Unzip())
            throw Program_Error(fault.number, fault.text);
    });
    Set_Status_Light(program, light_ready);
    return done;
}

} // namespace vantrosk
