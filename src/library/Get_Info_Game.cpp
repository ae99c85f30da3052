#include "core/Games.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "library/Info_Run.h"
#include "library/Titles_Str.h"
#include "library/fields/Readme_Fields.h"

namespace vantrosk {

namespace {

/// Codes that a mission can be played as.
constexpr std::array<const char *, 9> active_games{
    {"T1", "TG", "T2", "T3", "DM", "DMOD", "T2X", "SS2", "DOOM"}};

bool Is_active_game(const QString &code) {
    for (const char *known : active_games) {
        if (code == QLatin1String(known))
            return true;
    }
    return false;
}

QString Without_separator(QString folder) {
    while (folder.endsWith('\\') || folder.endsWith('/'))
        folder.chop(1);
    return folder;
}

QString Folder_of(const Program &program, const QString &code) {
    return Without_separator(Game_Folder(program.ini, code));
}

void Activate(Program &program, const QString &code) {
    program.CURRENT_GAME = code;
    program.CURRENT_GAME_PATH = Folder_of(program, code);
    program.screen.details.game_icon = code;
}

bool Has_miss_file(const Info_Run &run) {
    for (const QString &mission : run.found.mission_files) {
        if (mission.startsWith(QLatin1String("MISS"), Qt::CaseInsensitive) &&
            mission.endsWith(QLatin1String(".MIS"), Qt::CaseInsensitive))
            return true;
    }
    return false;
}

/// The game whose own titles stand in the mission's "titles.str"; its name too, when the readme had none.
QString Game_by_titles(Program &program, const Info_Run &run) {
    if (!run.found.has_titles_str)
        return {};
    Details_Panel &details = program.screen.details;
    const Titles_Find find =
        Game_of_titles_str(Read_text_lines(program, In_info(program, "TITLES.STR")), details.name.isEmpty());
    if (!find.game.isEmpty() && !find.name.isEmpty())
        details.name = Name_for_display(find.name);
    return find.game;
}

/// The answer to an earlier question may be kept under a game that this list does not show.
QString Game_of_any_record(Program &program, const Info_Run &run) {
    const Recordset records =
        db_Query(program, "SELECT game FROM Table_Scores WHERE zip_name = " + In_double_quotes(run.zip_name));
    for (int row = 0; row < records.size(); ++row) {
        if (!Game_Text(records.text(row, "game")).isEmpty())
            return records.text(row, "game");
    }
    return {};
}

/// A game that something other than the readme gave; a guess counts only where that game is set up.
struct Decision {
    QString code;
    bool is_guess = false;
};

/// What decides when the readme names no game. Only Dark Engine games number their missions "miss20.mis", and
/// of these System Shock 2 alone has no "titles.str"; a record knows better, since the scan saw more.
Decision Game_without_readme(Program &program, const Info_Run &run) {
    const bool miss_file = Has_miss_file(run);
    if (miss_file) {
        const QString by_titles = Game_by_titles(program, run);
        if (!by_titles.isEmpty())
            return {by_titles};
    }
    if (!Game_Text(run.record_game).isEmpty())
        return {run.record_game};
    if (miss_file && !run.found.has_titles_str)
        return {"SS2", true};
    return {Game_of_any_record(program, run)};
}

void Ask_for_game(Program &program) {
    const bool thief2 = Ask_Yes_No(program, "Vantrosk",
                                   "Vantrosk has not be able to determine what game this is for.\n"
                                   "Is this a THIEF 2 THE METAL AGE fan mission? If not Vantrosk will "
                                   "attempt to play it on Thief 1");
    program.screen.details.game = thief2 ? "Thief 2 The Metal Age" : "Thief 1 The Dark Project";
    if (thief2)
        Activate(program, "T2");
    else
        Activate(program, Folder_of(program, "T1").isEmpty() ? "TG" : "T1");
}

/// The active game of the game text, if that game is set up.
void Activate_by_text(Program &program) {
    const QString code = Map_game_words(program.screen.details.game);
    if (!Is_active_game(code))
        return;
    program.screen.details.game_icon = code;
    if (!Folder_of(program, code).isEmpty())
        Activate(program, code);
}

/// A custom game has one folder, whatever the readme says.
void Activate_custom(Program &program, const Info_Run &run) {
    if (run.found.has_custom_mission) {
        program.screen.details.game = Custom_game_text(program.custom_name);
        program.CURRENT_GAME = program.custom_name;
    }
    program.CURRENT_GAME_PATH = Without_separator(QString(program.custom_game_path).remove("*#*"));
    program.screen.details.game_icon = program.CURRENT_GAME;
}

/// Missions of The Dark Mod come in the same form as those of Doom 3; what marks them was noted on the way.
void Tell_dark_mod_from_doom(Program &program, const Info_Run &run) {
    if (run.key != QLatin1String("DMOD") && program.CURRENT_GAME != QLatin1String("DMOD"))
        return;
    if (program.CURRENT_GAME.isEmpty() || run.found.marked_dark_mod)
        Activate(program, "DMOD");
    program.screen.details.game_icon = "DMOD";
}

} // namespace

void Settle_Game(Program &program, const Info_Run &run) {
    QString &text = program.screen.details.game;
    const bool in_question = !program.MISSIONFILE.isEmpty() && !run.found.has_custom_mission &&
                             !run.found.has_thief3_mission() && Map_game_words(text).isEmpty();
    const Decision decided = in_question ? Game_without_readme(program, run) : Decision();
    if (!decided.code.isEmpty())
        text = Game_Text(decided.code);
    if (in_question && decided.code.isEmpty())
        Ask_for_game(program);
    else if (run.found.is_custom())
        Activate_custom(program, run);
    else if (decided.code.isEmpty() || decided.is_guess)
        Activate_by_text(program);
    else
        Activate(program, decided.code);
    if (run.found.has_thief3_mission() && !run.found.has_custom_mission) {
        text = Game_Text("T3");
        Activate(program, "T3");
    }
    Tell_dark_mod_from_doom(program, run);
}

} // namespace vantrosk
