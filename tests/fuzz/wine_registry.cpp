#include "fuzz/Fuzz.h"

#include "platform/linux/Linux_Platform.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

namespace vantrosk {

namespace {

/// A prefix whose file is written anew for each input.
struct Scene {
    QTemporaryDir prefix;
    Platform platform = Make_Linux_Platform({prefix.path(), {}, prefix.filePath("settings.conf")});
};

void Must(bool holds) {
    if (!holds)
        std::abort();
}

constexpr const char *asked[] = {"HKLM\\Software\\A\\x",    "HKEY_LOCAL_MACHINE\\Software\\Žluť\\kůň",
                                 "HKCU\\Software\\A\\x",    "HKCR\\.zip\\",
                                 "HKLM\\Software\\A\\",     "HKLM\\Software\\A\\hex",
                                 "HKLM\\Software\\Last\\x", "HKLM\\\\"};

} // namespace

/// Whatever the bytes are: texts that are no longer than the file, and a key of its own behind them is found.
void Fuzz_one(const QByteArray &bytes) {
    static Scene scene;
    for (const char *name : {"system.reg", "user.reg"}) {
        QFile file(scene.prefix.filePath(name));
        file.remove();
        const bool is_utf16 = bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF");
        const QByteArray tail = is_utf16 ? QByteArray() : "\n[Software\\\\Last] 1\n\"x\"=\"found\"\n";
        Must(file.open(QIODevice::WriteOnly) && file.write(bytes + tail) >= bytes.size());
    }
    for (const char *path : asked) {
        const auto value = scene.platform.registry->read(QString::fromUtf8(path));
        Must(!value || value->size() <= bytes.size() + 64);
    }
    const bool is_registry = bytes.startsWith("WINE REGISTRY Version 2\n");
    if (is_registry)
        Must(scene.platform.registry->read("HKLM\\Software\\Last\\x") == QString("found"));
}

std::vector<QByteArray> Fuzz_seeds() {
    const QByteArray text =
        "WINE REGISTRY Version 2\n;; All keys relative to \\\\Machine\n\n#arch=win64\n\n"
        "[Software\\\\A] 1700000000 1\n#time=1da\n\"x\"=\"C:\\\\Games\\\\\\x17dlu\"\n@=\"unnamed\"\n"
        "\"hex\"=hex(2):41,00,e4,00,42,\\\n  00,7d,\\\n  01,00,00\n\"n\"=dword:0000001f\n"
        "\"e\"=str(2):\"%x%\\t\\033\"\n\n[Software\\\\Classes\\\\.zip] 1\n@=\"zip\"\n"
        "[Software\\\\Wow6432Node\\\\A] 1\n\"y\"=\"z\"\n[Software\\\\Žluť] 1\n\"kůň\"=\"1\"\n";
    const QString wide = QString::fromUtf8(text);
    return {text,
            QByteArray("\xFF\xFE") +
                QByteArray(reinterpret_cast<const char *>(wide.utf16()), wide.size() * 2),
            "\xEF\xBB\xBF" + text, "WINE REGISTRY Version 2\n"};
}

std::vector<QByteArray> Fuzz_pieces() {
    return {"\n",
            "\r\n",
            "[",
            "]",
            "[Software\\\\A] 1\n",
            "\"x\"=",
            "\"",
            "\\",
            "\\\n",
            ",\\\n",
            "=",
            "@=",
            "hex(2):",
            "hex:",
            "dword:",
            "str(2):\"",
            "\\x",
            "\\x17d",
            "\\0",
            "\\xd83d",
            "\xC5",
            "\xFF\xFE",
            QByteArray(1, '\0')};
}

} // namespace vantrosk
