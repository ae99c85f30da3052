#include "Score_Panel.h"

#include "core/Program.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>

namespace vantrosk {

namespace {

constexpr int best_score = 10, cells = best_score + 1;
constexpr int cell_height = 26, least_cell_width = 22, liked_cell_width = 32, gap = 3, radius = 4;
constexpr int widest_cell = 40;

} // namespace

Score_Panel::Score_Panel(const Program &program, const Theme &theme, QWidget *parent)
    : QSlider(Qt::Horizontal, parent), program_(program), theme_(theme) {
    setObjectName(QStringLiteral("score"));
    setAccessibleName(QStringLiteral("Score"));
    setToolTip(QStringLiteral(
        "0 = Unscored, this means that you have not yet scored the FM. You will be unable to upload the "
        "score "
        "until you have scored it.\n10 = the HIGHEST score (you want everyone to play this as you think its "
        "the best FM made).\n1 = the LOWEST score (you wouldn't play it again)"));
    setRange(0, best_score);
    setPageStep(1);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(this, &QSlider::valueChanged, this, &Score_Panel::Score_picked);
}

void Score_Panel::Refresh() {
    const QSignalBlocker quiet(this);
    setValue(qRound(program_.screen.details.score.toDouble()));
    setEnabled(program_.screen.details.record_shown);
    update();
}

QSize Score_Panel::sizeHint() const {
    return {cells * liked_cell_width + best_score * gap, cell_height + 2};
}

QSize Score_Panel::minimumSizeHint() const {
    return {cells * least_cell_width + best_score * gap, cell_height + 2};
}

QRect Score_Panel::cell_of(int score) const {
    const int wide = std::min((width() - best_score * gap) / cells, widest_cell);
    return {score * (wide + gap), 1, wide, cell_height};
}

int Score_Panel::Score_at(const QPoint &point) const {
    for (int score = 0; score <= best_score; ++score)
        if (cell_of(score).contains(point))
            return score;
    return -1;
}

void Score_Panel::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int score = 0; score <= best_score; ++score)
        Paint_cell(painter, score);
}

/// The cells up to the score are filled; the score itself is the strongest.
void Score_Panel::Paint_cell(QPainter &painter, int score) const {
    const bool is_score = score == value();
    const bool is_filled = score > 0 && score <= value();
    QColor ground(ink::surface), line(ink::line), text(isEnabled() ? ink::text : ink::text_faint);
    if (isEnabled() && is_score && score > 0) {
        ground = line = theme_.quickbar;
        text = theme_.on_quickbar;
    } else if (isEnabled() && is_filled) {
        ground = line = QColor(ink::chip_on);
        text = QColor(ink::chip_on_text);
    } else if (isEnabled() && (is_score || score == hovered_)) {
        ground = QColor(ink::heading);
    }
    const QRectF cell = QRectF(cell_of(score)).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setBrush(ground);
    painter.setPen(hasFocus() && is_score ? QPen(theme_.gamebar, 2) : QPen(line, 1));
    painter.drawRoundedRect(cell.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    QFont font = theme_.small;
    font.setWeight(is_score ? QFont::DemiBold : QFont::Normal);
    painter.setFont(font);
    painter.setPen(text);
    painter.drawText(cell, Qt::AlignCenter, QString::number(score));
}

void Score_Panel::mousePressEvent(QMouseEvent *event) {
    const int score = Score_at(event->pos());
    if (event->button() == Qt::LeftButton && score >= 0)
        setValue(score);
}

void Score_Panel::mouseMoveEvent(QMouseEvent *event) {
    const int score = Score_at(event->pos());
    if (score == hovered_)
        return;
    hovered_ = score;
    update();
}

void Score_Panel::leaveEvent(QEvent *event) {
    hovered_ = -1;
    update();
    QSlider::leaveEvent(event);
}

void Score_Panel::keyPressEvent(QKeyEvent *event) {
    const QString text = event->text();
    if (text.size() == 1 && text.front() >= u'0' && text.front() <= u'9')
        return setValue(text.front().digitValue());
    QSlider::keyPressEvent(event);
}

void Score_Panel::wheelEvent(QWheelEvent *event) {
    event->ignore();
}

} // namespace vantrosk
