#include "core/mdlFile_Functions.h"
#include "core/mdlStartup.h"
#include "support/Lasting_Files.h"
#include "support/World.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

/// A program that was not started: what the ini procedures find and leave is all there is.
struct Ini_Writing : testing::Test {
    World world;
    Program program{world.platform, world.ui, world.windows("home")};

    QByteArray main_ini() const { return world.read("home/Vantrosk.ini"); }
    QByteArray tweaks_ini() const { return world.read("home/Vantrosk_Tweaks.ini"); }
};

QByteArray With_windows_line_ends(QByteArray text) {
    return text.replace("\n", "\r\n");
}

const QByteArray defaults_before_a_read = R"([THE_SWAP]
False
[SCAN_ZIPS]
0
[AUTOSTART_IN]

[AUTORESIZE_COLUMNS]
False
[OBJECTCHECKBOXES]
False
[VIEW_TXT_AS_VKML]
False
[VIEW_RTF_AS_VKML]
False
[USE_ZIP_RESOURCES]
False
[FOCUS_ON_FM]
False
[STARTUP_PAGE]
VANTROSK NOTES
[RECENTLY_USED]
True
[VERIFY_FM]
False
[SHOW_TIPS]
True
[AUTO_ADD_TO_DB]
True
[AUTO_DOWNLOAD]
0
[AUTO_FM_CHECK]
0
[SHOW_TOOLTIPS]
True
[ENABLE_ANIM_GIFS]
True
[ENABLE_FM_DETAILS]
True
[ENABLE_COL_AUTHOR]
True
[ENABLE_COL_SIZE]
True
[ENABLE_COL_ZIPDATE]
True
[ENABLE_COl_CATEGORY]
False
[ENABLE_FM_TOOLBAR]
True
[TITLEFONT]
MS Sans Serif
[TITLEFONTCOLOUR]
000000
[TITLEFONTSIZE]
18
[TITLEFONTSTYLE]
Bold
[SUBTITLEFONT]
MS Sans Serif
[SUBTITLEFONTCOLOUR]
000000
[SUBTITLEFONTSIZE]
14
[SUBTITLEFONTSTYLE]
Bold
[WARNINGSFONT]
MS Sans Serif
[WARNINGSFONTCOLOUR]
FF0000
[WARNINGSFONTSIZE]
12
[WARNINGSFONTSTYLE]
Bold
[OTHERTEXTFONT]
MS Sans Serif
[OTHERTEXTFONTCOLOUR]
000000
[OTHERTEXTFONTSIZE]
10
[OTHERTEXTFONTSTYLE]
Bold
[FMLISTSFONT]
Arial
[FMLISTSFONTSIZE]
8
[FMLISTSFONTSTYLE]
Bold
[BACKGROUNDCOLOUR]
#F0F0F0
[FMDISPLAYCOLOUR]
15790320
[FMDISPLAYFONTCOLOUR]
14120960
[FMDISPLAYTITLESFONTCOLOUR]
0
[QBAR_COLOUR]
6470226
[GAMEBAR_COLOUR]
16672063
[VK_SCHEME]
Vantrosk Default
[TOOLBAR_LOCK]
False
[QUILLMARCH]
0
[RSS_URL]
http://vantrosk.example/reviews.rss
[RESKIN_THIEF1]
False
[RESKIN_THIEF2]
False
[RESKIN_DMOD]
False
[INTELLITEXT]
True
[DUALMONITOR_ALYWAYSON]
False
[FMTOOL0]
True
[FMTOOL1]
True
[FMTOOL2]
False
[FMTOOL3]
True
[FMTOOL4]
False
[FMTOOL5]
False
)";

/// What a first start makes of them: key and value, as in the file.
const std::pair<const char *, const char *> changed_without_a_file[] = {
    {"[SCAN_ZIPS]\n0\n", "[SCAN_ZIPS]\n1\n"},
    {"[AUTORESIZE_COLUMNS]\nFalse\n", "[AUTORESIZE_COLUMNS]\nTrue\n"},
    {"[VIEW_TXT_AS_VKML]\nFalse\n", "[VIEW_TXT_AS_VKML]\nTrue\n"},
    {"[VIEW_RTF_AS_VKML]\nFalse\n", "[VIEW_RTF_AS_VKML]\nTrue\n"},
    {"[USE_ZIP_RESOURCES]\nFalse\n", "[USE_ZIP_RESOURCES]\nTrue\n"},
    {"[STARTUP_PAGE]\nVANTROSK NOTES\n", "[STARTUP_PAGE]\nVANTROSK WELCOME\n"},
    {"[BACKGROUNDCOLOUR]\n#F0F0F0\n", "[BACKGROUNDCOLOUR]\n#FFFFFF\n"},
};

