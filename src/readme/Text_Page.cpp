#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlStartup.h"
#include "library/fields/Readme_Fields.h"
#include "readme/Marked_Text.h"
#include "readme/Pages.h"
#include "readme/Readme_Links.h"
#include "readme/Text_Marks.h"

namespace vantrosk {

namespace {

constexpr qint64 repaired_file_limit = qint64(8) << 20; ///< bytes

/// A label that a contact stands behind, for lines that hold one of two words.
struct Contact_Label {
    const char *word, *other_word;
    const char *pattern;
};

constexpr std::array<Contact_Label, 4> contact_labels{{
    {"Contact Info", "Contact Info", "^[Cc]ontact [Ii]nfo(?: ){0,30}:"},
    {"Contact", "Contact", "^[Cc]ontact(?: ){0,30}:"},
    {"E-Mail", "E-mail", "^[E]-[Mm]ail(?: ){0,30}:"},
    {"Email", "Email", "^[E][Mm]ail(?: ){0,30}:"},
}};

void Take_contact(QString &contact, const QString &line) {
    for (const Contact_Label &label : contact_labels) {
        if (contact.isEmpty() &&
            (line.contains(QLatin1String(label.word)) || line.contains(QLatin1String(label.other_word))))
            Fill_field(contact, Label_value(line, QLatin1String(label.pattern)));
    }
}

/// The extractors are tried only while their field is empty: they cost more than all else.
Page_Header Header_of_text(const QString &text) {
    static const QString home_page_label = QStringLiteral("^[Hh][Oo][Mm][Ee][Pp][Aa][Gg][Ee](?: ){0,20}:");
    Page_Header header;
    for (const QString &line : Split_lines(text)) {
        if (line.size() < 3)
            continue;
        if (header.title.isEmpty())
            Fill_field(header.title, Title_of_line(line));
        if (header.game.isEmpty())
            Fill_field(header.game, Game_of_line(line));
        if (header.author.isEmpty())
            Fill_field(header.author, Author_of_line(line));
        if (header.contact.isEmpty())
            Take_contact(header.contact, line);
        if (header.home_page.isEmpty())
            Fill_field(header.home_page, Label_value(line, home_page_label));
    }
    if (header.contact.isEmpty())
        Fill_field(header.contact, First_mail_address(text));
    if (header.home_page.isEmpty())
        Fill_field(header.home_page, First_home_page(text));
    header.contact = Tidy_contact(header.contact);
    header.home_page = Tidy_home_page(header.home_page);
    return header;
}

/// Columns and boxes that an author drew with blanks stay as drawn; long lines still fold at the window.
QString Laid_out_text(const Program &program, const QString &html) {
    const Font_Tweak &font = program.tweaks.OTHERTEXTFONT;
    return "<div style='white-space:pre-wrap;padding:8px;font-size:" + QString::number(font.size) +
           "pt;color:" + Style_value(font.colour) + ";font-family:" + Style_value(font.name) +
           ",sans-serif'>" + html + "</div>\r\n";
}

bool Ends_with(const QString &path, const char *extension) {
    return path.endsWith(QLatin1String(extension), Qt::CaseInsensitive);
}

/// Other programs that open a readme of INFO need whole line ends. A file of the user's is never touched.
void Repair_line_feeds(Program &program, const QString &path) {
    if (!path.startsWith(program.paths.info, Qt::CaseInsensitive))
        return;
    const auto bytes = program.files.read_file(path, repaired_file_limit);
    const bool wide = bytes.value.startsWith("\xFF\xFE") || bytes.value.startsWith("\xFE\xFF");
    if (!bytes.ok() || wide || bytes.value.contains('\r') || !bytes.value.contains('\n'))
        return;
    if (const Fault fault = program.files.write_file(path, QByteArray(bytes.value).replace("\n", "\r\n")))
        debug_print(program, "FUNCTIONS: " + fault.text);
}

void Suggest_keywords(Program &program, const QString &text, const Page_Facts &facts) {
    QString &keywords = program.screen.details.keywords;
    if (!facts.row_selected || !keywords.isEmpty())
        return;
    keywords = Suggested_keywords(text);
    program.ui.details_changed();
}

} // namespace

QString With_line_feeds(QString text) {
    text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return text.isEmpty() || text.endsWith(QLatin1Char('\n')) ? text : text + QLatin1Char('\n');
}

QString Write_page(Program &program, const QString &page_path, const QString &html) {
    if (const Fault fault = program.files.write_file(page_path, html.toUtf8())) {
        debug_print(program, "FUNCTIONS: " + fault.text);
        return {};
    }
    return page_path;
}

QString Page_Path(const QString &readme_path) {
    const qsizetype dot = readme_path.lastIndexOf(QLatin1Char('.'));
    const bool in_name = dot > readme_path.lastIndexOf(QLatin1Char('\\'));
    return (in_name ? readme_path.left(dot) : readme_path) + ".htm";
}

QString Page_of_text(const Program &program, const QString &text, const Page_Facts &facts) {
    const QString lines = With_line_feeds(text);
    const Page_Header header = Header_of_text(lines);
    Marked_Text marked(lines);
    Link_contact(marked, program, header, facts);
    Link_home_page(marked, header.home_page);
    Name_this_program(marked);
    Mark_labels(marked);
    Mark_glossary(marked, program);
    return Page_Head(program, true, true) + Header_Table(program, header, facts, Page_Kind::text) +
           Laid_out_text(program, marked.html(Show_words)) + "<br><br>\r\n" + page_end;
}

QString Render_Text(Program &program, const QString &text, const QString &page_path,
                    const Page_Facts &facts) {
    if (text.isEmpty())
        return {};
    const qint64 began = program.clock.ticks();
    Suggest_keywords(program, text, facts);
    const QString page = Write_page(program, page_path, Page_of_text(program, text, facts));
    debug_print(program, "FUNCTIONS: Readme converted in " + Seconds_Since(program, began));
    return page;
}

QString Render_Text_Readme(Program &program, const QString &path, const Page_Facts &facts) {
    if (!Ends_with(path, ".TXT"))
        return {};
    Repair_line_feeds(program, path);
    return Render_Text(program, Read_text(program, path), Page_Path(path), facts);
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
    const QByteArray bytes = With_line_feeds(text).toUtf8().replace("\n", "\r\n");
    if (const Fault fault = program.files.write_file(path, bytes)) {
        debug_print(program, "FUNCTIONS: " + fault.text);
        return {};
    }
    return path;
}

} // namespace vantrosk
