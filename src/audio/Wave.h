#pragma once

#include "platform/Files.h"

#include <QString>

#include <functional>

namespace vantrosk {

/// How far a conversion is: bytes written of the bytes expected. False stops it.
using Wave_Progress = std::function<bool(qint64 done, qint64 total)>;

/// Converts an MP3, Ogg or any other sound that libsndfile reads into a PCM wave file. Channels are those of
/// the source; 16 bits, or 8 when the source has 8. The rate is the source's for ".OGG" and 22050 Hz for
/// anything else. An existing target is replaced. `damaged` when the source can not be read: no target then.
/// Paths are Windows paths.
Fault Convert_to_wave(Files &files, const QString &source, const QString &target,
                      const Wave_Progress &progress = {});

} // namespace vantrosk
