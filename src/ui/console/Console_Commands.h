#pragma once

#include "platform/Platform.h"
#include "ui/console/Console_Ui.h"

#include <QJsonValue>
#include <QStringList>

#include <stdexcept>
#include <vector>

namespace vantrosk {

struct Program;

/// What one run of the console face works with.
struct Console_Context {
    Program &program;
    Console_Ui &ui;
    const QStringList &arguments; ///< behind the command's name
};

/// A command's result: the JSON value, and the same for people.
struct Console_Result {
    QJsonValue json;
    QStringList lines;
    int exit_code = 0;
    QString reason; ///< on standard error when the exit code is not 0
};

/// Thrown for words that the command does not take; ends with exit code 2.
class Wrong_Usage : public std::runtime_error {
public:
    explicit Wrong_Usage(const QString &text) : std::runtime_error(text.toStdString()) {}
};

struct Console_Command {
    const char *name;
    const char *usage;
    const char *does;
    Console_Result (*run)(const Console_Context &context);
};

/// All commands, in the order of the help text.
const std::vector<Console_Command> &Console_Commands();

/// A whole run: reads the words, starts the program, runs the command, writes the result. `default_home` is
/// the native program's folder when the words name none. 0 done; 1 the work failed; 2 wrong usage.
int Run_Console(Platform &platform, const Console_Streams &streams, const QStringList &words,
                const QString &default_home);

} // namespace vantrosk
