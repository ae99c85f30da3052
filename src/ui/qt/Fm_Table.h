#pragma once

#include <QTableView>

namespace vantrosk {

/// The grid of the FM list. Its first rows can be frozen: they stay where they are while the others scroll
/// beneath them, and answer to mouse and keys like the rest.
class Fm_Table : public QTableView {
    Q_OBJECT

public:
    explicit Fm_Table(QWidget *parent);

    static constexpr int row_height = 25;

    void Set_frozen_rows(int count);
    int frozen_rows() const { return frozen_rows_; }
    /// Whether the row is wholly to be seen, below the frozen ones.
    bool Row_is_visible(int row) const;
    /// Makes it the first row below the frozen ones.
    void Set_top_row(int row);
    int Top_row() const;

    QModelIndex indexAt(const QPoint &point) const override;
    QRect visualRect(const QModelIndex &index) const override;
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;

Q_SIGNALS:
    void Letter_typed(QChar letter); ///< a letter or digit, without Ctrl or Alt
    void Enter_pressed();
    void Wheel_turned(int delta);              ///< one notch: negative towards the user
    void Menu_wanted(const QPoint &at_global); ///< for the row under the mouse, or the current one
    void Resized();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyboardSearch(const QString &) override {} ///< typing is told by `Letter_typed`

private:
    bool Is_frozen(int row) const;
    void Paint_frozen_rows();
    void Paint_focus();

    int frozen_rows_ = 0;
    int wheel_rest_ = 0; ///< eighths of a degree that make no whole notch yet
};

} // namespace vantrosk
