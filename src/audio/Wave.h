#pragma once

#include "platform/Files.h"

#include <QString>

#include <functional>

namespace vantrosk {

/// How far a conversion is: bytes written of the bytes expected. False stops it.
using Wave_Progress = std::function<bool(qint64 done, qint64 total)>;

/// Behind the target's name: where the wave file is written before it is moved to its place. Only a killed
/// program leaves it behind; the next conversion to that target removes it.
inline constexpr const char *wave_temporary_suffix = ".new";

/// Converts an MP3, Ogg or any other sound that libsndfile reads, or tracker music, into a PCM wave file with
/// a header of 44 bytes. Channels are those of the source; 16 bits, or 8 when the source has 8. The rate is
/// the source's for
/// ".OGG" (44100 Hz for tracker music) and 22050 Hz for anything else, at the same pitch. An existing target
/// is replaced when the conversion is complete. `damaged` when the source can not be read or has no sound in
/// it, `other` when `progress` stopped it: the target is then what it was before. Paths are Windows paths.
Fault Convert_to_wave(Files &files, const QString &source, const QString &target,
                      const Wave_Progress &progress = {});

} // namespace vantrosk
