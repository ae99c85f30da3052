#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <map>
#include <set>
#include <vector>

namespace vantrosk {

/// The tests of one entry, on upper-case text.
struct Entry_View {
    int number = 0;    ///< in the zip, from 1
    QString name;      ///< last part, as stored
    QString upper;     ///< the same in upper case
    QString directory; ///< as stored, empty at the root
    QString folder;    ///< upper case with "\" in front: "\INTRFACE\MISS1"; "\" at the root
};

/// Places of the feature flags, in the order of the details panel.
enum Feature {
    new_graphics,
    new_objects,
    new_sounds,
    scripts,
    gamesys,
    miss_graphics,
    automap,
    videos,
    feature_count
};

/// What is given of the game of a custom list.
struct Custom_Entries {
    QString name;                 ///< as the user wrote it
    QStringList extensions;       ///< of its missions, upper case, without the dot
    bool uses_map_folder = false; ///< its missions go by the folder of their map
    QString full_path;            ///< not empty: by the map's path; "FULL" and a part to leave out
};

/// What the entries of the selected zip tell. The first four are given, the rest is found.
struct Entry_Findings {
    QString key;            ///< code of the list
    QString upper_zip_name; ///< "MISSION.ZIP"
    bool use_zip_resources = false;
    Custom_Entries custom;

    std::array<QString, 7> languages;
    std::array<bool, feature_count> features{};
    QString text_readme, rtf_readme, vkml_readme; ///< names as in the zip; at most one of the three is set
    QStringList mission_files;
    QString mission_folder; ///< folder of the last ".PK4"
    QString game_text, active_game;
    bool marked_dark_mod = false;
    bool has_custom_mission = false; ///< a mission of the custom game
    QString custom_mission_folder;   ///< of its map, upper case
    QString custom_mission_path;     ///< the same as the launch command wants it; ends in "\"
    QString title_image, main_picture, background_image; ///< names as in the zip
    std::map<int, QString> main_frames;                  ///< "MAIN_<number>.PCX" by number
    QString map_folder, map_name;                        ///< the first map picture
    bool has_titles_str = false, has_competition = false;
    QString loot_list_folder, loot_list_name;

    std::vector<int> selected;      ///< numbers of the entries to extract
    std::vector<int> readme_images; ///< those of them that go to the readme's picture folder
    std::map<QString, int> chosen;  ///< which entry is the "readme", the "title" and so on

    bool is_custom() const { return key == QLatin1String("CUSTOM"); }
    std::set<int> chosen_entries() const;
    bool has_thief3_mission() const; ///< an ".IBT" or ".CBT"
};

/// Looks at one entry: language of its folder, then the first test that fits its name.
void Classify_Entry(Entry_Findings &found, int number, const QString &name, const QString &directory);

/// Of several selected entries with one name, the one that the rules chose stays, else the last.
void Keep_one_of_each_name(Entry_Findings &found, const std::vector<QString> &names);

// Get_Info_Readmes.cpp
/// A ".TXT" or ".RTF": becomes the readme or does not, given those seen before it. True when it is extracted.
bool Consider_text_readme(Entry_Findings &found, const Entry_View &entry);
bool Consider_rtf_readme(Entry_Findings &found, const Entry_View &entry);

// Get_Info_Custom.cpp
/// A mission by one of the custom game's extensions; false for any other entry.
bool Take_custom_mission(Entry_Findings &found, const Entry_View &entry);
/// Whether a ".TXT" goes by the zip's name less "_" and the game's name.
bool Is_named_after_custom_zip(const Entry_Findings &found, const Entry_View &entry);

} // namespace vantrosk
