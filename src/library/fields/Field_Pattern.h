#pragma once

#include <QRegularExpression>
#include <QString>

namespace vantrosk {

/// A pattern made once. One that the engine refuses finds nothing.
class Field_Pattern {
public:
    explicit Field_Pattern(const QString &pattern);
    bool matches(const QString &line) const;
    /// What a matching line can begin with; empty when the pattern does not tell.
    const QString &first_letters() const { return first_letters_; }

private:
    QRegularExpression expression_;
    QString first_letters_;
};

/// A line as the extractors look at it: no tabs, no double quotes, trimmed.
QString Prepared_line(const QString &line);
/// The first character of the prepared line, without preparing it; null when there is none.
QChar First_character(QStringView line);
/// What stands behind the first `mark`; the whole line when there is none.
QString Behind_first(const QString &line, QChar mark);
/// Trimmed, less one leading ":", trimmed again.
QString Without_leading_colon(const QString &text);
/// Less what a terminal or a statement would take for more than a sign: the control characters below the
/// blank.
QString Without_controls(QString text);

} // namespace vantrosk
