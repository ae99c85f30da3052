#pragma once

#include "Theme.h"

#include <QSlider>

namespace vantrosk {

struct Program;

/// The user's score as eleven cells, 0 (not scored) to 10: a click, the arrow keys or a digit picks one.
class Score_Panel : public QSlider {
    Q_OBJECT

public:
    Score_Panel(const Program &program, const Theme &theme, QWidget *parent);

    void Refresh();
    QRect cell_of(int score) const;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void Score_picked(int score);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *) override {}
    void leaveEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override; ///< scrolls what is around it, and never scores

private:
    int Score_at(const QPoint &point) const;
    void Paint_cell(QPainter &painter, int score) const;

    const Program &program_;
    Theme theme_;
    int hovered_ = -1;
};

} // namespace vantrosk
