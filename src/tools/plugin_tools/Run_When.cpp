#include "core/Games.h"
#include "core/Program.h"
#include "core/mdlDB_Functions.h"
#include "tools/plugin_tools/Plugin_Tools.h"

#include <QRegularExpression>

#include <array>

namespace vantrosk {

namespace {

constexpr std::array<const char *, 11> built_in_choices{
    "T1*", "TG*", "T2*", "T2X*", "T3*", "DM*", "DMOD*", "DOOM*", "SS2*", "ALL*", "SS2*DM*T2X*T2*TG*T1*"};
constexpr const char *dark_engine_choice = "SS2*DM*T2X*T2*TG*T1*";

QString Text_of_choice(const QString &codes) {
    if (codes == QLatin1String("ALL*"))
        return "All games";
    if (codes == QLatin1String(dark_engine_choice))
        return "All Dark Engine games";
    return Game_Text(codes.chopped(1));
}

} // namespace

std::vector<Run_When> Run_When_Choices(Program &program) {
    std::vector<Run_When> choices;
    for (const char *codes : built_in_choices)
        choices.push_back({codes, Text_of_choice(codes)});
    const Recordset games =
        db_Query(program, "SELECT game_code,game_name from table_custom_games order by game_code");
    for (int row = 0; row < games.size(); ++row)
        choices.push_back({games.text(row, "game_code") + "*", games.text(row, "game_name")});
    return choices;
}

QString Run_When_of_words(Program &program, const QString &words, QStringList &unknown) {
    static const QRegularExpression separators(QStringLiteral("[*,]"));
    QString run_when;
    const std::vector<Run_When> choices = Run_When_Choices(program);
    for (const QString &piece : words.split(separators, Qt::SkipEmptyParts)) {
        const QString codes = piece.trimmed() + "*";
        const auto known = std::find_if(choices.begin(), choices.end(), [&](const Run_When &choice) {
            return choice.codes.compare(codes, Qt::CaseInsensitive) == 0;
        });
        if (known == choices.end())
            unknown << piece.trimmed();
        else
            run_when += known->codes;
    }
    return run_when;
}

} // namespace vantrosk
