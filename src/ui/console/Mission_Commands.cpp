#include "ui/console/Mission_Commands.h"

#include "core/Program.h"
#include "core/mdlFile_Functions.h"
#include "install/undo/Undo_List.h"
#include "library/Fm_List_Save.h"
#include "library/fields/Readme_Fields.h"
#include "readme/Rtf_Reader.h"
#include "ui/console/Console_Json.h"
#include "ui/console/Console_Words.h"

#include <array>
#include <optional>

namespace vantrosk {

namespace {

constexpr int best_score = 10;
constexpr std::array<const char *, 4> level_words{"easy", "normal", "hard", "expert"};

/// What is to be stored; nothing leaves a field as it is.
struct Wanted_Fields {
    std::optional<QString> score, review;
    std::optional<std::array<bool, 4>> finished;
};

[[noreturn]] void Wrong_score_usage() {
    throw Wrong_Usage(QStringLiteral("usage: vantrosk-cli %1").arg(QLatin1String(score_usage)));
}

QString Score_of_word(const QString &word) {
    bool is_number = false;
    const int score = word.toInt(&is_number);
    if (!is_number || score < 0 || score > best_score)
        throw Wrong_Usage(QStringLiteral("a score is a number from 0 to %1").arg(best_score));
    return QString::number(score);
}

std::array<bool, 4> Levels_of_word(const QString &list) {
    std::array<bool, 4> levels{};
    for (const QString &piece : list.split(',', Qt::SkipEmptyParts)) {
        const auto level =
            std::find_if(level_words.begin(), level_words.end(), [word = piece.trimmed()](const char *known) {
                return word.compare(QLatin1String(known), Qt::CaseInsensitive) == 0;
            });
        if (level == level_words.end())
            throw Wrong_Usage(QStringLiteral("\"%1\" is none of easy, normal, hard, expert").arg(piece));
        levels[static_cast<std::size_t>(level - level_words.begin())] = true;
    }
    return levels;
}

Wanted_Fields Wanted_by(const QStringList &options) {
    Wanted_Fields wanted;
    for (qsizetype i = 0; i < options.size(); i += 2) {
        if (i + 1 >= options.size())
            Wrong_score_usage();
        const QString &value = options[i + 1];
        if (options[i] == "--score")
            wanted.score = Score_of_word(value);
        else if (options[i] == "--review")
            wanted.review = value;
        else if (options[i] == "--finished")
            wanted.finished = Levels_of_word(value);
        else
            Wrong_score_usage();
    }
    return wanted;
}

void Take_over(Details_Panel &details, const Wanted_Fields &wanted) {
    if (wanted.score)
        details.score = *wanted.score;
    if (wanted.review)
        details.review = *wanted.review;
    if (wanted.finished)
        details.finished = details.small_finished = *wanted.finished;
}

Readme_Fields Fields_of_file(const Program &program, const QString &path) {
    if (path.endsWith(".vkml", Qt::CaseInsensitive))
        return Fields_of_vkml(Read_text_lines(program, path));
    if (path.endsWith(".rtf", Qt::CaseInsensitive))
        return Fields_of_text(Split_lines(Text_of_rtf(program.files.read_start(path, rtf_limit).value)));
    return Fields_of_text(Read_text_lines(program, path));
}

QJsonObject Fields_json(const Readme_Fields &fields) {
    return {{"name", fields.name},
            {"author", fields.author},
            {"game_text", fields.game_text},
            {"game", fields.game}};
}

} // namespace

Console_Result Score_command(const Console_Context &context) {
    Expect_count(context, 2, 8, score_usage);
    const Wanted_Fields wanted = Wanted_by(context.arguments.mid(2));
    Program &program = context.program;
    const QString list = Fill_list_of_word(program, context.arguments[0]);
    if (!Select_row(program, context.arguments[1]))
        return Failed(Not_in_list(list, context.arguments[1]));
    if (Is_original_row(program.FM_PANEL))
        return Failed(QStringLiteral("original missions have no score"));
    Take_over(program.screen.details, wanted);
    if (!save_status(program))
        return Failed(
            QStringLiteral("\"%1\" has no record that it could be stored in").arg(context.arguments[1]));
    const Fm_Row &row = program.screen.list.rows[static_cast<std::size_t>(program.screen.list.current_row)];
    Console_Result result;
    result.json = Row_json(row);
    result.lines << QStringLiteral("%1  score %2  finished %3  review %4")
                        .arg(row.cells[col_zip], row.cells[col_score], row.cells[col_finished],
                             row.cells[col_review]);
    return result;
}

Console_Result Reset_command(const Console_Context &context) {
    Expect_count(context, 2, 2, reset_usage);
    Program &program = context.program;
    const QString list = Fill_list_of_word(program, context.arguments[0]);
    if (!Select_row(program, context.arguments[1]))
        return Failed(Not_in_list(list, context.arguments[1]));
    if (!program.screen.details.reset_enabled)
        return Failed(QStringLiteral("\"%1\" has nothing to reset").arg(context.arguments[1]));
    const bool reset = Reset_Fm(program);
    Console_Result result;
    result.json = QJsonObject{{"reset", reset}};
    result.lines << (reset ? QStringLiteral("reset") : QStringLiteral("not reset"));
    return result;
}

Console_Result Fields_command(const Console_Context &context) {
    Expect_count(context, 1, 1, fields_usage);
    const QString path = Path_at_the_door(context.program, context.arguments[0]);
    const auto opened = context.program.files.read_start(path, 1);
    if (!opened.ok())
        return Failed(opened.fault.text);
    const Readme_Fields fields = Fields_of_file(context.program, path);
    Console_Result result;
    const QJsonObject object = Fields_json(fields);
    result.json = object;
    for (const char *key : {"name", "author", "game_text", "game"})
        result.lines << QStringLiteral("%1  %2")
                            .arg(QLatin1String(key), -9)
                            .arg(object[QLatin1String(key)].toString());
    return result;
}

} // namespace vantrosk
