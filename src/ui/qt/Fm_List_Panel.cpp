#include "Fm_List_Panel.h"

#include "Filter_Strip.h"
#include "Fm_List_Delegate.h"
#include "Fm_List_Model.h"
#include "Fm_Table.h"

#include "core/Games.h"
#include "core/Program.h"
#include "core/Window_State.h"
#include "library/Fm_List_View.h"

#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QVBoxLayout>

#include <numeric>

namespace vantrosk {

/// How a column shares the room: what it needs at least, what it likes, and its part of what is left.
struct Column_Room {
    int least, likes, share;
};

namespace {

constexpr std::array<Column_Room, column_count> column_rooms{{
    {0, 0, 0},    // the empty fixed column
    {96, 230, 5}, // FM Name
    {74, 140, 2}, // Zip
    {62, 110, 2}, // Author
    {78, 84, 0},  // Size
    {58, 92, 0},  // Score
    {58, 96, 0},  // Grp Score
    {78, 100, 0}, // Last Played
    {58, 90, 3},  // Review
    {58, 80, 0},  // Finished
    {52, 58, 0},  // Game
    {52, 60, 0},  // Ready
    {78, 82, 0},  // Zip Date
    {72, 150, 2}, // Category
}};

constexpr int heading_padding = 8 + 2 + 1 + 1; ///< left, right, the line, and what a rounded width may lose

/// Holding an arrow key runs through the list; the row where it comes to rest is the one that is examined.
constexpr int rest_of_keys = 160; ///< milliseconds
constexpr int narrowest_column = 16;

} // namespace

Fm_List_Panel::Fm_List_Panel(Program &program, const Theme &theme, QWidget *parent)
    : QWidget(parent), program_(program), model_(new Fm_List_Model(program, this)),
      find_(new Fm_List_Find(program, this)), table_(new Fm_Table(this)),
      filter_strip_(new Filter_Strip(program, this)), widths_(column_count, 0) {
    setObjectName(QStringLiteral("fm_list_panel"));
    find_->setSourceModel(model_);
    table_->setModel(find_);
    table_->setItemDelegate(new Fm_List_Delegate(theme, this));
    table_->setFont(theme.list);
    table_->setAccessibleName(QStringLiteral("Missions"));
    table_->setToolTip(
        QStringLiteral("Missions of the chosen game. Arrow keys select, letters jump, Enter goes "
                       "to Play or Install"));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(filter_strip_);
    column->addWidget(table_);

    empty_ = new QWidget(table_->viewport());
    empty_->setObjectName(QStringLiteral("list_empty"));
    empty_text_ = new QLabel;
    empty_text_->setProperty("kind", QStringLiteral("second"));
    empty_text_->setTextFormat(Qt::PlainText);
    empty_text_->setAlignment(Qt::AlignCenter);
    empty_text_->setWordWrap(true);
    empty_button_ = new QPushButton(QStringLiteral("Choose the &mission folder…"));
    empty_button_->setObjectName(QStringLiteral("list_choose_missions"));
    empty_button_->setAccessibleName(QStringLiteral("Choose the mission folder"));
    empty_button_->setToolTip(QStringLiteral("Names the folder that holds the mission zips of this game"));
    auto *empty_column = new QVBoxLayout(empty_);
    empty_column->addStretch();
    empty_column->addWidget(empty_text_);
    empty_column->addSpacing(8);
    empty_column->addWidget(empty_button_, 0, Qt::AlignHCenter);
    empty_column->addStretch();

    choice_timer_.setSingleShot(true);
    connect(&choice_timer_, &QTimer::timeout, this, &Fm_List_Panel::Send_choice);
    connect(table_, &Fm_Table::Letter_typed, this, &Fm_List_Panel::Letter_typed);
    connect(table_, &Fm_Table::Enter_pressed, this, &Fm_List_Panel::Enter_row);
    connect(table_, &Fm_Table::Wheel_turned, this, &Fm_List_Panel::Turn_wheel);
    connect(table_, &Fm_Table::Menu_wanted, this, &Fm_List_Panel::Show_menu);
    connect(filter_strip_, &Filter_Strip::All_wanted, this, &Fm_List_Panel::All_wanted);
    connect(table_, &Fm_Table::Resized, this, &Fm_List_Panel::Fit_columns);
    connect(table_, &QTableView::clicked, this, [this] { Choose_current(0); });
    connect(table_->horizontalHeader(), &QHeaderView::sectionClicked, this, &Fm_List_Panel::Heading_chosen);
    connect(table_->horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int section, int, int width) { Remember_width(section, width); });
    connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex &current) { Follow_current(current); });
    connect(table_->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        if (!following_)
            Note_top_row();
    });
    connect(empty_button_, &QPushButton::clicked, this, &Fm_List_Panel::Mission_folder_wanted);
    table_->viewport()->installEventFilter(this);
    Apply_tweaks();
    Refresh_empty_state();
}

