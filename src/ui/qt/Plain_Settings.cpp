#include "Plain_Settings.h"

#include "Qt_Ui.h"
#include "Set_Up_Game.h"

#include "core/Games.h"
#include "core/Program.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace vantrosk {

namespace {

constexpr int margin = 16, gap = 12, window_width = 760, window_height = 420;
constexpr int code_role = Qt::UserRole;
enum Settings_Column { game_column, state_column, game_folder_column, missions_column, settings_columns };

QString State_text(bool has_game, bool has_missions) {
    if (has_game && has_missions)
        return QStringLiteral("Set up");
    if (has_game)
        return QStringLiteral("No mission folder yet");
    return has_missions ? QStringLiteral("No game folder yet") : QStringLiteral("Not set up");
}

QPushButton *Add_button(QDialogButtonBox *buttons, QDialogButtonBox::ButtonRole role, const QString &name,
                        const QString &text, const QString &tip) {
    auto *button = buttons->addButton(text, role);
    button->setObjectName(name);
    button->setAccessibleName(QString(text).remove(u'&').remove(u'…'));
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

} // namespace

Plain_Settings::Plain_Settings(Program &program, Qt_Ui &ui, QWidget *parent)
    : QDialog(parent), program_(program), ui_(ui), games_(new QTreeWidget) {
    setObjectName(QStringLiteral("plain_settings"));
    setWindowTitle(QStringLiteral("Settings"));
    resize(window_width, window_height);
    auto *text =
        new QLabel(QStringLiteral("Where each game lies and where its missions lie. Choose a game, then “Set "
                                  "up”; Save when all is named."));
    text->setWordWrap(true);
    text->setProperty("kind", QStringLiteral("second"));

    games_->setObjectName(QStringLiteral("settings_games"));
    games_->setAccessibleName(QStringLiteral("Games"));
    games_->setToolTip(QStringLiteral("Enter sets the chosen game up"));
    games_->setRootIsDecorated(false);
    games_->setUniformRowHeights(true);
    games_->setAllColumnsShowFocus(true);
    games_->setAlternatingRowColors(true);
    games_->setColumnCount(settings_columns);
    games_->setHeaderLabels({QStringLiteral("Game"), QStringLiteral("State"), QStringLiteral("Game folder"),
                             QStringLiteral("Mission folders")});
    games_->setTextElideMode(Qt::ElideMiddle);
    for (const Game &game : Games()) {
        auto *row = new QTreeWidgetItem(games_, {QLatin1String(game.name)});
        row->setData(game_column, code_role, QLatin1String(game.code));
    }
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(gap);
    column->addWidget(text);
    column->addWidget(games_, 1);
    column->addWidget(Make_buttons());
    games_->installEventFilter(this);
    connect(games_, &QTreeWidget::itemDoubleClicked, this, &Plain_Settings::Set_up_current);
    connect(games_, &QTreeWidget::currentItemChanged, this,
            [this](const QTreeWidgetItem *current) { set_up_->setEnabled(current != nullptr); });
    Refresh();
    games_->setCurrentItem(games_->topLevelItem(0));
    games_->header()->setStretchLastSection(true);
    for (int i = game_column; i <= state_column; ++i)
        games_->resizeColumnToContents(i);
    // Room for the longest state, whatever the states are now.
    games_->setColumnWidth(state_column,
                           games_->fontMetrics().horizontalAdvance(State_text(true, false)) + 3 * gap);
    games_->setColumnWidth(
        game_folder_column,
        (window_width - games_->columnWidth(game_column) - games_->columnWidth(state_column)) / 2);
    games_->setFocus();
}

QWidget *Plain_Settings::Make_buttons() {
    auto *buttons = new QDialogButtonBox;
    set_up_ = Add_button(buttons, QDialogButtonBox::ActionRole, QStringLiteral("settings_set_up"),
                         QStringLiteral("Set &up…"), QStringLiteral("Names the folders of the chosen game"));
    auto *save = Add_button(buttons, QDialogButtonBox::AcceptRole, QStringLiteral("settings_save"),
                            QStringLiteral("&Save"), QStringLiteral("Keeps the settings and closes"));
    auto *close = Add_button(buttons, QDialogButtonBox::RejectRole, QStringLiteral("settings_close"),
                             QStringLiteral("&Close"), QStringLiteral("Closes the settings (Escape)"));
    connect(set_up_, &QPushButton::clicked, this, &Plain_Settings::Set_up_current);
    connect(save, &QPushButton::clicked, this, &Plain_Settings::Save);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    return buttons;
}

/// Enter in the list sets a game up; without this it would press Save as well.
bool Plain_Settings::eventFilter(QObject *watched, QEvent *event) {
    if (watched != games_ || event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    Set_up_current();
    return true;
}

void Plain_Settings::Refresh() {
    for (int i = 0; i < games_->topLevelItemCount(); ++i) {
        QTreeWidgetItem *row = games_->topLevelItem(i);
        const Game *game = Find_Game(row->data(game_column, code_role).toString());
        const QString game_folder = program_.ini.*game->game_folder;
        QStringList missions;
        for (const QString &folder : Split_folder_list(program_.ini.*game->fm_folders))
            missions << program_.files.to_native(folder);
        row->setText(state_column, State_text(!game_folder.isEmpty(), !missions.isEmpty()));
        row->setText(game_folder_column,
                     game_folder.isEmpty() ? QString() : program_.files.to_native(game_folder));
        row->setText(missions_column, missions.join(QStringLiteral("; ")));
        for (const int told : {game_folder_column, missions_column})
            row->setToolTip(told, row->text(told));
    }
}

void Plain_Settings::Set_up_current() {
    const QTreeWidgetItem *row = games_->currentItem();
    if (!row)
        return;
    Set_Up_Dialog dialog(program_, ui_, row->data(game_column, code_role).toString(), this);
    dialog.exec();
    Refresh();
}

void Plain_Settings::Save() {
    if (const Fault fault = Write_Main_Ini(program_))
        return Show_Warning(program_, QStringLiteral("Vantrosk"), fault.text);
    program_.ui.games_changed();
    accept();
}

} // namespace vantrosk
