#pragma once

#include "core/mdlDB_Functions.h"
#include "library/Get_Info.h"
#include "support/World.h"

#include <gtest/gtest.h>

namespace vantrosk {

inline const Zip_Entry a_mission{"miss20.mis", "mission", {}};

inline Zip_Entry Readme(const QByteArray &text) {
    return {"readme.txt", text, {}};
}

inline Zip_Entry Titles(const QByteArray &text) {
    return {"strings/titles.str", text, {}};
}

/// A mission that tells all about itself.
inline const std::vector<Zip_Entry> whole_mission{
    a_mission, Readme("Title : The Vault\nAuthor : Ann Lee\nGame : Thief 2\n")};

/// A world with Thief 2 set up and one selected row; verbs make the zip and examine it.
struct Info_World : testing::Test {
    World world;
    Program &program = world.program();

    Info_World() { set_up("T2"); }

    /// The game in folder "games/CODE", its zips in "zips/CODE".
    void set_up(const QString &code) { world.set_up_game(code, "games/" + code, "zips/" + code); }

    /// A record of "vault.zip" with these values, then the zip examined.
    void examine_recorded(const QString &columns = {}, const QString &values = {},
                          const std::vector<Zip_Entry> &entries = whole_mission) {
        record("T2", columns, values);
        examine(entries);
    }

    /// Makes the zip in the folder of that list and examines it.
    void examine(const std::vector<Zip_Entry> &entries, const QString &list = "T2",
                 const QString &zip = "vault.zip") {
        world.zip("zips/" + list + "/" + zip, entries);
        examine_again(list, zip);
    }

    void examine_again(const QString &list = "T2", const QString &zip = "vault.zip") {
        program.SELECTED_GAME_TAB = list;
        Fm_Row row;
        row.cells[col_zip] = zip;
        program.screen.list.rows = {row};
        program.screen.list.current_row = 0;
        Get_Info(program, zip);
    }

    void record(const QString &game, const QString &columns = {}, const QString &values = {},
                const QString &zip = "vault.zip") {
        db_Execute(program, "INSERT INTO Table_Scores (zip_name,game" + columns + ") VALUES (" +
                                In_single_quotes(zip) + "," + In_single_quotes(game) + values + ")");
    }

    /// One column of every record, in the order of their games.
    QStringList records(const QString &column) {
        QStringList values;
        const Recordset all = db_Query(program, "SELECT * FROM Table_Scores order by game");
        for (int row = 0; row < all.size(); ++row)
            values << (all.is_null(row, column) ? QString("<null>") : all.text(row, column));
        return values;
    }

    QStringList info_files() { return Names(world.snapshot("home/info")); }

    const Details_Panel &details() const { return program.screen.details; }
    QString game_path(const QString &code) { return world.windows("games/" + code); }
    QString info_path(const QString &name) { return world.windows("home") + "\\INFO\\" + name; }
};

} // namespace vantrosk
