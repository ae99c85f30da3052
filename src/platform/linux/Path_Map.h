#pragma once

#include "Folder_Names.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace vantrosk {

/// Windows paths beside native ones, as Wine reads them:
///
///     Z:\              /                            always
///     C:\              drive_c of the prefix
///     another letter   the prefix's link dosdevices/x:
///
/// Both separators are understood, "." and ".." are resolved in the text and never lead above the root.
/// A backslash inside a native name is U+F05C in a Windows path.
class Path_Map {
public:
    /// `prefix` is an absolute native path; it need not exist.
    explicit Path_Map(const QString &prefix);

    const QString &prefix() const { return prefix_; }

    /// The native path, existing parts as spelled on disk: each folder in its exact spelling when there is
    /// one, else in the first of the others in binary order. What does not exist keeps the given spelling.
    /// Empty for a relative path, a network path and a letter without a drive.
    QByteArray native(const QString &path) const;
    /// The Windows path of an absolute native path: C:\ below drive_c, else the letter with the longest
    /// folder around it, else Z:\. A Windows path stays; anything else is empty.
    QString windows(const QString &native_path) const;

private:
    struct Drive {
        char letter;
        QByteArray root; ///< without a separator at its end, so empty for "/"
    };

    QByteArray drive_root(char letter) const;
    std::vector<Drive> drives() const;
    /// Follows the parts from a folder, each in the spelling found.
    QByteArray follow(QByteArray path, const QStringList &parts) const;

    QString prefix_;
    QByteArray prefix_bytes_;
    mutable Folder_Names names_;
};

/// One name: a backslash in the native one is U+F05C in the other. Bytes that are not UTF-8 read as U+FFFD.
QString Name_from_native(const QByteArray &name);
QByteArray Name_to_native(const QString &name);

/// The form in which names are compared: case folded sign by sign, so that a name keeps its length.
QString Fold_name(const QString &name);

/// "C:\x", "c:/x" and "C:", not "C:x".
bool Is_windows_path(const QString &path);

/// The part of a Windows path behind its last separator.
QString Last_name(const QString &path);

} // namespace vantrosk
