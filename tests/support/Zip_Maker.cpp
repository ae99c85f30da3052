#include "support/Zip_Maker.h"

#include <QFile>

#include <time.h>
#include <zip.h>

#include <stdexcept>

namespace vantrosk {

namespace {

/// A stored archive written byte by byte: libzip refuses doubled names, and tests need them.
class Archive_Writer {
public:
    void add(const Zip_Entry &entry) {
        const quint32 offset = static_cast<quint32>(bytes_.size());
        const quint32 crc = Crc(entry.content);
        bytes_ += "PK\x03\x04";
        const QByteArray common = Common(entry, crc);
        bytes_ += common + Le16(0) + entry.name + entry.content;
        directory_ += QByteArray("PK\x01\x02") + Le16(20) + common + Le16(0) + Le16(0) + Le16(0) + Le16(0) +
                      Le32(entry.name.endsWith('/') ? 0x10 : 0) + Le32(offset) + entry.name;
        ++count_;
    }

    QByteArray finish() const {
        return bytes_ + directory_ + QByteArray("PK\x05\x06") + Le16(0) + Le16(0) + Le16(count_) +
               Le16(count_) + Le32(static_cast<quint32>(directory_.size())) +
               Le32(static_cast<quint32>(bytes_.size())) + Le16(0);
    }

private:
    static QByteArray Le16(int value) {
        return QByteArray(1, static_cast<char>(value & 255)) +
               QByteArray(1, static_cast<char>((value >> 8) & 255));
    }
    static QByteArray Le32(quint32 value) {
        return Le16(static_cast<int>(value & 0xffff)) + Le16(static_cast<int>(value >> 16));
    }
    static quint32 Crc(const QByteArray &content) {
        quint32 crc = 0xffffffffu;
        for (const char c : content) {
            crc ^= static_cast<unsigned char>(c);
            for (int bit = 0; bit < 8; ++bit)
                crc = (crc >> 1) ^ ((crc & 1) ? 0xedb88320u : 0);
        }
        return ~crc;
    }
    static QByteArray Common(const Zip_Entry &entry, quint32 crc) {
        const QDateTime when =
            entry.modified.isValid() ? entry.modified : QDateTime(QDate(2004, 6, 12), QTime(10, 0));
        const int time =
            (when.time().hour() << 11) | (when.time().minute() << 5) | (when.time().second() / 2);
        const int date = ((when.date().year() - 1980) << 9) | (when.date().month() << 5) | when.date().day();
        bool ascii = true;
        for (const char c : entry.name)
            ascii = ascii && static_cast<unsigned char>(c) < 128;
        const bool utf8 = !ascii && QString::fromUtf8(entry.name).toUtf8() == entry.name;
        const quint32 size = static_cast<quint32>(entry.content.size());
        return Le16(20) + Le16(utf8 ? 0x800 : 0) + Le16(0) + Le16(time) + Le16(date) + Le32(crc) +
               Le32(size) + Le32(size) + Le16(static_cast<int>(entry.name.size()));
    }

    QByteArray bytes_, directory_;
    int count_ = 0;
};

} // namespace

void Make_zip(const QString &native_path, const std::vector<Zip_Entry> &entries) {
    Archive_Writer writer;
    for (const Zip_Entry &entry : entries)
        writer.add(entry);
    QFile file(native_path);
    if (!file.open(QIODevice::WriteOnly) || file.write(writer.finish()) < 0)
        throw std::runtime_error("test archive not written");
}

std::vector<Zip_Entry> Read_zip(const QString &native_path) {
    std::vector<Zip_Entry> entries;
    zip_t *archive = zip_open(QFile::encodeName(native_path).constData(), ZIP_RDONLY, nullptr);
    if (!archive)
        return entries;
    for (zip_int64_t i = 0; i < zip_get_num_entries(archive, 0); ++i) {
        zip_stat_t stat;
        if (zip_stat_index(archive, static_cast<zip_uint64_t>(i), 0, &stat) != 0)
            continue;
        QByteArray content(static_cast<qsizetype>(stat.size), '\0');
        if (zip_file_t *file = zip_fopen_index(archive, static_cast<zip_uint64_t>(i), 0)) {
            zip_fread(file, content.data(), stat.size);
            zip_fclose(file);
        }
        entries.push_back({QByteArray(stat.name), content, QDateTime::fromSecsSinceEpoch(stat.mtime)});
    }
    zip_close(archive);
    return entries;
}

} // namespace vantrosk
