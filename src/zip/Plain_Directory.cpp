#include "platform/Native_File.h"
#include "zip/Entry_List.h"
#include "zip/Entry_Names.h"
#include "zip/Zip_Numbers.h"

#include <QFile>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace vantrosk {

namespace {

constexpr qint64 end_size = 22;
constexpr qint64 header_size = 46;
constexpr qint64 locator_size = 20;
constexpr qint64 longest_comment = 0xffff;
constexpr qint64 longest_directory = 64 * 1024 * 1024;
constexpr char end_signature[] = "PK\x05\x06";
constexpr char header_signature[] = "PK\x01\x02";
constexpr char locator_signature[] = "PK\x06\x07";
constexpr int encrypted_flag = 1, utf8_flag = 0x800;

/// Extra fields that tell of another length, name or comment, or of encryption.
constexpr unsigned meaningful_fields[] = {0x0001, 0x6375, 0x7075, 0x9901};

/// Where the directory lies.
struct End_Record {
    qint64 position = 0;         ///< of this record in the file
    qint64 offset = 0, size = 0; ///< of the directory, bytes
    qint64 count = 0;            ///< of its records
    QByteArray comment;
};

bool Parse_end(QByteArrayView tail, qint64 tail_offset, End_Record &end) {
    const QByteArrayView signature(end_signature, 4);
    const qsizetype at = tail.lastIndexOf(signature);
    // A second one may be part of a comment: which of them counts is not for the plain reader to say.
    if (at < 0 || tail.indexOf(signature) != at || tail.size() - at < end_size)
        return false;
    const char *record = tail.data() + at;
    end.count = Number_16(record + 10);
    end.size = Number_32(record + 12);
    end.offset = Number_32(record + 16);
    const qsizetype comment = Number_16(record + 20);
    if (Number_16(record + 4) != 0 || Number_16(record + 6) != 0 || Number_16(record + 8) != end.count ||
        end.count == 0xffff || at + end_size + comment != tail.size())
        return false;
    if (at >= locator_size && std::memcmp(record - locator_size, locator_signature, 4) == 0)
        return false;
    end.position = tail_offset + at;
    end.comment = tail.last(comment).toByteArray();
    return true;
}

/// The end record is the last thing in the file; before a comment it is somewhere in the last 64 KiB.
bool Find_end(QFile &file, End_Record &end) {
    const qint64 length = file.size();
    for (const qint64 reach : {end_size + locator_size, end_size + locator_size + longest_comment}) {
        const qint64 offset = std::max<qint64>(0, length - reach);
        if (!file.seek(offset))
            return false;
        const QByteArray tail = file.read(length - offset);
        if (tail.size() == length - offset && Parse_end(tail, offset, end))
            return true;
    }
    return false;
}

bool Are_plain_fields(QByteArrayView fields) {
    while (!fields.isEmpty()) {
        if (fields.size() < 4)
            return false;
        const unsigned id = Number_16(fields.data());
        const qsizetype size = Number_16(fields.data() + 2);
        if (std::find(std::begin(meaningful_fields), std::end(meaningful_fields), id) !=
                std::end(meaningful_fields) ||
            size > fields.size() - 4)
            return false;
        fields = fields.sliced(4 + size);
    }
    return true;
}

/// Whether name and comment are what their mark says they are.
bool Are_texts_plain(unsigned flags, QByteArrayView name, QByteArrayView comment) {
    return !name.contains('\0') && (!(flags & utf8_flag) || (Is_utf8(name) && Is_utf8(comment)));
}

/// Adds the record that begins at `at` of the directory; the bytes it takes, or 0 when it is not of the plain
/// kind.
qsizetype Add_record(qsizetype at, const End_Record &end, std::uint64_t index, Entry_List &list) {
    const QByteArrayView rest = QByteArrayView(list.names()).sliced(at);
    if (rest.size() < header_size || std::memcmp(rest.data(), header_signature, 4) != 0)
        return 0;
    const char *record = rest.data();
    const qsizetype name_size = Number_16(record + 28), extra_size = Number_16(record + 30),
                    comment_size = Number_16(record + 32);
    const qsizetype whole = header_size + name_size + extra_size + comment_size;
    const quint32 packed = Number_32(record + 20), size = Number_32(record + 24),
                  offset = Number_32(record + 42);
    if (whole > rest.size() || packed == 0xffffffff || size == 0xffffffff || Number_16(record + 34) != 0 ||
        offset + local_header_size + packed > end.offset)
        return 0;
    const unsigned flags = Number_16(record + 8);
    if (!Are_texts_plain(flags, rest.sliced(header_size, name_size),
                         rest.sliced(whole - comment_size, comment_size)) ||
        !Are_plain_fields(rest.sliced(header_size + name_size, extra_size)))
        return 0;
    Listed_Entry entry;
    entry.size = size;
    entry.packed = packed;
    entry.index = index;
    entry.offset = offset;
    entry.checksum = Number_32(record + 16);
    entry.method = static_cast<std::uint16_t>(Number_16(record + 10));
    entry.dos_time = static_cast<std::uint16_t>(Number_16(record + 12));
    entry.dos_date = static_cast<std::uint16_t>(Number_16(record + 14));
    entry.made_on_unix = Is_unix_system(Number_16(record + 4) >> 8);
    entry.encrypted = (flags & encrypted_flag) != 0;
    list.add_at(static_cast<std::uint32_t>(at + header_size), static_cast<std::uint16_t>(name_size), entry);
    return whole;
}

} // namespace

qint64 Bytes_before_archive(const QString &native) {
    QFile file;
    End_Record end;
    if (!Open_native_file(file, native) || !Find_end(file, end))
        return 0;
    const qint64 before = end.position - end.size - end.offset;
    if (before <= 0 || !file.seek(end.position - end.size) || file.read(4) != header_signature)
        return 0;
    return before;
}

bool Read_plain_directory(QFile &file, Entry_List &list) {
    End_Record end;
    if (!Find_end(file, end) || end.offset + end.size != end.position || end.size > longest_directory ||
        end.count * header_size > end.size || !file.seek(end.offset))
        return false;
    list.names().resize(end.size);
    if (file.read(list.names().data(), end.size) != end.size)
        return false;
    list.entries.reserve(static_cast<size_t>(end.count));
    qsizetype at = 0;
    for (qint64 i = 0; i < end.count; ++i) {
        const qsizetype taken = Add_record(at, end, static_cast<std::uint64_t>(i), list);
        if (taken == 0)
            return false;
        at += taken;
    }
    list.comment = end.comment;
    return at == end.size;
}

} // namespace vantrosk