const QByteArray main_defaults = R"([T1]

[TG]

[T2]

[T3]

[TOTHER]

[T1GAME]

[TGGAME]

[T2GAME]

[T3GAME]

[T3SAVES]

[T1EDITOR]

[TGEDITOR]

[T2EDITOR]

[T3EDITOR]

[DMGAME]

[DM]

[DMEDITOR]

[DMODGAME]

[DMOD]

[DMOD_INSTALLED]
False
[DMODEDITOR]

[DOWNLOADS]

[T2XGAME]

[T2X]

[SS2GAME]

[SS2]

[SS2EDITOR]

[LANGUAGE]
ENGLISH
[LANGUAGECODE]

[MAIN_TOOLBAR]
0
[RECORD_SQL]
False
[CHECKFORUPDATES]
False
[MPNAME]

)";

void Fill_main(Main_Ini &ini) {
    ini.T1_LOCATION = "C:\\t1\\*#*D:\\more\\*#*";
    ini.TG_LOCATION = "C:\\tg\\*#*";
    ini.T2_LOCATION = "C:\\t2\\*#*";
    ini.T3_LOCATION = "C:\\t3\\*#*";
    ini.TOTHER_LOCATION = "C:\\mix\\*#*";
    ini.T1_GAME_LOCATION = "C:\\g\\t1";
    ini.TG_GAME_LOCATION = "C:\\g\\tg";
    ini.T2_GAME_LOCATION = "C:\\g\\t2";
    ini.T3_GAME_LOCATION = "C:\\g\\t3\\System";
    ini.T3_SAVE_GAME_LOCATION = "C:\\g\\t3\\Saves";
    ini.T1_EDITOR = "C:\\e\\t1.exe";
    ini.TG_EDITOR = "C:\\e\\tg.exe";
    ini.T2_EDITOR = "C:\\e\\t2.exe";
    ini.T3_EDITOR = "C:\\e\\t3.exe";
    ini.DM_GAME_LOCATION = "C:\\g\\dm";
    ini.DM_LOCATION = "C:\\dm\\*#*";
    ini.DM_EDITOR = "C:\\e\\dm.exe";
    ini.DMOD_GAME_LOCATION = "C:\\g\\dmod";
    ini.DMOD_LOCATION = "C:\\dmod\\*#*";
    ini.DMOD_INSTALLED = true;
    ini.DMOD_EDITOR = "C:\\e\\dmod.exe";
    ini.DOWNLOADS_URL = "http://downloads.example/";
    ini.T2X_GAME_LOCATION = "C:\\g\\t2x";
    ini.T2X_LOCATION = "C:\\t2x\\*#*";
    ini.SS2_GAME_LOCATION = "C:\\g\\ss2";
    ini.SS2_LOCATION = "C:\\ss2\\*#*";
    ini.SS2_EDITOR = "C:\\e\\ss2.exe";
    ini.LANGUAGE = QString::fromUtf8("FRANÇAIS");
    ini.LANGUAGECODE = "FR";
    ini.MAIN_TOOLBAR = 24;
    ini.RECORD_SQL = true;
    ini.CHECKFORUPDATES = true;
    ini.MPNAME = "Garrett ";
}

