#include "Demo_Library.h"

#include <array>

namespace vantrosk::demo {

namespace {

struct Game_Row {
    const char *code, *folder, *program;
    std::array<const char *, 6>
        own_files;    ///< small stand-ins for what a game's folder holds; null ends the row
    const char *save; ///< of the original missions; null for none
};

// A file of the demo's games says what it stands for; the missions overwrite some of them.
constexpr std::array<Game_Row, 5> games{{
    {"T1",
     "Thief 1",
     "thief.exe",
     {"convict.osm", "dark.gam", "strings/titles.str", "books/english/plaques.str", "intrface/welcome.txt",
      nullptr},
     "SAVES/game0001.sav"},
    {"TG",
     "Thief Gold",
     "thief.exe",
     {"convict.osm", "dark.gam", "strings/titles.str", "books/english/plaques.str", nullptr, nullptr},
     "SAVES/game0001.sav"},
    {"T2",
     "Thief 2",
     "thief2.exe",
     {"convict.osm", "darkhooks.dlx", "dark.gam", "strings/titles.str", "books/english/plaques.str",
      "fam/core_1/stone.txt"},
     "SAVES/game0001.sav"},
    {"SS2",
     "System Shock 2",
     "shock2.exe",
     {"shock2.gam", "strings/logs.str", "objicon/icons.txt", nullptr, nullptr, nullptr},
     "save_0/shock.sav"},
    {"DMOD",
     "Doom 3",
     "doom3.exe",
     {"base/default.cfg", "base/pak000.txt", nullptr, nullptr, nullptr, nullptr},
     nullptr},
}};

} // namespace

std::vector<Demo_Game> Make_games(const QByteArray &game_program) {
    std::vector<Demo_Game> made;
    for (const Game_Row &row : games) {
        Demo_Game game{row.code, row.folder, row.folder, {}};
        game.files[row.program] = game_program;
        for (const char *name : row.own_files)
            if (name)
                game.files[name] = QByteArray("The game's own ") + name + ", as it was installed.\r\n";
        if (row.save)
            game.files[row.save] = QByteArray("A save of the original missions of ") + row.folder + ".\r\n";
        if (QByteArray(row.code) != "DMOD")
            game.files["darkinst.cfg"] = "install_path .\\\r\nlanguage english\r\n";
        made.push_back(game);
    }
    return made;
}

} // namespace vantrosk::demo
