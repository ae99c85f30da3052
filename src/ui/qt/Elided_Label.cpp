#include "Elided_Label.h"

#include <QResizeEvent>

#include <algorithm>
#include <utility>

namespace vantrosk {

namespace {

/// More than a line can show: a readme's "author" may be half a page.
constexpr int longest_text = 2000;

} // namespace

Elided_Label::Elided_Label(QWidget *parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void Elided_Label::Set_text(const QString &text) {
    text_ = text.left(longest_text).simplified();
    setAccessibleName(text_);
    Fit();
}

QSize Elided_Label::minimumSizeHint() const {
    return {0, QLabel::minimumSizeHint().height()};
}

void Elided_Label::resizeEvent(QResizeEvent *event) {
    QLabel::resizeEvent(event);
    Fit();
}

void Elided_Label::Set_most_points(int points) {
    if (std::exchange(most_points_, points) != points)
        Fit();
}

void Elided_Label::Fit_letters() {
    QFont letters = font();
    const double least = parentWidget() ? parentWidget()->font().pointSizeF() : letters.pointSizeF();
    double points = std::max<double>(most_points_, least);
    for (; points > least; points = std::max(points - 1, least)) {
        letters.setPointSizeF(points);
        if (QFontMetrics(letters).horizontalAdvance(text_) <= contentsRect().width())
            break;
    }
    if (qFuzzyCompare(font().pointSizeF(), points))
        return;
    letters.setPointSizeF(points);
    setFont(letters);
}

void Elided_Label::Fit() {
    Fit_letters();
    const QString shown = fontMetrics().elidedText(text_, Qt::ElideRight, contentsRect().width());
    if (shown == text())
        return;
    setText(shown);
    setToolTip(shown == text_ ? QString() : text_);
}

} // namespace vantrosk
