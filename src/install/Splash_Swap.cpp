#include "install/Splash_Swap.h"

#include "core/Games.h"
#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "install/Install_Paths.h"
#include "install/Recover_Log.h"

#include <QRandomGenerator>

namespace vantrosk {

namespace {

constexpr const char *dark_engine_splash = "00000409.256";
constexpr const char *dark_mod_splash = "guis\\assets\\splash\\launch.tga";
constexpr const char *own_one = ".VKBU";
constexpr const char *none_before = ".VKNEW";
constexpr int most_packs = 99, most_pictures = 99;
constexpr int pause_after_swap = 100; ///< milliseconds

/// All pictures of all packs: "Pack1_1.256", "Pack1_2.256"... up to the first gap of each pack.
QStringList Pictures_of_packs(const Program &program, const QString &code, const QString &extension) {
    const QString start = program.paths.enhancements + code + "\\Pack";
    QStringList pictures;
    for (int pack = 1; pack <= most_packs; ++pack)
        for (int number = 1; number <= most_pictures; ++number) {
            const QString picture = QString("%1%2_%3%4").arg(start).arg(pack).arg(number).arg(extension);
            if (!FileExists(program, picture))
                break;
            pictures << picture;
        }
    return pictures;
}

QString Any_of(const Program &program, const QStringList &pictures) {
    const auto count = static_cast<int>(pictures.size());
    const double random =
        program.timers.random ? program.timers.random() : QRandomGenerator::global()->generateDouble();
    return pictures[qBound(0, static_cast<int>(random * count), count - 1)];
}

void Put_back(Program &program, const QString &path) {
    if (FileExists(program, path + own_one)) {
        Trace_fault(program, program.files.move_file(path + own_one, path));
    } else if (FileExists(program, path + none_before)) {
        Trace_fault(program, DeleteFileForced(program, path));
        if (!FileExists(program, path))
            Trace_fault(program, DeleteFileForced(program, path + none_before));
    }
}

/// The own picture aside, or the mark that there is none.
Fault Keep_own_picture(Program &program, const QString &path) {
    if (FileExists(program, path))
        return program.files.move_file(path, path + own_one);
    return program.files.write_file(path + none_before, {});
}

void Swap(Program &program, const QString &path, const QString &picture) {
    Put_back(program, path);
    if (const Fault fault = Keep_own_picture(program, path))
        return Trace_fault(program, fault);
    program.play.swapped_pictures << path;
    if (const Fault fault = program.files.copy_file(picture, path)) {
        Trace_fault(program, fault);
        Put_back_splashes(program);
    }
}

} // namespace

void Swap_Splash(Program &program, const QString &pack_code) {
    const QStringList pictures = Pictures_of_packs(program, pack_code, ".256");
    if (!pictures.isEmpty())
        Swap(program, Join_path(program.CURRENT_GAME_PATH, dark_engine_splash), Any_of(program, pictures));
    program.clock.sleep(pause_after_swap);
}

void Swap_Dark_Mod_Splash(Program &program, const QString &mission_folder) {
    const QStringList pictures = Pictures_of_packs(program, "DMOD", ".tga");
    const QString splash = Join_path(mission_folder, dark_mod_splash);
    Put_back(program, splash);
    if (!pictures.isEmpty() && FileExists(program, splash))
        Swap(program, splash, Any_of(program, pictures));
    program.clock.sleep(pause_after_swap);
}

void Put_back_splashes(Program &program) {
    for (const QString &path : std::as_const(program.play.swapped_pictures))
        Put_back(program, path);
    program.play.swapped_pictures.clear();
}

void Put_back_splashes_of(Program &program, const QString &game_folder) {
    const QString folder = Tidy_path(game_folder);
    if (folder.isEmpty() || !FolderExists(program, folder))
        return;
    Put_back(program, Join_path(folder, dark_engine_splash));
    Put_back(program, Join_path(folder, dark_mod_splash));
}

void Put_back_mission_splashes(Program &program, const QString &game_folder) {
    const QString folder = Tidy_path(game_folder);
    Put_back_splashes_of(program, folder);
    const Result<std::vector<File_Info>> entries = program.files.list_folder(folder);
    if (folder.isEmpty() || !entries.ok())
        return;
    for (const File_Info &entry : entries.value)
        if (entry.is_folder && !entry.is_link)
            Put_back(program, Join_path(Join_path(folder, entry.name), dark_mod_splash));
}

void Put_back_all_splashes(Program &program) {
    for (const char *code : {"T1", "TG", "T2"})
        Put_back_splashes_of(program, Game_Folder(program.ini, code));
    Put_back_mission_splashes(program, Game_Folder(program.ini, "DMOD"));
}

} // namespace vantrosk
