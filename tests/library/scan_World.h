#pragma once

#include "core/Program.h"
#include "library/Get_archives.h"
#include "support/World.h"

namespace vantrosk {

inline const QByteArray vault_readme = "Title: The Vault\r\nAuthor: Ann Author\r\nGame: Thief 2\r\n";

/// A world with one game set up, its zips in "zips".
class Scan_World : public World {
public:
    explicit Scan_World(const QString &game = "T2") : game_(game) {
        set_up_game(game, "games/" + game, "zips");
    }

    void zips(const QString &name, const std::vector<Zip_Entry> &entries) { zip("zips/" + name, entries); }
    /// A mission of the dark engine with a readme.
    void mission(const QString &name, const QByteArray &readme = vault_readme) {
        zips(name, {{"miss20.mis", "m", {}}, {"readme.txt", readme, {}}});
    }
    void scan(int filter = 0) { Get_archives_of_game(program(), game_, filter); }

    const Scan_Summary &found() { return program().scan; }
    const Fm_List &list() { return program().screen.list; }
    /// The zip cells in list order.
    QStringList listed() {
        QStringList names;
        for (const Fm_Row &row : list().rows)
            names << row.cells[col_zip];
        return names;
    }
    /// The texts of one row, columns 1 to 13; empty when the zip is not listed.
    QStringList cells(const QString &zip_name) {
        const int row = list().find_zip(zip_name);
        QStringList texts;
        for (std::size_t column = col_name; row >= 0 && column < column_count; ++column)
            texts << list().rows[static_cast<std::size_t>(row)].cells[column];
        return texts;
    }
    QString cell(const QString &zip_name, Column column) { return cells(zip_name).value(column - 1); }
    QString game_of(const QString &zip_name) {
        const int row = list().find_zip(zip_name);
        return row < 0 ? QString("not listed") : list().rows[static_cast<std::size_t>(row)].game_icon;
    }

    /// Adds a record as an earlier scan and its user left it; `values` is "column = value, ...".
    void record(const QString &zip_name, const QString &name, const QString &game,
                const QString &values = {}) {
        db_Execute(program(), "INSERT INTO Table_Scores (zip_name,FM_name,author,game) VALUES (" +
                                  In_single_quotes(zip_name) + "," + In_single_quotes(name) + ",'Ann'," +
                                  In_single_quotes(game) + ")");
        if (!values.isEmpty())
            db_Execute(program(), "UPDATE Table_Scores SET " + values +
                                      " WHERE zip_name = " + In_single_quotes(zip_name));
    }
    /// All records as "zip|name|author|game|group_submissions|zip_date".
    QStringList records() {
        const Recordset rows = db_Query(program(), "select * from Table_Scores order by zip_name");
        QStringList texts;
        for (int row = 0; row < rows.size(); ++row) {
            QStringList fields;
            for (const char *column :
                 {"zip_name", "FM_name", "author", "game", "group_submissions", "Zip_Date"})
                fields << rows.text(row, column);
            texts << fields.join('|');
        }
        return texts;
    }
    QString log() { return QString::fromUtf8(read("home/debug.log")); }
    QStringList info_files() { return Names(snapshot("home/INFO")); }

private:
    QString game_;
};

} // namespace vantrosk
