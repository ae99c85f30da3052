#include "zip/Entry_List.h"

#include "zip/Entry_Names.h"
#include "zip/mUnzip.h"

#include <zip.h>

#include <algorithm>
#include <ctime>
#include <limits>

namespace vantrosk {

namespace {

constexpr qsizetype longest_name = 0xffff;           ///< bytes; the format has no longer one
constexpr qsizetype most_names = qsizetype(1) << 30; ///< bytes of all names of an archive

bool Is_separator(char c) {
    return c == '/' || c == '\\';
}

qint64 Clamped(zip_uint64_t bytes) {
    constexpr auto most = static_cast<zip_uint64_t>(std::numeric_limits<qint64>::max());
    return static_cast<qint64>(std::min(bytes, most));
}

bool Made_on_unix(zip_t *archive, zip_uint64_t index) {
    zip_uint8_t system = ZIP_OPSYS_DOS;
    zip_file_get_external_attributes(archive, index, 0, &system, nullptr);
    return Is_unix_system(system);
}

void Set_dos_date(Listed_Entry &entry, time_t seconds) {
    const std::tm *local = std::localtime(&seconds);
    if (!local || local->tm_year < 80 || local->tm_year > 80 + 127)
        return;
    entry.dos_date = static_cast<std::uint16_t>(((local->tm_year - 80) << 9) | ((local->tm_mon + 1) << 5) |
                                                local->tm_mday);
    entry.dos_time =
        static_cast<std::uint16_t>((local->tm_hour << 11) | (local->tm_min << 5) | (local->tm_sec / 2));
}

/// False for what is no file.
bool Entry_from_libzip(zip_t *archive, zip_uint64_t index, Listed_Entry &entry, QByteArrayView &name) {
    zip_stat_t stat;
    if (zip_stat_index(archive, index, ZIP_FL_ENC_RAW, &stat) != 0)
        return false;
    name = QByteArrayView(stat.name);
    entry.size = Clamped(stat.size);
    entry.packed = Clamped(stat.comp_size);
    entry.index = index;
    entry.encrypted = stat.encryption_method != ZIP_EM_NONE;
    if (stat.valid & ZIP_STAT_MTIME)
        Set_dos_date(entry, stat.mtime);
    return true;
}

} // namespace

QDateTime Listed_Entry::date() const {
    std::tm local{};
    local.tm_isdst = -1;
    local.tm_year = (dos_date >> 9) + 80;
    local.tm_mon = ((dos_date >> 5) & 15) - 1;
    local.tm_mday = dos_date & 31;
    local.tm_hour = dos_time >> 11;
    local.tm_min = (dos_time >> 5) & 63;
    local.tm_sec = (dos_time & 31) * 2;
    return QDateTime::fromSecsSinceEpoch(std::mktime(&local));
}

void Entry_List::add(QByteArrayView stored_name, Listed_Entry entry) {
    if (stored_name.size() > longest_name || names_.size() > most_names)
        return;
    const auto at = static_cast<std::uint32_t>(names_.size());
    names_.append(stored_name);
    add_at(at, static_cast<std::uint16_t>(stored_name.size()), entry);
}

void Entry_List::add_at(std::uint32_t name_at, std::uint16_t name_size, Listed_Entry entry) {
    const char *name = names_.constData() + name_at;
    if (name_size > 0 && Is_separator(name[name_size - 1]))
        return;
    std::uint16_t cut = name_size;
    while (cut > 0 && !Is_separator(name[cut - 1]))
        --cut;
    entry.name_at = name_at;
    entry.name_size = name_size;
    entry.file_at = cut;
    entries.push_back(entry);
}

void Entry_List::clear() {
    entries.clear();
    comment.clear();
    names_.clear();
}

QByteArrayView Entry_List::stored_name(const Listed_Entry &entry) const {
    return QByteArrayView(names_).sliced(entry.name_at, entry.name_size);
}

QByteArrayView Entry_List::stored_file(const Listed_Entry &entry) const {
    return stored_name(entry).sliced(entry.file_at);
}

QString Entry_List::file(const Listed_Entry &entry) const {
    return Decode_entry_name(stored_file(entry), entry.made_on_unix);
}

QString Entry_List::folder(const Listed_Entry &entry) const {
    read_folder(entry);
    return folder_;
}

QString Entry_List::name(const Listed_Entry &entry) const {
    const QString parent = folder(entry);
    return parent.isEmpty() ? file(entry) : parent + u'\\' + file(entry);
}

bool Entry_List::folder_is_safe(const Listed_Entry &entry) const {
    read_folder(entry);
    return folder_safe_;
}

void Entry_List::read_folder(const Listed_Entry &entry) const {
    const QByteArrayView stored = stored_name(entry).first(entry.file_at);
    if (stored == QByteArrayView(last_folder_) && entry.made_on_unix == last_made_on_unix_)
        return;
    last_folder_ = stored.toByteArray();
    last_made_on_unix_ = entry.made_on_unix;
    const QString decoded = Decode_entry_name(last_folder_, entry.made_on_unix);
    folder_ = Entry_name_parts(decoded).join(u'\\');
    // "./" is no folder at all and as safe as none.
    const bool nothing = folder_.isEmpty() && !Is_separator(stored.isEmpty() ? '.' : stored[0]);
    folder_safe_ = nothing || Is_safe_entry_name(decoded);
}

void Read_open_archive(zip_t *archive, Entry_List &list) {
    int length = 0;
    if (const char *comment = zip_get_archive_comment(archive, &length, ZIP_FL_ENC_RAW))
        list.comment = QByteArray(comment, length);
    const zip_int64_t count = zip_get_num_entries(archive, ZIP_FL_UNCHANGED);
    list.entries.reserve(static_cast<size_t>(std::max<zip_int64_t>(count, 0)));
    for (zip_int64_t i = 0; i < count; ++i) {
        const auto index = static_cast<zip_uint64_t>(i);
        Listed_Entry entry;
        QByteArrayView name;
        if (!Entry_from_libzip(archive, index, entry, name))
            continue;
        entry.made_on_unix = !Is_ascii(name) && Made_on_unix(archive, index);
        list.add(name, entry);
    }
}

bool Is_same_entry(zip_t *archive, const Entry_List &list, const Listed_Entry &entry) {
    Listed_Entry seen;
    QByteArrayView name;
    if (!Entry_from_libzip(archive, entry.index, seen, name) || name != list.stored_name(entry))
        return false;
    if (!Is_ascii(name) && Made_on_unix(archive, entry.index) != entry.made_on_unix)
        return false;
    return seen.size == entry.size && seen.packed == entry.packed && seen.encrypted == entry.encrypted;
}

} // namespace vantrosk
