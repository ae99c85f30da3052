#pragma once

#include "core/Full_Lite.h"

#include <QDialog>

class QRadioButton;

namespace vantrosk {

/// The first run's question. Whoever closes it without a word keeps the full version, which is the default.
class Full_Lite_Question : public QDialog {
    Q_OBJECT

public:
    explicit Full_Lite_Question(QWidget *parent);
    Version version() const;

private:
    QRadioButton *full_, *lite_;
};

} // namespace vantrosk
