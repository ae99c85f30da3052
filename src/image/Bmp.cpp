#include "image/Pictures.h"

namespace vantrosk {

namespace {

// BITMAPFILEHEADER and BITMAPINFOHEADER, little-endian.
constexpr int file_header_size = 14, info_header_size = 40, bits_per_pixel = 24;
constexpr int pixels_per_metre = 2835; ///< 72 to the inch

void Append(QByteArray &bytes, qint64 value, int count) {
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(value >> (8 * i));
}

} // namespace

QByteArray Encode_bmp(const Picture &picture) {
    const qint64 pixels = qint64(picture.width) * picture.height;
    if (picture.width <= 0 || picture.height <= 0 || static_cast<qint64>(picture.rgba.size()) < pixels * 4)
        return {};
    const qint64 row = (qint64(picture.width) * 3 + 3) / 4 * 4;
    const qint64 data = row * picture.height;
    QByteArray bytes("BM");
    bytes.reserve(file_header_size + info_header_size + data);
    Append(bytes, file_header_size + info_header_size + data, 4);
    Append(bytes, 0, 4);
    Append(bytes, file_header_size + info_header_size, 4);
    Append(bytes, info_header_size, 4);
    Append(bytes, picture.width, 4);
    Append(bytes, picture.height, 4);
    Append(bytes, 1, 2);
    Append(bytes, bits_per_pixel, 2);
    Append(bytes, 0, 4); // not compressed
    Append(bytes, data, 4);
    Append(bytes, pixels_per_metre, 4);
    Append(bytes, pixels_per_metre, 4);
    Append(bytes, 0, 8); // no palette
    for (int y = picture.height - 1; y >= 0; --y) {
        const std::uint8_t *pixel = picture.rgba.data() + qint64(y) * picture.width * 4;
        for (int x = 0; x < picture.width; ++x, pixel += 4) {
            bytes += static_cast<char>(pixel[2]);
            bytes += static_cast<char>(pixel[1]);
            bytes += static_cast<char>(pixel[0]);
        }
        bytes.append(row - qint64(picture.width) * 3, '\0');
    }
    return bytes;
}

} // namespace vantrosk
