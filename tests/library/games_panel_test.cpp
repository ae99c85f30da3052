#include "scan_World.h"

#include "core/mdlStartup.h"
#include "library/Games_Panel.h"

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

QStringList Shown(Program &program) {
    QStringList rows;
    for (const Games_Panel_Row &row : Games_Panel_Rows(program))
        rows << QStringList{row.code, row.name, row.tip, row.zips, row.total_size, row.finished, row.saves}
                    .join('|');
    return rows;
}

const QStringList core_games{"T1|Thief The Dark Project|||||",
                             "TG|Thief Gold|||||",
                             "T2|Thief The Metal Age|||||",
                             "T3|Thief Deadly Shadows|||||",
                             "DM|Dark Metal|||||",
                             "DMOD|The Dark Mod|||||",
                             "T2X|Thief 2X|||||",
                             "SS2|System Shock 2|||||"};

} // namespace

TEST(Games_Panel, All_games_are_there_and_their_counts_come_with_a_scan) {
    Scan_World world;
    EXPECT_EQ(Shown(world.program()), core_games);
    world.mission("one.zip");
    world.record("one.zip", "One", "T2", "completed = 4");
    world.write("games/T2/allsaves/saves_one.zip", "s");
    world.scan();
    QStringList wanted = core_games;
    const qint64 size = world.found().total_size;
    wanted[2] = QString("T2|Thief The Metal Age||1|%1 Bytes|1|1").arg(size);
    EXPECT_EQ(Shown(world.program()), wanted);
    EXPECT_EQ(Shown(world.restart()).size(), core_games.size());
}

TEST(Games_Panel, Games_of_the_quick_bar_follow_each_name_once) {
    World world;
    world.write("home/Vantrosk_QBAR.ini",
                "[QBAR_1]\r\nisgame=TRUE\r\nGameName=Quake Game\r\nToolTip=My Quake\r\n\r\n"
                "[QBAR_2]\r\nisgame=FALSE\r\nGameName=Launcher\r\n\r\n"
                "[QBAR_3]\r\nisgame=TRUE\r\nGameName=QUAKE game\r\n\r\n"
                "[QBAR_4]\r\nisgame=TRUE\r\nGameName=\r\n\r\n");
    Program &program = world.program();
    Read_Quick_Bar_Games(program);
    EXPECT_EQ(Shown(program), core_games + QStringList{"CUSTOM|Quake Game|My Quake||||"});
}

} // namespace vantrosk
