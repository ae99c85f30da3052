#include "Readme_Window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

namespace vantrosk {

namespace {

constexpr int first_width = 900, first_height = 900, least_width = 360, least_height = 240, offset = 48;

const QScreen *Other_screen(const QScreen *taken) {
    for (const QScreen *screen : QGuiApplication::screens())
        if (screen != taken)
            return screen;
    return taken;
}

} // namespace

Readme_Window::Readme_Window() : QWidget(nullptr, Qt::Window) {
    setObjectName(QStringLiteral("readme_window"));
    setWindowTitle(QStringLiteral("FM Readme"));
    setAttribute(Qt::WA_StyledBackground);
    // The program ends with its main window.
    setAttribute(Qt::WA_QuitOnClose, false);
    setMinimumSize(least_width, least_height);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto *find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, this, &Readme_Window::Find_wanted);
}

void Readme_Window::Take(QWidget *reader, const QWidget *near) {
    layout()->addWidget(reader);
    if (!is_placed_)
        Place_beside(near);
    is_placed_ = true;
    show();
    raise();
    activateWindow();
}

void Readme_Window::Place_beside(const QWidget *near) {
    const QScreen *screen = Other_screen(near->screen());
    const QRect room = screen->availableGeometry();
    const QSize wanted = QSize(first_width, first_height).boundedTo(room.size() - QSize(offset, offset));
    resize(wanted);
    move(screen == near->screen() ? room.topLeft() + QPoint(offset / 2, offset / 2)
                                  : room.center() - QRect(QPoint(), wanted).center());
}

void Readme_Window::closeEvent(QCloseEvent *event) {
    event->accept();
    Q_EMIT Closed();
}

} // namespace vantrosk
