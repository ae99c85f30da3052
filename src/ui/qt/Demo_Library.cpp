#include "Demo_Library.h"

#include "Game_Toolbar.h"

#include "core/Program.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QProcess>
#include <QTimer>

namespace vantrosk {

namespace {

constexpr int longest_making = 5 * 60 * 1000; ///< milliseconds

/// Why it failed; empty when it did not. The window repaints meanwhile.
QString Run_demo_maker(const QString &maker, const QStringList &arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    QObject::connect(&process, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
    QTimer::singleShot(longest_making, &loop, &QEventLoop::quit);
    process.start(maker, arguments);
    loop.exec();
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished();
        return QStringLiteral("It took too long.");
    }
    if (process.error() == QProcess::FailedToStart)
        return process.errorString();
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        return {};
    return QString::fromLocal8Bit(process.readAll().right(2000)).trimmed();
}

} // namespace

QString Demo_maker() {
    const QFileInfo maker(QCoreApplication::applicationDirPath() + QStringLiteral("/vantrosk-demo"));
    return maker.isFile() && maker.isExecutable() ? maker.filePath() : QString();
}

QString Demo_folder(const Program &program) {
    return QDir(program.files.to_native(program.paths.AppPath)).filePath(QStringLiteral("demo"));
}

bool Make_demo_library(Program &program) {
    Set_Status_Light(program, 2);
    Set_Status_Panel(program, 1, QStringLiteral("Making the demo library"));
    program.ui.set_busy(true);
    const QString home = program.files.to_native(program.paths.AppPath);
    const QString reason = Run_demo_maker(
        Demo_maker(), {QStringLiteral("--home"), home, QStringLiteral("--to"), Demo_folder(program)});
    program.ui.set_busy(false);
    Set_Status_Light(program, 1);
    Set_Status_Panel(program, 1, QStringLiteral("Ready"));
    if (!reason.isEmpty()) {
        Show_Warning(program, QStringLiteral("Vantrosk"),
                     QStringLiteral("The demo library could not be made.\n\n") + reason);
        return false;
    }
    Read_Ini_Files(program);
    program.ui.games_changed();
    return Any_game_is_set_up(program);
}

bool Offer_demo_library(Program &program, bool always) {
    if (Any_game_is_set_up(program) || Demo_maker().isEmpty() || !(always || program.first_run))
        return false;
    const bool wanted = Ask_Yes_No(
        program, QStringLiteral("Vantrosk"),
        QStringLiteral("Vantrosk is not set up yet. Would you like to try it with the demo library?\n\n"
                       "It holds missions written for this purpose and small stand-ins for the games. All of "
                       "it goes into the folder\n%1\nand nothing else on this computer is touched.")
            .arg(Demo_folder(program)));
    return wanted && Make_demo_library(program);
}

} // namespace vantrosk
