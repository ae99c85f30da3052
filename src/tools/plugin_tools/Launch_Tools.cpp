#include "tools/plugin_tools/Launch_Tools.h"

#include "core/Program.h"
#include "core/mdlDB_Functions.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "core/mdlFunctions.h"
#include "tools/plugin_tools/Tool_Records.h"
#include "tools/plugin_tools/Video_Codec.h"

#include <algorithm>

namespace vantrosk {

namespace {

constexpr int pause_after_tool = 1000; ///< milliseconds

/// Whether a code stands whole in the list: "T2X*" is not "T2*".
bool Names_game(const QString &run_when, const QString &code) {
    return ("*" + run_when).contains("*" + code + "*", Qt::CaseInsensitive);
}

/// The codes that the active game goes by; a custom game has one of its own beside its name.
QStringList Codes_of_current_game(Program &program) {
    QStringList codes{program.CURRENT_GAME};
    if (program.SELECTED_GAME_TAB != QLatin1String("CUSTOM"))
        return codes;
    const Recordset rows = db_Query(program, "SELECT game_code FROM table_custom_games WHERE game_name = " +
                                                 In_single_quotes(program.custom_name));
    for (int row = 0; row < rows.size(); ++row)
        codes << rows.text(row, "game_code");
    codes.removeAll(QString());
    return codes;
}

/// What stands in the way of starting it; empty when nothing does.
QString Hindrance(const Program &program, const Plugin_Tool &tool) {
    switch (State_of_tool(program, tool)) {
    case Tool_State::exe_not_found:
        return QString("Vantrosk did not start %1, its file was not found").arg(tool.name);
    case Tool_State::exe_has_changed:
        return QString("Vantrosk did not start %1, its file has changed since it was added").arg(tool.name);
    case Tool_State::usable:
        break;
    }
    return {};
}

/// A tool that was left in place works in its own folder.
QString Folder_of_tool(const Program &program, const Plugin_Tool &tool) {
    const bool is_path = tool.exe.contains('\\') && tool.exe.contains(':');
    return is_path ? tool.exe.left(tool.exe.lastIndexOf('\\')) : program.paths.tools;
}

Fault Start_and_wait(Program &program, const Plugin_Tool &tool) {
    const QString text =
        QString("Vantrosk is starting %1, it will wait until this has closed before launching the game")
            .arg(FileNameFromPath(Tool_Path(program, tool)));
    Set_Status_Panel(program, 1, tool.arguments.isEmpty() ? text + "." : text);
    return ShellAndWait(program, Tool_Path(program, tool), Arguments_of_tool(program, tool),
                        Folder_of_tool(program, tool));
}

void Launch_tool(Program &program, const Plugin_Tool &tool) {
    if (Is_codec_fix(tool))
        return Fix_codec_at_launch(program);
    const QString hindrance = Hindrance(program, tool);
    if (!hindrance.isEmpty()) {
        Set_Status_Panel(program, 1, hindrance);
        return debug_print(program, "TOOLS: " + hindrance);
    }
    const Fault fault = tool.waits ? Start_and_wait(program, tool)
                                   : Start_tool(program, tool, Folder_of_tool(program, tool)).fault;
    if (fault)
        debug_print(program, "TOOLS: " + fault.text);
    program.clock.sleep(pause_after_tool);
}

std::vector<Plugin_Tool> Tools_of(const Recordset &rows) {
    std::vector<Plugin_Tool> tools;
    for (int row = 0; row < rows.size(); ++row)
        tools.push_back(Tool_of_record(rows, row));
    return tools;
}

} // namespace

std::vector<Plugin_Tool> Tools_of_current_game(Program &program) {
    QStringList codes{"ALL"};
    codes += Codes_of_current_game(program);
    QStringList conditions;
    for (const QString &code : codes)
        conditions << "InStr(1,run_when," + In_double_quotes(code + "*") + ",1)<> 0";
    std::vector<Plugin_Tool> tools = Tools_of(db_Query(
        program, "SELECT * FROM Table_Tools WHERE " + conditions.join(" or ") + " ORDER BY tool_name"));
    // What the statement found holds the code somewhere; here it must stand whole.
    std::erase_if(tools, [&codes](const Plugin_Tool &tool) {
        return std::none_of(codes.begin(), codes.end(),
                            [&tool](const QString &code) { return Names_game(tool.run_when, code); });
    });
    return tools;
}

std::vector<Plugin_Tool> Tools_of_button(Program &program, const QString &ids) {
    QStringList conditions;
    for (const QString &piece : ids.split(',', Qt::SkipEmptyParts)) {
        bool is_number = false;
        const int id = piece.trimmed().toInt(&is_number);
        if (is_number)
            conditions << " id = " + QString::number(id);
    }
    if (conditions.isEmpty())
        return {};
    return Tools_of(db_Query(program, "SELECT * FROM Table_Tools WHERE " + conditions.join(" or ") +
                                          " ORDER BY tool_name"));
}

void Launch_Tools(Program &program, const std::vector<Plugin_Tool> &tools) {
    for (const Plugin_Tool &tool : tools)
        Launch_tool(program, tool);
}

} // namespace vantrosk