const QByteArray filled_main = R"([T1]
C:\t1\*#*D:\more\*#*
[TG]
C:\tg\*#*
[T2]
C:\t2\*#*
[T3]
C:\t3\*#*
[TOTHER]
C:\mix\*#*
[T1GAME]
C:\g\t1
[TGGAME]
C:\g\tg
[T2GAME]
C:\g\t2
[T3GAME]
C:\g\t3\System
[T3SAVES]
C:\g\t3\Saves
[T1EDITOR]
C:\e\t1.exe
[TGEDITOR]
C:\e\tg.exe
[T2EDITOR]
C:\e\t2.exe
[T3EDITOR]
C:\e\t3.exe
[DMGAME]
C:\g\dm
[DM]
C:\dm\*#*
[DMEDITOR]
C:\e\dm.exe
[DMODGAME]
C:\g\dmod
[DMOD]
C:\dmod\*#*
[DMOD_INSTALLED]
True
[DMODEDITOR]
C:\e\dmod.exe
[DOWNLOADS]
http://downloads.example/
[T2XGAME]
C:\g\t2x
[T2X]
C:\t2x\*#*
[SS2GAME]
C:\g\ss2
[SS2]
C:\ss2\*#*
[SS2EDITOR]
C:\e\ss2.exe
[LANGUAGE]
FRANÇAIS
[LANGUAGECODE]
FR
[MAIN_TOOLBAR]
24
[RECORD_SQL]
True
[CHECKFORUPDATES]
True
[MPNAME]
)"
                               "Garrett \n";

void Fill_tweaks(Tweaks &tweaks) {
    tweaks = {};
    tweaks.THE_SWAP = true;
    tweaks.SCAN_ZIPS = 2;
    tweaks.AUTOSTART_IN = "T2";
    tweaks.OBJECTCHECKBOXES = true;
    tweaks.VIEW_RTF_AS_VKML = true;
    tweaks.FOCUS_ON_FM = true;
    tweaks.STARTUP_PAGE = "http://start.example/";
    tweaks.VERIFY_FM = true;
    tweaks.AUTO_ADD_TO_DB = true;
    tweaks.AUTO_DOWNLOAD = 30;
    tweaks.AUTO_FM_CHECK = 14;
    tweaks.ENABLE_ANIM_GIFS = true;
    tweaks.ENABLE_COL_AUTHOR = true;
    tweaks.ENABLE_COL_ZIPDATE = true;
    tweaks.ENABLE_FM_TOOLBAR = true;
    tweaks.TITLEFONT = {"Serif A", "0000A1", 41, "Italic"};
    tweaks.SUBTITLEFONT = {"Serif B", "0000A2", 42, "Bold"};
    tweaks.WARNINGSFONT = {"Serif C", "0000A3", 43, ""};
    tweaks.OTHERTEXTFONT = {"Serif D", "0000A4", 44, "BOLD,ITALIC"};
    tweaks.FMLISTSFONT = {"Serif E", "never written", 45, "Italic"};
    tweaks.BACKGROUNDCOLOUR = "#123456";
    tweaks.FMDISPLAYCOLOUR = "11";
    tweaks.FMDISPLAYFONTCOLOUR = "12";
    tweaks.FMDISPLAYTITLESFONTCOLOUR = "13";
    tweaks.QBAR_COLOUR = "14";
    tweaks.GAMEBAR_COLOUR = "15";
    tweaks.VK_SCHEME = "Earthy";
    tweaks.TOOLBAR_LOCK = true;
    tweaks.QUILLMARCH = 7;
    tweaks.RSS_URL = "http://feed.example/";
    tweaks.RESKIN_THIEF1 = true;
    tweaks.RESKIN_DMOD = true;
    tweaks.DUALMONITOR_ALYWAYSON = true;
    tweaks.FMTOOL = {false, true, false, true, false, true};
}

const QByteArray filled_tweaks = R"([THE_SWAP]
True
[SCAN_ZIPS]
2
[AUTOSTART_IN]
T2
[AUTORESIZE_COLUMNS]
False
[OBJECTCHECKBOXES]
True
[VIEW_TXT_AS_VKML]
False
[VIEW_RTF_AS_VKML]
True
[USE_ZIP_RESOURCES]
False
[FOCUS_ON_FM]
True
[STARTUP_PAGE]
http://start.example/
[RECENTLY_USED]
False
[VERIFY_FM]
True
[SHOW_TIPS]
False
[AUTO_ADD_TO_DB]
True
[AUTO_DOWNLOAD]
30
[AUTO_FM_CHECK]
14
[SHOW_TOOLTIPS]
False
[ENABLE_ANIM_GIFS]
True
[ENABLE_FM_DETAILS]
False
[ENABLE_COL_AUTHOR]
True
[ENABLE_COL_SIZE]
False
[ENABLE_COL_ZIPDATE]
True
[ENABLE_COl_CATEGORY]
False
[ENABLE_FM_TOOLBAR]
True
[TITLEFONT]
Serif A
[TITLEFONTCOLOUR]
0000A1
[TITLEFONTSIZE]
41
[TITLEFONTSTYLE]
Italic
[SUBTITLEFONT]
Serif B
[SUBTITLEFONTCOLOUR]
0000A2
[SUBTITLEFONTSIZE]
42
[SUBTITLEFONTSTYLE]
Bold
[WARNINGSFONT]
Serif C
[WARNINGSFONTCOLOUR]
0000A3
[WARNINGSFONTSIZE]
43
[WARNINGSFONTSTYLE]

