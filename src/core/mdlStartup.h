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

/// Makes the program ready for its work: folders, ini files, database, identity. False when it can not run;
/// the user was told why. The first-run questions are the window's.
bool Start_Program(Program &program);
void Create_Folders(Program &program);
/// An install that did not finish left its log: shows it and keeps the debug log beside it.
bool Show_Crash_Evidence(Program &program);
/// Clean-up at the end: temp folder, window status.
void Shut_Down(Program &program);

} // namespace vantrosk
