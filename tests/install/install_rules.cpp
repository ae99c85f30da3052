#include "install/Install_World.h"

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

/// Two files that every mission here has, so that none is a mission of one file.
const std::vector<Zip_Entry> companions{{"aa.str", "x", {}}, {"zz.str", "x", {}}};

struct Rule_Case {
    const char *game;
    const char *entry;
    bool extracted;
    bool listed;
};

struct Outcome {
    bool extracted;
    QStringList lines; ///< of the undo list without those of the companions
};

Outcome Install_entry(Install_World &world, const QString &entry) {
    std::vector<Zip_Entry> entries = companions;
    entries.push_back({entry.toUtf8(), "content", {}});
    world.mission("m.zip", entries);
    EXPECT_TRUE(world.install("m.zip")) << world.ui.trace.join('\n').toStdString();
    QStringList lines = world.listed();
    lines.removeOne("aa.str");
    lines.removeOne("zz.str");
    return {world.exists(world.in_game(entry)), lines};
}

class Install_Rules : public testing::TestWithParam<Rule_Case> {};

TEST_P(Install_Rules, Decide_what_is_extracted_and_what_is_listed) {
    const Rule_Case &row = GetParam();
    Install_World world(row.game);
    const Outcome outcome = Install_entry(world, row.entry);
    EXPECT_EQ(outcome.extracted, row.extracted);
    const QString line = world.code == "T3" ? world.game_path().toUpper() : QString();
    QStringList expected;
    if (row.listed)
        expected << QString(row.entry);
    EXPECT_EQ(outcome.lines, expected);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Install_Rules,
    testing::Values(
        Rule_Case{"T2", "with[bracket.txt", false, false}, Rule_Case{"T2", "with]bracket.txt", false, false},
        Rule_Case{"T2", "[folder]/inside.txt", true, true}, Rule_Case{"T2", "noextension", false, false},
        Rule_Case{"T2", "folder.d/noextension", false, false}, Rule_Case{"T2", "map.cbt", true, true},
        Rule_Case{"T2", "new.osm", true, true}, Rule_Case{"T2", "new.OSL", true, true},
        Rule_Case{"SS2", "new.dlx", true, true}, Rule_Case{"T2", "setup.exe", false, false},
        Rule_Case{"T2", "run.COM", false, false}, Rule_Case{"T2", "run.bat", false, false},
        Rule_Case{"T2", "devil.dll", false, false}, Rule_Case{"T2", "page.htm", false, false},
        Rule_Case{"T2", "page.HTML", false, false}, Rule_Case{"T2", "Thumbs.db", false, false},
        Rule_Case{"T2", "thumbs.db.txt", true, true}, Rule_Case{"T2", "miss20.mis", true, true},
        Rule_Case{"T2", "Intrface/miss20/page001.pcx", true, true},
        Rule_Case{"T1", "Intrface/miss20/PAGE000.pcx", true, true},
        Rule_Case{"SS2", "anything.else", true, true}, Rule_Case{"DMOD", "setup.exe", true, false},
        Rule_Case{"DMOD", "DevIL.dll", true, false}, Rule_Case{"DMOD", "game.htm", true, false},
        Rule_Case{"DMOD", "sound/music.ogg", true, false}, Rule_Case{"DMOD", "sound/music.mp3", true, false},
        Rule_Case{"DMOD", "maps/a.map", true, true}, Rule_Case{"DMOD", "new.osm", true, true}));

TEST(Install_Rules_More, Scripts_are_replaced_only_by_newer_ones) {
    const QDateTime present(QDate(2010, 5, 5), QTime(10, 0));
    for (const char *name : {"a.osm", "a.osl", "a.dlx"}) {
        for (const int seconds : {-2, 0, 2}) {
            Install_World world;
            world.game_has(name, "present");
            ASSERT_FALSE(world.platform.files->set_modified(world.game_path(name), present));
            std::vector<Zip_Entry> entries = companions;
            entries.push_back({name, "arriving", present.addSecs(seconds)});
            world.mission("m.zip", entries);
            ASSERT_TRUE(world.install("m.zip"));
            EXPECT_EQ(world.game_file(name), seconds > 0 ? "arriving" : "present") << name << seconds;
            EXPECT_EQ(world.listed().contains(name), seconds > 0) << name << seconds;
            ASSERT_TRUE(world.restore());
            EXPECT_EQ(world.game_file(name), "present") << name << seconds;
        }
    }
}

