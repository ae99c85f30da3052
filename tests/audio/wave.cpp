#include "audio/Wave.h"

#include "support/World.h"

#include <QFile>

#include <gtest/gtest.h>
#include <signal.h>
#include <sndfile.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <limits>
#include <numbers>

#ifdef __SANITIZE_ADDRESS__
/// libsndfile itself forgets this of an Ogg that breaks off in its head.
extern "C" const char *__lsan_default_suppressions() {
    return "leak:vorbis_info_init\n";
}
#endif

namespace vantrosk {
namespace {

/// A sound of sines to be made with libsndfile.
struct Tone {
    int format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    int rate = 44100, channels = 1;
    double seconds = 1;
    double frequency = 440; ///< of the first channel; the next one is an octave higher
    double loudness = 0.5;
};

/// A wave file taken apart.
struct Wave {
    int tag = 0, channels = 0, rate = 0, byte_rate = 0, block = 0, bits = 0;
    std::vector<double> samples; ///< interleaved, -1 to 1

    double seconds() const { return double(samples.size()) / channels / rate; }
    /// Of one channel, by the crossings of zero.
    double frequency(int channel) const {
        int crossings = 0;
        double last = 0;
        for (size_t i = static_cast<size_t>(channel); i < samples.size();
             i += static_cast<size_t>(channels)) {
            if (std::abs(samples[i]) < 0.02)
                continue;
            crossings += last * samples[i] < 0 ? 1 : 0;
            last = samples[i];
        }
        return crossings / 2.0 / seconds();
    }
    double loudest() const {
        double result = 0;
        for (const double sample : samples)
            result = std::max(result, std::abs(sample));
        return result;
    }
};

int Number(const QByteArray &bytes, qsizetype at, int count) {
    int value = 0;
    for (int i = count - 1; i >= 0; --i)
        value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
    return value;
}

class Wave_Conversion : public testing::Test {
protected:
    World world;
    Files &files = *world.platform.files;

    /// False when libsndfile was built without that format.
    bool make(const QString &name, const Tone &tone) {
        SF_INFO info{};
        info.samplerate = tone.rate;
        info.channels = tone.channels;
        info.format = tone.format;
        if (!sf_format_check(&info))
            return false;
        SNDFILE *sound = sf_open(QFile::encodeName(world.native(name)).constData(), SFM_WRITE, &info);
        if (!sound)
            return false;
        const auto frames = static_cast<size_t>(tone.rate * tone.seconds);
        std::vector<double> samples;
        for (size_t i = 0; i < frames; ++i)
            for (int channel = 0; channel < tone.channels; ++channel)
                samples.push_back(tone.loudness * std::sin(2 * std::numbers::pi * tone.frequency *
                                                           (1 << channel) * double(i) / tone.rate));
        // Piece by piece: the Vorbis encoder of libsndfile takes its stack from the length of a write.
        for (size_t at = 0; at < samples.size(); at += 4096) {
            const size_t count =
                std::min<size_t>(4096, samples.size() - at) / static_cast<size_t>(tone.channels);
            sf_writef_double(sound, samples.data() + at, static_cast<sf_count_t>(count));
        }
        return sf_close(sound) == 0;
    }

    Fault convert(const QString &source, const QString &target, const Wave_Progress &progress = {}) {
        return Convert_to_wave(files, world.windows(source), world.windows(target), progress);
    }

