#include "ui/console/Console_Json.h"

#include "core/Program.h"
#include "install/undo/Undo_List.h"

#include <QJsonArray>

namespace vantrosk {

namespace {

struct Cell_Field {
    const char *field;
    Column column;
};
constexpr std::array<Cell_Field, 12> cell_fields{{
    {"name", col_name},
    {"zip", col_zip},
    {"author", col_author},
    {"size", col_size},
    {"score", col_score},
    {"group_score", col_group_score},
    {"last_played", col_last_played},
    {"review", col_review},
    {"finished", col_finished},
    {"ready", col_ready},
    {"zip_date", col_zip_date},
    {"category", col_category},
}};

constexpr std::array<const char *, 8> feature_fields{"new_graphics", "new_objects",   "new_sounds", "scripts",
                                                     "gamesys",      "miss_graphics", "automap",    "videos"};

QString Native(const Program &program, const QString &path) {
    return path.isEmpty() ? QString() : program.files.to_native(path);
}

} // namespace

QJsonObject Row_json(const Fm_Row &row) {
    QJsonObject object;
    for (const Cell_Field &cell : cell_fields)
        object[QLatin1String(cell.field)] = row.cells[cell.column];
    object["game"] = row.game_icon;
    return object;
}

QJsonObject Scan_json(const Program &program) {
    QJsonArray rows;
    for (const Fm_Row &row : program.screen.list.rows)
        rows.append(Row_json(row));
    const Scan_Summary &scan = program.scan;
    return {
        {"game", scan.game == QLatin1String("CUSTOM") ? program.custom_name : scan.game},
        {"caption", scan.caption},
        {"zip_count", scan.zip_count},
        {"total_size", scan.total_size},
        {"completed", scan.completed},
        {"saves", scan.saves},
        {"rows", rows},
        {"undetermined", QJsonArray::fromStringList(scan.undetermined)},
        {"wrong_folder", QJsonArray::fromStringList(scan.wrong_folder)},
        {"not_structured", QJsonArray::fromStringList(scan.not_structured)},
        {"excess_page_path", Native(program, scan.excess_page_path)},
    };
}

QJsonObject Info_json(const Program &program) {
    const Details_Panel &details = program.screen.details;
    QJsonArray languages;
    for (const QString &language : details.languages)
        if (!language.isEmpty())
            languages.append(language);
    QJsonObject features;
    for (std::size_t i = 0; i < feature_fields.size(); ++i)
        features[QLatin1String(feature_fields[i])] = details.features[i];
    QJsonArray tabs;
    for (const Readme_Tab &tab : program.screen.readme_tabs)
        tabs.append(tab.caption);
    const QString page = program.fm.readme_page;
    return {
        {"zip", program.FM_PANEL},
        {"name", details.name},
        {"author", details.author},
        {"game_text", details.game},
        {"active_game", program.CURRENT_GAME},
        {"game_path", Native(program, program.CURRENT_GAME_PATH)},
        {"languages", languages},
        {"mission_files", QJsonArray::fromStringList(program.fm.mission_files)},
        {"features", features},
        {"readme_page_path", Native(program, page)},
        {"title_image_path", Native(program, details.picture_path)},
        {"installed", details.shows_installed},
        {"install_state", program.fm.install_state},
        {"tabs", tabs},
    };
}

QString Outcome_of(const QStringList &panel_1_texts) {
    for (auto text = panel_1_texts.crbegin(); text != panel_1_texts.crend(); ++text)
        if (!text->isEmpty() && *text != "Ready")
            return *text;
    return {};
}

QJsonObject Install_json(bool installed, const QStringList &panel_1_texts) {
    QJsonArray stages;
    for (const QString &text : panel_1_texts)
        if (text.startsWith("Stage "))
            stages.append(text);
    return {{"installed", installed}, {"status", Outcome_of(panel_1_texts)}, {"stages", stages}};
}

QJsonObject Play_json(const Play_Result &result) {
    return {
        {"command", QJsonArray::fromStringList(result.start.command)},
        {"working_folder_path", result.start.working_folder_path},
        {"started", result.started},
    };
}

} // namespace vantrosk
