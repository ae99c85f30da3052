#include "install/Recent.h"

#include "core/Games.h"
#include "core/Program.h"
#include "core/mdlDB_Functions.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "install/undo/Undo_List.h"
#include "library/Custom_Archives.h"
#include "library/Fm_List_View.h"
#include "library/Get_archives.h"

#include <QLocale>

#include <array>

namespace vantrosk {

namespace {

constexpr int most_entries = 10;
constexpr int selected_by_recent_list = 2;
constexpr const char *zip_not_found = " -- WARNING: Zip Not Found";
constexpr const char *zip_not_found_in_menu = "--WARNING Zip Not Found";

/// Widths of a cell in twips; bitmaps are the full menu pictures of their games.
constexpr const char *plain_width = "1500,";
constexpr const char *bitmap_width = "2100,";

struct Picture_Kind {
    const char *extension;
    const char *width;
};
constexpr std::array<Picture_Kind, 3> picture_kinds{{
    {".jpg", plain_width},
    {".gif", plain_width},
    {".bmp", bitmap_width},
}};

struct Recent_Game {
    const char *code;
    const char *text;
};
constexpr std::array<Recent_Game, 7> recent_games{{
    {"T1", "A Thief 1 Fan Mission"},
    {"TG", "A Thief Gold Fan Mission"},
    {"T2", "A Thief 2 Fan Mission"},
    {"T3", "A Thief 3 Fan Mission"},
    {"DM", "A Dark metal Fan Mission"},
    {"DMOD", "A Dark Mod Fan Mission"},
    {"SS2", "A System Shock 2 Fan Mission"},
}};

QString Text_of_game(const QString &code) {
    for (const Recent_Game &game : recent_games)
        if (code.compare(QLatin1String(game.code), Qt::CaseInsensitive) == 0)
            return game.text;
    return {};
}

// ---- recording ----

/// What the list calls the selected mission.
QString Name_of_selected(const Program &program) {
    const Fm_List &list = program.screen.list;
    const int row = list.find_zip(program.FM_PANEL);
    const QString name = row < 0 ? QString() : list.rows[static_cast<std::size_t>(row)].cells[col_name];
    return name.isEmpty() ? program.FM_PANEL : name;
}

/// The code under which the mission's record stands, so that the record is found again by zip and game.
QString Game_of_selected(const Program &program) {
    return program.fm.record_game.isEmpty() ? program.CURRENT_GAME : program.fm.record_game;
}

void Insert_first(Program &program) {
    db_Execute(program,
               QStringLiteral(
                   "INSERT INTO Table_Recent (zip_name,zip_path,FM_name,Game,rank,installed_date) VALUES (") +
                   In_single_quotes(program.FM_PANEL) + "," +
                   In_single_quotes(program.CURRENT_LOCATION + "\\") + "," +
                   In_single_quotes(Name_for_database(Name_of_selected(program))) + "," +
                   In_single_quotes(Game_of_selected(program)) + ",1,now())");
}

void Move_to_front(Program &program, int old_rank) {
    const QString zip = In_single_quotes(program.FM_PANEL);
    if (old_rank == 1)
        return db_Execute(program, "UPDATE Table_Recent SET installed_date = now() where rank = 1");
    db_Execute(program, "UPDATE Table_Recent SET installed_date = now(), rank = 1 WHERE zip_name = " + zip);
    db_Execute(program, "UPDATE Table_Recent SET rank =  rank + 1 where zip_name <> " + zip + " and rank < " +
                            QString::number(old_rank));
}

void Push_in_front(Program &program) {
    db_Execute(program, "DELETE FROM Table_Recent WHERE rank = 10");
    db_Execute(program, "UPDATE Table_Recent SET rank = rank + 1");
    Insert_first(program);
}

int Row_of_zip(const Recordset &rows, const QString &zip) {
    for (int row = 0; row < rows.size(); ++row)
        if (rows.text(row, "zip_name").compare(zip, Qt::CaseInsensitive) == 0)
            return row;
    return -1;
}

// ---- showing ----

/// The copy of the mission's picture that was made when the mission was looked at; its width goes into the
/// list.
QString Find_picture(const Program &program, const QString &zip, QString &widths) {
    QString bare = FileNameFromPath(zip);
    for (const char *ending : {".zip", ".ss2mod"})
        bare.remove(QLatin1String(ending), Qt::CaseInsensitive);
    for (const Picture_Kind &kind : picture_kinds) {
        const QString path = program.paths.titles + bare + kind.extension;
        if (!FileExists(program, path))
            continue;
        widths += QLatin1String(kind.width);
        return path;
    }
    widths += QLatin1String(plain_width);
    return {};
}

QString Score_text(const Recordset &rows, int row) {
    if (rows.is_null(row, "score") || rows.number(row, "score") == 0)
        return "You have not scored this FM yet.";
    return QString("You gave this FM %1 out of 10").arg(rows.number(row, "score"));
}

QString Date_text(const Recordset &rows, int row) {
    return QLocale::c().toString(rows.date_time(row, "installed_date").date(), "dd-MMM-yy").toUpper();
}

/// The entry of the menu for the mission in the cell of that number, counted from 1.
QString Add_menu_item(const Recent_Cell &cell, int number) {
    const QString text = QString("%1) %2").arg(number).arg(cell.name);
    return cell.zip_found ? text : text + zip_not_found_in_menu;
}

Recent_Cell Cell_of(const Program &program, const Recordset &rows, int row, QString &widths) {
    Recent_Cell cell;
    cell.rank = rows.number(row, "rank");
    cell.zip = rows.text(row, "zip_name");
    cell.name = Name_for_display(rows.text(row, "FM_name"));
    cell.game = rows.text(row, "Game");
    cell.zip_folder = rows.text(row, "zip_path");
    cell.installed_date = rows.text(row, "installed_date");
    cell.picture_path = Find_picture(program, cell.zip, widths);
    cell.score_text = Score_text(rows, row);
    cell.game_text = Text_of_game(cell.game);
    cell.picture_tip = cell.name;
    cell.number_tip = Date_text(rows, row);
    cell.zip_found = FileExists(program, cell.zip_folder + cell.zip);
    if (!cell.zip_found) {
        cell.picture_tip += zip_not_found;
        cell.number_tip += zip_not_found;
    }
    cell.menu_text = Add_menu_item(cell, row + 1);
    return cell;
}

// ---- going back ----

/// The lists in which a mission of that game may stand, the game's own first.
QStringList Lists_of_game(const QString &game) {
    if (game.compare("DOOM", Qt::CaseInsensitive) == 0)
        return {"DMOD"};
    if (game.compare("TG", Qt::CaseInsensitive) == 0)
        return {"TG", "T1"}; // a list of Thief 1 shows the missions of Thief Gold too
    return {game};
}

bool List_game(Program &program, const QString &list) {
    if (!Find_Game(list))
        return Get_archives_of_custom_game(program, list);
    Get_archives_of_game(program, list);
    return true;
}

bool Select_in_list(Program &program, const QString &zip) {
    Fm_List &list = program.screen.list;
    const int row = list.find_zip(zip);
    if (row < 0)
        return false;
    list.first_selection_state = selected_by_recent_list;
    list.current_row = row;
    Row_Click(program, row, col_zip);
    return true;
}

} // namespace

void RecordRecent(Program &program) {
    if (Is_original_row(program.FM_PANEL) || program.FM_PANEL.isEmpty())
        return;
    const Recordset rows = db_Query(program, "SELECT * FROM Table_Recent order by rank");
    const int known = Row_of_zip(rows, program.FM_PANEL);
    db_In_One_Step(program, [&] {
        if (rows.is_empty())
            Insert_first(program);
        else if (known >= 0)
            Move_to_front(program, rows.number(known, "rank"));
        else
            Push_in_front(program);
    });
}

void Display_recently_used(Program &program) {
    Recent_List &recent = program.screen.recent;
    debug_print(program, "Removing recently used menu items");
    recent = {};
    debug_print(program, "Finished Removing recently used menu items");
    const Recordset rows =
        db_Query(program, "SELECT Table_Recent.*, Table_Scores.score FROM Table_Recent INNER JOIN "
                          "Table_Scores ON (Table_Recent.Game = Table_Scores.game) AND "
                          "(Table_Recent.Zip_name = Table_Scores.zip_name) order by rank");
    debug_print(program, "Looping through Fan Missions recently used ");
    for (int row = 0; row < rows.size() && row < most_entries; ++row)
        recent.cells.push_back(Cell_of(program, rows, row, recent.column_widths));
    recent.tab_shown = !recent.cells.empty();
    program.ui.recent_changed();
}

void Check_Recently_Used_Tab(Program &program) {
    if (program.tweaks.RECENTLY_USED)
        return Display_recently_used(program);
    program.screen.recent = {};
    program.ui.recent_changed();
}

bool Recent_Click(Program &program, int index) {
    if (index < 0 || index >= static_cast<int>(program.screen.recent.cells.size()))
        return false;
    // A copy: what follows may fill the list anew.
    const Recent_Cell cell = program.screen.recent.cells[static_cast<std::size_t>(index)];
    if (!cell.zip_found)
        return false;
    for (const QString &list : Lists_of_game(cell.game))
        if (List_game(program, list) && Select_in_list(program, cell.zip))
            return true;
    debug_print(program, "MAIN FORM: \"" + cell.zip + "\" stands in no list");
    return false;
}

bool Remove_recent(Program &program, int rank) {
    const Recordset rows = db_Query(program, "SELECT rank FROM Table_Recent order by rank");
    QStringList statements;
    for (int row = 0; row < rows.size(); ++row) {
        const int other = rows.number(row, "rank");
        if (other == rank)
            statements << "DELETE FROM Table_Recent WHERE rank = " + QString::number(rank);
        else if (other > rank && !statements.isEmpty())
            statements << QString("UPDATE Table_Recent set rank = rank - 1 WHERE rank = %1").arg(other);
    }
    if (statements.isEmpty())
        return false;
    db_In_One_Step(program, [&] {
        for (const QString &statement : statements)
            db_Execute(program, statement);
    });
    Display_recently_used(program);
    return true;
}

} // namespace vantrosk
