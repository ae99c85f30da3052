#pragma once

#include "platform/Files.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace vantrosk {

struct Program;

/// One folder of a game with its files, in the order in which the system lists them.
struct Walked_Folder {
    QString path;     ///< Windows path, no trailing "\"
    QString relative; ///< below the game folder, with a trailing "\"; empty for the game folder
    int level = 0;    ///< 0 for the game folder
    std::vector<File_Info> files;
};

inline constexpr int deepest_level = 6;

/// Visits the folder, then each subfolder down to six levels, a folder before its subfolders. Linked folders
/// are passed over: they may lead anywhere, and back. Events are let through between two folders. Answers
/// which folders could not be read.
QStringList Walk_game_folder(Program &program, const QString &folder,
                             const std::function<void(const Walked_Folder &)> &visit);

} // namespace vantrosk
