#include "Community_Panel.h"

#include "core/Program.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QStyle>

namespace vantrosk {

namespace {

constexpr int figures = 4, figure_width = 11, figure_height = 16;

void Set_kind(QWidget *widget, const QString &kind) {
    widget->setProperty("kind", kind);
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
}

} // namespace

Group_Size_Picture::Group_Size_Picture(const Theme &theme, QWidget *parent) : QWidget(parent), theme_(theme) {
    setFixedSize(sizeHint());
}

QSize Group_Size_Picture::sizeHint() const {
    return {figures * figure_width + 2, figure_height + 2};
}

void Group_Size_Picture::Show_picture(int picture) {
    picture_ = picture;
    update();
}

void Group_Size_Picture::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const int filled = picture_ == 0 ? 0 : figures + 1 - picture_;
    for (int i = 0; i < figures; ++i) {
        painter.setBrush(i < filled ? theme_.quickbar : QColor(ink::bar_ground));
        const double left = 1 + i * figure_width;
        painter.drawEllipse(QRectF(left + 2.5, 1, 5, 5));
        painter.drawChord(QRectF(left + 0.5, 7.5, 9, 18), 0, 180 * 16); // the shoulders
    }
}

Community_Panel::Community_Panel(const Program &program, const Theme &theme, QWidget *parent)
    : QWidget(parent), program_(program), score_(new QLabel), people_(new QLabel),
      group_(new Group_Size_Picture(theme, nullptr)) {
    setObjectName(QStringLiteral("community"));
    score_->setObjectName(QStringLiteral("group_score"));
    score_->setProperty("kind", QStringLiteral("strong"));
    people_->setObjectName(QStringLiteral("group_label"));
    people_->setProperty("kind", QStringLiteral("second"));
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    row->addWidget(score_);
    row->addWidget(group_);
    row->addWidget(people_, 1);
}

void Community_Panel::Refresh() {
    const Details_Panel &details = program_.screen.details;
    const bool is_scored = details.group_score.toDouble() > 0;
    score_->setVisible(is_scored);
    score_->setText(QStringLiteral("%1 of 10").arg(details.group_score));
    group_->Show_picture(is_scored ? details.group_picture : 0);
    people_->setText(details.group_label);
    Set_kind(people_, details.group_is_old ? QStringLiteral("warned") : QStringLiteral("second"));
    const QString age = details.group_is_old ? QStringLiteral("\nFetched more than 90 days ago") : QString();
    setToolTip(details.group_tip + age);
    setAccessibleName(QStringLiteral("Community: ") + details.group_tip);
}

} // namespace vantrosk
