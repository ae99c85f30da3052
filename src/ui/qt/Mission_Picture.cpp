#include "Mission_Picture.h"

#include <QDateTime>
#include <QFileInfo>
#include <QImageReader>
#include <QLinearGradient>
#include <QMovie>
#include <QPainter>
#include <QPainterPath>

namespace vantrosk {

namespace {

constexpr int picture_width = 130, picture_height = 98, corner = 4;
constexpr int frame_time = 150; ///< milliseconds
constexpr qint64 largest_file = 32 * 1024 * 1024;
constexpr int widest = 8192;
constexpr QRgb night_top = 0xff161b2c, night_middle = 0xff24305c, night_bottom = 0xff5e4a33;

/// What tells one picture from the next under the same name: INFO holds that of the selected mission only.
QString Mark_of(const QString &path, bool moving) {
    const QFileInfo file(path);
    return QStringLiteral("%1|%2|%3|%4")
        .arg(path)
        .arg(file.size())
        .arg(file.metadataChangeTime().toMSecsSinceEpoch())
        .arg(moving);
}

/// The picture at no more than twice the size it is shown at: enough for dense screens, little in memory.
QPixmap Read_picture(const QString &path) {
    if (path.isEmpty() || QFileInfo(path).size() > largest_file)
        return {};
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.width() > widest || size.height() > widest)
        return {};
    const QSize wanted = size.scaled(2 * picture_width, 2 * picture_height, Qt::KeepAspectRatio);
    if (size.isValid() && (size.width() > wanted.width() || size.height() > wanted.height()))
        reader.setScaledSize(wanted.expandedTo({1, 1}));
    return QPixmap::fromImage(reader.read());
}

} // namespace

Mission_Picture::Mission_Picture(const Theme &theme, QWidget *parent) : QWidget(parent), theme_(theme) {
    setObjectName(QStringLiteral("mission_picture"));
    setAccessibleName(QStringLiteral("Title picture of the mission"));
    setFixedSize(picture_width, picture_height);
    frame_timer_.setInterval(frame_time);
    connect(&frame_timer_, &QTimer::timeout, this, [this] {
        frame_ = (frame_ + 1) % frames_.size();
        picture_ = frames_[frame_];
        update();
    });
}

Mission_Picture::~Mission_Picture() = default;

void Mission_Picture::Stop() {
    frame_timer_.stop();
    frames_.clear();
    movie_.reset();
    picture_ = {};
    shown_.clear();
}

/// Frame by frame, each for as long as the file says.
void Mission_Picture::Play(const QString &path) {
    movie_ = std::make_unique<QMovie>(path);
    movie_->setScaledSize(picture_.size());
    connect(movie_.get(), &QMovie::frameChanged, this, [this] {
        // A file that is cut off stays at its last whole frame.
        if (const QPixmap frame = movie_->currentPixmap(); !frame.isNull())
            picture_ = frame;
        update();
    });
    movie_->start();
}

void Mission_Picture::Show_picture(const QString &path, bool moving) {
    const QString mark = path.isEmpty() ? QString() : Mark_of(path, moving);
    // The panel is filled anew at every change of it; a picture that plays is not to begin again each time.
    if (!mark.isEmpty() && mark == shown_)
        return;
    Stop();
    picture_ = Read_picture(path);
    shown_ = mark;
    if (moving && has_picture() && path.endsWith(QLatin1String(".gif"), Qt::CaseInsensitive))
        Play(path);
    update();
}

void Mission_Picture::Show_frames(const QStringList &paths) {
    QString mark;
    for (const QString &path : paths)
        mark += Mark_of(path, true) + QLatin1Char('\n');
    if (!mark.isEmpty() && mark == shown_)
        return;
    Stop();
    shown_ = mark;
    for (const QString &path : paths)
        if (const QPixmap frame = Read_picture(path); !frame.isNull())
            frames_.push_back(frame);
    frame_ = 0;
    if (!frames_.empty())
        picture_ = frames_.front();
    if (frames_.size() > 1)
        frame_timer_.start();
    update();
}

void Mission_Picture::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    QPainterPath outline;
    outline.addRoundedRect(rect(), corner, corner);
    painter.setClipPath(outline);
    if (has_picture()) {
        painter.fillRect(rect(), QColor(night_top));
        const QSizeF size = QSizeF(picture_.size()).scaled(QSizeF(rect().size()), Qt::KeepAspectRatio);
        const QPointF at((width() - size.width()) / 2, (height() - size.height()) / 2);
        painter.drawPixmap(QRectF(at, size), picture_, QRectF(picture_.rect()));
        return;
    }
    QLinearGradient night(rect().topLeft(), rect().bottomRight());
    night.setColorAt(0, QColor(night_top));
    night.setColorAt(0.55, QColor(night_middle));
    night.setColorAt(1, QColor(night_bottom));
    painter.fillRect(rect(), night);
    const QRect middle(width() / 2 - 20, height() / 2 - 20, 40, 40);
    painter.setOpacity(0.35);
    Line_icon(QStringLiteral("mission"), Qt::white).paint(&painter, middle);
}

} // namespace vantrosk
