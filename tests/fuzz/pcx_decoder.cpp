#include "fuzz/Fuzz.h"

#include "image/Pictures.h"

#include <cstdlib>

namespace vantrosk {

namespace {

/// A picture of 8 by 4 pixels behind a header of that depth.
QByteArray Pcx(int bits, int planes, int encoding, const QByteArray &data) {
    QByteArray bytes(128, '\0');
    bytes[0] = 10;
    bytes[1] = 5;
    bytes[2] = static_cast<char>(encoding);
    bytes[3] = static_cast<char>(bits);
    bytes[8] = 7;
    bytes[10] = 3;
    bytes[65] = static_cast<char>(planes);
    bytes[66] = 8;
    return bytes + data;
}

} // namespace

/// Whatever the bytes are: a fault and nothing, or a picture with all its pixels, which a bitmap can hold.
void Fuzz_one(const QByteArray &bytes) {
    const Result<Picture> result = Decode_pcx(bytes);
    const Picture &picture = result.value;
    if (picture.rgba.size() !=
        static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height) * 4)
        std::abort();
    if (result.ok() == picture.rgba.empty() || Encode_bmp(picture).isEmpty() == result.ok())
        std::abort();
}

std::vector<QByteArray> Fuzz_seeds() {
    std::vector<QByteArray> seeds;
    for (const int bits : {1, 2, 4, 8})
        for (int planes = 1; planes <= 4; ++planes)
            seeds.push_back(Pcx(bits, planes, 1, QByteArray::fromHex("C401C802FF03FF04").repeated(planes)));
    seeds.push_back(Pcx(8, 1, 0, QByteArray(32, 'x')));
    seeds.push_back(Pcx(8, 1, 1, QByteArray::fromHex("E001") + '\x0c' + QByteArray(768, 'y')));
    return seeds;
}

std::vector<QByteArray> Fuzz_pieces() {
    return {QByteArray(1, '\0'),
            QByteArray(2, '\xff'),
            "\xff\x01",
            "\xc0\x01",
            "\x0c",
            QByteArray(768, 'z'),
            QByteArray("\x0a\x05\x01\x08", 4)};
}

} // namespace vantrosk
