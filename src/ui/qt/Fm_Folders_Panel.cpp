#include "Fm_Folders_Panel.h"

#include "Settings_Parts.h"

#include "ui/settings/Chosen_Game.h"
#include "ui/settings/Shown_Path.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

namespace vantrosk {

namespace {

constexpr int icon_size = 20;
constexpr int folder_role = Qt::UserRole;
constexpr const char *empty_hint = "No folder yet: press the green plus and point at one mission in it";
enum Folder_Column { mixed_column, folder_column };

constexpr const char *add_tip =
    "Find a Fan Mission zip file, select it and then click OPEN.\nYou only need to this once for each folder "
    "used as Vantrosk will find all the zips directly in that folder for you.\n(Insert in the list)";
constexpr const char *remove_tip =
    "Remove a folder path from the currentl list that Vantrosk will look in for "
    "the currently selected game.\n(Delete in the list)";
constexpr const char *list_tip =
    "Where the missions of this game lie. A folder that holds missions of several "
    "games is marked with a tick (Space): every game looks in it";

QString Folder_of(const QTreeWidgetItem &row) {
    return row.data(mixed_column, folder_role).toString();
}

} // namespace

Fm_Folders_Panel::Fm_Folders_Panel(Program &program, Settings_Controls &controls, const Game_Tab &tab,
                                   const Theme &theme)
    : program_(program), controls_(controls), tab_(tab) {
    const QString code = QLatin1String(tab.code);
    folders_ = Make_list();
    hint_ = Make_hint();
    add_ = Settings_button(QStringLiteral("settings_add_") + code, QStringLiteral("&Add"),
                           QStringLiteral("Add a mission folder"), QLatin1String(add_tip));
    add_->setProperty("kind", QStringLiteral("primary"));
    add_->setIcon(Line_icon(QStringLiteral("plus"), theme.on_quickbar));
    add_->setIconSize({icon_size, icon_size});
    remove_ = Settings_button(QStringLiteral("settings_remove_") + code, QStringLiteral("&Remove"),
                              QStringLiteral("Remove the mission folder"), QLatin1String(remove_tip));
    remove_->setIcon(Line_icon(QStringLiteral("minus"), QColor(ink::text), QColor(ink::text_faint)));

    auto *buttons = new QVBoxLayout;
    buttons->setSpacing(settings_gap);
    buttons->addWidget(add_);
    buttons->addWidget(remove_);
    buttons->addStretch(1);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(settings_gap);
    row->addWidget(folders_, 1);
    row->addLayout(buttons);
    connect(add_, &QPushButton::clicked, this, &Fm_Folders_Panel::Add);
    connect(remove_, &QPushButton::clicked, this, &Fm_Folders_Panel::Remove);
    connect(folders_, &QTreeWidget::itemChanged, this, &Fm_Folders_Panel::Take_ticks);
    connect(folders_, &QTreeWidget::currentItemChanged, this,
            [this](const QTreeWidgetItem *current) { remove_->setEnabled(current != nullptr); });
    Refresh();
}

QTreeWidget *Fm_Folders_Panel::Make_list() {
    auto *list = new QTreeWidget;
    list->setObjectName(QStringLiteral("settings_folders_") + QLatin1String(tab_.code));
    list->setProperty("kind", QStringLiteral("settings_list"));
    list->setAccessibleName(QStringLiteral("Mission folders of %1").arg(QLatin1String(tab_.caption)));
    list->setToolTip(QLatin1String(list_tip));
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    list->setTextElideMode(Qt::ElideMiddle);
    list->setTabKeyNavigation(false);
    list->setHeaderLabels({QStringLiteral("mixed games"), QStringLiteral("Folder")});
    list->header()->setSectionsMovable(false);
    list->header()->setSectionResizeMode(mixed_column, QHeaderView::ResizeToContents);
    list->setMinimumHeight(list->fontMetrics().height() * 4);
    // It takes what room there is; what it would like must not make the tab scroll.
    list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    list->installEventFilter(this);
    return list;
}

/// What to do stands in the empty list, where one looks for folders.
QLabel *Fm_Folders_Panel::Make_hint() {
    auto *hint = Settings_label(QLatin1String(empty_hint), QStringLiteral("second"));
    hint->setAlignment(Qt::AlignCenter);
    auto *over_list = new QVBoxLayout(folders_->viewport());
    over_list->addWidget(hint);
    return hint;
}

QWidget *Fm_Folders_Panel::list() const {
    return folders_;
}

/// The row of the list as it is now that gets the mark: that of the folder, the one `at` when it is there
/// more than once or gone.
int Fm_Folders_Panel::Row_to_mark(const QString &folder, int at) const {
    const int last = folders_->topLevelItemCount() - 1;
    int row = -1;
    for (int i = last; i >= 0; --i)
        if (Folder_of(*folders_->topLevelItem(i)) == folder && row != at)
            row = i;
    return row >= 0 ? row : qBound(0, at, qMax(0, last));
}

void Fm_Folders_Panel::Refresh() {
    refreshing_ = true;
    const int current = folders_->indexOfTopLevelItem(folders_->currentItem());
    const QString marked = current < 0 ? QString() : Folder_of(*folders_->currentItem());
    folders_->clear();
    for (const Listed_Folder &listed : Listed_Folders(controls_, QLatin1String(tab_.code))) {
        auto *row = new QTreeWidgetItem(folders_, {QString(), Shown_Path(program_, listed.folder)});
        row->setData(mixed_column, folder_role, listed.folder);
        row->setCheckState(mixed_column, listed.mixed ? Qt::Checked : Qt::Unchecked);
        row->setToolTip(folder_column, Shown_Path(program_, listed.folder));
    }
    hint_->setVisible(folders_->topLevelItemCount() == 0);
    // A tick moves its folder to another place: the mark goes with it, or the next Space would meet another.
    folders_->setCurrentItem(
        folders_->topLevelItem(Row_to_mark(added_.isEmpty() ? marked : added_, current)));
    remove_->setEnabled(folders_->currentItem() != nullptr);
    refreshing_ = false;
}

void Fm_Folders_Panel::Add() {
    added_ = Locate_Missions(program_, controls_, QLatin1String(tab_.code));
    Q_EMIT Changed();
    added_.clear();
}

void Fm_Folders_Panel::Remove() {
    const QTreeWidgetItem *row = folders_->currentItem();
    if (!row)
        return;
    Remove_Folder(controls_, QLatin1String(tab_.code),
                  {Folder_of(*row), row->checkState(mixed_column) == Qt::Checked});
    Q_EMIT Changed();
}

/// A tick moves its folder at once; the list is filled again later, because its own row is at work here.
void Fm_Folders_Panel::Take_ticks() {
    if (refreshing_)
        return;
    const auto listed = Listed_Folders(controls_, QLatin1String(tab_.code));
    for (int i = 0; i < folders_->topLevelItemCount() && i < int(listed.size()); ++i) {
        const bool ticked = folders_->topLevelItem(i)->checkState(mixed_column) == Qt::Checked;
        const Listed_Folder &folder = listed[static_cast<std::size_t>(i)];
        if (ticked != folder.mixed) {
            Mark_Mixed(controls_, QLatin1String(tab_.code), folder.folder, ticked);
            break;
        }
    }
    QMetaObject::invokeMethod(this, &Fm_Folders_Panel::Changed, Qt::QueuedConnection);
}

/// Enter in the list would press Save.
bool Fm_Folders_Panel::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Insert:
        Add();
        return true;
    case Qt::Key_Delete:
        Remove();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return true;
    default:
        return false;
    }
}

} // namespace vantrosk
