#include "core/Program.h"
#include "readme/Pages.h"
#include "readme/mdlHTML_stuff.h"

#include <array>

namespace vantrosk {

namespace {

struct Style_Class {
    const char *name;
    Font_Tweak Tweaks::*font;
};

constexpr std::array<Style_Class, 11> font_classes{{
    {".VKTITLE", &Tweaks::TITLEFONT},
    {".VKSUBTITLE", &Tweaks::SUBTITLEFONT},
    {".VKAUTHOR", &Tweaks::OTHERTEXTFONT},
    {".VKFMINFO", &Tweaks::OTHERTEXTFONT},
    {".VKBRIEFING", &Tweaks::OTHERTEXTFONT},
    {".VKFMSTRUCTURE", &Tweaks::OTHERTEXTFONT},
    {".VKBUILD", &Tweaks::OTHERTEXTFONT},
    {".VKINFO", &Tweaks::OTHERTEXTFONT},
    {".VKLOADING", &Tweaks::OTHERTEXTFONT},
    {".VKCOPYRIGHT", &Tweaks::OTHERTEXTFONT},
    {".VKWARNINGS", &Tweaks::WARNINGSFONT},
}};

constexpr std::array<const char *, 25> fixed_classes{{
    ".INTELLITEXT{border-bottom 1 double red}",
    ".TEXTRED{color: Red;}",
    ".TEXTDARKRED{color: DarkRed;}",
    ".TEXTVIOLETRED{color: VioletRed ;}",
    ".TEXTDARKMAGENTA{color: DarkMagenta ;}",
    ".TEXTWHITE{color: white;}",
    ".TEXTBLUE{color: Blue;}",
    ".TEXTDARKBLUE{color: DarkBlue ;}",
    ".TEXTLIME{color: Lime;}",
    ".TEXTBLACK{color: Black;}",
    ".TEXTYELLOW{color: Yellow;}",
    ".TEXTGREEN{color: Green;}",
    ".TEXTGRAY{color: Gray;}",
    ".HIGHLIGHTYELLOW{background-color: yellow;}",
    ".HIGHLIGHTLIGHTYELLOW{background-color: #FFFFCC;}",
    ".HIGHLIGHTCREAM{background-color: LemonChiffon;}",
    ".HIGHLIGHTLIGHTOLDLACE{background-color: Oldlace;}",
    ".HIGHLIGHTLIME{background-color: lime;}",
    ".HIGHLIGHTHONEYDEW{background-color: HoneyDew;}",
    ".HIGHLIGHTRED{background-color: red;color:white;}",
    ".HIGHLIGHTPINK{background-color: pink;}",
    ".HIGHLIGHTTHISTLE{background-color: thistle;}",
    ".HIGHLIGHTORANGE{background-color:orange;}",
    ".HIGHLIGHTAQUA{background-color:aqua;}",
    ".HIGHLIGHTWHITE{background-color:white;}",
}};

QString Font_Class(const Style_Class &style, const Tweaks &tweaks) {
    const Font_Tweak &font = tweaks.*style.font;
    QString rule = QLatin1String(style.name) + " {font-size: " + QString::number(font.size) + "pt;";
    if (font.style.contains("Bold", Qt::CaseInsensitive))
        rule += "font-weight: bold;";
    if (font.style.contains("Italic", Qt::CaseInsensitive))
        rule += "font-style: italic;";
    const bool warnings = style.font == &Tweaks::WARNINGSFONT;
    rule += (warnings ? " color:" : "color: ") + Style_value(font.colour);
    rule += warnings ? "; text-decoration:none;font-family: " : ";text-decoration: none;font-family: ";
    return rule + Style_value(font.name) + "}\r\n";
}

/// Skins colour the links; the two schemes that are no skins leave them to the browser.
QString Link_Rules(const Tweaks &tweaks) {
    if (tweaks.VK_SCHEME.isEmpty() || tweaks.VK_SCHEME == QLatin1String("Vantrosk Default") ||
        tweaks.VK_SCHEME == QLatin1String("Windows Classic"))
        return {};
    return "A:link {color:" + Style_value(tweaks.OTHERTEXTFONT.colour) + ";}\r\nA:hover {color:red;}\r\n";
}

QString Background(const Program &program, bool full_width) {
    if (program.fm.background_image.isEmpty())
        return {};
    return "<div align='center' style='z-index:-1;width:100%;height:100%;background:url(" +
           Encode_file_name(program.fm.background_image) +
           ") no-repeat center center;'><div align='center' style='width:800px;height:800px;background:" +
           Style_value(program.tweaks.BACKGROUNDCOLOUR) +
           ";filter:alpha(opacity=70);-moz-opacity:.70;opacity:.70;'></div></div>"
           "<div style='position:absolute;top:15px;left:" +
           QLatin1String(full_width ? "0px" : "3px") + ";'>\r\n";
}

} // namespace

QString Style_value(const QString &value) {
    QString plain;
    for (const QChar letter : value) {
        if (letter.unicode() >= 0x20 && !QStringView(u"<>{}()@;'\"\\").contains(letter))
            plain += letter;
    }
    return plain;
}

QString Page_Head(const Program &program, bool full_width, bool with_background) {
    QString head = "<html>\r\n<head><style>\r\n";
    for (const Style_Class &style : font_classes)
        head += Font_Class(style, program.tweaks);
    for (const char *fixed : fixed_classes)
        head += QLatin1String(fixed) + "\r\n";
    head += Link_Rules(program.tweaks) + "</style>\r\n";
    head += "<meta http-equiv='Content-Type' content='text/html; charset=UTF-8' />\r\n</head>\r\n";
    head += "<body bgcolor='" + Style_value(program.tweaks.BACKGROUNDCOLOUR) + "' ";
    head += full_width ? "topmargin='0' leftmargin='0'>\r\n" : ">\r\n";
    return with_background ? head + Background(program, full_width) : head;
}

} // namespace vantrosk
