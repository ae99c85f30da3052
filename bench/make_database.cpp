// Makes the database of a large library and times one statement by key on it, one after another as the
// program sends them: bench_make_database FOLDER ROWS COUNT. A folder that has a database keeps it. Prints
// the microseconds of one statement.

#include "core/Program.h"
#include "core/mdlStartup.h"
#include "platform/linux/Linux_Platform.h"
#include "ui/console/Console_Ui.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <cstdio>

using namespace vantrosk;

namespace {

QString Zip_name(int number) {
    return QStringLiteral("bench_%1.zip").arg(number, 5, 10, QLatin1Char('0'));
}

void Fill(Program &program, int rows) {
    db_Execute(program, "BEGIN");
    for (int number = 1; number <= rows; ++number)
        db_Execute(program,
                   QStringLiteral("INSERT INTO Table_Scores (zip_name,FM_name,author,game,review) VALUES "
                                  "('%1','Bench Mission %2','Author %3','T2','%4')")
                       .arg(Zip_name(number))
                       .arg(number)
                       .arg(number % 97)
                       .arg(QStringLiteral("The watch passes, the lamp goes out. ").repeated(5)));
    db_Execute(program, "COMMIT");
}

int Rows(Program &program) {
    return db_Query(program, "SELECT count(*) as n FROM Table_Scores").number(0, "n");
}

/// Every statement asks for another row, in an order that no cache likes.
double Microseconds_of_a_statement(Program &program, int rows, int count) {
    QElapsedTimer timer;
    timer.start();
    int found = 0;
    for (int time = 0; time < count; ++time) {
        const int number = static_cast<int>(static_cast<qint64>(time) * 7919 % rows) + 1;
        found += db_Query(program, "SELECT * FROM Table_Scores WHERE zip_name = " +
                                       In_double_quotes(Zip_name(number)) + " and game = \"T2\"")
                     .size();
    }
    const double microseconds = static_cast<double>(timer.nsecsElapsed()) / 1000 / count;
    return found == count ? microseconds : -1;
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: bench_make_database FOLDER ROWS COUNT\n");
        return 2;
    }
    QCoreApplication application(argc, argv);
    const QString folder = QFileInfo(QFile::decodeName(argv[1])).absoluteFilePath();
    const int rows = std::atoi(argv[2]), count = std::atoi(argv[3]);
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
    if (Rows(program) == 0)
        Fill(program, rows);
    const double microseconds = Microseconds_of_a_statement(program, rows, count);
    std::printf("%.1f\n", microseconds);
    return microseconds < 0 ? 1 : 0;
}
