#include "Demo_Library.h"

#include <QFile>
#include <QTemporaryDir>

#include <sndfile.h>

#include <array>
#include <cmath>
#include <numbers>

namespace vantrosk::demo {

namespace {

constexpr int rate = 44100;
constexpr std::array<int, 8> minor_scale{0, 2, 3, 5, 7, 8, 10, 12};

/// Seven notes of a minor scale that fade, as a music box plays them.
std::vector<float> Tune(int seed) {
    std::vector<float> samples;
    constexpr int note_length = rate * 2 / 5;
    for (int note = 0; note < 7; ++note) {
        const int step = minor_scale[static_cast<std::size_t>((seed * 3 + note * (2 + seed % 3)) % 8)];
        const double frequency = 220.0 * std::pow(2.0, step / 12.0);
        for (int i = 0; i < note_length; ++i) {
            const double time = static_cast<double>(i) / rate;
            const double tone = std::sin(2 * std::numbers::pi * frequency * time) +
                                0.3 * std::sin(4 * std::numbers::pi * frequency * time);
            samples.push_back(static_cast<float>(0.25 * tone * std::exp(-4 * time)));
        }
    }
    return samples;
}

QByteArray Encode(int seed, int format) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("tune");
    SF_INFO info{};
    info.samplerate = rate;
    info.channels = 1;
    info.format = format;
    if (!sf_format_check(&info))
        return {};
    SNDFILE *sound = sf_open(QFile::encodeName(path).constData(), SFM_WRITE, &info);
    if (!sound)
        return {};
    const std::vector<float> samples = Tune(seed);
    // Blocks, because some encoders keep a whole write on the stack.
    constexpr std::size_t block = 4096;
    for (std::size_t at = 0; at < samples.size(); at += block)
        sf_write_float(sound, samples.data() + at,
                       static_cast<sf_count_t>(std::min(block, samples.size() - at)));
    sf_close(sound);
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

QByteArray Play_ogg(int seed) {
    return Encode(seed, SF_FORMAT_OGG | SF_FORMAT_VORBIS);
}

QByteArray Play_mp3(int seed) {
    // Numbers of SF_FORMAT_MPEG and SF_FORMAT_MPEG_LAYER_III, which older headers do not name.
    return Encode(seed, 0x230000 | 0x0082);
}

} // namespace vantrosk::demo
