#include "core/mdlDebug.h"

#include "core/Program.h"

namespace vantrosk {

namespace {

constexpr const char *line_end = "\r\n";
constexpr qsizetype most_gathered = 64 * 1024; ///< characters; what a crash in the middle of a scan can cost

void Append_line(QString &text, const QString &line) {
    text += line;
    text += line_end;
}

} // namespace

bool debug_enabled(const Program &program) {
    return program.trace.enabled;
}

void set_debug(Program &program, bool on) {
    program.trace.enabled = on;
    program.ui.trace_turned(on);
}

void debug_print(Program &program, const QString &text) {
    if (!program.trace.enabled)
        return;
    program.trace.last = text;
    if (text.isEmpty())
        return;
    Append_line(program.trace.text, text);
    program.ui.trace_line(text);
}

void debug_pause(Program &program, const QString &prompt) {
    if (!program.trace.enabled || prompt.isEmpty())
        return;
    program.ui.trace_pause(prompt);
}

QString Log_time_text(const Program &program) {
    return program.clock.now().toString("dd/MM/yyyy HH:mm:ss");
}

void Start_debug_log(Program &program) {
    program.trace.log_lines.clear();
    QString start;
    Append_line(start, "Debug log started at " + Log_time_text(program));
    Append_line(start, debug_log_rule);
    // No log is no reason to stop the work that it tells of; the same holds where it is handed to the disk.
    (void)program.files.write_file(program.paths.debug_log, start.toUtf8());
}

void Write_debug_log(Program &program, const QString &line) {
    Append_line(program.trace.log_lines, line);
    if (program.trace.log_lines.size() > most_gathered)
        Flush_debug_log(program);
}

void Flush_debug_log(Program &program) {
    if (program.trace.log_lines.isEmpty())
        return;
    const Fault ignored =
        program.files.append_file(program.paths.debug_log, program.trace.log_lines.toUtf8());
    Q_UNUSED(ignored)
    program.trace.log_lines.clear();
}

} // namespace vantrosk
