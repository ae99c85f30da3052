#pragma once

#include <QByteArray>
#include <QString>

namespace vantrosk {

/// The installed Wine with a prefix that is made at the first use and shared by all tests of a build, because
/// making it takes a while.
struct Real_Wine {
    QString prefix;
    QString refusal; ///< why tests that need Wine are to be skipped; empty when they can run
};
/// Looks for Wine and for the compiler that makes programs for it.
Real_Wine Find_real_wine();

/// Compiles a C program with `wmain` for Windows, to a native path; false when the compiler refuses.
bool Make_windows_program(const QByteArray &source, const QString &native_path);

} // namespace vantrosk
