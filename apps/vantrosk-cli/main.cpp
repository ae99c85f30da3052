#include "platform/Native_Text.h"
#include "platform/linux/Linux_Platform.h"
#include "ui/console/Console_Commands.h"

#include <QCoreApplication>

#include <unistd.h>

#include <cstdio>

namespace {

void Write_line(std::FILE *stream, const QString &line) {
    const QByteArray bytes = line.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stream);
    std::fflush(stream);
}

} // namespace

int main(int argc, char **argv) {
    vantrosk::Prepare_linux_process();
    QCoreApplication application(argc, argv);
    vantrosk::Platform platform = vantrosk::Make_Linux_Platform();
    const vantrosk::Console_Streams streams{
        [](const QString &line) { Write_line(stdout, line); },
        [](const QString &line) { Write_line(stderr, line); },
        isatty(STDERR_FILENO) == 1,
    };
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words << vantrosk::Argument_text(argv[i]);
    return vantrosk::Run_Console(platform, streams, words,
                                 vantrosk::Default_home_folder(QCoreApplication::applicationDirPath()));
}
