#pragma once

#include <QDialog>

class QPlainTextEdit;
class QPushButton;

namespace vantrosk {

struct Program;

/// A text file to read: the log of an install that did not finish, or notes that came with the program. The
/// program goes on beside it; when it closes on the notes that are shown once, they are deleted.
class Notes_Window : public QDialog {
    Q_OBJECT

public:
    /// `path`: a Windows path; a file that can not be read shows as an empty page.
    Notes_Window(Program &program, const QString &path, QWidget *parent);
    const QString &path() const { return path_; }

private:
    QWidget *Make_buttons();
    void Delete_file();

    Program &program_;
    QString path_;
    QPlainTextEdit *text_;
    QPushButton *delete_ = nullptr;
};

} // namespace vantrosk
