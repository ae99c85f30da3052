#include "core/mdlStartup.h"

#include "core/Full_Lite.h"
#include "core/Program.h"
#include "core/Startup_Steps.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"

namespace vantrosk {

namespace {

constexpr const char *folders_that_must_exist =
    "temp,temp\\VKIMAGES,temp\\updates,temp\\resources,info,info\\VKIMAGES,tools,titles,resources,languages,"
    "VKIMAGES,MAP_IMAGES,cheats,Game_support,references,HTMLImages,custom_game_images,skins,skins\\current,"
    "help\\viewlets,Enhancements,Enhancements\\T1,Enhancements\\T2,Enhancements\\T3,Enhancements\\DMOD,"
    "Enhancements\\SS2,ERRORS,ERRORS\\Screenshots";

/// Traces the stage that comes next and lets the user hold the start there.
void Announce_stage(Program &program, const char *stage) {
    debug_print(program, stage);
    debug_pause(program, stage);
}

void Begin_Load(Program &program) {
    program.start.load_began = program.clock.ticks();
    program.start.is_running = true;
    program.timers.animation_picture = 2;
    program.screen.busy = false;
}

void Position_Game_Bar(Program &program) {
    Run_Later_Step(program, Later_Step::position_game_bar);
}

void Read_Command_Line(Program &program) {
    Apply_Switches(program, program.start.command_line);
    if (debug_enabled(program))
        Run_Later_Step(program, Later_Step::show_trace_console);
}

void Say_Debug_Log_Starts(Program &program) {
    debug_print(program, "Starting Debug Log");
}

void Set_Defaults(Program &program) {
    Announce_stage(program, "About to set defaults");
    Set_Display_Defaults(program);
}

void Read_Settings(Program &program) {
    Announce_stage(program, "About to read ini");
    Read_Ini_Files(program);
}

void Make_Folders(Program &program) {
    Announce_stage(program, "About to create folders");
    Create_Folders(program);
}

void Apply_Language(Program &program) {
    Run_Later_Step(program, Later_Step::list_language_packs);
    Run_Later_Step(program, Later_Step::apply_language);
}

void Set_Title(Program &program) {
    Set_Caption(program, Window_Title());
}

void Tell_Load_Time(Program &program) {
    debug_print(program, "Form Load finished");
    debug_print(program, Seconds_Since(program, program.start.load_began) + " seconds to process");
}

/// Who takes part in a step.
enum class Who { every_face, window };

struct Load_Step {
    bool (*run)(Program &program); ///< false ends the process
    Who who;
};

/// A step that never ends the process.
template<void (*work)(Program &)>
bool Do(Program &program) {
    work(program);
    return true;
}

/// The load stage in its order, which others rely on: a switch works before the settings are read, the
/// settings before the folders, the identity before the database is looked over.
constexpr Load_Step load_steps[] = {
    {Do<Begin_Load>, Who::every_face},
    {Check_Audio_Library, Who::every_face},
    {Open_database, Who::every_face},
    {Hand_Over_To_Patch, Who::window},
    {Do<Set_Server_Base_Url>, Who::every_face},
    {Do<Show_Tool_Entries>, Who::window},
    {Do<Set_Review_Feed_Url>, Who::every_face},
    {Do<Position_Game_Bar>, Who::window},
    {Do<Read_Command_Line>, Who::window},
    {Do<Say_Debug_Log_Starts>, Who::every_face},
    {Do<Set_Defaults>, Who::every_face},
    {Do<Read_Settings>, Who::every_face},
    {Do<Make_Folders>, Who::every_face},
    {Do<Lay_Out_Shipped_Pages>, Who::every_face},
    {Do<Set_List_Font>, Who::window},
    {Do<Fill_Game_Table>, Who::every_face},
    {Do<Read_Quick_Bar_Games>, Who::every_face},
    {Do<Load_Glossary>, Who::every_face},
    {Do<Fill_Categories>, Who::every_face},
    {Do<Cull_Temp_Files>, Who::every_face},
    {Do<Apply_Language>, Who::window},
    {Do<Set_Title>, Who::every_face},
    {Do<Restore_Window>, Who::window},
    {Do<Blank_Browsers>, Who::window},
    {Do<Settle_Installation_Identity>, Who::every_face},
    {Do<Check_Database_Tables>, Who::every_face},
    {Do<Load_Email_Templates>, Who::every_face},
    {Do<Build_Lists_And_Menus>, Who::window},
    {Do<Position_Panels>, Who::window},
    {Do<Show_Main_Interface>, Who::window},
    {Do<Warn_About_T3_Saves>, Who::window},
    {Do<Run_Background_Checks>, Who::window},
    {Do<Offer_Single_Core>, Who::window},
    {Do<Tell_Load_Time>, Who::window},
};

bool Load(Program &program, Who who) {
    debug_print(program, "MAIN FORM: Form initialize started");
    if (who == Who::window)
        program.ui.set_busy(true);
    for (const Load_Step &step : load_steps) {
        if ((step.who == Who::every_face || step.who == who) && !step.run(program))
            return false;
        if (program.start.end_requested)
            return false;
    }
    return true;
}

} // namespace

QString Window_Title() {
    return QString("Vantrosk") + version_number + " - " + build_date;
}

QString Seconds_Since(const Program &program, qint64 ticks) {
    constexpr double ticks_per_second = 1000;
    return QString::number(static_cast<double>(program.clock.ticks() - ticks) / ticks_per_second, 'f', 2);
}

void Create_Folders(Program &program) {
    for (const QString &folder : QString(folders_that_must_exist).split(QLatin1Char(','))) {
        const QString path = program.paths.AppPath + "\\" + folder;
        if (!FolderExists(program, path))
            (void)CreateFolderTree(program, path);
    }
}

bool Start_Program(Program &program) {
    return Start_Process(program, [&] { return Load(program, Who::every_face); });
}

bool Load_Stage(Program &program, const QString &command_line) {
    program.start.command_line = command_line;
    return Load(program, Who::window);
}

void Initialise_Stage(Program &program) {
    const qint64 began = program.clock.ticks();
    Set_Mode_Caption(program);
    Show_Notices_And_Start_Page(program);
    if (program.start.end_requested)
        return;
    debug_print(program,
                QString("Warning Message Checks Took %1 seconds").arg(Seconds_Since(program, began)));
    if (!Show_Crash_Evidence(program))
        Show_Notes_Of_The_Start(program);
    Run_Later_Step(program, Later_Step::focus_list);
    Ask_First_Run_Questions(program);
    Run_Later_Step(program, Later_Step::build_game_selection);
    program.ui.games_changed();
    program.screen.busy = false;
    program.ui.set_busy(false);
    debug_print(program, "Form Initialize finished");
}

} // namespace vantrosk
