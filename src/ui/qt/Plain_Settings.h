#pragma once

#include <QDialog>

class QPushButton;
class QTreeWidget;

namespace vantrosk {

struct Program;
class Qt_Ui;

/// The games, what of each is set up, and the way to change it. Folders are kept as they are chosen; Save
/// writes the main ini as it stands, which ends the first run's questions.
class Plain_Settings : public QDialog {
    Q_OBJECT

public:
    Plain_Settings(Program &program, Qt_Ui &ui, QWidget *parent);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *Make_buttons();
    void Refresh();
    void Set_up_current();
    void Save();

    Program &program_;
    Qt_Ui &ui_;
    QTreeWidget *games_;
    QPushButton *set_up_ = nullptr;
};

} // namespace vantrosk
