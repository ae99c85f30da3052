#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace vantrosk {

struct Program;

/// What the window's timers count between two ticks.
struct Timers {
    int animation_picture = 2; ///< of the status light, 2 to 9
    bool animation_runs = false;
    int focus_count = 0;
    bool focus_runs = false;
    int download_state = 0; ///< 2: a download is ready to be applied
    /// At least 0, below 1. Nothing: the system's own.
    std::function<double()> random;
};

/// Each second: saves unsaved edits of the details panel, shows a tip after a scan, and the patch window once
/// a download is there.
void Housekeeping_Tick(Program &program);
/// The next picture of the status light; nothing while the animation stands still.
void Animation_Tick(Program &program);
/// Gives the list the focus at the 20th tick; nothing while it does not run.
void Focus_Tick(Program &program);
void Start_Focus_Timer(Program &program);
/// Each minute: the presence tool, which counts the minutes, tells the community that the user is free.
void Presence_Tick(Program &program);
/// Once behind the start of a game: its swapped files come back.
void Game_Exit_Tick(Program &program);

/// The tips that there are, in order.
const QStringList &Tips();
/// "TIP: " and one of the first five tips; `random` is at least 0 and below 1.
QString Tip_Text(double random);

} // namespace vantrosk
