#include "library/Get_Info.h"

#include "core/Games.h"
#include "core/mdlDebug.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "library/Info_Run.h"
#include "readme/mdlHTML_stuff.h"

namespace vantrosk {

namespace {

constexpr const char *log_rule = "##############################";
constexpr qsizetype long_name = 34; ///< characters
constexpr int name_points = 14, long_name_points = 12;

bool Has_selection(const Fm_List &list) {
    const bool only_the_empty_row = list.rows.size() == 1 && list.rows[0].cells[col_zip].isEmpty();
    return !list.rows.empty() && !only_the_empty_row && list.current_row >= 0;
}

/// System Shock 2 calls its hardest level by another name.
void Name_fourth_level(Details_Panel &details, const QString &key) {
    const bool impossible = key == QLatin1String("SS2");
    details.fourth_level_label = impossible ? "I:" : "EX:";
    details.fourth_level_tip = impossible ? "IMPOSSIBLE:" : "EXPERT:";
    details.fourth_level_text = impossible ? "Impossible" : "Expert";
}

void Reset_selection(Program &program, const Info_Run &run) {
    Reset_Details(program);
    Set_Status_Panel(program, 1, "Working");
    program.fm = Selected_Fm();
    for (QString *state : {&program.TEXTFILENAME, &program.MISSIONFILE, &program.WELCOMEPIC,
                           &program.CURRENT_GAME, &program.CURRENT_GAME_PATH})
        state->clear();
    Name_fourth_level(program.screen.details, run.key);
}

/// A zip name is one name: a separator in it would lead to another folder.
bool Is_one_name(const QString &zip_name) {
    return !zip_name.contains(QLatin1Char('\\')) && !zip_name.contains(QLatin1Char('/'));
}

QStringList Custom_folders(const QString &list) {
    QStringList folders = Split_folder_list(list, Empty_Entry::is_passed_over);
    for (QString &folder : folders) {
        folder.replace(QLatin1Char('/'), QLatin1Char('\\'));
        while (folder.endsWith(QLatin1Char('\\')))
            folder.chop(1);
    }
    return folders;
}

/// Without separators behind them.
QStringList Zip_folders(const Program &program, const QString &key) {
    if (key == QLatin1String("CUSTOM"))
        return Custom_folders(program.custom.zip_folders);
    const Game *game = Find_Game(key);
    return game ? Fm_Folders(program.ini, *game, Empty_Entry::is_passed_over) : QStringList();
}

void Locate_zip(Program &program, Info_Run &run) {
    if (!Is_one_name(run.zip_name))
        return;
    for (const QString &folder : Zip_folders(program, run.key)) {
        const auto file = program.files.look(folder + "\\" + run.zip_name);
        if (!file || file->is_folder)
            continue;
        program.CURRENT_LOCATION = folder;
        run.zip_path = folder + "\\" + run.zip_name;
        run.zip_size = file->size;
        program.fm.zip_date = file->modified.toString("yyyy/MM/dd");
        return;
    }
}

Fault Not_found(const Info_Run &run) {
    return {Fault_Kind::not_found, "The file " + run.zip_name + " is in none of the game's folders.", 0};
}

void Empty_info(Program &program) {
    Empty_folder_of_files(program, In_info(program, {}));
    Empty_folder_of_files(program, In_info(program, "VKIMAGES"));
}

QString Joined(const QString &folder, const QString &directory, const QString &name) {
    return folder + "\\" + (directory.isEmpty() ? name : directory + "\\" + name);
}

/// What the entries told becomes what the program knows of the selected mission.
void Take_findings(Program &program, const Info_Run &run) {
    const Entry_Findings &found = run.found;
    program.TEXTFILENAME = found.text_readme;
    program.fm.RTF_readme = found.rtf_readme;
    program.fm.VKML_readme = found.vkml_readme;
    program.fm.mission_files = found.mission_files;
    for (const QString &mission : found.mission_files)
        program.MISSIONFILE += mission + ",";
    program.fm.FM_FOLDER = found.mission_folder;
    program.fm.background_image = found.background_image;
    program.fm.marked_dark_mod = found.marked_dark_mod;
    program.fm.custom_mission_folder = found.custom_mission_folder;
    program.fm.custom_mission_path = found.custom_mission_path;
    program.WELCOMEPIC = found.main_picture.isEmpty() ? found.title_image : found.main_picture;
    program.CURRENT_GAME = found.active_game;
    Details_Panel &details = program.screen.details;
    details.languages = found.languages;
    details.features = found.features;
    details.game = found.game_text;
    details.size_text = FormatSize(run.zip_size);
    details.unpacked_text = FormatSize(program.fm.total_uncompressed, true);
}

void Read_fields(Program &program) {
    if (program.TEXTFILENAME.endsWith(QLatin1String(".TXT"), Qt::CaseInsensitive))
        Get_TXT_Readme_info(program, In_info(program, program.TEXTFILENAME));
    if (!program.fm.RTF_readme.isEmpty())
        Get_TXT_Readme_info(program, In_info(program, rtf_text_name));
    if (!program.fm.VKML_readme.isEmpty())
        Get_VKML_Readme_info(program, In_info(program, program.fm.VKML_readme));
}

void Note_map_picture(Program &program, const Info_Run &run) {
    const Entry_Findings &found = run.found;
    if (!found.map_name.isEmpty() && !program.CURRENT_GAME_PATH.isEmpty())
        program.fm.map_image = Joined(program.CURRENT_GAME_PATH, found.map_folder, found.map_name);
}

void Log_game(Program &program) {
    Write_debug_log(program, log_rule);
    Write_debug_log(program, "Current game determined to be = " + program.CURRENT_GAME +
                                 " Current game path =" + program.CURRENT_GAME_PATH);
    Write_debug_log(program, log_rule);
}

void Examine(Program &program, Info_Run &run) {
    program.screen.no_mission_selected = false;
    Take_findings(program, run);
    Convert_pictures(program, run);
    Show_Readme(program, run);
    Keep_Loot_List(program, run);
    Read_fields(program);
    Settle_Game(program, run);
    Note_map_picture(program, run);
    Show_Record(program, run);
    Insert_Record(program, run);
    Show_Picture(program, run);
    Show_Tabs(program, run);
    Log_game(program);
    Show_Installed_State(program, run);
}

Info_Run Run_of(const Program &program, const QString &zip_name) {
    Info_Run run;
    run.zip_name = zip_name;
    run.key = program.SELECTED_GAME_TAB;
    run.found.key = run.key;
    run.found.upper_zip_name = zip_name.toUpper();
    run.found.use_zip_resources = program.tweaks.USE_ZIP_RESOURCES;
    run.list_game = run.key;
    if (run.found.is_custom()) {
        run.list_game = program.custom_name;
        run.found.custom = {
            program.custom_name,
            program.custom_extensions.toUpper().split(QLatin1String("**"), Qt::SkipEmptyParts),
            program.custom.use_map_folder, program.custom.full_folder_path};
    }
    return run;
}

void Look_at_zip(Program &program, Info_Run &run) {
    Empty_info(program);
    Fault fault = run.zip_path.isEmpty() ? Not_found(run) : List_and_extract(program, run);
    if (!fault) {
        Examine(program, run);
        return;
    }
    Reset_selection(program, run);
    Remove_Tabs(program);
    Show_Unreadable_Zip(program, fault);
    program.ui.details_changed();
}

} // namespace

QString In_info(const Program &program, const QString &name) {
    const QString folder = program.paths.info.chopped(1);
    return name.isEmpty() ? folder : folder + "\\" + name;
}

int Name_Points(const Program &program) {
    if (program.fm.VKML_readme.isEmpty())
        return 0;
    return program.screen.details.name.size() < long_name ? name_points : long_name_points;
}

void Get_Info(Program &program, const QString &zip_name) {
    debug_print(program, ": Start Get_Info");
    if (!Has_selection(program.screen.list))
        return;
    Info_Run run = Run_of(program, zip_name);
    With_error_box(program, "Get_Info", "Form frmMain", [&] {
        Reset_selection(program, run);
        Locate_zip(program, run);
        Read_Record(program, run);
        Look_at_zip(program, run);
    });
    Hide_Progress(program);
    Set_Status_Panel(program, 2, "Scan Complete");
    Set_Status_Panel(program, 1, "Ready");
    Flush_debug_log(program);
    debug_print(program, ": End Get_Info");
}

} // namespace vantrosk
