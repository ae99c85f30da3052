#include "core/Program.h"
#include "core/Startup_Steps.h"
#include "core/Window_State.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "core/mdlFunctions.h"

namespace vantrosk {

namespace {

constexpr const char *no_T3_saves =
    "WARNING: Vantrosk does not have details about your Thief 3 save game location.\n\nThis may be the "
    "result "
    "of upgrading to a new version of Vantrosk\n\nTo resolve this simply reselect your T3.EXE in Vantrosk "
    "configuration AND THEN save your config.\n\nFailure to do so may result in Thief 3 Fan Missions not "
    "running correctly.";
constexpr const char *many_processors =
    "Vantrosk is running on %1 CPU cores. For Thief 1,Gold,2 and System Shock 2 it is best to run Vantrosk "
    "on 1 "
    "core.\n\nWould you like Vantrosk to change its affinity to run on 1 core permanently?";
constexpr const char *one_processor =
    "Vantrosk is now running on core 0.\n\nVantrosk will also attempt to automatically run dark engine games "
    "on a single core to reduce crashing.";
constexpr quint64 first_processor = 1;

bool Run_this_program_on_one_core(Program &program) {
    return Set_Affinity(program, {}, first_processor);
}

} // namespace

void Show_Tool_Entries(Program &program) {
    program.screen.menu.zip_search = FileExists(program, program.paths.tools + "ZipSearch.exe");
    program.screen.menu.competition = FileExists(program, program.paths.tools + "VK_Competition.exe");
}

void Set_List_Font(Program &program) {
    const Font_Tweak &tweak = program.tweaks.FMLISTSFONT;
    List_Font &font = program.screen.list_font;
    font.family = tweak.name;
    font.size = tweak.size;
    font.bold = tweak.style.contains(QLatin1String("Bold"), Qt::CaseInsensitive);
    font.italic = tweak.style.contains(QLatin1String("Italic"), Qt::CaseInsensitive);
}

void Restore_Window(Program &program) {
    Restore_Window_Geometry(program);
    Restore_Column_Widths(program);
    Run_Later_Step(program, Later_Step::restore_window);
    Run_Later_Step(program, Later_Step::set_toolbar_size);
}

void Blank_Browsers(Program &program) {
    program.screen.readme_page = "about:blank";
    program.ui.navigate(Browser::readme, "about:blank");
    program.ui.navigate(Browser::third, "about:blank");
}

void Build_Lists_And_Menus(Program &program) {
    Get_Authors_Array(program);
    Run_Later_Step(program, Later_Step::build_config_menu);
    Run_Later_Step(program, Later_Step::read_quick_bar);
    Run_Later_Step(program, Later_Step::create_tooltips);
    Run_Later_Step(program, Later_Step::build_category_list);
    if (program.tweaks.RECENTLY_USED)
        Run_Later_Step(program, Later_Step::display_recently_used);
    program.screen.menu.downloads = !program.ini.DOWNLOADS_URL.isEmpty();
}

void Position_Panels(Program &program) {
    Run_Later_Step(program, Later_Step::position_panels);
    Run_Later_Step(program, Later_Step::lay_out_readme_toolbar);
    Run_Later_Step(program, Later_Step::apply_skin);
}

void Show_Main_Interface(Program &program) {
    debug_print(program, "Showing Main Interface.");
    Run_Later_Step(program, Later_Step::show_window);
    Load_Library_Summary(program);
}

void Warn_About_T3_Saves(Program &program) {
    if (program.ini.T3_SAVE_GAME_LOCATION.isEmpty() && !program.ini.T3_GAME_LOCATION.isEmpty())
        Show_Warning(program, "Vantrosk", no_T3_saves);
}

void Run_Background_Checks(Program &program) {
    Run_Later_Step(program, Later_Step::check_new_fms);
    Run_Later_Step(program, Later_Step::download_scores);
    if (program.tweaks.QUILLMARCH != 0)
        Run_Later_Step(program, Later_Step::read_review_feed);
    if (program.ini.CHECKFORUPDATES)
        Run_Later_Step(program, Later_Step::check_updates);
}

void Offer_Single_Core(Program &program) {
    const QString marker = program.paths.AppPath + "\\affinity.VKBU";
    const int processors = Cores_Running_on(program, {}, 1, false);
    if (processors < 2)
        return;
    if (FileExists(program, marker)) {
        (void)Run_this_program_on_one_core(program);
        return;
    }
    if (!Ask_Yes_No(program, "WARNING Vantrosk Is Running On Multiple CPUs",
                    QString(many_processors).arg(processors)))
        return;
    if (const Fault fault = program.files.write_file(marker, {}))
        debug_print(program, "STARTUP: affinity.VKBU not written: " + fault.text);
    if (Run_this_program_on_one_core(program))
        Show_Message(program, "Vantrosk", one_processor);
}

} // namespace vantrosk
