#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <map>

/// A game folder with the player's saves, two missions and the program's folder, on a disk of its own where
/// the system allows one.
namespace faults {

/// Files below a folder by relative name; folders end in "/".
using Tree = std::map<QString, QByteArray>;

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
    explicit Fault_World(const QString &folder);

    /// Fills the world: a game, mission A of 150 files installed and played, mission B of 400 files played
    /// before. `run` installs a zip.
    template<typename Run>
    void make(Run run) {
        make_game();
        make_missions();
        run("b.zip");
        play_b();
        run("a.zip");
        play_a();
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
    /// Files of the game that mission B brings too.
    const QStringList &overwritten() const { return overwritten_; }

private:
    void make_game();
    void make_missions();
    void play_b();
    void play_a();
    void keep();

    QString folder_, root_, template_;
    Tree game_files_;        ///< with the saves of the originals
    Tree saves_a_, saves_b_; ///< by name in the archive
    QStringList overwritten_;
};

Tree Read_tree(const QString &folder);
void Write_file(const QString &path, const QByteArray &bytes);

} // namespace faults
