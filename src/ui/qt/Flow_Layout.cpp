#include "Flow_Layout.h"

#include <algorithm>

namespace vantrosk {

Flow_Layout::Flow_Layout(int gap_between) : gap_(gap_between) {
    setContentsMargins(0, 0, 0, 0);
}

Flow_Layout::~Flow_Layout() {
    for (QLayoutItem *item : items_)
        delete item;
}

void Flow_Layout::addItem(QLayoutItem *item) {
    items_.push_back(item);
}

int Flow_Layout::count() const {
    return static_cast<int>(items_.size());
}

QLayoutItem *Flow_Layout::itemAt(int index) const {
    return index >= 0 && index < count() ? items_[static_cast<size_t>(index)] : nullptr;
}

QLayoutItem *Flow_Layout::takeAt(int index) {
    QLayoutItem *item = itemAt(index);
    if (item)
        items_.erase(items_.begin() + index);
    return item;
}

int Flow_Layout::heightForWidth(int width) const {
    return Lay_out(QRect(0, 0, width, 0), false);
}

QSize Flow_Layout::minimumSize() const {
    QSize size;
    for (const QLayoutItem *item : items_)
        size = size.expandedTo(item->minimumSize());
    return size;
}

void Flow_Layout::setGeometry(const QRect &rect) {
    QLayout::setGeometry(rect);
    Lay_out(rect, true);
}

int Flow_Layout::Lay_out(const QRect &area, bool place) const {
    int x = area.left(), y = area.top(), line_height = 0;
    for (QLayoutItem *item : items_) {
        if (item->isEmpty())
            continue;
        const QSize size = item->sizeHint();
        if (line_height > 0 && x + size.width() > area.right() + 1) {
            x = area.left();
            y += line_height + gap_;
            line_height = 0;
        }
        if (place)
            item->setGeometry(QRect(QPoint(x, y), size));
        x += size.width() + gap_;
        line_height = std::max(line_height, size.height());
    }
    return y + line_height - area.top();
}

} // namespace vantrosk
