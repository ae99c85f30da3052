#include "Filter_Strip.h"

#include "core/Program.h"
#include "library/Fm_Filters.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace vantrosk {

Filter_Strip::Filter_Strip(const Program &program, QWidget *parent)
    : QWidget(parent), program_(program), text_(new QLabel),
      all_(new QPushButton(QStringLiteral("Show &all"))) {
    setObjectName(QStringLiteral("filter_strip"));
    setAttribute(Qt::WA_StyledBackground);
    text_->setObjectName(QStringLiteral("filter_text"));
    text_->setTextFormat(Qt::PlainText);
    all_->setObjectName(QStringLiteral("filter_show_all"));
    all_->setProperty("kind", QStringLiteral("small"));
    all_->setAccessibleName(QStringLiteral("Show all"));
    all_->setToolTip(QStringLiteral("Lists all missions of this game again (Ctrl+Shift+A)"));
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(8, 3, 8, 3);
    row->setSpacing(8);
    row->addWidget(text_);
    row->addStretch();
    row->addWidget(all_);
    connect(all_, &QPushButton::clicked, this, &Filter_Strip::All_wanted);
    Refresh();
}

void Filter_Strip::Refresh() {
    const Scan_Summary &scan = program_.scan;
    text_->setText(QStringLiteral("Filter  –  ") + Filter_Text(program_, scan.game, scan.filter));
    setVisible(scan.filter != 0);
}

} // namespace vantrosk
