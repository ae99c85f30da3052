#include "Theme.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

namespace vantrosk {

namespace {

QByteArray Icon_bytes(const QString &name) {
    QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Draws the vector picture at whatever size is asked for, so icons stay sharp on every screen.
class Line_Icon_Engine : public QIconEngine {
public:
    Line_Icon_Engine(const QString &name, const QColor &colour, const QColor &disabled_colour)
        : name_(name), colour_(colour), disabled_colour_(disabled_colour) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override {
        const bool dim = mode == QIcon::Disabled;
        const QColor colour = dim && disabled_colour_.isValid() ? disabled_colour_ : colour_;
        QSvgRenderer renderer(Icon_bytes(name_).replace("currentColor", colour.name().toLatin1()));
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setOpacity(painter->opacity() * colour.alphaF());
        renderer.render(painter, QRectF(rect));
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine *clone() const override { return new Line_Icon_Engine(*this); }

private:
    QString name_;
    QColor colour_, disabled_colour_;
};

} // namespace

QIcon Line_icon(const QString &name, const QColor &colour, const QColor &disabled_colour) {
    return QIcon(new Line_Icon_Engine(name, colour, disabled_colour));
}

QIcon Game_icon(const QString &code, const QColor &colour) {
    const bool has_own = QFile::exists(QStringLiteral(":/icons/%1.svg").arg(code));
    return Line_icon(has_own ? code : QStringLiteral("custom"), colour);
}

QIcon Program_icon() {
    return QIcon(new Line_Icon_Engine(QStringLiteral("vantrosk"), QColor(ink::text), {}));
}

} // namespace vantrosk
