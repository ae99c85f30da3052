#include "core/Program.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlStartup.h"
#include "install/Splash_Swap.h"
#include "ui/console/Console_Commands.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace vantrosk {

namespace {

struct Words {
    QString home;
    bool json = false;
    bool help = false;
    QStringList answers;
    QString command;
    QStringList arguments;
};

/// Options stand before the command; what follows it is the command's own.
Words Read_words(const QStringList &words) {
    Words read;
    qsizetype i = 0;
    const auto value_of = [&](const QString &option) {
        if (i + 1 >= words.size())
            throw Wrong_Usage(QStringLiteral("%1 needs a value").arg(option));
        return words[++i];
    };
    for (; i < words.size(); ++i) {
        const QString &word = words[i];
        if (word == "--home")
            read.home = value_of(word);
        else if (word == "--answer")
            read.answers << value_of(word);
        else if (word == "--json")
            read.json = true;
        else if (word == "--help" || word == "-h" || word == "help")
            read.help = true;
        else if (word.startsWith('-'))
            throw Wrong_Usage(QStringLiteral("there is no option \"%1\"").arg(word));
        else
            break;
    }
    read.command = words.value(i);
    read.arguments = words.mid(i + 1);
    return read;
}

QStringList Help_lines() {
    QStringList lines{"usage: vantrosk-cli [--home DIR] [--json] [--answer WORD]... COMMAND [ARGUMENT]...",
                      ""};
    for (const Console_Command &command : Console_Commands())
        lines << QStringLiteral("  %1  %2")
                     .arg(QLatin1String(command.usage), -46)
                     .arg(QLatin1String(command.does));
    return lines
           << ""
           << "GAME is one of T1, TG, T2, T3, T2X, DM, DMOD, DOOM, SS2, or the name of a custom game. "
              "Questions are"
           << "answered from --answer in order (yes, no, ok, cancel, or a text), then by their defaults.";
}

const Console_Command &Command_of(const QString &name) {
    for (const Console_Command &command : Console_Commands())
        if (name == QLatin1String(command.name))
            return command;
    throw Wrong_Usage(name.isEmpty() ? QStringLiteral("no command; vantrosk-cli --help lists them")
                                     : QStringLiteral("there is no command \"%1\"").arg(name));
}

QString Json_text(const QJsonValue &value) {
    const QJsonDocument document =
        value.isArray() ? QJsonDocument(value.toArray()) : QJsonDocument(value.toObject());
    return QString::fromUtf8(document.toJson(QJsonDocument::Compact));
}

int Run_command(Platform &platform, const Console_Streams &streams, const Words &words,
                const QString &default_home) {
    const Console_Command &command = Command_of(words.command);
    const QString home =
        words.home.isEmpty() ? default_home : QDir::cleanPath(QFileInfo(words.home).absoluteFilePath());
    Console_Ui ui(streams, words.answers, platform.files.get());
    Program program(platform, ui, platform.files->to_windows(home));
    if (!Start_Program(program)) {
        streams.err(QStringLiteral("Vantrosk could not start in %1").arg(home));
        return 1;
    }
    Show_Crash_Evidence(program);
    Put_back_all_splashes(program);
    const Console_Result result = command.run({program, ui, words.arguments});
    Shut_Down(program);
    if (words.json && !result.json.isNull())
        streams.out(Json_text(result.json));
    if (!words.json)
        for (const QString &line : result.lines)
            streams.out(line);
    if (result.exit_code != 0)
        streams.err(result.reason);
    return result.exit_code;
}

} // namespace

int Run_Console(Platform &platform, const Console_Streams &streams, const QStringList &words,
                const QString &default_home) {
    try {
        const Words read = Read_words(words);
        if (read.help) {
            for (const QString &line : Help_lines())
                streams.out(line);
            return 0;
        }
        return Run_command(platform, streams, read, default_home);
    } catch (const Wrong_Usage &fault) {
        streams.err(QString::fromStdString(fault.what()));
        return 2;
    } catch (const Program_Error &fault) {
        streams.err(fault.description());
        return 1;
    }
}

} // namespace vantrosk
