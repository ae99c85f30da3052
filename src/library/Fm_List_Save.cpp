#include "library/Fm_List_Save.h"

#include "core/Program.h"
#include "core/mdlDB_Functions.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/undo/Undo_List.h"
#include "library/Get_archives.h"

#include <cmath>

namespace vantrosk {

namespace {

constexpr std::array<int, 4> level_weights{1, 3, 5, 11}; ///< Easy, Normal, Hard, Expert
constexpr int best_score = 10;
constexpr std::size_t work_panel = 1;
constexpr const char *zip_reader_busy = "inflating next file";
constexpr const char *rescored =
    "As you have re-scored this FM, please re-select it in the FM List to update the email information in "
    "the FM Readme section.";

bool Has_record_to_save(const Program &program) {
    const Screen &screen = program.screen;
    return !screen.busy && !screen.no_mission_selected && screen.details.record_shown &&
           !program.FM_PANEL.isEmpty() && !Is_original_row(program.FM_PANEL);
}

/// A box set in either of the two sets counts.
int Completed_sum(const Details_Panel &details) {
    int sum = 0;
    for (std::size_t level = 0; level < level_weights.size(); ++level) {
        if (details.finished[level] || details.small_finished[level])
            sum += level_weights[level];
    }
    return sum;
}

/// The picked score; 0 where none was ever picked.
QString Score_value(const Details_Panel &details) {
    bool is_number = false;
    const double score = details.score.toDouble(&is_number);
    return is_number && std::isfinite(score) ? details.score.trimmed() : QString("0");
}

/// The Dark Mod's list keeps Doom 3 missions under its own key.
QString Game_of_selection(const Program &program) {
    const bool doom_in_dark_mod =
        program.SELECTED_GAME_TAB == QLatin1String("DMOD") && program.CURRENT_GAME == QLatin1String("DOOM");
    return doom_in_dark_mod ? program.SELECTED_GAME_TAB : program.CURRENT_GAME;
}

QString Where_record(const Program &program, const QString &game) {
    return " WHERE zip_name = " + In_double_quotes(program.FM_PANEL) +
           "  and game = " + In_single_quotes(game);
}

/// The game that the record gets. Two records of one zip and game would be one too many.
QString Game_to_store(Program &program) {
    const QString game = Game_of_selection(program);
    const QString &stored = program.fm.record_game;
    if (game.isEmpty() || game.compare(stored, Qt::CaseInsensitive) == 0)
        return game;
    const bool taken =
        !db_Query(program, "SELECT zip_name FROM Table_Scores" + Where_record(program, game)).is_empty();
    return taken ? stored : game;
}

QString Save_statement(const Program &program, const QString &game) {
    const Details_Panel &details = program.screen.details;
    QString review = details.review;
    QString sql = "UPDATE Table_Scores SET score = " + Score_value(details) +
                  ", review = " + In_single_quotes(review.remove(u'\'')) +
                  ", completed = " + QString::number(Completed_sum(details)) +
                  ", FM_name = " + In_single_quotes(Name_for_database(details.name)) + " ";
    if (!details.author.isEmpty())
        sql += ", Author = " + In_single_quotes(Name_for_database(details.author)) + " ";
    sql += QString(", installed = ") + (details.shows_installed ? "1" : "0");
    if (!game.isEmpty())
        sql += ", game = " + In_single_quotes(game);
    return sql + Where_record(program, program.fm.record_game);
}

/// Two folders may hold a zip of the same name: the current row goes first.
int Row_of_selection(const Program &program) {
    const Fm_List &list = program.screen.list;
    const int current = list.current_row;
    const bool is_current = current >= 0 && static_cast<std::size_t>(current) < list.rows.size() &&
                            list.rows[static_cast<std::size_t>(current)].cells[col_zip] == program.FM_PANEL;
    return is_current ? current : list.find_zip(program.FM_PANEL);
}

void Show_in_row(Program &program) {
    const int row = Row_of_selection(program);
    if (row < 0)
        return;
    const Details_Panel &details = program.screen.details;
    Fm_Row &shown = program.screen.list.rows[static_cast<std::size_t>(row)];
    shown.cells[col_score] = Score_value(details);
    shown.score_picture = Score_Picture(shown.cells[col_score]);
    shown.cells[col_review] = QString(details.review).remove(u'\'');
    shown.cells[col_finished] = Finished_Text(Completed_sum(details), program.CURRENT_GAME);
    program.ui.list_row_changed(row);
}

void Empty_row(Program &program) {
    const int row = Row_of_selection(program);
    if (row < 0)
        return;
    program.screen.list.rows[static_cast<std::size_t>(row)] = Fm_Row();
    program.ui.list_row_changed(row);
}

void Delete_record(Program &program) {
    const QString game = program.fm.record_game.isEmpty() ? program.CURRENT_GAME : program.fm.record_game;
    db_Execute(program, "DELETE FROM Table_Scores WHERE zip_name = " + In_single_quotes(program.FM_PANEL) +
                            " and game = " + In_single_quotes(game));
}

} // namespace

bool save_status(Program &program) {
    if (!Has_record_to_save(program))
        return false;
    program.SAVE_SCORE_NOW = false;
    return With_error_box(program, "save_status", "Form frmMain", [&] {
        const QString game = Game_to_store(program);
        db_Execute(program, Save_statement(program, game));
        if (!game.isEmpty())
            program.fm.record_game = game;
        Show_in_row(program);
        After_Save_tidyup(program);
    });
}

void After_Save_tidyup(Program &program) {
    if (program.screen.busy)
        return;
    if (program.screen.status_panels[work_panel] != QLatin1String(zip_reader_busy))
        Set_Status_Panel(program, work_panel, rescored);
    Set_Upload_Controls(program);
    program.ui.details_changed();
}

void Set_Upload_Controls(Program &program) {
    Details_Panel &details = program.screen.details;
    details.uploads_shown = program.SELECTED_GAME_TAB != QLatin1String("CUSTOM");
    const bool scored =
        details.uploads_shown && !details.name.isEmpty() && Score_value(details).toDouble() != 0;
    details.score_upload_on = scored && details.score_upload;
    details.keywords_upload_on = scored && details.keywords_upload && !details.keywords.isEmpty();
}

bool Score_Click(Program &program, int score) {
    if (!Has_record_to_save(program) || score < 0 || score > best_score)
        return false;
    program.screen.details.score = QString::number(score);
    return save_status(program);
}

bool Finished_Click(Program &program, int level, bool finished) {
    if (!Has_record_to_save(program) || level < 0 || level >= static_cast<int>(level_weights.size()))
        return false;
    Details_Panel &details = program.screen.details;
    details.finished[static_cast<std::size_t>(level)] = finished;
    details.small_finished[static_cast<std::size_t>(level)] = finished;
    return save_status(program);
}

void Review_Change(Program &program, const QString &review) {
    if (!Has_record_to_save(program) || program.screen.details.review == review)
        return;
    program.screen.details.review = review;
    program.SAVE_SCORE_NOW = true;
}

void Save_Pending_Edits(Program &program) {
    if (program.SAVE_SCORE_NOW)
        save_status(program);
}

bool Reset_Fm(Program &program) {
    Details_Panel &details = program.screen.details;
    if (program.screen.busy || !details.reset_enabled)
        return false;
    if (!Ask_Yes_No(program, "WARNING",
                    "Are you sure you wish to delete this FM from the Vantrosk Database?"))
        return false;
    return With_error_box(program, "Reset_Fm", "Form frmMain", [&] {
        details.reset_enabled = false;
        Delete_record(program);
        program.SAVE_SCORE_NOW = false;
        Empty_row(program);
        program.FM_PANEL.clear();
        program.fm.record_game.clear();
        Reset_Details(program);
        Show_Message(program, "Vantrosk",
                     "FM has been reset in Vantrosk's database, all information will be picked up again at "
                     "next folder scan.");
    });
}

} // namespace vantrosk
