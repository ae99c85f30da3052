#include "ui/settings/Auto_Configure.h"

#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/Install_Paths.h"
#include "install/T3_Ini.h"
#include "ui/settings/Chosen_Game.h"
#include "ui/settings/Reference_Offers.h"
#include "ui/settings/Shown_Path.h"

namespace vantrosk {

namespace {

constexpr const char *app_paths =
    "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\";
constexpr const char *ion_root = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Ion Storm\\Thief - Deadly Shadows\\ION_ROOT";
constexpr const char *doom_path = "HKEY_LOCAL_MACHINE\\SOFTWARE\\id\\Doom 3\\installPath";
constexpr int not_in_registry = 2;

constexpr const char *thief_2_places[] = {"c:\\program files\\thief2\\", "c:\\games\\thief2\\"};

constexpr const char *editor_install =
    "Vantrosk has determined that your Thief 3 install looks currently set to be the editor install (%1) "
    ".\r\n\r\nIf this is your Thief 3 play install and NOT the editor please click YES to use this path or "
    "click NO to configure it manually later.";
constexpr const char *success = "Vantrosk sucessfully configured: ";
constexpr const char *complete = "Auto Configuration is complete, please save your settings.";
constexpr const char *the_rest = "Please configure anything else manually.";
constexpr const char *now_missions =
    "Now you must configure your Fan Mission zip folder paths. Click the Tabs to select yout Game and then "
    "click the GREEN PLUS button to add 1 FM.";

/// One search: where it looks, and what it fills.
struct Search {
    Program &program;
    Settings_Controls &controls;
    const Stage_Told &told;
    Auto_Configured result;
    std::unique_ptr<Registry> other_registry; ///< null for the system in use

