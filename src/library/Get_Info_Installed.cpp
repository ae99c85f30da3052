#include "core/Games.h"
#include "core/mdlFile_Functions.h"
#include "install/undo/Undo_List.h"
#include "library/Info_Run.h"

#include <optional>

namespace vantrosk {

namespace {

enum class Holds { no_mission, this_mission, another_mission };

Holds What_the_game_holds(const Program &program, const Info_Run &run) {
    if (program.CURRENT_GAME_PATH.isEmpty())
        return Holds::no_mission;
    const auto list = Read_undo_list(program, program.CURRENT_GAME_PATH);
    if (!list || list->zip_name.isEmpty())
        return Holds::no_mission;
    const bool same = list->zip_name.compare(run.zip_name, Qt::CaseInsensitive) == 0;
    return same ? Holds::this_mission : Holds::another_mission;
}

QString State_text(Holds holds) {
    switch (holds) {
    case Holds::this_mission:
        return "installed";
    case Holds::another_mission:
        return "other installed";
    case Holds::no_mission:
        break;
    }
    return "not installed";
}

/// Where saves of a game's missions are kept: beside the game, for Thief 3 beside its system folder, for
/// a custom game where the user chose.
QString Saves_folder(const Program &program, const QString &code) {
    const bool custom = code == QLatin1String("CUSTOM");
    QString folder = custom ? program.custom.backup_saves_path : Game_Folder(program.ini, code);
    if (folder.isEmpty())
        return {};
    while (folder.endsWith(QLatin1Char('\\')))
        folder.chop(1);
    if (custom)
        return folder;
    if (code == QLatin1String("T3"))
        folder.remove(QLatin1String("\\SYSTEM"), Qt::CaseInsensitive);
    return folder + "\\allsaves";
}

/// Names that an archive of this mission's saves may have; older versions used the later ones.
QStringList Saves_names(const QString &zip_name) {
    const QString base = QString(zip_name).remove(QLatin1String(".zip"), Qt::CaseInsensitive);
    const QString plain = QString(base).replace(QLatin1Char('.'), QLatin1Char('_'));
    return {"saves_" + plain + ".zip", "saves_" + zip_name, plain + "_saves.zip", base + "_saves.zip"};
}

QString Saves_text(const Program &program, const Info_Run &run) {
    for (const QString &code : {run.key, program.CURRENT_GAME}) {
        const QString folder = Saves_folder(program, code);
        if (folder.isEmpty())
            continue;
        for (const QString &name : Saves_names(run.zip_name)) {
            const auto file = program.files.look(folder + "\\" + name);
            if (file && !file->is_folder)
                return "Saves Zip (" + FormatSize(file->size) + ")";
        }
    }
    return {};
}

} // namespace

void Show_Installed_State(Program &program, Info_Run &run) {
    const Holds holds = What_the_game_holds(program, run);
    const bool installed = holds == Holds::this_mission;
    if (installed != run.record_says_installed)
        Set_Installed(program, run, installed);
    program.fm.install_state = State_text(holds);

    Details_Panel &details = program.screen.details;
    details.saves_text = installed ? QString("Installed") : Saves_text(program, run);
    details.shows_installed = installed;
    details.play_enabled = installed;
    details.install_enabled =
        !installed && !program.CURRENT_GAME_PATH.isEmpty() && !program.MISSIONFILE.isEmpty();
    program.ui.details_changed();
}

} // namespace vantrosk
