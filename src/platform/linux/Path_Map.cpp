#include "Path_Map.h"

#include "Native_Io.h"

#include "platform/Native_Text.h"

#include <QList>
#include <QStringList>

#include <sys/stat.h>

#include <algorithm>

namespace vantrosk {

namespace {

bool Is_separator(QChar c) {
    return c == QLatin1Char('\\') || c == QLatin1Char('/');
}

bool Is_letter(QChar c) {
    return (c >= QLatin1Char('a') && c <= QLatin1Char('z')) ||
           (c >= QLatin1Char('A') && c <= QLatin1Char('Z'));
}

bool Exists(const QByteArray &native_path) {
    struct stat info {};
    return ::lstat(native_path.constData(), &info) == 0;
}

/// Adds one part to a path that is being resolved in its text.
template<typename Part>
void Add_part(QList<Part> &parts, const Part &part) {
    if (part.isEmpty() || part == Part("."))
        return;
    if (part != Part("..")) {
        parts << part;
        return;
    }
    if (!parts.isEmpty())
        parts.removeLast();
}

bool Is_below(const QByteArray &path, const QByteArray &root) {
    return path == root || (path.startsWith(root) && path.size() > root.size() && path[root.size()] == '/');
}

} // namespace

QByteArray Clean_native(const QByteArray &path) {
    QList<QByteArray> parts;
    for (const QByteArray &part : path.split('/'))
        Add_part(parts, part);
    QByteArray cleaned;
    for (const QByteArray &part : parts)
        cleaned += '/' + part;
    return cleaned;
}

QString Fold_name(const QString &name) {
    QString folded = name;
    const auto is_ascii = [](QChar letter) {
        return letter.unicode() < 0x80;
    };
    if (std::all_of(name.begin(), name.end(), is_ascii)) {
        for (QChar &letter : folded)
            if (letter >= QLatin1Char('A') && letter <= QLatin1Char('Z'))
                letter = QChar(letter.unicode() | 0x20);
        return folded;
    }
    for (qsizetype i = 0; i < folded.size(); ++i) {
        if (!folded[i].isHighSurrogate() || i + 1 == folded.size() || !folded[i + 1].isLowSurrogate()) {
            folded[i] = folded[i].toCaseFolded();
            continue;
        }
        const char32_t sign = QChar::toCaseFolded(QChar::surrogateToUcs4(folded[i], folded[i + 1]));
        folded[i] = QChar(QChar::highSurrogate(sign));
        folded[++i] = QChar(QChar::lowSurrogate(sign));
    }
    return folded;
}

bool Is_windows_path(const QString &path) {
    return path.size() >= 2 && Is_letter(path[0]) && path[1] == QLatin1Char(':') &&
           (path.size() == 2 || Is_separator(path[2]));
}

QString Last_name(const QString &path) {
    qsizetype end = path.size();
    while (end > 0 && Is_separator(path[end - 1]))
        --end;
    qsizetype start = end;
    while (start > 0 && !Is_separator(path[start - 1]))
        --start;
    return path.mid(start, end - start);
}

Path_Map::Path_Map(const QString &prefix)
    : prefix_(Native_text(Clean_native(Native_bytes(prefix)))), drives_(Native_bytes(prefix_)) {}

std::optional<QByteArray> Path_Map::drive_root(char letter) const {
    if (letter == 'z')
        return QByteArray();
    if (letter == 'c')
        return drives_.drive_c().root;
    for (const Drive &drive : drives_.letters())
        if (drive.letter == letter)
            return drive.root;
    return std::nullopt;
}

QByteArray Path_Map::follow(QByteArray path, const QStringList &parts) const {
    bool missing = false;
    for (const QString &part : parts) {
        const QByteArray exact = Name_to_native(part);
        const QByteArray next = path + '/' + exact;
        if (missing || Exists(next)) {
            path = next;
            continue;
        }
        const QByteArray other = names_.find(path.isEmpty() ? QByteArray("/") : path, part);
        missing = other.isEmpty();
        path += '/' + (missing ? exact : other);
    }
    return path;
}

QByteArray Path_Map::native(const QString &path) const {
    if (!Is_windows_path(path) || path.contains(QChar(0)))
        return {};
    const auto root = drive_root(path[0].toLower().toLatin1());
    if (!root)
        return {};
    QStringList parts;
    QString rest = path.mid(2);
    rest.replace(QLatin1Char('/'), QLatin1Char('\\'));
    for (const QString &part : rest.split(QLatin1Char('\\')))
        Add_part(parts, part);
    QByteArray exact = *root;
    for (const QString &part : parts)
        exact += '/' + Name_to_native(part);
    if (exact.isEmpty())
        return "/";
    return Exists(exact) ? exact : follow(*root, parts);
}

QString Path_Map::windows(const QString &native_path) const {
    if (Is_windows_path(native_path) || native_path.startsWith(QLatin1String("\\\\")))
        return native_path;
    if (!native_path.startsWith(QLatin1Char('/')) || native_path.contains(QChar(0)))
        return {};
    const QByteArray path = Clean_native(Native_bytes(native_path));
    char letter = 'z';
    qsizetype matched = -1;
    const auto try_root = [&](char of, const QByteArray &root) {
        if (root.size() <= matched || !Is_below(path, root))
            return;
        letter = of;
        matched = root.size();
    };
    // A drive may be named by its link or by the folder behind it: both names come from outside.
    const auto try_drive = [&](const Drive &drive) {
        if (!drive.root.isEmpty())
            try_root(drive.letter, drive.root);
        if (!drive.root.isEmpty() && !drive.resolved.isEmpty())
            try_root(drive.letter, drive.resolved);
    };
    try_drive(drives_.drive_c());
    if (matched < 0)
        for (const Drive &drive : drives_.letters())
            try_drive(drive);
    QString windows = QString(QLatin1Char(letter)).toUpper() + QLatin1Char(':');
    for (const QByteArray &part : path.mid(qMax<qsizetype>(matched, 0)).split('/'))
        if (!part.isEmpty())
            windows += QLatin1Char('\\') + Name_from_native(part);
    return windows.size() == 2 ? windows + QLatin1Char('\\') : windows;
}

} // namespace vantrosk
