#pragma once

#include "Theme.h"

#include <QPushButton>
#include <QWidget>

#include <vector>

class QScrollArea;
class QVBoxLayout;

namespace vantrosk {

struct Program;
struct Recent_Cell;

/// One of the missions that were played last: picture, number, and what it is. Pressing it goes back to the
/// mission; one whose zip is gone can not be pressed, but taken out.
class Recent_Cell_View : public QPushButton {
    Q_OBJECT

public:
    /// `picture_width` in pixels.
    Recent_Cell_View(const Program &program, const Theme &theme, const Recent_Cell &cell, int number,
                     int picture_width);
    QSize sizeHint() const override;
    int rank() const { return rank_; }

protected:
    bool event(QEvent *event) override;

private:
    int rank_;
};

/// The tab of the missions that were played last.
class Recent_Panel : public QWidget {
    Q_OBJECT

public:
    Recent_Panel(const Program &program, const Theme &theme, QWidget *parent);

    /// Lays the cells out anew.
    void Refresh();
    Recent_Cell_View *cell(int index) const { return cells_.at(static_cast<size_t>(index)); }
    int count() const { return static_cast<int>(cells_.size()); }
    void Take_focus();

Q_SIGNALS:
    void Cell_chosen(int index);
    void Remove_wanted(int rank);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Show_menu(const Recent_Cell_View *cell, const QPoint &at_global);

    const Program &program_;
    Theme theme_;
    QVBoxLayout *column_;
    QScrollArea *area_;
    std::vector<Recent_Cell_View *> cells_;
};

} // namespace vantrosk
