#include "core/Program.h"

namespace vantrosk {

Paths::Paths(const QString &app_path)
    : AppPath(app_path), database(app_path + "\\Vantrosk.mdb;"),
      current_skin(app_path + "\\skins\\current\\"), skins(app_path + "\\skins\\"),
      temp(app_path + "\\temp\\"), tools(app_path + "\\tools\\"), titles(app_path + "\\titles\\"),
      info(app_path + "\\INFO\\"), help(app_path + "\\help\\"), enhancements(app_path + "\\Enhancements\\"),
      cheats(app_path + "\\cheats\\"), custom_game_images(app_path + "\\custom_game_images\\"),
      game_support(app_path + "\\Game_support\\"), references(app_path + "\\references\\"),
      error_screenshots(app_path + "\\ERRORS\\screenshots\\"), main_ini(app_path + "\\Vantrosk.ini"),
      tweaks_ini(app_path + "\\Vantrosk_Tweaks.ini"), qbar_ini(app_path + "\\Vantrosk_QBAR.ini"),
      runonce_notes(app_path + "\\VK_runonce_notes.txt"),
      install_recover_log(app_path + "\\install_recover.log"), debug_log(app_path + "\\debug.log") {}

Program::Program(Platform &platform_, Ui &ui_, const QString &app_path)
    : platform(platform_), ui(ui_), files(*platform_.files), clock(*platform_.clock), paths(app_path),
      audio(std::make_unique<Audio_Library>()) {}

Program::~Program() = default;

} // namespace vantrosk
