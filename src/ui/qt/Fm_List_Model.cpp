#include "Fm_List_Model.h"

#include "Theme.h"

#include "core/Program.h"
#include "library/Author_Colours.h"
#include "library/Fm_List_View.h"

#include <QFont>

#include <algorithm>

namespace vantrosk {

namespace {

constexpr int most_score = 10;

/// A score cell shows its number beside a bar; a cell that holds no number shows its text alone.
QVariant Score_of(const Fm_Row &row, int column) {
    if (column != col_score && column != col_group_score)
        return {};
    bool is_number = false;
    const double score = row.cells[column].toDouble(&is_number);
    if (!is_number || score <= 0)
        return {};
    return std::min<double>(score, most_score);
}

QVariant Colour_behind_author(const Program &program, const Fm_Row &row) {
    const QString number = Author_Colour_Of(program, row);
    const QColor colour = number.isEmpty() ? QColor() : Colour_of_number(number, QColor());
    return colour.isValid() ? QVariant(colour) : QVariant();
}

/// What a screen reader says of a cell whose meaning is in a picture.
QString Spoken_text(const Fm_Row &row, int column) {
    if (column == col_game)
        return row.game_icon;
    return row.cells[column];
}

} // namespace

Fm_List_Model::Fm_List_Model(const Program &program, QObject *parent)
    : QAbstractTableModel(parent), program_(program) {
    Refresh();
}

void Fm_List_Model::Refresh() {
    beginResetModel();
    rows_ = static_cast<int>(program_.screen.list.rows.size());
    endResetModel();
}

void Fm_List_Model::Refresh_row(int row) {
    if (row >= 0 && row < rows_)
        Q_EMIT dataChanged(index(row, 0), index(row, column_count - 1));
}

int Fm_List_Model::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : rows_;
}

int Fm_List_Model::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : column_count;
}

const Fm_Row *Fm_List_Model::Row_at(const QModelIndex &index) const {
    const auto &rows = program_.screen.list.rows;
    const bool is_there = index.isValid() && index.row() < static_cast<int>(rows.size());
    return is_there ? &rows[static_cast<size_t>(index.row())] : nullptr;
}

QVariant Fm_List_Model::data(const QModelIndex &index, int role) const {
    const Fm_Row *row = Row_at(index);
    if (!row)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return row->cells[index.column()];
    case Qt::ToolTipRole:
        return Cell_Tip(program_, index.row(), index.column());
    case Qt::AccessibleTextRole:
        return Spoken_text(*row, index.column());
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignVCenter | (index.column() == col_size ? Qt::AlignRight : Qt::AlignLeft));
    case fm_role_original:
        return index.row() < program_.screen.list.original_rows;
    case fm_role_score:
        return Score_of(*row, index.column());
    case fm_role_game:
        return index.column() == col_game ? row->game_icon : QString();
    case fm_role_author_colour:
        return index.column() == col_author ? Colour_behind_author(program_, *row) : QVariant();
    default:
        return {};
    }
}

QVariant Fm_List_Model::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= column_count)
        return {};
    if (role == Qt::DisplayRole)
        return program_.screen.list.headings[section];
    if (role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignVCenter | Qt::AlignLeft);
    if (role == Qt::ToolTipRole)
        return QStringLiteral("Sorts the list by this column; a second click reverses");
    return {};
}

Fm_List_Find::Fm_List_Find(const Program &program, QObject *parent)
    : QSortFilterProxyModel(parent), program_(program) {}

void Fm_List_Find::Set_wanted(const QString &text) {
    const QStringList words = text.simplified().split(u' ', Qt::SkipEmptyParts);
    if (words == wanted_)
        return;
    wanted_ = words;
    invalidateFilter();
}

/// Rows alternate as they are shown.
QVariant Fm_List_Find::data(const QModelIndex &index, int role) const {
    if (role == fm_role_odd)
        return (index.row() - program_.screen.list.original_rows) % 2 != 0;
    return QSortFilterProxyModel::data(index, role);
}

bool Fm_List_Find::filterAcceptsRow(int source_row, const QModelIndex &) const {
    const Fm_List &list = program_.screen.list;
    if (wanted_.isEmpty() || source_row < list.original_rows)
        return true;
    if (source_row >= static_cast<int>(list.rows.size()))
        return false;
    const auto &cells = list.rows[static_cast<size_t>(source_row)].cells;
    return std::all_of(wanted_.begin(), wanted_.end(), [&cells](const QString &word) {
        return std::any_of(cells.begin(), cells.end(),
                           [&word](const QString &cell) { return cell.contains(word, Qt::CaseInsensitive); });
    });
}

} // namespace vantrosk
