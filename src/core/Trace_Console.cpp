#include "core/Trace_Console.h"

#include "core/Program.h"
#include "core/mdlFormDisplayFunctions.h"

#include <QRegularExpression>

#include <algorithm>

namespace vantrosk {

namespace {

QString Truth(bool value) {
    return value ? "True" : "False";
}

QString Named(const char *name, const QString &value) {
    return QString(name) + ": " + value;
}

template<QString Program::*member>
QStringList Text(const Program &program, const char *name) {
    return {Named(name, program.*member)};
}

template<QString Main_Ini::*member>
QStringList Setting(const Program &program, const char *name) {
    return {Named(name, program.ini.*member)};
}

QStringList Unsaved_edits(const Program &program, const char *name) {
    return {Named(name, Truth(program.SAVE_SCORE_NOW))};
}

QStringList Dark_mod_installed(const Program &program, const char *name) {
    return {Named(name, Truth(program.ini.DMOD_INSTALLED))};
}

/// Nothing behind the name of a game that does not run.
QString Affinity(const Program &program, const char *name, const char *process) {
    const int count = program.platform.processes->processors_of(process);
    return Named(name, count > 0 ? QString::number(count) : QString());
}

QStringList First_affinity(const Program &program, const char *) {
    return {Affinity(program, "THIEF1_EXE_AFFINITY", "thief1.exe")};
}

QStringList Second_affinity(const Program &program, const char *) {
    return {Affinity(program, "THIEF2_EXE_AFFINITY", "thief2.exe"),
            Affinity(program, "THIEF2_ICD_AFFINITY", "thief2.icd")};
}

// Expressions are made once and stay; an object that is there has always been told under this name.
QStringList Expressions(const Program &, const char *) {
    return {Named("OBJECT_FSO", Truth(true))};
}

// A query's rows belong to who asked: nothing is shared between two statements.
QStringList Shared_records(const Program &, const char *name) {
    return {Named(name, Truth(false))};
}

struct Trace_Row {
    const char *name;
    QStringList (*lines)(const Program &program, const char *name);
};

constexpr Trace_Row trace_rows[] = {
    {"CURRENT_GAME_PATH", Text<&Program::CURRENT_GAME_PATH>},
    {"CURRENT_GAME", Text<&Program::CURRENT_GAME>},
    {"CURRENT_LOCATION", Text<&Program::CURRENT_LOCATION>},
    {"TEXTFILENAME", Text<&Program::TEXTFILENAME>},
    {"SQL", Text<&Program::SQL>},
    {"SAVE_SCORE_NOW", Unsaved_edits},
    {"MISSIONFILE", Text<&Program::MISSIONFILE>},
    {"PREVIOUS_ZIP", Text<&Program::PREVIOUS_ZIP>},
    {"WELCOMEPIC", Text<&Program::WELCOMEPIC>},
    {"HELPCONTEXT", Text<&Program::HELPCONTEXT>},
    {"T1_GAME_LOCATION", Setting<&Main_Ini::T1_GAME_LOCATION>},
    {"T1_LOCATION", Setting<&Main_Ini::T1_LOCATION>},
    {"TG_GAME_LOCATION", Setting<&Main_Ini::TG_GAME_LOCATION>},
    {"TG_LOCATION", Setting<&Main_Ini::TG_LOCATION>},
    {"T2_GAME_LOCATION", Setting<&Main_Ini::T2_GAME_LOCATION>},
    {"T2_LOCATION", Setting<&Main_Ini::T2_LOCATION>},
    {"T3_GAME_LOCATION", Setting<&Main_Ini::T3_GAME_LOCATION>},
    {"T3_LOCATION", Setting<&Main_Ini::T3_LOCATION>},
    {"T3_SAVE_GAME_LOCATION", Setting<&Main_Ini::T3_SAVE_GAME_LOCATION>},
    {"DMOD_GAME_LOCATION", Setting<&Main_Ini::DMOD_GAME_LOCATION>},
    {"DMOD_LOCATION", Setting<&Main_Ini::DMOD_LOCATION>},
    {"DMOD_INSTALLED", Dark_mod_installed},
    {"SS2_GAME_LOCATION", Setting<&Main_Ini::SS2_GAME_LOCATION>},
    {"SS2_LOCATION", Setting<&Main_Ini::SS2_LOCATION>},
    {"DOWNLOADS_URL", Setting<&Main_Ini::DOWNLOADS_URL>},
    {"THIEF1_AFFINITY", First_affinity},
    {"THIEF2_AFFINITY", Second_affinity},
    {"OBJECT_REGX", Expressions},
    {"OBJECT_RECSET", Shared_records},
};

} // namespace

QString Trace_console_notice() {
    return "The Debug Console should help diagnose any issues with Vantrosk and how it installs FMs.\r\n"
           "NOTE: information may not always be simply put.";
}

QStringList Trace_variable_names() {
    QStringList names;
    for (const Trace_Row &row : trace_rows)
        names << row.name;
    return names;
}

QStringList Trace_variable(const Program &program, const QString &name) {
    for (const Trace_Row &row : trace_rows) {
        if (name == QLatin1String(row.name))
            return row.lines(program, row.name);
    }
    return {};
}

QStringList Trace_variables(const Program &program) {
    QStringList lines;
    for (const Trace_Row &row : trace_rows)
        lines << row.lines(program, row.name);
    return lines;
}

void Export_trace(Program &program) {
    const QString path = program.paths.AppPath + "\\debug_trace.log";
    if (const Fault fault = program.files.write_file(path, program.trace.text.toUtf8())) {
        debug_print(program, "DEBUGGER: debug_trace.log not written: " + fault.text);
        return;
    }
    Show_Message(program, trace_console_title, "Debug info saved as '" + program.files.to_native(path) + "'");
}

QStringList Previous_debug_logs(Program &program) {
    debug_print(program, "DEBUGGER: Checking for previous debug log files.");
    static const QRegularExpression log_name(R"(^debug_\d\d_\d\d\.log$)",
                                             QRegularExpression::CaseInsensitiveOption);
    const auto listed = program.files.list_folder(program.paths.AppPath);
    if (!listed.ok()) {
        debug_print(program, "DEBUGGER: " + listed.fault.text);
        return {};
    }
    std::vector<File_Info> logs;
    for (const File_Info &file : listed.value) {
        if (!file.is_folder && log_name.match(file.name).hasMatch())
            logs.push_back(file);
    }
    std::stable_sort(logs.begin(), logs.end(), [](const File_Info &left, const File_Info &right) {
        return left.modified > right.modified;
    });
    QStringList paths;
    for (const File_Info &log : logs)
        paths << program.paths.AppPath + "\\" + log.name;
    return paths;
}

} // namespace vantrosk
