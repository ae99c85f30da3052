#include "scan_World.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace vantrosk {

namespace {

/// What a process wrote before it ended, or that it broke.
QByteArray Told_by(pid_t child, int from) {
    QByteArray told;
    char buffer[4096];
    for (ssize_t count; (count = ::read(from, buffer, sizeof buffer)) > 0;)
        told.append(buffer, static_cast<int>(count));
    ::close(from);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? told : QByteArray("the process broke");
}

void Set_up_anew(Scan_World &world) {
    world.restart();
    world.set_up_game("T2", "games/T2", "zips");
}

/// A scan in a process whose files can not grow, as on a full disk: how many rows it listed, then its boxes.
QStringList Scan_on_full_disk(Scan_World &world) {
    world.stop();
    int pipe[2];
    if (::pipe(pipe) != 0)
        return {"no pipe"};
    const pid_t child = ::fork();
    if (child == 0) {
        Set_up_anew(world);
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit nothing{0, 0};
        if (::setrlimit(RLIMIT_FSIZE, &nothing) != 0)
            ::_exit(1);
        world.scan();
        QStringList told{QString::number(world.listed().size())};
        for (const Box &box : world.ui.boxes)
            told << QString(box.text).replace('\n', ' ');
        const QByteArray text = told.join('\n').toUtf8();
        ::_exit(::write(pipe[1], text.constData(), static_cast<size_t>(text.size())) == text.size() ? 0 : 1);
    }
    ::close(pipe[1]);
    return QString::fromUtf8(Told_by(child, pipe[0])).split('\n');
}

} // namespace

TEST(Scan_Full_Disk, The_list_is_whole_an_error_tells_and_no_record_is_lost) {
    Scan_World world;
    for (int i = 0; i < 30; ++i)
        world.mission(QString("m%1.zip").arg(i, 2, 10, QChar('0')));
    world.record("kept.zip", "Kept", "T2", "score = 7, review = 'fine'");
    world.record("m03.zip", "By the user", "T2", "score = 9");
    const QStringList told = Scan_on_full_disk(world);
    EXPECT_EQ(told.value(0), "31");
    EXPECT_EQ(told.size(), 2) << told.join(" | ").toStdString();
    EXPECT_TRUE(told.value(1).startsWith("Error ")) << told.value(1).toStdString();
    EXPECT_TRUE(told.value(1).contains("in procedure Get_archives of Form frmMain"))
        << told.value(1).toStdString();
    EXPECT_EQ(world.records(), (QStringList{"kept.zip|Kept|Ann|T2||", "m03.zip|By the user|Ann|T2||"}));
    EXPECT_EQ(db_Query(world.program(), "select * from Table_Scores where score = 9").size(), 1);

    Set_up_anew(world);
    world.scan();
    EXPECT_EQ(world.listed().size(), 31);
    EXPECT_EQ(world.cell("m03.zip", col_name), "By the user");
    EXPECT_EQ(world.records().size(), 31);
    EXPECT_TRUE(world.ui.boxes.empty()) << world.ui.box_texts().join('\n').toStdString();
}

} // namespace vantrosk
