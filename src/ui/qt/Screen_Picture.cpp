#include "Screen_Picture.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace vantrosk {

namespace {

bool Is_one_colour(const QImage &image) {
    return image == image.copy(0, 0, 1, 1).scaled(image.size());
}

/// In the order in which they were shown; the active one lies on top.
void Draw_own_windows(QPainter &painter) {
    QWidgetList windows = QApplication::topLevelWidgets();
    std::stable_partition(windows.begin(), windows.end(),
                          [](const QWidget *window) { return !window->isActiveWindow(); });
    for (QWidget *window : windows)
        if (window->isVisible() && !window->isMinimized())
            painter.drawPixmap(window->geometry().topLeft(), window->grab());
}

} // namespace

QImage Take_screen_picture() {
    const QScreen *first = QGuiApplication::primaryScreen();
    if (!first)
        return {};
    const QRect all = first->virtualGeometry();
    const double density = first->devicePixelRatio();
    QImage picture(all.size() * density, QImage::Format_RGB32);
    if (picture.isNull())
        return {};
    picture.setDevicePixelRatio(density);
    picture.fill(Qt::black);
    QPainter painter(&picture);
    painter.translate(-all.topLeft());
    for (QScreen *screen : QGuiApplication::screens())
        painter.drawPixmap(screen->geometry(), screen->grabWindow(0));
    if (Is_one_colour(picture))
        Draw_own_windows(painter);
    painter.end();
    picture.setDevicePixelRatio(1);
    return picture;
}

} // namespace vantrosk
