#include "platform/Native_Text.h"
#include "platform/Platform.h"
#include "platform/linux/Linux_Platform.h"
#include "ui/qt/Web_Environment.h"
#include "ui/qt/Window_Main.h"

#include <QApplication>

#include <cstdio>

namespace {

/// The words behind the program's own name; a path in them may be of any bytes.
QStringList Words(int argc, char *argv[]) {
    QStringList words;
    for (int word = 1; word < argc; ++word)
        words << vantrosk::Argument_text(argv[word]);
    return words;
}

} // namespace

int main(int argc, char *argv[]) {
    using namespace vantrosk;
    Prepare_linux_process();
    if (Read_window_options(Words(argc, argv)).show_help) { // a call for help needs no display
        std::printf("%s", qPrintable(Window_usage()));
        return 0;
    }
    Prepare_web_engine();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("vantrosk"));
    QApplication::setDesktopFileName(QStringLiteral("vantrosk"));

    const Window_Options options = Read_window_options(Words(argc, argv));
    if (!options.fault.isEmpty()) {
        std::fprintf(stderr, "vantrosk: %s\n%s", qPrintable(options.fault), qPrintable(Window_usage()));
        return 2;
    }
    Platform platform = Make_Linux_Platform();
    const QString home =
        options.home.isEmpty() ? Default_home_folder(QApplication::applicationDirPath()) : options.home;
    return Run_window(platform, options, home);
}
