#include "zip/Entry_List.h"

#include "zip/Entry_Names.h"
#include "zip/mUnzip.h"

#include <zip.h>

#include <algorithm>
#include <ctime>
#include <limits>

namespace vantrosk {

namespace {

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

void Entry_List::add(QByteArrayView stored_name, bool made_on_unix, Listed_Entry entry) {
    if (!stored_name.isEmpty() && Is_separator(stored_name.back()))
        return;
    qsizetype cut = stored_name.size();
    while (cut > 0 && !Is_separator(stored_name[cut - 1]))
        --cut;
    if (stored_name.first(cut) != QByteArrayView(last_folder_)) {
        last_folder_ = stored_name.first(cut).toByteArray();
        const QString folder = Decode_entry_name(last_folder_, made_on_unix);
        folder_ = Entry_name_parts(folder).join(u'\\');
        // "./" is no folder at all and as safe as none.
        const bool nothing =
            folder_.isEmpty() && !Is_separator(last_folder_.isEmpty() ? '.' : last_folder_[0]);
        folder_safe_ = nothing || Is_safe_entry_name(folder);
    }
    entry.folder = folder_;
    entry.file = Decode_entry_name(stored_name.sliced(cut), made_on_unix);
    entry.folder_safe = folder_safe_;
    entries.push_back(std::move(entry));
}

void Entry_List::clear() {
    entries.clear();
    comment.clear();
    last_folder_.clear();
    folder_.clear();
    folder_safe_ = true;
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
        if (Entry_from_libzip(archive, index, entry, name))
            list.add(name, !Is_ascii(name) && Made_on_unix(archive, index), entry);
    }
}

bool Is_same_entry(zip_t *archive, const Listed_Entry &entry) {
    Listed_Entry seen;
    QByteArrayView name;
    if (!Entry_from_libzip(archive, entry.index, seen, name))
        return false;
    Entry_List one;
    one.add(name, !Is_ascii(name) && Made_on_unix(archive, entry.index), seen);
    return one.entries.size() == 1 && one.entries[0].file == entry.file &&
           one.entries[0].folder == entry.folder && one.entries[0].folder_safe == entry.folder_safe &&
           one.entries[0].size == entry.size && one.entries[0].packed == entry.packed &&
           one.entries[0].encrypted == entry.encrypted;
}

} // namespace vantrosk
