#pragma once

#include <QWidget>

#include <functional>

class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace vantrosk {

struct Diagnosis;
struct Program;
class Qt_Ui;

/// What the diagnostic tool asks of one game: its folder and the reference file to compare it with.
class Diag_Game_Panel : public QWidget {
    Q_OBJECT

public:
    Diag_Game_Panel(Program &program, Qt_Ui &ui, QWidget *parent = nullptr);

    /// The fields as the settings and `references` have them for the game of a tab.
    void Show_game(const QString &code);
    /// The list anew; the chosen file stays chosen.
    void Refresh_references();
    const QString &game() const { return code_; }
    QString game_folder() const; ///< Windows path
    QString reference() const;   ///< name in `references`, or "NONE"
    void Show_diagnosis(const Diagnosis &diagnosis);
    /// No diagnosis of this game yet, or one is under way.
    void Forget_diagnosis(const QString &text);
    QPushButton *diagnose() const { return diagnose_; }

Q_SIGNALS:
    void Diagnose_wanted();
    void Export_wanted();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QLineEdit *Make_path_field(const QString &name, const QString &tip);
    QPushButton *Make_button(const QString &name, const QString &text, const QString &tip);
    QWidget *Make_path_row(const QString &caption, QLineEdit *field, const QString &button_text,
                           const QString &title);
    void Make_list();
    void Lay_out();
    void Show_info();

    Program &program_;
    Qt_Ui &ui_;
    QString code_;
    QLineEdit *game_path_, *saves_path_;
    QListWidget *references_;
    QPlainTextEdit *info_;
    QPushButton *diagnose_, *export_;
    QLabel *found_; ///< what came of the diagnosis, in numbers
};

} // namespace vantrosk
