#pragma once

#include "Theme.h"

#include <QWidget>

#include <map>

class QButtonGroup;
class QToolButton;
class QVBoxLayout;

namespace vantrosk {

struct Program;

/// Left, the games as large buttons, the current one lit; below them what the program itself offers. A game
/// that is not set up is dimmed and leads to its set-up.
class Game_Toolbar : public QWidget {
    Q_OBJECT

public:
    Game_Toolbar(const Program &program, const Theme &theme, QWidget *parent);

    void Refresh();
    QToolButton *button_of(const QString &code) const;
    QToolButton *configure() const { return configure_; }
    QToolButton *tools() const { return tools_; }
    QToolButton *help() const { return help_; }

Q_SIGNALS:
    void Game_chosen(const QString &code);
    void Set_up_wanted(const QString &code);
    void Configure_chosen();
    void Tools_chosen();
    void Help_chosen();

private:
    QToolButton *Make_button(const QString &name, const QString &text, const QIcon &icon);
    void Press(const QString &code);

    const Program &program_;
    Theme theme_;
    int icon_size_;
    std::map<QString, QToolButton *> games_;
    QToolButton *configure_;
    QToolButton *tools_;
    QToolButton *help_;
};

/// Whether a folder of the game is known: that of its missions, which is enough to list them, or its own.
bool Game_is_set_up(const Program &program, const QString &code);
/// A game of the user's own counts too.
bool Any_game_is_set_up(const Program &program);

} // namespace vantrosk
