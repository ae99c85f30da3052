#pragma once

#include "core/mdlDB_Functions.h"
#include "support/World.h"

namespace vantrosk {

/// A program with an open database and nothing else of the start done.
struct Database_World : World {
    Database_World() : bare(std::make_unique<Program>(platform, ui, windows("home"))) {}

    /// Opens the delivered file and brings it up to date.
    Program &upgraded() {
        if (!Open_database(*bare))
            throw std::runtime_error("database did not open");
        DB_Upgrade_Tables(*bare);
        return *bare;
    }
    /// Ends the program; the next one works on the same file.
    Program &anew() {
        bare.reset();
        bare = std::make_unique<Program>(platform, ui, windows("home"));
        return *bare;
    }

    std::unique_ptr<Program> bare;
};

/// Rows joined by " / ", cells by "|", nothing as "-": a whole result in one comparison.
inline QString Rows_text(const Recordset &records) {
    QStringList rows;
    for (int row = 0; row < records.size(); ++row) {
        QStringList cells;
        for (const QString &column : records.columns)
            cells << (records.is_null(row, column) ? QString("-") : records.text(row, column));
        rows << cells.join("|");
    }
    return rows.join(" / ");
}

} // namespace vantrosk
