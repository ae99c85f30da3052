#pragma once

#include "Fault_World.h"

#include <QStringList>

#include <functional>
#include <optional>

namespace faults {

/// What a child does before it begins its work, and while it works.
struct Child_Fault {
    std::optional<int> dies_at_line;  ///< SIGKILL behind the log line of this number, from 0
    std::optional<qint64> file_limit; ///< bytes that a file may have
    bool as_nobody = false;           ///< without the rights of the administrator
};

/// How a child ended.
struct Child_End {
    bool killed = false;
    int exit_code = 0;
    bool log_shown = false; ///< the start told of an install that did not finish
    qint64 microseconds = 0;
    int log_lines = 0; ///< as often as the log was written
    QString errors;    ///< what it told on standard error
};

/// The console face over the world's files, in a process of its own. `meanwhile` runs in the parent with the
/// child's process number.
Child_End Run_child(const Fault_World &world, const QStringList &words, const Child_Fault &fault = {},
                    const std::function<void(int child)> &meanwhile = {});

} // namespace faults
