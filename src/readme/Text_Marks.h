#pragma once

#include <QString>

namespace vantrosk {

struct Program;
class Marked_Text;

/// A readme that was written for another manager of missions names the one that shows it.
void Name_this_program(Marked_Text &text);
/// Labels of warnings and of the release date stand out.
void Mark_labels(Marked_Text &text);
/// Words of the glossary carry their explanation. Sought as written: between blanks, or before a full stop;
/// entries of several words also beside any sign that is no letter, and at the ends of a line.
void Mark_glossary(Marked_Text &text, const Program &program);
/// Words as a page shows them: mark-up and typographic signs as entities or plain signs, lines as the author
/// broke them. For `Marked_Text::html`.
void Show_words(QString &html, QStringView words);

} // namespace vantrosk
