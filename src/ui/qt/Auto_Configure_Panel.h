#pragma once

#include "ui/settings/Settings_Controls.h"

#include <QWidget>

class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;

namespace vantrosk {

/// Which Windows system to search, the button that searches it, and how far it is.
class Auto_Configure_Panel : public QWidget {
    Q_OBJECT

public:
    Auto_Configure_Panel(Program &program, Settings_Controls &controls);

Q_SIGNALS:
    void Works(bool at_work);
    void Changed();

private:
    QComboBox *Make_prefixes();
    void Run();

    Program &program_;
    Settings_Controls &controls_;
    QComboBox *prefixes_;
    QPushButton *run_;
    QLabel *stage_;
    QProgressBar *bar_;
};

} // namespace vantrosk
