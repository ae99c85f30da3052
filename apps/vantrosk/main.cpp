#include "platform/Platform.h"
#include "platform/linux/Linux_Platform.h"
#include "ui/qt/Web_Environment.h"
#include "ui/qt/Window_Main.h"

#include <QApplication>

#include <cstdio>

int main(int argc, char *argv[]) {
    using namespace vantrosk;
    Prepare_linux_process();
    Prepare_web_engine();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("vantrosk"));
    QApplication::setDesktopFileName(QStringLiteral("vantrosk"));

    const Window_Options options = Read_window_options(QApplication::arguments().mid(1));
    if (!options.fault.isEmpty()) {
        std::fprintf(stderr, "vantrosk: %s\n%s", qPrintable(options.fault), qPrintable(Window_usage()));
        return 2;
    }
    if (options.show_help) {
        std::printf("%s", qPrintable(Window_usage()));
        return 0;
    }
    Platform platform = Make_Linux_Platform();
    const QString home =
        options.home.isEmpty() ? Default_home_folder(QApplication::applicationDirPath()) : options.home;
    return Run_window(platform, options, home);
}
