#include "Message_Boxes.h"

#include "Theme.h"

#include "core/mdlFormDisplayFunctions.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vantrosk {

namespace {

constexpr int margin = 16, gap = 12, icon_size = 40;
constexpr int input_width = 420;

struct Kind_Look {
    Box_Kind kind;
    const char *icon;
    QRgb colour;
};

constexpr Kind_Look kind_looks[] = {
    {Box_Kind::information, "information", ink::working},
    {Box_Kind::warning, "warning", ink::notice},
    {Box_Kind::critical, "critical", ink::problem},
    {Box_Kind::question, "help", ink::working},
};

const Kind_Look &Look_of(Box_Kind kind) {
    for (const Kind_Look &look : kind_looks)
        if (look.kind == kind)
            return look;
    return kind_looks[0];
}

QMessageBox::StandardButton Button_of(Answer answer) {
    switch (answer) {
    case Answer::ok:
        return QMessageBox::Ok;
    case Answer::cancel:
        return QMessageBox::Cancel;
    case Answer::yes:
        return QMessageBox::Yes;
    case Answer::no:
        break;
    }
    return QMessageBox::No;
}

void Name_button(QAbstractButton *button, const QString &object_name, const QString &tip) {
    if (!button)
        return;
    button->setObjectName(object_name);
    button->setAccessibleName(button->text().remove(u'&'));
    button->setToolTip(tip);
}

} // namespace

QPixmap Box_picture(Box_Kind kind, double density) {
    const Kind_Look &look = Look_of(kind);
    return Line_icon(QLatin1String(look.icon), QColor(look.colour))
        .pixmap(QSize(icon_size, icon_size), density);
}

std::unique_ptr<QMessageBox> Make_box(const Box &box, QWidget *parent) {
    auto made = std::make_unique<QMessageBox>(parent);
    made->setObjectName(QStringLiteral("message_box"));
    made->setIconPixmap(Box_picture(box.kind, made->devicePixelRatioF()));
    made->setProperty("kind", QLatin1String(Look_of(box.kind).icon));
    made->setWindowTitle(box.title.isEmpty() ? QStringLiteral("Vantrosk") : box.title);
    made->setTextFormat(Qt::PlainText);
    made->setText(box.text);
    made->setAccessibleName(made->windowTitle());
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
    QMessageBox::StandardButton escape = QMessageBox::Ok;
    if (box.buttons == Buttons::ok_cancel) {
        buttons = QMessageBox::Ok | QMessageBox::Cancel;
        escape = QMessageBox::Cancel;
    } else if (box.buttons == Buttons::yes_no) {
        buttons = QMessageBox::Yes | QMessageBox::No;
        escape = QMessageBox::No;
    }
    made->setStandardButtons(buttons);
    made->setEscapeButton(escape);
    const QMessageBox::StandardButton wanted = Button_of(box.default_answer);
    made->setDefaultButton(buttons & wanted ? wanted : escape);
    Name_button(made->button(QMessageBox::Ok), QStringLiteral("box_ok"), QStringLiteral("Enter"));
    Name_button(made->button(QMessageBox::Cancel), QStringLiteral("box_cancel"), QStringLiteral("Escape"));
    Name_button(made->button(QMessageBox::Yes), QStringLiteral("box_yes"), QStringLiteral("Alt+Y"));
    Name_button(made->button(QMessageBox::No), QStringLiteral("box_no"), QStringLiteral("Escape or Alt+N"));
    return made;
}

Answer Answer_of(const QMessageBox &box, int result) {
    switch (result) {
    case QMessageBox::Ok:
        return Answer::ok;
    case QMessageBox::Yes:
        return Answer::yes;
    case QMessageBox::No:
        return Answer::no;
    default:
        return box.standardButtons() & QMessageBox::No ? Answer::no : Answer::cancel;
    }
}

Input_Dialog::Input_Dialog(const Input_Request &request, QWidget *parent)
    : QDialog(parent), request_(request) {
    setObjectName(QStringLiteral("input_dialog"));
    setWindowTitle(request.title);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(gap);

    auto *prompt = new QLabel(request.prompt);
    prompt->setTextFormat(Qt::PlainText);
    prompt->setWordWrap(true);
    prompt->setMinimumWidth(input_width);
    column->addWidget(prompt);

    text_ = new QLineEdit(request.default_text);
    text_->setObjectName(QStringLiteral("input_text"));
    text_->setAccessibleName(request.title);
    text_->setToolTip(request.prompt);
    text_->selectAll();
    prompt->setBuddy(text_);
    column->addWidget(text_);

    hint_ = new QLabel;
    hint_->setObjectName(QStringLiteral("input_hint"));
    hint_->setTextFormat(Qt::PlainText);
    hint_->setWordWrap(true);
    hint_->setProperty("kind", QStringLiteral("second"));
    hint_->hide();
    column->addWidget(hint_);

    auto *buttons = new QDialogButtonBox;
    auto *ok = buttons->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole);
    ok->setDefault(true);
    Name_button(ok, QStringLiteral("input_ok"), QStringLiteral("Takes the text (Enter)"));
    second_ = buttons->addButton(QStringLiteral("Cancel"), QDialogButtonBox::ActionRole);
    Name_button(second_, QStringLiteral("input_second"), QStringLiteral("Escape cancels"));
    column->addWidget(buttons);

    connect(ok, &QPushButton::clicked, this, [this] { Press_ok(); });
    connect(second_, &QPushButton::clicked, this, [this] { Press_second(); });
    connect(text_, &QLineEdit::textChanged, this, [this] { Set_second_button(); });
    Set_second_button();
    text_->setFocus();
}

QString Input_Dialog::text() const {
    return text_->text();
}

void Input_Dialog::Set_second_button() {
    const QString told = Second_Button_Text(request_, text_->text());
    second_->setText(told.isEmpty() ? QStringLiteral("Cancel") : told);
    second_->setAccessibleName(second_->text());
}

void Input_Dialog::Press_ok() {
    if (!Input_Holds(request_, text_->text()))
        return accept();
    hint_->setText(QStringLiteral("The text has to begin with “%1”.").arg(request_.required_start));
    hint_->show();
    text_->setFocus();
}

/// It clears an untouched default and cancels otherwise.
void Input_Dialog::Press_second() {
    if (second_->text() != QLatin1String("CLEAR"))
        return reject();
    text_->clear();
    text_->setFocus();
}

} // namespace vantrosk
