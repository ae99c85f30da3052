#pragma once

#include "platform/Fault.h"

#include <QString>

namespace vantrosk {

struct Program;
class Registry;

/// Thief 3's ini files. A mission may bring "user_patch.ini" and others, which are merged into the game's
/// files for the session. A ".VKBU" beside an ini is the game's own file while a patched one is in force.

/// Undoes the patches of the last session. Nothing when Thief 3 is not set up.
void RestoreT3Ini(Program &program);
/// Applies the patch files that are in the game's folders. A file that can not be backed up is not patched.
void ApplyT3Patch(Program &program);
/// Writes what differs from the patch's values into the target; "infilelog.log" tells of each key.
Fault MergeIni(Program &program, const QString &target, const QString &patch);
/// The sizes of the vertex pools in a "user.ini": those of `source`, or the defaults.
Fault SetVertexPools(Program &program, const QString &target, bool from_source, const QString &source);

/// What the game's own set-up left in the registry; empty texts where there is nothing.
struct T3_Registry {
    QString root;      ///< the game's folder
    QString save_path; ///< of the saves
    bool in_documents = false;
};
T3_Registry Read_T3_Registry(const Registry &registry);
/// Reads it, and takes the save path into the settings in use. No file is touched.
T3_Registry Detect_T3_Save_Folder(Program &program);
/// The same, and sets the vertex pools of the game that was found.
T3_Registry ApplyT3Registry(Program &program);

} // namespace vantrosk
