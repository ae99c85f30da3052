#include "library/Get_Info_Entries.h"
#include "library/fields/Readme_Fields.h"

#include <algorithm>

namespace vantrosk {

namespace {

constexpr qsizetype full_mark_length = 5; // "FULL" and the sign behind it

/// The map's folder less the part that the setting leaves out.
QString Mission_path(const QString &setting, QString directory) {
    if (setting.startsWith(QLatin1String("FULL"), Qt::CaseInsensitive)) {
        QString left_out = setting.mid(full_mark_length);
        left_out.replace(QLatin1Char('/'), QLatin1Char('\\'));
        if (!left_out.isEmpty())
            directory.remove(left_out, Qt::CaseInsensitive);
        while (directory.startsWith(QLatin1Char('\\')))
            directory.remove(0, 1);
    }
    return directory + "\\";
}

bool Is_mission(const Custom_Entries &custom, const Entry_View &entry) {
    return std::any_of(custom.extensions.begin(), custom.extensions.end(),
                       [&entry](const QString &extension) { return entry.upper.endsWith("." + extension); });
}

} // namespace

bool Take_custom_mission(Entry_Findings &found, const Entry_View &entry) {
    const Custom_Entries &custom = found.custom;
    if (!Is_mission(custom, entry))
        return false;
    found.has_custom_mission = true;
    found.mission_files << entry.name;
    found.active_game = custom.name;
    found.game_text = Custom_game_text(custom.name);
    if (custom.uses_map_folder)
        found.custom_mission_folder = entry.directory.toUpper();
    if (!custom.full_path.isEmpty())
        found.custom_mission_path = Mission_path(custom.full_path, entry.directory);
    return true;
}

bool Is_named_after_custom_zip(const Entry_Findings &found, const Entry_View &entry) {
    QString bare_name = found.upper_zip_name;
    bare_name.remove(QLatin1String(".ZIP")).remove(QLatin1Char('_')).remove(found.custom.name.toUpper());
    const QString stem = QString(entry.upper).remove(QLatin1String(".TXT"));
    return !stem.isEmpty() && bare_name.contains(stem);
}

} // namespace vantrosk
