#include "readme/Rtf_Reader.h"

#include "fuzz/Fuzz.h"

#include <cstdlib>

namespace vantrosk {

/// Whatever the bytes are, the text is no longer than they are and holds no half character.
void Fuzz_one(const QByteArray &bytes) {
    const QString text = Text_of_rtf(bytes);
    if (text.size() > bytes.size() || !text.isValidUtf16())
        std::abort();
}

std::vector<QByteArray> Fuzz_seeds() {
    return {
        "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset238 B;}}"
        "\\f1\\'e8\\par{\\b bold}\\tab\\u269?\\~\\-\\_}",
        "{\\rtf1\\ansicpg65001 \xC4\x8D\\'c4\\'8d{\\upr{a}{\\*\\ud{\\uc2\\u-10179 ab\\u-8704 cd}}}}",
        "{\\rtf1{\\info{\\author x}}{\\*\\unknown{y}}{\\pict\\bin4 {}{}}\\v hidden\\v0\\plain}",
        "{\\rtf1\\trowd\\intbl a\\cell\\itap2 "
        "b\\nestcell{\\*\\nesttableprops\\nestrow}{\\nonesttables\\par}\\row}",
        "{\\rtf1{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt y}}{\\shp{\\*\\shpinst{\\sp{\\sn "
        "a}}{\\shptxt z}}}}",
        "{\\rtf1\\ansicpg932\\deff0{\\fonttbl{\\f0\\fcharset128 A;}{\\f1\\fcharset136 B;}{\\f2\\fcharset129 "
        "C;}}"
        "\\'93\\'90\\'95\\\\{\\f1\\'ae\\'61}\\f2\\'b5\\'b5\\uc2\\u30423\\'93\\'90}",
        "Title: no rich text\r\nAuthor: nobody\r\n",
    };
}

std::vector<QByteArray> Fuzz_pieces() {
    return {"{",     "}",      "\\",       "{\\*\\", "\\par ",    "\\u",       "\\uc",   "\\'",
            "\\bin", "\\f",    "\\deff",   "-",      "99999999",  "\\fonttbl", "\\upr",  "\\ud",
            "\\v",   "\\pict", "\\plain ", "\r\n",   "\\ansicpg", "65001",     "{\\rtf", "932",
            "936",   "949",    "950",      "\\'93",  "\\fcharset"};
}

} // namespace vantrosk
