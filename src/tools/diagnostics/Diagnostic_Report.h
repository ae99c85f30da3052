#pragma once

#include <QString>

namespace vantrosk {

struct Program;
struct Reference_Row;

/// What a row of the report says by its colour.
enum class Row_Colour { none, red, orange, aqua, pink };

/// The report as it grows. Names come from the disk and from reference files, so they are text on the page.
class Diagnostic_Report {
public:
    /// In the place of the sections, when there is nothing to walk.
    void add_missing_folder();
    /// Begins the section of a folder, ending the one before. Level 0 is the game folder.
    void open_folder(const QString &path, int level);
    void add_row(Row_Colour colour, const QString &size, const QString &date, const QString &name);
    /// Ends the last section and begins that of the missing files.
    void open_missing();

    /// The whole page.
    QString page(const Program &program, const QString &intro, const QString &reference_name) const;

private:
    QString sections_;
};

/// A name as text on a page, "&" included: what the disk has, the page shows.
QString Escape_name(const QString &name);

} // namespace vantrosk
