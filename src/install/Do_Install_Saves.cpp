#include "core/Program.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/Install_Paths.h"
#include "install/Install_Run.h"
#include "install/Recover_Log.h"
#include "install/Saves.h"

#include <array>

namespace vantrosk {

namespace {

/// The archives of the games' own saves. Doom 3's is not looked for under the name it was given: those saves
/// are kept and not brought back.
struct Original_Row {
    const char *game;
    const char *heading;
    const char *archived_as;
    const char *brought_back_from;
};
constexpr std::array<Original_Row, 4> original_rows{{
    {"T2X", "//T2X Saves", "Original_T2X.zip", "Original_T2X.zip"},
    {"DM", "//Dark Metal Original saves", "Original_DM.zip", "Original_DM.zip"},
    {"DOOM", "//DOOM 3 Original saves", "Original_DOOM3.zip", "Original_DOOM.zip"},
    {"DMOD", "//Dark Mod Original saves", "Original_DMOD.zip", "Original_DMOD.zip"},
}};
constexpr Original_Row other_original{"", "//Original saves", "Original.zip", "Original.zip"};

const Original_Row &Row_of(const QString &game) {
    for (const Original_Row &row : original_rows)
        if (game == QLatin1String(row.game))
            return row;
    return other_original;
}

constexpr const char *finished = "//Finished Zipping Original saves";

bool Archive(Install_Run &run, const QString &game, const QString &zip_name) {
    const Save_Packing packing = run.unfinished ? Save_Packing::merge : Save_Packing::replace;
    if (Zip_up_saves(run.program, game, zip_name, run.program.CURRENT_GAME_PATH, packing))
        return true;
    run.fault = {Fault_Kind::other, "The save games of \"" + zip_name + "\" could not be archived."};
    return false;
}

bool Archive_custom_originals(Install_Run &run) {
    const Program &program = run.program;
    Recover_log(run.program, "//" + program.custom_name + " Original saves");
    return Archive(run, "CUSTOM", "Original_" + program.CURRENT_GAME + ".zip");
}

bool Archive_originals(Install_Run &run, const QString &game) {
    if (run.program.SELECTED_GAME_TAB == "CUSTOM")
        return Archive_custom_originals(run);
    const Original_Row &row = Row_of(game);
    Recover_log(run.program, row.heading);
    if (!Archive(run, game, row.archived_as))
        return false;
    if (&row == &other_original)
        Recover_log(run.program, finished);
    return true;
}

bool Archive_mission(Install_Run &run) {
    Recover_log(run.program, "//FM saves");
    if (!Archive(run, run.leaving.game, run.leaving.zip_name))
        return false;
    Recover_log(run.program, finished);
    return true;
}

} // namespace

bool Archive_leaving_saves(Install_Run &run) {
    Recover_log(
        run.program,
        {"//STEPS TO FIX = previous FM files and folders have been deleted. 1) Current_install.txt needs "
         "to be deleted, 2) save games need to be backed up, 3) original_backup.zip (if existing) needs to "
         "be unzipped. This should now be restored to a clean install.",
         "[ZIPPING_SAVES]"});
    const bool originals_arrive = Is_original_row(run.zip_name);
    const bool of_another_game = run.leaving.game != run.program.CURRENT_GAME;
    if (run.leaving.zip_name.isEmpty())
        return originals_arrive && !of_another_game ? true : Archive_originals(run, run.leaving.game);
    if (!Archive_mission(run))
        return false;
    // Doom 3's and The Dark Mod's saves lie side by side: the arriving game's are still the player's own.
    return !of_another_game || originals_arrive || Archive_originals(run, run.program.CURRENT_GAME);
}

void Bring_back_saves(Install_Run &run) {
    Program &program = run.program;
    Recover_log(
        program,
        {"//Unzipping saves",
         "//STEPS TO FIX = FM has been installed, however MP3 Files have not been converted and FM save "
         "games have not been unzipped installing Original Missions will resolve.",
         "[UNZIPPING_SAVES]"});
    Short_pause(run);
    const QString &path = program.CURRENT_GAME_PATH;
    if (!Is_original_row(run.zip_name))
        run.saves_are_back = Unzip_saves(program, program.CURRENT_GAME, run.zip_name, path);
    else if (program.SELECTED_GAME_TAB == "CUSTOM")
        run.saves_are_back =
            Unzip_saves(program, "CUSTOM", "Original_" + program.CURRENT_GAME + ".zip", path, true);
    else
        run.saves_are_back = Unzip_saves(program, program.CURRENT_GAME,
                                         Row_of(program.CURRENT_GAME).brought_back_from, path, true);
}

} // namespace vantrosk
