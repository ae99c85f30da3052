#pragma once

#include <array>
#include <functional>

namespace vantrosk {

struct Program;

/// What the start, the timers and the shut-down have done above the core: by the window, or by a folder that
/// builds on the core. The order of the start is told in one place all the same.
enum class Later_Step {
    show_trace_console,
    position_game_bar,
    list_language_packs,
    apply_language,
    restore_window, ///< makes the window from `Screen`, or puts it where `screen.window` says
    set_toolbar_size,
    build_config_menu,
    read_quick_bar,
    create_tooltips,
    build_category_list,
    display_recently_used,
    position_panels,
    lay_out_readme_toolbar,
    apply_skin,
    show_window,
    check_new_fms,
    download_scores,
    read_review_feed,
    check_updates,
    ask_full_or_lite, ///< returns when its window is closed
    show_settings,    ///< the same
    focus_list,
    build_game_selection,
    save_details_panel,
    show_patch_window,
    declare_presence, ///< to the players who are free for a game
    after_game,       ///< puts back what was swapped for a game
    count
};

struct Later_Steps {
    std::array<std::function<void()>, static_cast<std::size_t>(Later_Step::count)> work;
};

/// Says what does the work; called before the start.
void Set_Later_Step(Program &program, Later_Step step, std::function<void()> work);
/// Does it. Nothing but a trace line while nobody has said what does the work.
void Run_Later_Step(Program &program, Later_Step step);
/// The name of its procedure, as the trace tells it.
const char *Later_Step_Name(Later_Step step);

} // namespace vantrosk
