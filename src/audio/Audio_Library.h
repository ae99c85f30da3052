#pragma once

#include "platform/Fault.h"

#include <QString>

namespace vantrosk {

/// What the start asks of the audio library. This program turns sounds into wave files and plays none, so its
/// own library is always there and a machine without a sound card is one that it runs on.
class Audio_Library {
public:
    virtual ~Audio_Library() = default;
    virtual bool present() const { return true; }
    /// Major and minor number of what it can do, as "2.1".
    virtual QString version() const { return QStringLiteral("2.1"); }
    /// Takes the default sound device; its name.
    virtual Result<QString> device() { return {QStringLiteral("no device"), {}}; }
    /// Gives back what `device` took.
    virtual void release() {}
};

} // namespace vantrosk