    /// Takes the file apart and checks what holds for every wave file.
    Wave read_wave(const QString &name) {
        const QByteArray bytes = world.read(name);
        Wave wave;
        if (bytes.size() < 44) {
            ADD_FAILURE() << name.toStdString() << " is too short";
            return wave;
        }
        EXPECT_EQ(bytes.left(4), "RIFF");
        EXPECT_EQ(Number(bytes, 4, 4), bytes.size() - 8);
        EXPECT_EQ(bytes.mid(8, 8), "WAVEfmt ");
        EXPECT_EQ(Number(bytes, 16, 4), 16);
        wave.tag = Number(bytes, 20, 2);
        wave.channels = Number(bytes, 22, 2);
        wave.rate = Number(bytes, 24, 4);
        wave.byte_rate = Number(bytes, 28, 4);
        wave.block = Number(bytes, 32, 2);
        wave.bits = Number(bytes, 34, 2);
        EXPECT_EQ(wave.tag, 1);
        EXPECT_EQ(wave.block, wave.channels * wave.bits / 8);
        EXPECT_EQ(wave.byte_rate, wave.rate * wave.block);
        EXPECT_EQ(bytes.mid(36, 4), "data");
        EXPECT_EQ(Number(bytes, 40, 4), bytes.size() - 44);
        for (qsizetype at = 44; at + wave.bits / 8 <= bytes.size(); at += wave.bits / 8)
            wave.samples.push_back(wave.bits == 8 ? (Number(bytes, at, 1) - 128) / 128.0
                                                  : static_cast<qint16>(Number(bytes, at, 2)) / 32768.0);
        return wave;
    }
};

TEST_F(Wave_Conversion, An_Ogg_keeps_its_rate_and_channels) {
    for (const int rate : {8000, 11025, 22050, 44100, 48000}) {
        for (const int channels : {1, 2}) {
            if (!make("a.ogg", {.format = SF_FORMAT_OGG | SF_FORMAT_VORBIS,
                                .rate = rate,
                                .channels = channels,
                                .seconds = 1.5}))
                GTEST_SKIP() << "libsndfile was built without Vorbis";
            ASSERT_EQ(convert("a.ogg", "a.wav").text, QString());
            const Wave wave = read_wave("a.wav");
            EXPECT_EQ(wave.rate, rate);
            EXPECT_EQ(wave.channels, channels);
            EXPECT_EQ(wave.bits, 16);
            EXPECT_NEAR(wave.seconds(), 1.5, 0.01);
            EXPECT_NEAR(wave.frequency(0), 440, 4) << rate;
            EXPECT_NEAR(wave.frequency(channels - 1), 440 * channels, 8) << rate;
            EXPECT_NEAR(wave.loudest(), 0.5, 0.1);
        }
    }
}

TEST_F(Wave_Conversion, An_MP3_becomes_22050_Hz_at_the_same_pitch_and_length) {
    for (const int rate : {22050, 44100, 48000}) {
        for (const int channels : {1, 2}) {
            if (!make("a.mp3", {.format = SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III,
                                .rate = rate,
                                .channels = channels,
                                .seconds = 2}))
                GTEST_SKIP() << "libsndfile was built without MP3";
            ASSERT_EQ(convert("a.mp3", "a.wav").text, QString());
            const Wave wave = read_wave("a.wav");
            EXPECT_EQ(wave.rate, 22050);
            EXPECT_EQ(wave.channels, channels);
            EXPECT_EQ(wave.bits, 16);
            EXPECT_NEAR(wave.seconds(), 2, 0.15);
            EXPECT_NEAR(wave.frequency(0) * wave.seconds() / 2, 440, 8) << rate;
        }
    }
}

TEST_F(Wave_Conversion, The_ending_of_the_name_decides_about_the_rate_in_any_case) {
    ASSERT_TRUE(make("a.wav", {.rate = 44100}));
    const QByteArray sound = world.read("a.wav");
    world.write("UPPER.OGG", sound);
    world.write("lower.ogg", sound);
    world.write("other.mp3", sound);
    world.write("ogg", sound);
    for (const auto &[name, rate] :
         {std::pair{"UPPER.OGG", 44100}, {"lower.ogg", 44100}, {"other.mp3", 22050}, {"ogg", 22050}}) {
        ASSERT_FALSE(convert(name, "out.wav")) << name;
        EXPECT_EQ(read_wave("out.wav").rate, rate) << name;
    }
}

TEST_F(Wave_Conversion, A_source_of_8_bits_stays_at_8_bits) {
    for (const int format : {SF_FORMAT_WAV | SF_FORMAT_PCM_U8, SF_FORMAT_AIFF | SF_FORMAT_PCM_S8}) {
        ASSERT_TRUE(make("a.mp3", {.format = format, .rate = 11025, .channels = 2}));
        ASSERT_FALSE(convert("a.mp3", "out.wav"));
        const Wave wave = read_wave("out.wav");
        EXPECT_EQ(wave.bits, 8);
        EXPECT_EQ(wave.channels, 2);
        EXPECT_EQ(wave.rate, 22050);
        EXPECT_NEAR(wave.seconds(), 1, 0.01);
        EXPECT_NEAR(wave.frequency(0), 440, 4);
        EXPECT_NEAR(wave.frequency(1), 880, 8);
    }
}

TEST_F(Wave_Conversion, Sixteen_bits_at_the_right_rate_come_through_bit_for_bit) {
    ASSERT_TRUE(make("a.mp3", {.rate = 22050, .channels = 2, .loudness = 1}));
    ASSERT_FALSE(convert("a.mp3", "out.wav"));
    EXPECT_EQ(world.read("out.wav"), world.read("a.mp3"));
}

TEST_F(Wave_Conversion, Silence_stays_silent) {
    for (const int format : {SF_FORMAT_WAV | SF_FORMAT_PCM_16, SF_FORMAT_WAV | SF_FORMAT_PCM_U8}) {
        ASSERT_TRUE(make("a.mp3", {.format = format, .loudness = 0}));
        ASSERT_FALSE(convert("a.mp3", "out.wav"));
        EXPECT_EQ(read_wave("out.wav").loudest(), 0);
    }
}

TEST_F(Wave_Conversion, Too_loud_a_sound_is_clipped_and_does_not_wrap) {
    ASSERT_TRUE(make("a.ogg", {.format = SF_FORMAT_WAV | SF_FORMAT_FLOAT, .frequency = 100, .loudness = 4}));
    ASSERT_FALSE(convert("a.ogg", "out.wav"));
    const Wave wave = read_wave("out.wav");
    EXPECT_NEAR(wave.frequency(0), 100, 2);
    EXPECT_GE(wave.loudest(), 0.999);
}

TEST_F(Wave_Conversion, What_is_no_number_becomes_silence) {
    ASSERT_TRUE(make("a.ogg", {.format = SF_FORMAT_WAV | SF_FORMAT_FLOAT, .seconds = 0.01}));
    QByteArray bytes = world.read("a.ogg");
    const float wrong[] = {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
                           -std::numeric_limits<float>::infinity(), 1e30f};
    bytes.replace(bytes.size() - 16, 16, QByteArray(reinterpret_cast<const char *>(wrong), 16));
    world.write("a.ogg", bytes);
    ASSERT_FALSE(convert("a.ogg", "out.wav"));
    const Wave wave = read_wave("out.wav");
    const std::vector<double> last(wave.samples.end() - 4, wave.samples.end());
    EXPECT_EQ(last, (std::vector<double>{0, 0, 0, 32767 / 32768.0}));
}

TEST_F(Wave_Conversion, The_source_stays_and_the_target_is_replaced) {
    ASSERT_TRUE(make("Theme.OGG", {}));
    const QByteArray source = world.read("Theme.OGG");
    world.write("theme.wav", "old");
    ASSERT_FALSE(convert("theme.ogg", "THEME.WAV"));
    EXPECT_EQ(world.read("Theme.OGG"), source);
    EXPECT_EQ(read_wave("theme.wav").rate, 44100);
    EXPECT_EQ(Names(world.snapshot("")).filter(".wav", Qt::CaseInsensitive), QStringList({"theme.wav"}));
}

TEST_F(Wave_Conversion, A_source_that_is_no_sound_is_damaged_and_the_target_stays_what_it_was) {
    ASSERT_TRUE(make("good.ogg", {.format = SF_FORMAT_OGG | SF_FORMAT_VORBIS}));
    const QByteArray good = world.read("good.ogg");
    const std::pair<const char *, QByteArray> sources[] = {{"nothing", ""},
                                                           {"a text", "This is no music."},
                                                           {"zeros", QByteArray(100000, '\0')},
                                                           {"the start of an Ogg", good.left(200)},
                                                           {"an Ogg without its head", good.mid(300)}};
    for (const auto &[what, bytes] : sources) {
        world.write("a.ogg", bytes);
        for (const char *old : {"", "old"}) {
            QFile::remove(world.native("a.wav"));
            if (*old)
                world.write("a.wav", old);
            const Fault fault = convert("a.ogg", "a.wav");
            EXPECT_EQ(fault.kind, Fault_Kind::damaged) << what;
            EXPECT_TRUE(fault.text.startsWith("\"a.ogg\" ") && fault.text.endsWith("."))
                << fault.text.toStdString();
            EXPECT_EQ(world.exists("a.wav"), *old != 0) << what;
            EXPECT_EQ(world.read("a.wav"), old) << what;
            EXPECT_FALSE(world.exists("a.wav.new")) << what;
        }
    }
}

TEST_F(Wave_Conversion, A_sound_of_no_length_is_damaged) {
    ASSERT_TRUE(make("a.ogg", {.seconds = 0}));
    EXPECT_EQ(convert("a.ogg", "a.wav").text, "\"a.ogg\" has no sound in it.");
    ASSERT_TRUE(make("a.mp3", {.seconds = 0}));
    EXPECT_EQ(convert("a.mp3", "a.wav").kind, Fault_Kind::damaged);
    EXPECT_FALSE(world.exists("a.wav"));
}

TEST_F(Wave_Conversion, A_sound_of_a_few_samples_is_converted) {
    for (const int frames : {1, 2, 5, 100}) {
        ASSERT_TRUE(make("a.ogg", {.rate = 1000, .seconds = frames / 1000.0 + 0.0001}));
        ASSERT_FALSE(convert("a.ogg", "a.wav"));
        EXPECT_EQ(read_wave("a.wav").samples.size(), static_cast<size_t>(frames));
    }
}

TEST_F(Wave_Conversion, A_missing_source_is_not_found) {
    const Fault fault = convert("missing.ogg", "a.wav");
    EXPECT_EQ(fault.kind, Fault_Kind::not_found);
    EXPECT_EQ(fault.text, "There is no \"missing.ogg\".");
    EXPECT_FALSE(world.exists("a.wav"));
}

TEST_F(Wave_Conversion, A_folder_is_no_sound) {
    world.make_folder("a.ogg");
    EXPECT_EQ(convert("a.ogg", "a.wav").kind, Fault_Kind::damaged);
}

TEST_F(Wave_Conversion, Progress_rises_to_the_total) {
    ASSERT_TRUE(make("a.mp3", {.seconds = 3}));
    std::vector<std::pair<qint64, qint64>> told;
    ASSERT_FALSE(convert("a.mp3", "a.wav", [&](qint64 done, qint64 total) {
        told.emplace_back(done, total);
        return true;
    }));
    ASSERT_GT(told.size(), 5u);
    for (size_t i = 0; i < told.size(); ++i) {
        EXPECT_GT(told[i].first, i ? told[i - 1].first : 0);
        EXPECT_LE(told[i].first, told[i].second);
        EXPECT_NEAR(double(told[i].second), 3 * 22050 * 2, 200);
    }
    EXPECT_EQ(told.back().first, world.read("a.wav").size() - 44);
}

TEST_F(Wave_Conversion, Progress_can_stop_it_and_the_target_stays_what_it_was) {
    ASSERT_TRUE(make("a.ogg", {.seconds = 3}));
    world.write("a.wav", "old");
    int told = 0;
    const Fault fault = convert("a.ogg", "a.wav", [&](qint64, qint64) { return ++told < 3; });
    EXPECT_EQ(fault.kind, Fault_Kind::other);
    EXPECT_EQ(fault.text, "The conversion of \"a.ogg\" was stopped.");
    EXPECT_EQ(told, 3);
    EXPECT_EQ(world.read("a.wav"), "old");
    EXPECT_FALSE(world.exists("a.wav.new"));
}

TEST_F(Wave_Conversion, A_full_disk_leaves_the_target_what_it_was) {
    ASSERT_TRUE(make("a.ogg", {.seconds = 3}));
    world.write("a.wav", "old");
    for (const rlim_t limit : {rlim_t(0), rlim_t(20), rlim_t(44), rlim_t(50000)}) {
        const pid_t child = fork();
        if (child == 0) {
            signal(SIGXFSZ, SIG_IGN);
            const rlimit bound{limit, limit};
            setrlimit(RLIMIT_FSIZE, &bound);
            _exit(static_cast<int>(convert("a.ogg", "a.wav").kind));
        }
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFEXITED(status));
        EXPECT_EQ(static_cast<Fault_Kind>(WEXITSTATUS(status)), Fault_Kind::no_space) << limit;
        EXPECT_EQ(world.read("a.wav"), "old") << limit;
        EXPECT_FALSE(world.exists("a.wav.new")) << limit;
    }
}

/// A piece of tracker music: one pattern of 64 rows, a square wave as its one instrument.
QByteArray Module() {
    QByteArray bytes = QByteArray("tune").leftJustified(20, '\0');
    const auto big = [](int value) {
        return QByteArray(1, static_cast<char>(value >> 8)) + static_cast<char>(value & 255);
    };
    constexpr int words = 512;
    bytes += QByteArray("square").leftJustified(22, '\0') + big(words) + QByteArray("\0\x40", 2) + big(0) +
             big(words);
    for (int i = 1; i < 31; ++i)
        bytes += QByteArray(22, '\0') + big(0) + QByteArray("\0\0", 2) + big(0) + big(1);
    bytes += QByteArray("\x01\x7f", 2) + QByteArray(128, '\0') + "M.K.";
    QByteArray pattern(64 * 4 * 4, '\0');
    constexpr int middle_c = 428;
    pattern[0] = static_cast<char>(middle_c >> 8);
    pattern[1] = static_cast<char>(middle_c & 255);
    pattern[2] = 0x10;
    bytes += pattern;
    for (int i = 0; i < words * 2; ++i)
        bytes += (i / 16) % 2 ? '\x60' : '\xa0';
    return bytes;
}

TEST_F(Wave_Conversion, Tracker_music_becomes_stereo_at_the_rate_of_its_name) {
    world.write("tune.ogg", Module());
    world.write("tune.mp3", Module());
    for (const auto &[name, rate] : {std::pair{"tune.ogg", 44100}, std::pair{"tune.mp3", 22050}}) {
        ASSERT_FALSE(convert(name, "tune.wav"));
        const Wave wave = read_wave("tune.wav");
        EXPECT_EQ(wave.channels, 2);
        EXPECT_EQ(wave.rate, rate);
        EXPECT_EQ(wave.bits, 16);
        // 64 rows of 6 ticks at 50 ticks a second.
        EXPECT_NEAR(wave.seconds(), 7.68, 0.05);
        // Period 428 plays 8287 samples a second; a wave of the instrument has 32.
        EXPECT_NEAR(wave.frequency(0), 259, 3);
        EXPECT_GT(wave.loudest(), 0.1);
    }
}

TEST_F(Wave_Conversion, Progress_goes_up_to_the_length) {
    world.write("tune.ogg", Module());
    qint64 last = 0, expected = 0;
    ASSERT_FALSE(convert("tune.ogg", "tune.wav", [&](qint64 done, qint64 total) {
        EXPECT_GT(done, last);
        EXPECT_LE(done, total);
        last = done;
        expected = total;
        return true;
    }));
    EXPECT_EQ(last, world.read("tune.wav").size() - 44);
    EXPECT_NEAR(double(last), double(expected), 44100.0);
}

TEST_F(Wave_Conversion, A_module_that_is_cut_off_in_its_head_is_no_sound) {
    world.write("tune.mp3", Module().left(900));
    EXPECT_EQ(convert("tune.mp3", "tune.wav").kind, Fault_Kind::damaged);
    EXPECT_FALSE(world.exists("tune.wav"));
}

} // namespace
} // namespace vantrosk
