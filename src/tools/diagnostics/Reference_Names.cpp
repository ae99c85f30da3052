#include "tools/diagnostics/Reference_Names.h"

#include "core/Games.h"
#include "core/Program.h"
#include "install/Install_Paths.h"
#include "tools/diagnostics/Reference_File.h"

#include <algorithm>
#include <array>

namespace vantrosk {

namespace {

const QString name_start = QStringLiteral("DIAG_");
constexpr qsizetype longest_code = 40, longest_fm_name = 160; ///< bytes: a name has room for 255

constexpr std::array<Diag_Game, 7> diag_games{{
    {"Thief 1", "T1", "The scan below cross references against a Patched to 1.33 Version of Thief 1"},
    {"Thief Gold", "TG", "The scan below cross references against a clean install version of Thief Gold"},
    {"Thief 2", "T2", "The scan below cross references against a Patched to 1.18 version of Thief 2"},
    {"Thief 3", "T3", "The scan below cross references against a Patched to 1.1 version of Thief 3"},
    {"The Dark Mod", "DMOD", ""},
    {"SS2", "SS2", "The scan below cross references against a Patched version of System Shock 2"},
    {"Custom Game", custom_diag_code, ""},
}};

/// Names that games go by here and that stand in no table.
struct Known_As {
    const char *name;
    const char *code;
};
constexpr std::array<Known_As, 3> other_names{{
    {"Thief 3 - Deadly Shadows", "T3"},
    {"DOOM", "DMOD"},
    {"Doom 3", "DMOD"},
}};

bool Is(const QString &text, const char *name) {
    return text.compare(QLatin1String(name), Qt::CaseInsensitive) == 0;
}

/// Windows' rules: what holds there holds everywhere.
QString Fit_name(const QString &name, qsizetype longest) {
    QString fit;
    for (const QChar letter : name) {
        const bool unfit = letter.unicode() < 0x20 || QStringView(u"\\/:*?\"<>|").contains(letter);
        fit += unfit ? QChar(u'_') : letter;
    }
    while (fit.toUtf8().size() > longest)
        fit.chop(1);
    if (!fit.isEmpty() && fit.back().isHighSurrogate())
        fit.chop(1);
    return fit;
}

QString Start_of(const QString &code) {
    return name_start + Fit_name(code, longest_code) + u'_';
}

bool Is_reference_name(const QString &name) {
    return name.startsWith(name_start, Qt::CaseInsensitive) &&
           name.endsWith(QLatin1String(reference_extension), Qt::CaseInsensitive);
}

/// Whether a tab of its own lists the file.
bool Belongs_to_a_tab(const QString &name) {
    return std::any_of(diag_games.begin(), diag_games.end(), [&name](const Diag_Game &game) {
        return name.startsWith(Start_of(game.code), Qt::CaseInsensitive);
    });
}

} // namespace

std::span<const Diag_Game> Diag_Games() {
    return diag_games;
}

QString Diag_intro(const QString &code) {
    for (const Diag_Game &game : diag_games)
        if (Is(code, game.code))
            return game.intro;
    return {};
}

QString Diag_folder(const Program &program, const QString &code) {
    if (Is(code, custom_diag_code))
        return program.custom_game_path;
    const QString folder = Game_Folder(program.ini, code);
    return folder.isEmpty() ? folder : Listing_root(code, folder);
}

QString Listing_code(const QString &game) {
    for (const Known_As &known : other_names)
        if (Is(game, known.name))
            return known.code;
    for (const Game &known : Games())
        if (Is(game, known.code) || Is(game, known.name) || Is(game, known.short_name))
            return known.code;
    for (const Diag_Game &known : diag_games)
        if (Is(game, known.caption))
            return known.code;
    return Fit_name(game, longest_code);
}

QString Listing_root(const QString &code, const QString &folder) {
    return Is(code, "T3") ? Without_system_folder(folder) : folder;
}

QString Dated_reference_name(const Program &program, const QString &code) {
    return Start_of(code) + program.clock.now().toString("yyyyMMdd_HHmmss") +
           QLatin1String(reference_extension);
}

QString Mission_reference_name(const QString &code, const QString &fm_name) {
    return Start_of(code) + Fit_name(fm_name, longest_fm_name) + QLatin1String(reference_extension);
}

QStringList Reference_names(const Program &program, const QString &code) {
    const QString start = Start_of(code);
    const bool takes_the_rest = Is(code, custom_diag_code);
    QStringList names;
    for (const File_Info &entry : program.files.list_folder(program.paths.references).value) {
        if (entry.is_folder || !Is_reference_name(entry.name))
            continue;
        if (entry.name.startsWith(start, Qt::CaseInsensitive) ||
            (takes_the_rest && !Belongs_to_a_tab(entry.name)))
            names << entry.name;
    }
    return names;
}

} // namespace vantrosk
