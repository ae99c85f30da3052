#pragma once

#include "platform/Files.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace vantrosk {

class Archive_Target;
struct Zip_Source;

/// Behind `ZipFile`'s name: where an archive is written before it is moved to its place. Only a killed
/// program leaves it behind; the next `Zip` of that archive removes it.
inline constexpr const char *zip_temporary_suffix = ".new";

/// Told before each file that is packed: its name in the archive.
using Zip_Progress = std::function<void(const QString &message)>;

/// Writes a zip from file specs. The archive is written beside, read back, compared with its sources by
/// length and checksum, and only then moved over `ZipFile`: after any fault an older archive stands
/// untouched.
class cZip {
public:
    explicit cZip(Files &files);

    QString ZipFile;  ///< Windows path of the archive to make
    QString BasePath; ///< Windows path that specs and stored folder names are relative to
    QString Comment;  ///< of the archive; empty for none
    /// Entries bear their path below `BasePath`, or less its drive when they lie elsewhere. False: the last
    /// part alone; two files of one name are then a fault.
    bool StoreFolderNames = false;
    bool RecurseSubDirs = false; ///< patterns hold in all folders below, and a folder stands for its files
    Zip_Progress Progress;

    void ClearFileSpecs();
    /// A full path, or a path or pattern ("*.sav", "save_0\*.*") below `BasePath`. "*" and "?" stand in the
    /// last part only and match without case; "*.*" is every file. A file that several specs name is packed
    /// once.
    void AddFileSpec(const QString &spec);
    int FileSpecCount() const;

    /// Makes the archive: deflated, names in UTF-8 with "/", dates of the sources. Links to folders are not
    /// followed. No matching file is `not_found`, as is a missing file that was named without a pattern; no
    /// archive is made then.
    Fault Zip();
    /// What the last successful `Zip` put in: full Windows paths of the sources, in archive order.
    const QStringList &Zipped_files() const;

private:
    Fault write(Archive_Target &target, const std::vector<Zip_Source> &sources) const;
    Fault read_back(const QString &native, const std::vector<Zip_Source> &sources) const;

    Files &files_;
    QStringList specs_;
    QStringList zipped_;
};

/// Zips one file beside nothing else: `BasePath` is the path less the file's own name. The archive has the
/// file's path with ".zip" for its extension.
bool Zip_Single_File(Files &files, const QString &path, bool store_folder_names);

} // namespace vantrosk
