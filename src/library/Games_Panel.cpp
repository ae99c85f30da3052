#include "library/Games_Panel.h"

#include "core/Games.h"
#include "core/Program.h"
#include "core/mdlFile_Functions.h"

#include <algorithm>

namespace vantrosk {

namespace {

bool Is_named(const QString &name, const QString &other) {
    return name.compare(other, Qt::CaseInsensitive) == 0;
}

Games_Panel_Row Row_of(const Program &program, const QString &name, const QString &code,
                       const QString &tip = {}) {
    Games_Panel_Row row{name, code, tip, {}, {}, {}, {}};
    const auto &all = program.library_summary;
    const auto counted = std::find_if(all.begin(), all.end(), [&name](const Library_Summary_Row &one) {
        return Is_named(one.game_name, name);
    });
    if (counted == all.end())
        return row;
    row.zips = QString::number(counted->zip_count);
    row.total_size = FormatSize(counted->zip_size);
    row.finished = QString::number(counted->FMs_completed);
    row.saves = QString::number(counted->saves_count);
    return row;
}

bool Has_row(const std::vector<Games_Panel_Row> &rows, const QString &name) {
    return std::any_of(rows.begin(), rows.end(), [&name](const Games_Panel_Row &row) {
        return row.is_custom() && Is_named(row.name, name);
    });
}

} // namespace

std::vector<Games_Panel_Row> Games_Panel_Rows(const Program &program) {
    std::vector<Games_Panel_Row> rows;
    for (const Game &game : Games())
        rows.push_back(Row_of(program, QLatin1String(game.name), QLatin1String(game.code)));
    for (const Quick_Bar_Game &game : program.quick_bar_games)
        if (!game.GameName.isEmpty() && !Has_row(rows, game.GameName))
            rows.push_back(Row_of(program, game.GameName, "CUSTOM", game.ToolTip));
    return rows;
}

} // namespace vantrosk
