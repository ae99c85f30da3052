#pragma once

#include <QDialog>
#include <QTableWidget>

namespace vantrosk {

struct Program;

/// What the scans found so far: a row for each game, a click on which lists it.
class Library_Summary : public QTableWidget {
    Q_OBJECT

public:
    explicit Library_Summary(Program &program, QWidget *parent = nullptr);

    /// Shows the summary as the program holds it.
    void Refresh();
    bool is_empty() const { return rowCount() == 0; }
    QSize sizeHint() const override;

Q_SIGNALS:
    void Game_chosen(const QString &code);

protected:
    void focusInEvent(QFocusEvent *event) override;

private:
    void Choose(int row);

    Program &program_;
};

/// The same in a window of its own, read anew.
class Library_Summary_Window : public QDialog {
    Q_OBJECT

public:
    explicit Library_Summary_Window(Program &program, QWidget *parent = nullptr);

Q_SIGNALS:
    void Game_chosen(const QString &code);
};

} // namespace vantrosk