    const Registry &registry() const { return other_registry ? *other_registry : *program.platform.registry; }
    /// A path of the searched system as a path here, tidy.
    QString here(const QString &path) const {
        if (!other_registry || path.isEmpty())
            return Tidy_path(path);
        return Tidy_path(program.platform.prefixes->path_here(result.prefix, path));
    }
};

/// A value of the registry; a missing one is traced under the game's name and gives an empty text.
QString Read_key(Search &search, const char *game, const QString &key) {
    const auto value = search.registry().read(key);
    if (!value)
        debug_print(search.program,
                    QString("CONFIG: Ignored Error in Autoconfig %1 Reg check : (%2) There is no \"%3\".")
                        .arg(game)
                        .arg(not_in_registry)
                        .arg(key));
    return value.value_or(QString()).trimmed();
}

QString Read_app_path(Search &search, const char *game, const char *program_file) {
    return Read_key(search, game, QString(app_paths) + program_file + "\\path");
}

bool Holds(const Search &search, const QString &folder, const char *file) {
    return !folder.isEmpty() && FileExists(search.program, Join_path(folder, file));
}

const Found_Game *Found(const Auto_Configured &result, const char *code) {
    for (const Found_Game &game : result.found)
        if (game.code == QLatin1String(code))
            return &game;
    return nullptr;
}

/// The first place at which a game is found counts.
bool Take(Search &search, const char *code, const QString &name, const QString &folder) {
    if (Found(search.result, code))
        return false;
    search.controls.of(code).game_folder = folder;
    search.result.found.push_back({code, name, folder});
    return true;
}

// ---- the stages ----

/// Both games have a "thief.exe"; the folder's name tells them apart.
void Find_thief_1_and_gold(Search &search) {
    struct Key_Row {
        const char *key;
        bool names_gold;
    };
    for (const Key_Row &row : {Key_Row{"thief.exe", false}, Key_Row{"thiefg.exe", true}}) {
        const QString folder = search.here(Read_app_path(search, "T1", row.key));
        if (!Holds(search, folder, row.key) && !Holds(search, folder, "thief.exe"))
            continue;
        const bool is_gold = row.names_gold || folder.contains("GOLD", Qt::CaseInsensitive);
        const char *code = is_gold ? "TG" : "T1";
        if (Take(search, code, Find_Game_Tab(code)->caption, folder))
            t1_optomisation_check(search.program, folder, code, Unasked::changes_nothing);
    }
}

void Find_thief_2(Search &search) {
    QStringList places{Read_app_path(search, "T2", "thief2.exe")};
    if (places.first().isEmpty())
        for (const char *place : thief_2_places)
            places << place;
    for (const QString &place : places) {
        const QString folder = search.here(place);
        if (Holds(search, folder, "thief2.exe") && Take(search, "T2", "Thief 2", folder))
            return;
    }
}

bool Wants_editor_install(Search &search, const QString &file) {
    return Ask_Yes_No(search.program, "", QString(editor_install).arg(Shown_Path(search.program, file)));
}

void Find_thief_3(Search &search) {
    const QString root = Read_key(search, "T3", ion_root);
    if (root.isEmpty() || root == QLatin1String(ion_root))
        return;
    const QString folder = Join_path(search.here(root), "SYSTEM");
    if (!Holds(search, folder, "t3.exe"))
        return;
    const QString file = Join_path(folder, "t3.exe");
    if (!file.contains("EDIT", Qt::CaseInsensitive) || Wants_editor_install(search, file))
        Take(search, "T3", "Thief 3", folder);
}

void Find_t3_saves(Search &search) {
    const QString saves = search.here(Read_T3_Registry(search.registry()).save_path);
    if (saves.isEmpty())
        return;
    search.result.t3_saves = saves;
    search.controls.t3_saves = saves;
}

void Find_doom(Search &search) {
    const QString folder = search.here(Read_key(search, "Doom 3", doom_path));
    if (!Holds(search, folder, "doom3.exe"))
        return;
    Take(search, "DMOD", "Doom 3 Gamepath", folder);
    if (Has_Dark_Mod(search.program, folder))
        search.controls.dark_mod_installed = true;
}

void Find_shock(Search &search) {
    const QString folder = search.here(Read_app_path(search, "SS2", "shock2.exe"));
    if (!Holds(search, folder, "shock2.exe"))
        return;
    Take(search, "SS2", "System Shock 2", folder);
    if (Holds(search, folder, "shocked.exe"))
        search.controls.of("SS2").editor = Join_path(folder, "shocked.exe");
}

struct Stage {
    int shown; ///< the sixth shows as the third, as users know it
    void (*work)(Search &);
};
constexpr Stage stages[] = {
    {1, Find_thief_1_and_gold}, {2, Find_thief_2}, {3, Find_thief_3},
    {4, Find_t3_saves},         {5, Find_doom},    {3, Find_shock},
};

void Tell_stage(Search &search, int shown, int done) {
    const QString text = QString("Stage %1 of %2").arg(shown).arg(auto_configure_stages);
    search.result.stages << text;
    Set_Status_Panel(search.program, 1, text);
    if (search.told)
        search.told(text, done);
    search.program.ui.pump_events();
}

/// The order in which the report names the games.
constexpr const char *report_order[] = {"T1", "TG", "T2", "T3", "SS2", "DMOD"};
/// Of those a reference file can be made.
constexpr const char *listed_order[] = {"T1", "TG", "T2", "T3", "SS2"};

void Report(Program &program, const Auto_Configured &result) {
    QStringList names;
    for (const char *code : report_order)
        if (const Found_Game *game = Found(result, code))
            names << game->name;
    QStringList texts{success + names.join(", "), complete, the_rest};
    if (program.start.first_run_mode)
        texts << now_missions;
    Show_Message(program, "", texts.join("\r\n\r\n"));
}

QStringList Listed_codes(const Auto_Configured &result) {
    QStringList codes;
    for (const char *code : listed_order)
        if (Found(result, code))
            codes << code;
    return codes;
}

} // namespace

Auto_Configured Auto_Configure(Program &program, Settings_Controls &controls, const QString &prefix,
                               const Stage_Told &told) {
    Search search{program, controls, told, {}, nullptr};
    if (const Prefixes *prefixes = program.platform.prefixes.get()) {
        const QString in_use = prefixes->list().front().folder;
        search.result.prefix = prefix.isEmpty() ? in_use : prefix;
        if (search.result.prefix != in_use)
            search.other_registry = prefixes->registry(prefix);
    }
    int done = 0;
    for (const Stage &stage : stages) {
        Tell_stage(search, stage.shown, done++);
        stage.work(search);
    }
    Tell_stage(search, auto_configure_stages, auto_configure_stages);
    Report(program, search.result);
    search.result.reference_files = Offer_Reference_Files(program, controls, Listed_codes(search.result));
    Set_Status_Panel(program, 1, "Ready");
    return search.result;
}

Fault Store_Found(Program &program, const Settings_Controls &controls, const Auto_Configured &result) {
    if (result.found.empty() && result.t3_saves.isEmpty())
        return {};
    for (const Found_Game &found : result.found) {
        const Game_Tab &tab = *Find_Game_Tab(found.code);
        program.ini.*tab.game().game_folder = found.folder;
        if (tab.editor)
            program.ini.*tab.editor = controls.of(found.code).editor;
    }
    if (!result.t3_saves.isEmpty())
        program.ini.T3_SAVE_GAME_LOCATION = result.t3_saves;
    program.ini.DMOD_INSTALLED = controls.dark_mod_installed;
    const Fault fault = Write_Main_Ini(program);
    program.ui.games_changed();
    return fault;
}

} // namespace vantrosk
