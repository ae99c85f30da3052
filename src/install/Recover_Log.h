#pragma once

#include "platform/Fault.h"

#include <QString>
#include <QStringList>

namespace vantrosk {

struct Program;

/// "install_recover.log" in the program's folder: what an install has done so far and what a person must do
/// if it stops there. Every line is with the system before the call returns, so that it outlives the program.
/// At a clean end the log is moved aside; a log that lies there tells of a run that did not finish.

/// What stands in a log whose run was refused for another loader's sake.
inline constexpr const char *darkloader_log_line = "DarkLoader already has a mission installed";

/// Whether a run on this game folder did not finish. A refusal that left its log is no such run.
bool Has_unfinished_run(const Program &program, const QString &game_path);
/// Starts the log anew with its head. A log about another game folder is kept beside.
void Start_recover_log(Program &program);
/// As `Start_recover_log`, but an unfinished run's log goes on.
void Continue_recover_log(Program &program);
void Recover_log(Program &program, const QString &line);
void Recover_log(Program &program, const QStringList &lines);
/// A failure that the work goes on after leaves a line in the trace; none leaves nothing.
void Trace_fault(Program &program, const Fault &fault);
/// The clean end: the log becomes "install_recover.log.VKBU".
void Finish_recover_log(Program &program);

} // namespace vantrosk
