#include "core/Games.h"
#include "core/mdlStartup.h"
#include "support/World.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct Path_Row {
    QString Paths::*path;
    const char *value;
};

struct Game_Row {
    const char *code, *name, *number, *original;
    QString Main_Ini::*fm_folders;
    QString Main_Ini::*game_folder;
};

struct Text_Row {
    const char *code, *text;
};

} // namespace

TEST(Program_Paths, Each_lies_at_its_place_below_the_program) {
    const Path_Row rows[] = {
        {&Paths::AppPath, "C:\\VK"},
        {&Paths::database, "C:\\VK\\Vantrosk.mdb;"},
        {&Paths::current_skin, "C:\\VK\\skins\\current\\"},
        {&Paths::skins, "C:\\VK\\skins\\"},
        {&Paths::temp, "C:\\VK\\temp\\"},
        {&Paths::tools, "C:\\VK\\tools\\"},
        {&Paths::titles, "C:\\VK\\titles\\"},
        {&Paths::info, "C:\\VK\\INFO\\"},
        {&Paths::help, "C:\\VK\\help\\"},
        {&Paths::enhancements, "C:\\VK\\Enhancements\\"},
        {&Paths::cheats, "C:\\VK\\cheats\\"},
        {&Paths::custom_game_images, "C:\\VK\\custom_game_images\\"},
        {&Paths::game_support, "C:\\VK\\Game_support\\"},
        {&Paths::references, "C:\\VK\\references\\"},
        {&Paths::error_screenshots, "C:\\VK\\ERRORS\\screenshots\\"},
        {&Paths::main_ini, "C:\\VK\\Vantrosk.ini"},
        {&Paths::tweaks_ini, "C:\\VK\\Vantrosk_Tweaks.ini"},
        {&Paths::qbar_ini, "C:\\VK\\Vantrosk_QBAR.ini"},
        {&Paths::runonce_notes, "C:\\VK\\VK_runonce_notes.txt"},
        {&Paths::install_recover_log, "C:\\VK\\install_recover.log"},
        {&Paths::debug_log, "C:\\VK\\debug.log"},
    };
    const Paths paths("C:\\VK");
    for (const Path_Row &row : rows)
        EXPECT_EQ((paths.*(row.path)).toStdString(), row.value);
}

TEST(Game_Table, Each_game_has_its_row) {
    const Game_Row rows[] = {
        {"T1", "Thief The Dark Project", "1", "Thief 1 Original Missions", &Main_Ini::T1_LOCATION,
         &Main_Ini::T1_GAME_LOCATION},
        {"TG", "Thief Gold", "2", "Thief Gold Original Missions", &Main_Ini::TG_LOCATION,
         &Main_Ini::TG_GAME_LOCATION},
        {"T2", "Thief The Metal Age", "3", "Thief 2 Original Missions", &Main_Ini::T2_LOCATION,
         &Main_Ini::T2_GAME_LOCATION},
        {"T3", "Thief Deadly Shadows", "4", "Thief 3 Original Missions", &Main_Ini::T3_LOCATION,
         &Main_Ini::T3_GAME_LOCATION},
        {"DM", "Dark Metal", "8", "Thief 2 Dark Metal Original Missions", &Main_Ini::DM_LOCATION,
         &Main_Ini::DM_GAME_LOCATION},
        {"DMOD", "The Dark Mod", "12", "Dark Mod Original Missions", &Main_Ini::DMOD_LOCATION,
         &Main_Ini::DMOD_GAME_LOCATION},
        {"T2X", "Thief 2X", "15", "T2X Original Missions", &Main_Ini::T2X_LOCATION,
         &Main_Ini::T2X_GAME_LOCATION},
        {"SS2", "System Shock 2", "16", "System Shock 2 Original Missions", &Main_Ini::SS2_LOCATION,
         &Main_Ini::SS2_GAME_LOCATION},
    };
    ASSERT_EQ(Games().size(), std::size(rows));
    for (std::size_t index = 0; index < std::size(rows); ++index) {
        const Game &game = Games()[index];
        const Game_Row &row = rows[index];
        EXPECT_STREQ(game.code, row.code);
        EXPECT_STREQ(game.name, row.name);
        EXPECT_STREQ(game.number, row.number);
        EXPECT_STREQ(game.original_name, row.original);
        EXPECT_EQ(game.fm_folders, row.fm_folders) << row.code;
        EXPECT_EQ(game.game_folder, row.game_folder) << row.code;
        EXPECT_EQ(Find_Game(row.code), &game);
        EXPECT_EQ(Find_Game(QString(row.code).toLower()), &game);
    }
}

TEST(Game_Table, Doom_and_unknown_codes_have_no_list) {
    EXPECT_EQ(Find_Game("DOOM"), nullptr);
    EXPECT_EQ(Find_Game(""), nullptr);
    EXPECT_EQ(Find_Game("T"), nullptr);
}

TEST(Game_Table, The_folder_of_each_code_and_Doom_shares_that_of_The_Dark_Mod) {
    Main_Ini ini;
    for (const Game &game : Games())
        ini.*(game.game_folder) = QString("C:\\") + game.code;
    for (const Game &game : Games())
        EXPECT_EQ(Game_Folder(ini, game.code), QString("C:\\") + game.code);
    EXPECT_EQ(Game_Folder(ini, "DOOM"), "C:\\DMOD");
    EXPECT_EQ(Game_Folder(ini, "doom"), "C:\\DMOD");
    EXPECT_EQ(Game_Folder(ini, "other"), "");
    EXPECT_EQ(Game_Folder(Main_Ini(), "T2"), "");
}

TEST(Game_Table, The_text_of_each_code) {
    constexpr Text_Row rows[] = {{"T1", "Thief The Dark Project"},
                                 {"TG", "Thief Gold"},
                                 {"T2", "Thief The Metal Age"},
                                 {"T3", "Thief Deadly Shadows"},
                                 {"DM", "Dark Metal"},
                                 {"DMOD", "The Dark Mod"},
                                 {"T2X", "Thief 2X"},
                                 {"SS2", "System Shock 2"},
                                 {"DOOM", "Doom 3"},
                                 {"doom", "Doom 3"},
                                 {"other", ""},
                                 {"", ""}};
    for (const Text_Row &row : rows)
        EXPECT_EQ(Game_Text(row.code).toStdString(), row.text) << row.code;
}

TEST(Fm_List, A_zip_is_found_by_the_text_of_its_cell_in_any_case) {
    Fm_List list;
    EXPECT_EQ(list.find_zip("a.zip"), -1);
    for (const char *name : {"Original", "Calendra.zip", "Été.zip", "calendra.ZIP"}) {
        list.rows.emplace_back();
        list.rows.back().cells[col_zip] = QString::fromUtf8(name);
    }
    EXPECT_EQ(list.find_zip("CALENDRA.ZIP"), 1);
    EXPECT_EQ(list.find_zip(QString::fromUtf8("éTÉ.zip")), 2);
    EXPECT_EQ(list.find_zip("original"), 0);
    EXPECT_EQ(list.find_zip("Calendra"), -1);
}

TEST(Constants, The_build_tells_itself) {
    EXPECT_STREQ(build_number, "14194");
    EXPECT_EQ(Window_Title(), "Vantrosk1.4194 - 3-March-09");
    EXPECT_EQ(QString(category_keywords).split(',').size(), 24);
}
