#pragma once

#include "platform/Fault.h"

#include <QByteArray>

#include <cstdint>
#include <vector>

namespace vantrosk {

/// A decoded picture: rows from top to bottom, 4 bytes a pixel, red, green, blue, alpha.
struct Picture {
    int width = 0, height = 0; ///< pixels
    std::vector<std::uint8_t> rgba;
};

/// Pictures are refused beyond this many pixels: no readme picture needs them, and a lie in a header must not
/// take the memory.
inline constexpr qint64 most_pixels = 64 * 1024 * 1024;

/// PCX, ZSoft's format: 1, 2, 4 and 8 bits with 1 to 4 planes (but not 8 bits in 2), with and without
/// palette, run-length coded or plain. `damaged` when the header is not one, contradicts itself, or more than
/// half of the rows are missing; of less the missing part is black, as games show it. `too_large` beyond
/// `most_pixels`.
Result<Picture> Decode_pcx(const QByteArray &bytes);
/// A Windows bitmap of 24 bits; transparency is lost. Empty for a picture without pixels or with too few
/// bytes.
QByteArray Encode_bmp(const Picture &picture);

} // namespace vantrosk
