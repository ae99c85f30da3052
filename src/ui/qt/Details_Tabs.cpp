#include "Details_Tabs.h"

#include <QHBoxLayout>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

namespace vantrosk {

Details_Tabs::Details_Tabs(const QString &name, const QString &caption, QWidget *parent)
    : QWidget(parent), bar_(new QTabBar), pages_(new QStackedWidget) {
    auto *strip = new QWidget;
    strip->setObjectName(name);
    strip->setAttribute(Qt::WA_StyledBackground);
    bar_->setObjectName(name + QStringLiteral("_bar"));
    bar_->setAccessibleName(caption);
    bar_->setToolTip(caption);
    bar_->setDrawBase(false);
    bar_->setExpanding(false);
    // A narrow window shortens the captions rather than hiding a tab behind an arrow.
    bar_->setUsesScrollButtons(false);
    bar_->setElideMode(Qt::ElideRight);
    auto *row = new QHBoxLayout(strip);
    row->setContentsMargins(0, 0, 0, 1);
    row->addWidget(bar_);
    row->addStretch();
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(strip);
    column->addWidget(pages_, 1);
    connect(bar_, &QTabBar::currentChanged, pages_, &QStackedWidget::setCurrentIndex);
}

void Details_Tabs::Add(const QString &key, const QString &caption, QWidget *page, const QString &behind) {
    if (has(key))
        return;
    const qsizetype before = keys_.indexOf(behind);
    const int at = static_cast<int>(before < 0 ? keys_.size() : before + 1);
    keys_.insert(at, key);
    pages_->insertWidget(at, page);
    bar_->insertTab(at, caption);
    bar_->setTabToolTip(at, caption);
    pages_->setCurrentIndex(bar_->currentIndex());
}

void Details_Tabs::Remove(const QString &key) {
    const auto at = static_cast<int>(keys_.indexOf(key));
    if (at < 0)
        return;
    const bool was_shown = bar_->currentIndex() == at;
    QWidget *page = pages_->widget(at);
    keys_.removeAt(at);
    pages_->removeWidget(page);
    page->setParent(nullptr);
    bar_->removeTab(at);
    if (was_shown)
        bar_->setCurrentIndex(0);
    pages_->setCurrentIndex(bar_->currentIndex());
}

void Details_Tabs::Show(const QString &key) {
    const auto at = static_cast<int>(keys_.indexOf(key));
    if (at >= 0)
        bar_->setCurrentIndex(at);
}

bool Details_Tabs::is_offered(const QString &key) const {
    return has(key) && bar_->isTabVisible(static_cast<int>(keys_.indexOf(key)));
}

QString Details_Tabs::shown() const {
    return keys_.value(bar_->currentIndex());
}

} // namespace vantrosk
