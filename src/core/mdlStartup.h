#pragma once

#include <QString>

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

/// Makes the program ready for its work: folders, ini files, database, identity. False when it can not run;
/// the user was told why. The first-run questions are the window's.
bool Start_Program(Program &program);
void Create_Folders(Program &program);
/// An install that did not finish left its log: shows it and keeps the debug log beside it.
bool Show_Crash_Evidence(Program &program);
/// Clean-up at the end: temp folder, window status.
void Shut_Down(Program &program);

} // namespace vantrosk
