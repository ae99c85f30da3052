#include "Finish_Score_View.h"

#include "Community_Panel.h"
#include "Finished_Panel.h"
#include "Keywords_Panel.h"
#include "Review_Panel.h"
#include "Score_Panel.h"

#include "core/Program.h"

#include <QLabel>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace vantrosk {

namespace {

constexpr int margin = 12, gap = 4, field_gap = 10;
constexpr int least_review_height = 68;

} // namespace

Finish_Score_View::Finish_Score_View(const Program &program, const Theme &theme, QWidget *parent)
    : QWidget(parent), score(new Score_Panel(program, theme, nullptr)),
      finished(new Finished_Panel(program, Finished_Panel::Set::words, nullptr)),
      review(new Review_Panel(program, nullptr)), keywords(new Keywords_Panel(program, theme, nullptr)),
      program_(program), community_(new Community_Panel(program, theme, nullptr)),
      stack_(new QStackedWidget) {
    setObjectName(QStringLiteral("finish_score_view"));
    setAttribute(Qt::WA_StyledBackground);
    auto *nothing = new QLabel(QStringLiteral("Select a mission in the list to score it, to write about it "
                                              "and to mark what you have finished."));
    nothing->setObjectName(QStringLiteral("finish_score_empty"));
    nothing->setProperty("kind", QStringLiteral("second"));
    nothing->setAlignment(Qt::AlignCenter);
    nothing->setWordWrap(true);
    nothing->setMargin(margin * 2);

    auto *area = new QScrollArea;
    area->setObjectName(QStringLiteral("finish_score_area"));
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(Make_fields());
    stack_->addWidget(nothing);
    stack_->addWidget(area);
    auto *all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(stack_);
    Refresh();
}

QWidget *Finish_Score_View::Make_fields() {
    auto *fields = new QWidget;
    fields->setObjectName(QStringLiteral("finish_score_fields"));
    auto *column = new QVBoxLayout(fields);
    column->setContentsMargins(margin, field_gap, margin, margin);
    column->setSpacing(gap);
    Add_field(column, QStringLiteral("Scor&e"), score, score);
    Add_field(column, QStringLiteral("Group Score"), community_, nullptr);
    Add_field(column, QStringLiteral("Finishe&d"), finished, finished->box(0));
    review->setMinimumHeight(least_review_height);
    Add_field(column, QStringLiteral("Mission Revie&w / Notes"), review, review);
    column->setStretchFactor(review, 1);
    Add_field(column, QStringLiteral("FM &Keywords"), keywords, keywords);
    return fields;
}

void Finish_Score_View::Add_field(QVBoxLayout *column, const QString &caption, QWidget *field,
                                  QWidget *buddy) {
    if (column->count() > 0)
        column->addSpacing(field_gap - gap);
    auto *label = new QLabel(caption);
    label->setProperty("kind", QStringLiteral("caption"));
    label->setBuddy(buddy);
    column->addWidget(label);
    column->addWidget(field);
}

void Finish_Score_View::Refresh() {
    stack_->setCurrentIndex(program_.screen.details.record_shown ? 1 : 0);
    score->Refresh();
    finished->Refresh();
    review->Refresh();
    keywords->Refresh();
    community_->Refresh();
}

} // namespace vantrosk
