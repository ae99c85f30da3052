#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <cstdint>
#include <vector>

struct zip;

namespace vantrosk {

/// What the central directory tells of one file.
struct Listed_Entry {
    QString file;               ///< last part of the stored name
    QString folder;             ///< the parts before it, between "\"; neighbours share one text
    qint64 size = 0;            ///< bytes
    qint64 packed = 0;          ///< bytes in the archive
    std::uint64_t index = 0;    ///< its number in the directory, from 0, folder entries counted
    std::uint16_t dos_date = 0; ///< local, as stored
    std::uint16_t dos_time = 0;
    bool folder_safe = false; ///< the folder may be made below another; the file is judged when it is wanted
    bool encrypted = false;
    bool selected = true;

    QString name() const { return folder.isEmpty() ? file : folder + "\\" + file; }
    /// Computed when asked for: a scan lists hundreds of thousands of entries and dates few.
    QDateTime date() const;
};

/// The files of an archive in stored order. Folder entries are left out.
struct Entry_List {
    std::vector<Listed_Entry> entries;
    QByteArray comment; ///< of the archive, as stored

    /// Adds an entry unless it is a folder. `entry` has all but its name.
    void add(QByteArrayView stored_name, bool made_on_unix, Listed_Entry entry);

    /// Empties the list but keeps its room: a scan fills it thousands of times.
    void clear();

private:
    friend bool Read_plain_directory(const QString &native, Entry_List &list);

    QByteArray directory_; // what was read last
    // Most neighbours lie in one folder: its text is made once and shared.
    QByteArray last_folder_;
    QString folder_;
    bool folder_safe_ = true;
};

/// Reads the list of an archive of the plain kind with two reads of the file: no zip64, nothing before or
/// behind, no field that contradicts another, no extra field that changes a name or a length. False when the
/// archive is of any other kind, or none: libzip decides then.
bool Read_plain_directory(const QString &native, Entry_List &list);

/// How many bytes stand before the archive, as a program that unpacks itself has them; 0 when there are none
/// or it can not be told.
qint64 Bytes_before_archive(const QString &native);

/// The list of an archive that libzip opened.
void Read_open_archive(zip *archive, Entry_List &list);

/// Whether libzip, which unpacks it, sees the entry as it was listed.
bool Is_same_entry(zip *archive, const Listed_Entry &entry);

} // namespace vantrosk
