#include "Readme_Pictures.h"

#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace vantrosk {

namespace {

constexpr qint64 picture_limit = 1 << 16; ///< bytes; those that ship are far smaller

QByteArray Bytes_of(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(picture_limit) : QByteArray();
}

} // namespace

void Lay_out_sharp_pictures(Program &program) {
    QDirIterator pictures(QStringLiteral(":/html_images"), {QStringLiteral("*.svg")}, QDir::Files);
    while (pictures.hasNext()) {
        pictures.next();
        const QString place = program.paths.AppPath + QStringLiteral("\\HTMLImages\\") + pictures.fileName();
        if (FileExists(program, place))
            continue;
        if (const Fault fault = program.files.write_file(place, Bytes_of(pictures.filePath())))
            debug_print(program, QStringLiteral("STARTUP: file not laid out: ") + fault.text);
    }
}

QString Sharp_picture_of(const QString &picture) {
    const QFileInfo file(picture);
    const QString shipped = QStringLiteral(":/shipped/HTMLImages/") + file.fileName();
    if (!QFile::exists(shipped) || Bytes_of(picture) != Bytes_of(shipped))
        return {};
    const QString sharp = file.path() + u'/' + file.completeBaseName() + QStringLiteral(".svg");
    return QFile::exists(sharp) ? sharp : QString();
}

} // namespace vantrosk
