#pragma once

#include <QString>

namespace vantrosk {

struct Program;

inline constexpr QLatin1String page_end("</body>\r\n</html>");

/// The page's path, or nothing when it could not be written.
QString Write_page(Program &program, const QString &page_path, const QString &html);
/// A font name or colour: nothing of it may end the style rule or the attribute that it is in.
QString Style_value(const QString &value);

} // namespace vantrosk
