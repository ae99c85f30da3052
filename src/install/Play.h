#pragma once

#include "platform/Processes.h"

#include <QString>

namespace vantrosk {

struct Program;

struct Play_Result {
    Start_Result start; ///< what the system was asked to start; empty command when nothing was
    bool started = false;
    QString refusal; ///< why it failed, for the exit code and the status panel; empty when nothing failed
};

/// The Play button: start-up checks, the game's command line, the start.
Play_Result Play_Command(Program &program);
/// Milliseconds after a start in which games read what was swapped for them.
inline constexpr int time_until_put_back = 10000;
/// Puts back what was swapped for the session; the window's timer and the console face call it.
void After_Play(Program &program);

} // namespace vantrosk
