#include "core/Program.h"
#include "core/Startup_Steps.h"
#include "core/mdlFile_Functions.h"

#include <QDirIterator>
#include <QFile>

/// The pages and their pictures lie in the executable, so that a start from any place has them.
static void Register_shipped_pages() {
    Q_INIT_RESOURCE(shipped_pages);
}

namespace vantrosk {

namespace {

const QString shipped = QStringLiteral(":/shipped/");

/// What is there already may be the user's own.
void Lay_out_file(Program &program, const QString &resource) {
    const QString name = resource.mid(shipped.size()).replace(QLatin1Char('/'), QLatin1Char('\\'));
    const QString place = program.paths.AppPath + "\\" + name;
    if (FileExists(program, place))
        return;
    QFile file(resource);
    if (!file.open(QIODevice::ReadOnly))
        return debug_print(program, "STARTUP: file does not come with this program: " + name);
    if (const Fault fault = program.files.write_file(place, file.readAll()))
        debug_print(program, "STARTUP: file not laid out: " + fault.text);
}

} // namespace

void Lay_Out_Shipped_Pages(Program &program) {
    Register_shipped_pages();
    QDirIterator files(shipped, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        Lay_out_file(program, files.next());
}

} // namespace vantrosk
