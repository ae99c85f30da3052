#include "Console_World.h"

#include <QDir>
#include <QJsonArray>

namespace vantrosk {
namespace {

class Diagnostic_Commands : public Console {
protected:
    Diagnostic_Commands() { set_up(); }
    QJsonArray list(std::initializer_list<const char *> names) {
        QJsonArray array;
        for (const char *name : names)
            array << name;
        return array;
    }
};

TEST_F(Diagnostic_Commands, A_folder_is_listed_and_found_clean) {
    const Console_Run made = run({"--json", "reference", "T2"});
    ASSERT_EQ(made.exit_code, 0) << made.err.join('\n').toStdString();
    const QString name = "DIAG_T2_20261119_221405.VKDR";
    EXPECT_EQ(made.json(), (QJsonObject{{"game", "T2"},
                                        {"reference", name},
                                        {"reference_path", world.native("home/references/" + name)}}));
    EXPECT_TRUE(world.read("home/references/" + name)
                    .startsWith("FILECOUNT:4\r\nINFO: Initial Pre VK Use Reference File For Thief The Metal "
                                "Age\r\nDATECREATED:20261119\r\n"));
    const Console_Run found = run({"--json", "diagnose", "t2", "--reference", name});
    EXPECT_EQ(found.exit_code, 0);
    EXPECT_EQ(found.json(), (QJsonObject{{"game", "T2"},
                                         {"game_path", world.native("games/Thief2")},
                                         {"reference", name},
                                         {"report_page_path", world.native("home/game_diag.htm")},
                                         {"files", 4},
                                         {"matched", 4},
                                         {"unexpected", list({})},
                                         {"different", list({})},
                                         {"missing", list({})},
                                         {"own", list({})},
                                         {"unreadable", list({})}}));
}

TEST_F(Diagnostic_Commands, What_differs_is_told_below_the_game_folder) {
    run({"reference", "T2"});
    world.write("games/Thief2/strings/note.str", "changed and longer");
    world.write("games/Thief2/strings/new,1.str", "");
    world.write("games/Thief2/current_install.txt", "");
    QFile::remove(world.native("games/Thief2/convict.osm"));
    const QString given = world.native("home/references/DIAG_T2_20261119_221405.VKDR");
    const Console_Run found = run({"--json", "diagnose", "T2", "--reference", given});
    EXPECT_EQ(found.exit_code, 0);
    const QJsonObject json = found.json();
    EXPECT_EQ(json["matched"].toInt(), 2);
    EXPECT_EQ(json["unexpected"].toArray(), list({"strings/new,1.str"}));
    EXPECT_EQ(json["different"].toArray(), list({"strings/note.str"}));
    EXPECT_EQ(json["missing"].toArray(), list({"convict.osm"}));
    EXPECT_EQ(json["own"].toArray(), list({"current_install.txt"}));
    EXPECT_EQ(
        run({"diagnose", "T2", "--reference", given}).out,
        (QStringList{"5 files, 2 as they should be", "unexpected  strings/new,1.str",
                     "different   strings/note.str", "missing     convict.osm",
                     "own         current_install.txt", "Report: " + world.native("home/game_diag.htm")}));
}

TEST_F(Diagnostic_Commands, Without_a_reference_everything_is_unexpected) {
    const Console_Run found = run({"--json", "diagnose", "T2"});
    EXPECT_EQ(found.json()["reference"].toString(), "NONE");
    EXPECT_EQ(found.json()["unexpected"].toArray().size(), 4);
    EXPECT_EQ(run({"--json", "diagnose", "T2", "--reference", "NONE"}).json(), found.json());
}

TEST_F(Diagnostic_Commands, What_can_not_be_done_ends_with_its_reason) {
    EXPECT_EQ(run({"diagnose"}).exit_code, 2);
    EXPECT_EQ(run({"diagnose", "T9"}).exit_code, 2);
    EXPECT_EQ(run({"diagnose", "T2", "--reference"}).exit_code, 2);
    EXPECT_EQ(run({"diagnose", "T2", "--file", "x"}).exit_code, 2);
    EXPECT_EQ(run({"reference"}).exit_code, 2);
    EXPECT_EQ(run({"reference", "T2", "x"}).exit_code, 2);
    const Console_Run gone = run({"diagnose", "T2", "--reference", "gone.VKDR"});
    EXPECT_EQ(gone.exit_code, 1);
    EXPECT_EQ(gone.err.last(), "there is no reference file \"gone.VKDR\"");
    for (const char *command : {"diagnose", "reference"}) {
        const Console_Run unset = run({command, "SS2"});
        EXPECT_EQ(unset.exit_code, 1);
        EXPECT_EQ(unset.err.last(), "System Shock 2 is not set up: its folder is not named");
    }
}

TEST_F(Diagnostic_Commands, A_game_of_one_s_own_is_told_by_its_name) {
    world.write("games/Quake/quake.exe", "x");
    world.write("home/Vantrosk_QBAR.ini", "[QBAR_1]\r\nisgame=TRUE\r\nGameName=My: Quake\r\nInstallPath=" +
                                              world.windows("games/Quake").toUtf8() + "\r\n");
    const QString name = "DIAG_My_ Quake_20261119_221405.VKDR";
    EXPECT_EQ(run({"--json", "reference", "my: quake"}).json()["reference"].toString(), name);
    const QJsonObject found = run({"--json", "diagnose", "My: Quake", "--reference", name}).json();
    EXPECT_EQ(found["game"].toString(), "My: Quake");
    EXPECT_EQ(found["matched"].toInt(), 1);
}

TEST_F(Diagnostic_Commands, A_missing_game_folder_still_tells_what_is_missing) {
    const QString name = run({"--json", "reference", "T2"}).json()["reference"].toString();
    QDir(world.native("games/Thief2")).removeRecursively();
    const Console_Run found = run({"--json", "diagnose", "T2", "--reference", name});
    EXPECT_EQ(found.exit_code, 1);
    EXPECT_EQ(found.err.last(), "the game folder does not exist");
    EXPECT_EQ(found.json()["missing"].toArray().size(), 4);
    EXPECT_EQ(run({"reference", "T2"}).err.last(), "the game folder does not exist");
}

TEST_F(Diagnostic_Commands, A_page_that_can_not_be_written_is_a_failure) {
    world.make_folder("home/game_diag.htm");
    const Console_Run found = run({"--json", "diagnose", "T2"});
    EXPECT_EQ(found.exit_code, 1);
    EXPECT_EQ(found.json()["report_page_path"].toString(), "");
    EXPECT_EQ(found.json()["files"].toInt(), 4);
    EXPECT_FALSE(found.err.last().isEmpty());
}

TEST_F(Diagnostic_Commands, An_install_leaves_a_listing_when_the_user_wants_one) {
    ASSERT_EQ(run({"install", "T2", "frost.zip"}).exit_code, 0);
    EXPECT_EQ(Names(world.snapshot("home/references")), QStringList{});
    ASSERT_FALSE(world.platform.settings->set_value("GAMEDIAG", "REFERENCE_AFTER_INSTALL", "1"));
    ASSERT_EQ(run({"restore", "T2"}).exit_code, 0);
    EXPECT_EQ(Names(world.snapshot("home/references")), QStringList{});
    ASSERT_EQ(run({"install", "T2", "frost.zip"}).exit_code, 0);
    const QString name = "DIAG_T2_Killing Frost.VKDR";
    EXPECT_EQ(Names(world.snapshot("home/references")), QStringList{name});
    const QJsonObject found = run({"--json", "diagnose", "T2", "--reference", name}).json();
    EXPECT_EQ(found["unexpected"].toArray(), list({}));
    EXPECT_EQ(found["different"].toArray(), list({}));
}

} // namespace
} // namespace vantrosk
