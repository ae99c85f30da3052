#pragma once

#include <QLabel>

namespace vantrosk {

/// One line of plain text that ends in "…" where the room ends; its tip then tells the whole.
class Elided_Label : public QLabel {
    Q_OBJECT

public:
    explicit Elided_Label(QWidget *parent = nullptr);

    void Set_text(const QString &text);
    const QString &whole_text() const { return text_; }
    /// Letters of up to that size where there is room for them; 0: those that the window has.
    void Set_most_points(int points);

    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void Fit();
    void Fit_letters();

    QString text_;
    int most_points_ = 0;
};

} // namespace vantrosk
