#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "install/Install_Paths.h"
#include "install/Install_Run.h"
#include "install/Recover_Log.h"
#include "install/Saves.h"
#include "install/Saves_Archive.h"
#include "zip/mUnzip.h"

#include <QSet>

#include <algorithm>
#include <array>

namespace vantrosk {

namespace {

constexpr std::array<const char *, 3> script_extensions{".OSM", ".OSL", ".DLX"};
constexpr std::array<const char *, 6> program_extensions{".EXE", ".COM", ".BAT", ".DLL", ".HTM", ".HTML"};
constexpr std::array<const char *, 2> map_pages{"PAGE001.PCX", "PAGE000.PCX"};
/// What this program and the other loader keep in a game folder.
constexpr std::array<const char *, 3> own_files{undo_list_name, backup_name, "darkloader.current"};

template<typename Names>
bool Is_one_of(const QString &text, const Names &names) {
    return std::any_of(names.begin(), names.end(), [&](const char *name) {
        return text.compare(QLatin1String(name), Qt::CaseInsensitive) == 0;
    });
}

/// One file of the zip as the rules look at it.
struct Entry {
    int number;
    QString name;
    QString relative; ///< below the base folder
    QString upper;    ///< name
    QString extension;
    QDateTime date;
};

enum class Verdict {
    drop,
    unrecorded, ///< extracted, not listed
    record,     ///< extracted and listed
    music,      ///< extracted, listed together with the wave file to be made
};

class Rules {
public:
    enum class Looks_at { names, disk_too };

    Rules(Install_Run &run, const cUnzip &zip, Looks_at looks_at = Looks_at::disk_too)
        : run_(run), program_(run.program), game_(program_.CURRENT_GAME), tab_(program_.SELECTED_GAME_TAB),
          is_custom_(tab_ == "CUSTOM"), looks_at_(looks_at), zip_(zip),
          saves_(Save_layout_of(program_, game_, program_.CURRENT_GAME_PATH)) {
        if (looks_at == Looks_at::names)
            return;
        if (const auto archive = Find_save_archive(program_, saves_.backup_folder, run.zip_name))
            if (const auto names = Archive_names(program_, *archive))
                archived_saves_ = QSet<QString>(names->begin(), names->end());
    }

    /// Before the previous mission is gone, what lies in the folder decides nothing and nothing is noted.
    bool may_be_selected(int number) {
        const Entry entry = entry_of(number);
        return reason_to_refuse(entry).isEmpty() && verdict_of(entry) != Verdict::drop;
    }

    /// Whether the entry is to be extracted; the plan is told what to do about it.
    bool select(int number) {
        const Entry entry = entry_of(number);
        if (!may_be_written(entry))
            return false;
        const Verdict verdict = verdict_of(entry);
        note(entry, verdict);
        return verdict != Verdict::drop && !is_in_saves_archive(entry);
    }

private:
    Entry entry_of(int number) const {
        QString folder = zip_.FileDirectory(number);
        // A mission packed from the game's root names the base folder itself.
        if (game_ == "DOOM" && Is_same_path(folder.section('\\', 0, 0), "base"))
            folder = folder.section('\\', 1);
        const QString name = zip_.Filename(number);
        const QString upper = name.toUpper();
        const qsizetype dot = upper.lastIndexOf('.');
        return {number,
                name,
                folder.isEmpty() ? name : Join_path(folder, name),
                upper,
                dot < 0 ? QString() : upper.mid(dot),
                zip_.FileDate(number)};
    }

    QString line_of(const Entry &entry) const { return Join_path(run_.base.listed, entry.relative); }
    QString path_of(const Entry &entry) const { return Join_path(run_.base.folder, entry.relative); }

    /// Names that would leave the game folder, and files that this program needs as they are.
    QString reason_to_refuse(const Entry &entry) const {
        const QString stored = stored_name(entry);
        // A list's lines are trimmed when they are read.
        const bool is_listable = !entry.name.isEmpty() && !entry.name.back().isSpace();
        if (!zip_.FileIsSafe(entry.number) || !Is_safe_entry_name(stored) || !is_listable)
            return "its name would leave the game folder";
        if (is_own_file(entry))
            return "Vantrosk keeps a file of that name";
        return {};
    }

    bool may_be_written(const Entry &entry) {
        const QString reason = reason_to_refuse(entry);
        if (reason.isEmpty())
            return true;
        const QString stored = stored_name(entry);
        debug_print(program_, "MAIN FORM: \"" + stored + "\" is not extracted: " + reason);
        Recover_log(program_, "//Not extracted, " + reason + ": " + stored);
        return false;
    }

    QString stored_name(const Entry &entry) const {
        const QString folder = zip_.FileDirectory(entry.number);
        return folder.isEmpty() ? entry.name : folder + "\\" + entry.name;
    }

