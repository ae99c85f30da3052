#include "Demo_Library.h"

#include "platform/linux/Linux_Platform.h"
#include "ui/console/Console_Commands.h"
#include "zip/mZip.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace vantrosk::demo {

namespace {

/// Where there is no compiler for Windows programs: a script in the place of the game.
constexpr const char *game_script =
    "#!/bin/sh\n"
    "# Stands in for the game: says that it was started, waits a little, and ends.\n"
    "cd \"$(dirname \"$0\")\" || exit 1\n"
    "echo started >> demo_game.log\n"
    "sleep 2\n"
    "echo ended >> demo_game.log\n";

QString Write_tree(const QString &folder, const Tree &files) {
    for (const auto &[name, content] : files) {
        const QString path = folder + "/" + name;
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            return QStringLiteral("%1: %2").arg(path, file.errorString());
    }
    return {};
}

/// Another maker's archiver, run in the folder; false when it is not there or fails.
bool Zip_with_tool(const QString &maker, const QString &folder, const QString &archive) {
    const QString tool = QStandardPaths::findExecutable(maker);
    if (tool.isEmpty())
        return false;
    QProcess process;
    process.setWorkingDirectory(folder);
    process.start(tool, maker == "zip" ? QStringList{"-q", "-r", archive, "."}
                                       : QStringList{"a", "-tzip", "-bso0", "-bsp0", archive, "."});
    return process.waitForFinished(60000) && process.exitCode() == 0;
}

QString Zip_ourselves(const QString &folder, const QString &archive) {
    const Platform platform = Make_Linux_Platform();
    cZip zip(*platform.files);
    zip.ZipFile = platform.files->to_windows(archive);
    zip.BasePath = platform.files->to_windows(folder);
    zip.StoreFolderNames = true;
    zip.RecurseSubDirs = true;
    zip.AddFileSpec("*.*");
    return zip.Zip().text;
}

QString Pack_mission(const Mission &mission, const QString &archive) {
    const QTemporaryDir folder;
    const QString reason = Write_tree(folder.path(), mission.files);
    if (!reason.isEmpty())
        return reason;
    QFile::remove(archive);
    const bool by_tool = !mission.maker.isEmpty() && Zip_with_tool(mission.maker, folder.path(), archive);
    const QString fault = by_tool ? QString() : Zip_ourselves(folder.path(), archive);
    QFile file(archive);
    if (!fault.isEmpty() || !file.open(QIODevice::ReadWrite))
        return fault;
    file.setFileTime(mission.date.startOfDay().addSecs(43200), QFileDevice::FileModificationTime);
    return {};
}

/// Sets the program up as a user would, through the console face.
QString Set_up(const QString &home, const QString &key, const QString &value) {
    QString reason;
    Platform platform = Make_Linux_Platform();
    const Console_Streams streams{[](const QString &) {}, [&](const QString &line) { reason += line; },
                                  false};
    const int code = Run_Console(platform, streams, {"settings", "set", key, value}, home);
    return code == 0 ? QString() : reason;
}

} // namespace

QString Make_library(const QString &home, const QString &to, const QString &game_program) {
    QByteArray program = game_script;
    QFile file(game_program);
    if (!game_program.isEmpty() && file.open(QIODevice::ReadOnly))
        program = file.readAll();

    QStringList reasons;
    std::map<QString, QString> mission_folders;
    for (const Demo_Game &game : Make_games(program)) {
        const QString game_folder = to + "/games/" + game.folder,
                      mission_folder = to + "/missions/" + game.missions;
        QDir().mkpath(mission_folder);
        mission_folders[game.code] = game.missions;
        reasons << Write_tree(game_folder, game.files);
        for (const QString &name : QDir(game_folder).entryList({"*.exe"}, QDir::Files))
            QFile::setPermissions(game_folder + "/" + name,
                                  QFile::permissions(game_folder + "/" + name) | QFile::ExeOwner);
        reasons << Set_up(home, game.code + "GAME", game_folder) << Set_up(home, game.code, mission_folder);
    }
    for (const Mission &mission : Make_missions())
        reasons << Pack_mission(mission,
                                to + "/missions/" + mission_folders[mission.game] + "/" + mission.zip);
    reasons.removeAll(QString());
    return reasons.value(0);
}

} // namespace vantrosk::demo
