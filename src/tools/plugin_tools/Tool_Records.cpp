#include "tools/plugin_tools/Tool_Records.h"

#include "core/Program.h"

namespace vantrosk {

namespace {

constexpr const char *game_folder_marker = "*CURRENTGAME*";

} // namespace

Plugin_Tool Tool_of_record(const Recordset &rows, int row) {
    Plugin_Tool tool;
    tool.id = rows.number(row, "id");
    tool.name = rows.text(row, "tool_name");
    tool.exe = rows.text(row, "tool_exe");
    tool.icon = rows.number(row, "tool_icon");
    tool.tip = rows.text(row, "tip_text");
    tool.checksum = rows.text(row, "exe_checksum");
    tool.arguments = rows.text(row, "tool_cmd");
    tool.run_when = rows.text(row, "run_when");
    tool.waits = rows.number(row, "run_when_wait") != 0;
    return tool;
}

QString Arguments_of_tool(const Program &program, const Plugin_Tool &tool) {
    return QString(tool.arguments).replace(QLatin1String(game_folder_marker), program.CURRENT_GAME_PATH);
}

Result<Start_Result> Start_tool(Program &program, const Plugin_Tool &tool, const QString &folder) {
    return program.platform.processes->start(
        {Tool_Path(program, tool), Arguments_of_tool(program, tool), folder});
}

} // namespace vantrosk
