#include "audio/Sound_Source.h"
#include "platform/Native_File.h"

#include <sndfile.h>

namespace vantrosk {

namespace {

struct Sound_Closer {
    void operator()(SNDFILE *sound) const { sf_close(sound); }
};

class Sound_File : public Sound_Source {
public:
    explicit Sound_File(const QString &native) {
        SF_INFO info{};
        sound_.reset(sf_open(Native_path(native).c_str(), SFM_READ, &info));
        if (!sound_)
            return;
        const int encoding = info.format & SF_FORMAT_SUBMASK;
        channels = info.channels;
        rate = info.samplerate;
        bits = encoding == SF_FORMAT_PCM_S8 || encoding == SF_FORMAT_PCM_U8 ? 8 : 16;
        frames = double(info.frames);
    }
    bool is_open() const { return sound_ != nullptr; }

    long read(float *samples, long count) override {
        const sf_count_t got = sf_readf_float(sound_.get(), samples, count);
        return got < 0 || sf_error(sound_.get()) != SF_ERR_NO_ERROR ? -1 : static_cast<long>(got);
    }

private:
    std::unique_ptr<SNDFILE, Sound_Closer> sound_;
};

} // namespace

std::unique_ptr<Sound_Source> Open_sound_file(const QString &native) {
    std::error_code none;
    if (!std::filesystem::is_regular_file(Native_path(native), none))
        return nullptr;
    auto sound = std::make_unique<Sound_File>(native);
    if (!sound->is_open())
        return nullptr;
    return sound;
}

} // namespace vantrosk
