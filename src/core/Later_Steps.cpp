#include "core/Later_Steps.h"

#include "core/Program.h"

namespace vantrosk {

namespace {

struct Step_Row {
    Later_Step step;
    const char *name;
};

constexpr Step_Row rows[] = {
    {Later_Step::show_trace_console, "Show_Trace_Console"},
    {Later_Step::position_game_bar, "Position_Game_Bar"},
    {Later_Step::list_language_packs, "List_Language_Packs"},
    {Later_Step::apply_language, "Apply_Language"},
    {Later_Step::restore_window, "Restore_Window"},
    {Later_Step::set_toolbar_size, "Set_Toolbar_Size"},
    {Later_Step::build_config_menu, "Config_menu"},
    {Later_Step::read_quick_bar, "Get_QBAR_settings"},
    {Later_Step::create_tooltips, "Create_Tooltips"},
    {Later_Step::build_category_list, "Build_Category_List"},
    {Later_Step::display_recently_used, "Display_recently_used"},
    {Later_Step::position_panels, "Position_Panels"},
    {Later_Step::lay_out_readme_toolbar, "Lay_Out_Readme_Toolbar"},
    {Later_Step::apply_skin, "Apply_Skin"},
    {Later_Step::show_window, "Show_Window"},
    {Later_Step::check_new_fms, "Check_New_FMs"},
    {Later_Step::download_scores, "Download_Scores"},
    {Later_Step::read_review_feed, "Read_Review_Feed"},
    {Later_Step::check_updates, "Check_Updates"},
    {Later_Step::ask_full_or_lite, "Ask_Full_Or_Lite"},
    {Later_Step::show_settings, "Show_Settings"},
    {Later_Step::focus_list, "Focus_List"},
    {Later_Step::build_game_selection, "Build_Game_Selection"},
    {Later_Step::save_details_panel, "Save_Details_Panel"},
    {Later_Step::show_patch_window, "Show_Patch_Window"},
    {Later_Step::declare_presence, "Declare_Presence"},
    {Later_Step::after_game, "After_Game"},
};
static_assert(std::size(rows) == static_cast<std::size_t>(Later_Step::count));

} // namespace

const char *Later_Step_Name(Later_Step step) {
    return rows[static_cast<std::size_t>(step)].name;
}

void Set_Later_Step(Program &program, Later_Step step, std::function<void()> work) {
    program.later_steps.work[static_cast<std::size_t>(step)] = std::move(work);
}

void Run_Later_Step(Program &program, Later_Step step) {
    const auto &work = program.later_steps.work[static_cast<std::size_t>(step)];
    if (work)
        work();
    else
        debug_print(program, QString("STARTUP: %1 does nothing here").arg(Later_Step_Name(step)));
}

} // namespace vantrosk
