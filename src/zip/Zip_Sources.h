#pragma once

#include "platform/Files.h"

#include <QSet>
#include <QString>
#include <QStringList>

#include <vector>

namespace vantrosk {

/// One file on its way into an archive.
struct Zip_Source {
    QString path;   ///< Windows path
    QString stored; ///< name in the archive, parts between "/"
};

/// Finds the files that specs mean. Specs are full paths, or paths and patterns below `base`.
class Zip_Source_Finder {
public:
    Zip_Source_Finder(const Files &files, const QString &base, bool store_folder_names, bool recurse);

    /// A file that is never packed: the archive itself.
    void leave_out(const QString &path) { left_out_.insert(path.toCaseFolded()); }
    /// Adds what one spec means. `not_found` for a missing file that is named without a pattern.
    Fault find(const QString &spec);
    const std::vector<Zip_Source> &sources() const { return sources_; }

private:
    Fault find_in_folder(const QString &folder, const QString &pattern);
    Fault add(const QString &path);
    QString stored_name(const QString &path) const;

    const Files &files_;
    QString base_; ///< ends in "\"
    bool store_folder_names_, recurse_;
    QSet<QString> left_out_, found_, names_;
    std::vector<Zip_Source> sources_;
};

} // namespace vantrosk
