#include "audio/Wave.h"

#include "audio/Sound_Source.h"
#include "platform/Staged_File.h"

#include <samplerate.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace vantrosk {

namespace {

constexpr int mp3_target_rate = 22050;
/// Tracker music has no rate of its own.
constexpr int module_rate = 44100;
constexpr long block_frames = 8192;
constexpr qint64 header_size = 44;
constexpr int most_channels = 8;
/// Both lengths in the header have 32 bits.
constexpr qint64 longest_data = 0xffffffffLL - header_size;

struct Rate_Closer {
    void operator()(SRC_STATE *state) const { src_delete(state); }
};
using Rate_Handle = std::unique_ptr<SRC_STATE, Rate_Closer>;

/// What is made of the source.
struct Wave_Format {
    int channels = 0, rate = 0, bits = 0;
    int frame_size() const { return channels * bits / 8; }
};

QByteArray Little_endian(qint64 value, int count) {
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(value >> (8 * i));
    return bytes;
}

/// "RIFF", the format chunk and the head of the data chunk: 44 bytes.
QByteArray Wave_header(const Wave_Format &format, qint64 data_size) {
    constexpr int pcm = 1;
    return "RIFF" + Little_endian(data_size + header_size - 8, 4) + "WAVE" + "fmt " + Little_endian(16, 4) +
           Little_endian(pcm, 2) + Little_endian(format.channels, 2) + Little_endian(format.rate, 4) +
           Little_endian(qint64(format.rate) * format.frame_size(), 4) +
           Little_endian(format.frame_size(), 2) + Little_endian(format.bits, 2) + "data" +
           Little_endian(data_size, 4);
}

/// Samples from -1 to 1 as a wave file has them: 16 bits signed, or 8 bits around 128.
void Append_samples(QByteArray &bytes, const float *samples, size_t count, int bits) {
    for (size_t i = 0; i < count; ++i) {
        // A broken float file may hold what is no number.
        const float sample = std::isfinite(samples[i]) ? std::clamp(samples[i], -1.0f, 1.0f) : 0.0f;
        if (bits == 8) {
            bytes += static_cast<char>(std::clamp(std::lround(sample * 128.0f), -128L, 127L) + 128);
            continue;
        }
        const long value = std::clamp(std::lround(sample * 32768.0f), -32768L, 32767L);
        bytes += static_cast<char>(value & 255);
        bytes += static_cast<char>((value >> 8) & 255);
    }
}

/// The sound of a file as frames at the target's rate, block by block.
class Sound_Reader {
public:
    Sound_Reader(const QString &native, const QString &name, bool keeps_rate) : name_(name) {
        source_ = Open_sound_file(native);
        if (!source_)
            source_ = Open_module_music(native, keeps_rate ? module_rate : mp3_target_rate);
        keeps_rate_ = keeps_rate;
    }

    Fault prepare() {
        if (!source_ || source_->channels < 1 || source_->channels > most_channels || source_->rate < 1)
            return damaged();
        format_.channels = source_->channels;
        format_.bits = source_->bits;
        format_.rate = keeps_rate_ ? source_->rate : mp3_target_rate;
        ratio_ = double(format_.rate) / source_->rate;
        input_.resize(static_cast<size_t>(block_frames) * channels());
        if (format_.rate == source_->rate)
            return {};
        int error = 0;
        if (!src_is_valid_ratio(ratio_))
            return damaged();
        resampler_.reset(src_new(SRC_SINC_FASTEST, source_->channels, &error));
        output_.resize(static_cast<size_t>(std::ceil(block_frames * ratio_) + 64) * channels());
        return resampler_ ? Fault{} : damaged();
    }

    const Wave_Format &format() const { return format_; }
    /// Bytes that the whole sound will take, as far as its header tells.
    qint64 expected_size() const {
        return static_cast<qint64>(std::max<double>(0, source_->frames * ratio_)) * format_.frame_size();
    }

