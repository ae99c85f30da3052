#pragma once

#include <QString>

namespace vantrosk {

struct Program;
class Qt_Ui;
class frmMain;

/// Drives the window through its own controls: scan, select, readme, install, play, restore. Saves a picture
/// of each step in `folder` (native), prints a line for each, and gives 0 when every step happened.
int Run_demo_tour(Program &program, Qt_Ui &ui, frmMain &window, const QString &folder);

} // namespace vantrosk
