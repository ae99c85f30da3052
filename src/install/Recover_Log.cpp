#include "install/Recover_Log.h"

#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlStartup.h"
#include "install/Install_Paths.h"

#include <array>

namespace vantrosk {

namespace {

/// The head alone is read here; deletions make a log long.
constexpr qint64 head_bytes = 16 * 1024;
constexpr int most_kept_logs = 9;
constexpr const char *path_line = "//Current Game Path = ";
constexpr int head_lines = 5;

struct Log_Head {
    QString game_path;
    bool refused = false; ///< nothing but the refusal stands behind the head
};

Log_Head Read_head(const Program &program, const QString &log) {
    Log_Head head;
    const Result<QByteArray> start = program.files.read_start(log, head_bytes);
    if (!start.ok())
        return head;
    const QStringList lines = Split_lines(Decode_text(start.value));
    for (const QString &line : lines.mid(0, head_lines))
        if (line.startsWith(QLatin1String(path_line)))
            head.game_path = Tidy_path(line.mid(QString(path_line).size()));
    head.refused = lines.value(head_lines) == QLatin1String(darkloader_log_line);
    return head;
}

/// A log whose head a full disk kept out may be of any game.
bool May_be_of_game(const Log_Head &head, const QString &game_path) {
    return head.game_path.isEmpty() || Is_same_path(head.game_path, Tidy_path(game_path));
}

/// The log of a second game folder: "install_recover.log.1" and on.
QString Kept_log(const Program &program, int number) {
    return program.paths.install_recover_log + "." + QString::number(number);
}

QStringList All_logs(const Program &program) {
    QStringList logs{program.paths.install_recover_log};
    for (int number = 1; number <= most_kept_logs; ++number)
        logs << Kept_log(program, number);
    return logs;
}

/// Tells of another folder: the next start must still be able to show it.
void Keep_log_of_another_game(Program &program) {
    const QString log = program.paths.install_recover_log;
    if (!FileExists(program, log))
        return;
    const Log_Head head = Read_head(program, log);
    if (head.refused || May_be_of_game(head, program.CURRENT_GAME_PATH))
        return;
    for (int number = 1; number <= most_kept_logs; ++number) {
        const QString kept = Kept_log(program, number);
        const bool same_game = Is_same_path(Read_head(program, kept).game_path, head.game_path);
        if (!FileExists(program, kept) || same_game)
            return Trace_fault(program, program.files.move_file(log, kept));
    }
}

QByteArray Bytes_of(const QStringList &lines) {
    QString text;
    for (QString line : lines) {
        // A name with a line break must not look like a step.
        for (QChar &letter : line)
            if (letter.category() == QChar::Other_Control)
                letter = '?';
        text += line + "\r\n";
    }
    return text.toUtf8();
}

QStringList Head(const Program &program) {
    return {
        QString("//Vantrosk Version ") + version_number,
        "//Vantrosk has detected that a previous FM install failed. This means that your Game directory may "
        "be out of sync.",
        "//To resolve this YOU must follow the steps in the LAST 'STEPS TO FIX = ' step below and then "
        "delete install_recover.log from the Vantrosk program folder ",
        path_line + program.CURRENT_GAME_PATH, "//==========================================="};
}

} // namespace

bool Has_unfinished_run(const Program &program, const QString &game_path) {
    for (const QString &log : All_logs(program)) {
        if (!FileExists(program, log))
            continue;
        const Log_Head head = Read_head(program, log);
        if (!head.refused && May_be_of_game(head, game_path))
            return true;
    }
    return false;
}

void Start_recover_log(Program &program) {
    Keep_log_of_another_game(program);
    Trace_fault(program,
                program.files.write_lasting_file(program.paths.install_recover_log, Bytes_of(Head(program))));
}

void Continue_recover_log(Program &program) {
    const Log_Head head = Read_head(program, program.paths.install_recover_log);
    if (head.refused || !Is_same_path(head.game_path, Tidy_path(program.CURRENT_GAME_PATH)))
        Start_recover_log(program);
}

void Recover_log(Program &program, const QString &line) {
    Recover_log(program, QStringList{line});
}

void Recover_log(Program &program, const QStringList &lines) {
    if (!lines.isEmpty())
        Trace_fault(program, program.files.append_file(program.paths.install_recover_log, Bytes_of(lines)));
}

void Trace_fault(Program &program, const Fault &fault) {
    if (fault)
        debug_print(program, "MAIN FORM: " + fault.text);
}

void Finish_recover_log(Program &program) {
    const QString log = program.paths.install_recover_log;
    const QString done = log + ".VKBU";
    if (const Fault fault = program.files.move_file(log, done)) {
        Trace_fault(program, fault);
        Trace_fault(program, DeleteFileForced(program, log));
    }
    for (const QString &kept : All_logs(program).mid(1)) {
        if (!FileExists(program, kept))
            continue;
        if (Is_same_path(Read_head(program, kept).game_path, Tidy_path(program.CURRENT_GAME_PATH)))
            Trace_fault(program, DeleteFileForced(program, kept));
        else if (!FileExists(program, log))
            Trace_fault(program, program.files.move_file(kept, log));
    }
}

} // namespace vantrosk
