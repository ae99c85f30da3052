#include "library/Titles_Str.h"

#include <array>

namespace vantrosk {

namespace {

struct Marker_Title {
    const char *title;
    const char *game;
};

constexpr std::array<Marker_Title, 6> marker_titles{{
    {"Running Interference", "T2"},
    {"Ambush!", "T2"},
    {"Song of the Caverns", "TG"},
    {"The Mage Towers", "TG"},
    {"Keeper's training", "T1"},
    {"Lord Bafford's Manor", "T1"},
}};

constexpr std::array<const char *, 12> mission_labels{{
    "title_17:",
    "title_18:",
    "title_19:",
    "title_20:",
    "title_21:",
    "title_22:",
    "title_23:",
    "title_24:",
    "title_25:",
    "title_26:",
    "title_27:",
    "title_34:",
}};

QString Game_of_title(const QString &line) {
    for (const Marker_Title &marker : marker_titles) {
        if (line.contains(QLatin1String(marker.title), Qt::CaseInsensitive))
            return QLatin1String(marker.game);
    }
    return {};
}

bool Is_mission_label(const QString &line) {
    for (const char *label : mission_labels) {
        if (line.startsWith(QLatin1String(label)))
            return true;
    }
    return false;
}

} // namespace

Titles_Find Game_of_titles_str(const QStringList &lines, bool wants_name) {
    Titles_Find found;
    QString previous;
    for (const QString &line : lines) {
        const QString game = Game_of_title(line);
        if (!game.isEmpty())
            found.game = game;
        if (line.trimmed().isEmpty() && found.name.isEmpty() && previous.contains(QLatin1Char('"')))
            found.name = previous.section(QLatin1Char('"'), 1).remove(QLatin1Char('"'));
        if (!found.game.isEmpty() && (!wants_name || !found.name.isEmpty()))
            break;
        previous = line;
    }
    if (!wants_name)
        found.name.clear();
    return found;
}

QString Name_of_titles_str(const QStringList &lines) {
    for (const QString &line : lines) {
        if (!Is_mission_label(line))
            continue;
        const QString name = line.mid(9).remove(QLatin1Char('"')).trimmed();
        if (!name.isEmpty())
            return name;
    }
    return {};
}

} // namespace vantrosk
