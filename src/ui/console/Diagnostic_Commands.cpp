#include "ui/console/Diagnostic_Commands.h"

#include "core/Games.h"
#include "core/Program.h"
#include "core/mdlFile_Functions.h"
#include "library/Custom_Archives.h"
#include "tools/diagnostics/Diagnose_Install.h"
#include "tools/diagnostics/Game_Diagnostic.h"
#include "tools/diagnostics/Reference_Names.h"
#include "ui/console/Console_Words.h"

#include <QJsonArray>
#include <QJsonObject>

#include <array>

namespace vantrosk {

namespace {

/// The findings in the order of the report's legend.
struct Finding {
    const char *name;
    QStringList Diagnosis::*paths;
};
constexpr std::array<Finding, 4> findings{{
    {"unexpected", &Diagnosis::unexpected},
    {"different", &Diagnosis::different},
    {"missing", &Diagnosis::missing},
    {"own", &Diagnosis::own},
}};

/// What is looked through: a game of the table or one of the user's own.
struct Diagnosed_Game {
    QString code; ///< the name, for one of the user's own
    QString name;
    QString folder; ///< Windows path; the root for Thief 3
};

/// Throws `Wrong_Usage` when there is no such game.
Diagnosed_Game Diagnosed_game_of_word(Program &program, const QString &word) {
    if (!word.isEmpty() && !Find_Game(word))
        if (const auto custom = Find_custom_game(program, word))
            return {custom->name, custom->name, custom->game_folder};
    const Game &game = Game_of_word(word);
    return {game.code, game.name, Diag_folder(program, game.code)};
}

QString Not_set_up(const Diagnosed_Game &game) {
    return QStringLiteral("%1 is not set up: its folder is not named").arg(game.name);
}

/// A name that `references` holds, else a path; empty when there is no such file.
QString Reference_of_word(const Program &program, const QString &word) {
    const QString name = FileNameFromPath(word);
    if (name == word && !word.contains('/') && FileExists(program, program.paths.references + word))
        return word;
    const QString path = Path_at_the_door(program, word);
    return FileExists(program, path) ? path : QString();
}

/// Below the game folder, as the system writes it.
QStringList Relative(const QStringList &paths, const QString &folder) {
    QStringList relative;
    for (const QString &path : paths)
        relative << path.mid(folder.size()).replace('\\', '/');
    return relative;
}

QJsonObject Diagnosis_json(const Program &program, const Diagnosed_Game &game, const QString &reference,
                           const Diagnosis &found) {
    QJsonObject json{
        {"game", game.code},
        {"game_path", program.files.to_native(found.game_folder.chopped(1))},
        {"reference", FileNameFromPath(reference)},
        {"report_page_path", found.page_path.isEmpty() ? "" : program.files.to_native(found.page_path)},
        {"files", found.count},
        {"matched", found.matched},
    };
    for (const Finding &finding : findings)
        json[QLatin1String(finding.name)] =
            QJsonArray::fromStringList(Relative(found.*finding.paths, found.game_folder));
    json["unreadable"] = QJsonArray::fromStringList(Relative(found.unreadable, found.game_folder));
    return json;
}

QStringList Diagnosis_lines(const Program &program, const Diagnosis &found) {
    QStringList lines{QStringLiteral("%1 files, %2 as they should be").arg(found.count).arg(found.matched)};
    for (const Finding &finding : findings)
        for (const QString &path : Relative(found.*finding.paths, found.game_folder))
            lines << QStringLiteral("%1  %2").arg(QLatin1String(finding.name), -10).arg(path);
    for (const QString &path : Relative(found.unreadable, found.game_folder))
        lines << QStringLiteral("%1  %2").arg(QLatin1String("unreadable"), -10).arg(path);
    if (!found.page_path.isEmpty())
        lines << QStringLiteral("Report: ") + program.files.to_native(found.page_path);
    return lines;
}

} // namespace

Console_Result Diagnose_command(const Console_Context &context) {
    Expect_count(context, 1, 3, diagnose_usage);
    const bool has_reference = context.arguments.size() > 1;
    if (has_reference && (context.arguments.size() != 3 || context.arguments[1] != "--reference"))
        throw Wrong_Usage(QStringLiteral("usage: vantrosk-cli %1").arg(QLatin1String(diagnose_usage)));
    Program &program = context.program;
    const Diagnosed_Game game = Diagnosed_game_of_word(program, context.arguments[0]);
    if (game.folder.isEmpty())
        return Failed(Not_set_up(game));
    QString reference = no_reference;
    if (has_reference && context.arguments[2] != no_reference)
        reference = Reference_of_word(program, context.arguments[2]);
    if (reference.isEmpty())
        return Failed(QStringLiteral("there is no reference file \"%1\"").arg(context.arguments[2]));
    const Diagnosis found = Diagnose_Install(program, {game.code, game.folder, reference, {}});
    Console_Result result;
    result.json = Diagnosis_json(program, game, reference, found);
    result.lines = Diagnosis_lines(program, found);
    if (!found.folder_exists)
        result.reason = QStringLiteral("the game folder does not exist");
    else if (found.is_closed())
        result.reason = QStringLiteral("the game folder can not be read");
    else
        result.reason = found.page_fault;
    result.exit_code = result.reason.isEmpty() ? 0 : 1;
    return result;
}

Console_Result Reference_command(const Console_Context &context) {
    Expect_count(context, 1, 1, reference_usage);
    Program &program = context.program;
    const Diagnosed_Game game = Diagnosed_game_of_word(program, context.arguments[0]);
    if (game.folder.isEmpty())
        return Failed(Not_set_up(game));
    if (!FolderExists(program, game.folder))
        return Failed(QStringLiteral("the game folder does not exist"));
    const QString name = create_reference_file(program, game.folder, game.name);
    if (name.isEmpty())
        return Failed(QStringLiteral("no reference file was made"));
    const QString path = program.files.to_native(program.paths.references + name);
    Console_Result result;
    result.json = QJsonObject{{"game", game.code}, {"reference", name}, {"reference_path", path}};
    result.lines << QStringLiteral("Reference File created as %1").arg(path);
    return result;
}

} // namespace vantrosk