TEST(Install_Rules_More, Music_is_listed_with_the_wave_file_to_be_made) {
    Install_World world;
    std::vector<Zip_Entry> entries = companions;
    entries.push_back({"Snd/Horn.mp3", "no sound", {}});
    entries.push_back({"song.OGG", "no sound", {}});
    world.mission("m.zip", entries);
    world.ui.answers = {Answer::yes, Answer::yes};
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_EQ(world.listed(),
              (QStringList{"SONG.WAV", "Snd/HORN.WAV", "Snd/Horn.mp3", "aa.str", "song.OGG", "zz.str"}));
}

TEST(Install_Rules_More, Music_of_a_custom_game_stays_as_it_is) {
    Install_World world;
    world.program().SELECTED_GAME_TAB = "CUSTOM";
    EXPECT_EQ(Install_entry(world, "snd/horn.mp3").lines, QStringList{"snd/horn.mp3"});
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST(Install_Rules_More, A_wave_file_of_the_game_is_backed_up_before_music_replaces_it) {
    Install_World world;
    world.game_has("snd/horn.wav", "original horn");
    const Snapshot before = world.game();
    std::vector<Zip_Entry> entries = companions;
    entries.push_back({"snd/horn.mp3", "no sound", {}});
    world.mission("m.zip", entries);
    world.ui.answers = {Answer::yes};
    ASSERT_TRUE(world.install("m.zip"));
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.game(), before);
}

TEST(Install_Rules_More, Doom_files_without_a_line_come_back_when_they_were_the_games_own) {
    Install_World world("DMOD");
    world.game_has("doom3.exe", "the game");
    world.game_has("DevIL.dll", "its library");
    world.game_has("sound/theme.ogg", "its music");
    world.mission("m.zip", {{"doom3.exe", "patched", {}},
                            {"devil.dll", "patched", {}},
                            {"sound/theme.ogg", "other", {}},
                            {"new.exe", "stays", {}},
                            {"a.map", "x", {}},
                            {"b.map", "x", {}}});
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_EQ(world.game_file("doom3.exe"), "patched");
    EXPECT_EQ(world.listed(), (QStringList{"a.map", "b.map"}));
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.game_file("doom3.exe"), "the game");
    EXPECT_EQ(world.game_file("DevIL.dll"), "its library");
    EXPECT_EQ(world.game_file("sound/theme.ogg"), "its music");
    EXPECT_EQ(world.game_file("new.exe"), "stays");
}

TEST(Install_Rules_More, A_skin_goes_to_the_skins_folder_once_and_is_not_listed) {
    Install_World world;
    std::vector<Zip_Entry> entries = companions;
    entries.push_back({"extras/VkSkin.zip", "a skin", {}});
    world.mission("the.keep.zip", entries);
    ASSERT_TRUE(world.install("the.keep.zip"));
    EXPECT_EQ(world.listed(), (QStringList{"aa.str", "zz.str"}));
    EXPECT_EQ(world.read("home/skins/THE.KEEP_SKIN.ZIP"), "a skin");
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_EQ(world.ui.boxes[0].title, "New Skin Found");
    EXPECT_EQ(world.ui.boxes[0].buttons, Buttons::yes_no);
    EXPECT_EQ(world.ui.boxes[0].text, "A new custom skin for Vantrosk has been detected in this FM.\r\nIt "
                                      "has been added to your skins folder "
                                      "and can be found in PREDEFINED SKINS section of the DISPLAY tab in "
                                      "the TWEAKS TOOL.\r\nThis new skin is "
                                      "likely to be designed to acompany this FM so you may want to activate "
                                      "it before playing.Would you likw "
                                      "to set it now?");
    world.write("home/skins/THE.KEEP_SKIN.ZIP", "the user's own");
    ASSERT_TRUE(world.install("the.keep.zip"));
    EXPECT_EQ(world.read("home/skins/THE.KEEP_SKIN.ZIP"), "the user's own");
    EXPECT_TRUE(world.ui.boxes.empty());
}

/// A skin package as a mission brings it.
QByteArray Skin_package(const World &world, const std::vector<Zip_Entry> &entries) {
    Make_zip(world.native("skin_of_the_mission.zip"), entries);
    return world.read("skin_of_the_mission.zip");
}

