#include "library/Fm_Filters.h"

#include "core/Program.h"

#include <array>

namespace vantrosk {

namespace {

constexpr std::array<const char *, 4> rating_captions{"Show Only High Rated FMs",
                                                      "Show Only Average Rated FMs",
                                                      "Show Only Low Rated FMs", "Show Only Un-scored FMs"};
constexpr std::array<const char *, 4> other_captions{"FMs I have NOT played", "FMs I have Played",
                                                     "FMs I have NOT completed", "FMs I have completed"};

enum Menu_Kind { my_ratings, group_ratings, other, categories };

struct Menu_Row {
    const char *ending; ///< of the menu's name, behind the game's code
    const char *caption;
    int first_filter;
};
constexpr std::array<Menu_Row, 4> menu_rows{{
    {"_Show_my", "My Ratings", 1},
    {"_group_Show_rate", "Group Ratings", 11},
    {"_FMs_I", "Other", 21},
    {"_categories", "Categories", 31},
}};

/// How many of the menus a game has, from the first on.
struct Game_Menus {
    const char *code;
    std::size_t menus;
};
constexpr std::array<Game_Menus, 6> game_menus{
    {{"T1", 4}, {"TG", 4}, {"T2", 4}, {"T3", 4}, {"SS2", 3}, {"DMOD", 2}}};

QStringList Captions_of(const Program &program, std::size_t kind) {
    if (kind == categories)
        return program.categories;
    QStringList captions;
    for (const char *caption : kind == other ? other_captions : rating_captions)
        captions << caption;
    return captions;
}

} // namespace

std::vector<Filter_Menu> Filter_Menus(const Program &program, const QString &game_code) {
    std::vector<Filter_Menu> menus;
    for (const Game_Menus &game : game_menus) {
        if (game_code != QLatin1String(game.code))
            continue;
        for (std::size_t kind = 0; kind < game.menus; ++kind) {
            const Menu_Row &row = menu_rows[kind];
            Filter_Menu menu{game_code + row.ending, row.caption, {}};
            int filter = row.first_filter;
            for (const QString &caption : Captions_of(program, kind))
                menu.entries.push_back({caption, filter++});
            menus.push_back(std::move(menu));
        }
    }
    return menus;
}

QString Filter_Text(const Program &program, const QString &game_code, int filter) {
    if (filter == 0)
        return {};
    for (const Filter_Menu &menu : Filter_Menus(program, game_code)) {
        for (const Filter_Entry &entry : menu.entries) {
            if (entry.filter == filter)
                return menu.caption + ": " + entry.caption;
        }
    }
    return QString("Filter %1").arg(filter);
}

} // namespace vantrosk
