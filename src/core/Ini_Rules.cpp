#include "core/Ini_Rules.h"

#include "core/Ini_Tables.h"

#include <QRegularExpression>

namespace vantrosk {

namespace {

constexpr const char *colour_number = "a colour number from 0 to 16777215: red + 256 green + 65536 blue";
constexpr const char *days = "a number of days from 0 (never) to 32767";
constexpr const char *font_colour = "six hexadecimal digits, such as FF0000";
constexpr const char *font_size = "a size from 1 to 200";
constexpr const char *font_style = "Bold, Italic or Bold,Italic";

/// A key whose type alone does not say what it can hold: a number within bounds, or a text of some form.
struct Rule {
    const char *key;
    const char *told;
    int least, most;
    const char *form =
        nullptr; ///< an expression for the whole text, in any case; a number when there is none
};

constexpr const char *bold_or_italic = "bold|italic|bold,italic";
constexpr const char *six_digits = "#?[0-9a-f]{6}";

constexpr Rule rules[] = {
    {"MAIN_TOOLBAR", "16, 24 or 32", 0, 0, "16|24|32"},
    {"LANGUAGECODE", "a language code of two letters", 0, 0, "[a-z]{2}"},
    {"SCAN_ZIPS", "0 (slow: always), 1 (normal: without a record) or 2 (fast: never)", 0, 2},
    {"AUTOSTART_IN", "Thief 1, Thief Gold, Thief 2, Thief DS, T2X, Dark Metal, Dark Mod or System Shock 2", 0,
     0, "thief 1|thief gold|thief 2|thief ds|t2x|dark metal|dark mod|system shock 2"},
    {"AUTO_DOWNLOAD", days, 0, 32767},
    {"AUTO_FM_CHECK", days, 0, 32767},
    {"QUILLMARCH", days, 0, 32767},
    {"TITLEFONTCOLOUR", font_colour, 0, 0, six_digits},
    {"SUBTITLEFONTCOLOUR", font_colour, 0, 0, six_digits},
    {"WARNINGSFONTCOLOUR", font_colour, 0, 0, six_digits},
    {"OTHERTEXTFONTCOLOUR", font_colour, 0, 0, six_digits},
    {"TITLEFONTSIZE", font_size, 1, 200},
    {"SUBTITLEFONTSIZE", font_size, 1, 200},
    {"WARNINGSFONTSIZE", font_size, 1, 200},
    {"OTHERTEXTFONTSIZE", font_size, 1, 200},
    {"FMLISTSFONTSIZE", font_size, 1, 200},
    {"TITLEFONTSTYLE", font_style, 0, 0, bold_or_italic},
    {"SUBTITLEFONTSTYLE", font_style, 0, 0, bold_or_italic},
    {"WARNINGSFONTSTYLE", font_style, 0, 0, bold_or_italic},
    {"OTHERTEXTFONTSTYLE", font_style, 0, 0, bold_or_italic},
    {"FMLISTSFONTSTYLE", font_style, 0, 0, bold_or_italic},
    {"BACKGROUNDCOLOUR", "# and six hexadecimal digits, such as #FFFFFF", 0, 0, "#[0-9a-f]{6}"},
    {"FMDISPLAYCOLOUR", colour_number, 0, 0xFFFFFF},
    {"FMDISPLAYFONTCOLOUR", colour_number, 0, 0xFFFFFF},
    {"FMDISPLAYTITLESFONTCOLOUR", colour_number, 0, 0xFFFFFF},
    {"QBAR_COLOUR", colour_number, 0, 0xFFFFFF},
    {"GAMEBAR_COLOUR", colour_number, 0, 0xFFFFFF},
};

const Rule *Find_rule(const QString &key) {
    for (const Rule &rule : rules) {
        if (key == QLatin1String(rule.key))
            return &rule;
    }
    return nullptr;
}

bool Fits(const Rule &rule, const QString &text) {
    if (!rule.form) {
        bool is_number = false;
        const int number = text.toInt(&is_number);
        return is_number && number >= rule.least && number <= rule.most;
    }
    const QRegularExpression form(QRegularExpression::anchoredPattern(QLatin1String(rule.form)),
                                  QRegularExpression::CaseInsensitiveOption);
    return form.match(text).hasMatch();
}

/// What the type of a key says by itself.
QString Rule_of_type(const QString &key) {
    Main_Ini ini;
    Tweaks tweaks;
    const auto told = [](const Value_Place &place) {
        return std::holds_alternative<bool *>(place)  ? QStringLiteral("True or False")
               : std::holds_alternative<int *>(place) ? QStringLiteral("a whole number")
                                                      : QString();
    };
    for (const Main_Row &row : Main_rows())
        if (key == QLatin1String(row.key))
            return told(row.place(ini));
    for (const Tweaks_Row &row : Tweaks_rows())
        if (key == QLatin1String(row.key))
            return told(row.place(tweaks));
    return {};
}

} // namespace

QString Ini_rule(const QString &key) {
    const Rule *rule = Find_rule(key);
    return rule ? QLatin1String(rule->told) : Rule_of_type(key);
}

bool Is_understood(const QString &key, const QString &text) {
    const Rule *rule = Find_rule(key);
    return text.isEmpty() || !rule || Fits(*rule, text);
}

} // namespace vantrosk
