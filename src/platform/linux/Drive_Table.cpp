#include "Drive_Table.h"

#include "Native_Io.h"
#include "Path_Map.h"

#include <unistd.h>

#include <climits>

namespace vantrosk {

namespace {

bool Exists(const QByteArray &native_path) {
    struct stat info {};
    return ::lstat(native_path.constData(), &info) == 0;
}

QByteArray Read_link(const QByteArray &path) {
    QByteArray target(PATH_MAX, '\0');
    const ssize_t length = ::readlink(path.constData(), target.data(), static_cast<size_t>(target.size()));
    target.truncate(length > 0 ? length : 0);
    return target;
}

/// Where a letter's link leads; the entry itself when it is no link.
QByteArray Root_behind(const QByteArray &folder, const QByteArray &entry) {
    const QByteArray target = Read_link(entry);
    if (target.isEmpty())
        return entry;
    return Clean_native(target.startsWith('/') ? target : folder + target);
}

} // namespace

Drive_Table::Drive_Table(const QByteArray &prefix)
    : prefix_(prefix), drive_c_{{'c', prefix + "/drive_c", {}}, {}} {}

Drive Drive_Table::drive_c() const {
    const std::lock_guard guard(lock_);
    return up_to_date(drive_c_);
}

std::vector<Drive> Drive_Table::letters() const {
    const Folder_State now(prefix_ + "/dosdevices");
    const std::lock_guard guard(lock_);
    if (!state_.holds(now)) {
        state_ = now;
        letters_ = now.is_there() ? read_links() : std::vector<Known>();
    }
    std::vector<Drive> drives;
    drives.reserve(letters_.size());
    for (Known &known : letters_)
        drives.push_back(up_to_date(known));
    return drives;
}

std::vector<Drive_Table::Known> Drive_Table::read_links() const {
    const QByteArray folder = prefix_ + "/dosdevices/";
    std::vector<Known> found;
    for (char letter = 'a'; letter < 'z'; ++letter) {
        const QByteArray entry = folder + letter + ':';
        if (letter != 'c' && Exists(entry))
            found.push_back({{letter, Root_behind(folder, entry), {}}, {}});
    }
    return found;
}

const Drive &Drive_Table::up_to_date(Known &known) {
    struct stat target {};
    const QByteArray root = known.drive.root.isEmpty() ? QByteArray("/") : known.drive.root;
    if (::stat(root.constData(), &target) != 0) {
        known.drive.resolved.clear();
        known.target = {};
    } else if (target.st_dev != known.target.st_dev || target.st_ino != known.target.st_ino) {
        known.drive.resolved = Clean_native(Resolve_links(root));
        known.target = target;
    }
    return known.drive;
}

} // namespace vantrosk
