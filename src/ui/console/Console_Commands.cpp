#include "ui/console/Console_Commands.h"

#include "core/Ini_Rules.h"
#include "core/Program.h"
#include "core/mdlFile_Functions.h"
#include "install/Do_Install.h"
#include "install/Editor_Launch.h"
#include "install/Play.h"
#include "install/undo/Undo_List.h"
#include "library/Fm_List_View.h"
#include "tools/diagnostics/Game_Diagnostic.h"
#include "ui/console/Console_Json.h"
#include "ui/console/Console_Render.h"
#include "ui/console/Console_Words.h"
#include "ui/console/Diagnostic_Commands.h"
#include "ui/console/Mission_Commands.h"
#include "ui/console/Settings_Commands.h"
#include "ui/console/Tool_Commands.h"

namespace vantrosk {

namespace {

// ---- paths at the door ----

/// Folders joined by ":"; a drive letter's colon is none of those, and a list in its stored form stays.
QString Folder_list_at_the_door(const Program &program, const QString &value) {
    if (value.isEmpty() || value.contains("*#*"))
        return value;
    QStringList folders;
    for (const QString &piece : value.split(':', Qt::SkipEmptyParts)) {
        const bool behind_drive = !folders.isEmpty() && folders.last().size() == 1 && piece.startsWith('\\');
        if (behind_drive)
            folders.last() += ":" + piece;
        else
            folders << piece;
    }
    for (QString &folder : folders)
        folder = Path_at_the_door(program, folder);
    return Join_folder_list(folders);
}

QString Main_value_at_the_door(const Program &program, const QString &key, const QString &value) {
    switch (Main_ini_kind(key)) {
    case Ini_Kind::folder:
    case Ini_Kind::file:
        return Path_at_the_door(program, value);
    case Ini_Kind::folder_list:
        return Folder_list_at_the_door(program, value);
    default:
        return value;
    }
}

// ---- settings, tweaks ----

using Pairs_Of = std::vector<Ini_Pair> (*)(const Program &);
using Set_Value = bool (*)(Program &, const QString &, const QString &);
using Write_File = Fault (*)(Program &);

Console_Result Show_pairs(const std::vector<Ini_Pair> &pairs, const QString &key) {
    Console_Result result;
    QJsonObject object;
    for (const Ini_Pair &pair : pairs) {
        if (!key.isEmpty() && pair.key != key)
            continue;
        object[pair.key] = pair.value;
        result.lines << (key.isEmpty() ? pair.key + "\t" + pair.value : pair.value);
    }
    if (object.isEmpty())
        throw Wrong_Usage(QStringLiteral("there is no key \"%1\"").arg(key));
    result.json = object;
    return result;
}

Console_Result Ini_command(const Console_Context &context, const char *usage, Pairs_Of pairs_of,
                           Set_Value set_value, Write_File write_file, bool paths_at_the_door) {
    Expect_count(context, 1, 3, usage);
    const QString verb = context.arguments[0];
    if (verb == "get" && context.arguments.size() <= 2)
        return Show_pairs(pairs_of(context.program), context.arguments.value(1));
    if (verb != "set" || context.arguments.size() != 3)
        throw Wrong_Usage(QStringLiteral("usage: vantrosk-cli %1").arg(QLatin1String(usage)));
    const QString key = context.arguments[1];
    Show_pairs(pairs_of(context.program), key); // an unknown key is wrong usage
    const QString given = context.arguments[2];
    if (given.contains('\n') || given.contains('\r'))
        throw Wrong_Usage(QStringLiteral("a value stands on one line"));
    const QString value = paths_at_the_door ? Main_value_at_the_door(context.program, key, given) : given;
    if (!set_value(context.program, key, value))
        throw Wrong_Usage(
            QStringLiteral("\"%1\" can not hold \"%2\": it is %3").arg(key, given, Ini_rule(key)));
    if (const Fault fault = write_file(context.program))
        return Failed(fault.text);
    return Show_pairs(pairs_of(context.program), key);
}

constexpr const char *settings_usage = "settings get [KEY] | settings set KEY VALUE";
constexpr const char *tweaks_usage = "tweaks get [KEY] | tweaks set KEY VALUE";

Console_Result Settings_command(const Console_Context &context) {
    return Ini_command(context, settings_usage, Main_ini_pairs, Set_main_ini_value, Write_Main_Ini, true);
}

Console_Result Tweaks_command(const Console_Context &context) {
    return Ini_command(context, tweaks_usage, Tweaks_ini_pairs, Set_tweaks_ini_value, Write_Tweaks_Ini,
                       false);
}

// ---- the list ----

QStringList Table_of_rows(const Program &program) {
    QStringList lines;
    for (const Fm_Row &row : program.screen.list.rows) {
        lines << QStringLiteral("%1  %2  %3  %4  %5  %6")
                     .arg(row.cells[col_zip], -28)
                     .arg(row.cells[col_name], -40)
                     .arg(row.cells[col_author], -20)
                     .arg(row.cells[col_size], 10)
                     .arg(row.game_icon, -4)
                     .arg(row.cells[col_ready]);
    }
    return lines;
}

constexpr const char *scan_usage = "scan GAME [--filter N]";

Console_Result Scan_command(const Console_Context &context) {
    Expect_count(context, 1, 3, scan_usage);
    int filter = 0;
    if (context.arguments.size() > 1) {
        bool is_number = false;
        filter = context.arguments.value(2).toInt(&is_number);
        if (context.arguments[1] != "--filter" || !is_number)
            throw Wrong_Usage(QStringLiteral("usage: vantrosk-cli %1").arg(QLatin1String(scan_usage)));
    }
    Program &program = context.program;
    Fill_list_of_word(program, context.arguments[0], filter);
    Console_Result result;
    result.json = Scan_json(program);
    result.lines << program.scan.caption << Table_of_rows(program);
    if (!program.scan.excess_page_path.isEmpty())
        result.lines << QStringLiteral("Zips that could not be placed: ") +
                            program.files.to_native(program.scan.excess_page_path);
    return result;
}

constexpr const char *info_usage = "info GAME ZIP";

Console_Result Info_command(const Console_Context &context) {
    Expect_count(context, 2, 2, info_usage);
    Program &program = context.program;
    const QString list = Fill_list_of_word(program, context.arguments[0]);
    if (!Select_row(program, context.arguments[1]))
        return Failed(Not_in_list(list, context.arguments[1]));
    Console_Result result;
    const QJsonObject object = Info_json(program);
    result.json = object;
    for (const char *key : {"zip", "name", "author", "game_text", "active_game", "game_path",
                            "readme_page_path", "title_image_path", "install_state"})
        result.lines << QStringLiteral("%1  %2")
                            .arg(QLatin1String(key), -18)
                            .arg(object[QLatin1String(key)].toString());
    return result;
}

// ---- install, restore, play ----

Console_Result Install_row(const Console_Context &context, const QString &list, const QString &zip) {
    Program &program = context.program;
    if (!Select_row(program, zip))
        return Failed(Not_in_list(list, zip));
    context.ui.forget_panel_texts();
    const bool done = Install_Command(program);
    const QString row = program.FM_PANEL;
    if (done)
        Create_reference_after_install(program);
    const bool installed =
        done && IsCurrentlyInstalled(program, program.CURRENT_GAME_PATH, row, program.CURRENT_GAME);
    Console_Result result;
    result.json = Install_json(installed, context.ui.panel_1_texts());
    result.lines << Outcome_of(context.ui.panel_1_texts());
    if (!done) {
        result.exit_code = 1;
        result.reason = Outcome_of(context.ui.panel_1_texts());
    }
    return result;
}

constexpr const char *install_usage = "install GAME ZIP";
constexpr const char *restore_usage = "restore GAME [ROW]";

Console_Result Install_command(const Console_Context &context) {
    Expect_count(context, 2, 2, install_usage);
    const QString list = Fill_list_of_word(context.program, context.arguments[0]);
    return Install_row(context, list, context.arguments[1]);
}

Console_Result Restore_command(const Console_Context &context) {
    Expect_count(context, 1, 2, restore_usage);
    const QString list = Fill_list_of_word(context.program, context.arguments[0]);
    const QString row = Row_name(context.program, context.arguments.value(1, "Original"));
    if (!Is_original_row(row))
        return Failed(QStringLiteral("\"%1\" is no row of original missions").arg(row));
    return Install_row(context, list, row);
}

Console_Result Start_outcome(const Play_Result &played) {
    Console_Result result;
    result.json = Play_json(played);
    result.lines << (played.started ? "started: " + played.start.command.join(' ')
                                    : QStringLiteral("not started"));
    if (!played.refusal.isEmpty()) {
        result.exit_code = 1;
        result.reason = played.refusal;
    }
    return result;
}

constexpr const char *play_usage = "play GAME ZIP|Original [--wait]";

Console_Result Play_command(const Console_Context &context) {
    Expect_count(context, 2, 3, play_usage);
    const bool wait = context.arguments.size() == 3;
    if (wait && context.arguments[2] != "--wait")
        throw Wrong_Usage(QStringLiteral("usage: vantrosk-cli %1").arg(QLatin1String(play_usage)));
    Program &program = context.program;
    const QString list = Fill_list_of_word(program, context.arguments[0]);
    if (!Select_row(program, context.arguments[1]))
        return Failed(Not_in_list(list, context.arguments[1]));
    const Play_Result played = Play_Command(program);
    while (wait && played.started && program.platform.processes->is_running(played.start.process_id))
        program.clock.sleep(50);
    // A game reads its start-up picture in its first seconds; no other start needs that time.
    if (!wait && played.started && !program.play.swapped_pictures.isEmpty())
        program.clock.sleep(time_until_put_back);
    After_Play(program);
    return Start_outcome(played);
}

// ---- the editor ----

constexpr const char *edit_usage = "edit GAME ZIP";

Console_Result Edit_command(const Console_Context &context) {
    Expect_count(context, 2, 2, edit_usage);
    Program &program = context.program;
    const QString list = Fill_list_of_word(program, context.arguments[0]);
    if (!Select_row(program, context.arguments[1]))
        return Failed(Not_in_list(list, context.arguments[1]));
    return Start_outcome(Editor_Command(program));
}

} // namespace

const std::vector<Console_Command> &Console_Commands() {
    static const std::vector<Console_Command> commands{
        {"settings", settings_usage, "show or set a value of the main ini", Settings_command},
        {"tweaks", tweaks_usage, "show or set a value of the tweaks ini", Tweaks_command},
        {"scan", scan_usage, "fill the list of a game from its folders", Scan_command},
        {"info", info_usage, "tell what one mission is", Info_command},
        {"score", score_usage, "score, review and finish a mission", Score_command},
        {"reset", reset_usage, "forget what is stored of a mission", Reset_command},
        {"render", render_usage, "turn a readme into a page beside it", Render_command},
        {"fields", fields_usage, "tell what a readme says", Fields_command},
        {"install", install_usage, "install a mission into its game", Install_command},
        {"restore", restore_usage, "put the original missions back", Restore_command},
        {"play", play_usage, "start the game with what is installed", Play_command},
        {"edit", edit_usage, "open a mission in its game's editor", Edit_command},
        {"tools", tools_usage, "list, add or delete plugin tools", Tools_command},
        {"recent", recent_usage, "list the missions played last, or take one out", Recent_command},
        {"diagnose", diagnose_usage, "compare a game's folder with a reference file", Diagnose_command},
        {"reference", reference_usage, "list a game's folder into a reference file", Reference_command},
        {"autoconfigure", autoconfigure_usage, "find the games that are installed and store their folders",
         Autoconfigure_command},
    };
    return commands;
}

} // namespace vantrosk
