#pragma once

#include <QDateTime>

namespace vantrosk {

/// "Now" and waiting, in one place so that a test chooses the date and waits in no time.
class Clock {
public:
    virtual ~Clock() = default;
    virtual QDateTime now() const = 0; ///< local time
    virtual qint64 ticks() const = 0;  ///< milliseconds since an arbitrary start, never going back
    virtual void sleep(int milliseconds) = 0;
};

} // namespace vantrosk
