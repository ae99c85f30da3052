#pragma once

#include "Theme.h"

#include "ui/settings/Settings_Controls.h"

#include <QDialog>
#include <QPointer>

#include <vector>

class QTabWidget;

namespace vantrosk {

class Auto_Configure_Panel;
class Game_Settings_Panel;
class Other_Settings_Panel;

/// The settings: one tab per game, what belongs to no game, and the search for what is installed. Nothing
/// counts before Save, which ends the first run's questions.
class frmSettings : public QDialog {
    Q_OBJECT

public:
    frmSettings(Program &program, QWidget *parent);

    const Settings_Controls &controls() const { return controls_; }
    /// Brings a game's tab to the front.
    void Show_game(const QString &code);

protected:
    void reject() override;

private:
    QTabWidget *Make_tabs();
    QWidget *Make_buttons();
    void Refresh();
    void Save();
    void Set_at_work(bool at_work);

    Program &program_;
    const Theme theme_;
    Settings_Controls controls_;
    std::vector<Game_Settings_Panel *> games_;
    QTabWidget *tabs_;
    Other_Settings_Panel *other_;
    Auto_Configure_Panel *auto_configure_;
    bool at_work_ = false;
    QPointer<QWidget> focus_before_work_; ///< what is disabled loses the keys
};

} // namespace vantrosk
