#include "Status_Bar.h"

#include "Elided_Label.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>

#include <algorithm>

namespace vantrosk {

namespace {

constexpr int bar_height = 27, light_size = 12;
constexpr int first_working = 2, last_working = 9, problem = 11;

QFrame *Divider() {
    auto *line = new QFrame;
    line->setProperty("kind", QStringLiteral("divider"));
    return line;
}

template<typename Label>
Label *Panel(const QString &name, const QString &spoken) {
    auto *label = new Label;
    label->setObjectName(name);
    label->setProperty("kind", QStringLiteral("panel"));
    label->setAccessibleDescription(spoken);
    return label;
}

QString Default_light_text(int index) {
    if (index >= problem)
        return index == problem ? QStringLiteral("THERE IS A PROBLEM") : QStringLiteral("NOTIFICATION");
    return index < first_working ? QStringLiteral("READY") : QStringLiteral("WORKING");
}

} // namespace

Status_Light::Status_Light(QWidget *parent) : QWidget(parent) {
    setObjectName(QStringLiteral("status_light"));
    setFixedSize(light_size, light_size);
}

QSize Status_Light::sizeHint() const {
    return {light_size, light_size};
}

void Status_Light::Show_picture(int index) {
    picture_ = index;
    update();
}

void Status_Light::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = QRectF(rect()).adjusted(1, 1, -1, -1);
    if (picture_ >= first_working && picture_ < problem) {
        const int step = (picture_ - first_working) % (last_working - first_working + 1);
        painter.setPen(QPen(QColor(ink::bar_ground), 2));
        painter.drawEllipse(area.adjusted(1, 1, -1, -1));
        painter.setPen(QPen(QColor(ink::working), 2, Qt::SolidLine, Qt::RoundCap));
        painter.drawArc(area.adjusted(1, 1, -1, -1), (90 - step * 45) * 16, -120 * 16);
        return;
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(picture_ < first_working ? ink::ready
                            : picture_ == problem    ? ink::problem
                                                     : ink::notice));
    painter.drawEllipse(area);
}

Status_Bar::Status_Bar(QWidget *parent)
    : QWidget(parent),
      panel_1_(Panel<Elided_Label>(QStringLiteral("status_panel_1"), QStringLiteral("What is going on"))),
      panel_2_(Panel<Elided_Label>(QStringLiteral("status_panel_2"), QStringLiteral("Of what, how far"))),
      progress_area_(new QWidget), progress_(new QProgressBar), percent_(new QLabel),
      count_(Panel<QLabel>(QStringLiteral("status_count"), QStringLiteral("Missions in the list"))),
      light_(new Status_Light), light_text_(new QLabel) {
    setObjectName(QStringLiteral("status_bar"));
    setAttribute(Qt::WA_StyledBackground);
    setFixedHeight(bar_height);

    progress_->setObjectName(QStringLiteral("status_progress"));
    progress_->setAccessibleName(QStringLiteral("Progress"));
    progress_->setToolTip(QStringLiteral("How far the work has come"));
    progress_->setTextVisible(false);
    progress_->setFixedWidth(150);
    percent_->setMinimumWidth(percent_->fontMetrics().horizontalAdvance(QStringLiteral("100%")));
    auto *progress_row = new QHBoxLayout(progress_area_);
    progress_row->setContentsMargins(10, 0, 10, 0);
    progress_row->setSpacing(6);
    progress_row->addWidget(progress_);
    progress_row->addWidget(percent_);
    progress_area_->hide();

    light_text_->setObjectName(QStringLiteral("status_light_text"));
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 1, 12, 0);
    row->setSpacing(0);
    row->addWidget(panel_1_, 2);
    row->addWidget(Divider());
    row->addWidget(panel_2_, 3);
    row->addWidget(progress_area_);
    row->addWidget(Divider());
    row->addWidget(count_);
    row->addWidget(Divider());
    row->addSpacing(10);
    row->addWidget(light_);
    row->addSpacing(6);
    row->addWidget(light_text_);

    Show_panel(1, QStringLiteral("Ready"));
    Show_light(1, {});
}

void Status_Bar::Show_panel(int panel, const QString &text) {
    if (panel == 1)
        panel_1_->Set_text(text);
    if (panel == 2)
        panel_2_->Set_text(text);
}

void Status_Bar::Show_light(int index, const QString &text) {
    light_->Show_picture(index);
    light_text_->setText(text.isEmpty() ? Default_light_text(index) : text);
    light_->setAccessibleName(light_text_->text());
}

void Status_Bar::Show_progress(bool visible, int value, int maximum) {
    progress_area_->setVisible(visible);
    if (!visible)
        return;
    const int top = std::max(1, maximum);
    progress_->setRange(0, top);
    progress_->setValue(std::clamp(value, 0, top));
    percent_->setText(QStringLiteral("%1%").arg(qint64(progress_->value()) * 100 / top));
}

void Status_Bar::Show_count(int shown, int all, bool has_list) {
    const QString unit = all == 1 ? QStringLiteral("FM") : QStringLiteral("FMs");
    count_->setText(!has_list      ? QString()
                    : shown == all ? QStringLiteral("%1 %2").arg(all).arg(unit)
                                   : QStringLiteral("%1 of %2 %3").arg(shown).arg(all).arg(unit));
}

QString Status_Bar::panel_text(int panel) const {
    return panel == 1 ? panel_1_->whole_text() : panel_2_->whole_text();
}

bool Status_Bar::progress_is_visible() const {
    return !progress_area_->isHidden();
}

QString Status_Bar::percent_text() const {
    return percent_->text();
}

QString Status_Bar::light_text() const {
    return light_text_->text();
}

QString Status_Bar::count_text() const {
    return count_->text();
}

} // namespace vantrosk
