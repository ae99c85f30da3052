#include "audio/Sound_Source.h"

#include <QFile>
#include <QFileInfo>

#include <libopenmpt/libopenmpt.h>

namespace vantrosk {

namespace {

/// Far beyond what any tracker wrote; a file is read whole.
constexpr qint64 most_bytes = 128 * 1024 * 1024;
/// A module of a few bytes can be told to play for days.
constexpr double longest_seconds = 2 * 60 * 60;

struct Module_Closer {
    void operator()(openmpt_module *module) const { openmpt_module_destroy(module); }
};

class Module_Music : public Sound_Source {
public:
    Module_Music(const QByteArray &bytes, int wanted_rate)
        : module_(openmpt_module_create_from_memory2(
              bytes.constData(), static_cast<size_t>(bytes.size()), openmpt_log_func_silent, nullptr,
              openmpt_error_func_ignore, nullptr, nullptr, nullptr, nullptr)) {
        channels = 2;
        rate = wanted_rate;
        if (!module_)
            return;
        // Not a sample more than its length: no fading out behind the end.
        openmpt_module_ctl_set_text(module_.get(), "play.at_end", "stop");
        frames = openmpt_module_get_duration_seconds(module_.get()) * rate;
    }
    bool is_music() const { return module_ && frames > 0 && frames <= longest_seconds * rate; }

    long read(float *samples, long count) override {
        return static_cast<long>(openmpt_module_read_interleaved_float_stereo(
            module_.get(), rate, static_cast<size_t>(count), samples));
    }

private:
    std::unique_ptr<openmpt_module, Module_Closer> module_;
};

} // namespace

std::unique_ptr<Sound_Source> Open_module_music(const QString &native, int rate) {
    QFile file(native);
    if (!QFileInfo(native).isFile() || file.size() > most_bytes || !file.open(QIODevice::ReadOnly))
        return nullptr;
    auto music = std::make_unique<Module_Music>(file.readAll(), rate);
    if (!music->is_music())
        return nullptr;
    return music;
}

} // namespace vantrosk
