#pragma once

#include "install/Saves_Layout.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace vantrosk {

struct Program;

/// The archives of a backup folder. Each carries the name of its mission's zip as the zip comment: "v1.1.zip"
/// and "v1_1.zip" have one archive name between them.

/// The three names under which a mission's saves may lie, in order of preference; the last is the one in use.
QStringList Save_archive_paths(const QString &backup_folder, const QString &zip_name);
/// The mission's archive. One that belongs to another mission moves aside first, and the mission's own comes
/// back if it was moved aside for that reason.
std::optional<QString> Find_save_archive(Program &program, const QString &backup_folder,
                                         const QString &zip_name);
/// Moves a foreign archive out of the way of the name in use.
void Make_way_for_archive(Program &program, const QString &archive, const QString &zip_name);
/// Renames an archive to ".VKBU" beside it. With `replace_own` an older one of the same mission there is
/// replaced; one of another mission never is: the name gets a number.
bool Move_archive_aside(Program &program, const QString &archive, bool replace_own = true);
/// Names in an archive, upper case with "\"; nothing when it can not be read.
std::optional<QStringList> Archive_names(Program &program, const QString &archive);

} // namespace vantrosk
