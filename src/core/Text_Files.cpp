#include "core/Program.h"
#include "core/mdlFile_Functions.h"

#include <QStringDecoder>

#include <array>
#include <optional>

namespace vantrosk {

namespace {

constexpr qint64 text_file_limit = qint64(8) << 20; ///< bytes
constexpr qsizetype line_limit = 64 << 10;          ///< characters

const QByteArray utf8_mark = QByteArrayLiteral("\xEF\xBB\xBF");
const QByteArray utf16_little_mark = QByteArrayLiteral("\xFF\xFE");
const QByteArray utf16_big_mark = QByteArrayLiteral("\xFE\xFF");

/// What Windows-1252 has at 0x80 to 0x9F; the five places that it leaves free keep their number.
constexpr std::array<char16_t, 32> windows_1252_upper{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

std::optional<QString> As_utf8(const QByteArray &bytes) {
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    const QString text = decoder.decode(bytes);
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

QString As_utf16(const QByteArray &bytes, QStringConverter::Encoding encoding) {
    QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless);
    return decoder.decode(bytes);
}

QString As_windows_1252(const QByteArray &bytes) {
    QString text = QString::fromLatin1(bytes);
    for (QChar &letter : text) {
        if (letter.unicode() >= 0x80 && letter.unicode() <= 0x9F)
            letter = QChar(windows_1252_upper[letter.unicode() - 0x80]);
    }
    return text;
}

/// Bytes that were cut off at a bound, less the character that the cut may have gone through.
QByteArray Without_cut_character(const QByteArray &bytes) {
    for (qsizetype back = 1; back <= 3 && back < bytes.size(); ++back) {
        const auto byte = static_cast<unsigned char>(bytes[bytes.size() - back]);
        if (byte >= 0xC0)
            return bytes.chopped(back);
        if (byte < 0x80)
            break;
    }
    return bytes;
}

} // namespace

QString Decode_text(const QByteArray &bytes) {
    if (bytes.startsWith(utf16_little_mark))
        return As_utf16(bytes.mid(2), QStringConverter::Utf16LE);
    if (bytes.startsWith(utf16_big_mark))
        return As_utf16(bytes.mid(2), QStringConverter::Utf16BE);
    const QByteArray content = bytes.startsWith(utf8_mark) ? bytes.mid(utf8_mark.size()) : bytes;
    if (auto text = As_utf8(content))
        return *text;
    return As_windows_1252(content);
}

bool Line_Reader::next(QString &line) {
    if (start_ >= text_.size())
        return false;
    qsizetype end = start_;
    while (end < text_.size() && text_[end] != QLatin1Char('\r') && text_[end] != QLatin1Char('\n'))
        ++end;
    line = text_.mid(start_, qMin(end - start_, line_limit));
    const bool pair = QStringView(text_).mid(end, 2) == QLatin1String("\r\n");
    start_ = end + (pair ? 2 : 1);
    return true;
}

QStringList Split_lines(const QString &text) {
    QStringList lines;
    Line_Reader reader(text);
    for (QString line; reader.next(line);)
        lines << line;
    return lines;
}

QString Read_text(const Program &program, const QString &path) {
    const auto start = program.files.read_start(path, text_file_limit);
    if (!start.ok())
        return {};
    const bool cut = start.value.size() >= text_file_limit;
    return Decode_text(cut ? Without_cut_character(start.value) : start.value);
}

QStringList Read_text_lines(const Program &program, const QString &path) {
    return Split_lines(Read_text(program, path));
}

QString First_line(const Program &program, const QString &path) {
    const auto start = program.files.read_start(path, line_limit);
    if (!start.ok())
        return {};
    return Split_lines(Decode_text(start.value)).value(0);
}

Fault Write_text_lines(Program &program, const QString &path, const QStringList &lines, Outlives outlives) {
    QString text;
    for (const QString &line : lines)
        text += line + "\r\n";
    return outlives == Outlives::a_kill ? program.files.write_file(path, text.toUtf8())
                                        : program.files.write_lasting_file(path, text.toUtf8());
}

} // namespace vantrosk
