#include "Demo_Library.h"

#include "platform/linux/Linux_Platform.h"
#include "zip/mZip.h"

#include <QDate>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QStringEncoder>
#include <QTemporaryDir>

#include <array>

namespace vantrosk::demo {

namespace {

enum class Made { map, jpg, gif, pcx, ogg, mp3, pk4, data };

/// One file that is made rather than written.
struct Made_File {
    const char *zip;
    const char *path;
    Made how;
};

struct Mission_Row {
    const char *game, *zip, *maker;
    const char *text_encoding; ///< of its readme; UTF-8 when empty
    const char *date;          ///< of its archive
};

constexpr std::array<Mission_Row, 15> missions{{
    {"T2", "harbour_v1.zip", "zip", "", "2004-06-12"},
    {"T2", "frost.zip", "", "", "2009-03-11"},
    {"T2", "nuit.zip", "zip", "ISO-8859-1", "2005-11-01"},
    {"T2", "oldguild.zip", "7z", "", "2003-07-04"},
    {"T2", "silent.zip", "", "", "2024-09-15"},
    {"T2", "undercath.zip", "zip", "", "2018-02-20"},
    {"T2", "wlantern.zip", "", "", "2007-11-30"},
    {"T1", "cellar.zip", "zip", "", "2001-10-31"},
    {"T1", "canalwatch.zip", "7z", "", "2009-03-09"},
    {"TG", "gilded.zip", "", "", "2006-06-21"},
    {"SS2", "quietdeck.zip", "zip", "", "2012-04-17"},
    {"SS2", "greenhouse.zip", "", "", "2013-05-02"},
    {"DMOD", "coldlab.zip", "7z", "", "2006-12-19"},
    {"DMOD", "redstation.zip", "", "", "2008-08-08"},
    {"TG", "mincovna.zip", "zip", "", "2008-04-12"},
}};

constexpr Made_File made_files[] = {
    {"harbour_v1.zip", "miss20.mis", Made::map},
    {"harbour_v1.zip", "VKTITLE.JPG", Made::jpg},
    {"harbour_v1.zip", "snd/quay.ogg", Made::ogg},
    {"harbour_v1.zip", "fam/harbour/plank.gif", Made::gif},
    {"frost.zip", "miss20.mis", Made::map},
    {"frost.zip", "miss21.mis", Made::map},
    {"frost.zip", "VKTITLE.JPG", Made::jpg},
    {"frost.zip", "VKIMAGES/river.jpg", Made::jpg},
    {"frost.zip", "obj/lantern.bin", Made::data},
    {"nuit.zip", "miss20.mis", Made::map},
    {"nuit.zip", "VKTITLE.GIF", Made::gif},
    {"nuit.zip", "intrface/miss20/page001.pcx", Made::pcx},
    {"oldguild.zip", "miss22.mis", Made::map},
    {"oldguild.zip", "intrface/main_1.pcx", Made::pcx},
    {"oldguild.zip", "snd/bell.mp3", Made::mp3},
    {"silent.zip", "miss20.mis", Made::map},
    {"silent.zip", "VKTITLE.JPG", Made::jpg},
    {"undercath.zip", "miss20.mis", Made::map},
    {"undercath.zip", "undercath.osm", Made::data},
    {"undercath.zip", "undercath.gam", Made::data},
    {"undercath.zip", "VKTITLE.JPG", Made::jpg},
    {"wlantern.zip", "miss20.mis", Made::map},
    {"wlantern.zip", "VKTITLE.JPG", Made::jpg},
    {"cellar.zip", "miss15.mis", Made::map},
    {"cellar.zip", "VKTITLE.JPG", Made::jpg},
    {"canalwatch.zip", "miss16.mis", Made::map},
    {"canalwatch.zip", "intrface/main_1.pcx", Made::pcx},
    {"canalwatch.zip", "snd/water.mp3", Made::mp3},
    {"gilded.zip", "miss18.mis", Made::map},
    {"gilded.zip", "VKTITLE.GIF", Made::gif},
    {"quietdeck.zip", "miss20.mis", Made::map},
    {"quietdeck.zip", "VKTITLE.JPG", Made::jpg},
    {"quietdeck.zip", "snd/hum.ogg", Made::ogg},
    {"greenhouse.zip", "miss21.mis", Made::map},
    {"greenhouse.zip", "VKTITLE.JPG", Made::jpg},
    {"coldlab.zip", "coldlab.pk4", Made::pk4},
    {"coldlab.zip", "VKTITLE.JPG", Made::jpg},
    {"redstation.zip", "redstation.pk4", Made::pk4},
    {"redstation.zip", "VKTITLE.GIF", Made::gif},
    {"mincovna.zip", "miss18.mis", Made::map},
    {"mincovna.zip", "VKTITLE.JPG", Made::jpg},
};

/// Bytes that look like a map: the same for every run, and not much to pack.
QByteArray Map_bytes(int seed, int size) {
    QByteArray bytes = "DEMO MAP\r\n";
    quint32 state = static_cast<quint32>(seed) * 747796405u + 2891336453u;
    while (bytes.size() < size) {
        state = state * 747796405u + 2891336453u;
        bytes += static_cast<char>((state >> 24) & 0x3f);
    }
    return bytes;
}

/// A Doom 3 package: a zip with one map in "maps".
QByteArray Package_bytes(const QString &name, int seed) {
    QTemporaryDir folder;
    QDir(folder.path()).mkpath("maps");
    QFile map(folder.filePath("maps/" + name + ".map"));
    if (!map.open(QIODevice::WriteOnly) || map.write(Map_bytes(seed, 6000)) < 0)
        return {};
    map.close();
    const Platform platform = Make_Linux_Platform();
    cZip zip(*platform.files);
    zip.ZipFile = platform.files->to_windows(folder.filePath("package.zip"));
    zip.BasePath = platform.files->to_windows(folder.path());
    zip.StoreFolderNames = true;
    zip.AddFileSpec("maps\\" + name + ".map");
    if (zip.Zip())
        return {};
    QFile package(folder.filePath("package.zip"));
    return package.open(QIODevice::ReadOnly) ? package.readAll() : QByteArray();
}

QByteArray Make_file(const Made_File &file, int seed) {
    const QString name = QString(file.path).section('/', -1).section('.', 0, 0);
    switch (file.how) {
    case Made::map:
        return Map_bytes(seed, 40000);
    case Made::jpg:
        return Paint_jpg(seed, 480, 360);
    case Made::gif:
        return Paint_gif(seed, 320, 240);
    case Made::pcx:
        return Paint_pcx(seed, 320, 240);
    case Made::ogg:
        return Play_ogg(seed);
    case Made::mp3:
        return Play_mp3(seed);
    case Made::pk4:
        return Package_bytes(name, seed);
    case Made::data:
        return Map_bytes(seed + 100, 3000);
    }
    return {};
}

/// The written files of a mission; a readme in another encoding is kept as UTF-8 here and turned on the way.
Tree Written_files(const Mission_Row &row) {
    Tree files;
    const QString root = QStringLiteral(":/demo/missions/") + row.zip;
    QDirIterator entries(root, QDir::Files, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        entries.next();
        QFile file(entries.filePath());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        QByteArray content = file.readAll();
        const QString path = entries.filePath().mid(root.size() + 1);
        const bool is_text = path.endsWith(".txt") || path.endsWith(".vkml") || path.endsWith(".str");
        if (is_text && *row.text_encoding)
            content = QStringEncoder(row.text_encoding).encode(QString::fromUtf8(content));
        if (is_text)
            content.replace("\r\n", "\n").replace("\n", "\r\n");
        files[path] = content;
    }
    return files;
}

} // namespace

std::vector<Mission> Make_missions() {
    std::vector<Mission> made;
    int seed = 0;
    for (const Mission_Row &row : missions) {
        ++seed;
        Mission mission{row.game, row.zip, row.maker, QDate::fromString(row.date, Qt::ISODate),
                        Written_files(row)};
        int part = 0;
        for (const Made_File &file : made_files) {
            if (mission.zip != QLatin1String(file.zip))
                continue;
            const QByteArray content = Make_file(file, seed * 7 + part++);
            if (!content.isEmpty())
                mission.files[file.path] = content;
        }
        made.push_back(mission);
    }
    return made;
}

} // namespace vantrosk::demo