    /// Appends the next samples; nothing is appended at the end.
    Fault read(QByteArray &bytes) {
        while (bytes.isEmpty() && !ended_) {
            if (const Fault fault = fill())
                return fault;
            if (!resampler_) {
                Append_samples(bytes, input_.data(), available_ * channels(), format_.bits);
                available_ = 0;
                ended_ = at_end_;
            } else if (const Fault fault = resample(bytes)) {
                return fault;
            }
        }
        return {};
    }

private:
    size_t channels() const { return static_cast<size_t>(source_->channels); }

    Fault damaged() const {
        return {Fault_Kind::damaged, QString("\"%1\" is not a sound that can be read.").arg(name_)};
    }

    /// Reads the next frames when none are left over.
    Fault fill() {
        if (available_ > 0 || at_end_)
            return {};
        const long frames = source_->read(input_.data(), block_frames);
        if (frames < 0)
            return damaged();
        start_ = 0;
        available_ = static_cast<size_t>(frames);
        at_end_ = frames == 0;
        return {};
    }

    Fault resample(QByteArray &bytes) {
        SRC_DATA data{};
        data.data_in = input_.data() + start_ * channels();
        data.input_frames = static_cast<long>(available_);
        data.data_out = output_.data();
        data.output_frames = static_cast<long>(output_.size() / channels());
        data.src_ratio = ratio_;
        data.end_of_input = at_end_ ? 1 : 0;
        if (src_process(resampler_.get(), &data) != 0)
            return damaged();
        start_ += static_cast<size_t>(data.input_frames_used);
        available_ -= static_cast<size_t>(data.input_frames_used);
        Append_samples(bytes, output_.data(), static_cast<size_t>(data.output_frames_gen) * channels(),
                       format_.bits);
        ended_ = at_end_ && data.output_frames_gen == 0;
        return {};
    }

    QString name_;
    std::unique_ptr<Sound_Source> source_;
    bool keeps_rate_ = false;
    Rate_Handle resampler_;
    Wave_Format format_;
    double ratio_ = 1;
    std::vector<float> input_, output_;
    size_t start_ = 0, available_ = 0; ///< frames of `input_` that are still to be used
    bool at_end_ = false, ended_ = false;
};

QString Name_of_path(const QString &path) {
    return path.mid(std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/')) + 1);
}

Fault Copy_sound(Sound_Reader &sound, Staged_File &file, const QString &name, const Wave_Progress &progress) {
    qint64 written = 0;
    QByteArray bytes;
    for (;;) {
        bytes.clear();
        if (const Fault fault = sound.read(bytes))
            return fault;
        if (bytes.isEmpty())
            break;
        if (written + bytes.size() > longest_data)
            return {Fault_Kind::too_large, QString("\"%1\" is too long for a wave file.").arg(name)};
        if (const Fault fault = file.write(bytes.constData(), bytes.size()))
            return fault;
        written += bytes.size();
        if (progress && !progress(written, std::max(written, sound.expected_size())))
            return {Fault_Kind::other, QString("The conversion of \"%1\" was stopped.").arg(name)};
    }
    if (written == 0)
        return {Fault_Kind::damaged, QString("\"%1\" has no sound in it.").arg(name)};
    const QByteArray header = Wave_header(sound.format(), written);
    return file.write_at(0, header.constData(), header.size());
}

} // namespace

Fault Convert_to_wave(Files &files, const QString &source, const QString &target,
                      const Wave_Progress &progress) {
    const QString name = Name_of_path(source);
    if (!files.look(source))
        return {Fault_Kind::not_found, QString("There is no \"%1\".").arg(name)};
    Sound_Reader sound(files.to_native(source), name, source.endsWith(".ogg", Qt::CaseInsensitive));
    if (const Fault fault = sound.prepare())
        return fault;
    Staged_File file(files.to_native(target), files.to_native(target + wave_temporary_suffix));
    if (const Fault fault = file.open())
        return fault;
    const QByteArray header = Wave_header(sound.format(), 0);
    if (const Fault fault = file.write(header.constData(), header.size()))
        return fault;
    if (const Fault fault = Copy_sound(sound, file, name, progress))
        return fault;
    return file.keep();
}

} // namespace vantrosk
