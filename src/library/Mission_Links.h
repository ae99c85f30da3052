#pragma once

#include <QString>

#include <array>

namespace vantrosk {

struct Program;

/// The links that a mission's record holds and its readme page shows.
enum class Mission_Link { walkthrough, loot_list, info, forum, count };

using Mission_Link_List = std::array<QString, static_cast<std::size_t>(Mission_Link::count)>;

/// The links of the selected mission; all empty without a mission or a record.
struct Selected_Links {
    bool has_record = false;
    Mission_Link_List addresses;
};
Selected_Links Links_of_selection(Program &program);

/// Whether a link may lead there: an address of the web that the record has room for.
bool Is_link_address(const QString &address);
/// Asks the user for a link of the selected mission and keeps it; an empty one removes it. False when nothing
/// has changed.
bool Ask_Mission_Link(Program &program, Mission_Link link);

} // namespace vantrosk
