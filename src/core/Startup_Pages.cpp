#include "core/Program.h"
#include "core/Startup_Steps.h"
#include "core/mdlFile_Functions.h"

#include <QFile>

/// The pages lie in the executable, so that a start from any place has them.
static void Register_shipped_pages() {
    Q_INIT_RESOURCE(shipped_pages);
}

namespace vantrosk {

namespace {

constexpr const char *shipped_pages[] = {"Version_Notes.htm", "Vantrosk_welcome.htm"};

void Lay_out_page(Program &program, const QString &name) {
    const QString place = program.paths.AppPath + "\\" + name;
    if (FileExists(program, place))
        return;
    QFile page(":/shipped/" + name);
    if (!page.open(QIODevice::ReadOnly))
        return debug_print(program, "STARTUP: page does not come with this program: " + name);
    if (const Fault fault = program.files.write_file(place, page.readAll()))
        debug_print(program, "STARTUP: page not laid out: " + fault.text);
}

} // namespace

void Lay_Out_Shipped_Pages(Program &program) {
    Register_shipped_pages();
    for (const char *name : shipped_pages)
        Lay_out_page(program, name);
}

} // namespace vantrosk
