#pragma once

#include "Theme.h"

#include <QWidget>

class QLabel;
class QProgressBar;

namespace vantrosk {

class Elided_Label;

/// The light: a green dot when ready, a turning ring while working, amber and red to warn. The words beside
/// it say the same.
class Status_Light : public QWidget {
    Q_OBJECT

public:
    explicit Status_Light(QWidget *parent = nullptr);

    void Show_picture(int index);
    int picture() const { return picture_; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int picture_ = 1;
};

/// What is going on, of what, how far, how many missions, and the light.
class Status_Bar : public QWidget {
    Q_OBJECT

public:
    explicit Status_Bar(QWidget *parent);

    void Show_panel(int panel, const QString &text);
    void Show_light(int index, const QString &text);
    void Show_progress(bool visible, int value, int maximum);
    /// "7 FMs", or "3 of 7 FMs" while a search narrows the list; nothing without a list.
    void Show_count(int shown, int all, bool has_list);

    QString panel_text(int panel) const;
    bool progress_is_visible() const;
    QString percent_text() const;
    QString light_text() const;
    int light_picture() const { return light_->picture(); }
    QString count_text() const;

private:
    Elided_Label *panel_1_;
    Elided_Label *panel_2_;
    QWidget *progress_area_;
    QProgressBar *progress_;
    QLabel *percent_;
    QLabel *count_;
    Status_Light *light_;
    QLabel *light_text_;
};

} // namespace vantrosk
