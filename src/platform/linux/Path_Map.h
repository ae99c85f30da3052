#pragma once

#include "Drive_Table.h"
#include "Folder_Names.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace vantrosk {

/// Windows paths beside native ones, as Wine reads them:
///
///     Z:\              /                            always
///     C:\              drive_c of the prefix
///     another letter   the prefix's link dosdevices/x:
///
/// Both separators are understood, "." and ".." are resolved in the text and never lead above the root.
/// Native paths are text as in platform/Native_Text.h.
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
    /// Nothing for a letter that stands for nothing.
    std::optional<QByteArray> drive_root(char letter) const;
    /// Follows the parts from a folder, each in the spelling found.
    QByteArray follow(QByteArray path, const QStringList &parts) const;

    QString prefix_;
    Drive_Table drives_;
    mutable Folder_Names names_;
};

/// An absolute native path without ".", ".." and doubled separators; empty for "/".
QByteArray Clean_native(const QByteArray &path);

/// The form in which names are compared: case folded sign by sign, so that a name keeps its length.
QString Fold_name(const QString &name);

/// "C:\x", "c:/x" and "C:", not "C:x".
bool Is_windows_path(const QString &path);

/// The part of a Windows path behind its last separator.
QString Last_name(const QString &path);

} // namespace vantrosk
