#include "install/Install_World.h"

#include "core/Games.h"
#include "core/mdlDB_Functions.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "install/Install_Paths.h"
#include "install/Stepping.h"
#include "install/undo/Undo_List.h"

namespace vantrosk {

Install_World::Install_World(const QString &game_code)
    : code(game_code), game_folder("games/" + game_code), zip_folder("fms/" + game_code),
      list_folder(game_folder) {
    platform.files = std::make_unique<Stepping_Files>(std::move(platform.files));
    auto stepping = std::make_unique<Stepping_Clock>();
    clock = stepping.get();
    platform.clock = std::move(stepping);
    start_game();
}

void Install_World::start_game() {
    const QString list_key = code == "DOOM" ? "DMOD" : code;
    set_up_game(list_key, game_folder, zip_folder);
    Program &p = program();
    set_debug(p, true);
    p.CURRENT_GAME = code;
    p.SELECTED_GAME_TAB = list_key;
    p.CURRENT_GAME_PATH = windows(game_folder);
    p.CURRENT_LOCATION = windows(zip_folder);
    if (code == "T3") {
        list_folder = game_folder + "/System";
        make_folder(list_folder);
        make_folder("documents/SaveGames");
        p.ini.T3_GAME_LOCATION = p.CURRENT_GAME_PATH = windows(list_folder);
        p.ini.T3_SAVE_GAME_LOCATION = windows("documents/SaveGames");
    }
    Fm_Row row;
    row.cells[col_name] = "Original Missions";
    row.cells[col_zip] = "Original";
    row.game_icon = code;
    p.screen.list.rows.insert(p.screen.list.rows.begin(), row);
    p.screen.list.original_rows = 1;
}

QString Install_World::game_path(const QString &name) const {
    const QString path = windows(game_folder);
    return name.isEmpty() ? path : Join_path(path, QString(name).replace('/', '\\'));
}

void Install_World::mission(const QString &zip_name, const std::vector<Zip_Entry> &entries) {
    zip(zip_folder + "/" + zip_name, entries);
    if (program().screen.list.find_zip(zip_name) >= 0)
        return;
    Fm_Row row;
    row.cells[col_name] = "The Mission " + zip_name.chopped(4);
    row.cells[col_zip] = zip_name;
    program().screen.list.rows.push_back(row);
    db_Execute(program(), "INSERT INTO Table_Scores (zip_name, FM_name, game, installed) VALUES (" +
                              In_double_quotes(zip_name) + ", 'x', " + In_single_quotes(code) + ", 0)");
}

void Install_World::select(const QString &zip_cell) {
    program().FM_PANEL = zip_cell;
    program().screen.list.current_row = program().screen.list.find_zip(zip_cell);
    ui.panel_1.clear();
    ui.panel_2.clear();
    ui.boxes.clear();
}

bool Install_World::install(const QString &zip_name) {
    select(zip_name);
    return Install_Command(program());
}

bool Install_World::restore() {
    select("Original");
    return Install_Command(program());
}

void Install_World::switch_to(const QString &game_code) {
    code = game_code;
    program().CURRENT_GAME = game_code;
    program().SELECTED_GAME_TAB = game_code == "DOOM" ? "DMOD" : game_code;
}

QStringList Install_World::listed() const {
    const QString root = Tidy_path(windows(game_folder));
    QStringList lines;
    for (const QString &line : Split_lines(Decode_text(read(list_folder + "/current_install.txt"))).mid(5)) {
        if (line.isEmpty())
            continue;
        lines << (Is_below(line, root) ? Relative_to(line, root).replace('\\', '/') : line);
    }
    return lines;
}

QStringList Install_World::finished_log() const {
    return Split_lines(Decode_text(read("home/install_recover.log.VKBU")));
}

QStringList Install_World::unfinished_log() const {
    return Split_lines(Decode_text(read("home/install_recover.log")));
}

int Install_World::installed_mark(const QString &zip_name, const QString &game_code) {
    const Recordset found = db_Query(
        program(), "SELECT installed FROM Table_Scores WHERE zip_name = " + In_double_quotes(zip_name) +
                       " and game = " + In_single_quotes(game_code));
    return found.is_empty() ? -1 : found.number(0, "installed");
}

QString Install_World::ready_cell(const QString &zip_name) {
    const int row = program().screen.list.find_zip(zip_name);
    return row < 0 ? "<no row>" : program().screen.list.rows[static_cast<std::size_t>(row)].cells[col_ready];
}

Snapshot Install_World::game() const {
    Snapshot result;
    for (const auto &[name, content] : snapshot(game_folder))
        if (!name.startsWith("allsaves/") && !name.endsWith("current_install.txt"))
            result[name] = content;
    return result;
}

Snapshot Install_World::saves_archive(const QString &name) const {
    Snapshot result;
    for (const Zip_Entry &entry : Read_zip(native(game_folder + "/allsaves/" + name)))
        result[QString::fromUtf8(entry.name)] = entry.content;
    return result;
}

QStringList Sorted(QStringList names) {
    names.sort();
    return names;
}

} // namespace vantrosk
