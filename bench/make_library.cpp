// Makes a library of zips as large as those of people who have collected for twenty years:
// bench_make_library FOLDER ZIPS ENTRIES. Each zip is a Thief 2 mission with a readme; the same on every run.

#include <QDir>
#include <QFile>
#include <QString>

#include <zip.h>

#include <cstdio>
#include <vector>

namespace {

constexpr const char *folders[] = {"books/english/", "fam/core/", "intrface/miss20/", "mesh/txt16/",
                                   "obj/",           "snd/",      "snd/hall/",        "strings/",
                                   "bitmap/txt/",    "motions/"};
constexpr const char *endings[] = {".str", ".gif", ".pcx", ".bin", ".bin",
                                   ".wav", ".wav", ".str", ".gif", ".mc"};

QByteArray Readme(int number) {
    QByteArray text = "Title : Bench Mission " + QByteArray::number(number) + "\r\nAuthor : Author " +
                      QByteArray::number(number % 97) + "\r\nGame : Thief 2\r\n\r\n";
    for (int line = 0; line < 60; ++line)
        text += "The watch passes, the lamp goes out, and step " + QByteArray::number(line * number % 1009) +
                " of the stair creaks.\r\n";
    return text;
}

void Add(zip_t *archive, const QByteArray &name, const QByteArray &content) {
    zip_source_t *source =
        zip_source_buffer(archive, content.constData(), static_cast<zip_uint64_t>(content.size()), 0);
    zip_file_add(archive, name.constData(), source, ZIP_FL_ENC_UTF_8);
}

bool Make(const QString &path, int number, int entries) {
    zip_t *archive = zip_open(QFile::encodeName(path).constData(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    if (!archive)
        return false;
    const QByteArray readme = Readme(number), map(2000, 'm'), titles("title_20: \"Bench\"\r\n"),
                     part(64, 'p');
    for (int i = 0; i < entries - 3; ++i) {
        const int kind = i % 10;
        Add(archive, QByteArray(folders[kind]) + "part_" + QByteArray::number(i) + endings[kind], part);
    }
    Add(archive, "miss20.mis", map);
    Add(archive, "strings/titles.str", titles);
    Add(archive, "readme.txt", readme);
    return zip_close(archive) == 0;
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: bench_make_library FOLDER ZIPS ENTRIES\n");
        return 2;
    }
    const QString folder = QFile::decodeName(argv[1]);
    const int zips = std::atoi(argv[2]), entries = std::atoi(argv[3]);
    QDir().mkpath(folder);
    for (int number = 1; number <= zips; ++number) {
        const QString path = folder + QStringLiteral("/bench_%1.zip").arg(number, 5, 10, QLatin1Char('0'));
        if (!Make(path, number, entries)) {
            std::fprintf(stderr, "%s was not made\n", qPrintable(path));
            return 1;
        }
    }
    return 0;
}
