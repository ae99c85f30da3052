#include "zip/Entry_List.h"

#include "zip/Entry_Names.h"
#include "zip/mUnzip.h"

#include <zip.h>

#include <algorithm>
#include <cstring>
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
    return system == ZIP_OPSYS_UNIX || system == ZIP_OPSYS_OS_X || system == ZIP_OPSYS_MACINTOSH;
}

/// Splits stored names. Most neighbours lie in one folder: its text is made once and shared.
class Name_Splitter {
public:
    void split(zip_t *archive, const zip_stat_t &stat, Listed_Entry &entry) {
        const size_t length = std::strlen(stat.name);
        size_t cut = length;
        while (cut > 0 && !Is_separator(stat.name[cut - 1]))
            --cut;
        const bool same_folder = cut == last_.size() && std::memcmp(stat.name, last_.data(), cut) == 0;
        if (!same_folder) {
            last_.assign(stat.name, cut);
            const QString folder = Decode(archive, stat.index, last_.c_str());
            folder_ = Entry_name_parts(folder).join(u'\\');
            safe_ = folder.isEmpty() || Is_safe_entry_name(folder) || folder_.isEmpty();
            safe_ = safe_ && (folder.isEmpty() || !Is_separator(last_.front()));
        }
        entry.folder = folder_;
        entry.file = Decode(archive, stat.index, stat.name + cut);
        entry.safe = safe_ && Is_safe_name_part(entry.file);
    }

private:
    static QString Decode(zip_t *archive, zip_uint64_t index, const char *bytes) {
        const bool ascii = std::all_of(bytes, bytes + std::strlen(bytes),
                                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
        return Decode_entry_name(bytes, !ascii && Made_on_unix(archive, index));
    }

    std::string last_;
    QString folder_;
    bool safe_ = true;
};

} // namespace

std::vector<Listed_Entry> List_entries(zip_t *archive) {
    std::vector<Listed_Entry> entries;
    const zip_int64_t count = zip_get_num_entries(archive, ZIP_FL_UNCHANGED);
    entries.reserve(static_cast<size_t>(std::max<zip_int64_t>(count, 0)));
    Name_Splitter splitter;
    for (zip_int64_t i = 0; i < count; ++i) {
        zip_stat_t stat;
        if (zip_stat_index(archive, static_cast<zip_uint64_t>(i), ZIP_FL_ENC_RAW, &stat) != 0)
            continue;
        const size_t length = std::strlen(stat.name);
        if (length > 0 && Is_separator(stat.name[length - 1]))
            continue;
        Listed_Entry entry;
        splitter.split(archive, stat, entry);
        entry.size = Clamped(stat.size);
        entry.packed = Clamped(stat.comp_size);
        entry.index = static_cast<std::uint64_t>(i);
        entry.encrypted = stat.encryption_method != ZIP_EM_NONE;
        entries.push_back(std::move(entry));
    }
    return entries;
}

} // namespace vantrosk
