#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace vantrosk {

struct Program;

/// The entry that stands for no reference.
inline constexpr const char *no_reference = "NONE";

struct Diagnosis_Request {
    QString code;        ///< of the game: "T2"
    QString game_folder; ///< Windows path
    QString reference;   ///< name of a file in `references`, a Windows path, or "NONE"
    /// Told how far the work is; the maximum is what the reference file claims, else 100.
    std::function<void(int value, int maximum)> progress;
};

/// What came of it.
struct Diagnosis {
    QString game_folder; ///< that was walked, with a trailing "\"; Windows path
    bool folder_exists = false;
    bool reference_exists = false;
    QString page_path;   ///< Windows path of the report; empty when it could not be written
    QString page_fault;  ///< why not
    QString export_text; ///< lines of every file, without a line end behind the last
    int count = 0;       ///< files in the folder
    int matched = 0;     ///< of them, those that are as the reference has them
    /// The rows of the report that are red, orange, aqua and pink. Full Windows paths.
    QStringList unexpected, different, own, missing;
    QStringList unreadable; ///< folders that could not be looked into; the same

    /// Whether the game's folder itself could not be looked into: nothing was compared.
    bool is_closed() const { return unreadable.contains(game_folder.chopped(1)); }
    /// A folder that is not there, or closed, has nothing to export.
    bool can_export() const { return folder_exists && !is_closed(); }
};

/// Compares a game's folder with a reference file and writes the report `game_diag.htm` in the program's
/// folder. Lets events through, so whoever shows buttons takes them away meanwhile.
Diagnosis Diagnose_Install(Program &program, const Diagnosis_Request &request);

/// Writes what a diagnosis listed as a reference file of today and tells its name; an error box and an empty
/// name when it could not be written.
QString Export_As_Reference_File(Program &program, const QString &code, const Diagnosis &diagnosis);

} // namespace vantrosk
