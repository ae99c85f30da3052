#include "Console_World.h"

#include <QDir>
#include <QJsonArray>

namespace vantrosk {
namespace {

class Autoconfigure : public Console {
protected:
    void registry(const QByteArray &program_file, const QByteArray &folder,
                  const QString &prefix = "prefix") {
        world.write(prefix + "/system.reg",
                    "WINE REGISTRY Version "
                    "2\n\n[Software\\\\Wow6432Node\\\\Microsoft\\\\Windows\\\\CurrentVersion\\\\App "
                    "Paths\\\\" +
                        program_file + "] 1\n\"path\"=\"C:\\\\" + folder + "\"\n");
    }
    QString setting(const char *key) { return run({"settings", "get", key}).out.value(0); }
};

TEST_F(Autoconfigure, Stores_what_was_found_and_leaves_the_rest) {
    run({"settings", "set", "T2GAME", "C:\\old"});
    run({"settings", "set", "SS2", "C:\\FMs*#**#*C:\\b*#*"});
    run({"settings", "set", "SS2EDITOR", "C:\\ed.exe"});
    registry("shock2.exe", "Sshock2");
    world.write("prefix/drive_c/Sshock2/shock2.exe", "MZ");
    const Console_Run result = run({"--json", "autoconfigure"});
    EXPECT_EQ(result.exit_code, 0);
    const QJsonObject json = result.json();
    EXPECT_EQ(json.keys(), (QStringList{"found", "prefix_path", "prefixes", "reference_files", "stages",
                                        "t3_saves_path"}));
    EXPECT_EQ(json["found"].toArray(),
              (QJsonArray{QJsonObject{{"game", "SS2"},
                                      {"name", "System Shock 2"},
                                      {"game_path", world.native("prefix/drive_c/Sshock2")}}}));
    EXPECT_EQ(json["prefix_path"].toString(), world.native("prefix"));
    EXPECT_EQ(json["prefixes"].toArray(),
              (QJsonArray{QJsonObject{
                  {"prefix_path", world.native("prefix")}, {"kept_by", "in use"}, {"name", "prefix"}}}));
    EXPECT_EQ(json["stages"].toArray().size(), 7);
    EXPECT_EQ(json["reference_files"].toArray(), QJsonArray());
    EXPECT_EQ(setting("SS2GAME"), "C:\\Sshock2");
    EXPECT_EQ(setting("T2GAME"), "C:\\old");
    EXPECT_EQ(setting("SS2"), "C:\\FMs*#**#*C:\\b*#*");
    EXPECT_EQ(setting("SS2EDITOR"), "C:\\ed.exe");
    ASSERT_EQ(result.err.size(), 2);
    EXPECT_EQ(result.err[0],
              "information \"\" Vantrosk sucessfully configured: System Shock 2 /  / Auto Configuration "
              "is complete, please save your settings. /  / Please configure anything else manually. "
              "-> ok");
    EXPECT_TRUE(result.err[1].endsWith("-> no"));
}

TEST_F(Autoconfigure, Without_a_game_it_changes_nothing_and_ends_well) {
    run({"settings", "set", "T2GAME", "C:\\old"});
    const QByteArray before = world.read("home/Vantrosk.ini");
    const Console_Run result = run({"autoconfigure"});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_TRUE(result.out.isEmpty());
    EXPECT_EQ(world.read("home/Vantrosk.ini"), before);
}

TEST_F(Autoconfigure, A_yes_makes_reference_files) {
    registry("shock2.exe", "Sshock2");
    world.write("prefix/drive_c/Sshock2/shock2.exe", "MZ");
    const Console_Run result = run({"--json", "--answer", "yes", "autoconfigure"});
    const QJsonArray files = result.json()["reference_files"].toArray();
    ASSERT_EQ(files.size(), 1);
    EXPECT_TRUE(files[0].toString().startsWith("DIAG_SS2_"));
    EXPECT_TRUE(world.exists("home/references/" + files[0].toString())) << files[0].toString().toStdString();
}

TEST_F(Autoconfigure, Another_prefix_can_be_named) {
    registry("thief2.exe", "Thief2", "other");
    world.write("other/drive_c/Thief2/thief2.exe", "MZ");
    const Console_Run result = run({"--json", "autoconfigure", "--prefix", world.native("other")});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_EQ(result.json()["prefix_path"].toString(), world.native("other"));
    EXPECT_EQ(setting("T2GAME"), world.windows("other/drive_c/Thief2"));
    EXPECT_EQ(run({"autoconfigure", "--prefix", world.native("no such folder")}).exit_code, 1);
}

TEST_F(Autoconfigure, Other_words_are_wrong_usage) {
    EXPECT_EQ(run({"autoconfigure", "T2"}).exit_code, 2);
    EXPECT_EQ(run({"autoconfigure", "--prefix"}).exit_code, 2);
    EXPECT_EQ(run({"autoconfigure", "--where", "x"}).exit_code, 2);
}

TEST_F(Autoconfigure, An_ini_that_can_not_be_written_fails) {
    registry("shock2.exe", "Sshock2");
    world.write("prefix/drive_c/Sshock2/shock2.exe", "MZ");
    run({"settings", "get"});
    QFile::remove(world.native("home/Vantrosk.ini"));
    world.make_folder("home/Vantrosk.ini/x");
    const Console_Run result = run({"--json", "autoconfigure"});
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_FALSE(result.err.last().isEmpty());
}

} // namespace
} // namespace vantrosk
