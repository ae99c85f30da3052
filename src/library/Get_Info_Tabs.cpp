#include "core/Page_Names.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "library/Info_Run.h"

#include <algorithm>

namespace vantrosk {

namespace {

constexpr const char *competition_key = "Competition";
constexpr const char *review_key = "Quillmarch";
constexpr const char *review_store = "Quillmarch.txt";
constexpr const char *form_file = "VKCOMPETITION.VKCR";
constexpr const char *own_loot_lists = "LOOT.VKL";

/// The page of the mission's competition or feedback form; empty for none.
QString Form_page(Program &program, const Info_Run &run) {
    const QString path = In_info(program, form_file);
    if (!run.found.has_competition || !program.tab_pages.competition || !FileExists(program, path))
        return {};
    return program.tab_pages.competition(path);
}

/// The page of the mission's reviews; empty when there are none or the user wants none.
QString Review_page(Program &program) {
    const QString &name = program.screen.details.name;
    if (program.tweaks.QUILLMARCH == 0 || name.isEmpty() || !program.tab_pages.review ||
        !FileExists(program, program.paths.temp + review_store))
        return {};
    return program.tab_pages.review(name);
}

QString Form_caption(const QString &page) {
    return page.contains(QLatin1String(feedback_page_name), Qt::CaseInsensitive) ? "FM Feedback Form"
                                                                                 : "Competition Form";
}

} // namespace

void Show_Tabs(Program &program, const Info_Run &run) {
    std::vector<Readme_Tab> tabs;
    if (const QString page = Form_page(program, run); !page.isEmpty())
        tabs.push_back({competition_key, Form_caption(page), page});
    if (const QString page = Review_page(program); !page.isEmpty())
        tabs.push_back({review_key, "Quillmarch Review", page});
    program.screen.readme_tabs = tabs;
    program.ui.readme_tabs_changed();
    for (const Readme_Tab &tab : tabs)
        program.ui.navigate(Browser::third, tab.page);
}

void Remove_Tabs(Program &program) {
    program.screen.readme_tabs.clear();
    program.ui.readme_tabs_changed();
}

void Keep_Loot_List(Program &program, const Info_Run &run) {
    const QString &name = run.found.loot_list_name;
    if (name.isEmpty() || !FileExists(program, In_info(program, name)))
        return;
    // The file of that name is the user's own, with all his lists in it.
    const bool is_own = name.compare(QLatin1String(own_loot_lists), Qt::CaseInsensitive) == 0;
    const QString stem = run.zip_name.left(run.zip_name.lastIndexOf(QLatin1Char('.')));
    const QString kept = is_own ? "LOOT_" + stem + ".VKL" : name;
    if (const Fault fault = program.files.copy_file(In_info(program, name), program.paths.cheats + kept))
        debug_print(program, "MAIN FORM: " + fault.text);
}

} // namespace vantrosk
