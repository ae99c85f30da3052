#include "zip/Entry_List.h"
#include "zip/Zip_Numbers.h"

#include <QFile>

#include <zlib.h>

#include <cstring>

namespace vantrosk {

namespace {

constexpr unsigned method_stored = 0, method_deflated = 8;
constexpr unsigned sizes_behind_flag = 8;   ///< sizes and checksum stand behind the bytes, not before them
constexpr qint64 most_overhead = 64 * 1024; ///< bytes that packing may add to what can not be packed

/// Whether the header before an entry's bytes tells what the directory told. A file that was written anew
/// since it was listed has another one there.
bool Is_header_of(const QByteArray &header, const Entry_List &list, const Listed_Entry &entry) {
    const char *at = header.constData();
    if (std::memcmp(at, local_signature, 4) != 0 || Number_16(at + 8) != entry.method ||
        header.mid(local_header_size) != list.stored_name(entry))
        return false;
    const bool tells_sizes = (Number_16(at + 6) & sizes_behind_flag) == 0;
    return !tells_sizes || (Number_32(at + 14) == entry.checksum && Number_32(at + 18) == entry.packed &&
                            Number_32(at + 22) == entry.size);
}

/// The packed bytes of an entry; nothing when the file does not hold them.
std::optional<QByteArray> Read_packed(QFile &file, const Entry_List &list, const Listed_Entry &entry) {
    const qint64 header_size = local_header_size + entry.name_size;
    if (!file.seek(entry.offset))
        return {};
    const QByteArray header = file.read(header_size);
    if (header.size() != header_size || !Is_header_of(header, list, entry))
        return {};
    const qint64 extra_size = Number_16(header.constData() + 28);
    QByteArray packed(entry.packed, Qt::Uninitialized);
    if (!file.seek(entry.offset + header_size + extra_size) ||
        file.read(packed.data(), packed.size()) != packed.size())
        return {};
    return packed;
}

/// The stream that is unpacked, and its end.
class Inflater {
public:
    explicit Inflater(QByteArray &packed) {
        stream_.next_in = reinterpret_cast<Bytef *>(packed.data());
        stream_.avail_in = static_cast<uInt>(packed.size());
        ready_ = inflateInit2(&stream_, -MAX_WBITS) == Z_OK;
    }
    ~Inflater() {
        if (ready_)
            inflateEnd(&stream_);
    }
    Inflater(const Inflater &) = delete;
    Inflater &operator=(const Inflater &) = delete;

    /// True when the whole stream gives exactly the bytes that `content` has room for.
    bool fill(QByteArray &content) {
        stream_.next_out = reinterpret_cast<Bytef *>(content.data());
        stream_.avail_out = static_cast<uInt>(content.size());
        return ready_ && inflate(&stream_, Z_FINISH) == Z_STREAM_END && stream_.avail_out == 0 &&
               stream_.avail_in == 0;
    }

private:
    z_stream stream_{};
    bool ready_ = false;
};

std::optional<QByteArray> Unpack(QByteArray packed, const Listed_Entry &entry) {
    if (entry.method == method_stored)
        return entry.packed == entry.size ? std::optional(packed) : std::nullopt;
    QByteArray content(entry.size, Qt::Uninitialized);
    Inflater inflater(packed);
    return inflater.fill(content) ? std::optional(content) : std::nullopt;
}

} // namespace

std::optional<QByteArray> Read_plain_entry(QFile &file, const Entry_List &list, const Listed_Entry &entry,
                                           qint64 limit) {
    const bool is_known = entry.method == method_stored || entry.method == method_deflated;
    if (!is_known || entry.encrypted || entry.size >= limit || entry.packed > entry.size + most_overhead)
        return {};
    const std::optional<QByteArray> packed = Read_packed(file, list, entry);
    if (!packed)
        return {};
    std::optional<QByteArray> content = Unpack(*packed, entry);
    if (!content)
        return {};
    const auto *bytes = reinterpret_cast<const Bytef *>(content->constData());
    const uLong checksum = crc32(0, bytes, static_cast<uInt>(content->size()));
    return checksum == entry.checksum ? content : std::nullopt;
}

} // namespace vantrosk
