#include "core/mdlChecksum.h"

#include "core/Program.h"

#include <array>

namespace vantrosk {

namespace {

constexpr qint64 most_bytes = 512LL * 1024 * 1024;
constexpr quint32 polynomial = 0xEDB88320;
constexpr quint32 all_ones = 0xFFFFFFFF;
constexpr int first_shifted = 41, last_shifted = 149, shift = 10;

std::array<quint32, 256> Make_table() {
    std::array<quint32, 256> table{};
    for (quint32 i = 0; i < table.size(); ++i) {
        quint32 crc = i;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) ? (crc >> 1) ^ polynomial : crc >> 1;
        table[i] = crc;
    }
    return table;
}

} // namespace

QString Checksum_of(const QByteArray &bytes) {
    const std::array<quint32, 256> table = Make_table();
    quint32 crc = all_ones;
    for (const char byte : bytes)
        if (byte != '\r' && byte != '\n')
            crc = (crc >> 8) ^ table[(crc & 255) ^ static_cast<unsigned char>(byte)];
    return QString::number(static_cast<qint32>(crc));
}

Result<QString> File_checksum(const Program &program, const QString &path) {
    const Result<QByteArray> content = program.files.read_file(path, most_bytes);
    if (!content.ok())
        return {{}, content.fault};
    return {Checksum_of(content.value), {}};
}

QString shift_text(const QString &text, bool down) {
    QString shifted = text;
    for (QChar &sign : shifted)
        if (sign.unicode() >= first_shifted && sign.unicode() <= last_shifted)
            sign = QChar(static_cast<char16_t>(down ? sign.unicode() - shift : sign.unicode() + shift));
    return shifted;
}

} // namespace vantrosk
