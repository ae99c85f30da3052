#include "library/Info_World.h"

using namespace vantrosk;

// What the game folder holds against what the record says.

namespace {

struct Info_Installed : Info_World {
    void holds(const QByteArray &zip_name, const QString &code = "T2") {
        world.write("games/" + code + "/current_install.txt", "[ZIP LOCATION]\r\nC:\\FMs\\" + zip_name +
                                                                  "\r\n[ZIP NAME]\r\n" + zip_name +
                                                                  "\r\n[ZIP CONTENTS]\r\n");
    }

    /// State, database, whether the buttons show and allow it, the saves cell.
    QStringList state() {
        return {program.fm.install_state,
                records("installed").join(","),
                details().shows_installed ? "shows" : "",
                details().install_enabled ? "install" : "",
                details().play_enabled ? "play" : "",
                details().saves_text};
    }
};

} // namespace

TEST_F(Info_Installed, Nothing_installed_and_nothing_said) {
    record("T2", ",installed", ",0");
    examine(whole_mission);
    EXPECT_EQ(state(), (QStringList{"not installed", "0", "", "install", "", ""}));
}

TEST_F(Info_Installed, The_record_is_corrected_when_the_game_holds_nothing) {
    record("T2", ",installed", ",1");
    examine(whole_mission);
    EXPECT_EQ(state(), (QStringList{"not installed", "0", "", "install", "", ""}));
}

TEST_F(Info_Installed, The_record_is_corrected_when_the_game_holds_another) {
    record("T2", ",installed", ",1");
    holds("other.zip");
    examine(whole_mission);
    EXPECT_EQ(state(), (QStringList{"other installed", "0", "", "install", "", ""}));
}

TEST_F(Info_Installed, The_record_and_the_game_agree) {
    record("T2", ",installed", ",1");
    holds("VAULT.zip");
    examine(whole_mission);
    EXPECT_EQ(state(), (QStringList{"installed", "1", "shows", "", "play", "Installed"}));
}

TEST_F(Info_Installed, The_record_is_corrected_when_the_game_holds_this_mission) {
    record("T2", ",installed", ",0");
    holds("vault.zip");
    examine(whole_mission);
    EXPECT_EQ(state(), (QStringList{"installed", "1", "shows", "", "play", "Installed"}));
}

TEST_F(Info_Installed, A_new_record_learns_it_too) {
    holds("vault.zip");
    examine(whole_mission);
    EXPECT_EQ(state(), (QStringList{"installed", "1", "shows", "", "play", "Installed"}));
}

TEST_F(Info_Installed, Another_mission_leaves_a_record_that_says_no) {
    record("T2", ",installed", ",0");
    holds("my vault.zip");
    examine(whole_mission);
    EXPECT_EQ(state(), (QStringList{"other installed", "0", "", "install", "", ""}));
}

TEST_F(Info_Installed, The_games_own_missions_are_no_other_mission) {
    record("T2", ",installed", ",0");
    world.write("games/T2/current_install.txt",
                "[ZIP LOCATION]\r\nOriginal\r\n[ZIP NAME]\r\n\r\n[ZIP CONTENTS]\r\n");
    examine(whole_mission);
    EXPECT_EQ(state(), (QStringList{"not installed", "0", "", "install", "", ""}));
}

TEST_F(Info_Installed, Kept_saves_are_told_by_every_name_that_they_may_have) {
    for (const char *name :
         {"saves_vault_v1_2.zip", "saves_vault.v1.2.zip", "vault_v1_2_saves.zip", "vault.v1.2_saves.zip"}) {
        world.write(QString("games/T2/allsaves/") + name, QByteArray(2048, 's'));
        examine(whole_mission, "T2", "vault.v1.2.zip");
        EXPECT_EQ(details().saves_text, "Saves Zip (2 KB)") << name;
        (void)program.files.remove_file(game_path("T2") + "\\allsaves\\" + name);
    }
    examine_again("T2", "vault.v1.2.zip");
    EXPECT_EQ(details().saves_text, "");
}

TEST_F(Info_Installed, Saves_of_thief_3_lie_beside_its_system_folder) {
    world.set_up_game("T3", "games/T3/System", "zips/T3");
    world.write("games/T3/allsaves/saves_vault.zip", "12345");
    examine({{"castle.ibt", "m", {}}}, "T3");
    EXPECT_EQ(details().saves_text, "Saves Zip (5 Bytes)");
}

TEST_F(Info_Installed, Saves_of_a_gold_mission_are_found_from_the_list_of_thief_1) {
    set_up("T1");
    set_up("TG");
    world.write("games/TG/allsaves/saves_vault.zip", "12345");
    examine({a_mission, Readme("Game : Thief Gold\n")}, "T1");
    EXPECT_EQ(details().saves_text, "Saves Zip (5 Bytes)");
}
