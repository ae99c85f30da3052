#include "library/Get_Info_Entries.h"

namespace vantrosk {

namespace {

/// The zip's name in upper case less one of its extensions.
QString Zip_stem(const Entry_Findings &found, const char *extension) {
    return QString(found.upper_zip_name).remove(QLatin1String(extension));
}

bool Is_zip_name(const Entry_Findings &found, const QString &stem) {
    return stem == Zip_stem(found, ".ZIP") || stem == Zip_stem(found, ".SS2MOD");
}

/// An entry without a name before its extension says nothing about the zip.
bool Occurs_in_zip_name(const Entry_Findings &found, QString stem) {
    stem.remove(QLatin1Char('\''));
    return !stem.isEmpty() && Zip_stem(found, ".ZIP").remove(QLatin1Char('\'')).contains(stem);
}

/// These two stay whatever comes after them.
bool Is_settled(const Entry_Findings &found) {
    const QString current = found.text_readme.toUpper();
    return current == QLatin1String("README.TXT") || current == QLatin1String("INVERTED.TXT");
}

bool Replaces_text_readme(const Entry_Findings &found, const QString &upper) {
    if (Is_settled(found))
        return false;
    const QString current = found.text_readme.toUpper();
    const QLatin1String readme("README"), english("ENG");
    if (upper == QLatin1String("README.TXT") || upper == QLatin1String("MISSION-INFO.TXT"))
        return true;
    if (upper.contains(readme) && !current.contains(readme))
        return true;
    const QString stem = QString(upper).remove(QLatin1String(".TXT"));
    if (Is_zip_name(found, stem))
        return true;
    return Occurs_in_zip_name(found, stem) && (upper.contains(english) || !current.contains(english));
}

bool Replaces_rtf_readme(const Entry_Findings &found, const QString &upper) {
    if (found.rtf_readme.isEmpty())
        return true;
    if (found.rtf_readme.toUpper() == QLatin1String("README.RTF"))
        return false;
    if (upper == QLatin1String("README.RTF") || upper == QLatin1String("DOCUMENTATION.RTF"))
        return true;
    const QString stem = QString(upper).remove(QLatin1String(".RTF"));
    return Is_zip_name(found, stem) || (!stem.isEmpty() && Zip_stem(found, ".ZIP").contains(stem));
}

void Become_text_readme(Entry_Findings &found, const Entry_View &entry) {
    found.text_readme = entry.name;
    found.chosen["readme"] = entry.number;
}

/// The first candidate: where it lies decides whether it is one.
bool Consider_first_text(Entry_Findings &found, const Entry_View &entry) {
    if (entry.folder == QLatin1String("\\FAN MISSION EXTRAS"))
        return true;
    const bool at_root = entry.directory.isEmpty();
    if (!at_root && !found.is_custom() && entry.upper != QLatin1String("README.TXT"))
        return false;
    if (!at_root || entry.upper != QLatin1String("INVERTED.TXT"))
        Become_text_readme(found, entry);
    return true;
}

} // namespace

bool Consider_text_readme(Entry_Findings &found, const Entry_View &entry) {
    if (!found.vkml_readme.isEmpty() || !found.rtf_readme.isEmpty()) {
        found.text_readme.clear();
        return false;
    }
    if (found.text_readme.isEmpty())
        return Consider_first_text(found, entry);
    if (Replaces_text_readme(found, entry.upper))
        Become_text_readme(found, entry);
    else if (found.is_custom() && !Is_named_after_custom_zip(found, entry))
        return false;
    else if (found.is_custom() && !Is_settled(found))
        Become_text_readme(found, entry);
    return true;
}

bool Consider_rtf_readme(Entry_Findings &found, const Entry_View &entry) {
    found.text_readme.clear();
    if (found.vkml_readme.isEmpty() && Replaces_rtf_readme(found, entry.upper)) {
        found.rtf_readme = entry.name;
        found.chosen["readme"] = entry.number;
    }
    return true;
}

} // namespace vantrosk
