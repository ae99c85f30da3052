#pragma once

#include <QString>

namespace vantrosk {

struct Program;

/// Packs the live saves of the leaving mission into its archive below "allsaves" and empties the save folder.
/// A save goes only after its archive was written and read back; one that could not be archived is moved to
/// "allsaves\unsaved".
void Zip_up_saves(Program &program, const QString &game_code, const QString &zip_name,
                  const QString &game_path);
/// Unpacks the archive of the arriving mission; none is no failure. With `keep_live`, a save that exists live
/// stays as it is.
void Unzip_saves(Program &program, const QString &game_code, const QString &zip_name,
                 const QString &game_path, bool keep_live = false);
/// "saves_" and the zip name, every "." of its base name an "_".
QString Saves_archive_name(const QString &zip_name);

} // namespace vantrosk
