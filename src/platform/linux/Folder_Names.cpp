#include "Folder_Names.h"

#include "Native_Io.h"
#include "Path_Map.h"

#include <ctime>

namespace vantrosk {

namespace {

constexpr int most_folders = 64;
constexpr long seconds_of_coarse_dates = 3; // FAT counts in steps of two seconds

bool Same_time(const timespec &one, const timespec &other) {
    return one.tv_sec == other.tv_sec && one.tv_nsec == other.tv_nsec;
}

bool Same_state(const struct stat &one, const struct stat &other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino &&
           Same_time(one.st_mtim, other.st_mtim) && Same_time(one.st_ctim, other.st_ctim);
}

/// Whether a change made from `now` on must get a later date than this one.
bool Is_past(const timespec &date, const timespec &now) {
    const bool coarse = date.tv_nsec % 1000000 == 0;
    const long limit = now.tv_sec - (coarse ? seconds_of_coarse_dates : 0);
    return date.tv_sec < limit || (!coarse && date.tv_sec == limit && date.tv_nsec < now.tv_nsec);
}

/// The clock that the system takes the dates of files from.
timespec File_clock() {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME_COARSE, &now);
    return now;
}

} // namespace

Folder_Names::Folder Folder_Names::read(const QByteArray &folder, const struct stat &seen) {
    Folder result;
    const timespec now = File_clock();
    result.seen = seen;
    result.settled = Is_past(seen.st_mtim, now) && Is_past(seen.st_ctim, now);
    Folder_Reader entries(folder);
    while (const char *entry = entries.next()) {
        QByteArray &kept = result.names[Fold_name(Name_from_native(entry))];
        if (kept.isEmpty() || qstrcmp(entry, kept.constData()) < 0)
            kept = entry;
    }
    return result;
}

QByteArray Folder_Names::find(const QByteArray &folder, const QString &name) {
    struct stat seen {};
    if (::stat(folder.constData(), &seen) != 0 || !S_ISDIR(seen.st_mode))
        return {};
    const std::lock_guard guard(lock_);
    const auto known = folders_.constFind(folder);
    if (known != folders_.constEnd() && known->settled && Same_state(known->seen, seen))
        return known->names.value(Fold_name(name));
    if (folders_.size() >= most_folders)
        folders_.clear();
    const Folder &now_known = *folders_.insert(folder, read(folder, seen));
    return now_known.names.value(Fold_name(name));
}

} // namespace vantrosk
