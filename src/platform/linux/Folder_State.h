#pragma once

#include <QByteArray>

#include <sys/stat.h>

namespace vantrosk {

/// How a folder's dates stood at one moment: cheap to ask for, and enough to tell whether what was read of
/// the folder still holds.
class Folder_State {
public:
    Folder_State() = default;
    /// Looks now; to be taken before the folder is read.
    explicit Folder_State(const QByteArray &native_path);

    bool is_there() const { return is_there_; }
    /// Whether nothing in the folder can have changed between that moment and `now`.
    bool holds(const Folder_State &now) const;

private:
    struct stat seen_ {};
    bool is_there_ = false;
    bool settled_ = false; ///< whether a later change is sure to show in the dates
};

} // namespace vantrosk
