#include "core/Later_Steps.h"
#include "core/Profile_File.h"
#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/Install_Paths.h"
#include "install/Install_Run.h"
#include "install/Recover_Log.h"
#include "zip/mUnzip.h"

#include <algorithm>
#include <array>

namespace vantrosk {

namespace {

constexpr const char *description = "skininfo.ini";
constexpr qint64 longest_description = 1024 * 1024;
constexpr qint64 largest_picture = 64 * 1024 * 1024;

/// A skin carries no program and no page.
constexpr std::array<const char *, 6> not_in_a_skin{".EXE", ".HTML", ".HTM", ".DLL", ".BAT", ".COM"};

bool May_be_in_a_skin(const QString &name) {
    return std::none_of(not_in_a_skin.begin(), not_in_a_skin.end(), [&](const char *extension) {
        return name.endsWith(QLatin1String(extension), Qt::CaseInsensitive);
    });
}

/// What the skin calls itself; empty when the archive is none.
QString Name_of_skin(const cUnzip &zip) {
    for (int i = 1; i <= zip.FileCount(); ++i) {
        if (!Is_same_path(zip.Filename(i), description))
            continue;
        const Result<QByteArray> text = zip.Read_entry(i, longest_description);
        const Profile_File ini(Split_lines(Decode_text(text.value)));
        const QString name = ini.value("SKININFO", "Name");
        return name.isEmpty() ? FileNameFromPath(zip.ZipFile).chopped(4) : name;
    }
    return {};
}

Fault Put_on(Program &program, const QString &skin) {
    cUnzip zip(program.files);
    zip.ZipFile = skin;
    zip.UnzipFolder = program.paths.current_skin;
    zip.UseFolderNames = false;
    zip.SizeLimit = largest_picture;
    if (Fault fault = zip.Directory())
        return fault;
    const QString name = Name_of_skin(zip);
    if (name.isEmpty())
        return {Fault_Kind::damaged, "\"" + skin + "\" has no " + description + " and is no skin."};
    for (int i = 1; i <= zip.FileCount(); ++i)
        zip.FileSelected(i, May_be_in_a_skin(zip.Filename(i)) && zip.FileIsSafe(i));
    if (Fault fault = zip.Check_selected())
        return fault;
    Empty_folder_of_files(program, program.paths.current_skin);
    if (Fault fault = zip.Unzip())
        return fault;
    program.tweaks.VK_SCHEME = name;
    Trace_fault(program, Write_Tweaks_Ini(program));
    Run_Later_Step(program, Later_Step::apply_skin);
    return {};
}

} // namespace

void Install_skin(Install_Run &run) {
    Program &program = run.program;
    if (run.plan.skin_path.isEmpty())
        return;
    const QString name = run.zip_name.toUpper().replace(".ZIP", "_SKIN.ZIP");
    const QString place = Join_path(program.paths.skins, name);
    if (FileExists(program, place))
        return;
    if (const Fault fault = program.files.copy_file(run.plan.skin_path, place))
        Trace_fault(program, fault);
    else
        run.new_skin = place;
}

void Ask_about_skin(Install_Run &run) {
    if (run.new_skin.isEmpty())
        return;
    const bool wanted = Ask_Yes_No(
        run.program, "New Skin Found",
        "A new custom skin for Vantrosk has been detected in this FM.\r\n"
        "It has been added to your skins folder and can be found in PREDEFINED SKINS section of the DISPLAY "
        "tab in the TWEAKS TOOL.\r\n"
        "This new skin is likely to be designed to acompany this FM so you may want to activate it before "
        "playing.Would you likw to set it now?");
    if (wanted)
        Trace_fault(run.program, Put_on(run.program, run.new_skin));
}

} // namespace vantrosk
