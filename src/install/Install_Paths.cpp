#include "install/Install_Paths.h"

#include <QStringList>

namespace vantrosk {

QString Join_path(const QString &folder, const QString &relative) {
    if (relative.isEmpty())
        return folder;
    return folder.endsWith('\\') ? folder + relative : folder + "\\" + relative;
}

QString Parent_path(const QString &path) {
    return path.left(path.lastIndexOf('\\'));
}

QString Tidy_path(const QString &path) {
    QStringList parts;
    for (const QString &part : QString(path).replace('/', '\\').split('\\')) {
        if (part == ".." && parts.size() > 1)
            parts.removeLast();
        else if (!part.isEmpty() && part != "." && part != "..")
            parts << part;
    }
    // A share's path keeps its two separators.
    return (path.startsWith("\\\\") ? "\\\\" : "") + parts.join('\\');
}

bool Is_same_path(const QString &one, const QString &other) {
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

bool Is_below(const QString &path, const QString &folder) {
    return !folder.isEmpty() && path.size() > folder.size() + 1 && path.at(folder.size()) == '\\' &&
           path.startsWith(folder, Qt::CaseInsensitive);
}

QString Relative_to(const QString &path, const QString &folder) {
    return path.mid(folder.size() + 1);
}

QString Without_system_folder(const QString &path) {
    const QString tidy = Tidy_path(path);
    return tidy.endsWith("\\system", Qt::CaseInsensitive) ? Parent_path(tidy) : tidy;
}

} // namespace vantrosk
