#pragma once

#include "Theme.h"

#include "ui/settings/Settings_Controls.h"

#include <QWidget>

class QLineEdit;
class QPushButton;

namespace vantrosk {

class Fm_Folders_Panel;

/// One game's tab of the settings: where the game is, where its missions are, where its editor is.
class Game_Settings_Panel : public QWidget {
    Q_OBJECT

public:
    Game_Settings_Panel(Program &program, Settings_Controls &controls, const Game_Tab &tab,
                        const Theme &theme);

    void Refresh();
    void Take_focus();
    /// "Set up", or what is missing.
    QString state() const;

Q_SIGNALS:
    /// Something of the controls is another now, perhaps on another tab.
    void Changed();

private:
    QLineEdit *Make_path(const QString &name, const QString &spoken, const QString &hint);
    QPushButton *Make_button(const QString &name, const QString &text, const QString &spoken,
                             const QString &tip, const std::function<void()> &work);
    QLayout *Make_game_row();
    QLayout *Make_editor_row();

    Program &program_;
    Settings_Controls &controls_;
    const Game_Tab &tab_;
    const QString code_;
    QLineEdit *game_path_ = nullptr, *editor_path_ = nullptr;
    QPushButton *locate_ = nullptr, *clear_game_ = nullptr, *locate_editor_ = nullptr,
                *clear_editor_ = nullptr;
    Fm_Folders_Panel *folders_;
};

} // namespace vantrosk
