#include "Keywords_Panel.h"

#include "core/Program.h"
#include "library/Fm_Keywords.h"

#include <QResizeEvent>
#include <QSignalBlocker>

#include <algorithm>

namespace vantrosk {

namespace {

constexpr int row_height = 22, box_room = 30;

} // namespace

Keywords_Panel::Keywords_Panel(const Program &program, const Theme &theme, QWidget *parent)
    : QListWidget(parent), program_(program) {
    setFont(theme.small);
    setObjectName(QStringLiteral("keywords"));
    setAccessibleName(QStringLiteral("FM Keywords"));
    setToolTip(QStringLiteral("Where the mission plays, against whom, and what it is about. Space ticks a "
                              "keyword"));
    setFlow(TopToBottom);
    setWrapping(true);
    setResizeMode(Adjust);
    setMovement(Static);
    setUniformItemSizes(true);
    setSelectionMode(NoSelection);
    setFrameShape(NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const QFontMetrics metrics(theme.small);
    for (const QString &entry : Keyword_Entries(program)) {
        auto *item = new QListWidgetItem(entry, this);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
        least_width_ = std::max(least_width_, metrics.horizontalAdvance(entry) + box_room);
    }
    connect(this, &QListWidget::itemChanged, this, [this](const QListWidgetItem *item) {
        Q_EMIT Keyword_clicked(item->text(), item->checkState() == Qt::Checked);
    });
    Refresh();
}

void Keywords_Panel::Refresh() {
    const QSignalBlocker quiet(this); // the ticks are the record's
    const Details_Panel &details = program_.screen.details;
    const QStringList ticked = Matched_Keywords(Keyword_Entries(program_), details.keywords);
    for (int row = 0; row < count(); ++row)
        item(row)->setCheckState(ticked.contains(item(row)->text()) ? Qt::Checked : Qt::Unchecked);
    setEnabled(details.record_shown);
    viewport()->update();
}

void Keywords_Panel::resizeEvent(QResizeEvent *event) {
    QListWidget::resizeEvent(event);
    Fit();
}

void Keywords_Panel::Fit() {
    const int room = viewport()->width();
    const int columns = std::max(1, room / least_width_);
    const QSize cell(std::max(least_width_, room / columns), row_height);
    if (cell != gridSize()) {
        setGridSize(cell);
        const QSignalBlocker quiet(this); // a size is no tick
        for (int row = 0; row < count(); ++row)
            item(row)->setSizeHint(cell);
    }
    setFixedHeight((count() + columns - 1) / columns * row_height + 2);
}

} // namespace vantrosk