bool Fm_List_Panel::eventFilter(QObject *watched, QEvent *event) {
    if (watched == table_->viewport() && event->type() == QEvent::Resize)
        Refresh_empty_state();
    return QWidget::eventFilter(watched, event);
}

void Fm_List_Panel::Refresh() {
    const QScopedValueRollback following(following_, true);
    model_->Refresh();
    Fit_to_headings();
    table_->Set_frozen_rows(std::min(program_.screen.list.original_rows, model_->rowCount()));
    filter_strip_->Refresh();
    Refresh_current_row();
    Refresh_empty_state();
    Q_EMIT Shown_changed();
}

void Fm_List_Panel::Refresh_row(int row) {
    model_->Refresh_row(row);
}

QModelIndex Fm_List_Panel::Shown_index(int row, int column) const {
    return find_->mapFromSource(model_->index(row, column));
}

void Fm_List_Panel::Refresh_current_row() {
    const QScopedValueRollback following(following_, true);
    Show_top_row();
    const Fm_List &list = program_.screen.list;
    const int column = std::max<int>(col_name, list.selected_column);
    const QModelIndex current = Shown_index(list.current_row, column);
    if (!current.isValid()) {
        table_->clearSelection();
        table_->setCurrentIndex({});
        return;
    }
    table_->setAutoScroll(false);
    table_->selectionModel()->setCurrentIndex(current, QItemSelectionModel::ClearAndSelect |
                                                           QItemSelectionModel::Rows);
    table_->setAutoScroll(true);
    if (!table_->Row_is_visible(current.row())) {
        table_->Set_top_row(current.row() - 1);
        Note_top_row();
    }
    table_->viewport()->update();
}

void Fm_List_Panel::Note_top_row() {
    const QModelIndex top = find_->mapToSource(find_->index(table_->Top_row(), col_name));
    program_.screen.list.top_row = std::max(0, top.row());
}

/// The list stands where the procedures or the user left it.
void Fm_List_Panel::Show_top_row() {
    const QModelIndex top = Shown_index(std::max(0, program_.screen.list.top_row), col_name);
    if (top.isValid() && top.row() != table_->Top_row())
        table_->Set_top_row(top.row());
}

void Fm_List_Panel::Turn_wheel(int delta) {
    table_->Set_top_row(MouseWheel(table_->Top_row(), delta, table_->viewport()->height(),
                                   Fm_Table::row_height, table_->frozen_rows(), find_->rowCount()));
}

bool Fm_List_Panel::Is_selected(const QModelIndex &shown) const {
    const int row = find_->mapToSource(shown).row();
    const auto &rows = program_.screen.list.rows;
    return row >= 0 && row < static_cast<int>(rows.size()) && !program_.screen.no_mission_selected &&
           rows[static_cast<size_t>(row)].cells[col_zip] == program_.FM_PANEL;
}

/// A row that letters or the program brought up is selected first; Play and Install are for that one.
void Fm_List_Panel::Enter_row() {
    if (Is_selected(table_->currentIndex()))
        Q_EMIT Next_step_wanted();
    else
        Choose_current(0);
}

/// What the menu offers is for the row that it stands on.
void Fm_List_Panel::Show_menu(const QPoint &at_global) {
    choice_timer_.stop();
    if (!Is_selected(table_->currentIndex()))
        Send_choice();
    Q_EMIT Row_menu_wanted(at_global);
}

void Fm_List_Panel::Show_rows(bool visible) {
    table_->setUpdatesEnabled(visible);
}

void Fm_List_Panel::Find(const QString &text) {
    {
        const QScopedValueRollback following(following_, true);
        find_->Set_wanted(text);
        Refresh_current_row();
    }
    Refresh_empty_state();
    Q_EMIT Shown_changed();
}

int Fm_List_Panel::Shown_missions() const {
    return std::max(0, find_->rowCount() - table_->frozen_rows());
}

void Fm_List_Panel::Select_row(int row) {
    const QModelIndex index = Shown_index(row, std::max<int>(col_name, program_.screen.list.selected_column));
    if (!index.isValid())
        return;
    table_->setCurrentIndex(index);
    Choose_current(0);
}

void Fm_List_Panel::setFocusToList() {
    table_->setFocus(Qt::OtherFocusReason);
}

/// A mouse click tells of itself; a row reached by the keys counts once the keys rest.
void Fm_List_Panel::Follow_current(const QModelIndex &current) {
    if (!following_ && current.isValid())
        Choose_current(rest_of_keys);
}

void Fm_List_Panel::Choose_current(int delay) {
    choice_timer_.start(delay);
}

void Fm_List_Panel::Send_choice() {
    const QModelIndex current = find_->mapToSource(table_->currentIndex());
    if (current.isValid())
        Q_EMIT Row_chosen(current.row(), current.column());
}

bool Fm_List_Panel::Column_is_on(int column) const {
    return column > 0 && Column_Is_Shown(program_, column);
}

void Fm_List_Panel::Apply_tweaks() {
    for (int column = 0; column < column_count; ++column)
        table_->setColumnHidden(column, !Column_is_on(column));
    Fit_columns();
}

