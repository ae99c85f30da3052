#include "audio/Wave.h"
#include "core/Program.h"
#include "core/mdlDB_Functions.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/Do_Install.h"
#include "install/Install_Paths.h"
#include "install/Install_Run.h"
#include "install/Recover_Log.h"
#include "zip/mUnzip.h"
#include "zip/mZip.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <array>

namespace vantrosk {

namespace {

/// Folders that a mission brings and that may go when they are empty, by game.
struct Removal_Row {
    const char *games; ///< joined by ","
    const char *folders;
};
constexpr std::array<Removal_Row, 3> removal_rows{{
    {"T1,TG,T2,T2X,DM",
     "bitmap,books,camera,default,editor,fam,intrface,mesh,motions,obj,pal,schema,snd,song,strings,"},
    {"T3", "Fan Mission Extras,"},
    {"SS2", "book,cutscenes,fam,Iface,intrface,mesh,obj,objicon,snd,snd2,song,strings,"},
}};

constexpr const char *nothing_occured = "//STEPS TO FIX = none required, nothing has really occured";

/// Deeper than any game's tree; a tree that loops ends here.
constexpr int deepest_tree = 64;

bool Empty_tree(Program &program, const QString &folder, int depth) {
    const auto listed = program.files.list_folder(folder);
    if (!listed.ok() || depth > deepest_tree)
        return false;
    bool empty = true;
    for (const File_Info &entry : listed.value) {
        const QString inner = Join_path(folder, entry.name);
        // A link leads elsewhere: to the tree it is like a file.
        if (!entry.is_folder || entry.is_link || !Empty_tree(program, inner, depth + 1)) {
            empty = false;
            continue;
        }
        if (const Fault fault = program.files.remove_folder(inner)) {
            Trace_fault(program, fault);
            empty = false;
        }
    }
    return empty;
}

/// The files of one previous mission on their way out.
class Removal {
public:
    explicit Removal(Install_Run &run)
        : run_(run), program_(run.program), base_(run.leaving.base),
          real_base_(Tidy_path(program_.files.real_path(base_.folder))),
          saves_(Save_layout_of(program_, run.leaving.game, program_.CURRENT_GAME_PATH)) {
        if (program_.SELECTED_GAME_TAB == "CUSTOM")
            return;
        for (const Removal_Row &row : removal_rows)
            if (QString(row.games).split(',').contains(run.leaving.game))
                names_ = QString(row.folders).split(',', Qt::SkipEmptyParts);
        found_.resize(names_.size());
    }

    /// False when a file of the list is still there.
    bool delete_files(const QStringList &lines) {
        Recover_log(program_, "[DELETING_FILES]");
        for (const QString &line : lines)
            delete_line(line);
        warn_of_foreign_lines();
        return !run_.fault;
    }

    void delete_only_file(const QString &line) {
        delete_line(line);
        warn_of_foreign_lines();
    }

    void delete_folders() {
        for (const QStringList &folders : found_)
            for (const QString &folder : folders)
                delete_folder(folder);
    }

private:
    void delete_line(const QString &line) {
        const QString path = base_.path_of(line);
        if (!Is_below(path, base_.folder) || leads_outside(path)) {
            foreign_ << line;
            Recover_log(program_, "//Passed over, it is not below the game folder: " + line);
            return;
        }
        if (Is_save_path(saves_, path))
            return;
        QStringList log = note_folders(path);
        Show_file(run_, path);
        if (remove(path))
            log << "//" + path;
        Recover_log(program_, log);
    }

    /// False when the file is still there.
    bool remove(const QString &path) {
        const File_Info *found = look(path);
        if (!found || found->is_folder)
            return true;
        const QString spelled = Join_path(contents_[Parent_path(path)].folder, found->name);
        // Most files are not protected: they go with one call.
        const Fault fault =
            found->read_only || found->is_link ? DeleteFileForced(program_, spelled) : delete_plain(spelled);
        if (fault && !run_.fault)
            run_.fault = fault;
        return !fault;
    }

