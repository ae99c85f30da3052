#pragma once

#include "Theme.h"

#include <QWidget>

#include <vector>

class QFormLayout;
class QLabel;
class QPushButton;
class QStackedWidget;

namespace vantrosk {

struct Program;
class Elided_Label;
class Finished_Panel;
class Mission_Picture;

/// What one does with the selected mission: what it is, Play and Install, facts, what it brings.
class Details_Panel_View : public QWidget {
    Q_OBJECT

public:
    Details_Panel_View(const Program &program, const Theme &theme, QWidget *parent);

    void Refresh();
    QPushButton *play() const { return play_; }
    QPushButton *install() const { return install_; }
    QPushButton *reset() const { return reset_; }
    QPushButton *editor() const { return editor_; }
    Finished_Panel *small_finished() const { return small_finished_; }
    /// The one to press next: Play once the mission is installed, else Install.
    QPushButton *next_step() const;
    QString shown_text(const QString &object_name) const;
    bool shows_a_mission() const;

Q_SIGNALS:
    void Play_pressed();
    void Install_pressed();
    void Reset_pressed();
    void Editor_pressed();

private:
    QWidget *Make_head();
    QWidget *Make_buttons();
    QWidget *Make_facts();
    Elided_Label *Add_field(QFormLayout *form, const QString &caption, const QString &object_name);
    void Refresh_head();
    void Refresh_buttons();
    void Refresh_facts();

    const Program &program_;
    Theme theme_;
    QStackedWidget *stack_;
    Mission_Picture *picture_;
    Elided_Label *name_, *author_, *game_, *languages_;
    QPushButton *play_, *install_, *editor_, *reset_;
    Finished_Panel *small_finished_;
    Elided_Label *archive_, *unpacked_, *last_played_, *saves_, *community_;
    QFormLayout *head_form_, *facts_form_;
    std::vector<QLabel *> chips_;
};

} // namespace vantrosk