TEST(Install_Rules_More, A_skin_that_is_wanted_is_put_on_at_once) {
    Install_World world;
    world.write("home/skins/current/older.gif", "of the last skin");
    world.mission("m.zip",
                  {{"a.mis", "x"},
                   {"VKSKIN.ZIP", Skin_package(world, {{"skininfo.ini", "[SKININFO]\r\nName=Night\r\n"},
                                                       {"pics/glyph.gif", "a picture"},
                                                       {"evil.EXE", "x"},
                                                       {"page.htm", "x"}})}});
    int applied = 0;
    Set_Later_Step(world.program(), Later_Step::apply_skin, [&] { ++applied; });
    world.ui.answers = {Answer::yes};
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_EQ(world.snapshot("home/skins/current"),
              (Snapshot{{"glyph.gif", "a picture"}, {"skininfo.ini", "[SKININFO]\r\nName=Night\r\n"}}));
    EXPECT_EQ(world.program().tweaks.VK_SCHEME, "Night");
    EXPECT_TRUE(world.read("home/Vantrosk_Tweaks.ini").contains("Night"));
    EXPECT_EQ(applied, 1);
}

TEST(Install_Rules_More, A_skin_that_is_not_wanted_or_is_none_leaves_the_one_in_use) {
    for (const Answer answer : {Answer::no, Answer::yes}) {
        Install_World world;
        world.write("home/skins/current/older.gif", "of the last skin");
        const QByteArray skin = Skin_package(world, {{"other.ini", "[SKININFO]\r\nName=Night\r\n"}});
        world.mission("m.zip", {{"a.mis", "x"}, {"VKSKIN.ZIP", skin}});
        world.ui.answers = {answer};
        ASSERT_TRUE(world.install("m.zip"));
        EXPECT_EQ(Names(world.snapshot("home/skins/current")), QStringList{"older.gif"});
        EXPECT_EQ(world.read("home/skins/M_SKIN.ZIP"), skin);
    }
}

TEST(Install_Rules_More, The_programs_own_files_are_never_replaced_by_a_mission) {
    Install_World world;
    world.game_has("sub/current_install.txt", "elsewhere it is any file");
    world.game_has("darkloader.current", "ORIGINAL");
    std::vector<Zip_Entry> entries = companions;
    for (const char *name : {"current_install.txt", "Original_Backup.zip", "darkloader.current",
                             "allsaves/saves_Original.zip", "AllSaves/deep/x.sav", "sub/current_install.txt"})
        entries.push_back({name, "from a played folder", {}});
    world.mission("m.zip", entries);
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_EQ(world.listed(), (QStringList{"aa.str", "sub/current_install.txt", "zz.str"}));
    EXPECT_EQ(world.game_file("darkloader.current"), "ORIGINAL");
    EXPECT_FALSE(world.exists(world.in_game("allsaves/saves_Original.zip")));
    EXPECT_FALSE(world.exists(world.in_game("allsaves/deep")));
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.game_file("sub/current_install.txt"), "elsewhere it is any file");
}

TEST(Install_Rules_More, Hostile_names_are_dropped_and_the_rest_is_installed) {
    Install_World world;
    world.write("games/outside.txt", "mine");
    std::vector<Zip_Entry> entries = companions;
    for (const char *name :
         {"../outside.txt", "..\\outside.txt", "a/../../outside.txt", "/rooted.txt", "\\rooted.txt",
          "C:\\drive.txt", "C:drive.txt", "line\nbreak.txt", "bell\a.txt", "trailing.txt ", "trailing.txt."})
        entries.push_back({name, "hostile", {}});
    world.mission("m.zip", entries);
    const Snapshot games = world.snapshot("games");
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_EQ(world.listed(), (QStringList{"aa.str", "zz.str"}));
    Snapshot expected = games;
    expected["T2/aa.str"] = expected["T2/zz.str"] = "x";
    expected["T2/current_install.txt"] = world.undo_list();
    expected["T2/allsaves/"] = {};
    EXPECT_EQ(Names(world.snapshot("games")), Names(expected));
    EXPECT_EQ(world.snapshot("games"), expected);
    EXPECT_EQ(world.finished_log().filter("//Not extracted").size(), 11);
    EXPECT_EQ(world.ui.trace.filter("is not extracted").size(), 11);
}

