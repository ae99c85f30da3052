#include "readme/Pages.h"

namespace vantrosk {

namespace {

/// A browser drops or mangles control characters; only those that lay text out may pass.
bool Is_stray_control(QChar letter) {
    const char16_t code = letter.unicode();
    return code == 0x7F || (code < 0x20 && code != '\t' && code != '\n' && code != '\r');
}

bool Is_plain_in_address(unsigned char byte) {
    return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') ||
           byte == '.' || byte == '_' || byte == '-';
}

} // namespace

QString Escape_html(const QString &text) {
    QString escaped;
    escaped.reserve(text.size() + text.size() / 16);
    for (const QChar letter : text) {
        if (letter == QLatin1Char('<'))
            escaped += QLatin1String("&lt;");
        else if (letter == QLatin1Char('>'))
            escaped += QLatin1String("&gt;");
        else if (!Is_stray_control(letter))
            escaped += letter;
    }
    return escaped;
}

QString Escape_attribute(const QString &value) {
    return Escape_html(value).replace(QLatin1Char('\''), QLatin1String("&#39;"));
}

QString Escape_address(const QString &address) {
    return Escape_html(address).replace(QLatin1Char('\''), QLatin1String("%27"));
}

QString Encode_picture_name(const QString &name) {
    const qsizetype separator = qMax(name.lastIndexOf(QLatin1Char('\\')), name.lastIndexOf(QLatin1Char('/')));
    // Half a surrogate pair is written as "?", which would end the name: it becomes one here already.
    QString encoded = QString::fromUtf8(name.mid(separator + 1).trimmed().toUtf8());
    // An entity would be read before the address is: "&sol;" is a "/" to a browser.
    encoded.replace('%', "%25").replace('&', "%26").replace('\'', "%27").replace('"', "%22");
    encoded.replace('#', "%23")
        .replace(':', "%3A")
        .replace('?', "%3F")
        .replace('<', "%3C")
        .replace('>', "%3E");
    return encoded == QLatin1String(".") || encoded == QLatin1String("..") ? QString() : Escape_html(encoded);
}

QString Encode_file_name(const QString &name) {
    static const char digits[] = "0123456789ABCDEF";
    QString encoded;
    for (const char byte : name.toUtf8()) {
        const auto code = static_cast<unsigned char>(byte);
        if (Is_plain_in_address(code)) {
            encoded += QLatin1Char(byte);
            continue;
        }
        encoded += QLatin1Char('%');
        encoded += QLatin1Char(digits[code >> 4]);
        encoded += QLatin1Char(digits[code & 15]);
    }
    return encoded;
}

} // namespace vantrosk
