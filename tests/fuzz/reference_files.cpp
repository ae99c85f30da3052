#include "fuzz/Fuzz.h"

#include "community/Download.h"
#include "core/mdlFile_Functions.h"
#include "tools/diagnostics/Diagnostic_Report.h"
#include "tools/diagnostics/Reference_Table.h"

#include <cstdlib>

namespace vantrosk {

namespace {

const QString folder = QStringLiteral("C:\\T2");

void Must(bool holds) {
    if (!holds)
        std::abort();
}

/// A row as this program writes it, read back; a file of that path is found, once.
void Write_and_find(const Reference_Row &row) {
    Must(row.path.startsWith(folder + u'\\'));
    const QString line = Reference_line(row.path.mid(folder.size() + 1), 12, "05/04/2000 10:00:07");
    Reference again = Read_reference_text(line, folder);
    Must(again.rows.size() == 1 && again.rows[0].size == "12" && again.rows[0].date == "05/04/2000 10:00:07");
    // A word that stands for a sign may come about where another was replaced.
    if (!row.path.contains("VK") && !again.rows[0].path.contains("VK"))
        Must(again.rows[0].path == row.path);
    Reference_Table table(std::move(again.rows));
    Reference_Row *found = table.take(table.rows()[0].path.toUpper().toLower());
    Must(!found || !table.take(table.rows()[0].path));
}

} // namespace

void Fuzz_one(const QByteArray &bytes) {
    // The list of a server's files comes through this; it never grows beyond what was sent.
    Must(Inner_text(bytes).size() <= bytes.size());
    const Reference reference = Read_reference_text(Decode_text(bytes), folder);
    Diagnostic_Report report;
    report.open_missing();
    for (const Reference_Row &row : reference.rows) {
        report.add_row(Row_Colour::pink, row.size, row.date, row.path);
        Write_and_find(row);
    }
    for (const QString &text : {Escape_name(reference.info), Escape_name(reference.created)})
        Must(!text.contains('<') && !text.contains('>'));
    for (const Reference_Row &row : reference.rows)
        Must(!Escape_name(row.path).contains('<'));
}

std::vector<QByteArray> Fuzz_seeds() {
    return {"FILECOUNT:2\r\nINFO: Patched to 1.18<br>English\r\nDATECREATED:20261121\r\n"
            "thief2.exe,2510848,05/04/2000 10:00:00\r\nstrings\\aVKCOMMA b.str,17,21/11/2026 18:04:59\r\n",
            "; a comment\r\n/ another\r\n\\;name,1,x\r\nobj\\\\a.bin,1,4/5/2000 10:00 AM, x\r\n",
            "\xFF\xFE"
            "a\0,\0001\0,\000x\0",
            ""};
}

std::vector<QByteArray> Fuzz_pieces() {
    return {"\r\n",
            "\n",
            "\r",
            ",",
            ";",
            "/",
            "\\",
            "\\\\",
            " ",
            "FILECOUNT:",
            "FILECOUNT:2000000000\r\n",
            "INFO:",
            "<br>",
            "<script>",
            "</script>",
            "<!--",
            "&#x41;",
            "&lt;",
            "DATECREATED:",
            "VKCOMMA",
            "VKCR",
            "VKLF",
            "\xEF\xBB\xBF",
            "\xFF\xFE",
            "\xC5",
            QByteArray(1, '\0'),
            "\xE2\x80\xA8",
            "ß",
            "İ",
            "9223372036854775808"};
}

} // namespace vantrosk
