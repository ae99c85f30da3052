#include "core/Games.h"
#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/Game_Config.h"
#include "install/Install_Paths.h"
#include "install/Recover_Log.h"

#include <array>
#include <vector>

namespace vantrosk {

namespace {

constexpr qint64 most_bytes = 1024 * 1024;

struct Cfg_Line {
    const char *key;
    QByteArray value;
    bool written = false;
};

/// One word or sentence of the user on one line.
QByteArray As_value(const QString &text) {
    QString line;
    for (const QChar letter : text)
        line += letter.category() == QChar::Other_Control ? QChar(' ') : letter;
    return line.trimmed().toLatin1();
}

std::vector<Cfg_Line> Wanted_lines(const Netplay_Settings &settings) {
    const QByteArray joins = settings.joins ? "1" : "0";
    return {{"netplay", joins},
            {"hostaddr_default", As_value(settings.joins ? settings.host_address : QString())},
            {"charname_default", As_value(settings.character_name)},
            {"netplay_frontpage_default", joins},
            {"gamename_default", As_value(settings.game_name)}};
}

QByteArray End_of(const QByteArray &line) {
    if (line.endsWith("\r\n"))
        return "\r\n";
    return line.endsWith('\n') ? "\n" : "";
}

/// The lines of these keys replaced, those that are missing added; all others byte for byte.
QByteArray Patched(const QByteArray &text, std::vector<Cfg_Line> wanted) {
    QByteArray result;
    QByteArray line_end = "\r\n";
    for (qsizetype start = 0; start < text.size();) {
        const qsizetype found = text.indexOf('\n', start);
        const qsizetype end = found < 0 ? text.size() : found + 1;
        const QByteArray line = text.mid(start, end - start);
        start = end;
        const QByteArray ending = End_of(line);
        if (!ending.isEmpty())
            line_end = ending;
        const QByteArray bare = line.chopped(ending.size());
        const qsizetype blank = bare.indexOf(' ');
        const QByteArray word = (blank < 0 ? bare : bare.left(blank)).toLower();
        QByteArray kept = line;
        for (Cfg_Line &each : wanted)
            if (word == each.key) {
                kept = each.key + QByteArray(" ") + each.value + ending;
                each.written = true;
            }
        result += kept;
    }
    for (const Cfg_Line &each : wanted) {
        if (each.written)
            continue;
        if (!result.isEmpty() && !result.endsWith('\n'))
            result += line_end;
        result += each.key + QByteArray(" ") + each.value + line_end;
    }
    return result;
}

Fault Patch_file(Program &program, const QString &path, const Netplay_Settings &settings) {
    const Result<QByteArray> content = program.files.read_file(path, most_bytes);
    if (!content.ok())
        return content.fault;
    const QByteArray patched = Patched(content.value, Wanted_lines(settings));
    const QString backup = path + ".VKBU";
    if (!FileExists(program, backup))
        if (Fault fault = program.files.copy_file(path, backup))
            return fault;
    return program.files.write_file(path, patched);
}

} // namespace

void WriteNetplayConfig(Program &program, const Netplay_Settings &settings) {
    const QString folder = Tidy_path(Game_Folder(program.ini, "SS2"));
    const QString path = Join_path(folder, "cam.cfg");
    if (folder.isEmpty() || !FileExists(program, path)) {
        debug_print(program, "MAIN FORM: there is no cam.cfg to write the multi-player settings to");
        return;
    }
    if (const Fault fault = Patch_file(program, path, settings))
        return Trace_fault(program, fault);
    const QString word = settings.joins ? "Join" : "host";
    Show_Message(program, "",
                 "You are configured to " + word +
                     " a System Shock 2 game. When starting please select option 6 (MULTI-PLAYER) then "
                     "select to " +
                     word + " a game and follow on screen instructions.");
}

} // namespace vantrosk
