#include "ui/settings/Shown_Path.h"

#include "core/Program.h"

namespace vantrosk {

QString Shown_Path(const Program &program, const QString &path) {
    const QString native = program.files.to_native(path);
    const bool is_outside = path.startsWith(QLatin1String("Z:"), Qt::CaseInsensitive);
    return is_outside && !native.isEmpty() ? native : path;
}

} // namespace vantrosk
