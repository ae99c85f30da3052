#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <vector>

namespace vantrosk {

/// One entry of a test archive; the name is stored as it stands, however hostile. A name that ends in "/" is
/// a folder entry.
struct Zip_Entry {
    QByteArray name = {};
    QByteArray content = {};
    QDateTime modified = {}; ///< local time; some fixed day when invalid
};

/// Writes an archive at a native path, replacing what is there. Entries may repeat a name.
void Make_zip(const QString &native_path, const std::vector<Zip_Entry> &entries);
/// The stored names, in order, and each one's content.
std::vector<Zip_Entry> Read_zip(const QString &native_path);

} // namespace vantrosk
