#include "install/Editor_Launch.h"

#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/Install_Paths.h"
#include "install/Play_Starts.h"
#include "library/SetUp_Dromed.h"

#include <array>

namespace vantrosk {

namespace {

constexpr const char *script_name = "vantrosk.dromed";
constexpr const char *config_name = "dromed.cfg";
constexpr const char *first_copy_name = "dromed.cfg.VKB";
constexpr const char *other_scripts = "EDIT_SCRIPT_";
constexpr const char *own_script = "edit_script_vantrosk";
constexpr qint64 most_config_bytes = 4 * 1024 * 1024;

constexpr std::array<const char *, 6> games_with_editor{"T2X", "DM", "SS2", "T2", "TG", "T1"};
/// Light, and nobody who disturbs; the blanks are the editor's.
constexpr std::array<const char *, 5> comfort_commands{
    "light_bright ", "lit_obj_toggle ", "persistent_player_pos ", "aiawareofplayer 0 ", "show_stats "};

bool Has_editor(const QString &game) {
    return std::any_of(games_with_editor.begin(), games_with_editor.end(),
                       [&game](const char *code) { return game == QLatin1String(code); });
}

bool Wants_comfort(const Program &program) {
    return program.platform.settings->value(editor_commands_section, editor_commands_key)
               .compare("True", Qt::CaseInsensitive) == 0;
}

/// A line of its own for the editor: nothing of the name can begin another.
QString On_one_line(QString name) {
    for (QChar &sign : name)
        if (sign < ' ')
            sign = ' ';
    return name.trimmed();
}

QStringList Script_lines(const Program &program) {
    QStringList lines;
    if (Wants_comfort(program))
        for (const char *command : comfort_commands)
            lines << command;
    const QString missions = program.MISSIONFILE;
    if (!missions.isEmpty() && missions != QLatin1String("na"))
        lines << "load_file " + On_one_line(missions.split(',').first());
    return lines;
}

/// The configuration with this program's script in the place of all others; every other line byte for byte.
QByteArray With_own_script(const QByteArray &config) {
    QList<QByteArray> kept;
    bool had_own = false;
    for (const QByteArray &line : config.split('\n')) {
        if (!line.toUpper().startsWith(other_scripts))
            kept << line;
        else
            had_own = had_own || line.left(static_cast<qsizetype>(qstrlen(own_script))) == own_script;
    }
    if (kept.last().trimmed().isEmpty())
        kept.removeLast(); // what stands behind the last line end
    // The empty line that was written behind the own script the last time.
    if (had_own && !kept.isEmpty() && kept.last().trimmed().isEmpty())
        kept.removeLast();
    QByteArray text = kept.join('\n');
    if (!text.isEmpty())
        text += text.endsWith('\r') ? "\n" : "\r\n";
    return text + own_script + " " + script_name + "\r\n\r\n";
}

Fault Tell_config(Program &program, const QString &folder) {
    const QString config = Join_path(folder, config_name), first_copy = Join_path(folder, first_copy_name);
    if (!FileExists(program, config))
        return {};
    const Result<QByteArray> content = program.files.read_file(config, most_config_bytes);
    if (!content.ok())
        return content.fault;
    if (!FileExists(program, first_copy))
        if (Fault fault = program.files.copy_file(config, first_copy))
            return fault;
    return program.files.write_file(config, With_own_script(content.value));
}

Play_Result Start_editor(Program &program) {
    Play_Result result;
    const QString folder = Tidy_path(program.CURRENT_GAME_PATH), editor = Editor_program(program);
    Fault fault;
    if (folder.isEmpty() || !FolderExists(program, folder) || editor.isEmpty())
        fault = {Fault_Kind::not_found, "there is no editor for " + program.CURRENT_GAME};
    if (!fault)
        fault = Write_text_lines(program, Join_path(folder, script_name), Script_lines(program));
    if (!fault)
        fault = Tell_config(program, folder);
    if (!fault)
        return Start_program(program, {editor, {}, folder});
    debug_print(program, "MAIN FORM: " + fault.text);
    result.refusal = fault.text;
    return result;
}

} // namespace

Play_Result Editor_Command(Program &program) {
    Play_Result result;
    if (!Has_editor(program.CURRENT_GAME)) {
        result.refusal = QString("\"%1\" has no editor that could be started").arg(program.CURRENT_GAME);
        return result;
    }
    debug_print(program, "MAIN FORM: Start Loading in Dromed");
    result = Start_editor(program);
    Set_Status_Panel(program, 1, result.refusal);
    debug_print(program, "MAIN FORM: End Loading in Dromed");
    return result;
}

} // namespace vantrosk
