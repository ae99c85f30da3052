#pragma once

#include <QString>

namespace vantrosk {

struct Program;

/// A path for the user's eyes: one that lies outside of any Windows drive as the system calls it, one on a
/// drive of the Windows programs as they call it.
QString Shown_Path(const Program &program, const QString &path);

} // namespace vantrosk
