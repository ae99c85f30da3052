#include "Set_Up_Game.h"

#include "Demo_Library.h"
#include "Elided_Label.h"
#include "Qt_Ui.h"

#include "core/Games.h"
#include "core/Program.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace vantrosk {

namespace {

constexpr int card_width = 560, margin = 16, gap = 8;
const char *const first_offer = "T2";

QLabel *Caption(const QString &text, QWidget *buddy) {
    auto *label = new QLabel(text);
    label->setProperty("kind", QStringLiteral("caption"));
    label->setBuddy(buddy);
    return label;
}

/// A folder for the user's eyes; native, several joined.
QString Shown_folders(const Program &program, const QStringList &folders) {
    QStringList shown;
    for (const QString &folder : folders)
        shown << program.files.to_native(folder);
    return shown.join(QStringLiteral("; "));
}

QString With_separator(const QString &folder) {
    return folder.endsWith(u'\\') ? folder : folder + u'\\';
}

} // namespace

bool Set_up_game(Program &program, const QString &code, const QString &game_folder,
                 const QString &mission_folder) {
    const Game *game = Find_Game(code);
    if (!game)
        return false;
    if (!game_folder.isEmpty())
        program.ini.*game->game_folder = program.files.to_windows(game_folder);
    if (!mission_folder.isEmpty())
        program.ini.*game->fm_folders =
            Join_folder_list({With_separator(program.files.to_windows(mission_folder))});
    const Fault fault = Write_Main_Ini(program);
    program.ui.games_changed();
    if (fault)
        Show_Warning(program, QStringLiteral("Vantrosk"), fault.text);
    return !fault;
}

Set_Up_Panel::Set_Up_Panel(Program &program, Qt_Ui &ui, QWidget *parent)
    : QWidget(parent), program_(program), ui_(ui), games_(new QComboBox), game_folder_text_(new Elided_Label),
      mission_folder_text_(new Elided_Label) {
    setObjectName(QStringLiteral("set_up_panel"));
    games_->setObjectName(QStringLiteral("set_up_game"));
    games_->setAccessibleName(QStringLiteral("Game"));
    games_->setToolTip(QStringLiteral("The game to set up"));
    for (const Game &game : Games())
        games_->addItem(QLatin1String(game.name), QLatin1String(game.code));
    choose_game_ =
        Make_folder_button(QStringLiteral("set_up_game_folder"), QStringLiteral("Choose the &game folder…"),
                           QStringLiteral("The folder that the game is installed in"));
    choose_missions_ = Make_folder_button(QStringLiteral("set_up_mission_folder"),
                                          QStringLiteral("Choose the &mission folder…"),
                                          QStringLiteral("The folder that holds your mission zips"));
    apply_ = new QPushButton(QStringLiteral("&Use these folders"));
    apply_->setObjectName(QStringLiteral("set_up_apply"));
    apply_->setAccessibleName(QStringLiteral("Use these folders"));
    apply_->setToolTip(QStringLiteral("Keeps the folders and lists the missions"));
    game_folder_text_->setObjectName(QStringLiteral("set_up_game_folder_text"));
    mission_folder_text_->setObjectName(QStringLiteral("set_up_mission_folder_text"));

    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(margin);
    grid->setVerticalSpacing(gap);
    grid->setColumnStretch(1, 1);
    grid->addWidget(Caption(QStringLiteral("Ga&me"), games_), 0, 0);
    grid->addWidget(games_, 0, 1, 1, 2);
    grid->addWidget(Caption(QStringLiteral("Game folder"), choose_game_), 1, 0);
    grid->addWidget(game_folder_text_, 1, 1);
    grid->addWidget(choose_game_, 1, 2);
    grid->addWidget(Caption(QStringLiteral("Mission folder"), choose_missions_), 2, 0);
    grid->addWidget(mission_folder_text_, 2, 1);
    grid->addWidget(choose_missions_, 2, 2);
    grid->addWidget(apply_, 3, 1, 1, 2, Qt::AlignRight);

    connect(games_, &QComboBox::currentIndexChanged, this, &Set_Up_Panel::Show_game);
    connect(choose_game_, &QPushButton::clicked, this, &Set_Up_Panel::Choose_game_folder);
    connect(choose_missions_, &QPushButton::clicked, this, &Set_Up_Panel::Choose_mission_folder);
    connect(apply_, &QPushButton::clicked, this, &Set_Up_Panel::Apply);
    Choose_game(QLatin1String(first_offer));
    Show_game();
}

