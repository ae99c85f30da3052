#include "library/Info_World.h"
#include "support/Page_Checker.h"

using namespace vantrosk;

namespace {

struct Info_Page : Info_World {
    QString page() {
        const QString html =
            QString::fromUtf8(program.files.read_file(program.fm.readme_page, 1 << 24).value);
        EXPECT_EQ(Wrong_in_page(html).toStdString(), "");
        return html;
    }
    bool says(const QString &words) { return page().contains(words); }

    const Zip_Entry text{
        "readme.txt", "Title : The Vault\nAuthor : Ann\nGame : Thief 2\nContact: ann@x.org\n", {}};
    const Zip_Entry vkml{
        "readme.vkml",
        "[VKFMSTRUCTURE]Mission Title : Vault[/VKFMSTRUCTURE]\n[VKAUTHOR]Author : Ann[/VKAUTHOR]\n"
        "[VKAUTHOR]Contact Info : ann@x.org[/VKAUTHOR]\n",
        {}};
};

} // namespace

TEST_F(Info_Page, Both_kinds_of_readme_show_what_the_record_knows) {
    record("T2", ",score,average_score,group_submissions,Walkthrough_url", ",6,8,40,'http://w.example'");
    for (const Zip_Entry &readme : {text, vkml}) {
        examine({readme, a_mission});
        EXPECT_TRUE(says("You gave this 6 ("));
        EXPECT_TRUE(says("40 people from the Thief community gave this an average score of 8 "));
        EXPECT_TRUE(says("WalkThrough Available: <a href='http://w.example'"));
        EXPECT_TRUE(says("Supported Languages: "));
    }
}

TEST_F(Info_Page, The_record_of_the_second_game_of_a_list_counts_before_the_game_is_settled) {
    set_up("T1");
    set_up("TG");
    record("TG", ",score", ",9");
    examine({text, a_mission}, "T1");
    EXPECT_TRUE(says("You gave this 9 ("));
    set_up("DMOD");
    record("DOOM", ",score", ",5", "red.zip");
    examine({text, {"red.pk4", "x", {}}}, "DMOD", "red.zip");
    EXPECT_TRUE(says("You gave this 5 ("));
}

TEST_F(Info_Page, A_record_of_another_list_does_not_count) {
    record("SS2", ",score", ",9");
    examine({text, a_mission});
    EXPECT_TRUE(says("You have not scored this yet."));
}

TEST_F(Info_Page, A_zip_with_a_quote_in_its_name_finds_its_record) {
    record("T2", ",score", ",9", "ann's \"vault\".zip");
    examine({text, a_mission}, "T2", "ann's \"vault\".zip");
    EXPECT_TRUE(says("You gave this 9 ("));
}

TEST_F(Info_Page, Name_and_score_of_the_row_go_into_the_mail) {
    world.zip("zips/T2/vault.zip", {text, a_mission});
    program.SELECTED_GAME_TAB = "T2";
    Fm_Row row;
    row.cells[col_zip] = "vault.zip";
    row.cells[col_name] = "Vault, The ";
    row.cells[col_score] = "10";
    program.screen.list.rows = {row};
    program.screen.list.current_row = 0;
    Get_Info(program, "vault.zip");
    EXPECT_TRUE(
        says("[The Vault]&body=Ann,%0AI am just dropping you an email to let you know that I really enjoyed "
             "Vault, The, and gave it full marks, when is your next mission coming out%3F%0A"));
}

TEST_F(Info_Page, Languages_come_from_the_folders_of_the_zip) {
    program.ini.LANGUAGE = "ENGLISH";
    examine({text, a_mission, {"strings/french/a.str", "x", {}}});
    EXPECT_TRUE(says("Supported Languages: French. VK will use the English/Default language files."));
    examine({text, a_mission});
    EXPECT_TRUE(
        says("Supported Languages: <span class='HIGHLIGHTLIME TEXTBLACK'> English </span>. VK will use the "
             "English language files."));
}

TEST_F(Info_Page, The_missions_own_picture_stands_on_its_page) {
    examine({text, a_mission, {"VKTitle.jpg", "picture", {}}});
    EXPECT_TRUE(says("<img src='VKTitle.jpg' style="));
    examine({vkml, a_mission, {"VKTitle.jpg", "picture", {}}});
    EXPECT_TRUE(says("<img src='VKTitle.jpg' style="));
    examine({vkml, a_mission});
    EXPECT_FALSE(says("rowspan"));
}

TEST_F(Info_Page, Keywords_of_the_readme_are_suggested_where_the_record_has_none) {
    const Zip_Entry words{"readme.txt", "Guards in a Mansion.\nGame : Thief 2\n", {}};
    record("T2");
    examine({words, a_mission});
    EXPECT_EQ(details().keywords, "Guards,Mansion");
    record("T2", ",categories_list", ",'Fun'", "other.zip");
    examine({words, a_mission}, "T2", "other.zip");
    EXPECT_EQ(details().keywords, "Fun");
}
