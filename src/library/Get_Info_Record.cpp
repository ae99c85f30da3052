#include "core/mdlDB_Functions.h"
#include "core/mdlDebug.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFile_Functions.h"
#include "library/Info_Run.h"
#include "library/Titles_Str.h"

#include <algorithm>

namespace vantrosk {

namespace {

constexpr int days_until_old = 90;

/// Sums of the weights Easy 1, Normal 3, Hard 5, Expert 11 that hold the first, second and third of them.
constexpr std::array<std::array<int, 8>, 3> sums_with_level{{
    {1, 4, 6, 9, 12, 15, 17, 20},
    {3, 4, 8, 9, 14, 15, 19, 20},
    {5, 6, 8, 9, 16, 17, 19, 20},
}};

std::array<bool, 4> Finished_boxes(int completed) {
    std::array<bool, 4> boxes{};
    for (size_t level = 0; level < sums_with_level.size(); ++level) {
        const auto &sums = sums_with_level[level];
        boxes[level] = std::find(sums.begin(), sums.end(), completed) != sums.end();
    }
    boxes[3] = completed > 10;
    return boxes;
}

int Group_picture(int people) {
    if (people > 29)
        return 1;
    if (people > 9)
        return 2;
    return people > 1 ? 3 : 4;
}

QString Condition(const Info_Run &run) {
    return " WHERE zip_name = " + In_double_quotes(run.zip_name) +
           " and game = " + In_single_quotes(run.record_game);
}

void Show_community(Program &program, const Recordset &record) {
    Details_Panel &details = program.screen.details;
    details.group_score = record.text(0, "average_score");
    details.group_picture = Group_picture(record.number(0, "group_submissions"));
    const int score = record.number(0, "average_score");
    details.group_tip = score == 0 ? QString("The Community has not scored this  Fan Missions yet")
                                   : "The Community gave this Fan Missions a score of " + details.group_score;
    const QString people = record.is_null(0, "group_submissions") ? "0" : record.text(0, "group_submissions");
    details.group_label = "Average score from " + people + " people";
    const QDateTime checked = record.date_time(0, "last_checked_date");
    details.group_is_old =
        checked.isValid() && checked.date().daysTo(program.clock.now().date()) > days_until_old;
}

void Show_own_fields(Program &program, const Info_Run &run) {
    const Recordset &record = run.record;
    Details_Panel &details = program.screen.details;
    // The community knows nothing of custom games.
    const bool may_upload = !run.found.is_custom();
    details.score_upload = may_upload && record.is_null(0, "last_uploaded_date");
    details.keywords_upload = may_upload && record.is_null(0, "categories_uploaded");
    details.score = record.text(0, "score");
    details.review = record.text(0, "review");
    details.finished = Finished_boxes(record.number(0, "completed"));
    details.small_finished = details.finished;
    const QDateTime played = record.date_time(0, "last_played");
    details.last_played_text = played.isValid() ? played.toString("dd/MM/yy HH:mm") : QString();
}

/// From here on the fields of the panel are those of this record.
void Edits_go_to(Program &program, const QString &record_game) {
    program.fm.record_game = record_game;
    program.screen.details.record_shown = true;
}

/// A mission whose readme has no title may have one in its "titles.str".
void Mend_name(Program &program, const Info_Run &run) {
    QString &name = program.screen.details.name;
    if (!name.isEmpty() || !run.found.has_titles_str)
        return;
    name = Name_of_titles_str(Read_text_lines(program, In_info(program, "titles.str")));
    if (name.isEmpty())
        return;
    db_Execute(program, "update Table_Scores set FM_name = " +
                            In_single_quotes(QString(name).remove(QLatin1Char('\''))) + Condition(run));
}

} // namespace

QString Game_condition(const QString &key) {
    if (key == QLatin1String("T1") || key == QLatin1String("TG"))
        return " and (game = 'T1' or game = 'TG')";
    if (key == QLatin1String("DMOD"))
        return " and (game = " + In_single_quotes(key) + " or game = 'DOOM')";
    return " and game = " + In_single_quotes(key);
}

void Read_Record(Program &program, Info_Run &run) {
    const QString select = "SELECT * FROM Table_Scores WHERE zip_name = ";
    run.record = db_Query(program, select + In_double_quotes(run.zip_name) + Game_condition(run.list_game));
    if (run.record.is_empty())
        return;
    run.record_game = run.record.text(0, "game");
    run.record_says_installed = run.record.number(0, "installed") != 0;
    program.screen.details.keywords = run.record.text(0, "categories_list");
    if (run.record.is_null(0, "zip_date") && !program.fm.zip_date.isEmpty())
        db_Execute(program, "Update Table_Scores SET zip_date = " + In_single_quotes(program.fm.zip_date) +
                                " " + Condition(run));
}

void Show_Record(Program &program, const Info_Run &run) {
    if (program.MISSIONFILE.isEmpty() || !run.has_record())
        return;
    Show_own_fields(program, run);
    Show_community(program, run.record);
    Mend_name(program, run);
    if (program.screen.details.name.isEmpty())
        program.screen.details.name = Name_for_display(run.record.text(0, "FM_name"));
    Edits_go_to(program, run.record_game);
    program.ui.details_changed();
}

void Insert_Record(Program &program, Info_Run &run) {
    if (program.MISSIONFILE.isEmpty() || run.has_record())
        return;
    if (program.CURRENT_GAME.isEmpty()) {
        debug_print(program, "MAIN FORM: no record for " + run.zip_name + ", its game is not set up");
        return;
    }
    const Details_Panel &details = program.screen.details;
    const Recordset known =
        db_Query(program, "SELECT game FROM Table_Scores WHERE zip_name = " + In_double_quotes(run.zip_name) +
                              " and game = " + In_single_quotes(program.CURRENT_GAME));
    if (known.is_empty()) {
        const auto without_quotes = [](QString text) {
            return text.remove(QLatin1Char('\''));
        };
        const QString date = program.fm.zip_date.isEmpty() ? "null" : "#" + program.fm.zip_date + "#";
        db_Execute(program, "INSERT INTO Table_Scores (zip_name,FM_name,author,game,zip_date) VALUES (" +
                                In_single_quotes(run.zip_name) + "," +
                                In_single_quotes(without_quotes(details.name)) + "," +
                                In_single_quotes(without_quotes(details.author)) + "," +
                                In_single_quotes(program.CURRENT_GAME) + "," + date + ")");
        Edits_go_to(program, program.CURRENT_GAME);
    }
    run.record_game = program.CURRENT_GAME;
}

void Set_Installed(Program &program, const Info_Run &run, bool installed) {
    if (run.has_record())
        db_Execute(program,
                   "UPDATE Table_Scores SET installed = " + QString(installed ? "1" : "0") + Condition(run));
}

} // namespace vantrosk