QPushButton *Set_Up_Panel::Make_folder_button(const QString &name, const QString &text, const QString &tip) {
    auto *button = new QPushButton(text);
    button->setObjectName(name);
    button->setAccessibleName(QString(text).remove(u'&'));
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

void Set_Up_Panel::Choose_game(const QString &code) {
    const int index = games_->findData(code);
    if (index >= 0)
        games_->setCurrentIndex(index);
}

QString Set_Up_Panel::game() const {
    return games_->currentData().toString();
}

QWidget *Set_Up_Panel::First_control() const {
    return choose_game_;
}

void Set_Up_Panel::Take_focus() {
    choose_game_->setFocus(Qt::OtherFocusReason);
}

void Set_Up_Panel::Show_game() {
    game_folder_.clear();
    mission_folder_.clear();
    Refresh();
}

void Set_Up_Panel::Choose_game_folder() {
    const QString folder =
        ui_.Choose_folder(QStringLiteral("Folder of %1").arg(games_->currentText()), game_folder_);
    if (!folder.isEmpty())
        game_folder_ = folder;
    Refresh();
}

void Set_Up_Panel::Choose_mission_folder() {
    const QString folder = ui_.Choose_folder(
        QStringLiteral("Folder of the missions for %1").arg(games_->currentText()), mission_folder_);
    if (!folder.isEmpty())
        mission_folder_ = folder;
    Refresh();
}

void Set_Up_Panel::Refresh() {
    const Game *game = Find_Game(this->game());
    if (!game)
        return;
    const QString game_folder = program_.ini.*game->game_folder;
    const QStringList missions = Split_folder_list(program_.ini.*game->fm_folders);
    const QString none = QStringLiteral("not chosen yet");
    QString game_shown = game_folder_, missions_shown = mission_folder_;
    if (game_shown.isEmpty())
        game_shown = game_folder.isEmpty() ? none : Shown_folders(program_, {game_folder});
    if (missions_shown.isEmpty())
        missions_shown = missions.isEmpty() ? none : Shown_folders(program_, missions);
    game_folder_text_->Set_text(game_shown);
    mission_folder_text_->Set_text(missions_shown);
    apply_->setEnabled(!game_folder_.isEmpty() || !mission_folder_.isEmpty());
}

void Set_Up_Panel::Apply() {
    const QString code = game();
    if (!Set_up_game(program_, code, game_folder_, mission_folder_))
        return;
    Show_game();
    Q_EMIT Game_set_up(code);
}

Set_Up_Dialog::Set_Up_Dialog(Program &program, Qt_Ui &ui, const QString &code, QWidget *parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("set_up_dialog"));
    setWindowTitle(QStringLiteral("Set up a game"));
    setMinimumWidth(card_width);
    auto *panel = new Set_Up_Panel(program, ui);
    if (!code.isEmpty())
        panel->Choose_game(code);
    auto *buttons = new QDialogButtonBox;
    auto *close = buttons->addButton(QStringLiteral("&Close"), QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("set_up_close"));
    close->setAccessibleName(QStringLiteral("Close"));
    close->setToolTip(QStringLiteral("Closes without a change (Escape)"));
    close->setAutoDefault(false);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(margin);
    column->addWidget(panel);
    column->addWidget(buttons);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    connect(panel, &Set_Up_Panel::Game_set_up, this, [this](const QString &set_up) {
        game_ = set_up;
        accept();
    });
}

Empty_State::Empty_State(Program &program, Qt_Ui &ui, const Theme &theme, QWidget *parent)
    : QWidget(parent), set_up_(new Set_Up_Panel(program, ui)) {
    setObjectName(QStringLiteral("empty_state"));
    setAttribute(Qt::WA_StyledBackground);
    auto *title = new QLabel(QStringLiteral("Vantrosk is not set up yet"));
    title->setProperty("kind", QStringLiteral("title"));
    auto *text =
        new QLabel(QStringLiteral("Name the folder of a game and the folder of its missions, and "
                                  "Vantrosk lists them, shows their readmes, installs and plays them."));
    text->setWordWrap(true);
    text->setProperty("kind", QStringLiteral("second"));
    auto *demo = new QPushButton(QStringLiteral("&Try the demo library"));
    demo->setObjectName(QStringLiteral("try_demo"));
    demo->setAccessibleName(QStringLiteral("Try the demo library"));
    demo->setToolTip(
        QStringLiteral("Makes a small library of missions and stand-in games to look around with"));
    demo->setProperty("kind", QStringLiteral("primary"));
    demo->setIcon(Line_icon(QStringLiteral("demo"), theme.on_quickbar));
    demo->setIconSize({20, 20});
    demo->setVisible(!Demo_maker().isEmpty());

    auto *card = new QWidget;
    card->setMaximumWidth(card_width);
    auto *card_column = new QVBoxLayout(card);
    card_column->setContentsMargins(margin, margin, margin, margin);
    card_column->setSpacing(gap);
    card_column->addWidget(title);
    card_column->addWidget(text);
    card_column->addSpacing(margin);
    card_column->addWidget(set_up_);
    card_column->addSpacing(margin);
    card_column->addWidget(demo, 0, Qt::AlignLeft);

    auto *row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(card, 6);
    row->addStretch(1);
    auto *column = new QVBoxLayout(this);
    column->addStretch(2);
    column->addLayout(row);
    column->addStretch(3);
    connect(demo, &QPushButton::clicked, this, &Empty_State::Demo_wanted);
    connect(set_up_, &Set_Up_Panel::Game_set_up, this, &Empty_State::Game_set_up);
}

} // namespace vantrosk
