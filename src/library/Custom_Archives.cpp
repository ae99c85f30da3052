#include "library/Custom_Archives.h"

#include "core/Profile_File.h"
#include "core/Program.h"
#include "library/Get_archives.h"

namespace vantrosk {

namespace {

constexpr int quick_bar_buttons = 11;

Archives_Request Request_of_button(const Profile_File &ini, const QString &section, const QString &name) {
    const auto value = [&](const char *key) {
        return ini.value(section, key);
    };
    Archives_Request request;
    request.folders = value("FMpath") + "*#*";
    request.game_key = "CUSTOM";
    request.custom_name = name;
    request.custom_extensions = value("MissionFileExtention");
    request.custom_game_path = value("InstallPath");
    request.custom_mission_folder = value("mapfile_folder");
    Custom_Game &game = request.custom;
    game.launch_exe = value("LaunchPath").isEmpty() ? value("Path") : value("LaunchPath");
    game.launch_command = value("CMDLINE");
    game.use_map_extension = ini.is_true(section, "USE_Map_Extention");
    game.use_map_folder = ini.is_true(section, "USE_Map_Folder_Name");
    game.full_folder_path = value("USE_Full_Folder_Path");
    game.saves_path = value("saves_path");
    game.backup_saves_path = value("backup_saves_path");
    game.saves_extensions = value("saves_extentions");
    game.saves_left_alone = value("Saves_Includes");
    game.mod_manage = ini.is_true(section, "Mod_Manage");
    game.mp3 = ini.is_true(section, "MP3");
    return request;
}

/// The section of the button that has a game; empty for none.
QString Section_of_game(const Profile_File &ini, const QString &name) {
    for (int button = 1; button <= quick_bar_buttons; ++button) {
        const QString section = QString("QBAR_%1").arg(button);
        if (ini.is_true(section, "isgame") &&
            ini.value(section, "GameName").compare(name, Qt::CaseInsensitive) == 0)
            return section;
    }
    return {};
}

} // namespace

std::optional<Custom_Game_Place> Find_custom_game(Program &program, const QString &name) {
    const Profile_File ini(program, program.paths.qbar_ini);
    const QString section = Section_of_game(ini, name);
    if (section.isEmpty())
        return std::nullopt;
    return Custom_Game_Place{ini.value(section, "GameName"), ini.value(section, "InstallPath")};
}

bool Get_archives_of_custom_game(Program &program, const QString &name, int filter) {
    const Profile_File ini(program, program.paths.qbar_ini);
    const QString section = Section_of_game(ini, name);
    if (section.isEmpty())
        return false;
    Archives_Request request = Request_of_button(ini, section, ini.value(section, "GameName"));
    request.filter = filter;
    Get_archives(program, request);
    return true;
}

} // namespace vantrosk
