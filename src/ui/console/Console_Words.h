#pragma once

#include "ui/console/Console_Commands.h"

namespace vantrosk {

struct Game;

// What the commands of the console face share: the words they take, and the road to a row.

/// Throws `Wrong_Usage` for too few or too many arguments.
void Expect_count(const Console_Context &context, int least, int most, const char *usage);
/// The game of a code; throws `Wrong_Usage` when there is none.
const Game &Game_of_word(const QString &word);
/// Fills the list of a game's code or of a custom game's name; the list's name for messages. Throws
/// `Wrong_Usage` when there is no such game.
QString Fill_list_of_word(Program &program, const QString &word, int filter = 0);
/// Exit code 1 with the reason.
Console_Result Failed(const QString &reason, const QJsonValue &json = {});
/// A path given on the command line as a Windows path; one that is a Windows path already stays.
QString Path_at_the_door(const Program &program, const QString &path);

/// The zip cell that a word names: "Original" stands for the first row of the game's own missions.
QString Row_name(const Program &program, const QString &word);
/// Selects a row of the filled list as a click would; false when the list has none of that name.
bool Select_row(Program &program, const QString &zip);
QString Not_in_list(const QString &list, const QString &zip);

} // namespace vantrosk
