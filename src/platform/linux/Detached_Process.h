#pragma once

#include <QByteArray>
#include <QByteArrayList>

namespace vantrosk {

/// What to run, all native; `environment` is "NAME=value" each.
struct Detached_Request {
    QByteArrayList command; ///< the first is the program's path
    QByteArrayList environment;
    QByteArray working_folder;
};

enum class Detached_Step { started, prepare, enter_folder, run };

struct Detached_Result {
    Detached_Step failed_at = Detached_Step::started;
    int number = 0; ///< the system's own number of the failure
    qint64 process_id = 0;
    qint64 session = 0; ///< shared by all that the process starts
};

/// Starts a program in a session of its own, with no terminal and no open files of ours. Returns when the
/// system has taken or refused it. The program is no child of this process: nobody needs to wait for it.
Detached_Result Start_detached(const Detached_Request &request);

} // namespace vantrosk
