#pragma once

#include <QPlainTextEdit>

namespace vantrosk {

struct Program;

/// What the user wrote about a mission. Tab leads on; what is typed is told at once and saved soon after.
class Review_Panel : public QPlainTextEdit {
    Q_OBJECT

public:
    Review_Panel(const Program &program, QWidget *parent);

    void Refresh();

Q_SIGNALS:
    void Review_edited(const QString &text);

private:
    const Program &program_;
};

} // namespace vantrosk
