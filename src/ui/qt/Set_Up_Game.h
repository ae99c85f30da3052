#pragma once

#include "Theme.h"

#include <QDialog>
#include <QWidget>

class QComboBox;
class QPushButton;

namespace vantrosk {

struct Program;
class Elided_Label;
class Qt_Ui;

/// Keeps the two folders of a game (native paths; an empty one stays as it was) and tells the window. False,
/// with the reason shown, when the main ini can not be written.
bool Set_up_game(Program &program, const QString &code, const QString &game_folder,
                 const QString &mission_folder);

/// One game, its folder, the folder of its missions: enough for a newcomer to begin.
class Set_Up_Panel : public QWidget {
    Q_OBJECT

public:
    Set_Up_Panel(Program &program, Qt_Ui &ui, QWidget *parent = nullptr);

    void Choose_game(const QString &code);
    QString game() const;
    void Take_focus();
    QWidget *First_control() const;

Q_SIGNALS:
    void Game_set_up(const QString &code);

private:
    QPushButton *Make_folder_button(const QString &name, const QString &text, const QString &tip);
    void Show_game();
    void Choose_game_folder();
    void Choose_mission_folder();
    void Refresh();
    void Apply();

    Program &program_;
    Qt_Ui &ui_;
    QComboBox *games_;
    Elided_Label *game_folder_text_, *mission_folder_text_;
    QPushButton *choose_game_, *choose_missions_, *apply_;
    QString game_folder_, mission_folder_; ///< native, as just chosen
};

/// The same in a window of its own, for a program that is set up already.
class Set_Up_Dialog : public QDialog {
    Q_OBJECT

public:
    Set_Up_Dialog(Program &program, Qt_Ui &ui, const QString &code, QWidget *parent);
    QString game() const { return game_; } ///< what was set up; empty when cancelled

private:
    QString game_;
};

/// The whole work area while no game is set up: what to do, and the buttons that do it.
class Empty_State : public QWidget {
    Q_OBJECT

public:
    Empty_State(Program &program, Qt_Ui &ui, const Theme &theme, QWidget *parent);
    Set_Up_Panel *set_up() const { return set_up_; }

Q_SIGNALS:
    void Demo_wanted();
    void Game_set_up(const QString &code);

private:
    Set_Up_Panel *set_up_;
};

} // namespace vantrosk
