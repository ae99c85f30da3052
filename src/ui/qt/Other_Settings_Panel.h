#pragma once

#include "ui/settings/Settings_Controls.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace vantrosk {

/// What belongs to no game: updates, language, size of the icons, the site that missions come from.
class Other_Settings_Panel : public QWidget {
    Q_OBJECT

public:
    Other_Settings_Panel(const Program &program, const Settings_Controls &controls);

    /// What stands in the panel now.
    void Take_into(Settings_Controls &controls) const;

private:
    QComboBox *Make_languages(const Program &program, const QString &current);
    QComboBox *Make_sizes(int current);

    QCheckBox *updates_;
    QComboBox *languages_, *sizes_;
    QLineEdit *site_;
};

} // namespace vantrosk
