#include "Error_Box.h"

#include "Message_Boxes.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace vantrosk {

namespace {

constexpr int margin = 16, gap = 12, text_width = 480, most_lines_seen = 14;
constexpr int longest_plain_text = 1500, most_plain_lines = 24;

struct Box_Button {
    Buttons of;
    Answer answer;
    const char *name;
    const char *text;
    const char *tip;
};

constexpr Box_Button box_buttons[] = {
    {Buttons::ok, Answer::ok, "box_ok", "&OK", "Enter"},
    {Buttons::ok_cancel, Answer::ok, "box_ok", "&OK", "Alt+O"},
    {Buttons::ok_cancel, Answer::cancel, "box_cancel", "&Cancel", "Escape"},
    {Buttons::yes_no, Answer::yes, "box_yes", "&Yes", "Alt+Y"},
    {Buttons::yes_no, Answer::no, "box_no", "&No", "Escape or Alt+N"},
};

Answer Escape_answer(Buttons buttons) {
    return buttons == Buttons::ok ? Answer::ok : buttons == Buttons::yes_no ? Answer::no : Answer::cancel;
}

} // namespace

bool Error_Box::Is_for(const Box &box) {
    return (box.kind == Box_Kind::critical &&
            (box.title.isEmpty() || box.title == QLatin1String(error_box_title))) ||
           box.text.size() > longest_plain_text || box.text.count(u'\n') > most_plain_lines;
}

Error_Box::Error_Box(const Box &box, QWidget *parent) : QDialog(parent), answer_(Escape_answer(box.buttons)) {
    const bool is_error = box.kind == Box_Kind::critical;
    setObjectName(QStringLiteral("error_box"));
    setWindowTitle(!box.title.isEmpty() ? box.title
                   : is_error           ? QLatin1String(error_box_title)
                                        : QStringLiteral("Vantrosk"));
    setAccessibleName(windowTitle());
    auto *icon = new QLabel;
    icon->setPixmap(Box_picture(box.kind, devicePixelRatioF()));
    auto *row = new QHBoxLayout;
    row->setSpacing(margin);
    row->addWidget(icon, 0, Qt::AlignTop);
    row->addWidget(Make_text(box.text), 1);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(gap);
    column->addLayout(row, 1);
    column->addWidget(Make_buttons(box));
    resize(minimumSizeHint()); // no taller than its text
}

/// The letter of a button presses it, as in a plain box.
void Error_Box::keyPressEvent(QKeyEvent *event) {
    for (auto *button : findChildren<QPushButton *>()) {
        const QKeySequence letter = QKeySequence::mnemonic(button->text());
        if (event->modifiers() == Qt::NoModifier && letter == QKeySequence(Qt::ALT | event->key()))
            return button->click();
    }
    QDialog::keyPressEvent(event);
}

QWidget *Error_Box::Make_text(const QString &text) {
    auto *field = new QPlainTextEdit(text);
    field->setObjectName(QStringLiteral("error_text"));
    field->setAccessibleName(windowTitle());
    field->setToolTip(QStringLiteral("What happened; the text can be copied"));
    field->setReadOnly(true);
    field->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    field->setTabChangesFocus(true);
    field->setFrameShape(QFrame::NoFrame);
    field->setMinimumWidth(text_width);
    const QRect wrapped = field->fontMetrics().boundingRect(QRect(0, 0, text_width - 2 * margin, 1 << 20),
                                                            Qt::TextWordWrap | Qt::TextWrapAnywhere, text);
    const int line = field->fontMetrics().lineSpacing();
    field->setMinimumHeight(std::clamp(wrapped.height() / line + 1, 2, most_lines_seen) * line + gap);
    return field;
}

QWidget *Error_Box::Make_buttons(const Box &box) {
    auto *buttons = new QDialogButtonBox(this); // a default button counts only inside its dialog
    for (const Box_Button &row : box_buttons) {
        if (row.of != box.buttons)
            continue;
        const bool says_no = row.answer == Answer::no || row.answer == Answer::cancel;
        auto *button = buttons->addButton(QLatin1String(row.text), says_no ? QDialogButtonBox::RejectRole
                                                                           : QDialogButtonBox::AcceptRole);
        button->setObjectName(QLatin1String(row.name));
        button->setAccessibleName(button->text().remove(u'&'));
        button->setToolTip(QLatin1String(row.tip));
        button->setAutoDefault(true);
        connect(button, &QPushButton::clicked, this, [this, answer = row.answer] {
            answer_ = answer;
            accept();
        });
        if (row.answer == box.default_answer || box.buttons == Buttons::ok) {
            button->setDefault(true);
            button->setFocus();
        }
    }
    return buttons;
}

} // namespace vantrosk
