#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace vantrosk {

struct Program;

/// Says above the list which filter narrows it, with the button that shows all again. Not there without a
/// filter.
class Filter_Strip : public QWidget {
    Q_OBJECT

public:
    Filter_Strip(const Program &program, QWidget *parent);

    void Refresh();

Q_SIGNALS:
    void All_wanted();

private:
    const Program &program_;
    QLabel *text_;
    QPushButton *all_;
};

} // namespace vantrosk
