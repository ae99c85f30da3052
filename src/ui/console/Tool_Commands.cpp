#include "ui/console/Tool_Commands.h"

#include "core/Program.h"
#include "install/Recent.h"
#include "tools/plugin_tools/Plugin_Tools.h"
#include "ui/console/Console_Words.h"

#include <QJsonArray>
#include <QJsonObject>

namespace vantrosk {

namespace {

[[noreturn]] void Wrong_words(const char *usage) {
    throw Wrong_Usage(QStringLiteral("usage: vantrosk-cli %1").arg(QLatin1String(usage)));
}

int Number_of_word(const QString &word, const char *usage) {
    bool is_number = false;
    const int number = word.toInt(&is_number);
    if (!is_number || number < 1)
        Wrong_words(usage);
    return number;
}

// ---- tools ----

/// "Exe Not Found" and the like, without the dash that ties it to a name.
QString Warning_word(Tool_State state) {
    return Warning_of_state(state).remove(" - WARNING: ");
}

Console_Result Tools_result(Program &program) {
    Console_Result result;
    QJsonArray tools;
    for (const Listed_Tool &listed : Populate_Listview(program).items) {
        const Plugin_Tool &tool = listed.tool;
        tools.append(QJsonObject{{"id", tool.id},
                                 {"name", tool.name},
                                 {"exe", tool.exe},
                                 {"args", tool.arguments},
                                 {"run_when", tool.run_when},
                                 {"wait", tool.waits},
                                 {"warning", Warning_word(listed.state)}});
        result.lines << QStringLiteral("%1  %2  %3  %4  %5")
                            .arg(tool.id, 4)
                            .arg(listed.text, -40)
                            .arg(tool.exe, -30)
                            .arg(tool.run_when, -12)
                            .arg(tool.arguments);
    }
    result.json = tools;
    return result;
}

QString Run_when_of_word(Program &program, const QString &word) {
    QStringList unknown;
    const QString run_when = Run_When_of_words(program, word, unknown);
    if (!unknown.isEmpty())
        throw Wrong_Usage(QStringLiteral("\"%1\" is no game that a tool could run for").arg(unknown.first()));
    return run_when;
}

Tool_Options Options_of_words(const Console_Context &context, const QString &path) {
    Tool_Options options = Options_for_file(context.program, path);
    options.copies = false;
    const QStringList words = context.arguments.mid(2);
    for (qsizetype i = 0; i < words.size(); ++i) {
        const QString &word = words[i];
        if (word == "--wait" || word == "--copy") {
            (word == "--wait" ? options.waits : options.copies) = true;
            continue;
        }
        if (i + 1 >= words.size())
            Wrong_words(tools_usage);
        const QString &value = words[++i];
        if (word == "--name")
            options.name = value;
        else if (word == "--args")
            options.arguments = value;
        else if (word == "--run-when")
            options.run_when = Run_when_of_word(context.program, value);
        else
            Wrong_words(tools_usage);
    }
    return options;
}

Console_Result Add_tool(const Console_Context &context) {
    if (context.arguments.size() < 2)
        Wrong_words(tools_usage);
    const QString path = Path_at_the_door(context.program, context.arguments[1]);
    const Tool_Options options = Options_of_words(context, path);
    if (options.waits)
        Warn_of_waiting(context.program);
    if (const Fault fault = Do_Add_to_DB(context.program, path, options))
        return Failed(fault.text);
    return Tools_result(context.program);
}

Console_Result Delete_tool(const Console_Context &context) {
    if (context.arguments.size() != 2)
        Wrong_words(tools_usage);
    const int id = Number_of_word(context.arguments[1], tools_usage);
    if (!Delete_Tool(context.program, id))
        return Failed(QStringLiteral("there is no tool %1").arg(id));
    return Tools_result(context.program);
}

// ---- recent missions ----

Console_Result Recent_result(Program &program) {
    Console_Result result;
    QJsonArray missions;
    for (const Recent_Cell &cell : program.screen.recent.cells) {
        missions.append(QJsonObject{{"rank", cell.rank},
                                    {"zip", cell.zip},
                                    {"name", cell.name},
                                    {"game", cell.game},
                                    {"installed_date", cell.installed_date},
                                    {"zip_found", cell.zip_found}});
        result.lines << QStringLiteral("%1  %2  %3  %4")
                            .arg(cell.rank, 2)
                            .arg(cell.installed_date, -19)
                            .arg(cell.game, -4)
                            .arg(cell.menu_text.section(") ", 1));
    }
    result.json = missions;
    return result;
}

} // namespace

Console_Result Tools_command(const Console_Context &context) {
    const QString verb = context.arguments.value(0);
    if (verb == "list" && context.arguments.size() == 1)
        return Tools_result(context.program);
    if (verb == "add")
        return Add_tool(context);
    if (verb == "delete")
        return Delete_tool(context);
    Wrong_words(tools_usage);
}

Console_Result Recent_command(const Console_Context &context) {
    const QString verb = context.arguments.value(0);
    Program &program = context.program;
    if (verb == "list" && context.arguments.size() == 1) {
        Display_recently_used(program);
        return Recent_result(program);
    }
    if (verb != "remove" || context.arguments.size() != 2)
        Wrong_words(recent_usage);
    const int rank = Number_of_word(context.arguments[1], recent_usage);
    if (!Remove_recent(program, rank))
        return Failed(QStringLiteral("no mission has rank %1").arg(rank));
    return Recent_result(program);
}

} // namespace vantrosk