std::vector<int> Fm_List_Panel::Widths() const {
    return isVisible() ? widths_ : kept_widths_;
}

bool Fm_List_Panel::Widths_are_automatic() const {
    return !widths_are_the_users_;
}

/// A width that was stored for a column that was switched off then is none: the column gets what it likes.
void Fm_List_Panel::Set_widths(const std::vector<int> &widths, bool automatic) {
    kept_widths_ = widths;
    const bool sizes_itself = automatic && program_.tweaks.AUTORESIZE_COLUMNS;
    widths_are_the_users_ = widths.size() == column_count && !sizes_itself;
    for (int column = 1; widths_are_the_users_ && column < column_count; ++column)
        widths_[column] = widths[column] > 0 ? widths[column] : column_rooms[column].likes;
    Fit_columns();
}

void Fm_List_Panel::Remember_width(int column, int width) {
    if (fitting_ || width <= 0)
        return;
    widths_[column] = width;
    widths_are_the_users_ = true;
}

/// The user's own widths stand once there are any; only the names then take up what a resize gives or takes.
void Fm_List_Panel::Fit_columns() {
    const QScopedValueRollback fitting(fitting_, true);
    const int room = table_->viewport()->width();
    if (!widths_are_the_users_)
        Share_room(program_.tweaks.AUTORESIZE_COLUMNS ? room : 0);
    else if (program_.tweaks.AUTORESIZE_COLUMNS)
        Fill_with_name(room);
    for (int column = 1; column < column_count; ++column)
        if (Column_is_on(column))
            table_->setColumnWidth(column, std::max(widths_[column], narrowest_column));
}

/// Headings come with the first list, and with another language.
void Fm_List_Panel::Fit_to_headings() {
    const auto &headings = program_.screen.list.headings;
    const QStringList now(headings.begin(), headings.end());
    if (now == fitted_headings_)
        return;
    fitted_headings_ = now;
    if (!widths_are_the_users_)
        Fit_columns();
}

/// A heading is never cut off, whatever the font. The style makes it bold, which the header's own hint does
/// not count before it is shown.
Column_Room Fm_List_Panel::Room_of(int column) const {
    Column_Room room = column_rooms[column];
    QFont font = table_->horizontalHeader()->font();
    font.setWeight(QFont::DemiBold);
    const QString heading = program_.screen.list.headings[static_cast<size_t>(column)];
    room.least = std::max({room.least, table_->horizontalHeader()->sectionSizeHint(column),
                           QFontMetrics(font).horizontalAdvance(heading) + heading_padding});
    room.likes = std::max(room.likes, room.least);
    return room;
}

/// Gives every column what it needs, then what it likes, then its share of the rest. No room at all stands
/// for as much as they like.
void Fm_List_Panel::Share_room(int room) {
    int least = 0, likes = 0, shares = 0;
    for (int column = 1; column < column_count; ++column) {
        if (!Column_is_on(column))
            continue;
        const Column_Room own = Room_of(column);
        least += own.least;
        likes += own.likes;
        shares += own.share;
    }
    const int wanted = room > 0 ? room : likes;
    const double wish = std::clamp((wanted - least) / double(std::max(1, likes - least)), 0.0, 1.0);
    const int rest = std::max(0, wanted - likes);
    for (int column = 1; column < column_count; ++column) {
        const Column_Room own = Room_of(column);
        widths_[column] = own.least + int((own.likes - own.least) * wish) + rest * own.share / shares;
    }
    if (wanted >= least)
        Fill_with_name(wanted);
}

void Fm_List_Panel::Fill_with_name(int room) {
    int others = 0;
    for (int column = col_name + 1; column < column_count; ++column)
        others += Column_is_on(column) ? widths_[column] : 0;
    widths_[col_name] = std::max(column_rooms[col_name].least, room - others);
}

void Fm_List_Panel::Refresh_empty_state() {
    const bool nothing_listed = model_->rowCount() <= program_.screen.list.original_rows;
    const bool nothing_found = !nothing_listed && Shown_missions() == 0;
    const Game *game = Find_Game(program_.SELECTED_GAME_TAB);
    const QString name = game ? QString(QLatin1String(game->short_name)) : program_.custom_name;
    if (nothing_found)
        empty_text_->setText(QStringLiteral("No mission in this list holds “%1”. Escape in the search field "
                                            "shows all again.")
                                 .arg(find_->wanted().join(u' ')));
    else if (!name.isEmpty())
        empty_text_->setText(
            QStringLiteral("No missions for %1 were found in its mission folders.").arg(name));
    else
        empty_text_->setText(QStringLiteral("Choose a game on the left to see its missions."));
    empty_button_->setVisible(nothing_listed && game);
    const int top = table_->frozen_rows() * Fm_Table::row_height;
    empty_->setGeometry(0, top, table_->viewport()->width(), std::max(0, table_->viewport()->height() - top));
    empty_->setVisible(nothing_listed || nothing_found);
}

} // namespace vantrosk
