#include "library/fields/Readme_Fields.h"

#include "library/fields/Field_Pattern.h"

#include <QHash>

#include <array>
#include <vector>

namespace vantrosk {

namespace {

/// How a field's value is cut from a line that its pattern fits.
enum class Cut {
    colon,            ///< behind the first ":", trimmed
    colon_as_is,      ///< behind the first ":"
    colon_clean,      ///< behind the first ":", less another leading one
    dash,             ///< behind the first "-", trimmed
    equals,           ///< behind the first "="
    less_word,        ///< the line less the length of the word on the left
    word_out,         ///< the line without the word
    word_out_cleaned, ///< the same, less a leading ":"
};

struct Field_Rule {
    const char *pattern;
    Cut cut;
    const char *word = "";
    int shorter_than = 0; ///< the line must have fewer characters when above 0
    const char *not_starting = "";
};

constexpr std::array<Field_Rule, 24> title_rules{{
    {R"(^[Mm]ission [Tt]itle(?: ){0,50}:)", Cut::colon},
    {R"(^[Tt]itle[\x09\s][\s][\s][^\s])", Cut::word_out_cleaned, "Title"},
    {R"(^[Tt][Ii][Tt][Ll][Ee](?: ){0,50}:)", Cut::colon},
    {R"(^[Tt]itle[\s][\x2D\x96\x97\s][^\s])", Cut::colon},
    {R"(^[Mm]ission [Tt]itle[\s][\x2D\x96\x97\s][\s][^\s])", Cut::dash},
    {R"(^[Ll]evel [Nn]ame(?: ){0,50}:)", Cut::colon},
    {R"(^[Mm]ission(?: ){0,50}:)", Cut::colon},
    {R"(^[Cc]ampaign [Tt]itle(?: ){0,50}:)", Cut::colon},
    {R"(^[Mm][Aa][Pp] [Nn][Aa][Mm][Ee](?: ){0,50}:)", Cut::colon},
    {R"(^[Mm][Ii][Ss][Ss][Ii][Oo][Nn] [Nn][Aa][Mm][Ee](?: ){0,50}:)", Cut::colon},
    {R"(^[Mm][Aa][Pp][Nn][Aa][Mm][Ee][\s]{0,50}\x2D)", Cut::dash},
    {R"(^[Tt]he [Mm]ission [Tt]itle(?: ){0,50}:)", Cut::colon},
    {R"(^[Tt]itle\t{0,10}[A-Za-z])", Cut::less_word, "Title"},
    {R"(^[Tt]itle\s-)", Cut::less_word, "Title"},
    {R"(^[Mm]issions [Tt]itel(?: ){0,50}:)", Cut::colon},
    {R"(^[Tt]itel [Dd]er [Mm]ission (?: ){0,50}:)", Cut::colon},
    {R"(^[Tt]itel(?: ){0,50}:)", Cut::colon},
    {R"(^[Tt]itre de la [Mm]ission(?: ){0,50}:)", Cut::colon},
    {R"(^[Tt]itre(?: ){0,50}:)", Cut::colon},
    {R"(^[Ll]evel [Nn]ames(?: ){0,50}:)", Cut::colon},
    {R"(^[Mm]ission [Tt]itles(?: ){0,50}:)", Cut::colon},
    {R"(^[Nn][Aa][Mm][Ee](?: ){0,50}:)", Cut::colon},
    {R"(^[Nn]ázev [Ll][Ee][Vv][Ee][Ll][Uu](?: ){0,50}:)", Cut::colon},
    {R"(^[C]hapter [Tt]itle(?: ){0,50}:)", Cut::colon},
}};

constexpr std::array<Field_Rule, 10> author_rules{{
    {R"(^[Aa][Uu][Tt][Hh][Oo][Rr][Ss](?: ){0,50}:)", Cut::colon_as_is},
    {R"(^[Aa][Uu][Tt][Hh][Oo][Rr](?: ){0,50}:)", Cut::colon_as_is},
    {R"(^[Aa][Uu][Tt][Oo][Rr](?: ){0,50}:)", Cut::colon_as_is},
    {R"(^[Bb][Yy](?: ){0,50}:)", Cut::colon_as_is},
    {R"(^[Cc][Rr][Ee][Aa][Tt][Ee][Dd] [Bb][Yy](?: ){0,50}:)", Cut::colon_as_is},
    {R"(^[Mm][Ii][Ss][Ss][Ii][Oo][Nn] [Cc][Rr][Ee][Aa][Tt][Oo][Rr](?: ){0,50}:)", Cut::colon_as_is},
    {R"(^[Aa][Uu][Tt][Hh][Oo][Rr][\s]{0,50}\x2D)", Cut::dash},
    {R"(^[Aa]uthor\t{1,10}[A-Za-z])", Cut::less_word, "Author"},
    {R"(^[Aa]uthors\s{1,10}(?: ){0,50}:)", Cut::colon},
    {R"(^[Aa]uthor\w{1,50})", Cut::less_word, "Author"},
}};

constexpr std::array<Field_Rule, 14> game_rules{{
    {R"(^[Gg]ame(?: ){0,50}:)", Cut::colon_clean},
    {R"(^[Gg]ame(?: ){0,50}:)", Cut::colon},
    {R"(^[Gg][Aa][Mm][Ee](?: ){0,50}:)", Cut::colon},
    {R"(^[Gg]ame[\x09\s][\s][\s][^\s])", Cut::word_out, "Game"},
    {R"(^[Gg]ame[\x09\s][^\s])", Cut::word_out, "Game", 60},
    {R"(^[Ee]ngine(?: ){0,50})", Cut::word_out, "Engine"},
    {R"(^[Vv]ersion [Oo]f [Tt]hief(?: ){0,50})", Cut::colon},
    {R"(^[Gg]ame\t{1,10}[A-Za-z])", Cut::less_word, "Game"},
    {R"(^[Gg]ame(?- ){0,50}-)", Cut::less_word, "Game"},
    {R"(^[Ss][Pp][Ii][Ee][Ll](?: ){0,50})", Cut::colon},
    {R"(^[Gg]ame[\x3D ]{0,50})", Cut::equals, "", 60, "Gameplay "},
    {R"(^[Jj][Ee][Uu](?: ){0,50})", Cut::colon},
    {R"(^[Hh][Rr][Aa](?: ){0,50})", Cut::colon},
    {R"(^A [Ff]an [Mm]ission [Ff]or (\s){0,50})", Cut::colon},
}};

/// The patterns of one table.
struct Made_Patterns {
    std::vector<Field_Pattern> patterns;
    QString first_letters; ///< of all of them: most lines of a readme begin with none of these
};

template<std::size_t Count>
Made_Patterns Make_patterns(const std::array<Field_Rule, Count> &rules) {
    Made_Patterns made;
    made.patterns.reserve(Count);
    for (const Field_Rule &rule : rules) {
        made.patterns.emplace_back(QString::fromUtf8(rule.pattern));
        made.first_letters += made.patterns.back().first_letters();
    }
    return made;
}

QString Cut_value(const QString &line, const Field_Rule &rule) {
    const QString word = QLatin1String(rule.word);
    switch (rule.cut) {
    case Cut::colon:
        return Behind_first(line, u':').trimmed();
    case Cut::colon_as_is:
        return Behind_first(line, u':');
    case Cut::colon_clean:
        return Without_leading_colon(Behind_first(line, u':'));
    case Cut::dash:
        return Behind_first(line, u'-').trimmed();
    case Cut::equals:
        return Behind_first(line, u'=');
    case Cut::less_word:
        return line.mid(word.size());
    case Cut::word_out:
        return QString(line).remove(word);
    case Cut::word_out_cleaned:
        return Without_leading_colon(QString(line).remove(word));
    }
    return {};
}

bool Rule_applies(const Field_Rule &rule, const QString &line) {
    if (rule.shorter_than > 0 && line.size() >= rule.shorter_than)
        return false;
    return *rule.not_starting == '\0' || !line.startsWith(QLatin1String(rule.not_starting));
}

template<std::size_t Count>
QString First_value(const QString &line, const std::array<Field_Rule, Count> &rules,
                    const Made_Patterns &made) {
    if (!made.first_letters.contains(First_character(line)))
        return {};
    const QString prepared = Prepared_line(line);
    for (std::size_t i = 0; i < Count; ++i) {
        if (!Rule_applies(rules[i], prepared) || !made.patterns[i].matches(prepared))
            continue;
        QString value = Without_controls(Cut_value(prepared, rules[i]));
        if (!value.isEmpty())
            return value;
    }
    return {};
}

const Field_Pattern &Made_pattern(const QString &pattern) {
    static QHash<QString, Field_Pattern> made;
    auto found = made.find(pattern);
    if (found == made.end())
        found = made.insert(pattern, Field_Pattern(pattern));
    return *found;
}

/// One tagged line of a VKML readme without its tags: the opening piece goes, then the closing piece.
QString Untagged(const QString &line, const char *opening, const char *closing) {
    QString text = line.trimmed();
    text = text.remove(QLatin1String(opening), Qt::CaseInsensitive).trimmed();
    return text.remove(QLatin1String(closing), Qt::CaseInsensitive);
}

bool Holds(const QString &line, const char *tag) {
    return line.contains(QLatin1String(tag), Qt::CaseInsensitive);
}

} // namespace

QString Title_of_line(const QString &line) {
    static const Made_Patterns patterns = Make_patterns(title_rules);
    return First_value(line, title_rules, patterns);
}

QString Author_of_line(const QString &line) {
    static const Made_Patterns patterns = Make_patterns(author_rules);
    return First_value(line, author_rules, patterns);
}

QString Game_of_line(const QString &line) {
    static const Made_Patterns patterns = Make_patterns(game_rules);
    return First_value(line, game_rules, patterns);
}

QString Label_value(const QString &line, const QString &pattern) {
    const QString prepared = Prepared_line(line);
    return Made_pattern(pattern).matches(prepared) ? Without_controls(Behind_first(prepared, u':')).trimmed()
                                                   : QString();
}

bool Label_present(const QString &line, const QString &pattern) {
    const QString prepared = Prepared_line(line);
    return Made_pattern(pattern).matches(prepared) && Behind_first(prepared, u':').trimmed().isEmpty();
}

QString Tidy_name(const QString &text, bool the_swap) {
    QString name = Without_leading_colon(QString(text.trimmed()).remove(u'\t'));
    if (!the_swap)
        return name;
    for (const QLatin1String article : {QLatin1String("THE "), QLatin1String("A ")}) {
        if (name.startsWith(article, Qt::CaseInsensitive))
            return name.mid(article.size()) + ", " + name.left(article.size());
    }
    return name;
}

QString Vkml_title_of_line(const QString &line) {
    if (!Holds(line, "[VKTITLE]"))
        return {};
    return Without_controls(Untagged(line, "[VKCENTER][VKTITLE]", "[/VKTITLE][VKNL]"));
}

QString Vkml_author_of_line(const QString &line) {
    if (!Holds(line, "[VKAUTHOR]"))
        return {};
    return Label_value(Untagged(line, "[VKAUTHOR]", "[/VKAUTHOR][VKNL]"), "^[Aa]uthor(?: ){0,30}:");
}

QString Vkml_game_of_line(const QString &line) {
    if (!Holds(line, "[VKFMSTRUCTURE]"))
        return {};
    return Label_value(Untagged(line, "[VKFMSTRUCTURE]", "[/VKFMSTRUCTURE][VKNL]"), "^[Gg]ame(?: ){0,30}:");
}

Readme_Fields Fields_of_text(const QStringList &lines) {
    Readme_Fields fields;
    QString contact;
    for (const QString &raw : lines) {
        const QString line = raw.trimmed();
        if (line.size() <= 5)
            continue;
        if (fields.game_text.isEmpty()) {
            const QString game = Game_of_line(line).remove(u'\t').trimmed();
            fields.game = Map_game_words(game);
            fields.game_text = Without_leading_colon(game);
        }
        if (fields.name.isEmpty())
            fields.name = Without_leading_colon(Title_of_line(line).remove(u'\t'));
        if (fields.author.isEmpty())
            fields.author = Author_of_line(line).trimmed();
        if (contact.isEmpty())
            contact = Label_value(line, "^[Cc][Oo][Nn][Tt][Aa][Cc][Tt](?: ){0,20}:");
    }
    if (fields.author.isEmpty())
        fields.author = contact;
    return fields;
}

Readme_Fields Fields_of_vkml(const QStringList &lines) {
    Readme_Fields fields;
    for (const QString &line : lines) {
        if (line.size() < 6)
            continue;
        if (fields.game_text.isEmpty()) {
            fields.game_text = Vkml_game_of_line(line).trimmed();
            fields.game = Map_game_words(fields.game_text);
        }
        if (fields.author.isEmpty())
            fields.author = Vkml_author_of_line(line).trimmed();
        if (fields.name.isEmpty())
            fields.name = Vkml_title_of_line(line).trimmed();
    }
    return fields;
}

} // namespace vantrosk
