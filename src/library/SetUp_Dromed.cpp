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
};

constexpr const char *dromed_tip = "Load Mission into DromEd";
constexpr const char *dark_mod_tip = "The Dark Mod level editing is not supported yet.";

constexpr auto editors = std::to_array<Editor>({
    {"T1", "&DromEd", dromed_tip, true},
    {"TG", "&DromEd", dromed_tip, true},
    {"T2", "&DromEd", dromed_tip, true},
    {"DM", "&DromEd", dromed_tip, true},
    {"T2X", "&DromEd", dromed_tip, true},
    {"SS2", "&ShockEd", "Load Mission into ShockEd", true},
    {"T3", "&T3Ed", "Thief Deadly Shadows compiled Fan Missions can not be loaded into T3Ed", false},
    {"DMOD", "&Doom", dark_mod_tip, false},
    {"DOOM", "&Doom", dark_mod_tip, false},
});

/// What the button says while no game is active, and for games without an editor.
constexpr Editor no_editor{"", "&DromEd", dromed_tip, false};

} // namespace

void SetUp_Dromed(Program &program) {
    const auto row = std::find_if(editors.begin(), editors.end(), [&program](const Editor &editor) {
        return program.CURRENT_GAME == QLatin1String(editor.game);
    });
    const Editor &editor = row == editors.end() ? no_editor : *row;
    QString folder = Game_Folder(program.ini, program.CURRENT_GAME);
    while (folder.endsWith(QLatin1Char('\\')))
        folder.chop(1);
    program.screen.editor = {editor.caption, editor.tip,
                             editor.can_open && !folder.isEmpty() &&
                                 FileExists(program, folder + "\\dromed.exe")};
    program.ui.details_changed();
}

} // namespace vantrosk
