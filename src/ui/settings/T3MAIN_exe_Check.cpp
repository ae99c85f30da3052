#include "ui/settings/T3MAIN_exe_Check.h"

#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "core/mdlFunctions.h"
#include "install/Install_Paths.h"
#include "ui/settings/Shown_Path.h"
#include "zip/mUnzip.h"

namespace vantrosk {

namespace {

constexpr const char *procedure = "T3MAIN_exe_Check", *module = "Form frmSettings";
constexpr const char *main_name = "T3MAIN.EXE";
constexpr const char *old_name = "T3MAIN.EXE.OLD";
constexpr const char *beside_folder = "vantrosk_t3main"; ///< of the temp folder
constexpr qint64 largest_program = 256 * 1024 * 1024;

constexpr const char *wrong_version =
    "WARNING: Vantrosk has detected that your T3MAIN.EXE in %1 appears not to be the correct version to play "
    "Thief 3 Fan Missions.";
constexpr const char *right_one_is_here =
    "However Vantrosk has also detected that you have the correct version available on your harddrive from "
    "the Vantrosk install.";
constexpr const char *shall_it_be_used = "Would you like Vantrosk to back up your T3MAIN.EXE and use the "
                                         "updated version instead? Failure to do so "
                                         "will mean you can NOT run Thief 3 Fan Missions properly.";
constexpr const char *replaced =
    "Updated T3MAIN.EXE has now been installed and your existing one is now called T3MAIN.EXE.OLD.";
constexpr const char *kept = "As you have chosen to use the original T3MAIN.EXE, Fan Missions will miss key "
                             "objectives, briefings, graphics and objects.";
constexpr const char *how_to_notice = "You will notice that you have the wrong exe when mission objectives, "
                                      "briefings and custom graphics do not show correctly.";
constexpr const char *which_it_may_be = "You may be using the version shipped with Thief 3 which does not "
                                        "fully work with Fan Missions.";
constexpr const char *where_it_is = "The Thief 3 Editor version of the exe (you do not need all 300mb of the "
                                    "editor itself) is available from %1/downloads.pl";

constexpr const char *user_patch[] = {"[PCVertexPools]", "DynamicVertexPool=6291456",
                                      "StaticVertexPool=5242880", "StaticShadowVertexPool=3145728"};

QString Paragraphs(const QStringList &texts) {
    return texts.join("\r\n\r\n");
}

void Trace_check(Program &program, const QString &text) {
    debug_print(program, "frmSettings: T3MAIN_exe_Check" + text);
}

void Throw(const Fault &fault) {
    if (fault)
        throw Program_Error(fault.number, fault.text);
}

/// The build that plays missions is known by its date.
bool Is_wrong_version(const Program &program, const QString &main_program) {
    const auto file = program.files.look(main_program);
    if (!file || file->is_folder || file->size == 0)
        return false;
    return file->modified.toString("dd/MM/yyyy") != QLatin1String("17/11/2004") &&
           file->modified.toString("MM/dd/yyyy") != QLatin1String("11/17/2004");
}

/// The folder of the user's own files, which names the user: "C:\users\me\...".
QString User_name(const Program &program) {
    const QString own =
        program.platform.registry
            ->read("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell "
                   "Folders\\Personal")
            .value_or(QString());
    return Tidy_path(own).section('\\', 2, 2);
}

/// Where Vista puts what is written below "Program Files"; empty where it does not.
QString Virtual_folder(Program &program, const QString &folder) {
    const QString protected_part = "PROGRAM FILES";
    if (Windows_Version(program) != QLatin1String("VISTA"))
        return {};
    Trace_check(program, ": VISTA Trying To Determine Virtual Path");
    if (!folder.contains(protected_part, Qt::CaseInsensitive)) {
        Trace_check(program, ": VISTA NOT in Program Files normal process");
        return {};
    }
    Trace_check(program, ": VISTA in Program Files Virtualization needed");
    QString path = folder;
    path.replace(protected_part,
                 "Users\\" + User_name(program) + "\\AppData\\Local\\VirtualStore\\Program Files",
                 Qt::CaseInsensitive);
    Trace_check(program, ": VISTA myreplacement_path = " + path);
    return path;
}

/// Unpacks the new program into the temp folder and looks whether it is whole.
QString Unpack_beside(Program &program) {
    cUnzip zip(program.files);
    zip.ZipFile = program.paths.AppPath + "\\T3MAIN.ZIP";
    zip.UnzipFolder = program.paths.temp + beside_folder;
    zip.SizeLimit = largest_program;
    Throw(zip.Directory());
    bool is_there = false;
    for (int i = 1; i <= zip.FileCount(); ++i) {
        const bool wanted = !is_there && Is_same_path(zip.Filename(i), main_name) && zip.FileSize(i) > 0;
        zip.FileSelected(i, wanted);
        is_there = is_there || wanted;
    }
    if (!is_there)
        throw Program_Error(53, zip.ZipFile + " holds no " + main_name);
    Throw(zip.Unzip());
    return Join_path(zip.UnzipFolder, main_name);
}

/// Puts a file away under another name, in the place of what was there.
void Put_away(Program &program, const QString &from, const QString &to) {
    Throw(program.files.move_file(from, to));
}

/// The old program goes away, where Vista would have it go; its new path.
QString Put_old_away(Program &program, const QString &folder) {
    const QString main_program = Join_path(folder, main_name);
    const QString virtual_folder = Virtual_folder(program, folder);
    QString old_program = Join_path(folder, old_name);
    if (!virtual_folder.isEmpty()) {
        const QString redirected = Join_path(virtual_folder, main_name);
        if (!FolderExists(program, virtual_folder)) {
            Trace_check(program, ": VISTA Virtual path does not exist, needs to be created");
            Throw(program.files.make_folder(virtual_folder));
            old_program = Join_path(virtual_folder, old_name);
        } else if (FileExists(program, redirected)) {
            Put_away(program, redirected, Join_path(virtual_folder, old_name));
        } else {
            old_program = Join_path(virtual_folder, old_name);
        }
    }
    Put_away(program, main_program, old_program);
    return old_program;
}

void Replace(Program &program, const QString &folder) {
    const QString main_program = Join_path(folder, main_name);
    const QString fresh = Unpack_beside(program);
    const QString old_program = Put_old_away(program, folder);
    if (const Fault fault = program.files.move_file(fresh, main_program)) {
        if (const Fault lost = program.files.move_file(old_program, main_program))
            throw Program_Error(lost.number, fault.text + " " + lost.text);
        Throw(fault);
    }
    Show_Message(program, "", replaced);
}

void Mend(Program &program, const QString &folder) {
    const QString warning = QString(wrong_version).arg(Shown_Path(program, folder));
    if (!FileExists(program, program.paths.AppPath + "\\T3MAIN.ZIP"))
        return Show_Critical(program, "",
                             Paragraphs({warning, how_to_notice, which_it_may_be,
                                         QString(where_it_is).arg(program.server_base_url)}));
    if (!Ask_Yes_No(program, "", Paragraphs({warning, right_one_is_here, shall_it_be_used})))
        return Show_Message(program, "", kept);
    With_error_box(program, procedure, module, [&] { Replace(program, folder); });
}

void Make_user_patch(Program &program, const QString &folder) {
    const QString path = Join_path(folder, "user_patch.ini");
    if (FileExists(program, path))
        return;
    QStringList lines;
    for (const char *line : user_patch)
        lines << line;
    if (const Fault fault = Write_text_lines(program, path, lines))
        Trace_check(program, ": user_patch.ini not written: " + fault.text);
}

} // namespace

void T3MAIN_exe_Check(Program &program, const QString &path) {
    const QString file = Tidy_path(path);
    if (!Is_same_path(FileNameFromPath(file), "t3.exe"))
        return;
    Trace_check(program, " start");
    const QString folder = Parent_path(file);
    if (Is_wrong_version(program, Join_path(folder, main_name)))
        Mend(program, folder);
    Make_user_patch(program, folder);
}

} // namespace vantrosk
