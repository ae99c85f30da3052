#pragma once

#include "platform/Clock.h"

namespace vantrosk {

/// A clock that a test sets; sleeping moves it and takes no time.
class Fake_Clock : public Clock {
public:
    QDateTime time{QDate(2026, 11, 19), QTime(22, 14, 5)};
    qint64 slept = 0; ///< milliseconds

    QDateTime now() const override { return time; }
    qint64 ticks() const override { return slept; }
    void sleep(int milliseconds) override {
        slept += milliseconds;
        time = time.addMSecs(milliseconds);
    }
};

} // namespace vantrosk
