#include "library/fields/Readme_Fields.h"

#include <array>

namespace vantrosk {

namespace {

constexpr QLatin1String custom_mark("CUSTOM - ");

struct Game_Word {
    const char16_t *word;
    const char *code;
};

/// The order decides: "DARK METAL" stands before "METAL", and "GOLD" before everything else.
constexpr std::array<Game_Word, 21> game_words{{
    {u"GOLD", "TG"},           {u"TG", "TG"},        {u"DARK METAL", "DM"}, {u"DARK MOD", "DMOD"},
    {u"DOOM 3", "DOOM"},       {u"DOOM", "DOOM"},    {u"T2X", "T2X"},       {u"THIEF2X", "T2X"},
    {u"THIEF 2X", "T2X"},      {u"THIEF:TDP", "T1"}, {u"T1", "T1"},         {u"THIEF 1", "T1"},
    {u"THIEF1", "T1"},         {u"METAL", "T2"},     {u"T2", "T2"},         {u"THIEF 2", "T2"},
    {u"THIEF2", "T2"},         {u"THIEF II", "T2"},  {u"THIEFII", "T2"},    {u"M\u00C9TAL", "T2"},
    {u"DARK PROJECT 2", "T2"},
}};

constexpr std::array<Game_Word, 11> later_game_words{{
    {u"DEADLY", "T3"},
    {u"SHADOWS", "T3"},
    {u"THIEF DEADLY SHADOWS", "T3"},
    {u"T3", "T3"},
    {u"THIEF3", "T3"},
    {u"THIEF 3", "T3"},
    {u"TDS", "T3"},
    {u"THIEF:DS", "T3"},
    {u"SYSTEM SHOCK 2", "SS2"},
    {u"SS2", "SS2"},
    {u"SS 2", "SS2"},
}};

template<std::size_t Count>
QString First_word_code(const QString &text, const std::array<Game_Word, Count> &words) {
    for (const Game_Word &entry : words) {
        if (text.contains(QStringView(entry.word)))
            return QLatin1String(entry.code);
    }
    return {};
}

} // namespace

QString Custom_game_text(const QString &name) {
    return custom_mark + name;
}

QString Map_game_words(const QString &text) {
    if (text.startsWith(custom_mark))
        return text.mid(custom_mark.size()).trimmed();
    const QString upper = text.toUpper();
    QString code = First_word_code(upper, game_words);
    if (!code.isEmpty())
        return code;
    if (upper.contains(QLatin1String("DARK")) && !upper.contains(QLatin1String("THIEF 2")))
        return QStringLiteral("T1");
    return First_word_code(upper, later_game_words);
}

} // namespace vantrosk
