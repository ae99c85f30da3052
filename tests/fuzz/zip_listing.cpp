#include "fuzz/Fuzz.h"

#include "platform/linux/Linux_Platform.h"
#include "zip/mUnzip.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

namespace vantrosk {

namespace {

QByteArray Le(quint32 value, int bytes) {
    QByteArray result;
    for (int i = 0; i < bytes; ++i)
        result += static_cast<char>(value >> (8 * i));
    return result;
}

/// An archive of stored entries; their checksums are 0, so reading one goes all the way and ends in a fault.
QByteArray Archive(const std::vector<QByteArray> &names, const QByteArray &extra, quint32 flags,
                   const QByteArray &comment) {
    QByteArray bytes, directory;
    for (const QByteArray &name : names) {
        const QByteArray content = "content of " + name;
        const auto size = static_cast<quint32>(content.size());
        const QByteArray fields = Le(20, 2) + Le(flags, 2) + Le(0, 2) + Le(0x5000, 2) + Le(0x30cc, 2) +
                                  Le(0, 4) + Le(size, 4) + Le(size, 4) +
                                  Le(static_cast<quint32>(name.size()), 2);
        directory += "PK\x01\x02" + Le(0x0314, 2) + fields + Le(static_cast<quint32>(extra.size()), 2) +
                     Le(0, 2) + Le(0, 2) + Le(0, 2) + Le(0, 4) + Le(static_cast<quint32>(bytes.size()), 4) +
                     name + extra;
        bytes += "PK\x03\x04" + fields + Le(0, 2) + name + content;
    }
    const auto count = static_cast<quint32>(names.size());
    return bytes + directory + "PK\x05\x06" + Le(0, 4) + Le(count, 2) + Le(count, 2) +
           Le(static_cast<quint32>(directory.size()), 4) + Le(static_cast<quint32>(bytes.size()), 4) +
           Le(static_cast<quint32>(comment.size()), 2) + comment;
}

/// Where the archive lies while it is read.
struct Scene {
    Platform platform = Make_Linux_Platform();
    QTemporaryDir folder;
    QString native = folder.filePath("m.zip");
    QString windows = platform.files->to_windows(native);
};

void Must(bool holds) {
    if (!holds)
        std::abort();
}

} // namespace

/// Whatever the bytes are: a fault and no entries, or entries whose names are single parts and whose content
/// is no longer than was asked for.
void Fuzz_one(const QByteArray &bytes) {
    static Scene scene;
    QFile file(scene.native);
    // A file cut to nothing and written again goes to the disk at once on some systems; a new one does not.
    file.remove();
    Must(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    file.close();

    cUnzip unzip(*scene.platform.files);
    unzip.ZipFile = scene.windows;
    const Fault fault = unzip.Directory();
    Must(!fault || (unzip.FileCount() == 0 && !fault.text.isEmpty()));
    for (int i = 1; i <= unzip.FileCount(); ++i) {
        Must(!unzip.Filename(i).contains('/') && !unzip.Filename(i).contains('\\'));
        Must(!unzip.FileDirectory(i).startsWith('\\') && !unzip.FileDirectory(i).endsWith('\\'));
        Must(unzip.FileSize(i) >= 0 && unzip.FileCompressionRatio(i) >= 0 &&
             unzip.FileCompressionRatio(i) <= 100);
        Must(unzip.FileSelected(i));
        unzip.FileDate(i);
        if (i <= 4)
            Must(unzip.Read_entry(i, 1000).value.size() <= 1000);
    }
}

std::vector<QByteArray> Fuzz_seeds() {
    return {
        Archive({"readme.txt", "books/a.str", "books/b.str", "books/"}, {}, 0, {}),
        Archive({"Žluťoučký/kůň.mis"}, {}, 0x800, "a comment"),
        Archive({"..\\evil", "C:\\x", "/y",
                 "fran\x87"
                 "ais/\x82.txt"},
                {}, 0, {}),
        Archive({"a"}, QByteArray("UT\x05\x00\x03\x00\x00\x00\x00", 9), 0, {}),
        Archive({"big"},
                QByteArray("\x01\x00\x10\x00\x09\x00\x00\x00\x00\x00\x00\x00\x09\x00\x00\x00\x00\x00\x00\x00",
                           20),
                0, {}),
        Archive({"secret"}, {}, 1, {}),
        Archive({}, {}, 0, {}),
        // One packed entry and one stored one, both with their checksums: what is read without libzip.
        QByteArray::fromBase64(
            "UEsDBBQAAAAIAABQzDC+QOgmFwAAANgAAAAKAAAAcmVhZG1lLnR4dAvJSFUoTyxJzlAoSCwuTi3WUwgZFiIA"
            "UEsDBBQAAAAAAABQzDBo8gHhAQAAAAEAAAAFAAAAYS5taXNtUEsBAhQDFAAAAAgAAFDMML5A6CYXAAAA2AAA"
            "AAoAAAAAAAAAAAAAAIABAAAAAHJlYWRtZS50eHRQSwECFAMUAAAAAAAAUMwwaPIB4QEAAAABAAAABQAAAAAA"
            "AAAAAAAAgAE/AAAAYS5taXNQSwUGAAAAAAIAAgBrAAAAYwAAAAAA"),
    };
}

std::vector<QByteArray> Fuzz_pieces() {
    return {"PK\x01\x02",
            "PK\x03\x04",
            "PK\x05\x06",
            "PK\x06\x06",
            "PK\x06\x07",
            "../",
            "..\\",
            "/",
            "\\",
            "C:",
            QByteArray(1, '\0'),
            QByteArray(4, '\xff'),
            QByteArray(2, '\xff'),
            QByteArray("\x01\x00\x08\x00", 4),
            QByteArray("\x75\x70\x09\x00\x01", 5),
            Archive({"inner.txt"}, {}, 0, {})};
}

} // namespace vantrosk
