#include "Demo_Library.h"

#include "platform/linux/Linux_Platform.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>

#include <cstdio>

int main(int argc, char **argv) {
    vantrosk::Prepare_linux_process();
    QCoreApplication application(argc, argv);
    QCommandLineParser words;
    words.setApplicationDescription("Makes the demo library and sets Vantrosk up for it.");
    words.addHelpOption();
    words.addOptions({{"home", "The program's folder that is set up.", "DIR"},
                      {"to", "Where games and missions are made.", "DIR"}});
    words.process(application);
    if (!words.isSet("home") || !words.isSet("to"))
        words.showHelp(2);

    const QString game = QCoreApplication::applicationDirPath() + "/demo_game.exe";
    // Without Wine a script stands in for the games: it starts as it is.
    const bool can_run_it = QFileInfo::exists(game) && !QStandardPaths::findExecutable("wine").isEmpty();
    const QString reason = vantrosk::demo::Make_library(QFileInfo(words.value("home")).absoluteFilePath(),
                                                        QFileInfo(words.value("to")).absoluteFilePath(),
                                                        can_run_it ? game : QString());
    if (!reason.isEmpty()) {
        std::fprintf(stderr, "The demo library was not made: %s\n", qPrintable(reason));
        return 1;
    }
    std::printf("The demo library is in %s\n", qPrintable(words.value("to")));
    return 0;
}
