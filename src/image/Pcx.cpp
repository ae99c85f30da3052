#include "image/Pictures.h"

#include <algorithm>
#include <array>

namespace vantrosk {

namespace {

constexpr qsizetype header_size = 128;
constexpr qsizetype palette_16_offset = 16;
constexpr qsizetype palette_256_size = 1 + 256 * 3; ///< a mark and the colours, at the end of the file
constexpr std::uint8_t palette_256_mark = 12;
constexpr std::uint8_t run_mask = 0xc0, run_length_mask = 0x3f;
constexpr int version_without_palette = 3;

struct Colour {
    std::uint8_t red = 0, green = 0, blue = 0, alpha = 255;
    bool operator==(const Colour &) const = default;
};
using Palette = std::array<Colour, 256>;

/// What the EGA card shows for 16 colours when the file brings none.
constexpr std::array<Colour, 16> ega_colours = {{
    {0, 0, 0},
    {0, 0, 170},
    {0, 170, 0},
    {0, 170, 170},
    {170, 0, 0},
    {170, 0, 170},
    {170, 85, 0},
    {170, 170, 170},
    {85, 85, 85},
    {85, 85, 255},
    {85, 255, 85},
    {85, 255, 255},
    {255, 85, 85},
    {255, 85, 255},
    {255, 255, 85},
    {255, 255, 255},
}};
/// The same for the 4 colours of the CGA card.
constexpr std::array<Colour, 4> cga_colours = {{{0, 0, 0}, {85, 255, 255}, {255, 85, 255}, {255, 255, 255}}};

/// The header fields that matter; numbers are little-endian.
struct Header {
    int version = 0;
    bool run_length_coded = false;
    int bits = 0;   ///< of one pixel in one plane
    int planes = 0; ///< of one row, one behind the other
    int width = 0, height = 0;
    qint64 plane_row = 0; ///< bytes of one row of one plane

    int index_bits() const { return bits * planes; }
    bool has_index() const { return bits < 4 || planes < 3; }
    qint64 row() const { return plane_row * planes; }
};

std::uint8_t Byte(const QByteArray &bytes, qsizetype at) {
    return static_cast<std::uint8_t>(bytes[at]);
}

int Number_16(const QByteArray &bytes, qsizetype at) {
    return Byte(bytes, at) | Byte(bytes, at + 1) << 8;
}

Fault Damaged(const char *why) {
    return {Fault_Kind::damaged, QString("The PCX picture is damaged: %1.").arg(QString::fromLatin1(why))};
}

Result<Header> Read_header(const QByteArray &bytes) {
    if (bytes.size() < header_size)
        return {{}, Damaged("it is cut off")};
    if (Byte(bytes, 0) != 10 || Byte(bytes, 2) > 1)
        return {{}, Damaged("it is no PCX file")};
    Header header;
    header.version = Byte(bytes, 1);
    header.run_length_coded = Byte(bytes, 2) == 1;
    header.bits = Byte(bytes, 3);
    header.planes = Byte(bytes, 65);
    header.width = Number_16(bytes, 8) - Number_16(bytes, 4) + 1;
    header.height = Number_16(bytes, 10) - Number_16(bytes, 6) + 1;
    header.plane_row = Number_16(bytes, 66);
    const bool known_bits = header.bits == 1 || header.bits == 2 || header.bits == 4 || header.bits == 8;
    // Two planes of 8 bits are neither a number of a colour nor red, green and blue.
    const bool known_planes =
        header.planes >= 1 && header.planes <= 4 && (header.bits < 8 || header.planes != 2);
    if (!known_bits || !known_planes)
        return {{}, Damaged("its colour depth is unknown")};
    if (header.width <= 0 || header.height <= 0)
        return {{}, Damaged("it has no pixels")};
    if (qint64(header.width) * header.height > most_pixels)
        return {{}, {Fault_Kind::too_large, "The PCX picture is too large."}};
    if (header.plane_row * 8 < qint64(header.width) * header.bits)
        return {{}, Damaged("its rows are shorter than its width")};
    return {header, {}};
}

/// Runs may cross the ends of rows and planes; what is missing stays 0. The number of bytes that were there.
qint64 Unpack(const QByteArray &bytes, const Header &header, std::vector<std::uint8_t> &rows) {
    const auto wanted = static_cast<qint64>(rows.size());
    qint64 done = 0;
    for (qsizetype at = header_size; at < bytes.size() && done < wanted; ++at) {
        qint64 count = 1;
        if (header.run_length_coded && (Byte(bytes, at) & run_mask) == run_mask) {
            count = std::min<qint64>(Byte(bytes, at) & run_length_mask, wanted - done);
            if (++at == bytes.size())
                break;
        }
        std::fill_n(rows.begin() + done, count, Byte(bytes, at));
        done += count;
    }
    return done;
}

void Grey_palette(Palette &palette, int index_bits) {
    const int last = (1 << index_bits) - 1;
    for (int i = 0; i <= last; ++i) {
        const auto level = static_cast<std::uint8_t>(i * 255 / last);
        palette[static_cast<size_t>(i)] = {level, level, level};
    }
}

Colour Colour_at(const QByteArray &bytes, qsizetype at) {
    return {Byte(bytes, at), Byte(bytes, at + 1), Byte(bytes, at + 2)};
}

Palette Palette_256(const QByteArray &bytes, int index_bits) {
    Palette palette;
    const qsizetype start = bytes.size() - palette_256_size;
    if (start < header_size || Byte(bytes, start) != palette_256_mark) {
        Grey_palette(palette, index_bits);
        return palette;
    }
    for (qsizetype i = 0; i < 256; ++i)
        palette[static_cast<size_t>(i)] = Colour_at(bytes, start + 1 + i * 3);
    return palette;
}

/// A palette whose colours are all alike was never filled in.
bool Is_filled(const Palette &palette, int index_bits) {
    const auto end = palette.begin() + (1 << index_bits);
    return std::adjacent_find(palette.begin(), end, std::not_equal_to<>()) != end;
}

Palette Palette_16(const QByteArray &bytes, const Header &header) {
    Palette palette;
    for (qsizetype i = 0; i < 16; ++i)
        palette[static_cast<size_t>(i)] = Colour_at(bytes, palette_16_offset + i * 3);
    if (header.version != version_without_palette && Is_filled(palette, header.index_bits()))
        return palette;
    if (header.index_bits() == 1)
        Grey_palette(palette, 1);
    else if (header.index_bits() == 2)
        std::copy(cga_colours.begin(), cga_colours.end(), palette.begin());
    else
        std::copy(ega_colours.begin(), ega_colours.end(), palette.begin());
    return palette;
}

/// One row as it lies in the file: its planes one behind the other.
class Row {
public:
    Row(const Header &header, const std::uint8_t *bytes) : header_(header), bytes_(bytes) {}

