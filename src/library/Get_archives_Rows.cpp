#include "core/Games.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlStartup.h"
#include "library/Scan.h"

#include <algorithm>
#include <array>

namespace vantrosk {

namespace {

constexpr int best_score = 10;
constexpr int first_category_filter = 31;
constexpr std::array<const char *, 4> games_with_categories{"T1", "TG", "T2", "T3"};
constexpr std::array<int, 8> completed_easy{1, 4, 6, 9, 12, 15, 17, 20};
constexpr std::array<int, 8> completed_normal{3, 4, 8, 9, 14, 15, 19, 20};
constexpr std::array<int, 8> completed_hard{5, 6, 8, 9, 16, 17, 19, 20};
constexpr int completed_expert = 11;

bool Is_one_of(int value, const std::array<int, 8> &values) {
    return std::find(values.begin(), values.end(), value) != values.end();
}

void Add_original_row(Program &program, const QString &name, const QString &marker, const QString &game) {
    Fm_Row row;
    row.cells[col_name] = name;
    row.cells[col_zip] = marker;
    row.cells[col_game] = game;
    row.game_icon = game;
    Fm_List &list = program.screen.list;
    list.rows.insert(list.rows.begin() + list.original_rows, row);
    ++list.original_rows;
}

/// Thief 3 is configured by its "SYSTEM" folder; its saves lie beside that.
QString Saves_folder(const Scan &scan, QString game_folder) {
    if (scan.key == QLatin1String("T3"))
        game_folder.remove(QLatin1String("\\SYSTEM"), Qt::CaseInsensitive);
    return game_folder + "\\allsaves\\";
}

/// Whether one of the four rating filters, counted from 0, hides a score.
bool Is_rating_hidden(int rating_filter, double score) {
    switch (rating_filter) {
    case 0:
        return score < 8;
    case 1:
        return score < 4 || score > 7;
    case 2:
        return score > 3 || score == 0;
    default:
        return score != 0;
    }
}

QString Category_caption(const Scan &scan) {
    const bool has_menu = std::any_of(games_with_categories.begin(), games_with_categories.end(),
                                      [&scan](const char *game) { return scan.key == QLatin1String(game); });
    const QStringList captions = QString(category_keywords).split(',');
    return has_menu ? captions.value(scan.filter - first_category_filter) : QString();
}

bool Is_category_hidden(const Scan &scan, const Zip_Record &zip) {
    const QString caption = Category_caption(scan);
    return caption.isEmpty() || !zip.keywords.contains(caption, Qt::CaseInsensitive);
}

Fm_Row Row_of_zip(const Scan &scan, const Zip_Record &zip) {
    Fm_Row row;
    row.cells[col_name] = Name_for_display(zip.name);
    row.cells[col_zip] = zip.zip_name;
    row.cells[col_author] = Name_for_display(zip.author);
    row.cells[col_size] = FormatSize(zip.size);
    row.cells[col_score] = zip.score;
    row.cells[col_group_score] = zip.average_score;
    row.cells[col_last_played] = zip.last_played;
    row.cells[col_review] = zip.review;
    row.cells[col_finished] = zip.finished;
    row.cells[col_zip_date] = zip.zip_date;
    row.cells[col_category] = zip.category;
    row.score_picture = Score_Picture(zip.score);
    row.group_score_picture = Score_Picture(zip.average_score);
    row.game_icon = scan.is_custom() ? scan.list_name : zip.game;
    return row;
}

} // namespace

int Score_Picture(const QString &score) {
    return std::clamp(qRound(score.toDouble()), 0, best_score);
}

QString Finished_Text(int completed, const QString &game_code) {
    QStringList parts;
    if (Is_one_of(completed, completed_easy))
        parts << "EA";
    if (Is_one_of(completed, completed_normal))
        parts << "N";
    if (Is_one_of(completed, completed_hard))
        parts << "H";
    if (completed >= completed_expert)
        parts << (game_code == QLatin1String("SS2") ? "I" : "EX");
    return parts.join(',');
}

void Add_original_rows(Program &program, Scan &scan) {
    Write_debug_log(program, "Adding original missions option ");
    if (scan.is_custom()) {
        Add_original_row(program, scan.list_name + " Original Missions", "Original", scan.list_name);
    } else if (const QString folder = Game_Folder(program.ini, scan.key); !folder.isEmpty()) {
        scan.saves_folder = Saves_folder(scan, folder);
        const Game *game = Find_Game(scan.key);
        const bool shares_list = scan.key == QLatin1String("DMOD");
        if (shares_list)
            Add_original_row(program, "Doom3 Original Missions", "Original DOOM3", "DOOM");
        Add_original_row(program, game->original_name, shares_list ? "Original DMOD" : "Original", scan.key);
    }
    if (program.screen.list.original_rows == 0)
        Write_debug_log(program, "Removing blank FlexGrid row ");
    Write_debug_log(program, "Setting original missions image ");
}

bool Is_hidden(const Scan &scan, const Zip_Record &zip) {
    const int filter = scan.filter;
    if (filter >= 1 && filter <= 4)
        return Is_rating_hidden(filter - 1, zip.score.toDouble());
    if (filter >= 11 && filter <= 14)
        return Is_rating_hidden(filter - 11, zip.average_score.toDouble());
    switch (filter) {
    case 21:
        return !zip.last_played.isEmpty();
    case 22:
        return zip.last_played.isEmpty();
    case 23:
        return !zip.finished.isEmpty();
    case 24:
        return zip.finished.isEmpty();
    default:
        return filter >= first_category_filter && Is_category_hidden(scan, zip);
    }
}

void Add_row(Program &program, Scan &scan, const Zip_Record &zip) {
    if (Is_hidden(scan, zip))
        return;
    Fm_Row row = Row_of_zip(scan, zip);
    Fm_List &list = program.screen.list;
    const std::size_t grid_row = list.rows.size() + 1;
    // The mark goes to the first row written after the installed record was met, hidden rows or not.
    if (scan.installed_marker == 1) {
        scan.installed_marker = 2;
        row.cells[col_ready] = "Yes";
        scan.installed_zip = zip.zip_name;
        scan.installed_caption = QString("%1  -  [%2] '").arg(scan.key).arg(grid_row) + row.cells[col_name] +
                                 "' currently installed ";
    }
    list.rows.push_back(std::move(row));
    Write_debug_log(program, "FM added to Flexgrid");
}

} // namespace vantrosk
