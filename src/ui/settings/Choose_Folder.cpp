#include "ui/settings/Choose_Folder.h"

#include "core/Program.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/Install_Paths.h"
#include "ui/settings/Shown_Path.h"

namespace vantrosk {

namespace {

constexpr const char *on_disc =
    "WARNING: the game path location you have chosen is a CD/DVD drive. Fan Missions can not be extracted to "
    "these as they are read only. ";
constexpr const char *choose_hard_drive = "Please choose a location on your hard drive instead.";
constexpr const char *choose_installed_t3 =
    "Please choose the T3.EXE located in the system folder of your Thief 3 install on your hard drive (by "
    "default this will be: c:\\program files\\Thief - Deadly Shadows\\System\\T3.exe).";

constexpr const char *not_kept = "Vantrosk can not keep the path %1, because its name holds a line break or "
                                 "\"*#*\". Please rename the folder.";

/// The ini keeps a value on one line, and folders of a list apart by this mark.
bool Can_be_kept(const QString &path) {
    return !path.contains(u'\r') && !path.contains(u'\n') && !path.contains(QLatin1String("*#*"));
}

/// Where set-ups put games unless they are told otherwise.
constexpr const char *usual_places[] = {"C:\\Games", "C:\\GOG Games", "C:\\Program Files (x86)",
                                        "C:\\Program Files", "C:\\"};

/// Wine's own settings can call a letter a CD drive, whatever lies behind it.
bool Is_on_disc(const Program &program, const QString &path) {
    const QString kind =
        program.platform.registry->read("HKEY_LOCAL_MACHINE\\Software\\Wine\\Drives\\" + path.left(2))
            .value_or(QString());
    return kind.compare(QLatin1String("cdrom"), Qt::CaseInsensitive) == 0 || program.files.is_on_disc(path);
}

/// The first of those folders that is there; an empty text when none is.
QString First_there(const Program &program, const QStringList &folders) {
    for (const QString &folder : folders)
        if (!folder.isEmpty() && FolderExists(program, folder))
            return folder;
    return {};
}

/// The game's own folder, else beside another game, else where games usually are.
QString Start_for_game(const Program &program, const Settings_Controls &controls, const QString &code) {
    QStringList folders{controls.of(code).game_folder};
    for (const Game_Controls &game : controls.games)
        if (!game.game_folder.isEmpty())
            folders << Parent_path(Tidy_path(game.game_folder));
    for (const char *place : usual_places)
        folders << place;
    return First_there(program, folders);
}

/// The last of the tab's mission folders, else that of another game.
QString Start_for_missions(const Program &program, const Settings_Controls &controls, const QString &code) {
    QStringList folders;
    if (!controls.of(code).fm_folders.isEmpty())
        folders << controls.of(code).fm_folders.last();
    folders << controls.mixed_folders;
    for (const Game_Controls &game : controls.games)
        folders << game.fm_folders;
    return First_there(program, folders);
}

QString Start_for_editor(const Program &program, const Settings_Controls &controls, const QString &code) {
    const Game_Controls &game = controls.of(code);
    const QString editor_folder = game.editor.isEmpty() ? QString() : Parent_path(Tidy_path(game.editor));
    return First_there(program, {editor_folder, game.game_folder, Start_for_game(program, controls, code)});
}

} // namespace

std::optional<QString> Get_Folder_Core(Program &program, const File_Request &request, const QString &code) {
    const auto chosen = program.ui.choose_file(request);
    if (!chosen || chosen->isEmpty())
        return std::nullopt;
    const QString path = Tidy_path(*chosen);
    if (!Can_be_kept(path)) {
        Show_Warning(program, "", QString(not_kept).arg(Shown_Path(program, path)));
        return std::nullopt;
    }
    if (!Is_on_disc(program, path))
        return path;
    const bool is_t3 = code == QLatin1String("T3") && Is_same_path(FileNameFromPath(path), "t3.exe");
    Show_Warning(program, "", QString(on_disc) + (is_t3 ? choose_installed_t3 : choose_hard_drive));
    return std::nullopt;
}

std::optional<QString> get_folder(Program &program, const Settings_Controls &controls, const QString &code) {
    const Game_Tab &tab = *Find_Game_Tab(code);
    return Get_Folder_Core(
        program, {QString("Locate %1").arg(tab.caption), tab.filter, Start_for_game(program, controls, code)},
        code);
}

std::optional<QString> Get_Folder_For_ListBox(Program &program, const Settings_Controls &controls,
                                              const QString &code) {
    const auto zip = Get_Folder_Core(program,
                                     {"Find a Fan Mission zip file, select it and then click OPEN.",
                                      fm_filter, Start_for_missions(program, controls, code)},
                                     code);
    if (!zip)
        return std::nullopt;
    return Parent_path(*zip) + "\\";
}

std::optional<QString> Get_Editor(Program &program, const Settings_Controls &controls, const QString &code) {
    const Game_Tab &tab = *Find_Game_Tab(code);
    return Get_Folder_Core(program,
                           {QString("Locate the editor of %1").arg(tab.caption), tab.editor_filter,
                            Start_for_editor(program, controls, code)},
                           code);
}

} // namespace vantrosk
