#include "Console_World.h"

#include "platform/Native_Text.h"

#include <QJsonArray>

#include <filesystem>
#include <fstream>

namespace vantrosk {
namespace {

/// The mission lies under a name, in a folder, that an old system wrote in its own code page.
class Undecodable_Names : public Console {
protected:
    Undecodable_Names() {
        std::filesystem::create_directories(folder);
        std::filesystem::rename((world.native("missions") + "/frost.zip").toStdString(),
                                folder / "fr\xF6st.zip");
        world.write("games/Thief2/saves/game0001.sav", "a save");
        // The game's own file of such a name, which the mission brings too.
        std::ofstream(game_file) << "the game's own";
    }
    ~Undecodable_Names() override {
        // The temporary folder could not.
        std::error_code none;
        std::filesystem::remove_all(folder, none);
        std::filesystem::remove_all(world.native("home/references").toStdString(), none);
        std::filesystem::remove_all(world.native("games").toStdString(), none);
    }

    void set_up_games() {
        ASSERT_EQ(run({"settings", "set", "T2GAME", world.native("games/Thief2")}).exit_code, 0);
        const QString path = Native_text(QByteArray::fromStdString(folder.string()));
        ASSERT_EQ(run({"settings", "set", "T2", path}).exit_code, 0);
    }

    const std::filesystem::path folder = (world.native("missions") + "/caf").toStdString() + "\xE9 \\ x";
    const std::filesystem::path game_file = (world.native("games/Thief2") + "/").toStdString() + "\xA9.txt";
    const QString zip = QStringLiteral("fr\uF0F6st.zip");
};

TEST_F(Undecodable_Names, Are_listed_read_installed_and_put_back) {
    set_up_games();
    const QJsonObject scan = run({"--json", "scan", "T2"}).json();
    EXPECT_EQ(scan["zip_count"].toInt(), 1);
    EXPECT_EQ(scan["rows"].toArray().last().toObject()["zip"].toString(), zip);
    const QJsonObject info = run({"--json", "info", "T2", zip}).json();
    EXPECT_EQ(info["name"].toString(), "Killing Frost");
    EXPECT_EQ(info["author"].toString(), "Mirek Dvořák");

    const Console_Run install = run({"--json", "install", "T2", zip});
    EXPECT_EQ(install.exit_code, 0) << install.err.join('\n').toStdString();
    EXPECT_TRUE(install.json()["installed"].toBool());
    EXPECT_EQ(world.read("games/Thief2/strings/note.str"), "the mission's");
    EXPECT_TRUE(run({"--json", "info", "T2", zip}).json()["installed"].toBool());

    world.write("games/Thief2/saves/game0002.sav", "a save of the mission");
    const Console_Run restore = run({"--json", "restore", "T2"});
    EXPECT_EQ(restore.exit_code, 0) << restore.err.join('\n').toStdString();
    EXPECT_EQ(world.read("games/Thief2/strings/note.str"), "the game's own");
    EXPECT_FALSE(world.exists("games/Thief2/miss20.mis"));
    EXPECT_TRUE(std::filesystem::exists(game_file));
    EXPECT_EQ(run({"--json", "install", "T2", zip}).exit_code, 0);
    EXPECT_EQ(world.read("games/Thief2/saves/game0002.sav"), "a save of the mission");
}

} // namespace
} // namespace vantrosk
