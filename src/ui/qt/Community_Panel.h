#pragma once

#include "Theme.h"

#include <QWidget>

class QLabel;

namespace vantrosk {

struct Program;

/// Four figures: how many people stand behind the community's score.
class Group_Size_Picture : public QWidget {
    Q_OBJECT

public:
    Group_Size_Picture(const Theme &theme, QWidget *parent);
    /// 1 to 4, from most people to fewest; 0 for no score known.
    void Show_picture(int picture);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Theme theme_;
    int picture_ = 0;
};

/// The community's score, from how many people it is, and a warning when it was fetched long ago.
class Community_Panel : public QWidget {
    Q_OBJECT

public:
    Community_Panel(const Program &program, const Theme &theme, QWidget *parent);

    void Refresh();

private:
    const Program &program_;
    QLabel *score_, *people_;
    Group_Size_Picture *group_;
};

} // namespace vantrosk
