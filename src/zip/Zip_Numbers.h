#pragma once

#include <QtGlobal>

namespace vantrosk {

// Sizes and signatures of an archive's records, as the format's APPNOTE tells them; all numbers are
// little-endian.
constexpr qint64 local_header_size = 30;
constexpr char local_signature[] = "PK\x03\x04";

inline unsigned Number_16(const char *at) {
    const auto *bytes = reinterpret_cast<const unsigned char *>(at);
    return bytes[0] | static_cast<unsigned>(bytes[1]) << 8;
}

inline quint32 Number_32(const char *at) {
    return Number_16(at) | static_cast<quint32>(Number_16(at + 2)) << 16;
}

} // namespace vantrosk
