#pragma once

#include <QString>

#include <vector>

namespace vantrosk {

struct Program;

/// One entry of a filter menu.
struct Filter_Entry {
    QString caption;
    int filter; ///< what `Get_archives` takes
};

/// One menu of filters of one game.
struct Filter_Menu {
    QString name;    ///< "T2_Show_my"
    QString caption; ///< "My Ratings"
    std::vector<Filter_Entry> entries;
};

/// The filter menus of a game's list, in order; none for a game that has none.
std::vector<Filter_Menu> Filter_Menus(const Program &program, const QString &game_code);
/// What a filter in force is called: "My Ratings: Show Only High Rated FMs"; empty for 0.
QString Filter_Text(const Program &program, const QString &game_code, int filter);

} // namespace vantrosk
