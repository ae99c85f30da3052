#pragma once

#include <QString>

#include <functional>
#include <stdexcept>

namespace vantrosk {

struct Program;

/// The one error type above the platform and the zip layer. Thrown by the database and by whatever can not go
/// on; caught by `With_error_box`.
class Program_Error : public std::runtime_error {
public:
    Program_Error(int number, const QString &description);
    int number() const { return number_; }
    const QString &description() const { return description_; }

private:
    int number_;
    QString description_;
};

/// "Error 1 (no such table) on line 0 in procedure Get_archives of Form frmMain."; the module of a window is
/// its form, any other reads "Module NAME". Line numbers are not kept.
QString Error_text(const QString &procedure, const QString &module, int number, const QString &description);

/// Runs `work`. A fault in it shows the standard error box with the procedure's and module's name
/// ("Get_archives", "Form frmMain"), leaves a trace line, and gives false; the program goes on. Where there
/// is a screen the box offers a picture of it.
bool With_error_box(Program &program, const QString &procedure, const QString &module,
                    const std::function<void()> &work);

/// Saves a picture of the whole screen, without the box that asked for it, and tells its name. One picture a
/// day: a second replaces the first. A picture that could not be made leaves a trace line.
void Take_Error_Screenshot(Program &program);

} // namespace vantrosk
