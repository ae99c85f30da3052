#include "tools/diagnostics/Diagnostic_Report.h"

#include "core/Program.h"
#include "readme/mdlHTML_stuff.h"
#include "tools/diagnostics/Folder_Walk.h"

#include <algorithm>
#include <array>

namespace vantrosk {

namespace {

constexpr QLatin1String heading_start("<span class='TEXTRED VKSUBTITLE'>");
constexpr QLatin1String heading_end("</span><br>");
constexpr QLatin1String table_end("</table>");
constexpr QLatin1String table_head(
    "<table border='1' cellspacing='0' cellpadding='0' class='VKFMINFO'><tr class='HIGHLIGHTYELLOW "
    "TEXTBLACK'><td>SIZE</td><td>DATE</td><td>NAME</td></tr>");
constexpr QLatin1String missing_folder(
    "<span class='HIGHLIGHTRED VKTITLE'>WARNING, GAME FOLDER DOES NOT EXIST - Unable to continue</span>");
constexpr QLatin1String legend(
    "<br>Rows highlighted in <span class='HIGHLIGHTRED'>RED</span> are files not expected in the current "
    "folder<br>Rows highlighted in <span class='HIGHLIGHTORANGE TEXTBLACK'>ORANGE</span> are wrong date or "
    "size<br>Rows in <span class='HIGHLIGHTPINK TEXTBLACK'>PINK</span> are missing files and are shown at "
    "the bottom.<br>Rows highlighted in <span class='HIGHLIGHTAQUA TEXTBLACK'>AQUA</span> are Vantrosk "
    "created or used files.<br>");

/// What stands before a folder's path, by its level.
constexpr std::array<const char *, deepest_level + 1> level_marks{"[",     "[",     " 1) [", " 2) [",
                                                                  " 3) [", " 4) [", " 4) ["};

QLatin1String Row_start(Row_Colour colour) {
    switch (colour) {
    case Row_Colour::red:
        return QLatin1String("<tr class='HIGHLIGHTRED'><td>");
    case Row_Colour::orange:
        return QLatin1String("<tr class='HIGHLIGHTORANGE'><td>");
    case Row_Colour::aqua:
        return QLatin1String("<tr class='HIGHLIGHTAQUA TEXTBLACK'><td>");
    case Row_Colour::pink:
        return QLatin1String("<tr class='HIGHLIGHTPINK'><td>");
    case Row_Colour::none:
        break;
    }
    return QLatin1String("<tr ><td>");
}

} // namespace

QString Escape_name(const QString &name) {
    return Escape_html(QString(name).replace(u'&', QLatin1String("&amp;")));
}

void Diagnostic_Report::add_missing_folder() {
    sections_ += missing_folder;
}

void Diagnostic_Report::open_folder(const QString &path, int level) {
    if (level > 0)
        sections_ += table_end + QStringLiteral("<br><br>");
    const auto mark = static_cast<std::size_t>(std::clamp(level, 0, deepest_level));
    sections_ += heading_start + QLatin1String(level_marks[mark]) + Escape_name(path) + u']' + heading_end;
    sections_ += table_head;
}

void Diagnostic_Report::add_row(Row_Colour colour, const QString &size, const QString &date,
                                const QString &name) {
    constexpr QLatin1String next_cell("</td><td>"), row_end("</td></tr>");
    sections_ += Row_start(colour);
    sections_ += Escape_name(size);
    sections_ += next_cell;
    sections_ += Escape_name(date);
    sections_ += next_cell;
    sections_ += Escape_name(name);
    sections_ += row_end;
}

void Diagnostic_Report::open_missing() {
    sections_ += table_end + QStringLiteral("<br><br>") + heading_start + "Missing Files" + heading_end;
    sections_ += table_head;
}

QString Diagnostic_Report::page(const Program &program, const QString &intro,
                                const QString &reference_name) const {
    return Page_Head(program, false, false) + "<span class='VKWARNINGS'>" + intro + "</span><br>" +
           "<span class='VKINFO'><br> Using Reference File: " + Escape_name(reference_name) + legend +
           "</span>" + sections_ + table_end + "</body></html>";
}

} // namespace vantrosk
