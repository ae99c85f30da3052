#include "Process_Table.h"

#include "Native_Io.h"
#include "Path_Map.h"

#include "platform/Native_Text.h"

#include <QList>

#include <algorithm>

namespace vantrosk {

namespace {

constexpr qint64 largest_entry = 64 * 1024;
constexpr int short_name_length = 15;
constexpr int session_field = 3; ///< counted behind the name: state, parent, group, session
constexpr int start_field = 19;

QByteArray Read_entry(qint64 id, const char *name) {
    return Read_native_file("/proc/" + QByteArray::number(id) + '/' + name, largest_entry, Overlong::cut)
        .value;
}

bool Has_name(qint64 id, const QString &name) {
    const auto process = Look_at_process(id);
    if (!process || process->ended)
        return false;
    const auto same = [&](const QString &text) {
        return text.compare(name, Qt::CaseInsensitive) == 0;
    };
    if (process->short_name.size() < short_name_length && same(Native_text(process->short_name)))
        return true;
    const QByteArray command = Read_entry(id, "cmdline");
    return same(Last_name(Native_text(command.left(command.indexOf('\0')))));
}

} // namespace

std::optional<Process_Entry> Look_at_process(qint64 id) {
    const QByteArray text = Read_entry(id, "stat");
    // The name stands in brackets and may itself hold brackets and blanks.
    const qsizetype open = text.indexOf('(');
    const qsizetype closed = text.lastIndexOf(')');
    if (open < 0 || closed < open)
        return std::nullopt;
    const QList<QByteArray> fields = text.mid(closed + 2).split(' ');
    if (fields.size() <= start_field)
        return std::nullopt;
    Process_Entry entry;
    entry.id = id;
    entry.short_name = text.mid(open + 1, closed - open - 1);
    entry.ended = fields[0] == "Z" || fields[0] == "X";
    entry.session = fields[session_field].toLongLong();
    entry.started = fields[start_field].toULongLong();
    return entry;
}

std::vector<qint64> All_process_ids() {
    std::vector<qint64> ids;
    Folder_Reader entries("/proc");
    while (const char *name = entries.next()) {
        bool good = false;
        const qint64 id = QByteArray(name).toLongLong(&good);
        if (good && id > 0)
            ids.push_back(id);
    }
    std::sort(ids.begin(), ids.end());
    return ids;
}

qint64 Find_process(const QString &name) {
    for (const qint64 id : All_process_ids())
        if (Has_name(id, name))
            return id;
    return 0;
}

} // namespace vantrosk
