#include "tools/plugin_tools/Plugin_Tools.h"

#include "core/Program.h"
#include "core/mdlChecksum.h"
#include "core/mdlDB_Functions.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "tools/plugin_tools/Tool_Records.h"
#include "tools/plugin_tools/Video_Codec.h"

#include <array>

namespace vantrosk {

namespace {

constexpr int most_path_length = 249; ///< that the record holds
constexpr int normal_entry = 0;

enum Icon_Number { program_icon = 0, batch_icon = 1, other_icon = 2 };

struct Icon_Row {
    const char *ending;
    Icon_Number icon;
};
constexpr std::array<Icon_Row, 3> icon_rows{{
    {".exe", program_icon},
    {".com", program_icon},
    {".bat", batch_icon},
}};

int Icon_of_file(const QString &path) {
    for (const Icon_Row &row : icon_rows)
        if (path.endsWith(QLatin1String(row.ending), Qt::CaseInsensitive))
            return row.icon;
    return other_icon;
}

QString Tools_folder(const Program &program) {
    return program.paths.tools;
}

/// What of a path lies below the tools folder; empty when it lies elsewhere.
QString In_tools_folder(const Program &program, const QString &path) {
    const QString folder = Tools_folder(program);
    return path.startsWith(folder, Qt::CaseInsensitive) ? path.mid(folder.size()) : QString();
}

bool Has_same_content(const Program &program, const QString &one, const QString &other) {
    const Result<QString> first = File_checksum(program, one), second = File_checksum(program, other);
    return first.ok() && second.ok() && first.value == second.value;
}

/// A name in the tools folder under which the file stands already, or can stand without taking the place of
/// another.
QString Free_name(const Program &program, const QString &path) {
    const QString name = FileNameFromPath(path);
    const qsizetype dot = name.lastIndexOf('.');
    const QString stem = dot < 0 ? name : name.left(dot), ending = dot < 0 ? QString() : name.mid(dot);
    QString free = name;
    for (int number = 2; FileExists(program, Tools_folder(program) + free) &&
                         !Has_same_content(program, path, Tools_folder(program) + free);
         ++number)
        free = QString("%1 (%2)%3").arg(stem).arg(number).arg(ending);
    return free;
}

/// Copies the file unless it lies there; `exe` is what the record says of it then.
Fault Bring_to_tools_folder(Program &program, const QString &path, QString &exe) {
    exe = Free_name(program, path);
    const QString target = Tools_folder(program) + exe;
    if (FileExists(program, target))
        return {};
    debug_print(program, "TOOLS: About to move " + path + " to " + target);
    return program.files.copy_file(path, target);
}

/// Text as the record holds it.
QString Short_text(const QString &text) {
    return In_single_quotes(text.left(250));
}

QString Insert_statement(const QString &exe, const QString &checksum, const Tool_Options &options) {
    const QStringList values{Short_text(options.name),
                             In_single_quotes(exe),
                             QString::number(Icon_of_file(exe)),
                             Short_text(options.tip),
                             "now()",
                             In_single_quotes(checksum),
                             Short_text(options.arguments),
                             In_single_quotes(options.run_when),
                             options.waits ? "1" : "0",
                             QString::number(normal_entry)};
    return "INSERT INTO Table_Tools (tool_name,tool_exe,tool_icon,tip_text,added_date,exe_checksum,tool_cmd,"
           "run_when,run_when_wait,display_type) VALUES (" +
           values.join(',') + ")";
}

Listed_Tool Listed(const Program &program, const Plugin_Tool &tool) {
    const Tool_State state = State_of_tool(program, tool);
    return {tool, state, QString("key_%1").arg(tool.id), tool.name + Warning_of_state(state)};
}

} // namespace

Tools_List Populate_Listview(Program &program) {
    Tools_List list;
    const Recordset rows = db_Query(program, "SELECT * FROM Table_Tools ORDER BY tool_name");
    for (int row = 0; row < rows.size(); ++row) {
        const Plugin_Tool tool = Tool_of_record(rows, row);
        if (tool.name == QLatin1String(codec_fix_name))
            list.codec_fix_at_launch = true;
        else if (rows.number(row, "display_type") == normal_entry)
            list.items.push_back(Listed(program, tool));
    }
    return list;
}

QString Tool_Path(const Program &program, const Plugin_Tool &tool) {
    if (tool.exe.isEmpty())
        return {};
    if (tool.exe.contains('\\') && tool.exe.contains(':'))
        return tool.exe;
    // The record is data like any other: it leads to nowhere else.
    for (const QString &part : QString(tool.exe).replace('/', '\\').split('\\'))
        if (part == QLatin1String(".."))
            return {};
    return Tools_folder(program) + tool.exe;
}

Tool_State State_of_tool(const Program &program, const Plugin_Tool &tool) {
    const QString path = Tool_Path(program, tool);
    if (path.isEmpty() || !FileExists(program, path))
        return Tool_State::exe_not_found;
    if (tool.checksum.isEmpty())
        return Tool_State::usable;
    const Result<QString> now = File_checksum(program, path);
    const bool same = now.ok() && shift_text(shift_text(now.value, false), true) == tool.checksum;
    return same ? Tool_State::usable : Tool_State::exe_has_changed;
}

QString Warning_of_state(Tool_State state) {
    switch (state) {
    case Tool_State::exe_not_found:
        return " - WARNING: Exe Not Found";
    case Tool_State::exe_has_changed:
        return " - WARNING: Exe Has Changed";
    case Tool_State::usable:
        break;
    }
    return {};
}

Tool_Options Options_for_file(const Program &program, const QString &path) {
    Tool_Options options;
    const QString name = FileNameFromPath(path);
    const qsizetype dot = name.lastIndexOf('.');
    options.name = dot > 0 ? name.left(dot) : name;
    options.copies = In_tools_folder(program, path).isEmpty();
    return options;
}

Fault Do_Add_to_DB(Program &program, const QString &path, const Tool_Options &options) {
    const Result<QString> checksum = File_checksum(program, path);
    if (!checksum.ok())
        return checksum.fault;
    QString exe = In_tools_folder(program, path);
    bool copies = options.copies;
    if (exe.isEmpty() && !copies && path.size() > most_path_length) {
        Show_Message(program, "", "Exe path too long For VK to handle, VK must copy the Exe");
        copies = true;
    }
    if (exe.isEmpty() && copies) {
        if (Fault fault = Bring_to_tools_folder(program, path, exe))
            return fault;
    } else if (exe.isEmpty()) {
        exe = path;
    }
    Tool_Options kept = options;
    if (kept.name.trimmed().isEmpty())
        kept.name = Options_for_file(program, path).name;
    db_Execute(program, Insert_statement(exe, checksum.value, kept));
    return {};
}

void Change_Tool(Program &program, int id, const Tool_Options &options) {
    db_Execute(program, "UPDATE Table_Tools SET tool_name = " + Short_text(options.name) + ", tip_text = " +
                            Short_text(options.tip) + ", tool_cmd = " + Short_text(options.arguments) +
                            ", run_when = " + In_single_quotes(options.run_when) + ", run_when_wait = " +
                            (options.waits ? "1" : "0") + " WHERE id = " + QString::number(id));
}

Tool_Options Options_of_tool(const Plugin_Tool &tool) {
    Tool_Options options;
    options.name = tool.name;
    options.tip = tool.tip;
    options.arguments = tool.arguments;
    options.run_when = tool.run_when;
    options.waits = tool.waits;
    options.copies = !tool.exe.contains(':');
    return options;
}

bool Delete_Tool(Program &program, int id) {
    const QString where = " WHERE id = " + QString::number(id);
    if (db_Query(program, "SELECT id FROM Table_Tools" + where).is_empty())
        return false;
    db_Execute(program, "DELETE FROM Table_Tools" + where);
    return true;
}

void Warn_of_waiting(Program &program) {
    Show_Warning(
        program, "",
        "WARNING: by selecting this Vantrosk will wait until the tool has closed down before "
        "continuing.\r\nThis means if VAntrosk appears to hang when starting a game it may be because "
        "it is waiting for the tool you specified to close.\r\nUse this with caution and preferably "
        "only for Batch (.BAT) files");
}

bool Run_Tool(Program &program, const Listed_Tool &listed) {
    if (State_of_tool(program, listed.tool) != Tool_State::usable) {
        Show_Warning(program, "", "This exe has changed since it was added, it is not advisable to run it.");
        return false;
    }
    const Result<Start_Result> started = Start_tool(program, listed.tool, program.paths.tools);
    if (!started.ok())
        Show_Warning(program, listed.tool.name, started.fault.text);
    return started.ok();
}

} // namespace vantrosk
