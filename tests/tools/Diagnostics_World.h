#pragma once

#include "support/World.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QStringList>

#include <gtest/gtest.h>

namespace vantrosk {

/// A Thief 2 game in "games/Thief 2" whose files have the dates that a test gives them.
class Diagnostics : public testing::Test {
protected:
    Diagnostics() { world.make_folder("games/Thief 2"); }

    /// A file of the game; the moment is local time.
    void put(const QString &name, const QByteArray &content, const QString &moment = "2000-04-05 10:00:07") {
        put_at("games/Thief 2/" + name, content, moment);
    }
    void put_at(const QString &place, const QByteArray &content, const QString &moment) {
        world.write(place, content);
        const QDateTime when = QDateTime::fromString(moment, "yyyy-MM-dd HH:mm:ss");
        QFile file(world.native(place));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(when, QFileDevice::FileModificationTime));
    }
    QString game() { return world.windows("games/Thief 2"); }
    /// What a file of "references" holds, in lines; the last is empty when the file ends with a line end.
    QStringList reference(const QString &name) {
        return QString::fromUtf8(world.read("home/references/" + name)).split("\r\n");
    }
    QStringList references() { return Names(world.snapshot("home/references")); }

    World world;
};

} // namespace vantrosk
