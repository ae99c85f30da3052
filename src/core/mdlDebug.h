#pragma once

#include <QString>

namespace vantrosk {

struct Program;
struct Box;
enum class Answer;

/// State of the trace: off unless the user asked for it.
struct Trace {
    bool enabled = false;
    QString last;
    QString text;      ///< content of the trace box
    QString log_lines; ///< of "debug.log", gathered and not yet on the disk
};

bool debug_enabled(const Program &program);
/// On shows the trace console and its menu entry, off takes both away.
void set_debug(Program &program, bool on);
/// One line for the trace box; an empty text leaves it alone. Costs nothing while the trace is off.
void debug_print(Program &program, const QString &text);
/// Holds until the user continues; returns at once with an empty prompt or with the trace off.
void debug_pause(Program &program, const QString &prompt);

/// Date and time as the logs tell them: "19/11/2026 22:14:05".
QString Log_time_text(const Program &program);

/// Stands under the first line of "debug.log" and around each selection's block.
inline constexpr const char *debug_log_rule = "===========================================";

/// "debug.log": the text log of the latest scan or selection. Opened for each use, failure not reported.
void Start_debug_log(Program &program);
/// Gathers one line; many lines are handed over at once.
void Write_debug_log(Program &program, const QString &line);
/// Hands the gathered lines to the disk; scans gather so that thousands of zips are not thousands of writes.
void Flush_debug_log(Program &program);

} // namespace vantrosk
