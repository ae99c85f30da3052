#include "install/Private_Profile.h"

#include "core/Program.h"
#include "core/mdlFile_Functions.h"

#include <QStringEncoder>

namespace vantrosk {

namespace {

constexpr qint64 most_bytes = 8 * 1024 * 1024;
constexpr const char *utf16_mark = "\xff\xfe";

/// Bytes as letters of the same numbers, so that what is not touched is written back as it was.
QString Letters_of(const QByteArray &bytes, bool is_utf16) {
    if (!is_utf16)
        return QString::fromLatin1(bytes);
    return QString::fromUtf16(reinterpret_cast<const char16_t *>(bytes.constData() + 2),
                              (bytes.size() - 2) / 2);
}

QByteArray Bytes_of(const QString &text, bool is_utf16) {
    if (!is_utf16)
        return text.toLatin1();
    QStringEncoder encode(QStringEncoder::Utf16LE);
    return utf16_mark + QByteArray(encode(text));
}

/// Pieces that each keep their line end.
QStringList Cut_lines(const QString &text) {
    QStringList lines;
    for (qsizetype start = 0; start < text.size();) {
        qsizetype end = text.indexOf('\n', start);
        end = end < 0 ? text.size() : end + 1;
        lines << text.mid(start, end - start);
        start = end;
    }
    return lines;
}

/// A line as it counts: without blanks, and without the mark of UTF-8 that an editor put before the first.
QString Plain(const QString &line) {
    constexpr const char *utf8_mark = "\xef\xbb\xbf";
    const bool is_marked = line.startsWith(QLatin1String(utf8_mark));
    return (is_marked ? line.mid(3) : line).trimmed();
}

bool Is_section(const QString &line) {
    return line.startsWith('[');
}

bool Is_named(const QString &text, const QString &name) {
    return text.trimmed().compare(name.trimmed(), Qt::CaseInsensitive) == 0;
}

QString Section_name(const QString &line) {
    const qsizetype end = line.indexOf(']');
    return end < 0 ? line.mid(1) : line.mid(1, end - 1);
}

QString Without_quotes(const QString &value) {
    for (const QChar quote : {QChar('"'), QChar('\'')})
        if (value.size() >= 2 && value.startsWith(quote) && value.endsWith(quote))
            return value.mid(1, value.size() - 2);
    return value;
}

} // namespace

Private_Profile::Private_Profile(Program &program, const QString &path) : program_(program), path_(path) {
    if (!FileExists(program, path))
        return;
    const Result<QByteArray> content = program.files.read_file(path, most_bytes);
    fault_ = content.fault;
    is_utf16_ = content.value.startsWith(utf16_mark);
    lines_ = Cut_lines(Letters_of(content.value, is_utf16_));
    if (!lines_.isEmpty() && lines_.first().endsWith('\n') && !lines_.first().endsWith("\r\n"))
        line_end_ = "\n";
}

qsizetype Private_Profile::find_section(const QString &section) const {
    for (qsizetype i = 0; i < lines_.size(); ++i) {
        const QString line = Plain(lines_[i]);
        if (Is_section(line) && Is_named(Section_name(line), section))
            return i;
    }
    return -1;
}

qsizetype Private_Profile::find_key(qsizetype start, const QString &key, qsizetype &end) const {
    for (end = start + 1; end < lines_.size(); ++end) {
        const QString line = Plain(lines_[end]);
        if (Is_section(line))
            break;
        const qsizetype equals = line.indexOf('=');
        if (equals >= 0 && !line.startsWith(';') && Is_named(line.left(equals), key))
            return end;
    }
    return -1;
}

QString Private_Profile::value(const QString &section, const QString &key,
                               const QString &default_value) const {
    const qsizetype start = find_section(section);
    qsizetype end = 0;
    const qsizetype at = start < 0 ? -1 : find_key(start, key, end);
    if (at < 0)
        return default_value;
    return Without_quotes(lines_[at].mid(lines_[at].indexOf('=') + 1).trimmed());
}

void Private_Profile::set(const QString &section, const QString &key, const QString &value) {
    is_changed_ = true;
    const auto end_last_line = [&] {
        if (!lines_.isEmpty() && !lines_.last().endsWith('\n'))
            lines_.last() += line_end_;
    };
    const qsizetype start = find_section(section);
    if (start < 0) {
        end_last_line();
        lines_ << "[" + section + "]" + line_end_ << key + "=" + value + line_end_;
        return;
    }
    qsizetype end = 0;
    const qsizetype at = find_key(start, key, end);
    if (at >= 0) {
        const QString &old = lines_[at];
        const QString ending = old.mid(old.size() - (old.endsWith("\r\n") ? 2 : old.endsWith('\n') ? 1 : 0));
        lines_[at] = old.left(old.indexOf('=') + 1) + value + ending;
        return;
    }
    // Behind the section's last key, before the blank lines that set it off from the next.
    while (end > start + 1 && lines_[end - 1].trimmed().isEmpty())
        --end;
    if (end == lines_.size())
        end_last_line();
    lines_.insert(end, key + "=" + value + line_end_);
}

QStringList Private_Profile::lines() const {
    QStringList lines;
    for (const QString &line : lines_)
        lines << Plain(line);
    return lines;
}

Fault Private_Profile::save() {
    if (!is_changed_ || fault_)
        return fault_;
    return program_.files.write_file(path_, Bytes_of(lines_.join(QString()), is_utf16_));
}

} // namespace vantrosk
