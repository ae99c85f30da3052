#include "ui/settings/Settings_Controls.h"

#include "core/Language_Packs.h"
#include "core/Program.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/Install_Paths.h"
#include "ui/settings/Reference_Offers.h"

namespace vantrosk {

namespace {

constexpr const char *help_topic = "FILE___SETTINGS1";
constexpr const char *language_note =
    "You will need to restart Vantrosk before the language changes take place";

std::size_t Index_of(const QString &code) {
    for (std::size_t i = 0; i < game_tab_count; ++i)
        if (code.compare(QLatin1String(Game_Tabs()[i].code), Qt::CaseInsensitive) == 0)
            return i;
    Q_ASSERT_X(false, "Settings_Controls", "a game without a tab");
    return 0;
}

QStringList Add_Locations_to_list(const QString &locations) {
    return Split_folder_list(locations, Empty_Entry::is_passed_over);
}

bool Lists(const QStringList &folders, const QString &folder) {
    for (const QString &listed : folders)
        if (Is_same_path(Tidy_path(listed), Tidy_path(folder)))
            return true;
    return false;
}

void Clear_lists(Main_Ini &ini) {
    ini.TOTHER_LOCATION.clear();
    for (const Game_Tab &tab : Game_Tabs())
        (ini.*tab.game().fm_folders).clear();
}

void Take_games(Main_Ini &ini, const Settings_Controls &controls) {
    for (const Game_Tab &tab : Game_Tabs()) {
        const Game_Controls &game = controls.of(tab.code);
        ini.*tab.game().game_folder = game.game_folder;
        ini.*tab.game().fm_folders = Join_folder_list(game.fm_folders);
        if (tab.editor)
            ini.*tab.editor = game.editor;
    }
    ini.TOTHER_LOCATION = Join_folder_list(controls.mixed_folders);
    ini.T3_SAVE_GAME_LOCATION = controls.t3_saves;
    ini.DMOD_INSTALLED = controls.dark_mod_installed;
}

void Take_language(Program &program, const QString &language) {
    Main_Ini &ini = program.ini;
    if (language.compare(ini.LANGUAGE, Qt::CaseInsensitive) == 0)
        return;
    Show_Message(program, "", language_note);
    ini.LANGUAGE = language;
    ini.LANGUAGECODE = Language_Code(program, language);
}

} // namespace

Game_Controls &Settings_Controls::of(const QString &code) {
    return games[Index_of(code)];
}

const Game_Controls &Settings_Controls::of(const QString &code) const {
    return games[Index_of(code)];
}

Settings_Controls Open_Settings(Program &program) {
    const Main_Ini &ini = program.ini;
    Settings_Controls controls;
    for (const Game_Tab &tab : Game_Tabs())
        controls.of(tab.code) = {ini.*tab.game().game_folder,
                                 Add_Locations_to_list(ini.*tab.game().fm_folders),
                                 tab.editor ? ini.*tab.editor : QString()};
    controls.mixed_folders = Add_Locations_to_list(ini.TOTHER_LOCATION);
    controls.t3_saves = ini.T3_SAVE_GAME_LOCATION;
    controls.dark_mod_installed = ini.DMOD_INSTALLED;
    controls.check_for_updates = ini.CHECKFORUPDATES;
    controls.language = ini.LANGUAGE;
    controls.toolbar_size = ini.MAIN_TOOLBAR;
    controls.downloads = ini.DOWNLOADS_URL;
    controls.make_reference = Make_Reference_File;
    program.HELPCONTEXT = help_topic;
    return controls;
}

Fault Save_Settings(Program &program, const Settings_Controls &controls) {
    const Main_Ini before = program.ini;
    Clear_lists(program.ini);
    Take_games(program.ini, controls);
    program.ini.DOWNLOADS_URL = controls.downloads.trimmed();
    program.ini.MAIN_TOOLBAR = controls.toolbar_size;
    program.ini.CHECKFORUPDATES = controls.check_for_updates;
    Take_language(program, controls.language);
    if (const Fault fault = Write_Main_Ini(program)) {
        // The window stays open: Cancel has to find nothing changed.
        program.ini = before;
        return fault;
    }
    Run_Later_Step(program, Later_Step::build_config_menu);
    program.screen.menu.downloads = !program.ini.DOWNLOADS_URL.isEmpty();
    program.ui.games_changed();
    return {};
}

std::vector<Listed_Folder> Listed_Folders(const Settings_Controls &controls, const QString &code) {
    std::vector<Listed_Folder> listed;
    for (const QString &folder : controls.of(code).fm_folders)
        listed.push_back({folder, false});
    for (const QString &folder : controls.mixed_folders)
        listed.push_back({folder, true});
    return listed;
}

bool Add_Folder(Settings_Controls &controls, const QString &code, const QString &folder) {
    QStringList &own = controls.of(code).fm_folders;
    if (Lists(own, folder) || Lists(controls.mixed_folders, folder))
        return false;
    own << folder;
    return true;
}

void Remove_Folder(Settings_Controls &controls, const QString &code, const Listed_Folder &listed) {
    QStringList &folders = listed.mixed ? controls.mixed_folders : controls.of(code).fm_folders;
    folders.removeOne(listed.folder);
}

void Mark_Mixed(Settings_Controls &controls, const QString &code, const QString &folder, bool mixed) {
    QStringList &from = mixed ? controls.of(code).fm_folders : controls.mixed_folders;
    QStringList &to = mixed ? controls.mixed_folders : controls.of(code).fm_folders;
    if (from.removeOne(folder) && !Lists(to, folder))
        to << folder;
}

void Clear_Game(Settings_Controls &controls, const QString &code) {
    Game_Controls &game = controls.of(code);
    game.game_folder.clear();
    game.editor.clear();
    if (code == QLatin1String("T3"))
        controls.t3_saves.clear();
    if (code == QLatin1String("DMOD"))
        controls.dark_mod_installed = false;
}

} // namespace vantrosk
