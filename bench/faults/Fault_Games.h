#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <map>
#include <utility>
#include <vector>

namespace faults {

/// Files below a folder by relative name; folders end in "/".
using Tree = std::map<QString, QByteArray>;
/// Names in an archive with their contents, in order.
using Entries = std::vector<std::pair<QString, QByteArray>>;

/// One game as a player has it: its files, the saves in it, and two missions of which the second brings 400
/// files. Mission A is installed and was played, mission B was played before.
struct Fault_Game {
    QString name;             ///< for the table
    QString word;             ///< of the console
    QString originals;        ///< row that a restore names
    QString saves;            ///< folder of the live saves, relative to the world
    QString originals_kept{}; ///< archive of saves that a restore does not bring back; empty: it does
    std::vector<std::pair<QString, QString>> settings{}; ///< key, and folder relative to the world
    Tree own_files{};                                    ///< relative to the game's folder, without saves
    Tree left_by_play{}; ///< what playing A left of the game's files, over `own_files`
    Tree own_saves{}, untouched_saves{}, played_a{}, played_b{}; ///< relative to `saves`
    int saves_of_b = 0;                                          ///< those that B brings among them
    Entries a{}, b{};
    QStringList overwritten{}; ///< files of the game that B brings too
    QStringList brought{};     ///< files that B alone has, relative to the game's folder
};

Fault_Game Thief_2();
Fault_Game Thief_3();
Fault_Game Doom_3();

} // namespace faults
