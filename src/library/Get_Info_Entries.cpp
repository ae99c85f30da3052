#include "library/Get_Info_Entries.h"

#include "core/Games.h"

#include <QRegularExpression>

#include <algorithm>
#include <span>

namespace vantrosk {

namespace {

struct Language_Folder {
    const char *folder;
    const char *language;
};

constexpr std::array<Language_Folder, 7> language_folders{{
    {"\\ENGLISH", "English"},
    {"\\FRENCH", "French"},
    {"\\GERMAN", "German"},
    {"\\SPANISH", "Spanish"},
    {"\\ITALIAN", "Italian"},
    {"\\POLISH", "Polish"},
    {"\\RUSSIAN", "Russian"},
}};

/// What is done about an entry that fits; true when it is to be extracted.
using Entry_Rule = bool (*)(Entry_Findings &, const Entry_View &);

enum class Fits { ends, is };

struct Entry_Row {
    Fits how;
    std::array<const char *, 6> texts; ///< upper case; unused places are null
    Entry_Rule rule;
};

bool Is_dark_mod_list(const Entry_Findings &found) {
    return found.key == QLatin1String("DMOD");
}

bool In_folder(const Entry_View &entry, const char *part) {
    return entry.folder.contains(QLatin1String(part));
}

bool Nothing(Entry_Findings &, const Entry_View &) {
    return false;
}

bool Select_it(Entry_Findings &, const Entry_View &) {
    return true;
}

template<Feature feature>
bool Has_feature(Entry_Findings &found, const Entry_View &) {
    found.features[feature] = true;
    return false;
}

bool Is_text(Entry_Findings &found, const Entry_View &entry) {
    for (const char *mark : {"DMARGS.TXT", "DARKMOD.TXT", "STARTINGMAP.TXT"}) {
        if (Is_dark_mod_list(found) && entry.upper == QLatin1String(mark))
            found.marked_dark_mod = true;
    }
    return Consider_text_readme(found, entry);
}

bool Is_vkml(Entry_Findings &found, const Entry_View &entry) {
    found.vkml_readme = entry.name;
    found.text_readme.clear();
    found.rtf_readme.clear();
    found.chosen["readme"] = entry.number;
    return true;
}

bool Is_mission(Entry_Findings &found, const Entry_View &entry) {
    found.mission_files << entry.name;
    return false;
}

bool Is_thief3_mission(Entry_Findings &found, const Entry_View &entry) {
    found.mission_files << entry.name;
    found.active_game = "T3";
    found.game_text = Game_Text(found.active_game);
    return false;
}

bool Is_doom_mission(Entry_Findings &found, const Entry_View &entry) {
    found.mission_files << entry.name;
    found.mission_folder = entry.directory;
    found.active_game = "DOOM";
    found.game_text = Game_Text(found.active_game);
    if (Is_dark_mod_list(found) && entry.upper == QLatin1String("DARKMOD.PK4"))
        found.marked_dark_mod = true;
    return false;
}

bool Is_dark_mod_ini(Entry_Findings &found, const Entry_View &) {
    if (Is_dark_mod_list(found))
        found.marked_dark_mod = true;
    return false;
}

bool Is_title_image(Entry_Findings &found, const Entry_View &entry) {
    found.title_image = entry.name;
    found.chosen["title"] = entry.number;
    return true;
}

bool Is_background_image(Entry_Findings &found, const Entry_View &entry) {
    found.background_image = entry.name;
    found.chosen["background"] = entry.number;
    return true;
}

bool Is_map_page(const Entry_View &entry) {
    return entry.upper == QLatin1String("PAGE000.PCX") || entry.upper == QLatin1String("PAGE001.PCX");
}

void Take_main_frame(Entry_Findings &found, const Entry_View &entry) {
    static const QRegularExpression numbered(QStringLiteral(R"(^MAIN_(\d{1,4})\.PCX$)"));
    const auto match = numbered.match(entry.upper);
    if (!match.hasMatch())
        return;
    found.main_frames[match.captured(1).toInt()] = entry.name;
    if (entry.upper != QLatin1String("MAIN_1.PCX"))
        return;
    found.main_picture = entry.name;
    found.chosen["menu picture"] = entry.number;
}

/// Pictures that the game's own menus use: worth showing, if the user lets the program take them.
bool Is_menu_picture(Entry_Findings &found, const Entry_View &entry) {
    if (!found.use_zip_resources || !In_folder(entry, "INTRFACE"))
        return false;
    if (entry.upper.startsWith(QLatin1String("MAIN_"))) {
        Take_main_frame(found, entry);
        return true;
    }
    if (entry.upper == QLatin1String("MAIN.PCX"))
        return Is_background_image(found, entry);
    if (!Is_map_page(entry))
        return false;
    if (found.map_name.isEmpty()) {
        found.map_name = entry.name;
        found.map_folder = entry.directory;
        found.chosen["map"] = entry.number;
    }
    return true;
}

bool Is_picture(Entry_Findings &found, const Entry_View &entry) {
    found.features[new_graphics] = true;
    if (In_folder(entry, "INTRFACE\\MISS"))
        found.features[miss_graphics] = true;
    if (In_folder(entry, "\\VKIMAGES")) {
        found.readme_images.push_back(entry.number);
        return true;
    }
    return Is_menu_picture(found, entry);
}

bool Is_picture_256(Entry_Findings &found, const Entry_View &entry) {
    return found.use_zip_resources && Is_background_image(found, entry);
}

bool Is_object(Entry_Findings &found, const Entry_View &entry) {
    found.features[new_objects] = true;
    if (In_folder(entry, "INTRFACE\\MISS"))
        found.features[automap] = true;
    return false;
}

bool Is_loot_list(Entry_Findings &found, const Entry_View &entry) {
    found.loot_list_folder = entry.directory;
    found.loot_list_name = entry.name;
    found.chosen["loot list"] = entry.number;
    return true;
}

bool Is_titles_str(Entry_Findings &found, const Entry_View &entry) {
    found.has_titles_str = true;
    found.chosen["titles.str"] = entry.number;
    return true;
}

bool Is_competition(Entry_Findings &found, const Entry_View &entry) {
    found.has_competition = true;
    found.chosen["competition"] = entry.number;
    return true;
}

// The first row that fits decides: readmes, then missions, then all else.
constexpr auto readme_rows = std::to_array<Entry_Row>({
    {Fits::ends, {".RTF"}, Consider_rtf_readme},
    {Fits::ends, {".TXT"}, Is_text},
    {Fits::ends, {".HTM", ".HTML"}, Nothing},
    {Fits::ends, {".VKML"}, Is_vkml},
});
constexpr auto mission_rows = std::to_array<Entry_Row>({
    {Fits::ends, {".MIS"}, Is_mission},
    {Fits::ends, {".IBT", ".CBT"}, Is_thief3_mission},
    {Fits::ends, {".PK4"}, Is_doom_mission},
    {Fits::is, {"DARKMOD.INI"}, Is_dark_mod_ini},
});
constexpr auto content_rows = std::to_array<Entry_Row>({
    {Fits::is, {"VKTITLE.JPG", "VK TITLE.JPG", "VKTITLE.GIF", "VK TITLE.GIF"}, Is_title_image},
    {Fits::is,
     {"VKBACKGROUND.JPG", "VK BACKGROUND.JPG", "VKBACKGROUND.GIF", "VK BACKGROUND.GIF"},
     Is_background_image},
    {Fits::ends, {".EXE", ".DLL", ".COM", ".BAT"}, Nothing},
    {Fits::ends, {".JPG", ".GIF", ".PCX", ".TGA", ".DDS", ".MLB"}, Is_picture},
    {Fits::ends, {".256"}, Is_picture_256},
    {Fits::ends, {".BIN", ".TIM"}, Is_object},
    {Fits::ends, {".WAV", ".MP3", ".OGG", ".CSC"}, Has_feature<new_sounds>},
    {Fits::ends, {".GAM"}, Has_feature<gamesys>},
    {Fits::is, {"T3GAMESYS.T3U"}, Has_feature<gamesys>},
    {Fits::ends, {".AVI", ".MPG", ".BIK"}, Has_feature<videos>},
    {Fits::ends, {".OSM", ".TSD"}, Has_feature<scripts>},
    {Fits::ends, {".VKL"}, Is_loot_list},
    {Fits::is, {"TITLES.STR"}, Is_titles_str},
    {Fits::ends, {".OSL", ".DLX"}, Select_it},
    {Fits::is, {"VKCOMPETITION.VKCR"}, Is_competition},
});

bool Fits_row(const Entry_Row &row, const QString &upper) {
    for (const char *text : row.texts) {
        if (!text)
            return false;
        if (row.how == Fits::is ? upper == QLatin1String(text) : upper.endsWith(QLatin1String(text)))
            return true;
    }
    return false;
}

/// True when a row fits.
bool Apply_rows(std::span<const Entry_Row> rows, Entry_Findings &found, const Entry_View &entry) {
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [&](const Entry_Row &one) { return Fits_row(one, entry.upper); });
    if (row == rows.end())
        return false;
    if (row->rule(found, entry))
        found.selected.push_back(entry.number);
    return true;
}

void Take_language(Entry_Findings &found, const Entry_View &entry) {
    for (size_t i = 0; i < language_folders.size(); ++i) {
        if (entry.folder.endsWith(QLatin1String(language_folders[i].folder)))
            found.languages[i] = QLatin1String(language_folders[i].language);
    }
}

} // namespace