    Fault delete_plain(const QString &path) {
        const Fault fault = program_.files.remove_file(path);
        return fault && fault.kind != Fault_Kind::not_found ? DeleteFileForced(program_, path) : Fault{};
    }

    /// Each folder is read once: looking thousands of names up in a folder that changes would read it as
    /// often.
    const File_Info *look(const QString &path) {
        const QString folder = Parent_path(path);
        auto known = contents_.find(folder);
        if (known == contents_.end()) {
            const Files &files = program_.files;
            known = contents_.insert(folder, {Tidy_path(files.to_windows(files.to_native(folder))), {}, {}});
            for (const File_Info &entry : program_.files.list_folder(folder).value) {
                known->exact.insert(entry.name, entry);
                // Of several spellings the first in binary order stands for all, as everywhere.
                if (!known->folded.contains(entry.name.toCaseFolded()))
                    known->folded.insert(entry.name.toCaseFolded(), entry);
            }
        }
        const QString name = FileNameFromPath(path);
        if (const auto exact = known->exact.constFind(name); exact != known->exact.constEnd())
            return &exact.value();
        const auto folded = known->folded.constFind(name.toCaseFolded());
        return folded == known->folded.constEnd() ? nullptr : &folded.value();
    }

    /// Through a linked folder, or by a name that a link resolves otherwise.
    bool leads_outside(const QString &path) {
        const QString folder = Parent_path(path);
        auto known = outside_.constFind(folder);
        if (known == outside_.constEnd()) {
            const QString real = program_.files.real_path(folder);
            const QString tidy = Tidy_path(real);
            const bool inside =
                real.isEmpty() || Is_same_path(tidy, real_base_) || Is_below(tidy, real_base_);
            known = outside_.insert(folder, !inside);
        }
        return known.value();
    }

    /// The table's folders on the way to a file, as log lines.
    QStringList note_folders(const QString &path) {
        QStringList log;
        const QString relative = "\\" + Relative_to(path, base_.folder);
        for (qsizetype i = 0; i < names_.size(); ++i) {
            const QString part = "\\" + names_[i] + "\\";
            const qsizetype at = relative.indexOf(part, 0, Qt::CaseInsensitive);
            if (at < 0)
                continue;
            const QString folder = base_.folder + relative.left(at + part.size() - 1);
            if (!found_[i].contains(folder, Qt::CaseInsensitive))
                found_[i] << folder;
            log << "//" + folder;
        }
        return log;
    }

    void delete_folder(const QString &folder) {
        const auto look = program_.files.look(folder);
        if (!look || !look->is_folder || look->is_link || leads_outside(Join_path(folder, "x")) ||
            !EmptyFolderTree(program_, folder))
            return;
        if (const Fault fault = program_.files.remove_folder(folder))
            Trace_fault(program_, fault);
        else
            Recover_log(program_, "//" + folder);
    }

    void warn_of_foreign_lines() {
        if (foreign_.isEmpty())
            return;
        debug_print(program_, QString("MAIN FORM: %1 lines point elsewhere").arg(foreign_.size()));
        Show_Warning(
            program_, "",
            QString("WARNING: %1 of the files that %2 lists are not in this game's folder and were left "
                    "alone, the first lies in\r\n%3")
                .arg(QString::number(foreign_.size()), QString(undo_list_name),
                     Parent_path(Tidy_path(foreign_.first()))));
    }

