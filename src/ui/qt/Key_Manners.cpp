#include "Key_Manners.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

namespace vantrosk {

namespace {

bool Is_enter(const QKeyEvent &event) {
    const bool plain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    return plain && (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter);
}

/// The button that Enter presses. In a dialog too: there the default button would be pressed instead of a
/// button that is no default one, and "Remove" would save.
QAbstractButton *Button_for_enter(QObject *watched) {
    auto *button = qobject_cast<QAbstractButton *>(watched);
    return qobject_cast<QPushButton *>(button) || qobject_cast<QToolButton *>(button) ? button : nullptr;
}

void Give_keys_to(QWidget *below) {
    const QWidget *active = QApplication::activeWindow();
    if (active && active->isVisible())
        return;
    QWidget *above = QApplication::activeModalWidget();
    QWidget *next = above && above->isVisible() ? above : below;
    if (next->isVisible())
        next->activateWindow();
}

} // namespace

Key_Manners::Key_Manners() {
    qApp->installEventFilter(this);
}

bool Key_Manners::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::KeyPress && Is_enter(*static_cast<QKeyEvent *>(event))) {
        if (QAbstractButton *button = Button_for_enter(watched)) {
            button->click();
            return true;
        }
    }
    const auto *dialog = event->type() == QEvent::Hide ? qobject_cast<QDialog *>(watched) : nullptr;
    if (dialog && dialog->parentWidget()) {
        const QPointer<QWidget> below(dialog->parentWidget()->window());
        // Behind this event, when the dialog is gone for the system too.
        QTimer::singleShot(0, this, [below] {
            if (below)
                Give_keys_to(below);
        });
    }
    return QObject::eventFilter(watched, event);
}

} // namespace vantrosk
