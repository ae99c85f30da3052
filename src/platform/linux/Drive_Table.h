#pragma once

#include "Folder_State.h"

#include <QByteArray>

#include <sys/stat.h>

#include <mutex>
#include <optional>
#include <vector>

namespace vantrosk {

/// What a letter of a Wine prefix stands for.
struct Drive {
    char letter;         ///< small
    QByteArray root;     ///< native, without a separator at its end, so empty for "/"
    QByteArray resolved; ///< the same with all links followed; empty when it is not there
};

/// The letters of a prefix: "c" for its drive_c, another for its link dosdevices/x:. They are asked for with
/// every path, so the links are read again only when that folder, or what a link leads to, is another.
class Drive_Table {
public:
    /// `prefix` is native, without a separator at its end; it need not exist.
    explicit Drive_Table(const QByteArray &prefix);

    Drive drive_c() const;
    /// The others in their order, less "z", which is the whole system.
    std::vector<Drive> letters() const;

private:
    struct Known {
        Drive drive;
        struct stat target {}; ///< what the root led to; all zero when it was not there
    };

    std::vector<Known> read_links() const;
    static const Drive &up_to_date(Known &known);

    QByteArray prefix_;
    mutable std::mutex lock_;
    mutable Folder_State state_;
    mutable std::vector<Known> letters_;
    mutable Known drive_c_;
};

} // namespace vantrosk
