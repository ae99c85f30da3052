#pragma once

#include <QString>
#include <QStringList>

namespace vantrosk {

struct Program;

// What the trace console shows and does; the window around it belongs to the face.

inline constexpr const char *trace_console_title = "Debug Console";
inline constexpr const char *trace_variables_heading = "Available Variables:";
inline constexpr const char *previous_debug_logs_caption = "View Previous Debug Logs";

/// What stands in the console when it opens.
QString Trace_console_notice();

/// The names that can be watched, in their order.
QStringList Trace_variable_names();
/// "NAME: value" for one of them; two lines for the second affinity, none for another name.
QStringList Trace_variable(const Program &program, const QString &name);
/// The lines of all names, in their order.
QStringList Trace_variables(const Program &program);

/// Writes the trace box to "\debug_trace.log", replacing it, and tells so.
void Export_trace(Program &program);

/// Windows paths of the debug logs that earlier crashes left, the latest first.
QStringList Previous_debug_logs(Program &program);

} // namespace vantrosk
