#pragma once

#include <QString>

#include <cstdint>
#include <vector>

struct zip;

namespace vantrosk {

/// What the central directory tells of one file.
struct Listed_Entry {
    QString file;            ///< last part of the stored name
    QString folder;          ///< the parts before it, between "\"; neighbours share one text
    qint64 size = 0;         ///< bytes
    qint64 packed = 0;       ///< bytes in the archive
    std::uint64_t index = 0; ///< libzip's number
    bool safe = false;       ///< the whole name may be extracted below a folder
    bool encrypted = false;
    bool selected = true;

    QString name() const { return folder.isEmpty() ? file : folder + "\\" + file; }
};

/// The files of an open archive in stored order. Folder entries are left out.
std::vector<Listed_Entry> List_entries(zip *archive);

} // namespace vantrosk
