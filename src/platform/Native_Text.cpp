#include "platform/Native_Text.h"

#include <QByteArrayView>

namespace vantrosk {

namespace {

constexpr char16_t backslash_stand_in = 0xF05C;
constexpr char16_t first_stand_in = 0xF080, last_stand_in = 0xF0FF;
constexpr char16_t stand_in_base = 0xF000; ///< plus the byte

bool Is_stand_in(QChar letter) {
    return letter >= QChar(first_stand_in) && letter <= QChar(last_stand_in);
}

bool Is_reserved(QChar letter) {
    return Is_stand_in(letter) || letter == QChar(backslash_stand_in);
}

/// How many bytes a character that begins with this one has.
qsizetype Length_of_character(char first) {
    const auto byte = static_cast<unsigned char>(first);
    return byte < 0x80 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

/// Goes through the bytes character by character.
QString With_stand_ins(const QByteArray &native) {
    QString text;
    for (qsizetype at = 0; at < native.size();) {
        const QByteArrayView piece =
            QByteArrayView(native).sliced(at, qMin(Length_of_character(native[at]), native.size() - at));
        const QString character = piece.isValidUtf8() ? QString::fromUtf8(piece) : QString();
        if (!character.isEmpty() && !Is_reserved(character[0])) {
            text += character;
            at += piece.size();
        } else {
            text += QChar(static_cast<char16_t>(stand_in_base + static_cast<unsigned char>(native[at++])));
        }
    }
    return text;
}

} // namespace

QString Native_text(const QByteArray &native) {
    const QString text = QString::fromUtf8(native);
    // Nearly no path has any of these. A byte order mark at the start would be swallowed.
    bool is_plain = !native.startsWith("\xEF\xBB\xBF");
    for (const QChar letter : text)
        is_plain = is_plain && letter != QChar::ReplacementCharacter && !Is_reserved(letter);
    return is_plain ? text : With_stand_ins(native);
}

QByteArray Native_bytes(const QString &native) {
    QByteArray bytes;
    qsizetype plain = 0;
    for (qsizetype at = 0; at < native.size(); ++at) {
        if (!Is_stand_in(native[at]))
            continue;
        bytes += QStringView(native).mid(plain, at - plain).toUtf8();
        bytes += static_cast<char>(native[at].unicode() - stand_in_base);
        plain = at + 1;
    }
    return plain == 0 ? native.toUtf8() : bytes + QStringView(native).mid(plain).toUtf8();
}

QString Argument_text(const QByteArray &argument) {
    return argument.isValidUtf8() ? QString::fromUtf8(argument) : Native_text(argument);
}

QString Name_from_native(const QByteArray &name) {
    return Native_text(name).replace(QLatin1Char('\\'), QChar(backslash_stand_in));
}

QByteArray Name_to_native(const QString &name) {
    return Native_bytes(QString(name).replace(QChar(backslash_stand_in), QLatin1Char('\\')));
}

} // namespace vantrosk
