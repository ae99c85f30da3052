#pragma once

#include <QString>
#include <QStringList>

namespace vantrosk {

struct Program;

inline constexpr const char *rtf_text_name = "temprtf.txt";

/// The opening of every generated page: style sheet from the font tweaks, meta line, body tag. `full_width`
/// takes the body's margins away; `with_background` lays the selected mission's background picture below.
QString Page_Head(const Program &program, bool full_width, bool with_background);

/// Text as text: "<" and ">" never become mark-up, control characters are left out. "&" stays, so that an
/// entity which an author typed shows as he meant it.
QString Escape_html(const QString &text);
/// A value between single quotes in a tag: as text, and "'" can not end it.
QString Escape_attribute(const QString &value);
/// One part of a relative address: everything that a URL, a style rule or an attribute could take for its own
/// is percent-encoded.
QString Encode_file_name(const QString &name);

/// What the table at the top of a readme page tells; an empty value leaves its row out.
struct Page_Header {
    QString title, game, author;
};
QString Header_Table(const Page_Header &header);

/// The path of the page made from a readme: beside it, ".htm" for its extension.
QString Page_Path(const QString &readme_path);

/// A ".txt" readme as a page beside it: the head, the header table, the text as the author laid it out. Empty
/// for another extension, and for a file that is empty or can not be read.
QString Render_Text_Readme(Program &program, const QString &path);
/// A ".vkml" readme as a page beside it, its tags turned into mark-up. Empty in the same cases.
QString Render_VKML_Readme(Program &program, const QString &path);
/// Keeps the text of an ".rtf" readme as `rtf_text_name` in `folder`, which ends in "\"; its path, empty when
/// it can not be written.
QString Write_RTF_Text(Program &program, const QString &text, const QString &folder);
/// An ".rtf" readme as a page beside it that looks as its author formatted it. Empty when it has no text or
/// can not be read.
QString Render_RTF_Readme(Program &program, const QString &path);
/// A page of a heading and a sentence at `page_path`; empty when it can not be written.
QString Render_Notice(Program &program, const QString &page_path, const QString &heading,
                      const QString &text);

/// The text between page head and closing tags: one VKML document as mark-up.
QString VKML_to_html(const QStringList &lines);

} // namespace vantrosk
