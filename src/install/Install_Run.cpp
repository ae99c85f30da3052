#include "install/Install_Run.h"

#include "core/Games.h"
#include "core/Program.h"
#include "core/mdlDB_Functions.h"
#include "core/mdlDebug.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/Install_Paths.h"

#include <array>

namespace vantrosk {

namespace {

constexpr qint64 repaint_interval = 40;
constexpr int pause_length = 10;

/// Codes of every game that can have a folder; DOOM has no list of its own but shares that of DMOD.
QStringList All_codes() {
    QStringList codes;
    for (const Game &game : Games())
        codes << game.code;
    return codes << "DOOM";
}

void Pump_now_and_then(Install_Run &run) {
    const qint64 now = run.program.clock.ticks();
    if (now - run.last_pump < repaint_interval)
        return;
    run.last_pump = now;
    run.program.ui.pump_events();
}

/// The codes under which the library knows a zip.
QStringList Recorded_codes(Program &program, const QString &zip_name) {
    QStringList codes;
    try {
        const Recordset found =
            db_Query(program, "SELECT game FROM Table_Scores WHERE zip_name = " + In_double_quotes(zip_name));
        for (int row = 0; row < found.size(); ++row)
            codes << found.text(row, "game").toUpper();
    } catch (const Program_Error &error) {
        debug_print(program, "MAIN FORM: " + error.description());
    }
    return codes;
}

/// Doom 3 and The Dark Mod share a folder and its list but neither base folder nor saves.
QString Game_of_doom_list(Program &program, const Undo_List &list, const QString &zip_name) {
    const Install_Base doom = Install_base_of(program, "DOOM");
    const Install_Base dark_mod = Install_base_of(program, "DMOD");
    for (const QString &line : list.files)
        if (!Is_below(Tidy_path(line), doom.folder))
            return "DMOD";
    const QStringList codes = Recorded_codes(program, zip_name);
    if (codes.contains("DOOM") != codes.contains("DMOD"))
        return codes.contains("DOOM") || !list.files.isEmpty() ? "DOOM" : "DMOD";
    if (!list.files.isEmpty() || FileExists(program, Join_path(doom.folder, backup_name)))
        return "DOOM";
    return FileExists(program, Join_path(dark_mod.folder, backup_name)) ? "DMOD" : program.CURRENT_GAME;
}

/// The name line, or what the location tells when the list was cut before it.
QString Name_in_list(const Undo_List &list) {
    if (!list.zip_name.isEmpty() || list.is_original())
        return list.zip_name;
    return FileNameFromPath(Tidy_path(list.location));
}

} // namespace

QString Install_Base::path_of(const QString &line) const {
    const QString tidy = Tidy_path(line);
    return Is_below(tidy, folder) ? Join_path(folder, Relative_to(tidy, folder)) : tidy;
}

Install_Base Install_base_of(const Program &program, const QString &game_code) {
    const QString game_path = Tidy_path(program.CURRENT_GAME_PATH);
    if (program.SELECTED_GAME_TAB == "CUSTOM")
        return {game_path, game_path};
    if (game_code == "T3") {
        const QString root = Without_system_folder(game_path);
        return {root, root.toUpper()};
    }
    if (game_code == "DOOM")
        return {Join_path(game_path, "base"), Join_path(game_path, "base")};
    return {game_path, game_path};
}

Leaving What_is_leaving(const Install_Run &run) {
    Program &program = run.program;
    const std::optional<Undo_List> &list = run.previous;
    Leaving leaving{{}, program.CURRENT_GAME, {}};
    if (list) {
        leaving.zip_name = Name_in_list(*list);
        if (leaving.zip_name.isEmpty() && list->is_original()) {
            const bool is_t2x = Is_same_path(list->location, "Original T2X");
            if (is_t2x != (program.CURRENT_GAME == "T2X"))
                leaving.game = is_t2x ? "T2X" : "T2";
        }
        if (!leaving.zip_name.isEmpty() && Is_doom_or_dark_mod(program.CURRENT_GAME))
            leaving.game = Game_of_doom_list(program, *list, leaving.zip_name);
    }
    leaving.base = Install_base_of(program, leaving.game);
    return leaving;
}

QStringList Games_in_this_folder(const Program &program) {
    QStringList codes{program.CURRENT_GAME};
    for (const QString &code : All_codes()) {
        const QString folder = Game_Folder(program.ini, code);
        const bool shared =
            !folder.isEmpty() && Is_same_path(Tidy_path(folder), Tidy_path(program.CURRENT_GAME_PATH));
        if (shared && !codes.contains(code))
            codes << code;
    }
    return codes;
}

bool Is_doom_or_dark_mod(const QString &game_code) {
    return game_code == "DOOM" || game_code == "DMOD";
}

void Show_stage(Install_Run &run, int stage) {
    Show_step(run, QString("Stage %1 of 8").arg(stage));
}

void Show_step(Install_Run &run, const QString &text) {
    Set_Status_Panel(run.program, 1, text);
    run.last_pump = run.program.clock.ticks();
    run.program.ui.pump_events();
}

void Show_file(Install_Run &run, const QString &text) {
    Set_Status_Panel(run.program, 2, text);
    Pump_now_and_then(run);
}

void Short_pause(Install_Run &run) {
    run.program.ui.pump_events();
    run.program.clock.sleep(pause_length);
}

void Update_installed(Install_Run &run, const QString &sql) {
    try {
        db_Execute(run.program, sql);
    } catch (const Program_Error &error) {
        debug_print(run.program, "MAIN FORM: " + error.description());
    }
}

void Set_ready_cell(Program &program, const QString &zip_name, const QString &text) {
    const int row = program.screen.list.find_zip(zip_name);
    if (row < 0)
        return;
    program.screen.list.rows[static_cast<std::size_t>(row)].cells[col_ready] = text;
    program.ui.list_row_changed(row);
}

Fault Save_list(Install_Run &run) {
    return Write_undo_list(run.program, run.program.CURRENT_GAME_PATH, run.list);
}

} // namespace vantrosk
