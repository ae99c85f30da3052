#pragma once

#include "core/Program.h"
#include "core/mdlErrorHandler.h"
#include "library/Get_archives.h"
#include "zip/mUnzip.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace vantrosk {

// The parts of `Get_archives`: what they share of one scan, and of one zip in it.

/// How often zips are opened: the tweak `SCAN_ZIPS`.
enum Scan_Mode { scan_always = 0, scan_without_record = 1, scan_never = 2 };

/// One folder of zips with what was found in it.
struct Zip_Folder {
    QString path; ///< ends in "\"
    std::vector<File_Info> files;
};

/// One run of `Get_archives`.
struct Scan {
    QString key;       ///< of the list
    QString list_name; ///< the key, or the name of the custom game: what records of this list have as game
    QString partner;   ///< the second game whose records the list takes; empty for none
    int filter = 0;
    int custom_image = 0;
    QString custom_mission_folder;
    QStringList custom_extensions; ///< upper case
    QString saves_folder;          ///< ends in "\"; empty when it is not known

    std::vector<Zip_Folder> folders;
    QStringList unread_folders; ///< one sentence for each folder that could not be walked
    Recordset records;
    QHash<QString, int> record_of_zip; ///< by lower-case zip name, the first of each name

    int files_total = 0;
    int files_seen = 0;
    int last_percent = -1;
    qint64 last_pump = 0; ///< ticks

    int installed_marker = 0; ///< 0 none, 1 an installed record was met, 2 its row was written
    QString installed_zip;
    QString installed_caption;
    bool is_adding = false;                      ///< records were added that are not yet kept
    QSet<QString> added;                         ///< lower-case zip name and game of those records
    std::optional<Program_Error> insert_failure; ///< the first one; after it no more records are added

    bool is_custom() const { return key == QLatin1String("CUSTOM"); }
};

/// A file of the zip that would be extracted for a look at it.
struct Selected_Entry {
    int number = 0;
    QString name; ///< as stored
};

/// What is found out about one zip.
struct Zip_Record {
    QString zip_name;       ///< as on disk
    QString upper_zip_name; ///< the same in upper case
    qint64 size = 0;        ///< bytes
    QString name, author, game;
    QString text_readme, rtf_readme, vkml_readme; ///< upper case
    QString mission_files;                        ///< each with "," behind it; "na" when read from a record
    QString pk4_files;
    bool has_miss_file = false;
    bool dark_mod_seen = false;
    bool titles_selected = false;
    bool missflag_selected = false;
    bool record_found = false;
    bool skip_scan = false;
    QString zip_date;    ///< "YYYYMMDD"
    QString last_played; ///< "YYYYMMDD"
    QString score, average_score, review, finished, category, keywords;
    QString game_note; ///< what `titles.str` told

    std::unique_ptr<cUnzip> unzip; ///< only while the zip is open
    std::vector<Selected_Entry> selected;
    std::vector<Selected_Entry> extracted; ///< the files that stand in INFO once the readme is looked at

    bool has_readme() const {
        return !text_readme.isEmpty() || !rtf_readme.isEmpty() || !vkml_readme.isEmpty();
    }
    bool has_missions() const { return !mission_files.isEmpty() || !pk4_files.isEmpty(); }
};

/// The zip's upper-case name less ".ZIP" or less ".SS2MOD" equals `stem`.
bool Is_zip_stem(const Zip_Record &zip, const QString &stem);
/// "YYYYMMDD" of a date as the database holds it; empty when it is none.
QString Compact_date(const QString &stored);

// Get_archives_Records.cpp
/// Reads the records that this list takes.
void Query_records(Program &program, Scan &scan);
/// Takes over what the first matching record tells, if there is one.
void Take_record(Program &program, Scan &scan, Zip_Record &zip);
/// Adds a record for a mission that has none; it stands in the file after the next `Keep_records`.
void Insert_record(Program &program, Scan &scan, const Zip_Record &zip);
/// To be called before events get through, and at the end.
void Keep_records(Program &program, Scan &scan);

// Get_archives_Zip.cpp
/// Lists the zip and classifies its entries.
void List_zip(Program &program, const Scan &scan, Zip_Record &zip, const QString &folder);
/// Reads name, author and game from the readme.
void Read_readme(Program &program, Zip_Record &zip);
/// Text of one selected entry; none when it can not be read.
QString Read_entry_text(Program &program, const Zip_Record &zip, int number);

// Get_archives_Game.cpp
/// Tidies name and author and decides the game. False when the zip holds no mission.
bool Decide_game(Program &program, const Scan &scan, Zip_Record &zip);
/// Whether the list shows a mission of this game.
bool Is_suitable(const Scan &scan, const QString &game);

// Get_archives_Rows.cpp
/// Rows of the game's own missions, and the folder of its saves.
void Add_original_rows(Program &program, Scan &scan);
/// Adds the row of a mission unless the filter hides it.
void Add_row(Program &program, Scan &scan, const Zip_Record &zip);
bool Is_hidden(const Scan &scan, const Zip_Record &zip);

// Get_archives_Report.cpp
void Show_scan_caption(Program &program, const Scan &scan);
/// The page of zips that could not be placed; nothing when there are none.
void Show_excess_page(Program &program);
void Store_statistics(Program &program, const Scan &scan);
/// Tells of folders that were not walked.
void Tell_unread_folders(Program &program, const Scan &scan);

} // namespace vantrosk
