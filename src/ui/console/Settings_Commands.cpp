#include "ui/console/Settings_Commands.h"

#include "core/Program.h"
#include "ui/console/Console_Words.h"
#include "ui/settings/Auto_Configure.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

namespace vantrosk {

namespace {

QString Prefix_of(const Console_Context &context) {
    Expect_count(context, 0, 2, autoconfigure_usage);
    if (context.arguments.isEmpty())
        return {};
    if (context.arguments.size() != 2 || context.arguments[0] != "--prefix")
        throw Wrong_Usage(QStringLiteral("usage: vantrosk-cli %1").arg(QLatin1String(autoconfigure_usage)));
    return QDir::cleanPath(QFileInfo(context.arguments[1]).absoluteFilePath());
}

QString Native(const Program &program, const QString &path) {
    return path.isEmpty() ? QString() : program.files.to_native(path);
}

QJsonArray Prefixes_json(const Program &program) {
    QJsonArray prefixes;
    if (program.platform.prefixes)
        for (const Prefix &prefix : program.platform.prefixes->list())
            prefixes.append(QJsonObject{
                {"prefix_path", prefix.folder}, {"kept_by", prefix.kept_by}, {"name", prefix.name}});
    return prefixes;
}

QJsonObject Found_json(const Program &program, const Auto_Configured &result) {
    QJsonArray found;
    for (const Found_Game &game : result.found)
        found.append(QJsonObject{
            {"game", game.code}, {"name", game.name}, {"game_path", Native(program, game.folder)}});
    return {{"prefix_path", result.prefix},
            {"found", found},
            {"t3_saves_path", Native(program, result.t3_saves)},
            {"stages", QJsonArray::fromStringList(result.stages)},
            {"reference_files", QJsonArray::fromStringList(result.reference_files)},
            {"prefixes", Prefixes_json(program)}};
}

} // namespace

Console_Result Autoconfigure_command(const Console_Context &context) {
    Program &program = context.program;
    const QString prefix = Prefix_of(context);
    if (!prefix.isEmpty() && !QFileInfo(prefix).isDir())
        return Failed(QStringLiteral("There is no folder \"%1\".").arg(prefix));
    Settings_Controls controls = Open_Settings(program);
    const Auto_Configured found = Auto_Configure(program, controls, prefix, nullptr);
    Console_Result result;
    result.json = Found_json(program, found);
    for (const Found_Game &game : found.found)
        result.lines << QStringLiteral("%1  %2").arg(game.code, -4).arg(Native(program, game.folder));
    if (const Fault fault = Store_Found(program, controls, found))
        return Failed(fault.text, result.json);
    return result;
}

} // namespace vantrosk
