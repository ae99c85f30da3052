#include "core/mdlErrorHandler.h"

#include "core/Program.h"
#include "core/mdlFormDisplayFunctions.h"

namespace vantrosk {

namespace {

constexpr const char *box_title = "An Error Has Occured";
constexpr const char *screenshot_question = "\nDo you wish to take a screenshot?";
constexpr int milliseconds_until_the_box_is_gone = 1000;

/// How the trace names an area of the program.
struct Trace_Area {
    const char *module;
    const char *prefix;
};

constexpr Trace_Area trace_areas[] = {
    {"Form frmMain", "MAIN FORM: "},
    {"Form frmTweaks", "TWEAKS: "},
    {"Form frmSettings", "frmSettings: "},
    {"mdlFunctions", "FUNCTIONS: "},
    {"mdlFile_Functions", "File_Functions: "},
    {"mdlDB_Functions", "DB_FUNCTIONS: "},
    {"mdlFormDisplayFunctions", "FORM DISPLAY: "},
    {"mdlStartup", "STARTUP: "},
    {"mdlDebug", "DEBUGGER: "},
};

QString Trace_prefix(const QString &place) {
    const QString module = place.startsWith("Module ") ? place.mid(7) : place;
    for (const Trace_Area &area : trace_areas) {
        if (module == QLatin1String(area.module))
            return area.prefix;
    }
    return module + ": ";
}

void Show_fault(Program &program, const QString &procedure, const QString &module, int number,
                const QString &description) {
    debug_print(program,
                Trace_prefix(module) +
                    QString("Error In %1 : (%2) %3").arg(procedure, QString::number(number), description));
    Box box;
    box.kind = Box_Kind::critical;
    box.title = box_title;
    box.text = Error_text(procedure, module, number, description);
    if (program.ui.has_screen()) {
        box.text += screenshot_question;
        box.buttons = Buttons::yes_no;
        box.default_answer = Answer::no;
    }
    if (program.ui.show_box(box) == Answer::yes)
        Take_Error_Screenshot(program);
}

} // namespace

Program_Error::Program_Error(int number, const QString &description)
    : std::runtime_error(description.toStdString()), number_(number), description_(description) {}

QString Error_text(const QString &procedure, const QString &module, int number, const QString &description) {
    const bool is_named = module.startsWith("Form ") || module.startsWith("Module ");
    const QString place = is_named ? module : "Module " + module;
    return QString("Error %1 (%2) on line 0 in procedure %3 of %4.")
        .arg(QString::number(number), description, procedure, place);
}

bool With_error_box(Program &program, const QString &procedure, const QString &module,
                    const std::function<void()> &work) {
    try {
        work();
        return true;
    } catch (const Program_Error &error) {
        Show_fault(program, procedure, module, error.number(), error.description());
    } catch (const std::exception &error) {
        Show_fault(program, procedure, module, 0, QString::fromUtf8(error.what()));
    }
    return false;
}

void Take_Error_Screenshot(Program &program) {
    program.ui.pump_events();
    program.clock.sleep(milliseconds_until_the_box_is_gone);
    if (const Fault fault = program.files.make_folder(program.paths.error_screenshots))
        debug_print(program, "DEBUGGER: folder of the error images not made: " + fault.text);
    const QString path = program.paths.error_screenshots + program.clock.now().toString("yyyyMMdd") + ".bmp";
    if (program.ui.save_screenshot(path))
        Show_Message(program, "Vantrosk", "Error image file " + program.files.to_native(path) + " created.");
    else
        debug_print(program, "DEBUGGER: Error image file " + path + " not created");
}

} // namespace vantrosk
