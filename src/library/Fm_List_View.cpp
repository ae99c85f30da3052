#include "library/Fm_List_View.h"

#include "core/Games.h"
#include "core/Program.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/undo/Undo_List.h"
#include "library/Fm_List_Save.h"
#include "library/Get_Info.h"
#include "library/SetUp_Dromed.h"

#include <QScopeGuard>

namespace vantrosk {

namespace {

constexpr const char *multi_player_key = "MP_OPTIONS";

bool Is_custom_list(const Program &program) {
    return program.SELECTED_GAME_TAB == QLatin1String("CUSTOM");
}

Fm_Row &Row_at(Program &program, int row) {
    return program.screen.list.rows[static_cast<std::size_t>(row)];
}

/// A row of something else (".SS2MOD" among them) can be listed but not examined.
bool Is_examined(const QString &zip_cell) {
    return zip_cell.startsWith(QLatin1String("ORIGINAL"), Qt::CaseInsensitive) ||
           zip_cell.contains(QLatin1String(".ZIP"), Qt::CaseInsensitive);
}

void Clear_buttons(Details_Panel &details) {
    details.install_enabled = false;
    details.shows_installed = false;
    details.play_enabled = false;
    details.reset_enabled = false;
}

void Select_fm_row(Program &program, int row) {
    Get_Info(program, Row_at(program, row).cells[col_zip]);
    Fm_Row &fm = Row_at(program, row);
    if (fm.game_icon.isEmpty() && !Is_custom_list(program))
        fm.game_icon = program.CURRENT_GAME;
}

QString Folder_of_original_row(const Program &program) {
    QString folder = Is_custom_list(program) ? QString(program.custom_game_path).remove("*#*")
                                             : Game_Folder(program.ini, program.CURRENT_GAME);
    return folder.endsWith(u'\\') ? folder.chopped(1) : folder;
}

void Set_multi_player_tab(Program &program, bool wanted) {
    auto &tabs = program.screen.readme_tabs;
    tabs.clear();
    if (wanted)
        tabs.push_back({multi_player_key, "Multi-Player Options", {}});
    program.ui.readme_tabs_changed();
}

void Set_fourth_level(Details_Panel &details, bool is_shock) {
    details.finished = details.small_finished = {};
    details.fourth_level_label = is_shock ? "  I:" : "EX:";
    details.fourth_level_tip = is_shock ? "IMPOSSIBLE:" : "EXPERT:";
    details.fourth_level_text = is_shock ? "Impossible" : "Expert";
}

void Warn_of_missing_game(Program &program) {
    const QString &game = program.CURRENT_GAME;
    Show_Warning(program, "WARNING",
                 "WARNING: Vantrosk has detected that your game install path for " + game +
                     " does not exist.\nThis may have resulted from a re-install of your game, please re-set "
                     "your " +
                     game + " install path in Vantrosk's config.");
}

QString Page_of_original_row(const Program &program) {
    const QString readme = program.CURRENT_GAME_PATH + "\\t2x\\readme.txt";
    const bool has_readme = program.CURRENT_GAME == QLatin1String("T2X") && FileExists(program, readme);
    return has_readme ? readme : QString("about:blank");
}

/// The game's own missions. False when the game is not where it is configured to be.
bool Select_original_row(Program &program, int row) {
    Set_Status_Panel(program, 2, "Original Missions");
    Empty_folder_of_files(program, program.paths.info);
    Empty_folder_of_files(program, program.paths.info + "VKIMAGES");
    Reset_Details(program);
    program.fm = {};
    program.TEXTFILENAME.clear();
    program.MISSIONFILE.clear();
    program.WELCOMEPIC.clear();
    program.CURRENT_GAME = Row_at(program, row).game_icon;
    program.CURRENT_GAME_PATH = Folder_of_original_row(program);
    program.screen.details.play_enabled = true;
    if (!FolderExists(program, program.CURRENT_GAME_PATH)) {
        Clear_buttons(program.screen.details);
        Warn_of_missing_game(program);
        return false;
    }
    Show_Readme_Page(program, Page_of_original_row(program));
    Set_fourth_level(program.screen.details, program.CURRENT_GAME == QLatin1String("SS2"));
    Set_multi_player_tab(program, program.CURRENT_GAME == QLatin1String("T2"));
    return true;
}

void Show_installed_state(Program &program, int row) {
    Fm_Row &selected = Row_at(program, row);
    const bool installed = !program.CURRENT_GAME_PATH.isEmpty() &&
                           IsCurrentlyInstalled(program, program.CURRENT_GAME_PATH, selected.cells[col_zip],
                                                program.CURRENT_GAME);
    Details_Panel &details = program.screen.details;
    details.shows_installed = installed;
    details.play_enabled = installed;
    // A zip that can not be read has no mission to install; its readme page says why.
    details.install_enabled =
        !installed && (Is_original_row(selected.cells[col_zip]) || !program.MISSIONFILE.isEmpty());
    selected.cells[col_ready] = installed ? "Yes" : "";
}

void Start_examining(Program &program, const QString &zip_cell) {
    Write_debug_log(program, debug_log_rule);
    Write_debug_log(program, debug_log_rule);
    Write_debug_log(program, "Scanning " + zip_cell);
}

void Finish_examining(Program &program, int row) {
    Write_debug_log(program, "Finished Examining");
    Write_debug_log(program, debug_log_rule);
    Flush_debug_log(program);
    const bool is_fm = row >= program.screen.list.original_rows;
    program.screen.details.reset_enabled = is_fm && !Row_at(program, row).cells[col_zip].isEmpty();
    program.screen.no_mission_selected = false;
    Set_Upload_Controls(program);
    program.ui.list_row_changed(row);
    SetUp_Dromed(program);
}

/// The row is no mission. What the panel told of another one goes, so that no button works on that.
void Select_nothing(Program &program) {
    Flush_debug_log(program);
    program.FM_PANEL.clear();
    Reset_Details(program);
}

void Examine_row(Program &program, int row) {
    const QString zip_cell = Row_at(program, row).cells[col_zip];
    Start_examining(program, zip_cell);
    if (!Is_examined(zip_cell))
        return Select_nothing(program);
    if (program.tweaks.FOCUS_ON_FM)
        program.screen.list.top_row = row;
    program.ui.list_current_row_changed();
    Clear_buttons(program.screen.details);
    program.FM_PANEL = zip_cell;
    if (!zip_cell.startsWith(QLatin1String("ORIGINAL"), Qt::CaseInsensitive))
        Select_fm_row(program, row);
    else if (!Select_original_row(program, row))
        return program.ui.details_changed();
    Show_installed_state(program, row);
    Finish_examining(program, row);
}

} // namespace

void Row_Click(Program &program, int row, int column) {
    Screen &screen = program.screen;
    Fm_List &list = screen.list;
    if (screen.busy || list.rows.empty())
        return;
    Save_Pending_Edits(program);
    screen.busy = true;
    screen.details.keywords.clear();
    const bool by_program = list.first_selection_state != 0;
    const int chosen = by_program ? list.current_row : row;
    list.selected_column = by_program ? int(col_name) : column;
    Show_Progress(program, 0, 1);
    Set_Status_Panel(program, 1, "Working");
    Set_Status_Light(program, 2);
    program.HELPCONTEXT = "FILE___MAIN_FM_LISTS1";
    const auto ready = qScopeGuard([&program] {
        Hide_Progress(program);
        program.screen.list.first_selection_state = 0;
        program.screen.busy = false;
        Set_Status_Panel(program, 1, "Ready");
        Set_Status_Light(program, 1);
    });
    if (chosen < 0 || static_cast<std::size_t>(chosen) >= list.rows.size())
        return;
    list.current_row = chosen;
    program.ui.list_current_row_changed();
    With_error_box(program, "Row_Click", "Form frmMain", [&] { Examine_row(program, chosen); });
}

} // namespace vantrosk