    /// The pixel's bits in one plane.
    unsigned bits(int plane, int x) const {
        const std::uint8_t *row = bytes_ + plane * header_.plane_row;
        const int first_bit = x * header_.bits;
        const int shift = 8 - header_.bits - (first_bit & 7);
        return (row[first_bit >> 3] >> shift) & ((1u << header_.bits) - 1);
    }
    /// The number of its colour, lowest bits in the first plane.
    unsigned index(int x) const {
        unsigned result = 0;
        for (int plane = 0; plane < header_.planes; ++plane)
            result |= bits(plane, x) << (plane * header_.bits);
        return result;
    }
    /// Its colour when there is a plane for red, green and blue.
    Colour colour(int x) const {
        const unsigned scale = header_.bits == 8 ? 1 : 17;
        const auto level = [&](int plane) {
            return static_cast<std::uint8_t>(bits(plane, x) * scale);
        };
        return {level(0), level(1), level(2), header_.planes == 4 ? level(3) : std::uint8_t(255)};
    }

private:
    const Header &header_;
    const std::uint8_t *bytes_;
};

} // namespace

Result<Picture> Decode_pcx(const QByteArray &bytes) {
    const Result<Header> read = Read_header(bytes);
    if (!read.ok())
        return {{}, read.fault};
    const Header &header = read.value;
    const qint64 wanted = header.row() * header.height;
    // Two bytes give 63 at most: what can not be there is not asked memory for.
    if (bytes.size() * 32 < wanted / 2)
        return {{}, Damaged("it is cut off")};
    std::vector<std::uint8_t> rows(static_cast<size_t>(wanted));
    if (Unpack(bytes, header, rows) < wanted / 2)
        return {{}, Damaged("it is cut off")};

    const Palette palette = !header.has_index()        ? Palette{}
                            : header.index_bits() <= 4 ? Palette_16(bytes, header)
                                                       : Palette_256(bytes, header.index_bits());
    Picture picture{header.width, header.height, {}};
    picture.rgba.reserve(static_cast<size_t>(header.width) * static_cast<size_t>(header.height) * 4);
    for (int y = 0; y < header.height; ++y) {
        const Row row(header, rows.data() + y * header.row());
        for (int x = 0; x < header.width; ++x) {
            const Colour colour = header.has_index() ? palette[row.index(x)] : row.colour(x);
            picture.rgba.insert(picture.rgba.end(), {colour.red, colour.green, colour.blue, colour.alpha});
        }
    }
    return {std::move(picture), {}};
}

} // namespace vantrosk
