#include "Fm_Table.h"

#include "Theme.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cstdlib>

namespace vantrosk {

namespace {

constexpr int menu_inset = 24; ///< of a menu that a key opens, from the row's left end

} // namespace

Fm_Table::Fm_Table(QWidget *parent) : QTableView(parent) {
    setObjectName(QStringLiteral("fm_table"));
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setTabKeyNavigation(false);
    setFrameShape(QFrame::NoFrame);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(row_height);
    verticalHeader()->setDefaultSectionSize(row_height);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalScrollBar()->setSingleStep(row_height);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setSectionsMovable(false);
    horizontalHeader()->setFixedHeight(28);
    horizontalHeader()->setObjectName(QStringLiteral("fm_headings"));
    horizontalHeader()->setAccessibleName(QStringLiteral("Headings of the mission list"));
    horizontalHeader()->setToolTip(QStringLiteral("A click sorts; View, Sort by does the same"));
}

void Fm_Table::Set_frozen_rows(int count) {
    frozen_rows_ = count;
    viewport()->update();
}

bool Fm_Table::Is_frozen(int row) const {
    return row < frozen_rows_;
}

QModelIndex Fm_Table::indexAt(const QPoint &point) const {
    const int row = point.y() / row_height;
    if (!model() || point.y() < 0 || !Is_frozen(row) || row >= model()->rowCount())
        return QTableView::indexAt(point);
    const int column = columnAt(point.x());
    return column < 0 ? QModelIndex() : model()->index(row, column);
}

QRect Fm_Table::visualRect(const QModelIndex &index) const {
    QRect rect = QTableView::visualRect(index);
    if (index.isValid() && Is_frozen(index.row()))
        rect.moveTop(index.row() * row_height);
    return rect;
}

bool Fm_Table::Row_is_visible(int row) const {
    if (Is_frozen(row))
        return true;
    const int top = rowViewportPosition(row);
    return top >= frozen_rows_ * row_height && top + row_height <= viewport()->height();
}

void Fm_Table::Set_top_row(int row) {
    executeDelayedItemsLayout(); // else the scroll bar still has the range of the rows before
    updateGeometries();
    verticalScrollBar()->setValue(std::max(0, row - frozen_rows_) * row_height);
}

int Fm_Table::Top_row() const {
    return frozen_rows_ + (verticalScrollBar()->value() + row_height - 1) / row_height;
}

void Fm_Table::scrollTo(const QModelIndex &index, ScrollHint hint) {
    if (!index.isValid() || Is_frozen(index.row()))
        return;
    QTableView::scrollTo(index, hint);
    const int hidden = frozen_rows_ * row_height - rowViewportPosition(index.row());
    if (hidden > 0)
        verticalScrollBar()->setValue(verticalScrollBar()->value() - hidden);
}

void Fm_Table::keyPressEvent(QKeyEvent *event) {
    const bool plain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    const QString text = event->text();
    if (plain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        Q_EMIT Enter_pressed();
        return;
    }
    const int last = model() ? model()->rowCount() - 1 : -1;
    if (plain && last >= 0 && (event->key() == Qt::Key_Home || event->key() == Qt::Key_End)) {
        const int column = std::max(0, currentIndex().column());
        setCurrentIndex(model()->index(event->key() == Qt::Key_Home ? 0 : last, column));
        return;
    }
    if (plain && text.size() == 1 && text.front().isLetterOrNumber()) {
        Q_EMIT Letter_typed(text.front());
        return;
    }
    QTableView::keyPressEvent(event);
}

/// Only up and down is the list's own; a fine wheel adds up to notches.
void Fm_Table::wheelEvent(QWheelEvent *event) {
    const int turn = event->angleDelta().y();
    if (turn == 0 || event->modifiers() & (Qt::ShiftModifier | Qt::AltModifier | Qt::ControlModifier))
        return QTableView::wheelEvent(event);
    wheel_rest_ += turn;
    for (; std::abs(wheel_rest_) >= QWheelEvent::DefaultDeltasPerStep;
         wheel_rest_ -=
         wheel_rest_ > 0 ? QWheelEvent::DefaultDeltasPerStep : -QWheelEvent::DefaultDeltasPerStep)
        Q_EMIT Wheel_turned(wheel_rest_ > 0 ? 1 : -1);
    event->accept();
}

void Fm_Table::contextMenuEvent(QContextMenuEvent *event) {
    const bool by_mouse = event->reason() == QContextMenuEvent::Mouse;
    const QModelIndex row = by_mouse ? indexAt(event->pos()) : currentIndex();
    if (!row.isValid())
        return;
    if (by_mouse)
        setCurrentIndex(row);
    Q_EMIT Menu_wanted(by_mouse
                           ? event->globalPos()
                           : viewport()->mapToGlobal(visualRect(row).bottomLeft() + QPoint(menu_inset, 0)));
}

void Fm_Table::paintEvent(QPaintEvent *event) {
    QTableView::paintEvent(event);
    Paint_frozen_rows();
    Paint_focus();
}

void Fm_Table::Paint_frozen_rows() {
    if (!model() || frozen_rows_ == 0)
        return;
    QPainter painter(viewport());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    for (int row = 0; row < std::min(frozen_rows_, model()->rowCount()); ++row) {
        const int width = std::min(viewport()->width(), horizontalHeader()->length());
        painter.fillRect(0, row * row_height, width, row_height, QColor(ink::surface_low));
        for (int column = 0; column < model()->columnCount(); ++column) {
            if (isColumnHidden(column))
                continue;
            const QModelIndex index = model()->index(row, column);
            option.rect =
                QRect(columnViewportPosition(column), row * row_height, columnWidth(column), row_height);
            option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
            itemDelegate()->paint(&painter, option, index);
        }
    }
}

/// Where the keys go must be seen: a frame round the current row while the list has the focus.
void Fm_Table::Paint_focus() {
    if (!hasFocus() || !currentIndex().isValid())
        return;
    const QRect row = visualRect(currentIndex());
    const bool covered = !Is_frozen(currentIndex().row()) && row.top() < frozen_rows_ * row_height - 1;
    if (covered || row.isEmpty())
        return;
    QPainter painter(viewport());
    QPen pen(QColor(ink::working));
    pen.setWidth(2);
    painter.setPen(pen);
    const int width = std::min(viewport()->width(), horizontalHeader()->length());
    painter.drawRect(QRect(1, row.top() + 1, width - 2, row_height - 2));
}

void Fm_Table::resizeEvent(QResizeEvent *event) {
    QTableView::resizeEvent(event);
    Q_EMIT Resized();
}

void Fm_Table::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    viewport()->update();
}

} // namespace vantrosk
