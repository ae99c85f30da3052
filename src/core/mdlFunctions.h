#pragma once

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
bool Set_Affinity(Program &program, const QString &process_name, quint64 mask);

} // namespace vantrosk