[OTHERTEXTFONT]
Serif D
[OTHERTEXTFONTCOLOUR]
0000A4
[OTHERTEXTFONTSIZE]
44
[OTHERTEXTFONTSTYLE]
BOLD,ITALIC
[FMLISTSFONT]
Serif E
[FMLISTSFONTSIZE]
45
[FMLISTSFONTSTYLE]
Italic
[BACKGROUNDCOLOUR]
#123456
[FMDISPLAYCOLOUR]
11
[FMDISPLAYFONTCOLOUR]
12
[FMDISPLAYTITLESFONTCOLOUR]
13
[QBAR_COLOUR]
14
[GAMEBAR_COLOUR]
15
[VK_SCHEME]
Earthy
[TOOLBAR_LOCK]
True
[QUILLMARCH]
7
[RSS_URL]
http://feed.example/
[RESKIN_THIEF1]
True
[RESKIN_THIEF2]
False
[RESKIN_DMOD]
True
[INTELLITEXT]
False
[DUALMONITOR_ALYWAYSON]
True
[FMTOOL0]
False
[FMTOOL1]
True
[FMTOOL2]
False
[FMTOOL3]
True
[FMTOOL4]
False
[FMTOOL5]
True
)";

} // namespace

TEST_F(Ini_Writing, The_defaults_before_a_read_are_written_in_order_with_windows_line_ends) {
    Set_Display_Defaults(program);
    EXPECT_FALSE(Write_Tweaks_Ini(program));
    EXPECT_EQ(tweaks_ini(), With_windows_line_ends(defaults_before_a_read));
}

TEST_F(Ini_Writing, The_defaults_without_a_tweaks_file_replace_some_of_them) {
    Set_Display_Defaults(program);
    Read_Ini_Files(program);
    EXPECT_FALSE(Write_Tweaks_Ini(program));
    QByteArray expected = defaults_before_a_read;
    for (const auto &[before, after] : changed_without_a_file) {
        ASSERT_EQ(expected.count(before), 1) << before;
        expected.replace(before, after);
    }
    EXPECT_EQ(tweaks_ini(), With_windows_line_ends(expected));
}

TEST_F(Ini_Writing, The_defaults_without_a_tweaks_file_put_back_what_was_set) {
    Fill_tweaks(program.tweaks);
    program.tweaks.RECENTLY_USED = program.tweaks.SHOW_TIPS = program.tweaks.ENABLE_FM_DETAILS = false;
    Read_Ini_Files(program);
    EXPECT_FALSE(program.tweaks.THE_SWAP);
    EXPECT_EQ(program.tweaks.SCAN_ZIPS, 1);
    EXPECT_EQ(program.tweaks.AUTOSTART_IN, QString());
    EXPECT_FALSE(program.tweaks.OBJECTCHECKBOXES);
    EXPECT_FALSE(program.tweaks.FOCUS_ON_FM);
    EXPECT_TRUE(program.tweaks.RECENTLY_USED);
    EXPECT_TRUE(program.tweaks.SHOW_TIPS);
    EXPECT_TRUE(program.tweaks.AUTO_ADD_TO_DB);
    EXPECT_TRUE(program.tweaks.ENABLE_FM_DETAILS);
    EXPECT_EQ(program.tweaks.TITLEFONT.name, "MS Sans Serif");
    EXPECT_EQ(program.tweaks.TITLEFONT.colour, "0000A1");
    EXPECT_EQ(program.tweaks.TITLEFONT.size, 18);
    EXPECT_EQ(program.tweaks.SUBTITLEFONT.size, 14);
    EXPECT_EQ(program.tweaks.WARNINGSFONT.size, 12);
    EXPECT_EQ(program.tweaks.OTHERTEXTFONT.size, 10);
    EXPECT_EQ(program.tweaks.OTHERTEXTFONT.style, "Bold");
    EXPECT_EQ(program.tweaks.FMLISTSFONT.name, "Serif E");
    EXPECT_EQ(program.tweaks.BACKGROUNDCOLOUR, "#FFFFFF");
    EXPECT_EQ(program.tweaks.QUILLMARCH, 7);
    EXPECT_TRUE(program.tweaks.VERIFY_FM);
}

