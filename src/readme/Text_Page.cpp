#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "library/fields/Readme_Fields.h"
#include "readme/Pages.h"
#include "readme/mdlHTML_stuff.h"

namespace vantrosk {

namespace {

void Take_while_empty(QString &field, const QString &line, QString (*extractor)(const QString &)) {
    if (field.isEmpty())
        field = extractor(line).trimmed();
}

Page_Header Header_of_text(const QStringList &lines) {
    Page_Header header;
    for (const QString &line : lines) {
        Take_while_empty(header.title, line, Title_of_line);
        Take_while_empty(header.game, line, Game_of_line);
        Take_while_empty(header.author, line, Author_of_line);
    }
    return header;
}

/// Columns and boxes that an author drew with blanks stay as drawn; long lines still fold at the window.
QString Laid_out_text(const Program &program, const QStringList &lines) {
    const Font_Tweak &font = program.tweaks.OTHERTEXTFONT;
    return "<div style='white-space:pre-wrap;padding:8px;font-size:" + QString::number(font.size) +
           "pt;color:" + Style_value(font.colour) + ";font-family:" + Style_value(font.name) +
           ",sans-serif'>" + Escape_html(lines.join(QLatin1Char('\n'))).replace('\n', "<br>") + "</div>\r\n";
}

bool Ends_with(const QString &path, const char *extension) {
    return path.endsWith(QLatin1String(extension), Qt::CaseInsensitive);
}

} // namespace

QString Write_page(Program &program, const QString &page_path, const QString &html) {
    if (const Fault fault = program.files.write_file(page_path, html.toUtf8())) {
        debug_print(program, "FUNCTIONS: " + fault.text);
        return {};
    }
    return page_path;
}

QString Header_Table(const Page_Header &header) {
    QString table = "<table border='0' width='100%' cellspacing='0' cellpadding='3'>\r\n<tr>";
    if (header.title.isEmpty())
        table += "<td>&nbsp;</td></tr>\r\n";
    else
        table += "<td class='VKTITLE'>" + Escape_html(header.title) + "</td></tr>\r\n";
    if (!header.game.isEmpty())
        table += "<tr><td class='VKSUBTITLE'>A '" + Escape_html(header.game) + "' Fan Mission</td></tr>\r\n";
    if (!header.author.isEmpty())
        table += "<tr><td class='VKSUBTITLE'>   By " + Escape_html(header.author) + "</td></tr>\r\n";
    return table + "</table>\r\n";
}

QString Page_Path(const QString &readme_path) {
    const qsizetype dot = readme_path.lastIndexOf(QLatin1Char('.'));
    const bool in_name = dot > readme_path.lastIndexOf(QLatin1Char('\\'));
    return (in_name ? readme_path.left(dot) : readme_path) + ".htm";
}

QString Render_Text_Readme(Program &program, const QString &path) {
    if (!Ends_with(path, ".TXT"))
        return {};
    const QStringList lines = Read_text_lines(program, path);
    if (lines.isEmpty())
        return {};
    return Write_page(program, Page_Path(path),
                      Page_Head(program, true, true) + Header_Table(Header_of_text(lines)) +
                          Laid_out_text(program, lines) + "<br><br>\r\n" + page_end);
}

QString Render_Notice(Program &program, const QString &page_path, const QString &heading,
                      const QString &text) {
    return Write_page(program, page_path,
                      Page_Head(program, false, false) + "<span class='VKSUBTITLE'>" + Escape_html(heading) +
                          "</span><br><br>\r\n<span class='VKINFO'>" + Escape_html(text) + "</span><br>\r\n" +
                          page_end);
}

QString Write_RTF_Text(Program &program, const QString &text, const QString &folder) {
    const QString path = folder + rtf_text_name;
    if (const Fault fault = Write_text_lines(program, path, Split_lines(text))) {
        debug_print(program, "FUNCTIONS: " + fault.text);
        return {};
    }
    return path;
}

} // namespace vantrosk
