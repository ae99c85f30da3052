#pragma once

#include <QByteArray>
#include <QString>

namespace vantrosk {

/// A document as mark-up: paragraphs with their alignment and indents, runs of text with their font, size,
/// colours and style.
struct Rtf_Markup {
    QString style; ///< the rules of the classes that the body uses, and nothing that came from outside as is
    QString body;
    bool is_empty = true; ///< no character that can be seen
};

/// The formatting of a very long document ends where `format_limit` runs have been made; its text goes on.
inline constexpr int format_limit = 50000;
Rtf_Markup Markup_of_rtf(const QByteArray &bytes);

} // namespace vantrosk
