#pragma once

#include <QString>

namespace vantrosk {

struct Program;

/// The opening of every generated page: style sheet from the font tweaks, meta line, body tag.
QString Page_Head(const Program &program, bool full_width, bool with_background);
/// Text as text: "<" and ">" never become mark-up.
QString Escape_html(const QString &text);

/// A text readme as a page beside it, with ".htm" for its extension: the same head, the text as the author
/// laid it out. Empty when the file can not be read or is empty.
QString Render_Text_Readme(Program &program, const QString &path);

} // namespace vantrosk
