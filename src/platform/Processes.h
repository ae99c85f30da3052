#pragma once

#include "platform/Fault.h"

#include <QStringList>

#include <functional>

namespace vantrosk {

/// What is to be started: the Windows path of a program, its argument text as the game expects it, and the
/// folder it works in.
struct Start_Request {
    QString program_path;
    QString arguments; ///< one command-line text; quoted pieces stay together
    QString working_folder;
};

/// What the system was asked to start.
struct Start_Result {
    QStringList command;         ///< one element per argument, the runner first when there is one
    QString working_folder_path; ///< native
    qint64 process_id = 0;       ///< 0 when nothing runs
};

/// Starting and observing processes. A ".exe", ".bat" or ".com" goes through the runner, anything else is
/// native. Where no runner is named and none is installed, a native program behind such a name is started as
/// it is.
class Processes {
public:
    virtual ~Processes() = default;
    /// The command that `start` would run; `not_available` when the runner is not installed.
    virtual Result<Start_Result> command_for(const Start_Request &request) const = 0;
    /// Starts without waiting. The fault carries the system's reason.
    virtual Result<Start_Result> start(const Start_Request &request) = 0;
    /// Whether the started process, or what it left running for it, is still there.
    virtual bool is_running(qint64 process_id) const = 0;
    /// How many processors the named process ("thief2.exe", or this program when empty) may use; 0 when
    /// there is no such process or the system can not tell.
    virtual int processors_of(const QString &process_name) const = 0;
    /// Sets the mask of the named process, or of this program when empty; true on success.
    virtual bool set_affinity(const QString &process_name, quint64 mask) = 0;
};

} // namespace vantrosk
