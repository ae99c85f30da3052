#pragma once

#include "Folder_State.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <mutex>

namespace vantrosk {

/// Finds names in folders without regard to case. A folder with thousands of zips is asked thousands of times
/// for a file that is not there, so its names are kept until the folder's own dates change.
class Folder_Names {
public:
    /// The spelling on disk of `name`, the first in binary order; empty when there is none.
    QByteArray find(const QByteArray &folder, const QString &name);

private:
    struct Folder {
        Folder_State state;
        QHash<QString, QByteArray> names;
    };

    static Folder read(const QByteArray &folder, const Folder_State &state);

    std::mutex lock_;
    QHash<QByteArray, Folder> folders_;
};

} // namespace vantrosk
