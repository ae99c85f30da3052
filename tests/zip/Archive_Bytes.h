#pragma once

#include <QByteArray>

#include <optional>
#include <vector>

namespace vantrosk {

/// One entry of an archive that is built byte by byte. What is not set is honest.
struct Raw_Entry {
    QByteArray name;
    QByteArray content{};                  ///< as it lies in the archive
    std::optional<quint32> size{};         ///< the length it says it has when unpacked
    std::optional<quint32> packed_size{};  ///< the length it says it has in the archive
    std::optional<quint32> crc{};          ///< of the unpacked bytes
    int flags = 0;                         ///< 1 encrypted, 0x800 name is UTF-8
    int method = 0;                        ///< 0 stored, 8 deflated
    int system = 0;                        ///< 0 DOS, 3 Unix, 19 Mac OS X
    quint32 attributes = 0;                ///< external ones
    int date = (24 << 9) | (6 << 5) | 12;  ///< 2004-06-12
    int time = (10 << 11) | (30 << 5) | 4; ///< 10:30:08
};

/// The archive's bytes. `comment` lies behind the end record.
QByteArray Archive_bytes(const std::vector<Raw_Entry> &entries, const QByteArray &comment = {});
/// The same with the zip64 end records and a zip64 field for each entry.
QByteArray Zip64_bytes(const std::vector<Raw_Entry> &entries);
/// Checksum of an archive's entries.
quint32 Crc_of(const QByteArray &content);
/// Deflated as an archive's entries are.
QByteArray Deflated(const QByteArray &content);

} // namespace vantrosk
