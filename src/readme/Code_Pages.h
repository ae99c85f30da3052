#pragma once

#include <QByteArray>
#include <QString>

namespace vantrosk {

inline constexpr int western_code_page = 1252;
inline constexpr int utf8_code_page = 65001;

/// Text of bytes in a code page, by the number that Windows has for it. Half a character
/// at the end of the bytes is left out. A page that is not known here reads as 1252.
QString Text_of_code_page(const QByteArray &bytes, int code_page);

} // namespace vantrosk
