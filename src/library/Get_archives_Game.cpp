#include "core/Games.h"
#include "core/mdlFile_Functions.h"
#include "library/Scan.h"
#include "library/Titles_Str.h"
#include "library/fields/Readme_Fields.h"

#include <array>

namespace vantrosk {

namespace {

/// Missions whose readme tells too little, by the name that their zip goes by.
struct Known_Zip {
    const char *zip;
    bool part_of_name; ///< else the whole name
    const char *game;
    const char16_t *name;   ///< null: unchanged
    const char *other_name; ///< a mission of this name is the same one; null for none
};

constexpr const char *known_zip_author = "Unknown Author";

constexpr std::array<Known_Zip, 23> known_zips{{
    {"AWAKEN!.ZIP", true, "T1", u"Awaken!", nullptr},
    {"BRAINCHILD.ZIP", true, "T1", u"Thief: Brainchild", nullptr},
    {"KILL3.ZIP", false, "T1", u"The Killing Time(DEMO Ver3)", nullptr},
    {"KOOBZE.ZIP", true, "T1", nullptr, nullptr},
    {"LAFRE.ZIP", false, "T1", nullptr, nullptr},
    {"TREACHERY.ZIP", false, "T1", u"Treachery", nullptr},
    {"AMIDA_B.ZIP", false, "TG", u"AMIDA", nullptr},
    {"F.ZIP", false, "TG", u"F", nullptr},
    {"3MAGESTOMB.ZIP", false, "T2", nullptr, nullptr},
    {"ACK_V10.ZIP", false, "T2", u"Ack! There 's a zombie in the basement", nullptr},
    {"ATHIEFSHOLIDAY2004_V2_2.ZIP", false, "T2", u"A Thief's Holiday 2004", nullptr},
    {"CALENDRAS_LEGACY_V1A.ZIP", false, "T2", u"Calendra\u2019s Legacy", nullptr},
    {"COTD_V060.ZIP", false, "T2", u"Cathedral of the Damned", nullptr},
    {"HEISTSOCIETY_V10.ZIP", false, "T2", nullptr, "Heist Society"},
    {"LANNIVERSAIREDEJOELLE.ZIP", false, "T2", u"L'Anniversaire de Joelle", nullptr},
    {"LUCRATIVEOP.ZIP", false, "T2", u"Lucrative Opportunity", nullptr},
    {"MCRM1.ZIP", false, "T2", u"McLeod's Revenge", nullptr},
    {"MOTHTOAFLAME.ZIP", false, "T2", u"Moth to a Flame", nullptr},
    {"ROSARIES.ZIP", false, "T2", nullptr, nullptr},
    {"SHININGSTDS.ZIP", false, "T2", nullptr, "Shining Standards"},
    {"SLUGGSFAN.ZIP", false, "T2", nullptr, nullptr},
    {"SPOOFBHT.ZIP", false, "T2", nullptr, nullptr},
    {"UNE_MERVEILLEUSE_RECEPTION.ZIP", false, "T2", u"A wonderful reception", nullptr},
}};

bool Is_named_like_zip(const Zip_Record &zip) {
    return zip.name.trimmed().compare(zip.zip_name, Qt::CaseInsensitive) == 0;
}

bool Has_own_name(const Zip_Record &zip) {
    return !zip.name.trimmed().isEmpty() && !Is_named_like_zip(zip);
}

/// The original missions whose titles a mission's "titles.str" still carries tell the game it was built on.
void Test_titles(Program &program, Zip_Record &zip) {
    const Selected_Entry *titles = nullptr;
    for (const Selected_Entry &file : zip.extracted) {
        if (file.name.compare(QLatin1String("TITLES.STR"), Qt::CaseInsensitive) == 0)
            titles = &file;
    }
    if (!titles)
        return;
    const QStringList lines = Split_lines(Read_entry_text(program, zip, titles->number));
    const Titles_Find found = Game_of_titles_str(lines, !Has_own_name(zip));
    if (!found.name.isEmpty())
        zip.name = found.name;
    if (const Game *game = Find_Game(found.game)) {
        zip.game = found.game;
        zip.game_note = "Game details not found in Readme, Titles.str file for " + QString(game->short_name);
    }
}

bool Take_known_zip(Zip_Record &zip) {
    for (const Known_Zip &known : known_zips) {
        const QLatin1String name(known.zip);
        const bool fits = known.part_of_name ? zip.upper_zip_name.contains(name) : zip.upper_zip_name == name;
        const bool named_so = known.other_name && zip.name == QLatin1String(known.other_name);
        if (!fits && !named_so)
            continue;
        zip.game = QLatin1String(known.game);
        if (known.name) {
            zip.name = QString::fromUtf16(known.name);
            zip.author = QLatin1String(known_zip_author);
        }
        return true;
    }
    return false;
}

QString Dark_engine_game(Zip_Record &zip) {
    if (!zip.missflag_selected)
        return "SS2";
    zip.has_miss_file = false;
    return "T1";
}

void Decide_custom_game(const Scan &scan, Zip_Record &zip) {
    for (const QString &extension : scan.custom_extensions) {
        if (zip.mission_files.toUpper().contains("." + extension)) {
            zip.game = scan.list_name;
            return;
        }
    }
}

/// The game of a mission whose readme gives none; the first hit wins.
void Decide_without_readme(Program &program, const Scan &scan, Zip_Record &zip) {
    if (zip.has_miss_file && !zip.titles_selected) {
        zip.game = Dark_engine_game(zip);
        return;
    }
    if (zip.dark_mod_seen) {
        zip.game = Is_named_like_zip(zip) ? "DOOM" : "DMOD";
        return;
    }
    if (!zip.pk4_files.isEmpty()) {
        zip.game = "DOOM";
        return;
    }
    if (scan.is_custom())
        return Decide_custom_game(scan, zip);
    if (zip.mission_files.contains(QLatin1String(".IBT")) ||
        zip.mission_files.contains(QLatin1String(".CBT"))) {
        zip.game = "T3";
        return;
    }
    if (!Take_known_zip(zip) && zip.titles_selected)
        Test_titles(program, zip);
}

/// Short texts are codes already, and so is the name of the list's own custom game.
void Map_readme_game(const Scan &scan, Zip_Record &zip) {
    constexpr qsizetype longest_code = 4;
    const bool is_code = zip.game.size() <= longest_code;
    zip.game = zip.game.trimmed();
    if (scan.is_custom() && zip.game.compare(scan.list_name, Qt::CaseInsensitive) == 0) {
        zip.game = scan.list_name;
        return;
    }
    zip.game = is_code ? zip.game.toUpper() : Map_game_words(zip.game);
}

void Name_after_zip_if_nameless(Zip_Record &zip) {
    if (zip.name.trimmed().isEmpty())
        zip.name = zip.zip_name;
}

} // namespace

bool Decide_game(Program &program, const Scan &scan, Zip_Record &zip) {
    const std::size_t grid_row = program.screen.list.rows.size() + 1;
    Write_debug_log(program, "Tidy up flexgrid row " + QString::number(grid_row));
    zip.author = zip.author.trimmed().remove(u'\t');
    if (zip.author.startsWith(u':'))
        zip.author = zip.author.mid(1).trimmed();
    if (!zip.name.trimmed().isEmpty())
        zip.name = Tidy_name(zip.name, program.tweaks.THE_SWAP);
    Name_after_zip_if_nameless(zip);
    if (!zip.has_missions())
        return false;
    Write_debug_log(program,
                    "mission file found so checking to see if it can be added to the flexgrid, game is "
                    "currently determined to be '" +
                        zip.game + "'");
    Map_readme_game(scan, zip);
    if (zip.game == QLatin1String("T1") && zip.titles_selected)
        Test_titles(program, zip);
    if (zip.game.isEmpty())
        Decide_without_readme(program, scan, zip);
    Name_after_zip_if_nameless(zip);
    Write_debug_log(program, "Game is NOW determined to be '" + zip.game + "', FM is '" + zip.name + "'");
    return true;
}

bool Is_suitable(const Scan &scan, const QString &game) {
    if (scan.is_custom() || game.isEmpty())
        return true;
    if (scan.key == QLatin1String("T1") || scan.key == QLatin1String("TG"))
        return game == QLatin1String("T1") || game == QLatin1String("TG");
    return game == scan.key || (game == QLatin1String("DOOM") && scan.key == QLatin1String("DMOD"));
}

} // namespace vantrosk
