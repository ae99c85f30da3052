#include "library/Get_archives.h"

#include "core/Games.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/undo/Undo_List.h"
#include "library/Fm_List_View.h"
#include "library/Scan.h"

#include <QScopeGuard>

namespace vantrosk {

namespace {

constexpr qint64 longest_without_events = 50; ///< milliseconds

bool Is_zip_name(const QString &upper_name) {
    return upper_name.endsWith(QLatin1String(".ZIP")) || upper_name.endsWith(QLatin1String(".SS2MOD"));
}

QString Partner_of(const QString &key) {
    if (key == QLatin1String("DMOD"))
        return "DOOM";
    if (key == QLatin1String("T1"))
        return "TG";
    return key == QLatin1String("TG") ? QString("T1") : QString();
}

Scan Scan_of(const Archives_Request &request) {
    Scan scan;
    scan.key = request.game_key;
    scan.list_name = scan.is_custom() ? request.custom_name : request.game_key;
    scan.partner = Partner_of(scan.key);
    scan.filter = request.filter;
    if (scan.is_custom()) {
        scan.custom_image = request.custom_image;
        scan.custom_mission_folder = request.custom_mission_folder;
        scan.custom_extensions = request.custom_extensions.toUpper().split("**", Qt::SkipEmptyParts);
    }
    return scan;
}

/// What the selection of a mission will need to know of the list's custom game.
void Keep_custom_game(Program &program, const Archives_Request &request) {
    program.custom_name = request.custom_name;
    program.custom_extensions = request.custom_extensions;
    program.custom_game_path = request.custom_game_path;
    program.custom = request.custom;
    program.custom.zip_folders = request.folders;
}

/// Forgets the previous list and its selection.
void Start_scan(Program &program, const Scan &scan, const Archives_Request &request) {
    Set_Status_Panel(program, 1, "Please Wait");
    Show_Progress(program, 0, 1);
    program.CURRENT_GAME_PATH.clear();
    program.CURRENT_GAME.clear();
    program.FM_PANEL.clear();
    program.fm = {};
    program.scan = {};
    program.scan.game = scan.key;
    program.scan.filter = scan.filter;
    Show_Readme_Page(program, "about:blank");
    program.SELECTED_GAME_TAB = scan.key;
    Keep_custom_game(program, scan.is_custom() ? request : Archives_Request());
    Start_debug_log(program);
    Set_Status_Panel(program, 1, "Working");
    Set_Status_Panel(program, 2, "");
    Reset_Details(program);
}

void Empty_list(Program &program) {
    Write_debug_log(program, "Clearing the Flexgrid ");
    program.ui.list_visible(false);
    Fm_List &list = program.screen.list;
    list.rows.clear();
    list.original_rows = 0;
    list.current_row = -1;
    list.top_row = 0;
    list.selected_column = col_name;
    list.sort_column = 0;
    Write_headings(list);
}

void Empty_info_folder(Program &program) {
    Empty_folder_of_files(program, program.paths.info);
    Empty_folder_of_files(program, program.paths.info + "VKIMAGES");
}

/// Files, and folders that go by a zip's name: those are reported, not passed over.
std::vector<File_Info> Walked_files(std::vector<File_Info> entries) {
    std::erase_if(entries, [](const File_Info &entry) {
        return entry.is_folder && !Is_zip_name(entry.name.toUpper());
    });
    return entries;
}

void Find_files(Program &program, Scan &scan, QString folders) {
    for (QString path : Split_folder_list(folders.replace(u'/', u'\\'))) {
        if (!path.endsWith(u'\\'))
            path += u'\\';
        auto listing = program.files.list_folder(path);
        if (!listing.ok()) {
            const bool missing = listing.fault.kind == Fault_Kind::not_found;
            const QString shown = program.files.to_native(path.chopped(1));
            scan.unread_folders << QString("Vantrosk can not %1 the folder ").arg(missing ? "find" : "read") +
                                       shown + ".";
            debug_print(program, "MAIN FORM: folder passed over: " + path + " " + listing.fault.text);
        }
        scan.folders.push_back({path, Walked_files(std::move(listing.value))});
        scan.files_total += static_cast<int>(scan.folders.back().files.size());
    }
    const QString rule(30, u'#');
    Write_debug_log(program, rule);
    Write_debug_log(program, QString("Found %1 files to check.").arg(scan.files_total));
    Write_debug_log(program, rule);
}

void Report_wrong_folder(Program &program, const Zip_Record &zip) {
    program.scan.wrong_folder << zip.zip_name + " - Found to be for the game [" + zip.game + "] - " +
                                     zip.game_note;
}

void Apply_scan_mode(const Program &program, Zip_Record &zip) {
    if (program.tweaks.SCAN_ZIPS == scan_never)
        zip.skip_scan = true;
    if (program.tweaks.SCAN_ZIPS == scan_always)
        zip.skip_scan = false;
}

void Open_zip_of_record(Program &program, const Scan &scan, Zip_Record &zip, const QString &folder,
                        const File_Info &file) {
    if (zip.skip_scan)
        return;
    zip.zip_date = file.modified.date().toString("yyyyMMdd");
    List_zip(program, scan, zip, folder);
    Read_readme(program, zip);
}

/// Steps of one zip: its record, its content where the mode asks for it, its game, its row.
void Check_zip(Program &program, Scan &scan, const QString &folder, const File_Info &file) {
    Set_Status_Panel(program, 1, "Checking " + file.name);
    Zip_Record zip;
    zip.zip_name = file.name;
    zip.upper_zip_name = file.name.toUpper();
    zip.size = file.size;
    Take_record(program, scan, zip);
    Apply_scan_mode(program, zip);
    Open_zip_of_record(program, scan, zip, folder, file);
    if (zip.size > 0) {
        ++program.scan.zip_count;
        program.scan.total_size += zip.size;
    }
    program.MISSIONFILE = zip.mission_files;
    if (!Decide_game(program, scan, zip))
        return;
    Write_debug_log(program, "Checking to see if this FM is suitable for the current button '" + scan.key +
                                 "', Game is '" + zip.game + "'");
    if (!Is_suitable(scan, zip.game))
        return Report_wrong_folder(program, zip);
    Write_debug_log(program, "FM can be added to Flexgrid");
    Insert_record(program, scan, zip);
    Add_row(program, scan, zip);
}

void Check_file(Program &program, Scan &scan, const QString &folder, const File_Info &file) {
    Write_debug_log(program, "Scanning Zip " + file.name);
    if (!Is_zip_name(file.name.toUpper()))
        return;
    if (!file.is_folder)
        return Check_zip(program, scan, folder, file);
    if (program.tweaks.SCAN_ZIPS != scan_never)
        program.scan.undetermined << file.name;
}

/// Progress after each file; events get through at every new percent, and during slow zips more often.
void Show_scan_progress(Program &program, Scan &scan, const QString &name) {
    const int percent = qRound(100.0 * scan.files_seen / scan.files_total);
    Set_Status_Panel(program, 2, QString::number(percent) + "%");
    Write_debug_log(program, "Zip " + name + " scanned");
    const qint64 now = program.clock.ticks();
    if (percent == scan.last_percent && now - scan.last_pump < longest_without_events)
        return;
    scan.last_percent = percent;
    scan.last_pump = now;
    Keep_records(program, scan);
    Show_Progress(program, scan.files_seen, scan.files_total);
    program.ui.pump_events();
}

void Walk_folder(Program &program, Scan &scan, const Zip_Folder &folder) {
    Keep_records(program, scan);
    program.ui.pump_events();
    program.CURRENT_LOCATION = folder.path.chopped(1);
    Write_debug_log(program, "Scanning Folder " + folder.path);
    Flush_debug_log(program);
    if (folder.files.empty())
        return;
    Set_Status_Panel(program, 2, "0%");
    for (const File_Info &file : folder.files) {
        ++scan.files_seen;
        Check_file(program, scan, folder.path, file);
        Show_scan_progress(program, scan, file.name);
    }
}

void Walk_folders(Program &program, Scan &scan) {
    const auto records_kept = qScopeGuard([&] { Keep_records(program, scan); });
    for (const Zip_Folder &folder : scan.folders)
        Walk_folder(program, scan, folder);
}

/// With no mission installed, the game's own are what is ready to play: unless another game that shares the
/// folder has its missions there.
void Mark_originals_ready(Program &program, const Scan &scan) {
    Fm_List &list = program.screen.list;
    if (scan.installed_marker != 0 || list.original_rows == 0)
        return;
    Fm_Row &row = list.rows.front();
    const QString folder = scan.is_custom() ? QString(program.custom_game_path).remove("*#*")
                                            : Game_Folder(program.ini, row.game_icon);
    if (IsCurrentlyInstalled(program, folder, row.cells[col_zip], row.game_icon))
        row.cells[col_ready] = "Yes";
}

void Show_list(Program &program) {
    Empty_info_folder(program);
    Set_Status_Panel(program, 2, "100%");
    program.MISSIONFILE.clear();
    Fm_List &list = program.screen.list;
    list.sort_column = col_name;
    list.sort_ascending = false;
    Sort_List(program, col_name);
}

void Select_installed_row(Program &program, const Scan &scan) {
    Fm_List &list = program.screen.list;
    const int row = list.find_zip(scan.installed_zip);
    if (list.first_selection_state != 0 || scan.installed_zip.isEmpty() || row < 0)
        return;
    list.top_row = row;
    list.current_row = row;
    list.first_selection_state = 1;
    Row_Click(program, row, col_name);
}

void Fill_list(Program &program, Scan &scan, const Archives_Request &request) {
    Start_scan(program, scan, request);
    Empty_list(program);
    Add_original_rows(program, scan);
    Query_records(program, scan);
    Empty_info_folder(program);
    Find_files(program, scan, request.folders);
    Walk_folders(program, scan);
    Mark_originals_ready(program, scan);
    Show_scan_caption(program, scan);
    Show_list(program);
}

void Finish_scan(Program &program, const Scan &scan) {
    Select_installed_row(program, scan);
    Show_excess_page(program);
    Store_statistics(program, scan);
    Tell_unread_folders(program, scan);
    if (scan.insert_failure)
        throw *scan.insert_failure;
}

} // namespace

void Get_archives(Program &program, const Archives_Request &request) {
    if (program.screen.busy) {
        debug_print(program, "MAIN FORM: a scan was asked for while another task runs");
        return;
    }
    debug_print(program, "MAIN FORM: Start Get_archives");
    Scan scan = Scan_of(request);
    const bool filled = With_error_box(program, "Get_archives", "Form frmMain", [&] {
        program.screen.busy = true;
        program.ui.set_busy(true);
        const auto not_busy = qScopeGuard([&program] {
            program.screen.busy = false;
            program.ui.set_busy(false);
            Hide_Progress(program);
            Set_Status_Panel(program, 1, "Ready");
            program.ui.list_visible(true);
            Flush_debug_log(program);
        });
        Fill_list(program, scan, request);
    });
    if (filled)
        With_error_box(program, "Get_archives", "Form frmMain", [&] { Finish_scan(program, scan); });
    debug_print(program, "MAIN FORM: End Get_archives");
}

void Get_archives_of_game(Program &program, const QString &game_code, int filter) {
    const Game *game = Find_Game(game_code);
    if (!game) {
        debug_print(program, "MAIN FORM: no list for the game " + game_code);
        return;
    }
    Archives_Request request;
    request.folders = Join_folder_list(Fm_Folders(program.ini, *game, Empty_Entry::ends_the_list));
    request.game_key = game->code;
    request.filter = filter;
    Get_archives(program, request);
}

} // namespace vantrosk
