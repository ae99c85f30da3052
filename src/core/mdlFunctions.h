#pragma once

#include "platform/Fault.h"

#include <QString>

namespace vantrosk {

struct Program;

/// "WIN2000", "WINXP", "VISTA" or "OTHER", by the registry.
QString Windows_Version(const Program &program);
/// A new identity in registry form, braces included.
QString CreateGUID();
/// How many processors the named process, or this program when empty, may use; asked up to `retries` times, a
/// second apart, until the process is there. With `force` on "WINXP" the process is set to one.
int Cores_Running_on(Program &program, const QString &process_name, int retries, bool force);
/// Starts a program and waits for its end; the window goes on meanwhile. A fault when it could not be
/// started.
Fault ShellAndWait(Program &program, const QString &exe, const QString &arguments, const QString &folder);
bool Set_Affinity(Program &program, const QString &process_name, quint64 mask);

} // namespace vantrosk
