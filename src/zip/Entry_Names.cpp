#include "zip/Entry_Names.h"

#include "zip/mUnzip.h"

#include <algorithm>

namespace vantrosk {

namespace {

/// Code page 437 from 0x80 up.
constexpr char16_t code_page_437[] = u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜ¢£¥₧ƒáíóúñÑªº¿⌐¬½¼¡«»░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
                                     u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀αßΓπΣσµτΦΘΩδ∞φε∩≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00a0";
static_assert(sizeof(code_page_437) == 129 * sizeof(char16_t));

/// Windows-1252 from 0x80 to 0x9f; the five codes without a character stand for themselves.
constexpr char16_t windows_1252[] = u"€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008dŽ\u008f\u0090‘’“”•–—˜™š›œ\u009džŸ";
static_assert(sizeof(windows_1252) == 33 * sizeof(char16_t));

QChar Character(unsigned char byte, bool made_on_unix) {
    if (byte < 0x80)
        return QChar(byte);
    if (!made_on_unix)
        return QChar(code_page_437[byte - 0x80]);
    return byte < 0xa0 ? QChar(windows_1252[byte - 0x80]) : QChar(byte);
}

bool Is_separator(QChar c) {
    return c == u'/' || c == u'\\';
}

bool Is_control(char16_t c) {
    return c < 0x20 || (c >= 0x7f && c < 0xa0);
}

/// "a//b" and "a/./b" are "a/b".
bool Is_nothing(QStringView part) {
    return part.isEmpty() || part == u".";
}

} // namespace

bool Is_unix_system(unsigned system) {
    constexpr unsigned unix_system = 3, macintosh = 7, mac_os_x = 19;
    return system == unix_system || system == macintosh || system == mac_os_x;
}

bool Is_ascii(QByteArrayView bytes) {
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool Is_utf8(QByteArrayView bytes) {
    return Is_ascii(bytes) || bytes.isValidUtf8();
}

QString Decode_entry_name(QByteArrayView stored, bool made_on_unix) {
    if (Is_ascii(stored))
        return QString::fromLatin1(stored);
    if (Is_utf8(stored))
        return QString::fromUtf8(stored);
    QString result;
    result.reserve(stored.size());
    for (const char c : stored)
        result += Character(static_cast<unsigned char>(c), made_on_unix);
    return result;
}

QStringList Entry_name_parts(const QString &stored_name) {
    QStringList parts;
    qsizetype start = 0;
    for (qsizetype i = 0; i <= stored_name.size(); ++i) {
        if (i < stored_name.size() && !Is_separator(stored_name[i]))
            continue;
        const QStringView part = QStringView(stored_name).mid(start, i - start);
        if (!Is_nothing(part))
            parts << part.toString();
        start = i + 1;
    }
    return parts;
}

bool Is_safe_name_part(QStringView part) {
    if (part.isEmpty() || part.back() == u'.' || part.back() == u' ')
        return false;
    for (const QChar c : part)
        if (c == u':' || Is_separator(c) || Is_control(c.unicode()))
            return false;
    return true;
}

bool Is_safe_entry_name(const QString &stored_name) {
    const QStringView name(stored_name);
    if (name.isEmpty() || Is_separator(name.front()))
        return false;
    qsizetype start = 0, parts = 0;
    for (qsizetype i = 0; i <= name.size(); ++i) {
        if (i < name.size() && !Is_separator(name[i]))
            continue;
        const QStringView part = name.mid(start, i - start);
        start = i + 1;
        if (Is_nothing(part))
            continue;
        if (!Is_safe_name_part(part))
            return false;
        ++parts;
    }
    return parts > 0;
}

} // namespace vantrosk
