#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

class QFile;
struct zip;

namespace vantrosk {

/// What the central directory tells of one file. Its name stays in the list as it was stored: a scan lists
/// hundreds of thousands of entries and reads the names of few.
struct Listed_Entry {
    qint64 size = 0;             ///< bytes
    qint64 packed = 0;           ///< bytes in the archive
    std::uint64_t index = 0;     ///< its number in the directory, from 0, folder entries counted
    std::uint32_t name_at = 0;   ///< place in the list's names
    std::uint32_t offset = 0;    ///< of its local header in the file; known in an archive of the plain kind
    std::uint32_t checksum = 0;  ///< CRC-32; the same
    std::uint16_t method = 0;    ///< of compression; the same
    std::uint16_t name_size = 0; ///< bytes
    std::uint16_t file_at = 0;   ///< in the name: where its last part begins
    std::uint16_t dos_date = 0;  ///< local, as stored
    std::uint16_t dos_time = 0;
    bool made_on_unix = false; ///< matters to names that are not ASCII
    bool encrypted = false;
    bool selected = true;

    /// Computed when asked for.
    QDateTime date() const;
};

/// The files of an archive in stored order. Folder entries are left out.
class Entry_List {
public:
    std::vector<Listed_Entry> entries;
    QByteArray comment; ///< of the archive, as stored

    /// Adds an entry unless it is a folder; the name is copied. `entry` has all but its name.
    void add(QByteArrayView stored_name, Listed_Entry entry);
    /// The same for a name that stands in `names` already.
    void add_at(std::uint32_t name_at, std::uint16_t name_size, Listed_Entry entry);
    /// The bytes that hold the names, to be filled before `add_at`.
    QByteArray &names() { return names_; }
    void clear();

    QByteArrayView stored_name(const Listed_Entry &entry) const;
    QByteArrayView stored_file(const Listed_Entry &entry) const; ///< the last part of the stored name
    QString file(const Listed_Entry &entry) const;               ///< the last part
    QString folder(const Listed_Entry &entry) const;             ///< the parts before it, between "\"
    QString name(const Listed_Entry &entry) const;               ///< both
    /// The folder may be made below another one.
    bool folder_is_safe(const Listed_Entry &entry) const;

private:
    void read_folder(const Listed_Entry &entry) const;

    QByteArray names_;
    // Most neighbours lie in one folder: its text is made once and shared.
    mutable QByteArray last_folder_;
    mutable bool last_made_on_unix_ = false;
    mutable QString folder_;
    mutable bool folder_safe_ = true;
};

/// Reads the list of an archive of the plain kind with two reads of the open file: no zip64, nothing before
/// or behind, no field that contradicts another, no extra field that changes a name or a length. False when
/// the archive is of any other kind, or none: libzip decides then.
bool Read_plain_directory(QFile &file, Entry_List &list);

/// The content of an entry of such an archive, its length and checksum found right. Nothing when it is of
/// `limit` bytes or more, or anything is unusual about it: libzip decides then, and names the fault.
std::optional<QByteArray> Read_plain_entry(QFile &file, const Entry_List &list, const Listed_Entry &entry,
                                           qint64 limit);

/// How many bytes stand before the archive, as a program that unpacks itself has them; 0 when there are none
/// or it can not be told.
qint64 Bytes_before_archive(const QString &native);

/// The list of an archive that libzip opened.
void Read_open_archive(zip *archive, Entry_List &list);

/// Whether libzip, which unpacks it, sees the entry as it was listed.
bool Is_same_entry(zip *archive, const Entry_List &list, const Listed_Entry &entry);

} // namespace vantrosk
