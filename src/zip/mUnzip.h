#pragma once

#include "platform/Files.h"

#include <QByteArrayView>
#include <QDateTime>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace vantrosk {

/// The name under which a file is written before it is moved to its place, always directly in `UnzipFolder`.
/// Only a killed program leaves it behind; the next `Unzip` there removes it.
inline constexpr const char *unzip_temporary_name = "vantrosk_unzip.tmp";

/// Told before each file that is written: its name in the archive. Progress windows live on it.
using Unzip_Progress = std::function<void(const QString &entry_name)>;

/// Reads a zip and extracts the selected entries. Entries are numbered from 1. Folder entries are no entries.
/// "/" and "\" in stored names are the same; `FileDirectory` answers with "\" and without a trailing one.
/// Nothing is ever written outside `UnzipFolder`: an entry whose name would leave it fails.
class cUnzip {
public:
    explicit cUnzip(Files &files);
    ~cUnzip();
    cUnzip(const cUnzip &) = delete;
    cUnzip &operator=(const cUnzip &) = delete;

    QString ZipFile;               ///< Windows path of the archive
    QString UnzipFolder;           ///< Windows path; made when missing
    bool UseFolderNames = false;   ///< false: every entry lands directly in `UnzipFolder`
    bool OverwriteExisting = true; ///< false: an existing file stays and is no fault
    qint64 SizeLimit = 0;          ///< at most so many bytes per entry when above 0; the excess is a fault
    Unzip_Progress Progress;

    /// Reads the central directory; afterwards every entry is selected. A zip that can not be read gives no
    /// entries and the reason.
    Fault Directory();
    /// Lets go of the archive and its list. Until then, or the next `Directory`, the file stays open.
    void Close();
    QString Comment() const; ///< of the archive
    int FileCount() const;
    QString Filename(int i) const; ///< last part of the stored name
    /// The same as the bytes that are stored, for a look at every entry; valid until the next `Directory`.
    QByteArrayView StoredFilename(int i) const;
    QString FileDirectory(int i) const;    ///< folder of the stored name, empty at the root
    qint64 FileSize(int i) const;          ///< uncompressed bytes, as stored
    int FileCompressionRatio(int i) const; ///< percent saved, 0 to 100
    QDateTime FileDate(int i) const;
    bool FileIsSafe(int i) const; ///< its whole stored name may be extracted below a folder
    /// What would keep the selected entries from being unpacked, as far as it can be told without unpacking:
    /// a name that leaves the folder, encryption, a packing method that is not known. Nothing is written.
    Fault Check_selected() const;
    bool FileSelected(int i) const;
    void FileSelected(int i, bool selected);

    /// Extracts the selected entries in their order, each written beside and moved over after its checksum
    /// was right. Stops at the first fault. Without a `Directory` before it, lists and extracts all.
    Fault Unzip();

    /// One entry's content, of a longer one its first `limit` bytes; nothing is written. The checksum is
    /// known to be right only when the entry is shorter than `limit`.
    Result<QByteArray> Read_entry(int i, qint64 limit) const;

private:
    struct State;
    Fault Open_archive() const;
    Files &files_;
    std::unique_ptr<State> state_;
};

/// Whether an entry of this stored name may be extracted below a folder: no drive, no root, no "..", no
/// control characters.
bool Is_safe_entry_name(const QString &stored_name);

/// Extracts everything: `UnzipFolder` gets the archive's tree.
bool Unzip_Files(Files &files, const QString &zip, const QString &destination);

} // namespace vantrosk
