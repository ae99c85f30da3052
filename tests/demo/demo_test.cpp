#include "Demo_Library.h"

#include "platform/linux/Linux_Platform.h"
#include "support/World.h"
#include "ui/console/Console_Commands.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

struct List_Row {
    QString name, zip, author, game;

    friend void PrintTo(const List_Row &row, std::ostream *stream) {
        *stream << row.name.toStdString() << " | " << row.zip.toStdString() << " | "
                << row.author.toStdString() << " | " << row.game.toStdString();
    }
    bool operator==(const List_Row &) const = default;
};

QJsonObject Run_cli(World &world, const QStringList &words) {
    QString text;
    const Console_Streams streams{[&](const QString &line) { text += line; }, [](const QString &) {}, false};
    Run_Console(world.platform, streams, QStringList{"--json"} + words, world.native("home"));
    return QJsonDocument::fromJson(text.toUtf8()).object();
}

std::vector<List_Row> Scan(World &world, const QString &game) {
    std::vector<List_Row> rows;
    for (const QJsonValue &value : Run_cli(world, {"scan", game})["rows"].toArray()) {
        const QJsonObject row = value.toObject();
        if (!row["zip"].toString().startsWith("Original"))
            rows.push_back({row["name"].toString(), row["zip"].toString(), row["author"].toString(),
                            row["game"].toString()});
    }
    return rows;
}

TEST(Demo_Library, Every_mission_is_told_for_what_it_is_whoever_made_its_zip) {
    World world;
    ASSERT_EQ(demo::Make_library(world.native("home"), world.native("library"), {}), QString());
    const std::vector<List_Row> thief_2{{"A Night at the Harbour", "harbour_v1.zip", "Ann Lee", "T2"},
                                        {"La Nuit des Voleurs", "nuit.zip", "Rémi", "T2"},
                                        {"Ruins of the Old Guild", "oldguild.zip", "B. Moore", "T2"},
                                        {"Silent Tower", "silent.zip", "Kestrel", "T2"},
                                        {"The Killing Frost", "frost.zip", "Mirek Dvořák", "T2"},
                                        {"Unter der Kathedrale", "undercath.zip", "Hanna", "T2"},
                                        {"Winter Lantern", "wlantern.zip", "Анна Лисицына", "T2"}};
    EXPECT_EQ(Scan(world, "T2"), thief_2);
    EXPECT_EQ(Scan(world, "T1"),
              (std::vector<List_Row>{{"The Canal Watch", "canalwatch.zip", "Ines Ferro", "T1"},
                                     {"The Cellar Door", "cellar.zip", "Tom Ashby", "T1"}}));
    EXPECT_EQ(Scan(world, "TG"),
              (std::vector<List_Row>{{"Stará mincovna", "mincovna.zip", "Božena Říhová", "TG"},
                                     {"The Gilded Hour", "gilded.zip", "Ann Lee", "TG"}}));
    EXPECT_EQ(Scan(world, "SS2"),
              (std::vector<List_Row>{{"Quiet Deck", "quietdeck.zip", "J. Okafor", "SS2"},
                                     {"The Greenhouse", "greenhouse.zip", "J. Okafor", "SS2"}}));
    EXPECT_EQ(Scan(world, "DMOD"),
              (std::vector<List_Row>{{"Cold Lab", "coldlab.zip", "Petra Lindqvist", "DOOM"},
                                     {"Red Station", "redstation.zip", "Petra Lindqvist", "DOOM"}}));
}

TEST(Demo_Library, Every_mission_installs_and_its_game_comes_back_byte_for_byte) {
    World world;
    ASSERT_EQ(demo::Make_library(world.native("home"), world.native("library"), {}), QString());
    const std::map<QString, QString> folders{{"T1", "Thief 1"},
                                             {"TG", "Thief Gold"},
                                             {"T2", "Thief 2"},
                                             {"SS2", "System Shock 2"},
                                             {"DMOD", "Doom 3"}};
    for (const auto &[game, folder] : folders) {
        const QString game_folder = "library/games/" + folder;
        const Snapshot before = world.snapshot(game_folder);
        for (const List_Row &row : Scan(world, game)) {
            EXPECT_TRUE(Run_cli(world, {"install", game, row.zip})["installed"].toBool())
                << row.zip.toStdString();
            EXPECT_NE(world.snapshot(game_folder), before) << row.zip.toStdString();
        }
        EXPECT_EQ(Run_cli(world, {"restore", game})["status"].toString(), "Original Missions restored");
        Snapshot after = world.snapshot(game_folder);
        // What the program keeps there, and empty folders of names that no game knows.
        std::erase_if(after, [&](const auto &entry) {
            return entry.first.startsWith("allsaves/") || entry.first == "current_install.txt" ||
                   (entry.first.endsWith('/') && !before.contains(entry.first));
        });
        EXPECT_EQ(Names(after), Names(before)) << game.toStdString();
        EXPECT_EQ(after, before) << game.toStdString();
    }
}

TEST(Demo_Library, There_are_missions_for_five_games_with_readmes_of_every_kind_and_pictures_that_open) {
    const std::vector<demo::Mission> missions = demo::Make_missions();
    EXPECT_GE(missions.size(), 12u);
    QStringList endings, games;
    for (const demo::Mission &mission : missions) {
        games << mission.game;
        for (const auto &[name, content] : mission.files) {
            endings << name.section('.', -1).toLower();
            EXPECT_FALSE(content.isEmpty()) << name.toStdString();
        }
    }
    for (const char *ending :
         {"txt", "vkml", "rtf", "jpg", "gif", "pcx", "ogg", "mp3", "mis", "pk4", "osm", "str"})
        EXPECT_TRUE(endings.contains(ending)) << ending;
    for (const char *game : {"T1", "TG", "T2", "SS2", "DMOD"})
        EXPECT_TRUE(games.contains(game)) << game;
}

} // namespace
} // namespace vantrosk
