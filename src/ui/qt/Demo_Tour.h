#pragma once

#include "platform/Settings_Store.h"

#include <QString>

#include <map>
#include <utility>

namespace vantrosk {

struct Program;
class Qt_Ui;
class frmMain;

/// A settings store that is gone with the tour: its pictures show the window as it comes, and the user's own
/// window stays as it was.
class Tour_Settings : public Settings_Store {
public:
    QString value(const QString &section, const QString &key) const override;
    Fault set_value(const QString &section, const QString &key, const QString &value) override;

private:
    std::map<std::pair<QString, QString>, QString> values_;
};

/// Drives the window through its own controls: scan, select, readme, install, play, restore. Saves a picture
/// of each step in `folder` (native), prints a line for each, and gives 0 when every step happened.
int Run_demo_tour(Program &program, Qt_Ui &ui, frmMain &window, const QString &folder);

} // namespace vantrosk
