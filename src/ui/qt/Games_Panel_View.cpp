#include "Games_Panel_View.h"

#include "Game_Toolbar.h"

#include "core/Program.h"
#include "library/Games_Panel.h"

#include <QHeaderView>
#include <QKeyEvent>

namespace vantrosk {

namespace {

constexpr int name_column = 0;
constexpr int code_role = Qt::UserRole;
constexpr int text_padding = 24; ///< pixels beside a cell's text

QString Code_of(const QTreeWidgetItem *row) {
    return row->data(name_column, code_role).toString();
}

bool Is_custom(const QTreeWidgetItem *row) {
    return Code_of(row) == QLatin1String("CUSTOM");
}

QString Tip_of(const Games_Panel_Row &game, bool is_set_up) {
    if (!is_set_up)
        return QStringLiteral("%1 is not set up (Ctrl+G)").arg(game.name);
    return game.tip.isEmpty() ? QStringLiteral("%1: lists its missions").arg(game.name) : game.tip;
}

} // namespace

Games_Panel_View::Games_Panel_View(const Program &program, QWidget *parent)
    : QTreeWidget(parent), program_(program) {
    setObjectName(QStringLiteral("games_panel"));
    setAccessibleName(QStringLiteral("Vantrosk Game Details"));
    setToolTip(
        QStringLiteral("What the last scan of each game counted. A click or Enter lists its missions"));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setIndentation(0);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setFrameShape(QFrame::NoFrame);
    setHeaderLabels(QString(library_summary_headings).split(u','));
    header()->setAccessibleName(QStringLiteral("Headings of the games"));
    header()->setToolTip(QStringLiteral("What was counted"));
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(name_column, QHeaderView::Stretch);
    header()->setMinimumSectionSize(text_padding);
    connect(this, &QTreeWidget::itemClicked, this, &Games_Panel_View::Choose);
    Refresh();
}

QTreeWidgetItem *Games_Panel_View::Add_group(const QString &text) {
    auto *group = new QTreeWidgetItem(this, {text});
    group->setFlags(Qt::ItemIsEnabled); // else its games could not be used either
    group->setFirstColumnSpanned(true);
    QFont strong = font();
    strong.setWeight(QFont::DemiBold);
    group->setFont(name_column, strong);
    return group;
}

void Games_Panel_View::Refresh() {
    const QString current = currentItem() ? currentItem()->text(name_column) : QString();
    clear();
    QTreeWidgetItem *core_games = Add_group(QStringLiteral("Core Games")), *custom_games = nullptr;
    for (const Games_Panel_Row &game : Games_Panel_Rows(program_)) {
        if (game.is_custom() && !custom_games)
            custom_games = Add_group(QStringLiteral("Custom Games"));
        auto *row = new QTreeWidgetItem(game.is_custom() ? custom_games : core_games,
                                        {game.name, game.zips, game.total_size, game.finished, game.saves});
        const bool is_set_up = game.is_custom() || Game_is_set_up(program_, game.code);
        row->setData(name_column, code_role, game.code);
        row->setDisabled(!is_set_up);
        row->setToolTip(name_column, Tip_of(game, is_set_up));
        for (int column = name_column + 1; column < columnCount(); ++column)
            row->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
        QFont plain = font();
        plain.setWeight(Is_listed(row) ? QFont::DemiBold : QFont::Normal);
        row->setFont(name_column, plain);
        if (game.name == current)
            setCurrentItem(row);
    }
    expandAll();
}

bool Games_Panel_View::Is_listed(const QTreeWidgetItem *row) const {
    if (program_.SELECTED_GAME_TAB != Code_of(row))
        return false;
    return !Is_custom(row) || program_.custom_name == row->text(name_column);
}

QTreeWidgetItem *Games_Panel_View::row_of(const QString &game) const {
    for (int group = 0; group < topLevelItemCount(); ++group)
        for (int i = 0; i < topLevelItem(group)->childCount(); ++i) {
            QTreeWidgetItem *row = topLevelItem(group)->child(i);
            if (game == (Is_custom(row) ? row->text(name_column) : Code_of(row)))
                return row;
        }
    return nullptr;
}

void Games_Panel_View::Choose(const QTreeWidgetItem *row) {
    if (!row || row->isDisabled() || Code_of(row).isEmpty())
        return;
    // A scan fills these rows anew, which must not happen under a click on one of them.
    const QString code = Code_of(row), name = row->text(name_column);
    const bool is_custom = Is_custom(row);
    const auto tell = [this, is_custom, code, name] {
        if (is_custom)
            Q_EMIT Custom_game_chosen(name);
        else
            Q_EMIT Game_chosen(code);
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

void Games_Panel_View::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        return Choose(currentItem());
    QTreeWidget::keyPressEvent(event);
}

} // namespace vantrosk
