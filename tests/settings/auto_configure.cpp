#include "ui/settings/Auto_Configure.h"

#include "Settings_World.h"

#include "platform/linux/Linux_Platform.h"
#include "support/Real_Wine.h"

#include <QProcess>

namespace vantrosk {
namespace {

const QString app_paths = "Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\";
const QString ion_storm = "Software\\Ion Storm\\Thief - Deadly Shadows\\";

QString Report(const QStringList &games, bool first_run = false) {
    QStringList texts{"Vantrosk sucessfully configured: " + games.join(", "),
                      "Auto Configuration is complete, please save your settings.",
                      "Please configure anything else manually."};
    if (first_run)
        texts << "Now you must configure your Fan Mission zip folder paths. Click the Tabs to select yout "
                 "Game and "
                 "then click the GREEN PLUS button to add 1 FM.";
    return texts.join("\r\n\r\n");
}

const QString offer =
    "Create Initial Game Diagnostic Files?: Would you like Vantrosk to create a Game Diagnostic "
    "Reference Files for each of the found games installs?";

class Auto_World : public Settings_World {
public:
    Auto_Configured configure(std::deque<Answer> answers = {}, const QString &prefix = {}) {
        ui.boxes.clear();
        ui.answers = std::move(answers);
        told.clear();
        return Auto_Configure(program(), controls, prefix, [this](const QString &text, int stage) {
            told << text + "/" + QString::number(stage);
        });
    }
    /// "CODE FOLDER" of each tab that is filled.
    QStringList filled() const {
        QStringList games;
        for (const Game_Tab &tab : Game_Tabs())
            if (!folder_of(tab.code).isEmpty())
                games << tab.code + QString(" ") + folder_of(tab.code);
        return games;
    }
    QStringList told;
};

TEST(Auto_Configure, Without_a_game_it_ends_with_an_empty_report) {
    Auto_World world;
    const Auto_Configured result = world.configure();
    EXPECT_EQ(world.said(), QStringList{Report({})});
    EXPECT_EQ(world.filled(), QStringList());
    EXPECT_TRUE(result.found.empty());
    EXPECT_EQ(result.stages, (QStringList{"Stage 1 of 7", "Stage 2 of 7", "Stage 3 of 7", "Stage 4 of 7",
                                          "Stage 5 of 7", "Stage 3 of 7", "Stage 7 of 7"}));
    EXPECT_EQ(world.told, (QStringList{"Stage 1 of 7/0", "Stage 2 of 7/1", "Stage 3 of 7/2", "Stage 4 of 7/3",
                                       "Stage 5 of 7/4", "Stage 3 of 7/5", "Stage 7 of 7/7"}));
    EXPECT_EQ(world.ui.panel_1.mid(world.ui.panel_1.size() - 8), result.stages + QStringList{"Ready"});
    const QStringList traces = world.ui.trace.filter("CONFIG: Ignored Error in Autoconfig ");
    ASSERT_EQ(traces.size(), 6);
    const char *games[] = {"T1", "T1", "T2", "T3", "Doom 3", "SS2"};
    for (int i = 0; i < 6; ++i)
        EXPECT_TRUE(traces[i].startsWith(
            QString("CONFIG: Ignored Error in Autoconfig %1 Reg check : (2) There is no \"HKEY_")
                .arg(games[i])))
            << traces[i].toStdString();
}

TEST(Auto_Configure, Everything_that_is_installed_is_found) {
    Auto_World world;
    world.registry({{app_paths + "thief.exe\\path", "C:\\Games\\Thief\\"},
                    {app_paths + "thiefg.exe\\path", "C:\\Games\\TG\\"},
                    {app_paths + "thief2.exe\\path", "C:\\Games\\Žluť, 2"},
                    {ion_storm + "ION_ROOT", "C:\\Games\\T3\\"},
                    {ion_storm + "SaveGamePath", "C:\\users\\u\\My Documents\\saves\\"},
                    {"Software\\id\\Doom 3\\installPath", "C:\\Doom 3"},
                    {app_paths + "shock2.exe\\path", "C:\\Sshock2"}});
    for (const char *file :
         {"Games/Thief/THIEF.EXE", "Games/Thief/convict.osm", "Games/TG/thief.exe", "Games/TG/convict.osm",
          "Games/Žluť, 2/Thief2.exe", "Games/T3/System/T3.exe", "Doom 3/Doom3.exe", "Doom 3/darkmod.pk4",
          "Sshock2/Shock2.exe", "Sshock2/ShockEd.exe"})
        world.drive_c(file);
    const Auto_Configured result = world.configure();
    EXPECT_EQ(world.filled(),
              (QStringList{"T1 C:\\Games\\Thief", "TG C:\\Games\\TG", "T2 C:\\Games\\Žluť, 2",
                           "T3 C:\\Games\\T3\\SYSTEM", "SS2 C:\\Sshock2", "DMOD C:\\Doom 3"}));
    EXPECT_EQ(world.controls.t3_saves, "C:\\users\\u\\My Documents\\saves");
    EXPECT_EQ(result.t3_saves, world.controls.t3_saves);
    EXPECT_TRUE(world.controls.dark_mod_installed);
    EXPECT_EQ(world.controls.of("SS2").editor, "C:\\Sshock2\\shocked.exe");
    EXPECT_EQ(world.said(), (QStringList{Report({"Thief 1", "Thief Gold", "Thief 2", "Thief 3",
                                                 "System Shock 2", "Doom 3 Gamepath"}),
                                         offer}));
    EXPECT_EQ(world.program().ini.T2_GAME_LOCATION, "") << "the controls only";
    EXPECT_EQ(world.program().ini.T3_SAVE_GAME_LOCATION, "");
    EXPECT_TRUE(world.ui.trace.filter("Ignored Error").isEmpty());
}

TEST(Auto_Configure, A_first_run_is_told_what_comes_next) {
    Auto_World world;
    world.program().start.first_run_mode = true;
    world.configure();
    EXPECT_EQ(world.said(), QStringList{Report({}, true)});
}

TEST(Auto_Configure, Keys_of_32_bit_set_ups_count_too) {
    Auto_World world;
    world.registry({{QString(app_paths).replace("Software", "Software\\Wow6432Node") + "thief2.exe\\path",
                     "C:\\Thief2"}});
    world.drive_c("Thief2/thief2.exe");
    world.configure();
    EXPECT_EQ(world.filled(), QStringList{"T2 C:\\Thief2"});
}

TEST(Auto_Configure, A_folder_of_gold_in_its_name_is_thief_gold) {
    Auto_World world;
    world.registry({{app_paths + "thief.exe\\path", "C:\\Thief gOlD"},
                    {app_paths + "thiefg.exe\\path", "C:\\Thief Gold"}});
    world.drive_c("Thief Gold/thief.exe");
    world.configure();
    EXPECT_EQ(world.filled(), QStringList{"TG C:\\Thief gOlD"});
    EXPECT_EQ(world.said().size(), 3) << "the scripts are missed once, the report, the offer";
}

TEST(Auto_Configure, A_folder_without_its_program_is_not_taken) {
    Auto_World world;
    world.registry({{app_paths + "thief.exe\\path", "C:\\a"},
                    {app_paths + "thief2.exe\\path", "C:\\b"},
                    {ion_storm + "ION_ROOT", "C:\\c"},
                    {"Software\\id\\Doom 3\\installPath", "relative"},
                    {app_paths + "shock2.exe\\path", "Q:\\nowhere"}});
    world.drive_c("a/thief2.exe");
    world.drive_c("games/thief2/thief2.exe");
    world.configure();
    EXPECT_EQ(world.filled(), QStringList()) << "a key that is there is not guessed around";
    world.registry({{ion_storm + "ION_ROOT", "HKEY_LOCAL_MACHINE\\SOFTWARE\\Ion Storm\\Thief - Deadly "
                                             "Shadows\\ION_ROOT"}});
    QDir(world.native("prefix/drive_c/games")).removeRecursively();
    world.configure();
    EXPECT_EQ(world.filled(), QStringList());
}

TEST(Auto_Configure, Thief_2_is_looked_for_where_it_usually_is) {
    for (const char *place : {"Program Files/Thief2", "Games/THIEF2"}) {
        Auto_World world;
        world.drive_c(QString(place) + "/thief2.exe");
        world.configure();
        EXPECT_EQ(world.filled(), QStringList{"T2 c:\\" + QString(place).toLower().replace('/', '\\')});
    }
}

TEST(Auto_Configure, Thief_2_is_found_with_and_without_a_separator_at_the_end) {
    for (const char *path : {"c:\\program files\\thief2", "c:\\program files\\thief2\\"}) {
        Auto_World world;
        world.registry({{app_paths + "thief2.exe\\path", path}});
        world.drive_c("Program Files/thief2/thief2.exe");
        world.configure();
        EXPECT_EQ(world.filled(), QStringList{"T2 c:\\program files\\thief2"});
    }
}

TEST(Auto_Configure, The_editors_install_of_thief_3_is_taken_only_at_yes) {
    for (const Answer answer : {Answer::no, Answer::yes}) {
        Auto_World world;
        world.registry({{ion_storm + "ION_ROOT", "C:\\T3 Editor"}});
        world.drive_c("T3 Editor/System/T3.exe");
        world.configure({answer});
        EXPECT_EQ(
            world.said()[0],
            "Vantrosk has determined that your Thief 3 install looks currently set to be the editor install "
            "(C:\\T3 Editor\\SYSTEM\\t3.exe) .\r\n\r\nIf this is your Thief 3 play install and NOT the "
            "editor please click YES to use "
            "this path or click NO to configure it manually later.");
        EXPECT_EQ(world.filled().size(), answer == Answer::yes ? 1 : 0);
    }
}

TEST(Auto_Configure, No_game_file_changes_without_a_yes) {
    Auto_World world;
    world.registry({{app_paths + "thief.exe\\path", "C:\\Thief"}, {ion_storm + "ION_ROOT", "C:\\T3"}});
    for (const char *file :
         {"Thief/thief.exe", "Thief/convict.osm", "T3/System/T3.exe", "T3/System/T3Main.exe"})
        world.drive_c(file);
    world.drive_c("Thief/Cam.cfg", "x\r\n");
    const Snapshot before = world.snapshot("prefix/drive_c");
    world.configure();
    EXPECT_EQ(world.snapshot("prefix/drive_c"), before);
    EXPECT_EQ(world.said(), (QStringList{Report({"Thief 1", "Thief 3"}), offer}));
    world.drive_c("Thief/install.cfg", "resname_base d:\\\r\n");
    world.configure();
    EXPECT_EQ(world.read("prefix/drive_c/Thief/install.cfg"), "resname_base d:\\\r\n");
    EXPECT_EQ(world.read("prefix/drive_c/Thief/Cam.cfg"), "x\r\n");
    world.configure({Answer::yes});
    EXPECT_EQ(world.read("prefix/drive_c/Thief/install.cfg"), "resname_base crfs+d:\\\r\n");
    EXPECT_EQ(world.read("prefix/drive_c/Thief/Cam.cfg"), "x\r\nskip_starting_checks\r\n");
}

TEST(Auto_Configure, What_is_not_found_stays) {
    Auto_World world;
    world.controls.of("SS2") = {"C:\\mine", {"D:\\FMs\\"}, "C:\\mine\\ed.exe"};
    world.controls.of("T2").game_folder = "C:\\old";
    world.controls.t3_saves = "C:\\saves";
    world.controls.dark_mod_installed = true;
    world.registry({{app_paths + "thief2.exe\\path", "C:\\new"}});
    world.drive_c("new/thief2.exe");
    world.configure();
    EXPECT_EQ(world.filled(), (QStringList{"T2 C:\\new", "SS2 C:\\mine"}));
    EXPECT_EQ(world.controls.of("SS2").editor, "C:\\mine\\ed.exe");
    EXPECT_EQ(world.controls.t3_saves, "C:\\saves");
    EXPECT_TRUE(world.controls.dark_mod_installed);
}

TEST(Auto_Configure, Yes_makes_a_reference_file_of_each_game_found_but_doom) {
    Auto_World world;
    world.registry({{ion_storm + "ION_ROOT", "C:\\T3"},
                    {app_paths + "shock2.exe\\path", "C:\\SS2"},
                    {"Software\\id\\Doom 3\\installPath", "C:\\Doom"}});
    for (const char *file : {"T3/System/t3.exe", "SS2/shock2.exe", "Doom/doom3.exe"})
        world.drive_c(file);
    const Auto_Configured result = world.configure({Answer::yes});
    EXPECT_EQ(world.listed, (QStringList{"T3 C:\\T3\\SYSTEM", "SS2 C:\\SS2"}));
    EXPECT_EQ(result.reference_files,
              (QStringList{"DIAG_T3_20260303_1200.VKDR", "DIAG_SS2_20260303_1200.VKDR"}));
    EXPECT_EQ(world.said().last(), "Vantrosk created reference files for:\r\nThief 3 - Deadly "
                                   "Shadows\r\nSystem Shock 2\r\n\r\nYou can use "
                                   "these file from TOOLS - GENERAL TOOLS - GAME DIAGNOSTIC TOOL. Each "
                                   "reference fill will contain todays "
                                   "date and time in the filename in format YYYYMMDD_HHMM");
    world.reference_fails = true;
    EXPECT_EQ(world.configure({Answer::yes}).reference_files, QStringList());
    EXPECT_EQ(world.said().last(), "Failed to create Reference File, error may have been displayed");
}

TEST(Auto_Configure, Another_prefix_is_searched_and_its_places_are_named_as_they_are_here) {
    Auto_World world;
    world.registry(
        {{app_paths + "thief2.exe\\path", "C:\\Games\\Thief2"}, {ion_storm + "SaveGamePath", "C:\\saves"}},
        "user/Games/thief");
    world.write("user/Games/thief/drive_c/Games/Thief2/thief2.exe", "MZ");
    world.write("user/Games/thief/drive_c/saves/x", "");
    const Auto_Configured result = world.configure({}, world.native("user/Games/thief"));
    EXPECT_EQ(result.prefix, world.native("user/Games/thief"));
    ASSERT_EQ(world.filled().size(), 1);
    EXPECT_EQ(world.program().files.to_native(world.folder_of("T2")),
              world.native("user/Games/thief/drive_c/Games/Thief2"));
    EXPECT_EQ(world.program().files.to_native(world.controls.t3_saves),
              world.native("user/Games/thief/drive_c/saves"));
    EXPECT_EQ(world.configure().prefix, world.native("prefix"));
}

// ---- bad input ----

TEST(Auto_Configure_Bad_Input, A_prefix_that_is_missing_or_half_made_has_no_games) {
    Auto_World world;
    QDir(world.native("prefix")).removeRecursively();
    world.configure();
    EXPECT_EQ(world.said(), QStringList{Report({})});
    world.make_folder("prefix/system.reg");
    world.configure({}, world.native("no such prefix"));
    EXPECT_EQ(world.said(), QStringList{Report({})});
}

TEST(Auto_Configure_Bad_Input, Broken_lines_and_binary_data_take_no_game_with_them) {
    Auto_World world;
    QByteArray text =
        "WINE REGISTRY Version 2\n[Software\\\\Broken\n\"no end=\"x\n\x00\xff\xfe[[[\n\"path\"=\n";
    text += "[" + QString(app_paths + "thief2.exe").replace("\\", "\\\\").toUtf8() + "] 1\n";
    text += "\"path\"=hex:01,02\n\"Path\"=\"C:\\\\Thief2\"\n\"path=\"C:\\\\wrong\n";
    world.write("prefix/system.reg", text);
    world.drive_c("Thief2/thief2.exe");
    world.configure();
    EXPECT_EQ(world.filled(), QStringList{"T2 C:\\Thief2"});
}

TEST(Auto_Configure_Bad_Input, A_registry_in_utf_16_is_read) {
    Auto_World world;
    world.registry({{app_paths + "thief2.exe\\path", "C:\\Žluť"}});
    QByteArray text("\xFF\xFE");
    for (const QChar unit : QString::fromUtf8(world.read("prefix/system.reg")))
        text += QByteArray(1, char(unit.cell())) + char(unit.row());
    world.write("prefix/system.reg", text);
    world.drive_c("Žluť/thief2.exe");
    world.configure();
    EXPECT_EQ(world.filled(), QStringList{"T2 C:\\Žluť"});
}

TEST(Auto_Configure_Bad_Input, A_registry_of_20_megabytes_is_read) {
    Auto_World world;
    QByteArray text = "WINE REGISTRY Version 2\n";
    for (int key = 0; text.size() < 20 * 1024 * 1024; ++key)
        text += "\n[Software\\\\Classes\\\\Key" + QByteArray::number(key) + "] 1\n\"value\"=\"C:\\\\x\"\n" +
                QByteArray("\"more\"=hex:") + QByteArray(200, '0') + "\n";
    text += "\n[" + QString(app_paths + "shock2.exe").replace("\\", "\\\\").toUtf8() +
            "] 1\n\"path\"=\"C:\\\\SS2\"\n";
    world.write("prefix/system.reg", text);
    world.drive_c("SS2/shock2.exe");
    world.configure();
    EXPECT_EQ(world.filled(), QStringList{"SS2 C:\\SS2"});
}

TEST(Auto_Configure_Bad_Input, Paths_that_leave_or_name_nothing_are_no_games) {
    for (const char *path :
         {"", "\\", "..\\..\\..\\etc", "\\\\server\\share", "C:", "%PROGRAMFILES%\\x", "a*b?"}) {
        Auto_World world;
        world.registry({{app_paths + "thief.exe\\path", path},
                        {app_paths + "thief2.exe\\path", path},
                        {ion_storm + "ION_ROOT", path},
                        {"Software\\id\\Doom 3\\installPath", path},
                        {app_paths + "shock2.exe\\path", path}});
        world.configure();
        EXPECT_EQ(world.filled(), QStringList()) << path;
    }
}

// ---- a prefix that Wine made ----

/// Writes keys as the set-ups of the games do: through the registry itself, the 32-bit half of it.
bool Wine_adds(const QString &prefix, const QString &key, const QString &name, const QString &data) {
    QProcess reg;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("WINEPREFIX", prefix);
    reg.setProcessEnvironment(environment);
    reg.setStandardOutputFile(QProcess::nullDevice());
    reg.setStandardErrorFile(QProcess::nullDevice());
    reg.start("wine", {"reg", "add", key, "/v", name, "/d", data, "/f", "/reg:32"});
    return reg.waitForFinished(90000) && reg.exitCode() == 0;
}

TEST(Auto_Configure_Real_Wine, Finds_what_set_ups_wrote_into_a_prefix_of_wine) {
    const Real_Wine wine = Find_real_wine();
    if (!wine.refusal.isEmpty())
        GTEST_SKIP() << wine.refusal.toStdString();
    Auto_World world;
    const QString paths = "HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\";
    const QString games = world.native("games");
    const QString z = "Z:" + QString(games).replace('/', '\\');
    for (const char *file :
         {"Thief2 Žluť/thief2.exe", "T3/System/T3.exe", "SS2/shock2.exe", "Doom 3/doom3.exe"})
        world.write(QString("games/") + file, "MZ");
    ASSERT_TRUE(Wine_adds(wine.prefix, paths + "thief2.exe", "path", z + "\\Thief2 Žluť\\"));
    ASSERT_TRUE(Wine_adds(wine.prefix, paths + "shock2.exe", "path", z + "\\SS2"));
    ASSERT_TRUE(
        Wine_adds(wine.prefix, "HKLM\\SOFTWARE\\Ion Storm\\Thief - Deadly Shadows", "ION_ROOT", z + "\\T3"));
    ASSERT_TRUE(Wine_adds(wine.prefix, "HKLM\\SOFTWARE\\id\\Doom 3", "installPath", z + "\\Doom 3"));
    // The server writes its files when its last program has ended.
    QProcess server;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("WINEPREFIX", wine.prefix);
    server.setProcessEnvironment(environment);
    server.start("wineserver", {"-w"});
    server.waitForFinished(90000);
    world.configure({}, wine.prefix);
    EXPECT_EQ(world.filled(),
              (QStringList{"T2 " + world.windows("games/Thief2 Žluť"),
                           "T3 " + world.windows("games/T3") + "\\SYSTEM",
                           "SS2 " + world.windows("games/SS2"), "DMOD " + world.windows("games/Doom 3")}));
}

} // namespace
} // namespace vantrosk
