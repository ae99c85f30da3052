#pragma once

#include "platform/linux/Linux_Platform.h"
#include "support/World.h"
#include "ui/console/Console_Commands.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace vantrosk {

struct Console_Run {
    int exit_code = 0;
    QStringList out, err;

    QJsonObject json() const { return QJsonDocument::fromJson(out.join('\n').toUtf8()).object(); }
};

/// A world with a Thief 2 game, a mission that fits it and a script in the place of the Windows runner.
class Console : public testing::Test {
protected:
    Console() {
        world.write("games/Thief2/thief2.exe", "MZ game");
        world.write("games/Thief2/convict.osm", "script");
        world.write("games/Thief2/darkhooks.dlx", "script");
        world.write("games/Thief2/strings/note.str", "the game's own");
        world.zip("missions/frost.zip",
                  {{"miss20.mis", "map"},
                   {"strings/titles.str", "title_20: \"Frost\""},
                   {"strings/note.str", "the mission's"},
                   {"readme.txt", "Title : Killing Frost\r\nAuthor : Mirek Dvořák\r\nGame : Thief 2\r\n"}});
        world.write("runner.sh",
                    "#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$0.arguments\"\npwd > \"$0.folder\"\n");
        QFile::setPermissions(world.native("runner.sh"),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        Linux_Options options;
        options.wine_prefix = world.native("prefix");
        options.runner = world.native("runner.sh");
        world.platform.processes = Make_Linux_Platform(options).processes;
    }

    Console_Run run(const QStringList &words) {
        Console_Run result;
        const Console_Streams streams{[&](const QString &line) { result.out << line; },
                                      [&](const QString &line) { result.err << line; }, false};
        result.exit_code = Run_Console(world.platform, streams, words, world.native("home"));
        return result;
    }

    void set_up() {
        ASSERT_EQ(run({"settings", "set", "T2GAME", world.native("games/Thief2")}).exit_code, 0);
        ASSERT_EQ(run({"settings", "set", "T2", world.native("missions")}).exit_code, 0);
    }

    World world;
};

} // namespace vantrosk