std::set<int> Entry_Findings::chosen_entries() const {
    std::set<int> numbers;
    for (const auto &[part, number] : chosen)
        numbers.insert(number);
    return numbers;
}

bool Entry_Findings::has_thief3_mission() const {
    for (const QString &mission : mission_files) {
        if (mission.endsWith(QLatin1String(".IBT"), Qt::CaseInsensitive) ||
            mission.endsWith(QLatin1String(".CBT"), Qt::CaseInsensitive))
            return true;
    }
    return false;
}

void Classify_Entry(Entry_Findings &found, int number, const QString &name, const QString &directory) {
    const Entry_View entry{number, name, name.toUpper(), directory, "\\" + directory.toUpper()};
    Take_language(found, entry);
    if (Apply_rows(readme_rows, found, entry))
        return;
    // A custom game's own missions come before those that other games have under the same extension.
    if (found.is_custom() && Take_custom_mission(found, entry))
        return;
    if (!Apply_rows(mission_rows, found, entry) && !found.is_custom())
        Apply_rows(content_rows, found, entry);
}

void Keep_one_of_each_name(Entry_Findings &found, const std::vector<QString> &names) {
    const std::set<int> images(found.readme_images.begin(), found.readme_images.end());
    const std::set<int> chosen = found.chosen_entries();
    std::map<QString, int> of_name;
    for (size_t i = 0; i < found.selected.size(); ++i) {
        const int number = found.selected[i];
        int &kept = of_name[(images.count(number) > 0 ? "VKIMAGES\\" : "") + names[i].toUpper()];
        if (chosen.count(kept) == 0)
            kept = number;
    }
    std::set<int> kept_entries;
    for (const auto &[name, number] : of_name)
        kept_entries.insert(number);
    const auto is_double = [&](int number) {
        return kept_entries.count(number) == 0;
    };
    std::erase_if(found.selected, is_double);
    std::erase_if(found.readme_images, is_double);
}

} // namespace vantrosk
