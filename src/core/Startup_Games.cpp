#include "core/Games.h"
#include "core/Profile_File.h"
#include "core/Program.h"
#include "core/mdlErrorHandler.h"

namespace vantrosk {

namespace {

constexpr const char *table_order[] = {"T1", "TG", "T2", "T3", "T2X", "SS2", "DMOD", "DM"};
static_assert(std::size(table_order) < game_table_size);

constexpr int quick_bar_buttons = 10; ///< that are looked through for games

} // namespace

void Fill_Game_Table(Program &program) {
    for (std::size_t row = 0; row < std::size(table_order); ++row) {
        const Game *game = Find_Game(table_order[row]);
        program.game_table[row] = {game->name, game->code, game->number, program.game_table[row].fm_folders};
    }
}

void Copy_Folders_To_Game_Table(Program &program) {
    for (std::size_t row = 0; row < std::size(table_order); ++row)
        program.game_table[row].fm_folders = program.ini.*(Find_Game(table_order[row])->fm_folders);
}

void Read_Quick_Bar_Games(Program &program) {
    program.quick_bar_games.clear();
    const Profile_File ini(program, program.paths.qbar_ini);
    for (int button = 1; button <= quick_bar_buttons; ++button) {
        const QString section = QString("QBAR_%1").arg(button);
        if (ini.is_true(section, "ISGAME"))
            program.quick_bar_games.push_back({ini.value(section, "GameName"), ini.value(section, "ToolTip"),
                                               ini.value(section, "FMpath")});
    }
}

void Load_Library_Summary(Program &program) {
    program.library_summary.clear();
    With_error_box(program, "Load_Library_Summary", "Form frmMain", [&] {
        const Recordset rows =
            db_Query(program, "select  * from table_game_info order by list_number, zip_count desc");
        for (int row = 0; row < rows.size(); ++row) {
            Library_Summary_Row summary;
            summary.list_number = rows.number(row, "list_number");
            summary.game_name = rows.text(row, "game_name");
            summary.zip_size = static_cast<qint64>(rows.text(row, "zip_size").toDouble());
            summary.zip_count = rows.number(row, "zip_count");
            summary.FMs_completed = rows.number(row, "FMs_completed");
            summary.saves_count = rows.number(row, "saves_count");
            program.library_summary.push_back(summary);
        }
    });
}

} // namespace vantrosk
