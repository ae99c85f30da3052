#pragma once

#include <QString>

#include <vector>

namespace vantrosk {

struct Program;

/// One game of the games panel with what its last scan counted; texts as shown, empty before its first scan.
struct Games_Panel_Row {
    QString name;
    QString code; ///< "CUSTOM" for a game of the user's own
    QString tip;  ///< what its button says of it; empty for the built-in games
    QString zips, total_size, finished, saves;

    bool is_custom() const { return code == QLatin1String("CUSTOM"); }
};

/// The built-in games in the order of their menu, then the games of the quick-bar, each name once.
std::vector<Games_Panel_Row> Games_Panel_Rows(const Program &program);

} // namespace vantrosk
