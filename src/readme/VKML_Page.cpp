#include "core/mdlFile_Functions.h"
#include "library/fields/Readme_Fields.h"
#include "readme/Marked_Text.h"
#include "readme/Pages.h"
#include "readme/Readme_Links.h"

#include <QRegularExpression>

#include <array>

namespace vantrosk {

namespace {

struct Tag {
    const char *name;
    const char *open;
    const char *close; ///< null when the tag has no closing form
};

// [VKIMAGE] is not here: only a pair of them is a tag, and its content becomes an address.
constexpr std::array<Tag, 14> tags{{
    {"VKNL", "<br>", nullptr},
    {"VKLINE", "<hr>", nullptr},
    {"VKCENTER", "<center>", "</center>"},
    {"VKTITLE", "<span class='VKTITLE'>", "</span><br>"},
    {"VKSUBTITLE", "<span class='VKSUBTITLE'>", "</span><br>"},
    {"VKAUTHOR", "<Span class='VKAUTHOR'>", "</span>"},
    {"VKFMINFO", "<span class='VKFMINFO'>", "</span>"},
    {"VKBRIEFING", "<Span class='VKBRIEFING'>", "</span>"},
    {"VKFMSTRUCTURE", "<Span class='VKFMSTRUCTURE'>", "</span>"},
    {"VKWARNINGS", "<Span class='VKWARNINGS'>", "</span>"},
    {"VKBUILD", "<Span class='VKBUILD'>", "</span>"},
    {"VKINFO", "<span class='VKINFO'>", "</span>"},
    {"VKLOADING", "<Span class='VKLOADING'>", "</span>"},
    {"VKCOPYRIGHT", "<Span class='VKCOPYRIGHT'>", "</span>"},
}};

/// The mark-up of one tag, or the tag itself as text when there is no such tag.
QString Mark_up(const QString &tag, bool closing, const QString &as_typed) {
    for (const Tag &known : tags) {
        if (tag.compare(QLatin1String(known.name), Qt::CaseInsensitive) != 0)
            continue;
        const char *mark_up = closing ? known.close : known.open;
        return mark_up ? QString(QLatin1String(mark_up)) : as_typed;
    }
    return as_typed;
}

/// Pictures lie flat in one folder, so that no folder in the name is followed.
QString Image(const QString &content, const QString &as_typed) {
    const QString name = Encode_picture_name(content);
    return name.isEmpty() ? as_typed : "<img src='VKIMAGES\\" + name + "' border='0'>";
}

/// The name as typed; the text around it was escaped already.
QString Unescaped(QString name) {
    return name.replace(QLatin1String("&lt;"), QLatin1String("<"))
        .replace(QLatin1String("&gt;"), QLatin1String(">"));
}

QString Replace_tags(const QString &text) {
    static const QRegularExpression tag(
        QStringLiteral(R"(\[VKIMAGE\]([^\r\n\[]{1,255})\[/VKIMAGE\]|\[(/?)(VK[A-Z]{1,16})\])"),
        QRegularExpression::CaseInsensitiveOption);
    QString html;
    html.reserve(text.size() * 2);
    qsizetype done = 0;
    auto matches = tag.globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        html += QStringView(text).mid(done, match.capturedStart() - done);
        done = match.capturedEnd();
        html += match.captured(3).isEmpty()
                    ? Image(Unescaped(match.captured(1)), match.captured())
                    : Mark_up(match.captured(3), !match.captured(2).isEmpty(), match.captured());
    }
    html += QStringView(text).mid(done);
    return html;
}

QString Without_tags(QString line, std::initializer_list<const char *> names) {
    for (const char *name : names) {
        line.remove("[" + QLatin1String(name) + "]", Qt::CaseInsensitive);
        line.remove("[/" + QLatin1String(name) + "]", Qt::CaseInsensitive);
    }
    return line;
}

/// A field of the header, from lines that hold a word.
struct Author_Field {
    QString Page_Header::*field;
    const char *word;
    const char *pattern;
};

constexpr std::array<Author_Field, 3> author_fields{{
    {&Page_Header::author, "[VKAUTHOR]", "^[Aa][Uu][Tt][Hh][Oo][Rr](?: ){0,20}:"},
    {&Page_Header::contact, "Contact Info", "^[Cc]ontact [Ii]nfo(?: ){0,30}:"},
    {&Page_Header::home_page, "Homepage", "^[Hh][Oo][Mm][Ee][Pp][Aa][Gg][Ee](?: ){0,20}:"},
}};

void Take_structure(Page_Header &header, const QString &line) {
    if (!line.contains(QLatin1String("[VKFMSTRUCTURE]"), Qt::CaseInsensitive))
        return;
    const QString bare = Without_tags(line, {"VKFMSTRUCTURE"});
    if (header.title.isEmpty())
        Fill_field(header.title, Title_of_line(bare));
    if (header.game.isEmpty())
        Fill_field(header.game, Game_of_line(bare));
}

void Take_fields(Page_Header &header, const QString &line) {
    Take_structure(header, line);
    for (const Author_Field &author_field : author_fields) {
        QString &field = header.*author_field.field;
        if (field.isEmpty() && line.contains(QLatin1String(author_field.word), Qt::CaseInsensitive))
            Fill_field(field,
                       Label_value(Without_tags(line, {"VKAUTHOR"}), QLatin1String(author_field.pattern)));
    }
}

/// A field ends where its line ends for a reader, whatever stands behind it in the file.
Page_Header Header_of_vkml(const QString &text) {
    Page_Header header;
    for (const QString &line : Split_lines(text))
        for (const QString &shown_line :
             line.split(QStringLiteral("[VKNL]"), Qt::KeepEmptyParts, Qt::CaseInsensitive))
            Take_fields(header, shown_line);
    header.contact = Tidy_contact(header.contact);
    header.home_page = Tidy_home_page(header.home_page);
    return header;
}

/// Takes away a piece that stands alone between line ends and tags. Prose that holds it is never touched.
void Remove_whole_piece(QString &html, const QString &piece) {
    const QRegularExpression alone(R"((^|>|\n)[ \t\r]*+)" + QRegularExpression::escape(Escape_html(piece)) +
                                       R"([ \t\r]*(?=<|\n|$))",
                                   QRegularExpression::CaseInsensitiveOption);
    html.replace(alone, QStringLiteral("\\1"));
}

/// A span that holds nothing but the name goes with it.
void Remove_name_spans(QString &html, const QString &name) {
    const QRegularExpression span(R"(<span class='VKFMINFO'>[ \t]*)" +
                                      QRegularExpression::escape(Escape_html(name)) + R"([ \t]*</span>)",
                                  QRegularExpression::CaseInsensitiveOption);
    html.remove(span);
}

void Remove_what_the_header_says(QString &html, const Page_Header &header) {
    if (!header.title.isEmpty()) {
        Remove_name_spans(html, header.title);
        Remove_whole_piece(html, header.title);
    }
    if (!header.author.isEmpty())
        Remove_whole_piece(html, "By " + header.author);
    if (!header.game.isEmpty())
        Remove_whole_piece(html, "A " + header.game + " Fan Mission");
    html.remove(QLatin1String("<span class='VKSUBTITLE'></span><br>"));
    html.remove(QLatin1String("<span class='VKTITLE'></span><br>"));
}

} // namespace

QString VKML_to_html(const QString &text) {
    return Replace_tags(Escape_html(text));
}

QString Page_of_VKML(const Program &program, const QString &text, const Page_Facts &facts) {
    const QString lines = With_line_feeds(text).replace(QLatin1String("\n"), QLatin1String("\r\n"));
    const Page_Header header = Header_of_vkml(lines);
    Marked_Text marked(lines);
    Link_home_page(marked, header.home_page);
    QString html =
        marked.html([](QString &part, QStringView words) { part += VKML_to_html(words.toString()); });
    Remove_what_the_header_says(html, header);
    return Page_Head(program, true, true) + Header_Table(program, header, facts, Page_Kind::vkml) + html +
           "<br><br>\r\n<br></div>\r\n" + page_end;
}

QString Render_VKML_Readme(Program &program, const QString &path, const Page_Facts &facts) {
    if (!path.endsWith(QLatin1String(".VKML"), Qt::CaseInsensitive))
        return {};
    const QString text = Read_text(program, path);
    if (text.isEmpty())
        return {};
    return Write_page(program, Page_Path(path), Page_of_VKML(program, text, facts));
}

} // namespace vantrosk
