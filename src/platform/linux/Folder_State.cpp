#include "Folder_State.h"

#include <ctime>

namespace vantrosk {

namespace {

constexpr long seconds_of_coarse_dates = 3; // FAT counts in steps of two seconds

bool Same_time(const timespec &one, const timespec &other) {
    return one.tv_sec == other.tv_sec && one.tv_nsec == other.tv_nsec;
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

Folder_State::Folder_State(const QByteArray &native_path) {
    const timespec now = File_clock();
    is_there_ = ::stat(native_path.constData(), &seen_) == 0 && S_ISDIR(seen_.st_mode);
    settled_ = is_there_ && Is_past(seen_.st_mtim, now) && Is_past(seen_.st_ctim, now);
}

bool Folder_State::holds(const Folder_State &now) const {
    return settled_ && now.is_there_ && seen_.st_dev == now.seen_.st_dev &&
           seen_.st_ino == now.seen_.st_ino && Same_time(seen_.st_mtim, now.seen_.st_mtim) &&
           Same_time(seen_.st_ctim, now.seen_.st_ctim);
}

} // namespace vantrosk
