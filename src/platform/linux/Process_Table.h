#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace vantrosk {

/// One process as the kernel tells of it below /proc.
struct Process_Entry {
    qint64 id = 0;
    qint64 session = 0;
    qulonglong started = 0; ///< clock ticks since the machine's start: tells two uses of one number apart
    bool ended = false;     ///< only its entry is left
    QByteArray short_name;  ///< at most 15 bytes
};

std::optional<Process_Entry> Look_at_process(qint64 id);
std::vector<qint64> All_process_ids();
/// The first process of that name ("thief2.exe", no matter the case); 0 when there is none.
qint64 Find_process(const QString &name);

} // namespace vantrosk
