#include "core/Database_Engine.h"
#include "core/Program.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"

namespace vantrosk {

namespace {

constexpr const char *data_control = "MSADODC.OCX";
constexpr const char *system_folders[] = {"C:\\WINDOWS\\system32\\", "C:\\WINNT\\system32\\"};
constexpr const char *no_data_control =
    "MSADODC.OCX does not seem to exist in the system32 folder, possible failed install?";

constexpr const char *no_file =
    "Caution the Vantrosk Database File does not seem to exist in the Vantrosk install folder.\n"
    "The file is called Vantrosk.mdb, please confirm if it is located in %1";

constexpr const char *advice_title = "A Database Error Has Occurred, you may have an out of date copy";
constexpr const char *advice =
    "If you received an error message just now, your database is incorrectly configured.\n\n"
    "Please download an updated database, or open the database and grant read permission to the catalog "
    "tables MSYSOBJECTS and MSYSQUERIES:\n\n"
    "1) Open Vantrosk.mdb\n"
    "2) Goto TOOLS - SECURITY - USER AND GROUP PERMISSIONS\n"
    "3) Grant read permission to MSYSOBJECTS and MSYSQUERIES\n\n"
    "If you have changed the database file or updated it, click YES below to exit Vantrosk and restart, "
    "otherwise click NO (you may receive more error messages).";

void Note(Program &program, const QString &text) {
    debug_print(program, "DB_FUNCTIONS: " + text);
}

/// The number that the system knows such a file by; what tells files from folders is all that is kept.
int Attributes_of(const File_Info &file) {
    constexpr int folder = 16, plain_file = 32;
    return file.is_folder ? folder : plain_file;
}

void Look_for_data_control(Program &program) {
    for (const char *folder : system_folders) {
        if (FileExists(program, QString(folder) + data_control))
            return Note(program, QString("%1 found in %2").arg(data_control, folder));
    }
    Note(program, no_data_control);
    Show_Warning(program, "Vantrosk", no_data_control);
}

void Look_at_file(Program &program) {
    const QString path = Database_path(program);
    const auto file = program.files.look(path);
    if (!file) {
        Note(program, "CRITICAL: Database file does not exist");
        Show_Critical(program, "Vantrosk",
                      QString(no_file).arg(program.files.to_native(program.paths.AppPath)));
        return;
    }
    Note(program, "Database file exists, now checking attributes");
    if (Lift_write_protection(program, path))
        return;
    Note(program, QString("Database file attributes are %1 so not read only error possibly due to "
                          "MSADODC.OCX, checking now")
                      .arg(Attributes_of(*file)));
    Look_for_data_control(program);
}

} // namespace

bool Lift_write_protection(Program &program, const QString &path) {
    const auto file = program.files.look(path);
    if (!file || !file->read_only)
        return false;
    Note(program, "Database file exists its marked as read only though, so trying to change to normal "
                  "attributes");
    if (const Fault fault = program.files.clear_attributes(path))
        Note(program, fault.text);
    return true;
}

bool Diagnose_database_fault(Program &program, const Program_Error &error) {
    debug_print(program, QString("Error Number %1").arg(error.number()));
    debug_print(program, "Error Description: " + error.description());
    Look_at_file(program);
    program.start.end_requested = Ask_Yes_No(program, advice_title, advice);
    return !program.start.end_requested;
}

} // namespace vantrosk
