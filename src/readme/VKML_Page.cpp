#include "core/mdlFile_Functions.h"
#include "library/fields/Readme_Fields.h"
#include "readme/Pages.h"
#include "readme/mdlHTML_stuff.h"

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

/// Pictures lie flat in one folder, so that no folder in the name is followed; what ends an attribute or
/// starts a query is percent-encoded.
QString Image(const QString &content, const QString &as_typed) {
    const qsizetype separator =
        qMax(content.lastIndexOf(QLatin1Char('\\')), content.lastIndexOf(QLatin1Char('/')));
    QString name = content.mid(separator + 1).trimmed();
    if (name.isEmpty() || name == QLatin1String(".") || name == QLatin1String(".."))
        return as_typed;
    name.replace('%', "%25").replace('\'', "%27").replace('"', "%22").replace('#', "%23").replace('?', "%3F");
    return "<img src='VKIMAGES\\" + name + "' border='0'>";
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
                    ? Image(match.captured(1), match.captured())
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

Page_Header Header_of_vkml(const QStringList &lines) {
    static const QString author_label = QStringLiteral("^[Aa][Uu][Tt][Hh][Oo][Rr](?: ){0,20}:");
    Page_Header header;
    for (const QString &line : lines) {
        if (line.contains(QLatin1String("[VKFMSTRUCTURE]"), Qt::CaseInsensitive)) {
            const QString bare = Without_tags(line, {"VKFMSTRUCTURE", "VKNL"});
            if (header.title.isEmpty())
                header.title = Title_of_line(bare).trimmed();
            if (header.game.isEmpty())
                header.game = Game_of_line(bare).trimmed();
        }
        if (header.author.isEmpty() && line.contains(QLatin1String("[VKAUTHOR]"), Qt::CaseInsensitive))
            header.author = Label_value(Without_tags(line, {"VKAUTHOR", "VKNL"}), author_label).trimmed();
    }
    return header;
}

/// Takes away a piece that stands alone between line ends and tags. Prose that holds it is never touched.
void Remove_whole_piece(QString &html, const QString &piece) {
    const QRegularExpression alone(R"((^|>|\n)[ \t\r]*)" + QRegularExpression::escape(Escape_html(piece)) +
                                       R"([ \t\r]*(?=<|\n|$))",
                                   QRegularExpression::CaseInsensitiveOption);
    html.replace(alone, QStringLiteral("\\1"));
}

void Remove_what_the_header_says(QString &html, const Page_Header &header) {
    if (!header.title.isEmpty())
        Remove_whole_piece(html, header.title);
    if (!header.author.isEmpty())
        Remove_whole_piece(html, "By " + header.author);
    if (!header.game.isEmpty())
        Remove_whole_piece(html, "A " + header.game + " Fan Mission");
    html.remove(QLatin1String("<span class='VKSUBTITLE'></span><br>"));
    html.remove(QLatin1String("<span class='VKTITLE'></span><br>"));
}

} // namespace

QString VKML_to_html(const QStringList &lines) {
    return Replace_tags(Escape_html(lines.join(QLatin1String("\r\n")) + "\r\n"));
}

QString Render_VKML_Readme(Program &program, const QString &path) {
    if (!path.endsWith(QLatin1String(".VKML"), Qt::CaseInsensitive))
        return {};
    const QStringList lines = Read_text_lines(program, path);
    if (lines.isEmpty())
        return {};
    const Page_Header header = Header_of_vkml(lines);
    QString text = VKML_to_html(lines);
    Remove_what_the_header_says(text, header);
    return Write_page(program, Page_Path(path),
                      Page_Head(program, true, true) + Header_Table(header) + text +
                          "<br><br>\r\n<br></div>\r\n" + page_end);
}

} // namespace vantrosk
