#include "core/mdlFile_Functions.h"
#include "library/Scan.h"
#include "library/fields/Readme_Fields.h"
#include "readme/Rtf_Reader.h"
#include "readme/mdlHTML_stuff.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace vantrosk {

namespace {

constexpr qint64 readme_limit = qint64(8) << 20;   ///< bytes of one file
constexpr qint64 readmes_limit = qint64(64) << 20; ///< bytes of all files of one zip
constexpr qsizetype shortest_readme_line = 7;      ///< after trimming
constexpr std::array<const char *, 3> rtf_readmes{"README.RTF", "DOCUMENTATION.RTF", "FMINFO.RTF"};

/// Four ASCII characters as one number, capitals or not.
constexpr quint32 Ending(const char *at) {
    quint32 value = 0;
    for (int i = 0; i < 4; ++i)
        value = value << 8 | static_cast<unsigned char>(at[i] >= 'A' && at[i] <= 'Z' ? at[i] + 32 : at[i]);
    return value;
}

constexpr std::array<quint32, 8> looked_at{Ending(".RTF"), Ending(".TXT"), Ending(".MIS"), Ending(".IBT"),
                                           Ending(".CBT"), Ending(".PK4"), Ending(".INI"), Ending("VKML")};

/// One entry of a zip while it is classified.
struct Entry {
    int number;
    QString name;  ///< as stored
    QString upper; ///< the same in upper case
    QString stem;  ///< upper case, less the extension
};

/// Lists one zip: the first test that fits decides what is done with an entry.
class Zip_Lister {
public:
    Zip_Lister(Program &program, const Scan &scan, Zip_Record &zip)
        : program_(program), scan_(scan), zip_(zip) {}

    void take(const Entry &entry) {
        const QString extension = entry.upper.mid(entry.stem.size());
        if (extension == QLatin1String(".VKML"))
            return take_vkml(entry);
        if (extension == QLatin1String(".RTF") && take_rtf(entry))
            return;
        if (entry.upper == QLatin1String("DARKMOD.INI"))
            zip_.dark_mod_seen = true;
        else if (extension == QLatin1String(".TXT"))
            take_text(entry);
        else if (extension == QLatin1String(".MIS"))
            take_dark_mission(entry);
        else if (extension == QLatin1String(".IBT") || extension == QLatin1String(".CBT"))
            take_mission(entry, " Thief 3 mission file. FM is considered a Thief 3 FM");
        else if (extension == QLatin1String(".PK4"))
            take_pk4(entry);
        else if (scan_.is_custom())
            take_custom(entry);
        else
            take_strings(entry);
    }

private:
    void select(const Entry &entry) { zip_.selected.push_back({entry.number, entry.name}); }

    void log_found(const Entry &entry, const char *what) {
        Write_debug_log(program_, "found " + entry.upper + QLatin1String(what));
    }

    void take_vkml(const Entry &entry) {
        select(entry);
        zip_.vkml_readme = entry.upper;
        zip_.text_readme.clear();
        zip_.rtf_readme.clear();
    }

    /// False when a "README.RTF" is known already: then the later tests see the entry.
    bool take_rtf(const Entry &entry) {
        if (!zip_.vkml_readme.isEmpty())
            return true;
        if (zip_.rtf_readme == QLatin1String("README.RTF"))
            return false;
        select(entry);
        const bool named_so = std::any_of(rtf_readmes.begin(), rtf_readmes.end(), [&entry](const char *name) {
            return entry.upper == QLatin1String(name);
        });
        if (zip_.rtf_readme.isEmpty() || named_so || Is_zip_stem(zip_, entry.stem))
            zip_.rtf_readme = entry.upper;
        zip_.text_readme.clear();
        return true;
    }

    void take_text(const Entry &entry) {
        if (entry.upper == QLatin1String("DMARG.TXT"))
            zip_.dark_mod_seen = true;
        if (!zip_.vkml_readme.isEmpty() || !zip_.rtf_readme.isEmpty())
            return;
        if (!zip_.text_readme.isEmpty() && !replaces_text_readme(entry))
            return;
        zip_.text_readme = entry.upper;
        select(entry);
    }

    bool replaces_text_readme(const Entry &entry) const {
        if (zip_.text_readme == QLatin1String("README.TXT"))
            return false;
        if (entry.upper == QLatin1String("README.TXT") || entry.upper == QLatin1String("MISSION-INFO.TXT"))
            return true;
        if (Is_zip_stem(zip_, entry.stem) || entry.upper.contains(QLatin1String("README")) ||
            entry.upper.contains(QLatin1String("OVERVIEW")))
            return true;
        if (!scan_.is_custom())
            return false;
        QString bare_zip_name = zip_.upper_zip_name;
        bare_zip_name.remove(u'_').remove(scan_.list_name.toUpper());
        return bare_zip_name.contains(entry.stem);
    }

    void gain_mission(const Entry &entry) {
        if (zip_.mission_files == QLatin1String("na"))
            zip_.mission_files.clear();
        zip_.mission_files += entry.upper + ",";
    }

