#pragma once

#include "readme/Pages.h"

#include <QString>

namespace vantrosk {

class Marked_Text;

/// The first mail address of a text, empty when it has none. Passes once over the text.
QString First_mail_address(const QString &text);
/// The first "http://" address of a text that follows a word and one character other than a quote, "|" or
/// "^".
QString First_home_page(const QString &text);

/// The mail address that a contact line gives; empty when it gives none.
QString Tidy_contact(const QString &value);
/// The address that a home page line gives, from "http://" to the first blank; empty when it gives none.
QString Tidy_home_page(const QString &value);

/// The address behind a mail link: subject, `greeting`, and the template for the score of the selected row.
/// Escaped for an href.
QString Mail_href(const Program &program, const Page_Header &header, const Page_Facts &facts,
                  const QString &greeting);
/// A value inside the words of a mail: nothing of it starts another part of the address.
QString Mail_words(const QString &value);

/// Links every place where the contact stands for itself.
void Link_contact(Marked_Text &text, const Program &program, const Page_Header &header,
                  const Page_Facts &facts);
/// The tag that opens a link to a page of the world, which says so before it is clicked.
QString Opening_of_link(const QString &address);
/// Links every place where the home page stands for itself.
void Link_home_page(Marked_Text &text, const QString &home_page);

} // namespace vantrosk
