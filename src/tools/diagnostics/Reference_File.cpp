#include "tools/diagnostics/Reference_File.h"

#include "core/Program.h"
#include "core/mdlFile_Functions.h"

#include <array>
#include <cstdio>

namespace vantrosk {

namespace {

constexpr qint64 largest_reference = qint64(64) << 20; ///< bytes
constexpr std::size_t most_rows = 500'000;
constexpr int shortest_line = 2; ///< characters

constexpr QLatin1String count_mark("FILECOUNT:"), info_mark("INFO:"), created_mark("DATECREATED:");

/// What may not stand in the path of a line, and the word for it.
struct Path_Word {
    char16_t sign;
    QLatin1String word;
};
constexpr std::array<Path_Word, 3> path_words{{
    {u',', QLatin1String("VKCOMMA")},
    {u'\r', QLatin1String("VKCR")},
    {u'\n', QLatin1String("VKLF")},
}};

QString Without_words(QString path) {
    if (!path.contains(QLatin1String("VK")))
        return path;
    for (const Path_Word &row : path_words)
        path.replace(row.word, QString(QChar(row.sign)));
    return path;
}

/// Whether a reader would take the line of this path for a comment or a heading, or trim it.
bool Would_be_misread(const QString &path) {
    const QChar first = path.isEmpty() ? QChar() : path.front();
    return first == u';' || first == u'/' || first.isSpace() || path.startsWith(count_mark) ||
           path.startsWith(info_mark) || path.startsWith(created_mark);
}

Reference_Row Row_of_line(const QString &line, const QString &folder) {
    const qsizetype first = line.indexOf(u',');
    const qsizetype second = first < 0 ? -1 : line.indexOf(u',', first + 1);
    Reference_Row row;
    row.path = folder + u'\\' + Without_words(line.left(first));
    while (row.path.contains(QLatin1String("\\\\")))
        row.path.replace(QLatin1String("\\\\"), QLatin1String("\\"));
    if (first >= 0)
        row.size = line.mid(first + 1, second < 0 ? -1 : second - first - 1);
    if (second >= 0)
        row.date = line.mid(second + 1);
    return row;
}

/// True when the line was one of the heading.
bool Read_heading(const QString &line, Reference &reference) {
    if (line.startsWith(count_mark)) {
        if (reference.file_count <= 0)
            reference.file_count = line.mid(count_mark.size()).trimmed().toInt();
        return true;
    }
    if (line.startsWith(info_mark)) {
        if (reference.info.isNull())
            reference.info = line.mid(info_mark.size());
        return true;
    }
    if (!line.startsWith(created_mark))
        return false;
    if (reference.created.isNull())
        reference.created = line.mid(created_mark.size()).trimmed();
    return true;
}

} // namespace

QString Written_path(const QString &path) {
    QString written = path;
    for (const Path_Word &row : path_words)
        written.replace(QChar(row.sign), row.word);
    return written;
}

Reference Read_reference_text(const QString &text, const QString &game_folder) {
    const QString folder = game_folder.endsWith(u'\\') ? game_folder.chopped(1) : game_folder;
    Reference reference;
    Line_Reader lines(text);
    for (QString line; reference.rows.size() < most_rows && lines.next(line);) {
        line = line.trimmed();
        if (line.size() < shortest_line || line.front() == u'/' || line.front() == u';' ||
            Read_heading(line, reference))
            continue;
        Reference_Row row = Row_of_line(line, folder);
        if (row.path.size() > folder.size() + 1) // else it names no file
            reference.rows.push_back(std::move(row));
    }
    return reference;
}

Reference Read_reference(Program &program, const QString &path, const QString &game_folder) {
    const auto bytes = program.files.read_start(path, largest_reference);
    if (bytes.ok())
        return Read_reference_text(Decode_text(bytes.value), game_folder);
    debug_print(program, "TOOLS: reference file not read: " + bytes.fault.text);
    return {};
}

QString Shown_info(const Reference &reference) {
    return QString(reference.info).replace(QLatin1String("<br>"), QLatin1String("\n"), Qt::CaseInsensitive);
}

QString Reference_line(const QString &relative_path, qint64 size, const QString &date) {
    return (Would_be_misread(relative_path) ? QStringLiteral("\\") : QString()) +
           Written_path(relative_path) + u',' + QString::number(size) + u',' + date + QLatin1String("\r\n");
}

QString Listed_date(const QDateTime &modified) {
    const QDate day = modified.date();
    const QTime time = modified.time();
    std::array<char, 64> text{};
    const int length = std::snprintf(text.data(), text.size(), "%02d/%02d/%04d %02d:%02d:%02d", day.day(),
                                     day.month(), day.year(), time.hour(), time.minute(), time.second());
    return QString::fromLatin1(text.data(), length);
}

Fault Write_reference(Program &program, const QString &name, int count, const QString &info,
                      const QString &lines) {
    if (!CreateFolderTree(program, program.paths.references))
        return {Fault_Kind::other, QStringLiteral("The folder \"%1\" can not be made.")
                                       .arg(program.files.to_native(program.paths.references))};
    const QString heading = count_mark + QString::number(count) + "\r\n" + info_mark + info + "\r\n" +
                            created_mark + program.clock.now().toString("yyyyMMdd") + "\r\n";
    return program.files.write_file(program.paths.references + name, (heading + lines).toUtf8());
}

} // namespace vantrosk
