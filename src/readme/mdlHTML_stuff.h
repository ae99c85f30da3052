#pragma once

#include "core/Page_Names.h"

#include <QString>
#include <QStringList>

#include <array>

namespace vantrosk {

class Recordset;
struct Program;

/// The opening of every generated page: style sheet from the font tweaks, meta line, body tag. `full_width`
/// takes the body's margins away; `with_background` lays the selected mission's background picture below.
QString Page_Head(const Program &program, bool full_width, bool with_background);

/// Text as text: "<" and ">" never become mark-up, control characters are left out. "&" stays, so that an
/// entity which an author typed shows as he meant it.
QString Escape_html(const QString &text);
/// A value between single quotes in a tag: as text, and "'" can not end it.
QString Escape_attribute(const QString &value);
/// An address between the single quotes of an href: the same, with "%27" for "'".
QString Escape_address(const QString &address);
/// One part of a relative address: everything that a URL, a style rule or an attribute could take for its own
/// is percent-encoded.
QString Encode_file_name(const QString &name);

/// What the program knows of the mission whose readme is shown. Nothing, for a file that is no row of a list.
struct Page_Facts {
    QString walkthrough_url, loot_list_url, info_url, forum_url;
    int submissions = 0, average_score = 0; ///< of the community
    int score = 0;                          ///< the user's own
    std::array<QString, 7> languages;       ///< empty where the mission has none
    bool row_selected = false;
    QString row_name, row_score; ///< cells of the selected row
    QString title_image;         ///< a picture beside the page, or "CUSTOM:" and one of custom_game_images
};
/// What the record of a mission gives: its links and scores. Nothing for an empty set.
Page_Facts Facts_of_record(const Recordset &record);

/// The path of the page made from a readme: beside it, ".htm" for its extension.
QString Page_Path(const QString &readme_path);

/// A ".txt" readme as a page beside it: the head, the header table, the text as the author laid it out, with
/// links, warnings, dates and the words of the glossary marked. For a selected row without keywords those of
/// the text are suggested. Empty for another extension, and for a file that is empty or can not be read.
QString Render_Text_Readme(Program &program, const QString &path, const Page_Facts &facts = {});
/// The same of a text that is at hand.
QString Render_Text(Program &program, const QString &text, const QString &page_path,
                    const Page_Facts &facts = {});
/// A ".vkml" readme as a page beside it, its tags turned into mark-up. Empty in the same cases.
QString Render_VKML_Readme(Program &program, const QString &path, const Page_Facts &facts = {});
/// Keeps the text of an ".rtf" readme as `rtf_text_name` in `folder`, which ends in "\"; its path, empty when
/// it can not be written.
QString Write_RTF_Text(Program &program, const QString &text, const QString &folder);
/// An ".rtf" readme as a page beside it that looks as its author formatted it. Empty when it has no text or
/// can not be read.
QString Render_RTF_Readme(Program &program, const QString &path);
/// A page of a heading and a sentence at `page_path`; empty when it can not be written.
QString Render_Notice(Program &program, const QString &page_path, const QString &heading,
                      const QString &text);

/// The whole pages, for those who need no file.
QString Page_of_text(const Program &program, const QString &text, const Page_Facts &facts);
QString Page_of_VKML(const Program &program, const QString &text, const Page_Facts &facts);

/// The tags of one VKML document as mark-up, all else as text.
QString VKML_to_html(const QString &text);

/// The category words that a text mentions often enough, joined by ",".
QString Suggested_keywords(const QString &text);

} // namespace vantrosk
