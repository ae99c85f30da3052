#pragma once

#include "platform/Files.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace vantrosk {

using Zip_Progress = std::function<void(const QString &message)>;

/// Writes a zip from file specs. The archive is written beside, read back, compared with its sources by
/// length and checksum, and only then moved over `ZipFile`: after any fault an older archive stands
/// untouched.
class cZip {
public:
    explicit cZip(Files &files);

    QString ZipFile;  ///< Windows path of the archive to make
    QString BasePath; ///< Windows path that specs and stored folder names are relative to
    bool StoreFolderNames = false;
    bool RecurseSubDirs = false;
    Zip_Progress Progress;

    void ClearFileSpecs();
    /// A full path, or a path or pattern ("*.sav", "save_0\*.*") below `BasePath`; patterns match without
    /// case.
    void AddFileSpec(const QString &spec);
    int FileSpecCount() const;

    /// Makes the archive. No matching file is `not_found`, and no archive is made.
    Fault Zip();
    /// What the last successful `Zip` put in: full Windows paths of the sources, in archive order.
    const QStringList &Zipped_files() const;

private:
    Files &files_;
    QStringList specs_;
    QStringList zipped_;
};

/// Zips one file beside nothing else: `BasePath` is the path less the file's own name. The archive has the
/// file's path with ".zip" for its extension.
bool Zip_Single_File(Files &files, const QString &path, bool store_folder_names);

} // namespace vantrosk
