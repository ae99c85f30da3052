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

/// What the entries of the selected zip tell. The first three are given, the rest is found.
struct Entry_Findings {
    QString key;            ///< code of the list
    QString upper_zip_name; ///< "MISSION.ZIP"
    bool use_zip_resources = false;

    std::array<QString, 7> languages;
    std::array<bool, feature_count> features{};
    QString text_readme, rtf_readme, vkml_readme; ///< names as in the zip; at most one of the three is set
    QStringList mission_files;
    QString mission_folder; ///< folder of the last ".PK4"
    QString game_text, active_game;
    bool marked_dark_mod = false;
    QString title_image, main_picture, background_image; ///< names as in the zip
    std::map<int, QString> main_frames;                  ///< "MAIN_<number>.PCX" by number
    QString map_folder, map_name;                        ///< the first map picture
    bool has_titles_str = false, has_competition = false;
    QString loot_list_folder, loot_list_name;

    std::vector<int> selected;      ///< numbers of the entries to extract
    std::vector<int> readme_images; ///< those of them that go to the readme's picture folder
    std::map<QString, int> chosen;  ///< which entry is the "readme", the "title" and so on

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

} // namespace vantrosk