TEST(Install_Rules_More, Doom_entries_that_name_the_base_folder_are_not_doubled) {
    Install_World world("DOOM");
    world.game_has("base/default.cfg", "the game's");
    const Snapshot before = world.game();
    world.mission("m.zip", {{"base/maps/a.map", "x", {}}, {"Base/default.cfg", "y", {}}, {"b.pk4", "z", {}}});
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_EQ(world.listed(), (QStringList{"base/b.pk4", "base/default.cfg", "base/maps/a.map"}));
    EXPECT_EQ(world.game_file("base/maps/a.map"), "x");
    EXPECT_EQ(world.game_file("base/default.cfg"), "y");
    EXPECT_EQ(world.game_file("base/b.pk4"), "z");
    EXPECT_TRUE(world.exists(world.in_game("base/original_backup.zip")));
    EXPECT_FALSE(world.exists(world.in_game("base/base")));
    ASSERT_TRUE(world.restore());
    Snapshot after = world.game();
    after.erase("base/maps/");
    EXPECT_EQ(after, before);
}

TEST(Install_Rules_More, Thief1_gets_the_missing_map_page_once_for_each_mission_with_a_folder) {
    Install_World world("T1");
    world.write("home/page001.pcx", "empty page");
    world.game_has("Intrface/MISS3/page000.pcx", "the game's own page");
    const Snapshot before = world.game();
    world.mission("m.zip", {{"miss1.mis", "x", {}},
                            {"miss2.mis", "x", {}},
                            {"miss3.mis", "x", {}},
                            {"intrface/miss1/english/a.str", "x", {}},
                            {"intrface/miss3/b.str", "x", {}}});
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_EQ(world.game_file("Intrface/miss1/page000.pcx") + world.game_file("intrface/miss1/page000.pcx"),
              "empty page");
    EXPECT_EQ(world.game_file("Intrface/MISS3/page000.pcx"), "empty page");
    EXPECT_EQ(world.listed().filter("page000.pcx"),
              (QStringList{"Intrface/MISS1/page000.pcx", "Intrface/MISS3/page000.pcx"}));
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.game(), before);
}

TEST(Install_Rules_More, A_thief1_mission_with_a_page_of_its_own_gets_none) {
    Install_World world("T1");
    world.write("home/page001.pcx", "empty page");
    world.mission("m.zip", {{"miss1.mis", "x", {}}, {"intrface/miss1/page001.pcx", "own", {}}});
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_EQ(world.listed(), (QStringList{"intrface/miss1/page001.pcx", "miss1.mis"}));
}

TEST(Install_Rules_More, Only_thief1_gets_the_page) {
    Install_World world("TG");
    world.write("home/page001.pcx", "empty page");
    world.mission("m.zip", {{"miss1.mis", "x", {}}, {"intrface/miss1/a.str", "own", {}}});
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_EQ(world.listed(), (QStringList{"intrface/miss1/a.str", "miss1.mis"}));
}

TEST(Install_Rules_More, Thief3_lists_upper_case_paths_and_installs_into_the_folder_that_exists) {
    Install_World world("T3");
    world.game_has("Content/T3/Maps/a.ibt", "the game's");
    const Snapshot before = world.game();
    world.mission("m.zip", {{"CONTENT/T3/Maps/a.cbt", "map", {}},
                            {"CONTENT/T3/Maps/b.ibt", "y", {}},
                            {"Fan Mission Extras/readme.txt", "z", {}}});
    ASSERT_TRUE(world.install("m.zip"));
    const QString root = world.game_path().toUpper();
    const QString maps = root + "\\CONTENT\\T3\\Maps\\";
    EXPECT_EQ(QString::fromUtf8(world.read("games/T3/System/current_install.txt")).split("\r\n").mid(5),
              (QStringList{maps + "a.cbt", maps + "a.IBT", maps + "b.ibt",
                           root + "\\Fan Mission Extras\\readme.txt", maps + "a.log", ""}));
    EXPECT_EQ(world.game_file("Content/T3/Maps/a.cbt"), "map");
    EXPECT_TRUE(world.exists("games/T3/original_backup.zip"));
    EXPECT_EQ(world.finished_log().filter("not available").size(), 1);
    world.game_has("Content/T3/Maps/a.log", "made by hand");
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.game(), before);
}

} // namespace
} // namespace vantrosk
