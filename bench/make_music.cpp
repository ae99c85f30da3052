// bench_make_music FILE SECONDS: a sound of three voices, stereo at 44100 Hz, as ".mp3" or ".ogg" by its
// name.

#include <sndfile.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <numbers>
#include <string>
#include <vector>

int main(int argc, char **argv) {
    if (argc != 3)
        return 2;
    constexpr int rate = 44100;
    constexpr int block = 4096;
    const std::string name = argv[1];
    SF_INFO info{};
    info.samplerate = rate;
    info.channels = 2;
    info.format =
        name.ends_with(".ogg") ? SF_FORMAT_OGG | SF_FORMAT_VORBIS : SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III;
    SNDFILE *sound = sf_open(name.c_str(), SFM_WRITE, &info);
    if (!sound) {
        std::fprintf(stderr, "%s\n", sf_strerror(nullptr));
        return 1;
    }
    std::vector<float> samples(block * 2);
    const long frames = std::atol(argv[2]) * rate;
    for (long frame = 0; frame < frames;) {
        for (int i = 0; i < block; ++i, ++frame) {
            const double at = double(frame) / rate;
            const double pitch = 220 * std::exp2(double(frame / (rate / 4) % 24) / 12);
            for (int channel = 0; channel < 2; ++channel)
                samples[size_t(2 * i + channel)] =
                    float(0.3 * std::sin(2 * std::numbers::pi * pitch * at) +
                          0.2 * std::sin(2 * std::numbers::pi * 1.5 * pitch * at + channel) +
                          0.1 * (double(std::rand()) / RAND_MAX - 0.5));
        }
        sf_writef_float(sound, samples.data(), block);
    }
    return sf_close(sound);
}
