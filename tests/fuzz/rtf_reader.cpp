#include "readme/Rtf_Reader.h"

#include "fuzz/Fuzz.h"

#include "readme/Rtf_Page.h"
#include "support/Page_Checker.h"

#include <cstdio>
#include <cstdlib>

namespace vantrosk {

/// Whatever the bytes are, the text is no longer than they are and holds no half character, and the page has
/// none but the tags, attributes and addresses that it may.
void Fuzz_one(const QByteArray &bytes) {
    const QString text = Text_of_rtf(bytes);
    if (text.size() > bytes.size() || !text.isValidUtf16())
        std::abort();
    const Rtf_Markup markup = Markup_of_rtf(bytes);
    const QString wrong = Wrong_in_page("<html>\r\n<head><style>\r\n" + markup.style +
                                        "</style></head><body>" + markup.body + "</body>\r\n</html>");
    if (wrong.isEmpty())
        return;
    std::fprintf(stderr, "%s\n", qPrintable(wrong));
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
        "{\\rtf1{\\colortbl;\\red1\\green2\\blue3;}\\qc\\cf1{\\field{\\*\\fldinst HYPERLINK "
        "\"http://x.org/'<\"}"
        "{\\fldrslt y{\\b z}}}{\\field{\\*\\fldinst HYPERLINK mailto:a@x.org?cc=b }{\\fldrslt y}}}",
        "{\\rtf1{\\*\\shppict{\\pict\\picwgoal1440\\pichgoal720\\pngblip "
        "89504e470d0a1a0a00}}{\\pict\\dibitmap0 "
        "28000000020000000100000001001800000000000800000000000000000000000000000000000000ff00ff00ff000000}}",
        "{\\rtf1{\\pict\\wmetafile8 "
        "010009000003000000000000000000000000040000000301080026000000430f0000cc00200000000000"
        "0000000000000000000000000000280000000200000001000000010018000000000008000000000000000000000000000000"
        "00"
        "000000ff00ff00ff0000000300000000000000}}",
        "Title: no rich text\r\nAuthor: nobody\r\n",
    };
}

std::vector<QByteArray> Fuzz_pieces() {
    return {"{",          "}",         "\\",         "{\\*\\",      "\\par ",     "\\u",
            "\\uc",       "\\'",       "\\bin",      "\\f",         "\\deff",     "-",
            "99999999",   "\\fonttbl", "\\upr",      "\\ud",        "\\v",        "\\pict",
            "\\plain ",   "\r\n",      "\\ansicpg",  "65001",       "{\\rtf",     "932",
            "936",        "949",       "950",        "\\'93",       "\\fcharset", "\\*\\fldinst ",
            "HYPERLINK ", "\"",        "\\fldrslt ", "\\jpegblip ", "ffd8ff",     "\\picscalex",
            "28000000"};
}

} // namespace vantrosk
