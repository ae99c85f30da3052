#include "ui/settings/Game_Tabs.h"

#include "core/Ini_Values.h"

namespace vantrosk {

namespace {

constexpr const char *dromed_filter = "DromEd (dromed.exe)|dromed.exe|all exes (*.exe)|*.exe";

} // namespace

const std::array<Game_Tab, game_tab_count> &Game_Tabs() {
    static const std::array<Game_Tab, game_tab_count> tabs{{
        {"T1", "Thief 1", &Main_Ini::T1_EDITOR, "thief.exe", "Thief 1 (thief.exe)|thief.exe", dromed_filter},
        {"TG", "Thief Gold", &Main_Ini::TG_EDITOR, "thief.exe", "Thief Gold (thief.exe)|thief.exe",
         dromed_filter},
        {"T2", "Thief 2", &Main_Ini::T2_EDITOR, "thief2.exe", "Thief 2 (thief2.exe)|thief2.exe",
         dromed_filter},
        {"T3", "Thief 3", &Main_Ini::T3_EDITOR, "t3.exe", " (t3.exe)|t3.exe",
         "T3Ed exe (t3ed.exe)|t3ed.exe|all exes (*.exe)|*.exe", "Thief 3 - Deadly Shadows"},
        {"T2X", "T2X", nullptr, "t2x.exe", "T2X (t2x.exe)|t2x.exe", ""},
        {"SS2", "System Shock 2", &Main_Ini::SS2_EDITOR, "shock2.exe", "SS2 exe (shock2.exe)|shock2.exe",
         "ShockEd (shocked.exe)|shocked.exe|all exes (*.exe)|*.exe"},
        {"DMOD", "The Dark Mod", &Main_Ini::DMOD_EDITOR, "doom3.exe",
         "Doom3 Exe (doom3.exe)|doom3.exe|Exes (*.exe)|*.exe",
         "Doom3 exe (doom3.exe)|doom3.exe|all exes (*.exe)|*.exe"},
        {"DM", "Dark Metal", &Main_Ini::DM_EDITOR, "",
         "Dark Metal (thief2.exe)|thief2.exe|Exes (*.exe)|*.exe", dromed_filter},
    }};
    return tabs;
}

const Game_Tab *Find_Game_Tab(const QString &code) {
    for (const Game_Tab &tab : Game_Tabs())
        if (code.compare(QLatin1String(tab.code), Qt::CaseInsensitive) == 0)
            return &tab;
    return nullptr;
}

} // namespace vantrosk
