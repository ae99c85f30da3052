#include "library/Info_World.h"

using namespace vantrosk;

namespace {

const Zip_Entry form{"forms/VKCompetition.vkcr", "[INFO]\r\nTitle=x\r\n", {}};

struct Info_Tabs : Info_World {
    QString form_file, reviewed; ///< what the pages were asked for
    QString form_page = "C:\\temp\\Competitionform.htm", review_page = "C:\\temp\\RSS_feed1.htm";

    Info_Tabs() {
        program.tab_pages.competition = [this](const QString &file) {
            form_file = file;
            return form_page;
        };
        program.tab_pages.review = [this](const QString &name) {
            reviewed = name;
            return review_page;
        };
    }

    /// The review feed is on and has brought something.
    void feed() {
        program.tweaks.QUILLMARCH = 7;
        world.write("home/temp/Quillmarch.txt", "<item></item>\r\n");
    }

    QStringList tabs() const {
        QStringList list;
        for (const Readme_Tab &tab : program.screen.readme_tabs)
            list << tab.key + "|" + tab.caption + "|" + tab.page;
        return list;
    }

    void examine_with(const Zip_Entry &entry) {
        std::vector<Zip_Entry> entries = whole_mission;
        entries.push_back(entry);
        examine(entries);
    }
};

} // namespace

TEST_F(Info_Tabs, A_mission_without_a_form_and_a_review_has_none) {
    examine(whole_mission);
    EXPECT_EQ(tabs(), QStringList());
    EXPECT_EQ(world.ui.third_pages, QStringList());
}

TEST_F(Info_Tabs, A_competition_has_a_tab_and_its_page_is_shown) {
    examine_with(form);
    EXPECT_EQ(form_file, info_path("VKCOMPETITION.VKCR"));
    EXPECT_EQ(tabs(), QStringList("Competition|Competition Form|" + form_page));
    EXPECT_EQ(world.ui.third_pages, QStringList(form_page));
}

TEST_F(Info_Tabs, A_feedback_form_is_called_by_its_name) {
    form_page = "C:\\temp\\FEEDBACKFORM.htm";
    examine_with(form);
    EXPECT_EQ(tabs(), QStringList("Competition|FM Feedback Form|" + form_page));
}

TEST_F(Info_Tabs, A_competition_that_is_over_leaves_no_tab) {
    form_page.clear();
    examine_with(form);
    EXPECT_EQ(tabs(), QStringList());
}

TEST_F(Info_Tabs, Nobody_makes_a_page_and_there_is_no_tab) {
    program.tab_pages = {};
    feed();
    examine_with(form);
    EXPECT_EQ(tabs(), QStringList());
}

TEST_F(Info_Tabs, The_reviews_of_a_mission_have_a_tab_behind_the_form) {
    feed();
    examine_with(form);
    EXPECT_EQ(reviewed, "The Vault");
    EXPECT_EQ(tabs(), (QStringList{"Competition|Competition Form|" + form_page,
                                   "Quillmarch|Quillmarch Review|" + review_page}));
    EXPECT_EQ(world.ui.third_pages, (QStringList{form_page, review_page}));
}

TEST_F(Info_Tabs, Reviews_need_the_feed_its_store_and_a_name) {
    feed();
    program.tweaks.QUILLMARCH = 0;
    examine(whole_mission);
    EXPECT_EQ(tabs(), QStringList());
    program.tweaks.QUILLMARCH = 7;
    examine({a_mission, Readme("Game : Thief 2\n")}, "T2", "nameless.zip");
    EXPECT_EQ(tabs(), QStringList());
    EXPECT_EQ(reviewed, "");
    (void)program.files.remove_file(world.windows("home") + "\\temp\\Quillmarch.txt");
    examine(whole_mission);
    EXPECT_EQ(tabs(), QStringList());
}

TEST_F(Info_Tabs, A_mission_without_a_review_has_no_tab) {
    feed();
    review_page.clear();
    examine(whole_mission);
    EXPECT_EQ(reviewed, "The Vault");
    EXPECT_EQ(tabs(), QStringList());
}

TEST_F(Info_Tabs, Tabs_whose_reason_has_gone_go) {
    feed();
    examine_with(form);
    program.screen.readme_tabs.push_back({"MP_OPTIONS", "Multi-Player Options", {}});
    program.tweaks.QUILLMARCH = 0;
    examine(whole_mission);
    EXPECT_EQ(tabs(), QStringList());
}

TEST_F(Info_Tabs, A_zip_that_can_not_be_read_has_none) {
    examine_with(form);
    world.write("zips/T2/vault.zip", "no archive");
    examine_again();
    EXPECT_EQ(tabs(), QStringList());
}

// Loot lists.

TEST_F(Info_Tabs, A_loot_list_is_kept_for_the_loot_tool) {
    examine_with({"loot/LOOT_VAULT.VKL", "list", {}});
    EXPECT_EQ(world.read("home/cheats/LOOT_VAULT.VKL"), "list");
}

TEST_F(Info_Tabs, Of_several_loot_lists_the_last_is_kept) {
    examine({a_mission, {"a.vkl", "1", {}}, {"b.vkl", "2", {}}});
    EXPECT_EQ(Names(world.snapshot("home/cheats")).filter("vkl"), QStringList("b.vkl"));
}

TEST_F(Info_Tabs, The_users_own_lists_are_never_replaced) {
    world.write("home/cheats/LOOT.VKL", "mine");
    examine_with({"loot.vkl", "list", {}});
    EXPECT_EQ(world.read("home/cheats/LOOT.VKL"), "mine");
    EXPECT_EQ(world.read("home/cheats/LOOT_vault.VKL"), "list");
}
