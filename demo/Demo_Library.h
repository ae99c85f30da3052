#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QStringList>

#include <map>
#include <vector>

namespace vantrosk::demo {

/// Files of one folder: names relative to it, "/" inside.
using Tree = std::map<QString, QByteArray>;

/// One mission of the demo library.
struct Mission {
    QString game; ///< code of the list it is for
    QString zip;  ///< file name of its archive
    QString
        maker;  ///< "zip", "7z" or empty for the program's own writer: real archives differ by their makers
    QDate date; ///< of the archive
    Tree files;
};

/// All missions, their texts from the resources, pictures painted, sounds played.
std::vector<Mission> Make_missions();

/// One game's folder.
struct Demo_Game {
    QString code;
    QString folder;   ///< below "games"
    QString missions; ///< below "missions"
    Tree files;
};
/// `game_program` is the content of the stand-in for the game.
std::vector<Demo_Game> Make_games(const QByteArray &game_program);

// Pictures: a night scene, different for each seed.
QByteArray Paint_jpg(int seed, int width, int height);
QByteArray Paint_gif(int seed, int width, int height);
QByteArray Paint_pcx(int seed, int width, int height);

// Sounds: a short tune, different for each seed. Empty where the sound library can not write the format.
QByteArray Play_ogg(int seed);
QByteArray Play_mp3(int seed);

/// Makes the library under the native folder `to` and sets the program in `home` up for it. `game_program` is
/// the native path of the stand-in for the games; a script takes its place when there is none. The reason on
/// failure.
QString Make_library(const QString &home, const QString &to, const QString &game_program);

} // namespace vantrosk::demo
