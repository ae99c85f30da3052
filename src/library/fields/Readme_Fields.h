#pragma once

#include <QString>
#include <QStringList>

namespace vantrosk {

/// Fields that one line of a readme may hold, tried by ordered tables of patterns; the first hit wins. All
/// answers are empty when nothing was found.
QString Title_of_line(const QString &line);
QString Author_of_line(const QString &line);
/// What the readme calls the game, not yet a code.
QString Game_of_line(const QString &line);

/// The trimmed text after the first ":" when `pattern` matches; the whole line when it has no ":". The line
/// is taken without tabs and double quotes.
QString Label_value(const QString &line, const QString &pattern);
/// The pattern matches and nothing stands behind the first ":".
bool Label_present(const QString &line, const QString &pattern);

/// A game code for what a readme calls the game: "Thief II: The Metal Age" is "T2". "CUSTOM - name" is name.
QString Map_game_words(const QString &text);
/// What the details panel calls a custom game: "CUSTOM - name".
QString Custom_game_text(const QString &name);

/// Trimmed, no tabs, no leading ":"; with `the_swap`, "The X" is "X, The " and "A X" is "X, A ".
QString Tidy_name(const QString &text, bool the_swap);

/// Fields of one tagged line of a VKML readme, by its [VKTITLE], [VKAUTHOR] or [VKFMSTRUCTURE] tag.
QString Vkml_title_of_line(const QString &line);
QString Vkml_author_of_line(const QString &line);
QString Vkml_game_of_line(const QString &line);

/// What a readme tells of its mission.
struct Readme_Fields {
    QString name, author;
    QString game_text; ///< as the readme has it
    QString game;      ///< its code, empty when unknown
};

/// Fields of a text readme: lines over 5 characters after trimming; the contact stands in for a missing
/// author.
Readme_Fields Fields_of_text(const QStringList &lines);
/// Fields of a VKML readme: lines of 6 characters and more with their tags.
Readme_Fields Fields_of_vkml(const QStringList &lines);

} // namespace vantrosk
