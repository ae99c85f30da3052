#pragma once

#include "Theme.h"

#include <QWidget>

class QStackedWidget;
class QVBoxLayout;

namespace vantrosk {

struct Program;
class Community_Panel;
class Finished_Panel;
class Keywords_Panel;
class Review_Panel;
class Score_Panel;

/// What the user says of the selected mission: score, finished levels, review, keywords; and what the
/// community says.
class Finish_Score_View : public QWidget {
    Q_OBJECT

public:
    Finish_Score_View(const Program &program, const Theme &theme, QWidget *parent);

    void Refresh();

    Score_Panel *score;
    Finished_Panel *finished;
    Review_Panel *review;
    Keywords_Panel *keywords;

private:
    QWidget *Make_fields();
    static void Add_field(QVBoxLayout *column, const QString &caption, QWidget *field, QWidget *buddy);

    const Program &program_;
    Community_Panel *community_;
    QStackedWidget *stack_;
};

} // namespace vantrosk
