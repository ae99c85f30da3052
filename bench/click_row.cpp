// Times the click on a row of the list: bench_click_row FOLDER ENTRIES CLICKS. In FOLDER it keeps two zips,
// each a Thief 2 mission of so many entries with a readme, a title picture and ten pictures for the readme,
// and a program's folder. Prints the median and the slowest click in milliseconds, then the same of the
// processor time, which a busy machine does not blur.

#include "core/Program.h"
#include "core/mdlStartup.h"
#include "library/Fm_List_View.h"
#include "library/Get_archives.h"
#include "platform/linux/Linux_Platform.h"
#include "ui/console/Console_Ui.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <zip.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <deque>

using namespace vantrosk;

namespace {

constexpr int readme_lines = 400, readme_pictures = 10, picture_size = 100 * 1024;

/// The archive reads its contents when it is closed: they stay here until then.
class Maker {
public:
    explicit Maker(const QString &path)
        : archive_(zip_open(QFile::encodeName(path).constData(), ZIP_CREATE | ZIP_TRUNCATE, nullptr)) {}

    void add(const QByteArray &name, const QByteArray &content) {
        const QByteArray &kept = contents_.emplace_back(content);
        zip_source_t *source =
            zip_source_buffer(archive_, kept.constData(), static_cast<zip_uint64_t>(kept.size()), 0);
        zip_file_add(archive_, name.constData(), source, ZIP_FL_ENC_UTF_8);
    }
    bool close() { return zip_close(archive_) == 0; }

private:
    zip_t *archive_;
    std::deque<QByteArray> contents_;
};

/// Bytes that compress as badly as those of a photograph.
QByteArray Noise(int seed) {
    QByteArray bytes;
    auto state = static_cast<quint32>(seed + 1);
    for (int i = 0; i < picture_size; ++i) {
        state = state * 1664525 + 1013904223;
        bytes += static_cast<char>(state >> 24);
    }
    return bytes;
}

QByteArray Readme(int number) {
    QByteArray text =
        "Title : Bench Mission " + QByteArray::number(number) + "\r\nAuthor : Ann\r\nGame : Thief 2\r\n\r\n";
    for (int line = 0; line < readme_lines; ++line)
        text += "The watch passes, the lamp goes out, and step " + QByteArray::number(line) +
                " of the stair creaks.\r\n";
    return text;
}

bool Make(const QString &path, int number, int entries) {
    Maker maker(path);
    for (int i = 0; i < entries - readme_pictures - 4; ++i)
        maker.add("mesh/txt16/part_" + QByteArray::number(i) + ".gif", "part");
    for (int i = 0; i < readme_pictures; ++i)
        maker.add("vkimages/picture_" + QByteArray::number(i) + ".jpg", Noise(i));
    maker.add("vktitle.jpg", Noise(number));
    maker.add("miss20.mis", QByteArray(2000, 'm'));
    maker.add("strings/titles.str", "title_20: \"Bench\"\r\n");
    maker.add("readme.txt", Readme(number));
    return maker.close();
}

struct Times {
    std::vector<double> clock, processor; ///< milliseconds
};

double Processor_milliseconds() {
    return static_cast<double>(std::clock()) * 1000 / CLOCKS_PER_SEC;
}

void Time_a_click(Program &program, int row, Times &times) {
    QElapsedTimer timer;
    timer.start();
    const double before = Processor_milliseconds();
    Row_Click(program, row, col_name);
    times.processor.push_back(Processor_milliseconds() - before);
    times.clock.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
}

int Click(Program &program, int clicks) {
    const int first = program.screen.list.original_rows;
    Times times;
    for (int i = 0; i < clicks; ++i) {
        Time_a_click(program, first + i % 2, times);
        if (program.fm.readme_page.isEmpty() || program.screen.details.picture_path.isEmpty())
            return 1;
    }
    for (std::vector<double> *kind : {&times.clock, &times.processor}) {
        std::sort(kind->begin(), kind->end());
        std::printf("%.1f %.1f ", (*kind)[kind->size() / 2], kind->back());
    }
    std::printf("\n");
    return 0;
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: bench_click_row FOLDER ENTRIES CLICKS\n");
        return 2;
    }
    Prepare_linux_process();
    QCoreApplication application(argc, argv);
    const QString folder = QFileInfo(QFile::decodeName(argv[1])).absoluteFilePath();
    for (const char *part : {"zips", "home", "game"})
        QDir().mkpath(folder + "/" + part);
    for (const int number : {1, 2}) {
        const QString path = folder + QStringLiteral("/zips/bench_%1.zip").arg(number);
        if (!QFileInfo::exists(path) && !Make(path, number, std::atoi(argv[2])))
            return 1;
    }
    Platform platform = Make_Linux_Platform();
    Console_Ui ui({[](const QString &) {},
                   [](const QString &) {
                   }},
                  {});
    Program program(platform, ui, platform.files->to_windows(folder + "/home"));
    if (!Start_Program(program))
        return 1;
    program.ini.T2_LOCATION = platform.files->to_windows(folder + "/zips") + "*#*";
    program.ini.T2_GAME_LOCATION = platform.files->to_windows(folder + "/game");
    Get_archives_of_game(program, "T2");
    return Click(program, std::atoi(argv[3]));
}