    void take_mission(const Entry &entry, const char *what) {
        gain_mission(entry);
        log_found(entry, what);
    }

    void take_dark_mission(const Entry &entry) {
        take_mission(entry, " thief 1/G/2/SS2/T2X/DM mission file. FM is considered a dark engine FM");
        if (entry.upper.startsWith(QLatin1String("MISS")))
            zip_.has_miss_file = true;
    }

    void take_pk4(const Entry &entry) {
        if (entry.upper == QLatin1String("DARKMOD.PK4"))
            zip_.dark_mod_seen = true;
        zip_.pk4_files += entry.upper + ",";
        log_found(entry, " Dark Mod or Doom 3 misson file. FM is considered a Doom 3 or The Dark Mod FM");
    }

    void take_strings(const Entry &entry) {
        if (entry.upper == QLatin1String("MISSFLAG.STR"))
            zip_.missflag_selected = true;
        else if (entry.upper == QLatin1String("TITLES.STR"))
            zip_.titles_selected = true;
        else
            return;
        select(entry);
    }

    void take_custom(const Entry &entry) {
        for (const QString &extension : scan_.custom_extensions) {
            if (!entry.upper.endsWith("." + extension))
                continue;
            if (lies_in_mission_folder(entry)) {
                take_mission(entry, " Custom game Mission File");
                continue;
            }
            program_.scan.not_structured << zip_.zip_name;
            Write_debug_log(program_, " Custom game Mission File - however it is not located in the right "
                                      "place in the zip");
        }
    }

    bool lies_in_mission_folder(const Entry &entry) const {
        const QString &setting = scan_.custom_mission_folder;
        if (setting.isEmpty())
            return true;
        const QString directory = zip_.unzip->FileDirectory(entry.number);
        if (setting == QLatin1String("\\"))
            return !directory.isEmpty();
        if (QString(directory + "\\").compare(setting, Qt::CaseInsensitive) == 0)
            return true;
        if (!setting.startsWith(QLatin1String("REGEX:"), Qt::CaseInsensitive))
            return false;
        const QRegularExpression expression(setting.mid(6));
        return expression.isValid() && expression.match(directory + "\\").hasMatch();
    }

    Program &program_;
    const Scan &scan_;
    Zip_Record &zip_;
};

Entry Entry_of(const cUnzip &unzip, int number) {
    Entry entry{number, unzip.Filename(number), {}, {}};
    entry.upper = entry.name.toUpper();
    const qsizetype dot = entry.upper.lastIndexOf(u'.');
    entry.stem = dot < 0 ? entry.upper : entry.upper.left(dot);
    return entry;
}

bool Is_text(QByteArrayView text, const char *upper) {
    return QLatin1String(text.data(), text.size()).compare(QLatin1String(upper), Qt::CaseInsensitive) == 0;
}

/// Whether some test looks at a file of this stored name. Most entries of a mission are resources, and a
/// library holds a million of them: nothing is copied here. Every ending that matters is ASCII.
bool Is_of_interest(const Scan &scan, QByteArrayView name) {
    if (scan.is_custom())
        return true;
    if (name.size() < 4)
        return false;
    const quint32 ending = Ending(name.data() + name.size() - 4);
    if (ending == Ending(".STR"))
        return Is_text(name, "TITLES.STR") || Is_text(name, "MISSFLAG.STR");
    return std::find(looked_at.begin(), looked_at.end(), ending) != looked_at.end();
}

/// What stands in INFO after the selected entries were extracted flat: of two names that differ at most by
/// case the later content under the first spelling, in the order of the names.
std::vector<Selected_Entry> Extracted_files(const std::vector<Selected_Entry> &selected) {
    std::vector<Selected_Entry> files;
    QHash<QString, std::size_t> place_of_name;
    for (const Selected_Entry &entry : selected) {
        const auto place = place_of_name.constFind(entry.name.toLower());
        if (place != place_of_name.constEnd()) {
            files[*place].number = entry.number;
            continue;
        }
        place_of_name.insert(entry.name.toLower(), files.size());
        files.push_back(entry);
    }
    std::sort(files.begin(), files.end(),
              [](const Selected_Entry &a, const Selected_Entry &b) { return a.name < b.name; });
    return files;
}

bool All_known(const Zip_Record &zip) {
    return !zip.name.isEmpty() && !zip.author.isEmpty() && !zip.game.isEmpty();
}

void Take_text_line(Zip_Record &zip, const QString &line) {
    if (zip.name.isEmpty())
        zip.name = Title_of_line(line);
    if (zip.author.isEmpty())
        zip.author = Author_of_line(line);
    if (zip.game.isEmpty())
        zip.game = Game_of_line(line);
}

QString Without_structure_tags(const QString &line) {
    QString text = line.trimmed();
    for (const char *tag : {"[VKFMSTRUCTURE]", "[/VKFMSTRUCTURE][VKNL]", "[/VKFMSTRUCTURE]", "[VKNL]"})
        text = text.remove(QLatin1String(tag), Qt::CaseInsensitive).trimmed();
    return text;
}

void Take_vkml_line(Zip_Record &zip, const QString &line) {
    if (zip.name.isEmpty())
        zip.name = Vkml_title_of_line(line);
    if (zip.author.isEmpty())
        zip.author = Vkml_author_of_line(line);
    if (zip.game.isEmpty())
        zip.game = Game_of_line(Without_structure_tags(line));
}

void Take_lines(Zip_Record &zip, const QString &text, void (*take_line)(Zip_Record &, const QString &)) {
    Line_Reader lines(text);
    for (QString line; !All_known(zip) && lines.next(line);) {
        if (line.trimmed().size() >= shortest_readme_line)
            take_line(zip, line);
    }
}

/// At most `readme_limit` bytes of an entry; none when it can not be read.
QByteArray Read_entry_start(Program &program, const Zip_Record &zip, int number) {
    const Result<QByteArray> content = zip.unzip->Read_entry(number, readme_limit);
    if (!content.ok())
        debug_print(program, "MAIN FORM: " + zip.zip_name + " can not be read: " + content.fault.text);
    return content.ok() ? content.value : QByteArray();
}

void Read_vkml_readme(Program &program, Zip_Record &zip) {
    for (const Selected_Entry &file : zip.extracted) {
        if (file.name.compare(zip.vkml_readme, Qt::CaseInsensitive) == 0)
            Take_lines(zip, Read_entry_text(program, zip, file.number), Take_vkml_line);
    }
}

void Read_rtf_readme(Program &program, Zip_Record &zip) {
    for (const Selected_Entry &file : zip.extracted) {
        if (file.name.compare(zip.rtf_readme, Qt::CaseInsensitive) != 0)
            continue;
        const QString text = Text_of_rtf(Read_entry_start(program, zip, file.number));
        Write_RTF_Text(program, text, program.paths.temp);
        Take_lines(zip, text, Take_text_line);
        if (!zip.name.isEmpty())
            return;
    }
}

void Read_text_readmes(Program &program, Zip_Record &zip) {
    qint64 bytes_read = 0;
    for (const Selected_Entry &file : zip.extracted) {
        if (All_known(zip))
            return;
        if (!file.name.endsWith(QLatin1String(".TXT"), Qt::CaseInsensitive))
            continue;
        bytes_read += std::min(zip.unzip->FileSize(file.number), readme_limit);
        if (bytes_read > readmes_limit) {
            debug_print(program, "MAIN FORM: too many readmes in " + zip.zip_name);
            return;
        }
        Take_lines(zip, Read_entry_text(program, zip, file.number), Take_text_line);
    }
}

void Report_no_readme(Program &program, const Zip_Record &zip) {
    if (!zip.mission_files.isEmpty()) {
        Write_debug_log(program, "WARNING misson file found but game not known");
        return;
    }
    Write_debug_log(program, "WARNING no readme or misson file found");
    program.scan.undetermined << zip.zip_name;
}

} // namespace

