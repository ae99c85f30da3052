#include "Game_Settings_Panel.h"

#include "Fm_Folders_Panel.h"
#include "Settings_Parts.h"

#include "ui/settings/Chosen_Game.h"
#include "ui/settings/Shown_Path.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace vantrosk {

namespace {

constexpr const char *locate_tip = "Locate Your Game Install\nUse this to find the main exe of the selected "
                                   "game.\nVantrosk will let you know "
                                   "what the exe file is called, all you need to do is find out where it "
                                   "is.\nVantrosk will then use this file "
                                   "to launch each game.";
constexpr const char *clear_tip =
    "Clear Game\nUse if you have uninstalled a game that you previously used through Vantrosk.\nRemove the "
    "selected game from Vantrosk.";
constexpr const char *missions_note = "NOTE: you do not need to select each FM zip file in a folder, just "
                                      "one to confirm that Vantrosk will look "
                                      "in a folder that has zips in.";

QString Program_hint(const Game_Tab &tab) {
    return *tab.program_file ? QStringLiteral("Press … and find %1").arg(QLatin1String(tab.program_file))
                             : QStringLiteral("Press … and find the game's program");
}

} // namespace

Game_Settings_Panel::Game_Settings_Panel(Program &program, Settings_Controls &controls, const Game_Tab &tab,
                                         const Theme &theme)
    : program_(program), controls_(controls), tab_(tab), code_(QLatin1String(tab.code)),
      folders_(new Fm_Folders_Panel(program, controls, tab, theme)) {
    setObjectName(QStringLiteral("settings_tab_") + code_);
    QLayout *game_row = Make_game_row();
    QLayout *editor_row = Make_editor_row();
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(settings_margin, settings_gap / 2, settings_margin, settings_gap / 2);
    column->setSpacing(settings_gap / 2);
    column->addWidget(
        Settings_label(QStringLiteral("Step &1) Game Location"), QStringLiteral("strong"), locate_));
    column->addLayout(game_row);
    column->addSpacing(settings_gap);
    column->addWidget(
        Settings_label(QStringLiteral("Step &2) FM Locations"), QStringLiteral("strong"), folders_->list()));
    column->addWidget(folders_, 1);
    column->addWidget(Settings_label(QLatin1String(missions_note), QStringLiteral("second")));
    column->addSpacing(settings_gap);
    column->addWidget(Settings_label(QStringLiteral("Step &3) Editor Location (if applicable)"),
                                     QStringLiteral("strong"), locate_editor_));
    column->addLayout(editor_row);
    connect(folders_, &Fm_Folders_Panel::Changed, this, &Game_Settings_Panel::Changed);
    Refresh();
}

/// What was chosen, for the eyes and for copying; it changes by the buttons beside it.
QLineEdit *Game_Settings_Panel::Make_path(const QString &name, const QString &spoken, const QString &hint) {
    auto *path = new QLineEdit;
    path->setObjectName(name + code_);
    path->setAccessibleName(spoken);
    path->setReadOnly(true);
    path->setPlaceholderText(hint);
    return path;
}

QPushButton *Game_Settings_Panel::Make_button(const QString &name, const QString &text, const QString &spoken,
                                              const QString &tip, const std::function<void()> &work) {
    QPushButton *button = Settings_button(name + code_, text, spoken, tip);
    connect(button, &QPushButton::clicked, this, [this, work] {
        work();
        Q_EMIT Changed();
    });
    return button;
}

QLayout *Game_Settings_Panel::Make_game_row() {
    const QString caption = QLatin1String(tab_.caption);
    game_path_ = Make_path(QStringLiteral("settings_game_"),
                           QStringLiteral("Game location of %1").arg(caption), Program_hint(tab_));
    locate_ = Make_button(QStringLiteral("settings_locate_"), QStringLiteral("…"),
                          QStringLiteral("Locate %1").arg(caption), QLatin1String(locate_tip),
                          [this] { Locate_Game(program_, controls_, code_); });
    clear_game_ = Make_button(QStringLiteral("settings_clear_"), QStringLiteral("&Clear Game"),
                              QStringLiteral("Clear %1").arg(caption), QLatin1String(clear_tip),
                              [this] { Clear_Game(controls_, code_); });
    auto *row = new QHBoxLayout;
    row->setSpacing(settings_gap);
    row->addWidget(game_path_, 1);
    row->addWidget(locate_);
    row->addWidget(clear_game_);
    return row;
}

QLayout *Game_Settings_Panel::Make_editor_row() {
    const QString caption = QLatin1String(tab_.caption);
    editor_path_ =
        Make_path(QStringLiteral("settings_editor_"), QStringLiteral("Editor location of %1").arg(caption),
                  tab_.editor ? QStringLiteral("Only for those who make missions")
                              : QStringLiteral("%1 has no editor of its own").arg(caption));
    locate_editor_ = Make_button(QStringLiteral("settings_locate_editor_"), QStringLiteral("…"),
                                 QStringLiteral("Locate the editor of %1").arg(caption),
                                 QStringLiteral("Find the program that missions of this game are made with"),
                                 [this] { Locate_Editor(program_, controls_, code_); });
    clear_editor_ = Make_button(QStringLiteral("settings_clear_editor_"), QStringLiteral("Clear &Editor"),
                                QStringLiteral("Clear the editor of %1").arg(caption),
                                QStringLiteral("Forget where the editor is"),
                                [this] { controls_.of(code_).editor.clear(); });
    auto *row = new QHBoxLayout;
    row->setSpacing(settings_gap);
    row->addWidget(editor_path_, 1);
    row->addWidget(locate_editor_);
    row->addWidget(clear_editor_);
    return row;
}

void Game_Settings_Panel::Refresh() {
    const Game_Controls &game = controls_.of(code_);
    const auto show = [this](QLineEdit *line, const QString &path) {
        line->setText(Shown_Path(program_, path));
        line->setToolTip(path.isEmpty() ? line->placeholderText() : line->text());
        line->setCursorPosition(0);
    };
    show(game_path_, game.game_folder);
    show(editor_path_, game.editor);
    clear_game_->setEnabled(!game.game_folder.isEmpty());
    for (QWidget *widget : {static_cast<QWidget *>(editor_path_), static_cast<QWidget *>(locate_editor_)})
        widget->setEnabled(tab_.editor != nullptr);
    clear_editor_->setEnabled(!game.editor.isEmpty());
    folders_->Refresh();
}

void Game_Settings_Panel::Take_focus() {
    locate_->setFocus(Qt::OtherFocusReason);
}

QString Game_Settings_Panel::state() const {
    const bool has_game = !controls_.of(code_).game_folder.isEmpty();
    const bool has_missions = !Listed_Folders(controls_, code_).empty();
    if (has_game)
        return has_missions ? QStringLiteral("Set up") : QStringLiteral("No mission folder yet");
    return controls_.of(code_).fm_folders.isEmpty() ? QStringLiteral("Not set up")
                                                    : QStringLiteral("No game folder yet");
}

} // namespace vantrosk