    Install_Run &run_;
    Program &program_;
    Install_Base base_;
    QString real_base_;
    Save_Layout saves_;
    QStringList names_;
    std::vector<QStringList> found_; ///< for each name, where it was found
    QHash<QString, bool> outside_;
    struct Contents {
        QString folder; ///< as it is spelled on disk
        QHash<QString, File_Info> exact, folded;
    };
    QHash<QString, Contents> contents_; ///< by folder
    QStringList foreign_;
};

void Clear_installed_mark(Install_Run &run, const QString &zip_name) {
    if (zip_name.isEmpty())
        return;
    for (const QString &code : Games_in_this_folder(run.program))
        Update_installed(run, "UPDATE Table_Scores SET installed = 0 WHERE zip_name = " +
                                  In_double_quotes(zip_name) + "  and game = " + In_single_quotes(code));
    Set_ready_cell(run.program, zip_name, "");
}

/// Removes what this pattern matches directly in a folder.
void Remove_matching(Program &program, const QString &folder, const QRegularExpression &pattern) {
    const auto listed = program.files.list_folder(folder);
    for (const File_Info &entry : listed.value)
        if (!entry.is_folder && pattern.match(entry.name).hasMatch())
            (void)program.files.remove_file(Join_path(folder, entry.name));
}

/// Files that only a killed run leaves: written beside, never moved to their place.
void Remove_leftovers(Install_Run &run) {
    if (!run.unfinished)
        return;
    Program &program = run.program;
    static const QRegularExpression staged("^(\\.vantrosk-[0-9a-f]+\\.tmp|vantrosk_unzip\\.tmp)$");
    static const QRegularExpression archive("^saves_.*\\.new$", QRegularExpression::CaseInsensitiveOption);
    const Save_Layout saves = Save_layout_of(program, run.leaving.game, program.CURRENT_GAME_PATH);
    QSet<QString> folders{Tidy_path(program.CURRENT_GAME_PATH), run.leaving.base.folder, run.base.folder,
                          saves.save_folder, Tidy_path(saves.backup_folder)};
    if (run.previous)
        for (const QString &line : run.previous->files) {
            const QString path = run.leaving.base.path_of(line);
            folders << Parent_path(path);
            if (path.endsWith(".WAV", Qt::CaseInsensitive) && Is_below(path, run.leaving.base.folder))
                (void)program.files.remove_file(path + wave_temporary_suffix);
        }
    for (const QString &folder : folders)
        Remove_matching(program, folder, staged);
    Remove_matching(program, Tidy_path(saves.backup_folder), archive);
    for (const Install_Base &base : {run.leaving.base, run.base})
        (void)program.files.remove_file(Join_path(base.folder, QString(backup_name) + zip_temporary_suffix));
}

void Check_previous(Install_Run &run) {
    Program &program = run.program;
    if (FileExists(program, Undo_list_path(program.CURRENT_GAME_PATH)))
        Recover_log(
            program,
            {"//Previous current_install.txt file exists, opening and checking for what needs to be removed",
             nothing_occured, "", "[CHECKING_PREVIOUS]", ""});
    Clear_installed_mark(run, run.leaving.zip_name);
    Recover_log(program,
                {"//previous install file checked and previous zip file found to be " + run.leaving.zip_name,
                 nothing_occured, "[PREVIOUS_CHECKED]"});
}

} // namespace

bool EmptyFolderTree(Program &program, const QString &folder) {
    return Empty_tree(program, Tidy_path(folder), 0);
}

bool Remove_previous_mission(Install_Run &run) {
    Program &program = run.program;
    Remove_leftovers(run);
    Check_previous(run);
    const QStringList lines = run.previous ? run.previous->files : QStringList();
    Recover_log(program,
                {"//deleting " + QString::number(lines.size() - 1) + " old files and folders (list below)",
                 nothing_occured});
    Removal removal(run);
    if (lines.size() > 1 && !removal.delete_files(lines))
        return false;
    // A list of one file is left alone, but a custom game's mission often is one file.
    if (lines.size() == 1 && program.SELECTED_GAME_TAB == "CUSTOM")
        removal.delete_only_file(lines.first());
    Recover_log(program,
                {"//STEPS TO FIX = FM Files have been deleted, however the folder still exist, but they "
                 "can be left without any real issues",
                 "[DELETING_FOLDERS]"});
    removal.delete_folders();
    return !run.fault;
}

} // namespace vantrosk
