#include "readme/Text_Marks.h"

#include <array>

namespace vantrosk {

namespace {

constexpr char16_t first_named = 0xA0;

/// The signs from 160 to 255 by their names.
constexpr std::array<const char *, 96> named_signs{{
    "&nbsp;",   "&iexcl;",  "&cent;",   "&pound;",  "&curren;", "&yen;",    "&brvbar;", "&sect;",
    "&uml;",    "&copy;",   "&ordf;",   "&laquo;",  "&not;",    "&shy;",    "&reg;",    "&macr;",
    "&deg;",    "&plusmn;", "&sup2;",   "&sup3;",   "&acute;",  "&micro;",  "&para;",   "&middot;",
    "&cedil;",  "&sup1;",   "&ordm;",   "&raquo;",  "&frac14;", "&frac12;", "&frac34;", "&iquest;",
    "&Agrave;", "&Aacute;", "&Acirc;",  "&Atilde;", "&Auml;",   "&Aring;",  "&AElig;",  "&Ccedil;",
    "&Egrave;", "&Eacute;", "&Ecirc;",  "&Euml;",   "&Igrave;", "&Iacute;", "&Icirc;",  "&Iuml;",
    "&ETH;",    "&Ntilde;", "&Ograve;", "&Oacute;", "&Ocirc;",  "&Otilde;", "&Ouml;",   "&times;",
    "&Oslash;", "&Ugrave;", "&Uacute;", "&Ucirc;",  "&Uuml",    "&Yacute;", "&THORN;",  "&szlig;",
    "&agrave;", "&aacute;", "&acirc;",  "&atilde;", "&auml;",   "&aring;",  "&aelig;",  "&ccedil;",
    "&egrave;", "&eacute;", "&ecirc;",  "&euml;",   "&igrave;", "&iacute;", "&icirc;",  "&iuml;",
    "&eth;",    "&ntilde;", "&ograve;", "&oacute;", "&ocirc;",  "&otilde;", "&ouml;",   "&divide;",
    "&oslash;", "&ugrave;", "&uacute;", "&ucirc;",  "&uuml;",   "&yacute;", "&thorn;",  "&yuml;",
}};

/// What stands for a sign on a page; null for one that stands for itself. The typographic signs also come
/// under the numbers that they had before Unicode.
const char *Stand_in(char16_t sign) {
    if (sign >= first_named && sign < first_named + named_signs.size())
        return named_signs[sign - first_named];
    switch (sign) {
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '\n':
        return "<br>";
    case 0x2019:
    case 146:
        return "&acute;";
    case 0x201C:
    case 147:
    case 0x201D:
    case 148:
    case 0x201E:
    case 132:
        return "\"";
    case 0x2026:
    case 133:
        return "...";
    case 0x2013:
    case 150:
        return "-";
    default:
        return sign == 0x7F || (sign < 0x20 && sign != '\t') ? "" : nullptr;
    }
}

/// Most letters of most readmes.
bool Is_plain(char16_t sign) {
    return sign >= 0x20 && sign < 0x7F && sign != '<' && sign != '>';
}

} // namespace

void Show_words(QString &html, QStringView words) {
    qsizetype done = 0;
    for (qsizetype place = 0; place < words.size(); ++place) {
        const char16_t sign = words[place].unicode();
        const char *stand_in = Is_plain(sign) ? nullptr : Stand_in(sign);
        if (!stand_in)
            continue;
        html += words.mid(done, place - done);
        html += QLatin1String(stand_in);
        done = place + 1;
    }
    html += words.mid(done);
}

} // namespace vantrosk
