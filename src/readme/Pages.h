#pragma once

#include "readme/mdlHTML_stuff.h"

#include <QString>

namespace vantrosk {

struct Program;

inline constexpr QLatin1String page_end("</body>\r\n</html>");

/// Every line with one line feed behind it, whatever ended it before.
QString With_line_feeds(QString text);
/// The page's path, or nothing when it could not be written.
QString Write_page(Program &program, const QString &page_path, const QString &html);
/// A font name or colour: nothing of it may end the style rule or the attribute that it is in.
QString Style_value(const QString &value);
/// Only what leads to a page of the web becomes a link.
bool May_be_followed(const QString &url);
/// The name of a picture file in an address; it names no folder.
QString Encode_picture_name(const QString &name);

/// What a readme tells of its mission; an empty value leaves its row out.
struct Page_Header {
    QString title, game, author, contact, home_page;
};
/// Takes a value into a field that is still empty, trimmed, and no longer than a field may be.
void Fill_field(QString &field, const QString &value);

enum class Page_Kind { vkml, text };
/// The table at the top of a readme page.
QString Header_Table(const Program &program, const Page_Header &header, const Page_Facts &facts,
                     Page_Kind kind);

} // namespace vantrosk
