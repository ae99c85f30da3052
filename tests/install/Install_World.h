#pragma once

#include "install/Do_Install.h"
#include "support/World.h"

#include <QString>

#include <vector>

namespace vantrosk {

/// A world with one game set up, and the verbs of a player.
class Install_World : public World {
public:
    explicit Install_World(const QString &game_code = "T2");

    /// A file of the game folder.
    QString in_game(const QString &name) const { return game_folder + "/" + name; }
    QByteArray game_file(const QString &name) const { return read(in_game(name)); }
    void game_has(const QString &name, const QByteArray &content) { write(in_game(name), content); }
    QString game_path(const QString &name = {}) const;

    /// A mission in the zip folder, with its row in the list and in the database.
    void mission(const QString &zip_name, const std::vector<Zip_Entry> &entries);
    void select(const QString &zip_cell);
    bool install(const QString &zip_name);
    bool restore();
    /// Another game becomes the active one, in the same folder.
    void switch_to(const QString &game_code);

    /// Lines of the undo list from the sixth on, paths relative to the game folder, with "/".
    QStringList listed() const;
    QByteArray undo_list() const { return game_file("current_install.txt"); }
    /// Lines of the last finished log, or of the one that an unfinished run left.
    QStringList finished_log() const;
    QStringList unfinished_log() const;
    int installed_mark(const QString &zip_name, const QString &game_code);
    QString ready_cell(const QString &zip_name);

    /// Everything in the game folder but what this program itself keeps there.
    Snapshot game() const;
    Snapshot whole_game() const { return snapshot(game_folder); }
    /// The content of an archive below "allsaves", by name.
    Snapshot saves_archive(const QString &name) const;

    QString code;
    QString game_folder; ///< relative to the world
    QString zip_folder;
    QString list_folder; ///< where the undo list lies

    /// Starts the program when it is not running, with the game as the active one.
    void start_game();
};

/// Sorted text of names, to compare sets at a glance.
QStringList Sorted(QStringList names);

} // namespace vantrosk
