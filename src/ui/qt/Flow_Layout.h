#pragma once

#include <QLayout>

#include <vector>

namespace vantrosk {

/// Items side by side, in as many lines as the width needs.
class Flow_Layout : public QLayout {
public:
    explicit Flow_Layout(int gap_between);
    ~Flow_Layout() override;

    void addItem(QLayoutItem *item) override;
    int count() const override;
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize minimumSize() const override;
    QSize sizeHint() const override { return minimumSize(); }
    void setGeometry(const QRect &rect) override;

private:
    /// The height needed in `area`; places the items when `place` is set.
    int Lay_out(const QRect &area, bool place) const;

    std::vector<QLayoutItem *> items_;
    int gap_;
};

} // namespace vantrosk
