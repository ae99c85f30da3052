#pragma once

#include <QWidget>

class QCheckBox;
class QLabel;
class QPushButton;

namespace vantrosk {

struct Program;

/// What the diagnostic tool does for all games: new reference files of the server, and listings after an
/// install.
class Diag_Settings_Panel : public QWidget {
    Q_OBJECT

public:
    explicit Diag_Settings_Panel(Program &program, QWidget *parent = nullptr);
    void Show_label(const QString &text);

Q_SIGNALS:
    void Download_wanted();

private:
    void Keep_after_install(bool wanted);

    Program &program_;
    QCheckBox *after_install_;
    QPushButton *download_;
    QLabel *label_; ///< what came of the last download
};

} // namespace vantrosk
