#pragma once

#include "core/Program.h"
#include "support/Fake_Clock.h"
#include "support/Recording_Ui.h"
#include "support/Zip_Maker.h"

#include <QTemporaryDir>

#include <map>
#include <memory>

namespace vantrosk {

/// Every file below a folder with its content; folders end in "/" and have none. Names relative, "/" inside.
using Snapshot = std::map<QString, QByteArray>;

/// A world of its own for one test: a temporary folder (with a name that is not ASCII) that holds the
/// program's folder, games, zips and a Wine prefix. Native paths here are relative to that folder.
class World {
public:
    World();
    ~World();

    QString native(const QString &relative) const;  ///< absolute native path
    QString windows(const QString &relative) const; ///< the same as a Windows path

    void write(const QString &relative, const QByteArray &content); ///< makes the folders
    QByteArray read(const QString &relative) const;
    bool exists(const QString &relative) const;
    void make_folder(const QString &relative);
    void zip(const QString &relative, const std::vector<Zip_Entry> &entries);
    Snapshot snapshot(const QString &relative) const;

    /// Sets up a game: its folder, its zip folder and both ini values, before `start` or after it.
    void set_up_game(const QString &code, const QString &game_folder, const QString &zip_folder);

    /// The program in folder "home"; made and started at the first use.
    Program &program();
    /// Ends the program and starts it anew over the same files, as the next start would.
    Program &restart();
    void stop(); ///< ends the program

    Platform platform;
    Fake_Clock *clock; ///< the platform's
    Recording_Ui ui;

private:
    QTemporaryDir folder_;
    std::unique_ptr<Program> program_;
};

/// The names of a snapshot, for a readable comparison.
QStringList Names(const Snapshot &snapshot);

} // namespace vantrosk