    bool is_own_file(const Entry &entry) const {
        const QString path = path_of(entry);
        const QString folder = Parent_path(path);
        const QString game_path = Tidy_path(program_.CURRENT_GAME_PATH);
        const bool at_root = Is_same_path(folder, run_.base.folder) || Is_same_path(folder, game_path);
        return (at_root && Is_one_of(entry.name, own_files)) ||
               Is_below(path, Join_path(game_path, "allsaves")) ||
               Is_below(path, Join_path(run_.base.folder, "allsaves"));
    }

    /// Unpacked in a moment from the player's own archive; a run that stops in between must find no other.
    bool is_in_saves_archive(const Entry &entry) const {
        const QString path = path_of(entry);
        return Is_save_path(saves_, path) &&
               archived_saves_.contains(Relative_to(path, saves_.save_folder).toUpper());
    }

    /// The first rule that applies decides.
    Verdict verdict_of(const Entry &entry) {
        if (entry.upper.contains('[') || entry.upper.contains(']'))
            return Verdict::drop;
        if (entry.extension.isEmpty())
            return Verdict::drop;
        if (entry.upper == "VKSKIN.ZIP") {
            run_.plan.skin_path = path_of(entry);
            return Verdict::unrecorded;
        }
        if (entry.extension == ".CBT" && tab_ == "T3") {
            run_.plan.resources << line_of(entry);
            return Verdict::record;
        }
        if (Is_one_of(entry.extension, script_extensions))
            return is_newer_than_present(entry) ? Verdict::record : Verdict::drop;
        if (entry.extension == ".DLL" && is_custom_ && program_.custom.mod_manage)
            return Verdict::record;
        if (Is_one_of(entry.extension, program_extensions) || entry.upper == "THUMBS.DB")
            return Is_doom_or_dark_mod(game_) ? Verdict::unrecorded : Verdict::drop;
        return verdict_of_content(entry);
    }

    bool is_newer_than_present(const Entry &entry) const {
        if (looks_at_ == Looks_at::names)
            return true;
        const auto present = program_.files.look(path_of(entry));
        return !present || present->is_folder || entry.date > present->modified;
    }

    Verdict verdict_of_content(const Entry &entry) {
        if (entry.extension == ".MIS")
            run_.plan.missions << entry.upper;
        if (entry.extension == ".MP3" || entry.extension == ".OGG") {
            if (is_custom_)
                return program_.custom.mp3 ? Verdict::music : Verdict::record;
            return Is_doom_or_dark_mod(game_) ? Verdict::unrecorded : Verdict::music;
        }
        if (!is_custom_ && Is_one_of(entry.upper, map_pages))
            run_.plan.has_map_pages = true;
        return Verdict::record;
    }

    void note(const Entry &entry, Verdict verdict) {
        Install_Plan &plan = run_.plan;
        if (verdict == Verdict::unrecorded)
            plan.unrecorded << path_of(entry);
        if (verdict == Verdict::record || verdict == Verdict::music)
            plan.lines << line_of(entry);
        if (verdict != Verdict::music)
            return;
        const QString wave = Parent_path(line_of(entry)) + "\\" + entry.upper.chopped(3) + "WAV";
        plan.lines << wave;
        const QString source = path_of(entry);
        plan.music.push_back({source, source.chopped(3) + "WAV"});
    }

    Install_Run &run_;
    Program &program_;
    const QString game_;
    const QString tab_;
    const bool is_custom_;
    const Looks_at looks_at_;
    const cUnzip &zip_;
    Save_Layout saves_;
    QSet<QString> archived_saves_;
};

/// Code points, not the units of UTF-16, in whose order the letters beyond 65,535 stand too early.
bool Comes_before(const QString &one, const QString &other) {
    return std::lexicographical_compare(
        one.begin(), one.end(), other.begin(), other.end(), [](QChar a, QChar b) {
            return a.isSurrogate() != b.isSurrogate() ? b.isSurrogate() : a.unicode() < b.unicode();
        });
}

/// What later stages write over without an entry of the zip.
void Plan_made_files(Install_Run &run) {
    Install_Plan &plan = run.plan;
    for (const QString &resource : plan.resources) {
        const QString stem = run.base.path_of(resource).chopped(4);
        plan.unrecorded << stem + ".IBT" << stem + ".log";
    }
    if (!Wants_map_pages(run))
        return;
    for (const QString &mission : plan.missions)
        plan.unrecorded << Join_path(run.base.folder, "Intrface\\" + mission.chopped(4) + "\\page000.pcx");
}

} // namespace

void Preselect_entries(const Install_Run &run, cUnzip &zip) {
    Install_Run trial{run.program, false, run.zip_name};
    trial.base = Install_base_of(run.program, run.program.CURRENT_GAME);
    Rules rules(trial, zip, Rules::Looks_at::names);
    for (int i = 1; i <= zip.FileCount(); ++i)
        zip.FileSelected(i, rules.may_be_selected(i));
}

void Decide_entries(Install_Run &run, cUnzip &zip) {
    Rules rules(run, zip);
    for (int i = 1; i <= zip.FileCount(); ++i)
        zip.FileSelected(i, rules.select(i));
    std::sort(run.plan.lines.begin(), run.plan.lines.end(), Comes_before);
    Plan_made_files(run);
}

} // namespace vantrosk
