#include "Review_Panel.h"

#include "core/Program.h"

#include <QSignalBlocker>

namespace vantrosk {

Review_Panel::Review_Panel(const Program &program, QWidget *parent)
    : QPlainTextEdit(parent), program_(program) {
    setObjectName(QStringLiteral("review"));
    setAccessibleName(QStringLiteral("Mission Review / Notes"));
    setToolTip(QStringLiteral("What you think of the mission, and what you want to remember"));
    setPlaceholderText(QStringLiteral("What you think of this mission"));
    setTabChangesFocus(true);
    connect(this, &QPlainTextEdit::textChanged, this, [this] { Q_EMIT Review_edited(toPlainText()); });
}

/// What is being typed stays with its cursor: only another text is put in.
void Review_Panel::Refresh() {
    const Details_Panel &details = program_.screen.details;
    setEnabled(details.record_shown);
    if (toPlainText() == details.review)
        return;
    const QSignalBlocker quiet(this);
    setPlainText(details.review);
}

} // namespace vantrosk
