#include "Full_Lite_Question.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace vantrosk {

namespace {

constexpr int margin = 16, gap = 8, text_width = 460, indent = 26;

constexpr const char *question = "Please select what version of Vantrosk you wish to use.";
constexpr const char *about_lite =
    "The lite version is a cut down version with most settings switched off and a simpler interface. If you "
    "choose this you can always re-enable settings via the TWEAKS TOOL found under the TOOLS menu on the "
    "main interface.";
constexpr const char *full_tip = "This setting will leave Vantrosk using its default, best use, settings.";
constexpr const char *lite_tip =
    "This setting will switch off most default tweaks making Vantrosk as basic as possible to use.\n"
    "Settings can be switch back on again via the Tweaks tool, however they will need to be done manually.";

QLabel *Text(const QString &text, const QString &kind) {
    auto *label = new QLabel(text);
    label->setProperty("kind", kind);
    label->setWordWrap(true);
    label->setMinimumWidth(text_width);
    return label;
}

QRadioButton *Choice(const QString &name, const QString &caption, const QString &tip) {
    auto *choice = new QRadioButton(caption);
    choice->setObjectName(name);
    choice->setAccessibleName(QString(caption).remove(u'&'));
    choice->setAccessibleDescription(tip);
    choice->setToolTip(tip);
    return choice;
}

} // namespace

Full_Lite_Question::Full_Lite_Question(QWidget *parent)
    : QDialog(parent),
      full_(Choice(QStringLiteral("choose_full"), QStringLiteral("&Full Version"), QLatin1String(full_tip))),
      lite_(Choice(QStringLiteral("choose_lite"), QStringLiteral("&Lite Version"), QLatin1String(lite_tip))) {
    setObjectName(QStringLiteral("full_lite_question"));
    setWindowTitle(QStringLiteral("Vantrosk"));
    setAccessibleName(QLatin1String(question));
    auto *buttons = new QDialogButtonBox;
    auto *ok = buttons->addButton(QStringLiteral("&OK"), QDialogButtonBox::AcceptRole);
    ok->setObjectName(QStringLiteral("choose_ok"));
    ok->setAccessibleName(QStringLiteral("OK"));
    ok->setToolTip(QStringLiteral("Takes this version (Enter)"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(gap);
    column->addWidget(Text(QLatin1String(question), QStringLiteral("strong")));
    for (auto *choice : {full_, lite_}) {
        column->addSpacing(gap);
        column->addWidget(choice);
        auto *tip = Text(choice->toolTip(), QStringLiteral("second"));
        tip->setContentsMargins(indent, 0, 0, 0);
        column->addWidget(tip);
    }
    column->addSpacing(gap);
    column->addWidget(Text(QLatin1String(about_lite), QString()));
    column->addSpacing(gap);
    column->addWidget(buttons);
    full_->setChecked(true);
    full_->setFocus();
}

Version Full_Lite_Question::version() const {
    return lite_->isChecked() && result() == QDialog::Accepted ? Version::lite : Version::full;
}

} // namespace vantrosk
