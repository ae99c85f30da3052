#pragma once

#include <QString>
#include <QStringList>

namespace vantrosk {

struct Program;

/// The Install button: installs the selected row, or puts the game's own missions back when that row is
/// selected. The outcome is in the status panel ("FM installed", "Install Aborted") and in the files.
/// False when a guard refused or the extraction failed.
bool Install_Command(Program &program);

/// The routine behind it, in eight stages. With `restore_originals`, stages 4 and 5 are skipped.
bool Do_Install(Program &program, bool restore_originals);

/// Removes the empty folders below `folder`; true when nothing is left in it. Never deletes a file.
bool EmptyFolderTree(Program &program, const QString &folder);

} // namespace vantrosk
