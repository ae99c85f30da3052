#pragma once

#include <QObject>

namespace vantrosk {

/// Manners of the keys that the toolkit leaves to others, for all windows of the program while it lives:
/// Enter presses the button that has the keys, in a window as in a dialog; and when a dialog goes, the keys
/// go back to the window below it, which without a window manager nobody else sees to.
class Key_Manners : public QObject {
    Q_OBJECT

public:
    Key_Manners();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace vantrosk
