#include "fuzz/Fuzz.h"

#include "core/Glossary.h"
#include "core/Profile_File.h"
#include "core/Program.h"
#include "core/mdlFile_Functions.h"
#include "platform/linux/Linux_Platform.h"
#include "support/Recording_Ui.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

namespace vantrosk {

namespace {

/// The program's folder, whose files are written anew for each input.
struct Scene {
    QTemporaryDir folder;
    Platform platform =
        Make_Linux_Platform({folder.filePath("prefix"), {}, folder.filePath("settings.conf")});
    QString home = platform.files->to_windows(folder.path());
};

void Must(bool holds) {
    if (!holds)
        std::abort();
}

void Write(const Scene &scene, const char *name, const QByteArray &bytes) {
    QFile file(scene.folder.filePath(name));
    file.remove();
    Must(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

QStringList Values(const Program &program) {
    QStringList values;
    for (const auto &pairs : {Main_ini_pairs(program), Tweaks_ini_pairs(program)})
        for (const Ini_Pair &pair : pairs)
            values << pair.key << (pair.key == "RESKIN_THIEF1" ? QString() : pair.value);
    return values;
}

/// What this program wrote, it reads back; the other readers take what comes.
void Read_write_read(Scene &scene) {
    Recording_Ui ui;
    Program program(scene.platform, ui, scene.home);
    Set_Display_Defaults(program);
    Read_Ini_Files(program);
    Must(!program.first_run && !program.ini.LANGUAGE.isEmpty());
    const QStringList values = Values(program);
    for (const QString &value : values)
        Must(!value.contains('\n') && !value.contains('\r'));
    const auto write = [&](const char *name, const std::vector<Ini_Pair> &pairs) {
        QByteArray text;
        for (const Ini_Pair &pair : pairs)
            text += "[" + pair.key.toUtf8() + "]\r\n" + pair.value.toUtf8() + "\r\n";
        Write(scene, name, text);
    };
    write("Vantrosk.ini", Main_ini_pairs(program));
    write("Vantrosk_Tweaks.ini", Tweaks_ini_pairs(program));
    Program second(scene.platform, ui, scene.home);
    Set_Display_Defaults(second);
    Read_Ini_Files(second);
    Must(Values(second) == values);
}

} // namespace

void Fuzz_one(const QByteArray &bytes) {
    static Scene scene;
    for (const char *name :
         {"Vantrosk.ini", "Vantrosk_Tweaks.ini", "Vantrosk_QBAR.ini", "intellitext.txt", "VK_URL.txt"})
        Write(scene, name, bytes);
    Recording_Ui ui;
    Program program(scene.platform, ui, scene.home);
    Read_Quick_Bar_Games(program);
    Must(program.quick_bar_games.size() <= 10);
    Load_Glossary(program);
    Must(!program.glossary.empty() && program.glossary.size() <= largest_glossary);
    Read_write_read(scene);
}

std::vector<QByteArray> Fuzz_seeds() {
    return {"[T1]\r\nC:\\FMs\\*#*D:\\More\\*#*\r\n[T1GAME]\r\nC:\\Thief\r\n[DMOD_INSTALLED]\r\nTrue\r\n"
            "[LANGUAGE]\r\n\r\n[MAIN_TOOLBAR]\r\n24\r\n[MPNAME]\r\nŽluť\r\n",
            "[SCAN_ZIPS]\r\n1\r\n[TITLEFONTSIZE]\r\nbig\r\n[AUTO_DOWNLOAD]\r\n40000\r\n[FMTOOL0]\r\nTrue\r\n"
            "[RESKIN_THIEF1]\r\nTrue\r\n[BACKGROUNDCOLOUR]\r\n#FFFFFF\r\n",
            "[QBAR_1]\r\nISGAME=TRUE\r\nGameName=Quake\r\nToolTip=\"x\"\r\nFMpath=C:\\q\r\n",
            "http://example.org/x\r\n",
            "[keep]\r\nThe 'keep' of a castle\r\n",
            ""};
}

std::vector<QByteArray> Fuzz_pieces() {
    return {"\r\n",
            "\n",
            "\r",
            "[",
            "]",
            "[T1]\r\n",
            "[LANGUAGE]\r\n",
            "[TITLEFONTSIZE]\r\n",
            "[TITLEFONT]\r\n",
            "[DMOD_INSTALLED]\r\n",
            "[FMTOOL5]\r\n",
            "[AUTO_DOWNLOAD]\r\n",
            "True",
            "1e400",
            "-0.5",
            "nan",
            "*#*",
            " ",
            "\t",
            "\xEF\xBB\xBF",
            "\xFF\xFE",
            "\xFE\xFF",
            "\xC5",
            QByteArray(1, '\0'),
            "\xE2\x80\xA8",
            "[QBAR_10]",
            "=",
            "\"",
            "ISGAME=TRUE"};
}

} // namespace vantrosk
