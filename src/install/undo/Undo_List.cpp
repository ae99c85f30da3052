#include "install/undo/Undo_List.h"

#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"

#include <utility>

namespace vantrosk {

namespace {

/// A mission of a hundred thousand files has a list of some 10 MiB.
constexpr qint64 most_list_bytes = 64 * 1024 * 1024;

constexpr const char *location_heading = "[ZIP LOCATION]";
constexpr const char *name_heading = "[ZIP NAME]";
constexpr const char *contents_heading = "[ZIP CONTENTS]";
constexpr const char *original_location = "Original";
constexpr const char *original_t2x_location = "Original T2X";

bool Is_heading(const QString &line, const char *heading) {
    return line.compare(QLatin1String(heading), Qt::CaseInsensitive) == 0;
}

bool Is_any_heading(const QString &line) {
    return Is_heading(line, location_heading) || Is_heading(line, name_heading) ||
           Is_heading(line, contents_heading);
}

bool Has_utf16_mark(const QByteArray &bytes) {
    return bytes.startsWith("\xff\xfe") || bytes.startsWith("\xfe\xff");
}

/// Each line by itself, so that one line cut in the middle of a letter does not change how the others read.
QStringList Lines_of(const QByteArray &bytes) {
    if (Has_utf16_mark(bytes))
        return Split_lines(Decode_text(bytes));
    QStringList lines;
    for (const QByteArray &line : bytes.split('\n'))
        lines += Split_lines(Decode_text(line));
    return lines;
}

Undo_List Parse(const QStringList &lines) {
    Undo_List list;
    QString *wanted = nullptr;
    bool in_contents = false;
    for (const QString &raw : lines) {
        const QString line = raw.trimmed();
        if (in_contents) {
            if (!line.isEmpty())
                list.files << line;
            continue;
        }
        if (wanted && !Is_any_heading(line))
            *std::exchange(wanted, nullptr) = line;
        else if (Is_heading(line, location_heading))
            wanted = &list.location;
        else if (Is_heading(line, name_heading))
            wanted = &list.zip_name;
        else
            in_contents = Is_heading(line, contents_heading);
    }
    return list;
}

QString Last_part(QString path) {
    path.replace('/', '\\');
    return FileNameFromPath(path);
}

bool Ends_in_zip(const QString &name) {
    return name.endsWith(".zip", Qt::CaseInsensitive);
}

const char *Original_location_of(const QString &game_code) {
    return game_code.compare(QLatin1String("T2X"), Qt::CaseInsensitive) == 0 ? original_t2x_location
                                                                             : original_location;
}

} // namespace

bool Undo_List::is_original() const {
    return zip_name.isEmpty() && Is_original_row(location);
}

QString Undo_list_path(const QString &game_path) {
    return (game_path.endsWith('\\') ? game_path : game_path + "\\") + undo_list_name;
}

std::optional<Undo_List> Read_undo_list(const Program &program, const QString &game_path) {
    const QString path = Undo_list_path(game_path);
    if (!FileExists(program, path))
        return std::nullopt;
    const Result<QByteArray> content = program.files.read_file(path, most_list_bytes);
    if (!content.ok())
        return std::nullopt;
    return Parse(Lines_of(content.value));
}

Fault Write_undo_list(Program &program, const QString &game_path, const Undo_List &list) {
    QStringList lines{location_heading, list.location, name_heading, list.zip_name, contents_heading};
    lines += list.files;
    if (list.is_original())
        lines << QString();
    Fault fault = Write_text_lines(program, Undo_list_path(game_path), lines, Outlives::a_loss_of_power);
    if (fault)
        debug_print(program, "MAIN FORM: " + fault.text);
    return fault;
}

Fault WriteOriginalMarker(Program &program, const QString &game_path) {
    Undo_List marker;
    marker.location = Original_location_of(program.CURRENT_GAME);
    return Write_undo_list(program, game_path, marker);
}

bool IsCurrentlyInstalled(const Program &program, const QString &game_path, const QString &fm_name,
                          const QString &game_code) {
    const std::optional<Undo_List> list = Read_undo_list(program, game_path);
    if (!list)
        return game_code.compare(QLatin1String("T2X"), Qt::CaseInsensitive) == 0 || Is_original_row(fm_name);
    if (fm_name.isEmpty())
        return false;
    if (Is_original_row(fm_name))
        return list->is_original() && list->location.compare(QLatin1String(Original_location_of(game_code)),
                                                             Qt::CaseInsensitive) == 0;
    return Last_part(list->location).compare(Last_part(fm_name), Qt::CaseInsensitive) == 0;
}

bool Is_original_row(const QString &zip_cell) {
    return zip_cell.startsWith(QLatin1String(original_location), Qt::CaseInsensitive) &&
           !Ends_in_zip(zip_cell);
}

} // namespace vantrosk
