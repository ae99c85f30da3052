#pragma once

#include <QString>

#include <functional>

namespace vantrosk {

struct Program;

inline constexpr const char *build_number = "14194";
inline constexpr const char *version_number = "1.4194";
inline constexpr const char *build_date = "3-March-09";
inline constexpr const char *category_keywords =
    "Guards,Hammerites,Mechanist,Thieves,Keepers,Mages,Pagans,Undead,Mansion,Museum,City,Fortress,Church,"
    "Crypt,Prison,Forest,Ruins,Bank,Rescue,Explore,Fun,Unusual,General,Horror";

/// Where the community's services are asked for unless a file in the program's folder names another place.
inline constexpr const char *default_server_base_url = "http://vantrosk.example";
inline constexpr const char *default_review_feed_url = "http://vantrosk.example/reviews.rss";

/// The caption of the main window while nothing else is said there.
QString Window_Title();

// The start. A face without a window calls `Start_Program` and nothing else of it. The window says with
// `Set_Later_Step` what of the start is its own, then calls
//
//     if (!Start_Process(program, [&] { return Load_Stage(program, command_line); }))
//         return;
//     Initialise_Stage(program);
//
// and makes itself before `Load_Stage`, or in the step `restore_window`, where the settings are known
// already.

/// A start without first-run questions, notices, tips and whatever else only a window shows. False when the
/// program can not run; the user was told why.
bool Start_Program(Program &program);

/// What comes before the main window: the program's folder, the audio library, the start state. Then `load`,
/// which gives false to end; on the first start of a build it is tried again, up to five times, after the
/// component was registered whose absence it throws as `Program_Error` number 339. False: the process ends.
bool Start_Process(Program &program, const std::function<bool()> &load);
/// Everything up to the window that is shown. `command_line`: the switches, between single blanks. False: the
/// process ends, because it can not run or because an update is applied by another program.
bool Load_Stage(Program &program, const QString &command_line);
/// Notices, start page, crash evidence and notes, the first run's questions; then the user's turn.
void Initialise_Stage(Program &program);

/// What the switches of the command line ask for.
void Apply_Switches(Program &program, const QString &command_line);
void Create_Folders(Program &program);
/// An install that did not finish left its log: shows it and keeps the debug log beside it.
bool Show_Crash_Evidence(Program &program);
/// The notes window was closed on this file: notes that are shown once are deleted.
void Notes_Closed(Program &program, const QString &path);

/// The end: window status, the packed feed, the temp folder. The face unloads its windows behind it.
void Shut_Down(Program &program);
/// Unpacks what the last end packed. `kind` is "RSS" or "ALL".
void Unzip_Stored_Feed_Files(Program &program, const QString &kind);

/// Seconds since that many ticks of the clock, to 2 decimals.
QString Seconds_Since(const Program &program, qint64 ticks);

} // namespace vantrosk
