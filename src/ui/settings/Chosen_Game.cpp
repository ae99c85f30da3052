#include "ui/settings/Chosen_Game.h"

#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/Install_Paths.h"
#include "install/T3_Ini.h"
#include "ui/settings/Choose_Folder.h"
#include "ui/settings/Reference_Offers.h"
#include "ui/settings/T3MAIN_exe_Check.h"

namespace vantrosk {

namespace {

constexpr const char *two_thiefs =
    "If you do not have %1 on your PC, you will need to set your %1 game location to be the same as your %2 "
    "one, otherwise you will not be able to play %1 FMs.\r\n\r\nWould you like Vantrosk to do this for you?";
constexpr const char *one_install_only =
    "You can not use the same Thief 2 install for Dark Metal AND Thief 2 FMs";
constexpr const char *t2x_found = "Vantrosk has also detected T2X in your Thief 2 install, you will now be "
                                  "able to play T2X via Vantrosk.";
constexpr const char *t2x_missing = "Vantrosk has not found T2X in your Thief 2 folder, if you have T2X "
                                    "installed, please click YES and locate the T2X.exe file.";
constexpr const char *install_dark_mod =
    "Vantrosk has detected that you have not installed The Dark Mod yet, "
    "would you like Vantrosk to do this for you?";
constexpr const char *not_functional = "Nothing has occured as this is not yet functional";
constexpr const char *install_library = "Vantrosk has detected that the DevIL.dll required to play The Dark "
                                        "Mod is not installed correctly, would "
                                        "you like Vantrosk to try to do this for you?";
constexpr const char *no_dark_mod =
    "Vantrosk has NOT detected The Dark Mod installed on your PC. You will not be able to play The Dark Mod "
    "FMs\r\n\r\nHowever you can still play Doom 3 FMs by selecting their zip file locations as per normal.";

/// What is looked at and asked once the folder of a game is known.
using After_Choice = void (*)(Program &, Settings_Controls &, const QString &program_file);

// ---- Thief 1 and Gold ----

void Offer_same_folder(Program &program, Settings_Controls &controls, const char *chosen, const char *other) {
    if (!controls.of(other).game_folder.isEmpty())
        return;
    const QString text =
        QString(two_thiefs).arg(Find_Game_Tab(other)->caption, Find_Game_Tab(chosen)->caption);
    if (Ask_Yes_No(program, "", text))
        controls.of(other).game_folder = controls.of(chosen).game_folder;
}

void After_thief_1(Program &program, Settings_Controls &controls, const QString &) {
    Offer_same_folder(program, controls, "T1", "TG");
    t1_optomisation_check(program, controls.of("T1").game_folder, "T1", Unasked::may_add_a_line);
}

void After_thief_gold(Program &program, Settings_Controls &controls, const QString &) {
    Offer_same_folder(program, controls, "TG", "T1");
    t1_optomisation_check(program, controls.of("TG").game_folder, "TG", Unasked::may_add_a_line);
}

// ---- Thief 2, Thief 2X ----

void Look_for_t2x(Program &program, Settings_Controls &controls) {
    const QString folder = controls.of("T2").game_folder;
    QString &t2x = controls.of("T2X").game_folder;
    if (FileExists(program, Join_path(folder, "t2x.exe"))) {
        t2x = folder;
        Show_Message(program, "", t2x_found);
    } else if (t2x.isEmpty() && Ask_Yes_No(program, "T2X Install", t2x_missing)) {
        if (const auto file = get_folder(program, controls, "T2X"))
            t2x = Parent_path(*file);
    }
}

void After_thief_2(Program &program, Settings_Controls &controls, const QString &) {
    Look_for_t2x(program, controls);
    t1_optomisation_check(program, controls.of("T2").game_folder, "T2", Unasked::may_add_a_line);
}

// ---- Thief 3 ----

void After_thief_3(Program &program, Settings_Controls &controls, const QString &program_file) {
    T3MAIN_exe_Check(program, program_file);
    const QString saves = Read_T3_Registry(*program.platform.registry).save_path;
    if (!saves.isEmpty())
        controls.t3_saves = saves;
}

// ---- System Shock 2 ----

void After_shock(Program &program, Settings_Controls &controls, const QString &) {
    t1_optomisation_check(program, controls.of("SS2").game_folder, "SS2", Unasked::may_add_a_line);
}

// ---- The Dark Mod ----

void Mend_library(Program &program, const QString &game_folder) {
    const QString wanted = Join_path(game_folder, "DevIL.dll");
    const QString brought = Join_path(Join_path(game_folder, "darkmod"), "DevIL.dll");
    if (!FolderExists(program, Join_path(game_folder, "darkmod")) || FileExists(program, wanted))
        return;
    if (!Ask_Yes_No(program, "Install The Dark Mod dll", install_library))
        return;
    if (const Fault fault = program.files.copy_file(brought, wanted)) {
        debug_print(program, "CONFIG: DevIL.dll not copied: " + fault.text);
        Show_Warning(program, "Install The Dark Mod dll", fault.text);
    }
}

void After_dark_mod(Program &program, Settings_Controls &controls, const QString &) {
    const QString folder = controls.of("DMOD").game_folder;
    controls.dark_mod_installed = Has_Dark_Mod(program, folder);
    if (!controls.dark_mod_installed && Ask_Yes_No(program, "", install_dark_mod))
        Show_Message(program, "", not_functional);
    Mend_library(program, folder);
    if (!controls.dark_mod_installed && !FolderExists(program, Join_path(folder, "darkmod")))
        Show_Message(program, "The Dark Mod Is Not Installed", no_dark_mod);
}

struct After_Row {
    const char *code;
    After_Choice work;
};

/// The other games have nothing to ask but the offer that ends every tab.
constexpr After_Row after_rows[] = {
    {"T1", After_thief_1}, {"TG", After_thief_gold}, {"T2", After_thief_2},
    {"T3", After_thief_3}, {"SS2", After_shock},     {"DMOD", After_dark_mod},
};

/// Dark Metal changes files of the Thief 2 that it plays in.
bool Is_taken(const Settings_Controls &controls, const QString &code, const QString &folder) {
    const char *other = code == QLatin1String("T2") ? "DM" : code == QLatin1String("DM") ? "T2" : nullptr;
    return other && Is_same_path(Tidy_path(controls.of(other).game_folder), folder);
}

} // namespace

void t1_optomisation_check(Program &program, const QString &path, const QString &game, Unasked unasked) {
    OptimiseDarkInstall(program, path, game, unasked);
}

bool Has_Dark_Mod(const Program &program, const QString &game_folder) {
    return FileExists(program, Join_path(game_folder, "darkmod.pk4"));
}

void Take_Game(Program &program, Settings_Controls &controls, const QString &code,
               const QString &program_file) {
    const QString folder = Parent_path(program_file);
    if (Is_taken(controls, code, folder))
        return Show_Warning(program, "", one_install_only);
    controls.of(code).game_folder = folder;
    for (const After_Row &row : after_rows)
        if (code == QLatin1String(row.code))
            row.work(program, controls, program_file);
    Offer_Reference_File(program, controls, code);
}

void Locate_Game(Program &program, Settings_Controls &controls, const QString &code) {
    if (const auto file = get_folder(program, controls, code))
        Take_Game(program, controls, code, *file);
}

QString Locate_Missions(Program &program, Settings_Controls &controls, const QString &code) {
    const auto folder = Get_Folder_For_ListBox(program, controls, code);
    if (!folder)
        return {};
    Add_Folder(controls, code, *folder);
    return *folder;
}

void Locate_Editor(Program &program, Settings_Controls &controls, const QString &code) {
    if (const auto file = Get_Editor(program, controls, code))
        controls.of(code).editor = *file;
}

} // namespace vantrosk
