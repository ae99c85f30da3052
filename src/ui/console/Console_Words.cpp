#include "ui/console/Console_Words.h"

#include "core/Games.h"
#include "core/Program.h"
#include "library/Custom_Archives.h"
#include "library/Fm_List_View.h"
#include "library/Get_archives.h"

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

namespace {

/// Doom 3 missions stand in the list of The Dark Mod.
const Game *Built_in_game(const QString &word) {
    return Find_Game(word.compare("DOOM", Qt::CaseInsensitive) == 0 ? QStringLiteral("DMOD") : word);
}

[[noreturn]] void No_such_game(const QString &word) {
    throw Wrong_Usage(QStringLiteral("there is no game \"%1\"").arg(word));
}

} // namespace

const Game &Game_of_word(const QString &word) {
    const Game *game = Built_in_game(word);
    if (!game)
        No_such_game(word);
    return *game;
}

QString Fill_list_of_word(Program &program, const QString &word, int filter) {
    if (const Game *game = Built_in_game(word)) {
        Get_archives_of_game(program, game->code, filter);
        return QLatin1String(game->code);
    }
    if (word.isEmpty() || !Get_archives_of_custom_game(program, word, filter))
        No_such_game(word);
    return program.custom_name;
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

QString Not_in_list(const QString &list, const QString &zip) {
    return QStringLiteral("\"%1\" is not in the list of %2").arg(zip, list);
}

} // namespace vantrosk
