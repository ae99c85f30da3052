#include "library/fields/Field_Pattern.h"

namespace vantrosk {

namespace {

/// The letters of "[Tt]" or the single letter that a pattern anchored with "^" starts with.
QString First_letters(const QString &pattern) {
    if (!pattern.startsWith(u'^') || pattern.contains(u'|') || pattern.size() < 2)
        return {};
    const bool is_class = pattern[1] == u'[';
    const qsizetype end = is_class ? pattern.indexOf(u']') : 2;
    if (end < 0)
        return {};
    const QString letters = is_class ? pattern.mid(2, end - 2) : pattern.mid(1, 1);
    for (const QChar letter : letters) {
        if (!letter.isLetter())
            return {};
    }
    const qsizetype behind = is_class ? end + 1 : end;
    const bool can_be_absent = behind < pattern.size() && QStringLiteral("?*{").contains(pattern[behind]);
    return can_be_absent ? QString() : letters;
}

} // namespace

Field_Pattern::Field_Pattern(const QString &pattern)
    : expression_(pattern), first_letters_(First_letters(pattern)) {
    if (expression_.isValid())
        expression_.optimize();
}

bool Field_Pattern::matches(const QString &line) const {
    if (!first_letters_.isEmpty() && (line.isEmpty() || !first_letters_.contains(line[0])))
        return false;
    return expression_.isValid() && expression_.match(line).hasMatch();
}

QString Prepared_line(const QString &line) {
    QString prepared = line;
    prepared.remove(u'\t').remove(u'"');
    return prepared.trimmed();
}

QChar First_character(QStringView line) {
    for (const QChar character : line) {
        if (!character.isSpace() && character != u'"')
            return character;
    }
    return {};
}

QString Behind_first(const QString &line, QChar mark) {
    return line.mid(line.indexOf(mark) + 1);
}

QString Without_leading_colon(const QString &text) {
    const QString trimmed = text.trimmed();
    return trimmed.startsWith(u':') ? trimmed.mid(1).trimmed() : trimmed;
}

QString Without_controls(QString text) {
    text.removeIf([](QChar character) { return character < u' ' || character == QChar(0x7F); });
    return text;
}

} // namespace vantrosk
