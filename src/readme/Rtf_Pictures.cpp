#include "readme/Rtf_Pictures.h"

#include <QtEndian>

#include <algorithm>
#include <string_view>

namespace vantrosk {

namespace {

constexpr int largest_side = 22 * 1440; ///< twips; wider paper is not made
constexpr int largest_scale = 1000;     ///< percent
constexpr double twips_of_point = 20.0;

struct Format_Word {
    const char *name;
    Rtf_Picture::Format format;
};
constexpr Format_Word format_words[] = {
    {"pngblip", Rtf_Picture::Format::png},
    {"jpegblip", Rtf_Picture::Format::jpeg},
    {"dibitmap", Rtf_Picture::Format::bitmap},
    {"wmetafile", Rtf_Picture::Format::metafile},
};

struct Size_Word {
    const char *name;
    int Rtf_Picture::*value;
    int least, most;
};
constexpr Size_Word size_words[] = {
    {"picwgoal", &Rtf_Picture::width, 0, largest_side},
    {"pichgoal", &Rtf_Picture::height, 0, largest_side},
    {"picscalex", &Rtf_Picture::width_scale, 1, largest_scale},
    {"picscaley", &Rtf_Picture::height_scale, 1, largest_scale},
};

int Hex_digit(char digit) {
    constexpr std::string_view digits = "0123456789abcdef";
    const char lower = digit >= 'A' && digit <= 'F' ? static_cast<char>(digit - 'A' + 'a') : digit;
    const std::size_t place = digits.find(lower);
    return place == std::string_view::npos ? -1 : static_cast<int>(place);
}

template<typename Number>
Number Number_at(QByteArrayView bytes, qsizetype at) {
    return at >= 0 && at <= bytes.size() - qsizetype(sizeof(Number))
               ? qFromLittleEndian<Number>(bytes.data() + at)
               : Number(0);
}

// A bitmap as Windows keeps it in memory lacks the head of a file, which says where the pixels begin.

constexpr qsizetype file_head = 14, least_head = 40, most_head = 124;
constexpr quint32 separate_masks = 3; ///< a compression: three masks stand behind the shortest head
constexpr qsizetype bytes_of_masks = 12, bytes_of_colour = 4;

qsizetype Start_of_pixels(QByteArrayView bitmap) {
    const auto head = static_cast<qsizetype>(Number_at<quint32>(bitmap, 0));
    const auto bits = Number_at<quint16>(bitmap, 14);
    if (head < least_head || head > most_head || bits == 0 || bits > 32)
        return -1;
    const auto told = static_cast<qsizetype>(Number_at<quint32>(bitmap, 32));
    const qsizetype all = bits <= 8 ? qsizetype(1) << bits : 0;
    const qsizetype colours = told > 0 ? std::min<qsizetype>(told, 256) : all;
    const bool masks = head == least_head && Number_at<quint32>(bitmap, 16) == separate_masks;
    const qsizetype start = head + (masks ? bytes_of_masks : 0) + colours * bytes_of_colour;
    return start < bitmap.size() ? start : -1;
}

QByteArray File_of_bitmap(QByteArrayView bitmap) {
    const qsizetype start = Start_of_pixels(bitmap);
    if (start < 0)
        return {};
    QByteArray file(file_head, '\0');
    file[0] = 'B';
    file[1] = 'M';
    qToLittleEndian(static_cast<quint32>(file_head + bitmap.size()), file.data() + 2);
    qToLittleEndian(static_cast<quint32>(file_head + start), file.data() + 10);
    return file.append(bitmap);
}

// A metafile is a list of drawing orders. Editors of the time kept a picture as the one order that paints it.

struct Paint_Order {
    quint16 number;
    qsizetype bitmap_at; ///< behind the order's length and number
};
constexpr Paint_Order paint_orders[] = {{0x0F43, 22}, {0x0B41, 20}, {0x0940, 16}, {0x0D33, 18}};
constexpr qsizetype metafile_head = 18, order_head = 6;

QByteArray Bitmap_of_metafile(QByteArrayView metafile) {
    for (qsizetype at = metafile_head; at + order_head <= metafile.size();) {
        const qsizetype length = qsizetype(Number_at<quint32>(metafile, at)) * 2;
        if (length < order_head || length > metafile.size() - at)
            return {};
        for (const Paint_Order &order : paint_orders) {
            const qsizetype before = order_head + order.bitmap_at;
            if (Number_at<quint16>(metafile, at + 4) != order.number || length <= before)
                continue;
            if (QByteArray file = File_of_bitmap(metafile.sliced(at + before, length - before));
                !file.isEmpty())
                return file;
        }
        at += length;
    }
    return {};
}

struct Browser_Picture {
    const char *type = nullptr;
    QByteArray bytes;
};

Browser_Picture For_a_browser(const Rtf_Picture &picture) {
    switch (picture.format) {
    case Rtf_Picture::Format::png:
        return picture.bytes.startsWith("\x89PNG\r\n\x1a\n") ? Browser_Picture{"png", picture.bytes}
                                                             : Browser_Picture{};
    case Rtf_Picture::Format::jpeg:
        return picture.bytes.startsWith("\xff\xd8\xff") ? Browser_Picture{"jpeg", picture.bytes}
                                                        : Browser_Picture{};
    case Rtf_Picture::Format::bitmap:
        return {"bmp", File_of_bitmap(picture.bytes)};
    case Rtf_Picture::Format::metafile:
        return {"bmp", Bitmap_of_metafile(picture.bytes)};
    default:
        return {};
    }
}

/// A width and a proportion rather than a height: a page that is narrower shrinks both.
QString Size_style(const Rtf_Picture &picture) {
    const int width = std::min(picture.width * picture.width_scale / 100, largest_side);
    const int height = std::min(picture.height * picture.height_scale / 100, largest_side);
    if (width <= 0)
        return {};
    const QString style = " style='width:" + QString::number(width / twips_of_point) + "pt";
    return height <= 0
               ? style + "'"
               : style + ";aspect-ratio:" + QString::number(width) + "/" + QString::number(height) + "'";
}

} // namespace

void Take_picture_word(Rtf_Picture &picture, QByteArrayView name_bytes, std::optional<int> number) {
    const std::string_view name(name_bytes.constData(), static_cast<std::size_t>(name_bytes.size()));
    for (const Format_Word &word : format_words)
        if (name == word.name)
            picture.format = word.format;
    for (const Size_Word &word : size_words)
        if (name == word.name && number)
            picture.*word.value = std::clamp(*number, word.least, word.most);
}

void Take_picture_digit(Rtf_Picture &picture, char digit) {
    const int value = Hex_digit(digit);
    if (value < 0)
        return;
    if (picture.high_digit < 0) {
        picture.high_digit = value;
        return;
    }
    picture.bytes += static_cast<char>(picture.high_digit * 16 + value);
    picture.high_digit = -1;
}

QString Markup_of_picture(const Rtf_Picture &picture) {
    const Browser_Picture shown = For_a_browser(picture);
    if (shown.bytes.isEmpty())
        return {};
    return "<img src='data:image/" + QLatin1String(shown.type) + ";base64," +
           QLatin1String(shown.bytes.toBase64()) + "'" + Size_style(picture) + ">";
}

} // namespace vantrosk
