#include "platform/Native_File.h"

#include "Native_Io.h"

#include "platform/Native_Text.h"

#include <cerrno>

namespace vantrosk {

std::filesystem::path Native_path(const QString &native) {
    return Native_bytes(native).toStdString();
}

QString Native_text(const std::filesystem::path &path) {
    return Native_text(QByteArray::fromStdString(path.native()));
}

bool Open_native_file(QFile &file, const QString &native) {
    auto opened = Open_ordinary_file(Native_bytes(native));
    if (!opened.ok()) {
        errno = opened.fault.number ? opened.fault.number : EIO;
        return false;
    }
    constexpr auto mode = QIODevice::ReadOnly | QIODevice::Unbuffered;
    return file.open(opened.value.release(), mode, QFileDevice::AutoCloseHandle);
}

} // namespace vantrosk
