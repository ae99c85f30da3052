#include "readme/Readme_Links.h"

#include "core/Program.h"
#include "readme/Marked_Text.h"

namespace vantrosk {

namespace {

bool Is_one_of(QChar letter, const char *signs) {
    return letter.unicode() < 0x80 && QByteArrayView(signs).contains(letter.toLatin1());
}

bool Is_alnum(QChar letter) {
    const char16_t code = letter.unicode();
    return (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z');
}

bool Is_word(QChar letter) {
    return Is_alnum(letter) || letter == QLatin1Char('_');
}

/// Characters before the "@", behind it, inside a page's address and at its end.
bool Is_local(QChar letter) {
    return Is_alnum(letter) || Is_one_of(letter, "._%-");
}
bool Is_domain(QChar letter) {
    return Is_alnum(letter) || Is_one_of(letter, ".-");
}
bool Is_address(QChar letter) {
    return Is_alnum(letter) || Is_one_of(letter, "-+&@#/%?=~_|!:,.;");
}
bool Is_address_end(QChar letter) {
    return Is_alnum(letter) || Is_one_of(letter, "-+&@#/%=~_|");
}

/// A word begins or ends before this place.
bool Is_boundary(const QString &text, qsizetype place) {
    const bool before = place > 0 && Is_word(text[place - 1]);
    const bool behind = place < text.size() && Is_word(text[place]);
    return before != behind;
}

bool Is_address_at(const QString &text, qsizetype place) {
    const QStringView start = QStringView(text).mid(place, 7);
    return start == QLatin1String("http://") || start == QLatin1String("HTTP://");
}

/// Where the domain ends that begins at `start`: the last "." with 2 to 4 letters and a boundary behind it.
qsizetype Domain_end(const QString &text, qsizetype start) {
    qsizetype run = start;
    while (run < text.size() && Is_domain(text[run]))
        ++run;
    for (qsizetype dot = run - 1; dot > start; --dot) {
        if (text[dot] != QLatin1Char('.'))
            continue;
        qsizetype letters = 0;
        while (letters < 4 && dot + 1 + letters < run && Is_alnum(text[dot + 1 + letters]))
            ++letters;
        for (; letters >= 2; --letters) {
            if (Is_boundary(text, dot + 1 + letters))
                return dot + 1 + letters;
        }
    }
    return -1;
}

/// Where the name before an "@" begins, not before `floor`.
qsizetype Local_start(const QString &text, qsizetype at, qsizetype floor) {
    qsizetype start = at;
    while (start > floor && Is_local(text[start - 1]))
        --start;
    while (start < at && !Is_boundary(text, start))
        ++start;
    return start;
}

/// What is put around an address, or behind it in a sentence.
QString Without_wrapping(QString address) {
    while (!address.isEmpty() && Is_one_of(address.front(), "<([{'"))
        address.remove(0, 1);
    while (!address.isEmpty() && Is_one_of(address.back(), ">)]}',;:."))
        address.chop(1);
    return address;
}

QString Without_open_end(QString address) {
    while (!address.isEmpty() && !Is_address_end(address.back()))
        address.chop(1);
    return address;
}

const char *Template_type(const QString &score_cell) {
    const double score = score_cell.toDouble();
    if (score == 10)
        return "Email_APlus";
    if (score > 7)
        return "Email_High";
    return score >= 4 ? "Email_Average" : "Email_Low";
}

/// Nothing behind a mail's receiver may add a copy for somebody else.
QString Mail_receiver(const QString &contact) {
    QString receiver = contact;
    receiver.replace('%', "%25").replace('&', "%26").replace('#', "%23").replace('?', "%3F");
    return receiver;
}

bool Continues_mail_address(const QString &text, qsizetype end) {
    if (end >= text.size())
        return false;
    if (Is_word(text[end]) || text[end] == QLatin1Char('@'))
        return true;
    return Is_one_of(text[end], ".-") && end + 1 < text.size() && Is_alnum(text[end + 1]);
}

bool Begins_mail_address_before(const QString &text, qsizetype start) {
    if (start == 0)
        return false;
    if (Is_word(text[start - 1]))
        return true;
    return Is_one_of(text[start - 1], ".%+-") && start > 1 && Is_alnum(text[start - 2]);
}

bool Continues_address(const QString &text, qsizetype end) {
    qsizetype run = end;
    while (run < text.size() && Is_address(text[run])) {
        if (Is_address_end(text[run]))
            return true;
        ++run;
    }
    return false;
}

bool Begins_address_before(const QString &text, qsizetype start) {
    return start > 0 && (Is_alnum(text[start - 1]) || text[start - 1] == QLatin1Char('/'));
}

} // namespace

QString First_mail_address(const QString &text) {
    qsizetype floor = 0;
    for (qsizetype at = text.indexOf(QLatin1Char('@')); at >= 0;
         floor = at + 1, at = text.indexOf(QLatin1Char('@'), floor)) {
        const qsizetype start = Local_start(text, at, floor);
        const qsizetype end = start < at ? Domain_end(text, at + 1) : -1;
        if (end > 0)
            return text.mid(start, end - start);
    }
    return {};
}

QString First_home_page(const QString &text) {
    for (qsizetype mark = text.indexOf(QLatin1String("://")); mark >= 0;
         mark = text.indexOf(QLatin1String("://"), mark + 1)) {
        const qsizetype start = mark - 4;
        const bool stands_free = start > 0 && !Is_one_of(text[start - 1], "\"|^'") &&
                                 Is_boundary(text, start - 1) && Is_address_at(text, start);
        if (!stands_free)
            continue;
        qsizetype end = start + 7;
        while (end < text.size() && Is_address(text[end]))
            ++end;
        const QString page = Without_open_end(text.mid(start, end - start));
        if (page.size() > 7)
            return page;
    }
    return {};
}

QString Tidy_contact(const QString &value) {
    if (!value.contains(QLatin1Char('@')))
        return {};
    const QString trimmed = value.trimmed();
    const QString piece = Without_wrapping(trimmed.section(QLatin1Char(' '), 0, 0).trimmed());
    // "http://x.org/@ann" is a page, not a mail address.
    const bool is_address = piece.contains(QLatin1Char('@')) && !piece.contains(QLatin1String("://"));
    return is_address ? piece : First_mail_address(value);
}

QString Tidy_home_page(const QString &value) {
    const qsizetype start = value.indexOf(QLatin1String("http://"), 0, Qt::CaseInsensitive);
    if (start < 0)
        return {};
    const QString page = Without_open_end(value.mid(start).section(QLatin1Char(' '), 0, 0));
    return page.size() > 7 ? page : QString();
}

QString Mail_words(const QString &value) {
    QString words = value;
    words.replace('%', "%25").replace('#', "%23").replace('?', "%3F");
    return words.replace('&', " and ").replace('\'', "%27");
}

QString Mail_href(const Program &program, const Page_Header &header, const Page_Facts &facts,
                  const QString &greeting) {
    QString words;
    for (const Email_Template &known : program.email_templates) {
        if (known.type == QLatin1String(Template_type(facts.row_score)))
            words = known.content;
    }
    const QString row_name = facts.row_name.trimmed();
    words.replace(QLatin1String("[TITLE]"), Mail_words(row_name.isEmpty() ? header.title : row_name));
    return Escape_address("mailto:" + Mail_receiver(header.contact) +
                          "?subject=Regarding Your Thief Fan Mission [" + Mail_words(header.title) +
                          "]&body=" + greeting + ",%0A" + words +
                          "%0A%0A%0A%0AThis Email Was Generated By Vantrosk.");
}

void Link_contact(Marked_Text &text, const Program &program, const Page_Header &header,
                  const Page_Facts &facts) {
    const QString &contact = header.contact;
    if (contact.isEmpty())
        return;
    const QString author = QString(header.author).remove(QLatin1Char('\''));
    QString link =
        "<a href='" + Mail_href(program, header, facts, author.isEmpty() ? "Hi" : Mail_words(author)) + "'";
    if (!author.isEmpty())
        link += " title='Send an email to " + Escape_attribute(author) + "'";
    link += ">" + Escape_html(contact) + "</a>";
    const QString &words = text.text();
    for (qsizetype start = words.indexOf(contact); start >= 0;
         start = words.indexOf(contact, start + contact.size())) {
        if (!Begins_mail_address_before(words, start) &&
            !Continues_mail_address(words, start + contact.size()))
            text.mark(start, contact.size(), link);
    }
}

QString Opening_of_link(const QString &address) {
    return "<a href='" + Escape_address(address) + "' target='_blank' Title='Caution this will open " +
           Escape_attribute(address) + " in a new window'>";
}

void Link_home_page(Marked_Text &text, const QString &home_page) {
    if (home_page.isEmpty())
        return;
    const QString link = Opening_of_link(home_page) + Escape_html(home_page) + "</a>";
    const QString &words = text.text();
    for (qsizetype start = words.indexOf(home_page); start >= 0;
         start = words.indexOf(home_page, start + home_page.size())) {
        if (!Begins_address_before(words, start) && !Continues_address(words, start + home_page.size()))
            text.mark(start, home_page.size(), link);
    }
}

} // namespace vantrosk
