#pragma once

#include "Theme.h"

#include <QPixmap>
#include <QTimer>
#include <QWidget>

#include <memory>
#include <vector>

class QMovie;

namespace vantrosk {

/// The title picture of a mission, or frames of one; a drawn stand-in where a mission brings none. Pictures
/// come from outside: what can not be read, or is too large, gives the stand-in.
class Mission_Picture : public QWidget {
    Q_OBJECT

public:
    explicit Mission_Picture(const Theme &theme, QWidget *parent = nullptr);
    ~Mission_Picture() override;

    /// Native paths. `moving` lets a GIF play.
    void Show_picture(const QString &path, bool moving);
    void Show_frames(const QStringList &paths);
    bool has_picture() const { return !picture_.isNull(); }
    bool is_moving() const { return movie_ != nullptr || frame_timer_.isActive(); }
    /// What is shown at this moment.
    const QPixmap &picture() const { return picture_; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void Stop();
    void Play(const QString &path);

    Theme theme_;
    QPixmap picture_;
    QString shown_; ///< mark of the file or files that are shown
    std::vector<QPixmap> frames_;
    size_t frame_ = 0;
    QTimer frame_timer_;
    std::unique_ptr<QMovie> movie_;
};

} // namespace vantrosk
