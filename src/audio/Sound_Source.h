#pragma once

#include <QString>

#include <memory>

namespace vantrosk {

/// A sound that can be read frame by frame.
class Sound_Source {
public:
    virtual ~Sound_Source() = default;
    /// The next frames as samples from -1 to 1, channels interleaved; 0 at the end, -1 when it is damaged.
    virtual long read(float *samples, long frames) = 0;

    int channels = 0;
    int rate = 0;      ///< frames a second
    int bits = 16;     ///< of the original: 8, or 16 for everything else
    double frames = 0; ///< as far as the header tells
};

/// MP3, Ogg, wave and others; null when it is none of them. Native path.
std::unique_ptr<Sound_Source> Open_sound_file(const QString &native);
/// Tracker music: stereo at the rate that is asked for, played once. Null when it is none. Native path.
std::unique_ptr<Sound_Source> Open_module_music(const QString &native, int rate);

} // namespace vantrosk
