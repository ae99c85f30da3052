#include "library/SetUp_Dromed.h"

#include "core/Games.h"
#include "core/Program.h"
#include "core/mdlFile_Functions.h"

#include <algorithm>
#include <array>

namespace vantrosk {

namespace {

struct Editor {
    const char *game;
    const char *caption, *tip;
    bool can_open; ///< missions of this game can be opened in it
    QString Main_Ini::*configured = nullptr;
};

constexpr const char *dromed_tip = "Load Mission into DromEd";
constexpr const char *dark_mod_tip = "The Dark Mod level editing is not supported yet.";

constexpr auto editors = std::to_array<Editor>({
    {"T1", "&DromEd", dromed_tip, true, &Main_Ini::T1_EDITOR},
    {"TG", "&DromEd", dromed_tip, true, &Main_Ini::TG_EDITOR},
    {"T2", "&DromEd", dromed_tip, true, &Main_Ini::T2_EDITOR},
    {"DM", "&DromEd", dromed_tip, true, &Main_Ini::DM_EDITOR},
    {"T2X", "&DromEd", dromed_tip, true},
    {"SS2", "&ShockEd", "Load Mission into ShockEd", true, &Main_Ini::SS2_EDITOR},
    {"T3", "&T3Ed", "Thief Deadly Shadows compiled Fan Missions can not be loaded into T3Ed", false},
    {"DMOD", "&Doom", dark_mod_tip, false},
    {"DOOM", "&Doom", dark_mod_tip, false},
});

/// What the button says while no game is active, and for games without an editor.
constexpr Editor no_editor{"", "&DromEd", dromed_tip, false};

const Editor &Editor_of(const QString &game) {
    const auto row = std::find_if(editors.begin(), editors.end(), [&game](const Editor &editor) {
        return game == QLatin1String(editor.game);
    });
    return row == editors.end() ? no_editor : *row;
}

} // namespace

QString Editor_program(const Program &program) {
    const Editor &editor = Editor_of(program.CURRENT_GAME);
    if (!editor.can_open)
        return {};
    if (editor.configured && FileExists(program, program.ini.*editor.configured))
        return program.ini.*editor.configured;
    QString folder = Game_Folder(program.ini, program.CURRENT_GAME);
    while (folder.endsWith(QLatin1Char('\\')))
        folder.chop(1);
    if (folder.isEmpty())
        return {};
    const bool is_shock = program.CURRENT_GAME == QLatin1String("SS2");
    if (is_shock && FileExists(program, folder + "\\SHOCKED.EXE"))
        return folder + "\\SHOCKED.EXE";
    return FileExists(program, folder + "\\dromed.exe") ? folder + "\\dromed.exe" : QString();
}

void SetUp_Dromed(Program &program) {
    const Editor &editor = Editor_of(program.CURRENT_GAME);
    program.screen.editor = {editor.caption, editor.tip, !Editor_program(program).isEmpty()};
    program.ui.details_changed();
}

} // namespace vantrosk
