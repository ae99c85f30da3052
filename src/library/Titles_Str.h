#pragma once

#include <QString>
#include <QStringList>

namespace vantrosk {

/// What a game's own "titles.str" tells of a mission that was made from its files.
struct Titles_Find {
    QString game; ///< "T1", "TG", "T2" or empty
    QString name; ///< the last title before a blank line; empty when none was found
};

/// A title of one of the game's own missions gives the game away; reading ends when both are known. With
/// `wants_name` false the name is not looked for.
Titles_Find Game_of_titles_str(const QStringList &lines, bool wants_name);

/// The first title of a mission that is not the game's own: "title_17:" to "title_27:" and "title_34:".
QString Name_of_titles_str(const QStringList &lines);

} // namespace vantrosk
