#pragma once

#include "Fault_Games.h"

/// A game folder with the player's saves, two missions and the program's folder, on a disk of its own where
/// the system allows one.
namespace faults {

/// What is missing or wrong after a trial.
struct Loss {
    int files = 0;
    qint64 bytes = 0;
    QString first; ///< name of one of them

    bool any() const { return files > 0; }
    void add(const QString &name, qint64 size);
};

class Fault_World {
public:
    /// `folder` is empty and native.
    Fault_World(const QString &folder, Fault_Game game);

    /// The game and the zips.
    void make_files();
    /// Mission A installed and played, mission B played before. `run` installs a zip.
    template<typename Run>
    void make(Run run) {
        run("b.zip");
        play(game_.played_b);
        run("a.zip");
        play(game_.played_a);
        leave_played();
        keep();
    }
    void rewind(); ///< everything as `make` left it

    QString home() const { return root_ + "/home"; }
    QString game() const { return root_ + "/game"; }
    QString zips() const { return root_ + "/fms"; }
    QString root() const { return root_; }
    bool has_log() const;

    /// After the original missions were put back: what of the game, its saves and the missions' saves is not
    /// there byte for byte.
    Loss loss() const;
    const Fault_Game &about() const { return game_; }

private:
    void play(const Tree &saves);
    void leave_played();
    void keep();
    QString saves() const { return root_ + "/" + game_.saves; }
    Tree live_saves() const;
    Tree archive(const QString &name) const;
    void compare_saves(Loss &loss) const;
    void look_for_left_overs(Loss &loss) const;

    QString folder_, root_, template_;
    Fault_Game game_;
    Tree saves_a_, saves_b_; ///< by name in the archive
};

Tree Read_tree(const QString &folder);
void Write_file(const QString &path, const QByteArray &bytes);

} // namespace faults
