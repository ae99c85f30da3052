#include "library/Fm_Keywords.h"

#include "core/Program.h"
#include "core/mdlDB_Functions.h"
#include "core/mdlErrorHandler.h"
#include "library/Fm_List_Save.h"

#include <algorithm>
#include <array>

namespace vantrosk {

namespace {

/// The category words stand in this order of kinds.
struct Keyword_Kind {
    const char *prefix;
    int words;
};
constexpr std::array<Keyword_Kind, 3> keyword_kinds{{{"Enemy-", 8}, {"Location-", 10}, {"Theme-", 6}}};

bool Can_be_stored(const Program &program) {
    return program.FM_PANEL.contains(QLatin1String(".zip"), Qt::CaseInsensitive) &&
           !program.fm.record_game.isEmpty();
}

void Store_in_record(Program &program) {
    db_Execute(program, "UPDATE Table_Scores set categories_list = " +
                            In_single_quotes(program.screen.details.keywords) +
                            " WHERE zip_name = " + In_double_quotes(program.FM_PANEL) +
                            " and game = " + In_single_quotes(program.fm.record_game));
}

} // namespace

QStringList Keyword_Entries(const Program &program) {
    QStringList entries = program.categories;
    qsizetype word = 0;
    for (const Keyword_Kind &kind : keyword_kinds) {
        for (int i = 0; i < kind.words && word < entries.size(); ++i, ++word)
            entries[word].prepend(QLatin1String(kind.prefix));
    }
    return entries;
}

QStringList Matched_Keywords(const QStringList &entries, const QString &keywords) {
    const QStringList words = keywords.split(u',', Qt::SkipEmptyParts);
    QStringList matched;
    for (const QString &entry : entries) {
        const bool is_named = std::any_of(words.begin(), words.end(),
                                          [&entry](const QString &word) { return entry.endsWith(word); });
        if (is_named && !matched.contains(entry))
            matched << entry;
    }
    return matched;
}

void Store_Keywords(Program &program, const QString &keywords) {
    Details_Panel &details = program.screen.details;
    const QString loaded = details.keywords;
    const QString stored = Matched_Keywords(Keyword_Entries(program), keywords).join(u',');
    details.keywords = stored;
    const bool is_wanted = !program.screen.busy || (stored != loaded && !stored.isEmpty());
    if (is_wanted && Can_be_stored(program))
        With_error_box(program, "Store_Keywords", "Form frmMain", [&] { Store_in_record(program); });
    Set_Upload_Controls(program);
    program.ui.details_changed();
}

void Keyword_Click(Program &program, const QString &entry, bool ticked) {
    if (program.screen.busy || !program.screen.details.record_shown)
        return;
    QStringList entries = Matched_Keywords(Keyword_Entries(program), program.screen.details.keywords);
    entries.removeAll(entry);
    if (ticked)
        entries << entry;
    Store_Keywords(program, entries.join(u','));
}

} // namespace vantrosk
