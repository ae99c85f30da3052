#include "core/Profile_File.h"

#include "core/Program.h"
#include "core/mdlFile_Functions.h"

namespace vantrosk {

namespace {

bool Is_section(const QString &line) {
    return line.startsWith(QLatin1Char('['));
}

bool Is_named(QStringView text, const QString &name) {
    return text.trimmed().compare(name, Qt::CaseInsensitive) == 0;
}

QString Section_name(const QString &line) {
    const qsizetype end = line.indexOf(QLatin1Char(']'));
    return end < 0 ? line.mid(1) : line.mid(1, end - 1);
}

QString Without_quotes(const QString &value) {
    for (const QChar quote : {QLatin1Char('"'), QLatin1Char('\'')}) {
        if (value.size() >= 2 && value.startsWith(quote) && value.endsWith(quote))
            return value.mid(1, value.size() - 2);
    }
    return value;
}

} // namespace

Profile_File::Profile_File(const Program &program, const QString &path)
    : lines_(Read_text_lines(program, path)) {}

QString Profile_File::value(const QString &section, const QString &key) const {
    qsizetype line = 0;
    const auto is_start = [&](const QString &text) {
        return Is_section(text) && Is_named(Section_name(text), section);
    };
    while (line < lines_.size() && !is_start(lines_[line].trimmed()))
        ++line;
    for (++line; line < lines_.size(); ++line) {
        const QString text = lines_[line].trimmed();
        if (Is_section(text))
            break;
        const qsizetype equals = text.indexOf(QLatin1Char('='));
        if (equals >= 0 && Is_named(QStringView(text).left(equals), key))
            return Without_quotes(text.mid(equals + 1).trimmed());
    }
    return {};
}

bool Profile_File::is_true(const QString &section, const QString &key) const {
    return value(section, key).compare(QLatin1String("TRUE"), Qt::CaseInsensitive) == 0;
}

} // namespace vantrosk
