#include "platform/linux/Linux_Platform.h"

#include <QDir>
#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <ctime>

// bench_read_registry FOLDER MEGABYTES: makes a registry of that size in a new prefix, as Wine would write
// it, and tells how much processor time the first read of a value at its end takes, and one after it.

namespace {

bool Make_registry(const QString &path, qint64 size) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write("WINE REGISTRY Version 2\n;; All keys relative to \\\\Machine\n\n#arch=win64\n");
    for (int key = 0; file.size() + file.bytesToWrite() < size; ++key) {
        const QByteArray number = QByteArray::number(key);
        file.write(
            "\n[Software\\\\Classes\\\\CLSID\\\\{6F9619FF-8B86-D011-B42D-" + number.rightJustified(12, '0') +
            "}] 1700000000 1234567\n#time=1da0000000000\n@=\"Class " + number +
            "\"\n\"Path\"=\"C:\\\\windows\\\\system32\\\\file" + number +
            ".dll\"\n\"Flags\"=dword:0000001f\n\"Data\"=hex:01,02,03,04,05,06,07,08,09,0a,0b,0c,0d,0e,0f,"
            "10,11,12,\\\n  13,14,15,16\n");
    }
    file.write("\n[Software\\\\Last] 1700000000\n\"x\"=\"found\"\n");
    return file.flush();
}

/// Of processor time.
double Milliseconds() {
    return static_cast<double>(std::clock()) * 1000 / CLOCKS_PER_SEC;
}

} // namespace

int main(int count, char **words) {
    if (count != 3)
        return EXIT_FAILURE;
    const QString prefix = QString::fromLocal8Bit(words[1]);
    const qint64 megabytes = std::atoi(words[2]);
    if (!QDir().mkpath(prefix) || !Make_registry(prefix + "/system.reg", megabytes << 20))
        return EXIT_FAILURE;
    vantrosk::Linux_Options options;
    options.wine_prefix = prefix;
    options.settings_file = prefix + "/settings.conf";
    const auto platform = vantrosk::Make_Linux_Platform(options);
    for (const char *what : {"the first read of a value at its end", "one after it"}) {
        const double start = Milliseconds();
        if (platform.registry->read("HKLM\\Software\\Last\\x") != QString("found"))
            return EXIT_FAILURE;
        std::printf("%-58s %8.1f ms\n", what, Milliseconds() - start);
    }
    return EXIT_SUCCESS;
}
