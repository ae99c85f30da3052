#include "core/mdlFile_Functions.h"
#include "library/Info_Run.h"

namespace vantrosk {

namespace {

/// The mission's own picture; for a mission of a custom game without one, that of its game.
QString Title_image(const Program &program, const Info_Run &run) {
    const QString own = run.found.title_image;
    if (!own.isEmpty() && FileExists(program, In_info(program, own)))
        return own;
    if (!run.menu_picture.isEmpty())
        return run.menu_picture;
    const QString of_game = program.custom_name + "_32.bmp";
    const bool custom = run.key == QLatin1String("CUSTOM") && !program.custom_name.isEmpty();
    return custom && FileExists(program, program.paths.custom_game_images + of_game) ? "CUSTOM:" + of_game
                                                                                     : QString();
}

} // namespace

Page_Facts Facts_of_selection(const Program &program, const Info_Run &run) {
    Page_Facts facts = Facts_of_record(run.record);
    facts.languages = run.found.languages;
    facts.title_image = Title_image(program, run);
    const Fm_List &list = program.screen.list;
    facts.row_selected = list.current_row >= 0 && list.current_row < static_cast<int>(list.rows.size());
    if (facts.row_selected) {
        const auto &cells = list.rows[static_cast<std::size_t>(list.current_row)].cells;
        facts.row_name = cells[col_name];
        facts.row_score = cells[col_score];
    }
    return facts;
}

} // namespace vantrosk
