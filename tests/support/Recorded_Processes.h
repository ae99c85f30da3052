#pragma once

#include "platform/Clock.h"
#include "platform/Processes.h"

#include <vector>

namespace vantrosk {

/// Starts nothing: records what was to be started and whose processors were asked about.
class Recorded_Processes : public Processes {
public:
    explicit Recorded_Processes(const Clock &clock) : clock_(clock) {}

    std::vector<Start_Request> requests;
    mutable QStringList asked; ///< "milliseconds slept since the start: process"
    Fault start_fault;
    mutable int looks_until_end = 0; ///< so often a started process is still there
    int processors = 2;              ///< of every process; 0: none is there

    Result<Start_Result> command_for(const Start_Request &) const override { return {}; }
    Result<Start_Result> start(const Start_Request &request) override {
        requests.push_back(request);
        if (start_fault)
            return {{}, start_fault};
        started_at_ = clock_.ticks();
        return {{{"runner", request.program_path, request.arguments}, "/native/game", 4711}, {}};
    }
    bool is_running(qint64) const override { return looks_until_end > 0 && looks_until_end-- > 0; }
    int processors_of(const QString &name) const override {
        asked << QString("%1: %2").arg(clock_.ticks() - started_at_).arg(name);
        return processors;
    }
    bool set_affinity(const QString &, quint64) override { return false; }

private:
    const Clock &clock_;
    qint64 started_at_ = 0;
};

} // namespace vantrosk
