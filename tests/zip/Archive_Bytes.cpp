#include "Archive_Bytes.h"

#include <array>

namespace vantrosk {

namespace {

QByteArray Le(quint64 value, int bytes) {
    QByteArray result;
    for (int i = 0; i < bytes; ++i)
        result += static_cast<char>(value >> (8 * i));
    return result;
}

/// The fields that both headers have, from "version needed" to the length of the name.
QByteArray Common_fields(const Raw_Entry &entry, bool zip64) {
    const auto length = static_cast<quint32>(entry.content.size());
    const quint32 in_zip64 = 0xffffffffu;
    return Le(zip64 ? 45 : 20, 2) + Le(static_cast<quint64>(entry.flags), 2) +
           Le(static_cast<quint64>(entry.method), 2) + Le(static_cast<quint64>(entry.time), 2) +
           Le(static_cast<quint64>(entry.date), 2) + Le(entry.crc.value_or(Crc_of(entry.content)), 4) +
           Le(zip64 ? in_zip64 : entry.packed_size.value_or(length), 4) +
           Le(zip64 ? in_zip64 : entry.size.value_or(length), 4) +
           Le(static_cast<quint64>(entry.name.size()), 2);
}

/// The extra field with the sizes, and in the directory the offset.
QByteArray Zip64_field(const Raw_Entry &entry, std::optional<quint64> offset) {
    const auto length = static_cast<quint32>(entry.content.size());
    QByteArray fields = Le(entry.size.value_or(length), 8) + Le(entry.packed_size.value_or(length), 8);
    if (offset)
        fields += Le(*offset, 8);
    return Le(1, 2) + Le(static_cast<quint64>(fields.size()), 2) + fields;
}

QByteArray Directory_record(const Raw_Entry &entry, quint64 offset, bool zip64) {
    const QByteArray extra = zip64 ? Zip64_field(entry, offset) : QByteArray();
    return QByteArray("PK\x01\x02") + Le((static_cast<quint64>(entry.system) << 8) | 20, 2) +
           Common_fields(entry, zip64) + Le(static_cast<quint64>(extra.size()), 2) + Le(0, 2) + Le(0, 2) +
           Le(0, 2) + Le(entry.attributes, 4) + Le(zip64 ? 0xffffffffu : offset, 4) + entry.name + extra;
}

QByteArray Build(const std::vector<Raw_Entry> &entries, const QByteArray &comment, bool zip64) {
    QByteArray bytes, directory;
    for (const Raw_Entry &entry : entries) {
        const QByteArray extra = zip64 ? Zip64_field(entry, {}) : QByteArray();
        directory += Directory_record(entry, static_cast<quint64>(bytes.size()), zip64);
        bytes += QByteArray("PK\x03\x04") + Common_fields(entry, zip64) +
                 Le(static_cast<quint64>(extra.size()), 2) + entry.name + extra + entry.content;
    }
    const auto start = static_cast<quint64>(bytes.size());
    const auto length = static_cast<quint64>(directory.size());
    bytes += directory;
    // More entries than the end record can count need the zip64 one.
    const bool large = zip64 || entries.size() >= 0xffff;
    if (large) {
        const auto record = static_cast<quint64>(bytes.size());
        bytes += QByteArray("PK\x06\x06") + Le(44, 8) + Le(45, 2) + Le(45, 2) + Le(0, 4) + Le(0, 4) +
                 Le(entries.size(), 8) + Le(entries.size(), 8) + Le(length, 8) + Le(start, 8);
        bytes += QByteArray("PK\x06\x07") + Le(0, 4) + Le(record, 8) + Le(1, 4);
    }
    const quint64 count = large ? 0xffff : entries.size();
    return bytes + QByteArray("PK\x05\x06") + Le(0, 4) + Le(count, 2) + Le(count, 2) +
           Le(large ? 0xffffffffu : length, 4) + Le(large ? 0xffffffffu : start, 4) +
           Le(static_cast<quint64>(comment.size()), 2) + comment;
}

std::array<quint32, 256> Crc_table() {
    std::array<quint32, 256> table{};
    for (quint32 i = 0; i < 256; ++i) {
        table[i] = i;
        for (int bit = 0; bit < 8; ++bit)
            table[i] = (table[i] >> 1) ^ ((table[i] & 1) ? 0xedb88320u : 0);
    }
    return table;
}

} // namespace

QByteArray Archive_bytes(const std::vector<Raw_Entry> &entries, const QByteArray &comment) {
    return Build(entries, comment, false);
}

QByteArray Zip64_bytes(const std::vector<Raw_Entry> &entries) {
    return Build(entries, {}, true);
}

quint32 Crc_of(const QByteArray &content) {
    static const std::array<quint32, 256> table = Crc_table();
    quint32 crc = 0xffffffffu;
    for (const char c : content)
        crc = (crc >> 8) ^ table[(crc ^ static_cast<unsigned char>(c)) & 0xff];
    return ~crc;
}

QByteArray Deflated(const QByteArray &content) {
    // Qt puts a length of 4 bytes and zlib's 2 bytes before, and zlib's checksum behind.
    return qCompress(content).mid(6).chopped(4);
}

} // namespace vantrosk
