#pragma once

#include "install/Play.h"

#include <QObject>
#include <QTimer>

#include <functional>

namespace vantrosk {

struct Program;

/// What the window's controls set going. One at a time: events are let through while a procedure works, and a
/// second click must not start a second one inside the first.
class Window_Commands : public QObject {
    Q_OBJECT

public:
    Window_Commands(Program &program, QObject *parent);
    ~Window_Commands() override;

    void Choose_game(const QString &code);
    /// The list of a game as one of its filters narrows it; 0 for all of it.
    void Choose_filter(const QString &code, int filter);
    /// The list of a game of the user's own.
    void Choose_custom_game(const QString &name, int filter = 0);
    /// The same list with the same filter.
    void Scan_again();
    void Choose_row(int row, int column);
    void Sort_by(int column);
    void Jump(QChar letter);
    void Play();
    void Install();
    void Edit();
    /// Runs other work under the same guard; false when something is at work already.
    bool Run(const QString &procedure, const std::function<void()> &work);
    /// What a play has swapped is put back now, not when its time is up.
    void Finish_play();

    bool is_working() const { return working_; }
    const Play_Result &last_play() const { return last_play_; }

Q_SIGNALS:
    void Working_changed(bool working);

private:
    Program &program_;
    Play_Result last_play_;
    QTimer after_play_;
    bool working_ = false;
};

} // namespace vantrosk
