#include "library/Mission_Links.h"

#include "core/Program.h"
#include "core/mdlDB_Functions.h"
#include "core/mdlDebug.h"
#include "core/mdlFormDisplayFunctions.h"
#include "library/Info_Run.h"

#include <QUrl>

namespace vantrosk {

namespace {

constexpr qsizetype address_room = 250; ///< characters of a link's column

struct Link_Row {
    const char *column;
    const char *title;
    const char *what; ///< as a sentence says it
};

constexpr std::array<Link_Row, static_cast<std::size_t>(Mission_Link::count)> link_rows{{
    {"Walkthrough_url", "Walkthrough", "a walkthrough"},
    {"LootList_url", "Loot List", "a loot list"},
    {"Info_url", "Additional Info", "more about it"},
    {"Forum_url", "Forum Thread", "its forum thread"},
}};

const Link_Row &Row_of(Mission_Link link) {
    return link_rows[static_cast<std::size_t>(link)];
}

/// The record that the readme's page reads.
Recordset Selected_record(Program &program) {
    if (program.screen.no_mission_selected || program.FM_PANEL.isEmpty())
        return {};
    const bool custom = program.SELECTED_GAME_TAB == QLatin1String("CUSTOM");
    const QString key = custom ? program.custom_name : program.SELECTED_GAME_TAB;
    return db_Query(program, "SELECT * FROM Table_Scores WHERE zip_name = " +
                                 In_double_quotes(program.FM_PANEL) + Game_condition(key));
}

void Keep(Program &program, const Link_Row &row, const QString &game, const QString &address) {
    db_Execute(program, "UPDATE Table_Scores SET " + QString(row.column) + " = " + In_single_quotes(address) +
                            " WHERE zip_name = " + In_double_quotes(program.FM_PANEL) +
                            " and game = " + In_single_quotes(game));
}

} // namespace

Selected_Links Links_of_selection(Program &program) {
    Selected_Links links;
    const Recordset record = Selected_record(program);
    links.has_record = !record.is_empty();
    for (std::size_t i = 0; links.has_record && i < link_rows.size(); ++i) {
        const QString address = record.text(0, link_rows[i].column);
        if (Is_link_address(address))
            links.addresses[i] = address;
    }
    return links;
}

bool Is_link_address(const QString &address) {
    static const QStringList schemes{"http", "https", "ftp"};
    const QUrl url(address);
    return address.size() <= address_room && url.isValid() && !url.host().isEmpty() &&
           schemes.contains(url.scheme());
}

bool Ask_Mission_Link(Program &program, Mission_Link link) {
    const Recordset record = Selected_record(program);
    if (record.is_empty()) {
        debug_print(program, "README TOOLBAR: no record to keep a link in");
        return false;
    }
    const Link_Row &row = Row_of(link);
    const QString before = record.text(0, row.column);
    const QString told =
        Ask_Input(program, row.title,
                  QString("Where in the web is %1 for this mission? An empty address removes the link.")
                      .arg(row.what),
                  "http", before, {})
            .trimmed();
    if (told == "VKABORT" || told == before)
        return false;
    if (!told.isEmpty() && !Is_link_address(told)) {
        Show_Warning(program, row.title,
                     "This is no address that a link can lead to: " + told.left(address_room));
        return false;
    }
    Keep(program, row, record.text(0, "game"), told);
    return true;
}

} // namespace vantrosk
