#include "ui/console/Console_Render.h"

#include "core/Games.h"
#include "core/Program.h"
#include "core/mdlFile_Functions.h"
#include "image/Pictures.h"
#include "readme/Rtf_Reader.h"
#include "readme/mdlHTML_stuff.h"
#include "ui/console/Console_Words.h"

#include <QJsonObject>

namespace vantrosk {

namespace {

constexpr qint64 largest_picture = qint64(64) << 20; ///< bytes
constexpr QLatin1String custom_mark("CUSTOM:");

struct Render_Words {
    QString file, image, game;
};

Render_Words Words_of(const QStringList &arguments) {
    Render_Words words;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString &word = arguments[i];
        if (word != "--image" && word != "--game") {
            if (!words.file.isEmpty() || word.isEmpty() || word.startsWith("--"))
                throw Wrong_Usage(QStringLiteral("usage: vantrosk-cli %1").arg(QLatin1String(render_usage)));
            words.file = word;
            continue;
        }
        if (i + 1 == arguments.size() || arguments[i + 1].isEmpty())
            throw Wrong_Usage(QStringLiteral("%1 needs a word behind it").arg(word));
        (word == "--image" ? words.image : words.game) = arguments[++i];
    }
    if (words.file.isEmpty())
        throw Wrong_Usage(QStringLiteral("usage: vantrosk-cli %1").arg(QLatin1String(render_usage)));
    return words;
}

/// The picture of a custom game; nothing for the built-in ones. A word that is no game is wrong usage.
QString Picture_of_game(const Program &program, const QString &game) {
    if (game.isEmpty() || Find_Game(game) || game.compare("DOOM", Qt::CaseInsensitive) == 0)
        return {};
    if (game.startsWith(custom_mark))
        return game;
    const QString picture = game + "_32.bmp";
    if (!game.contains('\\') && !game.contains('/') &&
        FileExists(program, program.paths.custom_game_images + picture))
        return custom_mark + picture;
    throw Wrong_Usage(QStringLiteral("there is no game \"%1\"").arg(game));
}

/// No browser shows a PCX: its bitmap is laid beside it.
void Convert_picture(Program &program, const QString &path) {
    if (!path.endsWith(QLatin1String(".pcx"), Qt::CaseInsensitive) || !FileExists(program, path))
        return;
    const auto bytes = program.files.read_file(path, largest_picture);
    const auto picture = bytes.ok() ? Decode_pcx(bytes.value) : Result<Picture>{{}, bytes.fault};
    Fault fault = picture.fault;
    if (picture.ok())
        fault = program.files.write_file(path.chopped(4) + ".BMP", Encode_bmp(picture.value));
    if (fault)
        debug_print(program, "FUNCTIONS: " + fault.text);
}

/// Pictures of a page lie beside it.
QString Picture_beside(Program &program, const QString &readme, const QString &image) {
    if (image.isEmpty() || image.startsWith(custom_mark))
        return image;
    const QString name = FileNameFromPath(FileNameFromPath(image, true));
    Convert_picture(program, readme.left(readme.lastIndexOf('\\') + 1) + name);
    return name;
}

QString Page_of_file(Program &program, const QString &path, const Page_Facts &facts) {
    if (path.endsWith(QLatin1String(".vkml"), Qt::CaseInsensitive))
        return Render_VKML_Readme(program, path, facts);
    if (!path.endsWith(QLatin1String(".rtf"), Qt::CaseInsensitive))
        return Render_Text_Readme(program, path, facts);
    const Result<QByteArray> document = program.files.read_start(path, rtf_limit);
    return document.ok() ? Render_Text(program, Text_of_rtf(document.value), Page_Path(path), facts)
                         : QString();
}

} // namespace

Console_Result Render_command(const Console_Context &context) {
    const Render_Words words = Words_of(context.arguments);
    Program &program = context.program;
    const QString path = Path_at_the_door(program, words.file);
    Page_Facts facts;
    facts.title_image = Picture_of_game(program, words.game);
    if (!words.image.isEmpty())
        facts.title_image = Picture_beside(program, path, words.image);
    const QString page = Page_of_file(program, path, facts);
    Console_Result result;
    const QString native = page.isEmpty() ? QString() : program.files.to_native(page);
    result.json = QJsonObject{{"page_path", native}};
    if (page.isEmpty()) {
        result.exit_code = 1;
        result.reason = words.file + " gives no page: it is missing or empty, it is no .vkml, .txt or .rtf "
                                     "file, or its folder can not be written";
        return result;
    }
    result.lines << native;
    return result;
}

} // namespace vantrosk