TEST_F(Ini_Writing, A_main_file_of_a_first_start_holds_every_key_and_English) {
    Set_Display_Defaults(program);
    Read_Ini_Files(program);
    EXPECT_FALSE(Write_Main_Ini(program));
    EXPECT_EQ(main_ini(), With_windows_line_ends(main_defaults));
}

TEST_F(Ini_Writing, Every_main_value_stands_behind_its_own_key) {
    Fill_main(program.ini);
    EXPECT_FALSE(Write_Main_Ini(program));
    EXPECT_EQ(main_ini(), With_windows_line_ends(filled_main));
}

TEST_F(Ini_Writing, Every_tweak_stands_behind_its_own_key) {
    Fill_tweaks(program.tweaks);
    EXPECT_FALSE(Write_Tweaks_Ini(program));
    EXPECT_EQ(tweaks_ini(), With_windows_line_ends(filled_tweaks));
}

TEST_F(Ini_Writing, What_was_written_reads_back_the_same_but_for_the_first_reskin) {
    Fill_main(program.ini);
    Fill_tweaks(program.tweaks);
    EXPECT_FALSE(Write_Main_Ini(program));
    EXPECT_FALSE(Write_Tweaks_Ini(program));

    Program next{world.platform, world.ui, world.windows("home")};
    Set_Display_Defaults(next);
    Read_Ini_Files(next);
    EXPECT_FALSE(next.first_run);
    EXPECT_FALSE(next.tweaks.RESKIN_THIEF1);
    EXPECT_FALSE(Write_Main_Ini(next));
    EXPECT_FALSE(Write_Tweaks_Ini(next));
    EXPECT_EQ(main_ini(), With_windows_line_ends(filled_main));
    QByteArray expected = filled_tweaks;
    expected.replace("[RESKIN_THIEF1]\nTrue\n", "[RESKIN_THIEF1]\nFalse\n");
    EXPECT_EQ(tweaks_ini(), With_windows_line_ends(expected));
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST_F(Ini_Writing, A_value_with_line_ends_is_kept_on_one_line) {
    program.ini.MPNAME = "one\r\n[T1]\nC:\\elsewhere";
    EXPECT_FALSE(Write_Main_Ini(program));
    EXPECT_TRUE(main_ini().endsWith("[MPNAME]\r\none  [T1] C:\\elsewhere\r\n"));
}

TEST_F(Ini_Writing, A_file_in_the_way_of_the_folder_gives_the_fault_and_harms_nothing) {
    world.write("place", "a file");
    Program elsewhere{world.platform, world.ui, world.windows("place")};
    EXPECT_TRUE(Write_Main_Ini(elsewhere));
    EXPECT_TRUE(Write_Tweaks_Ini(elsewhere));
    EXPECT_EQ(world.read("place"), "a file");
}

TEST_F(Ini_Writing, Nothing_is_left_beside_the_files) {
    Set_Display_Defaults(program);
    world.write("home/Vantrosk.ini", "old");
    EXPECT_FALSE(Write_Main_Ini(program));
    EXPECT_FALSE(Write_Tweaks_Ini(program));
    EXPECT_EQ(Names(world.snapshot("home")), QStringList({"Vantrosk.ini", "Vantrosk_Tweaks.ini"}));
}

TEST(Ini_Files_On_Disk, Both_outlive_a_loss_of_power) {
    World world;
    auto watched = std::make_unique<Lasting_Files>(std::move(world.platform.files));
    const Lasting_Files &files = *watched;
    world.platform.files = std::move(watched);
    Program program(world.platform, world.ui, world.windows("home"));
    world.make_folder("home");
    ASSERT_FALSE(Write_Main_Ini(program));
    ASSERT_FALSE(Write_Tweaks_Ini(program));
    EXPECT_EQ(files.lasting, QStringList({program.paths.main_ini, program.paths.tweaks_ini}));
    EXPECT_TRUE(world.exists("home/Vantrosk.ini"));
}
