#include "core/Program.h"
#include "core/Startup_Steps.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "core/mdlStartup.h"

#include <set>

namespace vantrosk {

namespace {

/// A message that is shown once, until the database is made anew.
struct Notice {
    const char *marker;
    const char *title; ///< with its number and the number of all
    const char *text;
};

constexpr const char *warning_title = "Vantrosk Warning Message %1 of %2";
constexpr const char *information_title = "Vantrosk Information Message %1 of %2";

constexpr Notice notices[] = {
    {"Initial_Warning", warning_title,
     "DISCLAMER/WARNING\nI take NO responisbility if it causes damage to any data on your PC or if it causes "
     "damage to Windows itself, use at your own risk.\n\nIMPORTANT - IF YOU HAVE AN FM ALREADY LOADED IN "
     "DARK "
     "LOADER, PLEASE USE IT TO RESTORE YOUR THIEF GAMES TO THE ORIGINAL MISSIONS"},
    {"Script_Warning", warning_title,
     "WARNING\nVantrosk uses VB script to run Regular Expressions to scan readme files in FM zips, however "
     "this "
     "may cause some firewalls to alert you about Dangerous Scripts running. It is safe to allow Vantrosk to "
     "run these scripts, more information on this can be found in Help System."},
    {"T3_play_Warning", warning_title,
     "WARNING\nIn order to install Thief Deadly Shadows Fan Missions safely you will need to have started a "
     "Thief 3 game (actually playing rather than just up to the menu). This creates the save game folders "
     "and "
     "registry information that Vantrosk needs to install T3 Fan Missions.\n\nFailure to do so may result in "
     "a "
     "corrupt Thief Deadly Shadows install."},
    {"Custom_Game_Support", information_title,
     "INFORMATION\nThis version of Vantrosk contains a Custom Game Wizard allowing you to manage Fan "
     "Missions "
     "for other games in the same way you can with the Thief games.\nHowever it is important to read the "
     "HELP "
     "section CUSTOM GAME SUPPORT before trying to use this feature."},
};

using Markers = std::set<QString>;

Markers Seen_markers(Program &program) {
    const Recordset rows = db_Query(program, "SELECT * FROM table_messages");
    Markers seen;
    for (int row = 0; row < rows.size(); ++row)
        seen.insert(rows.text(row, "message_name").toUpper());
    return seen;
}

bool Was_seen(const Markers &seen, const QString &marker) {
    return seen.contains(marker.toUpper());
}

void Show_notices(Program &program, const Markers &seen) {
    int unseen = 0;
    for (const Notice &notice : notices)
        unseen += Was_seen(seen, notice.marker) ? 0 : 1;
    int number = 0;
    for (const Notice &notice : notices) {
        if (Was_seen(seen, notice.marker))
            continue;
        Show_Message(program, QString(notice.title).arg(++number).arg(unseen), notice.text);
        DB_Message_Seen(program, notice.marker);
    }
}

struct Start_Page {
    const char *tweak;
    const char *file; ///< in the program's folder
};

constexpr Start_Page start_pages[] = {
    {"VANTROSK WELCOME", "\\Vantrosk_welcome.htm"},
    {"VANTROSK NOTES", "\\version_notes.htm"},
};

void Open_file_page(Program &program, const QString &path) {
    if (FileExists(program, path))
        Show_Readme_Page(program, path);
    else
        debug_print(program, "STARTUP: start page is missing: " + path);
}

void Open_chosen_page(Program &program) {
    const QString &chosen = program.tweaks.STARTUP_PAGE;
    if (chosen.isEmpty())
        return;
    for (const Start_Page &page : start_pages) {
        if (chosen == QLatin1String(page.tweak))
            return Open_file_page(program, program.paths.AppPath + page.file);
    }
    const bool is_news = chosen == QLatin1String("VANTROSK NEWS");
    Show_Readme_Page(program, is_news ? program.server_base_url + "/news.pl" : chosen);
}

} // namespace

void Show_Notices_And_Start_Page(Program &program) {
    With_error_box(program, "Form_Initialize", "Form frmMain", [&] {
        const QString notes_marker = QString("Version_Notes_") + build_number;
        const Markers seen = Seen_markers(program);
        Show_notices(program, seen);
        if (Was_seen(seen, notes_marker))
            return Open_chosen_page(program);
        Open_file_page(program, program.paths.AppPath + "\\Version_Notes.htm");
        DB_Message_Seen(program, notes_marker);
    });
}

} // namespace vantrosk
