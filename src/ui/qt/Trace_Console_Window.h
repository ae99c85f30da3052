#pragma once

#include <QMainWindow>
#include <QTimer>

class QEventLoop;
class QLabel;
class QListWidget;
class QPlainTextEdit;

namespace vantrosk {

struct Program;
class Qt_Ui;

/// The live console: what the program says while it works, the variables that one watches, and the place
/// where it holds. It stays beside the main window; closed, it holds nobody up and can be shown again.
class Trace_Console_Window : public QMainWindow {
    Q_OBJECT

public:
    Trace_Console_Window(Program &program, Qt_Ui &ui);
    ~Trace_Console_Window() override;

    /// One line behind the others.
    void Append(const QString &text);
    /// Lets the program's events through until "Continue >" is pressed. Returns at once while the console is
    /// closed: nobody could press it.
    void Hold(const QString &prompt);
    void Continue();
    bool is_holding() const { return !held_.isEmpty(); }

protected:
    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    QWidget *Make_variables();
    QWidget *Make_trace();
    QWidget *Make_pause_panel();
    QWidget *Make_buttons();
    void Make_menus();
    void List_previous_logs();
    void Show_log(const QString &path);
    void Refresh_variables();
    void Watch_all(bool all);
    void Show_pause(const QString &prompt);

    Program &program_;
    Qt_Ui &ui_;
    QListWidget *names_;
    QPlainTextEdit *variables_, *trace_;
    QWidget *pause_panel_;
    QLabel *pause_prompt_;
    QMenu *logs_menu_;
    QTimer refresh_timer_;
    QList<QEventLoop *> held_; ///< the innermost last: what runs while it holds may hold as well
};

} // namespace vantrosk
