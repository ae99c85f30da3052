#include "core/mdlStartup.h"

#include "core/Program.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "core/mdlFunctions.h"

namespace vantrosk {

namespace {

constexpr const char *folders_that_must_exist =
    "temp,temp\\VKIMAGES,temp\\updates,temp\\resources,info,info\\VKIMAGES,tools,titles,resources,languages,"
    "VKIMAGES,MAP_IMAGES,cheats,Game_support,references,HTMLImages,custom_game_images,skins,skins\\current,"
    "help\\viewlets,Enhancements,Enhancements\\T1,Enhancements\\T2,Enhancements\\T3,Enhancements\\DMOD,"
    "Enhancements\\SS2,ERRORS,ERRORS\\Screenshots";

constexpr qint64 largest_log = 3000000; ///< bytes; a longer one is deleted at start

constexpr int first_feed_page = 2, last_feed_page = 15;
constexpr const char *leftover_pages[] = {"Competitionform.htm", "Feedbackform.htm", "temprtf.txt",
                                          "temprtf.htm"};

/// Traces the stage that comes next and lets the user hold the start there.
void Announce_stage(Program &program, const char *stage) {
    debug_print(program, stage);
    debug_pause(program, stage);
}

bool Make_program_folder(Program &program) {
    const Fault fault = program.files.make_folder(program.paths.AppPath);
    if (!fault)
        return true;
    Show_Critical(program, "Vantrosk", "The folder of Vantrosk can not be used: " + fault.text);
    return false;
}

void Set_Server_Base_Url(Program &program) {
    program.server_base_url = default_server_base_url;
    const QString line = First_line(program, program.paths.AppPath + "\\VKSite.txt");
    if (line.startsWith(QLatin1String("HTTP://"), Qt::CaseInsensitive))
        program.server_base_url = line;
}

void Delete_if_too_large(Program &program, const QString &path) {
    const auto found = program.files.look(path);
    if (found && !found->is_folder && found->size > largest_log)
        (void)DeleteFileForced(program, path);
}

void Cull_Temp_Files(Program &program) {
    debug_print(program, "STARTUP: Cull Temp Files");
    Delete_if_too_large(program, program.paths.AppPath + "\\SQL_Log.log");
    Delete_if_too_large(program, program.paths.debug_log);
    debug_print(program, "STARTUP: Finished Culling Temp Files");
}

void Settle_Installation_Identity(Program &program) {
    Settings_Store &settings = *program.platform.settings;
    program.VKGUID = settings.value("GUID", "VKGUID");
    if (program.VKGUID.isEmpty()) {
        program.VKGUID = CreateGUID();
        settings.set_value("GUID", "VKGUID", program.VKGUID);
    }
    if (settings.value("INSTALLPATH", "ProgramRoot") != program.paths.AppPath)
        settings.set_value("INSTALLPATH", "ProgramRoot", program.paths.AppPath);
}

/// The tables are looked over once per build and at a first start.
void Check_Database_Tables(Program &program) {
    With_error_box(program, "Check_Database_Tables", "Module mdlStartup", [&] {
        const QString marker = QString("Version_Notes_") + build_number;
        if (!FileExists(program, program.paths.main_ini) || !DB_Message_Was_Seen(program, marker))
            DB_Upgrade_Tables(program);
        else
            debug_print(program, "Database Table Checks not required as already done in this version");
    });
}

/// The feed's page is made anew from its text at the next start.
void Delete_Feed_Leftovers(Program &program) {
    const QString &temp = program.paths.temp;
    if (FileExists(program, temp + "Quillmarch.rss") && FileExists(program, temp + "Quillmarch.txt"))
        (void)DeleteFileForced(program, temp + "Quillmarch.rss");
    for (int page = first_feed_page; page <= last_feed_page; ++page)
        (void)DeleteFileForced(program, temp + QString("RSS_feed%1.htm").arg(page));
}

} // namespace

QString Window_Title() {
    return QString("Vantrosk") + version_number + " - " + build_date;
}

void Create_Folders(Program &program) {
    for (const QString &folder : QString(folders_that_must_exist).split(QLatin1Char(','))) {
        const QString path = program.paths.AppPath + "\\" + folder;
        if (!FolderExists(program, path))
            (void)CreateFolderTree(program, path);
    }
}

bool Start_Program(Program &program) {
    debug_print(program, "MAIN FORM: Form initialize started");
    if (!Make_program_folder(program))
        return false;
    Set_Server_Base_Url(program);
    debug_print(program, "Starting Debug Log");
    Announce_stage(program, "About to set defaults");
    Set_Display_Defaults(program);
    Announce_stage(program, "About to read ini");
    Read_Ini_Files(program);
    Announce_stage(program, "About to create folders");
    Create_Folders(program);
    Cull_Temp_Files(program);
    Set_Caption(program, Window_Title());
    Settle_Installation_Identity(program);
    if (!Open_database(program))
        return false;
    Check_Database_Tables(program);
    return true;
}

bool Show_Crash_Evidence(Program &program) {
    const Paths &paths = program.paths;
    if (!FileExists(program, paths.install_recover_log))
        return false;
    if (FileExists(program, paths.debug_log)) {
        // One name per day of the year: a second crash on that day replaces the evidence of the first.
        const QString kept = paths.AppPath + "\\debug_" + program.clock.now().toString("dd_MM") + ".log";
        if (const Fault fault = program.files.move_file(paths.debug_log, kept))
            debug_print(program, "STARTUP: debug log not kept: " + fault.text);
    }
    program.ui.show_notes(paths.install_recover_log);
    return true;
}

void Shut_Down(Program &program) {
    debug_print(program, "MAIN FORM: Form Unloading");
    Flush_debug_log(program);
    Set_Status_Panel(program, 1, "Please wait while Vantrosk cleans up");
    debug_print(program, "STARTUP: shutting down VK");
    Delete_Feed_Leftovers(program);
    for (const char *page : leftover_pages)
        (void)DeleteFileForced(program, program.paths.temp + page);
    Set_Status_Panel(program, 1, "Clean up complete, shutting down");
    debug_print(program, "STARTUP: VK Shutdown module complete");
}

} // namespace vantrosk
