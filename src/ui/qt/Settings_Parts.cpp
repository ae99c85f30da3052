#include "Settings_Parts.h"

#include <QLabel>
#include <QPushButton>

namespace vantrosk {

QLabel *Settings_label(const QString &text, const QString &kind, QWidget *buddy) {
    auto *label = new QLabel(text);
    label->setProperty("kind", kind);
    label->setBuddy(buddy);
    label->setWordWrap(!buddy);
    return label;
}

QPushButton *Settings_button(const QString &name, const QString &text, const QString &spoken,
                             const QString &tip) {
    auto *button = new QPushButton(text);
    button->setObjectName(name);
    button->setAccessibleName(spoken);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

} // namespace vantrosk
