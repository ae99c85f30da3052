#include "core/Page_Names.h"
#include "core/Program.h"
#include "core/Window_State.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "core/mdlStartup.h"
#include "zip/mUnzip.h"
#include "zip/mZip.h"

namespace vantrosk {

namespace {

constexpr int first_feed_page = 2, last_feed_page = 15;
constexpr const char *leftover_pages[] = {competition_page_name, feedback_page_name, rtf_text_name,
                                          rtf_page_name};

void Delete_temp_file(Program &program, const QString &name) {
    if (const Fault fault = DeleteFileForced(program, program.paths.temp + name))
        debug_print(program, "STARTUP: " + name + " not deleted: " + fault.text);
}

bool Has_temp_file(const Program &program, const char *name) {
    return FileExists(program, program.paths.temp + name);
}

/// The feed is kept as text; what was made of it is made anew at the next start.
void Delete_Leftovers(Program &program) {
    if (Has_temp_file(program, "Quillmarch.rss") && Has_temp_file(program, "Quillmarch.txt"))
        Delete_temp_file(program, "Quillmarch.rss");
    for (int page = first_feed_page; page <= last_feed_page; ++page)
        Delete_temp_file(program, QString("RSS_feed%1.htm").arg(page));
    for (const char *page : leftover_pages)
        Delete_temp_file(program, page);
}

void Pack_Feed(Program &program) {
    if (!Has_temp_file(program, "Quillmarch.txt"))
        return;
    const bool zipped = Zip_Single_File(program.files, program.paths.temp + "Quillmarch.txt", false);
    if (zipped && Has_temp_file(program, "Quillmarch.zip"))
        Delete_temp_file(program, "Quillmarch.txt");
    else
        debug_print(program, "STARTUP: Quillmarch.txt not zipped");
}

} // namespace

void Shut_Down(Program &program) {
    debug_print(program, "MAIN FORM: Form Unloading");
    Flush_debug_log(program);
    program.start.is_running = false;
    // Wave files are written beside and moved over when they are whole: none is left to be finished here.
    program.audio->release();
    Save_Status(program, Saved_Status::column_widths);
    Save_Status(program, Saved_Status::form);
    Set_Status_Panel(program, 1, "Please wait while Vantrosk cleans up");
    debug_print(program, "STARTUP: shutting down VK");
    Delete_Leftovers(program);
    Pack_Feed(program);
    Set_Status_Panel(program, 1, "Clean up complete, shutting down");
    debug_print(program, "STARTUP: VK Shutdown module complete");
}

void Unzip_Stored_Feed_Files(Program &program, const QString &kind) {
    debug_print(program, "STARTUP: Unzip Files");
    Set_Status_Panel(program, 1, "Please wait while Vantrosk unpacks previously zipped files");
    const bool is_wanted = kind == QLatin1String("RSS") || kind == QLatin1String("ALL");
    if (is_wanted && Has_temp_file(program, "Quillmarch.zip") &&
        !Unzip_Files(program.files, program.paths.temp + "Quillmarch.zip", program.paths.temp))
        debug_print(program, "STARTUP: Quillmarch.zip not unpacked");
    Set_Status_Panel(program, 1, "Files unzipped");
    debug_print(program, "STARTUP: Unzip Files Completed");
}

} // namespace vantrosk
