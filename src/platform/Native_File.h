#pragma once

#include <QFile>
#include <QString>

#include <filesystem>

namespace vantrosk {

// For the libraries that read archives and sounds from native paths; all others go through `Files`. The paths
// are text as in platform/Native_Text.h, which Qt's own classes would not find.

std::filesystem::path Native_path(const QString &native);
QString Native_text(const std::filesystem::path &path);

/// Opens an ordinary file for reading, without a buffer; false with errno set. A pipe or a device is refused
/// before it is opened.
bool Open_native_file(QFile &file, const QString &native);

} // namespace vantrosk
