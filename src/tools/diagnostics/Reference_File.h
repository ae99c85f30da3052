#pragma once

#include "platform/Fault.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <vector>

namespace vantrosk {

struct Program;

// A reference file (".VKDR") lists every file of a known-good install:
//
//     FILECOUNT:2
//     INFO:Patched to 1.18<br>English
//     DATECREATED:20261121
//     thief2.exe,2510848,05/04/2000 10:00:00
//     strings\aVKCOMMA b.str,17,21/11/2026 18:04:59
//
// Paths are relative to the game folder. A line break inside a name, which only this system knows, is written
// as VKCR or VKLF; a path that would be taken for something else begins with a "\", which a reader drops.
// Dates are in local time and compare as texts.

inline constexpr const char *reference_extension = ".VKDR";

enum class Row_Status : char { not_seen = '0', matched = '1', different = '2' };

/// One file of a reference, its texts as they stand there.
struct Reference_Row {
    QString path; ///< full path below the game folder
    QString size, date;
    Row_Status status = Row_Status::not_seen;
};

/// What a reference file says. One that is missing or can not be read says nothing.
struct Reference {
    int file_count = 0; ///< what it claims; for a progress bar, nothing else
    QString info;       ///< of the first such line; "<br>" is a line break
    QString created;    ///< "YYYYMMDD"
    std::vector<Reference_Row> rows;
};

/// Lines in any order; those that begin with "/" or ";" are comments. At most 64 MiB and 500,000 files are
/// read. `game_folder` is put before the paths. A file that can not be read leaves a trace line.
Reference Read_reference(Program &program, const QString &path, const QString &game_folder);
Reference Read_reference_text(const QString &text, const QString &game_folder);
/// Text for the user's eyes, with line breaks.
QString Shown_info(const Reference &reference);

/// A path as a line has it, with words for what may not stand there.
QString Written_path(const QString &path);
/// The line of one file, ended by CR LF.
QString Reference_line(const QString &relative_path, qint64 size, const QString &date);
/// "21/11/2026 18:04:59", in local time on every system.
QString Listed_date(const QDateTime &modified);

/// Writes `references\name`. `lines` are those of `Reference_line`. The info line's text stands behind its
/// colon as it is.
Fault Write_reference(Program &program, const QString &name, int count, const QString &info,
                      const QString &lines);

} // namespace vantrosk
