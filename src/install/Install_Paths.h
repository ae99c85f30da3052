#pragma once

#include <QString>

namespace vantrosk {

/// Windows paths as text; nothing here looks at the disk.

/// One path of a folder and what lies in it, with exactly one "\" between.
QString Join_path(const QString &folder, const QString &relative);
/// The folder of a path, without a trailing "\".
QString Parent_path(const QString &path);
/// "\" for every separator, none doubled or trailing, "." and ".." resolved.
QString Tidy_path(const QString &path);
bool Is_same_path(const QString &one, const QString &other);
/// Whether a tidy path lies below a tidy folder; the folder itself does not.
bool Is_below(const QString &path, const QString &folder);
/// What of a tidy path follows the tidy folder that it lies below.
QString Relative_to(const QString &path, const QString &folder);
/// Thief 3 is configured by its "SYSTEM" folder; the game's root is the folder above.
QString Without_system_folder(const QString &path);

} // namespace vantrosk
