#include "Demo_Library.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRandomGenerator>

#include <array>

namespace vantrosk::demo {

namespace {

struct Sky {
    QRgb top, bottom, glow, wall;
};
constexpr std::array<Sky, 6> skies{{
    {0xff0b1026, 0xff3a4a7a, 0xfff3d58a, 0xff0a0c18},
    {0xff1b0f24, 0xff7a3b52, 0xffffc27a, 0xff140a18},
    {0xff06181c, 0xff2f6a64, 0xffe9f2b4, 0xff061012},
    {0xff10141c, 0xff58606e, 0xffdfe8ff, 0xff0c0e14},
    {0xff1c1206, 0xff8a5a1e, 0xffffe0a0, 0xff160e06},
    {0xff080a0e, 0xff6a1f1a, 0xffff9a6a, 0xff0a0606},
}};

void Paint_sky(QPainter &painter, const Sky &sky, QRandomGenerator &dice, int width, int height) {
    QLinearGradient gradient(0, 0, 0, height);
    gradient.setColorAt(0, QColor(sky.top));
    gradient.setColorAt(1, QColor(sky.bottom));
    painter.fillRect(0, 0, width, height, gradient);
    painter.setPen(Qt::NoPen);
    for (int star = 0; star < width / 5; ++star) {
        painter.setBrush(QColor(255, 255, 255, 40 + dice.bounded(140)));
        painter.drawRect(QRectF(dice.bounded(width), dice.bounded(height * 2 / 3), 1.2, 1.2));
    }
    const QPointF moon(width * (0.2 + 0.6 * dice.generateDouble()),
                       height * (0.14 + 0.14 * dice.generateDouble()));
    QRadialGradient halo(moon, height * 0.4);
    halo.setColorAt(0,
                    QColor(QColor(sky.glow).red(), QColor(sky.glow).green(), QColor(sky.glow).blue(), 150));
    halo.setColorAt(1, QColor(0, 0, 0, 0));
    painter.fillRect(0, 0, width, height, halo);
    painter.setBrush(QColor(sky.glow));
    painter.drawEllipse(moon, height * 0.06, height * 0.06);
}

void Paint_window_lights(QPainter &painter, const Sky &sky, QRandomGenerator &dice, const QRectF &house) {
    const double size = house.width() / 7;
    painter.setBrush(QColor(sky.glow));
    for (double y = house.top() + size * 2; y < house.bottom() - size; y += size * 2.4)
        for (double x = house.left() + size; x < house.right() - size; x += size * 2)
            if (dice.bounded(4) == 0)
                painter.drawRect(QRectF(x, y, size * 0.8, size * 1.3));
}

void Paint_row_of_houses(QPainter &painter, const Sky &sky, QRandomGenerator &dice, int width, int height,
                         double depth) {
    const QColor wall = QColor(sky.wall).lighter(static_cast<int>(100 + 160 * (1 - depth)));
    double x = -width * 0.05;
    while (x < width) {
        const double house_width = width * (0.07 + 0.1 * dice.generateDouble());
        const double top = height * (0.9 - depth * 0.12 - 0.42 * dice.generateDouble());
        const QRectF house(x, top, house_width, height - top);
        painter.setBrush(wall);
        painter.drawRect(house);
        QPainterPath roof;
        roof.moveTo(house.topLeft() + QPointF(-3, 0));
        roof.lineTo(house.center().x(), top - house_width * (0.3 + dice.generateDouble()));
        roof.lineTo(house.topRight() + QPointF(3, 0));
        painter.drawPath(roof);
        Paint_window_lights(painter, sky, dice, house);
        x += house_width * 0.95;
    }
}

QImage Paint_scene(int seed, int width, int height) {
    QRandomGenerator dice(static_cast<quint32>(seed) * 2654435761u + 1);
    const Sky &sky = skies[static_cast<std::size_t>(seed) % skies.size()];
    QImage image(width, height, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    Paint_sky(painter, sky, dice, width, height);
    for (const double depth : {0.0, 0.5, 1.0})
        Paint_row_of_houses(painter, sky, dice, width, height, depth);
    return image;
}

QByteArray Le16(int value) {
    return QByteArray(1, static_cast<char>(value & 255)) + QByteArray(1, static_cast<char>(value >> 8));
}

QByteArray Palette_of(const QImage &indexed) {
    QByteArray palette(768, '\0');
    for (int i = 0; i < indexed.colorCount() && i < 256; ++i) {
        palette[i * 3] = static_cast<char>(qRed(indexed.color(i)));
        palette[i * 3 + 1] = static_cast<char>(qGreen(indexed.color(i)));
        palette[i * 3 + 2] = static_cast<char>(qBlue(indexed.color(i)));
    }
    return palette;
}

/// Codes of nine bits, low bits first, in blocks of 255 bytes.
class Gif_Bits {
public:
    void put(int code) {
        bits_ |= static_cast<quint32>(code) << count_;
        count_ += 9;
        while (count_ >= 8) {
            bytes_ += static_cast<char>(bits_ & 255);
            bits_ >>= 8;
            count_ -= 8;
        }
    }
    QByteArray blocks() {
        if (count_ > 0)
            bytes_ += static_cast<char>(bits_ & 255);
        QByteArray result;
        for (qsizetype at = 0; at < bytes_.size(); at += 255) {
            const QByteArray block = bytes_.mid(at, 255);
            result += static_cast<char>(block.size());
            result += block;
        }
        return result + '\0';
    }

private:
    QByteArray bytes_;
    quint32 bits_ = 0;
    int count_ = 0;
};

} // namespace

QByteArray Paint_jpg(int seed, int width, int height) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    Paint_scene(seed, width, height).save(&buffer, "JPG", 88);
    return bytes;
}

/// GIF 89a without compression: the table is cleared before a code would need a tenth bit.
QByteArray Paint_gif(int seed, int width, int height) {
    const QImage image = Paint_scene(seed, width, height).convertToFormat(QImage::Format_Indexed8);
    Gif_Bits bits;
    constexpr int clear = 256, end = 257, pixels_between_clears = 250;
    int since_clear = pixels_between_clears;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if (since_clear++ == pixels_between_clears) {
                bits.put(clear);
                since_clear = 1;
            }
            bits.put(image.pixelIndex(x, y));
        }
    }
    bits.put(end);
    return "GIF89a" + Le16(width) + Le16(height) + QByteArray::fromHex("f70000") + Palette_of(image) + "," +
           Le16(0) + Le16(0) + Le16(width) + Le16(height) + QByteArray(1, '\0') + QByteArray(1, '\x08') +
           bits.blocks() + ";";
}

/// PCX version 5: one plane of 8 bits, run-length coded, the palette behind the pixels.
QByteArray Paint_pcx(int seed, int width, int height) {
    const QImage image = Paint_scene(seed, width, height).convertToFormat(QImage::Format_Indexed8);
    const int line = (width + 1) / 2 * 2;
    QByteArray bytes = QByteArray::fromHex("0a050108") + Le16(0) + Le16(0) + Le16(width - 1) +
                       Le16(height - 1) + Le16(72) + Le16(72) + QByteArray(49, '\0') + '\x01' + Le16(line) +
                       Le16(1) + QByteArray(58, '\0');
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < line;) {
            const int value = x < width ? image.pixelIndex(x, y) : 0;
            int run = 1;
            while (run < 63 && x + run < line &&
                   (x + run < width ? image.pixelIndex(x + run, y) : 0) == value)
                ++run;
            if (run > 1 || value >= 0xc0)
                bytes += static_cast<char>(0xc0 | run);
            bytes += static_cast<char>(value);
            x += run;
        }
    }
    return bytes + '\x0c' + Palette_of(image);
}

} // namespace vantrosk::demo
