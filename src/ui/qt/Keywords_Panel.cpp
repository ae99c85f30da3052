#include "Keywords_Panel.h"

#include "core/Program.h"
#include "library/Fm_Keywords.h"

#include <QResizeEvent>
#include <QSignalBlocker>

#include <algorithm>

namespace vantrosk {

namespace {

constexpr int row_height = 22, box_room = 34;

} // namespace

Keywords_Panel::Keywords_Panel(const Program &program, QWidget *parent)
    : QListWidget(parent), program_(program) {
    setObjectName(QStringLiteral("keywords"));
    setAccessibleName(QStringLiteral("FM Keywords"));
    setToolTip(QStringLiteral("Where the mission plays, against whom, and what it is about. Space ticks a "
                              "keyword"));
    setFlow(LeftToRight);
    setWrapping(true);
    setResizeMode(Adjust);
    setMovement(Static);
    setUniformItemSizes(true);
    setSelectionMode(NoSelection);
    setFrameShape(NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    int widest = 0;
    for (const QString &entry : Keyword_Entries(program)) {
        auto *item = new QListWidgetItem(entry, this);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
        widest = std::max(widest, fontMetrics().horizontalAdvance(entry));
    }
    setGridSize({widest + box_room, row_height});
    connect(this, &QListWidget::itemChanged, this, [this](const QListWidgetItem *item) {
        Q_EMIT Keyword_clicked(item->text(), item->checkState() == Qt::Checked);
    });
    Refresh();
}

void Keywords_Panel::Refresh() {
    const QSignalBlocker quiet(this);
    const Details_Panel &details = program_.screen.details;
    const QStringList ticked = Matched_Keywords(Keyword_Entries(program_), details.keywords);
    for (int row = 0; row < count(); ++row)
        item(row)->setCheckState(ticked.contains(item(row)->text()) ? Qt::Checked : Qt::Unchecked);
    setEnabled(details.record_shown);
    viewport()->update();
}

void Keywords_Panel::resizeEvent(QResizeEvent *event) {
    QListWidget::resizeEvent(event);
    Fit_height();
}

void Keywords_Panel::Fit_height() {
    const int columns = std::max(1, viewport()->width() / gridSize().width());
    const int rows = (count() + columns - 1) / columns;
    setFixedHeight(rows * row_height + 4);
}

} // namespace vantrosk
