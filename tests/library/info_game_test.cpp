#include "library/Info_World.h"

using namespace vantrosk;

namespace {

struct Info_Game : Info_World {
    /// Text of the panel, active game, its folder, its icon.
    QStringList game() const {
        return {details().game, program.CURRENT_GAME, program.CURRENT_GAME_PATH, details().game_icon};
    }
    QStringList expected(const QString &text, const QString &code, const QString &icon = {}) {
        return {text, code, game_path(code == "DOOM" ? QString("DMOD") : code), icon.isEmpty() ? code : icon};
    }
};

const QByteArray question =
    "Vantrosk has not be able to determine what game this is for.\nIs this a THIEF 2 THE "
    "METAL AGE fan mission? If not Vantrosk will attempt to play it on Thief 1";

const Zip_Entry unmarked_titles = Titles("title_20: \"The Vault\"\r\n");

} // namespace

TEST_F(Info_Game, The_readme_decides_and_its_words_are_shown) {
    examine({a_mission, Readme("Game : Thief II: The Metal Age\n")});
    EXPECT_EQ(game(), expected("Thief II: The Metal Age", "T2"));
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST_F(Info_Game, Every_game_is_found_by_its_words) {
    for (const auto &[text, code] : std::vector<std::pair<QString, QString>>{{"Thief 1", "T1"},
                                                                             {"Thief Gold", "TG"},
                                                                             {"Thief 2", "T2"},
                                                                             {"Deadly Shadows", "T3"},
                                                                             {"Dark Metal", "DM"},
                                                                             {"The Dark Mod", "DMOD"},
                                                                             {"Thief 2X", "T2X"},
                                                                             {"System Shock 2", "SS2"}}) {
        set_up(code);
        examine({a_mission, Readme("Game : " + text.toUtf8() + "\n")});
        EXPECT_EQ(game(), expected(text, code)) << text.toStdString();
    }
}

TEST_F(Info_Game, A_game_that_is_not_set_up_is_shown_but_not_active) {
    examine({a_mission, Readme("Game : Thief Gold\n")});
    EXPECT_EQ(game(), (QStringList{"Thief Gold", "", "", "TG"}));
    EXPECT_FALSE(details().install_enabled);
    EXPECT_EQ(records("game"), QStringList());
}

TEST_F(Info_Game, A_gold_mission_in_the_list_of_thief_1_is_active_as_gold) {
    set_up("T1");
    set_up("TG");
    examine({a_mission, Readme("Game : Thief Gold\n")}, "T1");
    EXPECT_EQ(game(), expected("Thief Gold", "TG"));
    EXPECT_EQ(program.SELECTED_GAME_TAB, "T1");
    EXPECT_TRUE(details().install_enabled);
}

TEST_F(Info_Game, The_game_folder_has_no_separator_behind_it) {
    program.ini.T2_GAME_LOCATION += "\\";
    examine({a_mission, Readme("Game : Thief 2\n")});
    EXPECT_EQ(program.CURRENT_GAME_PATH, game_path("T2"));
}

TEST_F(Info_Game, A_numbered_mission_without_titles_and_without_a_record_is_system_shock_2) {
    set_up("SS2");
    examine({a_mission}, "SS2");
    EXPECT_EQ(game(), expected("System Shock 2", "SS2"));
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST_F(Info_Game, A_record_knows_better_than_missing_titles) {
    set_up("T1");
    record("T1");
    examine({a_mission, {"missflag.str", "x", {}}}, "T1");
    EXPECT_EQ(game(), expected("Thief The Dark Project", "T1"));
}

TEST_F(Info_Game, Titles_of_the_games_own_missions_decide_before_the_record) {
    set_up("T1");
    set_up("TG");
    record("T1");
    examine({a_mission, Titles("title_1: \"Song of the Caverns\"\r\n")}, "T1");
    EXPECT_EQ(game(), expected("Thief Gold", "TG"));
}

TEST_F(Info_Game, Titles_give_the_name_too_when_the_readme_has_none) {
    examine({a_mission, Titles("title_20: \"The \"Vault's\" Door\"\r\n\r\ntitle_1: \"Ambush!\"\r\n")});
    EXPECT_EQ(game(), expected("Thief The Metal Age", "T2"));
    EXPECT_EQ(details().name, "The Vault's Door");
}

TEST_F(Info_Game, Titles_are_not_asked_for_missions_of_another_numbering) {
    record("T2");
    examine({{"castle.mis", "m", {}}, Titles("\"Song of the Caverns\"\r\n")});
    EXPECT_EQ(game(), expected("Thief The Metal Age", "T2"));
}

TEST_F(Info_Game, The_record_decides_when_neither_readme_nor_titles_do) {
    for (const auto &[code, text] : std::vector<std::pair<QString, QString>>{{"T1", "Thief The Dark Project"},
                                                                             {"TG", "Thief Gold"},
                                                                             {"T2", "Thief The Metal Age"},
                                                                             {"DM", "Dark Metal"},
                                                                             {"T2X", "Thief 2X"},
                                                                             {"SS2", "System Shock 2"}}) {
        set_up(code);
        record(code, {}, {}, code + ".zip");
        examine({a_mission, unmarked_titles}, code, code + ".zip");
        EXPECT_EQ(game(), expected(text, code));
    }
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST_F(Info_Game, Words_that_name_no_game_leave_the_decision_to_the_record) {
    record("T2");
    examine({a_mission, unmarked_titles, Readme("Game : Some other thing\n")});
    EXPECT_EQ(game(), expected("Thief The Metal Age", "T2"));
}

TEST_F(Info_Game, Yes_to_the_question_is_thief_2_and_is_kept) {
    world.ui.answers = {Answer::yes};
    examine({a_mission, unmarked_titles});
    EXPECT_EQ(world.ui.box_texts(), QStringList(question));
    EXPECT_EQ(game(), expected("Thief 2 The Metal Age", "T2"));
    EXPECT_EQ(records("game"), QStringList("T2"));
    examine_again();
    EXPECT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_EQ(game(), expected("Thief The Metal Age", "T2"));
}

TEST_F(Info_Game, No_to_the_question_is_thief_1) {
    set_up("T1");
    set_up("TG");
    examine({a_mission, unmarked_titles}, "T1");
    EXPECT_EQ(game(), expected("Thief 1 The Dark Project", "T1"));
    EXPECT_EQ(records("game"), QStringList("T1"));
}

TEST_F(Info_Game, No_without_thief_1_is_gold) {
    set_up("TG");
    examine({a_mission, unmarked_titles}, "TG");
    EXPECT_EQ(game(), expected("Thief 1 The Dark Project", "TG"));
}

TEST_F(Info_Game, An_answer_for_another_list_is_not_asked_again) {
    set_up("T1");
    world.ui.answers = {Answer::yes};
    examine({a_mission, unmarked_titles}, "T1");
    EXPECT_EQ(records("game"), QStringList("T2"));
    examine_again("T1");
    EXPECT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_EQ(game(), expected("Thief The Metal Age", "T2"));
    EXPECT_EQ(records("game"), QStringList("T2"));
}

TEST_F(Info_Game, An_answer_for_a_game_that_is_not_set_up_stays_the_active_game) {
    examine({a_mission, unmarked_titles});
    EXPECT_EQ(game(), (QStringList{"Thief 1 The Dark Project", "TG", "", "TG"}));
    EXPECT_EQ(records("game"), QStringList("TG"));
    examine_again();
    EXPECT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_EQ(game(), (QStringList{"Thief Gold", "TG", "", "TG"}));
    EXPECT_EQ(records("game"), QStringList("TG"));
    EXPECT_FALSE(details().install_enabled);
}

TEST_F(Info_Game, Titles_of_a_game_that_is_not_set_up_make_it_active_all_the_same) {
    examine({a_mission, Titles("title_1: \"Song of the Caverns\"\r\n")});
    EXPECT_EQ(game(), (QStringList{"Thief Gold", "TG", "", "TG"}));
}

TEST_F(Info_Game, A_guess_is_no_active_game_where_that_game_is_not_set_up) {
    examine({a_mission});
    EXPECT_EQ(game(), (QStringList{"System Shock 2", "", "", "SS2"}));
    EXPECT_EQ(records("game"), QStringList());
}

TEST_F(Info_Game, A_zip_without_missions_asks_nothing_and_has_no_game) {
    examine({Readme("Title : Just text\n")});
    EXPECT_EQ(game(), (QStringList{"", "", "", ""}));
    EXPECT_TRUE(world.ui.boxes.empty());
    EXPECT_FALSE(details().install_enabled);
}

TEST_F(Info_Game, Thief_3_missions_are_thief_3_whatever_the_readme_says) {
    set_up("T3");
    examine({{"castle.ibt", "m", {}}, Readme("Game : Thief 2\n")}, "T3");
    EXPECT_EQ(game(), expected("Thief Deadly Shadows", "T3"));
}

TEST_F(Info_Game, A_plain_pk4_in_the_dark_mod_list_is_doom_3) {
    set_up("DMOD");
    examine({{"tower.pk4", "m", {}}}, "DMOD");
    EXPECT_EQ(game(), expected("Doom 3", "DOOM", "DMOD"));
    EXPECT_EQ(program.SELECTED_GAME_TAB, "DMOD");
    EXPECT_EQ(records("game"), QStringList("DOOM"));
}

TEST_F(Info_Game, A_marked_pk4_is_the_dark_mod) {
    set_up("DMOD");
    examine({{"darkmod.txt", "Title : Tower\n", {}}, {"tower.pk4", "m", {}}}, "DMOD");
    EXPECT_EQ(game(), expected("Doom 3", "DMOD"));
    EXPECT_TRUE(program.fm.marked_dark_mod);
    EXPECT_EQ(records("game"), QStringList("DMOD"));
}

TEST_F(Info_Game, The_active_game_is_logged) {
    examine({a_mission, Readme("Game : Thief 2\n")});
    const QString log = QString::fromUtf8(world.read("home/debug.log"));
    const QString rule(30, '#');
    EXPECT_TRUE(log.contains(rule + "\r\nCurrent game determined to be = T2 Current game path =" +
                             game_path("T2") + "\r\n" + rule + "\r\n"))
        << log.toStdString();
    EXPECT_TRUE(log.contains("Examining miss20.mis\r\nExamining readme.txt\r\n"));
}
