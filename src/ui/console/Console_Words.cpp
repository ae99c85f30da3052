#include "ui/console/Console_Words.h"

#include "core/Games.h"
#include "core/Program.h"
#include "library/Fm_List_View.h"

#include <QDir>
#include <QFileInfo>

namespace vantrosk {

namespace {

bool Looks_like_windows_path(const QString &path) {
    return path.size() > 1 && path[1] == ':' && path[0].isLetter();
}

} // namespace

void Expect_count(const Console_Context &context, int least, int most, const char *usage) {
    const qsizetype count = context.arguments.size();
    if (count < least || count > most)
        throw Wrong_Usage(QStringLiteral("usage: vantrosk-cli %1").arg(QLatin1String(usage)));
}

const Game &Game_of_word(const QString &word) {
    // Doom 3 missions stand in the list of The Dark Mod.
    const QString code = word.compare("DOOM", Qt::CaseInsensitive) == 0 ? QStringLiteral("DMOD") : word;
    const Game *game = Find_Game(code);
    if (!game)
        throw Wrong_Usage(QStringLiteral("there is no game \"%1\"").arg(word));
    return *game;
}

Console_Result Failed(const QString &reason, const QJsonValue &json) {
    Console_Result result;
    result.exit_code = 1;
    result.reason = reason;
    result.json = json;
    return result;
}

QString Path_at_the_door(const Program &program, const QString &path) {
    if (path.isEmpty() || Looks_like_windows_path(path))
        return path;
    return program.files.to_windows(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
}

QString Row_name(const Program &program, const QString &word) {
    if (word.compare("Original", Qt::CaseInsensitive) != 0)
        return word;
    const Fm_List &list = program.screen.list;
    return list.original_rows > 0 ? list.rows[0].cells[col_zip] : word;
}

bool Select_row(Program &program, const QString &zip) {
    const int row = program.screen.list.find_zip(Row_name(program, zip));
    if (row < 0)
        return false;
    // Selected by the program, not by a mouse.
    program.screen.list.first_selection_state = 1;
    program.screen.list.current_row = row;
    Row_Click(program, row, col_name);
    return true;
}

QString Not_in_list(const Game &game, const QString &zip) {
    return QStringLiteral("\"%1\" is not in the list of %2").arg(zip, QLatin1String(game.code));
}

} // namespace vantrosk
