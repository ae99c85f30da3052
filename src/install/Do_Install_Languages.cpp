#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "install/Do_Install.h"
#include "install/Install_Paths.h"
#include "install/Install_Run.h"
#include "install/Recover_Log.h"

#include <array>

namespace vantrosk {

namespace {

/// The games that keep their texts and sounds in folders named after languages.
constexpr std::array<const char *, 4> localised_games{"SS2", "T2", "T1", "TG"};
constexpr qint64 most_config_bytes = 1024 * 1024;
constexpr const char *english = "english";

/// The lines of a list that belong to the language that stays and to the one that goes.
struct Language_Lines {
    QString language; ///< the one that stays
    QStringList keep;
    QStringList drop;
};

QString Game_language(const Program &program) {
    const QString file = Join_path(Tidy_path(program.CURRENT_GAME_PATH), "darkinst.cfg");
    const Result<QByteArray> config = program.files.read_file(file, most_config_bytes);
    const QString key = "language ";
    for (const QString &line : Split_lines(Decode_text(config.value)))
        if (line.startsWith(key, Qt::CaseInsensitive) && !line.mid(key.size()).trimmed().isEmpty())
            return line.mid(key.size()).trimmed();
    return english;
}

/// Whether a line's file lies in a folder of that language; a folder above the game's own does not count.
bool Is_in_language(const Install_Base &base, const QString &line, const QString &language) {
    return !language.isEmpty() && Is_below(line, base.listed) &&
           ("\\" + Relative_to(line, base.listed)).contains("\\" + language + "\\", Qt::CaseInsensitive);
}

QString Without_language(const Install_Base &base, const QString &line, const QString &language) {
    QString relative = "\\" + Relative_to(line, base.listed);
    relative.replace("\\" + language + "\\", "\\", Qt::CaseInsensitive);
    return base.listed + relative;
}

Language_Lines Sort_lines(const Install_Run &run, const QString &kept, const QString &game_language) {
    Language_Lines result{kept, {}, {}};
    for (const QString &line : run.list.files) {
        if (Is_in_language(run.base, line, kept))
            result.keep << line;
        else if (Is_in_language(run.base, line, game_language))
            result.drop << line;
    }
    return result;
}

Language_Lines Choose_language(const Install_Run &run, const QString &game_language) {
    const QString &users = run.program.ini.LANGUAGE;
    Language_Lines lines = Sort_lines(run, users, game_language);
    if (lines.keep.isEmpty() && !Is_same_path(game_language, english) && !Is_same_path(users, english))
        lines = Sort_lines(run, english, game_language);
    return lines;
}

void Remove_folder_when_empty(Install_Run &run, const QString &file) {
    const QString folder = Parent_path(file);
    if (!Is_below(folder, run.base.folder) || !EmptyFolderTree(run.program, folder))
        return;
    Trace_fault(run.program, run.program.files.remove_folder(folder));
}

/// True when the file now lies above its language folder.
bool Move_up(Install_Run &run, const QString &line, const QString &target) {
    Program &program = run.program;
    const QString from = run.base.path_of(line);
    const QString to = run.base.path_of(target);
    if (!FileExists(program, from) || program.files.look(to))
        return false;
    Fault fault = program.files.make_folder(Parent_path(to));
    if (!fault)
        fault = program.files.move_file(from, to);
    Trace_fault(program, fault);
    if (fault)
        return false;
    Remove_folder_when_empty(run, from);
    return true;
}

/// Before a file moves, its new place is listed too: a run that stops in between must find it.
Fault Announce_moves(Install_Run &run, const Language_Lines &lines) {
    Undo_List announced = run.list;
    for (const QString &line : lines.keep) {
        const QString target = Without_language(run.base, line, lines.language);
        if (!run.program.files.look(run.base.path_of(target)))
            announced.files << target;
    }
    return Write_undo_list(run.program, run.program.CURRENT_GAME_PATH, announced);
}

void Keep_language(Install_Run &run, const Language_Lines &lines) {
    QStringList rewritten;
    for (const QString &line : run.list.files) {
        const QString target = Without_language(run.base, line, lines.language);
        rewritten << (lines.keep.contains(line) && Move_up(run, line, target) ? target : line);
    }
    run.list.files = rewritten;
}

void Drop_language(Install_Run &run, const Language_Lines &lines) {
    QStringList left;
    for (const QString &line : run.list.files) {
        const QString path = run.base.path_of(line);
        if (!lines.drop.contains(line)) {
            left << line;
        } else if (DeleteFileForced(run.program, path)) {
            left << line;
        } else {
            Remove_folder_when_empty(run, path);
        }
    }
    run.list.files = left;
}

} // namespace

void Sort_out_languages(Install_Run &run) {
    Program &program = run.program;
    const bool localised = std::any_of(localised_games.begin(), localised_games.end(), [&](const char *game) {
        return program.CURRENT_GAME == QLatin1String(game);
    });
    if (!localised || run.restore_originals || program.SELECTED_GAME_TAB == "CUSTOM")
        return;
    const QString game_language = Game_language(program);
    const Language_Lines lines = Choose_language(run, game_language);
    if (lines.keep.isEmpty())
        return;
    if (const Fault fault = Announce_moves(run, lines)) {
        Trace_fault(program, fault);
        return;
    }
    Keep_language(run, lines);
    if (!Is_same_path(game_language, lines.language))
        Drop_language(run, lines);
    Trace_fault(program, Save_list(run));
}

} // namespace vantrosk