bool Is_zip_stem(const Zip_Record &zip, const QString &stem) {
    return zip.upper_zip_name == stem + ".ZIP" || zip.upper_zip_name == stem + ".SS2MOD";
}

void List_zip(Program &program, const Scan &scan, Zip_Record &zip, const QString &folder) {
    // What a broken archive does to the reader must not take the name of the culprit along.
    Flush_debug_log(program);
    zip.unzip = std::make_unique<cUnzip>(program.files);
    zip.unzip->ZipFile = folder + zip.zip_name;
    zip.unzip->UnzipFolder = program.paths.info;
    if (const Fault fault = zip.unzip->Directory())
        debug_print(program, "MAIN FORM: " + zip.zip_name + " can not be listed: " + fault.text);
    Zip_Lister lister(program, scan, zip);
    for (int i = 1; i <= zip.unzip->FileCount(); ++i) {
        if (!Is_of_interest(scan, zip.unzip->StoredFilename(i)))
            continue;
        const Entry entry = Entry_of(*zip.unzip, i);
        if (!zip.unzip->FileIsSafe(i)) {
            debug_print(program, "MAIN FORM: passed over " + entry.name + " in " + zip.zip_name);
            continue;
        }
        lister.take(entry);
    }
}

QString Read_entry_text(Program &program, const Zip_Record &zip, int number) {
    QByteArray content = Read_entry_start(program, zip, number);
    // The bound may have cut a character in two.
    if (content.size() >= readme_limit)
        content.truncate(content.lastIndexOf('\n') + 1);
    return Decode_text(content);
}

void Read_readme(Program &program, Zip_Record &zip) {
    if (!zip.has_readme())
        return Report_no_readme(program, zip);
    const QString readme = zip.vkml_readme + zip.rtf_readme + zip.text_readme;
    Write_debug_log(program, "Extracting " + readme + " readme file to scan");
    zip.extracted = Extracted_files(zip.selected);
    if (!zip.vkml_readme.isEmpty())
        Read_vkml_readme(program, zip);
    else if (!zip.rtf_readme.isEmpty())
        Read_rtf_readme(program, zip);
    else
        Read_text_readmes(program, zip);
}

} // namespace vantrosk
