#include "library/Info_World.h"
#include "library/Mission_Links.h"

namespace vantrosk {

namespace {

constexpr Mission_Link all_links[] = {Mission_Link::walkthrough, Mission_Link::loot_list, Mission_Link::info,
                                      Mission_Link::forum};
constexpr const char *columns[] = {"Walkthrough_url", "LootList_url", "Info_url", "Forum_url"};

struct Mission_Links : Info_World {
    Mission_Links() {
        record("T2");
        examine({a_mission});
        program.FM_PANEL = "vault.zip";
    }
    QString address(Mission_Link link) {
        return Links_of_selection(program).addresses[static_cast<std::size_t>(link)];
    }
};

} // namespace

TEST_F(Mission_Links, Each_is_asked_for_kept_in_its_column_and_found_again) {
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(address(all_links[i]), "");
        const QString told = "http://x.org/it's/" + QString::number(i);
        world.ui.inputs.push_back(told);
        EXPECT_TRUE(Ask_Mission_Link(program, all_links[i]));
        EXPECT_EQ(records(columns[i]), QStringList{told});
        EXPECT_EQ(address(all_links[i]), told);
    }
}

TEST_F(Mission_Links, An_empty_address_removes_the_link) {
    world.ui.inputs.push_back("https://x.org/a");
    ASSERT_TRUE(Ask_Mission_Link(program, Mission_Link::forum));
    world.ui.inputs.push_back("");
    EXPECT_TRUE(Ask_Mission_Link(program, Mission_Link::forum));
    EXPECT_EQ(records("Forum_url"), QStringList{""});
}

TEST_F(Mission_Links, What_is_no_address_or_too_long_is_refused_with_a_warning) {
    for (const QString &told : {QString("http"), QString("http://"), QString("httpx://a.org"),
                                "http://x.org/" + QString(250, 'a')}) {
        world.ui.inputs.push_back(told);
        EXPECT_FALSE(Ask_Mission_Link(program, Mission_Link::info)) << told.toStdString();
        ASSERT_FALSE(world.ui.boxes.empty());
        EXPECT_TRUE(
            world.ui.boxes.back().text.startsWith("This is no address that a link can lead to: http"));
    }
    EXPECT_EQ(records("Info_url"), QStringList{"<null>"});
}

TEST_F(Mission_Links, A_cancelled_or_unchanged_answer_changes_nothing) {
    EXPECT_FALSE(Ask_Mission_Link(program, Mission_Link::info));
    world.ui.inputs.push_back("http://x.org/");
    EXPECT_TRUE(Ask_Mission_Link(program, Mission_Link::info));
    world.ui.inputs.push_back("http://x.org/");
    EXPECT_FALSE(Ask_Mission_Link(program, Mission_Link::info));
}

TEST_F(Mission_Links, A_stored_value_that_is_no_address_is_no_link) {
    for (const char *stored :
         {"false", "javascript:alert(1)", "file:///etc/passwd", "www.x.org", "mailto:a@x.org"}) {
        db_Execute(program, QString("UPDATE Table_Scores SET Walkthrough_url = '%1'").arg(stored));
        EXPECT_EQ(address(Mission_Link::walkthrough), "") << stored;
        EXPECT_TRUE(Links_of_selection(program).has_record);
    }
}

TEST_F(Mission_Links, Without_a_mission_or_a_record_there_is_nothing_to_ask) {
    program.FM_PANEL = "other.zip";
    EXPECT_FALSE(Links_of_selection(program).has_record);
    EXPECT_FALSE(Ask_Mission_Link(program, Mission_Link::forum));
    program.FM_PANEL = "vault.zip";
    program.screen.no_mission_selected = true;
    EXPECT_FALSE(Links_of_selection(program).has_record);
    EXPECT_FALSE(Ask_Mission_Link(program, Mission_Link::forum));
    EXPECT_TRUE(world.ui.asked.empty());
}

} // namespace vantrosk
