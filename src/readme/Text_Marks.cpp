#include "readme/Text_Marks.h"

#include "core/Program.h"
#include "readme/Marked_Text.h"
#include "readme/mdlHTML_stuff.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace vantrosk {

namespace {

struct Other_Name {
    const char *words;
    Qt::CaseSensitivity sensitivity;
    const char *ours;
};

// The first that fits a place holds; the bare names come last.
constexpr std::array<Other_Name, 11> other_names{{
    {"Darkloader ready", Qt::CaseInsensitive, "Vantrosk ready"},
    {"Darkloader compatible", Qt::CaseSensitive, "Vantrosk ready"},
    {" ready for darkloader!", Qt::CaseSensitive, " ready for Vantrosk!"},
    {"Runs from Darkloader.", Qt::CaseSensitive, "Runs from Vantrosk."},
    {"Runs from Dark Loader.", Qt::CaseSensitive, "Runs from Vantrosk."},
    {"version of Darkloader and", Qt::CaseSensitive, "version of Vantrosk and"},
    {"Vantrosk", Qt::CaseInsensitive, "Vantrosk"},
    {"Van trosk", Qt::CaseInsensitive, "Vantrosk"},
    {"Vant rosk", Qt::CaseInsensitive, "Vantrosk"},
    {"darkloader", Qt::CaseInsensitive, "DarkLoader"},
    {"dark loader", Qt::CaseInsensitive, "DarkLoader"},
}};

/// One expression that finds the place of every row, so that the text is gone through once.
QRegularExpression Expression_of_names() {
    QStringList choices;
    for (const Other_Name &name : other_names)
        choices << (name.sensitivity == Qt::CaseInsensitive ? "(?i:" : "(?:") +
                       QRegularExpression::escape(QLatin1String(name.words)) + ")";
    return QRegularExpression(choices.join('|'));
}

/// Null for our own name as it should be.
const char *Our_name(QStringView found) {
    for (const Other_Name &name : other_names) {
        if (found.compare(QLatin1String(name.words), name.sensitivity) == 0)
            return found == QLatin1String(name.ours) ? nullptr : name.ours;
    }
    return nullptr;
}

constexpr const char *problems_span = "<span class='HIGHLIGHTRED'>Known problems: </span>";
constexpr const char *bugs_span = "<span class='HIGHLIGHTRED'>Known Bugs: </span>";
constexpr const char *date_span = "<span class='HIGHLIGHTORANGE TEXTBLACK'>Date of Release: </span>";

enum Label { known_problems = 1, known_bugs, bugs, date };

const QRegularExpression &Expression_of_labels() {
    static const QRegularExpression labels(
        QStringLiteral("(known problems ?:)|(known bugs ?:)|(bugs ?:)|"
                       "(date of release(?: {0,50}:|\\t{1,2}:| -)|release date(?: {0,50}|\\t{1,2}):)"),
        QRegularExpression::CaseInsensitiveOption);
    return labels;
}

struct Found_Label {
    qsizetype start, length;
    int label;
};

bool Is_word(QChar letter) {
    return letter.isLetterOrNumber() || letter == QLatin1Char('_');
}

/// One place of the text that holds one word of the glossary.
struct Found_Word {
    std::size_t entry;
    qsizetype start;
};

/// The glossary by first letters, so that the text is gone through once for all of them.
class Glossary_Index {
public:
    explicit Glossary_Index(const std::vector<Glossary_Entry> &glossary) : glossary_(glossary) {
        for (std::size_t entry = 0; entry < glossary.size(); ++entry) {
            if (!glossary[entry].keyword.isEmpty())
                by_letter_[slot(glossary[entry].keyword.front())].push_back(entry);
        }
    }

    std::vector<Found_Word> places(const QString &text) const {
        std::vector<Found_Word> found;
        for (qsizetype place = 0; place < text.size(); ++place) {
            const std::vector<std::size_t> &candidates = by_letter_[slot(text[place])];
            if (candidates.empty() || (place > 0 && Is_word(text[place - 1])))
                continue;
            for (const std::size_t entry : candidates) {
                if (stands_at(text, place, glossary_[entry].keyword))
                    found.push_back({entry, place});
            }
        }
        // Earlier entries come first where two want the same place.
        std::stable_sort(found.begin(), found.end(),
                         [](const Found_Word &a, const Found_Word &b) { return a.entry < b.entry; });
        return found;
    }

private:
    static std::size_t slot(QChar letter) { return letter.unicode() & 0xFF; }

    static bool stands_at(const QString &text, qsizetype place, const QString &word) {
        if (QStringView(text).mid(place, word.size()) != word)
            return false;
        const QChar before = place > 0 ? text[place - 1] : QChar('\n');
        const qsizetype end = place + word.size();
        const QChar behind = end < text.size() ? text[end] : QChar('\n');
        if (before == QLatin1Char(' ') && (behind == QLatin1Char(' ') || behind == QLatin1Char('.')))
            return true;
        return word.contains(QLatin1Char(' ')) && !Is_word(before) && !Is_word(behind);
    }

    const std::vector<Glossary_Entry> &glossary_;
    std::array<std::vector<std::size_t>, 256> by_letter_;
};

} // namespace

void Name_this_program(Marked_Text &text) {
    static const QRegularExpression names = Expression_of_names();
    std::vector<Marked_Text::Change> changes;
    auto matches = names.globalMatch(text.text());
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        if (const char *ours = Our_name(match.capturedView()))
            changes.push_back({match.capturedStart(), match.capturedLength(), QLatin1String(ours)});
    }
    if (!changes.empty())
        text.change(changes);
}

void Mark_labels(Marked_Text &text) {
    std::vector<Found_Label> found;
    auto matches = Expression_of_labels().globalMatch(text.text());
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        found.push_back({match.capturedStart(), match.capturedLength(), match.lastCapturedIndex()});
    }
    const bool knows_bugs = std::any_of(found.begin(), found.end(),
                                        [](const Found_Label &place) { return place.label == known_bugs; });
    for (const Found_Label &place : found) {
        // Beside "Known Bugs:" a bare "Bugs:" is the end of a sentence.
        if (place.label == bugs && knows_bugs)
            continue;
        const char *span = place.label == known_problems ? problems_span
                           : place.label == date         ? date_span
                                                         : bugs_span;
        text.mark(place.start, place.length, QLatin1String(span));
    }
}

void Mark_glossary(Marked_Text &text, const Program &program) {
    if (!program.tweaks.INTELLITEXT)
        return;
    const std::vector<Glossary_Entry> &glossary = program.glossary;
    QString span;
    std::size_t entry_of_span = glossary.size();
    for (const Found_Word &found : Glossary_Index(glossary).places(text.text())) {
        const Glossary_Entry &entry = glossary[found.entry];
        if (found.entry != entry_of_span) {
            entry_of_span = found.entry;
            span = "<span class='INTELLITEXT' title='" + Escape_attribute(entry.text) +
                   "' style='text-decoration : underline;cursor:help;'>";
            Show_words(span, entry.keyword);
            span += "</span>";
        }
        text.mark(found.start, entry.keyword.size(), span);
    }
}

} // namespace vantrosk
