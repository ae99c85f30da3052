#include "Console_World.h"

#include <QJsonArray>

namespace vantrosk {
namespace {

/// A button of the quick-bar for a game of the user's own, whose maps lie in "maps" of a zip.
class Custom_Lists : public Console {
protected:
    Custom_Lists() {
        world.write("games/Quake/quake.exe", "MZ game");
        world.write("home/Vantrosk_QBAR.ini",
                    ("[QBAR_1]\r\nPath=" + world.windows("runner.sh") +
                     "\r\nToolTip=A launcher\r\nisgame=FALSE\r\n\r\n"
                     "[QBAR_2]\r\nisgame=TRUE\r\nGameName=Quake Game\r\nFMpath=" +
                     world.windows("maps") + "\r\nInstallPath=" + world.windows("games/Quake") +
                     "\r\nMissionFileExtention=bsp\r\nmapfile_folder=maps\\\r\n\r\n")
                        .toUtf8());
        world.zip("maps/vault.zip", {{"maps/vault.bsp", "map"}, {"vault.txt", "Title : The Vault\r\n"}});
        world.zip("maps/flat.zip", {{"flat.bsp", "map"}});
    }

    QJsonObject vault() {
        const QJsonObject list = run({"--json", "scan", "Quake Game"}).json();
        for (const QJsonValue &row : list["rows"].toArray())
            if (row.toObject()["zip"].toString() == "vault.zip")
                return row.toObject();
        return {};
    }
};

} // namespace

TEST_F(Custom_Lists, A_game_of_the_users_own_is_listed_by_its_name) {
    const Console_Run scan = run({"--json", "scan", "quake game"});
    EXPECT_EQ(scan.exit_code, 0) << scan.err.join('\n').toStdString();
    EXPECT_EQ(scan.json()["game"].toString(), "Quake Game");
    EXPECT_EQ(scan.json()["caption"].toString(),
              "Vantrosk (1.4194 - 3-March-09) - Found 1 (Quake Game) FMs ");
    EXPECT_EQ(scan.json()["not_structured"].toArray(), QJsonArray{"flat.zip"});
    QStringList rows;
    for (const QJsonValue &row : scan.json()["rows"].toArray())
        rows << row["name"].toString() + "|" + row["zip"].toString() + "|" + row["game"].toString();
    EXPECT_EQ(rows, (QStringList{"Quake Game Original Missions|Original|Quake Game",
                                 "The Vault|vault.zip|Quake Game"}));
}

TEST_F(Custom_Lists, A_mission_of_it_is_told_with_its_folder) {
    const Console_Run info = run({"--json", "info", "Quake Game", "VAULT.zip"});
    EXPECT_EQ(info.exit_code, 0) << info.err.join('\n').toStdString();
    const QStringList told{info.json()["name"].toString(), info.json()["game_text"].toString(),
                           info.json()["active_game"].toString(), info.json()["game_path"].toString()};
    EXPECT_EQ(told,
              (QStringList{"The Vault", "CUSTOM - Quake Game", "Quake Game", world.native("games/Quake")}));
}

TEST_F(Custom_Lists, A_score_is_kept_and_a_reset_forgets_it) {
    const Console_Run score =
        run({"--json", "score", "Quake Game", "vault.zip", "--score", "8", "--finished", "hard"});
    EXPECT_EQ(score.exit_code, 0) << score.err.join('\n').toStdString();
    EXPECT_EQ(score.json(), vault());
    EXPECT_EQ(vault()["score"].toString() + vault()["finished"].toString(), "8H");
    const Console_Run reset = run({"--json", "--answer", "yes", "reset", "Quake Game", "vault.zip"});
    EXPECT_TRUE(reset.json()["reset"].toBool()) << reset.err.join('\n').toStdString();
    EXPECT_EQ(vault()["score"].toString() + vault()["finished"].toString(), "");
}

TEST_F(Custom_Lists, Its_filters_narrow_the_list) {
    run({"score", "Quake Game", "vault.zip", "--score", "8"});
    EXPECT_EQ(run({"--json", "scan", "Quake Game", "--filter", "1"}).json()["rows"].toArray().size(), 2);
    EXPECT_EQ(run({"--json", "scan", "Quake Game", "--filter", "4"}).json()["rows"].toArray().size(), 1);
    EXPECT_EQ(run({"--json", "scan", "Quake Game", "--filter", "31"}).json()["rows"].toArray().size(), 1);
}

TEST_F(Custom_Lists, A_launcher_and_an_unknown_name_are_no_games) {
    for (const char *word : {"A launcher", "Quake", "", "CUSTOM"}) {
        const Console_Run scan = run({"scan", word});
        EXPECT_EQ(scan.exit_code, 2) << word;
        EXPECT_EQ(scan.err, QStringList{QString("there is no game \"%1\"").arg(word)});
    }
}

TEST_F(Custom_Lists, A_zip_that_is_not_listed_is_named_with_the_list) {
    const Console_Run info = run({"info", "QUAKE GAME", "flat.zip"});
    EXPECT_EQ(info.exit_code, 1);
    EXPECT_EQ(info.err, QStringList{"\"flat.zip\" is not in the list of Quake Game"});
}

} // namespace vantrosk
