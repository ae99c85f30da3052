#include "core/Program.h"
#include "library/Custom_Archives.h"
#include "library/Fm_List_View.h"
#include "support/World.h"

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

struct Custom_Archives : testing::Test {
    World world;

    /// A button of the quick-bar with these further lines.
    QString button(int number, const QString &name, const QString &lines = {}) {
        return QString("[QBAR_%1]\r\nisgame=TRUE\r\nGameName=%2\r\n%3\r\n").arg(number).arg(name, lines);
    }
    void quick_bar(const QString &text) { world.write("home/Vantrosk_QBAR.ini", text.toUtf8()); }
    QString quake_lines() {
        return "FMpath=" + world.windows("maps") + "\r\nInstallPath=" + world.windows("games/quake") +
               "\r\nMissionFileExtention=bsp\r\n";
    }
    QStringList listed() {
        QStringList zips;
        for (const Fm_Row &row : world.program().screen.list.rows)
            zips << row.cells[col_zip];
        return zips;
    }
};

} // namespace

TEST_F(Custom_Archives, A_button_tells_all_that_the_list_needs) {
    quick_bar(button(3, "Quake Game",
                     quake_lines() + "mapfile_folder=maps\\\r\nUSE_Map_Folder_Name=true\r\n"
                                     "USE_Full_Folder_Path=FULL*base\r\nsaves_path=C:\\q\\saves\r\n"
                                     "backup_saves_path=C:\\q\\kept\r\nsaves_extentions=sav**qsv\r\n"
                                     "Saves_Includes=quick.sav\r\nMod_Manage=TRUE\r\nMP3=TRUE\r\n"));
    ASSERT_TRUE(Get_archives_of_custom_game(world.program(), "QUAKE game"));
    const Program &program = world.program();
    const Custom_Game &game = program.custom;
    const QStringList told{program.SELECTED_GAME_TAB, program.custom_name,    program.custom_extensions,
                           program.custom_game_path,  game.zip_folders,       game.full_folder_path,
                           game.saves_path,           game.backup_saves_path, game.saves_extensions,
                           game.saves_left_alone};
    EXPECT_EQ(told, (QStringList{"CUSTOM", "Quake Game", "bsp", world.windows("games/quake"),
                                 world.windows("maps") + "*#*", "FULL*base", "C:\\q\\saves", "C:\\q\\kept",
                                 "sav**qsv", "quick.sav"}));
    EXPECT_TRUE(game.use_map_folder && game.mod_manage && game.mp3);
}

TEST_F(Custom_Archives, Of_two_buttons_of_one_name_the_first_counts_and_a_launcher_does_not) {
    world.zip("maps/one.zip", {{"one.bsp", "m", {}}});
    quick_bar("[QBAR_1]\r\nisgame=FALSE\r\nGameName=Quake Game\r\nFMpath=C:\\nowhere\r\n" +
              button(2, "Quake Game", quake_lines()) + button(3, "Quake Game", "FMpath=C:\\nowhere\r\n"));
    ASSERT_TRUE(Get_archives_of_custom_game(world.program(), "Quake Game"));
    EXPECT_EQ(listed(), (QStringList{"Original", "one.zip"}));
}

TEST_F(Custom_Archives, Without_such_a_button_nothing_happens) {
    EXPECT_FALSE(Get_archives_of_custom_game(world.program(), "Quake Game"));
    quick_bar(button(12, "Quake Game", quake_lines()));
    EXPECT_FALSE(Get_archives_of_custom_game(world.program(), "Quake Game"));
    EXPECT_EQ(world.program().SELECTED_GAME_TAB, "");
}

TEST_F(Custom_Archives, Each_click_starts_from_the_settings_of_the_button) {
    world.make_folder("games/quake");
    world.zip("maps/one.zip", {{"base/one/one.bsp", "m", {}}});
    world.zip("maps/two.zip", {{"two.bsp", "m", {}}});
    quick_bar(button(1, "Quake Game",
                     quake_lines() + "USE_Map_Folder_Name=TRUE\r\nUSE_Full_Folder_Path=FULL*base\r\n"));
    Program &program = world.program();
    ASSERT_TRUE(Get_archives_of_custom_game(program, "Quake Game"));
    const auto click = [&](const QString &zip) {
        Row_Click(program, program.screen.list.find_zip(zip), col_name);
        return QStringList{program.fm.custom_mission_folder, program.fm.custom_mission_path,
                           program.custom.full_folder_path, program.CURRENT_GAME_PATH};
    };
    const QString folder = world.windows("games/quake");
    EXPECT_EQ(click("one.zip"), (QStringList{"BASE\\ONE", "one\\", "FULL*base", folder}));
    EXPECT_EQ(click("two.zip"), (QStringList{"", "\\", "FULL*base", folder}));
    EXPECT_EQ(click("one.zip"), (QStringList{"BASE\\ONE", "one\\", "FULL*base", folder}));
    EXPECT_EQ(click("Original"), (QStringList{"", "", "FULL*base", folder}));
}

} // namespace vantrosk
