#include "core/Program.h"
#include "core/Startup_Steps.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFunctions.h"
#include "core/mdlStartup.h"

namespace vantrosk {

namespace {

constexpr qint64 largest_log = 3000000; ///< bytes; a longer one is deleted at start

/// The address in the first line of a file of the program's folder, or what holds without it.
QString Address_from(const Program &program, const char *file, const char *otherwise) {
    const QString line = First_line(program, program.paths.AppPath + "\\" + file);
    return line.startsWith(QLatin1String("HTTP://"), Qt::CaseInsensitive) ? line : QString(otherwise);
}

void Delete_if_too_large(Program &program, const QString &path) {
    const auto found = program.files.look(path);
    if (!found || found->is_folder || found->size <= largest_log)
        return;
    if (const Fault fault = DeleteFileForced(program, path))
        debug_print(program, "STARTUP: log not deleted: " + fault.text);
}

} // namespace

void Set_Server_Base_Url(Program &program) {
    program.server_base_url = Address_from(program, "VKSite.txt", default_server_base_url);
}

void Set_Review_Feed_Url(Program &program) {
    // The tweaks are read after this, so this is 0 and the file is passed over. Kept: who has such a file has
    // lived without its effect.
    const bool asks_file = program.tweaks.QUILLMARCH != 0;
    program.review_feed_url = asks_file ? Address_from(program, "VKReviewSite.txt", default_review_feed_url)
                                        : QString(default_review_feed_url);
}

void Fill_Categories(Program &program) {
    program.categories = QString(category_keywords).split(QLatin1Char(','));
}

void Cull_Temp_Files(Program &program) {
    debug_print(program, "STARTUP: Cull Temp Files");
    Delete_if_too_large(program, program.paths.AppPath + "\\SQL_Log.log");
    Delete_if_too_large(program, program.paths.debug_log);
    debug_print(program, "STARTUP: Finished Culling Temp Files");
}

void Settle_Installation_Identity(Program &program) {
    Settings_Store &settings = *program.platform.settings;
    const auto store = [&](const char *section, const char *key, const QString &value) {
        if (const Fault fault = settings.set_value(section, key, value))
            debug_print(program, "STARTUP: " + fault.text);
    };
    program.VKGUID = settings.value("GUID", "VKGUID");
    if (program.VKGUID.isEmpty()) {
        program.VKGUID = CreateGUID();
        store("GUID", "VKGUID", program.VKGUID);
    }
    if (settings.value("INSTALLPATH", "ProgramRoot") != program.paths.AppPath)
        store("INSTALLPATH", "ProgramRoot", program.paths.AppPath);
}

void Check_Database_Tables(Program &program) {
    With_error_box(program, "Check_Database_Tables", "Module mdlStartup", [&] {
        const QString marker = QString("Version_Notes_") + build_number;
        if (!FileExists(program, program.paths.main_ini) || !DB_Message_Was_Seen(program, marker))
            DB_Upgrade_Tables(program);
        else
            debug_print(program, "Database Table Checks not required as already done in this version");
    });
}

} // namespace vantrosk
