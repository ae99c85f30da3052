// Turns one text readme into its page again and again: bench_make_page FOLDER FILE COUNT. Prints the
// milliseconds of processor time of one page, file read and page written included.

#include "core/Program.h"
#include "core/mdlStartup.h"
#include "platform/linux/Linux_Platform.h"
#include "readme/mdlHTML_stuff.h"
#include "ui/console/Console_Ui.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <cstdio>
#include <ctime>

using namespace vantrosk;

int main(int argc, char **argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: bench_make_page FOLDER FILE COUNT\n");
        return 2;
    }
    QCoreApplication application(argc, argv);
    const QString folder = QFileInfo(QFile::decodeName(argv[1])).absoluteFilePath();
    const QString readme = QFileInfo(QFile::decodeName(argv[2])).absoluteFilePath();
    const int count = std::atoi(argv[3]);
    QDir().mkpath(folder);
    Platform platform = Make_Linux_Platform();
    Console_Ui ui({[](const QString &) {},
                   [](const QString &line) {
                       std::fprintf(stderr, "%s\n", qPrintable(line));
                   }},
                  {});
    Program program(platform, ui, platform.files->to_windows(folder));
    if (!Start_Program(program))
        return 1;
    Page_Facts facts;
    facts.row_selected = true;
    const std::clock_t start = std::clock();
    for (int time = 0; time < count; ++time) {
        program.screen.details.keywords.clear();
        if (Render_Text_Readme(program, platform.files->to_windows(readme), facts).isEmpty())
            return 1;
    }
    std::printf("%.2f\n", static_cast<double>(std::clock() - start) * 1000 / CLOCKS_PER_SEC / count);
}
