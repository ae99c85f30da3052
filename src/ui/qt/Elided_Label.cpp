#include "Elided_Label.h"

#include <QResizeEvent>

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

void Elided_Label::Fit() {
    const QString shown = fontMetrics().elidedText(text_, Qt::ElideRight, contentsRect().width());
    if (shown == text())
        return;
    setText(shown);
    setToolTip(shown == text_ ? QString() : text_);
}

} // namespace vantrosk
