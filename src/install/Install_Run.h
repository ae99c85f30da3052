#pragma once

#include "install/Saves_Layout.h"
#include "install/undo/Undo_List.h"
#include "platform/Fault.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace vantrosk {

struct Program;
class cUnzip;

/// The folder that a mission's files go to: its path, and the text that lines of the undo list begin with.
struct Install_Base {
    QString folder;
    QString listed;

    /// The path on disk of a line of the list.
    QString path_of(const QString &line) const;
};

/// What is in the game folder when the run begins.
struct Leaving {
    QString zip_name; ///< empty for the game's own missions
    QString game;     ///< whose base folder and whose saves are in use
    Install_Base base;
};

/// A sound that the game plays only as a wave file. Paths on disk.
struct Music_File {
    QString source;
    QString target;
};

/// What stage 4 decides about the entries of a mission's zip.
struct Install_Plan {
    QStringList lines;      ///< of the undo list, sorted
    QStringList unrecorded; ///< paths that are written but not listed
    QStringList missions;   ///< upper-case names of the ".MIS" files
    std::vector<Music_File> music;
    QStringList resources; ///< lines of the Thief 3 ".CBT" files
    QString skin_path;
    bool has_map_pages = false;
};

enum class Install_End {
    done,
    refused, ///< by a guard, before anything was changed
    stopped, ///< stages 1 to 3 could not go on; the undo list and the log still tell what is where
    failed,  ///< the mission could not be unpacked; the original missions were put back
};

/// One run through the eight stages.
struct Install_Run {
    Program &program;
    bool restore_originals = false;
    QString zip_name;                    ///< of the selected row
    std::shared_ptr<void> folder_lock{}; ///< held to the end of the run
    std::shared_ptr<void> log_lock{};    ///< the same, for the log of the program's folder
    bool unfinished = false;             ///< an earlier run on this folder stopped half way
    std::optional<Undo_List> previous{};
    Leaving leaving{};
    Install_Base base{}; ///< of what arrives
    Undo_List list{};    ///< of what arrives
    Install_Plan plan{};
    std::shared_ptr<cUnzip> zip{}; ///< the mission's zip, from its listing to its extraction
    Fault fault{};                 ///< why the run did not get to its end
    bool saves_are_back = true;
    QString new_skin{}; ///< path in the skins folder
    qint64 last_pump = 0;
};

// The stages, each in its file.
bool Guards_let_pass(Install_Run &run);
bool Remove_previous_mission(Install_Run &run);
bool Archive_leaving_saves(Install_Run &run);
bool Restore_game_files(Install_Run &run);
Fault Plan_and_back_up(Install_Run &run);
Fault Extract_mission(Install_Run &run);
void Mark_installed(Install_Run &run);
void Bring_back_saves(Install_Run &run);
void Convert_music(Install_Run &run);
void Repackage_resources(Install_Run &run);
void Install_skin(Install_Run &run);
/// A skin that was not there before may be put on at once.
void Ask_about_skin(Install_Run &run);
void Sort_out_languages(Install_Run &run);

/// Runs the zip's files through the rules: selects what is to be extracted and fills the plan.
void Decide_entries(Install_Run &run, cUnzip &zip);
/// Selects what is to be extracted as far as it can be told while the previous mission is still in place.
void Preselect_entries(const Install_Run &run, cUnzip &zip);
/// Thief 1 shows a mission's map from numbered pages and needs page 0 of each: whether this program's own is
/// to be copied.
bool Wants_map_pages(const Install_Run &run);
/// Stage 4's second half: what would be overwritten goes into "original_backup.zip".
Fault Back_up_game_files(Install_Run &run);

// What the stages share.
inline constexpr const char *backup_name = "original_backup.zip";
Install_Base Install_base_of(const Program &program, const QString &game_code);
/// What is in the folder, by its undo list.
Leaving What_is_leaving(const Install_Run &run);
/// Codes of all games that are configured to this game folder, the current one first.
QStringList Games_in_this_folder(const Program &program);
bool Is_doom_or_dark_mod(const QString &game_code);
void Show_stage(Install_Run &run, int stage);
/// What goes on, and of which file.
void Show_step(Install_Run &run, const QString &text);
void Show_file(Install_Run &run, const QString &text);
/// 10 ms, in which the window repaints.
void Short_pause(Install_Run &run);
/// Runs one statement; a failure leaves a trace line and the run goes on.
void Update_installed(Install_Run &run, const QString &sql);
/// The "Ready" column of a zip's row.
void Set_ready_cell(Program &program, const QString &zip_name, const QString &text);
/// Puts the list of what arrives on disk.
Fault Save_list(Install_Run &run);

} // namespace vantrosk
