#pragma once

#include <QString>

namespace vantrosk {

struct Program;

/// How the saves of a leaving mission become its archive.
enum class Save_Packing {
    replace, ///< the archive holds what is live and nothing else
    merge,   ///< an earlier run may have stopped half way: what only the old archive has goes in too
};

/// Packs the live saves of the leaving mission into its archive below "allsaves" and empties the save folder.
/// A save goes only after its archive was written and read back; one that could not be archived is moved to
/// "allsaves\unsaved". An archive is replaced only when there is a save to archive, and the old one stays as
/// ".VKBU" when it holds something that the new one does not. False when a save could neither be archived nor
/// moved: then it is still where it was.
bool Zip_up_saves(Program &program, const QString &game_code, const QString &zip_name,
                  const QString &game_path, Save_Packing packing = Save_Packing::replace);
/// Unpacks the archive of the arriving mission; none is no failure. With `keep_live`, a save that exists live
/// stays as it is. False when the archive could not be unpacked whole; the user was told.
bool Unzip_saves(Program &program, const QString &game_code, const QString &zip_name,
                 const QString &game_path, bool keep_live = false);
/// "saves_" and the zip name, every "." of its base name an "_".
QString Saves_archive_name(const QString &zip_name);

} // namespace vantrosk
