#include "Linux_Parts.h"

#include <QElapsedTimer>
#include <QThread>

namespace vantrosk {

namespace {

class Linux_Clock : public Clock {
public:
    Linux_Clock() { timer_.start(); }

    QDateTime now() const override { return QDateTime::currentDateTime(); }
    qint64 ticks() const override { return timer_.elapsed(); }
    void sleep(int milliseconds) override {
        if (milliseconds > 0)
            QThread::msleep(static_cast<unsigned long>(milliseconds));
    }

private:
    QElapsedTimer timer_;
};

} // namespace

std::unique_ptr<Clock> Make_Linux_Clock() {
    return std::make_unique<Linux_Clock>();
}

} // namespace vantrosk
