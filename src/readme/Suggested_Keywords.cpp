#include "core/mdlStartup.h"
#include "readme/mdlHTML_stuff.h"

#include <array>

namespace vantrosk {

namespace {

/// How often each of the category words must stand in a text before it says what the mission is like.
constexpr std::array<int, 24> needed_counts{1, 1, 1, 1, 3, 2, 2, 2, 1, 1, 3, 2,
                                            2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 5, 2};

} // namespace

QString Suggested_keywords(const QString &text) {
    const QStringList words = QString(category_keywords).split(QLatin1Char(','));
    std::array<int, needed_counts.size()> counts{};
    for (qsizetype place = 0; place < text.size(); ++place) {
        // All of the words begin with a capital.
        if (text[place] < QLatin1Char('A') || text[place] > QLatin1Char('Z'))
            continue;
        for (std::size_t i = 0; i < counts.size(); ++i) {
            const QString &word = words[static_cast<qsizetype>(i)];
            if (word.front() == text[place] && QStringView(text).mid(place, word.size()) == word)
                ++counts[i];
        }
    }
    QStringList suggested;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        if (counts[i] >= needed_counts[i])
            suggested << words[static_cast<qsizetype>(i)];
    }
    return suggested.join(QLatin1Char(','));
}

} // namespace vantrosk
