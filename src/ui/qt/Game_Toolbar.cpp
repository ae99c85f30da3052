#include "Game_Toolbar.h"

#include "core/Games.h"
#include "core/Program.h"

#include <QScrollArea>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace vantrosk {

namespace {

constexpr int bar_width = 92, button_width = 88, margin = 6;
constexpr float dimmed_opacity = 0.5F;

/// [MAIN_TOOLBAR] knows three sizes of pictures; anything else gives the middle one.
int Icon_size(int main_toolbar) {
    return main_toolbar == 16 || main_toolbar == 32 ? main_toolbar : 24;
}

} // namespace

bool Game_is_set_up(const Program &program, const QString &code) {
    const Game *game = Find_Game(code);
    return game && !((program.ini.*game->fm_folders).isEmpty() && (program.ini.*game->game_folder).isEmpty());
}

bool Any_game_is_set_up(const Program &program) {
    const bool any = std::any_of(Games().begin(), Games().end(), [&program](const Game &game) {
        return Game_is_set_up(program, QLatin1String(game.code));
    });
    return any || !program.quick_bar_games.empty();
}

Game_Toolbar::Game_Toolbar(const Program &program, const Theme &theme, QWidget *parent)
    : QWidget(parent), program_(program), theme_(theme), icon_size_(Icon_size(program.ini.MAIN_TOOLBAR)) {
    setObjectName(QStringLiteral("game_toolbar"));
    setAttribute(Qt::WA_StyledBackground);
    setFixedWidth(bar_width);

    auto *games = new QWidget;
    games->setObjectName(QStringLiteral("game_toolbar_games"));
    auto *games_column = new QVBoxLayout(games);
    games_column->setContentsMargins(0, 0, 0, 0);
    games_column->setSpacing(2);
    for (const Game &game : Games()) {
        const QString code = QLatin1String(game.code);
        auto *button = Make_button(QStringLiteral("game_") + code, QLatin1String(game.short_name),
                                   Game_icon(code, theme_.on_gamebar));
        button->setCheckable(true);
        connect(button, &QToolButton::clicked, this, [this, code] { Press(code); });
        games_column->addWidget(button, 0, Qt::AlignHCenter);
        games_[code] = button;
    }
    games_column->addStretch();

    // A low window scrolls the games rather than squeezing them.
    auto *area = new QScrollArea;
    area->setObjectName(QStringLiteral("game_toolbar_area"));
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->viewport()->setAutoFillBackground(false);
    area->setWidget(games);

    configure_ = Make_button(QStringLiteral("configure"), QStringLiteral("Configure"),
                             Line_icon(QStringLiteral("configure"), theme_.on_gamebar));
    configure_->setToolTip(
        QStringLiteral("Tells where the games and their missions are, and finds them (Ctrl+,)"));
    tools_ = Make_button(QStringLiteral("tools"), QStringLiteral("Tools"),
                         Line_icon(QStringLiteral("plug"), theme_.on_gamebar));
    tools_->setToolTip(QStringLiteral("Your own tools, and those that come with Vantrosk (Ctrl+T)"));
    help_ = Make_button(QStringLiteral("help"), QStringLiteral("Help"),
                        Line_icon(QStringLiteral("help"), theme_.on_gamebar));
    help_->setToolTip(QStringLiteral("What Vantrosk is and which keys it knows (F1)"));
    connect(configure_, &QToolButton::clicked, this, &Game_Toolbar::Configure_chosen);
    connect(tools_, &QToolButton::clicked, this, &Game_Toolbar::Tools_chosen);
    connect(help_, &QToolButton::clicked, this, &Game_Toolbar::Help_chosen);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, margin, 0, margin);
    column->setSpacing(2);
    column->addWidget(area, 1);
    column->addWidget(configure_, 0, Qt::AlignHCenter);
    column->addWidget(tools_, 0, Qt::AlignHCenter);
    column->addWidget(help_, 0, Qt::AlignHCenter);
    Refresh();
}

QToolButton *Game_Toolbar::Make_button(const QString &name, const QString &text, const QIcon &icon) {
    auto *button = new QToolButton;
    button->setObjectName(name);
    button->setAccessibleName(text);
    button->setText(text);
    button->setIcon(icon);
    button->setIconSize({icon_size_, icon_size_});
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setFixedSize(button_width, icon_size_ + 30);
    return button;
}

void Game_Toolbar::Refresh() {
    int number = 0;
    for (const Game &game : Games()) {
        const QString code = QLatin1String(game.code);
        const bool set_up = Game_is_set_up(program_, code);
        auto *button = games_.at(code);
        QColor colour = theme_.on_gamebar;
        colour.setAlphaF(set_up ? 1.0F : dimmed_opacity);
        ++number;
        button->setChecked(set_up && program_.SELECTED_GAME_TAB == code);
        button->setProperty("dimmed", !set_up);
        button->setIcon(
            set_up ? Game_icon(code, colour)
                   : QIcon(Game_icon(code, colour)
                               .pixmap(QSize(icon_size_, icon_size_), devicePixelRatioF(), QIcon::Disabled)));
        button->setToolTip(
            set_up
                ? QStringLiteral("%1: lists its missions (Ctrl+%2)").arg(QLatin1String(game.name)).arg(number)
                : QStringLiteral("%1 is not set up. A click asks for its folder and for the folder of its "
                                 "missions.")
                      .arg(QLatin1String(game.name)));
        button->setAccessibleDescription(set_up ? QString() : QStringLiteral("Not set up"));
        button->style()->unpolish(button);
        button->style()->polish(button);
    }
}

QToolButton *Game_Toolbar::button_of(const QString &code) const {
    const auto found = games_.find(code);
    return found == games_.end() ? nullptr : found->second;
}

void Game_Toolbar::Press(const QString &code) {
    Refresh();
    if (Game_is_set_up(program_, code))
        Q_EMIT Game_chosen(code);
    else
        Q_EMIT Set_up_wanted(code);
}

} // namespace vantrosk
