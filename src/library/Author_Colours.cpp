#include "library/Author_Colours.h"

#include "core/Program.h"

namespace vantrosk {

QString Author_Colour_Of(const Program &program, const Fm_Row &row) {
    const QString &cell = row.cells[col_author];
    if (cell.isEmpty() || row.cells[col_zip].startsWith(QLatin1String("ORIGINAL"), Qt::CaseInsensitive))
        return {};
    QString colour;
    for (const Author_Colour &favourite : program.authors) {
        const bool is_named =
            cell.trimmed() == favourite.author || cell.contains(favourite.author + u' ', Qt::CaseInsensitive);
        if (is_named)
            colour = favourite.colour;
    }
    return colour;
}

} // namespace vantrosk
